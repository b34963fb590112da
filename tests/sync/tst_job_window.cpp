#include "Acts.h"
#include "Await.h"
#include "CBaseWin.h"
#include "CBPGradientProgressBar.h"
#include "CBPJob.h"
#include "CBPJobWindow.h"
#include "CBPLabel.h"
#include "CBPPushBtn.h"
#include "CBPWaitBtn.h"
#include "Jobs.h"
#include "Later.h"
#include "platform/Platform.h"
#include "sync/RemainingTime.h"
#include "TestMain.h"

#include <QSignalSpy>

using lumqt::platform::TaskBar;

namespace {

constexpr int kDelay = 880; // ms
constexpr int kCancel = 0x100;

CBPJobWindow *shownWindow()
{
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        auto *found = qobject_cast<CBPJobWindow *>(window);
        if (found && found->isVisible())
            return found;
    }
    return nullptr;
}

// Runs until it is told to stop.
void untilTold(CBPJobControl &job)
{
    while (!job.isCancelled())
        QThread::msleep(1);
}

QStringList textsOf(const CBPJobWindow &window)
{
    QStringList texts;
    const auto labels = window.findChildren<CBPLabel *>();
    for (const CBPLabel *label : labels)
        texts << label->text();
    return texts;
}

} // namespace

class TestJobWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void remainingTime()
    {
        // What is said at each step of a job that takes `seconds`.
        const auto said = [](double seconds) {
            lumqt::RemainingTime time;
            QStringList all;
            for (int step = 0; step < 100; ++step) {
                const QString text = time.text(step / 100.0, qint64(step * seconds * 10));
                if (all.isEmpty() || all.last() != text)
                    all << text;
            }
            return all;
        };
        QCOMPARE(said(1.9), QStringList(QString())); // too short to tell
        const QStringList minutes = said(300);
        QCOMPARE(minutes.mid(0, 3), (QStringList{"", "About 5 min left", "About 4 min left"}));
        QVERIFY(minutes.contains("About 60 s left") && minutes.contains("About 18 s left"));
        QVERIFY(!minutes.contains("About 59 s left"));
        QCOMPARE(minutes.last(), QString("About 3 s left"));
        // Anew where it begins again, and not where it is not known.
        lumqt::RemainingTime time;
        time.text(0, 0);
        QVERIFY(!time.text(0.5, 10000).isEmpty());
        QCOMPARE(time.text(0.1, 20000), QString());
        QVERIFY(!time.text(0.5, 30000).isEmpty());
        QVERIFY(!time.text(0.49, 31500).isEmpty()); // of several threads
        QCOMPARE(time.text(1, 33000), QString());
        QCOMPARE(time.text(-1, 33000), QString());
    }

    void looks()
    {
        CBPJobWindow window("Copying", true, nullptr);
        auto *bar = window.findChild<CBPGradientProgressBar *>();
        QVERIFY(bar && bar->isBusy());
        QVERIFY(textsOf(window).contains("Copying"));
        QCOMPARE(window.accessibleName(), QString("Copying"));
        window.setProgress(0.25);
        QVERIFY(!bar->isBusy());
        QCOMPARE(bar->value(), 0.25);
        window.setProgress(-1);
        QVERIFY(bar->isBusy());
        const QSize size = window.size();
        const QString longText(300, 'x');
        window.setText(longText);
        QCOMPARE(window.size(), size);
        QVERIFY(textsOf(window).first().endsWith(QChar(0x2026)));
        QCOMPARE(window.accessibleName(), longText);
        CBaseWin main;
        main.setCaption("Main");
        QWidget other;
        other.setWindowTitle("Other[*]");
        QCOMPARE(CBPJobWindow("Copying", true, &main).title(), QString("Main"));
        QCOMPARE(CBPJobWindow("Copying", true, new QWidget(&other)).title(), QString("Other"));
        const CBPJobWindow plain("Copying", false, nullptr);
        QVERIFY(!const_cast<CBPJobWindow &>(plain).GetBtn(kCancel));
    }

    void cancelling()
    {
        for (const QString how : {"button", "Escape", "system", "forbidden"}) {
            CBPJobWindow window("Copying", how != "forbidden", nullptr);
            QSignalSpy cancelled(&window, &CBPJobWindow::cancelled);
            window.open();
            QVERIFY(QTest::qWaitForWindowExposed(&window, kPatience));
            QVERIFY(window.isModal());
            for (int time = 0; time < 2; ++time) {
                if (how == "button")
                    click(window.GetBtn(kCancel), Click::Space);
                else if (how == "system")
                    closeBySystem(window);
                else
                    QTest::keyClick(&window, Qt::Key_Escape);
            }
            QVERIFY(window.isVisible());
            QCOMPARE(cancelled.size(), how == "forbidden" ? 0 : 1);
            if (how == "forbidden")
                continue;
            QVERIFY(!window.GetBtn(kCancel)->isEnabled());
            QCOMPARE(window.GetBtn(kCancel)->text(), QString("Stopping..."));
            QVERIFY(textsOf(window).contains("The job stops as soon as it can"));
        }
    }

    // Nothing of the window can be used from the first moment on, and everything of others.
    void keepsItsWindowFromInput()
    {
        QWidget window;
        CBPPushBtn button("Button", &window);
        QWidget other;
        CBPPushBtn otherButton("Other", &other);
        other.move(300, 300);
        other.show();
        showActive(window);
        QSignalSpy clicks(&button, &QPushButton::clicked);
        QSignalSpy otherClicks(&otherButton, &QPushButton::clicked);
        int told = 0;
        for (const bool after : {false, true}) {
            std::atomic<bool> ends{false};
            QElapsedTimer clock;
            clock.start();
            QTimer::singleShot(0, &window, [&] {
                if (after) {
                    AWAIT(shownWindow());
                    QVERIFY(clock.elapsed() >= kDelay);
                    QCOMPARE(shownWindow()->parentWidget(), &window);
                    QCOMPARE(shownWindow()->windowModality(), Qt::WindowModal);
                } else {
                    QVERIFY(!shownWindow());
                    click(&button, Click::Left);
                    click(&button, Click::Space);
                    closeBySystem(window);
                }
                click(&otherButton, Click::Left);
                ++told;
                if (after)
                    click(shownWindow()->GetBtn(kCancel), Click::Left);
                ends = true;
            });
            const auto result = CBPJob::run(&window, "Copying", [&ends, after](CBPJobControl &job) {
                while (!job.isCancelled() && (after || !ends))
                    QThread::msleep(1);
            });
            QCOMPARE(result.isCancelled(), after);
            QVERIFY(!shownWindow() && window.isVisible());
        }
        QCOMPARE(told, 2);
        QCOMPARE(otherClicks.size(), 2);
        QCOMPARE(clicks.size(), 0);
        click(&button, Click::Left);
        QCOMPARE(clicks.size(), 1);
    }

    // A dialog that has come before it stays in front, and the application can quit.
    void waitsForOthers()
    {
        QWidget window;
        showActive(window);
        QDialog question(&window);
        QTimer::singleShot(100, &window, [&] { question.open(); });
        QTimer::singleShot(kDelay + 300, &window, [&] {
            QVERIFY(!shownWindow() && question.isVisible());
            question.close();
            AWAIT(shownWindow());
            QVERIFY(!shownWindow()->GetBtn(kCancel)->hasFocus()); // somebody may be typing
            QTest::keyClick(shownWindow()->focusWidget() ? shownWindow()->focusWidget() : shownWindow(),
                            Qt::Key_Space);
            QVERIFY(!shownWindow()->isStopping());
            QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        });
        QTimer::singleShot(0, &window,
                           [&] { QVERIFY(CBPJob::run(&window, "Text", &untilTold).isCancelled()); });
        QCoreApplication::exec();
        QCOMPARE(CBPJob::waitForAll(kPatience), QStringList());
    }

    // What the job tells comes to the window and the task bar, and no more often than can be seen.
    void reports()
    {
        struct Shown
        {
            TaskBar what;
            int done;
        };
        QVector<Shown> shown;
        QVector<QWidget *> windows;
        const auto restore = restoring(lumqt::platform::answers().taskBar);
        lumqt::platform::answers().taskBar = [&](QWidget *window, TaskBar what, double done) {
            if (!window)
                return;
            shown.append({what, qRound(done * 100)});
            windows.append(window);
        };
        QWidget window;
        QDialog dialog(&window);
        window.show();
        dialog.show();
        std::atomic<int> phase{0};
        QStringList texts;
        QTimer look;
        connect(&look, &QTimer::timeout, [&] {
            const CBPJobWindow *job = shownWindow();
            if (!job)
                return;
            texts << textsOf(*job).value(0);
            if (texts.last() == "Second") {
                QCOMPARE(job->findChild<CBPGradientProgressBar *>()->value(), 0.5);
                phase = 2;
            } else {
                phase = 1;
            }
        });
        look.start(5);
        const auto fails = [&phase](CBPJobControl &job) {
            while (phase < 1)
                QThread::msleep(1);
            for (int i = 0; i < 100000; ++i)
                job.setProgress(50 * i / 100000, 100);
            job.setProgress(50, 100);
            job.setText("Second");
            while (phase < 2)
                QThread::msleep(1);
            throw std::runtime_error("disk full");
        };
        bool thrown = false;
        try {
            CBPJob::run(&dialog, "First", fails);
        } catch (const std::runtime_error &) {
            thrown = true;
        }
        QVERIFY(thrown);
        QVERIFY(texts.contains("First") && texts.contains("Second"));
        QVERIFY(windows.count(&window) == windows.size()); // which has the button
        QVERIFY(shown.size() > 3 && shown.size() < 40);
        QVERIFY(shown.first().what == TaskBar::Busy && shown.last().what == TaskBar::Failure);
        const auto half = [](const Shown &each) { return each.what == TaskBar::Progress && each.done == 50; };
        QVERIFY(std::any_of(shown.cbegin(), shown.cend(), half));
        AWAIT(shown.last().what == TaskBar::Nothing); // by itself
    }

    // Its own window, or none at all.
    void waitsInOthers()
    {
        QWidget window;
        CBPWaitBtn button({}, "Start", "Waiting", &window);
        showActive(window);
        for (const bool global : {false, true}) {
            QTimer::singleShot(kDelay + 200, &window, [&] {
                QVERIFY(!shownWindow());
                QCOMPARE(button.isWaitting(), !global);
                delete window.findChild<QTimer *>("stop");
            });
            std::atomic<bool> ends{false};
            auto *stop = new QTimer(&window);
            stop->setObjectName("stop");
            connect(stop, &QObject::destroyed, [&ends] { ends = true; });
            const QString text = global ? "STR_GLOBAL_UNIQUE" : "Text";
            const auto run = [&ends](CBPJobControl &job) {
                job.setText("Other");
                while (!ends)
                    QThread::msleep(1);
            };
            QVERIFY(CBPJob::run(&window, text, run, global ? nullptr : &button).isDone());
            QVERIFY(!button.isWaitting() && button.isEnabled());
            QCOMPARE(static_cast<CBPSyncObj &>(button).text(), QString("Other"));
        }
    }

    void windowGoesWhileItShows()
    {
        auto *window = new QWidget;
        window->show();
        QTimer::singleShot(kDelay + 200, window, [&] {
            QVERIFY(shownWindow());
            delete window;
        });
        QVERIFY(CBPJob::run(window, "Text", &untilTold).isWindowGone());
        QVERIFY(!shownWindow());
        // Without one it is modal to the application.
        later(this, [] {
            AWAIT(shownWindow());
            QCOMPARE(shownWindow()->windowModality(), Qt::ApplicationModal);
            QTest::keyClick(shownWindow(), Qt::Key_Escape);
        });
        QVERIFY(CBPJob::run(nullptr, "Text", &untilTold).isCancelled());
        QCOMPARE(CBPJob::waitForAll(kPatience), QStringList());
    }
};

LUMQT_TEST_MAIN(TestJobWindow)
#include "tst_job_window.moc"
