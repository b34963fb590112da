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
#include <windowsx.h>

QT_BEGIN_NAMESPACE
Q_GUI_EXPORT HBITMAP qt_pixmapToWinHBITMAP(const QPixmap &pixmap, int format = 0);
QT_END_NAMESPACE

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

constexpr LPARAM kAltIsDown = 1 << 29; // in what is told of a key

constexpr UINT kQuietly = SWP_NOZORDER | SWP_NOACTIVATE;

// RECT's right and bottom are exclusive.
QRect toQRect(const RECT &rect)
{
    return QRect(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top);
}

// On the screen, as is the next.
QRect windowRect(HWND hwnd)
{
    RECT rect = {0, 0, 0, 0};
    GetWindowRect(hwnd, &rect);
    return toQRect(rect);
}

QRect clientOnScreen(HWND hwnd)
{
    RECT rect = {0, 0, 0, 0};
    GetClientRect(hwnd, &rect);
    MapWindowPoints(hwnd, nullptr, reinterpret_cast<POINT *>(&rect), 2);
    return toQRect(rect);
}

// Setting the key again would redraw the whole window, at a cost that grows with its area.
void makeKeyTransparent(HWND hwnd)
{
    const COLORREF wanted = RGB(kTransparent.red(), kTransparent.green(), kTransparent.blue());
    const LONG_PTR style = GetWindowLongPtrW(hwnd, GWL_EXSTYLE);
    COLORREF key = 0;
    DWORD flags = 0;
    if ((style & WS_EX_LAYERED) && GetLayeredWindowAttributes(hwnd, &key, nullptr, &flags) &&
        flags == LWA_COLORKEY && key == wanted)
        return;
    if (!(style & WS_EX_LAYERED))
        SetWindowLongPtrW(hwnd, GWL_EXSTYLE, style | WS_EX_LAYERED);
    SetLayeredWindowAttributes(hwnd, wanted, 0, LWA_COLORKEY);
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

// How far the pointer goes before a press becomes a drag.
bool isDrag(const POINT &from, const POINT &to)
{
    return qAbs(to.x - from.x) >= GetSystemMetrics(SM_CXDRAG) ||
           qAbs(to.y - from.y) >= GetSystemMetrics(SM_CYDRAG);
}

POINT pointIn(LPARAM position)
{
    return {GET_X_LPARAM(position), GET_Y_LPARAM(position)};
}

// The style of the frame has no system menu, and Windows makes none without. A window that has one lends its
// own, with its texts in the user's language. The window `hwnd` may be gone when this returns.
void showSystemMenu(HWND hwnd, const POINT &at, bool resizable)
{
    const HWND lender = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 0, 0, nullptr, nullptr,
                                        nullptr, nullptr);
    const HMENU menu = GetSystemMenu(lender, FALSE);
    if (menu) {
        const bool maximized = IsZoomed(hwnd) != FALSE;
        const auto enable = [menu](UINT command, bool enabled) {
            EnableMenuItem(menu, command, MF_BYCOMMAND | (enabled ? MF_ENABLED : MF_GRAYED));
        };
        const bool minimized = IsIconic(hwnd) != FALSE;
        enable(SC_RESTORE, maximized || minimized);
        enable(SC_MOVE, !maximized && !minimized);
        enable(SC_SIZE, !maximized && !minimized && resizable);
        enable(SC_MINIMIZE, !minimized);
        enable(SC_MAXIMIZE, !maximized && resizable);
        enable(SC_CLOSE, true);
        SetMenuDefaultItem(menu, SC_CLOSE, FALSE);
        const UINT align = GetSystemMetrics(SM_MENUDROPALIGNMENT) ? TPM_RIGHTALIGN : TPM_LEFTALIGN;
        const BOOL command =
            TrackPopupMenuEx(menu, TPM_RETURNCMD | TPM_NONOTIFY | align, at.x, at.y, hwnd, nullptr);
        if (command)
            PostMessageW(hwnd, WM_SYSCOMMAND, WPARAM(command), 0);
    }
    DestroyWindow(lender);
}

// The native frame with its sizing border, caption and messages, painted over by the library. The system
// speaks physical pixels; they are converted here.
class WindowsWindowFrame final : public WindowFrame
{
public:
    WindowsWindowFrame(QWidget *window, WindowFrameClient *client) : m_window(window), m_client(client) {}

