#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPJumpSlider.h"
#include "CBPSmoothSlider.h"

#include <QSlider>

namespace {

constexpr int kWidth = 256;
constexpr int kLiveWidth = 400;

QStringList levels()
{
    return {"Off", "Low", "Medium", "High"};
}

QStringList ends()
{
    return {"None", "All"};
}

CBPJumpSlider *jump(const QString &position, const QStringList &labels = levels(), int width = kWidth)
{
    auto *result = new CBPJumpSlider(nullptr);
    result->setFont(theme::font(theme::Normal, 14));
    result->Init(labels);
    result->SetPosByText(position);
    result->setFixedWidth(width ? width : result->sizeHint().width());
    return result;
}

CBPSmoothSlider *smooth(int value, const QStringList &labels = ends(), int maximum = 100, int minimum = 0,
                        int width = kWidth)
{
    auto *result = new CBPSmoothSlider(nullptr);
    result->setFont(theme::font(theme::Normal, 14));
    result->Init(labels, maximum, minimum);
    result->SetValue(value);
    result->setFixedWidth(width);
    return result;
}

// The focus is the inner slider's.
template <class Slider> Slider *focused(Slider *sample)
{
    pose::put(sample, pose::Normal);
    pose::put(sample->template findChild<QSlider *>(), pose::Focused);
    return sample;
}

void addLiveSamples(Page *page)
{
    Section *section = page->addSection(
        "Try it", "Drag, click a label, or press Tab and then the arrow, Page, Home and End keys.");
    auto *log = new EventLog("Nothing moved yet.");
    CBPJumpSlider *level = jump("Low", levels(), kLiveWidth);
    level->setAccessibleName("Compression");
    CBPSmoothSlider *share = smooth(40, ends(), 100, 0, kLiveWidth);
    share->setAccessibleName("Share of the disk");
    QObject::connect(level, &CBPJumpSlider::valueChanged, log,
                     [log, level] { log->add(QString("GetPosText() is \"%1\"").arg(level->GetPosText())); });
    QObject::connect(share, &CBPSmoothSlider::valueChanged, log,
                     [log, share] { log->add(QString("GetValue() is %1").arg(share->GetValue())); });
    section->addColumns(2, {{"Between named positions", level}, {"Any value from 0 to 100", share}},
                        kLiveWidth);
    section->addWide(log);
}

void addStates(Page *page)
{
    Section *section = page->addSection(
        "States",
        "The focus shows to those who use the keyboard. A disabled smooth slider keeps its colour.");
    section->addTable({"Normal", "Focused"},
                      {{"Steps", {pose::in(pose::Normal, jump("Medium")), focused(jump("Medium"))}},
                       {"Smooth", {pose::in(pose::Normal, smooth(60)), focused(smooth(60))}}});
    section->addTable(
        {"Disabled", "At its end"},
        {{"Steps", {pose::in(pose::Disabled, jump("Medium")), pose::in(pose::Normal, jump("High"))}},
         {"Smooth", {pose::in(pose::Disabled, smooth(60)), pose::in(pose::Normal, smooth(100))}}});
}

void addPositions(Page *page)
{
    Section *section =
        page->addSection("Positions", "A jump slider has one per label. The value of a smooth one "
                                      "stays within its edges.");
    section->addColumns(3, {{"Two labels", jump("Never", {"Never", "Always"})},
                            {"Five labels", jump("4", {"1", "2", "3", "4", "5"})},
                            {"Equal labels", jump("Same", {"Same", "Same", "Same"})},
                            {"At 0", smooth(0)},
                            {"At 3", smooth(3)},
                            {"From 20 to 100, at 20", smooth(20, {"20", "100"}, 100, 20)},
                            {"Three labels", smooth(1024, {"0", "1024", "2048"}, 2048)},
                            {"Large numbers", smooth(1500000000, ends(), 2147483647)},
                            {"A single value", smooth(7, ends(), 7, 7)},
                            {"As wide as its labels need", jump("Seldom", {"Never", "Seldom", "Often"}, 0)}});
}

Page *makePage()
{
    auto *page =
        new Page("Sliders", "CBPJumpSlider moves between named positions, CBPSmoothSlider over a range "
                            "of numbers.");
    addLiveSamples(page);
    addStates(page);
    addPositions(page);
    return page;
}

void registerThis()
{
    registerPage({"sliders", "Sliders", PageGroup::Display, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
