// Menu bars, tabs, group boxes and, on dark windows, sliders.

#include "foundation/Painting.h"
#include "foundation/StyleParts.h"

#include <QPainter>
#include <QStyleOption>
#include <QTabBar>

namespace lumqt {

namespace {

constexpr int kChosenWidth = 2;  // of the line at the chosen tab
constexpr qreal kTrackWidth = 4; // of a slider
constexpr qreal kHandleSize = 14;

// The side of a tab that its page lies on.
Qt::Edge pageEdge(QTabBar::Shape shape)
{
    switch (shape) {
    case QTabBar::RoundedSouth:
    case QTabBar::TriangularSouth:
        return Qt::TopEdge;
    case QTabBar::RoundedWest:
    case QTabBar::TriangularWest:
        return Qt::RightEdge;
    case QTabBar::RoundedEast:
    case QTabBar::TriangularEast:
        return Qt::LeftEdge;
    default:
        return Qt::BottomEdge;
    }
}

void drawTab(const QStyleOptionTab &option, const Canvas &canvas)
{
    const StyleColors colors(option);
    const bool chosen = option.state & QStyle::State_Selected;
    const bool hovered = option.state & QStyle::State_MouseOver && option.state & QStyle::State_Enabled;
    if (hovered && !chosen)
        canvas.painter.fillRect(wholeDevicePixels(canvas.painter, option.rect), colors.hovered);
    if (!chosen)
        return;
    QRect line = option.rect;
    const Qt::Edge edge = pageEdge(option.shape);
    if (edge == Qt::BottomEdge)
        line.setTop(line.bottom() + 1 - kChosenWidth);
    else if (edge == Qt::TopEdge)
        line.setHeight(kChosenWidth);
    else if (edge == Qt::RightEdge)
        line.setLeft(line.right() + 1 - kChosenWidth);
    else
        line.setWidth(kChosenWidth);
    canvas.painter.fillRect(wholeDevicePixels(canvas.painter, line), colors.accent);
}

void drawMenuBarItem(const QStyleOptionMenuItem &option, const Canvas &canvas)
{
    const StyleColors colors(option);
    const bool open = option.state & QStyle::State_Sunken;
    const bool active = option.state & QStyle::State_Selected && option.state & QStyle::State_Enabled;
    const QRectF rect = wholeDevicePixels(canvas.painter, option.rect);
    canvas.painter.fillRect(rect, option.palette.window());
    if (active)
        canvas.painter.fillRect(rect, open ? colors.pressed : colors.hovered);
    int alignment = Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextDontClip | Qt::TextSingleLine;
    if (!canvas.style.styleHint(QStyle::SH_UnderlineShortcut, &option, canvas.widget))
        alignment |= Qt::TextHideMnemonic;
    if (option.icon.isNull()) {
        canvas.style.drawItemText(&canvas.painter, option.rect, alignment, option.palette,
                                  option.state & QStyle::State_Enabled, option.text, QPalette::ButtonText);
    } else {
        const int side = canvas.style.pixelMetric(QStyle::PM_SmallIconSize, &option, canvas.widget);
        QRect place(0, 0, side, side);
        place.moveCenter(option.rect.center());
        option.icon.paint(&canvas.painter, place, Qt::AlignCenter,
                          option.state & QStyle::State_Enabled ? QIcon::Normal : QIcon::Disabled);
    }
    fillEdges(canvas.painter, option.rect, Qt::BottomEdge, colors.rule);
}

QColor handleColor(const QStyleOptionSlider &option, const StyleColors &colors)
{
    const bool touched = option.activeSubControls & QStyle::SC_SliderHandle;
    if (!(option.state & QStyle::State_Enabled))
        return colors.of(Purpose::SliderHandleDisabled);
    if (touched && option.state & QStyle::State_Sunken)
        return colors.of(Purpose::AccentPressed);
    return colors.of(touched && option.state & QStyle::State_MouseOver ? Purpose::AccentHovered
                                                                       : Purpose::SliderHandle);
}

} // namespace

QStyleOptionSlider ticksOf(const QStyleOptionSlider &option)
{
    QStyleOptionSlider ticks = option;
    ticks.subControls &= QStyle::SC_SliderTickmarks;
    ticks.palette = outlinedPalette(option, StyleColors(option).of(Purpose::SliderTick));
    return ticks;
}

// As the library's own sliders, and what is below the value in the colour of the handle.
void drawSlider(const QStyleOptionSlider &option, const Canvas &canvas)
{
    const StyleColors colors(option);
    const auto placeOf = [&option, &canvas](QStyle::SubControl part) {
        return QRectF(canvas.style.subControlRect(QStyle::CC_Slider, &option, part, canvas.widget));
    };
    const bool across = option.orientation == Qt::Horizontal;
    const QRectF groove = placeOf(QStyle::SC_SliderGroove);
    QRectF handle(0, 0, kHandleSize, kHandleSize);
    handle.moveCenter(placeOf(QStyle::SC_SliderHandle).center());
    QRectF track = groove;
    if (across)
        track.setHeight(kTrackWidth);
    else
        track.setWidth(kTrackWidth);
    track.moveCenter(across ? QPointF(groove.center().x(), handle.center().y())
                            : QPointF(handle.center().x(), groove.center().y()));
    QRectF below = track;
    const QPointF middle = handle.center();
    if (across)
        option.upsideDown ? below.setLeft(middle.x()) : below.setRight(middle.x());
    else
        option.upsideDown ? below.setTop(middle.y()) : below.setBottom(middle.y());
    canvas.painter.fillRect(wholeDevicePixels(canvas.painter, track), colors.of(Purpose::SliderTrack));
    const QColor color = handleColor(option, colors);
    canvas.painter.fillRect(wholeDevicePixels(canvas.painter, below), color);
    canvas.painter.save();
    canvas.painter.setRenderHint(QPainter::Antialiasing);
    canvas.painter.setPen(Qt::NoPen);
    canvas.painter.setBrush(color);
    canvas.painter.drawEllipse(handle);
    canvas.painter.restore();
}

bool drawBarControl(QStyle::ControlElement element, const QStyleOption &option, const Canvas &canvas)
{
    switch (element) {
    case QStyle::CE_MenuBarItem:
        if (const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(&option)) {
            drawMenuBarItem(*item, canvas);
            return true;
        }
        return false;
    case QStyle::CE_MenuBarEmptyArea:
        canvas.painter.fillRect(option.rect, option.palette.window());
        fillEdges(canvas.painter, option.rect, Qt::BottomEdge, StyleColors(option).rule);
        return true;
    case QStyle::CE_TabBarTabShape:
        if (const auto *tab = qstyleoption_cast<const QStyleOptionTab *>(&option)) {
            drawTab(*tab, canvas);
            return true;
        }
        return false;
    default:
        return false;
    }
}

bool drawBarPrimitive(QStyle::PrimitiveElement element, const QStyleOption &option, const Canvas &canvas)
{
    const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(&option);
    if (element == QStyle::PE_FrameGroupBox && frame && frame->features & QStyleOptionFrame::Flat) {
        fillEdges(canvas.painter, option.rect, Qt::TopEdge, StyleColors(option).rule);
        return true;
    }
    if (element == QStyle::PE_FrameTabWidget || element == QStyle::PE_FrameGroupBox) {
        Body pane;
        pane.frame = StyleColors(option).rule;
        drawBody(canvas.painter, option.rect, pane);
        return true;
    }
    const auto *base = qstyleoption_cast<const QStyleOptionTabBarBase *>(&option);
    if (element != QStyle::PE_FrameTabBarBase || !base)
        return false;
    fillEdges(canvas.painter, option.rect, pageEdge(base->shape), StyleColors(option).rule);
    return true;
}

} // namespace lumqt
