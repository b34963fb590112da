#include "Await.h"
#include "CBPEvtLoop.h"
#include "CBPQtThread.h"
#include "CBPQtTimer.h"
#include "CBPWaitBtn.h"
#include "CWorkThreadMgr.h"
#include "Jobs.h"
#include "ProcessCounts.h"
#include "sync/ThreadEnd.h"
#include "TestMain.h"

#include <QAbstractEventDispatcher>
#include <QLoggingCategory>
#include <QRandomGenerator>
#include <QTimer>

namespace {

constexpr int kExecuters = 1000;
constexpr int kDeepest = 6;   // waits within each other
constexpr int kLongestMs = 4; // of a job, and of what ends its wait

enum Ending { ByJob, WindowQuits, WindowDies, SyncDies, BrokenOff, Deleted, EndingCount };

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
    void initTestCase()
    {
        const uint seed = qEnvironmentVariable("LUMQT_SEED", "20261125").toUInt();
        m_random.seed(seed);
        qInfo("LUMQT_SEED=%u", seed);
        // Of those that are deleted or executed while their job runs.
        QLoggingCategory::setFilterRules("lumqtlib.warning=false");
    }

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
        // What leaves the loop without counting does not leave a loop that claims to run.
        for (const bool enteredTwice : {false, false, true, true}) {
            QTimer::singleShot(0, &loop, [&] {
                if (enteredTwice)
                    loop.exec();
                loop.quit();
            });
            QCOMPARE(loop.exec(), 0);
            QVERIFY(!loop.isRunning());
        }
        // What keeps a loop turning until it is left does so no longer.
        class Nudges : public QObject
        {
        public:
            int count = 0;

        protected:
            bool eventFilter(QObject *object, QEvent *event) override
            {
                // On Windows the dispatcher is told of timers itself.
                count += event->type() == QEvent::Timer && !qobject_cast<QTimer *>(object) &&
                         !qobject_cast<QAbstractEventDispatcher *>(object);
                return false;
            }
        } nudges;
        qApp->installEventFilter(&nudges);
        CBPQtTimer longer(nullptr);
        longer.start(20);
        AWAIT(longer.timerCnt() >= 2);
        QCOMPARE(nudges.count, 0);
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
        AWAIT_EQUAL(job.calls.load(), 1);
        QVERIFY(thread.isRunning());
        thread.WaitExit();
        QVERIFY(thread.isFinished() && thread.IsStop());
        thread.WaitExit(); // once more
        thread.start();    // asked to stop, it does not call
        QVERIFY(ended(thread));
        QCOMPARE(job.calls.load(), 1);
        thread.setCB(work, &job);
        thread.start();
        AWAIT_EQUAL(job.calls.load(), 2);
        thread.SetStop();
        QVERIFY(ended(thread));
        thread.setCB([](void *self) { static_cast<CBPQtThread *>(self)->WaitExit(); }, &thread);
        thread.start();
        QVERIFY(ended(thread) && thread.IsStop());
    }

    // An event loop, unless it has a function.
    void threadEndsAnyway()
    {
        for (const bool function : {true, false}) {
            Work job;
            job.polls = true;
            QObject parent; // goes first, and the thread with it
            auto *thread = job.thread = new CBPQtThread(&parent);
            auto *inside = new QObject;
            inside->moveToThread(thread);
            if (function)
                thread->setCB(work, &job);
            else
                QMetaObject::invokeMethod(inside, [&job] { ++job.calls; });
            thread->start();
            AWAIT_EQUAL(job.calls.load(), 1);
            QVERIFY(thread->isRunning());
            inside->deleteLater();

            job.calls = 0;
            CBPQtThread other(nullptr);
            if (function)
                other.setCB(work, &job);
            else
                other.start();
            other.WaitExit(); // its event loop may not have begun, and its function is not called
            QVERIFY(other.isFinished());
            QCOMPARE(job.calls.load(), 0);
        }
    }

    void timer()
    {
        QObject parent;
        CBPQtTimer timer(&parent);
        QVERIFY(!timer.parent());
        QCOMPARE(timer.interval(), 80);
        QCOMPARE(timer.timerCnt(), 0);
        timer.start();
        AWAIT(timer.timerCnt() >= 1);
        timer.start(1);
        QCOMPARE(timer.timerCnt(), 0);
        AWAIT(timer.timerCnt() >= 3);
        QCOMPARE(timer.interval(), 1);
        QVERIFY(QMetaObject::invokeMethod(&timer, "start", Q_ARG(int, 1000)));
        QCOMPARE(timer.timerCnt(), 0);
    }

    void managerCounts()
    {
        CWorkThreadMgr *manager = CWorkThreadMgr::instance();
        QCOMPARE(manager->AddRef(), 2L);
        QCOMPARE(CWorkThreadMgr::instance(), manager);
        QCOMPARE(manager->Release(), 2L);
        // Who takes away what was never given to him ends the object, not the library.
        QCOMPARE(manager->Release(), 1L);
        QCOMPARE(manager->Release(), 0L);
        QVERIFY(CWorkThreadMgr::instance());
        QVERIFY(!CWorkThreadMgr::instance()->isWndObjExist(this));
    }

    // Many waits, nested at random and ended at random, leave nothing behind.
    void nothingIsLeft()
    {
        while (m_made < kExecuters / 10) // what the first waits make for good, of the system's too
            waitOnce(0);
        settle();
        const ProcessCounts before = ProcessCounts::now();
        while (m_made < kExecuters)
            waitOnce(0);
        settle();
        QCOMPARE(Job::alive(), 0);
        QCOMPARE(m_returned, m_made);
        QVERIFY(m_deepest > 3);
        for (int i = 0; i < EndingCount; ++i)
            QVERIFY2(m_endings[i] > kExecuters / 20, qPrintable(QString::number(i)));
        AWAIT(ProcessCounts::now().threads <= before.threads);
        const int more = int(ProcessCounts::now().handles - before.handles);
        QVERIFY2(more <= 8, qPrintable(QString::number(more)));
    }

