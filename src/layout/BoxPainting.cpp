#include "layout/BoxPainting.h"

#include "foundation/Painting.h"

#include <QPainter>

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
    fillFrame(painter, rect, 1, frame);
}

// From the outer edges inwards, which are those of the widget: its clip would cut what is thicker.
void fillFrame(QPainter &painter, const QRectF &rect, int width, const QColor &color)
{
    if (!color.isValid() || rect.isEmpty())
        return;
    const QRectF outer = wholeDevicePixels(painter, rect);
    const QSizeF line = evenDevicePixels(painter, QRectF(rect.topLeft(), QSizeF(width, width))).size();
    const qreal across = qMin(line.width(), outer.width() / 2);
    const qreal along = qMin(line.height(), outer.height() / 2);
    const QRectF inner = outer.adjusted(across, along, -across, -along);
    painter.fillRect(QRectF(outer.left(), outer.top(), outer.width(), along), color);
    painter.fillRect(QRectF(outer.left(), inner.bottom(), outer.width(), along), color);
    painter.fillRect(QRectF(outer.left(), inner.top(), across, inner.height()), color);
    painter.fillRect(QRectF(inner.right(), inner.top(), across, inner.height()), color);
}

void drawOutlined(QPainter &painter, const QRect &rect, const QPen &pen, const QBrush &brush)
{
    const bool fine = pen.style() == Qt::SolidLine && pen.brush().style() == Qt::SolidPattern &&
                      pen.width() == 1 && !pen.isCosmetic() && rect.isValid();
    painter.setPen(fine ? QPen(Qt::NoPen) : pen);
    painter.setBrush(brush);
    painter.drawRect(rect);
    if (fine)
        fillFrame(painter, QRectF(rect.adjusted(0, 0, 1, 1)), 1, pen.color());
}

} // namespace lumqt
