// Menu bars, tabs and group boxes.

#include "foundation/Painting.h"
#include "foundation/StyleParts.h"

#include <QPainter>
#include <QStyleOption>
#include <QTabBar>

namespace lumqt {

namespace {

constexpr int kChosenWidth = 2; // of the line at the chosen tab

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

} // namespace

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
