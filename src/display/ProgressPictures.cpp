#include "display/ProgressPictures.h"

#include "foundation/Painting.h"

#include <QLinearGradient>
#include <QPaintEngine>
#include <QPainter>

namespace lumqt {

namespace {

// Device pixels.
constexpr int kSpareWidth = 256; // that a row has room to grow by
constexpr int kLargestWidth = 16 * 1024;
constexpr int kLargestHeight = 64; // beyond these a picture costs more memory than painting costs time

// Device pixels to a logical one; 0 where what is painted does not come to lie on whole ones.
qreal plainRatio(const QPainter &painter)
{
    const QTransform &toDevice = painter.deviceTransform();
    const QPaintDevice *surface = painter.paintEngine() ? painter.paintEngine()->paintDevice() : nullptr;
    const bool plain = surface && toDevice.type() <= QTransform::TxScale &&
                       toDevice.m11() == surface->devicePixelRatioF() && toDevice.m22() == toDevice.m11();
    return plain ? toDevice.m11() : 0;
}

QLinearGradient gradientOver(qreal left, qreal right, const QColor &from, const QColor &to)
{
    QLinearGradient gradient(left, 0, right, 0);
    gradient.setColorAt(0, from);
    gradient.setColorAt(1, to);
    return gradient;
}

} // namespace

void KeptPicture::draw(QPainter &painter, const QRect &rect, QRgb color, const Paint &paint)
{
    const qreal ratio = plainRatio(painter);
    const QRectF target = wholeDevicePixels(painter, rect);
    const QSize size(qRound(target.width() * ratio), qRound(target.height() * ratio));
    if (size.isEmpty() || size.width() > kLargestWidth || size.height() > kLargestHeight) {
        paint(painter, target);
        return;
    }
    const QPointF offset = rect.topLeft() - target.topLeft();
    if (m_pixmap.size() != size || m_offset != offset || m_ratio != ratio || m_color != color) {
        m_pixmap = QPixmap(size);
        m_pixmap.fill(Qt::transparent);
        m_offset = offset;
        m_ratio = ratio;
        m_color = color;
        QPainter maker(&m_pixmap);
        maker.setRenderHints(painter.renderHints());
        maker.setPen(painter.pen());
        maker.scale(ratio, ratio);
        maker.translate(-target.topLeft());
        paint(maker, target); // rounded already: in here half a pixel may come to lie on another side
    }
    painter.drawPixmap(target, m_pixmap, QRectF(m_pixmap.rect()));
}

void GradientRow::set(QPainter &painter, const QRect &part, const QColor &from, const QColor &to)
{
    const qreal ratio = plainRatio(painter);
    const QRectF target = ratio > 0 ? wholeDevicePixels(painter, part) : QRectF(part);
    const int width = qRound(target.width() * ratio);
    if (width <= 0 || width > kLargestWidth) {
        painter.setBrush(gradientOver(part.left(), part.right(), from, to));
        return;
    }
    const Look look{width, (part.left() - target.left()) * ratio, ratio, from.rgba(), to.rgba()};
    if (!(m_look == look))
        paint(look, gradientOver(look.offset, look.offset + (part.width() - 1) * ratio, from, to));
    QBrush brush(m_row);
    brush.setTransform(QTransform::fromScale(1 / ratio, 1 / ratio));
    painter.setBrush(brush);
    painter.setBrushOrigin(target.topLeft());
}

void GradientRow::paint(const Look &look, const QLinearGradient &gradient)
{
    // What is opaque has to be said to be: Qt covers the edges with the one by another sum.
    const bool opaque = qAlpha(look.from) == 255 && qAlpha(look.to) == 255;
    const QImage::Format format = opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied;
    if (m_row.width() < look.width || m_row.format() != format)
        m_row = QImage(look.width + kSpareWidth, 1, format);
    QPainter painter(&m_row);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(0, 0, look.width, 1, gradient);
    m_look = look;
}

} // namespace lumqt
