#include "CRoundedRectBase.h"

#include "foundation/Painting.h"
#include "foundation/Palette.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmapCache>

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
    if (!fillAsBar(painter, area))
        painter.drawPath(shape(area));
}

// A bar in one colour, round above, is a picture that is kept and a rectangle below it: the path would cost
// each window that opens several times as much. False, and nothing is painted, where this is no such bar.
bool CRoundedRectBase::fillAsBar(QPainter &painter, const QRectF &area) const
{
    const QTransform &toDevice = painter.deviceTransform();
    const qreal ratio = lumqt::ratioOf(painter);
    const qreal reach = qreal(m_radius) + 1; // with the last row that has a part of a corner
    const bool isBar = m_topLeft && m_topRight && !m_bottomLeft && !m_bottomRight && m_rounded && !m_square &&
                       m_radius > 0 && m_pen.style() == Qt::NoPen &&
                       painter.brush().style() == Qt::SolidPattern;
    // Only whole device pixels: at the others the path leaves the last column a trace paler.
    if (!isBar || area != QRectF(rect()) || area.width() < 2 * reach || area.height() < 2 * reach ||
        toDevice.type() > QTransform::TxScale || toDevice.m11() != ratio || toDevice.m22() != ratio)
        return false;
    const QRectF top = lumqt::wholeDevicePixels(painter, QRectF(area.topLeft(), QSizeF(area.width(), reach)));
    painter.drawPixmap(top.topLeft(), topPicture(top.size(), painter.brush(), ratio));
    painter.fillRect(QRectF(top.bottomLeft(), area.bottomRight()), painter.brush());
    return true;
}

QPixmap CRoundedRectBase::topPicture(const QSizeF &size, const QBrush &brush, qreal ratio) const
{
    const QSize pixels(qRound(size.width() * ratio), qRound(size.height() * ratio));
    QString key = QStringLiteral("lumqt bar");
    for (const uint part : {uint(pixels.width()), uint(pixels.height()), m_radius, uint(brush.color().rgba()),
                            uint(qRound(ratio * 1000))})
        key += QLatin1Char(' ') + QString::number(part);
    QPixmap picture;
    if (QPixmapCache::find(key, &picture))
        return picture;
    picture = QPixmap(pixels);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.drawPath(shape(QRectF(QPointF(), QSizeF(size.width(), 2 * size.height()))));
    painter.end();
    QPixmapCache::insert(key, picture);
    return picture;
}
