// Fields: line edits, the frames of texts and views.

#include "foundation/FieldText.h"
#include "foundation/Painting.h"
#include "foundation/StyleParts.h"
#include "foundation/StyleWatch.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QFrame>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStyleOption>
#include <QTextEdit>

namespace lumqt {

namespace {

QColor frameOf(const QStyleOption &option, const StyleColors &colors)
{
    return option.state & QStyle::State_MouseOver && option.state & QStyle::State_Enabled && !colors.dark
               ? QColor(kFieldFrameHovered)
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
    const bool focused = option.state & QStyle::State_HasFocus || canvas.watch.hasFocus(canvas.widget);
    // A text that only the program changes lies on the ground of what cannot be edited.
    const bool locked = option.state & QStyle::State_ReadOnly && colors.ground == QColor(kFieldGround);
    const bool refused = isRefused(qobject_cast<const QLineEdit *>(canvas.widget));
    drawPanel(canvas, option.rect, locked ? QColor(kFieldGroundDisabled) : colors.ground,
              refused ? QColor(kFieldFrameInvalid) : frameOf(option, colors));
    drawRing(canvas, option.rect, focused && option.state & QStyle::State_Enabled);
}

// Whether the frame of a view is to have the ring: rows have their own.
bool ringLiesInRow(const QWidget *widget)
{
    const auto *view = qobject_cast<const QAbstractItemView *>(widget);
    return view && view->currentIndex().isValid();
}

void drawAreaFrame(const QStyleOption &option, const Canvas &canvas, const QAbstractScrollArea &area)
{
    const StyleColors colors(option);
    const bool text = qobject_cast<const QTextEdit *>(&area) || qobject_cast<const QPlainTextEdit *>(&area);
    const bool filled = text || qobject_cast<const QAbstractItemView *>(&area);
    QStyleOption viewport(option); // which may have a palette of its own
    viewport.palette = area.viewport()->palette();
    drawPanel(canvas, option.rect, filled ? StyleColors(viewport).ground : QColor(), frameOf(option, colors));
    const bool focused = text ? canvas.watch.hasFocus(&area) : canvas.watch.showsFocus(&area);
    drawRing(canvas, option.rect, focused && option.state & QStyle::State_Enabled && !ringLiesInRow(&area));
}

bool drawFrame(const QStyleOption &option, const Canvas &canvas)
{
    const auto *area = qobject_cast<const QAbstractScrollArea *>(canvas.widget);
    if (area) {
        drawAreaFrame(option, canvas, *area);
        return true;
    }
    Body panel;
    panel.frame = StyleColors(option).rule;
    drawBody(canvas.painter, option.rect, panel);
    return true;
}

} // namespace

bool drawFieldPrimitive(QStyle::PrimitiveElement element, const QStyleOption &option, const Canvas &canvas)
{
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
    default:
        return false;
    }
}

bool drawFieldControl(QStyle::ControlElement element, const QStyleOption &option, const Canvas &canvas)
{
    const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(&option);
    if (element != QStyle::CE_ShapedFrame || !frame)
        return false;
    if (frame->frameShape == QFrame::StyledPanel)
        return drawFrame(option, canvas);
    const bool across = frame->frameShape == QFrame::HLine;
    if (!across && frame->frameShape != QFrame::VLine)
        return false;
    QRect line = option.rect;
    if (across)
        line = QRect(line.left(), line.center().y(), line.width(), 1);
    else
        line = QRect(line.center().x(), line.top(), 1, line.height());
    canvas.painter.fillRect(wholeDevicePixels(canvas.painter, line), StyleColors(option).rule);
    return true;
}

} // namespace lumqt
