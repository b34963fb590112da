#include "CBPUISyncWaiter.h"
#include "CBPWaiter.h"

#include "CBPEvtLoop.h"
#include "foundation/FontLookup.h"
#include "platform/Platform.h"
#include "Rows.h"
#include "TestMain.h"
#include "Util.h"
#include "Waiting.h"

#include <QLabel>
#include <QMovie>
#include <QSignalSpy>

#include <algorithm>

namespace {

// May be told to act while it is being shown.
template <class Base> class Watched : public Base
{
public:
    using Base::Base;

    std::function<void()> onShow;

protected:
    void showEvent(QShowEvent *event) override
    {
        Base::showEvent(event);
        if (onShow)
            onShow();
    }
};

class Waiter : public Watched<CBPUISyncWaiter>
{
public:
    using CBPUISyncWaiter::setWaitingLabel;
    using Watched::Watched;
};

using Dialog = Watched<CBPWaiter>;

} // namespace

class TestWaiters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void waiter()
    {
        Watchdog dog;
        Waiter w("Please wait");
        QCOMPARE(w.objectName(), QString("id_WaiterWnd"));
        QCOMPARE(w.minimumSize(), QSize(100, 100));
        QCOMPARE(w.maximumSize(), QSize(100, 100));
        QCOMPARE(w.accessibleName(), QString("Please wait"));
        QVERIFY(!w.testAttribute(Qt::WA_QuitOnClose));
        QCOMPARE(w.GetResult(), 1);
        QLabel label;
        w.setWaitingText("nowhere");
        w.setWaitingLabel(&label);
        w.setWaitingText("shown");
        QCOMPARE(label.text(), QString("shown"));

        QSignalSpy quits(&w, &CBPPopWnd::sigQuit);
        CBPEvtLoop loop;
        CBPSyncObj &sync = w;
        bool looked = false;
        later(&w, [&] {
            looked = w.isVisible() && w.isModal() && !loop.isRunning();
            QVERIFY(!w.close()); // it ends with the job
            QVERIFY(w.isVisible());
            QCOMPARE(sync.exit(&loop, false), 0);
        });
        QCOMPARE(sync.run(&loop, false), 0);
        QVERIFY(looked && !dog.bit());
        QVERIFY(!w.isVisible());
        QCOMPARE(quits.size(), 1);
    }

    void globalWait()
    {
        Watchdog dog;
        Waiter w("STR_GLOBAL_UNIQUE");
        w.onShow = [] { QFAIL("it is not to be seen"); };
        CBPEvtLoop loop;
        for (CBPEvtLoop *in : {&loop, static_cast<CBPEvtLoop *>(nullptr)}) {
            later(&w, [&] {
                QCOMPARE(loop.isRunning(), in != nullptr);
                w.exit(in, true);
            });
            QCOMPARE(w.run(in, true), 0);
        }
        QVERIFY(!dog.bit());
    }

    void withoutCompositor()
    {
        auto &composited = lumqt::platform::answers().composited;
        const auto before = composited;
        composited = [] { return false; };
        Waiter w("Wait");
        w.show();
        const QRect tile = w.findChild<QLabel *>()->geometry();
        QCOMPARE(w.mask().boundingRect(), tile);
        QVERIFY(!w.mask().contains(tile.topLeft())); // round corners
        composited = before;
    }

    void escape_data()
    {
        columns<bool, bool, int, int>("responds", "exits", "modifiers", "ends");
        row("off", false, false, 0, 0);
        row("a slot ends it", true, true, 0, 1);
        row("no slot does", true, false, 0, 1);
        row("Shift", true, false, int(Qt::ShiftModifier), 0);
        row("Ctrl", true, false, int(Qt::ControlModifier), 0);
    }
    void escape()
    {
        QFETCH(bool, responds);
        QFETCH(bool, exits); // by a slot itself
        QFETCH(int, modifiers);
        QFETCH(int, ends);
        Watchdog dog;
        Waiter w("Wait");
        w.SetRespondEsc(responds);
        QSignalSpy escapes(&w, &CBPUISyncWaiter::sigPressEscape);
        QSignalSpy finished(&w, &QDialog::finished);
        QSignalSpy rejected(&w, &QDialog::rejected);
        if (exits)
            connect(&w, &CBPUISyncWaiter::sigPressEscape, [&] { w.exit(nullptr, false); });
        const int result = exits || ends == 0;
        later(&w, [&] {
            QTest::keyClick(&w, Qt::Key_Escape, Qt::KeyboardModifiers(modifiers));
            QCOMPARE(w.isVisible(), ends == 0);
            QCOMPARE(escapes.size(), ends);
            QCOMPARE(finished.size(), ends);
            QCOMPARE(rejected.size(), ends);
            QCOMPARE(w.GetResult(), result);
            QTest::keyClick(&w, Qt::Key_A);
            if (w.isVisible())
                w.exit(nullptr, false);
        });
        w.run(nullptr, false);
        QVERIFY(!dog.bit());
        QCOMPARE(escapes.size(), ends);
        QCOMPARE(w.GetResult(), result);
        w.exit(nullptr, false); // the job is over
        QCOMPARE(w.GetResult(), 1);
    }

    void waiterEnds_data()
    {
        columns<QString>("how");
        for (const char *how : {"deleted", "parent deleted", "parent hidden", "deleted by Escape",
                                "deleted by its end", "while it is being shown"})
            row(how, how);
    }
    void waiterEnds()
    {
        QFETCH(QString, how);
        Watchdog dog;
        const QPointer<QWidget> parent(new QWidget);
        parent->show();
        QPointer<Waiter> w(new Waiter("Wait", parent));
        w->SetRespondEsc(true);
        if (how == "deleted by Escape")
            connect(w, &CBPUISyncWaiter::sigPressEscape, [&] { destroy(w); });
        else if (how == "deleted by its end")
            connect(w, &CBPPopWnd::sigQuit, [&] { destroy(w); });
        if (how == "while it is being shown")
            w->onShow = [&] { w->exit(nullptr, false); };
        later(w, [&] {
            if (how == "deleted")
                destroy(w);
            else if (how == "parent deleted")
                destroy(parent);
            else if (how == "parent hidden")
                parent->hide();
            else if (how == "deleted by Escape")
                QTest::keyClick(w, Qt::Key_Escape);
            else
                w->exit(nullptr, false);
        });
        QCOMPARE(w->run(nullptr, false), 0);
        QVERIFY(!dog.bit());
        QCOMPARE(!w, how.contains("deleted"));
        delete parent;
    }

    void movie()
    {
        Waiter w("Wait");
        auto *label = w.findChild<QLabel *>();
        QVERIFY(label && label->movie());
        const char *file = label->devicePixelRatioF() > 1 ? "../res/waiting@2x.gif" : "../res/waiting.gif";
        QCOMPARE(QFileInfo(label->movie()->fileName()).canonicalFilePath(),
                 QFileInfo(Util::getResFullPath(file)).canonicalFilePath());
        QCOMPARE(label->movie()->state(), QMovie::NotRunning); // nothing is decoded for nobody
        w.show();
        QCOMPARE(label->movie()->state(), QMovie::Running);
        QCOMPARE(label->geometry().center(), QRect(0, 0, 100, 100).center());
        QSignalSpy pictures(label->movie(), &QMovie::frameChanged);
        QTRY_VERIFY(pictures.size() > 2);
        const QImage image = w.grab().toImage();
        const auto at = [&image](int x, int y) {
            return image.pixelColor(QPoint(x, y) * image.width() / 100);
        };
        QCOMPARE(at(5, 50).alpha(), 0); // only the spinner
        QCOMPARE(at(50, 24).alpha(), 255);
        w.hide();
        QCOMPARE(label->movie()->state(), QMovie::NotRunning);
    }

    void timeLimit_data()
    {
        columns<int, bool>("limit", "minimised");
        row("none", 0, false);
        row("some", 250, false);
        row("minimised", 800, true);
    }
    void timeLimit()
    {
        QFETCH(int, limit);
        QFETCH(bool, minimised);
        Watchdog dog;
        CBPWaiter w(nullptr, "Loading", unsigned(limit), false);
        QCOMPARE(w.minimumSize(), QSize(130, 38));
        QCOMPARE(w.maximumSize(), QSize(130, 38));
        QSignalSpy finished(&w, &QDialog::finished);
        for (int run = 1; run <= 2; ++run) {
            QElapsedTimer clock;
            clock.start();
            QImage before;
            if (minimised) {
                QTimer::singleShot(0, &w, [&] {
                    QVERIFY(QTest::qWaitForWindowExposed(&w));
                    QHideEvent event;
                    QSpontaneKeyEvent::setSpontaneous(&event);
                    qApp->notify(&w, &event); // sendEvent() makes it one of the program
                    before = w.grab().toImage();
                });
                QTimer::singleShot(700, &w, [&] { QCOMPARE(w.grab().toImage(), before); });
            }
            w.Run();
            QVERIFY(clock.elapsed() >= limit && clock.elapsed() < limit + 1000);
            QCOMPARE(w.result(), 1);
            QCOMPARE(finished.size(), run);
        }
        QTest::qWait(100);
        QCOMPARE(finished.size(), 2); // no timer goes on
        QVERIFY(!dog.bit());
    }

    void waiterKeys_data()
    {
        columns<QString, bool, int, int>("how", "responds", "result", "rejections"); // result -1: goes on
        row("Escape", "Escape", true, 0, 1);
        row("Escape, off", "Escape", false, -1, 0);
        row("close", "close", true, 0, 1);
        row("close, off", "close", false, -1, 0);
        row("UnRun", "UnRun", false, 1, 0);
        row("five minutes", "on_TimeoutQuit", true, 1, 1);
    }
    void waiterKeys()
    {
        QFETCH(QString, how);
        QFETCH(bool, responds);
        QFETCH(int, result);
        Watchdog dog;
        CBPWaiter w(nullptr, "Loading", 100000, false);
        w.SetRespondEsc(responds);
        QSignalSpy rejections(&w, &QDialog::rejected);
        bool ended = false;
        later(&w, [&] {
            if (how == "Escape")
                QTest::keyClick(&w, Qt::Key_Escape);
            else if (how == "UnRun")
                w.UnRun();
            else
                QVERIFY(QMetaObject::invokeMethod(&w, how.toLatin1().constData()));
            ended = !w.isVisible();
            if (!ended)
                w.UnRun();
        });
        w.Run();
        QVERIFY(!dog.bit());
        QCOMPARE(ended, result != -1);
        if (ended)
            QCOMPARE(w.result(), result);
        QTEST(rejections.size(), "rejections");
    }

    void endedWhileShown_data()
    {
        columns<QString>("how");
        for (const char *how : {"UnRun", "close", "reject", "hide", "delete"})
            row(how, how);
    }
    // Before its loop runs, too.
    void endedWhileShown()
    {
        QFETCH(QString, how);
        Watchdog dog;
        QPointer<Dialog> w(new Dialog(nullptr, "Loading", 300, false));
        w->setAttribute(Qt::WA_DeleteOnClose, how == "delete");
        bool acted = false;
        w->onShow = [&] {
            acted = true;
            if (how == "UnRun" || how == "delete")
                w->UnRun();
            else
                QVERIFY(QMetaObject::invokeMethod(w, how.toLatin1().constData()));
        };
        w->Run();
        QVERIFY(acted && !dog.bit());
        if (how == "delete") {
            QTRY_VERIFY(!w);
            return;
        }
        QVERIFY(w && !w->isVisible() && !w->isModal());
        QVERIFY(!w->windowHandle()->isVisible() &&
                !QGuiApplication::modalWindow()); // which would block all others
        QCOMPARE(w->result(), int(how == "UnRun"));
        w->onShow = nullptr; // and it can be run again
        w->Run();
        QVERIFY(!dog.bit());
        QCOMPARE(w->result(), 1);
        delete w;
    }

    void runsOnce()
    {
        Watchdog dog;
        CBPWaiter w(nullptr, "Loading", 100, false);
        int ends = 0;
        connect(&w, &QDialog::finished, [&] {
            ++ends;
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("runs already"));
            w.Run();
        });
        w.Run();
        QVERIFY(!dog.bit());
        QCOMPARE(ends, 1);
        QVERIFY(!w.isVisible());
    }

    // Not waited for: the timer that ends what nobody has ended.
    void longestRun()
    {
        CBPWaiter w(nullptr, "Loading", 300000000, false);
        const auto longest = [&w] {
            const auto timers = w.findChildren<QTimer *>();
            const auto found = std::find_if(timers.begin(), timers.end(),
                                            [](const QTimer *timer) { return timer->interval() == 300000; });
            return found == timers.end() ? nullptr : *found;
        };
        QTimer *timer = longest();
        QVERIFY(timer && timer->isSingleShot() && !timer->isActive());
        Watchdog dog;
        later(&w, [&] {
            QVERIFY(timer->isActive());
            timer->setInterval(20); // the five minutes are over
        });
        QSignalSpy rejections(&w, &QDialog::rejected);
        w.Run();
        QVERIFY(!dog.bit());
        QCOMPARE(rejections.size(), 1);
        QCOMPARE(w.result(), 1);
    }

    void waiterDeleted_data()
    {
        columns<QString>("how");
        for (const char *how : {"itself", "parent", "when finished", "on close"})
            row(how, how);
    }
    void waiterDeleted()
    {
        QFETCH(QString, how);
        Watchdog dog;
        const QPointer<QWidget> parent(new QWidget);
        parent->show();
        QPointer<CBPWaiter> w(new CBPWaiter(parent, "Loading", 100, false));
        w->setAttribute(Qt::WA_DeleteOnClose, how == "on close");
        if (how == "when finished")
            connect(w, &QDialog::finished, [&] { destroy(w); });
        later(w, [&] {
            if (how == "itself")
                destroy(w);
            else if (how == "parent")
                destroy(parent);
        });
        w->Run();
        QVERIFY(!w && !dog.bit());
        delete parent;
    }

    void waiterLook()
    {
        Watchdog dog;
        CBPWaiter w(nullptr, "Loading", 4000, false);
        QImage image = w.grab().toImage();
        const qreal ratio = image.devicePixelRatio();
        const QColor ground(232, 244, 253);
        const int right = image.width() - 1, bottom = image.height() - 1;
        for (const QPoint &corner :
             {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom), QPoint(right, bottom)})
            QCOMPARE(image.pixelColor(corner), QColor(0, 163, 210));
        QCOMPARE(image.pixelColor(int(2 * ratio), int(2 * ratio)), ground);
        // The halves of the picture move apart until the text is open; then only its dots change.
        const auto left = [&] {
            image = w.grab().toImage();
            for (int x = int(3 * ratio); x < 65 * ratio; ++x) {
                if (image.pixelColor(x, int(19 * ratio)) != ground)
                    return int(x / ratio);
            }
            return -1;
        };
        const QFontMetrics metrics(QFont(GetFontFamily(1), 12));
        const int width = metrics.size(Qt::TextExpandTabs, "Loading...").width();
        const int opened = 30 * (width / 2 + 3) * 4 / 3; // ms; a third more than it takes
        int start = 0, open = 0, last = 0, again = 0;
        QTimer::singleShot(0, &w, [&] { start = left(); });
        QTimer::singleShot(opened, &w, [&] { open = left(); });
        QTimer::singleShot(opened + 350, &w, [&] {
            const QImage before = image;
            last = left();
            QVERIFY(image != before);
            w.UnRun();
        });
        w.Run();
        QTimer::singleShot(0, &w, [&] {
            again = left();
            w.UnRun();
        });
        w.Run(); // from the beginning
        QVERIFY(!dog.bit());
        QVERIFY(start > 48 && start <= 64);
        QVERIFY2(qAbs(again - start) <= 3, qPrintable(QString::number(again)));
        QVERIFY2(qAbs(open - (64 - width / 2 - 3 - 12)) <= 2, qPrintable(QString::number(open)));
        QCOMPARE(last, open);
    }
};

LUMQT_TEST_MAIN(TestWaiters)
#include "tst_waiters.moc"
