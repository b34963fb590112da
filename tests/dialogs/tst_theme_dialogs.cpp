#include "CBPComboxItem.h"
#include "CBPLabel.h"
#include "CBPMenu.h"
#include "CBPPathDropdWnd.h"
#include "CBPTheme.h"
#include "CBPTipWnd.h"
#include "CBPUISyncWaiter.h"
#include "CBPWaitBtn.h"
#include "CBPWaiter.h"
#include "CTextTips.h"
#include "MsgBoxProbe.h"
#include "Pixels.h"
#include "Rows.h"
#include "TestMain.h"
#include "Util.h"

#include <QMovie>
#include <QScrollArea>
#include <QScrollBar>

using P = CBPTheme::Purpose;
using Look = std::function<void(QWidget &)>;
using Stage = void (*)(const Look &, bool own);
Q_DECLARE_METATYPE(Stage)

namespace {

const QColor kOwn("#ff00ff");

bool shows(const QImage &image, const QColor &color)
{
    return !boxOf(image, color).isEmpty();
}

// What is shown, with a colour of the application's own or without, while `look` looks at it.
void showPopUp(const Look &look, bool own)
{
    PopUp window(nullptr, kOk | kCancel);
    if (own)
        window.GetBtn(kOk)->setBgColor(QVector<QColor>(4, kOwn));
    window.show();
    look(window);
}

void showWaiting(const Look &look, bool)
{
    PopUp window(nullptr, kOk);
    qobject_cast<CBPWaitBtn *>(window.GetBtn(kOk))->Show(true);
    look(window);
}

void runMessage(const Look &look, bool own)
{
    MsgBox box;
    box.whileRunning([&] {
        if (own)
            static_cast<CBPLabel *>(box.label("mmmm"))->SetTextColor(kOwn);
        look(box);
    });
    box.messageWithCheckbox(0, "mmmm", "check", "Head", kOk, "Title");
}

void runForm(const Look &look, bool)
{
    MsgBox box;
    box.whileRunning([&] { look(box); });
    box.showUserAndPasswordBox(0, "", 7, 20, kOk, "Title", "", "", "mmmm", false);
}

void showTip(const Look &look, bool)
{
    CBPTipWnd tip(ENOrientationNone, nullptr);
    tip.resize(100, 50);
    look(tip);
}

void showTextTip(const Look &look, bool own)
{
    CTextTips tip(0);
    tip.SetShowText("text");
    if (own)
        tip.SetBkgColor(kOwn);
    look(tip);
}

void openMenu(const Look &look, bool own)
{
    CBPMenu menu;
    menu.AddAction("first", 1);
    menu.AddAction("mmmm", 2)->setEnabled(false);
    if (own) {
        menu.setTextColor(kOwn);
        menu.setBg({QColor(Qt::black), QColor(), QColor("#008080"), QColor()});
    }
    menu.popup(QPoint(20, 20));
    menu.setActiveAction(menu.actions().first());
    look(menu);
}

void showPaths(const Look &look, bool)
{
    CBPPathDropdWnd list;
    ComboxItem item;
    item.path = "mmmm";
    list.AppendItem(item);
    list.SetFixedWidth(300);
    look(list);
}

void showGroundOfPaths(const Look &look, bool)
{
    CBPPathDropdWnd list;
    look(*list.findChild<QScrollArea *>()->widget());
}

void showBarOfPaths(const Look &look, bool)
{
    CBPPathDropdWnd list;
    for (const char *path : {"a", "b", "c", "d"}) {
        ComboxItem item;
        item.path = path;
        list.AppendItem(item);
    }
    list.show();
    QCoreApplication::sendPostedEvents();
    look(*list.findChild<QScrollArea *>()->verticalScrollBar());
}

void showWaiter(const Look &look, bool)
{
    CBPWaiter waiter(nullptr, "mmmm", 1000, false);
    look(waiter);
}

} // namespace

