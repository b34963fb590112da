#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPImageButton.h"
#include "CEditTimeEdit.h"

#include <QTimeEdit>

namespace {

constexpr int kFieldWidth = 72;
constexpr int kFieldHeight = 28;

void dress(CEditTimeEdit *list)
{
    const QList<QTimeEdit *> fields = list->findChildren<QTimeEdit *>();
    for (QTimeEdit *field : fields) {
        field->setDisplayFormat("HH:mm"); // the same on every machine
        field->setFont(theme::font(theme::Normal, 14));
        field->setFixedSize(kFieldWidth, kFieldHeight);
    }
}

CEditTimeEdit *timeList(const QVector<QTime> &times, int maxCount)
{
    auto *list = new CEditTimeEdit(":/gallery/plus.svg", theme::picturePath("delete.png"), maxCount);
    list->Initialize(times);
    list->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    dress(list);
    return list;
}

CEditTimeEdit *focusedButton(const QVector<QTime> &times, bool onAdd)
{
    CEditTimeEdit *list = timeList(times, 4);
    const QList<CBPImageButton *> buttons = list->findChildren<CBPImageButton *>();
    for (CBPImageButton *button : buttons) {
        if (onAdd == (button->parentWidget() == list)) {
            pose::put(button, pose::Focused);
            break;
        }
    }
    return list;
}

CEditTimeEdit *posedField(pose::State state)
{
    CEditTimeEdit *list = timeList({QTime(6, 30)}, 4);
    pose::put(list->findChild<QTimeEdit *>(), state);
    return list;
}

// The list has no signal of its own; its buttons tell, also those that come later.
void listen(CEditTimeEdit *list, EventLog *log)
{
    const char heard[] = "heard";
    const QList<CBPImageButton *> buttons = list->findChildren<CBPImageButton *>();
    for (CBPImageButton *button : buttons) {
        if (button->property(heard).toBool())
            continue;
        button->setProperty(heard, true);
        QObject::connect(button, &CBPImageButton::btn_released, log, [list, log] {
            dress(list);
            listen(list, log);
            QStringList times;
            const QVector<QTime> sorted = list->GetQTimesSorted();
            for (const QTime &time : sorted)
                times << time.toString("HH:mm");
            log->add("GetQTimesSorted(): " + times.join(", "));
        });
    }
}

CEditTimeEdit *live(EventLog *log)
{
    CEditTimeEdit *list = timeList({QTime(18, 0), QTime(6, 30)}, 4);
    listen(list, log);
    return list;
}

void addLiveSample(Page *page)
{
    Section *section = page->addSection(
        "Try it", "There are at most four times here. The arrows step past midnight, Tab goes "
                  "through fields and buttons, and Space presses a button.");
    auto *log = new EventLog("No button pressed yet.");
    section->addSamples({{"CEditTimeEdit", live(log)}});
    section->addWide(log);
}

void addStates(Page *page)
{
    const QVector<QTime> two{QTime(6, 30), QTime(18, 0)};
    const QVector<QTime> five{QTime(0, 0), QTime(6, 30), QTime(12, 0), QTime(18, 0), QTime(23, 59)};
    Section *section = page->addSection(
        "States", "The last time cannot be removed, and at the greatest number the add button is gone.");
    section->addColumns(2, {{"One time", pose::in(pose::Normal, timeList({QTime(6, 30)}, 4))},
                            {"Two times", pose::in(pose::Normal, timeList(two, 4))},
                            {"Focus in a field", posedField(pose::Focused)},
                            {"A field under the mouse", posedField(pose::Hovered)},
                            {"Focus on a delete button", focusedButton(two, false)},
                            {"Focus on the add button", focusedButton(two, true)},
                            {"As many as there may be", pose::in(pose::Normal, timeList(two, 2))},
                            {"Disabled", pose::in(pose::Disabled, timeList(two, 4))}});
    section->addSamples({{"More than that, set by Initialize()", pose::in(pose::Normal, timeList(five, 3))}});
}

Page *makePage()
{
    auto *page = new Page("Time list", "CEditTimeEdit, a short list of times of day.");
    addLiveSample(page);
    addStates(page);
    return page;
}

void registerThis()
{
    registerPage({"timelist", "Time list", PageGroup::DateAndTime, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
