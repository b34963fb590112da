#include "CUIBaseThread.h"
#include "CWorkThreadMgr.h"
#include "Jobs.h"
#include "TestMain.h"

#include <QTimer>

namespace {

constexpr unsigned long long kNone = 0x1001;

// Lets the test act once the caller waits.
void inTheWait(QObject *context, const std::function<void()> &act)
{
    QTimer::singleShot(0, context, act);
}

// Handles events until the job has ended and what waits for that has heard of it.
void spinUntilEnded(Task &task)
{
    QTRY_VERIFY(task.ended);
    QTest::qWait(20);
}

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

// Notes what the executer asks of it.
class Recorder : public CBPSyncObj
{
public:
    QStringList calls;
    int run(CBPEvtLoop *loop, bool global) override
    {
        calls << (global ? "run global" : "run");
        return CBPSyncObj::run(loop, global);
    }
    int exit(CBPEvtLoop *loop, bool global) override
    {
        calls << (global ? "exit global" : "exit");
        return CBPSyncObj::exit(loop, global);
    }
    void setText(QString text) override
    {
        calls << text;
        CBPSyncObj::setText(text);
    }
};

} // namespace

class TestExecuter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QCOMPARE(Job::alive(), 0);
        m_window = new QuitWindow;
        m_sync = new Breakable;
    }
    void cleanup()
    {
        delete m_window.data();
        delete m_sync;
        m_sync = nullptr;
        QTRY_COMPARE(Job::alive(), 0); // whoever is to delete them
        QVERIFY(!manager()->isWndObjExist(m_window));
    }

    // Nothing would ever end the wait.
    void cannotStart()
    {
#ifdef Q_OS_WIN
        QSKIP("This system takes every size of a stack");
#endif
        Job job(m_sync, m_window, timedTask(2, 42));
        job.setStackSize(1);
        QTest::ignoreMessage(QtSystemMsg, QRegularExpression("Thread stack size error"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("could not be started"));
        QCOMPARE(job.execute(), kNone);
        QVERIFY(!job.task().began);
        QVERIFY(job.isNeedDelete());
        job.setStackSize(0);
        QCOMPARE(job.execute(), 42ULL);
    }

    void results_data()
    {
        QTest::addColumn<unsigned long long>("set");
        QTest::addColumn<unsigned long long>("returned");
        QTest::newRow("none") << 0ULL << kNone;
        QTest::newRow("some") << 42ULL << 42ULL;
        QTest::newRow("64 bits") << 0xfedcba9876543210ULL << 0xfedcba9876543210ULL;
    }
    void results()
    {
        QFETCH(unsigned long long, set);
        Job job(m_sync, m_window, timedTask(2, set));
        QVERIFY(job.isNeedDelete());
        QVERIFY(manager()->isWndObjExist(m_window));
        for (int time = 0; time < 2; ++time) { // and once more
            QTEST(job.execute(), "returned");
            QVERIFY(job.task().ended.exchange(false));
            QVERIFY(job.isNeedDelete());
            m_window->quit(); // there is no wait to end any more
            QVERIFY(job.isNeedDelete());
        }
    }

    void whatTheSyncObjectHears_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("calls");
        QTest::newRow("of a window") << "Wait" << QStringList{"Wait", "run", "exit"};
        QTest::newRow("global") << "STR_GLOBAL_UNIQUE"
                                << QStringList{"STR_GLOBAL_UNIQUE", "run global", "exit global"};
    }
    void whatTheSyncObjectHears()
    {
        QFETCH(QString, text);
        Recorder recorder;
        Job job(&recorder, nullptr, timedTask(2), nullptr, text);
        job.execute();
        QTEST(recorder.calls, "calls");
        QCOMPARE(recorder.text(), text);
    }

    // The interface is alive, and the job is on another thread, until it ends.
    void waits()
    {
        auto *job = new Job(m_sync, m_window, gatedTask(5));
        int ticks = 0;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] {
            QVERIFY(job->isRunning() || ticks >= 5);
            if (++ticks == 5)
                job->task().gate.release();
        });
        timer.start(1);
        QCOMPARE(job->execute(), 5ULL);
        QVERIFY(ticks >= 5);
        delete job;
    }

    void endings_data()
    {
        QTest::addColumn<QString>("ending");
        QTest::addColumn<bool>("jobEnds"); // in the same turn, before the wait has unwound
        for (const char *ending : {"window quits", "window quits twice", "window destroyed",
                                   "window deleted later", "sync object destroyed", "wait broken off"}) {
            QTest::addRow("%s", ending) << QString(ending) << false;
            QTest::addRow("%s and the job ends", ending) << QString(ending) << true;
        }
    }
    // The wait ends before the job does: the caller goes on at once, and the executer deletes itself.
    void endings()
    {
        QFETCH(QString, ending);
        QFETCH(bool, jobEnds);
        const TaskPointer task = gatedTask(9);
        auto *job = new Job(m_sync, m_window, task);
        const QPointer<Job> alive(job);
        inTheWait(job, [&] {
            end(ending);
            if (!jobEnds)
                return;
            task->gate.release();
            spinUntilEnded(*task);
        });
        const unsigned long long result = job->execute();
        QVERIFY(alive);
        if (jobEnds && !ending.contains(QLatin1String("window")))
            QCOMPARE(result, 9ULL); // it was over before the wait was
        if (!jobEnds)
            QCOMPARE(result, kNone);
        if (job->isNeedDelete()) {
            QVERIFY(jobEnds);
            delete job;
            return;
        }
        if (!jobEnds) {
            QTest::qWait(5);
            QVERIFY(alive);
            QVERIFY(!task->ended);
            task->gate.release();
        }
        QTRY_VERIFY(alive.isNull());
        QVERIFY(task->ended);
    }

    void applicationQuits()
    {
        // Leaves every loop there is, so this one stands for the application's own.
        const TaskPointer task = gatedTask(3);
        QPointer<Job> job = new Job(m_sync, m_window, task);
        unsigned long long result = 0;
        QTimer::singleShot(0, qApp, [&] {
            inTheWait(job, [] { QCoreApplication::quit(); });
            result = job->execute();
        });
        QCoreApplication::exec();
        QCOMPARE(result, kNone);
        QVERIFY(job && !job->isNeedDelete());
        task->gate.release();
        CWorkThreadMgr::WaitForAllExist();
        QVERIFY(job.isNull());
    }

    void quitBeforeTheStart()
    {
        Job job(m_sync, m_window, timedTask(0, 4));
        m_window->quit();
        QVERIFY(job.isNeedDelete());
        QCOMPARE(job.execute(), kNone);
        QVERIFY(!job.task().ended);
        QVERIFY(job.isNeedDelete());
    }

    void neverStarted()
    {
        delete new Job(m_sync, m_window, timedTask(0));
        QVERIFY(!manager()->isWndObjExist(m_window));
        delete new Job(nullptr, nullptr, timedTask(0));
    }

    void executedWhileItRuns()
    {
        auto *job = new Job(m_sync, m_window, gatedTask(6));
        inTheWait(job, [&] {
            QCOMPARE(job->execute(), kNone);
            QVERIFY(job->isNeedDelete());
            job->task().gate.release();
        });
        QCOMPARE(job->execute(), 6ULL);
        delete job;
    }

    // Nothing hangs when the job is over before anybody listens.
    void endsBeforeTheLoop()
    {
        class Slow : public CBPSyncObj
        {
        public:
            void setText(QString) override { spinUntilEnded(*task); }
            TaskPointer task;
        } slow;
        slow.task = timedTask(0, 8);
        Job job(&slow, m_window, slow.task);
        QCOMPARE(job.execute(), 8ULL);
        QVERIFY(job.isNeedDelete());
    }

    // Nor when it ends before the sync object has come to its loop, which is there to be ended from then on.
    void endsWithinRun_data()
    {
        QTest::addColumn<QString>("end");
        for (const char *end : {"job", "window quits", "window dies"})
            QTest::newRow(end) << end;
    }
    void endsWithinRun()
    {
        QFETCH(QString, end);
        class Slow : public CBPSyncObj
        {
        public:
            std::function<void()> before;
            int run(CBPEvtLoop *loop, bool global) override
            {
                before();
                return CBPSyncObj::run(loop, global);
            }
        } slow;
        const TaskPointer task = gatedTask(31);
        QPointer<Job> job = new Job(&slow, m_window, task);
        slow.before = [&] {
            if (end == QLatin1String("job")) {
                task->gate.release();
                spinUntilEnded(*task);
            } else if (end == QLatin1String("window quits")) {
                m_window->quit();
            } else {
                delete m_window.data();
            }
        };
        QCOMPARE(job->execute(), end == QLatin1String("job") ? 31ULL : kNone);
        if (job->isNeedDelete())
            delete job.data();
        task->gate.release();
        QTRY_VERIFY(job.isNull());
    }

    // An orphan leaves the sync object to those who wait in it by the time its job ends.
    void orphanLeavesTheSyncObject()
    {
        Recorder recorder;
        const TaskPointer task = gatedTask();
        QPointer<Job> job = new Job(&recorder, m_window, task);
        inTheWait(job, [&] { m_window->quit(); });
        job->execute();
        recorder.calls.clear();
        task->gate.release();
        QTRY_VERIFY(job.isNull());
        QCOMPARE(recorder.calls, QStringList());
    }

    void busySyncObject()
    {
        // One that does not wait at all: the caller gets the result as it stands.
        class Busy : public CBPSyncObj
        {
        public:
            int run(CBPEvtLoop *, bool) override { return 0; }
        } busy;
        const TaskPointer task = gatedTask(2);
        QPointer<Job> job = new Job(&busy, m_window, task);
        QCOMPARE(job->execute(), kNone);
        QVERIFY(!job->isNeedDelete());
        task->gate.release();
        QTRY_VERIFY(job.isNull());
    }

    void deletedInTheWait_data()
    {
        QTest::addColumn<bool>("later");
        QTest::newRow("at once") << false;
        QTest::newRow("deleteLater()") << true;
    }
    void deletedInTheWait()
    {
        QFETCH(bool, later);
        const TaskPointer task = timedTask(10, 11);
        auto *job = new Job(m_sync, m_window, task);
        inTheWait(job, [&] {
            while (!task->began)
                QThread::msleep(1);
            if (later)
                job->deleteLater();
            else
                delete job;
        });
        QTest::ignoreMessage(QtWarningMsg, "An executer is deleted while its job runs");
        const unsigned long long result = job->execute();
        QVERIFY(result == kNone || result == 11); // asked to stop in time or not
        QVERIFY(task->ended);
    }

    void deletedByFinished()
    {
        // A common idiom, if one that leaves nothing for the caller to delete.
        const TaskPointer task = timedTask(1, 12);
        QPointer<Job> job = new Job(m_sync, m_window, task);
        connect(job, &QThread::finished, job, &QObject::deleteLater);
        QCOMPARE(job->execute(), 12ULL);
        QTRY_VERIFY(job.isNull());
    }

    void oneWindowTwoExecuters()
    {
        CBPSyncObj otherSync;
        const TaskPointer task = gatedTask(1);
        const TaskPointer otherTask = gatedTask(2);
        QPointer<Job> job = new Job(m_sync, m_window, task);
        QPointer<Job> other = new Job(&otherSync, m_window, otherTask);
        inTheWait(job, [&] {
            inTheWait(other, [&] { m_window->quit(); });
            QCOMPARE(other->execute(), kNone);
            QVERIFY(!other->isNeedDelete());
        });
        QCOMPARE(job->execute(), kNone);
        QVERIFY(!job->isNeedDelete());
        task->gate.release();
        QTRY_VERIFY(job.isNull());
        QVERIFY(manager()->isWndObjExist(m_window));
        otherTask->gate.release();
        QTRY_VERIFY(other.isNull());
        QVERIFY(!manager()->isWndObjExist(m_window));
    }

    void nested_data()
    {
        QTest::addColumn<QString>("order"); // in which the jobs end; 0 is the outermost
        for (const char *order : {"01234", "43210", "20413", "13024", "40123"})
            QTest::newRow(order) << order;
    }
    void nested()
    {
        QFETCH(QString, order);
        CBPSyncObj syncs[5];
        QVector<TaskPointer> tasks;
        for (int i = 0; i < 5; ++i)
            tasks << gatedTask(100 + i);
        QString returned;
        const std::function<void(int)> wait = [&](int depth) {
            auto *job = new Job(&syncs[depth], m_window, tasks.at(depth));
            inTheWait(job, [&, depth] {
                if (depth < 4) {
                    wait(depth + 1);
                    return;
                }
                for (const QChar which : order) {
                    Task &task = *tasks.at(which.digitValue());
                    task.gate.release();
                    spinUntilEnded(task);
                }
            });
            QCOMPARE(job->execute(), 100ULL + depth);
            QVERIFY(job->isNeedDelete());
            delete job;
            returned += QString::number(depth);
        };
        wait(0);
        QCOMPARE(returned, QStringLiteral("43210"));
    }

    void attached()
    {
        QStringList log;
        delete new Job(m_sync, m_window, timedTask(0), new AttachedThread(&log));
        QCOMPARE(log, QStringList{"deleted"});
        log.clear();
        for (const bool dies : {false, true}) {
            auto *thread = new AttachedThread(&log);
            thread->dies = dies;
            const TaskPointer task = gatedTask();
            QPointer<Job> job = new Job(m_sync, m_window, task, thread);
            inTheWait(job, [&] { m_window->quit(); });
            job->execute();
            QCOMPARE(log.mid(0, 1), QStringList{"asked"});
            task->gate.release();
            QTRY_VERIFY(job.isNull());
            QCOMPARE(log, (QStringList{"asked", "deleted"}));
            log.clear();
        }
        // It may have another owner, too.
        auto *parent = new QObject;
        auto *child = new QObject(parent);
        auto *job = new Job(m_sync, m_window, timedTask(0), child);
        delete parent;
        delete job;
    }

    void entries()
    {
        CBPSyncObj other;
        Job first(m_sync, m_window, timedTask(0));
        auto *second = new Job(&other, m_window, timedTask(0));
        delete second;
        QVERIFY(manager()->isWndObjExist(m_window));
        QVERIFY(!manager()->isWndObjExist(nullptr));
        manager()->removeData(m_window, second); // a stranger by now
        manager()->removeData(nullptr, &first);
        manager()->addData(m_window, nullptr);
        QVERIFY(manager()->isWndObjExist(m_window));
        manager()->removeData(m_window, nullptr);
        QVERIFY(!manager()->isWndObjExist(m_window));
        m_window->quit(); // nobody is told
        QCOMPARE(first.execute(), kNone);
        QVERIFY(first.task().ended);
        manager()->addData(m_window, &first);
        manager()->removeData(m_window, &first);
        QVERIFY(!manager()->isWndObjExist(m_window));
    }

    // The window may come and go in the table.
    void heardAfterComingBack()
    {
        for (int i = 0; i < 3; ++i)
            delete new Job(m_sync, m_window, timedTask(0));
        QStringList log;
        const TaskPointer task = gatedTask();
        QPointer<Job> job = new Job(m_sync, m_window, task, new AttachedThread(&log));
        inTheWait(job, [&] { m_window->quit(); });
        job->execute();
        QCOMPARE(log, QStringList{"asked"});
        task->gate.release();
        QTRY_VERIFY(job.isNull());
    }

    void waitForAll()
    {
        QCOMPARE(CWorkThreadMgr::WaitForAllExist(), 0);
        QVector<QPointer<Job>> jobs;
        for (int i = 0; i < 4; ++i) {
            jobs << new Job(m_sync, m_window, timedTask(5 + 5 * i));
            inTheWait(jobs.last(), [&] { m_window->quit(); });
            jobs.last()->execute();
            QVERIFY(!jobs.last()->isNeedDelete());
            delete m_window.data();
            m_window = new QuitWindow;
        }
        QCOMPARE(CWorkThreadMgr::WaitForAllExist(), 0);
        QCOMPARE(Job::alive(), 0);

        // What its caller has to delete cannot go while the caller waits here.
        Job kept(m_sync, m_window, timedTask(0, 1));
        kept.execute();
        QTest::ignoreMessage(QtWarningMsg, "CWorkThreadMgr: executers that have ended were not deleted by "
                                           "their callers");
        QCOMPARE(CWorkThreadMgr::WaitForAllExist(), 0);
        QVERIFY(kept.isNeedDelete());
    }

private:
    static CWorkThreadMgr *manager()
    {
        return CWorkThreadMgr::instance();
    }

    void end(const QString &ending)
    {
        if (ending == QLatin1String("window quits")) {
            m_window->quit();
        } else if (ending == QLatin1String("window quits twice")) {
            m_window->quit();
            m_window->quit();
        } else if (ending == QLatin1String("window destroyed")) {
            delete m_window.data();
        } else if (ending == QLatin1String("window deleted later")) {
            m_window->deleteLater();
        } else if (ending == QLatin1String("sync object destroyed")) {
            delete m_sync;
            m_sync = nullptr;
        } else {
            m_sync->breakOff();
        }
    }

    QPointer<QuitWindow> m_window;
    Breakable *m_sync = nullptr;
};

LUMQT_TEST_MAIN(TestExecuter)
#include "tst_executer.moc"
