#include "platform/WindowFrame.h"

#include <QEvent>
#include <QPainter>
#include <QPixmap>
#include <QtMath>
#include <QVariant>
#include <QWidget>
#include <QWindow>

#include <windows.h>

#include <shellapi.h>

QT_BEGIN_NAMESPACE
Q_GUI_EXPORT HBITMAP qt_pixmapToWinHBITMAP(const QPixmap &pixmap, int format = 0);
QT_END_NAMESPACE
Q_DECLARE_METATYPE(QMargins)

namespace lumqt::platform {

namespace {

// Clips siblings and children; caption, sizing border, minimise and maximise; no system menu.
constexpr LONG kWindowStyle = 0x06C70000;
// What the style says of the window's present state.
constexpr LONG kStateStyles = WS_VISIBLE | WS_DISABLED | WS_MINIMIZE | WS_MAXIMIZE;
// Every pixel of this colour becomes transparent.
const QColor kTransparent(31, 92, 232);
// Left free for a task bar that hides itself: over a window that fills the screen it would not come out.
constexpr int kTaskBarGap = 2; // physical pixels

RECT windowRect(HWND hwnd)
{
    RECT rect = {0, 0, 0, 0};
    GetWindowRect(hwnd, &rect);
    return rect;
}

// Margins that leave a self-hiding task bar of the monitor room to be called.
QMargins taskBarGap(const RECT &monitor)
{
    const auto gapAt = [&monitor](UINT edge) {
        APPBARDATA data = {};
        data.cbSize = sizeof data;
        data.uEdge = edge;
        data.rc = monitor;
        return SHAppBarMessage(ABM_GETAUTOHIDEBAREX, &data) ? kTaskBarGap : 0;
    };
    return QMargins(gapAt(ABE_LEFT), gapAt(ABE_TOP), gapAt(ABE_RIGHT), gapAt(ABE_BOTTOM));
}

// The native frame with its sizing border, caption and messages, painted over by the library. The system
// speaks physical pixels; they are converted here.
class WindowsWindowFrame final : public WindowFrame
{
public:
    WindowsWindowFrame(QWidget *window, WindowFrameClient *client) : m_window(window), m_client(client)
    {
        tellQtMargins();
    }

    bool event(QEvent *event) override;
    bool nativeEvent(void *message, long *result) override;
    void shrinkToClient(NCCALCSIZE_PARAMS *params) override;
    bool isMaximized() const override { return IsZoomed(handle()) != FALSE; }
    QSize clientSize() const override;
    QPoint pointer() const override;
    void repaint() override;
    void paintInside(QPainter &, const QPaintEvent *) override {}

private:
    // Null until the window is shown or asked for its handle, which must not happen here.
    HWND handle() const { return reinterpret_cast<HWND>(m_window->internalWinId()); }
    qreal ratio() const { return m_window->devicePixelRatioF(); }
    QMargins margins() const { return (QMarginsF(m_client->margins()) * ratio()).toMargins(); }
    void tellQtMargins();
    void applyStyle();
    void copyStrip(HDC target, const QRect &strip, const QRect &frame, bool withTitle);

