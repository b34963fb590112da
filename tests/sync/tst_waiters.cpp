#include "CBPUISyncWaiter.h"
#include "CBPWaiter.h"

#include "CBPEvtLoop.h"
#include "foundation/FontLookup.h"
#include "platform/Platform.h"
#include "TestMain.h"
#include "Util.h"
#include "Waiting.h"

#include <QLabel>
#include <QMovie>
#include <QSignalSpy>

#include <algorithm>

namespace {

// A waiter that may be told to act while it is being shown, and has a label.
class Waiter : public CBPUISyncWaiter
{
public:
    using CBPUISyncWaiter::CBPUISyncWaiter;
    using CBPUISyncWaiter::setWaitingLabel;

    std::function<void()> onShow;

protected:
    void showEvent(QShowEvent *event) override
    {
        CBPUISyncWaiter::showEvent(event);
        if (onShow)
            onShow();
    }
};

class Dialog : public CBPWaiter
{
public:
    using CBPWaiter::CBPWaiter;

    std::function<void()> onShow;

protected:
    void showEvent(QShowEvent *event) override
    {
        CBPWaiter::showEvent(event);
        if (onShow)
            onShow();
    }
};

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
        QTest::addColumn<bool>("responds");
        QTest::newRow("off") << false;
        QTest::newRow("on") << true;
    }
    void escape()
    {
        QFETCH(bool, responds);
        Watchdog dog;
        Waiter w("Wait");
        w.SetRespondEsc(responds);
        QSignalSpy escapes(&w, &CBPUISyncWaiter::sigPressEscape);
        later(&w, [&] {
            QTest::keyClick(&w, Qt::Key_Escape);
            QCOMPARE(w.isVisible(), !responds);
            QCOMPARE(w.GetResult(), int(!responds));
            QTest::keyClick(&w, Qt::Key_A);
            if (!responds)
                w.exit(nullptr, false);
        });
        w.run(nullptr, false);
        QVERIFY(!dog.bit());
        QCOMPARE(escapes.size(), int(responds));
        QCOMPARE(w.GetResult(), int(!responds));
        w.exit(nullptr, false); // the job is over
        QCOMPARE(w.GetResult(), 1);
    }

    void escapeEndsOnce_data()
    {
        QTest::addColumn<bool>("exits"); // a slot ends the wait itself
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<int>("ends");
        QTest::newRow("a slot ends it") << true << Qt::KeyboardModifiers() << 1;
        QTest::newRow("no slot does") << false << Qt::KeyboardModifiers() << 1;
        QTest::newRow("Shift") << false << Qt::KeyboardModifiers(Qt::ShiftModifier) << 0;
        QTest::newRow("Ctrl") << false << Qt::KeyboardModifiers(Qt::ControlModifier) << 0;
    }
    void escapeEndsOnce()
    {
        QFETCH(bool, exits);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(int, ends);
        Watchdog dog;
        Waiter w("Wait");
        w.SetRespondEsc(true);
        QSignalSpy escapes(&w, &CBPUISyncWaiter::sigPressEscape);
        QSignalSpy finished(&w, &QDialog::finished);
        QSignalSpy rejected(&w, &QDialog::rejected);
        if (exits)
            connect(&w, &CBPUISyncWaiter::sigPressEscape, [&] { w.exit(nullptr, false); });
        later(&w, [&] {
            QTest::keyClick(&w, Qt::Key_Escape, modifiers);
            QCOMPARE(w.isVisible(), ends == 0);
            QCOMPARE(escapes.size(), ends);
            QCOMPARE(finished.size(), ends);
            QCOMPARE(rejected.size(), ends);
            QCOMPARE(w.GetResult(), exits || ends == 0 ? 1 : 0);
            if (w.isVisible())
                w.exit(nullptr, false);
        });
        w.run(nullptr, false);
        QVERIFY(!dog.bit());
    }

    void waiterEnds_data()
    {
        QTest::addColumn<QString>("how");
        for (const char *how : {"deleted", "parent deleted", "parent hidden", "deleted by Escape",
                                "deleted by its end", "while it is being shown"})
            QTest::newRow(how) << QString(how);
    }
    void waiterEnds()
    {
        QFETCH(QString, how);
        Watchdog dog;
        auto *parent = new QWidget;
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
        if (how != "parent deleted")
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

    // ------------------------------------------------------------------------------------------------------
    // the dialog that ends by itself

    void timeLimit_data()
    {
        QTest::addColumn<int>("limit");
        QTest::addColumn<bool>("minimised");
        QTest::newRow("none") << 0 << false;
        QTest::newRow("some") << 250 << false;
        QTest::newRow("minimised") << 800 << true;
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
        QTest::addColumn<QString>("how");
        QTest::addColumn<bool>("responds");
        QTest::addColumn<int>("result"); // -1: goes on
        QTest::addColumn<int>("rejections");
        QTest::newRow("Escape") << "Escape" << true << 0 << 1;
        QTest::newRow("Escape, off") << "Escape" << false << -1 << 0;
        QTest::newRow("close") << "close" << true << 0 << 1;
        QTest::newRow("close, off") << "close" << false << -1 << 0;
        QTest::newRow("UnRun") << "UnRun" << false << 1 << 0;
        QTest::newRow("five minutes") << "on_TimeoutQuit" << true << 1 << 1;
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
            else if (how == "close")
                w.close();
            else if (how == "UnRun")
                w.UnRun();
            else
                QMetaObject::invokeMethod(&w, how.toLatin1().constData());
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
        QTest::addColumn<QString>("how");
        QTest::addColumn<int>("result");
        QTest::newRow("UnRun") << "UnRun" << 1;
        QTest::newRow("close") << "close" << 0;
        QTest::newRow("reject") << "reject" << 0;
        QTest::newRow("hide") << "hide" << 0;
        QTest::newRow("deleted on close") << "delete" << 1;
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
            else if (how == "close")
                w->close();
            else if (how == "reject")
                w->reject();
            else
                w->hide();
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
        QTEST(w->result(), "result");
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
        QTest::addColumn<QString>("how");
        for (const char *how : {"itself", "parent", "when finished", "on close"})
            QTest::newRow(how) << QString(how);
    }
    void waiterDeleted()
    {
        QFETCH(QString, how);
        Watchdog dog;
        auto *parent = new QWidget;
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
        if (how != "parent")
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
