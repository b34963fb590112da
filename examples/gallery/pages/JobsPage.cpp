#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPGradientProgressBar.h"
#include "CBPJob.h"
#include "CBPJobWindow.h"
#include "CBPLabel.h"
#include "CBPWaitBtn.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPointer>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

#include <stdexcept>

namespace {

constexpr int kColumns = 2;
constexpr int kButtonWidth = 184;
constexpr int kTravelled = 45; // steps of a bar that does not know how much is left
constexpr int kQueued = 3;
constexpr int kSteps = 50; // of a job that only takes its time
constexpr unsigned long kStepMs = 60;
constexpr int kLookMs = 50; // at jobs that nobody waits for
constexpr int kFiles = 60;  // of the folder that is copied
constexpr int kFileSize = 1 << 20;

QString ending(const CBPJobOutcome &outcome)
{
    switch (outcome.state()) {
    case CBPJobOutcome::Done:
        return "done";
    case CBPJobOutcome::Cancelled:
        return "cancelled";
    case CBPJobOutcome::WindowGone:
        return "its window went away";
    case CBPJobOutcome::Failed:
        return "failed: " + outcome.errorText();
    }
    return QString();
}

// ----------------------------------------------------------------------------------------------------------
// waited for

// Copies what is in a folder; the number of files.
int copyFolder(const QDir &from, const QDir &to, CBPJobControl &job)
{
    const QStringList files = from.entryList(QDir::Files);
    for (int i = 0; i < files.size(); ++i) {
        job.throwIfCancelled();
        job.setProgress(i, files.size());
        job.setText("Copying " + files.at(i));
        if (!QFile::copy(from.filePath(files.at(i)), to.filePath(files.at(i))))
            throw std::runtime_error("The disk is full");
        QThread::msleep(kStepMs); // a disk of old
    }
    return int(files.size());
}

void makeFiles(const QDir &folder)
{
    const QByteArray content(kFileSize, 'x');
    for (int i = 0; i < kFiles; ++i) {
        QFile file(folder.filePath(QString("picture-%1.raw").arg(i + 1, 3, 10, QLatin1Char('0'))));
        if (file.open(QIODevice::WriteOnly))
            file.write(content);
    }
}

void copy(EventLog *log)
{
    const QPointer<EventLog> to(log);
    CBPJobResult<int> copied;
    try {
        copied = CBPJob::run(log->window(), "Preparing to copy", [](CBPJobControl &job) {
            const QTemporaryDir from;
            const QTemporaryDir target;
            if (!from.isValid() || !target.isValid())
                throw std::runtime_error("There is no room for files");
            makeFiles(from.path());
            return copyFolder(from.path(), target.path(), job);
        });
    } catch (const std::exception &error) {
        if (to)
            to->add(QString("Copying failed: %1").arg(error.what()));
        return;
    }
    if (to)
        to->add(copied.isDone() ? QString("Copied %1 files").arg(copied.value())
                                : "Copying: " + ending(copied));
}

void download(EventLog *log)
{
    const QPointer<EventLog> to(log);
    try {
        CBPJob::run(log->window(), "Downloading", [](CBPJobControl &job) {
            for (int i = 0; i < kSteps * 2 / 3; ++i) {
                job.throwIfCancelled();
                job.setProgress(i, kSteps);
                QThread::msleep(kStepMs);
            }
            throw std::runtime_error("the connection was lost");
        });
    } catch (const std::exception &error) {
        if (to)
            to->add(QString("The download failed: %1").arg(error.what()));
        return;
    }
    if (to)
        to->add("The download was cancelled");
}

CBPWaitBtn *waitingButton(EventLog *log)
{
    auto *made = new CBPWaitBtn(theme::spinnerFrames(), "Count in the button", "Counting");
    theme::fillWaitingButton(made);
    made->setFixedSize(kButtonWidth, theme::kControlHeight);
    QObject::connect(made, &CBPPushBtn::sigBtnClicked, log, [made, log] {
        const QPointer<EventLog> to(log);
        const auto count = [] {
            QThread::msleep(kSteps * kStepMs);
            return 100;
        };
        const auto counted = CBPJob::run(log->window(), "Counting", count, made);
        if (to)
            to->add(QString("Counted to %1").arg(counted.valueOr(0)));
    });
    return made;
}

void addWaiting(Page *page)
{
    Section *section =
        page->addSection("Waited for", "CBPJob::run() returns what the function returns. A wait of "
                                       "less than 880 milliseconds shows no window.");
    auto *log = new EventLog("No job yet: press a button.");
    section->addSamples({{"With progress; can be cancelled", loggedButton("Copy a folder", log, copy)},
                         {"Fails after two thirds", loggedButton("Download", log, download)},
                         {"Waits in a button", waitingButton(log)}});
    section->addWide(log);
}

// ----------------------------------------------------------------------------------------------------------
// not waited for

// Three jobs of one receiver, which run one after the other, with a bar each.
class Queue : public QWidget
{
public:
    explicit Queue(EventLog *log) : m_log(log)
    {
        theme::fill(this, theme::kLine); // on white the tracks would not be seen
        for (int i = 0; i < kQueued; ++i) {
            m_bars[i] = new CBPGradientProgressBar(this);
            m_bars[i]->setFixedWidth(kButtonWidth - 2 * theme::kUnit);
            m_bars[i]->setAccessibleName(QString("Job %1").arg(i + 1));
            m_bars[i]->move(theme::kUnit, (1 + 2 * i) * theme::kUnit);
        }
        setFixedSize(kButtonWidth, (1 + 2 * kQueued) * theme::kUnit);
        connect(&m_look, &QTimer::timeout, this, [this] { look(); });
    }

