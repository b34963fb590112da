#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPUISyncWaiter.h"
#include "CBPWaitBtn.h"
#include "CBPWaiter.h"
#include "CExpandBtn.h"

#include <QLabel>
#include <QPointer>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr int kColumns = 4;
constexpr int kWait = 4000; // ms, of the live samples
constexpr int kExpanderWidth = (theme::kPageWidth - (kColumns - 1) * 3 * theme::kUnit) / kColumns;

// ----------------------------------------------------------------------------------------------------------
// live

// In colours that a white text can be read on.
CBPWaitBtn *primary(const QString &text, const QString &waitingText)
{
    auto *button = new CBPWaitBtn(theme::spinnerFrames(), text, waitingText);
    theme::fillWaitingButton(button);
    button->setFixedSize(168, theme::kControlHeight);
    return button;
}

CBPWaitBtn *waitingButton(EventLog *log)
{
    CBPWaitBtn *button = primary("Wait in the button", "Waiting");
    QObject::connect(button, &CBPPushBtn::sigBtnClicked, log, [button, log] {
        const QPointer<EventLog> alive(log);
        QTimer::singleShot(kWait, button, [button] { button->exit(nullptr, false); });
        button->run(nullptr, false);
        if (alive)
            alive->add("CBPWaitBtn::run() returned");
    });
    return button;
}

void runWaiter(EventLog *log)
{
    const QPointer<EventLog> to(log);
    QPointer<CBPUISyncWaiter> waiter(new CBPUISyncWaiter("Please wait", log->window()));
    waiter->SetRespondEsc(true);
    QTimer::singleShot(kWait, waiter, [waiter] { waiter->exit(nullptr, false); });
    waiter->run(nullptr, false);
    if (waiter && to)
        to->add(QString("CBPUISyncWaiter::GetResult() is %1").arg(waiter->GetResult()));
    delete waiter;
}

void runDialog(EventLog *log)
{
    const QPointer<EventLog> to(log);
    QPointer<CBPWaiter> waiter(new CBPWaiter(log->window(), "Loading", kWait, false));
    waiter->Run();
    if (waiter && to)
        to->add(QString("CBPWaiter ended with %1").arg(waiter->result()));
    delete waiter;
}

void addLive(Page *page)
{
    Section *section =
        page->addSection("Try it", "Each of them waits for four seconds. Escape ends both windows; the "
                                   "button waits to the end.");
    auto *log = new EventLog("Nothing has waited yet.");
    section->addSamples({{"CBPWaitBtn", waitingButton(log)},
                         {"CBPUISyncWaiter", loggedButton("Open a waiter", log, &runWaiter)},
                         {"CBPWaiter", loggedButton("Open a busy dialog", log, &runDialog)}});
    section->addWide(log);
}

// ----------------------------------------------------------------------------------------------------------
// at one moment

// A button that somebody waits in, with its frame number `index`.
QWidget *spinning(CBPWaitBtn *button, const QString &waitingText, int index)
{
    button->setText(waitingText);
    button->setSpacing(32); // so that the spinner stands where the button itself draws it
    button->setIconSize(QSize(20, 20));
    theme::follow(button, [button, index] {
        QIcon icon;
        const QString name = QStringLiteral("loading/loading%1.png").arg(index, 2, 10, QLatin1Char('0'));
        icon.addPixmap(theme::picture(name), QIcon::Disabled);
        button->setIcon(icon);
    });
    return pose::in(pose::Disabled, button);
}

void addButtons(Page *page)
{
    page->addSection("Waiting button",
                     "The spinner comes after 880 milliseconds, on purpose: a short wait shows none.")
        ->addColumns(kColumns,
                     {{"Idle", pose::in(pose::Normal, primary("Start", "Waiting"))},
                      {"Waiting, before the spinner", pose::in(pose::Disabled, primary("Start", ""))},
                      {"With a waiting text", spinning(primary("Start", "Waiting"), "Waiting", 4)},
                      {"Without one", spinning(primary("Start", QString()), QString(), 10)}});
}