private:
    int upTo(int highest) { return int(m_random.bounded(highest + 1)); }

    // Makes an executer, under a window of its own or one that others wait under, and waits for it.
    void waitOnce(int depth, QuitWindow *shared = nullptr)
    {
        ++m_made;
        m_deepest = qMax(m_deepest, depth);
        const QPointer<QuitWindow> window(shared ? shared : new QuitWindow);
        // Most wait in what shows nothing, some in a button, some in the window that the executer makes.
        const int kind = upTo(19);
        std::unique_ptr<Recorder> plain(kind > 1 ? new Recorder : nullptr);
        const QPointer<CBPWaitBtn> button(kind == 1 ? new CBPWaitBtn({}, "Start", "", &m_page, true)
                                                    : nullptr);
        CBPSyncObj *sync = plain ? plain.get() : static_cast<CBPSyncObj *>(button.data());
        const QPointer<Job> job(new Job(sync, window, timedTask(upTo(kLongestMs), 7)));
        const auto ending = Ending(upTo(EndingCount - 1));
        ++m_endings[ending];
        const auto end = [&] {
            if (ending == WindowQuits && window) {
                window->quit();
            } else if (ending == WindowDies) {
                delete window.data();
            } else if (ending == SyncDies) {
                plain.reset();
                delete button.data();
            } else if (ending == BrokenOff && plain) {
                plain->breakOff();
            } else if (ending == BrokenOff && button) {
                button->exit(nullptr, false);
            } else if (CBPUISyncWaiter *waiter = ending == BrokenOff ? shownWaiter() : nullptr) {
                waiter->SetRespondEsc(true);
                QTest::keyClick(waiter, Qt::Key_Escape);
            } else if (ending == Deleted && job) {
                upTo(1) == 0 ? job->deleteLater() : delete job.data();
            }
        };
        auto context = std::make_unique<QObject>(); // what is meant for this wait goes with it
        QTimer::singleShot(upTo(kLongestMs), context.get(), end);
        const int nested = depth < kDeepest ? upTo(2) : 0;
        for (int i = 0; i < nested && m_made < kExecuters; ++i) {
            const bool sameWindow = upTo(2) == 0;
            QTimer::singleShot(upTo(kLongestMs), context.get(), [&, depth, sameWindow] {
                if (m_made < kExecuters)
                    waitOnce(depth + 1, sameWindow ? window.data() : nullptr);
            });
        }
        const unsigned long long result = job->execute();
        context.reset();
        ++m_returned;
        QVERIFY(result == 7 || result == kNone);
        if (job && job->isNeedDelete() && upTo(9) == 0)
            job->execute(); // and once more
        if (job && job->isNeedDelete())
            delete job.data();
        delete button.data();
        if (!shared)
            delete window.data();
    }

    // The jobs that nobody waits for end, and their executers go.
    static void settle()
    {
        AWAIT_EQUAL(Job::alive(), 0);
        CWorkThreadMgr::WaitForAllExist();
    }

    QWidget m_page;
    QRandomGenerator m_random;
    int m_made = 0;
    int m_returned = 0;
    int m_deepest = 0;
    int m_endings[EndingCount] = {};
};

LUMQT_TEST_MAIN(TestSync)
#include "tst_sync.moc"
