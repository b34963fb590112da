#include "MenuProbe.h"
#include "platform/Platform.h"
#include "TestMain.h"

#include <QBitmap>
#include <QStyle>

#include <tuple>

class TestMenuLook : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_stage.set(); }

    void init()
    {
        m_stage.activate();
        QCursor::setPos(600, 560);
    }

    void shownText()
    {
        CBPMenu marked;
        marked.AddAction(QStringLiteral("&Cut"), 1);
        const bool underlines = marked.style()->styleHint(QStyle::SH_UnderlineShortcut, nullptr, &marked);
        const auto look = [](const char *text) {
            CBPMenu menu;
            menu.AddAction(QLatin1String(text), 1);
            return menu.grab().toImage().copy(0, 0, 240, 40); // the width counts marks and tabs
        };
        QCOMPARE(look("Cut && paste"), look("Cut & paste"));
        QCOMPARE(look("Cut\tCtrl+X"), look("Cut"));
        QVERIFY(look("Cut & paste") != look("Cut  paste"));
        QCOMPARE(look("&Cut") != look("Cut"), underlines);
    }

    // Behind margin, icon column and spacing.
    void textPlace()
    {
        const std::pair<std::function<void(CBPMenu &)>, int> rows[] = {
            {[](CBPMenu &menu) { menu.SetSpacing(20); }, 14},
            {[](CBPMenu &menu) { menu.SetDefIconWidth(30); }, 16},
            {[](CBPMenu &menu) { menu.SetDefIconWidth(0); }, -14},
            {[](CBPMenu &menu) { menu.SetBorder(10, 90, 90, 90); }, 4}};
        for (const auto &[set, shift] : rows) {
            CBPMenu menu;
            menu.AddAction(QStringLiteral("Item"), 1);
            const QRect before = boxWhere(menu, 0, isInk);
            QVERIFY(before.left() >= 26 && before.left() <= 29);
            QVERIFY(qAbs(before.center().y() - 20) <= 1);
            set(menu);
            QCOMPARE(boxWhere(menu, 0, isInk), before.translated(shift, 0));
        }
    }

    void textLook()
    {
        CBPMenu menu;
        fill(menu, 2);
        menu.actions().at(1)->setEnabled(false);
        QVERIFY(!boxWhere(menu, 0, isBright).isEmpty() && boxWhere(menu, 0, isRed).isEmpty());
        QVERIFY(boxWhere(menu, 1, isBright).isEmpty()); // disabled: dimmed
        QVERIFY(!boxWhere(menu, 1, isInk).isEmpty());
        menu.setTextColor(Qt::red);
        const int width = QFontMetrics(lumqt::uiFont()).horizontalAdvance(QStringLiteral("Item 0"));
        QVERIFY(qAbs(boxWhere(menu, 0, isRed).right() - 26 - width) <= 3);
        menu.SetFont(lumqt::uiFont().family(), 28);
        QVERIFY(qAbs(boxWhere(menu, 0, isRed).right() - 26 - 2 * width) <= 6);
    }

    void images()
    {
        const auto check = [this](const QVector<QString> &files, const QColor &normal,
                                  const QColor &hovered) {
            CBPMenu menu;
            if (normal == Qt::red)
                menu.AddAction(files, QStringLiteral("Text"), QStringLiteral("key"));
            else
                menu.AddAction(files, QStringLiteral("Text"), QStringLiteral("key"), QSize(1, 1));
            QVERIFY(open(menu));
            const QPoint middle(6 + 5, 20);
            QCOMPARE(colorAt(menu, middle), normal);
            menu.setActiveAction(menu.actions().first());
            QCOMPARE(colorAt(menu, middle), hovered);
            menu.ResetActionRes(QStringLiteral("other"), {});
            if (normal == Qt::red)
                QCOMPARE(colorAt(menu, middle), QColor(Qt::red)); // only the icon is left
            menu.SetActionRes(QStringLiteral("key"), QVector<QString>(4, m_stage.picture("blue")));
            QCOMPARE(boxIn(menu, 0, Qt::blue), QRect(6, 15, 10, 10));
            menu.SetBorder(10, 1, 2, 3); // the others have no effect
            QCOMPARE(boxIn(menu, 0, Qt::blue), QRect(10, 15, 10, 10));
            QCOMPARE(itemRect(menu, 0), QRect(0, 0, 249, 40));
        };
        const QString red = m_stage.picture("red");
        const QString green = m_stage.picture("lime");
        const QString missing = m_stage.picture("missing");
        check({red, green, red, red}, Qt::red, Qt::green);
        check({red, missing, green, green}, Qt::red, Qt::red); // the icon
        check({missing, green, red, red}, kBody, Qt::green);
        check({red, green, green}, kBody, kHover);
        check(QVector<QString>(4, missing), kBody, kHover);
    }

    void badge()
    {
        CBPMenu menu;
        fill(menu, 2);
        menu.SetActionSpecialFlag(2, true, QString());
        QVERIFY(boxIn(menu, 0, kDot).isEmpty() && !boxIn(menu, 1, kDot).isEmpty());
        const int width = QFontMetrics(lumqt::uiFont()).horizontalAdvance(QStringLiteral("Item 1"));
        QCOMPARE(boxWhere(menu, 1, isRed).left(), 26 + width + 6);
        menu.SetActionSpecialFlag(2, true, m_stage.picture("lime"));
        QVERIFY(boxIn(menu, 1, kDot).isEmpty() && !boxIn(menu, 1, kLime).isEmpty());
        QString file = QStringLiteral("untouched");
        QVERIFY(!menu.IsActionSpecial(1, file));
        QCOMPARE(file, QStringLiteral("untouched"));
        QVERIFY(menu.IsActionSpecial(2, file));
        QCOMPARE(file, m_stage.picture("lime"));
        menu.SetActionSpecialFlag(2, false, QString());
        QVERIFY(boxIn(menu, 1, kLime).isEmpty());
    }

    void separator()
    {
        CBPMenu menu;
        fill(menu, 1);
        menu.addSeparator();
        fill(menu, 1);
        QCOMPARE(itemRect(menu, 1).height(), 40);
        const auto check = [&menu](int rectHeight, int line) {
            menu.setSeparatorRectHeight(rectHeight);
            menu.setSeparatorHeight(line);
            const QRect rect = itemRect(menu, 1);
            QCOMPARE(rect.height(), 17); // the height of the place is always the same
            QImage pen(rect.size(), QImage::Format_RGB32);
            pen.fill(Qt::white);
            QPainter painter(&pen);
            painter.setPen(QPen(Qt::black, line, Qt::SolidLine, Qt::FlatCap));
            if (line > 0 && line <= rectHeight)
                painter.drawLine(10, (17 - line) / 2, rect.width() - 10, (17 - line) / 2);
            painter.end();
            QCOMPARE(boxIn(menu, 1, QColor(46, 66, 93)), boxOf(pen, Qt::black));
        };
        for (const int line : {0, 1, 2, 3, 4, 7})
            check(17, line);
        check(3, 3);
        check(2, 3);
    }

    void body()
    {
        CBPMenu menu;
        fill(menu, 2);
        QCOMPARE(menu.objectName(), QStringLiteral("id_PopupMenu"));
        QVERIFY(menu.windowFlags().testFlag(Qt::FramelessWindowHint));
        QVERIFY(menu.windowFlags().testFlag(Qt::NoDropShadowWindowHint));
        QVERIFY(menu.testAttribute(Qt::WA_TranslucentBackground));
        // The fill is translucent, and lies twice where the inner part is.
        const auto bottom = [&menu](int above) {
            const QImage image = menu.grab().toImage();
            return image.pixelColor(200, image.height() - above).alpha();
        };
        QCOMPARE(bottom(6), 240);
        QVERIFY(bottom(7) > 250);
        menu.SetMenuBottomHeight(12);
        QCOMPARE(bottom(12), 240);
        QVERIFY(bottom(13) > 250);
        menu.SetBorderInfo(2, Qt::red);
        const QImage image = menu.grab().toImage();
        for (const QPoint &at : {QPoint(200, 1), QPoint(1, 40), QPoint(248, 40), QPoint(200, 78)})
            QCOMPARE(image.pixelColor(at), QColor(Qt::red));
        for (const QPoint &at : {QPoint(200, 2), QPoint(2, 40), QPoint(246, 40), QPoint(200, 77)})
            QVERIFY(image.pixelColor(at) != QColor(Qt::red));
    }

    void subMenuAndArrow()
    {
        CBPMenu menu;
        auto *sub = new CBPMenu(QString(30, QLatin1Char('W')));
        QAction *action = menu.AddMenu(sub);
        CBPMenuItem item(QStringLiteral("bound"), 1);
        item.setBindMenu(sub);
        const QRect rect = menu.actionGeometry(action);
        menu.SetSubMenuRightIcon(m_stage.picture("lime"));
        const QRect arrow(rect.right() - 17, 15, 10, 10); // 8 from the edge and 6 from the text
        QCOMPARE(boxIn(menu, 0, kLime), arrow);
        // Measured at one size and painted at another, a text does not fit.
        menu.setTextColor(Qt::red);
        menu.SetFont(lumqt::uiFont().family(), 28);
        const int end = boxWhere(menu, 0, isRed).right();
        QVERIFY(end < arrow.left() - 6 && end > arrow.left() - 80);
        QCOMPARE(item.bindMenu(), sub);
        delete sub;
        QVERIFY(!item.bindMenu());
        fill(menu, 1);
        QVERIFY(boxIn(menu, 0, kLime).isEmpty());
        QCOMPARE(itemRect(menu, 0).width(), rect.width() - 11); // without room for an arrow
    }

    // About the middle of each item: pictures, arrows, badges, texts.
    void mirrored()
    {
        const QString lime = m_stage.picture("lime");
        CBPMenu menu;
        CBPMenu sub(QStringLiteral("oo")); // reads the same both ways
        menu.AddAction(lime, QStringLiteral("oo"), 1);
        menu.AddAction(QStringLiteral("oo"), 2);
        menu.SetActionSpecialFlag(2, true, lime);
        menu.AddMenu(&sub);
        menu.SetSubMenuRightIcon(lime);
        QVector<QRect> places[2];
        for (const bool turned : {false, true}) {
            menu.setLayoutDirection(turned ? Qt::RightToLeft : Qt::LeftToRight);
            for (int i = 0; i < 3; ++i) {
                const QImage item = menu.grab(itemRect(menu, i)).toImage().mirrored(turned, false);
                places[turned] << boxOf(item, kLime) << inkOf(item.copy(20, 0, 30, 40), 170);
            }
        }
        QVERIFY(!places[0].contains(QRect()));
        QCOMPARE(places[1], places[0]);
    }

    void backgrounds()
    {
        CBPMenu menu;
        fill(menu, 2);
        QVERIFY(open(menu));
        menu.setActiveAction(menu.actions().at(1));
        const auto painted = [&menu](const QVector<QColor> &colors) {
            menu.setBg(colors);
            return QVector<QColor>{itemColor(menu, 0), itemColor(menu, 1)};
        };
        QCOMPARE(painted({}), (QVector<QColor>{kBody, kHover}));
        QCOMPARE(painted({Qt::red}), (QVector<QColor>{Qt::red, kHover}));
        QCOMPARE(painted({Qt::green, Qt::red, Qt::blue, Qt::red, Qt::red}),
                 (QVector<QColor>{Qt::green, Qt::blue}));
    }

    void highlightFollowsCorners()
    {
        // Nested, border, index, count; whether the upper and the lower corners are square.
        const std::tuple<bool, int, int, int, bool, bool> rows[] = {
            {false, 0, 0, 3, true, true},  {false, 0, 2, 3, true, false}, {false, 0, 0, 1, true, false},
            {false, 1, 2, 3, true, true}, // a border leaves room for the corners
            {true, 0, 0, 1, false, false}, {true, 0, 0, 3, false, true},  {true, 0, 1, 3, true, false}};
        for (const auto &[nested, border, index, count, squareTop, squareBottom] : rows) {
            Menu menu;
            menu.SetBorderInfo(border, Qt::white);
            if (nested)
                menu.SetSubLeveMennu();
            const QImage image = highlight(menu, index, count);
            const int inset = nested ? 2 : 0;
            for (const int x : {inset, image.width() - 1 - inset}) {
                QCOMPARE(image.pixelColor(x, 0).alpha() == 255, squareTop);
                QCOMPARE(image.pixelColor(x, 39).alpha() == 255, squareBottom);
                QCOMPARE(image.pixelColor(x, 20), kHover);
            }
            QCOMPARE(image.pixelColor(1, 20).alpha(), nested ? 0 : 255);
        }
    }

    void withoutCompositor()
    {
        auto &system = lumqt::platform::answers();
        const auto before = system.composited;
        CBPMenu menu;
        menu.SetSubLeveMennu();
        fill(menu, 2);
        system.composited = [] { return false; };
        QVERIFY(open(menu));
        const QImage image = menu.grab().toImage();
        QCOMPARE(image.pixelColor(image.rect().center()).alpha(), 255);
        menu.hide();
        system.composited = [] { return true; };
        QVERIFY(open(menu));
        QVERIFY(menu.mask().isEmpty());
        QCOMPARE(menu.grab().toImage().pixelColor(2, 0).alpha(), 0);
        menu.hide();

        // The shape is put together from corners; it is that of the whole.
        system.composited = [] { return false; };
        QVERIFY(open(menu));
        for (const int radius : {0, 1, 4, 15, 60, 1000}) {
            menu.SetBordRadios(radius);
            QBitmap whole(menu.size());
            whole.clear();
            QPainter painter(&whole);
            painter.setPen(Qt::NoPen);
            painter.setBrush(Qt::color1);
            painter.drawRoundedRect(menu.rect().adjusted(2, 0, -2, 0), radius, radius);
            painter.end();
            QCOMPARE(menu.mask(), QRegion(whole));
        }
        menu.AddAction(QStringLiteral("One more"), 3); // the shape grows with the menu
        QTRY_VERIFY(menu.mask().contains(QPoint(menu.width() / 2, menu.height() - 1)));
        system.composited = before;
    }

private:
    MenuStage m_stage;
};

LUMQT_TEST_MAIN(TestMenuLook)
#include "tst_menu_look.moc"
