#pragma once

#include "foundation/Internals.h"
#include "foundation/Look.h"

#include <QColor>
#include <QFont>
#include <QMargins>
#include <QRect>
#include <QString>
#include <QWidget>

#include <memory>

class QFontMetrics;
class QPainter;
class QStaticText;
class QTextLayout;

// What the painters of several widgets share. GUI thread only.
namespace lumqt {

// A number of a caller, in the range that widgets can have: sums of a few cannot overflow.
inline int boundedPixels(int pixels)
{
    return qBound(-QWIDGETSIZE_MAX, pixels, QWIDGETSIZE_MAX);
}

inline QMargins boundedPixels(const QMargins &margins)
{
    return QMargins(boundedPixels(margins.left()), boundedPixels(margins.top()),
                    boundedPixels(margins.right()), boundedPixels(margins.bottom()));
}

// A filled rectangle with a frame, square or with round corners. Sizes are logical pixels.
struct Body
{
    QColor fill;        // invalid: not filled
    QColor frame;       // invalid: no frame
    int frameWidth = 1; // drawn inside the rectangle, so that its outermost pixel has the frame's colour
    qreal radiusX = 0;  // 0: square corners
    qreal radiusY = 0;
};

// The device pixels to a logical one of what is painted on in the end: a widget that is rendered into a
// picture has its screen's.
qreal ratioOf(const QPainter &painter);

// Draws `body` into `rect`. A body is rendered once per size, look and device pixel ratio, and
// blitted after.
LUMQT_TESTED void drawBody(QPainter &painter, const QRectF &rect, const Body &body);

// The ring of the keyboard focus at the inner edge of `rect`: of what has room for it around its content.
// What has none is given its ring by setRingAround(). The radii are those of a body whose frame it takes the
// place of, 0 of a square one; around content that has no frame the ring has its own.
constexpr qreal kFocusRingRadius = 2.0;
LUMQT_TESTED void drawFocusRing(QPainter &painter, const QRectF &rect, qreal radiusX = kFocusRingRadius,
                                qreal radiusY = kFocusRingRadius);

// Where the ring around `content` goes that has kFocusRingReach logical pixels of room on each side: as far
// away on all of them, at every ratio.
constexpr int kFocusRingReach = kFocusRingWidth + 1; // with a pixel of air
LUMQT_TESTED QRectF focusRingAround(const QPainter &painter, const QRect &content);

// Device pixels to a logical one of what is painted on in the end: a widget that is rendered into a picture
// has its screen's.
qreal ratioOf(const QPainter &painter);

// `rect` with its edges on device pixels, where antialiased or scaled painting leaves no half-covered ones.
LUMQT_TESTED QRectF wholeDevicePixels(const QPainter &painter, const QRectF &rect);

// The same of a line or a small mark, which is as large wherever it lies: of lines side by side none is
// thicker than another. Never without a size.
LUMQT_TESTED QRectF evenDevicePixels(const QPainter &painter, const QRectF &rect);

// Lines one logical pixel wide along edges of `rect`, each as many device pixels; the rest of it is returned.
LUMQT_TESTED QRectF fillEdges(QPainter &painter, const QRectF &rect, Qt::Edges edges, const QColor &color);

// A triangle that points down, its box at `topLeft`.
LUMQT_TESTED void drawDropTriangle(QPainter &painter, const QPointF &topLeft, int width, int height,
                                   const QColor &color);

// The dot that marks an item or button, red unless told otherwise: 8 x 8 pixels at `topLeft`.
LUMQT_TESTED void drawDotBadge(QPainter &painter, const QPoint &topLeft);
LUMQT_TESTED void drawDotBadge(QPainter &painter, const QPoint &topLeft, const QColor &color);
constexpr int kDotBadgeSize = 8;

// A text that a widget measures, and draws again and again. It is laid out once for both, and once more when
// it is drawn a second time: then in the form that is quickest to draw.
class LUMQT_TESTED CachedText
{
public:
    CachedText();
    ~CachedText();
    CachedText(const CachedText &) = delete;
    CachedText &operator=(const CachedText &) = delete;

    // Draws `text` in the painter's pen, centred in `rect`; what does not fit on one line is wrapped at
    // words, or anywhere. The text is plain: no markup, and "&" is an ampersand.
    void drawCentred(QPainter &painter, const QRect &rect, const QString &text, const QFont &font);

    // Draws `text` on one line at the left of `rect`, centred vertically.
    void drawLeft(QPainter &painter, const QRect &rect, const QString &text, const QFont &font);

    // Size of `text` on one line, in logical pixels.
    QSize lineSize(const QString &text, const QFont &font);

    // What QFontMetrics::size() says of `text` with Qt::TextShowMnemonic, from the layout that is there
    // already.
    QSize styledSize(const QString &text, const QFont &font);

private:
    void measure(const QString &text, const QFont &font);
    void layOut(const QFontMetrics &metrics);
    void prepare(QPainter &painter, const QString &text, const QFont &font);
    void drawLine(QPainter &painter, const QPoint &topLeft);

    std::unique_ptr<QTextLayout> m_unpainted; // one line; until it is drawn the first time
    std::unique_ptr<QStaticText> m_fast;      // from the second time on
    QString m_text;
    QFont m_font;
    QSize m_size;
    QSize m_styledSize; // empty: not known
    qreal m_ratio = 0.0;
    int m_ascent = 0;
    Qt::LayoutDirection m_direction = Qt::LayoutDirectionAuto; // of m_fast
    bool m_oneLine = false;
    bool m_painted = false;
    bool m_neverFast = false;
};

} // namespace lumqt
