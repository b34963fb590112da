#include "frames/FramePainter.h"

#include "foundation/Painting.h"
#include "foundation/Palette.h"

#include <QPainter>

namespace lumqt::frame {

namespace {
// What lies in `outer` and not in `inner`.
void fillRing(QPainter &painter, const QRectF &outer, const QRectF &inner, const QColor &color)
{
    painter.fillRect(QRectF(outer.topLeft(), QPointF(outer.right(), inner.top())), color);
    painter.fillRect(QRectF(QPointF(outer.left(), inner.bottom()), outer.bottomRight()), color);
    painter.fillRect(QRectF(QPointF(outer.left(), inner.top()), inner.bottomLeft()), color);
    painter.fillRect(QRectF(inner.topRight(), QPointF(outer.right(), inner.bottom())), color);
}

} // namespace

// Filled rectangles whose edges lie on device pixels: with a pen, lines would be of two widths at 150 per
// cent, and half a pixel would be left between what should touch, for `outside` to show. The client area is
// left alone, so that the cost follows the length of the border, not the area of the window.
void paintFrame(QPainter &painter, const QSizeF &size, const QRectF &client, int fw, const QColor &outside)
{
    const QRectF window(QPointF(0, 0), size);
    const QRectF body = wholeDevicePixels(painter, client);
    const QRectF strip =
        wholeDevicePixels(painter, QRectF(QPointF(client.left(), fw), QPointF(client.right(), client.top())));
    const QRectF inside(strip.topLeft(), body.bottomRight());
    if (!inside.isValid())
        return;
    const qreal ratio = painter.device()->devicePixelRatioF();
    const qreal line = qMax(1, qRound(ratio)) / ratio;
    const QRectF border = inside.adjusted(-line, -line, line, line);
    painter.save();
    // A pixel mixed with a colour that is made transparent would stay visible.
    painter.setRenderHint(QPainter::Antialiasing, false);
    fillRing(painter, wholeDevicePixels(painter, window), border, outside);
    fillRing(painter, border, inside, themeColor(Purpose::WindowBorder));
    painter.fillRect(strip, themeColor(Purpose::WindowCaption));
    // Covers a pixel of the right border.
    painter.fillRect(QRectF(strip.left(), strip.bottom() - line, strip.width() + line, line),
                     themeColor(Purpose::WindowCaptionLine));
    painter.restore();
}

} // namespace lumqt::frame
