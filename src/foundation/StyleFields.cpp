// Fields: line edits, combo boxes, spin boxes, the frames of texts and views.

#include "CBPTextEdit.h"
#include "foundation/Fade.h"
#include "foundation/FieldText.h"
#include "foundation/Painting.h"
#include "foundation/QtCompat.h"
#include "foundation/StyleParts.h"
#include "foundation/StyleWatch.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QFrame>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStyleOption>
#include <QTextEdit>

namespace lumqt {

namespace {

// A style sheet, whosever and for whatever, has Qt give a spin box 16 pixels beside its text, whatever the
// style asks for.
constexpr int kTightSteps = 14;
constexpr int kTightInset = 3;
constexpr int kLabelMargin = 1; // beside the text of a combo box

QColor frameOf(const QStyleOption &option, const StyleColors &colors)
{
    return option.state & QStyle::State_MouseOver && option.state & QStyle::State_Enabled && !colors.dark
               ? colors.of(Purpose::FrameHovered)
               : colors.frame;
}

// A line edit in a spin box or a combo box lies on that field's ground.
bool liesInField(const QWidget *widget)
{
    const QWidget *parent = widget ? widget->parentWidget() : nullptr;
    return qobject_cast<const QAbstractSpinBox *>(parent) || qobject_cast<const QComboBox *>(parent);
}

void drawLineEdit(const QStyleOptionFrame &option, const Canvas &canvas)
{
    const StyleColors colors(option);
    if (option.lineWidth <= 0) {
        if (!liesInField(canvas.widget))
            canvas.painter.fillRect(option.rect, option.palette.brush(QPalette::Base));
        return;
    }
    // A text that only the program changes lies on the ground of what cannot be edited.
    const bool locked = option.state & QStyle::State_ReadOnly && colors.ground == colors.of(Purpose::Field);
    const bool refused = isRefused(qobject_cast<const QLineEdit *>(canvas.widget));
    drawPanel(canvas, option.rect, locked ? colors.of(Purpose::FieldDisabled) : colors.ground,
              refused ? colors.of(Purpose::Danger) : frameOf(option, colors));
    drawRing(canvas, colors, option.rect, hasFocus(option, canvas) && option.state & QStyle::State_Enabled);
}

// Where the scroll bars meet; what a view has painted there lies below its ground.
void drawCorner(const StyleColors &colors, const Canvas &canvas, const QAbstractScrollArea &area)
{
    const QScrollBar *across = area.horizontalScrollBar();
    const QScrollBar *down = area.verticalScrollBar();
    if (!across->isVisible() || !down->isVisible())
        return;
    const QRect corner(down->mapTo(&area, QPoint()).x(), across->mapTo(&area, QPoint()).y(), down->width(),
                       across->height());
    canvas.painter.fillRect(wholeDevicePixels(canvas.painter, corner), colors.raised);
}

// The ground goes on under the frame, whatever palette the content has.
QColor groundOf(const QStyleOption &option, const QAbstractScrollArea &area)
{
    QStyleOption content(option);
    content.palette = contentPalette(area);
    if (qobject_cast<const CBPTextEdit *>(&area)) // which paints its text's ground as a field's
        return StyleColors(content).ground;
    return content.palette.color(QPalette::Base);
}

void drawAreaFrame(const QStyleOption &option, const Canvas &canvas, const QAbstractScrollArea &area)
{
    const StyleColors colors(option);
    const bool text = qobject_cast<const QTextEdit *>(&area) || qobject_cast<const QPlainTextEdit *>(&area);
    const bool filled = text || qobject_cast<const QAbstractItemView *>(&area);
    drawPanel(canvas, option.rect, filled ? groundOf(option, area) : QColor(), frameOf(option, colors));
    drawCorner(colors, canvas, area);
    const bool focused = text ? canvas.watch.hasFocus(&area) : canvas.watch.showsFocus(&area);
    drawRing(canvas, colors, option.rect,
             focused && option.state & QStyle::State_Enabled && !ringLiesInRow(&area));
}

bool drawFrame(const QStyleOption &option, const Canvas &canvas)
{
    const auto *area = qobject_cast<const QAbstractScrollArea *>(canvas.widget);
    if (area) {
        drawAreaFrame(option, canvas, *area);
        return true;
    }
    const StyleColors colors(option);
    const bool popUp = isComboPopUp(canvas.widget);
    Body panel;
    panel.frame = popUp ? colors.frame : colors.rule;
    drawBody(canvas.painter, option.rect, panel);
    return true;
}

// Lines of the library's own default look; what the application has given another width or colour is drawn as
// everywhere.
bool isPlainLine(const QStyleOptionFrame &frame, const QWidget *widget)
{
    if (frame.lineWidth != 1 || frame.midLineWidth != 0 || frame.state & QStyle::State_Raised)
        return false;
    const auto color = [&](QPalette::ColorRole role) { return frame.palette.color(QPalette::Active, role); };
    if (color(QPalette::WindowText) == themeColor(Purpose::Text) &&
        color(QPalette::Light) == themeColor(Purpose::RaisedGround) &&
        color(QPalette::Dark) == themeColor(Purpose::Frame)) // which the theme has given
        return true;
    const QPalette usual = QApplication::palette(widget);
    const auto isUsual = [&](QPalette::ColorRole role) {
        return color(role) == usual.color(QPalette::Active, role);
    };
    return isUsual(QPalette::WindowText) && isUsual(QPalette::Light) && isUsual(QPalette::Dark);
}

} // namespace

bool ringLiesInRow(const QWidget *widget)
{
    const auto *view = qobject_cast<const QAbstractItemView *>(widget);
    return view && view->currentIndex().isValid();
}

QPalette contentPalette(const QAbstractScrollArea &area)
{
    QPalette palette = area.viewport()->palette();
    setMarks(palette, marksOf(palette) | marksOf(area.palette())); // which it inherits without the marks
    return palette;
}

bool drawFieldPrimitive(QStyle::PrimitiveElement element, const QStyleOption &option, const Canvas &plain)
{
    const Canvas canvas = controlOf<QLineEdit, QAbstractScrollArea>(plain);
    const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(&option);
    switch (element) {
    case QStyle::PE_PanelLineEdit:
        if (frame)
            drawLineEdit(*frame, canvas);
        return frame;
    case QStyle::PE_FrameLineEdit:
        drawPanel(canvas, option.rect, QColor(), frameOf(option, StyleColors(option)));
        return true;
    case QStyle::PE_Frame:
        return drawFrame(option, canvas);
    case QStyle::PE_PanelTipLabel: {
        Body tip;
        tip.fill = option.palette.color(QPalette::ToolTipBase);
        tip.frame = themeColor(Purpose::TipFrame);
        if (wantsPalette()) // otherwise it has that of the system
            drawBody(canvas.painter, option.rect, tip);
        return wantsPalette();
    }
    default:
        return false;
    }
}

bool drawFieldControl(QStyle::ControlElement element, const QStyleOption &option, const Canvas &plain)
{
    const Canvas canvas = controlOf<QAbstractScrollArea>(plain);
    const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(&option);
    if (element != QStyle::CE_ShapedFrame || !frame)
        return false;
    if (frame->frameShape == QFrame::StyledPanel)
        return drawFrame(option, canvas);
    const bool across = frame->frameShape == QFrame::HLine;
    if ((!across && frame->frameShape != QFrame::VLine) || !isPlainLine(*frame, canvas.widget))
        return false;
    QRect half = option.rect; // which ends in the middle
    if (across)
        half.setBottom(half.center().y());
    else
        half.setRight(half.center().x());
    fillEdges(canvas.painter, half, across ? Qt::BottomEdge : Qt::RightEdge, StyleColors(option).rule);
    return true;
}

QRect comboBoxPart(const QStyleOptionComboBox &option, QStyle::SubControl part)
{
    QRect rect = option.rect;
    switch (part) {
    case QStyle::SC_ComboBoxEditField: {
        // A line edit keeps its own margin; the label keeps one pixel.
        const int own = option.editable ? kLineEditMargin : kLabelMargin;
        rect.adjust(option.frame ? kFieldInset - own : 0, 0, -kDropWidth, 0);
        if (option.frame)
            rect.adjust(0, kFocusRingWidth, 0, -kFocusRingWidth);
        break;
    }
    case QStyle::SC_ComboBoxArrow:
        rect.setLeft(rect.right() + 1 - kDropWidth);
        break;
    default: // the frame, and where the list drops down
        return rect;
    }
    return QStyle::visualRect(option.direction, option.rect, rect);
}

void drawComboBox(const QStyleOptionComboBox &option, const Canvas &plain)
{
    const Canvas canvas = controlOf<QComboBox>(plain);
    const StyleColors colors(option);
    const bool enabled = option.state & QStyle::State_Enabled;
    const bool hovered = enabled && option.state & QStyle::State_MouseOver;
    const bool open = enabled && option.state & QStyle::State_On;
    // What is typed into is white; what is only chosen from answers the mouse.
    QColor ground = colors.ground;
    if (!option.editable && enabled)
        ground = open ? colors.pressed : hovered ? colors.hovered : colors.ground;
    if (option.frame)
        drawPanel(canvas, option.rect, ground, open && !colors.dark ? colors.ink : frameOf(option, colors));
    else if (option.editable)
        canvas.painter.fillRect(option.rect, ground);
    const QRect arrow =
        canvas.style.subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, canvas.widget);
    drawTriangle(canvas, arrow, Qt::DownArrow, colors.triangle);
    const bool focused = option.editable ? hasFocus(option, canvas) : showsFocus(option, canvas);
    drawRing(canvas, colors, option.rect, option.frame && focused && enabled); // see drawSpinBox()
}

