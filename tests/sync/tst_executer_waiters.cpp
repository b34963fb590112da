#include "CBaseWin.h"
#include "CBPPopWnd.h"
#include "CBPUISyncWaiter.h"
#include "CBPWaitBtn.h"
#include "Jobs.h"
#include "TestMain.h"
#include "Waiting.h"

// Executers behind what the user sees.
namespace {

constexpr unsigned long long kNone = 0x1001;

CBPUISyncWaiter *shownWaiter()
{
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        auto *waiter = qobject_cast<CBPUISyncWaiter *>(window);
        if (waiter && waiter->isVisible())
            return waiter;
    }
    return nullptr;
}

int waiterCount()
{
    int count = 0;
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows)
        count += qobject_cast<CBPUISyncWaiter *>(window) != nullptr;
    return count;
}

} // namespace

class TestExecuterWaiters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        QTRY_COMPARE(Job::alive(), 0);
        QTRY_COMPARE(waiterCount(), 0);
        QVERIFY(!m_watchdog.bit());
    }

    void ownWaiter_data()
    {
        QTest::addColumn<bool>("withWindow");
        QTest::newRow("in front of a window") << true;
        QTest::newRow("alone") << false;
    }
    void ownWaiter()
    {
        QFETCH(bool, withWindow);
        QWidget window;
        window.resize(400, 300);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const TaskPointer task = gatedTask(21);
        auto *job = new Job(nullptr, withWindow ? &window : nullptr, task);
        later(job, [&] {
            const CBPUISyncWaiter *waiter = shownWaiter();
            QVERIFY(waiter && waiter->isModal());
            QCOMPARE(waiter->parentWidget(), withWindow ? &window : nullptr);
            task->gate.release();
        });
        for (int time = 0; time < 2; ++time) {
            QCOMPARE(job->execute(), 21ULL);
            QVERIFY(!shownWaiter());
            QVERIFY(job->isNeedDelete());
            QCOMPARE(waiterCount(), 1); // kept for the next time
            task->gate.release();
        }
        delete job;
        QCOMPARE(waiterCount(), 0);
    }

    void globalWaitShowsNothing()
    {
        const TaskPointer task = gatedTask(22);
        auto *job = new Job(nullptr, nullptr, task, nullptr, QStringLiteral("STR_GLOBAL_UNIQUE"));
        later(job, [&] {
            QVERIFY(!shownWaiter());
            task->gate.release();
        });
        QCOMPARE(job->execute(), 22ULL);
        delete job;
    }

    void endings_data()
    {
        QTest::addColumn<QString>("ending");
        QTest::addColumn<bool>("global");
        for (const char *ending : {"Escape", "window destroyed", "waiter destroyed", "UnRun"})
            QTest::newRow(ending) << QString(ending) << false;
        QTest::newRow("global, window destroyed") << "window destroyed" << true;
        QTest::newRow("global, waiter destroyed") << "waiter destroyed" << true;
    }
    // The window or the wait goes while the job runs.
    void endings()
    {
        QFETCH(QString, ending);
        QFETCH(bool, global);
        auto *window = new QWidget;
        window->show();
        const QPointer<QWidget> windowAlive(window);
        const TaskPointer task = gatedTask();
        QPointer<Job> job =
            new Job(nullptr, window, task, nullptr, global ? QStringLiteral("STR_GLOBAL_UNIQUE") : QString());
        later(job, [&] {
            CBPUISyncWaiter *waiter = shownWaiter();
            QCOMPARE(!waiter, global);
            if (ending == QLatin1String("Escape")) {
                QTest::keyClick(waiter, Qt::Key_Escape);
                QVERIFY(waiter->isVisible());
                waiter->SetRespondEsc(true);
                QTest::keyClick(waiter, Qt::Key_Escape);
            } else if (ending == QLatin1String("window destroyed")) {
                destroy(window);
            } else if (ending == QLatin1String("waiter destroyed")) {
                destroy(window->findChild<CBPUISyncWaiter *>());
            } else {
                waiter->UnRun();
            }
        });
        QCOMPARE(job->execute(), kNone);
        QVERIFY(job && !job->isNeedDelete());
        QCOMPARE(waiterCount(), 0); // an orphan has no window
        task->gate.release();
        QTRY_VERIFY(job.isNull());
        delete windowAlive.data();
    }

    void waitingButton_data()
    {
        QTest::addColumn<bool>("dies");
        QTest::newRow("stays") << false;
        QTest::newRow("dies") << true;
    }
    void waitingButton()
    {
        QFETCH(bool, dies);
        QWidget window;
        auto *button = new CBPWaitBtn({}, QStringLiteral("Start"), QStringLiteral("Waiting"), &window, true);
        window.show();
        const TaskPointer task = gatedTask(23);
        QPointer<Job> job = new Job(button, &window, task);
        later(job, [&] {
            QVERIFY(!button->isEnabled());
            if (dies)
                destroy(button);
            else
                task->gate.release();
        });
        QCOMPARE(job->execute(), dies ? kNone : 23ULL);
        QCOMPARE(job->isNeedDelete(), !dies);
        if (!dies) {
            QVERIFY(button->isEnabled() && !button->isWaitting());
            delete job.data();
            return;
        }
        task->gate.release();
        QTRY_VERIFY(job.isNull());
    }

    // A second wait in the same button leaves it to the first one.
    void twoInOneButton()
    {
        QWidget window;
        auto *button = new CBPWaitBtn({}, QStringLiteral("Start"), QString(), &window, true);
        window.show();
        CBPSyncObj other;
        const TaskPointer task = gatedTask(24);
        const TaskPointer second = timedTask(0, 25);
        auto *job = new Job(button, &window, task);
        later(job, [&] {
            auto *inner = new Job(button, &window, second);
            QCOMPARE(inner->execute(), 25ULL);
            delete inner;
            QVERIFY(!button->isEnabled() && button->isWaitting());
            task->gate.release();
        });
        QCOMPARE(job->execute(), 24ULL);
        QVERIFY(button->isEnabled());
        delete job;
    }

    // A pop-up that its user closes while its own button waits.
    void popUpClosedWhileItsButtonWaits()
    {
        class PopUp : public CBPPopWnd
        {
        public:
            PopUp() : CBPPopWnd(false, nullptr)
            {
                Init(true);
                ShowTitleBtn(8, true);
                AppendBtn(0x4);
            }
            TaskPointer task = gatedTask(26);
            QPointer<Job> job;
            unsigned long long result = 0;

        protected:
            bool proceedBtnClicked(int flag) override
            {
                job = new Job(dynamic_cast<CBPWaitBtn *>(GetBtn(flag)), this, task);
                later(this, [this] { OnClose(); });
                result = job->execute();
                return true;
            }
        } popUp;
        later(&popUp, [&] { QTest::mouseClick(popUp.GetBtn(0x4), Qt::LeftButton); });
        popUp.Run();
        QTRY_COMPARE(popUp.result, kNone);
        QCOMPARE(popUp.GetResult(), 0x100);
        QVERIFY(popUp.job && !popUp.job->isNeedDelete());
        popUp.task->gate.release();
        QTRY_VERIFY(popUp.job.isNull());
    }

    void nestedWindows()
    {
        const TaskPointer outer = gatedTask(27);
        const TaskPointer inner = gatedTask(28);
        auto *job = new Job(nullptr, nullptr, outer);
        later(job, [&] {
            auto *second = new Job(nullptr, nullptr, inner);
            later(second, [&] {
                QCOMPARE(waiterCount(), 2);
                outer->gate.release();
                QTRY_VERIFY(outer->ended);
                inner->gate.release();
            });
            QCOMPARE(second->execute(), 28ULL);
            delete second;
        });
        QCOMPARE(job->execute(), 27ULL);
        delete job;
    }

private:
    Watchdog m_watchdog;
};

LUMQT_TEST_MAIN(TestExecuterWaiters)
#include "tst_executer_waiters.moc"
