#include "CBaseWin.h"

#include "FramePointer.h"
#include "frames/FrameGeometry.h"
#include "Pixels.h"
#include "platform/Platform.h"
#include "RealInput.h"
#include "Rows.h"
#include "TestMain.h"
#include "Util.h"

#include <QCloseEvent>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace lumqt::frame;

namespace {

const QColor kBorder(34, 133, 212);
const QColor kTitleLine(221, 221, 221);

class TestWin : public CBaseWin
{
public:
    using CBaseWin::CBaseWin;
    using CBaseWin::isMaxState;

    void exit() { onExit(); }
    void exitAgain() { CBaseWin::onExit(); }

    QString refusal; // which hook keeps the window open: "hook", "exit" or "event"
    bool dieOnClick = false;
    QList<int> clicked;
    int exits = 0;
    int presses = 0;

protected:
    bool event(QEvent *event) override
    {
        presses += event->type() == QEvent::MouseButtonPress;
        return CBaseWin::event(event);
    }
    bool titleBtnClicked(int id) override
    {
        clicked += id;
        if (!dieOnClick)
            return refusal == QLatin1String("hook");
        delete this;
        return false;
    }
    void onExit() override
    {
        ++exits;
        if (refusal != QLatin1String("exit"))
            CBaseWin::onExit();
    }
    void closeEvent(QCloseEvent *event) override { event->setAccepted(refusal != QLatin1String("event")); }
};

bool filled(const QImage &image, const QRect &part, const QColor &color)
{
    QImage expected(part.size(), image.format());
    expected.fill(color);
    return image.rect().contains(part) && image.copy(part) == expected;
}

// What a part of the frame shows. The part is physical pixels on Windows.
QImage frameImage(CBaseWin &w, const QRect &part)
{
#ifdef Q_OS_WIN
    QImage image(part.size(), QImage::Format_RGB32);
    const HDC dc = GetWindowDC(HWND(w.winId()));
    for (int y = 0; y < part.height(); ++y) {
        for (int x = 0; x < part.width(); ++x) {
            const COLORREF color = GetPixel(dc, part.x() + x, part.y() + y);
            image.setPixel(x, y, qRgb(GetRValue(color), GetGValue(color), GetBValue(color)));
        }
    }
    ReleaseDC(HWND(w.winId()), dc);
    return image;
#else
    return w.grab(part.translated(origin(w))).toImage().convertToFormat(QImage::Format_RGB32);
#endif
}

QImage resImage(const char *name)
{
    return QImage(Util::getResFullPath(QStringLiteral("../res/%1.png").arg(QLatin1String(name))));
}

QRect buttonRect(CBaseWin &w, int id, decltype(hitRects) *rects)
{
    const QSize glyph = resImage("close_normal").size();
    const ButtonSizes sizes{QSize(0, 0), glyph, resImage("line").size(), glyph, glyph, glyph};
    return rects(w.contentsRect().width() + 2 * w.frameWidth(), w.frameWidth(), sizes)[id];
}

QRect painted(CBaseWin &w, int id)
{
    return buttonRect(w, id, paintedRects);
}

QPoint on(CBaseWin &w, int id)
{
    return buttonRect(w, id, hitRects).center();
}

// Whether button `id` is painted with the image `name` on white.
bool shows(CBaseWin &w, int id, const char *name)
{
    const QImage image = resImage(name);
    QImage expected(image.size(), QImage::Format_RGB32);
    expected.fill(Qt::white);
    QPainter(&expected).drawImage(0, 0, image);
    return !image.isNull() && frameImage(w, painted(w, id)) == expected;
}

void show(CBaseWin &w)
{
    w.resize(600, 300);
    w.move(60, 60);
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QTRY_VERIFY(!w.btnRect(CloseButton).isEmpty());
}

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

class TestBaseWin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { lumqt::platform::answers() = m_answers; }

