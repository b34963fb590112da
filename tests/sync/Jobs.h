#pragma once

#include "Await.h"
#include "CBaseSyncExecuter.h"
#include "CBPEvtLoop.h"
#include "CBPSyncObj.h"
#include "CBPUISyncWaiter.h"
#include "CUIBaseThread.h"

#include <QApplication>
#include <QSemaphore>
#include <QStringList>

#include <algorithm>
#include <atomic>
#include <functional>
#include <memory>
#include <vector>

// What the tests of waiting share.

constexpr unsigned long long kNone = 0x1001; // the result of a job that has none

// A window as the manager knows it: something that says when it goes away.
class QuitWindow : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    void quit() { emit sigQuit(static_cast<QObject *>(this)); }

Q_SIGNALS:
    void sigQuit(void *window);
};

// Notes what the executer asks of it, lets the test act meanwhile, and can be given up on, as a waiting
// window is that the user closes.
class Recorder : public CBPSyncObj
{
public:
    QStringList calls;
    std::function<void()> onText;
    std::function<void()> beforeRun;
    bool waits = true;

    void breakOff() { m_loop->exit(0); }

    int run(CBPEvtLoop *loop, bool global) override
    {
        m_loop = loop;
        calls << (global ? "run global" : "run");
        if (beforeRun)
            beforeRun();
        return waits ? CBPSyncObj::run(loop, global) : 0;
    }
    int exit(CBPEvtLoop *loop, bool global) override
    {
        calls << (global ? "exit global" : "exit");
        return CBPSyncObj::exit(loop, global);
    }
    void setText(QString text) override
    {
        calls << text;
        if (onText)
            onText();
        CBPSyncObj::setText(text);
    }

private:
    CBPEvtLoop *m_loop = nullptr;
};

// What a job does, apart from the executer, which may be gone while it runs.
struct Task
{
    QSemaphore gate; // the job waits for it, if `gated`
    bool gated = false;
    bool polls = false; // it runs until it is asked to stop
    unsigned long milliseconds = 0;
    unsigned long long result = 0; // 0: none is set
    std::atomic<bool> began{false};
    std::atomic<bool> ended{false};
};
using TaskPointer = std::shared_ptr<Task>;

class Job : public CBaseSyncExecuter
{
public:
    Job(CBPSyncObj *sync, QObject *window, TaskPointer task, QObject *attached = nullptr,
        const QString &text = QString())
        : CBaseSyncExecuter(sync, text, window, attached), m_task(task.get())
    {
        tasks().push_back(std::move(task));
        ++alive();
    }
    ~Job() override { --alive(); }

    // How many there are.
    static int &alive()
    {
        static int count = 0;
        return count;
    }

    Task &task() { return *m_task; }

protected:
    void run() override
    {
        Task *task = m_task;
        task->began = true;
        if (task->gated)
            task->gate.acquire();
        while (task->polls && !isInterruptionRequested())
            msleep(1);
        msleep(task->milliseconds);
        if (task->result && !isInterruptionRequested())
            m_result = task->result;
        task->ended = true;
    }

private:
    // They outlive every job: one that is deleted while it runs has no members to be destroyed meanwhile.
    static std::vector<TaskPointer> &tasks()
    {
        static std::vector<TaskPointer> all;
        return all;
    }

    Task *m_task;
};

// Handles events until the thread of a job is over and what waits for that has heard of it.
inline void spinUntilEnded(const QPointer<Job> &job)
{
    AWAIT(!job || job->isFinished());
    QCoreApplication::processEvents();
}

inline TaskPointer timedTask(unsigned long milliseconds, unsigned long long result = 0, bool gated = false)
{
    auto task = std::make_shared<Task>();
    task->gated = gated;
    task->milliseconds = milliseconds;
    task->result = result;
    return task;
}

inline TaskPointer gatedTask(unsigned long long result = 0)
{
    return timedTask(0, result, true);
}

// What a caller gives an executer to be stopped and deleted with it; notes what becomes of it.
class AttachedThread : public CUIBaseThread
{
    Q_OBJECT

public:
    explicit AttachedThread(QStringList *log) : m_log(log) {}
    ~AttachedThread() override { *m_log << QStringLiteral("deleted"); }
    void startWork() override { *m_log << QStringLiteral("started"); }
    bool isWorking() const override { return false; }
    void requestQuit() override
    {
        *m_log << QStringLiteral("asked");
        if (dies)
            delete this;
    }

    bool dies = false;

private:
    QStringList *m_log;
};

// The waiting windows there are.
inline QList<CBPUISyncWaiter *> waiters()
{
    QList<CBPUISyncWaiter *> found;
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (auto *waiter = qobject_cast<CBPUISyncWaiter *>(window))
            found << waiter;
    }
    return found;
}

inline CBPUISyncWaiter *shownWaiter()
{
    const auto all = waiters();
    const auto shown =
        std::find_if(all.begin(), all.end(), [](const auto *waiter) { return waiter->isVisible(); });
    return shown == all.end() ? nullptr : *shown;
}
