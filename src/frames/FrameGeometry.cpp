#include "frames/FrameGeometry.h"

namespace lumqt::frame {

namespace {

constexpr int kTitleHeight = 38; // below the border
constexpr int kButtonSpacing = 5;
constexpr int kIconLeft = 8; // from the border
constexpr int kIconSpacing = 5;
constexpr int kCaptionWidth = 65535;
constexpr int kHitRight = 2;     // between the border and the buttons as they are pressed
constexpr int kPaintedRight = 8; // and as they are drawn
constexpr int kPaintedDrop = 2;
constexpr int kCornerLength = 12; // along each edge: a corner of the bare border is hard to hit

// Buttons lie from right to left, from the last id to the first.
template <class TopOf> ButtonRects rowFrom(int right, const ButtonSizes &sizes, TopOf topOf)
{
    ButtonRects rects;
    int offset = 0;
    for (int id = kButtonCount - 1; id >= 0; --id) {
        const QSize size = sizes[id];
        offset += size.width();
        rects[id] = QRect(QPoint(right - offset, topOf(size.height())), size);
        offset += kButtonSpacing;
    }
    return rects;
}

} // namespace

int titleHeight(int fw)
{
    return kTitleHeight + fw;
}

ButtonRects hitRects(int width, int fw, const ButtonSizes &sizes)
{
    return rowFrom(width - fw - kHitRight, sizes,
                   [fw](int height) { return (titleHeight(fw) - height) / 2; });
}

ButtonRects paintedRects(int width, int fw, const ButtonSizes &sizes)
{
    return rowFrom(width - fw - kPaintedRight, sizes,
                   [fw](int height) { return (titleHeight(fw) - height + fw) / 2 + kPaintedDrop; });
}

Part partAt(const QPoint &position, int width, int fw, const ButtonSizes &sizes, const QRect &icon)
{
    const ButtonRects rects = hitRects(width, fw, sizes);
    for (int id = kButtonCount - 1; id >= 0; --id) {
        if (rects[id].contains(position))
            return Part(id);
    }
    return icon.contains(position) ? TitleIcon : Nothing;
}

QRect iconRect(int fw, const QSize &icon)
{
    return QRect(QPoint(fw + kIconLeft, fw / 2 + (titleHeight(fw) - icon.height()) / 2), icon);
}

QRect captionRect(int fw, bool hasIcon, int iconWidth)
{
    const int left = fw + kIconLeft + (hasIcon ? iconWidth + kIconSpacing : 0);
    return QRect(left, fw / 2, kCaptionWidth, titleHeight(fw));
}

int captionEnd(int width, int fw, const ButtonSizes &sizes)
{
    int end = width - fw;
    for (const QRect &rect : paintedRects(width, fw, sizes)) {
        if (!rect.isEmpty())
            end = qMin(end, rect.left());
    }
    return end - kButtonSpacing;
}

int lowestWidth(int fw, bool hasIcon, int iconWidth, const ButtonSizes &sizes)
{
    return captionRect(fw, hasIcon, iconWidth).left() - kButtonSpacing - captionEnd(0, fw, sizes);
}

QRect titleBarRect(int clientWidth, int fw, bool maximized)
{
    const int top = maximized ? 0 : fw;
    return QRect(0, top, clientWidth, titleHeight(fw) - top);
}

Qt::Edges edgesAt(const QPoint &position, const QSize &size, int fw)
{
    const int left = position.x();
    const int top = position.y();
    const int right = size.width() - 1 - left;
    const int bottom = size.height() - 1 - top;
    const int nearest = qMin(qMin(left, right), qMin(top, bottom));
    if (nearest < 0 || nearest >= fw)
        return {};
    Qt::Edges edges;
    const int reach = fw + kCornerLength;
    // On the border itself its end belongs to the corner.
    if (qMin(left, right) < (qMin(top, bottom) < fw ? reach : fw))
        edges |= left <= right ? Qt::LeftEdge : Qt::RightEdge;
    if (qMin(top, bottom) < (qMin(left, right) < fw ? reach : fw))
        edges |= top <= bottom ? Qt::TopEdge : Qt::BottomEdge;
    return edges;
}

} // namespace lumqt::frame
