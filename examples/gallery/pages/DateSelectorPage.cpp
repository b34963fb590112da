#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPDateSelector.h"
#include "CBPImageButton.h"

#include <QCalendarWidget>
#include <QChildEvent>
#include <QCoreApplication>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QScopedPointer>
#include <QTableView>

namespace {

constexpr int kWidth = 144;
constexpr int kLargeLetters = 20;

// The calendar's window, and what is made with it, never comes onto the screen.
class KeepsOffScreen : public QObject
{
protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::ChildAdded) {
            QObject *child = static_cast<QChildEvent *>(event)->child();
            if (child->isWidgetType())
                static_cast<QWidget *>(child)->setAttribute(Qt::WA_DontShowOnScreen);
        }
        return false;
    }
};

CBPDateSelector *selector(QDate date)
{
    auto *result = new CBPDateSelector;
    auto *edit = result->findChild<QDateEdit *>();
    edit->setDisplayFormat("yyyy-MM-dd"); // the same on every machine
    edit->setFont(theme::font(theme::Normal, 14));
    theme::setFieldTexts(edit);
    result->setFixedWidth(kWidth);
    result->setAccessibleName("Date");
    result->SetDate(date);
    return result;
}

CBPDateSelector *focused(QDate date, bool onButton)
{
    CBPDateSelector *result = selector(date);
    QWidget *part = result->findChild<QDateEdit *>();
    if (onButton)
        part = result->findChild<CBPImageButton *>();
    pose::put(part, pose::Focused);
    return result;
}

void hoverDay(QTableView *view, int row, int column)
{
    const QModelIndex day = view->model()->index(row, column);
    const QPoint at = view->visualRect(day).center();
    QMouseEvent move(QEvent::MouseMove, at, view->viewport()->mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(view->viewport(), &move);
}

enum class Calendar { Plain, Hovered, Mirrored, Large };

// The picture of the calendar as the button opens it.
QPixmap calendarOf(QDate date, Calendar look)
{
    const QScopedPointer<CBPDateSelector> owner(selector(date));
    if (look == Calendar::Mirrored)
        owner->setLayoutDirection(Qt::RightToLeft);
    if (look == Calendar::Large)
        owner->findChild<QDateEdit *>()->setFont(theme::font(theme::Normal, kLargeLetters));
    auto *button = owner->findChild<CBPImageButton *>();
    KeepsOffScreen filter;
    button->installEventFilter(&filter);
    button->click();
    auto *calendar = button->findChild<QCalendarWidget *>();
    auto *view = calendar->findChild<QTableView *>();
    QFocusEvent focus(QEvent::FocusIn, Qt::PopupFocusReason); // only a window on the screen has it
    QCoreApplication::sendEvent(view, &focus);
    if (look == Calendar::Hovered)
        hoverDay(view, 4, 3);
    return calendar->window()->grab();
}

QLabel *openCalendar(QDate date, Calendar look = Calendar::Plain)
{
    QLabel *label = pose::shown([=] { return calendarOf(date, look); });
    label->setContentsMargins(0, 0, 1, 1); // the picture may reach over by a part of a pixel
    return label;
}

void addLiveSamples(Page *page)
{
    Section *section = page->addSection(
        "Try it",
        "Alt+Down or the button opens the calendar. The arrow and Page keys move in it, Return takes a day, "
        "and Escape takes none.");
    auto *log = new EventLog("No signal yet: leave the field or pick a day.");
    CBPDateSelector *live = selector(QDate(2024, 3, 7));
    QObject::connect(live, &CBPDateSelector::sigDateEditFinish, log, [log, live] {
        log->add(QString("sigDateEditFinish(): %1").arg(live->GetDate().toString(Qt::ISODate)));
    });
    section->addSamples({{"CBPDateSelector", live}});
    section->addWide(log);
}

void addStates(Page *page)
{
    const QDate date(2024, 3, 7);
    CBPDateSelector *hovered = selector(date);
    pose::put(hovered->findChild<CBPImageButton *>(), pose::Hovered);
    CBPDateSelector *pressed = selector(date);
    pose::put(pressed->findChild<CBPImageButton *>(), pose::Pressed);
    auto *mirrored = new QWidget; // a widget that runs the other way would lie at the column's other end
    auto *place = new QHBoxLayout(mirrored);
    place->setContentsMargins(0, 0, 0, 0);
    place->addWidget(selector(date));
    place->itemAt(0)->widget()->setLayoutDirection(Qt::RightToLeft);
    Section *section = page->addSection("States", "Dates run from 1980-01-01 to 2099-12-31.");
    section->addColumns(4, {{"Normal", pose::in(pose::Normal, selector(date))},
                            {"Focus in the field", focused(date, false)},
                            {"Focus on the button", focused(date, true)},
                            {"Disabled", pose::in(pose::Disabled, selector(date))},
                            {"Button hovered", hovered},
                            {"Button pressed", pressed},
                            {"The first day", pose::in(pose::Normal, selector(QDate(1900, 1, 1)))},
                            {"The last day", pose::in(pose::Normal, selector(QDate(2100, 1, 1)))},
                            {"Under the mouse", pose::in(pose::Hovered, selector(date))},
                            {"Right to left", mirrored}});
}

void addCalendars(Page *page)
{
    const QDate date(2024, 3, 7);
    QLabel *opened = openCalendar(date);
    page->addSection(
            "The calendar",
            "It opens under the button, or above it where there is no room, and closes when a day is picked.")
        ->addColumns(3,
                     {{"Opened", opened},
                      {"A day under the pointer", openCalendar(date, Calendar::Hovered)},
                      {"At the end of the range", openCalendar(QDate(2099, 12, 31))}},
                     opened->sizeHint().width());
    page->addSection("Direction and text size",
                     "The calendar in a right-to-left window, and that of a field with large text.")
        ->addColumns(3,
                     {{"Right to left", openCalendar(date, Calendar::Mirrored)},
                      {"Large text", openCalendar(date, Calendar::Large)}},
                     opened->sizeHint().width());
}

Page *makePage()
{
    auto *page = new Page("Date selector", "CBPDateSelector, a date to be typed or picked from a calendar.");
    addLiveSamples(page);
    addStates(page);
    addCalendars(page);
    return page;
}

void registerThis()
{
    registerPage({"dateselector", "Date selector", PageGroup::DateAndTime, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
