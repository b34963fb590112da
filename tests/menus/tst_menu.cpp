#include "CBPMenu.h"
#include "CBPMenuItem.h"
#include "foundation/FontLookup.h"
#include "platform/Platform.h"
#include "TestMain.h"

#include <QAccessible>
#include <QBitmap>
#include <QFontMetrics>
#include <QIconEngine>
#include <QPainter>
#include <QStyle>
#include <QStyleFactory>
#include <QTemporaryDir>

#include <climits>
#include <functional>

namespace {

const QColor kHover(75, 174, 178);
const QColor kBody(60, 67, 75);
const QColor kDot(0xe0, 0x20, 0x20);

class Menu : public CBPMenu
{
public:
    using CBPMenu::CBPMenu;
    using CBPMenu::PaintAction;
};

class CountingEngine : public QIconEngine
{
public:
    explicit CountingEngine(int *count) : m_count(count) {}
    void paint(QPainter *, const QRect &, QIcon::Mode, QIcon::State) override {}
    QIconEngine *clone() const override { return new CountingEngine(m_count); }
    QPixmap pixmap(const QSize &size, QIcon::Mode, QIcon::State) override
    {
        ++*m_count;
        return QPixmap(size);
    }

private:
    int *m_count;
};

QRect itemRect(const QMenu &menu, int index)
{
    return menu.actionGeometry(menu.actions().at(index));
}

QImage shot(QWidget &menu)
{
    return menu.grab().toImage();
}

// The colour without its alpha. The body's two translucent layers may round one step beside kBody.
QColor colorAt(QWidget &menu, const QPoint &pos)
{
    QColor color = shot(menu).pixelColor(pos * menu.devicePixelRatioF());
    color.setAlpha(255);
    const bool body = qAbs(color.red() - kBody.red()) <= 1 && qAbs(color.green() - kBody.green()) <= 1 &&
                      qAbs(color.blue() - kBody.blue()) <= 1;
    return body ? kBody : color;
}

// The item's own background, away from image, text and arrow.
QColor itemColor(QMenu &menu, int index)
{
    const QRect rect = itemRect(menu, index);
    return colorAt(menu, QPoint(rect.right() - 40, rect.center().y()));
}

// Whether a point of the item's middle row has this colour.
bool rowHas(QMenu &menu, int index, const QColor &color)
{
    const QImage image = shot(menu);
    const int y = qRound(itemRect(menu, index).center().y() * menu.devicePixelRatioF());
    for (int x = 0; x < image.width(); ++x)
        if (image.pixelColor(x, y).rgb() == color.rgb())
            return true;
    return false;
}

// Leftmost pixel column of the item, from `from` on, that has a pixel for which `is` holds; -1 for none.
int findColumn(QMenu &menu, int index, int from, const std::function<bool(const QColor &)> &is)
{
    const QImage image = shot(menu);
    const QRect rect = itemRect(menu, index);
    for (int x = from; x <= rect.right(); ++x) {
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            if (is(image.pixelColor(x, y)))
                return x;
        }
    }
    return -1;
}

bool isInk(const QColor &color)
{
    return color.lightness() > 90;
}

void fill(CBPMenu &menu, int count)
{
    for (int i = 0; i < count; ++i)
        menu.AddAction(QStringLiteral("Item &%1").arg(i), i + 1);
}

bool open(QMenu &menu)
{
    menu.popup(QPoint(20, 20));
    return QTest::qWaitForWindowExposed(&menu);
}

// Moves the pointer about in the item until the menu has noticed: it takes no notice of the first move. Some
// styles make a disabled item the active one, others none.
void moveTo(QMenu &menu, int index)
{
    QAction *const item = menu.actions().at(index);
    const auto noticed = [&] {
        return menu.activeAction() == item || (!item->isEnabled() && !menu.activeAction());
    };
    for (int i = 0; i < 100 && (i < 3 || !noticed()); ++i) {
        QTest::mouseMove(&menu, itemRect(menu, index).center() + QPoint(i % 5, 0));
        QTest::qWait(1);
    }
    QVERIFY(noticed());
}

} // namespace

Q_DECLARE_METATYPE(std::function<void(CBPMenu &)>)

