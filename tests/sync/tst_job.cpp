#include "Await.h"
#include "CBPJob.h"
#include "CBPSyncObj.h"
#include "Jobs.h"
#include "Later.h"
#include "Rows.h"
#include "TestMain.h"

#include <QFutureInterface>
#include <QSemaphore>
#include <QSignalSpy>

#include <cmath>
#include <limits>
#include <mutex>
#include <numeric>
#include <thread>

namespace {

using State = CBPJobOutcome::State;

template <class Error, class Act> bool throws(const Act &act)
{
    try {
        act();
    } catch (const Error &) {
        return true;
    }
    return false;
}

int seven()
{
    return 7;
}

// Runs until it is told to stop.
int untilTold(CBPJobControl &job)
{
    while (!job.isCancelled())
        QThread::msleep(1);
    return 1;
}

// A function that does not look whether it is to stop, and has not returned before it is let go.
struct Gate
{
    std::shared_ptr<QSemaphore> gate = std::make_shared<QSemaphore>();
    std::shared_ptr<std::atomic<bool>> began = std::make_shared<std::atomic<bool>>(false);
    int operator()(CBPJobControl &) const
    {
        *began = true;
        gate->acquire();
        return 5;
    }
};

// Counts the captures there are.
struct Counted
{
    Counted() { ++alive(); }
    Counted(const Counted &) { ++alive(); }
    ~Counted() { --alive(); }
    static std::atomic<int> &alive()
    {
        static std::atomic<int> count{0};
        return count;
    }
};

} // namespace

