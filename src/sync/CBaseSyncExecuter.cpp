#include "CBaseSyncExecuter.h"

#include "CBPSyncObj.h"
#include "CBPUISyncWaiter.h"
#include "CUIBaseThread.h"
#include "CWorkThreadMgr.h"
#include "foundation/Log.h"
#include "sync/ThreadEnd.h"
#include "sync/WaitLoop.h"
#include "sync/WaitNames.h"

#include <QWidget>

namespace {

constexpr unsigned long long kNoResult = 0x1001; // not 0, which a job may well report
constexpr unsigned long kQuitStepMs = 1;

} // namespace

// Who deletes an executer, from its making to its end:
//
// - not started (m_quit false, m_needDelete true): its caller. The same when the window goes before the
//   start; m_quit is true then, and execute() only returns the result.
// - waiting (false, true): nobody; execute() is on the stack. Who does it all the same takes the wait along.
// - ended (true, true): its caller; the job was over before the wait was.
// - orphan in its wait (true, false): nobody yet; the window went, and execute() unwinds. If the job ends
//   meanwhile, settle() has it deleted later, so that the caller can still ask.
// - orphan (true, false): onFinished(), when the job ends; or the manager, at the end of the application.
//
// settle() is what decides when a wait is over, and the only place that makes an orphan of an executer whose
// window is still there: the wait was broken off (Escape, the waiting window or button gone, the application
// quits) while the job runs.

// Each execute() starts a thread, although one that has ended could be kept for the next executer, as jobs do
// it (JobThreads.cpp). An executer is a QThread, and whoever has one uses it as such: isRunning(), wait(),
// the interruption and the priority, currentThread() in run(), quit() for an exec() in there, started() and
// finished(). None of that is virtual, and all of it tells of the thread that start() makes; run() in any
// other would find that it is not running, cannot be interrupted, and has been waited for at once.

// Lies on the stack of execute(), and outlives the executer if need be.
struct CBaseSyncExecuter::Wait
{
    bool alive = true;
    unsigned long long result = 0; // of an executer that is gone
};

// Shared with execute(), which may outlive the executer.
struct CBaseSyncExecuter::Loop : lumqt::WaitLoop
{
};

CBaseSyncExecuter::CBaseSyncExecuter(CBPSyncObj *syncObj, QString text, QObject *window, QObject *attached)
    : m_result(kNoResult),
      m_syncObj(syncObj),
      m_text(text),
      m_loop(std::make_shared<Loop>()),
      m_manager(CWorkThreadMgr::instance()),
      m_attached(attached),
      m_window(window),
      m_windowKey(window)
{
    if (syncObj)
        m_syncLife = syncObj->m_life;
    // Queued, since the signal comes from the worker thread: it arrives once the caller waits.
    connect(this, &QThread::finished, this, &CBaseSyncExecuter::onFinished);
    lumqt::announceThreadEnd(this);
    packetData(window);
}

CBaseSyncExecuter::~CBaseSyncExecuter()
{
    if (isRunning()) {
        qCWarning(lcLumQt, "An executer is deleted while its job runs");
        requestInterruption();
        // A thread that had not come to the derived run() runs the base's, which is an event loop.
        while (!wait(kQuitStepMs) && QThread::currentThread() != this)
            quit();
    } else {
        wait(); // it may be on its way out; a limit would set up a timer, a quarter of what the thread costs
    }
    lumqt::afterThreadEnd(this);
    if (m_wait) {
        m_wait->alive = false;
        m_wait->result = m_result;
        endWait();
    }
    release();
}

void CBaseSyncExecuter::packetData(QObject *window)
{
    if (!window || !m_manager)
        return;
    m_manager->watch(window);
    m_manager->addData(window, this);
}

bool CBaseSyncExecuter::isGlobal() const
{
    return lumqt::isGlobalWait(m_text);
}

bool CBaseSyncExecuter::isNeedDelete() const
{
    return m_needDelete;
}

bool CBaseSyncExecuter::isOrphan() const
{
    return m_quit && !m_needDelete && !m_wait;
}

CBPSyncObj *CBaseSyncExecuter::syncObj() const
{
    return m_syncLife.expired() ? nullptr : m_syncObj;
}