    void frameOnScreen()
    {
        TestWin w;
        QCOMPARE(w.btnRect(CloseButton), QRect());
        show(w);
        QCOMPARE(w.size(), QSize(600, 300));
        QCOMPARE(w.pos(), QPoint(60, 60));
#ifdef Q_OS_WIN
        RECT client;
        GetClientRect(HWND(w.winId()), &client);
        QCOMPARE(QSize(client.right, client.bottom), w.size());
        QCOMPARE(GetWindowLongW(HWND(w.winId()), GWL_STYLE), LONG(0x06C70000 | WS_VISIBLE));
#endif
        const int fw = w.frameWidth();
        const auto at = [&w](int x, int y) { return frameImage(w, QRect(x, y, 1, 1)).pixelColor(0, 0); };
        QCOMPARE(at(100, fw - 1), kBorder);
        QCOMPARE(at(300, fw), QColor(Qt::white));
        QCOMPARE(w.grab().toImage().pixelColor(w.contentsRect().center()), QColor(Qt::white));
        for (int id : {-1, 6, 7})
            QCOMPARE(w.btnRect(id), QRect());
        QCOMPARE(w.btnRect(MaximizeButton), painted(w, MaximizeButton).adjusted(-fw, 0, 0, 0));
#ifdef Q_OS_WIN
        for (int id = ListButton; id <= CloseButton; ++id) {
            const QPoint middle = w.mapToGlobal(painted(w, id).center() + origin(w));
            QCOMPARE(int(SendMessageW(HWND(w.winId()), WM_NCHITTEST, 0, MAKELPARAM(middle.x(), middle.y()))),
                     id == MaximizeButton ? HTMAXBUTTON : HTCAPTION);
        }
#endif
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
            return QRect(QPoint(rect.left, rect.top), QPoint(rect.right - 1, rect.bottom - 1));
        };
        RECT window;
        GetWindowRect(HWND(w.winId()), &window);
        const QRect client = clientOnScreen().translated(-window.left, -window.top);
        const QImage image =
            frameImage(w, QRect(0, 0, window.right - window.left, window.bottom - window.top));
#else
        const qreal ratio = w.devicePixelRatioF();
        const QRect contents = w.contentsRect();
        const QRect client(
            QPoint(qRound(contents.left() * ratio), qRound(contents.top() * ratio)),
            QPoint(qRound((contents.right() + 1) * ratio) - 1, qRound((contents.bottom() + 1) * ratio) - 1));
        const QImage image = w.grab().toImage().convertToFormat(QImage::Format_RGB32);
#endif
        const int below = client.height() + 1;
        QVERIFY(filled(image, QRect(client.left() - 1, client.top(), 1, below), kBorder));
        QVERIFY(filled(image, QRect(client.right() + 1, client.top(), 1, below), kBorder));
        QVERIFY(filled(image, QRect(client.left() - 1, client.bottom() + 1, client.width() + 2, 1), kBorder));
        QCOMPARE(image.pixelColor(client.right() + 1, client.top() - 8), kBorder);
        QCOMPARE(image.pixelColor(client.right(), client.top() - 8), QColor(Qt::white));
        QCOMPARE(image.pixelColor(client.right(), client.top() - 1), kTitleLine);
#ifdef Q_OS_WIN
        // Maximised there is no border beside it, and in full screen no frame at all.
        w.showMaximized();
        MONITORINFO monitor = {};
        monitor.cbSize = sizeof monitor;
        GetMonitorInfoW(MonitorFromWindow(HWND(w.winId()), MONITOR_DEFAULTTONEAREST), &monitor);
        const RECT &work = monitor.rcWork;
        QTRY_COMPARE(clientOnScreen().left(), int(work.left));
        QCOMPARE(clientOnScreen().right() + 1, int(work.right));
        QCOMPARE(clientOnScreen().bottom() + 1, int(work.bottom));
        w.showFullScreen();
        const RECT &screen = monitor.rcMonitor;
        const QRect whole(QPoint(screen.left, screen.top), QPoint(screen.right - 1, screen.bottom - 1));
        QTRY_COMPARE(clientOnScreen(), whole);
        w.showNormal();
        QTRY_COMPARE(w.size(), QSize(600, 300));
#endif
    }

    void buttonStates()
    {
        TestWin w;
        w.refusal = QStringLiteral("hook");
        show(w);
        QVERIFY(shows(w, CloseButton, "close_normal"));
        point(w, Move, on(w, CloseButton));
        QVERIFY(shows(w, CloseButton, "close_hover"));
        point(w, Press, on(w, CloseButton));
        QVERIFY(shows(w, CloseButton, "close_press"));
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
        w.setCursor(Qt::CrossCursor);
        point(w, Move, QPoint(1, 150));
        QCOMPARE(w.cursor().shape(), Qt::SizeHorCursor);
        point(w, Move, QPoint(100, 200));
        QCOMPARE(w.cursor().shape(), Qt::CrossCursor);
#endif
    }

    // A quick second click on a button or the icon is a click, and does not maximise.
    void clicks()
    {
        TestWin w;
        show(w);
        doubleClick(w, on(w, ListButton));
        doubleClick(w, QPoint(16, 20)); // the icon
        QCoreApplication::processEvents();
        QVERIFY(!w.isMaxState());
        QCOMPARE(w.clicked, (QList<int>{ListButton, ListButton}));

        click(w, on(w, MaximizeButton));
        QTRY_VERIFY(w.isMaxState());
        QTRY_VERIFY(shows(w, MaximizeButton, "maximize_restore_normal"));
        // All of the strip and of the client area lies on the screen, and nearly fills it: some window
        // managers move a maximised window whose border hangs over.
        const QRect screen = w.screen()->availableGeometry();
        const auto fills = [&w, &screen] {
            const QRect client(w.mapToGlobal(w.contentsRect().topLeft()), w.contentsRect().size());
            return screen.contains(client.adjusted(0, -38, 0, 0)) &&
                   client.width() >= screen.width() - 2 * w.frameWidth();
        };
        QTRY_VERIFY(fills());
        click(w, on(w, MaximizeButton));
        QTRY_VERIFY(!w.isMaxState());
        QTRY_COMPARE(w.size(), QSize(600, 300));
        QTRY_VERIFY(shows(w, MaximizeButton, "maximize_normal"));
        click(w, on(w, MinimizeButton));
        QTRY_VERIFY(w.isMinimized());
        QCOMPARE(w.clicked.mid(2), (QList<int>{4, 4, 3}));
    }

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

    void closing_data()
    {
        columns<QString, QString, int>("way", "refusal", "exits");
        row("button", "button", "", 1);
        row("close()", "close", "", 1);
        row("onExit()", "exit", "", 1);
        row("button, hook answers true", "button", "hook", 0);
        row("button, onExit() refuses", "button", "exit", 1);
        row("close(), onExit() refuses", "close", "exit", 1);
        row("close(), closeEvent() refuses", "close", "event", 0);
    }
    void closing()
    {
        QFETCH(QString, way);
        QFETCH(QString, refusal);
        TestWin w;
        w.refusal = refusal;
        show(w);
        QSignalSpy spy(&w, &CBaseWin::sigQuit);
        bool hidden = false;
        connect(&w, &CBaseWin::sigQuit, [&] {
            hidden = w.isHidden();
            w.close(); // closing again from inside changes nothing
            w.exitAgain();
        });
        QTimer::singleShot(0, [&] {
            if (way == QLatin1String("button"))
                click(w, on(w, CloseButton));
            else if (way == QLatin1String("exit"))
                w.exit();
            else
                QCOMPARE(w.close(), w.refusal.isEmpty());
            QTimer::singleShot(0, [] { QCoreApplication::exit(9); });
        });
        const bool ends = w.refusal.isEmpty();
        QCOMPARE(QCoreApplication::exec(), ends ? 0 : 9);
        QTEST(w.exits, "exits");
        QCOMPARE(spy.count(), ends ? 1 : 0);
        QCOMPARE(w.isVisible(), !ends);
        QCOMPARE(hidden, ends);
        if (ends)
            QCOMPARE(spy.first().first().value<void *>(), static_cast<void *>(static_cast<QObject *>(&w)));
    }

    void deletedByItsOwnHooks()
    {
        for (const QString way : {"hook", "button", "close", "system"}) {
            const QPointer<TestWin> w(new TestWin);
            show(*w);
            w->dieOnClick = way == QLatin1String("hook");
            connect(w, &CBaseWin::sigQuit, [w] { delete w; });
            if (way == QLatin1String("close"))
                w->close();
            else if (way == QLatin1String("system"))
#ifdef Q_OS_WIN
                SendMessageW(HWND(w->winId()), WM_CLOSE, 0, 0);
#else
                w->windowHandle()->close();
#endif
            else
                click(*w, on(*w, CloseButton));
            QVERIFY2(!w, qPrintable(way));
        }
    }

    void sizes()
    {
        QWidget parent;
        TestWin w(&parent);
        QCOMPARE(w.parentWidget(), &parent);
        QVERIFY(w.isWindow());
        QCOMPARE(w.globalBtnRect(CloseButton), QRect());
        auto *content = new QWidget;
        w.setCentralWidget(content);
        show(w);
        w.resize(20, 20); // the buttons are next to the icon
        const int left = iconRect(w.frameWidth(), resImage("title_logo").size()).right() + 6;
        QTRY_COMPARE(w.globalBtnRect(ListButton).left(), w.mapToGlobal(origin(w)).x() + left);
        QVERIFY(shows(w, ListButton, "list_normal"));
        for (int id : {1, 5})
            QCOMPARE(w.globalBtnRect(id), painted(w, id).translated(w.mapToGlobal(origin(w))));
        for (int id : {-1, 0, 6})
            QCOMPARE(w.globalBtnRect(id), QRect());
        // Beside its own there is the content's; the application's counts alone.
        const QSize frame = w.size() - w.contentsRect().size();
        content->setMinimumSize(400, 100);
        QTRY_COMPARE(w.minimumSize(), QSize(400, 100) + frame);
        w.setMinimumSize(100, 70);
        w.resize(20, 20);
        QCoreApplication::processEvents();
        QCOMPARE(w.size(), QSize(100, 70));
        w.setMinimumSize(0, 0);
        content->setMinimumSize(50, 30);
        QTRY_COMPARE(w.minimumSize(), QSize(50, 30) + frame);
        // Its own margins lie within the frame, in every state.
        w.resize(300, 200);
        const QRect inside = w.contentsRect().adjusted(10, 10, -10, -10);
        w.setContentsMargins(10, 10, 10, 10);
        QTRY_COMPARE(content->geometry(), inside);
        w.showMaximized();
        QTRY_VERIFY(content->height() > 300);
        w.showNormal();
        QTRY_COMPARE(content->geometry(), inside);
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
            if (icon != QLatin1String("keep"))
                w.setIcon(icon);
            w.setCaption(QStringLiteral("A & B ") + icon);
            QCOMPARE(w.accessibleName(), QStringLiteral("A & B ") + icon);
            QTRY_VERIFY(frameImage(w, strip) != before);
            before = frameImage(w, strip);
        }
        QVERIFY(!inkOf(before).isEmpty()); // text in black
        w.setCaption(QStringLiteral("two lines"));
        before = frameImage(w, strip);
        w.setCaption(QStringLiteral("two\nlines"));
        QCOMPARE(w.accessibleName(), QStringLiteral("two\nlines"));
        QCOMPARE(frameImage(w, strip), before);

        // A longer one ends before the buttons, which look as they do beside a short one.
        const int end = painted(w, ListButton).left();
        const QRect buttons(end - 5, 8, 150, 37);
        const QImage beside = frameImage(w, buttons);
        w.setCaption(QString(200, QLatin1Char('M')));
        QTRY_VERIFY(inkOf(frameImage(w, QRect(40, 8, end - 45, 37))).right() > end - 75);
        QCOMPARE(frameImage(w, buttons), beside);

        // Shown with the next painting, which the pointer brings here.
        QTemporaryDir folder;
        QPixmap red(16, 16);
        red.fill(Qt::red);
        QVERIFY(red.save(folder.filePath(QStringLiteral("red.png"))));
        w.setIcon(folder.filePath(QStringLiteral("red.png")));
        point(w, Move, QPoint(100, 20));
        const QRect place = iconRect(8, red.size());
        QTRY_VERIFY(filled(frameImage(w, strip), place, Qt::red));
        QVERIFY(!filled(frameImage(w, strip), place.adjusted(0, 0, 1, 0), Qt::red));
    }

private:
    const lumqt::platform::Answers m_answers = lumqt::platform::answers();
};

LUMQT_TEST_MAIN(TestBaseWin)
#include "tst_basewin.moc"
