// Scroll bars: a track and a slider, without buttons.

#include "foundation/Fade.h"
#include "foundation/Painting.h"
#include "foundation/StyleParts.h"

#include <QPainter>
#include <QScrollBar>
#include <QStyleOption>

namespace lumqt {

namespace {

constexpr int kSliderInset = 2; // beside the slider
constexpr int kLeastSlider = 24;

int sliderLength(const QStyleOptionSlider &option, int length)
{
    const qint64 range = qint64(option.maximum) - option.minimum;
    if (range <= 0)
        return length;
    const qint64 share = qint64(length) * option.pageStep / qMax<qint64>(1, range + option.pageStep);
    return int(qBound(qint64(qMin(kLeastSlider, length)), share, qint64(length)));
}

} // namespace

QRect scrollBarPart(const QStyleOptionSlider &option, QStyle::SubControl part)
{
    const bool across = option.orientation == Qt::Horizontal;
    const int length = across ? option.rect.width() : option.rect.height();
    const int slider = sliderLength(option, length);
    const int start = QStyle::sliderPositionFromValue(option.minimum, option.maximum, option.sliderPosition,
                                                      length - slider, option.upsideDown);
    int from = 0;
    int to = length;
    switch (part) {
    case QStyle::SC_ScrollBarSubPage:
        to = start;
        break;
    case QStyle::SC_ScrollBarAddPage:
        from = start + slider;
        break;
    case QStyle::SC_ScrollBarSlider:
        from = start;
        to = start + slider;
        break;
    case QStyle::SC_ScrollBarGroove:
        break;
    default:
        return QRect();
    }
    const QPoint at = option.rect.topLeft();
    const QRect rect = across ? QRect(at.x() + from, at.y(), to - from, option.rect.height())
                              : QRect(at.x(), at.y() + from, option.rect.width(), to - from);
    return QStyle::visualRect(option.direction, option.rect, rect);
}

void drawScrollBar(const QStyleOptionSlider &option, const Canvas &canvas)
{
    const StyleColors colors(option);
    canvas.painter.fillRect(wholeDevicePixels(canvas.painter, option.rect), colors.raised);
    if (!(option.state & QStyle::State_Enabled) || option.maximum <= option.minimum)
        return;
    const bool across = option.orientation == Qt::Horizontal;
    const QRect part =
        canvas.style.subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, canvas.widget);
    const QRect slider = across ? part.adjusted(0, kSliderInset, 0, -kSliderInset)
                                : part.adjusted(kSliderInset, 0, -kSliderInset, 0);
    const bool touched = option.activeSubControls & QStyle::SC_ScrollBarSlider &&
                         option.state & (QStyle::State_MouseOver | QStyle::State_Sunken);
    canvas.painter.fillRect(
        wholeDevicePixels(canvas.painter, slider),
        fadedColor(controlOf<QScrollBar>(canvas).control, FadingSlider, touched ? colors.ink : colors.frame));
}

} // namespace lumqt
