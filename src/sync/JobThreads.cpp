#include "sync/JobThreads.h"

#include "foundation/Log.h"
#include "platform/Platform.h"
#include "sync/JobQueue.h"

#include <QThread>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <utility>

namespace lumqt {

namespace {

constexpr std::chrono::seconds kKept(30);

// No QThreadPool: it wakes a thread while it holds the lock that the thread needs first, takes one that has
// told of its job but is not back yet for busy, and lets what a job leaves in its thread come to the next. A
// job that does nothing takes twice as long in it.
struct Threads
{
    std::mutex lock;
    std::condition_variable wake;
    std::deque<JobPointer> jobs; // that no thread has taken
    size_t free = 0;             // threads that have no job, or have done with it
};

// Never destroyed: the threads wait in it when everything else is gone.
Threads &threads()
{
    static auto *all = [] {
        platform::stayLoaded();
        return new Threads;
    }();
    return *all;
}

class JobThread : public QThread
{
public:
    JobThread()
    {
        setObjectName(QStringLiteral("LumQt job"));
        connect(this, &QThread::finished, this, &QObject::deleteLater);
    }

protected:
    void run() override
    {
        while (JobPointer job = next()) {
            job->run();
            const bool again = cleanUp();
            if (again)
                beFree(); // before the next job is given, which may be as soon as the queue knows
            JobQueue::tellReturned(std::move(job)); // nothing of it ends here
            if (!again)
                return;
        }
    }

private:
    // Waits for a job. None after a while, unless no other thread would be left to take the next one.
    static JobPointer next()
    {
        Threads &all = threads();
        std::unique_lock<std::mutex> lock(all.lock);
        while (all.jobs.empty()) {
            if (all.free == 1) {
                all.wake.wait(lock);
                continue;
            }
            const bool waited = all.wake.wait_for(lock, kKept) == std::cv_status::timeout;
            if (waited && all.free > 1 && all.jobs.empty()) {
                --all.free;
                return nullptr;
            }
        }
        --all.free;
        JobPointer job = std::move(all.jobs.front());
        all.jobs.pop_front();
        return job;
    }

    static void beFree()
    {
        const std::lock_guard<std::mutex> lock(threads().lock);
        ++threads().free;
    }

    // What a job leaves in its thread does not come to the next one. Returns whether the thread can be used
    // again: some of it only goes with the thread.
    bool cleanUp()
    {
        // Every event loop would end at once in a thread that was told to quit, until its own has: this one
        // is told once more, so that it does without having begun.
        quit();
        exec();
        return !isInterruptionRequested() && priority() == InheritPriority;
    }
};

} // namespace

void runInThread(const JobPointer &job)
{
    Threads &all = threads();
    std::unique_lock<std::mutex> lock(all.lock);
    all.jobs.push_back(job);
    const bool isNew = all.free < all.jobs.size();
    if (isNew)
        ++all.free;
    lock.unlock(); // which whoever wakes up needs
    if (!isNew) {
        all.wake.notify_one();
        return;
    }
    auto *thread = new JobThread;
    thread->start();
    if (thread->isRunning() || thread->isFinished())
        return;
    qCWarning(lcLumQt, "The thread of a job could not be started"); // another may take it
    delete thread;
    lock.lock();
    --all.free;
}

} // namespace lumqt
