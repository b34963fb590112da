#pragma once

#include "CBPSyncObj.h"
#include "sync/JobRecord.h"

#include <QBasicTimer>
#include <QObject>
#include <QPointer>
#include <QVector>

class CBPJobWindow;
class QWidget;

namespace lumqt {

struct WaitLoop;

// Somebody waits for a job, on the stack. It keeps the user from what would start it once more, and shows
// what becomes of it.
class JobWait : public QObject
{
    Q_OBJECT

public:
    JobWait(JobPointer job, QObject *window, CBPSyncObj *waitIn);
    ~JobWait() override;

    // Waits until end(), or until the wait is broken off.
    void run();

    // The job is over.
    void end();

    bool isWindowGone() const { return m_windowGone; }

    // Red for a while, on the task bar.
    static void showFailure(QObject *window);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void timerEvent(QTimerEvent *event) override;

private Q_SLOTS:
    void onWindowGone();

private:
    CBPSyncObj *syncObj() const;
    bool isGlobal() const;
    bool isBlocked(const QObject *watched) const;
    void block();
    void unblock();
    bool isOtherModal() const;
    void show();
    void update();

    const JobPointer m_job;
    CBPSyncObj m_own;
    CBPSyncObj *const m_syncObj;
    const std::weak_ptr<void> m_syncLife;
    const std::shared_ptr<WaitLoop> m_loop;
    const QPointer<QObject> m_window;
    const bool m_showsWindow;
    QVector<QPointer<QWidget>> m_blocked;
    QBasicTimer m_delay;
    QBasicTimer m_ticks;
    QPointer<QWidget> m_modalBefore;
    QPointer<CBPJobWindow> m_shown;
    bool m_wasShown = false;
    int m_textNumber = 0;
    int m_taskBar = -1; // what it shows: -1 nothing, 0 busy, then thousandths and 1
    bool m_ended = false;
    bool m_windowGone = false;
};

} // namespace lumqt
