#pragma once

#include "Await.h"

#include <QTimer>

// Spinners hide their timers, which tick every 80 ms. By these ticks they are found: all of them have ticked
// once by the time that one has ticked as often as that.
inline QList<QTimer *> spinnerTimers(int ticks = 2)
{
    class Watch : public QObject
    {
    public:
        Watch() { qApp->installEventFilter(this); }
        QMap<QTimer *, int> ticks;

    protected:
        bool eventFilter(QObject *object, QEvent *event) override
        {
            auto *timer = qobject_cast<QTimer *>(object);
            if (event->type() == QEvent::Timer && timer && timer->interval() == 80)
                ++ticks[timer];
            return false;
        }
    } watch;
    awaited([&watch, ticks] {
        const auto all = watch.ticks.values();
        return std::any_of(all.begin(), all.end(), [ticks](int ticked) { return ticked >= ticks; });
    });
    return watch.ticks.keys();
}

// The timer of the only spinner that turns.
inline QTimer *spinnerTimer()
{
    return spinnerTimers(1).value(0);
}

// Has a timer tick so often, at once.
inline void tick(QTimer *timer, int times = 1)
{
    QVERIFY(timer);
    for (; times > 0; --times)
        QVERIFY(QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection));
}

// Has a spinner that was started show its first frame, which comes with the eleventh tick.
inline void showFirstFrame()
{
    tick(spinnerTimer(), 10);
}
