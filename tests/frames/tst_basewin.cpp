#include "FramePointer.h"
#include "Pixels.h"
#include "platform/Platform.h"
#include "Rows.h"
#include "TestMain.h"

#include <QPointer>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace {

const QColor kTitleLine(221, 221, 221);

bool filled(const QImage &image, const QRect &part, const QColor &color)
{
    QImage expected(part.size(), image.format());
    expected.fill(color);
    return image.rect().contains(part) && image.copy(part) == expected;
}

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
    void cleanup() { lumqt::platform::answers() = m_answers; }

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
        const int below = client.height() + 1;
        QVERIFY(filled(image, QRect(client.left() - 1, client.top(), 1, below), kBorder));
        QVERIFY(filled(image, QRect(client.right() + 1, client.top(), 1, below), kBorder));
        QVERIFY(filled(image, QRect(client.left() - 1, client.bottom() + 1, client.width() + 2, 1), kBorder));
        QCOMPARE(image.pixelColor(client.right() + 1, client.top() - 8), kBorder);
        QCOMPARE(image.pixelColor(client.right(), client.top() - 8), QColor(Qt::white));
        QCOMPARE(image.pixelColor(client.right(), client.top() - 1), kTitleLine);
#ifdef Q_OS_WIN
        // Maximised there is no border beside it, and in full screen no frame at all.
        MONITORINFO monitor = {};
        monitor.cbSize = sizeof monitor;
        GetMonitorInfoW(MonitorFromWindow(HWND(w.winId()), MONITOR_DEFAULTTONEAREST), &monitor);
        w.showMaximized();
        const int strip = qRound(38 * w.devicePixelRatioF());
        QTRY_COMPARE(clientOnScreen(), rectOf(monitor.rcWork).adjusted(0, strip, 0, 0));
        w.showFullScreen();
        QTRY_COMPARE(clientOnScreen(), rectOf(monitor.rcMonitor));
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
            if (w->refusal == QLatin1String("quit"))
                delete w;
        });
        QTimer::singleShot(0, [&] {
            if (way == QLatin1String("button"))
                click(*w, on(*w, CloseButton));
            else if (way == QLatin1String("exit"))
                w->exit();
            else if (way == QLatin1String("close"))
                QCOMPARE(w->close(), exits != 0 && refusal != QLatin1String("exit"));
            else
#ifdef Q_OS_WIN
                SendMessageW(HWND(w->winId()), WM_CLOSE, 0, 0);
#else
                w->windowHandle()->close();
#endif
            QTimer::singleShot(0, [] { QCoreApplication::exit(9); });
        });
        const bool ends = refusal.isEmpty() || refusal == QLatin1String("quit");
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
        w.resize(20, 20); // the buttons are next to the icon
        const int left = iconRect(w.frameWidth(), resImage("title_logo").size()).right() + 6;
        QTRY_COMPARE(w.globalBtnRect(ListButton).left(), w.mapToGlobal(origin(w)).x() + left);
        QVERIFY(shows(w, ListButton, "list_normal"));
        const QImage whole = w.grabWithFrame().toImage();
        const QPoint border(w.frameWidth() - 1, w.titleHight() / 2);
        QCOMPARE(whole.pixelColor(border * whole.devicePixelRatio()), QColor(34, 133, 212));
        QCOMPARE(whole.height(),
                 (w.contentsRect().height() + w.titleHight() + w.frameWidth()) * whole.devicePixelRatio());
        for (int id : {1, 4, 5})
            QCOMPARE(w.btnRect(id), painted(w, id).adjusted(-w.frameWidth(), 0, 0, 0));
        for (int id : {-1, 6, 7})
            QVERIFY(w.btnRect(id).isNull() && w.globalBtnRect(id).isNull());
        QVERIFY(w.globalBtnRect(0).isNull());
        // Beside its own there is the content's; the application's counts alone.
        const QSize frame = w.size() - w.contentsRect().size();
        content->setMinimumSize(400, 100);
        QTRY_COMPARE(w.minimumSize(), QSize(400, 100) + frame);
        w.setMinimumSize(100, 70);
        w.resize(20, 20);
        QTRY_COMPARE(w.size(), QSize(100, 70));
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
