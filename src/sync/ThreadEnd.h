#pragma once

#include <QThread>

#if defined(__SANITIZE_THREAD__)
#include <sanitizer/tsan_interface.h>
#endif

// What a thread did comes before what others do once they know, by finished() or wait(), that it has ended.
// The thread sanitizer does not see into Qt, so it is told; in other builds nothing happens here.
namespace lumqt {

// For the thread's constructor, after what it connects to finished() itself.
inline void announceThreadEnd(QThread *thread)
{
#if defined(__SANITIZE_THREAD__)
    QObject::connect(
        thread, &QThread::finished, thread, [thread] { __tsan_release(thread); }, Qt::DirectConnection);
#else
    Q_UNUSED(thread)
#endif
}

// For who knows that it has ended.
inline void afterThreadEnd(QThread *thread)
{
#if defined(__SANITIZE_THREAD__)
    __tsan_acquire(thread);
#else
    Q_UNUSED(thread)
#endif
}

} // namespace lumqt
