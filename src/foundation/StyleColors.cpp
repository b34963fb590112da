// The colours that CBPStyle paints in, and the strokes that its files share.

#include "foundation/Fade.h"
#include "foundation/Painting.h"
#include "foundation/StyleParts.h"
#include "foundation/StyleWatch.h"

#include <QPainter>
#include <QStyleOption>

namespace lumqt {

namespace {

constexpr int kDarkest = 128;         // lightness below which a ground counts as dark
constexpr qreal kHoveredShare = 0.08; // of the text's colour in the ground's, on a dark palette
constexpr qreal kPressedShare = 0.16;
constexpr qreal kRuleShare = 0.3;

QColor mix(const QColor &ground, const QColor &ink, qreal share)
{
    const auto part = [share](int from, int to) { return qRound(from + (to - from) * share); };
    return QColor(part(ground.red(), ink.red()), part(ground.green(), ink.green()),
                  part(ground.blue(), ink.blue()));
}

Body ringOf(const Canvas &canvas, bool shown)
{
    QColor color(kFocusRingColor);
    color.setAlpha(shown ? 255 : 0);
    Body ring;
    ring.frame = fadedColor(canvas.control, FadingRing, color);
    ring.frameWidth = kFocusRingWidth;
    return ring;
}

} // namespace

StyleColors::StyleColors(const QStyleOption &option)
    : ground(kFieldGround),
      raised(kRaisedGround),
      hovered(kHoveredGround),
      pressed(kPressedGround),
      frame(kFieldFrame),
      rule(kRule),
      ink(kFieldFrameHovered),
      accent(kAccent),
      onAccent(Qt::white)
{
    const bool enabled = option.state & QStyle::State_Enabled;
    const QColor base = option.palette.color(QPalette::Active, QPalette::Base);
    dark = base.lightness() < kDarkest;
    const QPalette::ColorGroup group = enabled ? QPalette::Active : QPalette::Disabled;
    if (dark) {
        const QColor text = option.palette.color(group, QPalette::Text);
        raised = option.palette.color(group, QPalette::Button);
        hovered = mix(base, text, kHoveredShare);
        pressed = mix(base, text, kPressedShare);
        rule = mix(base, text, kRuleShare);
        ink = text;
        if (!enabled)
            frame = accent = rule;
    } else if (!enabled) {
        ground = QColor(kFieldGroundDisabled);
        frame = QColor(kFieldFrameDisabled);
        ink = QColor(kFieldTextDisabled);
        accent = QColor(kFieldFrameDisabled);
    }
    // Whoever has changed it means it: for one widget or for all.
    if (dark || option.palette.isBrushSet(group, QPalette::Base) || base != QColor(kFieldGround))
        ground = option.palette.color(group, QPalette::Base);
}

bool hasFocus(const QStyleOption &option, const Canvas &canvas)
{
    return option.state & QStyle::State_HasFocus || (canvas.control && canvas.watch.hasFocus(canvas.control));
}

bool showsFocus(const QStyleOption &option, const Canvas &canvas)
{
    return canvas.control ? canvas.watch.showsFocus(canvas.control) : option.state & QStyle::State_HasFocus;
}

void drawRing(const Canvas &canvas, const QRect &rect, bool shown)
{
    const Body ring = ringOf(canvas, shown);
    if (ring.frame.alpha() > 0)
        drawBody(canvas.painter, rect, ring);
}

void drawRingAround(const Canvas &canvas, const QRect &content, bool shown, qreal radius)
{
    Body ring = ringOf(canvas, shown);
    ring.radiusX = ring.radiusY = radius;
    if (ring.frame.alpha() > 0)
        drawBody(canvas.painter, focusRingAround(canvas.painter, content), ring);
}

void drawPanel(const Canvas &canvas, const QRect &rect, const QColor &ground, const QColor &frame)
{
    Body panel;
    if (ground.isValid())
        panel.fill = fadedColor(canvas.control, FadingGround, ground);
    panel.frame = fadedColor(canvas.control, FadingFrame, frame);
    drawBody(canvas.painter, rect, panel);
}

void drawTriangle(const Canvas &canvas, const QRect &rect, Qt::ArrowType arrow, const QColor &color)
{
    canvas.painter.save();
    canvas.painter.translate(QRectF(rect).center());
    canvas.painter.rotate(arrow == Qt::UpArrow      ? 180
                          : arrow == Qt::LeftArrow  ? 90
                          : arrow == Qt::RightArrow ? -90
                                                    : 0);
    drawDropTriangle(canvas.painter, QPointF(-kTriangleWidth, -kTriangleHeight) / 2, kTriangleWidth,
                     kTriangleHeight, color);
    canvas.painter.restore();
}

} // namespace lumqt
