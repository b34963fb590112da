#include "CBaseWin.h"
#include "CBPPopWnd.h"
#include "CBPWaitBtn.h"
#include "Jobs.h"
#include "Rows.h"
#include "TestMain.h"
#include "Waiting.h"

// Executers behind what the user sees.
namespace {

constexpr unsigned long long kNone = 0x1001;

} // namespace

class TestExecuterWaiters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        QTRY_COMPARE(Job::alive(), 0);
        QTRY_COMPARE(waiters().size(), 0);
        QVERIFY(!m_watchdog.bit());
    }

    void ownWaiter()
    {
        QWidget window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        for (QWidget *parent : {&window, static_cast<QWidget *>(nullptr)}) {
            const TaskPointer task = gatedTask(21);
            auto *job = new Job(nullptr, parent, task);
            later(job, [&] {
                const CBPUISyncWaiter *waiter = shownWaiter();
                QVERIFY(waiter && waiter->isModal());
                QCOMPARE(waiter->parentWidget(), parent);
                task->gate.release(2);
            });
            for (int time = 0; time < 2; ++time) {
                QCOMPARE(job->execute(), 21ULL);
                QVERIFY(!shownWaiter() && job->isNeedDelete());
                QCOMPARE(waiters().size(), 1); // kept for the next time
            }
            delete job;
            QCOMPARE(waiters().size(), 0);
        }
    }

    void endings_data()
    {
        columns<QString, bool>("ending", "global");
        for (const char *ending : {"Escape", "window destroyed", "waiter destroyed", "UnRun"})
            row(ending, ending, false);
        for (const char *ending : {"window destroyed", "waiter destroyed", "job"})
            QTest::addRow("global, %s", ending) << ending << true;
    }
    // The window or the wait goes while the job runs.
    void endings()
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
        QTRY_VERIFY(job.isNull());
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
            QTRY_VERIFY(job.isNull());
        }
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
                QCOMPARE(waiters().size(), 2);
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