    bool event(QEvent *event) override;
    bool nativeEvent(void *message, lumqt::NativeResult *result) override;
    void shrinkToClient(NCCALCSIZE_PARAMS *params) override;
    bool isMaximized() const override { return IsZoomed(handle()) != FALSE; }
    bool isInside() const override { return false; }
    QRect clientRect() const override;
    QPoint pointer() const override;
    void repaint(const QRect &part) override;
    void paintInside(QPainter &, const QPaintEvent *) override {}

private:
    // Null until the window is shown or asked for its handle, which must not happen here.
    HWND handle() const { return reinterpret_cast<HWND>(m_window->internalWinId()); }
    qreal ratio() const { return m_window->devicePixelRatioF(); }
    QMargins margins() const { return (QMarginsF(m_client->margins()) * ratio()).toMargins(); }
    bool isFullScreen() const;
    bool mouseMessage(const MSG *message);
    bool menuMessage(const MSG *message);
    bool takeHold(const MSG *press);
    bool drag(const MSG *message);
    void restoreUnderPointer(const POINT &at);
    void applyStyle();
    FramePart partAt(const POINT &at) const;
    LRESULT hitTest(const MSG *message) const;
    void copyStrip(HDC target, const QRect &strip, const QRect &client, bool withTitle);

    QWidget *const m_window;
    WindowFrameClient *const m_client;
    HWND m_native = nullptr;     // whose first message has come
    HWND m_styled = nullptr;     // that has had the style of the frame
    QRect m_asked;               // the widget's geometry then
    bool m_clientPlaced = false; // which is that of the client area, not of the frame
    bool m_held = false;         // by the strip, while maximised
    POINT m_heldAt = {0, 0};     // on the screen
};

bool WindowsWindowFrame::event(QEvent *event)
{
    if (event->type() == QEvent::WinIdChange) {
        applyStyle();
        return true;
    }
    // Qt has just gone back to the margins of the style; it learns the frame's own from WM_NCCALCSIZE.
    if (event->type() == QEvent::ScreenChangeInternal && handle())
        SetWindowPos(handle(), nullptr, 0, 0, 0, 0, SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | kQuietly);
    return false;
}

// On the way from maximised to full screen Qt takes the window for a normal one and asks for the client area;
// that of a normal window would not fill the screen, and Qt would stay with its mistake. The style it gives
// the window for full screen is there by then, and not the frame's.
bool WindowsWindowFrame::isFullScreen() const
{
    return m_window->isFullScreen() ||
           (m_styled && m_styled == handle() && (GetWindowLongW(m_styled, GWL_STYLE) & WS_POPUP));
}

// Comes each time the native window is made anew.
void WindowsWindowFrame::applyStyle()
{
    const HWND hwnd = handle();
    if (!hwnd) {
        m_native = m_styled = nullptr; // another may come at the same address
        m_held = false;
        return;
    }
    const QRect frame = windowRect(hwnd);
    // The client area is asked for before the style changes.
    SetWindowPos(hwnd, nullptr, frame.x(), frame.y(), frame.width(), frame.height(),
                 SWP_FRAMECHANGED | kQuietly);
    const LONG style = GetWindowLongW(hwnd, GWL_STYLE);
    SetWindowLongW(hwnd, GWL_STYLE, kWindowStyle | (style & kStateStyles));
    m_styled = hwnd;
    if (style & kStateStyles)
        return;
    // Qt made the window with the margins of its own style. The client area gets the size back that was asked
    // for, and its place if that was asked for: a geometry that is saved and restored does not drift.
    if (m_clientPlaced)
        m_window->setGeometry(m_asked);
    else if (m_window->testAttribute(Qt::WA_Resized))
        m_window->resize(m_asked.size());
}

bool WindowsWindowFrame::nativeEvent(void *message, lumqt::NativeResult *result)
{
    const MSG *msg = static_cast<MSG *>(message);
    if (msg->hwnd != m_native) {
        // The first message comes before the client area shrinks and before the widget is told of it.
        m_native = msg->hwnd;
        m_asked = m_window->geometry();
        m_clientPlaced =
            m_window->testAttribute(Qt::WA_Moved) &&
            clientOnScreen(m_native).topLeft() == (QPointF(m_asked.topLeft()) * ratio()).toPoint();
    }
    const auto answer = [result](NativeResult value) {
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
    case WM_NCPAINT:
    case WM_NCACTIVATE:
        repaint(QRect());
        return answer(1);
    case WM_NCHITTEST: {
        const LRESULT part = hitTest(msg);
        return part != HTNOWHERE && answer(NativeResult(part));
    }
    default:
        return (mouseMessage(msg) || menuMessage(msg)) && answer(1);
    }
}

