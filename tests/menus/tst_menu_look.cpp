#include "foundation/FontLookup.h"
#include "Later.h"
#include "MenuProbe.h"
#include "platform/Platform.h"
#include "TestMain.h"

#include <QBitmap>
#include <QPainter>
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

    // Where a file is missing an item shows its icon, which is the first of the four.
    void images()
    {
        const QString red = m_stage.picture("red");
        const QString green = m_stage.picture("lime");
        const QString missing = m_stage.picture("missing");
        // Files; the colour at rest and of the highlighted item.
        const std::tuple<QVector<QString>, QColor, QColor> rows[] = {
            {{red, missing, green, green}, Qt::red, Qt::red},
            {{missing, green, red, red}, kBody, Qt::green},
            {{red, green, green}, kBody, kHover}};
        for (const auto &[files, normal, hovered] : rows) {
            CBPMenu menu;
            menu.AddAction(files, QStringLiteral("Text"), QStringLiteral("key"), QSize(1, 1));
            const QPoint middle(6 + 5, 20);
            QCOMPARE(colorAt(menu, middle), normal);
            menu.setActiveAction(menu.actions().first());
            QCOMPARE(colorAt(menu, middle), hovered);
            menu.ResetActionRes(QStringLiteral("other"), {});
            QCOMPARE(colorAt(menu, middle), normal == Qt::red ? QColor(Qt::red) : kHover); // the icon
            menu.SetActionRes(QStringLiteral("key"), QVector<QString>(4, m_stage.picture("blue")));
            QCOMPARE(boxIn(menu, 0, Qt::blue), QRect(6, 15, 10, 10));
        }
    }

    void badge()
    {
        CBPMenu menu;
        for (const QString &file : {QString(), m_stage.picture("lime")})
            menu.SetActionSpecialFlag(2, true, file);
        QString file = QStringLiteral("untouched");
        QVERIFY(!menu.IsActionSpecial(1, file));
        QCOMPARE(file, QStringLiteral("untouched"));
        for (const QVariant &same : {QVariant(2), QVariant("2"), QVariant(QByteArray("2"))}) // with every Qt
            QVERIFY(menu.IsActionSpecial(same, file));
        QCOMPARE(file, m_stage.picture("lime"));
        menu.SetActionSpecialFlag(2, false, QString());
        QVERIFY(!menu.IsActionSpecial(2, file));
        for (const QVector<QVariant> &all :
             {QVector<QVariant>{1, 2, 3, 4}, {"x", "y", "z"}, {1, "x", 2, "y"}}) {
            for (const QVariant &data : all)
                menu.SetActionSpecialFlag(data, true, data.toString());
            for (int removed = 0; removed < all.size(); ++removed) {
                menu.SetActionSpecialFlag(all[removed], false, QString());
                for (int i = 0; i < all.size(); ++i) {
                    QCOMPARE(menu.IsActionSpecial(all[i], file), i > removed);
                    QVERIFY(i <= removed || file == all[i].toString());
                }
            }
        }
        menu.SetActionSpecialFlag(7, true, QString());
        QVERIFY(menu.IsActionSpecial(7, file) && !menu.IsActionSpecial(1, file)); // of before
    }

    // Of thousands of items only those in sight are painted. Hidden ones and those separators that follow
    // another one have no place.
    void itemsInSight()
    {
        CBPMenu menu;
        for (int i = 0; i < 300; ++i) {
            menu.AddAction(m_stage.picture("lime"), QStringLiteral("x"), i);
            menu.actions().constLast()->setVisible(i % 3 != 1 && (i < 100 || i > 200));
            for (int separator = 0; separator < i % 4; ++separator)
                menu.addSeparator();
        }
        QVERIFY(open(menu));
        const auto verify = [&menu] {
            const QImage picture = menu.grab().toImage();
            const QRect sight = menu.rect().adjusted(0, 30, 0, -30); // without what scrolls
            int inSight = 0;
            for (QAction *action : menu.actions()) {
                const QRect place = menu.actionGeometry(action);
                if (action->isSeparator() || place.isNull() || !sight.contains(place))
                    continue;
                ++inSight;
                QCOMPARE(boxOf(picture.copy(place), kLime).size(), QSize(10, 10));
                QCOMPARE(boxOf(menu.grab(place).toImage(), kLime).size(), QSize(10, 10));
            }
            QVERIFY(inSight > 3);
        };
        for (const int row : {0, 60, 66, 90, 130}) {
            int shown = 0;
            for (QAction *action : menu.actions()) {
                if (action->isSeparator() || !action->isVisible() || shown++ != row)
                    continue;
                QTest::keyClick(&menu, Qt::Key_Home);
                while (menu.activeAction() != action)
                    QTest::keyClick(&menu, Qt::Key_Down);
            }
            verify();
        }
        menu.AddAction(m_stage.picture("lime"), QStringLiteral("x"), 300);
        QTest::keyClick(&menu, Qt::Key_Home); // shifts also what has no place, which is at the top since
        verify();
    }

    // Of which there is one only if it goes into its place, whose height is always the same.
    void separatorLine()
    {
        CBPMenu menu;
        fill(menu, 1);
        menu.addSeparator();
        fill(menu, 1);
        QCOMPARE(itemRect(menu, 1).height(), 40);
        // Place, line; where it is painted.
        const std::tuple<int, int, QRect> rows[] = {
            {17, 0, {}}, {17, 7, {10, 2, 229, 7}}, {3, 3, {10, 6, 229, 3}}, {2, 3, {}}};
        for (const auto &[place, line, painted] : rows) {
            menu.setSeparatorRectHeight(place);
            menu.setSeparatorHeight(line);
            QCOMPARE(itemRect(menu, 1).height(), 17);
            QCOMPARE(boxIn(menu, 1, QColor(46, 66, 93)), painted);
        }
        menu.setStyleSheet(menu.styleSheet() + "QMenu{color:red}");
        menu.resetSeparatorRectHeight();
        QCOMPARE(itemRect(menu, 1).height(), 40);
        QCOMPARE(menu.styleSheet(), QString("QMenu{color:red}"));
    }

    // The fill is translucent, and lies twice above a strip at the bottom.
    void bottomStrip()
    {
        CBPMenu menu;
        fill(menu, 2);
        for (const int height : {6, 12}) {
            const QImage image = menu.grab().toImage();
            QCOMPARE(image.pixelColor(200, image.height() - height).alpha(), 240);
            QVERIFY(image.pixelColor(200, image.height() - height - 1).alpha() > 250);
            menu.SetMenuBottomHeight(12);
        }
    }

    void subMenuAndArrow()
    {
        CBPMenu menu;
        auto *sub = new CBPMenu(QString(30, QLatin1Char('W')));
        menu.AddMenu(sub);
        CBPMenuItem item(QStringLiteral("bound"), 1);
        item.setBindMenu(sub);
        menu.SetSubMenuRightIcon(m_stage.picture("lime"));
        menu.setBg({Qt::white});
        menu.setTextColor(Qt::black);
        menu.SetBordRadios(0);
        // Measured at one size and painted at another, a text does not fit.
        menu.SetFont(lumqt::uiFont().family(), 28);
        const int arrow = boxIn(menu, 0, kLime).left();
        const int end = inkOf(menu.grab(itemRect(menu, 0)).toImage()).right();
        QVERIFY(end < arrow - 6 && end > arrow - 80);
        QCOMPARE(item.bindMenu(), sub);
        const int width = itemRect(menu, 0).width();
        delete sub;
        QVERIFY(!item.bindMenu());
        fill(menu, 1);
        QVERIFY(boxIn(menu, 0, kLime).isEmpty());
        QCOMPARE(itemRect(menu, 0).width(), width - 11); // without room for an arrow
    }

    // What is not among the colours keeps its own.
    void fewBackgrounds()
    {
        CBPMenu menu;
        fill(menu, 2);
        menu.setActiveAction(menu.actions().at(1));
        for (const QVector<QColor> &colors : {QVector<QColor>(), QVector<QColor>{Qt::red}}) {
            menu.setBg(colors);
            QCOMPARE(itemColor(menu, 0), colors.value(0, kBody));
            QCOMPARE(itemColor(menu, 1), kHover);
        }
    }

    // Square are those of a menu whose border leaves room for its own.
    void cornersOfTheHighlight()
    {
        // Nested, border, index, count.
        const std::tuple<bool, int, int, int> rows[] = {
            {false, 0, 0, 1}, {false, 0, 2, 3}, {false, 1, 2, 3}, {true, 0, 1, 3}};
        for (const auto &[nested, border, index, count] : rows) {
            CBPMenu menu;
            menu.SetBorderInfo(border, Qt::white);
            if (nested)
                menu.SetSubLeveMennu();
            fill(menu, count);
            menu.setActiveAction(menu.actions().at(index));
            const QPoint corner = itemRect(menu, index).bottomLeft() + QPoint(nested ? 2 : 0, 0);
            QCOMPARE(menu.grab().toImage().pixelColor(corner) == kHover, border > 0);
        }
    }

    void withoutCompositor()
    {
        const auto restore = restoring(lumqt::platform::answers());
        auto &system = lumqt::platform::answers();
        CBPMenu menu;
        menu.SetSubLeveMennu();
        fill(menu, 2);
        QVERIFY(menu.testAttribute(Qt::WA_TranslucentBackground));
        QVERIFY(menu.windowFlags().testFlag(Qt::FramelessWindowHint));
        QVERIFY(menu.windowFlags().testFlag(Qt::NoDropShadowWindowHint));
        QCOMPARE(menu.objectName(), QStringLiteral("id_PopupMenu"));
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
        AWAIT(menu.mask().contains(QPoint(menu.width() / 2, menu.height() - 1)));
    }

private:
    MenuStage m_stage;
};

LUMQT_TEST_MAIN(TestMenuLook)
#include "tst_menu_look.moc"
