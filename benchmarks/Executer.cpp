#include "Bench.h"

#include "CBaseSyncExecuter.h"
#include "CBPJob.h"
#include "CBPSyncObj.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>

// Waiting for a job beside a bare thread and event loop: what execute() costs by itself, which is a thread,
// and CBPJob without making one; and whether the interface is as alive in it as it is at rest.
namespace {

constexpr int kJobs = 50; // a round
constexpr int kReports = 1000000;
constexpr double kReportsLimit = 50000; // microseconds
constexpr int kTicks = 60;
constexpr int kTickMs = 5;

class EmptyJob : public CBaseSyncExecuter
{
public:
    using CBaseSyncExecuter::CBaseSyncExecuter;

protected:
    void run() override {}
};

class EmptyThread : public QThread
{
protected:
    void run() override {}
};

double executerTime()
{
    return Bench::time([] {
               CBPSyncObj sync;
               for (int i = 0; i < kJobs; ++i) {
                   auto *job = new EmptyJob(&sync, QString(), nullptr, nullptr);
                   job->execute();
                   if (job->isNeedDelete())
                       delete job;
               }
           }) /
           kJobs;
}

double jobTime()
{
    return Bench::time([] {
               CBPSyncObj sync;
               for (int i = 0; i < kJobs; ++i)
                   CBPJob::run(
                       nullptr, QString(), [] {}, &sync);
           }) /
           kJobs;
}

double reportTime(void (*report)(CBPJobControl &, int))
{
    CBPSyncObj sync;
    return CBPJob::run(
               nullptr, QString(),
               [report](CBPJobControl &job) {
                   return Bench::time([&] {
                       for (int i = 0; i < kReports; ++i)
                           report(job, i);
                   });
               },
               &sync)
        .value();
}

double progressTime()
{
    return reportTime([](CBPJobControl &job, int i) { job.setProgress(i, kReports); });
}

double textTime()
{
    return reportTime([](CBPJobControl &job, int) {
        static const QString text = QStringLiteral("picture.raw");
        job.setText(text);
    });
}

double bareTime()
{
    return Bench::time([] {
               for (int i = 0; i < kJobs; ++i) {
                   auto *thread = new EmptyThread;
                   QEventLoop loop;
                   QObject::connect(thread, &QThread::finished, &loop, &QEventLoop::quit);
                   thread->start();
                   loop.exec();
                   thread->wait();
                   delete thread;
               }
           }) /
           kJobs;
}

// Collects how late a timer is, until `done` is called.
class Lateness
{
public:
    explicit Lateness(std::function<void()> done) : m_done(std::move(done))
    {
        m_timer.setSingleShot(true);
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, [this] { tick(); });
        arm();
    }

    double median()
    {
        std::sort(m_late.begin(), m_late.end());
        return m_late.at(m_late.size() / 2);
    }

private:
    void arm()
    {
        m_clock.start();
        m_timer.start(kTickMs);
    }
    void tick()
    {
        m_late.push_back(double(m_clock.nsecsElapsed()) / 1000.0 - kTickMs * 1000.0);
        if (int(m_late.size()) < kTicks)
            arm();
        else
            m_done();
    }

    std::function<void()> m_done;
    QTimer m_timer;
    QElapsedTimer m_clock;
    std::vector<double> m_late;
};

double latenessAtRest()
{
    QEventLoop loop;
    Lateness lateness([&] { loop.quit(); });
    loop.exec();
    return lateness.median();
}

double latenessInTheWait()
{
    class Sleeper : public CBaseSyncExecuter
    {
    public:
        using CBaseSyncExecuter::CBaseSyncExecuter;

    protected:
        void run() override
        {
            while (!isInterruptionRequested())
                msleep(1);
        }
    };
    CBPSyncObj sync;
    auto *job = new Sleeper(&sync, QString(), nullptr, nullptr);
    Lateness lateness([&] { job->requestInterruption(); });
    job->execute();
    delete job;
    return lateness.median();
}

} // namespace

void benchExecuter(Bench &bench)
{
    bench.compare(QStringLiteral("execute(): an empty job"), QStringLiteral("us a job"),
                  {{QStringLiteral("CBaseSyncExecuter"), executerTime},
                   {QStringLiteral("QThread, QEventLoop"), bareTime}},
                  {1.2});
    bench.compare(QStringLiteral("CBPJob::run(): an empty job"), QStringLiteral("us a job"),
                  {{QStringLiteral("CBPJob"), jobTime},
                   {QStringLiteral("QThread, QEventLoop"), bareTime},
                   {QStringLiteral("CBaseSyncExecuter"), executerTime}},
                  {0.5, 0});
    const Bench::Variant limit{QStringLiteral("50 ms"), [] { return kReportsLimit; }};
    bench.compare(QStringLiteral("CBPJobControl: a million reports of progress"), QStringLiteral("us"),
                  {{QStringLiteral("setProgress()"), progressTime}, limit}, {1});
    bench.compare(QStringLiteral("CBPJobControl: a million texts"), QStringLiteral("us"),
                  {{QStringLiteral("setText()"), textTime}, limit}, {0});
    bench.compare(QStringLiteral("execute(): a timer's lateness"), QStringLiteral("us, median"),
                  {{QStringLiteral("in the wait"), latenessInTheWait},
                   {QStringLiteral("idle event loop"), latenessAtRest}},
                  {1.2});
}
