#pragma once

#include <QCoreApplication>
#include <QTimer>

#include <functional>

// What tests of waits and of modal windows do once these run.

// Out of line, as compilers see through the deletion of what lives on the stack.
Q_NEVER_INLINE inline void destroy(QObject *object)
{
    delete object;
}

// Once control is back in the event loop.
inline void later(QObject *context, const std::function<void()> &act)
{
    QTimer::singleShot(0, context, act);
}

// Ends what would wait for ever.
class Watchdog
{
public:
    Watchdog()
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this] {
            m_bit = true;
            QCoreApplication::exit();
        });
        m_timer.start(30000);
    }
    bool bit() const { return m_bit; }

private:
    QTimer m_timer;
    bool m_bit = false;
};
