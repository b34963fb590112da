#pragma once

#include "Await.h"
#include "CBPMenu.h"
#include "foundation/QtCompat.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QCloseEvent>
#include <QMap>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>
#include <QtTest>
#include <QWindow>

#include <functional>
#include <utility>

// What tests do to widgets.

inline void showActive(QWidget &window)
{
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window, kPatience));
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

// What Alt+F4 and the task bar do; the close() of the window's handle is the program's own.
inline void closeBySystem(QWidget &window)
{
    QCloseEvent event;
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(window.windowHandle(), &event); // sendEvent() would not let it be spontaneous
}

inline void sendFocus(QWidget &widget, QEvent::Type type)
{
    QFocusEvent event(type, Qt::TabFocusReason);
    QCoreApplication::sendEvent(&widget, &event);
}

inline void sendMouse(QWidget &widget, QEvent::Type type, Qt::MouseButton button = Qt::LeftButton,
                      const QPoint &at = QPoint(5, 5))
{
    QMouseEvent event(type, at, widget.mapToGlobal(at), button, button, {});
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

// Whether a widget on the screen is painted anew after an act. A window is told to paint what is marked,
// which it does by itself only some milliseconds later.
template <class Act> bool repaints(QWidget &widget, Act act)
{
    const auto paint = [&widget] {
        QCoreApplication::processEvents();
        sendEvent(*widget.window(), QEvent::UpdateRequest);
    };
    paint();
    const EventCounter paints(&widget, {QEvent::Paint});
    act();
    paint();
    return paints.count > 0;
}

// What befalls a button or a link, by its names in a list of words; those of `own` beside the common ones.
// "checked:1" sets a property. Stops when it is gone.
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
        const QStringList property = word.split(QLatin1Char(':'));
        if (property.size() == 2) {
            QVERIFY2(!alive || alive->setProperty(property[0].toLatin1(), property[1].toInt()),
                     qPrintable(word));
            continue;
        }
        QVERIFY2(own.contains(word) || common.contains(word), qPrintable(word));
        if (alive)
            own.value(word, common.value(word))();
    }
}

// Notes every signal of an object that its class has beyond those of a widget: "pressed", or with the number
// that it carries "clicked0". `told` hears of each.
class SignalLog : public QObject
{
public:
    using Told = std::function<void(const QString &)>;
    explicit SignalLog(
        QObject *sender, const Told &told = [](const QString &) {})
        : m_meta(sender->metaObject()), m_told(told)
    {
        for (int i = QWidget::staticMetaObject.methodCount(); i < m_meta->methodCount(); ++i) {
            const QMetaMethod method = m_meta->method(i);
            if (method.methodType() == QMetaMethod::Signal && !(method.attributes() & QMetaMethod::Cloned))
                QMetaObject::connect(sender, i, this, QObject::staticMetaObject.methodCount() + i);
        }
    }

    // What came since it was asked last, with commas.
    QString taken() { return std::exchange(m_all, {}).join(QLatin1Char(',')); }

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override
    {
        id = QObject::qt_metacall(call, id, arguments);
        if (call != QMetaObject::InvokeMetaMethod || id < 0)
            return id;
        const QMetaMethod method = m_meta->method(id);
        QString told = QString::fromLatin1(method.name());
        if (method.parameterCount() > 0)
            told += QString::number(lumqt::firstArgument(method, arguments).toInt());
        m_all.append(told);
        m_told(told);
        return -1;
    }

private:
    const QMetaObject *m_meta;
    const Told m_told;
    QStringList m_all;
};

// Performs the deeds of a trace, "enter=1 leave=0", and tells it with what `look` says after each: so a whole
// life is one comparison. Ends early when the widget is gone.
template <class Look> QString traced(QWidget *widget, const QString &trace, Look look, const Deeds &own = {})
{
    QStringList seen;
    const QPointer<QWidget> alive(widget);
    const QStringList steps = trace.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &step : steps) {
        const QString deed = step.section(QLatin1Char('='), 0, 0);
        if (alive)
            perform(alive, deed.toLatin1(), own);
        if (alive)
            seen << deed + QLatin1Char('=') + look();
    }
    return seen.join(QLatin1Char(' '));
}

// Which of `colors` this is, as a text; "?" for none of them.
inline QString indexOf(const QColor &color, const QVector<QColor> &colors)
{
    const int index = colors.indexOf(color.toRgb());
    return index < 0 ? QStringLiteral("?") : QString::number(index);
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
