#include "CRoundedRectBase.h"

#include "foundation/Painting.h"
#include "foundation/Palette.h"

#include <QPainter>
#include <QPainterPath>

CRoundedRectBase::CRoundedRectBase(unsigned int radius, QWidget *parent, bool topLeft, bool topRight,
                                   bool bottomRight, bool bottomLeft)
    : QWidget(parent),
      m_brush(lumqt::builtInColor(lumqt::Purpose::RoundedGround)),
      m_pen(Qt::NoPen),
      m_first(m_brush),
      m_radius(radius),
      m_topLeft(topLeft),
      m_topRight(topRight),
      m_bottomRight(bottomRight),
      m_bottomLeft(bottomLeft)
{
    setAttribute(Qt::WA_TranslucentBackground);
}

void CRoundedRectBase::SetRoundRectEnabled(bool enabled)
{
    m_rounded = enabled;
    update();
}

void CRoundedRectBase::setSquare(bool square)
{
    m_square = square;
    update();
}

// `rect` reaches over the right and bottom edges of the pixels it covers, so the shape fills them all.
QPainterPath CRoundedRectBase::shape(const QRectF &rect) const
{
    QPainterPath path;
    const qreal radius = qMin(qreal(m_radius), qMin(rect.width(), rect.height()) / 2);
    if (!m_rounded || m_square || radius <= 0) {
        path.addRect(rect);
        return path;
    }
    const qreal side = 2 * radius; // of the square that an arc is cut from
    const auto corner = [&](bool round, const QPointF &square, const QPointF &circle, qreal angle) {
        if (round)
            path.arcTo(QRectF(circle, QSizeF(side, side)), angle, 90);
        else
            path.lineTo(square);
    };
    path.moveTo(rect.left() + rect.width() / 2, rect.top());
    corner(m_topLeft, rect.topLeft(), rect.topLeft(), 90);
    corner(m_bottomLeft, rect.bottomLeft(), rect.bottomLeft() - QPointF(0, side), 180);
    corner(m_bottomRight, rect.bottomRight(), rect.bottomRight() - QPointF(side, side), 270);
    corner(m_topRight, rect.topRight(), rect.topRight() - QPointF(side, 0), 0);
    path.closeSubpath();
    return path;
}

void CRoundedRectBase::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QRectF area = lumqt::wholeDevicePixels(painter, QRectF(rect()));
    if (m_pen.style() != Qt::NoPen) { // one pixel wide, its line lies on pixel centres
        const qreal inset = qMax(m_pen.widthF(), 1.0) / 2;
        area.adjust(inset, inset, -inset, -inset);
    }
    const bool own = &*m_brush.data_ptr() != &*m_first.data_ptr();
    painter.setBrush(own ? m_brush : QBrush(lumqt::themeColor(lumqt::Purpose::RoundedGround)));
    painter.setPen(m_pen);
    painter.drawPath(shape(area));
}
