#include "CWorkThreadMgr.h"

#include "CBaseSyncExecuter.h"
#include "foundation/Log.h"
#include "sync/ThreadEnd.h"
#include "sync/WaitNames.h"

#include <QCoreApplication>
#include <QPointer>

namespace {

constexpr int kPollMs = 1;

} // namespace

CWorkThreadMgr *CWorkThreadMgr::m_pInstance = nullptr;

CWorkThreadMgr *CWorkThreadMgr::instance()
{
    if (m_pInstance) {
        m_pInstance->AddRef();
        return m_pInstance;
    }
    // No static object: it would go after the application.
    m_pInstance = new CWorkThreadMgr;
    if (const QCoreApplication *application = QCoreApplication::instance())
        m_pInstance->moveToThread(application->thread());
    return m_pInstance;
}

CWorkThreadMgr::CWorkThreadMgr() = default;

CWorkThreadMgr::~CWorkThreadMgr()
{
    m_pInstance = nullptr; // an application may have released what it never got
}

// Out of line: a compiler that sees the base's deletion from here takes it for one within the object.
long CWorkThreadMgr::Release()
{
    return CTWObject::Release();
}

void CWorkThreadMgr::addData(void *window, CBaseSyncExecuter *exec)
{
    if (exec)
        m_windows[window].append(exec);
}

void CWorkThreadMgr::removeData(void *window, CBaseSyncExecuter *exec)
{
    const auto entry = m_windows.find(window);
    if (entry == m_windows.end())
        return;
    if (exec)
        entry->removeOne(exec);
    if (!exec || entry->isEmpty())
        m_windows.erase(entry);
}

bool CWorkThreadMgr::isWndObjExist(void *window)
{
    return m_windows.contains(window);
}

// Once for a window, however often it registers.
void CWorkThreadMgr::watch(QObject *window)
{
    if (lumqt::tellsOfItsEnd(window))
        connect(window, SIGNAL(sigQuit(void *)), this, SLOT(slotQuit(void *)), Qt::UniqueConnection);
    connect(window, &QObject::destroyed, this, &CWorkThreadMgr::onWindowDestroyed, Qt::UniqueConnection);
}

void CWorkThreadMgr::slotQuit(void *pWndObj)
{
    // What one wait's end sets going may delete another's executer.
    QList<QPointer<CBaseSyncExecuter>> told;
    const auto listed = m_windows.value(pWndObj);
    for (CBaseSyncExecuter *exec : listed)
        told << exec;
    for (const auto &exec : qAsConst(told)) {
        if (exec)
            exec->notifyQuit();
    }
}

// The entry stays until its executers are gone. Should a new window get the same address, it is watched by
// itself, and those that are listed already have quit.
void CWorkThreadMgr::onWindowDestroyed(QObject *window)
{
    slotQuit(window);
}

// Deletes the orphans that have ended. Returns whether there is more to wait for.
bool CWorkThreadMgr::reap()
{
    QList<QPointer<CBaseSyncExecuter>> all;
    for (const auto &entry : qAsConst(m_windows)) {
        for (CBaseSyncExecuter *exec : entry)
            all << exec;
    }
    bool busy = false;
    for (const auto &exec : qAsConst(all)) {
        if (!exec)
            continue;
        if (exec->isRunning()) {
            busy = true;
        } else if (exec->isOrphan()) {
            lumqt::afterThreadEnd(exec);
            delete exec.data();
        }
    }
    return busy;
}

int CWorkThreadMgr::WaitForAllExist()
{
    CWorkThreadMgr *manager = instance();
    while (manager->reap())
        QThread::msleep(kPollMs);
    if (!manager->m_windows.isEmpty())
        qCWarning(lcLumQt, "CWorkThreadMgr: executers that have ended were not deleted by their callers");
    return 0;
}
