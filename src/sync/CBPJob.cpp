#include "CBPJob.h"

#include "sync/JobQueue.h"
#include "sync/JobWait.h"

#include <QThread>
#include <QWidget>

#include <stdexcept>

using lumqt::JobPointer;
using lumqt::JobQueue;
using lumqt::JobRecord;

namespace {

// Whose jobs run one after the other.
const void *orderOf(const QObject *object)
{
    if (object && object->isWidgetType())
        return static_cast<const QWidget *>(object)->window();
    return object;
}

} // namespace

CBPJobCancelled::~CBPJobCancelled() = default;

const char *CBPJobCancelled::what() const noexcept
{
    return "The job was cancelled";
}

// ------------------------------------------------------------------------------------------------------------
// in the job

void CBPJobControl::setProgress(double done, double total) noexcept
{
    m_job->setProgress(done, total);
}

void CBPJobControl::setText(const QString &text)
{
    m_job->setText(text);
}

bool CBPJobControl::isCancelled() const noexcept
{
    return m_job->isToldToStop();
}

void CBPJobControl::throwIfCancelled() const
{
    if (isCancelled())
        throw CBPJobCancelled();
}

// ------------------------------------------------------------------------------------------------------------
// its end

CBPJobOutcome::CBPJobOutcome(State state, std::exception_ptr error)
    : m_state(state), m_error(std::move(error))
{
}

QString CBPJobOutcome::errorText() const
{
    if (!m_error)
        return QString();
    try {
        std::rethrow_exception(m_error);
    } catch (const std::exception &error) {
        // Of the system it is in its own encoding, of most programs in UTF-8.
        const QString text = QString::fromUtf8(error.what());
        return text.contains(QChar::ReplacementCharacter) ? QString::fromLocal8Bit(error.what()) : text;
    } catch (...) {
        return QStringLiteral("An exception that is no std::exception");
    }
}

// ------------------------------------------------------------------------------------------------------------
// from outside

CBPJobHandle::CBPJobHandle() = default;
CBPJobHandle::CBPJobHandle(JobPointer job) : m_job(std::move(job)) {}
CBPJobHandle::CBPJobHandle(const CBPJobHandle &other) = default;
CBPJobHandle &CBPJobHandle::operator=(const CBPJobHandle &other) = default;
CBPJobHandle::~CBPJobHandle() = default;

void CBPJobHandle::cancel()
{
    if (m_job)
        JobQueue::instance().stop(m_job);
}

bool CBPJobHandle::isFinished() const
{
    return !m_job || m_job->phase == JobRecord::Phase::Over;
}

bool CBPJobHandle::isRunning() const
{
    return m_job && m_job->phase == JobRecord::Phase::Running;
}

double CBPJobHandle::progress() const
{
    return m_job ? m_job->progress() : -1;
}

QString CBPJobHandle::text() const
{
    return m_job ? m_job->text() : QString();
}

// ------------------------------------------------------------------------------------------------------------
// running

JobPointer CBPJob::create(const QString &text, std::function<void(CBPJobControl &)> work, bool canCancel)
{
    JobQueue::checkThread();
    return std::make_shared<JobRecord>(text, std::move(work), canCancel);
}

JobPointer CBPJob::createForFuture(const QString &text, std::function<void()> cancel,
                                   std::function<bool()> isFinished, std::shared_ptr<void> watcher)
{
    const JobPointer job = create(text, nullptr, true);
    job->future.reset(new JobRecord::Future{std::move(cancel), std::move(isFinished), std::move(watcher)});
    return job;
}

void CBPJob::tellProgress(const JobPointer &job, int done, int total, const QString &text)
{
    if (!job)
        return;
    job->setProgress(done, total);
    if (!text.isEmpty())
        job->setText(text);
}

void CBPJob::futureEnded(const JobPointer &job, std::exception_ptr error, bool cancelled)
{
    if (!job)
        return;
    job->endFuture(std::move(error), cancelled);
    JobQueue::tellReturned(job);
}

bool CBPJob::isOver(const JobPointer &job)
{
    return job->phase == JobRecord::Phase::Over;
}

CBPJobOutcome CBPJob::wait(const JobPointer &job, QObject *window, CBPSyncObj *waitIn)
{
    JobQueue &queue = JobQueue::instance();
    const QPointer<QObject> alive(window);
    bool windowGone = false;
    {
        lumqt::JobWait wait(job, window, waitIn);
        queue.add(job, orderOf(window));
        try {
            wait.run();
        } catch (...) { // of what is waited in
            queue.forget(job);
            throw;
        }
        windowGone = wait.isWindowGone();
    }
    if (isOver(job)) {
        const CBPJobOutcome outcome = job->outcome();
        if (outcome.isFailed())
            lumqt::JobWait::showFailure(alive);
        return outcome;
    }
    queue.forget(job);
    return CBPJobOutcome(windowGone ? CBPJobOutcome::WindowGone : CBPJobOutcome::Cancelled);
}

CBPJobHandle CBPJob::begin(const JobPointer &job, QObject *receiver,
                           std::function<void(const CBPJobOutcome &)> then)
{
    if (receiver && receiver->thread() != QThread::currentThread())
        throw std::logic_error("CBPJob: the receiver lives in another thread");
    job->then = std::move(then);
    job->receiver = receiver;
    job->hasReceiver = receiver;
    if (receiver) {
        // Not kept by what it is to be told of.
        job->receiverGone =
            QObject::connect(receiver, &QObject::destroyed, [weak = std::weak_ptr<JobRecord>(job)] {
                if (const JobPointer left = weak.lock())
                    JobQueue::instance().forget(left);
            });
    }
    JobQueue::instance().add(job, orderOf(receiver));
    return CBPJobHandle(job);
}

int CBPJob::maximumRunning()
{
    JobQueue::checkThread();
    return JobQueue::instance().maximum();
}

void CBPJob::setMaximumRunning(int count)
{
    JobQueue::checkThread();
    JobQueue::instance().setMaximum(count);
}

QStringList CBPJob::waitForAll(int milliseconds)
{
    JobQueue::checkThread();
    return JobQueue::instance().waitForAll(milliseconds);
}
