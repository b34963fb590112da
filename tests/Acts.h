#pragma once

#include "CBPMenu.h"

#include <QAccessible>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>
#include <QtTest>

// What tests do to widgets.

inline void sendEvent(QWidget &widget, QEvent::Type type)
{
    if (type == QEvent::Enter) {
        QEnterEvent event(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
        QCoreApplication::sendEvent(&widget, &event);
    } else {
        QEvent event(type);
        QCoreApplication::sendEvent(&widget, &event);
    }
}

inline void sendFocus(QWidget &widget, QEvent::Type type)
{
    QFocusEvent event(type, Qt::TabFocusReason);
    QCoreApplication::sendEvent(&widget, &event);
}

inline void sendMouse(QWidget &widget, QEvent::Type type, Qt::MouseButton button = Qt::LeftButton,
                      const QPoint &at = QPoint(5, 5))
{
    QMouseEvent event(type, QPointF(at), button, button, {});
    QCoreApplication::sendEvent(&widget, &event);
}

// The ways to click a button. Each stops when the button is gone.
enum class Click { Left, Right, Space, Enter, Tool };

inline void click(QWidget *widget, Click how)
{
    const QPointer<QWidget> alive(widget);
    const auto key = [&](QEvent::Type type, int code) {
        QKeyEvent event(type, code, Qt::NoModifier);
        if (alive)
            QCoreApplication::sendEvent(widget, &event);
    };
    if (how == Click::Left || how == Click::Right) {
        const Qt::MouseButton button = how == Click::Left ? Qt::LeftButton : Qt::RightButton;
        sendMouse(*widget, QEvent::MouseButtonPress, button);
        if (alive)
            sendMouse(*widget, QEvent::MouseButtonRelease, button);
    } else if (how == Click::Tool) {
        QAccessibleInterface *face = QAccessible::queryAccessibleInterface(widget);
        QVERIFY(face && face->actionInterface());
        face->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    } else {
        const int code = how == Click::Space ? Qt::Key_Space : Qt::Key_Return;
        key(QEvent::KeyPress, code);
        key(QEvent::KeyRelease, code);
    }
}

// Runs `act` once `menu` is on the screen, and closes whatever is left of it after that.
template <class Act> void whileOpen(QObject *context, CBPMenu *watched, Act act)
{
    auto *timer = new QTimer(context);
    const QPointer<CBPMenu> menu = watched;
    QObject::connect(timer, &QTimer::timeout, context, [=] {
        if (!menu || !menu->isVisible())
            return;
        timer->stop();
        timer->deleteLater();
        act(menu);
        if (menu)
            menu->close();
    });
    timer->start(10);
}
