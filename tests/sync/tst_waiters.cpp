#include "CBPUISyncWaiter.h"
#include "CBPWaiter.h"

#include "Acts.h"
#include "Await.h"
#include "CBPEvtLoop.h"
#include "foundation/FontLookup.h"
#include "Later.h"
#include "Pixels.h"
#include "platform/Platform.h"
#include "Rows.h"
#include "TestMain.h"
#include "Util.h"

#include <QLabel>
#include <QMovie>
#include <QSignalSpy>

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

// In place of a result.
constexpr int kGoesOn = -1;
constexpr int kDeleted = -2;

// Of the timers of a dialog that run.
QList<int> intervals(const CBPWaiter &dialog)
{
    QList<int> found;
    const auto timers = dialog.findChildren<QTimer *>();
    for (const QTimer *timer : timers) {
        if (timer->isActive())
            found << timer->interval();
    }
    std::sort(found.begin(), found.end());
    return found;
}

} // namespace

class TestWaiters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void waiter()
    {
        Waiter w("Please wait");
        QCOMPARE(w.objectName(), QString("id_WaiterWnd"));
        QVERIFY(w.minimumSize() == QSize(100, 100) && w.maximumSize() == QSize(100, 100));
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
            QVERIFY(!w.close() && w.isVisible()); // it ends with the job
            QCOMPARE(sync.exit(&loop, false), 0);
        });
        QCOMPARE(sync.run(&loop, false), 0);
        QVERIFY(looked && !w.isVisible());
        QCOMPARE(quits.size(), 1);

        w.onShow = [] { QFAIL("a global wait is not to be seen"); };
        for (CBPEvtLoop *in : {&loop, static_cast<CBPEvtLoop *>(nullptr)}) {
            later(&w, [&] {
                QCOMPARE(loop.isRunning(), in != nullptr);
                w.exit(in, true);
            });
            QCOMPARE(w.run(in, true), 0);
        }
    }

    void syncWaiterEnds_data()
    {
        columns<QString, bool, int, int>("how", "responds", "result", "escapes");
        for (const char *how : {"exit", "while shown"})
            row(how, how, true, 1, 0);
        row("Escape", "Escape", true, 0, 1);
        row("Escape, off", "Escape", false, kGoesOn, 0);
        row("Escape, a slot exits", "Escape, exit", true, 1, 1);
        for (const char *how : {"Shift", "Ctrl", "another key"})
            row(how, how, true, kGoesOn, 0);
        row("deleted", "deleted", true, kDeleted, 0);
        row("Escape, deleted", "Escape, deleted", true, kDeleted, 1);
    }
    void syncWaiterEnds()
    {
        QFETCH(QString, how);
        QFETCH(bool, responds);
        QFETCH(int, result);
        QWidget parent;
        parent.show();
        QPointer<Waiter> w(new Waiter("Wait", &parent));
        w->SetRespondEsc(responds);
        QSignalSpy escapes(w, &CBPUISyncWaiter::sigPressEscape);
        QSignalSpy finished(w, &QDialog::finished);
        QSignalSpy rejected(w, &QDialog::rejected);
        const std::function<void()> exit = [&] { w->exit(nullptr, false); };
        const Deeds deeds{{"deleted", [&] { destroy(w); }},
                          {"Escape", [&] { QTest::keyClick(w, Qt::Key_Escape); }},
                          {"Shift", [&] { QTest::keyClick(w, Qt::Key_Escape, Qt::ShiftModifier); }},
                          {"Ctrl", [&] { QTest::keyClick(w, Qt::Key_Escape, Qt::ControlModifier); }},
                          {"another key", [&] { QTest::keyClick(w, Qt::Key_A); }}};
        const QStringList parts = how.split(", "); // what is done, and by a slot of what it sets going
        if (how.startsWith("Escape, "))
            connect(w, &CBPUISyncWaiter::sigPressEscape, deeds.value(parts.value(1), exit));
        if (how == "while shown")
            w->onShow = exit;
        else
            later(w, [&] {
                deeds.value(parts[0], exit)();
                QCOMPARE(w && w->isVisible(), result == kGoesOn);
                if (result == kGoesOn)
                    exit();
            });
        QCOMPARE(w->run(nullptr, false), 0);
        QTEST(int(escapes.size()), "escapes");
        QCOMPARE(!w, result == kDeleted);
        if (w) {
            QVERIFY(!w->isVisible() && finished.size() == 1 && rejected.size() == 1);
            QCOMPARE(w->GetResult(), result == kGoesOn ? 1 : result);
            exit(); // the job is over
            QCOMPARE(w->GetResult(), 1);
        }
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
        w.setStyleSheet("* { background: white }");            // of an application that means its own
        w.show();
        QCOMPARE(label->movie()->state(), QMovie::Running);
        QCOMPARE(grabbedAt(w, label->x(), label->y()).alpha(), 0); // round corners
        QCOMPARE(label->geometry().center(), QRect(0, 0, 100, 100).center());
        QSignalSpy pictures(label->movie(), &QMovie::frameChanged);
        AWAIT(pictures.size() > 2);
        const QImage image = w.grab().toImage();
        QCOMPARE(pixelOf(image, 5, 50).alpha(), 0); // only the spinner
        QCOMPARE(pixelOf(image, 50, 24).alpha(), 255);
        w.hide();
        QCOMPARE(label->movie()->state(), QMovie::NotRunning);

        // Where nothing blends windows with what lies behind them only the tile is there.
        const auto restore = restoring(lumqt::platform::answers());
        lumqt::platform::answers().composited = [] { return false; };
        w.show();
        QCOMPARE(w.mask().boundingRect(), label->geometry());
        QVERIFY(!w.mask().contains(label->geometry().topLeft())); // round corners
    }

    void timeLimit()
    {
        for (const int limit : {0, 100}) {
            CBPWaiter w(nullptr, "Loading", unsigned(limit), false);
            QVERIFY(w.minimumSize() == QSize(130, 38) && w.maximumSize() == QSize(130, 38));
            int ends = 0;
            connect(&w, &QDialog::finished, [&] {
                ++ends;
                QTest::ignoreMessage(QtWarningMsg, QRegularExpression("runs already"));
                w.Run();
            });
            for (int run = 1; run <= 2; ++run) {
                QElapsedTimer clock;
                clock.start();
                w.Run();
                QVERIFY(clock.elapsed() >= limit);
                QVERIFY(w.result() == 1 && ends == run && !w.isVisible());
                QVERIFY(intervals(w).isEmpty()); // or it would end again
            }
        }
    }

    // Nothing moves for nobody: a single tick when the time is over.
    void minimised()
    {
        CBPWaiter w(nullptr, "Loading", 200000, false);
        later(&w, [&] {
            QCOMPARE(intervals(w), (QList<int>{30, 300000}));
            QHideEvent hidden;
            QSpontaneKeyEvent::setSpontaneous(&hidden);
            qApp->notify(&w, &hidden); // sendEvent() makes it one of the program
            const int rest = intervals(w).constFirst();
            QVERIFY2(rest > 100000 && rest <= 200000, QByteArray::number(rest));
            QTest::qSleep(
                2); // a tick that comes early is not the last one, nor is it a whole time until the next
            QMetaObject::invokeMethod(&w, "on_timeout", Qt::DirectConnection);
            QVERIFY(w.isVisible() && intervals(w).constFirst() < rest);
            QShowEvent shown;
            qApp->notify(&w, &shown);
            QCOMPARE(intervals(w), (QList<int>{30, 300000}));
            w.UnRun();
        });
        w.Run();
        QVERIFY(intervals(w).isEmpty());
    }

    void waiterEnds_data()
    {
        columns<QString, bool, int, int>("how", "responds", "result", "rejections");
        row("UnRun", "UnRun", false, 1, 0);
        row("close", "close", true, 0, 1);
        row("close, off", "close", false, kGoesOn, 0);
        row("reject", "reject", false, 0, 1);
        row("hide", "hide", false, 0, 0);
        row("Escape", "Escape", true, 0, 1);
        row("Escape, off", "Escape", false, kGoesOn, 0);
        row("five minutes", "five minutes", true, 1, 1);
        for (const char *how : {"itself", "when finished"})
            row(how, how, true, kDeleted, 0);
        row("on close", "on close", true, kDeleted, 0);
    }
    // Once it runs, and before.
    void waiterEnds()
    {
        QFETCH(QString, how);
        QFETCH(bool, responds);
        QFETCH(int, result);
        const Deeds ends{{"Escape", [&] { QTest::keyClick(m_dialog, Qt::Key_Escape); }},
                         {"itself", [&] { destroy(m_dialog); }},
                         {"when finished", [&] { m_dialog->UnRun(); }},
                         {"five minutes", [&] { // not waited for: the timer that ends what nobody has ended
                              for (QTimer *timer : m_dialog->findChildren<QTimer *>()) {
                                  if (timer->interval() == 300000 && timer->isSingleShot())
                                      timer->setInterval(1);
                              }
                              AWAIT(!m_dialog->isVisible());
                          }}};
        const bool isSlot = QStringList({"close", "reject", "hide"}).contains(how);
        const auto end = ends.value(how, [&] {
            isSlot ? void(QMetaObject::invokeMethod(m_dialog, how.toLatin1())) : m_dialog->UnRun();
        });
        for (const bool whileShown : {false, true}) {
            if (whileShown && ends.contains(how))
                continue;
            QWidget parent;
            parent.resize(400, 300);
            parent.show();
            m_dialog = new Dialog(&parent, "Loading", 300000000, false);
            m_dialog->SetRespondEsc(responds);
            m_dialog->setAttribute(Qt::WA_DeleteOnClose, how == "on close");
            QSignalSpy rejections(m_dialog, &QDialog::rejected);
            if (how == "when finished")
                connect(m_dialog, &QDialog::finished, [&] { destroy(m_dialog); });
            m_dialog->onShow = [&] {
                const QPoint off = m_dialog->geometry().center() - parent.geometry().center();
                QVERIFY(off.manhattanLength() < 60); // over the middle of its parent
                if (whileShown)
                    end();
            };
            if (!whileShown || result == kGoesOn)
                later(m_dialog, [&] {
                    if (!whileShown)
                        end();
                    QCOMPARE(m_dialog && m_dialog->isVisible(), result == kGoesOn);
                    if (result == kGoesOn)
                        m_dialog->UnRun();
                });
            m_dialog->Run();
            if (result == kDeleted) {
                AWAIT(!m_dialog);
            } else {
                QVERIFY(m_dialog && !m_dialog->isVisible() && !m_dialog->isModal());
                // It would block all others.
                QVERIFY(!m_dialog->windowHandle()->isVisible() && !QGuiApplication::modalWindow());
                QCOMPARE(m_dialog->result(), result == kGoesOn ? 1 : result);
                QTEST(int(rejections.size()), "rejections");
                m_dialog->onShow = nullptr; // and it can be run again
                later(m_dialog, [&] { m_dialog->UnRun(); });
                m_dialog->Run();
                QCOMPARE(m_dialog->result(), 1);
            }
        }
    }

    void waiterLook()
    {
        Dialog w(nullptr, "Loading", 4000, false);
        QImage image = w.grab().toImage();
        const QColor ground(232, 244, 253);
        for (const QPoint &corner : {QPoint(0, 0), QPoint(129, 0), QPoint(0, 37), QPoint(129, 37)})
            QCOMPARE(pixelOf(image, corner.x(), corner.y()), QColor(0, 163, 210));
        QCOMPARE(pixelOf(image, 2, 2), ground);
        // The halves of the picture close in on the text, which they never cover; then only its dots change.
        const auto left = [&] {
            image = w.grab().toImage();
            int x = 3;
            while (x < 65 && pixelOf(image, x, 19) == ground)
                ++x;
            return x;
        };
        const auto tick = [&w] {
            QVERIFY(QMetaObject::invokeMethod(&w, "on_timeout", Qt::DirectConnection));
        };
        const QFontMetrics metrics(QFont(GetFontFamily(1), 12));
        const int width = metrics.size(Qt::TextExpandTabs, "Loading...").width();
        const int start = left();
        QVERIFY2(start >= 3 && start <= 5, qPrintable(QString::number(start)));
        const auto text = [&] { return w.grab(QRect(65 - width / 2, 2, width - 20, 34)).toImage(); };
        const QImage whole = text();
        for (int ticks = (width + 6) / 2 + 1; ticks > 0; --ticks) {
            tick();
            QCOMPARE(text(), whole);
        }
        const int open = left();
        QVERIFY2(qAbs(open - (64 - width / 2 - 3 - 12)) <= 2, qPrintable(QString::number(open)));
        const QImage before = image;
        tick();
        QCOMPARE(left(), open);
        QVERIFY(image != before);
        w.onShow = [&] {
            QCOMPARE(left(), start); // from the beginning
            w.UnRun();
        };
        w.Run();
    }

    void wideText()
    {
        CBPWaiter w(nullptr, QString(400, 'W'), 60000, false);
        later(&w, [&] {
            for (int ticks = 0; ticks < 256; ++ticks) // as far as the steps are counted
                QMetaObject::invokeMethod(&w, "on_timeout", Qt::DirectConnection);
            for (const QTimer *timer : w.findChildren<QTimer *>())
                QVERIFY(timer->interval() >= 300);
            w.UnRun();
        });
        w.Run();
    }

private:
    QPointer<Dialog> m_dialog;
};

LUMQT_TEST_MAIN(TestWaiters)
#include "tst_waiters.moc"
