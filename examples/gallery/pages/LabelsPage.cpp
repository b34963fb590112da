#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPDrawLabel.h"
#include "CBPImage.h"
#include "CBPLabel.h"
#include "CBPLine.h"

namespace {

constexpr int kColumns = 4;
constexpr int kPillHeight = 24;

CBPDrawLabel *drawn(QString text, const theme::Tone &tone, bool rounded, int pixelSize = 14)
{
    auto *label = new CBPDrawLabel(text, tone, rounded);
    theme::follow(label, [label, tone] { label->SetTextShowColor(tone); });
    if (pixelSize != 14) {
        QString family = theme::font(theme::Semibold, pixelSize).family();
        label->SetTextFont(family, pixelSize);
    }
    label->setFixedSize(label->sizeHint().expandedTo(QSize(0, rounded ? kPillHeight : 0)));
    return label;
}

CBPImage *image(const QString &name, bool clickable, const QString &tip = QString())
{
    auto *result = new CBPImage(theme::picturePath(name));
    if (clickable)
        result->SetChgCursor(true);
    result->setToolTip(tip);
    return result;
}

CBPLabel *colored(const QString &text, const theme::Tone &tone)
{
    auto *label = new CBPLabel(text, tone, 14);
    theme::setTone(label, tone);
    return label;
}

void addLabels(Page *page)
{
    Section *section = page->addSection(
        "CBPLabel", "A QLabel in the font of the interface language, of 12 pixels or any other size.");
    section->addColumns(kColumns, {{"The default, 12", new CBPLabel("Last changed today")},
                                   {"14", new CBPLabel("Last changed today", 14)},
                                   {"18", new CBPLabel("Last changed today", 18)}});
    section->addColumns(kColumns, {{"Accent", colored("Up to date", theme::kAccent)},
                                   {"Warning", colored("Nearly full", theme::kOrange)},
                                   {"Rich text", colored("<b>12</b> of 20 files", theme::kText)}});
}

void addDrawn(Page *page)
{
    Section *section = page->addSection(
        "CBPDrawLabel", "A text in the middle of its widget, in the outline of a pill or without.");
    section->addSamples({{"Plain", drawn("Beta", theme::kInk, false)},
                         {"Pill", drawn("Beta", theme::kAccent, true)},
                         {"Another colour", drawn("Expires soon", theme::kOrange, true)},
                         {"Own font, 12", drawn("NEW", theme::kAccent, true, 12)},
                         {"Large", drawn("Premium", theme::kInk, true, 24)}});
}

void addImages(Page *page)
{
    Section *section =
        page->addSection("CBPImage", "It is as large as its file. A picture that can be clicked "
                                     "takes part in the Tab order, and Space and "
                                     "Enter click it.");
    auto *log = new EventLog("No signal yet: click the second picture.");
    CBPImage *live = image("icon_info.png", true, "Details");
    QObject::connect(live, &CBPImage::sigImgClick, log, [log] { log->add("sigImgClick()"); });
    section->addColumns(kColumns,
                        {{"A picture", image("icon_info.png", false)},
                         {"Can be clicked", live},
                         {"With the focus", pose::in(pose::Focused, image("icon_info.png", true))}});
    section->addWide(log);
}

CBPLine *line(bool horizontal, int width, int height)
{
    auto *result = new CBPLine(horizontal, nullptr);
    result->setFixedSize(width, height);
    return result;
}

void addLines(Page *page)
{
    Section *section =
        page->addSection("CBPLine", "A strip that fills its place in a layout; the bar is 3 pixels high.");
    section->addColumns(kColumns, {{"160 × 3", line(true, 160, 3)},
                                   {"160 × 24", line(true, 160, 24)},
                                   {"As a column, 40 × 24", line(false, 40, 24)}});
    section->addWide(new CBPLine(true, nullptr));
}

Page *makePage()
{
    auto *page = new Page("Labels and pictures", "CBPLabel, CBPDrawLabel, CBPImage and CBPLine.");
    addLabels(page);
    addDrawn(page);
    addImages(page);
    addLines(page);
    return page;
}

void registerThis()
{
    registerPage({"labels", "Labels and pictures", PageGroup::Displays, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
