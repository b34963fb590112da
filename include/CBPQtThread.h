#pragma once

#include "LumQtGlobal.h"

#include <QThread>

#include <atomic>

/// A thread that runs a plain function.
/// \since 1.0
class LUMQT_EXPORT CBPQtThread : public QThread
{
    Q_OBJECT

public:
    /// A thread without a function, owned by `parent`.
    /// \since 1.0
    explicit CBPQtThread(QObject *parent);

    /// Asks a function that still runs to stop, and waits for it.
    /// \since 1.0
    ~CBPQtThread() override;

    /// The function to run, and what to call it with; not owned. It has to look at IsStop() again and again,
    /// and to return when that is true. Null: the thread runs an event loop. Not to be called while the
    /// thread runs. \since 1.0
    void setCB(void (*cb)(void *), void *context);

    /// Whether the function is to return. Any thread.
    /// \since 1.0
    bool IsStop() const;

    /// Asks the function to return. Any thread.
    /// \since 1.0
    void SetStop();

    /// Asks the function to return, and sleeps until the thread has ended. A thread that never ran is started
    /// for it, and ends at once. Does nothing but ask within the thread itself. \since 1.0
    void WaitExit();

public Q_SLOTS:
    /// Starts the thread with the priority of the one that calls. Does nothing while it runs.
    /// \since 1.0
    void start();

protected:
    void run() override;

private:
    std::atomic<bool> m_stop{false};
    void (*m_callback)(void *) = nullptr;
    void *m_context = nullptr;
};