QRect spinBoxPart(const QStyleOptionSpinBox &option, QStyle::SubControl part, const QWidget *widget)
{
    const bool tight = widget && widget->style()->inherits("QStyleSheetStyle");
    const int frame = option.frame ? 1 : 0;
    const int steps = option.buttonSymbols == QAbstractSpinBox::NoButtons ? 0
                      : tight                                             ? kTightSteps
                                                                          : kStepWidth;
    const int inset = !option.frame ? 0 : tight ? kTightInset : kFieldInset - kLineEditMargin;
    QRect rect = option.rect;
    QRect buttons = rect.adjusted(0, frame, -frame, -frame);
    buttons.setLeft(buttons.right() + 1 - steps);
    switch (part) {
    case QStyle::SC_SpinBoxEditField:
        rect.adjust(inset, option.frame ? kFocusRingWidth : 0, -steps - frame,
                    option.frame ? -kFocusRingWidth : 0);
        break;
    case QStyle::SC_SpinBoxUp:
        rect = buttons;
        rect.setHeight(buttons.height() / 2);
        break;
    case QStyle::SC_SpinBoxDown:
        rect = buttons;
        rect.setTop(buttons.top() + buttons.height() / 2);
        break;
    default:
        return rect;
    }
    if (part != QStyle::SC_SpinBoxEditField && steps == 0)
        return QRect();
    return QStyle::visualRect(option.direction, option.rect, rect);
}

