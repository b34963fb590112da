#pragma once

#include "Await.h"
#include "CBPMenu.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QMap>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>
#include <QtTest>

#include <functional>

// What tests do to widgets.

inline void showActive(QWidget &window)
{
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
}

// A window that was asked to be active. Keys and clicks of a test come faster than any person's, while an X
// window manager still busies itself with the window that has just opened or closed: now and then Qt and the
// server come to differ about the focus. A third window settles it; what is looked at after is which widget
// the window remembers.
inline bool becomesActive(QWidget &window)
{
    if (awaited([&] { return window.isActiveWindow(); }, 250))
        return true;
    QWidget third;
    third.setGeometry(900, 600, 100, 100);
    showActive(third);
    window.activateWindow();
    return awaited([&] { return window.isActiveWindow(); });
}

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

// How many events of these kinds a widget gets, of those that come when `counts` says so.
class EventCounter : public QObject
{
public:
    EventCounter(
        QWidget *widget, const QVector<QEvent::Type> &types,
        const std::function<bool()> &counts = [] { return true; })
        : m_types(types), m_counts(counts)
    {
        widget->installEventFilter(this);
    }
    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += m_types.contains(event->type()) && m_counts();
        return false;
    }

private:
    const QVector<QEvent::Type> m_types;
    const std::function<bool()> m_counts;
};

// What befalls a button or a link, by its names in a list of words; those of `own` beside the common ones.
// Stops when it is gone.
using Deeds = QMap<QString, std::function<void()>>;

inline void perform(QWidget *button, const char *words, const Deeds &own = {})
{
    const QPoint middle = button->rect().center();
    const Deeds common{
        {"enter", [&] { sendEvent(*button, QEvent::Enter); }},
        {"leave", [&] { sendEvent(*button, QEvent::Leave); }},
        {"press", [&] { QTest::mousePress(button, Qt::LeftButton, {}, middle); }},
        {"release", [&] { QTest::mouseRelease(button, Qt::LeftButton, {}, middle); }},
        {"double", [&] { QTest::mouseEvent(QTest::MouseDClick, button, Qt::LeftButton, {}, middle); }},
        {"out", [&] { QTest::mouseRelease(button, Qt::LeftButton, {}, QPoint(500, 500)); }},
        {"right", [&] { QTest::mousePress(button, Qt::RightButton, {}, middle); }},
        {"rightup", [&] { QTest::mouseRelease(button, Qt::RightButton, {}, middle); }},
        {"disable", [&] { button->setEnabled(false); }},
        {"enable", [&] { button->setEnabled(true); }},
        {"hide", [&] { button->hide(); }},
        {"parenthide", [&] { button->window()->hide(); }},
        {"space", [&] { QTest::keyPress(button, Qt::Key_Space); }},
        {"spaceup", [&] { QTest::keyRelease(button, Qt::Key_Space); }},
        {"return", [&] { QTest::keyClick(button, Qt::Key_Return); }},
        {"call", [&] { qobject_cast<QAbstractButton *>(button)->click(); }},
        {"tool", [&] { click(button, Click::Tool); }},
        {"focusin", [&] { sendFocus(*button, QEvent::FocusIn); }},
        {"focusout", [&] { sendFocus(*button, QEvent::FocusOut); }},
    };
    const QPointer<QWidget> alive(button);
    const QStringList all = QString::fromLatin1(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &word : all) {
        QVERIFY2(own.contains(word) || common.contains(word), qPrintable(word));
        if (alive)
            own.value(word, common.value(word))();
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