class TestThemeDialogs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QApplication::setCursorFlashTime(0); }
    void cleanup() { CBPTheme::apply("light"); }

    // Each of the colours is seen in the dark picture alone, of what was made and shown before.
    void openWindowsGoWithTheTheme_data()
    {
        columns<Stage, QVector<P>>("stage", "purposes");
        row("pop-up", Stage(showPopUp),
            QVector<P>{P::PopUpGround, P::PopUpLine, P::PopUpEdge, P::PrimaryGround, P::SecondaryFrame});
        row("waiting button", Stage(showWaiting), QVector<P>{P::WaitingGround, P::WaitingText});
        row("message box", Stage(runMessage), QVector<P>{P::MessageText, P::NoticeHead, P::Field});
        row("form", Stage(runForm), QVector<P>{P::MessageText, P::MessageHint, P::PrimaryGroundDisabled});
        row("tip", Stage(showTip), QVector<P>{P::TipGround, P::TipFrame});
        row("tip of text", Stage(showTextTip), QVector<P>{P::TextTipGround, P::TextTipFrame});
        row("menu", Stage(openMenu),
            QVector<P>{P::MenuGround, P::MenuGroundHovered, P::MenuTextDisabled, P::MenuFrame});
        row("paths", Stage(showPaths), QVector<P>{P::PathGround, P::PathText, P::PathFrame});
        row("ground of paths", Stage(showGroundOfPaths), QVector<P>{P::PathGround});
        row("bar of paths", Stage(showBarOfPaths), QVector<P>{P::RaisedGround, P::Frame});
        row("waiter", Stage(showWaiter), QVector<P>{P::WaiterGround, P::WaiterFrame, P::WaiterText});
    }
    void openWindowsGoWithTheTheme()
    {
        QFETCH(Stage, stage);
        QFETCH(QVector<P>, purposes);
        bool looked = false;
        const Look look = [&](QWidget &window) {
            looked = true;
            window.window()->show();
            const QSize size = window.size();
            const QImage before = shot(window);
            QVERIFY(CBPTheme::apply("dark"));
            const QImage dark = shot(window);
            for (const P purpose : purposes) {
                const QByteArray name = QVariant::fromValue(purpose).toString().toLatin1();
                QVERIFY2(!shows(before, CBPTheme::color(purpose)), name);
                QVERIFY2(shows(dark, CBPTheme::color(purpose)), name);
            }
            CBPTheme::apply("light");
            QCOMPARE(shot(window), before);
            QCOMPARE(window.size(), size);
        };
        stage(look, false);
        QVERIFY(looked);
    }

    void whatAnApplicationHasSetStays_data()
    {
        columns<Stage>("stage");
        row("button of a pop-up", Stage(showPopUp));
        row("message", Stage(runMessage));
        row("tip of text", Stage(showTextTip));
        row("menu", Stage(openMenu));
    }
    void whatAnApplicationHasSetStays()
    {
        QFETCH(Stage, stage);
        bool looked = false;
        const Look look = [&](QWidget &window) {
            looked = true;
            for (const char *theme : {"dark", "contrast", "light"}) {
                CBPTheme::apply(theme);
                QVERIFY2(shows(shot(window), kOwn), theme);
            }
        };
        stage(look, true);
        QVERIFY(looked);
    }

    // Black as the row has it itself.
    void textOfAPathIsTheApplications()
    {
        showPaths(
            [](QWidget &list) {
                auto *label = list.findChild<CBPComboxItem *>()->findChildren<QLabel *>().at(1);
                QPalette own = label->palette();
                own.setColor(QPalette::WindowText, Qt::black);
                label->setPalette(own);
                CBPTheme::apply("dark");
                QVERIFY(shows(label->grab().toImage(), Qt::black));
            },
            false);
    }

    // With the picture of the theme where there is one, at the place where it is.
    void runningMovieGoesOn()
    {
        const QString light = Util::getResFullPath("../res/waiting.gif");
        const QString dark = Util::getResFullPath("../res/dark/waiting.gif");
        QDir().mkpath(QFileInfo(dark).path());
        const bool made = QFile::copy(light, dark);
        const auto tidy = qScopeGuard([&] { made &&QFile::remove(dark); });
        CBPUISyncWaiter waiter("", nullptr);
        waiter.show();
        auto *label = waiter.findChild<QLabel *>();
        AWAIT(label && label->movie()->currentFrameNumber() > 2);
        const int frame = label->movie()->currentFrameNumber();
        CBPTheme::apply("dark");
        QCOMPARE(QFileInfo(label->movie()->fileName()), QFileInfo(dark));
        QCOMPARE(label->movie()->currentFrameNumber(), frame);
        QCOMPARE(label->movie()->state(), QMovie::Running);
        AWAIT(label->movie()->currentFrameNumber() > frame);
    }
};

LUMQT_TEST_MAIN(TestThemeDialogs)
#include "tst_theme_dialogs.moc"
