#include "CWorkThreadMgr.h"
#include "Jobs.h"
#include "ProcessCounts.h"
#include "TestMain.h"

#include <QRandomGenerator>
#include <QTimer>

// Thousands of waits, nested at random and ended at random, leave nothing behind.
namespace {

constexpr int kExecuters = 2000;
constexpr int kDeepest = 6;    // waits within each other
constexpr int kLongestMs = 20; // of a job, and of what ends its wait

enum Ending { ByJob, WindowQuits, WindowDies, SyncDies, BrokenOff, Deleted, EndingCount };

} // namespace

class TestExecuterStress : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        bool given = false;
        uint seed = qEnvironmentVariableIntValue("LUMQT_SEED", &given);
        if (!given)
            seed = 20261125;
        m_random.seed(seed);
        qInfo("LUMQT_SEED=%u", seed);
        // Of those that are deleted while their job runs.
        m_before = qInstallMessageHandler(
            [](QtMsgType type, const QMessageLogContext &context, const QString &text) {
                if (type != QtWarningMsg || !text.startsWith(QLatin1String("An executer is deleted")))
                    m_before(type, context, text);
            });
    }
    void cleanupTestCase() { qInstallMessageHandler(m_before); }

    void nothingIsLeft()
    {
        waitOnce(0); // what the first wait makes for good
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
        QTRY_VERIFY(ProcessCounts::now().threads <= before.threads);
        QVERIFY2(ProcessCounts::now().handles <= before.handles + 8,
                 qPrintable(QStringLiteral("%1 handles, %2 before")
                                .arg(ProcessCounts::now().handles)
                                .arg(before.handles)));
    }

private:
    int upTo(int highest) { return int(m_random.bounded(highest + 1)); }

    // Makes an executer with a window and a sync object of its own, and waits for it.
    void waitOnce(int depth)
    {
        ++m_made;
        m_deepest = qMax(m_deepest, depth);
        auto *window = new QuitWindow;
        auto *sync = new Breakable;
        const QPointer<QObject> windowAlive(window);
        bool syncAlive = true;
        bool waiting = true;
        const auto ending = Ending(upTo(EndingCount - 1));
        ++m_endings[ending];
        QPointer<Job> job = new Job(sync, window, timedTask(upTo(kLongestMs), 7));
        QObject context; // what is meant for this wait goes with it
        QTimer::singleShot(upTo(kLongestMs), &context, [&, ending] {
            if (!waiting)
                return;
            if (ending == WindowQuits)
                window->quit();
            else if (ending == WindowDies)
                delete window;
            else if (ending == SyncDies) {
                syncAlive = false;
                delete sync;
            } else if (ending == BrokenOff)
                sync->breakOff();
            else if (ending == Deleted)
                delete job.data();
        });
        const int nested = depth < kDeepest ? upTo(2) : 0;
        for (int i = 0; i < nested && m_made < kExecuters; ++i)
            QTimer::singleShot(upTo(kLongestMs), &context, [&, depth] {
                if (m_made < kExecuters)
                    waitOnce(depth + 1);
            });
        const unsigned long long result = job->execute();
        waiting = false;
        ++m_returned;
        QVERIFY(result == 7 || result == 0x1001);
        if (job && job->isNeedDelete())
            delete job.data();
        if (syncAlive)
            delete sync;
        delete windowAlive.data();
    }

    // The jobs that nobody waits for end, and their executers go.
    static void settle()
    {
        QTRY_COMPARE(Job::alive(), 0);
        CWorkThreadMgr::WaitForAllExist();
    }

    static QtMessageHandler m_before;
    QRandomGenerator m_random;
    int m_made = 0;
    int m_returned = 0;
    int m_deepest = 0;
    int m_endings[EndingCount] = {};
};

QtMessageHandler TestExecuterStress::m_before = nullptr;

LUMQT_TEST_MAIN(TestExecuterStress)
#include "tst_executer_stress.moc"
