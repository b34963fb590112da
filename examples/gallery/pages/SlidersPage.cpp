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
constexpr int kStateWidth = 200;
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

// The inner slider has the focus and the pointer. Pressed in its middle, both go there.
template <class Slider> Slider *posed(pose::State state, Slider *sample)
{
    pose::put(sample, state == pose::Disabled ? state : pose::Normal);
    if (state != pose::Disabled)
        pose::put(sample->template findChild<QSlider *>(), state);
    return sample;
}

SampleRow states(const QString &caption, QWidget *(*sample)(pose::State), const QVector<pose::State> &all)
{
    SampleRow row{caption, {}};
    for (const pose::State state : all)
        row.widgets << sample(state);
    return row;
}

QWidget *stepsIn(pose::State state)
{
    return posed(state, jump("Medium", {"Low", "Medium", "High"}, kStateWidth));
}

QWidget *smoothIn(pose::State state)
{
    return posed(state, smooth(50, ends(), 100, 0, kStateWidth));
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
        "States", "The ring shows to those who use the keyboard, and the halo under the pointer. A disabled "
                  "smooth slider keeps its colour: it is drawn so on purpose.");
    const QVector<pose::State> active{pose::Normal, pose::Hovered, pose::Pressed};
    section->addTable({"Normal", "Hovered", "Pressed"},
                      {states("Steps", &stepsIn, active), states("Smooth", &smoothIn, active)});
    const QVector<pose::State> others{pose::Focused, pose::Disabled};
    SampleRow steps = states("Steps", &stepsIn, others);
    SampleRow values = states("Smooth", &smoothIn, others);
    steps.widgets << posed(pose::Hovered, jump("High", {"Low", "Medium", "High"}, kStateWidth));
    values.widgets << posed(pose::Hovered, smooth(100, ends(), 100, 0, kStateWidth));
    section->addTable({"Keyboard focus", "Disabled", "Hovered, at its end"}, {steps, values});
}

void addPositions(Page *page)
{
    Section *section =
        page->addSection("Positions", "A jump slider has one position for each label. The value of a "
                                      "smooth one stays within its edges.");
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
    registerPage({"sliders", "Sliders", PageGroup::Displays, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