// The window as it lies over the window of an application.
QWidget *waiterPortrait()
{
    return pose::shown([] {
        CBPUISyncWaiter waiter("Please wait");
        waiter.setAttribute(Qt::WA_DontShowOnScreen);
        waiter.show();
        return waiter.grab();
    });
}

// Its timer ticks every 30 milliseconds, and every 300 once the halves have closed in. Here it does so at
// once.
QWidget *dialogPortrait(int ticks)
{
    return pose::shown([ticks] {
        CBPWaiter waiter(nullptr, "Loading", unsigned(kWait), false);
        for (int tick = 0; tick < ticks; ++tick)
            QMetaObject::invokeMethod(&waiter, "on_timeout");
        return waiter.grab();
    });
}

void addWindows(Page *page)
{
    page->addSection("Windows", "The modal waiter is a spinner on a tile, and nothing else. The two halves "
                                "of the busy dialog's picture close in on its text.")
        ->addColumns(kColumns, {{"CBPUISyncWaiter", waiterPortrait()},
                                {"CBPWaiter, at first", dialogPortrait(0)},
                                {"On their way", dialogPortrait(20)},
                                {"Closed: the dots come and go", dialogPortrait(60)}});
}

// ----------------------------------------------------------------------------------------------------------
// expanding

CExpandBtn *expander(const QString &text)
{
    auto *button = new CExpandBtn(theme::spinnerFrames(), text, QString());
    button->setFixedWidth(kExpanderWidth);
    return button;
}

QWidget *expanding()
{
    auto *holder = new QWidget;
    auto *column = new QVBoxLayout(holder);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(theme::kUnit);
    CExpandBtn *button = expander("Details");
    QLabel *details = theme::label("What the button opens.", theme::Normal, 14, theme::kText);
    column->addWidget(button);
    column->addWidget(details);
    details->hide();
    QObject::connect(button, &CExpandBtn::sigExpandChanged, details, &QWidget::setVisible);
    return holder;
}

void addExpanders(Page *page)
{
    CExpandBtn *open = expander("Expanded");
    open->setExpand(true);
    CExpandBtn *selected = expander("Selected");
    selected->setSelected(true);
    CExpandBtn *plain = expander("Not expandable");
    plain->setExpandable(false);
    auto *waiting = new CExpandBtn(QStringList(), "Details", "Loading"); // without frames it stands still
    waiting->setFixedWidth(kExpanderWidth);
    waiting->Show(true);
    page->addSection("Expand button", "CExpandBtn is a waiting button that opens what lies below it.")
        ->addColumns(kColumns, {{"Try it", expanding()},
                                {"Expanded", pose::in(pose::Normal, open)},
                                {"Selected", pose::in(pose::Normal, selected)},
                                {"Not expandable", pose::in(pose::Normal, plain)},
                                {"Under the pointer", pose::in(pose::Hovered, expander("Details"))},
                                {"Pressed", pose::in(pose::Pressed, expander("Details"))},
                                {"Focused", pose::in(pose::Focused, expander("Details"))},
                                {"Waiting", spinning(waiting, "Loading", 4)},
                                {"A text too long",
                                 pose::in(pose::Normal, expander("A caption that is longer than the row"))},
                                {"Disabled", pose::in(pose::Disabled, expander("Details"))}});
}

Page *makePage()
{
    auto *page = new Page("Waiters", "What the user sees while a job runs: CBPWaitBtn, CBPUISyncWaiter and "
                                     "CBPWaiter. Each keeps the application alive meanwhile.");
    addLive(page);
    addButtons(page);
    addWindows(page);
    addExpanders(page);
    return page;
}

void registerThis()
{
    registerPage({"waiters", "Waiters", PageGroup::Waiting, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
