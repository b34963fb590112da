#include "MenuProbe.h"
#include "TestMain.h"

#include <QIconEngine>
#include <QStyle>
#include <QStyleFactory>

#include <climits>
#include <tuple>

namespace {

// Counts how often an item with this icon is painted.
struct CountingEngine : QIconEngine
{
    int *const count;

    explicit CountingEngine(int *counter) : count(counter) {}
    void paint(QPainter *, const QRect &, QIcon::Mode, QIcon::State) override {}
    QIconEngine *clone() const override { return new CountingEngine(count); }
    QPixmap pixmap(const QSize &size, QIcon::Mode, QIcon::State) override
    {
        ++*count;
        return QPixmap(size);
    }
};

// Settings that are a number of pixels.
void (CBPMenu::*const kNumbers[])(int) = {&CBPMenu::SetSpacing, &CBPMenu::SetDefIconWidth,
                                          &CBPMenu::setSeparatorRectHeight, &CBPMenu::setSeparatorHeight,
                                          &CBPMenu::SetMenuBottomHeight};

// Moves the pointer about in the item until the menu has noticed: it takes no notice of the first move. Some
// styles make a disabled item the active one, others none.
void moveTo(QMenu &menu, int index)
{
    QAction *const item = menu.actions().at(index);
    const auto noticed = [&] {
        return menu.activeAction() == item || (!item->isEnabled() && !menu.activeAction());
    };
    int moves = 0;
    const auto moved = [&] {
        QTest::mouseMove(&menu, itemRect(menu, index).center() + QPoint(++moves % 5, 0));
        return moves > 3 && noticed();
    };
    AWAIT(moved());
}

} // namespace

