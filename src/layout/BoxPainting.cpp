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
    fillPixels(painter, QRectF(rect.left(), rect.top(), rect.width(), 1), frame);
    fillPixels(painter, QRectF(rect.left(), rect.bottom() - 1, rect.width(), 1), frame);
    fillPixels(painter, QRectF(rect.left(), rect.top() + 1, 1, rect.height() - 2), frame);
    fillPixels(painter, QRectF(rect.right() - 1, rect.top() + 1, 1, rect.height() - 2), frame);
}

} // namespace lumqt
