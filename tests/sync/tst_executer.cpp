#include "Await.h"
#include "CBPWaitBtn.h"
#include "CWorkThreadMgr.h"
#include "dialogs/PopUpProbe.h"
#include "Jobs.h"
#include "Later.h"
#include "Rows.h"
#include "TestMain.h"

class TestExecuter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QCOMPARE(Job::alive(), 0);
        m_window = new QuitWindow;
        m_sync = new Recorder;
    }
    void cleanup()
    {
        delete m_window.data();
        delete m_sync;
        m_sync = nullptr;
        AWAIT_EQUAL(Job::alive(), 0); // whoever is to delete them
        QVERIFY(!manager()->isWndObjExist(m_window) && waiters().isEmpty());
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
        QVERIFY(!job.task().began && job.isNeedDelete());
        job.setStackSize(0);
        QCOMPARE(job.execute(), 42ULL);
    }

    void results()
    {
        for (const unsigned long long set : {0ULL, 42ULL, 0xfedcba9876543210ULL}) {
            const bool global = set == 42;
            const QString text = global ? "STR_GLOBAL_UNIQUE" : "Wait";
            const QString scope = global ? " global" : "";
            Job job(m_sync, m_window, timedTask(2, set), nullptr, text);
            QVERIFY(job.isNeedDelete() && manager()->isWndObjExist(m_window));
            for (int time = 0; time < 2; ++time) { // and once more
                m_sync->calls.clear();
                QCOMPARE(job.execute(), set ? set : kNone);
                QVERIFY(job.task().ended.exchange(false));
                m_window->quit(); // there is no wait to end any more
                QVERIFY(job.isNeedDelete());
                QCOMPARE(m_sync->calls, (QStringList{text, "run" + scope, "exit" + scope}));
                QCOMPARE(m_sync->text(), text);
            }
        }
    }

    void endings_data()
    {
        columns<QString, bool>("ending", "jobEnds");
        for (const char *ending : {"window quits", "window quits twice", "window destroyed",
                                   "window deleted later", "sync object destroyed", "wait broken off"}) {
            QTest::addRow("%s", ending) << ending << false;
            QTest::addRow("%s and the job ends", ending) << ending << true;
        }
    }
    // The wait ends before the job does: the caller goes on at once, and the executer deletes itself.
    void endings()
    {
        QFETCH(QString, ending);
        QFETCH(bool, jobEnds); // in the same turn, before the wait has unwound
        const TaskPointer task = gatedTask(9);
        auto *job = new Job(m_sync, m_window, task);
        const QPointer<Job> alive(job);
        later(job, [&] {
            end(ending);
            if (!jobEnds)
                return;
            task->gate.release();
            spinUntilEnded(alive);
        });
        const unsigned long long result = job->execute();
        QVERIFY(alive);
        const bool jobFirst = jobEnds && !ending.contains("window"); // it was over before the wait was
        QVERIFY(job->isNeedDelete() ? jobEnds : !jobFirst); // a window deleted later may go after the job
        QVERIFY(result == 9 || !jobFirst);
        if (job->isNeedDelete()) {
            delete job;
            return;
        }
        if (!jobEnds) {
            QCOMPARE(result, kNone);
            QTest::qWait(0);
            QVERIFY(alive && !task->ended);
            task->gate.release();
        }
        AWAIT(alive.isNull() && task->ended);
    }

    void applicationQuits()
    {
        // Leaves every loop there is, so this one stands for the application's own.
        const TaskPointer task = gatedTask(3);
        QPointer<Job> job = new Job(m_sync, m_window, task);
        unsigned long long result = 0;
        QTimer::singleShot(0, qApp, [&] {
            later(job, [] { QCoreApplication::quit(); });
            result = job->execute();
        });
        QCoreApplication::exec();
        QCOMPARE(result, kNone);
        QVERIFY(job && !job->isNeedDelete());
        task->gate.release();
        CWorkThreadMgr::WaitForAllExist();
        QVERIFY(job.isNull());
    }

    void executedOutOfTurn()
    {
        Job late(m_sync, m_window, timedTask(0, 4));
        m_window->quit(); // before the start
        QCOMPARE(late.execute(), kNone);
        QVERIFY(late.isNeedDelete() && !late.task().ended);
        auto *job = new Job(m_sync, m_window, gatedTask(6));
        later(job, [&] {
            QCOMPARE(job->execute(), kNone); // while it runs
            QVERIFY(job->isNeedDelete());
            job->task().gate.release();
        });
        QCOMPARE(job->execute(), 6ULL);
        delete job;
    }

    // Nothing hangs when the job is over before anybody listens, nor when the wait is to end before the sync
    // object has come to its loop, which is there to be ended from then on. Where nobody waits at all, the
    // caller gets the result as it stands.
    void endsBeforeTheLoop_data()
    {
        names("ending", {"job, by the text", "job", "window quits", "window destroyed", "nobody waits"});
    }
    void endsBeforeTheLoop()
    {
        QFETCH(QString, ending);
        const bool jobEnds = ending.startsWith("job");
        const TaskPointer task = gatedTask(31);
        Recorder slow;
        slow.waits = ending != "nobody waits";
        const QPointer<Job> job = new Job(&slow, m_window, task);
        auto &act = ending == "job, by the text" ? slow.onText : slow.beforeRun;
        act = [&] {
            if (!jobEnds) {
                end(ending);
                return;
            }
            task->gate.release();
            spinUntilEnded(job);
        };
        QCOMPARE(job->execute(), jobEnds ? 31ULL : kNone);
        QCOMPARE(job->isNeedDelete(), jobEnds);
        if (jobEnds)
            delete job.data();
        task->gate.release();
        AWAIT(job.isNull());
    }

    void deletedInTheWait()
    {
        for (const QString how : {"at once", "later", "by finished"}) {
            const TaskPointer task = timedTask(2, 11);
            task->polls = how != "by finished";
            auto *job = new Job(m_sync, m_window, task);
            if (!task->polls) { // a common idiom, if one that leaves nothing for the caller to delete
                connect(job, &QThread::finished, job, &QObject::deleteLater);
                QCOMPARE(job->execute(), 11ULL);
                continue;
            }
            later(job, [&] {
                AWAIT(task->began);
                how == "at once" ? delete job : job->deleteLater();
            });
            QTest::ignoreMessage(QtWarningMsg, "An executer is deleted while its job runs");
            QCOMPARE(job->execute(), kNone);
            QVERIFY(task->ended);
        }
    }

    // Waits within each other, also in windows of their own, which are one within the other then.
    void nested()
    {
        // In which the jobs end; 0 is the outermost.
        for (const QString order : {"01234", "43210", "20413", "13024", "own 01234", "own 40123", "quit"}) {
            const bool own = order.startsWith("own");
            const bool quits = order == "quit"; // the window, before any job has ended
            CBPSyncObj syncs[5];
            QVector<QPointer<Job>> jobs;
            const std::function<void(int)> wait = [&](int depth) {
                auto *job = new Job(own ? nullptr : &syncs[depth], m_window, gatedTask(100 + depth));
                jobs << job;
                later(job, [&, depth] {
                    if (depth < 4) {
                        wait(depth + 1);
                        return;
                    }
                    QCOMPARE(waiters().size(), own ? 5 : 0);
                    if (quits)
                        m_window->quit();
                    for (const QChar which : quits ? QString() : order.right(5)) {
                        const QPointer<Job> ended = jobs.at(which.digitValue());
                        ended->task().gate.release();
                        spinUntilEnded(ended);
                    }
                });
                QCOMPARE(job->execute(), quits ? kNone : 100ULL + depth);
                QCOMPARE(job->isNeedDelete(), !quits);
                if (!quits)
                    delete job;
            };
            wait(0);
            for (const QPointer<Job> &orphan : qAsConst(jobs)) {
                QCOMPARE(manager()->isWndObjExist(m_window), quits);
                if (orphan)
                    orphan->task().gate.release();
                AWAIT(!orphan);
            }
            QVERIFY(!manager()->isWndObjExist(m_window));
        }
    }

    // Asked once to stop when the window goes, whether or not somebody still waits for the job. An orphan
    // leaves the sync object to those who wait in it by the time its job ends.
    void attached()
    {
        for (const bool waitEnds : {false, true}) { // before the window goes
            for (const bool dies : {false, true}) {
                QStringList log;
                auto *thread = new AttachedThread(&log);
                thread->dies = dies;
                const TaskPointer task = gatedTask();
                const QString goes = dies && waitEnds ? "window destroyed" : "window quits twice";
                const QPointer<Job> job = orphan(m_sync, task, thread, waitEnds ? "wait broken off" : goes);
                if (waitEnds) {
                    QCOMPARE(log, QStringList());
                    end(goes);
                }
                QCOMPARE(log, dies ? (QStringList{"asked", "deleted"}) : QStringList{"asked"});
                m_sync->calls.clear();
                task->gate.release();
                AWAIT(job.isNull());
                QVERIFY(log == QStringList({"asked", "deleted"}) && m_sync->calls.isEmpty());
                delete m_window.data();
                m_window = new QuitWindow;
            }
        }
    }

    void entries()
    {
        QStringList log;
        delete new Job(m_sync, m_window, timedTask(0), new AttachedThread(&log)); // never started
        QVERIFY(!manager()->isWndObjExist(m_window));
        auto *parent = new QObject;
        auto *withoutWindow = new Job(nullptr, nullptr, timedTask(0), new QObject(parent));
        delete parent; // which may have what is attached, too
        delete withoutWindow;
        auto *ended = new Job(m_sync, m_window, timedTask(0), new AttachedThread(&log));
        ended->execute();
        m_window->quit(); // there is nothing to stop any more
        delete ended;
        QCOMPARE(log, (QStringList{"deleted", "deleted"}));
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

    void waitForAll()
    {
        QCOMPARE(CWorkThreadMgr::WaitForAllExist(), 0);
        QVector<TaskPointer> tasks;
        for (int i = 0; i < 4; ++i) {
            tasks << timedTask(5 + 5 * i, 0, true);
            QVERIFY(!orphan(m_sync, tasks.last())->isNeedDelete());
            delete m_window.data();
            m_window = new QuitWindow;
        }
        for (const TaskPointer &task : qAsConst(tasks))
            task->gate.release();
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

    void ownWaiter()
    {
        QWidget window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window, kPatience));
        for (QWidget *parent : {&window, static_cast<QWidget *>(nullptr)}) {
            const TaskPointer task = gatedTask(21);
            auto *job = new Job(nullptr, parent, task);
            for (int time = 0; time < 3; ++time) {
                later(job, [&] {
                    const CBPUISyncWaiter *waiter = shownWaiter();
                    task->gate.release();
                    QVERIFY(waiter && waiter->isModal());
                    QCOMPARE(waiter->parentWidget(), parent);
                });
                QCOMPARE(job->execute(), 21ULL);
                QVERIFY(!shownWaiter() && job->isNeedDelete());
                QCOMPARE(waiters().size(), 1); // kept for the next time
                if (time == 1)
                    qDeleteAll(waiters()); // what ends one wait does not end the next
            }
            delete job;
            QCOMPARE(waiters().size(), 0);
        }
    }

    void visibleEndings_data()
    {
        columns<QString, bool>("ending", "global");
        for (const char *ending : {"Escape", "window destroyed", "waiter destroyed", "UnRun"})
            row(ending, ending, false);
        for (const char *ending : {"window destroyed", "waiter destroyed", "job"})
            QTest::addRow("global, %s", ending) << ending << true;
    }
    // The window or the wait goes while the job runs.
    void visibleEndings()
    {
        QFETCH(QString, ending);
        QFETCH(bool, global);
        auto *window = new QWidget;
        window->show();
        const QPointer<QWidget> windowAlive(window);
        const TaskPointer task = gatedTask(20);
        QPointer<Job> job =
            new Job(nullptr, window, task, nullptr, global ? QStringLiteral("STR_GLOBAL_UNIQUE") : QString());
        later(job, [&] {
            CBPUISyncWaiter *waiter = shownWaiter();
            QCOMPARE(!waiter, global);
            if (ending == "Escape") {
                QTest::keyClick(waiter, Qt::Key_Escape);
                QVERIFY(waiter->isVisible());
                waiter->SetRespondEsc(true);
                QTest::keyClick(waiter, Qt::Key_Escape);
            } else if (ending == "window destroyed") {
                destroy(window);
            } else if (ending == "waiter destroyed") {
                destroy(window->findChild<CBPUISyncWaiter *>());
            } else if (ending == "UnRun") {
                waiter->UnRun();
            } else {
                task->gate.release();
            }
        });
        const bool jobEnds = ending == "job";
        QCOMPARE(job->execute(), jobEnds ? 20ULL : kNone);
        QCOMPARE(job->isNeedDelete(), jobEnds);
        if (jobEnds)
            delete job.data();
        QCOMPARE(waiters().size(), 0); // an orphan has no window
        task->gate.release();
        AWAIT(job.isNull());
        delete windowAlive.data();
    }

    void waitingButton()
    {
        QWidget window;
        auto *button = new CBPWaitBtn({}, "Start", "Waiting", &window, true);
        window.show();
        for (const bool dies : {false, true}) {
            const TaskPointer task = gatedTask(23);
            QPointer<Job> job = new Job(button, &window, task);
            later(job, [&] {
                auto *inner = new Job(button, &window, timedTask(0, 25));
                QCOMPARE(inner->execute(), 25ULL);
                delete inner;
                QVERIFY(!button->isEnabled() && button->isWaitting()); // a second wait leaves it to the first
                if (dies)
                    destroy(button);
                else
                    task->gate.release();
            });
            QCOMPARE(job->execute(), dies ? kNone : 23ULL);
            QCOMPARE(job->isNeedDelete(), !dies);
            QVERIFY(dies || (button->isEnabled() && !button->isWaitting()));
            if (!dies)
                delete job.data();
            task->gate.release();
            AWAIT(job.isNull());
        }
    }

    // A pop-up that its user closes while its own button waits.
    void popUpClosedWhileItsButtonWaits()
    {
        PopUp popUp(nullptr, kOk);
        const TaskPointer task = gatedTask(26);
        QPointer<Job> job;
        unsigned long long result = 0;
        popUp.answer = [&](int flag) {
            job = new Job(dynamic_cast<CBPWaitBtn *>(popUp.GetBtn(flag)), &popUp, task);
            later(&popUp, [&] { popUp.OnClose(); });
            result = job->execute();
            return true;
        };
        later(&popUp, [&] { QTest::mouseClick(popUp.GetBtn(kOk), Qt::LeftButton); });
        popUp.Run();
        QCOMPARE(result, kNone);
        QCOMPARE(popUp.GetResult(), kCancel);
        QVERIFY(job && !job->isNeedDelete());
        task->gate.release();
        AWAIT(job.isNull());
    }

private:
    static CWorkThreadMgr *manager()
    {
        return CWorkThreadMgr::instance();
    }

    // A job whose caller has gone on.
    QPointer<Job> orphan(CBPSyncObj *sync, const TaskPointer &task, QObject *attached = nullptr,
                         const QString &ending = "window quits")
    {
        QPointer<Job> job = new Job(sync, m_window, task, attached);
        later(job, [&] { end(ending); });
        job->execute();
        return job;
    }

    void end(const QString &ending)
    {
        for (int times = ending.endsWith("twice") ? 2 : ending == "window quits"; times > 0; --times)
            m_window->quit();
        if (ending == "window destroyed")
            delete m_window.data();
        else if (ending == "window deleted later")
            m_window->deleteLater();
        else if (ending == "sync object destroyed")
            delete std::exchange(m_sync, nullptr);
        else if (ending == "wait broken off")
            m_sync->breakOff();
    }

    QPointer<QuitWindow> m_window;
    Recorder *m_sync = nullptr;
};

LUMQT_TEST_MAIN(TestExecuter)
#include "tst_executer.moc"