    QWidget *const m_window;
    WindowFrameClient *const m_client;
};

// Qt makes the native window before there is a frame of ours, with margins from its style. With the
// difference the client area gets the size and place that were asked for, and saved geometries do not drift.
// Later Qt learns the margins from WM_NCCALCSIZE.
void WindowsWindowFrame::tellQtMargins()
{
    QWindow *window = m_window->windowHandle();
    if (!window)
        return;
    RECT native = {0, 0, 0, 0};
    AdjustWindowRectEx(&native, kWindowStyle, FALSE, 0);
    const QMargins beyond = margins() - QMargins(-native.left, -native.top, native.right, native.bottom);
    window->setProperty("_q_windowsCustomMargins", QVariant::fromValue(beyond));
}

bool WindowsWindowFrame::event(QEvent *event)
{
    if (event->type() == QEvent::WinIdChange) {
        applyStyle();
        return true;
    }
    if (event->type() == QEvent::ParentChange)
        tellQtMargins(); // another native window will follow
    return false;
}

// Comes each time the native window is made anew.
void WindowsWindowFrame::applyStyle()
{
    const HWND hwnd = handle();
    if (!hwnd)
        return;
    const RECT rect = windowRect(hwnd);
    // The client area is asked for before the style changes.
    SetWindowPos(hwnd, nullptr, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
                 SWP_FRAMECHANGED | SWP_NOZORDER | SWP_NOACTIVATE);
    SetWindowLongW(hwnd, GWL_STYLE, kWindowStyle | (GetWindowLongW(hwnd, GWL_STYLE) & kStateStyles));
}

bool WindowsWindowFrame::nativeEvent(void *message, long *result)
{
    const MSG *msg = static_cast<MSG *>(message);
    const auto answer = [result](long value) {
        if (result)
            *result = value;
        return true;
    };
    switch (msg->message) {
    case WM_CLOSE:
        m_client->closeRequested();
        return true;
    case WM_NCCALCSIZE:
        if (msg->wParam)
            m_client->sizeClient(reinterpret_cast<NCCALCSIZE_PARAMS *>(msg->lParam));
        return true;
    case WM_NCMOUSEMOVE:
        return m_client->pointer(PointerAction::Move) && answer(1);
    case WM_NCLBUTTONDOWN:
        return m_client->pointer(PointerAction::Press) && answer(1);
    case WM_NCLBUTTONUP:
        return m_client->pointer(PointerAction::Release) && answer(1);
    case WM_NCPAINT:
    case WM_NCACTIVATE:
        repaint();
        return answer(1);
    default:
        return false;
    }
}

void WindowsWindowFrame::shrinkToClient(NCCALCSIZE_PARAMS *params)
{
    RECT &rect = params->rgrc[0];
    QMargins frame = margins();
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    if (isMaximized() && GetMonitorInfoW(MonitorFromRect(&rect, MONITOR_DEFAULTTONEAREST), &monitor)) {
        // A maximised window hangs over the edges of the screen, by more than the border of this frame where
        // the system pads its own. Looked at each time: screens, task bar and density change.
        const RECT &work = monitor.rcWork;
        const QMargins over = QMargins(work.left - rect.left, work.top - rect.top, rect.right - work.right,
                                       rect.bottom - work.bottom) +
                              taskBarGap(monitor.rcMonitor);
        const int border = frame.left();
        frame += QMargins(qMax(0, over.left() - border), qMax(0, over.top() - border),
                          qMax(0, over.right() - border), qMax(0, over.bottom() - border));
    }
    rect.left += frame.left();
    rect.top += frame.top();
    rect.right -= frame.right();
    rect.bottom -= frame.bottom();
}

QSize WindowsWindowFrame::clientSize() const
{
    RECT client = {0, 0, 0, 0};
    GetClientRect(handle(), &client);
    return (QSizeF(client.right, client.bottom) / ratio()).toSize();
}

QPoint WindowsWindowFrame::pointer() const
{
    POINT position = {0, 0};
    GetCursorPos(&position);
    ScreenToClient(handle(), &position);
    return QPoint(qFloor(position.x / ratio()), qFloor(position.y / ratio()));
}

// Only the strips along the edges are painted and converted, as nothing else is shown: the cost follows the
// length of the border, not the area of the window. The strips at the sides begin below the title's, which
// covers the whole width.
void WindowsWindowFrame::repaint()
{
    const HWND hwnd = handle();
    if (!hwnd)
        return;
    const LONG_PTR style = GetWindowLongPtrW(hwnd, GWL_EXSTYLE);
    if (!(style & WS_EX_LAYERED))
        SetWindowLongPtrW(hwnd, GWL_EXSTYLE, style | WS_EX_LAYERED);
    SetLayeredWindowAttributes(hwnd, RGB(kTransparent.red(), kTransparent.green(), kTransparent.blue()), 0,
                               LWA_COLORKEY);
    const HDC target = GetWindowDC(hwnd);
    if (!target)
        return;
    const RECT window = windowRect(hwnd);
    RECT inside = {0, 0, 0, 0};
    GetClientRect(hwnd, &inside);
    MapWindowPoints(hwnd, nullptr, reinterpret_cast<POINT *>(&inside), 2);
    const QSize size(window.right - window.left, window.bottom - window.top);
    const QRect client(inside.left - window.left, inside.top - window.top, inside.right - inside.left,
                       inside.bottom - inside.top);
    const QRect frame = client.marginsAdded(margins());
    const int below = size.height() - client.top();
    copyStrip(target, QRect(0, 0, size.width(), client.top()), frame, true);
    copyStrip(target, QRect(0, client.top(), client.left(), below), frame, false);
    copyStrip(target, QRect(0, client.bottom() + 1, size.width(), size.height() - client.bottom() - 1), frame,
              false);
    copyStrip(target, QRect(client.right() + 1, client.top(), size.width() - client.right() - 1, below),
              frame, false);
    ReleaseDC(hwnd, target);
}

// All in physical pixels of the window. `frame` is the rectangle whose frame is painted.
void WindowsWindowFrame::copyStrip(HDC target, const QRect &strip, const QRect &frame, bool withTitle)
{
    if (strip.isEmpty())
        return;
    QPixmap pixmap(strip.size());
    pixmap.setDevicePixelRatio(ratio());
    pixmap.fill(kTransparent);
    QPainter painter(&pixmap);
    painter.translate(QPointF(frame.topLeft() - strip.topLeft()) / ratio());
    m_client->paintFrame(painter, QSizeF(frame.size()) / ratio(), kTransparent, withTitle);
    painter.end();

    const HBITMAP bitmap = qt_pixmapToWinHBITMAP(pixmap);
    const HDC memory = CreateCompatibleDC(target);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(target, strip.x(), strip.y(), strip.width(), strip.height(), memory, 0, 0, SRCCOPY);
    SelectObject(memory, before);
    DeleteDC(memory);
    DeleteObject(bitmap);
}

} // namespace

std::unique_ptr<WindowFrame> WindowFrame::create(QWidget *window, WindowFrameClient *client)
{
    return std::make_unique<WindowsWindowFrame>(window, client);
}

} // namespace lumqt::platform
