#include "platform/WindowFrame.h"

#include "foundation/Palette.h"
#include "foundation/QtCompat.h"
#include "platform/generic/XServer.h"

#include <QApplication>
#include <QHoverEvent>
#include <QLayout>
#include <QPainter>
#include <QPaintEvent>
#include <QPointer>
#include <QWidget>
#include <QWindow>

namespace lumqt::platform {

namespace {

constexpr qreal kSamePlace = 0.2; // logical pixels: less than a device pixel

Qt::CursorShape cursorFor(Qt::Edges edges)
{
    if (edges == (Qt::LeftEdge | Qt::TopEdge) || edges == (Qt::RightEdge | Qt::BottomEdge))
        return Qt::SizeFDiagCursor;
    if (edges == (Qt::RightEdge | Qt::TopEdge) || edges == (Qt::LeftEdge | Qt::BottomEdge))
        return Qt::SizeBDiagCursor;
    return edges & (Qt::LeftEdge | Qt::RightEdge) ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

// Where windows cannot place themselves, the system restores a maximised one as it begins to move it.
bool restoresItself()
{
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

// A frameless window whose frame lies in its contents margins, around those of the application. While
// maximised the border hangs over the edges of the screen, as on Windows.
class GenericWindowFrame final : public WindowFrame
{
public:
    GenericWindowFrame(QWidget *window, WindowFrameClient *client) : m_window(window), m_client(client)
    {
        window->setWindowFlag(Qt::FramelessWindowHint);
        window->setAttribute(Qt::WA_Hover);
        window->setMouseTracking(true);
        layOut();
    }

    bool event(QEvent *event) override;
    bool nativeEvent(void *, lumqt::NativeResult *) override { return false; }
    void shrinkToClient(tagNCCALCSIZE_PARAMS *) override {}
    bool isMaximized() const override { return m_window->isMaximized(); }
    bool isInside() const override { return true; }
    QRect clientRect() const override { return m_window->rect().marginsRemoved(m_frame); }
    QPoint pointer() const override { return m_position - clientRect().topLeft(); }
    void repaint(const QRect &part) override
    {
        m_window->update(part.isEmpty() ? m_window->rect() : part.translated(outer().topLeft()));
    }
    void paintInside(QPainter &painter, const QPaintEvent *event) override;

private:
    enum class Grip {
        None,    // no button is down, or it went down elsewhere
        Button,  // it went down on a caption button
        Caption, // and may begin to drag the window
        System,  // the system moves or resizes, and keeps the pointer until the button comes up
        Move,    // the window follows the pointer, as the system did not take over
        Resize,
    };

    // The window with its border, in coordinates of the widget.
    QRect outer() const { return clientRect().marginsAdded(m_client->margins()); }
    QRect titleStrip() const { return QRect(0, 0, m_window->width(), clientRect().top()); }
    bool isOverFrame() const
    {
        return m_window->rect().contains(m_position) && !clientRect().contains(m_position);
    }
    Qt::Edges edgesUnderPointer() const;
    void layOut();
    void takeMargins();
    void hover();
    void leave();
    void showCursor(Qt::Edges edges);
    bool mouse(const QMouseEvent *event);
    bool press(const QMouseEvent *event);
    bool release(const QPointF &place);
    void drag(const QPoint &global);
    void restoreUnderPointer(const QPoint &global);

    QWidget *const m_window;
    WindowFrameClient *const m_client;
    QMargins m_frame;  // how much of the widget is frame at present
    QMargins m_inside; // the application's own contents margins, within the client area
    QPoint m_position; // of the pointer, in the window
    bool m_hovered = false;
    Grip m_grip = Grip::None;
    Qt::Edges m_edges;       // that the drag moves
    QPoint m_pressedAt;      // on the screen
    QPointF m_pressedPlace;  // of the window, by the event
    QRect m_pressedGeometry; // of the window
    Qt::Edges m_cursorEdges; // that the cursor shows
    QCursor m_ownCursor;     // the window's own, while another is shown
    bool m_hasOwnCursor = false;
};

void GenericWindowFrame::layOut()
{
    QMargins margins = m_client->margins();
    if (m_window->isFullScreen())
        margins = QMargins();
    else if (m_window->isMaximized())
        margins = QMargins(0, margins.top() - margins.left(), 0, 0);
    m_frame = margins;
    m_window->setContentsMargins(m_frame + m_inside);
}

// The application set its margins in the place of all of them.
void GenericWindowFrame::takeMargins()
{
    if (m_window->contentsMargins() == m_frame + m_inside)
        return;
    m_inside = m_window->contentsMargins();
    m_window->setContentsMargins(m_frame + m_inside);
}

bool GenericWindowFrame::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
        return mouse(static_cast<QMouseEvent *>(event));
    case QEvent::HoverMove:
        // Comes for moves over the widgets of the client area, too, which is how leaving the frame is seen.
        m_position = position(*static_cast<QHoverEvent *>(event));
        hover();
        return false;
    case QEvent::HoverLeave:
        leave();
        return false;
    case QEvent::Show:
    case QEvent::WindowStateChange:
        layOut();
        return false;
    case QEvent::ContentsRectChange:
        takeMargins();
        return false;
    case QEvent::ParentChange: // also sent when the window's flags are set anew
        if (m_window->isWindow() && !m_window->windowFlags().testFlag(Qt::FramelessWindowHint))
            m_window->setWindowFlag(Qt::FramelessWindowHint);
        return false;
    default:
        return false;
    }
}

Qt::Edges GenericWindowFrame::edgesUnderPointer() const
{
    if (m_window->isMaximized() || m_window->isFullScreen())
        return {};
    Qt::Edges edges = m_client->edgesAt(m_position, m_window->size());
    if (m_window->minimumWidth() == m_window->maximumWidth())
        edges &= Qt::TopEdge | Qt::BottomEdge;
    if (m_window->minimumHeight() == m_window->maximumHeight())
        edges &= Qt::LeftEdge | Qt::RightEdge;
    return edges;
}

void GenericWindowFrame::hover()
{
    if (m_grip == Grip::Move || m_grip == Grip::Resize)
        return;
    if (!isOverFrame()) {
        leave();
        return;
    }
    showCursor(edgesUnderPointer());
    m_hovered = true;
    m_client->pointer(PointerAction::Move);
}

void GenericWindowFrame::leave()
{
    showCursor({});
    if (m_hovered)
        m_client->pointerLeft();
    m_hovered = false;
}

void GenericWindowFrame::showCursor(Qt::Edges edges)
{
    if (edges == m_cursorEdges)
        return;
    if (!m_cursorEdges) {
        m_hasOwnCursor = m_window->testAttribute(Qt::WA_SetCursor);
        m_ownCursor = m_window->cursor();
    }
    m_cursorEdges = edges;
    if (edges)
        m_window->setCursor(cursorFor(edges));
    else if (m_hasOwnCursor)
        m_window->setCursor(m_ownCursor);
    else
        m_window->unsetCursor();
}

bool GenericWindowFrame::mouse(const QMouseEvent *event)
{
    m_position = event->pos();
    if (event->type() == QEvent::MouseMove) {
        if (m_grip == Grip::None || !(event->buttons() & Qt::LeftButton))
            return false;
        drag(globalPosition(*event));
        return true;
    }
    if (event->button() != Qt::LeftButton)
        return isOverFrame();
    if (event->type() == QEvent::MouseButtonRelease)
        return release(windowPlace(*event));
    m_grip = Grip::None; // the system keeps what ends its move
    return isOverFrame() && press(event);
}

bool GenericWindowFrame::press(const QMouseEvent *event)
{
    m_pressedAt = globalPosition(*event);
    m_pressedPlace = windowPlace(*event);
    m_pressedGeometry = m_window->geometry();
    m_edges = edgesUnderPointer();
    if (m_edges) {
        const bool taken = m_window->windowHandle() && m_window->windowHandle()->startSystemResize(m_edges);
        m_grip = taken ? Grip::System : Grip::Resize;
        return true;
    }
    const QPointer<QWidget> alive(m_window);
    m_hovered = true;
    const bool onButton = m_client->pointer(PointerAction::Press);
    if (!alive)
        return true;
    m_grip = !onButton && m_client->isPointerInTitleBar() ? Grip::Caption : Grip::Button;
    if (m_grip == Grip::Caption && event->type() == QEvent::MouseButtonDblClick) {
        // Another part of the frame may lie under the pointer when the button comes up.
        m_grip = Grip::None;
        m_window->isMaximized() ? m_window->showNormal() : m_window->showMaximized();
    } else if (m_grip == Grip::Caption && (!m_window->isMaximized() || restoresItself()) &&
               m_window->windowHandle() && m_window->windowHandle()->startSystemMove()) {
        // At once: the system counts the way from where it is asked.
        m_grip = Grip::System;
    }
    return true;
}

// `place`: of the window, as the event has it; the window itself may not know yet.
bool GenericWindowFrame::release(const QPointF &place)
{
    const Grip grip = m_grip;
    m_grip = Grip::None;
    if (grip == Grip::None)
        return isOverFrame();
    if (grip == Grip::Move || grip == Grip::Resize)
        return true;
    if (grip == Grip::System) {
        // Where it has not taken the pointer yet, it would wait for a button to come up.
        cancelSystemMove(m_window->windowHandle());
        // Qt 6 tells of the end of what the system has done, too: the window lies elsewhere then. (Or where
        // it was, when it was moved there and back.)
        if (m_edges || (place - m_pressedPlace).manhattanLength() > kSamePlace)
            return true;
    }
    if (isOverFrame())
        m_client->pointer(PointerAction::Release);
    else
        leave();
    return true;
}

void GenericWindowFrame::drag(const QPoint &global)
{
    const QPoint way = global - m_pressedAt;
    if (m_grip == Grip::Caption && way.manhattanLength() >= QApplication::startDragDistance()) {
        if (m_window->isMaximized())
            restoreUnderPointer(global);
        m_grip = Grip::Move;
    }
    if (m_grip == Grip::Move) {
        m_window->move(m_pressedGeometry.topLeft() + way);
    } else if (m_grip == Grip::Resize) {
        const int dx = m_edges & Qt::LeftEdge ? -way.x() : m_edges & Qt::RightEdge ? way.x() : 0;
        const int dy = m_edges & Qt::TopEdge ? -way.y() : m_edges & Qt::BottomEdge ? way.y() : 0;
        QRect geometry(m_pressedGeometry.topLeft(),
                       QLayout::closestAcceptableSize(m_window, m_pressedGeometry.size() + QSize(dx, dy)));
        if (m_edges & Qt::LeftEdge)
            geometry.moveRight(m_pressedGeometry.right());
        if (m_edges & Qt::TopEdge)
            geometry.moveBottom(m_pressedGeometry.bottom());
        m_window->setGeometry(geometry);
    }
}

// The window takes its size from before under the pointer, at the same part of the strip's width, and follows
// it from there. Not by the system's move, which takes the window for where it was when the pointer was last
// told of.
void GenericWindowFrame::restoreUnderPointer(const QPoint &global)
{
    const QSize size = m_window->normalGeometry().size();
    const QPoint inside = m_pressedAt - m_pressedGeometry.topLeft();
    const int x = inside.x() * size.width() / qMax(1, m_pressedGeometry.width());
    const int y = inside.y() + m_client->margins().left(); // the border above is on the screen again
    m_window->showNormal();
    m_pressedGeometry = QRect(m_pressedAt - QPoint(x, y), size);
    m_window->setGeometry(m_pressedGeometry.translated(global - m_pressedAt));
}

void GenericWindowFrame::paintInside(QPainter &painter, const QPaintEvent *event)
{
    if (m_window->isFullScreen())
        return;
    const QRect all = m_window->rect();
    const QRect client = clientRect();
    const QRect strips[] = {
        QRect(all.left(), all.top(), all.width(), client.top() - all.top()),
        QRect(all.left(), client.top(), client.left() - all.left(), client.height()),
        QRect(client.right() + 1, client.top(), all.right() - client.right(), client.height()),
        QRect(all.left(), client.bottom() + 1, all.width(), all.bottom() - client.bottom())};
    const QPoint origin = outer().topLeft();
    painter.translate(origin);
    // One by one: a rectangle within a clip of one rectangle is filled as it is, one within a region line by
    // line.
    for (const QRect &strip : strips) {
        if (!event->region().intersects(strip))
            continue;
        painter.save();
        painter.setClipRect(strip.translated(-origin), Qt::IntersectClip);
        // Outside is what is transparent on Windows. Under a compositor a band could show through here, too,
        // but Qt paints all text of such a window without subpixel smoothing: too much for three pixels. And
        // a narrower window would leave a border of one or two to take hold of.
        m_client->paintFrame(painter, outer().size(), client.translated(-origin),
                             themeColor(Purpose::WindowOutside),
                             strip.bottom() < client.top() && event->region().intersects(titleStrip()));
        painter.restore();
    }
    painter.translate(-origin);
}

} // namespace

std::unique_ptr<WindowFrame> WindowFrame::create(QWidget *window, WindowFrameClient *client)
{
    return std::make_unique<GenericWindowFrame>(window, client);
}

} // namespace lumqt::platform
