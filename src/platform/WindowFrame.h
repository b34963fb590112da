#pragma once

#include "LumQtCompat.h"

#include <QColor>
#include <QMargins>
#include <QRect>

#include <memory>

class QEvent;
class QPaintEvent;
class QPainter;
class QWidget;
struct tagNCCALCSIZE_PARAMS;

namespace lumqt::platform {

enum class PointerAction { Move, Press, Release }; // of the left button
enum class FramePart { Bare, MaximizeButton, OtherButton };

// What a frame that the library draws asks of the window it belongs to. Sizes are logical pixels.
class WindowFrameClient
{
public:
    virtual ~WindowFrameClient() = default;

    // How much of the window is frame.
    virtual QMargins margins() const = 0;
    // Something happened with the pointer over the frame; asks the frame for its place. True: it concerns a
    // button or the icon, the system has no business with it. The window may be gone afterwards.
    virtual bool pointer(PointerAction action) = 0;
    // What the frame has at `position`, in coordinates of the client area.
    virtual FramePart partAt(const QPoint &position) = 0;
    // The pointer has left the frame, on platforms that tell.
    virtual void pointerLeft() = 0;
    // Whether the pointer is where a window is taken to move it.
    virtual bool isPointerInTitleBar() = 0;
    // The edges that the pointer resizes at `position` of a window of `size`.
    virtual Qt::Edges edgesAt(const QPoint &position, const QSize &size) const = 0;
    // The person or the system asks the window to close. It may be gone afterwards.
    virtual void closeRequested() = 0;
    // Windows asks for the client area.
    virtual void sizeClient(tagNCCALCSIZE_PARAMS *params) = 0;
    // Paints the frame of a window of `size` around `client`. Without `withTitle`, caption and buttons are
    // left out: the part that is shown does not hold them.
    virtual void paintFrame(QPainter &painter, const QSizeF &size, const QRectF &client,
                            const QColor &outside, bool withTitle) = 0;
};

// The frame of one top-level window, as the platform makes it. GUI thread only.
class WindowFrame
{
public:
    // Neither `window` nor `client` is owned; both outlive the frame.
    static std::unique_ptr<WindowFrame> create(QWidget *window, WindowFrameClient *client);
    virtual ~WindowFrame() = default;

    // Sees every event and native message of the window first. True: nothing is left to do, and the window
    // may be gone.
    virtual bool event(QEvent *event) = 0;
    virtual bool nativeEvent(void *message, lumqt::NativeResult *result) = 0;

    // Takes the frame off the area that Windows proposes.
    virtual void shrinkToClient(tagNCCALCSIZE_PARAMS *params) = 0;

    virtual bool isMaximized() const = 0;
    // Whether the frame is part of the widget, whose picture has it then.
    virtual bool isInside() const = 0;
    // The client area in coordinates of the window's widget.
    virtual QRect clientRect() const = 0;
    // The pointer in coordinates of the client area, which has the frame at negative ones.
    virtual QPoint pointer() const = 0;

    // Shows `part` of the title strip anew, in window coordinates; all of the frame when that is empty.
    virtual void repaint(const QRect &part) = 0;
    // Paints the frame where it is part of the widget.
    virtual void paintInside(QPainter &painter, const QPaintEvent *event) = 0;
};

} // namespace lumqt::platform
