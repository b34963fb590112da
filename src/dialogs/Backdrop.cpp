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

// A quarter of the shadow and one pixel of each edge between: corners of `corner` device pixels, and between
// them what is stretched along the sides.
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
    const int side = 2 * corner + 1;
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
    const int from[] = {0, corner, corner + 1, 2 * corner + 1};
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            if (row == 1 && column == 1)
                continue; // all of it lies under the body
            const QRectF target(QPointF(xs[column], ys[row]), QPointF(xs[column + 1], ys[row + 1]));
            const QRectF source(QPointF(from[column], from[row]), QPointF(from[column + 1], from[row + 1]));
            if (!target.isEmpty())
                painter.drawPixmap(target, patch, source);
        }
    }
}

} // namespace lumqt
