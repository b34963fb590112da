#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPDaySelector.h"
#include "CBPWeekSelector.h"

#include <QAbstractButton>

namespace {

QStringList days(int count)
{
    QStringList names;
    for (int day = 1; day <= count; ++day)
        names << QString::number(day);
    return names;
}

CBPDaySelector *daySelector(QStringList names, QString extra, QString all, const QStringList &selected = {})
{
    auto *selector = new CBPDaySelector(names, extra, all);
    selector->SetSelected(selected);
    return selector;
}

CBPWeekSelector *weekSelector(const QStringList &selected = {})
{
    QStringList names{"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};
    auto *selector = new CBPWeekSelector(names);
    selector->SetSelected(selected);
    return selector;
}

template <class Selector> Selector *live(EventLog *log, Selector *selector)
{
    QObject::connect(selector, &Selector::sigBtnClicked, log, [log, selector](bool all) {
        const QStringList selected = selector->GetSelected();
        const QString list =
            selected.size() > 8 ? QString("%1 of them").arg(selected.size()) : selected.join(", ");
        log->add(QString("sigBtnClicked(%1): %2")
                     .arg(all ? "true" : "false", selected.isEmpty() ? QString("none") : list));
    });
    return selector;
}

Page *makePage()
{
    auto *page = new Page("Day and week selectors",
                          "CBPDaySelector and CBPWeekSelector: a choice of several days, for schedules.");
    Section *section = page->addSection(
        "Try it",
        "The mouse, Space, the arrow keys, Home and End work here, and Tab comes to each selector once. "
        "Every signal appears below.");
    auto *log = new EventLog("No signal yet: choose a day.");
    section->addSamples({{"Days of the week", live(log, weekSelector({"Mon", "Wed", "Fri"}))}});
    section->addSamples(
        {{"Days of a month", live(log, daySelector(days(31), QString(), "Select all", {"1", "15", "31"}))}});
    section->addWide(log);

    section = page->addSection(
        "Extra choice", "An extra choice follows the days; the last button takes four places, whichever it "
                        "is.");
    section->addSamples({{"With an extra choice and a button that selects all",
                          daySelector(days(28), "Last", "Select all", {"1", "Last"})}});
    section->addSamples(
        {{"Without a button that selects all", daySelector(days(10), "Last", QString(), {"Last"})}});

    section = page->addSection(
        "States", "Here are states of one day and of the whole selector, and days without a name.");
    CBPWeekSelector *posed = weekSelector({"Mon", "Tue", "Thu"});
    const auto posedDays = posed->findChildren<QAbstractButton *>();
    pose::put(posedDays.value(2), pose::Hovered);
    pose::put(posedDays.value(3), pose::Hovered);
    pose::put(posedDays.value(5), pose::Focused);
    section->addSamples({{"Wed and Thu under the mouse, Sat with the focus", posed}});
    CBPWeekSelector *off = weekSelector({"Tue"});
    off->setEnabled(false);
    section->addSamples({{"Disabled, with Tue chosen", off}});
    QStringList nameless{"Mon", QString(), "Wed", "Mon", QString()};
    auto *odd = new CBPWeekSelector(nameless);
    odd->SetSelected({"Mon"});
    const auto oddDays = odd->findChildren<QAbstractButton *>();
    for (QAbstractButton *day : oddDays) {
        if (day->text().isEmpty())
            day->setAccessibleName("A day without a name");
    }
    section->addSamples({{"Names may repeat or be empty", odd}});
    return page;
}

void registerThis()
{
    registerPage({"selectors", "Day and week selectors", PageGroup::DateAndTime, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
