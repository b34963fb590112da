#include "Acts.h"
#include "CBPDropdownBtn.h"
#include "CBPMenuBtn.h"
#include "CBPMenuItem.h"
#include "CBPToolButton.h"
#include "Pixels.h"
#include "platform/Platform.h"
#include "Spoken.h"
#include "TestMain.h"

#include <QScreen>
#include <QSignalSpy>

// The menus of buttons, whatever the class, and the drop-down button.

namespace {

constexpr int kFrame = 3; // of the system, in these tests
constexpr int kCaption = 11;
const QString kText = QStringLiteral("More");

CBPPushBtn *pushButton()
{
    auto *button = new CBPPushBtn(kText, nullptr, true);
    button->setHasMenu(true);
    return button;
}

const Click kWays[] = {Click::Left, Click::Space, Click::Enter, Click::Tool};

void clickAsDefault(QWidget *button, Click how)
{
    if (auto *push = qobject_cast<QPushButton *>(button))
        push->setDefault(true); // for Enter
    click(button, how);
}

} // namespace

class TestDropdown : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        lumqt::platform::answers().frameWidth = [](const QWidget *) { return kFrame; };
        lumqt::platform::answers().captionHeight = [](const QWidget *) { return kCaption; };
    }

    // Each way to click opens the menu, once, and is no click.
    void opens()
    {
        const auto check = [this](auto *made, const char *signal, QAccessible::Role role) {
            const QScopedPointer<std::remove_pointer_t<decltype(made)>> button(made);
            button->show();
            QSignalSpy clicked(made, signal);
            QSignalSpy chosen(made, SIGNAL(sigActionTriggered(CBPMenuItem *)));
            if (!qobject_cast<CBPToolButton *>(made)) { // which is no button with a menu yet
                for (const Click how : kWays)
                    clickAsDefault(made, how); // there is nothing to open
            }
            made->AppendMenuItem(QString(), "One", 11);
            made->AppendMenuItem("none.png", "Two", 12);
            CBPMenu *menu = made->GetMenu();
            QCOMPARE(menu->actions().size(), 2);
            QSignalSpy opened(menu, &QMenu::aboutToShow);
            const bool ownPlace = qobject_cast<CBPDropdownBtn *>(made);
            const QPoint place(0, made->height() + (ownPlace ? 2 : 46 - kFrame - kCaption + 1));
            int times = 0;
            for (const Click how : kWays) {
                whileOpen(this, menu, [&](CBPMenu *open) {
                    QCOMPARE(open->pos(), made->mapToGlobal(place));
                    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return})
                        QTest::keyClick(open, key);
                });
                clickAsDefault(made, how);
                QVERIFY2(opened.count() == ++times && chosen.count() == times, signal);
                QCOMPARE(chosen.last().first().value<CBPMenuItem *>()->data().toInt(), 12);
                const auto *push = qobject_cast<QPushButton *>(made);
                QVERIFY(!push || !push->isDown());
            }
            QAccessibleInterface *face = QAccessible::queryAccessibleInterface(made);
            QCOMPARE(face->role(), role);
            QCOMPARE(face->state().hasPopup, role == QAccessible::ButtonMenu);
            QCOMPARE(spokenName(made), kText);
            click(made, Click::Right);
            made->setEnabled(false);
            for (const Click how : kWays)
                clickAsDefault(made, how);
            QVERIFY2(opened.count() == times && clicked.isEmpty(), signal);
        };
        check(pushButton(), SIGNAL(sigBtnClicked(int)), QAccessible::PushButton);
        check(new CBPMenuBtn(kText), SIGNAL(sigBtnClicked(int)), QAccessible::ButtonMenu);
        check(new CBPToolButton(kText, 7, ENAlignLeft, true), SIGNAL(sigClick(int)), QAccessible::ButtonMenu);
        check(new CBPDropdownBtn(kText, 9), SIGNAL(sigBtnClicked(int)), QAccessible::ButtonMenu);
    }

    void lifetimes()
    {
        const auto check = [this](auto make) {
            for (const Click how : kWays) {
                QPointer button = make();
                button->AppendMenuItem(QString(), "One", 1);
                delete button->GetMenu(); // the application's right
                clickAsDefault(button, how);
                QVERIFY(!button->GetMenu());
                button->AppendMenuItem(QString(), "Two", 2);
                const QPointer<CBPMenu> menu = button->GetMenu();
                button->show();
                whileOpen(this, menu, [&](CBPMenu *) { delete button.data(); });
                clickAsDefault(button, how);
                QVERIFY(!button);
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                QVERIFY(!menu);
            }
        };
        check(pushButton);
        check([] { return new CBPMenuBtn(kText); });
        check([] { return new CBPToolButton(kText, 7, ENAlignLeft, true); });
        check([] { return new CBPDropdownBtn(kText, 9); });
    }

    // A tool button takes menus of others, too, and the menu goes with it unless it is "shrinked".
    void toolMenus()
    {
        CBPToolButton button(QString(), 7, ENAlignLeft, true);
        button.setToolTip("Tip");
        CBPMenu sub(kText);
        button.SetMenu(&sub); // it has none to replace
        button.AppendSubMenu(nullptr);
        QVERIFY(!button.GetMenu());
        button.AppendSubMenu(&sub);
        QCOMPARE(button.GetMenu()->actions().size(), 1);
        QCOMPARE(spokenName(&button), QStringLiteral("Tip"));
        for (const bool stays : {false, true}) {
            button.show();
            button.setIsShrinked(stays);
            bool visible = !stays;
            whileOpen(this, button.GetMenu(), [&](CBPMenu *menu) {
                button.hide();
                visible = menu->isVisible();
            });
            QTest::keyClick(&button, Qt::Key_Down);
            QCOMPARE(visible, stays);
        }
        const QPointer<CBPMenu> own = button.GetMenu();
        CBPMenu given;
        QAction *item = given.AddAction("Three", 3);
        button.SetMenu(&given);
        QCOMPARE(button.GetMenu(), &given);
        QSignalSpy chosen(&button, &CBPToolButton::sigActionTriggered);
        emit given.triggered(item);
        QVERIFY(chosen.isEmpty());
        button.SetMenu(nullptr);
        click(&button, Click::Left);
        QVERIFY(own);
    }

    // The triangle stands where it does for a button without a text: half of the spacing right of the middle.
    void pushTriangle()
    {
        CBPPushBtn button(kText, nullptr, true);
        QVERIFY(!button.GetMenu());
        button.AppendMenuItem(QString(), "One", 11);
        QCOMPARE(button.minimumWidth(), 95);
        const QRect arrow = boxOf(pictureOf(button, 1), QColor(127, 134, 143));
        QVERIFY(QRect((95 - 10) / 2 + 10, 12, 8, 4).contains(arrow));
        QVERIFY(arrow.width() >= 4 && arrow.height() >= 2);
    }

    void splitButton()
    {
        CBPDropdownBtn button("Sort", 9);
        button.AppendSubMenu(nullptr);
        QVERIFY(!button.GetMenu());
        button.AppendMenuItem(QString(), "One", 11);
        button.setSplit(true);
        button.resize(button.sizeHint());
        button.show();
        const QPoint arrow(button.width() - 10, 10);
        QSignalSpy clicked(&button, &CBPDropdownBtn::sigBtnClicked);
        QSignalSpy shown(button.GetMenu(), &QMenu::aboutToShow);
        click(&button, Click::Left); // on the text
        QCOMPARE(clicked.takeFirst().first().toInt(), 9);
        QVERIFY(shown.isEmpty());
        // The press on the button that closes the menu does not open it again.
        whileOpen(this, button.GetMenu(), [&](CBPMenu *menu) {
            QVERIFY(QAccessible::queryAccessibleInterface(&button)->state().expanded);
            menu->hide();
            for (const QPoint &at : {arrow, QPoint(5, 10)}) {
                sendMouse(button, QEvent::MouseButtonPress, Qt::LeftButton, at);
                sendMouse(button, QEvent::MouseButtonRelease, Qt::LeftButton, at);
            }
        });
        sendMouse(button, QEvent::MouseButtonPress, Qt::LeftButton, arrow);
        QVERIFY(shown.count() == 1 && button.state() != 2);
        whileOpen(this, button.GetMenu(), [](CBPMenu *) {});
        QTest::keyClick(&button, Qt::Key_F4);
        QCOMPARE(shown.count(), 2);
        QTimer::singleShot(50, button.GetMenu(), &QMenu::close); // in case they open it
        for (const Qt::KeyboardModifier with : {Qt::AltModifier, Qt::ControlModifier}) {
            QKeyEvent key(QEvent::KeyPress, Qt::Key_F4, with); // closes windows
            QCoreApplication::sendEvent(&button, &key);
            QVERIFY(!key.isAccepted());
        }
        button.setEnabled(false);
        button.OpenMenu();
        button.setEnabled(true);
        QCOMPARE(shown.count(), 2);
        // Released over the triangle, or without the focus, a press on the text is nothing.
        sendMouse(button, QEvent::MouseButtonPress);
        QCOMPARE(button.state(), 2);
        sendMouse(button, QEvent::MouseButtonRelease, Qt::LeftButton, arrow);
        sendMouse(button, QEvent::MouseButtonPress);
        sendFocus(button, QEvent::FocusOut);
        sendMouse(button, QEvent::MouseButtonRelease);
        QVERIFY(clicked.isEmpty());
    }

    void menuLeavesTheButtonFree()
    {
        CBPDropdownBtn button("Sort", 9);
        button.AppendMenuItem(QString(), "One", 11);
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        for (const int y : {screen.top() + 50, screen.bottom() - 60}) {
            button.move(screen.left() + 50, y);
            button.show();
            QRect place;
            bool left = true;
            whileOpen(this, button.GetMenu(), [&](CBPMenu *menu) {
                place = menu->geometry();
                button.hide();
                left = menu->isVisible();
            });
            button.OpenMenu();
            QVERIFY(place.isValid() && screen.contains(place));
            QVERIFY(!place.intersects(QRect(button.mapToGlobal(QPoint(0, 0)), button.size())));
            QVERIFY(!left);
        }
    }

    void looks()
    {
        const QVector<QColor> four{Qt::red, Qt::green, Qt::blue, Qt::cyan};
        for (const int count : {0, 3, 4, 5}) { // only four are taken
            CBPDropdownBtn button("A text that has no room", 1);
            button.setSplit(true);
            button.resize(count == 5 ? 8 : 100, 28);
            button.setBgColor(four.mid(0, count));
            button.setTriangleColor(four.mid(0, count));
            for (int state = 0; state < 4; ++state) {
                button.setEnabled(state != 3);
                button.setState(state);
                const QImage image = button.grab().toImage();
                if (count == 4)
                    QCOMPARE(image.pixelColor(3, 14), four[state]);
                const QColor builtIn(state == 3 ? "#a0a0a0" : "#228fc2");
                if (count != 5)
                    QCOMPARE(image.pixelColor(87, 13), count == 4 ? four[state] : builtIn);
            }
        }
    }
};

LUMQT_TEST_MAIN(TestDropdown)
#include "tst_dropdown.moc"
