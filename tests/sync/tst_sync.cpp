#include "CBPEvtLoop.h"
#include "CBPQtThread.h"
#include "CBPQtTimer.h"
#include "CBPSyncObj.h"
#include "CWorkThreadMgr.h"
#include "sync/ThreadEnd.h"
#include "TestMain.h"

#include <QTimer>

#include <atomic>

namespace {

struct Work
{
    CBPQtThread *thread = nullptr;
    std::atomic<int> calls{0};
    std::atomic<bool> polls{false};
};

void work(void *context)
{
    auto *work = static_cast<Work *>(context);
    ++work->calls;
    while (work->polls && !work->thread->IsStop())
        QThread::msleep(1);
}

bool ended(CBPQtThread &thread)
{
    const bool ended = thread.wait();
    lumqt::afterThreadEnd(&thread);
    return ended;
}

} // namespace

class TestSync : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void loopCounts()
    {
        CBPEvtLoop loop;
        QVERIFY(!loop.isRunning());
        loop.exit(3); // not running: nothing
        QStringList log;
        QTimer::singleShot(0, &loop, [&] {
            QVERIFY(loop.isRunning());
            QCOMPARE(loop.exec(), -1);
            loop.exit(4);
            log << (loop.isRunning() ? "still running" : "left");
            QTimer::singleShot(0, &loop, [&] {
                log << "turned";
                loop.exit(5);
                QVERIFY(!loop.isRunning());
                loop.exit(6);
            });
        });
        QCOMPARE(loop.exec(), 5);
        QCOMPARE(log, (QStringList{"still running", "turned"}));
        QVERIFY(!loop.isRunning());
    }

    // What leaves the loop without counting does not leave a loop that claims to run.
    void loopLeftByOthers()
    {
        CBPEvtLoop loop;
        for (const bool enteredTwice : {false, false, true, true}) {
            QTimer::singleShot(0, &loop, [&] {
                if (enteredTwice)
                    loop.exec();
                loop.quit();
            });
            QCOMPARE(loop.exec(), 0);
            QVERIFY(!loop.isRunning());
        }
    }

    void syncObject()
    {
        CBPSyncObj sync;
        QCOMPARE(sync.text(), QString());
        sync.setText(QStringLiteral("Wait"));
        QCOMPARE(sync.text(), QStringLiteral("Wait"));
        QCOMPARE(sync.exit(nullptr, true), 0);
        CBPEvtLoop given;
        for (CBPEvtLoop *loop : {&given, static_cast<CBPEvtLoop *>(nullptr)}) {
            bool waited = false;
            QTimer::singleShot(0, &given, [&] {
                QCOMPARE(sync.run(loop, false), 0); // it runs already
                QVERIFY(!loop || loop->isRunning());
                waited = true;
                QCOMPARE(sync.exit(loop, false), 0);
            });
            QCOMPARE(sync.run(loop, true), 0);
            QVERIFY(waited);
        }
    }

    void syncObjectDestroyedWhileItWaits()
    {
        // In two loops, one within the other, and in its own.
        CBPEvtLoop outer;
        CBPEvtLoop inner;
        auto *sync = new CBPSyncObj;
        QTimer::singleShot(0, this, [&] {
            QTimer::singleShot(0, this, [&] {
                QTimer::singleShot(0, this, [&] { delete sync; });
                sync->run(nullptr, false);
            });
            sync->run(&inner, false);
        });
        sync->run(&outer, false);
        QVERIFY(!outer.isRunning() && !inner.isRunning());
    }

    void threadRunsItsFunction()
    {
        CBPQtThread thread(this);
        QCOMPARE(thread.parent(), this);
        Work job{&thread};
        job.polls = true;
        thread.setCB(work, &job);
        QVERIFY(!thread.IsStop());
        thread.start();
        QTRY_COMPARE(job.calls.load(), 1);
        QVERIFY(thread.isRunning());
        thread.WaitExit();
        QVERIFY(thread.isFinished() && thread.IsStop());
        thread.WaitExit(); // once more
        thread.start();    // asked to stop, it does not call
        QVERIFY(ended(thread));
        QCOMPARE(job.calls.load(), 1);
        thread.setCB(work, &job);
        thread.start();
        QTRY_COMPARE(job.calls.load(), 2);
        thread.SetStop();
        QVERIFY(ended(thread));
    }

    void threadWithoutWork()
    {
        CBPQtThread neverRan(nullptr);
        Work job{&neverRan};
        neverRan.setCB(work, &job);
        neverRan.WaitExit();
        QVERIFY(neverRan.isFinished());
        QCOMPARE(job.calls.load(), 0);
        CBPQtThread withoutFunction(nullptr);
        withoutFunction.start();
        withoutFunction.WaitExit(); // its event loop may not have begun
        QVERIFY(withoutFunction.isFinished());
    }

    void threadDestroyedWhileItRuns()
    {
        for (const bool function : {true, false}) { // or an event loop
            Work job;
            job.polls = true;
            QObject parent; // goes first, and the thread with it
            auto *thread = job.thread = new CBPQtThread(&parent);
            if (function)
                thread->setCB(work, &job);
            thread->start();
            QTRY_VERIFY(thread->isRunning() && (!function || job.calls == 1));
        }
    }

    void waitExitFromWithin()
    {
        CBPQtThread thread(nullptr);
        thread.setCB([](void *self) { static_cast<CBPQtThread *>(self)->WaitExit(); }, &thread);
        thread.start();
        QVERIFY(ended(thread));
        QVERIFY(thread.IsStop());
    }

    void timer()
    {
        QObject parent;
        CBPQtTimer timer(&parent);
        QVERIFY(!timer.parent());
        QCOMPARE(timer.interval(), 80);
        QCOMPARE(timer.timerCnt(), 0);
        timer.start();
        QTRY_VERIFY(timer.timerCnt() >= 1);
        timer.start(1);
        QCOMPARE(timer.timerCnt(), 0);
        QTRY_VERIFY(timer.timerCnt() >= 3);
        QCOMPARE(timer.interval(), 1);
        QVERIFY(QMetaObject::invokeMethod(&timer, "start", Q_ARG(int, 1000)));
        QCOMPARE(timer.timerCnt(), 0);
    }

    void managerCounts()
    {
        CWorkThreadMgr *manager = CWorkThreadMgr::instance();
        QVERIFY(manager);
        QCOMPARE(manager->AddRef(), 2L);
        QCOMPARE(CWorkThreadMgr::instance(), manager);
        QCOMPARE(manager->Release(), 2L);
        // Who takes away what was never given to him ends the object, not the library.
        QCOMPARE(manager->Release(), 1L);
        QCOMPARE(manager->Release(), 0L);
        QVERIFY(CWorkThreadMgr::instance());
        QVERIFY(!CWorkThreadMgr::instance()->isWndObjExist(this));
    }
};

LUMQT_TEST_MAIN(TestSync)
#include "tst_sync.moc"