class TestJob : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { CBPJob::setMaximumRunning(4); }
    void cleanup() { QCOMPARE(CBPJob::waitForAll(kPatience), QStringList()); }

    // Whatever can be called, and whatever it returns.
    void values()
    {
        CBPSyncObj sync;
        const auto run = [&](auto &&function) {
            return CBPJob::run(nullptr, "Text", std::forward<decltype(function)>(function), &sync);
        };
        QCOMPARE(run(&seven).value(), 7);
        QCOMPARE(run(seven).value(), 7);
        QCOMPARE(run([] { return QString("text"); }).value(), QString("text"));
        QVERIFY(run([] {}).isDone());
        QCOMPARE(run([count = 0](CBPJobControl &) mutable { return ++count; }).value(), 1);
        QCOMPARE(run([](auto &job) { return job.isCancelled(); }).value(), false);
        QCOMPARE(run(std::function<double()>([] { return 0.5; })).valueOr(2), 0.5);
        QCOMPARE(
            *run([number = std::make_unique<int>(3)] { return std::make_unique<int>(*number + 1); }).take(),
            4);
        const int outside = 6;
        QCOMPARE(run([&outside]() -> const int & { return outside; }).value(), 6);
        const auto elsewhere = run([] { return QThread::currentThread(); });
        QVERIFY(elsewhere.isDone() && elsewhere.value() != QThread::currentThread());
        {
            const Counted counted;
            QVERIFY(run([counted] { return Counted::alive().load(); }).value() >= 2);
        }
        QCOMPARE(Counted::alive().load(), 0);
    }

    // What a function throws is thrown in its caller.
    void failures()
    {
        CBPSyncObj sync;
        const auto thrown = [&](auto &&function) -> QString {
            try {
                CBPJob::run(nullptr, "Text", function, &sync);
            } catch (const std::exception &error) {
                return error.what();
            } catch (int number) {
                return QString::number(number);
            }
            return "nothing";
        };
        QCOMPARE(thrown([]() -> int { throw std::runtime_error("disk full"); }), QString("disk full"));
        QCOMPARE(thrown([] { throw 42; }), QString("42"));
        const QString noFunction = std::bad_function_call().what();
        QCOMPARE(thrown(std::function<void()>()), noFunction);
        QCOMPARE(thrown(static_cast<int (*)()>(nullptr)), noFunction);
        QCOMPARE(thrown(static_cast<int (*)() noexcept>(nullptr)), noFunction);
        // Where nobody waits it is in the result.
        QStringList told;
        const auto tell = [&](const CBPJobResult<int> &result) {
            told << result.errorText();
            QVERIFY(result.isFailed() && !result.hasValue());
            QCOMPARE(result.valueOr(3), 3);
            QVERIFY(throws<std::exception>([&] { result.value(); }));
        };
        CBPJob::start(
            this, "Text", []() -> int { throw std::runtime_error("disk full"); }, tell);
        CBPJob::start(this, "Text", std::function<int()>(), tell);
        AWAIT_EQUAL(told, (QStringList{"disk full", noFunction}));
        // Or in the log.
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("\"Upload\" has failed.*no std::exception"));
        const CBPJobHandle alone = CBPJob::start(nullptr, "Upload", [] { throw 42; });
        AWAIT(alone.isFinished());
    }

    void otherThreads()
    {
        QStringList errors;
        std::thread([&] {
            const auto note = [&](auto &&act) {
                try {
                    act();
                } catch (const std::logic_error &error) {
                    errors << error.what();
                }
            };
            note([] { CBPJob::run(nullptr, "Text", &seven); });
            note([] { CBPJob::start(nullptr, "Text", &seven); });
            note([] { CBPJob::run(nullptr, "Text", QFuture<int>()); });
            note([] { CBPJob::waitForAll(0); });
            note([] { CBPJob::setMaximumRunning(2); });
            note([] { CBPJob::maximumRunning(); });
        }).join();
        QThread other;
        QObject stranger;
        stranger.moveToThread(&other);
        QVERIFY(throws<std::logic_error>([&] { CBPJob::start(&stranger, "Text", &seven); }));
        QCOMPARE(errors.size(), 6);
        QVERIFY(errors.first().contains("GUI thread"));
    }

    void progress()
    {
        constexpr double nan = std::numeric_limits<double>::quiet_NaN();
        constexpr double infinite = std::numeric_limits<double>::infinity();
        const double rows[][3] = {{1, 4, 0.25},
                                  {-3, 4, 0},
                                  {9, 4, 1},
                                  {0, 0, -1},
                                  {5, 0, -1},
                                  {1, -4, -1},
                                  {nan, 4, -1},
                                  {1, nan, -1},
                                  {1, infinite, -1},
                                  {infinite, 4, 1},
                                  {infinite, infinite, -1},
                                  {4, 4, 1}};
        for (const auto &row : rows) {
            QSemaphore set;
            QSemaphore looked;
            const CBPJobHandle job = CBPJob::start(this, "Before", [&](CBPJobControl &control) {
                control.setProgress(row[0], row[1]);
                control.setText("After");
                set.release();
                looked.acquire();
            });
            QVERIFY(job.isRunning());
            set.acquire();
            QCOMPARE(job.progress(), row[2]);
            QCOMPARE(job.text(), QString("After"));
            looked.release();
            AWAIT(job.isFinished());
        }
    }

    void endings_data()
    {
        columns<QString, int>("ending", "state");
        row("job throws that it was cancelled", "throws", int(CBPJobOutcome::Cancelled));
        row("job returns", "returns", int(CBPJobOutcome::Done));
        row("wait broken off", "breaks off", int(CBPJobOutcome::Cancelled));
        row("what is waited in dies", "sync dies", int(CBPJobOutcome::Cancelled));
        row("window quits", "quits", int(CBPJobOutcome::WindowGone));
        row("window destroyed", "dies", int(CBPJobOutcome::WindowGone));
        row("job ends with the window", "both", int(CBPJobOutcome::Done));
    }
    // The wait is over before the job is: its caller goes on at once, and it is told to stop.
    void endings()
    {
        QFETCH(QString, ending);
        QFETCH(int, state);
        const QPointer<QuitWindow> window = new QuitWindow;
        auto *sync = new Recorder;
        const auto ended = std::make_shared<std::atomic<bool>>(false);
        const auto mayEnd = std::make_shared<std::atomic<bool>>(false);
        later(this, [&] {
            if (ending == "throws" || ending == "returns") {
                *mayEnd = true;
            } else if (ending == "breaks off") {
                sync->breakOff();
            } else if (ending == "sync dies") {
                delete std::exchange(sync, nullptr);
            } else if (ending == "both") {
                *mayEnd = true;
                AWAIT(*ended);
                QCoreApplication::processEvents();
                window->quit();
            } else {
                ending == "quits" ? window->quit() : destroy(window);
            }
        });
        const auto result = CBPJob::run(
            window, "Text",
            [=](CBPJobControl &job) {
                while (!job.isCancelled() && !*mayEnd)
                    QThread::msleep(1);
                if (ending == "throws")
                    throw CBPJobCancelled();
                *ended = true;
                return 8;
            },
            sync);
        QCOMPARE(int(result.state()), state);
        QCOMPARE(result.hasValue(), state == CBPJobOutcome::Done);
        if (!result.hasValue())
            QVERIFY(throws<std::bad_optional_access>([&] { result.value(); }));
        delete sync;
        delete window.data();
        QCOMPARE(CBPJob::waitForAll(kPatience), QStringList());
        QVERIFY(*ended || ending == "throws");
    }

    void applicationQuits()
    {
        std::optional<CBPJobResult<int>> result;
        later(this, [&] {
            later(this, [] { QCoreApplication::quit(); });
            result = CBPJob::run(nullptr, "Text", &untilTold);
        });
        QCoreApplication::exec();
        QVERIFY(result && result->isCancelled() && !result->hasValue());
    }

    // One after the other for each receiver, in the order in which they were given, and no more at a time
    // than there may be; each is told once.
    void order()
    {
        for (const int maximum : {1, 3, 1000}) {
            CBPJob::setMaximumRunning(maximum);
            QCOMPARE(CBPJob::maximumRunning(), maximum);
            QObject receivers[3];
            QVector<int> began[3];
            QVector<int> told[3];
            std::mutex lock;
            std::atomic<int> running{0};
            std::atomic<int> most{0};
            constexpr int kEach = 400;
            for (int number = 0; number < kEach; ++number) {
                for (int who = 0; who < 3; ++who) {
                    CBPJob::start(
                        &receivers[who], "Text",
                        [&, who, number] {
                            const int now = ++running;
                            for (int before = most;
                                 before < now && !most.compare_exchange_weak(before, now);) {
                            }
                            {
                                const std::lock_guard<std::mutex> guard(lock);
                                began[who] << number;
                            }
                            --running;
                            return number;
                        },
                        [&told, who](CBPJobResult<int> result) { told[who] << result.value(); });
                }
            }
            QVector<int> all(kEach);
            std::iota(all.begin(), all.end(), 0);
            for (int who = 0; who < 3; ++who) {
                AWAIT_EQUAL(told[who], all);
                const std::lock_guard<std::mutex> guard(lock);
                QCOMPARE(began[who], all);
            }
            QVERIFY(most <= qMin(3, maximum));
        }
        CBPJob::setMaximumRunning(-4);
        QCOMPARE(CBPJob::maximumRunning(), 1);
    }

    // As many at a time as there may be, also when there may be more than before.
    void sideBySide()
    {
        CBPJob::setMaximumRunning(2);
        Gate gates[3];
        QObject receivers[3];
        for (int i = 0; i < 3; ++i)
            CBPJob::start(&receivers[i], "Text", gates[i]);
        AWAIT(*gates[0].began && *gates[1].began);
        QTest::qWait(20);
        QVERIFY(!*gates[2].began);
        CBPJob::setMaximumRunning(3);
        AWAIT(*gates[2].began);
        for (const Gate &gate : gates)
            gate.gate->release();
    }

    // Widgets of one window are one.
    void orderOfAWindow()
    {
        QWidget window;
        auto *first = new QWidget(&window);
        auto *second = new QWidget(&window);
        const Gate gate;
        CBPJob::start(first, "Text", gate);
        const CBPJobHandle behind = CBPJob::start(second, "Text", &seven);
        AWAIT(*gate.began);
        QVERIFY(!behind.isRunning());
        gate.gate->release();
        AWAIT(behind.isFinished());
    }

    // One that waits for its turn is over at once, whatever goes on before it; those behind it move up.
    void cancelledInTheQueue()
    {
        Gate gate;
        QStringList told;
        const auto tell = [&told](const char *name) {
            return [&told, name](const CBPJobResult<int> &result) {
                told << QStringLiteral("%1 %2").arg(name).arg(int(result.state()));
            };
        };
        CBPJobHandle first = CBPJob::start(this, "First", gate, tell("first"));
        CBPJobHandle second = CBPJob::start(this, "Second", &seven, tell("second"));
        const CBPJobHandle third = CBPJob::start(this, "Third", &seven, tell("third"));
        QVERIFY(!second.isRunning() && !second.isFinished());
        second.cancel();
        second.cancel();
        AWAIT_EQUAL(told, QStringList("second 1"));
        QVERIFY(second.isFinished() && !third.isRunning());
        first.cancel(); // which does not look
        QVERIFY(!first.isFinished());
        gate.gate->release();
        AWAIT_EQUAL(told, (QStringList{"second 1", "first 1", "third 0"}));
        CBPJobHandle().cancel();
        QVERIFY(CBPJobHandle().isFinished() && !CBPJobHandle().isRunning());
    }

    // Told to stop, never told of, and in nobody's way.
    void receiverGone()
    {
        CBPJob::setMaximumRunning(1);
        auto *receiver = new QObject;
        bool told = false;
        const Gate gate;
        const auto stopped = std::make_shared<std::atomic<bool>>(false);
        CBPJob::start(
            receiver, "Text",
            [gate, stopped](CBPJobControl &job) {
                gate(job);
                *stopped = job.isCancelled();
            },
            [&told, counted = Counted()] { told = true; });
        CBPJob::start(
            receiver, "Text", [counted = Counted()] { QFAIL("began"); }, [&told] { told = true; });
        AWAIT(*gate.began);
        delete receiver;
        QCOMPARE(Counted::alive().load(), 0); // of the one that has not begun, too
        bool after = false;
        CBPJob::start(nullptr, "Text", &seven, [&after] { after = true; });
        AWAIT(after); // though there is one thread, which does not come back
        QCOMPARE(CBPJob::waitForAll(0), QStringList("Text"));
        gate.gate->release();
        QCOMPARE(CBPJob::waitForAll(-1), QStringList());
        QCoreApplication::processEvents();
        QVERIFY(*stopped && !told);
        QCOMPARE(Counted::alive().load(), 0);
    }

    void deletedWhenTold()
    {
        auto *receiver = new QObject;
        QPointer<QObject> alive(receiver);
        for (int i = 0; i < 3; ++i)
            CBPJob::start(receiver, "Text", &seven, [receiver] { delete receiver; });
        AWAIT(!alive);
    }

    void waitForAll()
    {
        QTest::ignoreMessage(QtWarningMsg, "The job \"Stubborn\" does not stop");
        const Gate gate;
        bool told = false;
        CBPJob::start(this, "Stubborn", gate, [&told] { told = true; });
        CBPJob::start(nullptr, "Obedient", &untilTold);
        CBPJob::start(this, "Later", &seven);
        AWAIT(*gate.began);
        QCOMPARE(CBPJob::waitForAll(50), QStringList("Stubborn"));
        gate.gate->release();
        QCOMPARE(CBPJob::waitForAll(-1), QStringList());
        QVERIFY(!told); // no events were handled
        AWAIT(told);
    }

    void futures()
    {
        CBPSyncObj sync;
        QFutureInterface<int> source;
        source.reportStarted();
        source.setProgressRange(10, 30);
        later(this, [&] {
            source.setProgressValueAndText(20, "Half");
            source.reportResult(12);
            source.reportFinished();
        });
        const auto result = CBPJob::run(nullptr, "Text", source.future(), &sync);
        QVERIFY(result.isDone());
        QCOMPARE(result.value(), 12);
        QVERIFY(CBPJob::run(nullptr, "Text", QFuture<void>()).isCancelled()); // of nothing
        // Is told to stop, and says itself when it is over.
        QFutureInterface<void> other;
        other.reportStarted();
        std::optional<State> state;
        CBPJobHandle job = CBPJob::start(this, "Text", other.future(),
                                         [&](const CBPJobOutcome &outcome) { state = outcome.state(); });
        job.cancel();
        QVERIFY(other.isCanceled() && job.isRunning());
        QCOMPARE(CBPJob::waitForAll(0), QStringList("Text"));
        other.reportFinished();
        AWAIT(state == CBPJobOutcome::Cancelled);
        QFutureInterface<int> failing;
        failing.reportStarted();
        later(this, [&] {
            struct Error : QException
            {
                void raise() const override { throw *this; }
                Error *clone() const override { return new Error(*this); }
            };
            failing.reportException(Error());
            failing.reportFinished();
        });
        QVERIFY(throws<QException>([&] { CBPJob::run(nullptr, "Text", failing.future(), &sync); }));
        // Forgotten, with its window.
        QFutureInterface<int> left;
        left.reportStarted();
        auto *window = new QuitWindow;
        later(this, [&] { delete window; });
        QVERIFY(CBPJob::run(window, "Text", left.future(), &sync).isWindowGone());
        QVERIFY(left.isCanceled());
        left.reportFinished();
        QCoreApplication::processEvents();
    }
};

LUMQT_TEST_MAIN(TestJob)
#include "tst_job.moc"