class TestMenu : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_stage.set(); }

    void init()
    {
        m_stage.activate();
        QCursor::setPos(600, 560);
    }

    void givenSize()
    {
        for (const char *text : {"a", ""}) { // replaced at once, but not without a text
            CBPMenu menu;
            QAction *action = menu.AddAction(QVector<QString>(), QLatin1String(text), 1, QSize(99, 55));
            QCOMPARE(menu.actionGeometry(action).size(), *text ? QSize(249, 40) : QSize(99, 55));
            QCOMPARE(menu.GetMenuWidth(), 153);
        }
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
        menu.SetShowCheckIcon(1, QIcon(m_stage.picture("red")));
        menu.SetShowCheckIcon(3, QIcon(m_stage.picture("red")));
        QVERIFY(menu.actions().at(0)->icon().isNull());
        QVERIFY(!menu.actions().at(2)->icon().isNull());
        menu.SetShowCheckIcon(77, QIcon(m_stage.picture("red")));
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
            for (int i = 0; i < 3; ++i) // the last one is disabled
                QCOMPARE(itemColor(menu, i), i == index && i < 2 ? kHover : kBody);
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
        AWAIT(looked > 0);
        QCOMPARE(itemColor(menu, 2), kHover);
        QCoreApplication::processEvents();
        looked = 0;
        QTest::keyClick(&menu, Qt::Key_Down);
        AWAIT(looked > 0);
        QVERIFY(itemColor(menu, 2) == kBody || menu.activeAction() == menu.actions().at(2));
    }

    // Another style than its own: the keyboard passes disabled items there, too, and the size comes back.
    void otherStyle()
    {
        const QScopedPointer<QStyle> other(QStyleFactory::create(QStringLiteral("windows")));
        for (const bool sheet : {false, true}) {
            CBPMenu menu;
            fill(menu, 4);
            if (sheet)
                menu.setSeparatorRectHeight(17);
            menu.setStyle(other.data());
            QVERIFY(sheet || itemRect(menu, 0).size() != QSize(249, 40)); // a sheet's rule keeps it
            for (const int disabled : {1, 2})
                menu.actions().at(disabled)->setEnabled(false);
            QVERIFY(other->styleHint(QStyle::SH_Menu_AllowActiveAndDisabled)); // it stops at them
            QVERIFY(open(menu));
            for (const auto &[key, to] :
                 {std::pair{Qt::Key_Down, 3}, {Qt::Key_Up, 0}, {Qt::Key_Tab, 3}, {Qt::Key_Backtab, 0}}) {
                menu.setActiveAction(menu.actions().at(3 - to));
                QTest::keyClick(&menu, key);
                QCOMPARE(menu.activeAction(), menu.actions().at(to));
            }
            menu.ResetMenuWidth();
            QCOMPARE(itemRect(menu, 0).size(), QSize(249, 40));
        }
    }

    // What an application says of all menus, or of all widgets, is not said of these items.
    void sizeUnderAStyleSheet()
    {
        for (const char *sheet : {"QMenu::item { padding: 8px 30px; min-height: 60px }",
                                  "* { padding: 9px } QMenu::item:selected { border: 2px solid red }", ""}) {
            CBPMenu menu;
            menu.setSeparatorRectHeight(17);
            fill(menu, 1);
            menu.addSeparator();
            fill(menu, 1);
            menu.setActiveAction(menu.actions().first());
            qApp->setStyleSheet(QLatin1String(sheet));
            QCOMPARE(itemRect(menu, 0), QRect(0, 0, 249, 40));
            QCOMPARE(itemRect(menu, 2), QRect(0, 57, 249, 40));
            menu.SetMenuItemHeiht(50); // the rule goes with the size
            menu.AddAction(QString(60, QLatin1Char('W')), 3);
            QVERIFY(itemRect(menu, 0).width() > 400 && itemRect(menu, 0).height() == 50);
            // Sheets of its own come before and after it is shown.
            CBPMenu late;
            fill(late, 2);
            late.setSeparatorRectHeight(9);
            fill(late, 1);
            QCOMPARE(itemRect(late, 0).size(), QSize(249, 40));
            for (int i = 0; i < 2; ++i) {
                late.setStyleSheet(QString(i, ' ') + "QMenu { color: blue }");
                QVERIFY(open(late));
                QCOMPARE(itemRect(late, 0).size(), QSize(249, 40));
            }
        }
    }

    void numbersOutOfRange()
    {
        for (const int number : {INT_MAX, INT_MIN}) {
            for (const bool nested : {false, true}) {
                CBPMenu menu;
                fill(menu, 2);
                menu.setActiveAction(menu.actions().at(1));
                if (nested)
                    menu.SetSubLeveMennu();
                menu.SetActionSpecialFlag(1, true, QString());
                for (const auto set : kNumbers)
                    (menu.*set)(number);
                menu.SetMenuFontSize(number);
                menu.SetBorder(number, number, number, number);
                menu.SetBordRadios(number);
                menu.SetBorderInfo(number, Qt::red);
                menu.addSeparator();
                QVERIFY(!menu.grab().toImage().isNull());
                menu.SetMenuItemHeiht(number);
                menu.ResetMenuWidth();
                QCOMPARE(itemRect(menu, 0).isEmpty(), number < 0);
            }
        }
    }

    // In a menu that is open.
    void settingsShowAtOnce()
    {
        CBPMenu menu;
        fill(menu, 2);
        QVERIFY(open(menu));
        const QVector<QString> images(4, m_stage.picture("red"));
        menu.setSeparatorRectHeight(8); // with its sheet
        QVector<std::function<void()>> settings{[&] { menu.SetBorder(9, 9, 9, 9); },
                                                [&] { menu.SetBordRadios(9); },
                                                [&] { menu.SetBorderInfo(9, Qt::red); },
                                                [&] { menu.SetFont("Sans", 20); },
                                                [&] { menu.setTextColor(Qt::red); },
                                                [&] { menu.setBg({Qt::green}); },
                                                [&] { menu.SetSubMenuRightIcon(images.first()); },
                                                [&] { menu.SetActionSpecialFlag(1, true, QString()); },
                                                [&] { menu.SetActionRes(1, images); },
                                                [&] { menu.SetSubLeveMennu(); }};
        for (const auto number : kNumbers)
            settings << [&menu, number] { (menu.*number)(9); };
        for (const auto &set : qAsConst(settings))
            QVERIFY(repaints(menu, set));
    }

    void deletedWhileOpen()
    {
        for (const QString by : {"hovered", "triggered", "call", "exec()"}) {
            const QPointer<CBPMenu> menu(new CBPMenu);
            fill(*menu, 3);
            if (by == "exec()") {
                whileOpen(this, menu, [](CBPMenu *opened) { delete opened; });
                QVERIFY(!menu->exec(QPoint(20, 20)));
            } else {
                QVERIFY(open(*menu));
                connect(menu, by == "hovered" ? &QMenu::hovered : &QMenu::triggered, menu,
                        &QObject::deleteLater);
                if (by == "call")
                    delete menu;
                for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return})
                    if (menu)
                        QTest::keyClick(menu, key);
            }
            AWAIT(!menu);
        }
    }

    // What was torn off has the menu's style, which goes with the menu; a style sheet lies between them.
    void tornOff()
    {
        for (const bool sheet : {false, true}) {
            QScopedPointer<CBPMenu> menu(new CBPMenu);
            fill(*menu, 3);
            menu->setTearOffEnabled(true);
            if (sheet)
                menu->setSeparatorRectHeight(17);
            QVERIFY(open(*menu));
            QTest::mouseClick(menu.data(), Qt::LeftButton, {}, QPoint(10, 3));
            AWAIT(menu->isTearOffMenuVisible());
            QPointer<QMenu> torn;
            const auto windows = QApplication::topLevelWidgets();
            for (QWidget *window : windows)
                torn = window->inherits("QTornOffMenu") ? qobject_cast<QMenu *>(window) : torn.data();
            menu->AddAction(QString(60, 'W'), 4);
            QCOMPARE(itemRect(*torn, 3).size(), itemRect(*menu, 3).size());
            QCOMPARE(torn->width(), itemRect(*menu, 3).width());
            menu.reset();
            AWAIT(!torn);
        }
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
        AWAIT(looked > 0);
        QVERIFY(looked < 200); // those on the screen
        looked = 0;
        menu.repaint(itemRect(menu, 3).adjusted(0, 1, 0, -1));
        QCOMPARE(looked, 1);

        // How much wider an arrow is above this height than below it: more than nothing where it points down.
        const auto narrows = [&menu](int y) {
            const QImage image = menu.grab().toImage();
            return boxOf(image.copy(0, y - 1, menu.width(), 1), Qt::white).width() -
                   boxOf(image.copy(0, y + 1, menu.width(), 1), Qt::white).width();
        };
        QVERIFY(narrows(menu.height() - 6) > 0 && narrows(5) == 0);
        QTest::keyClick(&menu, Qt::Key_End);
        QVERIFY(narrows(5) < 0 && narrows(menu.height() - 6) == 0);
        QCOMPARE(itemColor(menu, 499), kHover);
    }

private:
    MenuStage m_stage;
};

LUMQT_TEST_MAIN(TestMenu)
#include "tst_menu.moc"
