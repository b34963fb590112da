#include "Page.h"
#include "PageRegistry.h"
#include "Theme.h"

#include "CBPBox.h"
#include "CBPFrameBox.h"
#include "CBPGridBox.h"
#include "CBPPushBtn.h"
#include "CBPWidget.h"

#include <QHBoxLayout>
#include <QLabel>

namespace {

constexpr int kCellHeight = 32;
constexpr int kCellWidth = 64;
constexpr int kBoxWidth = 256;
constexpr int kFoldHeight = 136;
constexpr int kFoldTime = 400; // milliseconds
const QColor kCellColor = theme::kAccentTint;
const QColor kInsertedColor(190, 214, 240);
const QColor kFrameColor(199, 208, 221);

// Something to pack: a tile with a word on it.
QLabel *cell(const QString &text, int width = kCellWidth, const QColor &color = kCellColor)
{
    QLabel *label = theme::label(text, theme::Normal, 13, theme::kText);
    label->setAlignment(Qt::AlignCenter);
    label->setMinimumSize(width, kCellHeight);
    label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    theme::fill(label, color);
    return label;
}

CBPBox *framed(bool vertical, int spacing, int border)
{
    auto *box = new CBPBox(vertical, false, spacing);
    box->SetDrawFrame(true);
    box->SetFrameClr(kFrameColor);
    box->SetBgClr(Qt::white);
    box->SetBorderWidth(border, border, border, border);
    return box;
}

CBPPushBtn *button(const QString &text)
{
    auto *result = new CBPPushBtn(text, nullptr);
    result->setFixedWidth(96);
    return result;
}

void addAnimations(Page *page)
{
    Section *section = page->addSection(
        "Try it",
        "A box opens and folds by its maximum height, or grows by its size. It turns back from where it is.");
    auto *box = framed(true, 8, 12);
    box->SetBgClr(theme::kPanel);
    for (const char *text : {"First", "Second", "Third"})
        box->PackStart(cell(text, kBoxWidth - 24));
    box->setFixedWidth(kBoxWidth);
    box->setMaximumHeight(kFoldHeight);
    auto *grower = framed(false, 0, 0);
    grower->SetBgClr(kCellColor);

    auto *row = new QWidget;
    row->setFixedHeight(kFoldHeight);
    grower->setParent(row);
    grower->setGeometry(kBoxWidth + 24 + 96 + 24, 0, 64, 64);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(24);
    layout->addWidget(box, 0, Qt::AlignTop);
    auto *buttons = new CBPBox(true, false, 8);
    for (const char *text : {"Open", "Fold", "Grow", "Shrink"})
        buttons->PackStart(button(text));
    layout->addWidget(buttons, 0, Qt::AlignTop);
    layout->addStretch();
    const QSize small(64, 64);
    const QSize large(256, 128);
    const auto press = [buttons](int index, auto action) {
        auto *pressed = qobject_cast<CBPPushBtn *>(buttons->layout()->itemAt(2 * index)->widget());
        QObject::connect(pressed, &CBPPushBtn::sigBtnClicked, buttons, action);
    };
    // From where the box is: a press while it is on its way makes it turn round.
    press(0, [box] { box->AnimatedExpanding(box->maximumHeight(), kFoldHeight, kFoldTime); });
    press(1, [box] { box->AnimatedCollapse(box->maximumHeight(), 0, kFoldTime); });
    press(2, [=] { grower->AnimatedHorizontal(grower->size(), large, kFoldTime); });
    press(3, [=] { grower->AnimatedHorizontal(grower->size(), small, kFoldTime); });
    section->addWide(row);
}

QWidget *rowOf(int spacing, int padding)
{
    CBPBox *box = framed(false, spacing, 8);
    for (const char *text : {"One", "Two", "Three"})
        box->PackStart(cell(text), false, false, padding);
    return box;
}

QWidget *columnOf(int spacing)
{
    CBPBox *box = framed(true, spacing, 8);
    for (const char *text : {"One", "Two", "Three"})
        box->PackStart(cell(text, 120));
    return box;
}

QWidget *expanding()
{
    CBPBox *box = framed(false, 8, 8);
    box->PackStart(cell("Fixed"));
    box->PackStart(cell("Expands"), true);
    box->PackStart(cell("Fixed"));
    box->setFixedSize(kBoxWidth, 64);
    return box;
}

QWidget *aligned()
{
    CBPBox *box = framed(false, 8, 8);
    box->PackStart(cell("Top"), false, false, 0, Qt::AlignTop);
    box->PackStart(cell("Middle"), false, false, 0, Qt::AlignVCenter);
    box->PackStart(cell("Bottom"), false, false, 0, Qt::AlignBottom);
    box->setFixedHeight(96);
    return box;
}

QWidget *nestedLayout()
{
    CBPBox *box = framed(false, 8, 8);
    auto *column = new QVBoxLayout;
    column->setSpacing(8);
    column->addWidget(cell("In a"));
    column->addWidget(cell("layout"));
    box->PackStart(cell("Widget"));
    box->PackStart(column, 8, 0);
    box->PackStart(cell("Widget"));
    return box;
}

QWidget *inserted()
{
    CBPBox *box = framed(false, 0, 8);
    box->PackStart(cell("Packed"), false, false, 8);
    box->PackStart(cell("Packed"));
    box->InsertWidget(1, cell("Inserted", kCellWidth, kInsertedColor));
    box->AddSpacing(32);
    box->PackStart(cell("After 32"));
    return box;
}

void addPacking(Page *page)
{
    Section *section =
        page->addSection("Packing", "Each widget is followed by a space as wide as its padding. The "
                                    "spacing comes between all items, such spaces included.");
    section->addColumns(3,
                        {{"Spacing 0, padding 0", rowOf(0, 0)},
                         {"Spacing 0, padding 8", rowOf(0, 8)},
                         {"The middle one expands", expanding()},
                         {"Column, spacing 4", columnOf(4)},
                         {"Alignments", aligned()},
                         {"A layout between widgets", nestedLayout()}},
                        kBoxWidth);
    section->addSamples({{"Inserted, and a space of 32", inserted()}});
}

QWidget *frameSample(bool drawn, const QColor &frame, const QColor &ground)
{
    auto *box = new CBPBox(false, false, 8);
    if (frame.isValid())
        box->SetFrameClr(frame);
    if (ground.isValid())
        box->SetBgClr(ground);
    box->SetDrawFrame(drawn);
    box->SetBorderWidth(16, 8, 16, 8);
    box->PackStart(cell("Cell"));
    box->setFixedSize(120, 56);
    return box;
}

QWidget *plainWidget(const QBrush &brush, const QPen &pen)
{
    auto *widget = new CBPWidget;
    widget->setBrush(brush);
    widget->setPen(pen);
    widget->setFixedSize(120, 56);
    return widget;
}

void addFrames(Page *page)
{
    page->addSection(
            "Frame and ground",
            "The ground is painted together with the frame only. The colours of the class stand out on "
            "purpose: an application sets its own.")
        ->addSamples({{"Not drawn", frameSample(false, QColor(), QColor(255, 240, 240))},
                      {"Colours of the class", frameSample(true, QColor(), QColor())},
                      {"Own colours", frameSample(true, theme::kAccent, theme::kPanel)},
                      {"Dark", frameSample(true, theme::kInk, theme::kInk)}});
    QPen wide(theme::kAccent, 4);
    wide.setJoinStyle(Qt::MiterJoin);
    page->addSection("Plain widget", "CBPWidget, which the boxes are made from, has a brush and a pen. The "
                                     "right and the lower line of a "
                                     "thin pen lie outside: it is drawn so on purpose.")
        ->addSamples({{"Brush", plainWidget(kCellColor, Qt::NoPen)},
                      {"Pen of 1, half inside", plainWidget(theme::kPanel, QPen(theme::kAccent))},
                      {"Pen of 4, half inside", plainWidget(Qt::NoBrush, wide)},
                      {"Pattern", plainWidget(QBrush(theme::kAccent, Qt::BDiagPattern), Qt::NoPen)}});
}

QWidget *grid(const QStringList &texts, const QColor &color = QColor())
{
    auto *box = new CBPGridBox;
    if (color.isValid())
        box->SetFrameClr(color);
    for (const QString &text : texts)
        box->PackStart(cell(text, 72, Qt::white));
    return box;
}

void addGrids(Page *page)
{
    page->addSection("Cells", "CBPGridBox is a framed row with a line behind each widget but the last.")
        ->addSamples({{"One", grid({"Only"})},
                      {"Two", grid({"Day", "Week"})},
                      {"Three", grid({"Day", "Week", "Month"})},
                      {"Own colour", grid({"Day", "Week", "Month"}, theme::kAccent)}});
}

QWidget *frameBox(int titleHeight, int bottomHeight, int height)
{
    auto *box = new CBPFrameBox(titleHeight, bottomHeight);
    const auto line = [](const QString &text, int lineHeight) {
        QLabel *label = theme::label(text, theme::Normal, 13, theme::kText);
        label->setFixedHeight(lineHeight);
        label->setMargin(8);
        return label;
    };
    box->AddTitleWidget(line("Title", 32), 0);
    box->AddContentWidget(line("Content", height - 32 - 40), 0);
    box->AddBottomWidget(line("Bottom row", 40), 0);
    box->setFixedSize(184, height);
    return box;
}

void addFrameBoxes(Page *page)
{
    page->addSection("Title, content, bottom", "CBPFrameBox: the grey band ends where the bottom row begins, "
                                               "and the line runs along the left and "
                                               "the top only. Both are drawn so on purpose.")
        ->addSamples({{"Bands of 32 and 40", frameBox(32, 40, 176)},
                      {"A title band only", frameBox(32, 144, 176)},
                      {"No bands", frameBox(0, 176, 176)},
                      {"Lower", frameBox(32, 40, 104)}});
}

Page *makePage()
{
    auto *page = new Page(
        "Boxes", "CBPBox, CBPGridBox, CBPFrameBox: rows, columns and cells of widgets, with a frame if "
                 "wanted, that open and fold.");
    addAnimations(page);
    addPacking(page);
    addFrames(page);
    addGrids(page);
    addFrameBoxes(page);
    return page;
}

void registerThis()
{
    registerPage({"boxes", "Boxes", PageGroup::Containers, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
