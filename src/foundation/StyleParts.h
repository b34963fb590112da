#pragma once

#include "foundation/Look.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"

#include <QColor>
#include <QStyle>

class QAbstractScrollArea;
class QPainter;
class QPalette;
class QStyleOption;
class QStyleOptionButton;
class QStyleOptionComboBox;
class QStyleOptionHeader;
class QStyleOptionSlider;
class QStyleOptionSpinBox;
class QStyleOptionToolButton;
class QStyleOptionViewItem;
class QWidget;

// What CBPStyle paints and measures itself, a file to a family of widgets: StyleFields.cpp,
// StyleIndicators.cpp, StyleViews.cpp, StyleScroll.cpp, StyleBars.cpp. A function that answers false leaves
// the element to the style below.
namespace lumqt {

class StyleWatch;

// Sizes in logical pixels.
constexpr int kIndicator = 16;                  // of check boxes and radio buttons
constexpr int kIconGap = 6;                     // between a picture or a mark and a text
constexpr int kIndicatorRoom = kFocusRingReach; // around it
constexpr int kIndicatorGap = 8;                // from it to its text
constexpr int kIndicatorRow = 24; // of a view: the ring of the row, one pixel further in, and one of air
constexpr int kViewFrame = 2;     // of views and texts that scroll: room for the focus ring
constexpr int kScrollBarWidth = 10;
constexpr int kDropWidth = 24; // of what opens a list
constexpr int kStepWidth = 20; // of the buttons of a spin box
constexpr int kTriangleWidth = 8;
constexpr int kTriangleHeight = 4;
constexpr int kFieldPadding = 4;   // above and below the text of a field that is higher for it
constexpr int kDarkest = 128;      // lightness below which a ground counts as dark
constexpr int kLineEditMargin = 2; // QLineEdit keeps it beside its text by itself

// The parts of a widget whose colours fade, for fadedColor().
enum FadingPart { FadingFrame, FadingGround, FadingRing, FadingUp, FadingDown, FadingSlider, FadingSections };

struct Canvas
{
    QPainter &painter;
    const QWidget *widget; // may be null
    const QStyle &style;   // as the widget has it, with what is around this one
    const StyleWatch &watch;
    // The widget where it is itself what is painted: colours fade, and its focus counts. Null for what menus
    // and delegates paint on theirs, which may be many.
    const QWidget *control = nullptr;
};

// The same with the widget as the control, if it is one of these.
template <class... Kinds> Canvas controlOf(const Canvas &canvas)
{
    const bool own = (qobject_cast<const Kinds *>(canvas.widget) || ...);
    return {canvas.painter, canvas.widget, canvas.style, canvas.watch, own ? canvas.widget : nullptr};
}

// The colours for an option: the theme's where its palette is the theme's; on a plain palette those of the
// light theme, also in a dark one; on a dark palette of an application they are made of that.
struct StyleColors
{
    explicit StyleColors(const QStyleOption &option);

    QColor of(Purpose purpose) const { return themed ? themeColor(purpose) : builtInColor(purpose); }

