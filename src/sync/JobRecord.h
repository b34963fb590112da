#pragma once

#include "CBPJob.h"

#include <atomic>
#include <mutex>

namespace lumqt {

class JobWait;

// A job, from its making until its function has returned. Shared by its caller, the queue, the thread that
// runs it and the handles to it; the thread is never the last.
class JobRecord
{
public:
    using Work = std::function<void(CBPJobControl &)>;

    // Waits in the queue, or for the function to be given to a thread; runs; is over, though nobody may have
    // been told yet.
    enum class Phase { Waiting, Running, Over };

    JobRecord(const QString &text, Work work, bool cancellable);

    // As it was given, which is how it is known at the end of the application.
    const QString name;
    const bool canCancel;

    // ------------------------------------------------------------------------------------------------------
    // any thread

    void setProgress(double done, double total) noexcept;
    double progress() const noexcept { return m_progress.load(std::memory_order_relaxed); }

    void setText(const QString &text);
    QString text() const;
    // Another number for each text.
    int textNumber() const noexcept { return m_textNumber.load(std::memory_order_relaxed); }

    void tellToStop() noexcept { m_told.store(true, std::memory_order_relaxed); }
    bool isToldToStop() const noexcept { return m_told.load(std::memory_order_relaxed); }

    // Whether the function has returned, and left what it did for others to see.
    bool hasReturned() const noexcept { return m_returned.load(std::memory_order_acquire); }

    // ------------------------------------------------------------------------------------------------------
    // the thread that runs it

    // Calls the function and destroys it, and what it has deleted later.
    void run();

    // ------------------------------------------------------------------------------------------------------
    // GUI thread

    CBPJobOutcome outcome() const;

    // Of one that never begins: what its function holds goes now.
    void dropWork() { m_work = nullptr; }

    // Of a future: how it is told to stop, whether it has ended, and what watches it.
    struct Future
    {
        std::function<void()> cancel;
        std::function<bool()> isFinished;
        std::shared_ptr<void> watcher;
    };
    std::unique_ptr<Future> future;
    void endFuture(std::exception_ptr error, bool cancelled);

    Phase phase = Phase::Waiting;
    const void *order = nullptr; // whose jobs run one after the other
    bool hasTurn = false;        // the next of its order, or without one
    bool counts = false;         // among those that run
    JobWait *wait = nullptr;     // who waits for it
    std::function<void(const CBPJobOutcome &)> then;
    QPointer<QObject> receiver;
    bool hasReceiver = false;
    QMetaObject::Connection receiverGone;

private:
    CBPJobControl m_control{this};
    Work m_work;
    std::atomic<double> m_progress{-1};
    std::atomic<bool> m_told{false};
    std::atomic<bool> m_returned{false};
    std::atomic<int> m_textNumber{0};
    mutable std::mutex m_textLock;
    QString m_text;
    std::exception_ptr m_error; // of the function, once it has returned
    bool m_leftByCancel = false;
};

} // namespace lumqt
