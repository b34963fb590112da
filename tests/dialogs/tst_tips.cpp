#include "Acts.h"
#include "Await.h"
#include "CBPBox.h"
#include "CBPTipWnd.h"
#include "CTextTips.h"
#include "Later.h"
#include "Pixels.h"
#include "platform/Platform.h"
#include "Spoken.h"
#include "TestMain.h"

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWindow>

namespace {

const QSize kBoundSize(80, 30);

#ifdef Q_OS_WIN
constexpr bool kOnWindows = true;
#else
constexpr bool kOnWindows = false;
#endif

// A window with a widget in it that tips are bound to.
struct Scene
{
    QWidget window;
    QLabel bound{&window};

    Scene()
    {
        window.setGeometry(300, 200, 400, 300);
        bound.setGeometry(QRect(QPoint(60, 50), kBoundSize));
        showActive(window);
    }
};

QLabel *content(int width, int height = 20)
{
    auto *label = new QLabel;
    label->setFixedSize(width, height);
    return label;
}

// Where the tip is to be.
QPoint placeOf(const CBPTipWnd &tip, const QWidget &bound, int orientation)
{
    const QPoint corner = bound.mapToGlobal(QPoint(0, 0));
    const int x[] = {corner.x() - 1, corner.x(), corner.x() - (tip.width() - bound.width()) / 2,
                     corner.x() + bound.width() - tip.width()};
    return QPoint(x[orientation], corner.y() + bound.height());
}

} // namespace

class TestTips : public QObject
{
    Q_OBJECT

private slots:
    // Under its widget from the moment it is on the screen, and where that goes.
    void places()
    {
        for (int row = 0; row < 8; ++row) {
            const int orientation = row / 2;
            const int width = row % 2 ? 140 : 20; // wider than the widget, or narrower
            Scene scene;
            CBPTipWnd tip(ENOrientation(orientation), &scene.bound);
            const auto isInPlace = [&] {
                // Wine may make the window active once more by a late event, which takes the tip away.
                if (kOnWindows && !tip.isVisible())
                    tip.show();
                return tip.pos() == placeOf(tip, scene.bound, orientation);
            };
            EventCounter paints(&tip, {QEvent::Paint});
            EventCounter misplaced(&tip, {QEvent::Paint},
                                   [&] { return tip.pos() != placeOf(tip, scene.bound, orientation); });
            tip.AppendWidget(content(width, 40));
            showActive(tip);
            AWAIT(paints.count > 0);
            QVERIFY2(misplaced.count == 0, QByteArray::number(row));
            // Some window managers report a first size and place of their own.
            AWAIT_EQUAL(tip.size(), QSize(width + 32, 64));
            AWAIT(isInPlace());
            scene.bound.move(100, 90);
            AWAIT(isInPlace());
            scene.bound.resize(200, 50);
            AWAIT(isInPlace());
            tip.AppendWidget(content(240));
            AWAIT_EQUAL(tip.width(), 272);
            AWAIT(isInPlace());
            QVERIFY(tip.isVisible());
            // Where the window system put it, it does not stay.
            EventCounter moves(&tip, {QEvent::Move});
            tip.windowHandle()->setPosition(tip.pos() + QPoint(30, 0));
            AWAIT(moves.count > 1 && isInPlace());
            const QPoint before = tip.pos();
            scene.window.move(340, 250);
            AWAIT(tip.pos() != before && isInPlace());
            // A tip that is not shown is nobody's business, until it is.
            tip.hide();
            scene.bound.move(10, 10);
            showActive(tip);
            AWAIT(isInPlace());
        }
    }

    void scrolledArea()
    {
        QScrollArea area;
        area.setGeometry(300, 200, 300, 200);
        auto *page = new QWidget;
        page->setFixedSize(280, 2000);
        auto *panel = new QWidget(page);
        panel->setGeometry(0, 60, 280, 200);
        auto *bound = new QLabel(panel);
        bound->setGeometry(QRect(QPoint(30, 40), kBoundSize));
        area.setWidget(page);
        area.show();
        QVERIFY(QTest::qWaitForWindowExposed(&area, kPatience));
        CBPTipWnd tip(ENOrientationLeft, bound);
        tip.AppendWidget(content(100));
        const auto inPlace = [&] { return tip.isVisible() && tip.pos() == placeOf(tip, *bound, 1); };
        sendEvent(*bound, QEvent::Enter);
        area.verticalScrollBar()->setValue(50);
        QVERIFY(inPlace());
        area.verticalScrollBar()->setValue(1000);
        QVERIFY(!tip.isVisible()); // there is nothing left to point at
        area.verticalScrollBar()->setValue(0);
        sendEvent(*bound, QEvent::Enter);
        QVERIFY(inPlace());
        // Into another parent with the tip on show, which goes with the widget.
        panel->setParent(new QWidget(page));
        QVERIFY(!tip.isVisible());
        const QPoint left = tip.pos();
        panel->move(50, 20); // nobody is pointed at
        QCOMPARE(tip.pos(), left);
    }

