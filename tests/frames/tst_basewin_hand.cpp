#include "FramePointer.h"
#include "RealInput.h"
#include "TestMain.h"

#include <QPushButton>
#include <QScreen>

namespace {

// Moves the real pointer to `at` and a little about there until `done`: what it does before the system has
// it, or while the system lets go of it, is made up for with the next step.
template <class Done> bool reaches(const QPoint &at, Done done)
{
    return QTest::qWaitFor([&] {
        RealInput::moveTo(at + QPoint(1, 0));
        RealInput::moveTo(at);
        return done();
    });
}

} // namespace

// What a person does to the frame with the pointer and the keyboard of the screen, or the system for them.
class TestBaseWinHand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dragging()
    {
        if (QGuiApplication::platformName() != QLatin1String("offscreen"))
            QSKIP("The window system moves the window, with the real pointer");
        TestWin w;
        w.setMinimumSize(300, 200);
        show(w);
        const QRect before = w.geometry();
        const auto drag = [&w](const QPoint &from, const QPoint &way) {
            const QPoint start = w.pos();
            point(w, Press, from);
            point(w, Move, from + way);
            point(w, Release, from + way - (w.pos() - start));
        };
        drag(QPoint(200, 20), QPoint(30, 40));
        QCOMPARE(w.geometry(), before.translated(30, 40));
        drag(QPoint(1, 150), QPoint(-25, 0));
        QCOMPARE(w.geometry(), before.translated(30, 40).adjusted(-25, 0, 0, 0));
        drag(QPoint(1, 1), QPoint(600, 280)); // the other corner stays where it is
        QCOMPARE(w.size(), QSize(300, 200));
        QCOMPARE(w.geometry().bottomRight(), before.bottomRight() + QPoint(30, 40));
        QVERIFY(w.clicked.isEmpty());
        for (const bool wide : {true, false}) { // a side of fixed length cannot be dragged, the other can
            w.setFixedSize(QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
            w.setMinimumSize(0, 0);
            w.resize(300, 200);
            wide ? w.setFixedHeight(200) : w.setFixedWidth(300);
            drag(QPoint(299, 199), QPoint(20, 20));
            QCOMPARE(w.size(), wide ? QSize(320, 200) : QSize(300, 220));
        }
        QTest::mouseDClick(w.windowHandle(), Qt::LeftButton, {}, QPoint(100, 20));
        QVERIFY(w.isMaxState());
    }

    // With the pointer of the screen itself, since the system takes it over in the middle.
    void handOnTheStrip()
    {
        if (!RealInput::available())
            QSKIP("There is no pointer here");
        TestWin w;
        int clicks = 0;
        auto *button = new QPushButton;
        connect(button, &QPushButton::clicked, [&clicks] { ++clicks; });
        w.setCentralWidget(button);
        show(w);
        const auto strip = [&w] { return w.mapToGlobal(origin(w) + QPoint(200, 20)); };
        const auto clickButton = [&] { RealInput::click(button->mapToGlobal(button->rect().center())); };
        // Every pixel counts from the press on.
#ifndef Q_OS_WIN                                 // where the system has always begun with the press
        QApplication::setDoubleClickInterval(0); // until one is meant
        const auto drag = [&](const QPoint &way) {
            const QPoint start = w.pos();
            const QPoint from = strip();
            const int before = w.presses;
            RealInput::moveTo(from);
            RealInput::press();
            QTRY_COMPARE(w.presses, before + 1);
            // The window is not told of its place before the end: the screen is asked where its border is.
            const QPoint border = start + way + QPoint(w.frameWidth() - 1, 150);
            QVERIFY(reaches(from + way, [&] {
                const QPixmap pixel = w.screen()->grabWindow(0, border.x(), border.y(), 1, 1);
                return pixel.toImage().pixelColor(0, 0) == kBorder;
            }));
            RealInput::release();
            QTRY_COMPARE(w.pos(), start + way);
        };
        drag(QPoint(80, 40));
        clickButton();
        QTRY_COMPARE(clicks, 1);
        // A click that is over before the system has the pointer takes hold of nothing.
        const QPoint place = w.pos();
        RealInput::click(strip());
        QTRY_COMPARE(w.clicked, QList<int>{-1});
        QVERIFY(reaches(button->mapToGlobal(QPoint(50, 50)), [&] { return button->underMouse(); }));
        drag(QPoint(3, 2));
        QCOMPARE(w.pos(), place + QPoint(3, 2));
        QApplication::setDoubleClickInterval(60000);
#else
        RealInput::click(strip());
#endif
        RealInput::click(strip());
        QTRY_VERIFY(w.isMaxState());
        // Dragged from the right half of the screen, the window is under the pointer as it was before.
        QTRY_VERIFY(w.width() > 1000);
        const QPoint grabbed = w.mapToGlobal(origin(w) + QPoint(w.width() * 3 / 4, 20));
        RealInput::moveTo(grabbed);
        RealInput::press();
        // From there the pointer would have to be the window manager's own under Wine, which this one is not.
#ifdef Q_OS_WIN
        constexpr int kWay = 5;
#else
        constexpr int kWay = 100;
#endif
        QTimer hand; // the system may keep the event loop to itself until the button comes up
        int way = 0;
        connect(&hand, &QTimer::timeout, [&] {
            way = qMin(way + 5, kWay);
            RealInput::moveTo(grabbed + QPoint(way & 1, way));
            if (way == kWay && !w.isMaxState()) {
                hand.stop();
                RealInput::release();
            }
        });
        hand.start(10);
        QTRY_VERIFY(!hand.isActive());
        QTRY_COMPARE(w.size(), QSize(600, 300));
        const auto inside = [&] { return w.mapFromGlobal(grabbed + QPoint(0, kWay)) - origin(w); };
        QTRY_COMPARE(inside().y(), 20);
        QVERIFY(qAbs(inside().x() - 450) < 5); // the borders count here or do not
        const int before = clicks;
        QTRY_VERIFY((clickButton(), clicks > before));
    }

#ifdef Q_OS_WIN
    // The style of the window has no menu of its own.
    void systemMenu()
    {
        for (const QString way : {"key", "command", "strip", "maximised"}) {
            TestWin w;
            w.refusal = QStringLiteral("exit");
            show(w);
            if (way == QLatin1String("maximised"))
                w.showMaximized();
            const HWND hwnd = HWND(w.winId());
            QVERIFY((GetWindowLongW(hwnd, GWL_STYLE) & ~WS_MAXIMIZE) == (0x06C70000 | WS_VISIBLE));
            for (int id = ListButton; id <= CloseButton; ++id) {
                const QPoint middle = w.globalBtnRect(id).center();
                const LPARAM at = MAKELPARAM(middle.x(), middle.y());
                QCOMPARE(SendMessageW(hwnd, WM_NCHITTEST, 0, at),
                         id == MaximizeButton ? HTMAXBUTTON : HTCAPTION);
            }
            QString states;
            QTimer person; // at the menu, which keeps the event loop to itself
            connect(&person, &QTimer::timeout, [&] {
                const HWND popup = FindWindowW(L"#32768", nullptr);
                if (!popup || !IsWindowVisible(popup))
                    return;
                person.stop();
                const HMENU menu = HMENU(SendMessageW(popup, MN_GETHMENU, 0, 0));
                for (const UINT command : {SC_RESTORE, SC_MOVE, SC_SIZE, SC_MINIMIZE, SC_MAXIMIZE, SC_CLOSE})
                    states += GetMenuState(menu, command, MF_BYCOMMAND) & MF_GRAYED ? '-' : '+';
                // Upwards to the one that closes; a system may have items of its own below.
                for (int i = GetMenuItemCount(menu) - 1; i >= 0 && GetMenuItemID(menu, i + 1) != SC_CLOSE;
                     --i) {
                    if (!(GetMenuState(menu, i, MF_BYPOSITION) & MF_SEPARATOR))
                        PostMessageW(hwnd, WM_KEYDOWN, VK_UP, 0);
                }
                PostMessageW(hwnd, WM_KEYDOWN, VK_RETURN, 0);
            });
            person.start(10);
            const QPoint at = w.mapToGlobal(origin(w) + QPoint(200, 20));
            const LPARAM place = MAKELPARAM(at.x(), at.y());
            if (way == QLatin1String("key"))
                PostMessageW(hwnd, WM_SYSKEYDOWN, VK_SPACE, 1 << 29);
            else if (way == QLatin1String("command"))
                PostMessageW(hwnd, WM_SYSCOMMAND, SC_KEYMENU, VK_SPACE);
            else {
                PostMessageW(hwnd, WM_NCRBUTTONDOWN, HTCAPTION, place);
                PostMessageW(hwnd, WM_NCRBUTTONUP, HTCAPTION, place);
            }
            QTRY_COMPARE(w.exits, 1);
            QCOMPARE(states, QLatin1String(w.isMaxState() ? "+--+-+" : "-+++++"));
        }
    }
#endif
};

LUMQT_TEST_MAIN(TestBaseWinHand)
#include "tst_basewin_hand.moc"
