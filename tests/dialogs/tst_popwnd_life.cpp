#include "Acts.h"
#include "CBPPopWnd.h"
#include "CBPPushBtn.h"
#include "CBPWinFrmTitle.h"
#include "platform/Platform.h"
#include "PopUpProbe.h"
#include "Rows.h"
#include "TestMain.h"
#include "Util.h"

#include <QLineEdit>
#include <QPropertyAnimation>
#include <QTemporaryDir>
#include <QWindow>

namespace {

constexpr int kBefore = 77; // a result that an end leaves as it is
constexpr int kGoesOn = -2;
constexpr int kDeleted = -3;

} // namespace

class TestPopWndLife : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { lumqt::platform::answers() = m_answers; }

    // ------------------------------------------------------------------------------------------------------
    // running and ending

    void ends_data()
    {
        // `slot`: what one of the signal that it ends does then.
        columns<QString, QString, int, int>("how", "slot", "result", "told");
        row("OK", "OK", "", kOk, 1);
        row("UnRun", "UnRun", "", kBefore, 1);
        row("hide", "hide", "", kBefore, 0);
        for (const char *how : {"OnClose", "close", "title bar", "system", "parent"})
            row(how, how, "", kCancel, 1);
        for (const char *how : {"Escape", "Shift+Escape", "F1"})
            row(how, how, "", kGoesOn, 1);
        // An answer that is given stays, and the end is told once.
        row("OK, closed", "OK", "close", kOk, 1);
        row("OK, parent", "OK", "parent", kOk, 1);
        row("OK, accepted", "OK", "accept", kOk, 1);
        row("OK, ended", "OK", "UnRun", kOk, 1);
        row("deleted", "delete", "", kDeleted, 0);
        row("OK, deleted", "OK", "delete", kDeleted, 1);
        row("OK, deleted when finished", "OK", "finished", kDeleted, 1);
        row("OK, deleted on close", "OK", "on close", kOk, 1);
    }
    // Once it runs; some also before, while it is being shown.
    void ends()
    {
        QFETCH(QString, how);
        QFETCH(QString, slot);
        QFETCH(int, result);
        QFETCH(int, told);
        for (const bool whileShown : {false, true}) {
            if (whileShown && !QStringList({"UnRun", "OnClose", "close", "hide"}).contains(how))
                continue;
            QWidget parent;
            parent.show();
            QPointer<PopUp> w(new PopUp(&parent, kOk));
            QCOMPARE(w->GetResult(), -1);
            w->SetResult(kBefore);
            w->setAttribute(Qt::WA_DeleteOnClose, slot == "on close");
            QSignalSpy quits(w, &CBPPopWnd::sigQuit);
            QSignalSpy finished(w, &QDialog::finished);
            QSignalSpy rejected(w, &QDialog::rejected);
            const Deeds deeds{
                {"OK", [&] { QTest::mouseClick(w->GetBtn(kOk), Qt::LeftButton); }},
                {"UnRun", [&] { w->UnRun(); }},
                {"hide", [&] { w->hide(); }},
                {"OnClose", [&] { w->OnClose(); }},
                {"close", [&] { w->close(); }},
                {"title bar", [&] { w->titleBar()->on_btn_clicekedSlot(8); }},
                {"system", [&] { closeBySystem(*w); }},
                {"parent", [&] { parent.hide(); }},
                {"accept", [&] { w->accept(); }},
                {"Escape", [&] { QTest::keyClick(w, Qt::Key_Escape); }},
                {"Shift+Escape", [&] { QTest::keyClick(w, Qt::Key_Escape, Qt::ShiftModifier); }},
                {"F1", [&] { QTest::keyClick(w, Qt::Key_F1); }},
                {"delete", [&] { destroy(w); }},
            };
            if (deeds.contains(slot))
                connect(w, &CBPPopWnd::sigQuit, deeds[slot]);
            else if (slot == "finished")
                connect(w, &QDialog::finished, deeds["delete"]);
            if (whileShown)
                w->onShow = deeds[how];
            else
                later(w, [&] {
                    QVERIFY(w->isModal());
                    deeds[how]();
                    QCOMPARE(w && w->isVisible(), result == kGoesOn);
                    if (result == kGoesOn)
                        w->UnRun();
                });
            w->Run();
            QCOMPARE(quits.size(), told);
            QCOMPARE(w.isNull(), result == kDeleted);
            if (!w)
                continue;
            // A window that is left among the modal ones would block all others.
            QVERIFY(!w->isVisible() && !w->isModal() && !w->windowHandle()->isVisible());
            QVERIFY(!QGuiApplication::modalWindow());
            if (told > 0)
                w->close(); // there is nothing to close any more
            QCOMPARE(w->GetResult(), result == kGoesOn ? kBefore : result);
            QVERIFY(quits.size() == told && finished.size() == told);
            QCOMPARE(rejected.size(), slot == "accept" ? 0 : told);
            if (slot == "on close") // to be asked first
                AWAIT(!w);
        }
    }

    void endsOnce()
    {
        PopUp w(nullptr, kOk);
        QSignalSpy quits(&w, &CBPPopWnd::sigQuit);
        QSignalSpy finished(&w, &QDialog::finished);
        connect(&w, &QDialog::finished, [&] {
            w.UnRun();
            w.close();
            if (finished.size() == 1) { // again, out of its own end: that can be ended, too
                later(&w, [&] { w.UnRun(); });
                QCOMPARE(w.exec(), 0);
            }
        });
        w.show();
        w.UnRun();
        QVERIFY(quits.size() == 2 && finished.size() == 2);
    }

    // ------------------------------------------------------------------------------------------------------
    // keyboard

    // The content and then the row from left to right, whatever was made first; but for the application's
    // own.
    void tabs()
    {
        for (const QString how : {"content first", "content last", "mixed"}) {
            PopUp w;
            auto *edit = new QLineEdit;
            edit->setObjectName("edit");
            if (how == "content first")
                w.AppendContent(edit, false, false, 0);
            w.AppendBtn(kOk | kCancel);
            w.PrependBtn(0x80000);
            if (how != "content first")
                w.AppendContent(edit, false, false, 0);
            if (how == "mixed") {
                QWidget::setTabOrder(w.GetBtn(kOk), edit);
                QWidget::setTabOrder(edit, w.GetBtn(kCancel));
            }
            w.show();
            QStringList order;
            for (QWidget *next = w.nextInFocusChain(); next != &w; next = next->nextInFocusChain()) {
                if (next->focusPolicy() & Qt::TabFocus)
                    order << next->objectName();
            }
            QCOMPARE(order.join(' '), QString(how == "mixed" ? "id_BtnOk edit id_BtnCancel id_BtnBack"
                                                             : "edit id_BtnBack id_BtnOk id_BtnCancel"));
        }
    }

    void keyboardUse()
    {
        PopUp w(nullptr, kOk | kCancel);
        w.ShowTitleBtn(~0, true);
        auto *edit = new QLineEdit; // comes after the buttons, and is the first all the same
        w.AppendContent(edit, false, false, 0);
        showActive(w);
        AWAIT(edit->hasFocus());
        CBPPushBtn *ok = w.GetBtn(kOk);
        QTest::keyClick(edit, Qt::Key_Return); // no button has the focus
        QTest::keyClick(edit, Qt::Key_Tab);
        QVERIFY(ok->hasFocus() && ok->isDefault());
        QTest::keyClick(ok, Qt::Key_Tab);
        QVERIFY(w.GetBtn(kCancel)->hasFocus());
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
        AWAIT_EQUAL(fading.windowOpacity(), 1.0);
        QVERIFY(fading.findChild<QPropertyAnimation *>());
        CBPPopWnd plain(false, nullptr);
        QVERIFY(plain.windowOpacity() == 1.0 && !plain.findChild<QPropertyAnimation *>());
    }

    // Without a title bar the body is round at the top, too, and a window as large as the screen nowhere.
    void corners()
    {
        lumqt::platform::answers().composited = [] { return true; };
        PopUp w(nullptr, kOk);
        w.resize(400, 300);
        w.showWindowTitle(false);
        const QColor white(Qt::white);
        QVERIFY(shot(w).pixelColor(10, 10) != white && shot(w).pixelColor(200, 10) == white);
        lumqt::platform::answers().workArea = [] { return QRect(0, 0, 600, 500); };
        w.OnMax();
        const QImage image = shot(w);
        QCOMPARE(image.size(), QSize(600, 500));
        QCOMPARE(image.pixelColor(0, 250).alpha(), 0);
        for (const int y : {1, 250, 498})
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
        QVERIFY(QTest::qWaitForWindowExposed(&w, kPatience));
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
        AWAIT_EQUAL(onScreen(10), outline);
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
