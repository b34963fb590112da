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

#include <functional>
#include <optional>

namespace {

constexpr int kCellHeight = 32;
constexpr int kCellWidth = 64;
constexpr int kBoxWidth = 256;
constexpr int kFoldHeight = 136;
constexpr int kFoldTime = 400; // milliseconds
constexpr theme::Tone kInserted{0xffbed6f0, theme::Purpose::Ground, theme::Purpose::Accent, 40};
constexpr theme::Tone kFrame{0xffc7d0dd, theme::Purpose::Frame};
constexpr theme::Tone kPaleRed{0xfffff0f0, theme::Purpose::Ground};

// Something to pack: a tile with a word on it.
QLabel *cell(const QString &text, int width = kCellWidth, const theme::Tone &tone = theme::kAccentTint)
{
    QLabel *label = theme::label(text, theme::Normal, 13, theme::kText);
    label->setAlignment(Qt::AlignCenter);
    label->setMinimumSize(width, kCellHeight);
    label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    theme::fill(label, tone);
    return label;
}

CBPBox *framed(bool vertical, int spacing, int border, const theme::Tone &ground = theme::kGround)
{
    auto *box = new CBPBox(vertical, false, spacing);
    box->SetDrawFrame(true);
    theme::follow(box, [box, ground] {
        box->SetFrameClr(kFrame);
        box->SetBgClr(ground);
    });
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
    auto *box = framed(true, 8, 12, theme::kPanel);
    for (const char *text : {"First", "Second", "Third"})
        box->PackStart(cell(text, kBoxWidth - 24));
    box->setFixedWidth(kBoxWidth);
    box->setMaximumHeight(kFoldHeight);
    auto *grower = framed(false, 0, 0, theme::kAccentTint);

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
    box->InsertWidget(1, cell("Inserted", kCellWidth, kInserted));
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

using Tone = std::optional<theme::Tone>; // none: the class's

QWidget *frameSample(bool drawn, const Tone &frame, const Tone &ground)
{
    auto *box = new CBPBox(false, false, 8);
    theme::follow(box, [box, frame, ground] {
        if (frame)
            box->SetFrameClr(*frame);
        if (ground)
            box->SetBgClr(*ground);
    });
    box->SetDrawFrame(drawn);
    box->SetBorderWidth(16, 8, 16, 8);
    box->PackStart(cell("Cell"));
    box->setFixedSize(120, 56);
    return box;
}

QWidget *plainWidget(const std::function<QBrush()> &brush, const std::function<QPen()> &pen)
{
    auto *widget = new CBPWidget;
    theme::follow(widget, [widget, brush, pen] {
        widget->setBrush(brush());
        widget->setPen(pen());
    });
    widget->setFixedSize(120, 56);
    return widget;
}

void addFrames(Page *page)
{
    page->addSection(
            "Frame and ground",
            "The ground is painted together with the frame only. The colours of the class stand out on "
            "purpose: an application sets its own.")
        ->addSamples({{"Not drawn", frameSample(false, {}, kPaleRed)},
                      {"Colours of the class", frameSample(true, {}, {})},
                      {"Own colours", frameSample(true, theme::kAccent, theme::kPanel)},
                      {"Dark", frameSample(true, theme::kSide, theme::kSide)}});
    const auto filled = [](const theme::Tone &tone) { return [tone] { return QBrush(tone.color()); }; };
    const auto pattern = [] { return QBrush(theme::kAccent.color(), Qt::BDiagPattern); };
    const auto nothing = [] { return QBrush(Qt::NoBrush); };
    const auto none = [] { return QPen(Qt::NoPen); };
    const auto thin = [] { return QPen(theme::kAccent.color()); };
    const auto wide = [] {
        return QPen(theme::kAccent.color(), 4, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
    };
    page->addSection("Plain widget", "CBPWidget, which the boxes are made from, has a brush and a pen. The "
                                     "right and the lower line of a "
                                     "thin pen lie outside: it is drawn so on purpose.")
        ->addSamples({{"Brush", plainWidget(filled(theme::kAccentTint), none)},
                      {"Pen of 1, half inside", plainWidget(filled(theme::kPanel), thin)},
                      {"Pen of 4, half inside", plainWidget(nothing, wide)},
                      {"Pattern", plainWidget(pattern, none)}});
}

QWidget *grid(const QStringList &texts, const Tone &tone = {})
{
    auto *box = new CBPGridBox;
    theme::follow(box, [box, tone] {
        if (tone)
            box->SetFrameClr(*tone);
    });
    for (const QString &text : texts)
        box->PackStart(cell(text, 72, theme::kGround));
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
