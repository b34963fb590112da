#pragma once

#include <QWidget>

namespace lumqt {

// Whether `widget`, which gets the focus for `reason`, got it by keyboard: then it has to show that it has
// it.
inline bool focusedByKeyboard(const QWidget *widget, Qt::FocusReason reason)
{
    switch (reason) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
        return true;
    case Qt::MouseFocusReason:
        return false;
    default: // the window became active, or a program moved the focus
        return widget->window()->testAttribute(Qt::WA_KeyboardFocusChange);
    }
}

} // namespace lumqt
