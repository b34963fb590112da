#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPScrollBar.h"
#include "CBPScrollWnd.h"
#include "CBPSplitter.h"
#include "CBPSplitterHandle.h"

#include <QLabel>

namespace {

constexpr int kSplitterHeight = 144;
constexpr int kHandleWidth = 9;
constexpr int kBarLength = 184;
constexpr theme::Tone kCorner{0xfff0f0f0, theme::Purpose::ScrollPage};
constexpr int kAreaWidth = 420;
constexpr int kAreaHeight = 160;

QLabel *pane(const QString &text)
{
    QLabel *label = theme::label(text, theme::Normal, 14, theme::kText);
    label->setAlignment(Qt::AlignCenter);
    label->setMinimumSize(64, 32);
    theme::fill(label, theme::kPanel);
    return label;
}

CBPSplitter *splitter(Qt::Orientation orientation, const QStringList &panes, int width)
{
    auto *result = new CBPSplitter(orientation);
    for (const QString &text : panes)
        result->addWidget(pane(text));
    result->setHandleWidth(kHandleWidth);
    result->setFixedSize(width, kSplitterHeight);
    return result;
}

CBPSplitter *colored()
{
    CBPSplitter *result = splitter(Qt::Horizontal, {"Own", "colours"}, kAreaWidth);
    if (auto *handle = qobject_cast<CBPSplitterHandle *>(result->handle(1)))
        theme::follow(handle, [handle] {
            handle->setColr(QPen(theme::kAccent.color()), theme::kAccentTint.color());
        });
    return result;
}

void addSplitters(Page *page)
{
    Section *section =
        page->addSection("Splitters", "Drag a bar. The pen's upper edge lies outside the handle.");
    section->addSamples(
        {{"Three panes, built-in colours", splitter(Qt::Horizontal, {"Left", "Middle", "Right"}, kAreaWidth)},
         {"One above the other", splitter(Qt::Vertical, {"Above", "Below"}, kAreaWidth)}});
    section->addSamples({{"A pen and a brush of its own", colored()}});
}

CBPScrollBar *bar(Qt::Orientation orientation, int value = 40)
{
    auto *result = new CBPScrollBar(orientation);
    result->setRange(0, 100);
    result->setPageStep(60);
    result->setValue(value);
    if (orientation == Qt::Horizontal)
        result->setFixedWidth(kBarLength);
    else
        result->setFixedHeight(kBarLength);
    return result;
}

CBPScrollBar *under(CBPScrollBar *sample)
{
    sample->setAttribute(Qt::WA_UnderMouse); // what it asks for when it paints
    return pose::in(pose::Hovered, sample);
}

CBPScrollBar *tinted()
{
    CBPScrollBar *result = bar(Qt::Horizontal);
    theme::follow(result, [result] {
        QVector<QColor> slider{theme::kAccent, theme::kAccentPressed, theme::kAccent, theme::kAccent};
        QColor ground = theme::kAccentTint;
        result->SetSliderBg(slider);
        result->SetBarBg(ground);
    });
    return result;
}

void addBars(Page *page)
{
    Section *section = page->addSection(
        "Scroll bars", "10 pixels thick and flat. The slider is darker under the mouse. The arrow buttons "
                       "work, and are not painted.");
    section->addColumns(4,
                        {{"At rest", pose::in(pose::Normal, bar(Qt::Horizontal))},
                         {"Under the mouse", under(bar(Qt::Horizontal))},
                         {"Own colours", tinted()},
                         {"Live", bar(Qt::Horizontal, 0)}},
                        kBarLength);
    section->addColumns(4,
                        {{"At rest", pose::in(pose::Normal, bar(Qt::Vertical))},
                         {"Under the mouse", under(bar(Qt::Vertical))},
                         {"At the start", pose::in(pose::Normal, bar(Qt::Vertical, 0))},
                         {"Live", bar(Qt::Vertical)}},
                        kBarLength);
}

CBPScrollWnd *area(bool flatBars)
{
    auto *result = new CBPScrollWnd(nullptr);
    if (flatBars) {
        result->setVerticalScrollBar(new CBPScrollBar(Qt::Vertical, nullptr));
        result->setHorizontalScrollBar(new CBPScrollBar(Qt::Horizontal, nullptr));
        auto *corner = new QWidget; // where both meet, as flat as they are
        theme::fill(corner, kCorner);
        result->setCornerWidget(corner);
    }
    QLabel *content = pane(QStringLiteral("What lies here is larger\nthan the area that shows it."));
    content->setAlignment(theme::lineStart() | Qt::AlignTop);
    content->setMargin(theme::kUnit * 3);
    content->setFixedSize(kAreaWidth + 160, kAreaHeight + 120);
    result->setWidget(content);
    result->setFixedSize(kAreaWidth, kAreaHeight);
    return result;
}

void addAreas(Page *page)
{
    Section *section = page->addSection("Scroll areas", "A scroll area has no frame.");
    section->addSamples({{"With the style's own bars", area(false)}, {"With flat bars", area(true)}});
}

Page *makePage()
{
    auto *page = new Page("Splitter and scrolling", "CBPSplitter, CBPScrollBar and CBPScrollWnd: Qt's own "
                                                    "classes in the library's flat look.");
    addSplitters(page);
    addBars(page);
    addAreas(page);
    return page;
}

void registerThis()
{
    registerPage({"scrolling", "Splitter and scrolling", PageGroup::Containers, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
