#pragma once

#include <QCoreApplication>
#include <QFile>
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

// The same of what a file holds.
inline auto restoringFile(const QString &path)
{
    QFile file(path);
    const QByteArray content = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    return qScopeGuard([path, content] {
        QFile again(path);
        if (!again.open(QIODevice::WriteOnly) || again.write(content) != content.size())
            qFatal("%s stays as a test left it", qPrintable(path));
    });
}

// Once control is back in the event loop.
inline void later(QObject *context, const std::function<void()> &act)
{
    QTimer::singleShot(0, context, act);
}