unsigned long long CBaseSyncExecuter::execute()
{
    if (m_wait || isRunning() || !m_needDelete) {
        qCWarning(lcLumQt,
                  "An executer was executed while its job runs, or when it is not the caller's any more");
        return m_result;
    }
    if (m_quit && !isFinished()) // the window went before the job could start
        return m_result;
    Wait wait;
    m_wait = &wait;
    m_quit = false;
    if (!syncObj())
        makeWaiter();
    start(QThread::InheritPriority);
    if (!isRunning() && !isFinished()) { // nothing would end the wait; the caller may try again
        qCWarning(lcLumQt, "The thread of an executer could not be started");
        m_wait = nullptr;
        return m_result;
    }
    waitForJob(wait);
    if (!wait.alive)
        return wait.result;
    m_wait = nullptr;
    settle();
    return m_result;
}

void CBaseSyncExecuter::makeWaiter()
{
    auto *waiter = new CBPUISyncWaiter(m_text, qobject_cast<QWidget *>(m_window.data()));
    m_syncObj = waiter;
    m_syncLife = m_syncObj->m_life;
    m_ownsSyncUI = true;
    connect(waiter, SIGNAL(destroyed()), this, SLOT(onSyncUIDestroyed()));
}

void CBaseSyncExecuter::waitForJob(const Wait &wait)
{
    const std::shared_ptr<Loop> loop = m_loop;
    if (CBPSyncObj *sync = syncObj())
        sync->setText(m_text);
    // Events may have been handled in there.
    CBPSyncObj *sync = wait.alive && !m_quit ? syncObj() : nullptr;
    if (sync)
        sync->run(&loop->events, isGlobal());
    loop->nudge.reset();
}

// The object may be gone afterwards.
void CBaseSyncExecuter::endWait()
{
    const std::shared_ptr<Loop> loop = m_loop;
    const bool waits = m_wait; // not so after a start() by hand
    if (CBPSyncObj *sync = syncObj())
        sync->exit(&loop->events, isGlobal());
    if (waits)
        loop->end(); // also a wait that outlived what it was seen in
}

// The wait is over, whoever ended it.
void CBaseSyncExecuter::settle()
{
    if (m_quit) {
        if (!m_needDelete)
            dropWaiter();
        if (m_endedInWait)
            deleteLater();
        return;
    }
    m_quit = true;
    if (!isRunning()) {
        lumqt::afterThreadEnd(this);
        return;
    }
    m_needDelete = false;
    dropWaiter();
}

// An orphan waits in nothing any more. In what is not ours another wait may be going on by the time the job
// ends; and what is ours is a window, which could not be deleted after the application.
void CBaseSyncExecuter::dropWaiter()
{
    CBPSyncObj *sync = m_ownsSyncUI ? syncObj() : nullptr;
    m_ownsSyncUI = false;
    m_syncObj = nullptr;
    delete sync;
}

void CBaseSyncExecuter::onFinished()
{
    if (isRunning()) // late word of an earlier run
        return;
    lumqt::afterThreadEnd(this);
    if (m_quit) {
        if (m_needDelete)
            return;
        m_endedInWait = m_wait;
        if (!m_wait)
            delete this;
        return;
    }
    m_quit = true;
    endWait();
}

void CBaseSyncExecuter::notifyQuit()
{
    // A job whose wait was broken off runs on, and has not heard yet that its window goes.
    if (m_quit && (m_windowGone || !isRunning()))
        return;
    m_quit = true;
    m_windowGone = true;
    const QPointer<QObject> attached = m_attached;
    if (m_wait) {
        m_needDelete = false;
        endWait();
    }
    if (auto *thread = qobject_cast<CUIBaseThread *>(attached.data()))
        thread->requestQuit();
}

void CBaseSyncExecuter::onSyncUIDestroyed()
{
    m_ownsSyncUI = false;
    m_syncObj = nullptr;
    if (m_wait && !m_quit)
        m_loop->end();
}

void CBaseSyncExecuter::release()
{
    dropWaiter();
    delete m_attached.data();
    if (m_manager)
        m_manager->removeData(m_windowKey, this);
}
