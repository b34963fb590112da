// The colours that CBPStyle paints in, and the strokes that its files share.

#include "foundation/Fade.h"
#include "foundation/Painting.h"
#include "foundation/StyleParts.h"
#include "foundation/StyleWatch.h"

#include <QPainter>
#include <QStyleOption>

namespace lumqt {

namespace {

constexpr qreal kHoveredShare = 0.08; // of the text's colour in the ground's, on a dark palette
constexpr qreal kPressedShare = 0.16;
constexpr qreal kRuleShare = 0.3;

QColor mix(const QColor &ground, const QColor &ink, qreal share)
{
    const auto part = [share](int from, int to) { return qRound(from + (to - from) * share); };
    return QColor(part(ground.red(), ink.red()), part(ground.green(), ink.green()),
                  part(ground.blue(), ink.blue()));
}

Body ringOf(const Canvas &canvas, const StyleColors &colors, bool shown)
{
    QColor color = colors.of(Purpose::FocusRing);
    if (!shown)
        color.setAlpha(0);
    Body ring;
    ring.frame = fadedColor(canvas.control, FadingRing, color);
    ring.frameWidth = kFocusRingWidth;
    return ring;
}

// Whether it is the theme's: what wears another one, plain or an application's, keeps the colours that go
// with it.
bool isThemed(const QPalette &palette)
{
    return palette.color(QPalette::Active, QPalette::Base).rgba() == themeColor(Purpose::Field).rgba();
}

} // namespace

StyleColors::StyleColors(const QStyleOption &option)
    : themed(isThemed(option.palette)),
      ground(of(Purpose::Field)),
      raised(of(Purpose::RaisedGround)),
      hovered(of(Purpose::Hovered)),
      pressed(of(Purpose::Pressed)),
      frame(of(Purpose::Frame)),
      rule(of(Purpose::Rule)),
      ink(of(Purpose::FrameHovered)),
      triangle(of(Purpose::FieldTriangle)),
      accent(of(Purpose::Accent)),
      onAccent(of(Purpose::OnAccent))
{
    const bool enabled = option.state & QStyle::State_Enabled;
    const QColor &base = option.palette.color(QPalette::Active, QPalette::Base);
    dark = !themed && base.lightness() < kDarkest;
    const QPalette::ColorGroup group = enabled ? QPalette::Active : QPalette::Disabled;
    if (dark) {
        const QColor text = option.palette.color(group, QPalette::Text);
        raised = option.palette.color(group, QPalette::Button);
        hovered = mix(base, text, kHoveredShare);
        pressed = mix(base, text, kPressedShare);
        rule = mix(base, text, kRuleShare);
        ink = triangle = text;
        if (!enabled)
            frame = accent = rule;
    } else if (!enabled) {
        ground = of(Purpose::FieldDisabled);
        frame = accent = of(Purpose::FrameDisabled);
        ink = triangle = of(Purpose::DisabledText);
    }
    // Whoever has changed it means it: for one widget or for all.
    if (option.palette.isBrushSet(group, QPalette::Base) || (!themed && base != of(Purpose::Field)))
        ground = option.palette.color(group, QPalette::Base);
}

bool liesOnDark(const QStyleOption &option)
{
    return option.palette.color(QPalette::Window).lightness() < kDarkest;
}

QPalette outlinedPalette(const QStyleOption &option, const QColor &outline)
{
    constexpr int kShade = 140; // per cent, as the style below darkens it
    QPalette palette = option.palette;
    palette.setColor(QPalette::Window, outline.lighter(kShade));
    return palette;
}

bool hasFocus(const QStyleOption &option, const Canvas &canvas)
{
    return option.state & QStyle::State_HasFocus || (canvas.control && canvas.watch.hasFocus(canvas.control));
}

bool showsFocus(const QStyleOption &option, const Canvas &canvas)
{
    return canvas.control ? canvas.watch.showsFocus(canvas.control) : option.state & QStyle::State_HasFocus;
}

void drawRing(const Canvas &canvas, const StyleColors &colors, const QRect &rect, bool shown)
{
    const Body ring = ringOf(canvas, colors, shown);
    if (ring.frame.alpha() > 0)
        drawBody(canvas.painter, rect, ring);
}

void drawRingAround(const Canvas &canvas, const StyleColors &colors, const QRect &content, bool shown,
                    qreal radius)
{
    Body ring = ringOf(canvas, colors, shown);
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
