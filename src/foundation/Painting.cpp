#include "foundation/Painting.h"

#include "foundation/Palette.h"
#include "foundation/QtCompat.h"

#include <QCache>
#include <QCoreApplication>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPixmap>

#include <cmath>

namespace lumqt {

namespace {

constexpr int kBodyCacheKiB = 16 * 1024;
// Beyond this a picture of a body costs more memory than rendering it anew costs time (logical pixels).
constexpr int kLargestCachedArea = 512 * 512;
constexpr qreal kDotRadius = 4.0;

struct BodyKey
{
    QSize size;
    QRgb fill;
    QRgb frame;
    int frameWidth;
    qreal radiusX;
    qreal radiusY;
    int ratio; // thousandths

    bool operator==(const BodyKey &other) const
    {
        return size == other.size && fill == other.fill && frame == other.frame &&
               frameWidth == other.frameWidth && radiusX == other.radiusX && radiusY == other.radiusY &&
               ratio == other.ratio;
    }
};

HashValue qHash(const BodyKey &key, HashValue seed = 0)
{
    HashValue hash = seed;
    for (const HashValue part : {HashValue(key.size.width()), HashValue(key.size.height()),
                                 HashValue(key.fill), HashValue(key.frame), HashValue(key.frameWidth),
                                 ::qHash(key.radiusX), ::qHash(key.radiusY), HashValue(key.ratio)})
        hash = (hash ^ part) * 0x01000193u; // FNV-1a, a word at a time
    return hash;
}

// The pictures of bodies; and the last one by itself, for a window is full of the same.
struct Bodies
{
    QCache<BodyKey, QPixmap> all{kBodyCacheKiB};
    BodyKey lastKey{};
    QPixmap last;
};

Bodies &bodies()
{
    static Bodies *known = [] {
        // Pixmaps must be gone before the application is.
        qAddPostRoutine([] {
            bodies().all.clear();
            bodies().last = QPixmap();
        });
        return new Bodies;
    }();
    return *known;
}

// The device pixels that `width` logical ones have room for, wherever they begin.
int wholeRoom(int width, qreal ratio)
{
    return int(std::floor(width * ratio + 1e-6)); // 3 * 1.1 too is to have its whole pixels
}

// A logical width in whole device pixels, so that frames are as sharp at 150 per cent as at 100. One of
// several pixels takes no more than its room, which can be that much: what lies inside would cover the rest.
int wholePixels(int width, qreal ratio)
{
    return width > 1 ? qMax(1, wholeRoom(width, ratio)) : width > 0 ? qMax(1, qRound(ratio)) : 0;
}

void renderRounded(QPainter &painter, const QRectF &rect, const Body &body, qreal frameWidth, qreal ratio)
{
    const qreal inset = frameWidth / 2; // the line lies within the rectangle, on pixel centres
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(frameWidth > 0 ? QPen(body.frame, frameWidth) : QPen(Qt::NoPen));
    painter.setBrush(body.fill.isValid() ? QBrush(body.fill) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), body.radiusX * ratio,
                            body.radiusY * ratio);
}

// Five plain fills: whole pixels, which antialiased lines would miss at the corners.
void renderSquare(QPainter &painter, const QRectF &rect, const Body &body, qreal frameWidth)
{
    const QRectF inner = rect.adjusted(frameWidth, frameWidth, -frameWidth, -frameWidth);
    if (body.fill.isValid() && inner.isValid())
        painter.fillRect(inner, body.fill);
    if (frameWidth <= 0)
        return;
    painter.fillRect(QRectF(rect.left(), rect.top(), rect.width(), frameWidth), body.frame);
    painter.fillRect(QRectF(rect.left(), inner.bottom(), rect.width(), frameWidth), body.frame);
    painter.fillRect(QRectF(rect.left(), inner.top(), frameWidth, inner.height()), body.frame);
    painter.fillRect(QRectF(inner.right(), inner.top(), frameWidth, inner.height()), body.frame);
}

// Renders into `rect` of a painter with `ratio` of its units to a logical pixel; the frame is `frameWidth`
// units wide.
void renderBody(QPainter &painter, const QRectF &rect, const Body &body, qreal frameWidth, qreal ratio)
{
    if (body.radiusX > 0 && body.radiusY > 0)
        renderRounded(painter, rect, body, frameWidth, ratio);
    else
        renderSquare(painter, rect, body, frameWidth);
}

// The picture of a body of `size` device pixels. Its own ratio is 1: whoever draws it says where it goes.
QPixmap bodyPixmap(const QSize &size, const Body &body, qreal ratio)
{
    const bool framed = body.frame.isValid();
    const BodyKey key{size,
                      body.fill.isValid() ? body.fill.rgba() : 0u,
                      framed ? body.frame.rgba() : 0u,
                      framed ? body.frameWidth : 0,
                      body.radiusX,
                      body.radiusY,
                      qRound(ratio * 1000)};
    Bodies &known = bodies();
    if (key == known.lastKey && !known.last.isNull())
        return known.last;
    known.lastKey = key;
    if (const QPixmap *before = known.all.object(key))
        return known.last = *before;
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderBody(painter, QRectF(pixmap.rect()), body, framed ? wholePixels(body.frameWidth, ratio) : 0, ratio);
    painter.end();
    known.all.insert(key, new QPixmap(pixmap), 1 + pixmap.width() * pixmap.height() / 256);
    return known.last = pixmap;
}

} // namespace

