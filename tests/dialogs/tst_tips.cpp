#include "CBPBox.h"
#include "CBPTipWnd.h"
#include "CTextTips.h"
#include "platform/Platform.h"
#include "TestMain.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
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
    QLabel bound;

    Scene() : bound(&window)
    {
        window.setGeometry(300, 200, 400, 300);
        bound.setGeometry(QRect(QPoint(60, 50), kBoundSize));
        window.show();
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window))
            qWarning("the window is not active");
    }

    QPoint corner() const { return bound.mapToGlobal(QPoint(0, 0)); }
};

QLabel *content(const QSize &size)
{
    auto *label = new QLabel;
    label->setFixedSize(size);
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

void enter(QWidget &widget)
{
    const QPointF at(5, 5);
    QEnterEvent event(at, at, widget.mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&widget, &event);
}

void leave(QWidget &widget)
{
    QEvent event(QEvent::Leave);
    QCoreApplication::sendEvent(&widget, &event);
}

void showTip(CBPTipWnd &tip)
{
    tip.show();
    tip.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&tip));
}

// The tip's picture on transparent ground.
QImage shot(QWidget &tip)
{
    QImage image(tip.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    tip.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

} // namespace

class TestTips : public QObject
{
    Q_OBJECT

private slots:
    void places_data()
    {
        QTest::addColumn<int>("orientation");
        QTest::addColumn<int>("contentWidth");
        for (int orientation = 0; orientation < 4; ++orientation) {
            QTest::addRow("orientation %d, wider than the widget", orientation) << orientation << 140;
            QTest::addRow("orientation %d, narrower", orientation) << orientation << 20;
        }
    }

    // Under its widget from the moment it is on the screen.
    void places()
    {
        QFETCH(int, orientation);
        QFETCH(int, contentWidth);
        class Watched : public CBPTipWnd
        {
        public:
            Watched(int orientation, QWidget *widget)
                : CBPTipWnd(ENOrientation(orientation), widget), place(orientation), bound(widget)
            {
            }

            int place;
            QWidget *bound;
            int shown = 0;
            int painted = 0;
            int misplaced = 0;
            bool event(QEvent *event) override
            {
                const bool result = CBPTipWnd::event(event);
                shown += event->type() == QEvent::Show;
                painted += event->type() == QEvent::Paint;
                if (event->type() == QEvent::Show || event->type() == QEvent::Paint)
                    misplaced += pos() != placeOf(*this, *bound, place);
                return result;
            }
        };
        Scene scene;
        Watched tip(orientation, &scene.bound);
        tip.AppendWidget(content(QSize(contentWidth, 40)));
        showTip(tip);
        QTRY_VERIFY(tip.painted > 0);
        QCOMPARE(tip.shown, 1);
        QCOMPARE(tip.misplaced, 0);
        // Some window managers report a first size and place of their own.
        QTRY_COMPARE(tip.size(), QSize(contentWidth + 32, 64));
        QTRY_COMPARE(tip.pos(), placeOf(tip, scene.bound, orientation));
    }

    void followsWhatMoves_data()
    {
        QTest::addColumn<int>("orientation");
        for (int orientation = 0; orientation < 4; ++orientation)
            QTest::addRow("%d", orientation) << orientation;
    }

    void followsWhatMoves()
    {
        QFETCH(int, orientation);
        Scene scene;
        CBPTipWnd tip(ENOrientation(orientation), &scene.bound);
        tip.AppendWidget(content(QSize(100, 20)));
        showTip(tip);
        scene.bound.move(100, 90);
        QCOMPARE(tip.pos(), placeOf(tip, scene.bound, orientation));
        scene.bound.resize(200, 50);
        QCOMPARE(tip.pos(), placeOf(tip, scene.bound, orientation));
        const QPoint before = tip.pos();
        scene.window.move(340, 250);
        QTRY_VERIFY(tip.pos() != before);
        QTRY_COMPARE(tip.pos(), placeOf(tip, scene.bound, orientation));
        tip.AppendWidget(content(QSize(240, 20)));
        QTRY_COMPARE(tip.width(), 272);
        QTRY_COMPARE(tip.pos(), placeOf(tip, scene.bound, orientation));
        QVERIFY(tip.isVisible());

        // A tip that is not shown is nobody's business, until it is.
        tip.hide();
        scene.bound.move(10, 10);
        showTip(tip);
        QCOMPARE(tip.pos(), placeOf(tip, scene.bound, orientation));
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
        tip.AppendWidget(content(QSize(100, 20)));
        enter(*bound);
        QVERIFY(tip.isVisible());
        area.verticalScrollBar()->setValue(50);
        QCOMPARE(tip.pos(), placeOf(tip, *bound, 1));
        QVERIFY(tip.isVisible());
        area.verticalScrollBar()->setValue(1000);
        QVERIFY(!tip.isVisible()); // there is nothing left to point at
        area.verticalScrollBar()->setValue(0);
        enter(*bound);
        QVERIFY(tip.isVisible());
        QCOMPARE(tip.pos(), placeOf(tip, *bound, 1));
        leave(*bound);
        QVERIFY(!tip.isVisible());

        // Another parent with the tip on show.
        enter(*bound);
        auto *other = new QWidget(page);
        other->setGeometry(100, 10, 180, 400);
        other->show();
        panel->setParent(other);
        panel->show();
        enter(*bound);
        QCOMPARE(tip.pos(), placeOf(tip, *bound, 1));
        other->move(60, 30);
        QCOMPARE(tip.pos(), placeOf(tip, *bound, 1));
    }

    void goesWithItsWidget_data()
    {
        QTest::addColumn<QString>("what");
        for (const char *what : {"hidden", "window hidden", "destroyed", "destroyed elsewhere"})
            QTest::newRow(what) << QString::fromLatin1(what);
    }

    void goesWithItsWidget()
    {
        QFETCH(QString, what);
        Scene scene;
        auto *bound = new QLabel(&scene.window);
        bound->setGeometry(200, 100, 50, 20);
        bound->show();
        QPointer<CBPTipWnd> tip = new CBPTipWnd(ENOrientationCenter, bound);
        tip->AppendWidget(content(QSize(100, 20)));
        if (what == QLatin1String("destroyed elsewhere"))
            tip->setParent(&scene.bound, tip->windowFlags()); // the widget is not what deletes it now
        showTip(*tip);
        if (what == QLatin1String("hidden"))
            bound->hide();
        else if (what == QLatin1String("window hidden"))
            scene.window.hide();
        else
            delete bound;
        if (what == QLatin1String("destroyed")) {
            QVERIFY(!tip);
            return;
        }
        QVERIFY(tip && !tip->isVisible());
        if (what == QLatin1String("destroyed elsewhere")) {
            tip->show(); // and it is still usable, where it was
            tip->repaint();
            QVERIFY(tip->isVisible());
        }
    }

    void withoutAWidget()
    {
        CBPTipWnd tip(ENOrientationRight, nullptr);
        tip.AppendWidget(content(QSize(100, 20)));
        tip.move(500, 300);
        tip.show();
        QCOMPARE(tip.pos(), QPoint(500, 300));
        showTip(tip);
        // It does not move itself: a place that the window system reported is left as it is.
        const QPoint reported = tip.pos();
        tip.repaint();
        QCOMPARE(tip.pos(), reported);
        CBPTipWnd odd(ENOrientation(77), nullptr);
        odd.resize(80, 40);
        QCOMPARE(shot(odd).pixelColor(0, 20), kFrame); // as if without an arrow
    }

    void followsTheMouse_data()
    {
        QTest::addColumn<bool>("append");
        QTest::addColumn<QVector<bool>>("asked");
        QTest::addColumn<bool>("follows");
        QTest::newRow("as made") << false << QVector<bool>{} << false;
        QTest::newRow("asked") << false << QVector<bool>{true} << true;
        QTest::newRow("asked and not") << false << QVector<bool>{true, false} << false;
        QTest::newRow("append") << true << QVector<bool>{} << true;
        QTest::newRow("append wins") << true << QVector<bool>{false} << true;
    }

    void followsTheMouse()
    {
        QFETCH(bool, append);
        QFETCH(QVector<bool>, asked);
        QFETCH(bool, follows);
        Scene scene;
        CBPTipWnd tip(ENOrientationLeft, &scene.bound);
        for (const bool follow : qAsConst(asked))
            tip.ShowClickBindWidget(follow);
        if (append)
            tip.AppendWidget(content(QSize(100, 20)));
        tip.setAttribute(Qt::WA_ShowWithoutActivating); // it is the tip that asks for it
        enter(scene.bound);
        QCOMPARE(tip.isVisible(), follows);
        if (follows)
            QVERIFY(QTest::qWaitForWindowActive(&tip)); // it does take the activation, the first time too
        tip.show();
        leave(scene.bound);
        QCOMPARE(tip.isVisible(), !follows);
    }

    void deactivation()
    {
        Scene scene;
        CBPTipWnd tip(ENOrientationLeft, &scene.bound);
        tip.AppendWidget(content(QSize(100, 20)));
        showTip(tip);
        QWidget elsewhere;
        elsewhere.setGeometry(900, 600, 100, 100);
        elsewhere.show();
        elsewhere.activateWindow();
        QTRY_VERIFY(!tip.isVisible());

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

    // The windows around the widget keep their own deactivation while the tip watches them.
    void othersHearOfTheirs()
    {
        class Window : public QWidget
        {
        public:
            int deactivations = 0;
            bool event(QEvent *event) override
            {
                deactivations += event->type() == QEvent::WindowDeactivate ? 1 : 0;
                return QWidget::event(event);
            }
        };
        Window window;
        QLabel bound(&window);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        CBPTipWnd tip(ENOrientationLeft, &bound);
        tip.AppendWidget(content(QSize(100, 20)));
        showTip(tip);
        QTRY_COMPARE(window.deactivations, 1);
        QVERIFY(tip.isVisible());
    }

    void keys()
    {
        Scene scene;
        CBPTipWnd tip(ENOrientationLeft, &scene.bound);
        auto *edit = new QLineEdit;
        tip.AppendWidget(edit);
        showTip(tip);
        QKeyEvent other(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
        QCoreApplication::sendEvent(&tip, &other);
        QVERIFY(tip.isVisible() && !other.isAccepted()); // handed on
        QTest::keyClick(edit, Qt::Key_Escape);           // climbs from what has the focus
        QVERIFY(!tip.isVisible());
    }

    void badContent()
    {
        Scene scene;
        CBPTipWnd tip(ENOrientationLeft, &scene.bound);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("no widget")));
        tip.AppendWidget(nullptr);
        enter(scene.bound);
        QVERIFY(!tip.isVisible());
        // An application that fills the tip itself takes the box out of it.
        delete tip.layout();
        delete tip.findChild<CBPBox *>();
        auto *layout = new QVBoxLayout(&tip);
        layout->addWidget(new QLineEdit);
        QLabel label;
        tip.AppendWidget(&label);
        QVERIFY(!label.parent());
        enter(scene.bound);
        QVERIFY(tip.isVisible());
    }

    void outline_data()
    {
        QTest::addColumn<int>("orientation");
        QTest::addColumn<int>("arrow"); // x of its tip in a tip of 152 pixels
        QTest::newRow("left") << 1 << 46;
        QTest::newRow("middle") << 2 << 75;
        QTest::newRow("right") << 3 << 105;
    }

    void outline()
    {
        QFETCH(int, orientation);
        QFETCH(int, arrow);
        CBPTipWnd tip(ENOrientation(orientation), nullptr);
        tip.resize(152, 60);
        const QImage image = shot(tip);
        // Sharp lines of the frame's own colour, one pixel within the window.
        for (int y = 15; y < 50; ++y) {
            QCOMPARE(image.pixelColor(0, y).alpha(), 0);
            QCOMPARE(image.pixelColor(1, y), kFrame);
            QCOMPARE(image.pixelColor(2, y), kGround);
            QCOMPARE(image.pixelColor(149, y), kGround);
            QCOMPARE(image.pixelColor(150, y), kFrame);
            QCOMPARE(image.pixelColor(151, y).alpha(), 0);
        }
        QCOMPARE(image.pixelColor(20, 58), kFrame);
        QCOMPARE(image.pixelColor(20, 59).alpha(), 0);
        QCOMPARE(image.pixelColor(20, 7), kFrame);
        QCOMPARE(image.pixelColor(20, 6).alpha(), 0);
        // The arrow, and round corners.
        QVERIFY(image.pixelColor(arrow, 2).alpha() > 0);
        QCOMPARE(image.pixelColor(arrow, 7), kGround);
        QCOMPARE(image.pixelColor(arrow - 9, 3).alpha(), 0);
        QCOMPARE(image.pixelColor(arrow + 9, 3).alpha(), 0);
        tip.SetRoundRadius(0, 0);
        QVERIFY(image.pixelColor(1, 7).alpha() + 50 < shot(tip).pixelColor(1, 7).alpha());
        tip.SetRoundRadius(12, 12);
        QCOMPARE(shot(tip).pixelColor(3, 9).alpha(), 0);
        for (const int wild : {-1, INT_MIN, INT_MAX}) {
            tip.SetRoundRadius(wild, wild);
            QCOMPARE(shot(tip).pixelColor(76, 40), kGround);
        }
    }

    void withoutAnArrow()
    {
        CBPTipWnd tip(ENOrientationNone, nullptr);
        tip.resize(100, 40);
        QImage image = shot(tip);
        QCOMPARE(image.pixelColor(0, 20), kFrame);
        QCOMPARE(image.pixelColor(99, 20), kFrame);
        QCOMPARE(image.pixelColor(50, 0), kFrame);
        QCOMPARE(image.pixelColor(50, 39), kFrame);
        QCOMPARE(image.pixelColor(50, 20), kGround);
        QVERIFY(image.pixelColor(0, 0).alpha() < 200);
        tip.SetRoundRadius(16, 16);
        QCOMPARE(shot(tip).pixelColor(2, 2).alpha(), 0);
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

    void textTip_data()
    {
        QTest::addColumn<int>("width");
        QTest::newRow("one line") << 0;
        QTest::newRow("wrapped") << 90;
        QTest::newRow("negative") << -5;
    }

    void textTip()
    {
        QFETCH(int, width);
        CTextTips tip(width, nullptr);
        QVERIFY(tip.windowFlags() & Qt::FramelessWindowHint);
        QCOMPARE(tip.windowType(), Qt::ToolTip);
        const QString text = QStringLiteral("A text of some words that need their room");
        tip.SetShowText(text);
        tip.show();
        const QLabel *label = tip.findChild<QLabel *>();
        QCOMPARE(label->text(), text);
        const int line = label->fontMetrics().lineSpacing();
        if (width > 0) {
            QCOMPARE(label->width(), width);
            QVERIFY(label->height() >= 2 * line);
        } else {
            QVERIFY(label->width() >= label->fontMetrics().horizontalAdvance(text));
            QVERIFY(label->height() < 2 * line);
        }
        QCOMPARE(label->geometry().topLeft(), QPoint(12, 3));
        QCOMPARE(tip.size(), label->size() + QSize(24, 9));
        const QSize large = tip.size();
        tip.SetShowText(QStringLiteral("x"));
        QVERIFY(tip.width() < large.width() || tip.height() < large.height());
    }

    void textTipColors()
    {
        CTextTips tip(0, nullptr);
        tip.SetShowText(QStringLiteral("x"));
        const QLabel *label = tip.findChild<QLabel *>();
        QCOMPARE(shot(tip).pixelColor(0, 0), QColor(0x10, 0x1c, 0x2d));
        QVERIFY(qGray(label->palette().color(QPalette::WindowText).rgb()) > 200);
        tip.SetBkgColor(QColor(250, 240, 200));
        QCOMPARE(shot(tip).pixelColor(tip.width() - 1, tip.height() - 1), QColor(250, 240, 200));
        QVERIFY(qGray(label->palette().color(QPalette::WindowText).rgb()) < 60);
        tip.SetBkgColor(QColor());
        QCOMPARE(shot(tip).pixelColor(0, 0), QColor(250, 240, 200));
    }

    void roles()
    {
        CTextTips text(0, nullptr);
        CBPTipWnd bubble(ENOrientationLeft, nullptr);
        QCOMPARE(QAccessible::queryAccessibleInterface(&text)->role(), QAccessible::ToolTip);
        QCOMPARE(QAccessible::queryAccessibleInterface(&bubble)->role(), QAccessible::HelpBalloon);
    }
};

LUMQT_TEST_MAIN(TestTips)
#include "tst_tips.moc"
