// Check boxes, radio buttons and plain buttons.

#include "foundation/Fade.h"
#include "foundation/Painting.h"
#include "foundation/StyleParts.h"
#include "foundation/StyleWatch.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QGroupBox>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOption>
#include <QToolButton>

namespace lumqt {

namespace {

constexpr qreal kMarkWidth = 2;
constexpr QPointF kMark[] = {{3.5, 8}, {6.5, 11}, {12.5, 5}}; // within an indicator
constexpr QRect kPartlyMark(4, 7, 8, 2);
constexpr qreal kDotRadius = 3;
const QColor kNone(Qt::transparent);

// What an indicator is filled and framed with.
struct Look
{
    QColor fill;
    QColor frame;
};

Look lookOf(const QStyleOption &option, const StyleColors &colors, bool on)
{
    const bool enabled = option.state & QStyle::State_Enabled;
    const bool pressed = enabled && option.state & QStyle::State_Sunken;
    const bool hovered = enabled && option.state & QStyle::State_MouseOver;
    if (on) {
        const QColor fill = !enabled  ? colors.accent
                            : pressed ? colors.of(Purpose::AccentPressed)
                            : hovered ? colors.of(Purpose::AccentHovered)
                                      : colors.accent;
        return {fill, fill};
    }
    const QColor frame = pressed || hovered ? colors.ink : colors.frame;
    return {pressed ? colors.pressed : hovered ? colors.hovered : colors.ground, frame};
}

// The indicator in the middle of what the layout leaves it, and its ring around it where there is room.
QRect placeOf(const QRect &rect)
{
    const int side = qMin(kIndicator, qMin(rect.width(), rect.height()));
    QRect place(0, 0, side, side);
    place.moveCenter(rect.center());
    return place;
}

void beginMark(QPainter &painter, const QRect &place)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place.topLeft());
    painter.scale(place.width() / qreal(kIndicator), place.height() / qreal(kIndicator));
}

