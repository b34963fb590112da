#include "Acts.h"
#include "Await.h"
#include "FramePointer.h"
#include "platform/Platform.h"
#include "RealInput.h"
#include "Rows.h"
#include "TestMain.h"

#include <QPointer>
#include <QPushButton>
#include <QScreen>

namespace {

const QColor kTitleLine(221, 221, 221);

#ifdef Q_OS_WIN
QRect rectOf(const RECT &rect)
{
    return QRect(QPoint(rect.left, rect.top), QPoint(rect.right - 1, rect.bottom - 1));
}
#endif

} // namespace

class TestBaseWin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        lumqt::platform::answers() = m_answers;
        QApplication::setDoubleClickInterval(m_doubleClick);
        RealInput::release();
        if (RealInput::available()) // where no window comes up under it
            QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
    }

    // At every scaling: nothing shows through between the client area and its border.
    void borderTouchesClient()
    {
        TestWin w;
        show(w);
#ifdef Q_OS_WIN
        const auto clientOnScreen = [&w] {
            RECT rect;
            GetClientRect(HWND(w.winId()), &rect);
            MapWindowPoints(HWND(w.winId()), nullptr, reinterpret_cast<POINT *>(&rect), 2);
            return rectOf(rect);
        };
        RECT window;
        GetWindowRect(HWND(w.winId()), &window);
        const QRect client = clientOnScreen().translated(-window.left, -window.top);
        const QImage image = frameImage(w, QRect(QPoint(0, 0), rectOf(window).size()));
#else
        const qreal ratio = w.devicePixelRatioF();
        const QRect contents = w.contentsRect();
        const QRect client(
            QPoint(qRound(contents.left() * ratio), qRound(contents.top() * ratio)),
            QPoint(qRound((contents.right() + 1) * ratio) - 1, qRound((contents.bottom() + 1) * ratio) - 1));
        const QImage image = w.grab().toImage().convertToFormat(QImage::Format_RGB32);
#endif
        const int line = qRound(w.devicePixelRatioF()); // how wide it is
        const int below = client.height() + line;
        for (const QRect &border :
             {QRect(client.left() - line, client.top(), line, below),
              QRect(client.right() + 1, client.top(), line, below),
              QRect(client.left() - line, client.bottom() + 1, client.width() + 2 * line, line)})
            QVERIFY(filled(image, border, kBorder));
        QVERIFY(image.pixelColor(client.left() - line - 1, client.top()) != kBorder);
        QCOMPARE(image.pixelColor(client.right() + line, client.top() - 8), kBorder);
        QCOMPARE(image.pixelColor(client.right(), client.top() - 8), QColor(Qt::white));
        QCOMPARE(image.pixelColor(client.right(), client.top() - 1), kTitleLine);
#ifdef Q_OS_WIN
        // Maximised there is no border beside it, and in full screen no frame at all.
        MONITORINFO monitor = {};
        monitor.cbSize = sizeof monitor;
        GetMonitorInfoW(MonitorFromWindow(HWND(w.winId()), MONITOR_DEFAULTTONEAREST), &monitor);
        w.showMaximized();
        const int strip = qRound(38 * w.devicePixelRatioF());
        AWAIT_EQUAL(clientOnScreen(), rectOf(monitor.rcWork).adjusted(0, strip, 0, 0));
        w.showFullScreen();
        AWAIT_EQUAL(clientOnScreen(), rectOf(monitor.rcMonitor));
        w.showNormal();
        AWAIT_EQUAL(w.size(), QSize(600, 300));
#endif
    }

    // What a hook has refused changes nothing but the looks.
    void buttons()
    {
        TestWin w;
        w.refusal = "hook";
        show(w);
        QVERIFY(shows(w, CloseButton, "close_normal"));
        for (const auto &[action, image] :
             {std::pair(Move, "close_hover"), std::pair(Press, "close_press")}) {
            point(w, action, on(w, CloseButton));
            QVERIFY(shows(w, CloseButton, image));
        }
        point(w, Move, on(w, MinimizeButton));
        QVERIFY(shows(w, CloseButton, "close_normal"));
        QVERIFY(shows(w, MinimizeButton, "minimize_hover"));
        point(w, Release, on(w, ListButton)); // what counts is where the button comes up
        QVERIFY(shows(w, MinimizeButton, "minimize_normal"));
        QVERIFY(shows(w, ListButton, "list_normal"));
        // The caption, the icon, which swallows the click, and a button's image below where one presses it.
        for (const QPoint &at :
             {QPoint(200, 20), QPoint(16, 20), painted(w, CloseButton).bottomLeft() + QPoint(8, 0)}) {
#ifndef Q_OS_WIN // the system would begin to drag the window
            point(w, Press, at);
#endif
            point(w, Release, at);
        }
        QCOMPARE(w.clicked, (QList<int>{ListButton, -1, -1}));
#ifndef Q_OS_WIN // where a state lasts until the next message of the frame, and the system has the border
        for (const QPoint &away : {QPoint(100, 200), QPoint(-20, -20)}) {
            point(w, Move, on(w, CloseButton));
            QVERIFY(shows(w, CloseButton, "close_hover"));
            point(w, Move, away);
            QVERIFY(shows(w, CloseButton, "close_normal"));
        }
        // A pointer that moves costs what the buttons do, whatever the size of the window.
        const QPoint first(painted(w, ListButton).left() - 5, 0); // where there is no image 0
        const QPoint last(w.contentsRect().right() + w.frameWidth(), w.titleHight() - 1);
        const QRect strip(first + origin(w), last + QPoint(0, origin(w).y()));
        AWAIT(
            (point(w, Move, on(w, CloseButton)), QCoreApplication::processEvents(), w.lastPainted == strip));
        w.setCursor(Qt::CrossCursor);
        point(w, Move, QPoint(1, 150));
        QCOMPARE(w.cursor().shape(), Qt::SizeHorCursor);
        point(w, Move, QPoint(100, 200));
        QCOMPARE(w.cursor().shape(), Qt::CrossCursor);
#endif

        // A quick second click on a button or the icon is a click, and does not maximise.
        w.refusal.clear();
        w.clicked.clear();
        doubleClick(w, on(w, ListButton));
        doubleClick(w, QPoint(16, 20)); // the icon
        QCoreApplication::processEvents();
        QVERIFY(!w.isMaxState());
        QCOMPARE(w.clicked, (QList<int>{ListButton, ListButton}));

        click(w, on(w, MaximizeButton));
        AWAIT(w.isMaxState());
        AWAIT(shows(w, MaximizeButton, "maximize_restore_normal"));
        // All of the strip and of the client area lies on the screen, and nearly fills it: some window
        // managers move a maximised window whose border hangs over.
        const QRect screen = w.screen()->availableGeometry();
        const auto fills = [&w, &screen] {
            const QRect client(w.mapToGlobal(w.contentsRect().topLeft()), w.contentsRect().size());
            return screen.contains(client.adjusted(0, -38, 0, 0)) &&
                   client.width() >= screen.width() - 2 * w.frameWidth();
        };
        AWAIT(fills());
        click(w, on(w, MaximizeButton));
        AWAIT(!w.isMaxState());
        AWAIT_EQUAL(w.size(), QSize(600, 300));
        AWAIT(shows(w, MaximizeButton, "maximize_normal"));
        click(w, on(w, MinimizeButton));
        AWAIT(w.isMinimized());
        QCOMPARE(w.clicked.mid(2), (QList<int>{4, 4, 3}));
    }

    void closing_data()
    {
        columns<QString, QString, int>("way", "refusal", "exits"); // -1: deleted in the middle
        row("button", "button", "", 1);
        row("close()", "close", "", 1);
        row("onExit()", "exit", "", 1);
        row("button, hook answers true", "button", "hook", 0);
        row("button, onExit() refuses", "button", "exit", 1);
        row("close(), onExit() refuses", "close", "exit", 1);
        row("close(), closeEvent() refuses", "close", "event", 0);
        row("hook deletes", "button", "die", -1);
        for (const char *way : {"button", "close", "system"})
            QTest::addRow("%s, slot of sigQuit() deletes", way) << way << "quit" << -1;
    }
    void closing()
    {
        QFETCH(QString, way);
        QFETCH(QString, refusal);
        QFETCH(int, exits);
        QApplication::setQuitOnLastWindowClosed(false); // what ends the application is onExit()
        const QPointer<TestWin> w(new TestWin);
        w->refusal = refusal;
        show(*w);
        int quits = 0;
        connect(w, &CBaseWin::sigQuit, [&](void *sender) {
            QCOMPARE(sender, static_cast<void *>(static_cast<QObject *>(w)));
            QVERIFY(w->isHidden());
            ++quits;
            w->close(); // closing again from inside changes nothing
            w->exitAgain();
            if (w->refusal == "quit")
                delete w;
        });
        QTimer::singleShot(0, [&] {
            if (way == "button")
                click(*w, on(*w, CloseButton));
            else if (way == "exit")
                w->exit();
            else if (way == "close")
                QCOMPARE(w->close(), exits != 0 && refusal != "exit");
            else
#ifdef Q_OS_WIN
                SendMessageW(HWND(w->winId()), WM_CLOSE, 0, 0);
#else
                closeBySystem(*w);
#endif
            QTimer::singleShot(0, [] { QCoreApplication::exit(9); });
        });
        const bool ends = refusal.isEmpty() || refusal == "quit";
        QCOMPARE(QCoreApplication::exec(), ends ? 0 : 9);
        QCOMPARE(quits, ends ? 1 : 0);
        QCOMPARE(!w, exits < 0);
        if (w) {
            QCOMPARE(w->exits, exits);
            QCOMPARE(w->isVisible(), !ends);
        }
        delete w;
    }

    void sizes()
    {
        QWidget parent;
        TestWin w(&parent);
        QCOMPARE(w.parentWidget(), &parent);
        QVERIFY(w.isWindow());
        QVERIFY(w.btnRect(CloseButton).isNull() && w.globalBtnRect(CloseButton).isNull());
        w.resize(20, 20);
        QVERIFY(w.width() > 150);
        auto *content = new QWidget;
        w.setCentralWidget(content);
        show(w);
        QCOMPARE(w.geometry().size(), QSize(600, 300));
        QCOMPARE(w.pos(), QPoint(60, 60));
        w.resize(20, 20);
        for (int id : {1, 4, 5})
            AWAIT_EQUAL(w.btnRect(id), painted(w, id).adjusted(-w.frameWidth(), 0, 0, 0));
        for (int id : {-1, 6, 7})
            QVERIFY(w.btnRect(id).isNull() && w.globalBtnRect(id).isNull());
        QVERIFY(w.globalBtnRect(0).isNull());
        // Beside its own there is the content's; the application's counts alone.
        const QSize frame = w.size() - w.contentsRect().size();
        content->setMinimumSize(400, 100);
        AWAIT_EQUAL(w.minimumSize(), QSize(400, 100) + frame);
        w.setMinimumSize(100, 70);
        w.resize(20, 20);
        AWAIT_EQUAL(w.size(), QSize(100, 70));
        w.setMinimumSize(0, 0);
        content->setMinimumSize(50, 30);
        AWAIT_EQUAL(w.minimumSize(), QSize(50, 30) + frame);
        // Its own margins lie within the frame, in every state.
        w.resize(300, 200);
        const QRect inside = w.contentsRect().adjusted(10, 10, -10, -10);
        w.setContentsMargins(10, 10, 10, 10);
        AWAIT_EQUAL(content->geometry(), inside);
        w.showMaximized();
        AWAIT(content->height() > 300);
        w.showNormal();
        AWAIT_EQUAL(content->geometry(), inside);
    }

    void captionAndIcon()
    {
        lumqt::platform::answers().frameWidth = [](const QWidget *) { return 8; };
        TestWin w;
        show(w);
        QCOMPARE(w.titleHight(), 46);
        const QRect strip(0, 0, 200, 46);
        QImage before = frameImage(w, strip);
        for (const QString icon : {"keep", "", "../res/no such.png"}) {
            if (icon != "keep")
                w.setIcon(icon);
            w.setCaption("A & B " + icon);
            QCOMPARE(w.accessibleName(), "A & B " + icon);
            AWAIT(frameImage(w, strip) != before);
            before = frameImage(w, strip);
        }
        w.setCaption("two lines");
        before = frameImage(w, strip);
        for (const char *lineBreak : {"\n", "\r", "\r\n", "\v", "\f", "\u2028", "\u2029"}) {
            w.setCaption(QString("two%1lines").arg(lineBreak));
            QCOMPARE(w.accessibleName(), QString("two%1lines").arg(lineBreak));
            QCOMPARE(frameImage(w, strip), before);
        }

        // In the window's font, and always in the library's family.
        w.setFont(QFont(w.font().family(), 20));
        AWAIT((w.setCaption("two lines"), frameImage(w, strip) != before));
        before = frameImage(w, strip);
        w.setFont(QFont("monospace", 20));
        w.setCaption("two lines");
        QCOMPARE(frameImage(w, strip), before);
        const QFont usual = QApplication::font();
        QApplication::setFont(QFont("monospace", 20));
        TestWin other; // which is told of no change
        other.setIcon("../res/no such.png");
        other.setCaption("two lines");
        show(other);
        const QImage first = frameImage(other, strip);
        QApplication::setFont(usual);
        QCOMPARE(first, before);

        // Shown with the next painting, which the pointer brings here.
        before = frameImage(w, strip);
        w.setIcon(Util::getResFullPath("../res/icon_user.png"));
        point(w, Move, QPoint(100, 20));
        AWAIT(frameImage(w, strip) != before);
        before = frameImage(w, strip);
        w.resetIconPath(); // at once
        AWAIT(frameImage(w, strip) != before);
    }

    void dragging()
    {
        if (QGuiApplication::platformName() != "offscreen")
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
        // The window is not told of its place before the end: the screen is asked where its border is.
        const auto standsAt = [&w](const QPoint &place) {
            const QPoint border = place + QPoint(w.frameWidth() - 1, 150);
            const QPixmap pixel = w.screen()->grabWindow(0, border.x(), border.y(), 1, 1);
            return pixel.toImage().pixelColor(0, 0) == kBorder;
        };
        const auto drag = [&](const QPoint &way) {
            const QPoint start = w.pos();
            const QPoint from = strip();
            const int before = w.presses;
            RealInput::moveTo(from);
            RealInput::press();
            AWAIT_EQUAL(w.presses, before + 1);
            QVERIFY(reaches(from + way, [&] { return standsAt(start + way); }));
            RealInput::release();
            AWAIT_EQUAL(w.pos(), start + way);
        };
        drag(QPoint(80, 40));
        clickButton();
        AWAIT_EQUAL(clicks, 1);
        QVERIFY(w.clicked.isEmpty()); // the hand that lets go of the window clicks on nothing
        // A click that is over before the system has the pointer takes hold of nothing.
        RealInput::click(strip());
        AWAIT_EQUAL(w.clicked, QList<int>{-1});
        // The window manager takes one request after another: once it has done this one, it has let go again.
        const QPoint place = w.pos() + QPoint(30, 0);
        w.move(place);
        AWAIT(standsAt(place));
        QVERIFY(reaches(button->mapToGlobal(QPoint(50, 50)), [&] { return button->underMouse(); }));
        drag(QPoint(3, 2));
        QCOMPARE(w.pos(), place + QPoint(3, 2));
        QApplication::setDoubleClickInterval(60000);
#else
        RealInput::click(strip());
#endif
        RealInput::click(strip());
        AWAIT(w.isMaxState());
        // Dragged from the right half of the screen, the window is under the pointer as it was before.
        AWAIT(w.width() > 1000);
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
        AWAIT(!hand.isActive());
        AWAIT_EQUAL(w.size(), QSize(600, 300));
        const auto inside = [&] { return w.mapFromGlobal(grabbed + QPoint(0, kWay)) - origin(w); };
        AWAIT_EQUAL(inside().y(), 20);
        QVERIFY(qAbs(inside().x() - 450) < 5); // the borders count here or do not
        const int before = clicks;
        AWAIT((clickButton(), clicks > before));
    }