qreal ratioOf(const QPainter &painter)
{
    const QPaintDevice *surface =
        painter.paintEngine() ? painter.paintEngine()->paintDevice() : painter.device();
    return surface ? surface->devicePixelRatioF() : 1.0;
}

QRectF wholeDevicePixels(const QPainter &painter, const QRectF &rect)
{
    const QTransform &toDevice = painter.deviceTransform();
    if (toDevice.type() > QTransform::TxScale)
        return rect;
    const QRectF device = toDevice.mapRect(rect);
    // Both edges are rounded as the widget's clip rounds them, not one edge and the size.
    const QPointF topLeft(qRound(device.left()), qRound(device.top()));
    const QPointF bottomRight(qRound(device.right()), qRound(device.bottom()));
    return toDevice.inverted().mapRect(QRectF(topLeft, bottomRight));
}

QRectF evenDevicePixels(const QPainter &painter, const QRectF &rect)
{
    const QTransform &toDevice = painter.deviceTransform();
    if (toDevice.type() > QTransform::TxScale)
        return rect;
    const QPointF topLeft = wholeDevicePixels(painter, rect).topLeft();
    const auto even = [](qreal length, qreal scale) { return qMax(1, qRound(length * scale)) / scale; };
    return QRectF(
        topLeft, QSizeF(even(rect.width(), qAbs(toDevice.m11())), even(rect.height(), qAbs(toDevice.m22()))));
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

QRectF focusRingAround(const QPainter &painter, const QRect &content)
{
    const QTransform &toDevice = painter.deviceTransform();
    const qreal ratio = qAbs(toDevice.m11());
    if (toDevice.type() > QTransform::TxScale || ratio <= 0)
        return QRectF(content).adjusted(-kFocusRingReach, -kFocusRingReach, kFocusRingReach, kFocusRingReach);
    const int air = qMax(1, wholeRoom(kFocusRingReach - kFocusRingWidth, ratio));
    const qreal reach = (air + wholePixels(kFocusRingWidth, ratio)) / ratio;
    return wholeDevicePixels(painter, content).adjusted(-reach, -reach, reach, reach);
}

void drawBody(QPainter &painter, const QRectF &rect, const Body &body)
{
    if (rect.isEmpty())
        return;
    const qreal ratio = ratioOf(painter);
    const bool small = rect.width() * rect.height() <= kLargestCachedArea;
    if (small && ratio == 1.0) { // whole pixels as they are
        // Both edges rounded: the width that toRect() gives is not the same with every Qt.
        const QRect whole(rect.topLeft().toPoint(), rect.bottomRight().toPoint() - QPoint(1, 1));
        painter.drawPixmap(whole.topLeft(), bodyPixmap(whole.size(), body, ratio));
        return;
    }
    const QRectF target = wholeDevicePixels(painter, rect);
    const QSize pixels(qRound(target.width() * ratio), qRound(target.height() * ratio));
    if (pixels.isEmpty())
        return;
    if (small) {
        const QPixmap pixmap = bodyPixmap(pixels, body, ratio);
        painter.drawPixmap(target, pixmap, QRectF(pixmap.rect()));
        return;
    }
    painter.save();
    renderBody(painter, target, body,
               body.frame.isValid() ? wholePixels(body.frameWidth, ratio) / ratio : 0.0, 1.0);
    painter.restore();
}

void drawDropTriangle(QPainter &painter, const QPointF &topLeft, int width, int height, const QColor &color)
{
    // Its upper edge is a straight one.
    const QPointF start = wholeDevicePixels(painter, QRectF(topLeft, QSizeF(width, height))).topLeft();
    const QPointF corners[] = {start, start + QPointF(width, 0), start + QPointF(width / 2.0, height)};
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawPolygon(corners, 3);
    painter.restore();
}

void drawFocusRing(QPainter &painter, const QRectF &rect, qreal radiusX, qreal radiusY)
{
    Body ring;
    ring.frame = themeColor(Purpose::FocusRing);
    ring.frameWidth = kFocusRingWidth;
    ring.radiusX = radiusX > 0 ? radiusX : 0; // also for what is no number
    ring.radiusY = radiusY > 0 ? radiusY : 0;
    drawBody(painter, rect, ring);
}

void drawDotBadge(QPainter &painter, const QPoint &topLeft)
{
    drawDotBadge(painter, topLeft, themeColor(Purpose::Badge));
}

void drawDotBadge(QPainter &painter, const QPoint &topLeft, const QColor &color)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    const QRectF place(topLeft, QSizeF(kDotBadgeSize, kDotBadgeSize));
    painter.drawRoundedRect(wholeDevicePixels(painter, place), kDotRadius, kDotRadius);
    painter.restore();
}

} // namespace lumqt
