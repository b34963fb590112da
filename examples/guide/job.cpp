// A function on a worker thread, waited for or not; and below, the same by a class of its own, in a button,
// and what becomes of it when the window closes.
#include "CBaseSyncExecuter.h"
#include "CBaseWin.h"
#include "CBPJob.h"
#include "CBPLabel.h"
#include "CBPWaitBtn.h"
#include "CUIBaseThread.h"
#include "CWorkThreadMgr.h"
#include "Util.h"

#include <QApplication>
#include <QDir>
#include <QPointer>
#include <QThread>
#include <QVBoxLayout>

#include <atomic>
#include <memory>

namespace {

bool isPrime(int n)
{
    for (int i = 2; i * i <= n; ++i) {
        if (n % i == 0)
            return false;
    }
    return true;
}

//! [function]
// How many primes there are below a number; slow on purpose.
int countPrimes(int below, CBPJobControl &job) // on the worker thread: touches no widget
{
    int count = 0;
    for (int n = 2; n < below; ++n) {
        job.throwIfCancelled();
        job.setProgress(n, below);
        count += isPrime(n) ? 1 : 0;
        if (n % 25000 == 0)
            QThread::msleep(100);
    }
    return count;
}
//! [function]

//! [lambda]
void countAndWait(QWidget *window, CBPLabel *label)
{
    const QPointer<CBPLabel> guard(label);
    const int below = 1000000;
    const auto count = CBPJob::run(window, "Counting primes",
                                   [below](CBPJobControl &job) { return countPrimes(below, job); });
    if (count.isDone() && guard)
        guard->setText(QString("%1 primes").arg(count.value()));
}
//! [lambda]

//! [start]
void countInTheBackground(CBPLabel *label)
{
    CBPJob::start(
        label, "Counting primes", [](CBPJobControl &job) { return countPrimes(1000000, job); },
        [label](const CBPJobResult<int> &count) {
            label->setText(count.isDone() ? QString("%1 primes").arg(count.value()) : count.errorText());
        });
}
//! [start]

using Flag = std::shared_ptr<std::atomic<bool>>;

//! [stopper]
// Attached to a job: the library tells it when the window is gone.
class Stopper : public CUIBaseThread
{
public:
    explicit Stopper(Flag stop) : m_stop(std::move(stop)) {}
    void startWork() override {}
    bool isWorking() const override { return !*m_stop; }
    void requestQuit() override { *m_stop = true; }

private:
    Flag m_stop;
};
//! [stopper]

//! [job]
// How many primes there are below a million; slow on purpose.
class CountPrimes : public CBaseSyncExecuter
{
public:
    CountPrimes(CBPSyncObj *sync, QObject *window, const Flag &stop)
        : CBaseSyncExecuter(sync, "Counting", window, new Stopper(stop)), m_stop(stop)
    {
    }

protected:
    void run() override // on the worker thread: touches no widget
    {
        unsigned long long count = 0;
        for (int n = 2; n < 1000000 && !*m_stop; ++n) {
            count += isPrime(n) ? 1 : 0;
            if (n % 25000 == 0)
                msleep(100);
        }
        m_result = count;
    }

private:
    const Flag m_stop;
};
//! [job]

//! [execute]
void countAndShow(CBPSyncObj *sync, QWidget *window, CBPLabel *label)
{
    const QPointer<CBPLabel> guard(label);
    auto *job = new CountPrimes(sync, window, std::make_shared<std::atomic<bool>>(false));
    const unsigned long long count = job->execute(); // events are handled meanwhile
    const bool ended = job->isNeedDelete();          // ask at once
    if (ended)
        delete job; // else it deletes itself when the job ends
    if (ended && guard)
        guard->setText(QString("%1 primes").arg(count));
}
//! [execute]

QStringList spinnerFrames()
{
    QStringList files;
    for (int i = 0; i < 24; ++i)
        files << Util::getResFullPath(
            QString("../res/loading/loading%1.png").arg(i, 2, 10, QLatin1Char('0')));
    return files;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QDir::setCurrent(QCoreApplication::applicationDirPath());

    auto window = std::make_unique<CBaseWin>();
    window->setCaption("Primes");
    window->setCentralWidget(new QWidget);
    auto *column = new QVBoxLayout(window->centralWidget());
    auto *label = new CBPLabel("Nothing counted yet", 14);
    auto *count = new CBPPushBtn("Count", nullptr);
    auto *background = new CBPPushBtn("In the background", nullptr);
    QObject::connect(count, &CBPPushBtn::sigBtnClicked, label,
                     [=, main = window.get()] { countAndWait(main, label); });
    QObject::connect(background, &CBPPushBtn::sigBtnClicked, label, [=] { countInTheBackground(label); });
    //! [buttons]
    auto *inButton = new CBPWaitBtn(spinnerFrames(), "By an executer", "Counting");
    auto *inWindow = new CBPPushBtn("Executer's window", nullptr);
    QObject::connect(inButton, &CBPPushBtn::sigBtnClicked, label,
                     [=, main = window.get()] { countAndShow(inButton, main, label); });
    QObject::connect(inWindow, &CBPPushBtn::sigBtnClicked, label,
                     [=, main = window.get()] { countAndShow(nullptr, main, label); });
    //! [buttons]
    column->addStretch();
    for (CBPPushBtn *button : {count, background, static_cast<CBPPushBtn *>(inButton), inWindow}) {
        button->setFixedSize(184, 36);
        column->addWidget(button, 0, Qt::AlignHCenter);
    }
    column->addSpacing(12);
    column->addWidget(label, 0, Qt::AlignHCenter);
    column->addStretch();
    window->resize(480, 300);
    window->show();
    //! [waitforall]
    const int code = application.exec();
    window.reset();
    const QStringList late = CBPJob::waitForAll(3000); // milliseconds
    if (!late.isEmpty())
        qWarning("Still running: %s", qUtf8Printable(late.join(", ")));
    //! [waitforall]
    //! [end]
    CWorkThreadMgr::WaitForAllExist(); // jobs that nobody waits for any more
    return code;
    //! [end]
}
