#pragma once

#include "CBaseWin.h"

#include <QtTest>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

// Where the window coordinates begin in those of the widget.
inline QPoint origin(CBaseWin &w)
{
    return w.contentsRect().topLeft() - QPoint(w.frameWidth(), w.titleHight());
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
    if (action == Move)
        QTest::mouseMove(w.windowHandle(), inWidget);
    else if (action == Press)
        QTest::mousePress(w.windowHandle(), Qt::LeftButton, {}, inWidget);
    else
        QTest::mouseRelease(w.windowHandle(), Qt::LeftButton, {}, inWidget);
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
