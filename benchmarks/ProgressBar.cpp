#include "Bench.h"

#include "CBPGradientProgressBar.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>

// What a progress bar costs while it moves, beside a share of a second, and while it rests.
namespace {

constexpr int kWidth = 600; // as wide as in a window of an installer
constexpr int kRepaints = 60;
constexpr double kTwoPerCent = 20000; // microseconds of a second
constexpr int kGrowths = 2;
constexpr int kGrowthSteps = 500;
constexpr int kStepsOfHighlight = 20; // from one place of it to the next
constexpr int kRestTime = 100;        // ms

// Of 60 repaints, highlight and all, growing from one to the next.
double movingTime()
{
    CBPGradientProgressBar bar;
    bar.resize(kWidth, bar.height());
    bar.show();
    QApplication::processEvents();
    bar.setValue(0.5);
    bar.setValue(0.9);
    return Bench::time([&bar] {
        for (int i = 0; i < kRepaints; ++i) {
            bar.slotGradientTimerOut();
            bar.repaint();
        }
    });
}

// Of a second in which it grows by a pixel each millisecond, or by as much as 600 pixels have room for,
// twice.
double growingTime()
{
    CBPGradientProgressBar bar;
    bar.resize(kWidth, bar.height());
    bar.show();
    QApplication::processEvents();
    return Bench::time([&bar] {
        for (int i = 0; i < kGrowths; ++i) {
            bar.setValue(0.01);
            bar.setValue(0.96);
            for (int step = 0; step < kGrowthSteps; ++step) {
                if (step % kStepsOfHighlight == 0)
                    bar.slotGradientTimerOut();
                bar.slotDrawBarTimeOut();
                QCoreApplication::sendPostedEvents(); // the repaint, without timers of its own
            }
        }
    });
}

class TimerCounter : public QObject
{
public:
    TimerCounter() { qApp->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Timer;
        return false;
    }
};

// Timer events while one full bar is shown, one at half is hidden, and nothing else is there.
double restingTimers()
{
    CBPGradientProgressBar full;
    full.resize(kWidth, full.height());
    full.setValue(1.0);
    full.show();
    CBPGradientProgressBar hidden;
    hidden.setValue(0.5);
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < kRestTime) // shown, painted
        QApplication::processEvents(QEventLoop::AllEvents, kRestTime);
    TimerCounter counter;
    clock.start();
    while (clock.elapsed() < kRestTime)
        QApplication::processEvents(QEventLoop::AllEvents, kRestTime);
    return counter.count;
}

} // namespace

void benchProgressBar(Bench &bench)
{
    bench.compare(QStringLiteral("progress bar: 60 repaints"), QStringLiteral("us"),
                  {{QStringLiteral("CBPGradientProgressBar"), movingTime},
                   {QStringLiteral("2 % of a second"), [] { return kTwoPerCent; }}},
                  {1.0});
    bench.compare(QStringLiteral("progress bar: 1000 pixels grown"), QStringLiteral("us"),
                  {{QStringLiteral("CBPGradientProgressBar"), growingTime},
                   {QStringLiteral("2 % of a second"), [] { return kTwoPerCent; }}},
                  {1.0});
    bench.compare(QStringLiteral("progress bar: at rest"), QStringLiteral("timer events in 100 ms"),
                  {{QStringLiteral("CBPGradientProgressBar"), restingTimers},
                   {QStringLiteral("one"), [] { return 1.0; }}},
                  {0.01});
}
