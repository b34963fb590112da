#include "Page.h"
#include "PageRegistry.h"
#include "Theme.h"

#include "CBPDrawLabel.h"
#include "CBPFlowLayout.h"
#include "CBPPushBtn.h"

#include <QHBoxLayout>

#include <iterator>

namespace {

const char *const kTags[] = {"Backup",       "Every day",       "Encrypted", "Drive D",
                             "Two versions", "Mail on error",   "Compress",  "Verify",
                             "Weekdays",     "Wake the device", "22:00",     "Quiet"};
constexpr int kTagHeight = 26;
constexpr int kTagPadding = 14;
constexpr int kGap = 8;
constexpr theme::Tone kGround{0xffe8edf3, theme::Purpose::RaisedGround};
constexpr int kHalf = (theme::kPageWidth - 3 * theme::kUnit) / 2;

// In the accent that is dark enough for the ground of the panels, too.
CBPDrawLabel *tag(QString text)
{
    auto *label = new CBPDrawLabel(text, theme::kAccentHovered, true);
    theme::follow(label, [label] { label->SetTextShowColor(theme::kAccentHovered); });
    label->setFixedSize(label->sizeHint().width() + kTagPadding, kTagHeight);
    return label;
}

// Dark enough for its edges to be seen, which is where the rows break.
QWidget *ground()
{
    return theme::ground(kGround);
}

// A panel of tags, `width` pixels wide and as high as they need.
QWidget *tags(int width, int hSpacing = kGap, int vSpacing = kGap,
              Qt::LayoutDirection direction = Qt::LeftToRight)
{
    QWidget *panel = ground();
    panel->setLayoutDirection(direction);
    auto *layout = new CBPFlowLayout(panel, kGap, hSpacing, vSpacing);
    for (const char *text : kTags)
        layout->addWidget(tag(text));
    panel->setFixedSize(width, layout->heightForWidth(width));
    return panel;
}

void addLive(Page *page)
{
    Section *section = page->addSection("Try it", "The panel grows and shrinks with its tags; resize the "
                                                  "window to see the rows break anew.");
    auto *panel = new QWidget;
    auto *layout = new CBPFlowLayout(panel, 0, kGap, kGap);
    for (int i = 0; i < 4; ++i)
        layout->addWidget(tag(kTags[i]));
    auto *buttons = new QWidget;
    auto *row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    auto *add = new CBPPushBtn("Add", nullptr);
    auto *remove = new CBPPushBtn("Remove", nullptr);
    for (CBPPushBtn *button : {add, remove}) {
        button->setFixedWidth(96);
        row->addWidget(button);
    }
    row->addStretch();
    QObject::connect(add, &CBPPushBtn::sigBtnClicked, layout, [layout] {
        layout->addWidget(tag(kTags[std::size_t(layout->count()) % std::size(kTags)]));
    });
    QObject::connect(remove, &CBPPushBtn::sigBtnClicked, layout, [layout] {
        if (QLayoutItem *item = layout->takeAt(layout->count() - 1)) {
            delete item->widget();
            delete item;
        }
    });
    section->addWide(panel);
    section->addWide(buttons);
}

QWidget *mixed()
{
    QWidget *panel = ground();
    auto *layout = new CBPFlowLayout(panel, kGap, kGap, kGap);
    for (const int height : {28, 48, 36, 64, 28, 40, 28}) {
        auto *button = new CBPPushBtn(QString::number(height), nullptr);
        button->setFixedSize(72, height);
        layout->addWidget(button);
    }
    panel->setFixedSize(kHalf, layout->heightForWidth(kHalf));
    return panel;
}

Page *makePage()
{
    auto *page = new Page("Flow layout", "CBPFlowLayout: items in rows that break where the next one would "
                                         "not fit, as words in a paragraph.");
    addLive(page);
    page->addSection("Widths",
                     "The narrower the layout is, the more rows it has. It reports the height that it needs.")
        ->addSamples({{"400 pixels", tags(400)}, {"248 pixels", tags(248)}, {"160 pixels", tags(160)}});
    page->addSection("Gaps and direction", "The gaps are its own, or those of the style. Right-to-left rows "
                                           "begin at the right.")
        ->addColumns(2, {{"2 and 16 pixels", tags(kHalf, 2, 16)},
                         {"Of the style", tags(kHalf, -1, -1)},
                         {"Right to left", tags(kHalf, kGap, kGap, Qt::RightToLeft)},
                         {"Different heights: the tallest rules its row", mixed()}});
    return page;
}

void registerThis()
{
    registerPage({"flow-layout", "Flow layout", PageGroup::Containers, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
