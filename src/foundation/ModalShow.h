#pragma once

#include <QPointer>
#include <QWidget>

namespace lumqt {

// Shows a window and keeps the others from input; false when it is hidden, or gone, by the time it should
// stand there. Qt enters a window among the modal ones, and shows it natively, only after its show event: one
// that is hidden within that event would stay there and block the application for ever.
inline bool showModally(QWidget *window)
{
    const QPointer<QWidget> alive(window);
    window->setAttribute(Qt::WA_ShowModal);
    window->show();
    if (alive && !window->isVisible()) {
        window->setAttribute(Qt::WA_WState_Hidden, false); // hide() does nothing to a hidden one
        window->hide();
    }
    return alive && window->isVisible();
}

} // namespace lumqt
