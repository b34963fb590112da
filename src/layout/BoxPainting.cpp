#include "layout/BoxPainting.h"

#include "foundation/Painting.h"

#include <QPainter>
#include <QPen>

namespace lumqt {

void fillPixels(QPainter &painter, const QRectF &rect, const QColor &color)
{
    if (color.isValid() && !rect.isEmpty())
        painter.fillRect(wholeDevicePixels(painter, rect), color);
}

void fillLine(QPainter &painter, const QRectF &rect, const QColor &color)
{
    if (color.isValid() && !rect.isEmpty())
        painter.fillRect(evenDevicePixels(painter, rect), color);
}

void fillFramed(QPainter &painter, const QRectF &rect, const QColor &ground, const QColor &frame)
{
    fillPixels(painter, rect, ground); // below the frame too: it may be translucent
    fillEdges(painter, rect, Qt::TopEdge | Qt::LeftEdge | Qt::RightEdge | Qt::BottomEdge, frame);
}

bool isPlainLine(const QPen &pen)
{
    return pen.style() == Qt::SolidLine && pen.brush().style() == Qt::SolidPattern && pen.width() == 1 &&
           !pen.isCosmetic();
}

} // namespace lumqt
