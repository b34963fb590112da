#include "Acts.h"
#include "CBPDropdownBtn.h"
#include "CBPMenuItem.h"
#include "Pixels.h"
#include "TestMain.h"

#include <QSignalSpy>
#include <QWindow>

class TestDropdown : public QObject
{
    Q_OBJECT

private slots:
    // Whether each way to click opens the menu, or clicks.
    void activation_data()
    {
        QTest::addColumn<bool>("split");
        QTest::addColumn<int>("opened");
        QTest::addColumn<int>("clicked");
        QTest::newRow("whole") << false << 1 << 0;
        QTest::newRow("split") << true << 0 << 1;
    }

    void activation()
    {
        QFETCH(bool, split);
        for (const Click how : {Click::Left, Click::Space, Click::Enter, Click::Tool}) {
            CBPDropdownBtn button(QStringLiteral("Sort"), 9);
            button.setSplit(split);
            click(&button, how); // no menu yet: nothing opens
            button.AppendMenuItem(QString(), QStringLiteral("One"), 11);
            QSignalSpy clicked(&button, &CBPDropdownBtn::sigBtnClicked);
            QSignalSpy opened(button.GetMenu(), &QMenu::aboutToShow);
            button.show();
            QTimer::singleShot(50, button.GetMenu(), &QMenu::close);
            click(&button, how);
            QTEST(opened.count(), "opened");
            QTEST(clicked.count(), "clicked");
            click(&button, Click::Right);
            button.setEnabled(false);
            click(&button, how);
            QTEST(opened.count(), "opened");
            QTEST(clicked.count(), "clicked");
        }
    }

    void menu()
    {
        CBPDropdownBtn button(QStringLiteral("Sort"), 9);
        button.AppendSubMenu(nullptr);
        QVERIFY(!button.GetMenu());
        button.AppendMenuItem(QString(), QStringLiteral("One"), 11);
        CBPMenu sub(QStringLiteral("More"));
        button.AppendSubMenu(&sub);
        button.AppendSubMenu(button.GetMenu()); // refused by the menu
        QCOMPARE(button.GetMenu()->actions().size(), 2);
        button.setSplit(true);
        button.resize(button.sizeHint());
        button.show();
        QSignalSpy clicked(&button, &CBPDropdownBtn::sigBtnClicked);
        QSignalSpy chosen(&button, &CBPDropdownBtn::sigActionTriggered);
        QPoint where;
        whileOpen(this, button.GetMenu(), [&](CBPMenu *menu) {
            where = menu->pos();
            QAccessible::State state = QAccessible::queryAccessibleInterface(&button)->state();
            QVERIFY(state.expanded && state.hasPopup);
            QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Return);
        });
        sendMouse(button, QEvent::MouseButtonPress, Qt::LeftButton, QPoint(button.width() - 10, 10));
        QCOMPARE(where, button.mapToGlobal(QPoint(0, button.height() + 2)));
        QCOMPARE(chosen.count(), 1);
        QCOMPARE(chosen.first().first().value<CBPMenuItem *>()->data().toInt(), 11);
        QVERIFY(button.state() != 2);
        // The press on the button that closes the menu does not open it again.
        QSignalSpy shown(button.GetMenu(), &QMenu::aboutToShow);
        whileOpen(this, button.GetMenu(), [&](CBPMenu *menu) {
            menu->hide();
            for (const int x : {button.width() - 10, 5}) {
                sendMouse(button, QEvent::MouseButtonPress, Qt::LeftButton, QPoint(x, 10));
                sendMouse(button, QEvent::MouseButtonRelease, Qt::LeftButton, QPoint(x, 10));
            }
        });
        QTest::keyClick(&button, Qt::Key_F4);
        QCOMPARE(shown.count(), 1);

        // Released elsewhere, or over the triangle, a press on the text is nothing.
        for (const QPoint &at : {QPoint(5, 300), QPoint(button.width() - 10, 10)}) {
            sendMouse(button, QEvent::MouseButtonPress);
            QCOMPARE(button.state(), 2);
            sendMouse(button, QEvent::MouseButtonRelease, Qt::LeftButton, at);
        }
        sendMouse(button, QEvent::MouseButtonPress);
        sendFocus(button, QEvent::FocusOut);
        sendMouse(button, QEvent::MouseButtonRelease);
        QVERIFY(clicked.isEmpty());
    }

    void lifetimes()
    {
        for (const bool split : {false, true}) {
            for (const Click how : {Click::Left, Click::Space, Click::Enter, Click::Tool}) {
                QPointer<CBPDropdownBtn> button = new CBPDropdownBtn(QStringLiteral("x"), 1);
                button->AppendMenuItem(QString(), QStringLiteral("One"), 1);
                delete button->GetMenu(); // the application's right
                click(button, Click::Left);
                button->AppendMenuItem(QString(), QStringLiteral("Two"), 2);
                const QPointer<CBPMenu> menu = button->GetMenu();
                button->setSplit(split);
                connect(button.data(), &CBPDropdownBtn::sigBtnClicked, this, [&] { delete button.data(); });
                if (!split)
                    whileOpen(this, menu, [&](CBPMenu *) { delete button.data(); });
                click(button, how);
                QVERIFY(!button);
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                QVERIFY(!menu);
            }
        }
    }

    void looks()
    {
        const QVector<QColor> four{Qt::red, Qt::green, Qt::blue, Qt::cyan};
        for (int count = 0; count < 6; ++count) { // only four are taken
            CBPDropdownBtn button(QStringLiteral("A text that has no room"), 1);
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
            }
        }
    }
};

LUMQT_TEST_MAIN(TestDropdown)
#include "tst_dropdown.moc"
