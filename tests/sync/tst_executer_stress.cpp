#include "CBPUISyncWaiter.h"
#include "CBPWaitBtn.h"
#include "CWorkThreadMgr.h"
#include "Jobs.h"
#include "ProcessCounts.h"
#include "TestMain.h"

#include <QLoggingCategory>
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
        const uint seed = qEnvironmentVariable("LUMQT_SEED", "20261125").toUInt();
        m_random.seed(seed);
        qInfo("LUMQT_SEED=%u", seed);
        // Of those that are deleted or executed while their job runs.
        QLoggingCategory::setFilterRules("lumqtlib.warning=false");
    }

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

    // What one wait is made of. What may die in it is watched.
    struct Scene
    {
        QPointer<QuitWindow> window;
        bool ownsWindow = true;
        Recorder *plain = nullptr;
        QPointer<CBPWaitBtn> button;
        QPointer<Job> job;
        bool waiting = true;

        CBPSyncObj *sync() const { return plain ? plain : static_cast<CBPSyncObj *>(button.data()); }
    };

    // Most wait in what shows nothing, some in a button, some in the window that the executer makes.
    void furnish(Scene &scene)
    {
        const int kind = upTo(19);
        if (kind == 0)
            return;
        if (kind == 1)
            scene.button = new CBPWaitBtn({}, QStringLiteral("Start"), QString(), &m_page, true);
        else
            scene.plain = new Recorder;
    }

    void end(Scene &scene, Ending ending)
    {
        if (!scene.waiting)
            return;
        if (ending == WindowQuits && scene.window) {
            scene.window->quit();
        } else if (ending == WindowDies) {
            delete scene.window.data();
        } else if (ending == SyncDies) {
            delete scene.plain;
            scene.plain = nullptr;
            delete scene.button.data();
        } else if (ending == BrokenOff) {
            if (scene.plain)
                scene.plain->breakOff();
            else if (scene.button)
                scene.button->exit(nullptr, false);
            else
                closeNewestWaiter();
        } else if (ending == Deleted && scene.job) {
            upTo(1) == 0 ? scene.job->deleteLater() : delete scene.job.data();
        }
    }

    static void closeNewestWaiter()
    {
        const auto windows = QApplication::topLevelWidgets();
        for (QWidget *window : windows) {
            auto *waiter = qobject_cast<CBPUISyncWaiter *>(window);
            if (!waiter || !waiter->isVisible())
                continue;
            waiter->SetRespondEsc(true);
            QTest::keyClick(waiter, Qt::Key_Escape);
            return;
        }
    }

    // Makes an executer, under a window of its own or one that others wait under, and waits for it.
    void waitOnce(int depth, QuitWindow *shared = nullptr)
    {
        ++m_made;
        m_deepest = qMax(m_deepest, depth);
        Scene scene;
        scene.ownsWindow = !shared;
        scene.window = shared ? shared : new QuitWindow;
        furnish(scene);
        const auto ending = Ending(upTo(EndingCount - 1));
        ++m_endings[ending];
        scene.job = new Job(scene.sync(), scene.window, timedTask(upTo(kLongestMs), 7));
        QObject context; // what is meant for this wait goes with it
        QTimer::singleShot(upTo(kLongestMs), &context, [&, ending] { end(scene, ending); });
        const int nested = depth < kDeepest ? upTo(2) : 0;
        for (int i = 0; i < nested && m_made < kExecuters; ++i) {
            const bool sameWindow = upTo(2) == 0;
            QTimer::singleShot(upTo(kLongestMs), &context, [&, depth, sameWindow] {
                if (m_made < kExecuters)
                    waitOnce(depth + 1, sameWindow ? scene.window.data() : nullptr);
            });
        }
        const unsigned long long result = scene.job->execute();
        scene.waiting = false;
        ++m_returned;
        QVERIFY(result == 7 || result == 0x1001);
        if (scene.job && scene.job->isNeedDelete() && upTo(9) == 0)
            scene.job->execute(); // and once more
        if (scene.job && scene.job->isNeedDelete())
            delete scene.job.data();
        delete scene.plain;
        delete scene.button.data();
        if (scene.ownsWindow)
            delete scene.window.data();
    }

    // The jobs that nobody waits for end, and their executers go.
    static void settle()
    {
        QTRY_COMPARE(Job::alive(), 0);
        CWorkThreadMgr::WaitForAllExist();
    }

    QWidget m_page;
    QRandomGenerator m_random;
    int m_made = 0;
    int m_returned = 0;
    int m_deepest = 0;
    int m_endings[EndingCount] = {};
};

LUMQT_TEST_MAIN(TestExecuterStress)
#include "tst_executer_stress.moc"
