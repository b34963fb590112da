#pragma once

#include "foundation/Painting.h"

#include <QColor>
#include <QImage>
#include <QPixmap>
#include <QRect>

#include <functional>

class QLinearGradient;
class QPainter;

// What a progress bar would spend its time on if it painted it anew with each pixel that it grows by: round
// ends cost as much as all the rest, and a gradient a score of instructions for each of its pixels. What is
// kept is in device pixels, and the same as what is painted anew but for the last bit, which Qt rounds by
// where in a window something lies. A painter that scales or turns its surface is served by painting.
namespace lumqt {

// Truncated, as everywhere: 100 per cent is said of a full bar only.
inline int wholePercent(double value)
{
    return int(value * 100 + 1e-9);
}

class KeptPicture
{
public:
    using Paint = std::function<void(QPainter &, const QRectF &)>;

    // Draws what `paint` paints into the device pixels of `rect`, which it is given; the same while its size
    // and the colour are.
    void draw(QPainter &painter, const QRect &rect, QRgb color, const Paint &paint);

private:
    QPixmap m_pixmap;
    QPointF m_offset; // of the rectangle within its first device pixel
    qreal m_ratio = 0;
    QRgb m_color = 0;
};

// A gradient from left to right that is painted in one row of pixels, for all rows.
class GradientRow
{
public:
    // A brush for `part`, from one end of which to the other the gradient goes. With it comes its origin.
    void set(QPainter &painter, const QRect &part, const QColor &from, const QColor &to);

private:
    struct Look
    {
        int width = 0;    // device pixels
        qreal offset = 0; // of the part within its first device pixel
        qreal ratio = 0;
        QRgb from = 0;
        QRgb to = 0;

        bool operator==(const Look &other) const
        {
            return width == other.width && offset == other.offset && ratio == other.ratio &&
                   from == other.from && to == other.to;
        }
    };

    void paint(const Look &look, const QLinearGradient &gradient);

    QImage m_row; // longer than need be
    Look m_look;
};

struct ProgressPictures
{
    KeptPicture frame;
    KeptPicture track;
    KeptPicture highlight;
    GradientRow filled;
    CachedText number;
};

} // namespace lumqt
