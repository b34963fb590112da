#pragma once

#include <QCoreApplication>
#include <QScopeGuard>
#include <QTimer>

#include <functional>

// What tests of waits and of modal windows do once these run.

// Out of line, as compilers see through the deletion of what lives on the stack.
Q_NEVER_INLINE inline void destroy(QObject *object)
{
    delete object;
}

// Gives a value back what it has now, however the block ends.
template <class Value> auto restoring(Value &value)
{
    return qScopeGuard([&value, before = value] { value = before; });
}

// Once control is back in the event loop.
inline void later(QObject *context, const std::function<void()> &act)
{
    QTimer::singleShot(0, context, act);
}
