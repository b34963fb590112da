#pragma once

#include <QWidget>

namespace lumqt {

// Has the Tab key come to `widget` right after `anchor`, or after where that stands if it takes no focus
// itself: what is made later than its neighbours would come last. Both are in one window.
inline void placeBehind(QWidget *anchor, QWidget *widget)
{
    // Qt moves nothing that takes no focus, nor anything behind it.
    const Qt::FocusPolicy anchorPolicy = anchor->focusPolicy();
    const Qt::FocusPolicy policy = widget->focusPolicy();
    anchor->setFocusPolicy(Qt::TabFocus);
    widget->setFocusPolicy(Qt::TabFocus);
    QWidget::setTabOrder(anchor, widget);
    anchor->setFocusPolicy(anchorPolicy);
    widget->setFocusPolicy(policy);
}

} // namespace lumqt