    void start()
    {
        for (int i = 0; i < kQueued; ++i) {
            if (!m_jobs[i].isFinished())
                continue;
            m_bars[i]->setValue(0.0);
            const auto work = [](CBPJobControl &job) {
                for (int step = 0; step <= kSteps; ++step) {
                    job.throwIfCancelled();
                    job.setProgress(step, kSteps);
                    QThread::msleep(kStepMs / 2);
                }
            };
            m_jobs[i] =
                CBPJob::start(this, QString("Job %1").arg(i + 1), work, [this, i](const CBPJobOutcome &end) {
                    m_log->add(QString("Job %1: %2").arg(i + 1).arg(ending(end)));
                    m_bars[i]->setValue(end.isDone() ? 1.0 : 0.0);
                });
        }
        m_look.start(kLookMs);
    }

    void cancelSecond() { m_jobs[1].cancel(); }

private:
    void look()
    {
        bool busy = false;
        for (int i = 0; i < kQueued; ++i) {
            busy = busy || !m_jobs[i].isFinished();
            if (m_jobs[i].isRunning() && m_jobs[i].progress() >= 0)
                m_bars[i]->setValue(m_jobs[i].progress());
        }
        if (!busy)
            m_look.stop();
    }

    EventLog *m_log;
    CBPGradientProgressBar *m_bars[kQueued] = {};
    CBPJobHandle m_jobs[kQueued];
    QTimer m_look;
};

void addStarted(Page *page)
{
    Section *section = page->addSection(
        "Started, and told of", "CBPJob::start() returns at once and calls back when the function has "
                                "returned. Jobs of one window run one after the other.");
    auto *log = new EventLog("No job yet: press a button.");
    auto *queue = new Queue(log);
    section->addSamples(
        {{"Three jobs in a queue",
          loggedButton("Start three jobs", log, [queue](EventLog *) { queue->start(); })},
         {"Also before its turn",
          loggedButton("Cancel the second", log, [queue](EventLog *) { queue->cancelSecond(); })},
         {"Their progress", queue}});
    section->addWide(log);
}

// ----------------------------------------------------------------------------------------------------------
// at one moment

QWidget *portrait(bool cancellable, double progress, const QString &time = QString(), bool stopping = false)
{
    return pose::shown([=] {
        CBPJobWindow window("Copying picture-021.raw", cancellable);
        window.SetWindowTitle("LumQtLib gallery");
        window.setProgress(progress);
        for (int tick = 0; progress < 0 && tick < kTravelled; ++tick)
            window.findChild<CBPGradientProgressBar *>()->slotGradientTimerOut();
        // The last one tells the time, which it takes two seconds to know.
        if (stopping)
            window.cancel();
        else
            window.findChildren<CBPLabel *>().last()->setText(time);
        return pose::portrait(window, window.width(), window.height());
    });
}

void addWindows(Page *page)
{
    page->addSection("Window",
                     "CBPJobWindow is modal to its window only. A job that does not take a CBPJobControl has "
                     "no button.")
        ->addColumns(kColumns, {{"Not known how much is left", portrait(true, -1)},
                                {"Known, with the time", portrait(true, 0.35, "About 20 s left")},
                                {"Cancelled: it stops as soon as it can", portrait(true, 0.35, {}, true)},
                                {"Cannot be cancelled", portrait(false, 0.8, "About 5 s left")}});
}

Page *makePage()
{
    auto *page =
        new Page("Jobs", "CBPJob: a function on a worker thread, waited for or not, with progress and a way "
                         "to cancel it.");
    addWaiting(page);
    addStarted(page);
    addWindows(page);
    return page;
}

void registerThis()
{
    registerPage({"jobs", "Jobs", PageGroup::Waiting, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
