#include "dialogs/Backdrop.h"

#include "foundation/Painting.h"
#include "foundation/Palette.h"

#include <QPaintDevice>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>
#include <QtMath>

namespace lumqt {

namespace {

constexpr qreal kShadowStrength = 0.24; // at the body's edge
constexpr int kWidestBorder = 256;      // a wider one would need a picture without end
constexpr qreal kTrace = 1e-6;          // of a piece, by which sizes are off in computing
constexpr int kSide = 64;               // device pixels of a side that the picture has

// The shadow of a small body: corners of `corner` device pixels, and between them kSide of each side.
QPixmap shadowPatch(int border, int corner, qreal ratio)
{
    const QColor &shadow = themeColor(Purpose::Shadow);
    const QString key = QStringLiteral("lumqt-shadow-%1-%2-%3")
                            .arg(border)
                            .arg(qRound(ratio * 1000))
                            .arg(shadow.rgba(), 0, 16);
    QPixmap patch;
    if (QPixmapCache::find(key, &patch))
        return patch;
    const int side = 2 * corner + kSide;
    patch = QPixmap(side, side);
    patch.fill(Qt::transparent);
    QPainter painter(&patch);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    // Rings from the outermost in, one device pixel each and each over the last: together they grow with the
    // square of the depth, which fades out without an edge.
    const int rings = qMax(1, qRound(border * ratio));
    for (int ring = 0; ring < rings; ++ring) {
        const auto reached = [rings](int depth) { return kShadowStrength * depth * depth / rings / rings; };
        QColor color = shadow;
        color.setAlphaF((reached(ring + 1) - reached(ring)) / (1.0 - reached(ring)));
        painter.setBrush(color);
        const qreal radius = kDialogRadius * ratio + rings - ring;
        painter.drawRoundedRect(QRectF(patch.rect()).adjusted(ring, ring, -ring, -ring), radius, radius);
    }
    painter.end();
    QPixmapCache::insert(key, patch);
    return patch;
}

// Pixel by pixel, one piece of `source` after the other: to stretch one would cost several times as much.
void drawAlong(QPainter &painter, const QRectF &target, const QPixmap &patch, const QRectF &source,
               qreal ratio)
{
    const QSizeF whole = source.size() / ratio;
    const int columns = qMax(1, qCeil(target.width() / whole.width() - kTrace));
    const int rows = qMax(1, qCeil(target.height() / whole.height() - kTrace));
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const QPointF at = target.topLeft() + QPointF(column * whole.width(), row * whole.height());
            const QRectF piece = QRectF(at, whole) & target;
            painter.drawPixmap(piece, patch, QRectF(source.topLeft(), piece.size() * ratio));
        }
    }
}

} // namespace

void drawShadow(QPainter &painter, const QRect &rect, int border)
{
    if (border <= 0 || border > kWidestBorder || rect.isEmpty())
        return;
    const qreal ratio = painter.device() ? painter.device()->devicePixelRatioF() : 1.0;
    const int corner = qCeil((border + kDialogRadius) * ratio);
    const QPixmap patch = shadowPatch(border, corner, ratio);
    const QRectF whole = wholeDevicePixels(painter, QRectF(rect));
    const qreal across = qMin(corner / ratio, whole.width() / 2);
    const qreal down = qMin(corner / ratio, whole.height() / 2);
    const qreal xs[] = {whole.left(), whole.left() + across, whole.right() - across, whole.right()};
    const qreal ys[] = {whole.top(), whole.top() + down, whole.bottom() - down, whole.bottom()};
    const int from[] = {0, corner, corner + kSide, 2 * corner + kSide};
    const QTransform &toDevice = painter.deviceTransform();
    const bool asItIs =
        toDevice.type() <= QTransform::TxScale && toDevice.m11() == ratio && toDevice.m22() == ratio;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            if (row == 1 && column == 1)
                continue; // all of it lies under the body
            const QRectF target(QPointF(xs[column], ys[row]), QPointF(xs[column + 1], ys[row + 1]));
            const QRectF source(QPointF(from[column], from[row]), QPointF(from[column + 1], from[row + 1]));
            if (target.isEmpty())
                continue;
            if (asItIs && (row == 1 || column == 1))
                drawAlong(painter, target, patch, source, ratio);
            else
                painter.drawPixmap(target, patch, source);
        }
    }
}

} // namespace lumqt
