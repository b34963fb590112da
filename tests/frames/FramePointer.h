#pragma once

#include "Await.h"
#include "CBaseWin.h"

#include "frames/FrameGeometry.h"
#include "RealInput.h"
#include "Util.h"

#include <QCloseEvent>
#include <QPainter>
#include <QPaintEvent>
#include <QtTest>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

using namespace lumqt::frame;

inline const QColor kBorder(34, 133, 212);

class TestWin : public CBaseWin
{
public:
    using CBaseWin::CBaseWin;
    using CBaseWin::isMaxState;

    void exit() { onExit(); }
    void exitAgain() { CBaseWin::onExit(); }

    QString refusal; // what keeps the window open: "hook", "exit" or "event"; "die": the hook deletes it
    QList<int> clicked;
    int exits = 0;
    int presses = 0;
    QRect lastPainted; // where the widget was

protected:
    bool event(QEvent *event) override
    {
        presses += event->type() == QEvent::MouseButtonPress;
        if (event->type() == QEvent::Paint)
            lastPainted = static_cast<QPaintEvent *>(event)->region().boundingRect();
        return CBaseWin::event(event);
    }
    bool titleBtnClicked(int id) override
    {
        clicked += id;
        const bool keep = refusal == "hook";
        if (refusal == "die")
            delete this;
        return keep;
    }
    void onExit() override
    {
        ++exits;
        if (refusal != "exit")
            CBaseWin::onExit();
    }
    void closeEvent(QCloseEvent *event) override { event->setAccepted(refusal != "event"); }
};

// Where the window coordinates begin in those of the widget.
inline QPoint origin(CBaseWin &w)
{
    return w.contentsRect().topLeft() - QPoint(w.frameWidth(), w.titleHight());
}

// What a part of the frame shows. The part is physical pixels on Windows.
inline QImage frameImage(CBaseWin &w, const QRect &part)
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

inline bool filled(const QImage &image, const QRect &part, const QColor &color)
{
    QImage expected(part.size(), image.format());
    expected.fill(color);
    return image.rect().contains(part) && image.copy(part) == expected;
}

inline QImage resImage(const char *name)
{
    return QImage(Util::getResFullPath(QStringLiteral("../res/%1.png").arg(QLatin1String(name))));
}

// Where button `id` is drawn, in window coordinates; its middle lies where it is pressed, too.
inline QRect painted(CBaseWin &w, int id)
{
    return w.globalBtnRect(id).translated(-w.mapToGlobal(origin(w)));
}

inline QPoint on(CBaseWin &w, int id)
{
    return painted(w, id).center();
}

// Whether button `id` is painted with the image `name` on white.
inline bool shows(CBaseWin &w, int id, const char *name)
{
    const QImage image = resImage(name);
    QImage expected(image.size(), QImage::Format_RGB32);
    expected.fill(Qt::white);
    QPainter(&expected).drawImage(0, 0, image);
    return !image.isNull() && frameImage(w, painted(w, id)) == expected;
}

inline void show(CBaseWin &w)
{
    w.resize(600, 300);
    w.move(60, 60);
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w, kPatience));
    AWAIT(!w.btnRect(CloseButton).isEmpty());
}

// The pointer over the frame, in window coordinates: with the events of a window here, native messages there.
enum Action { Move, Press, Release };
inline void point(CBaseWin &w, Action action, const QPoint &at)
{
    const QPoint inWidget = at + origin(w);
#ifdef Q_OS_WIN
    const QPoint screen = w.mapToGlobal(inWidget);
    SetCursorPos(screen.x(), screen.y());
    const UINT messages[] = {WM_NCMOUSEMOVE, WM_NCLBUTTONDOWN, WM_NCLBUTTONUP};
    SendMessageW(HWND(w.winId()), messages[action], HTCAPTION, MAKELPARAM(screen.x(), screen.y()));
#else
    const QTest::MouseAction actions[] = {QTest::MouseMove, QTest::MousePress, QTest::MouseRelease};
    QTest::mouseEvent(actions[action], w.windowHandle(), action == Move ? Qt::NoButton : Qt::LeftButton, {},
                      inWidget);
#endif
}

inline void click(CBaseWin &w, const QPoint &at)
{
    point(w, Press, at);
    point(w, Release, at);
}

inline void doubleClick(CBaseWin &w, const QPoint &at)
{
#ifdef Q_OS_WIN
    click(w, at);
    const QPoint screen = w.mapToGlobal(at + origin(w));
    SendMessageW(HWND(w.winId()), WM_NCLBUTTONDBLCLK, HTCAPTION, MAKELPARAM(screen.x(), screen.y()));
    point(w, Release, at);
#else
    QTest::mouseDClick(w.windowHandle(), Qt::LeftButton, {}, at + origin(w));
#endif
}

// Moves the real pointer to `at` and a little about there until `done`: what it does before the system has
// it, or while the system lets go of it, is made up for with the next step.
template <class Done> bool reaches(const QPoint &at, Done done)
{
    return QTest::qWaitFor(
        [&] {
            RealInput::moveTo(at + QPoint(1, 0));
            RealInput::moveTo(at);
            return done();
        },
        20000);
}