void drawSpinBox(const QStyleOptionSpinBox &option, const Canvas &plain)
{
    const Canvas canvas = controlOf<QAbstractSpinBox>(plain);
    const StyleColors colors(option);
    const bool enabled = option.state & QStyle::State_Enabled;
    canvas.painter.fillRect(wholeDevicePixels(canvas.painter, option.rect), colors.ground);
    const struct
    {
        QStyle::SubControl part;
        QAbstractSpinBox::StepEnabledFlag step;
        FadingPart fading;
        Qt::ArrowType arrow;
    } steps[] = {{QStyle::SC_SpinBoxUp, QAbstractSpinBox::StepUpEnabled, FadingUp, Qt::UpArrow},
                 {QStyle::SC_SpinBoxDown, QAbstractSpinBox::StepDownEnabled, FadingDown, Qt::DownArrow}};
    for (const auto &step : steps) {
        const QRect rect = canvas.style.subControlRect(QStyle::CC_SpinBox, &option, step.part, canvas.widget);
        if (rect.isEmpty())
            continue;
        const bool can = enabled && option.stepEnabled & step.step;
        const bool active = can && option.activeSubControls & step.part;
        const QColor ground = active && option.state & QStyle::State_Sunken      ? colors.pressed
                              : active && option.state & QStyle::State_MouseOver ? colors.hovered
                                                                                 : colors.ground;
        canvas.painter.fillRect(wholeDevicePixels(canvas.painter, rect),
                                fadedColor(canvas.control, step.fading, ground));
        drawTriangle(canvas, rect, step.arrow, can ? colors.triangle : colors.of(Purpose::DisabledText));
    }
    if (option.frame) // above the buttons, which reach under it at fractions of a pixel
        drawPanel(canvas, option.rect, QColor(), frameOf(option, colors));
    // A field without a frame lies in something that has one, and the ring.
    drawRing(canvas, colors, option.rect, option.frame && enabled && hasFocus(option, canvas));
}

} // namespace lumqt