#ifdef Q_OS_WIN
    // The style of the window has no menu of its own.
    void systemMenu()
    {
        for (const QString way : {"key", "command", "strip", "maximised"}) {
            TestWin w;
            w.refusal = "exit";
            show(w);
            if (way == "maximised")
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
                const HMENU menu = HMENU(SendMessageW(popup, MN_GETHMENU, 0, 0));
                states.clear();
                for (const UINT command : {SC_RESTORE, SC_MOVE, SC_SIZE, SC_MINIMIZE, SC_MAXIMIZE, SC_CLOSE})
                    states += GetMenuState(menu, command, MF_BYCOMMAND) & MF_GRAYED ? '-' : '+';
                // Upwards to the one that closes, a key at a time: a system may have items of its own below.
                const bool atClose = GetMenuState(menu, SC_CLOSE, MF_BYCOMMAND) & MF_HILITE;
                PostMessageW(hwnd, WM_KEYDOWN, atClose ? VK_RETURN : VK_UP, 0);
            });
            person.start(50); // by messages that come when all others have been taken
            const QPoint at = w.mapToGlobal(origin(w) + QPoint(200, 20));
            const LPARAM place = MAKELPARAM(at.x(), at.y());
            if (way == "key")
                PostMessageW(hwnd, WM_SYSKEYDOWN, VK_SPACE, 1 << 29);
            else if (way == "command")
                PostMessageW(hwnd, WM_SYSCOMMAND, SC_KEYMENU, VK_SPACE);
            else {
                PostMessageW(hwnd, WM_NCRBUTTONDOWN, HTCAPTION, place);
                PostMessageW(hwnd, WM_NCRBUTTONUP, HTCAPTION, place);
            }
            AWAIT_EQUAL(w.exits, 1);
            QCOMPARE(states, QLatin1String(w.isMaxState() ? "+--+-+" : "-+++++"));
        }
    }
#endif

private:
    const lumqt::platform::Answers m_answers = lumqt::platform::answers();
    const int m_doubleClick = QApplication::doubleClickInterval();
};

LUMQT_TEST_MAIN(TestBaseWin)
#include "tst_basewin.moc"
