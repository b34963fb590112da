#include "Acts.h"
#include "CBPMenu.h"
#include "CBPMenuItem.h"
#include "foundation/FontLookup.h"
#include "Pictures.h"
#include "Pixels.h"
#include "platform/Platform.h"
#include "TestMain.h"

#include <QBitmap>
#include <QFontMetrics>
#include <QIconEngine>
#include <QPainter>
#include <QStyle>
#include <QStyleFactory>
#include <QTemporaryDir>

#include <climits>

namespace {

const QColor kHover(75, 174, 178);
const QColor kBody(60, 67, 75);
const QColor kDot(0xe0, 0x20, 0x20);
const QColor kLime(0, 255, 0);

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

// The colour without its alpha. The body's two translucent layers may round one step beside kBody.
QColor colorAt(QWidget &menu, const QPoint &pos)
{
    QColor color = pixelOf(menu.grab().toImage(), pos.x(), pos.y());
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

// Of what has this colour, in the item.
QRect boxIn(QMenu &menu, int index, const QColor &color)
{
    return boxOf(menu.grab(itemRect(menu, index)).toImage(), color);
}

const auto isInk = [](const QColor &color) { return color.lightness() > 90; };
const auto isBright = [](const QColor &color) { return color.lightness() > 170; };
const auto isRed = [](const QColor &color) { return color.red() > 150 && color.green() < 60; };

// Leftmost pixel column of the item, from `from` on, that has a pixel for which `is` holds; -1 for none.
int findColumn(QMenu &menu, int index, int from, bool (*is)(const QColor &))
{
    const QImage image = menu.grab().toImage();
    const QRect rect = itemRect(menu, index);
    for (int x = from; x <= rect.right(); ++x) {
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            if (is(image.pixelColor(x, y)))
                return x;
        }
    }
    return -1;
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

class TestMenu : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        for (const char *name : {"red", "lime", "blue"})
            savePicture(picture(name), QSize(10, 10), QColor(QLatin1String(name)));
        m_host.setGeometry(700, 300, 100, 100);
        showActive(m_host);
    }

    void init() { QCursor::setPos(600, 560); }

    void itemSize()
    {
        const auto check = [](const QString &text, bool subMenu, const QSize &given, const QSize &expected) {
            CBPMenu sub(QStringLiteral("Sub"));
            CBPMenu menu;
            if (subMenu)
                menu.AddMenu(&sub);
            QAction *action = given.isValid() ? menu.AddAction(QVector<QString>(), text, 1, given)
                                              : menu.AddAction(text, 1);
            QCOMPARE(menu.actionGeometry(action).size(), expected);
            QCOMPARE(menu.GetMenuWidth(), 153);
        };
        check("a", false, QSize(), QSize(249, 40));
        check("a", true, QSize(), QSize(260, 40)); // room for an arrow
        const QString wide(60, QLatin1Char('W'));
        check(wide, false, QSize(), QSize(QFontMetrics(lumqt::uiFont()).horizontalAdvance(wide) + 49, 40));
        // A size of one's own is replaced at once, but not without a text.
        check("a", false, QSize(99, 55), QSize(249, 40));
        check("", false, QSize(99, 55), QSize(99, 55));
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
        menu.SetShowCheckIcon(1, QIcon(picture("red")));
        menu.SetShowCheckIcon(3, QIcon(picture("red")));
        QVERIFY(menu.actions().at(0)->icon().isNull());
        QVERIFY(!menu.actions().at(2)->icon().isNull());
        menu.SetShowCheckIcon(77, QIcon(picture("red")));
        QVERIFY(menu.actions().at(2)->icon().isNull());
    }

