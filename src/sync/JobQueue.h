#pragma once

#include "sync/JobRecord.h"

#include <QHash>
#include <QObject>

#include <deque>
#include <unordered_set>

namespace lumqt {

// Gives jobs to threads, so many at a time, those of one window one after the other; and tells whoever waits
// for them, from the event loop, that they are over. GUI thread only.
class JobQueue : public QObject
{
public:
    // Never destroyed: a thread may come back from a job when everything else is gone.
    static JobQueue &instance();

    // Throws a std::logic_error in any other thread than the GUI's.
    static void checkThread();

    // `order`: only a name, whose jobs run one after the other; null for none. Of a future it makes no
    // difference.
    void add(const JobPointer &job, const void *order);

    // A function has returned, or a future is finished. Any thread.
    static void tellReturned(JobPointer job);

    // The job is told to stop; one that has not begun is over.
    void stop(const JobPointer &job);

    // The same, and nobody waits for it any more: it keeps no other from running.
    void forget(const JobPointer &job);

    QStringList waitForAll(int milliseconds);

    int maximum() const { return m_maximum; }
    void setMaximum(int count);

protected:
    bool event(QEvent *event) override;

private:
    JobQueue();

    void startNext();
    void makeWay(const JobPointer &job);
    void end(const JobPointer &job);

    int m_maximum;
    bool m_isStarting = false;
    int m_counted = 0;              // those that run and count
    std::deque<JobPointer> m_ready; // whose turn it is when there is a thread
    QHash<const void *, std::deque<JobPointer>>
        m_later;                          // by order: one is ready or runs, these come after it
    std::unordered_set<JobPointer> m_all; // that have not been told of yet
};

} // namespace lumqt
