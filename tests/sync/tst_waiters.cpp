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
        QCOMPARE(QFileInfo(label->movie()->fileName()).canonicalFilePath(),
                 QFileInfo(Util::getResFullPath("../res/waiting.gif")).canonicalFilePath());
        QCOMPARE(label->movie()->state(), QMovie::NotRunning); // nothing is decoded for nobody
        w.show();
        QCOMPARE(label->movie()->state(), QMovie::Running);
        QCOMPARE(label->geometry().center(), QRect(0, 0, 100, 100).center());
        QSignalSpy pictures(label->movie(), &QMovie::frameChanged);
        QTRY_VERIFY(pictures.size() > 2);
        const QImage image = w.grab().toImage();
        QCOMPARE(image.pixelColor(5, 50).alpha(), 0); // only the spinner
        QCOMPARE(image.pixelColor(50, 24).alpha(), 255);
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
        const QColor ground(232, 244, 253);
        for (const QPoint &corner : {QPoint(0, 0), QPoint(129, 0), QPoint(0, 37), QPoint(129, 37)})
            QCOMPARE(image.pixelColor(corner), QColor(0, 163, 210));
        QCOMPARE(image.pixelColor(1, 1), ground);
        // The halves of the picture move apart until the text is open; then only its dots change.
        const auto left = [&] {
            image = w.grab().toImage();
            for (int x = 2; x < 65; ++x) {
                if (image.pixelColor(x, 19) != ground)
                    return x;
            }
            return -1;
        };
        int start = 0, open = 0, last = 0;
        QTimer::singleShot(0, &w, [&] { start = left(); });
        QTimer::singleShot(2500, &w, [&] { open = left(); });
        QTimer::singleShot(2850, &w, [&] {
            const QImage before = image;
            last = left();
            QVERIFY(image != before);
            w.UnRun();
        });
        w.Run();
        QVERIFY(!dog.bit());
        const QFontMetrics metrics(QFont(GetFontFamily(1), 12));
        const int width = metrics.size(Qt::TextExpandTabs, "Loading...").width();
        QVERIFY(start > 48 && start <= 64);
        QVERIFY2(qAbs(open - (64 - width / 2 - 3 - 12)) <= 2, qPrintable(QString::number(open)));
        QCOMPARE(last, open);
    }
};

LUMQT_TEST_MAIN(TestWaiters)
#include "tst_waiters.moc"