    void mouseAndKeyboard()
    {
        CBPMenu menu;
        fill(menu, 3);
        menu.actions().at(2)->setEnabled(false);
        QVERIFY(open(menu));
        QCOMPARE(itemColor(menu, 0), kBody);
        for (const int index : {0, 2, 1, 0}) {
            moveTo(menu, index);
            QTRY_COMPARE(itemColor(menu, 0), index == 0 ? kHover : kBody);
            QTRY_COMPARE(itemColor(menu, 1), index == 1 ? kHover : kBody);
            QCOMPARE(itemColor(menu, 2), kBody); // disabled
        }
        QList<int> chosen;
        connect(&menu, &QMenu::triggered, this, [&chosen](QAction *action) {
            QVERIFY(qobject_cast<CBPMenuItem *>(action));
            chosen << action->data().toInt();
        });
        QTest::keyClick(&menu, Qt::Key_Down);
        // The cursor still rests on the first item.
        QCOMPARE(itemColor(menu, 1), kHover);
        QCOMPARE(itemColor(menu, 0), kBody);
        QTest::keyClick(&menu, Qt::Key_Return);
        QVERIFY(!menu.isVisible());
        QCOMPARE(chosen, QList<int>{2});
        QVERIFY(open(menu));
        QTest::keyClick(&menu, Qt::Key_0); // a mnemonic
        QCOMPARE(chosen, (QList<int>{2, 1}));
        QVERIFY(open(menu));
        QTest::keyClick(&menu, Qt::Key_Escape);
        QVERIFY(!menu.isVisible());
        QCOMPARE(chosen.size(), 2);
        QAccessibleInterface *face = QAccessible::queryAccessibleInterface(&menu);
        QCOMPARE(face->role(), QAccessible::PopupMenu);
        QCOMPARE(face->childCount(), 3);
        QCOMPARE(face->child(1)->role(), QAccessible::MenuItem);
        QCOMPARE(face->child(1)->text(QAccessible::Name), QStringLiteral("Item 1"));
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
            return menu.grab().toImage().copy(0, 0, 240, 40); // the width counts marks and tabs
        };
        QCOMPARE(look("Cut && paste"), look("Cut & paste"));
        QCOMPARE(look("Cut\tCtrl+X"), look("Cut"));
        QVERIFY(look("Cut & paste") != look("Cut  paste"));
        QCOMPARE(look("&Cut") != look("Cut"), underlines);
    }

    void textPlace()
    {
        const auto check = [](void (*set)(CBPMenu &), int shift) {
            CBPMenu menu;
            menu.AddAction(QStringLiteral("Item"), 1);
            const int before = findColumn(menu, 0, 0, isInk);
            QVERIFY(before >= 26 && before <= 29); // behind margin, icon column and spacing
            set(menu);
            QCOMPARE(findColumn(menu, 0, 0, isInk) - before, shift);
        };
        check([](CBPMenu &menu) { menu.SetSpacing(20); }, 14);
        check([](CBPMenu &menu) { menu.SetDefIconWidth(30); }, 16);
        check([](CBPMenu &menu) { menu.SetDefIconWidth(0); }, -14);
        check([](CBPMenu &menu) { menu.SetBorder(10, 90, 90, 90); }, 4);
    }

    void textLook()
    {
        CBPMenu menu;
        fill(menu, 2);
        menu.actions().at(1)->setEnabled(false);
        QVERIFY(findColumn(menu, 0, 0, isBright) > 0);
        QVERIFY(findColumn(menu, 1, 0, isBright) < 0); // disabled: dimmed
        QVERIFY(findColumn(menu, 1, 0, isInk) > 0);
        QVERIFY(findColumn(menu, 0, 0, isRed) < 0);
        menu.setTextColor(Qt::red);
        QVERIFY(findColumn(menu, 0, 0, isRed) > 0);
        const int width = QFontMetrics(lumqt::uiFont()).horizontalAdvance(QStringLiteral("Item 0"));
        QVERIFY(findColumn(menu, 0, 26 + width, isRed) < 0);
        menu.SetFont(lumqt::uiFont().family(), 28);
        QVERIFY(findColumn(menu, 0, 26 + width + 4, isRed) > 0);
    }

    void images()
    {
        const auto check = [this](const QVector<QString> &files, const QColor &normal,
                                  const QColor &hovered) {
            CBPMenu menu;
            menu.AddAction(files, QStringLiteral("Text"), QStringLiteral("key"));
            QVERIFY(open(menu));
            const QPoint middle(6 + 5, 20);
            QCOMPARE(colorAt(menu, middle), normal);
            menu.setActiveAction(menu.actions().first());
            QCOMPARE(colorAt(menu, middle), hovered);
            menu.ResetActionRes(QStringLiteral("other"), {});
            if (normal == Qt::red)
                QCOMPARE(colorAt(menu, middle), QColor(Qt::red)); // only the icon is left
            menu.SetActionRes(QStringLiteral("key"), QVector<QString>(4, picture("blue")));
            QCOMPARE(boxIn(menu, 0, Qt::blue), QRect(6, 15, 10, 10));
            menu.SetBorder(10, 1, 2, 3); // the others have no effect
            QCOMPARE(boxIn(menu, 0, Qt::blue), QRect(10, 15, 10, 10));
            QCOMPARE(itemRect(menu, 0), QRect(0, 0, 249, 40));
        };
        const QString red = picture("red");
        const QString green = picture("lime");
        const QString missing = picture("missing");
        check({red, green, red, red}, Qt::red, Qt::green);
        check({red, missing, green, green}, Qt::red, Qt::red); // the icon
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
        QCOMPARE(findColumn(menu, 1, 0, isRed), 26 + width + 6);
        menu.SetActionSpecialFlag(2, true, picture("lime"));
        QVERIFY(boxIn(menu, 1, kDot).isEmpty() && !boxIn(menu, 1, kLime).isEmpty());
        QString file = QStringLiteral("untouched");
        QVERIFY(!menu.IsActionSpecial(1, file));
        QCOMPARE(file, QStringLiteral("untouched"));
        QVERIFY(menu.IsActionSpecial(2, file));
        QCOMPARE(file, picture("lime"));
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
                QVERIFY(!menu.grab().toImage().isNull());
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

    void deletedWhileOpen()
    {
        for (const char *by : {"hovered", "triggered", "timer", "timer in exec()"}) {
            const QPointer<CBPMenu> menu(new CBPMenu);
            fill(*menu, 3);
            if (QByteArray(by).startsWith("timer"))
                QTimer::singleShot(50, this, [menu] { delete menu; });
            if (QByteArray(by).endsWith("exec()")) {
                QVERIFY(!menu->exec(QPoint(20, 20)));
                QVERIFY2(!menu, by);
                continue;
            }
            QVERIFY(open(*menu));
            if (!QByteArray(by).startsWith("timer")) {
                connect(menu, by == QLatin1String("hovered") ? &QMenu::hovered : &QMenu::triggered, menu,
                        &QObject::deleteLater);
                QTest::keyClick(menu, Qt::Key_Down);
                QTest::keyClick(menu, Qt::Key_Return);
            }
            QTRY_VERIFY2(!menu, by);
        }
    }

    void subMenuAndArrow()
    {
        CBPMenu menu;
        auto *sub = new CBPMenu(QString(30, QLatin1Char('W')));
        QAction *action = menu.AddMenu(sub);
        CBPMenuItem item(QStringLiteral("bound"), 1);
        item.setBindMenu(sub);
        const QRect rect = menu.actionGeometry(action);
        menu.SetSubMenuRightIcon(picture("lime"));
        const QRect arrow(rect.right() - 17, 15, 10, 10); // 8 from the edge and 6 from the text
        QCOMPARE(boxIn(menu, 0, kLime), arrow);
        // Measured at one size and painted at another, a text does not fit.
        menu.SetFont(lumqt::uiFont().family(), 28);
        QVERIFY(findColumn(menu, 0, arrow.left() - 80, isInk) < arrow.left() - 6);
        QCOMPARE(findColumn(menu, 0, arrow.left() - 6, isInk), arrow.left());
        QCOMPARE(item.bindMenu(), sub);
        delete sub;
        QVERIFY(!item.bindMenu());
        fill(menu, 1);
        QVERIFY(boxIn(menu, 0, kLime).isEmpty());
        QCOMPARE(itemRect(menu, 0).width(), rect.width() - 11); // without room for an arrow
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
        const auto check = [](bool nested, int border, int index, int count, bool squareTop,
                              bool squareBottom) {
            Menu menu;
            menu.SetBorderInfo(border, Qt::white);
            if (nested)
                menu.SetSubLeveMennu();
            QImage image(60, 40, QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::transparent);
            QPainter painter(&image);
            menu.PaintAction(&painter, image.rect(), index, count);
            painter.end();
            const int inset = nested ? 2 : 0;
            for (const int x : {inset, image.width() - 1 - inset}) {
                QCOMPARE(image.pixelColor(x, 0).alpha() == 255, squareTop);
                QCOMPARE(image.pixelColor(x, 39).alpha() == 255, squareBottom);
                QCOMPARE(image.pixelColor(x, 20), kHover);
            }
            QCOMPARE(image.pixelColor(1, 20).alpha(), nested ? 0 : 255);
        };
        check(false, 0, 0, 3, true, true);
        check(false, 0, 2, 3, true, false);
        check(false, 0, 0, 1, true, false);
        check(false, 1, 2, 3, true, true); // a border leaves room for the corners
        check(true, 0, 0, 1, false, false);
        check(true, 0, 0, 3, false, true);
        check(true, 0, 1, 3, true, false);
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

private:
    QString picture(const char *name) { return m_folder.filePath(QLatin1String(name) + ".png"); }

    QWidget m_host; // menus of an application without an active window are closed by the system at once
    QTemporaryDir m_folder;
};

LUMQT_TEST_MAIN(TestMenu)
#include "tst_menu.moc"