// True: the system has no business with it, and the window may be gone.
bool WindowsWindowFrame::mouseMessage(const MSG *message)
{
    switch (message->message) {
    case WM_NCMOUSEMOVE:
        return m_client->pointer(PointerAction::Move);
    case WM_NCLBUTTONDOWN:
        return m_client->pointer(PointerAction::Press) || takeHold(message);
    case WM_NCLBUTTONDBLCLK: // of a button it is a second click; that of the caption is the system's
        return m_client->pointer(PointerAction::Press);
    case WM_NCLBUTTONUP:
        return m_client->pointer(PointerAction::Release);
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
        return m_held && drag(message);
    default:
        return false;
    }
}

// The strip of a maximised window is held by this, not by the system: not every Windows lets a maximised
// window be dragged, and some people have switched that off for windows that snap.
bool WindowsWindowFrame::takeHold(const MSG *press)
{
    if (press->wParam != HTCAPTION || !isMaximized() || isFullScreen())
        return false;
    SetForegroundWindow(press->hwnd);
    SetCapture(press->hwnd);
    m_held = true;
    m_heldAt = pointIn(press->lParam);
    return true;
}

bool WindowsWindowFrame::drag(const MSG *message)
{
    if (message->message == WM_MOUSEMOVE) {
        POINT at = pointIn(message->lParam);
        ClientToScreen(message->hwnd, &at);
        if (isDrag(m_heldAt, at))
            restoreUnderPointer(at);
        return true;
    }
    m_held = false;
    if (message->message == WM_CAPTURECHANGED)
        return false;
    ReleaseCapture();
    m_client->pointer(PointerAction::Release);
    return true;
}

// The window takes its size from before under the pointer, at the same part of the strip's width, and the
// system moves it from there. It may be gone when the button comes up.
void WindowsWindowFrame::restoreUnderPointer(const POINT &at)
{
    m_held = false;
    const HWND hwnd = handle();
    const QRect strip = clientOnScreen(hwnd);
    WINDOWPLACEMENT placement = {};
    placement.length = sizeof placement;
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    if (!GetWindowPlacement(hwnd, &placement) ||
        !GetMonitorInfoW(MonitorFromWindow(hwnd, MONITOR_DEFAULTTONEAREST), &monitor))
        return;
    const QSize size = toQRect(placement.rcNormalPosition).size();
    const int left = at.x - (m_heldAt.x - strip.left()) * size.width() / qMax(1, strip.width());
    const int top = at.y - (m_heldAt.y - strip.top()) - margins().top();
    // Counted from the corner of the work area, whose monitor's it is not where a task bar lies there.
    const int x = left - (monitor.rcWork.left - monitor.rcMonitor.left);
    const int y = top - (monitor.rcWork.top - monitor.rcMonitor.top);
    placement.rcNormalPosition = {x, y, x + size.width(), y + size.height()};
    placement.showCmd = SW_SHOWNORMAL;
    ReleaseCapture();
    SetWindowPlacement(hwnd, &placement);
    SendMessageW(hwnd, WM_SYSCOMMAND, SC_MOVE | HTCAPTION, MAKELPARAM(at.x, at.y));
}

// True as above.
bool WindowsWindowFrame::menuMessage(const MSG *message)
{
    const HWND hwnd = message->hwnd;
    if (isFullScreen()) // there is no strip, and nothing to be moved
        return false;
    const bool resizable = m_window->minimumSize() != m_window->maximumSize();
    switch (message->message) {
    case WM_NCRBUTTONDOWN: // which the system would keep, to look for a menu when the button comes up
        return message->wParam == HTCAPTION;
    case WM_NCRBUTTONUP:
        if (message->wParam != HTCAPTION || partAt(pointIn(message->lParam)) != FramePart::Bare)
            return false;
        showSystemMenu(hwnd, pointIn(message->lParam), resizable);
        return true;
    case WM_SYSKEYDOWN: {
        // Qt keeps Alt+Space for a menu that this window has not. A window without the focus is told of Space
        // alone in this way, too.
        if (message->wParam != VK_SPACE || !(message->lParam & kAltIsDown))
            return false;
        MSG typed = {}; // the menu would take it for a letter of its own
        PeekMessageW(&typed, hwnd, WM_SYSCHAR, WM_SYSCHAR, PM_REMOVE);
        break;
    }
    case WM_SYSCOMMAND:
        if ((message->wParam & 0xFFF0) != SC_KEYMENU || message->lParam != VK_SPACE)
            return false;
        break;
    default:
        return false;
    }
    const QPoint at = clientOnScreen(hwnd).topLeft();
    showSystemMenu(hwnd, {at.x(), at.y()}, resizable);
    return true;
}