    bool themed;
    bool dark = false; // by a palette of the application's
    QColor ground;     // of a field
    QColor raised;     // of what stands out of a ground: headers, tracks
    QColor hovered;
    QColor pressed;
    QColor frame; // for the state of the option
    QColor rule;
    QColor ink;      // of marks, for the state of the option
    QColor triangle; // the same, of triangles
    QColor accent;
    QColor onAccent;
};

// Whether what is painted has the focus, and is to show that it has.
bool hasFocus(const QStyleOption &option, const Canvas &canvas);
bool showsFocus(const QStyleOption &option, const Canvas &canvas);

// Whether the frame of a view is not to have the ring: the current row has it.
bool ringLiesInRow(const QWidget *widget);
// The palette of what scrolls, with all that is set for the area around it.
QPalette contentPalette(const QAbstractScrollArea &area);

// The ring of the focus in the place of a square frame around `rect`, fading.
void drawRing(const Canvas &canvas, const StyleColors &colors, const QRect &rect, bool shown);
// The same around `content`, for which kIndicatorRoom is kept free, with round corners.
void drawRingAround(const Canvas &canvas, const StyleColors &colors, const QRect &content, bool shown,
                    qreal radius);
// A flat ground with a frame of one pixel, both fading.
void drawPanel(const Canvas &canvas, const QRect &rect, const QColor &ground, const QColor &frame);
// Pointing down or, otherwise, up, left or right, its box in the middle of `rect`.
void drawTriangle(const Canvas &canvas, const QRect &rect, Qt::ArrowType arrow, const QColor &color);

// The ring within a row, in a colour that is seen on it.
void drawRowRing(const Canvas &canvas, const QStyleOption &option);

bool drawFieldPrimitive(QStyle::PrimitiveElement element, const QStyleOption &option, const Canvas &canvas);
bool drawFieldControl(QStyle::ControlElement element, const QStyleOption &option, const Canvas &canvas);
bool drawIndicator(QStyle::PrimitiveElement element, const QStyleOption &option, const Canvas &canvas);
bool drawViewPrimitive(QStyle::PrimitiveElement element, const QStyleOption &option, const Canvas &canvas);
bool drawViewControl(QStyle::ControlElement element, const QStyleOption &option, const Canvas &canvas);
bool drawBarControl(QStyle::ControlElement element, const QStyleOption &option, const Canvas &canvas);
bool drawBarPrimitive(QStyle::PrimitiveElement element, const QStyleOption &option, const Canvas &canvas);
bool drawButtonControl(QStyle::ControlElement element, const QStyleOption &option, const Canvas &canvas);
// The option for the text of a push button in the colours that every application has, for the style below.
QStyleOptionButton pushButtonLabel(const QStyleOptionButton &option, const QStyle &style);
void drawToolButton(const QStyleOptionToolButton &option, const Canvas &canvas);
void drawComboBox(const QStyleOptionComboBox &option, const Canvas &canvas);
void drawSpinBox(const QStyleOptionSpinBox &option, const Canvas &canvas);
void drawScrollBar(const QStyleOptionSlider &option, const Canvas &canvas);

// Whether something lies on a dark window: the style below makes its outlines of the window's colour, darker,
// and they would be lost there.
bool liesOnDark(const QStyleOption &option);
// The palette with which its outlines can be seen.
QPalette outlinedPalette(const QStyleOption &option, const QColor &outline);
// A slider on a dark window, and its ticks for the style below.
QStyleOptionSlider ticksOf(const QStyleOptionSlider &option);
void drawSlider(const QStyleOptionSlider &option, const Canvas &canvas);

QRect comboBoxPart(const QStyleOptionComboBox &option, QStyle::SubControl part);
QRect spinBoxPart(const QStyleOptionSpinBox &option, QStyle::SubControl part, const QWidget *widget);
QRect scrollBarPart(const QStyleOptionSlider &option, QStyle::SubControl part);

QSize headerSize(const QStyleOptionHeader &option, const QStyle &style, const QWidget *widget);
// Whether a widget shows rows or cells of text; a calendar has days.
bool hasRows(const QWidget *widget);
// The room beside a row's text, as PM_FocusFrameHMargin counts it.
int rowMargin(const QStyleOption *option);
// What the editor of a row has to keep beside its text for it to stay where the row has it; 0: is none.
int editorInset(const QWidget *widget);

// What drops down from a combo box.
bool isComboPopUp(const QWidget *widget);
// Gives the list of a combo box rows as high as fields, unless the application made them its own.
void furnishList(QWidget *list);

// The palette for an item: what is selected in the colours that every application has is shown in the
// library's.
QPalette selectionPalette(const QStyleOption &option, const QStyle &style);
// The same for the style below.
QStyleOptionViewItem selectedItem(const QStyleOptionViewItem &option, const QStyle &style);

} // namespace lumqt
