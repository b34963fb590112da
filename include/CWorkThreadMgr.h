#pragma once

#include "CTWObject.h"
#include "LumQtGlobal.h"

#include <QList>
#include <QMap>
#include <QObject>

class CBaseSyncExecuter;

/// Knows which executers wait on behalf of which window, and ends their waits when the window goes away.
///
/// There is one, made when it is first asked for and never destroyed by the library. Everything is called in
/// the GUI thread. \since 1.0
class LUMQT_EXPORT CWorkThreadMgr : public QObject, public CTWObject<ITWObject>
{
    Q_OBJECT

public:
    /// The only one. The first call makes it, with the count 1; each later call adds an owner, which the
    /// library never takes away again. \since 1.0
    static CWorkThreadMgr *instance();

    /// \since 1.0
    ~CWorkThreadMgr() override;

    /// Takes an owner away; returns the new count. Calling it more often than instance() added owners
    /// destroys the manager, and the next instance() makes another. \since 1.0
    long Release() override;

    /// Lists `exec` under `window`, which is used as a key only. Neither is owned. Null for `exec` is
    /// ignored. \since 1.0
    void addData(void *window, CBaseSyncExecuter *exec);

    /// Takes `exec` off the window's list, and the window's entry away with the last one. Null for `exec`
    /// takes the whole entry away: these executers are not told any more when the window goes. \since 1.0
    void removeData(void *window, CBaseSyncExecuter *exec);

    /// Whether executers are listed under `window`.
    /// \since 1.0
    bool isWndObjExist(void *window);

    /// For the end of an application, while its application object still exists: sleeps, without handling
    /// events, until every job that was waited for on behalf of a window has ended, and deletes the executers
    /// that would have deleted themselves. Those that their callers still have to delete are left alone, and
    /// said in the log. Returns 0. \since 1.0
    static int WaitForAllExist();

private Q_SLOTS:
    void slotQuit(void *pWndObj);
    void onWindowDestroyed(QObject *window);

private:
    friend class CBaseSyncExecuter;

    CWorkThreadMgr();
    void watch(QObject *window);
    bool reap();

    static CWorkThreadMgr *m_pInstance;
    QMap<void *, QList<CBaseSyncExecuter *>> m_windows;
};
