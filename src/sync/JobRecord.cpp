#include "sync/JobRecord.h"

#include <QCoreApplication>
#include <QEvent>

#include <cmath>

namespace lumqt {

JobRecord::JobRecord(const QString &text, Work work, bool cancellable)
    : name(text), canCancel(cancellable), m_work(std::move(work)), m_text(text)
{
}

// One number, as two could be read in the middle of a change.
void JobRecord::setProgress(double done, double total) noexcept
{
    const double part = done / total;
    const bool known = total > 0 && std::isfinite(total) && !std::isnan(part);
    m_progress.store(known ? qBound(0.0, part, 1.0) : -1.0, std::memory_order_relaxed);
}

void JobRecord::setText(const QString &text)
{
    const std::lock_guard<std::mutex> lock(m_textLock);
    m_text = text;
    m_textNumber.fetch_add(1, std::memory_order_relaxed);
}

QString JobRecord::text() const
{
    const std::lock_guard<std::mutex> lock(m_textLock);
    return m_text;
}

void JobRecord::run()
{
    try {
        m_work(m_control);
    } catch (const CBPJobCancelled &) {
        m_leftByCancel = true;
    } catch (...) {
        m_error = std::current_exception();
    }
    m_work = nullptr;
    // The thread does not end here, and handles no events of its own.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_returned.store(true, std::memory_order_release);
}

void JobRecord::endFuture(std::exception_ptr error, bool cancelled)
{
    m_error = std::move(error);
    m_leftByCancel = cancelled;
    m_returned.store(true, std::memory_order_release);
}

CBPJobOutcome JobRecord::outcome() const
{
    if (m_error)
        return CBPJobOutcome(CBPJobOutcome::Failed, m_error);
    const bool stopped = m_leftByCancel || isToldToStop() || !hasReturned();
    return CBPJobOutcome(stopped ? CBPJobOutcome::Cancelled : CBPJobOutcome::Done);
}

} // namespace lumqt
