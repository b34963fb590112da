#pragma once

#include "LumQtGlobal.h"

#include <QPointer>
#include <QString>
#include <QThread>

#include <atomic>
#include <memory>

class CBPSyncObj;
class CWorkThreadMgr;

/// Runs a job on a thread of its own while the caller waits in execute() and the interface stays alive.
///
/// Derive from it, do the job in run() and leave its outcome in #m_result:
/// \code
/// class Sum : public CBaseSyncExecuter
/// {
/// public:
///     using CBaseSyncExecuter::CBaseSyncExecuter;
///     void run() override { m_result = 2 + 2; }
/// };
///
/// auto *sum = new Sum(nullptr, tr("Adding"), this, nullptr);
/// const unsigned long long result = sum->execute();
/// if (sum->isNeedDelete())
///     delete sum;
/// \endcode
///
/// Make it with `new`: after execute() either the caller deletes it, or it deletes itself; isNeedDelete()
/// tells which. Ask at once, before anything that handles events. All of it is used in the GUI thread, except
/// run(): that one is on the worker thread and touches neither the other members nor any widget. An exception
/// that leaves run() ends the program, as with any QThread. \since 1.0
class LUMQT_EXPORT CBaseSyncExecuter : public QThread
{
    Q_OBJECT

public:
    /// A job that has not started.
    ///
    /// The caller waits in \a syncObj, which is not owned and may die at any time. If it is null, execute()
    /// makes a small modal window with a spinner, a child of \a window. \a text is handed to the sync object;
    /// "STR_GLOBAL_UNIQUE" makes it a global wait, which shows no window.
    ///
    /// The job is waited for on behalf of \a window: the wait ends when that emits `sigQuit(void *)` or is
    /// destroyed. If it is null, the wait ends with the job, when it is broken off in \a syncObj, or with the
    /// application; CWorkThreadMgr::WaitForAllExist() does not wait for such a job.
    ///
    /// \a attached is owned: it is deleted with the executer. A CUIBaseThread is asked to stop when the
    /// window goes before the job has ended, also when the wait was broken off before that. \since 1.0
    CBaseSyncExecuter(CBPSyncObj *syncObj, QString text, QObject *window, QObject *attached);

    /// Starts the job, waits for it while events are handled, and returns its result; 0x1001 where no run of
    /// it set one. Returns sooner, with the result as it then stands, when the window goes away, the wait is
    /// broken off or the application quits. The job then runs on, and the executer deletes itself after it,
    /// or in CWorkThreadMgr::WaitForAllExist() when events are not handled any more.
    ///
    /// May be called again once the job has ended. Does nothing but return the result while the job runs, and
    /// after the window went away before the first start. Waits nest: an outer one returns after the inner
    /// ones. \since 1.0
    unsigned long long execute();

    /// Ends the wait because the window goes away, and asks an attached CUIBaseThread once to stop. Called by
    /// the manager; harmless at any time. \since 1.0
    void notifyQuit();

    /// Whether the caller has to delete the executer: false once it will do so itself.
    /// \since 1.0
    bool isNeedDelete() const;

protected:
    /// Frees what the executer owns (its waiting window, the attached object) and takes it off the manager's
    /// list. The destructor calls it. \since 1.0
    void release();

    /// A thread that still runs is asked to stop (requestInterruption()) and waited for. That is the last
    /// resort: by then the derived part of the object is gone, so nobody should rely on it. \since 1.0
    ~CBaseSyncExecuter() override;

    /// What execute() returns. Written by run(); the caller may read it meanwhile when the wait was broken
    /// off. \since 1.0
    std::atomic<unsigned long long> m_result;

private Q_SLOTS:
    void onFinished();
    void onSyncUIDestroyed();

private:
    friend class CWorkThreadMgr;
    struct Loop;
    struct Wait;

    void packetData(QObject *window);
    void makeWaiter();
    void waitForJob(const Wait &wait);
    void endWait();
    void settle();
    void dropWaiter();
    bool isGlobal() const;
    bool isOrphan() const;
    CBPSyncObj *syncObj() const;

    CBPSyncObj *m_syncObj;
    std::weak_ptr<void> m_syncLife;
    bool m_ownsSyncUI = false;
    QString m_text;
    bool m_quit = false;
    std::shared_ptr<Loop> m_loop;
    QPointer<CWorkThreadMgr> m_manager;
    QPointer<QObject> m_attached;
    QPointer<QObject> m_window;
    void *const m_windowKey;
    bool m_needDelete = true;
    Wait *m_wait = nullptr; // execute() while it waits
    bool m_endedInWait = false;
    bool m_windowGone = false; // notifyQuit() has done its work
};
