#pragma once

#include <QEvent>
#include <QObject>
#include <QWidget>
#include <QWindow>

namespace lumqt {

// While a close event is answered: another close() of the window from in there is without effect. With Qt 6
// it would take the window off the screen at once where the system has asked for the first one, and a dialog
// would end without telling anybody.
class AnsweringClose : public QObject
{
public:
    explicit AnsweringClose(const QWidget *window)
    {
        if (QWindow *handle = window->windowHandle())
            handle->installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override { return event->type() == QEvent::Close; }
};

} // namespace lumqt