    void goesWithItsWidget()
    {
        for (const QString what : {"hidden", "window hidden", "destroyed", "destroyed elsewhere"}) {
            const bool survives = what == "destroyed elsewhere";
            Scene scene;
            auto *bound = new QLabel(&scene.window);
            bound->setGeometry(200, 100, 50, 20);
            bound->show();
            QPointer<CBPTipWnd> tip = new CBPTipWnd(ENOrientationCenter, bound);
            tip->AppendWidget(content(100));
            if (survives)
                tip->setParent(&scene.bound, tip->windowFlags()); // the widget is not what deletes it now
            showActive(*tip);
            if (what.endsWith("hidden"))
                (what == "hidden" ? bound : bound->window())->hide();
            else
                delete bound;
            QCOMPARE(tip.isNull(), what == "destroyed");
            QVERIFY(!tip || !tip->isVisible());
            if (survives) {
                tip->show(); // and it is still usable, where it was
                tip->repaint();
                QVERIFY(tip->isVisible());
            }
        }
    }

    void withoutAWidget()
    {
        CBPTipWnd tip(ENOrientationRight, nullptr);
        tip.move(500, 300);
        tip.show();
        QCOMPARE(tip.pos(), QPoint(500, 300));
        showActive(tip);
        // It does not move itself: a place that the window system reported is left as it is.
        const QPoint reported = tip.pos();
        tip.repaint();
        QCOMPARE(tip.pos(), reported);
        QCOMPARE(QAccessible::queryAccessibleInterface(&tip)->role(), QAccessible::HelpBalloon);
    }

    void followsTheMouse()
    {
        const auto check = [](bool append, const QVector<bool> &asked, bool follows) {
            Scene scene;
            CBPTipWnd tip(ENOrientationLeft, &scene.bound);
            for (const bool follow : asked)
                tip.ShowClickBindWidget(follow);
            if (append)
                tip.AppendWidget(content(100));
            tip.setAttribute(Qt::WA_ShowWithoutActivating); // it is the tip that asks for it
            sendEvent(scene.bound, QEvent::Enter);
            QCOMPARE(tip.isVisible(), follows);
            if (follows)
                QVERIFY(QTest::qWaitForWindowActive(
                    &tip, kPatience)); // it does take the activation, the first time too
            tip.show();
            sendEvent(scene.bound, QEvent::Leave);
            QCOMPARE(tip.isVisible(), !follows);
        };
        check(false, {}, false);
        check(false, {true}, true);
        check(false, {true, false}, false);
        check(true, {}, true);
        check(true, {false}, true); // appending wins
    }

    void deactivation()
    {
        Scene scene;
        EventCounter deactivations(&scene.window, {QEvent::WindowDeactivate});
        CBPTipWnd tip(ENOrientationLeft, &scene.bound);
        tip.AppendWidget(content(100));
        showActive(tip);
        // The windows around the widget keep their own deactivation while the tip watches them.
        AWAIT_EQUAL(deactivations.count, 1);
        QVERIFY(tip.isVisible());
        QWidget elsewhere;
        elsewhere.setGeometry(900, 600, 100, 100);
        elsewhere.show();
        elsewhere.activateWindow();
        AWAIT(!tip.isVisible());

        auto *edit = new QLineEdit;
        tip.AppendWidget(edit);
        showActive(tip);
        QKeyEvent other(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
        QCoreApplication::sendEvent(&tip, &other);
        QVERIFY(tip.isVisible() && !other.isAccepted()); // handed on
        QTest::keyClick(edit, Qt::Key_Escape);           // climbs from what has the focus
        QVERIFY(!tip.isVisible());

        // What the tip watches is swallowed, for all but its widget.
        QObject stranger;
        QEvent deactivate(QEvent::WindowDeactivate);
        QObject &filter = tip;
        tip.show();
        QVERIFY(!filter.eventFilter(&scene.bound, &deactivate));
        QVERIFY(tip.isVisible());
        QVERIFY(filter.eventFilter(&stranger, &deactivate));
        QVERIFY(!tip.isVisible());
    }

    void badContent()
    {
        Scene scene;
        CBPTipWnd tip(ENOrientationLeft, &scene.bound);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("no widget"));
        tip.AppendWidget(nullptr);
        sendEvent(scene.bound, QEvent::Enter);
        QVERIFY(!tip.isVisible());
        // An application that fills the tip itself takes the box out of it.
        delete tip.layout();
        delete tip.findChild<CBPBox *>();
        (new QVBoxLayout(&tip))->addWidget(new QLineEdit);
        QLabel label;
        tip.AppendWidget(&label);
        QVERIFY(!label.parent());
        sendEvent(scene.bound, QEvent::Enter);
        QVERIFY(tip.isVisible());
    }

