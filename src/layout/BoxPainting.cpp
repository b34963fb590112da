#include "layout/BoxPainting.h"

#include "foundation/Painting.h"

#include <QPainter>

namespace lumqt {

void fillPixels(QPainter &painter, const QRectF &rect, const QColor &color)
{
    if (color.isValid() && !rect.isEmpty())
        painter.fillRect(wholeDevicePixels(painter, rect), color);
}

void fillFramed(QPainter &painter, const QRectF &rect, const QColor &ground, const QColor &frame)
{
    fillPixels(painter, rect, ground); // below the frame too: it may be translucent
    if (!frame.isValid() || rect.isEmpty())
        return;
    // As thick at each side: inwards from the whole pixels of the rectangle.
    const QRectF whole = wholeDevicePixels(painter, rect);
    const qreal thick = wholeDeviceLine(painter, QRectF(rect.left(), rect.top(), rect.width(), 1)).height();
    painter.fillRect(QRectF(whole.left(), whole.top(), whole.width(), thick), frame);
    painter.fillRect(QRectF(whole.left(), whole.bottom() - thick, whole.width(), thick), frame);
    painter.fillRect(QRectF(whole.left(), whole.top() + thick, thick, whole.height() - 2 * thick), frame);
    painter.fillRect(QRectF(whole.right() - thick, whole.top() + thick, thick, whole.height() - 2 * thick),
                     frame);
}

} // namespace lumqt
