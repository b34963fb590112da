#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Theme.h"

#include "CBaseSyncExecuter.h"
#include "CBPPopWnd.h"
#include "CBPSyncObj.h"
#include "CBPWaitBtn.h"

#include <QHideEvent>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QShowEvent>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr int kTickMs = 100;
constexpr int kSteps = 30; // of a job
constexpr unsigned long kStepMs = 100;
constexpr int kButtonWidth = 184;
constexpr theme::Tone kRestingDot{0xffd7dce4, theme::Purpose::Rule};

// Counts to a hundred, slowly, on its own thread.
class CountJob : public CBaseSyncExecuter
{
public:
    using CBaseSyncExecuter::CBaseSyncExecuter;

protected:
    void run() override
    {
        for (int i = 0; i < kSteps && !isInterruptionRequested(); ++i)
            msleep(kStepMs);
        m_result = 100;
    }
};

// All there is to it for an application: make the job, wait for it, delete it if it is still ours.
void wait(CBPSyncObj *sync, QObject *window, EventLog *log, const QString &name)
{
    const QPointer<EventLog> to(log);
    to->add(QString("%1: execute() begins").arg(name));
    auto *job = new CountJob(sync, "Please wait", window, nullptr);
    const unsigned long long result = job->execute();
    const bool ours = job->isNeedDelete();
    if (ours)
        delete job;
    if (!to)
        return;
    if (ours)
        to->add(QString("%1: execute() returned %2").arg(name).arg(result));
    else
        to->add(QString("%1: not waited for any more; the job ends by itself").arg(name));
}

CBPWaitBtn *waitingButton(EventLog *log)
{
    auto *button = new CBPWaitBtn(theme::spinnerFrames(), "Count in the button", "Counting");
    theme::fillWaitingButton(button);
    button->setFixedSize(kButtonWidth, theme::kControlHeight);
    QObject::connect(button, &CBPPushBtn::sigBtnClicked, log,
                     [button, log] { wait(button, nullptr, log, "Waiting button"); });
    return button;
}

// A pop-up whose OK button waits, and which may be closed meanwhile.
class CountingPopUp : public CBPPopWnd
{
public:
    explicit CountingPopUp(EventLog *log) : CBPPopWnd(log->window()), m_log(log)
    {
        Init(true);
        SetWindowTitle("Count", false);
        ShowTitleBtn(8, true);
        auto *content = new QWidget;
        auto *column = new QVBoxLayout(content);
        column->addWidget(
            theme::label("OK counts to a hundred. Close the window while it does: the wait ends "
                         "at once, and the job goes on to its end.",
                         theme::Normal, 14, theme::kText));
        auto *nested = new CBPPushBtn("Open another", nullptr);
        nested->setFixedSize(kButtonWidth, theme::kControlHeight);
        QObject::connect(nested, &CBPPushBtn::sigBtnClicked, this, [this] {
            CountingPopUp inner(m_log);
            inner.Run();
        });
        column->addWidget(nested);
        AppendContent(content, true, false, 0);
        AppendBtn(0x4 | 0x100);
        setFixedSize(420, 260);
    }

protected:
    bool proceedBtnClicked(int flag) override
    {
        if (flag != 0x4)
            return true;
        const QPointer<CBPPopWnd> alive(this);
        wait(dynamic_cast<CBPWaitBtn *>(GetBtn(flag)), this, m_log, "OK of the pop-up");
        return alive && isVisible();
    }

private:
    EventLog *m_log;
};

// Shows that the interface is alive: turns as long as events are handled.
class Heartbeat : public QWidget
{
public:
    Heartbeat()
    {
        setFixedSize(kButtonWidth, theme::kControlHeight);
        setAccessibleName("Interface is alive");
        connect(&m_timer, &QTimer::timeout, this, [this] {
            ++m_beats;
            update();
        });
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        constexpr int kDots = 12;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        for (int i = 0; i < kDots; ++i) {
            painter.setBrush((i == m_beats % kDots ? theme::kAccent : kRestingDot).color());
            painter.drawEllipse(QPointF(8 + i * 15, height() / 2.0), 4, 4);
        }
    }
    void showEvent(QShowEvent *event) override
    {
        m_timer.start(kTickMs);
        QWidget::showEvent(event);
    }
    void hideEvent(QHideEvent *event) override
    {
        m_timer.stop();
        QWidget::hideEvent(event);
    }

private:
    QTimer m_timer;
    int m_beats = 3;
};

void addJobs(Page *page)
{
    Section *section =
        page->addSection("A job behind each waiter",
                         "Each job counts for three seconds on a thread of its own while execute() "
                         "waits. The dots keep moving.");
    auto *log = new EventLog("No job yet: press a button.");
    section->addSamples({{"The interface", new Heartbeat}});
    section->addSamples(
        {{"Shown in a button", waitingButton(log)},
         {"A window that the executer makes",
          loggedButton("Count behind a window", log,
                       [](EventLog *to) { wait(nullptr, to->window(), to, "Waiting window"); })},
         {"Nothing shown", loggedButton("Count unseen", log,
                                        [](EventLog *to) {
                                            CBPSyncObj unseen;
                                            wait(&unseen, nullptr, to, "Unseen");
                                        })},
         {"A pop-up that may be closed", loggedButton("Open a pop-up", log, [](EventLog *to) {
              const QPointer<CBPPopWnd> popUp(new CountingPopUp(to));
              popUp->Run();
              delete popUp;
          })}});
    section->addWide(log);
}

Page *makePage()
{
    auto *page =
        new Page("Waiting", "CBaseSyncExecuter: a job runs on a thread of its own, the caller simply "
                            "calls execute(), and the interface stays alive.");
    addJobs(page);
    return page;
}

void registerThis()
{
    registerPage({"waiting", "Waiting", PageGroup::Waiting, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