    // Any radius and orientation that a caller may give; the look of the usual ones is the gallery's.
    void wildOutline()
    {
        for (const int orientation : {1, 2, 3, 77}) { // there is no orientation 77
            CBPTipWnd tip{ENOrientation(orientation), nullptr};
            tip.resize(152, 60);
            // In the gallery's pictures there is no hue.
            QCOMPARE(drawn(tip).pixelColor(orientation == 77 ? 0 : 1, 30), QColor(163, 200, 255));
            for (const int wild : {-1, INT_MIN, INT_MAX}) {
                tip.SetRoundRadius(wild, wild);
                QCOMPARE(drawn(tip).pixelColor(76, 40), QColor(Qt::white));
            }
        }
    }

    // Where nothing blends windows with what lies behind them the tip has its outline's shape.
    void notComposited()
    {
        const auto restore = restoring(lumqt::platform::answers());
        lumqt::platform::Answers &answers = lumqt::platform::answers();
        answers.composited = [] { return false; };
        CBPTipWnd tip(ENOrientationLeft, nullptr);
        tip.resize(152, 60);
        tip.show();
        QVERIFY(tip.mask().contains(QPoint(1, 30)) && tip.mask().contains(QPoint(150, 30)));
        QVERIFY(!tip.mask().contains(QPoint(0, 30)) && !tip.mask().contains(QPoint(151, 30)));
        QVERIFY(tip.mask().contains(QPoint(46, 3)) && !tip.mask().contains(QPoint(90, 3)));
        tip.resize(200, 60);
        QVERIFY(tip.mask().contains(QPoint(198, 30)));
        tip.hide();
        answers.composited = [] { return true; };
        tip.show();
        QVERIFY(tip.mask().isEmpty());
    }

    // The text on lines of its own, or as wide as was asked: a word that is longer than a line is broken
    // then.
    void textTip()
    {
        const QString word = QStringLiteral("<b>%1</b>").arg(QString(20, QLatin1Char('W')));
        for (const int width : {0, 90, -5}) {
            CTextTips tip(width, nullptr);
            QCOMPARE(QAccessible::queryAccessibleInterface(&tip)->role(), QAccessible::ToolTip);
            QVERIFY(tip.windowFlags() & Qt::FramelessWindowHint);
            QCOMPARE(tip.windowType(), Qt::ToolTip);
            tip.SetShowText(word);
            tip.show();
            const QLabel *label = tip.findChild<QLabel *>();
            QCOMPARE(label->text(), word);
            QCOMPARE(spokenName(&tip), QString(20, QLatin1Char('W')));
            QCOMPARE(label->width() == 90 && label->height() > tip.fontMetrics().height() * 3 / 2,
                     width == 90);
            const QSize large = tip.size();
            tip.SetShowText("x");
            QVERIFY(tip.width() < large.width() || tip.height() < large.height());
        }
    }

    void textTipGround()
    {
        CTextTips tip(0, nullptr);
        tip.SetShowText("x");
        const QLabel *label = tip.findChild<QLabel *>();
        QCOMPARE(drawn(tip).pixelColor(0, 0), QColor(0x10, 0x1c, 0x2d));
        for (const int grey : {149, 150}) {
            tip.SetBkgColor(QColor(grey, grey, grey));
            QCOMPARE(label->palette().color(QPalette::WindowText).lightness() > 200, grey < 150);
        }
        tip.SetBkgColor(QColor());
        // A ground that the application gives its labels is not laid behind a text that would be lost on it.
        tip.setStyleSheet("QLabel { background: white; }");
        QCOMPARE(drawn(tip).pixelColor(13, 4), QColor(150, 150, 150));
    }
};

LUMQT_TEST_MAIN(TestTips)
#include "tst_tips.moc"
