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

// From the outer edges inwards, which are those of the widget: its clip would cut what is thicker.
QRectF fillEdges(QPainter &painter, const QRectF &rect, Qt::Edges edges, const QColor &color)
{
    const QRectF outer = wholeDevicePixels(painter, rect);
    const QSizeF line = evenDevicePixels(painter, QRectF(rect.topLeft(), QSizeF(1, 1))).size();
    const qreal across = qMin(line.width(), outer.width());
    const qreal along = qMin(line.height(), outer.height());
    const QRectF inner =
        outer.adjusted(edges & Qt::LeftEdge ? across : 0, edges & Qt::TopEdge ? along : 0,
                       edges & Qt::RightEdge ? -across : 0, edges & Qt::BottomEdge ? -along : 0);
    if (!color.isValid() || outer.isEmpty())
        return inner;
    painter.fillRect(QRectF(outer.topLeft(), QPointF(outer.right(), inner.top())), color);
    painter.fillRect(QRectF(QPointF(outer.left(), inner.bottom()), outer.bottomRight()), color);
    painter.fillRect(QRectF(QPointF(outer.left(), inner.top()), inner.bottomLeft()), color);
    painter.fillRect(QRectF(inner.topRight(), QPointF(outer.right(), inner.bottom())), color);
    return inner;
}

bool isPlainLine(const QPen &pen)
{
    return pen.style() == Qt::SolidLine && pen.brush().style() == Qt::SolidPattern && pen.width() == 1 &&
           !pen.isCosmetic();
}

} // namespace lumqt
