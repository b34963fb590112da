#include "Await.h"
#include "CBPJob.h"
#include "CBPSyncObj.h"
#include "Rows.h"
#include "TestMain.h"

#include <QSemaphore>
#include <QSet>

namespace {

template <class Function> auto run(Function function)
{
    CBPSyncObj sync;
    return CBPJob::run(nullptr, "Text", function, &sync).value();
}

bool timerComes()
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&loop] { loop.exit(1); });
    return loop.exec() == 1;
}

void quitsInItsLoop()
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [] { QThread::currentThread()->quit(); });
    loop.exec();
}

} // namespace

// The threads that jobs run in, which are used again. There is only one until several are needed at a time.
class TestJobThreads : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Also by a job that is given as soon as the one before is over, when its thread is hardly back.
    void usedAgain()
    {
        QSet<QThread *> used;
        for (int i = 0; i < 3000; ++i)
            used << run([] { return QThread::currentThread(); });
        QCOMPARE(used.size(), 1);
    }

    void leavesNothing_data()
    {
        names("left", {"nothing", "interruption", "priority", "quit", "exit", "quit in a loop"});
    }
    // Each job finds its thread as if it were the first.
    void leavesNothing()
    {
        QFETCH(QString, left);
        run([left] {
            QThread *thread = QThread::currentThread();
            if (left == "interruption")
                thread->requestInterruption();
            else if (left == "priority")
                thread->setPriority(QThread::LowestPriority);
            else if (left == "quit")
                thread->quit();
            else if (left == "exit")
                thread->exit(3);
            else if (left == "quit in a loop")
                quitsInItsLoop();
            return 0;
        });
        QVERIFY(run([] { return timerComes(); }));
        QVERIFY(run([] { return !QThread::currentThread()->isInterruptionRequested(); }));
        QCOMPARE(run([] { return QThread::currentThread()->priority(); }), QThread::InheritPriority);
    }

    // What a job has deleted later goes in its thread, and before anybody is told.
    void deletedLater()
    {
        std::atomic<QThread *> diedIn{nullptr};
        QThread *const ranIn = run([&] {
            auto *object = new QObject;
            QObject::connect(
                object, &QObject::destroyed, object, [&] { diedIn = QThread::currentThread(); },
                Qt::DirectConnection);
            object->deleteLater();
            return QThread::currentThread();
        });
        QVERIFY(ranIn && diedIn == ranIn);
    }

    // No job waits for a thread while there may be more of them.
    void asManyAsNeeded()
    {
        constexpr int kMany = 12;
        CBPJob::setMaximumRunning(kMany);
        for (int round = 0; round < 2; ++round) {
            QSemaphore came;
            QSemaphore gate;
            QSet<QThread *> used;
            const auto work = [&] {
                came.release();
                gate.acquire();
                return QThread::currentThread();
            };
            for (int i = 0; i < kMany; ++i) {
                CBPJob::start(nullptr, QString(), work,
                              [&](const CBPJobResult<QThread *> &result) { used << result.value(); });
            }
            const bool all = came.tryAcquire(kMany, kPatience);
            gate.release(kMany);
            AWAIT_EQUAL(used.size(), kMany);
            QVERIFY(all);
        }
    }
};

LUMQT_TEST_MAIN(TestJobThreads)
#include "tst_job_threads.moc"