FramePart WindowsWindowFrame::partAt(const POINT &at) const
{
    const QRect client = clientOnScreen(handle());
    return m_client->partAt(
        QPoint(qFloor((at.x - client.left()) / ratio()), qFloor((at.y - client.top()) / ratio())));
}

// HTNOWHERE leaves it to the system, whose own test finds only a caption of its own height: the buttons'
// lower half would be dead. Over the button that maximises, Windows 11 offers its layouts for the answer;
// what the pointer does there still comes to this frame.
LRESULT WindowsWindowFrame::hitTest(const MSG *message) const
{
    const POINT at = pointIn(message->lParam);
    if (isFullScreen() || !windowRect(message->hwnd).contains(at.x, at.y) ||
        at.y >= clientOnScreen(message->hwnd).top())
        return HTNOWHERE;
    if (partAt(at) == FramePart::MaximizeButton)
        return HTMAXBUTTON;
    const LRESULT system = DefWindowProcW(message->hwnd, WM_NCHITTEST, message->wParam, message->lParam);
    return system == HTNOWHERE ? HTCAPTION : HTNOWHERE;
}

void WindowsWindowFrame::shrinkToClient(NCCALCSIZE_PARAMS *params)
{
    if (isFullScreen())
        return;
    RECT &rect = params->rgrc[0];
    QMargins frame = margins();
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    if (isMaximized() && GetMonitorInfoW(MonitorFromRect(&rect, MONITOR_DEFAULTTONEAREST), &monitor)) {
        // A maximised window hangs over the edges of the screen, by more or less than the border of this
        // frame: the system pads its own, and rounds it otherwise. Its client area begins where the screen
        // does. Looked at each time: screens, task bar and density change.
        const RECT &work = monitor.rcWork;
        const QMargins over = QMargins(work.left - rect.left, work.top - rect.top, rect.right - work.right,
                                       rect.bottom - work.bottom) +
                              taskBarGap(monitor.rcMonitor);
        const int border = frame.left();
        // Below zero: a window of limited size ends on the screen.
        const auto cut = [border](int hanging) { return hanging < 0 ? border : hanging; };
        frame = QMargins(cut(over.left()), frame.top() - border + cut(over.top()), cut(over.right()),
                         cut(over.bottom()));
    }
    rect.left += frame.left();
    rect.top += frame.top();
    rect.right -= frame.right();
    rect.bottom -= frame.bottom();
}

QRect WindowsWindowFrame::clientRect() const
{
    if (!handle())
        return m_window->rect();
    return QRect(QPoint(0, 0), (QSizeF(clientOnScreen(handle()).size()) / ratio()).toSize());
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
void WindowsWindowFrame::repaint(const QRect &part)
{
    const HWND hwnd = handle();
    if (!hwnd || isFullScreen())
        return;
    makeKeyTransparent(hwnd);
    const HDC target = GetWindowDC(hwnd);
    if (!target)
        return;
    const QRect window = windowRect(hwnd);
    const QSize size = window.size();
    const QRect client = clientOnScreen(hwnd).translated(-window.topLeft());
    const QRect title(0, 0, size.width(), client.top());
    if (!part.isEmpty()) {
        const QRectF scaled(QPointF(part.topLeft()) * ratio(), QSizeF(part.size()) * ratio());
        const QPoint origin = client.marginsAdded(margins()).topLeft();
        copyStrip(target, scaled.toAlignedRect().translated(origin) & title, client, true);
    } else {
        const int right = client.right() + 1;
        const int bottom = client.bottom() + 1;
        const int below = size.height() - client.top();
        copyStrip(target, title, client, true);
        copyStrip(target, QRect(0, client.top(), client.left(), below), client, false);
        copyStrip(target, QRect(0, bottom, size.width(), size.height() - bottom), client, false);
        copyStrip(target, QRect(right, client.top(), size.width() - right, below), client, false);
    }
    ReleaseDC(hwnd, target);
}

// All in physical pixels of the window. The frame around `client` is painted.
void WindowsWindowFrame::copyStrip(HDC target, const QRect &strip, const QRect &client, bool withTitle)
{
    if (strip.isEmpty())
        return;
    QPixmap pixmap(strip.size());
    pixmap.setDevicePixelRatio(ratio());
    pixmap.fill(kTransparent);
    QPainter painter(&pixmap);
    const QRect frame = client.marginsAdded(margins());
    painter.translate(QPointF(frame.topLeft() - strip.topLeft()) / ratio());
    const QRectF inFrame(QPointF(client.topLeft() - frame.topLeft()) / ratio(),
                         QSizeF(client.size()) / ratio());
    m_client->paintFrame(painter, QSizeF(frame.size()) / ratio(), inFrame, kTransparent, withTitle);
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
