#include "Acts.h"
#include "Await.h"
#include "CBPBox.h"
#include "CBPTipWnd.h"
#include "CTextTips.h"
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

namespace {

const QColor kFrame(163, 200, 255);
const QColor kGround(255, 255, 255);
const QSize kBoundSize(80, 30);

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
            const auto isInPlace = [&] { return tip.pos() == placeOf(tip, scene.bound, orientation); };
            EventCounter paints(&tip, {QEvent::Paint});
            EventCounter misplaced(&tip, {QEvent::Paint}, [&] { return !isInPlace(); });
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
            const QPoint before = tip.pos();
            scene.window.move(340, 250);
            AWAIT(tip.pos() != before && isInPlace());
            tip.AppendWidget(content(240));
            AWAIT(tip.width() == 272 && isInPlace() && tip.isVisible());
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
        QVERIFY(QTest::qWaitForWindowExposed(&area));
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
        // Another parent with the tip on show.
        auto *other = new QWidget(page);
        other->setGeometry(100, 10, 180, 400);
        other->show();
        panel->setParent(other);
        panel->show();
        sendEvent(*bound, QEvent::Enter);
        QVERIFY(inPlace());
        other->move(60, 30);
        QVERIFY(inPlace());
        tip.hide(); // and is left alone
        const QPoint left = tip.pos();
        other->move(50, 20);
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
                QVERIFY(QTest::qWaitForWindowActive(&tip)); // it does take the activation, the first time too
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
        QEvent activate(QEvent::WindowActivate);
        QObject &filter = tip;
        tip.show();
        QVERIFY(!filter.eventFilter(&stranger, &activate));
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

    void outline()
    {
        const int arrows[] = {46, 75, 105}; // x of its tip in a tip of 152 pixels
        for (int orientation = 1; orientation < 4; ++orientation) {
            CBPTipWnd tip(ENOrientation(orientation), nullptr);
            tip.resize(152, 60);
            const QImage image = drawn(tip);
            const auto is = [&image](int x, int y, const QColor &color) {
                return image.pixelColor(x, y).rgba() == color.rgba();
            };
            // Sharp lines of the frame's own colour, one pixel within the window.
            const QColor across[] = {Qt::transparent, kFrame, kGround};
            for (int i = 0; i < 35 * 3; ++i)
                QVERIFY(is(i % 3, 15 + i / 3, across[i % 3]) && is(151 - i % 3, 15 + i / 3, across[i % 3]));
            QVERIFY(is(20, 58, kFrame) && is(20, 59, Qt::transparent));
            QVERIFY(is(20, 7, kFrame) && is(20, 6, Qt::transparent));
            // The arrow, and round corners.
            const int arrow = arrows[orientation - 1];
            QVERIFY(is(arrow - 7, 7, kFrame) && is(arrow - 5, 7, kGround) && is(arrow + 7, 7, kFrame));
            QVERIFY(is(arrow, 7, kGround) && image.pixelColor(arrow, 2).alpha() > 0);
            QVERIFY(is(arrow - 9, 3, Qt::transparent) && is(arrow + 9, 3, Qt::transparent));
            tip.SetRoundRadius(12, 12);
            QCOMPARE(drawn(tip).pixelColor(3, 9).alpha(), 0);
            for (const int wild : {0, -1, INT_MIN, INT_MAX}) {
                tip.SetRoundRadius(wild, wild);
                const QImage bent = drawn(tip);
                QCOMPARE(bent.pixelColor(76, 40), kGround);
                for (const QPoint &corner : {QPoint(1, 7), QPoint(150, 7), QPoint(1, 58), QPoint(150, 58)})
                    QVERIFY(wild != 0 || bent.pixelColor(corner).alpha() > 150);
            }
        }
        for (const int none : {0, 77}) { // there is no orientation 77
            CBPTipWnd tip(ENOrientation(none), nullptr);
            tip.resize(100, 40);
            const QImage image = drawn(tip);
            for (const QPoint &edge : {QPoint(0, 20), QPoint(99, 20), QPoint(50, 0), QPoint(50, 39)})
                QCOMPARE(image.pixelColor(edge), kFrame);
            QVERIFY(image.pixelColor(50, 20) == kGround && image.pixelColor(0, 0).alpha() < 200);
            tip.SetRoundRadius(16, 16);
            QCOMPARE(drawn(tip).pixelColor(2, 2).alpha(), 0);
        }
    }

    // Where nothing blends windows with what lies behind them the tip has its outline's shape.
    void notComposited()
    {
        lumqt::platform::Answers &answers = lumqt::platform::answers();
        const auto asked = answers.composited;
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
        answers.composited = asked;
    }

    // The text on lines of its own, or as wide as was asked: a word that is longer than a line is broken
    // then.
    void textTip()
    {
        const QString words = QStringLiteral("A text of some words that need their room");
        const QString word(20, QLatin1Char('W'));
        for (const QString &text : {words, word, QStringLiteral("<b>%1</b>").arg(word)}) {
            for (const int width : {0, 90, -5}) {
                CTextTips tip(width, nullptr);
                QCOMPARE(QAccessible::queryAccessibleInterface(&tip)->role(), QAccessible::ToolTip);
                QVERIFY(tip.windowFlags() & Qt::FramelessWindowHint);
                QCOMPARE(tip.windowType(), Qt::ToolTip);
                tip.SetShowText(text);
                tip.show();
                const QLabel *label = tip.findChild<QLabel *>();
                QCOMPARE(label->text(), text);
                QCOMPARE(spokenName(&tip), QString(text).remove("<b>").remove("</b>"));
                const int line = label->fontMetrics().lineSpacing();
                const QRect ink = boxOf(pictureOf(tip, 1), Qt::white);
                QVERIFY2(ink.left() >= 12 && ink.right() < tip.width() - 12, wordsOf(ink));
                QVERIFY2(width > 0 ? ink.height() > 3 * line / 2 : ink.height() <= line, wordsOf(ink));
                QVERIFY(width <= 0 || label->width() == width);
                QCOMPARE(label->geometry().topLeft(), QPoint(12, 3));
                QCOMPARE(tip.size(), label->size() + QSize(24, 9));
                const QSize large = tip.size();
                tip.SetShowText("x");
                QVERIFY(tip.width() < large.width() || tip.height() < large.height());
            }
        }
        CTextTips tip(0, nullptr);
        tip.SetShowText("x");
        const QLabel *label = tip.findChild<QLabel *>();
        QCOMPARE(drawn(tip).pixelColor(0, 0), QColor(0x10, 0x1c, 0x2d));
        QVERIFY(qGray(label->palette().color(QPalette::WindowText).rgb()) > 200);
        for (const int grey : {149, 150}) {
            tip.SetBkgColor(QColor(grey, grey, grey));
            QCOMPARE(label->palette().color(QPalette::WindowText).lightness() > 200, grey < 150);
        }
        tip.SetBkgColor(QColor(250, 240, 200));
        QCOMPARE(drawn(tip).pixelColor(tip.width() - 1, tip.height() - 1), QColor(250, 240, 200));
        QVERIFY(qGray(label->palette().color(QPalette::WindowText).rgb()) < 60);
        tip.SetBkgColor(QColor());
        QCOMPARE(drawn(tip).pixelColor(0, 0), QColor(250, 240, 200));
        // A ground that the application gives its labels is not laid behind a text that would be lost on it.
        tip.setStyleSheet("QLabel { background: white; }");
        QCOMPARE(drawn(tip).pixelColor(13, 4), QColor(250, 240, 200));
    }
};

LUMQT_TEST_MAIN(TestTips)
#include "tst_tips.moc"
