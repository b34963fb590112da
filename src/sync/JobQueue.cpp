#include "sync/JobQueue.h"

#include "foundation/Log.h"
#include "sync/JobThreads.h"
#include "sync/JobWait.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

#include <stdexcept>
#include <utility>
#include <vector>

namespace lumqt {

namespace {

constexpr unsigned long kPollMs = 1;

// What Qt hands from one thread to another does come before what the other does with it, but the thread
// sanitizer does not see into Qt. This it sees: each hands over after adding, and takes after reading.
std::atomic<int> handovers{0};

void handOver()
{
    handovers.fetch_add(1, std::memory_order_release);
}

void takeOver()
{
    (void)handovers.load(std::memory_order_acquire);
}

// Whether there is an application that events can be posted for; once it goes, no thread posts any more, and
// what has returned waits for the next one.
std::mutex applicationLock;
bool hasApplication = false;

std::vector<QEvent *> &keptEvents()
{
    static auto *kept = new std::vector<QEvent *>;
    return *kept;
}

void onApplicationEnd()
{
    const std::lock_guard<std::mutex> lock(applicationLock);
    hasApplication = false;
}

void noteApplication()
{
    const std::lock_guard<std::mutex> lock(applicationLock);
    if (hasApplication)
        return;
    hasApplication = true;
    qAddPostRoutine(onApplicationEnd);
    for (QEvent *event : std::exchange(keptEvents(), {})) {
        handOver();
        QCoreApplication::postEvent(&JobQueue::instance(), event);
    }
}

const int kReturned = QEvent::registerEventType();

class ReturnedEvent : public QEvent
{
public:
    explicit ReturnedEvent(JobPointer returned) : QEvent(Type(kReturned)), job(std::move(returned)) {}
    const JobPointer job;
};

} // namespace

JobQueue::JobQueue() : m_maximum(qMax(1, QThread::idealThreadCount())) {}

JobQueue &JobQueue::instance()
{
    static auto *queue = new JobQueue;
    return *queue;
}

void JobQueue::checkThread()
{
    const QCoreApplication *application = QCoreApplication::instance();
    if (!application)
        throw std::logic_error("CBPJob: there is no application");
    if (QThread::currentThread() != application->thread())
        throw std::logic_error("CBPJob: jobs are run and started in the GUI thread; a job that needs another "
                               "one calls its function");
    noteApplication();
}

void JobQueue::setMaximum(int count)
{
    m_maximum = qMax(1, count);
    startNext();
}

void JobQueue::add(const JobPointer &job, const void *order)
{
    m_all.insert(job);
    if (job->future) { // somebody else runs it
        job->phase = JobRecord::Phase::Running;
        return;
    }
    job->order = order;
    if (order && m_later.contains(order)) {
        m_later[order].push_back(job);
        return;
    }
    if (order)
        m_later.insert(order, {});
    job->hasTurn = true;
    m_ready.push_back(job);
    startNext();
}

void JobQueue::startNext()
{
    if (m_isStarting) // further down on the stack, where it goes on
        return;
    m_isStarting = true;
    while (m_counted < m_maximum && !m_ready.empty()) {
        const JobPointer job = m_ready.front();
        m_ready.pop_front();
        if (job->phase != JobRecord::Phase::Waiting) // was cancelled
            continue;
        if (job->hasReceiver && !job->receiver) { // is being destroyed, and has told others of it first
            forget(job);
            continue;
        }
        job->phase = JobRecord::Phase::Running;
        job->counts = true;
        ++m_counted;
        runInThread(job);
    }
    m_isStarting = false;
}

// Lets others have the thread and the turn of a job.
void JobQueue::makeWay(const JobPointer &job)
{
    if (job->counts) {
        job->counts = false;
        --m_counted;
    }
    if (const void *order = std::exchange(job->order, nullptr)) {
        std::deque<JobPointer> &later = m_later[order];
        while (!later.empty() && later.front()->phase != JobRecord::Phase::Waiting)
            later.pop_front();
        if (later.empty()) {
            m_later.remove(order);
        } else {
            later.front()->hasTurn = true;
            m_ready.push_back(later.front());
            later.pop_front();
        }
    }
    startNext();
}

void JobQueue::tellReturned(JobPointer job)
{
    auto *event = new ReturnedEvent(std::move(job));
    const std::lock_guard<std::mutex> lock(applicationLock);
    if (!hasApplication) { // nobody takes it, and it must not end in this thread
        keptEvents().push_back(event);
        return;
    }
    handOver();
    QCoreApplication::postEvent(&instance(), event);
}

bool JobQueue::event(QEvent *event)
{
    takeOver();
    if (event->type() != kReturned)
        return QObject::event(event);
    end(static_cast<ReturnedEvent *>(event)->job);
    return true;
}

// Tells whoever waits; nothing of the queue is touched after that.
void JobQueue::end(const JobPointer &job)
{
    job->phase = JobRecord::Phase::Over;
    job->future.reset();
    m_all.erase(job);
    makeWay(job);
    if (JobWait *wait = job->wait) {
        wait->end();
        return;
    }
    const auto then = std::exchange(job->then, nullptr);
    const CBPJobOutcome outcome = job->outcome();
    QObject::disconnect(job->receiverGone);
    if (then && (job->receiver || !job->hasReceiver))
        then(outcome);
    else if (outcome.isFailed())
        qCWarning(lcLumQt, "The job \"%s\" has failed, and nobody waits for it: %s",
                  qUtf8Printable(job->name), qUtf8Printable(outcome.errorText()));
}

void JobQueue::stop(const JobPointer &job)
{
    job->tellToStop();
    if (job->phase == JobRecord::Phase::Running && job->future)
        job->future->cancel();
    if (job->phase != JobRecord::Phase::Waiting)
        return;
    job->phase = JobRecord::Phase::Over; // it is skipped when its turn comes, which may be late
    if (!job->hasTurn)
        job->order = nullptr; // there is none that it could pass on
    job->dropWork();
    tellReturned(job); // whoever waits hears of it as of any other end
}

void JobQueue::forget(const JobPointer &job)
{
    job->then = nullptr;
    job->wait = nullptr;
    stop(job);
    makeWay(job);
}

QStringList JobQueue::waitForAll(int milliseconds)
{
    const QDeadlineTimer deadline =
        milliseconds < 0 ? QDeadlineTimer(QDeadlineTimer::Forever) : QDeadlineTimer(milliseconds);
    const std::unordered_set<JobPointer> all = m_all;
    for (const JobPointer &job : all)
        stop(job);
    const auto hasStopped = [](const JobPointer &job) {
        if (job->future)
            return job->future->isFinished();
        return job->phase != JobRecord::Phase::Running || job->hasReturned();
    };
    QStringList late;
    for (const JobPointer &job : all) {
        while (!hasStopped(job) && !deadline.hasExpired())
            QThread::msleep(kPollMs);
        if (!hasStopped(job))
            late.append(job->name);
    }
    for (const QString &name : qAsConst(late))
        qCWarning(lcLumQt, "The job \"%s\" does not stop", qUtf8Printable(name));
    return late;
}

} // namespace lumqt
