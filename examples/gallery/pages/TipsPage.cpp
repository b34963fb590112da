#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPPushBtn.h"
#include "CBPTipWnd.h"
#include "CTextTips.h"

#include <QLabel>
#include <QScopedPointer>

namespace {

constexpr int kColumns = 4;
constexpr int kTextWidth = 144;
constexpr int kBubbleWidth = 176; // with a text of that width

QLabel *words(const QString &text, int width = kTextWidth)
{
    QLabel *label = theme::label(text, theme::Normal, 14, theme::kText, true);
    label->setFixedWidth(width);
    return label;
}

// The picture of a tip as it stands on the screen, below what it explains if it has an arrow. It takes the
// tip.
QPixmap portrait(QWidget *tip)
{
    const QScopedPointer<QWidget> owner(tip);
    tip->adjustSize();
    // Whole device pixels at every scaling, or the page would cut the last row of them off.
    const auto whole = [](int side) { return (side + 3) / 4 * 4; };
    tip->resize(whole(tip->width()), whole(tip->height()));
    return tip->grab();
}

QWidget *bubble(ENOrientation orientation, const QString &text, int radius = 3)
{
    return pose::shown([=] {
        auto *tip = new CBPTipWnd(orientation, nullptr);
        tip->SetRoundRadius(radius, radius);
        tip->AppendWidget(words(text));
        return portrait(tip);
    });
}

QWidget *darkTip(const QString &text, int width, const QColor &ground = QColor())
{
    return pose::shown([=] {
        auto *tip = new CTextTips(width, nullptr);
        tip->SetBkgColor(ground);
        tip->SetShowText(text);
        return portrait(tip);
    });
}

CBPPushBtn *anchor(const QString &text)
{
    auto *button = new CBPPushBtn(text, nullptr);
    button->setFixedWidth(kBubbleWidth);
    return button;
}

// Comes with the mouse, or with a click, and stays under its button while the page is scrolled.
CBPPushBtn *live(const QString &text, ENOrientation orientation, bool follow)
{
    CBPPushBtn *button = anchor(text);
    auto *tip = new CBPTipWnd(orientation, button);
    tip->AppendWidget(words("This explains the button above. Escape closes it."));
    tip->ShowClickBindWidget(follow);
    if (!follow) {
        QObject::connect(button, &CBPPushBtn::sigBtnClicked, tip, [tip] {
            tip->show();
            tip->activateWindow();
        });
    }
    return button;
}

void addLiveSamples(Page *page)
{
    Section *section = page->addSection(
        "Try it", "Three tips follow the mouse, a click opens the fourth. Escape or a click elsewhere "
                  "closes it; scrolling does not.");
    section->addColumns(kColumns,
                        {{"An arrow at the left", live("Rest here", ENOrientationLeft, true)},
                         {"An arrow in the middle", live("Rest here", ENOrientationCenter, true)},
                         {"An arrow at the right", live("Rest here", ENOrientationRight, true)},
                         {"No arrow, on a click", live("Click here", ENOrientationNone, false)}},
                        kBubbleWidth);
}

void addBubbles(Page *page)
{
    Section *section = page->addSection(
        "Orientations",
        "The arrow stands 45 pixels from the left or right, or in the middle. It takes its room from the "
        "margin above the content, on purpose. Without an arrow the bubble starts one pixel left of its "
        "widget.");
    const QString text = "A bubble explains what it points at.";
    section->addColumns(kColumns,
                        {{"An arrow at the left", bubble(ENOrientationLeft, text)},
                         {"An arrow in the middle", bubble(ENOrientationCenter, text)},
                         {"An arrow at the right", bubble(ENOrientationRight, text)},
                         {"No arrow", bubble(ENOrientationNone, text)}},
                        kBubbleWidth);
}

QPixmap mixed()
{
    auto *tip = new CBPTipWnd(ENOrientationLeft, nullptr);
    tip->AppendWidget(theme::label("Sign in", theme::Semibold, 14, theme::kInk));
    QLabel *explanation = words("Your settings come with you.");
    explanation->setContentsMargins(0, 4, 0, 12); // the tip sets nothing between its widgets
    tip->AppendWidget(explanation);
    auto *button = new CBPPushBtn("Continue", nullptr);
    button->setFixedWidth(kTextWidth);
    tip->AppendWidget(button);
    return portrait(tip);
}

void addContents(Page *page)
{
    Section *section =
        page->addSection("Corners and contents",
                         "The corners have any radius, and the tip holds any widgets, one below the other.");
    section->addColumns(kColumns,
                        {{"Radius 0", bubble(ENOrientationCenter, "Square corners.", 0)},
                         {"Radius 12", bubble(ENOrientationCenter, "Softer corners.", 12)},
                         {"Radius 12, no arrow", bubble(ENOrientationNone, "Softer corners.", 12)},
                         {"Several widgets", pose::shown(mixed)}},
                        kBubbleWidth);
}

void addTexts(Page *page)
{
    Section *section = page->addSection(
        "Text tips",
        "CTextTips: a dark box with a text, as image buttons show it. It is as wide as its text, "
        "or wraps at a fixed width.");
    section->addColumns(
        kColumns,
        {{"One line", darkTip("Minimise", 0)},
         {"160 pixels wide", darkTip("A longer text wraps at its words where a width is set.", 160)},
         {"A rich text", darkTip("<b>Ctrl+N</b> opens a new one", 0)},
         {QString(), nullptr}, // the last column is narrower than a tip of a set width
         {"Another background", darkTip("Dark on light", 0, QColor(255, 243, 205))},
         {"A word wider than the box", darkTip("yearly_reports_of_all_departments_2023_and_2024.pdf", 160)}},
        kBubbleWidth);
}

Page *makePage()
{
    auto *page =
        new Page("Tips", "CBPTipWnd, a bubble right under another widget, and CTextTips, a plain box "
                         "with a text.");
    addLiveSamples(page);
    addBubbles(page);
    addContents(page);
    addTexts(page);
    return page;
}

void registerThis()
{
    registerPage({"tips", "Tips", PageGroup::Windows, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