class TestMenu : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        m_red = picture("red.png", Qt::red);
        m_green = picture("green.png", Qt::green);
        m_blue = picture("blue.png", Qt::blue);
        // Menus of an application without an active window are closed by the system at once.
        m_host.setGeometry(700, 300, 100, 100);
        m_host.show();
        m_host.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&m_host));
    }

    void init() { QCursor::setPos(600, 560); }

    void itemSize_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("subMenu");
        QTest::addColumn<QSize>("given");
        QTest::addColumn<QSize>("expected");
        const QString wide(60, QLatin1Char('W'));
        const int measured = QFontMetrics(lumqt::uiFont()).horizontalAdvance(wide);
        QVERIFY(measured > 200);
        QTest::newRow("short text") << "a" << false << QSize() << QSize(249, 40);
        QTest::newRow("room for an arrow") << "a" << true << QSize() << QSize(260, 40);
        QTest::newRow("wide text") << wide << false << QSize() << QSize(measured + 49, 40);
        QTest::newRow("a size of one's own is replaced at once")
            << "a" << false << QSize(99, 55) << QSize(249, 40);
        QTest::newRow("but not without a text") << "" << false << QSize(99, 55) << QSize(99, 55);
    }

    void itemSize()
    {
        QFETCH(QString, text);
        QFETCH(bool, subMenu);
        QFETCH(QSize, given);
        CBPMenu sub(QStringLiteral("Sub"));
        CBPMenu menu;
        if (subMenu)
            menu.AddMenu(&sub);
        QAction *action =
            given.isValid() ? menu.AddAction(QVector<QString>(), text, 1, given) : menu.AddAction(text, 1);
        QTEST(menu.actionGeometry(action).size(), "expected");
        QCOMPARE(menu.GetMenuWidth(), 153);
    }

    void measuringAgain()
    {
        CBPMenu sub(QStringLiteral("Sub"));
        CBPMenu menu;
        QAction *action = menu.AddAction(QStringLiteral("Wide enough at a large size"), 1);
        fill(sub, 2);
        QPointer<QStyle> first = menu.style();
        menu.ResetMenuWidth();
        QCOMPARE(menu.style(), first.data()); // the size is the same: no new style
        menu.AddMenu(&sub);
        QCOMPARE(menu.actionGeometry(action).width(), 260);
        QVERIFY(!first); // replaced, not collected
        menu.SetMenuItemHeiht(30);
        menu.SetMenuFontSize(40);
        sub.SetMenuItemHeiht(20);
        menu.ResetMenuWidth();
        QVERIFY(menu.actionGeometry(action).width() > 400);
        QCOMPARE(menu.actionGeometry(action).height(), 30);
        QCOMPARE(itemRect(sub, 0).height(), 20);
        menu.SetMenuFontSize(1);
        menu.ResetMenuWidth();
        QVERIFY(menu.actionGeometry(action).width() > 400); // never narrower
        QVERIFY(!menu.AddMenu(nullptr));
        QVERIFY(!menu.AddMenu(&menu));
    }

    void visibilityAndCheckIcon()
    {
        CBPMenu menu;
        fill(menu, 3);
        menu.addSeparator();
        menu.ShowHideMenuItem(2, false);
        QVERIFY(!menu.actions().at(1)->isVisible());
        menu.ShowHideMenuItem(0, false); // separators have no data
        QVERIFY(!menu.actions().at(3)->isVisible());
        menu.SetShowCheckIcon(1, QIcon(m_red));
        menu.SetShowCheckIcon(3, QIcon(m_red));
        QVERIFY(menu.actions().at(0)->icon().isNull());
        QVERIFY(!menu.actions().at(2)->icon().isNull());
        menu.SetShowCheckIcon(77, QIcon(m_red));
        QVERIFY(menu.actions().at(2)->icon().isNull());
    }

    void mouse()
    {
        CBPMenu menu;
        fill(menu, 3);
        menu.actions().at(2)->setEnabled(false);
        QVERIFY(open(menu));
        QCOMPARE(itemColor(menu, 0), kBody);
        for (const int index : {1, 0}) {
            moveTo(menu, index);
            QTRY_COMPARE(itemColor(menu, index), kHover);
            QCOMPARE(itemColor(menu, 1 - index), kBody);
        }
        moveTo(menu, 2);
        QTRY_COMPARE(itemColor(menu, 0), kBody);
        QCOMPARE(itemColor(menu, 2), kBody);
    }

    void keyboard()
    {
        CBPMenu menu;
        fill(menu, 3);
        QList<QAction *> triggered;
        connect(&menu, &QMenu::triggered, this, [&triggered](QAction *action) { triggered.append(action); });
        QVERIFY(open(menu));
        moveTo(menu, 0);
        QTest::keyClick(&menu, Qt::Key_Down);
        // The cursor still rests on the first item.
        QCOMPARE(itemColor(menu, 1), kHover);
        QCOMPARE(itemColor(menu, 0), kBody);
        QTest::keyClick(&menu, Qt::Key_Return);
        QVERIFY(!menu.isVisible());
        QCOMPARE(triggered.size(), 1);
        QVERIFY(qobject_cast<CBPMenuItem *>(triggered.first()));
        QCOMPARE(triggered.first()->data().toInt(), 2);

        QVERIFY(open(menu));
        QTest::keyClick(&menu, Qt::Key_2); // a mnemonic
        QCOMPARE(triggered.size(), 2);
        QCOMPARE(triggered.last()->data().toInt(), 3);
        QVERIFY(open(menu));
        QTest::keyClick(&menu, Qt::Key_Escape);
        QVERIFY(!menu.isVisible());
        QCOMPARE(triggered.size(), 2);
    }

    // An item may be highlighted only because the menu opened under the cursor: QMenu does not know of it.
    void highlightLeavesTheCursor()
    {
        int looked = 0;
        CBPMenu menu;
        fill(menu, 3);
        menu.actions().at(2)->setIcon(QIcon(new CountingEngine(&looked)));
        QCursor::setPos(QPoint(20, 20) + itemRect(menu, 2).center());
        QVERIFY(open(menu));
        QTRY_VERIFY(looked > 0);
        QCOMPARE(itemColor(menu, 2), kHover);
        QCoreApplication::processEvents();
        looked = 0;
        QTest::keyClick(&menu, Qt::Key_Down);
        QTRY_VERIFY(looked > 0);
        QVERIFY(itemColor(menu, 2) == kBody || menu.activeAction() == menu.actions().at(2));
    }

    void keyboardPassesDisabledItems()
    {
        const QScopedPointer<QStyle> style(QStyleFactory::create(QStringLiteral("windows")));
        CBPMenu menu;
        fill(menu, 4);
        menu.actions().at(1)->setEnabled(false);
        menu.actions().at(2)->setEnabled(false);
        menu.setStyle(style.data());
        QVERIFY(menu.style()->styleHint(QStyle::SH_Menu_AllowActiveAndDisabled)); // it stops at them
        QVERIFY(open(menu));
        menu.setActiveAction(menu.actions().at(0));
        QTest::keyClick(&menu, Qt::Key_Down);
        QCOMPARE(menu.activeAction(), menu.actions().at(3));
    }

    void shownText()
    {
        CBPMenu marked;
        marked.AddAction(QStringLiteral("&Cut"), 1);
        const bool underlines = marked.style()->styleHint(QStyle::SH_UnderlineShortcut, nullptr, &marked);
        const auto look = [](const char *text) {
            CBPMenu menu;
            menu.AddAction(QLatin1String(text), 1);
            return shot(menu).copy(0, 0, 240, 40); // the width counts marks and tabs
        };
        QCOMPARE(look("Cut && paste"), look("Cut & paste"));
        QCOMPARE(look("Cut\tCtrl+X"), look("Cut"));
        QVERIFY(look("Cut & paste") != look("Cut  paste"));
        QCOMPARE(look("&Cut") != look("Cut"), underlines);
    }

    void textPlace_data()
    {
        QTest::addColumn<std::function<void(CBPMenu &)>>("set");
        QTest::addColumn<int>("shift"); // of the text
        using Set = std::function<void(CBPMenu &)>;
        QTest::newRow("spacing") << Set([](CBPMenu &menu) { menu.SetSpacing(20); }) << 14;
        QTest::newRow("wide icon column") << Set([](CBPMenu &menu) { menu.SetDefIconWidth(30); }) << 16;
        QTest::newRow("no icon column") << Set([](CBPMenu &menu) { menu.SetDefIconWidth(0); }) << -14;
        QTest::newRow("margin") << Set([](CBPMenu &menu) { menu.SetBorder(10, 90, 90, 90); }) << 4;
    }

    void textPlace()
    {
        CBPMenu menu;
        menu.AddAction(QStringLiteral("Item"), 1);
        const int before = findColumn(menu, 0, 0, isInk);
        QVERIFY(before >= 26 && before <= 29); // behind margin, icon column and spacing
        QFETCH(std::function<void(CBPMenu &)>, set);
        set(menu);
        QTEST(findColumn(menu, 0, 0, isInk) - before, "shift");
    }

    void textLook()
    {
        CBPMenu menu;
        fill(menu, 2);
        menu.actions().at(1)->setEnabled(false);
        const auto bright = [](const QColor &color) { return color.lightness() > 170; };
        QVERIFY(findColumn(menu, 0, 0, bright) > 0);
        QVERIFY(findColumn(menu, 1, 0, bright) < 0); // disabled: dimmed
        QVERIFY(findColumn(menu, 1, 0, isInk) > 0);
        const auto red = [](const QColor &color) { return color.red() > 150 && color.green() < 60; };
        QVERIFY(findColumn(menu, 0, 0, red) < 0);
        menu.setTextColor(Qt::red);
        QVERIFY(findColumn(menu, 0, 0, red) > 0);
        const int width = QFontMetrics(lumqt::uiFont()).horizontalAdvance(QStringLiteral("Item 0"));
        QVERIFY(findColumn(menu, 0, 26 + width, red) < 0);
        menu.SetFont(lumqt::uiFont().family(), 28);
        QVERIFY(findColumn(menu, 0, 26 + width + 4, red) > 0);
    }

    // Measured at one size and painted at another, a text does not fit.
    void elided()
    {
        CBPMenu sub(QString(30, QLatin1Char('W')));
        CBPMenu menu;
        menu.AddMenu(&sub);
        menu.SetSubMenuRightIcon(m_green); // 10 x 10, 8 from the edge and 6 from the text
        const int arrow = itemRect(menu, 0).right() - 17;
        menu.SetFont(lumqt::uiFont().family(), 28);
        QVERIFY(findColumn(menu, 0, arrow - 80, isInk) < arrow - 6);
        QCOMPARE(findColumn(menu, 0, arrow - 6, isInk), arrow);
    }

    void images_data()
    {
        QTest::addColumn<QVector<QString>>("files");
        QTest::addColumn<QColor>("normal");
        QTest::addColumn<QColor>("hovered");
        const QString missing = m_folder.filePath(QStringLiteral("missing.png"));
        QTest::newRow("four") << QVector<QString>{m_red, m_green, m_blue, m_blue} << QColor(Qt::red)
                              << QColor(Qt::green);
        QTest::newRow("hover image missing: the icon")
            << QVector<QString>{m_red, missing, m_blue, m_blue} << QColor(Qt::red) << QColor(Qt::red);
        QTest::newRow("three: none") << QVector<QString>{m_red, m_green, m_blue} << kBody << kHover;
        QTest::newRow("all missing") << QVector<QString>(4, missing) << kBody << kHover;
    }

    void images()
    {
        QFETCH(QVector<QString>, files);
        CBPMenu menu;
        menu.AddAction(files, QStringLiteral("Text"), QStringLiteral("key"));
        QVERIFY(open(menu));
        const QPoint middle(6 + 5, 20);
        QTEST(colorAt(menu, middle), "normal");
        menu.setActiveAction(menu.actions().first());
        QTEST(colorAt(menu, middle), "hovered");
        menu.ResetActionRes(QStringLiteral("other"), {});
        if (files.size() == 4 && files.first() == m_red)
            QCOMPARE(colorAt(menu, middle), QColor(Qt::red)); // only the icon is left
        menu.SetActionRes(QStringLiteral("key"), {m_blue, m_blue, m_blue, m_blue});
        QCOMPARE(colorAt(menu, middle), QColor(Qt::blue));
        menu.SetBorder(10, 1, 2, 3); // the others have no effect
        QCOMPARE(colorAt(menu, QPoint(9, 20)), kHover);
        QCOMPARE(colorAt(menu, QPoint(10, 20)), QColor(Qt::blue));
        QCOMPARE(itemRect(menu, 0), QRect(0, 0, 249, 40));
    }

    void badge()
    {
        CBPMenu menu;
        fill(menu, 2);
        menu.SetActionSpecialFlag(2, true, QString());
        QVERIFY(rowHas(menu, 1, kDot));
        QVERIFY(!rowHas(menu, 0, kDot));
        const int width = QFontMetrics(lumqt::uiFont()).horizontalAdvance(QStringLiteral("Item 1"));
        const auto red = [](const QColor &color) { return color.red() > 150 && color.green() < 60; };
        QCOMPARE(findColumn(menu, 1, 0, red), 26 + width + 6);
        menu.SetActionSpecialFlag(2, true, m_green);
        QVERIFY(rowHas(menu, 1, Qt::green) && !rowHas(menu, 1, kDot));
        QString file = QStringLiteral("untouched");
        QVERIFY(!menu.IsActionSpecial(1, file));
        QCOMPARE(file, QStringLiteral("untouched"));
        QVERIFY(menu.IsActionSpecial(2, file));
        QCOMPARE(file, m_green);
        menu.SetActionSpecialFlag(2, false, QString());
        QVERIFY(!rowHas(menu, 1, Qt::green));
    }

    void separator()
    {
        CBPMenu menu;
        fill(menu, 1);
        menu.addSeparator();
        fill(menu, 1);
        QCOMPARE(itemRect(menu, 1).height(), 40);
        const auto painted = [&menu](int rectHeight, int line) {
            menu.setSeparatorRectHeight(rectHeight);
            menu.setSeparatorHeight(line);
            const QRect rect = itemRect(menu, 1);
            const int y = rect.top() + (17 - line) / 2;
            const QColor ink(46, 66, 93);
            return rect.height() == 17 && colorAt(menu, QPoint(rect.x() + 10, y)) == ink &&
                   colorAt(menu, QPoint(rect.right() - 10, y)) == ink &&
                   colorAt(menu, QPoint(rect.x() + 9, y)) != ink;
        };
        QVERIFY(painted(17, 1));
        QVERIFY(painted(3, 3)); // the height of the place is always the same
        QVERIFY(!painted(2, 3));
        QVERIFY(!painted(17, 0));
        for (const int line : {1, 2, 3, 4, 7}) {
            QVERIFY(painted(17, line));
            QImage pen(20, 17, QImage::Format_RGB32);
            pen.fill(Qt::white);
            QPainter painter(&pen);
            painter.setPen(QPen(Qt::black, line, Qt::SolidLine, Qt::FlatCap));
            painter.drawLine(0, (17 - line) / 2, 19, (17 - line) / 2);
            painter.end();
            for (int y = 0; y < 17; ++y) {
                const QPoint at = itemRect(menu, 1).topLeft() + QPoint(20, y);
                QCOMPARE(colorAt(menu, at) == QColor(46, 66, 93), pen.pixelColor(10, y) == QColor(Qt::black));
            }
        }
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
            const QImage image = shot(menu);
            return image.pixelColor(200, image.height() - above).alpha();
        };
        QCOMPARE(bottom(6), 240);
        QVERIFY(bottom(7) > 250);
        menu.SetMenuBottomHeight(12);
        QCOMPARE(bottom(12), 240);
        QVERIFY(bottom(13) > 250);
        menu.SetBorderInfo(2, Qt::red);
        const QImage image = shot(menu);
        for (const QPoint &at : {QPoint(200, 1), QPoint(1, 40), QPoint(248, 40), QPoint(200, 78)})
            QCOMPARE(image.pixelColor(at), QColor(Qt::red));
        for (const QPoint &at : {QPoint(200, 2), QPoint(2, 40), QPoint(246, 40), QPoint(200, 77)})
            QVERIFY(image.pixelColor(at) != QColor(Qt::red));
    }

    void ownStyleComesBack()
    {
        const QScopedPointer<QStyle> other(QStyleFactory::create(QStringLiteral("windows")));
        for (const bool sheet : {false, true}) {
            CBPMenu menu;
            fill(menu, 1);
            if (sheet)
                menu.setSeparatorRectHeight(17);
            menu.setStyle(other.data());
            QVERIFY(itemRect(menu, 0).size() != QSize(249, 40));
            menu.ResetMenuWidth();
            QCOMPARE(itemRect(menu, 0).size(), QSize(249, 40));
        }
    }

    void numbersOutOfRange()
    {
        for (const int number : {INT_MAX, INT_MIN}) {
            for (const bool nested : {false, true}) {
                Menu menu;
                fill(menu, 2);
                if (nested)
                    menu.SetSubLeveMennu();
                menu.SetActionSpecialFlag(1, true, QString());
                for (const auto set : {&CBPMenu::SetSpacing, &CBPMenu::SetDefIconWidth,
                                       &CBPMenu::SetMenuFontSize, &CBPMenu::setSeparatorRectHeight,
                                       &CBPMenu::setSeparatorHeight, &CBPMenu::SetMenuBottomHeight})
                    (menu.*set)(number);
                menu.SetBorder(number, number, number, number);
                menu.SetBordRadios(number);
                menu.SetBorderInfo(number, Qt::red);
                menu.addSeparator();
                QVERIFY(!shot(menu).isNull());
                QImage image(60, 40, QImage::Format_ARGB32_Premultiplied);
                QPainter painter(&image);
                menu.PaintAction(&painter, image.rect(), 1, 2);
                painter.end();
                menu.SetMenuItemHeiht(number);
                menu.ResetMenuWidth();
                QCOMPARE(itemRect(menu, 0).isEmpty(), number < 0);
            }
        }
    }

    void deletedWhileOpen_data()
    {
        QTest::addColumn<QString>("by");
        for (const char *by : {"slot of hovered()", "slot of triggered()", "timer", "timer in exec()"})
            QTest::newRow(by) << by;
    }

    void deletedWhileOpen()
    {
        QFETCH(QString, by);
        const QPointer<CBPMenu> menu(new CBPMenu);
        fill(*menu, 3);
        const bool inExec = by == QLatin1String("timer in exec()");
        if (!inExec)
            QVERIFY(open(*menu));
        if (by.startsWith(QLatin1String("timer")))
            QTimer::singleShot(50, this, [menu] { delete menu; });
        if (inExec)
            QVERIFY(!menu->exec(QPoint(20, 20)));
        if (by.startsWith(QLatin1String("slot"))) {
            connect(menu, by.contains(QLatin1String("hovered")) ? &QMenu::hovered : &QMenu::triggered, menu,
                    &QObject::deleteLater);
            QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Return);
        }
        QTRY_VERIFY(!menu);
    }

    void subMenuAndArrow()
    {
        CBPMenu menu;
        auto *sub = new CBPMenu(QStringLiteral("Sub"));
        QAction *action = menu.AddMenu(sub);
        CBPMenuItem item(QStringLiteral("bound"), 1);
        item.setBindMenu(sub);
        const QRect rect = menu.actionGeometry(action);
        menu.SetSubMenuRightIcon(m_green); // 10 x 10
        QCOMPARE(colorAt(menu, QPoint(rect.right() - 8, 20)), QColor(Qt::green));
        QCOMPARE(colorAt(menu, QPoint(rect.right() - 7, 20)), kBody);
        QCOMPARE(colorAt(menu, QPoint(rect.right() - 17, 20)), QColor(Qt::green));
        QCOMPARE(colorAt(menu, QPoint(rect.right() - 18, 20)), kBody);
        QCOMPARE(item.bindMenu(), sub);
        delete sub;
        QVERIFY(!item.bindMenu());
        fill(menu, 1);
        QVERIFY(!rowHas(menu, 0, Qt::green));
        QCOMPARE(itemRect(menu, 0).width(), 249);
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
        QCOMPARE(painted(QVector<QColor>(9, Qt::green)), QVector<QColor>(2, Qt::green));
    }

    void highlightFollowsCorners_data()
    {
        QTest::addColumn<bool>("nested");
        QTest::addColumn<int>("border");
        QTest::addColumn<QPoint>("item"); // index, count
        QTest::addColumn<bool>("squareTop");
        QTest::addColumn<bool>("squareBottom");
        QTest::newRow("first") << false << 0 << QPoint(0, 3) << true << true;
        QTest::newRow("last") << false << 0 << QPoint(2, 3) << true << false;
        QTest::newRow("only") << false << 0 << QPoint(0, 1) << true << false;
        QTest::newRow("last with a border") << false << 1 << QPoint(2, 3) << true << true;
        QTest::newRow("nested, only") << true << 0 << QPoint(0, 1) << false << false;
        QTest::newRow("nested, first") << true << 0 << QPoint(0, 3) << false << true;
        QTest::newRow("nested, middle") << true << 0 << QPoint(1, 3) << true << false;
    }

    void highlightFollowsCorners()
    {
        QFETCH(bool, nested);
        QFETCH(int, border);
        QFETCH(QPoint, item);
        Menu menu;
        menu.SetBorderInfo(border, Qt::white);
        if (nested)
            menu.SetSubLeveMennu();
        QImage image(60, 40, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        menu.PaintAction(&painter, image.rect(), item.x(), item.y());
        painter.end();
        const int inset = nested ? 2 : 0;
        for (const int x : {inset, image.width() - 1 - inset}) {
            QTEST(image.pixelColor(x, 0).alpha() == 255, "squareTop");
            QTEST(image.pixelColor(x, 39).alpha() == 255, "squareBottom");
            QCOMPARE(image.pixelColor(x, 20), kHover);
        }
        QCOMPARE(image.pixelColor(1, 20).alpha(), nested ? 0 : 255);
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
        QVERIFY(!menu.mask().isEmpty());
        QVERIFY(!menu.mask().contains(QPoint(2, 0)) && !menu.mask().contains(QPoint(1, 20)));
        QVERIFY(menu.mask().contains(menu.rect().center()));
        const QImage image = shot(menu);
        QCOMPARE(image.pixelColor(image.rect().center()).alpha(), 255);
        menu.hide();
        system.composited = [] { return true; };
        QVERIFY(open(menu));
        QVERIFY(menu.mask().isEmpty());
        QCOMPARE(shot(menu).pixelColor(2, 0).alpha(), 0);
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

    // What a partial repaint costs does not depend on how long the menu is.
    void manyItems()
    {
        int looked = 0;
        CBPMenu menu;
        fill(menu, 500);
        const auto all = menu.actions();
        for (QAction *action : all)
            action->setIcon(QIcon(new CountingEngine(&looked)));
        QVERIFY(open(menu));
        QTRY_VERIFY(looked > 0);
        QVERIFY(looked < 200); // those on the screen
        looked = 0;
        menu.repaint(itemRect(menu, 3).adjusted(0, 1, 0, -1));
        QCOMPARE(looked, 1);

        const auto arrow = [&menu](int y) {
            return colorAt(menu, QPoint(menu.width() / 2, y)) == QColor(Qt::white);
        };
        QVERIFY(arrow(menu.height() - 6) && !arrow(5));
        QTest::keyClick(&menu, Qt::Key_End);
        QVERIFY(arrow(5) && !arrow(menu.height() - 6));
        QCOMPARE(itemColor(menu, 499), kHover);
    }

    void accessible()
    {
        CBPMenu menu;
        fill(menu, 2);
        QAccessibleInterface *face = QAccessible::queryAccessibleInterface(&menu);
        QVERIFY(face);
        QCOMPARE(face->role(), QAccessible::PopupMenu);
        QCOMPARE(face->childCount(), 2);
        QCOMPARE(face->child(1)->role(), QAccessible::MenuItem);
        QCOMPARE(face->child(1)->text(QAccessible::Name), QStringLiteral("Item 1"));
    }

private:
    QWidget m_host;
    QString picture(const char *name, const QColor &color)
    {
        QPixmap pixmap(10, 10);
        pixmap.fill(color);
        const QString file = m_folder.filePath(QLatin1String(name));
        return pixmap.save(file) ? file : QString();
    }

    QTemporaryDir m_folder;
    QString m_red;
    QString m_green;
    QString m_blue;
};

LUMQT_TEST_MAIN(TestMenu)
#include "tst_menu.moc"