void drawCheckBox(const QStyleOption &option, const Canvas &canvas, bool alone)
{
    const bool partly = option.state & QStyle::State_NoChange;
    const bool on = partly || option.state & QStyle::State_On;
    const QRect place = placeOf(option.rect);
    const StyleColors colors(option);
    const Look look = lookOf(option, colors, on);
    if (alone) {
        drawPanel(canvas, place, look.fill, look.frame);
    } else { // one of many in a view
        Body body;
        body.fill = look.fill;
        body.frame = look.frame;
        drawBody(canvas.painter, place, body);
    }
    if (on) {
        const QColor mark = colors.onAccent;
        beginMark(canvas.painter, place);
        if (partly) {
            canvas.painter.fillRect(wholeDevicePixels(canvas.painter, kPartlyMark), mark);
        } else {
            canvas.painter.setPen(QPen(mark, kMarkWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
            canvas.painter.drawPolyline(kMark, 3);
        }
        canvas.painter.restore();
    }
    if (alone)
        drawRingAround(canvas, colors, place, showsFocus(option, canvas), kFocusRingRadius);
}

void drawRadioButton(const QStyleOption &option, const Canvas &canvas)
{
    const bool on = option.state & QStyle::State_On;
    const QRect place = placeOf(option.rect);
    const StyleColors colors(option);
    const Look look = lookOf(option, colors, on);
    Body disc;
    disc.fill = fadedColor(canvas.control, FadingGround, look.fill);
    disc.frame = fadedColor(canvas.control, FadingFrame, look.frame);
    disc.radiusX = disc.radiusY = place.width() / 2.0;
    drawBody(canvas.painter, place, disc);
    if (on) {
        beginMark(canvas.painter, place);
        canvas.painter.setPen(Qt::NoPen);
        canvas.painter.setBrush(colors.onAccent);
        canvas.painter.drawEllipse(QPointF(kIndicator, kIndicator) / 2, kDotRadius, kDotRadius);
        canvas.painter.restore();
    }
    drawRingAround(canvas, colors, place, showsFocus(option, canvas), kIndicator / 2.0 + kIndicatorRoom);
}

QColor buttonGround(const StyleColors &colors, bool down, bool hovered)
{
    if (colors.dark)
        return down ? colors.pressed : hovered ? colors.hovered : colors.ground;
    if (down || hovered)
        return colors.of(down ? Purpose::ButtonGroundPressed : Purpose::ButtonGroundHovered);
    // A disabled one is like a field, and so is one of another base.
    return colors.ground == colors.of(Purpose::Field) ? colors.of(Purpose::ButtonGround) : colors.ground;
}

void drawButton(const QStyleOption &option, const Canvas &canvas, bool flat, bool ringed = true)
{
    const StyleColors colors(option);
    const bool enabled = option.state & QStyle::State_Enabled;
    const bool down = option.state & (QStyle::State_Sunken | QStyle::State_On);
    const bool hovered = enabled && option.state & QStyle::State_MouseOver;
    QColor ground = flat && !down && !hovered ? kNone : buttonGround(colors, down, hovered);
    if (!down && !hovered && option.palette.isBrushSet(QPalette::Active, QPalette::Button))
        ground = option.palette.color(QPalette::Button);
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(&option);
    const bool isDefault = button && button->features & QStyleOptionButton::DefaultButton;
    QColor frame = flat ? kNone : hovered ? colors.ink : isDefault ? colors.accent : colors.frame;
    if (button && enabled && !flat && !colors.dark)
        frame = down        ? colors.of(Purpose::ButtonFramePressed)
                : hovered   ? colors.of(Purpose::ButtonFrameHovered)
                : isDefault ? colors.accent
                            : colors.of(Purpose::ButtonFrame);
    Body body;
    body.fill = ground;
    body.frame = frame;
    drawBody(canvas.painter, option.rect, body);
    if (ringed)
        drawRing(canvas, colors, option.rect, showsFocus(option, canvas));
}

// Windows' own style paints the next two without asking for their parts.
void drawPushButton(const QStyleOptionButton &option, const Canvas &canvas)
{
    canvas.style.drawPrimitive(QStyle::PE_PanelButtonCommand, &option, &canvas.painter, canvas.widget);
    if (!(option.features & QStyleOptionButton::HasMenu))
        return;
    QRect arrow = option.rect.adjusted(0, 0, -kFieldInset, 0);
    arrow.setLeft(arrow.right() + 1 - kTriangleWidth);
    drawTriangle(canvas, QStyle::visualRect(option.direction, option.rect, arrow), Qt::DownArrow,
                 StyleColors(option).triangle);
}

bool hasMenuPart(const QStyleOption &option)
{
    const auto *tool = qstyleoption_cast<const QStyleOptionToolButton *>(&option);
    return tool && tool->subControls & QStyle::SC_ToolButtonMenu;
}

void drawToolMenu(const QStyleOptionToolButton &option, const Canvas &canvas, const QRect &rect)
{
    const StyleColors colors(option);
    if (hasMenuPart(option)) {
        QStyleOption menu(option);
        menu.rect = rect;
        if (!(option.activeSubControls & QStyle::SC_ToolButtonMenu))
            menu.state &= ~QStyle::State_Sunken;
        drawButton(menu, canvas, option.state & QStyle::State_AutoRaise, false);
        drawTriangle(canvas, rect, Qt::DownArrow, colors.triangle);
    } else if (option.features & QStyleOptionToolButton::HasMenu) {
        const QRect corner(option.rect.right() - kTriangleWidth - 1,
                           option.rect.bottom() - kTriangleHeight - 2, kTriangleWidth, kTriangleHeight);
        drawTriangle(canvas, QStyle::visualRect(option.direction, option.rect, corner), Qt::DownArrow,
                     colors.triangle);
    }
}

// Whose ring is painted with something else.
bool drawsOwnRing(const QWidget *widget)
{
    const auto *group = qobject_cast<const QGroupBox *>(widget);
    return qobject_cast<const QCheckBox *>(widget) || qobject_cast<const QRadioButton *>(widget) ||
           qobject_cast<const QPushButton *>(widget) || qobject_cast<const QToolButton *>(widget) ||
           (group && group->isCheckable());
}

void drawFocus(const QStyleOption &option, const Canvas &canvas)
{
    const auto *view = qobject_cast<const QAbstractItemView *>(canvas.widget);
    const bool shown = canvas.watch.knows(canvas.widget) ? canvas.watch.showsFocus(canvas.widget)
                                                         : option.state & QStyle::State_KeyboardFocusChange;
    if (view && shown)
        drawRowRing(canvas, option);
    else if (!drawsOwnRing(canvas.widget) && shown)
        drawFocusRing(canvas.painter, option.rect);
}

} // namespace

bool drawButtonControl(QStyle::ControlElement element, const QStyleOption &option, const Canvas &canvas)
{
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(&option);
    if (element != QStyle::CE_PushButtonBevel || !button)
        return false;
    drawPushButton(*button, canvas);
    return true;
}

QStyleOptionButton pushButtonLabel(const QStyleOptionButton &option, const QStyle &style)
{
    QStyleOptionButton label(option);
    const bool enabled = option.state & QStyle::State_Enabled;
    const QPalette::ColorGroup group = enabled ? QPalette::Active : QPalette::Disabled;
    const StyleColors colors(option);
    const QPalette standard = style.standardPalette();
    if (option.palette.color(group, QPalette::ButtonText) == standard.color(group, QPalette::ButtonText) &&
        !colors.dark) {
        const QColor ink = colors.of(enabled ? Purpose::ButtonText : Purpose::ButtonTextDisabled);
        label.palette.setColor(QPalette::ButtonText, ink);
    }
    return label;
}

void drawToolButton(const QStyleOptionToolButton &option, const Canvas &plain)
{
    const Canvas canvas = controlOf<QAbstractButton>(plain);
    const auto place = [&](QStyle::SubControl part) {
        return canvas.style.subControlRect(QStyle::CC_ToolButton, &option, part, canvas.widget);
    };
    QStyleOptionToolButton part(option);
    part.rect = place(QStyle::SC_ToolButton);
    const bool own = option.activeSubControls & QStyle::SC_ToolButton;
    if (hasMenuPart(option) && !own)
        part.state &= ~QStyle::State_Sunken; // the press is the menu's
    if (option.subControls & QStyle::SC_ToolButton)
        canvas.style.drawPrimitive(QStyle::PE_PanelButtonTool, &part, &canvas.painter, canvas.widget);
    drawToolMenu(option, canvas, place(QStyle::SC_ToolButtonMenu));
    if (hasMenuPart(option)) // one ring around both
        drawRing(canvas, StyleColors(option), option.rect, showsFocus(option, canvas));
    const int frame = canvas.style.pixelMetric(QStyle::PM_DefaultFrameWidth, &option, canvas.widget);
    part.rect.adjust(frame, frame, -frame, -frame);
    canvas.style.drawControl(QStyle::CE_ToolButtonLabel, &part, &canvas.painter, canvas.widget);
}

bool drawIndicator(QStyle::PrimitiveElement element, const QStyleOption &option, const Canvas &plain)
{
    const Canvas canvas = controlOf<QCheckBox, QGroupBox, QRadioButton, QPushButton, QToolButton>(plain);
    switch (element) {
    case QStyle::PE_IndicatorCheckBox:
        drawCheckBox(option, canvas, true);
        return true;
    case QStyle::PE_IndicatorItemViewItemCheck:
        drawCheckBox(option, canvas, false);
        return true;
    case QStyle::PE_IndicatorRadioButton:
        drawRadioButton(option, canvas);
        return true;
    case QStyle::PE_PanelButtonCommand: {
        const auto *button = qstyleoption_cast<const QStyleOptionButton *>(&option);
        drawButton(option, canvas,
                   button &&
                       button->features & (QStyleOptionButton::Flat | QStyleOptionButton::CommandLinkButton));
        return true;
    }
    case QStyle::PE_PanelButtonTool:
        drawButton(option, canvas, option.state & QStyle::State_AutoRaise, !hasMenuPart(option));
        return true;
    case QStyle::PE_FrameDefaultButton: // shown by the button's own frame
        return true;
    case QStyle::PE_FrameFocusRect:
        drawFocus(option, canvas);
        return true;
    case QStyle::PE_IndicatorArrowDown:
        drawTriangle(canvas, option.rect, Qt::DownArrow, StyleColors(option).triangle);
        return true;
    case QStyle::PE_IndicatorArrowUp:
        drawTriangle(canvas, option.rect, Qt::UpArrow, StyleColors(option).triangle);
        return true;
    default:
        return false;
    }
}

} // namespace lumqt
