#pragma once

#include <QDeadlineTimer>
#include <QThread>
#include <QtTest>

// Awaits what comes with the event loop. QTRY_VERIFY and its kin look every 50 ms, which is most of the time
// of a test that waits often; these look every millisecond. The deadline only ends a test that hangs: no
// fault is told by it, so that a busy machine is none. Once it has ended one, the program has failed, and
// takes its failures sooner.
constexpr int kPatience = 20000;
inline bool hasHung = false;

template <class Condition> bool awaited(Condition met, int milliseconds = kPatience)
{
    const QDeadlineTimer deadline(hasHung && milliseconds == kPatience ? 1000 : milliseconds);
    while (!met()) {
        if (deadline.hasExpired()) {
            hasHung = hasHung || milliseconds == kPatience;
            return false;
        }
        QThread::msleep(1);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

#define AWAIT(condition) QVERIFY2(awaited([&] { return bool(condition); }), "did not come: " #condition)

#define AWAIT_EQUAL(actual, expected)                                                                        \
    do {                                                                                                     \
        awaited([&] { return (actual) == (expected); });                                                     \
        QCOMPARE(actual, expected);                                                                          \
    } while (false)
