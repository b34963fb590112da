#include "CBPPopWnd.h"

#include "CBPPushBtn.h"
#include "CBPWinFrmTitle.h"
#include "Pixels.h"
#include "platform/Platform.h"
#include "PopUpProbe.h"
#include "Rows.h"
#include "TestMain.h"
#include "Util.h"

#include <QLineEdit>
#include <QPropertyAnimation>
#include <QTemporaryDir>
#include <QWindow>

class TestPopWndLife : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { lumqt::platform::answers() = m_answers; }

    // ------------------------------------------------------------------------------------------------------
    // running and ending

    void running()
    {
        PopUp w(nullptr, kOk | kNo);
        QCOMPARE(w.GetResult(), -1);
        for (const int flag : {kOk, kNo}) { // and once more
            later(&w, [&] {
                QVERIFY(w.isModal());
                QTest::mouseClick(w.GetBtn(flag), Qt::LeftButton);
            });
            w.Run();
            QVERIFY(!w.isVisible() && !w.isModal() && w.GetResult() == flag);
        }
        w.SetResult(77);
        later(&w, [&] { w.UnRun(); });
        QVERIFY(w.exec() == 0 && w.GetResult() == 77);
    }

    // Before its loop runs, too.
    void endedWhileShown_data() { names("how", {"UnRun", "OnClose", "close", "hide"}); }
    void endedWhileShown()
    {
        QFETCH(QString, how);
        PopUp w(nullptr, kOk);
        const QMap<QString, std::function<void()>> ends{{"UnRun", [&] { w.UnRun(); }},
                                                        {"OnClose", [&] { w.OnClose(); }},
                                                        {"close", [&] { w.close(); }},
                                                        {"hide", [&] { w.hide(); }}};
        w.onShow = ends[how];
        QTimer guard;
        connect(&guard, &QTimer::timeout, [] { QCoreApplication::exit(); });
        guard.start(3000);
        w.Run();
        guard.stop();
        QVERIFY2(!w.isVisible(), "it hung");
        QVERIFY(!w.windowHandle()->isVisible() &&
                !QGuiApplication::modalWindow()); // or it would block all others
    }

    void destroyedWhileRunning_data() { names("how", {"dialog", "by sigQuit", "by finished", "on close"}); }
    void destroyedWhileRunning()
    {
        QFETCH(QString, how);
        QPointer<PopUp> w(new PopUp(nullptr, kOk));
        w->setAttribute(Qt::WA_DeleteOnClose, how == "on close");
        if (how == "by sigQuit")
            connect(w, &CBPPopWnd::sigQuit, [&] { destroy(w); });
        else if (how == "by finished")
            connect(w, &QDialog::finished, [&] { destroy(w); });
        later(w, [&] {
            if (how == "dialog")
                destroy(w);
            else
                QTest::mouseClick(w->GetBtn(kOk), Qt::LeftButton);
        });
        w->Run();
        QCOMPARE(w.isNull(), how != "on close");
        if (w) // to be asked first
            QCOMPARE(w->GetResult(), kOk);
        QTRY_VERIFY(!w);
    }

    void endsOnce()
    {
        PopUp w(nullptr, kOk);
        QSignalSpy quits(&w, &CBPPopWnd::sigQuit);
        QSignalSpy finished(&w, &QDialog::finished);
        int shown = 0;
        connect(&w, &CBPPopWnd::sigQuit, [&] { w.UnRun(); });
        connect(&w, &QDialog::finished, [&] {
            w.UnRun();
            w.close();
            if (shown++ == 0) { // again, out of its own end: that can be ended, too
                later(&w, [&] { w.UnRun(); });
                w.Run();
            }
        });
        w.show();
        w.UnRun();
        QVERIFY(shown == 2 && quits.size() == 2 && finished.size() == 2);
    }

    // An answer that is given stays, and the end is told once, whoever closes the dialog meanwhile or after.
    void answerStays_data() { names("how", {"close", "parent", "accept", "after"}); }
    void answerStays()
    {
        QFETCH(QString, how);
        QWidget parent;
        parent.show();
        PopUp w(&parent, kOk);
        QSignalSpy quits(&w, &CBPPopWnd::sigQuit);
        QSignalSpy finished(&w, &QDialog::finished);
        QSignalSpy rejected(&w, &QDialog::rejected);
        connect(&w, &CBPPopWnd::sigQuit, [&] {
            if (how == "close")
                w.close();
            else if (how == "parent")
                parent.hide();
            else if (how == "accept")
                w.accept();
        });
        later(&w, [&] { QTest::mouseClick(w.GetBtn(kOk), Qt::LeftButton); });
        QCOMPARE(w.exec(), 0);
        w.close();
        QCOMPARE(w.GetResult(), kOk);
        QVERIFY(quits.size() == 1 && finished.size() == 1);
        QCOMPARE(rejected.size(), int(how != "accept"));
    }

    void closing_data()
    {
        columns<QString, bool>("how", "closes");
        row("title bar", "title", true);
        row("system", "system", true);
        row("parent hidden", "parent", true);
        row("Escape", "Escape", false);
        row("Shift+Escape", "Shift", false);
        row("F1", "F1", false);
    }
    void closing()
    {
        QFETCH(QString, how);
        QFETCH(bool, closes);
        QWidget parent;
        parent.show();
        PopUp w(&parent, kOk);
        QSignalSpy quits(&w, &CBPPopWnd::sigQuit);
        QSignalSpy finished(&w, &QDialog::finished);
        w.open();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        if (how == "title")
            w.titleBar()->on_btn_clicekedSlot(8);
        else if (how == "system")
            w.windowHandle()->close();
        else if (how == "parent")
            parent.hide();
        else
            QTest::keyClick(&w, how == "F1" ? Qt::Key_F1 : Qt::Key_Escape,
                            how == "Shift" ? Qt::ShiftModifier : Qt::NoModifier);
        QCOMPARE(w.isVisible(), !closes);
        QCOMPARE(w.GetResult(), closes ? kCancel : -1);
        QVERIFY(quits.size() == int(closes) && finished.size() == int(closes));
    }

    // ------------------------------------------------------------------------------------------------------
    // keyboard

    void tabs_data()
    {
        columns<bool, bool, QString>("contentLast", "mixed", "order");
        row("content first", false, false, "edit id_BtnBack id_BtnOk id_BtnCancel");
        row("content last", true, false, "edit id_BtnBack id_BtnOk id_BtnCancel");
        row("the application's", true, true, "id_BtnOk edit id_BtnCancel id_BtnBack");
    }
    void tabs()
    {
        QFETCH(bool, contentLast);
        QFETCH(bool, mixed);
        PopUp w;
        auto *edit = new QLineEdit;
        edit->setObjectName("edit");
        if (!contentLast)
            w.AppendContent(edit, false, false, 0);
        w.AppendBtn(kOk | kCancel);
        w.PrependBtn(0x80000);
        if (contentLast)
            w.AppendContent(edit, false, false, 0);
        if (mixed) {
            QWidget::setTabOrder(w.GetBtn(kOk), edit);
            QWidget::setTabOrder(edit, w.GetBtn(kCancel));
        }
        w.show();
        QStringList order;
        for (QWidget *next = w.nextInFocusChain(); next != &w; next = next->nextInFocusChain()) {
            if (next->focusPolicy() & Qt::TabFocus)
                order << next->objectName();
        }
        QTEST(order.join(' '), "order");
    }

    void keyboardUse()
    {
        PopUp w(nullptr, kOk | kCancel);
        w.ShowTitleBtn(~0, true);
        auto *edit = new QLineEdit; // comes after the buttons, and is the first all the same
        w.AppendContent(edit, false, false, 0);
        w.show();
        w.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&w));
        QTRY_VERIFY(edit->hasFocus());
        CBPPushBtn *ok = w.GetBtn(kOk);
        QTest::keyClick(edit, Qt::Key_Return); // no button has the focus
        // A primary button has no frame to mark the focus with: a ring around it does.
        const QPoint at = ok->mapTo(&w, QPoint(-2, ok->height() / 2));
        QCOMPARE(shot(w).pixelColor(at), QColor(Qt::white));
        QTest::keyClick(edit, Qt::Key_Tab);
        QVERIFY(ok->hasFocus() && ok->isDefault());
        QCOMPARE(shot(w).pixelColor(at), QColor("#2f86d8"));
        QTest::keyClick(ok, Qt::Key_Tab);
        QVERIFY(w.GetBtn(kCancel)->hasFocus());
        QCOMPARE(shot(w).pixelColor(at), QColor(Qt::white));
        QTest::keyClick(w.focusWidget(), Qt::Key_Tab);
        QVERIFY(edit->hasFocus()); // the title buttons take no part
    }

    // ------------------------------------------------------------------------------------------------------
    // size and look

    void sizes_data()
    {
        columns<QSize, QSize>("wanted", "size");
        const QSize screen(1920, 1040);
        row("fits", QSize(400, 300), QSize(400, 300));
        row("just", screen, screen);
        row("too wide", QSize(5000, 100), screen);
        row("too high", QSize(100, 1041), screen);
        row("none", QSize(-5, 100), QSize(0, 100));
    }
    void sizes()
    {
        QFETCH(QSize, wanted);
        QFETCH(QSize, size);
        lumqt::platform::answers().workArea = [] { return QRect(0, 0, 1920, 1040); };
        CBPPopWnd w(false, nullptr);
        w.setFixedSize(wanted);
        QVERIFY(w.maximumSize() == size && w.minimumSize() == size);
        // The same size from a file; without an entry the given one.
        QTemporaryDir dir;
        const QString file = dir.filePath("sizes.ini");
        Util::writeIni("dialogs", "name", wanted, file);
        Util::writeIni("dialogs", "bad", "no size", file);
        w.SetWndFixedSize("name", QSize(30, 20), "dialogs", file);
        QCOMPARE(w.maximumSize(), wanted.isValid() ? size : QSize(30, 20));
        for (const char *key : {"other", "bad"}) {
            if (*key == 'b')
                QTest::ignoreMessage(QtWarningMsg, QRegularExpression("no size"));
            w.SetWndFixedSize(key, QSize(40, 20), "dialogs", file);
            QCOMPARE(w.maximumSize(), QSize(40, 20));
            w.setFixedSize(10, 10);
        }
    }

    void fadeIn()
    {
        CBPPopWnd fading(static_cast<QWidget *>(nullptr));
        const auto *animation = fading.findChild<QPropertyAnimation *>();
        QVERIFY(animation && animation->duration() == 200 && animation->propertyName() == "windowOpacity");
        QVERIFY(fading.windowOpacity() < 0.5);
        QTRY_COMPARE(fading.windowOpacity(), 1.0);
        QVERIFY(fading.findChild<QPropertyAnimation *>());
        CBPPopWnd plain(false, nullptr);
        QVERIFY(plain.windowOpacity() == 1.0 && !plain.findChild<QPropertyAnimation *>());
    }

    void painting()
    {
        lumqt::platform::answers().composited = [] { return true; };
        PopUp w(nullptr, kOk);
        w.AppendContent(new QWidget, true, false, 0);
        w.resize(400, 300);
        QImage image = shot(w);
        // Outside in: nothing, a shadow that grows, the body.
        QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
        int last = 0;
        for (int x = 0; x < 10; ++x) {
            const int alpha = image.pixelColor(x, 150).alpha();
            QVERIFY(alpha >= last && alpha < 100);
            last = alpha;
            for (const QPoint &other : {QPoint(399 - x, 150), QPoint(200, 299 - x), QPoint(200, x)})
                QCOMPARE(image.pixelColor(other).alpha(), alpha);
        }
        QVERIFY(last > 30);
        const QColor white(Qt::white);
        QVERIFY(image.pixelColor(10, 150) == white && image.pixelColor(389, 289 - 12) == white);
        QVERIFY(image.pixelColor(389, 289) != white); // a round corner
        const QColor line("#e3e8ee");
        QCOMPARE(boxOf(image, line), QRect(10, 300 - 10 - 70, 380, 1));
        w.SetDrawBottomHLine(false);
        QVERIFY(boxOf(shot(w), line).isEmpty());

        // Without a title bar the body is round at the top, too.
        w.showWindowTitle(false);
        image = shot(w);
        QVERIFY(image.pixelColor(10, 10) != white && image.pixelColor(200, 10) == white);

        lumqt::platform::answers().workArea = [] { return QRect(0, 0, 600, 500); };
        w.OnMax();
        image = shot(w);
        QCOMPARE(image.size(), QSize(600, 500));
        QCOMPARE(image.pixelColor(0, 250).alpha(), 0);
        for (const int y : {1, 250, 498}) // its corners are square
            QCOMPARE(image.pixelColor(1, y), white);
        w.OnMax();
        QVERIFY(shot(w).pixelColor(9, 150).alpha() > 30);
    }

    void withoutCompositor()
    {
        bool composited = false;
        lumqt::platform::answers().composited = [&] { return composited; };
        PopUp w(nullptr, kOk);
        w.resize(400, 300);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        const QRect body = w.rect().adjusted(10, 10, -10, -10);
        QCOMPARE(w.mask().boundingRect(), body);
        QVERIFY(!w.mask().contains(body.topLeft()));
        const QColor outline("#d5dbe2"); // what keeps a white body from a white ground
        const auto onScreen = [&w](int x) {
            const bool layered = QGuiApplication::platformName() == "windows"; // gives no picture of itself
            const QPoint at = layered ? w.mapToGlobal(QPoint(x, 150)) : QPoint(x, 150);
            const QPixmap pixel = w.screen()->grabWindow(layered ? 0 : w.winId(), at.x(), at.y(), 1, 1);
            return pixel.toImage().pixelColor(0, 0);
        };
        QTRY_COMPARE(onScreen(10), outline);
        QCOMPARE(onScreen(389), outline);
        // A picture is blended wherever it is shown.
        QVERIFY(shot(w).pixelColor(10, 150) == Qt::white && shot(w).pixelColor(9, 150).alpha() > 30);
        w.resize(420, 300);
        QCOMPARE(w.mask().boundingRect().right(), 409);
        w.OnMax();
        QCOMPARE(w.mask(), QRegion(w.rect().adjusted(1, 1, -1, -1)));
        w.OnMax();
        w.hide();
        composited = true;
        w.show();
        QVERIFY(w.mask().isEmpty());
    }

private:
    const lumqt::platform::Answers m_answers = lumqt::platform::answers();
};

LUMQT_TEST_MAIN(TestPopWndLife)
#include "tst_popwnd_life.moc"
