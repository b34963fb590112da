#pragma once

#include "LumQtGlobal.h"

#include <QFutureWatcher>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

class CBPJob;
class CBPSyncObj;

namespace lumqt {
class JobRecord;
using JobPointer = std::shared_ptr<JobRecord>;
} // namespace lumqt

/// What leaves a job that has looked at CBPJobControl::throwIfCancelled(). Let it pass: the job counts as
/// cancelled then, and not as failed. \since 1.0
class LUMQT_EXPORT CBPJobCancelled : public std::exception
{
public:
    ~CBPJobCancelled() override;
    const char *what() const noexcept override;
};

/// What a job tells of itself, and is told, while it runs: a function that takes a `CBPJobControl &` can be
/// cancelled. Any thread; valid until the function has returned.
///
/// All of it is cheap enough for an inner loop. What is told is looked at 60 times a second at most, and only
/// while there is something to show it in. \since 1.0
class LUMQT_EXPORT CBPJobControl
{
public:
    CBPJobControl(const CBPJobControl &) = delete;
    CBPJobControl &operator=(const CBPJobControl &) = delete;

    /// Tells how much is done, in any unit. Less than 0 counts as nothing and more than \a total as all of
    /// it; where \a total is not above 0, or either is no number, it is not known how much is left.
    /// \since 1.0
    void setProgress(double done, double total) noexcept;

    /// Shows \a text in the place of that which the job was given, such as the file that is being copied.
    /// \since 1.0
    void setText(const QString &text);

    /// Whether the job is to stop as soon as it can: the user has cancelled it, or nobody waits for it any
    /// more. \since 1.0
    bool isCancelled() const noexcept;

    /// Leaves the function by a CBPJobCancelled if the job is to stop. \since 1.0
    void throwIfCancelled() const;

private:
    friend class lumqt::JobRecord;
    explicit CBPJobControl(lumqt::JobRecord *job) : m_job(job) {}

    lumqt::JobRecord *const m_job;
};

/// How a job has ended. \since 1.0
class LUMQT_EXPORT CBPJobOutcome
{
public:
    /// The ways. \since 1.0
    enum State {
        Done,       ///< its function has returned
        Cancelled,  ///< it was told to stop before that, or the wait for it was broken off
        WindowGone, ///< its window went away before it ended
        Failed,     ///< an exception has left its function
    };

    /// Of a job that failed it is \a error by which it did. \since 1.0
    explicit CBPJobOutcome(State state = Cancelled, std::exception_ptr error = nullptr);

    /// The way. \since 1.0
    State state() const { return m_state; }
    /// Whether the function has returned, and nobody had told the job to stop. \since 1.0
    bool isDone() const { return m_state == Done; }
    /// Whether the job was told to stop, or the wait for it broken off. \since 1.0
    bool isCancelled() const { return m_state == Cancelled; }
    /// Whether the window went away before the job ended. \since 1.0
    bool isWindowGone() const { return m_state == WindowGone; }
    /// Whether an exception has left the function. \since 1.0
    bool isFailed() const { return m_state == Failed; }

    /// That exception; null without one. \since 1.0
    std::exception_ptr exception() const { return m_error; }

    /// What it says of itself, if it is a std::exception; empty without an exception. \since 1.0
    QString errorText() const;

private:
    State m_state;
    std::exception_ptr m_error;
};

/// How a job has ended, with what its function has returned, if it has. A job that was cancelled has a value
/// where the function went on to its end, or returned early. \since 1.0
template <class T> class CBPJobResult : public CBPJobOutcome
{
public:
    /// For the library. \since 1.0
    explicit CBPJobResult(const CBPJobOutcome &outcome = CBPJobOutcome(), std::optional<T> value = {})
        : CBPJobOutcome(outcome), m_value(std::move(value))
    {
    }

    /// Whether there is a value. \since 1.0
    bool hasValue() const { return m_value.has_value(); }

    /// The value. Without one it throws: what the function has thrown, or else std::bad_optional_access.
    /// \since 1.0
    const T &value() const
    {
        if (!m_value && exception())
            std::rethrow_exception(exception());
        return m_value.value();
    }

    /// The value, or \a other without one. \since 1.0
    T valueOr(T other) const { return m_value ? *m_value : std::move(other); }

    /// Hands the value over, for types that cannot be copied; throws as value() does. \since 1.0
    T take()
    {
        value();
        T taken = std::move(*m_value);
        m_value.reset();
        return taken;
    }

private:
    std::optional<T> m_value;
};

/// The same of a function that returns nothing. \since 1.0
template <> class CBPJobResult<void> : public CBPJobOutcome
{
public:
    /// For the library. \since 1.0
    explicit CBPJobResult(const CBPJobOutcome &outcome = CBPJobOutcome()) : CBPJobOutcome(outcome) {}
};

/// A job that CBPJob::start() has started, to be looked at and cancelled. A copy is the same job. It owns
/// nothing: the job goes on without it. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPJobHandle
{
public:
    /// Of no job, which is finished. \since 1.0
    CBPJobHandle();
    CBPJobHandle(const CBPJobHandle &other);
    CBPJobHandle &operator=(const CBPJobHandle &other);
    ~CBPJobHandle();

    /// Tells the job to stop. One that has not begun never does, and is over at once. \since 1.0
    void cancel();

    /// Whether the job is over, and its function has returned if it had begun. \since 1.0
    bool isFinished() const;

    /// Whether its function is running, and not yet over or still waiting for its turn. \since 1.0
    bool isRunning() const;

    /// How much is done, 0 to 1; negative where that is not known. \since 1.0
    double progress() const;

    /// The text that the job was given, or has set since. \since 1.0
    QString text() const;

private:
    friend class CBPJob;
    explicit CBPJobHandle(lumqt::JobPointer job);

    lumqt::JobPointer m_job;
};

/// \cond INTERNAL
namespace lumqt {

template <class T> struct FutureValue
{
    static constexpr bool isFuture = false;
};
template <class T> struct FutureValue<QFuture<T>>
{
    static constexpr bool isFuture = true;
    using Type = T;
};

template <class T> T firstOf(QFuture<T> &future)
{
    if constexpr (std::is_copy_constructible_v<T>)
        return future.result();
    else
        return future.takeResult(); // of Qt 6, which has futures of such types
}

template <class Function> decltype(auto) callJob(Function &function, CBPJobControl &control)
{
    if constexpr (std::is_invocable_v<Function &, CBPJobControl &>) {
        return std::invoke(function, control);
    } else {
        static_assert(std::is_invocable_v<Function &>,
                      "A job is a function that takes nothing or a CBPJobControl &, or a QFuture");
        Q_UNUSED(control)
        return std::invoke(function);
    }
}

// Whether there is something to be called: no null pointer, no empty std::function.
template <class Function> bool isSet(const Function &function)
{
    if constexpr (std::is_pointer_v<Function> || std::is_member_pointer_v<Function>)
        return function != nullptr;
    else
        return true;
}
template <class Signature> bool isSet(const std::function<Signature> &function)
{
    return bool(function);
}

struct NoJobValue
{
};

// What a job of the type T leaves.
template <class T> class JobValue
{
public:
    using Value = T;
    std::optional<std::conditional_t<std::is_void_v<T>, NoJobValue, T>> value;

    // The value, where the job is over: no other thread has to do with it any more.
    CBPJobResult<T> result(const CBPJobOutcome &outcome, bool isOver)
    {
        if constexpr (std::is_void_v<T>)
            return CBPJobResult<T>(outcome);
        else
            return CBPJobResult<T>(outcome, isOver ? std::move(value) : std::nullopt);
    }
};

template <class Function>
using JobReturn =
    std::decay_t<decltype(callJob(std::declval<Function &>(), std::declval<CBPJobControl &>()))>;

// A function with its captures, and what it returns.
template <class Function> class JobTask : public JobValue<JobReturn<Function>>
{
public:
    template <class Given> explicit JobTask(Given &&function) : m_function(std::forward<Given>(function)) {}

    // Once, in the worker thread, in which the captures end, too.
    void run(CBPJobControl &control)
    {
        struct Clear
        {
            std::optional<Function> &function;
            ~Clear() { function.reset(); }
        } clear{m_function};
        if (!isSet(*m_function))
            throw std::bad_function_call();
        if constexpr (std::is_void_v<JobReturn<Function>>)
            callJob(*m_function, control);
        else
            this->value.emplace(callJob(*m_function, control));
    }

private:
    std::optional<Function> m_function;
};

} // namespace lumqt
/// \endcond

/// Runs functions on worker threads: run() waits for one while the interface stays alive, start() goes on and
/// is told when it is over.
///
/// \code
/// const auto sum = CBPJob::run(this, tr("Adding"), [=](CBPJobControl &job) {
///     qint64 sum = 0;
///     for (int i = 0; i < numbers.size(); ++i) {
///         job.throwIfCancelled();
///         job.setProgress(i, numbers.size());
///         sum += numbers.at(i);
///     }
///     return sum;
/// });
/// if (sum.isDone())
///     label->setText(QString::number(sum.value()));
/// \endcode
///
/// The function is anything that can be called with nothing or with a `CBPJobControl &`; a function with that
/// can be cancelled. It is copied or moved, runs once, and ends with its captures in the worker thread, or,
/// if it never begins, in the GUI thread. It touches no widget. What it captures by reference has to outlive
/// it, also where the wait is broken off: take copies, or a std::shared_ptr. What it throws is thrown again
/// in the caller of run(), or is in the result of start().
///
/// A QFuture is taken in its place, such as QtConcurrent::run() returns it: its progress and text are shown,
/// and cancelling cancels it, as far as it can be. Its first result is the value; cancelled, it has none.
///
/// **Order.** At most maximumRunning() functions run at a time. Those of one window, or of one receiver that
/// is no widget, run one after the other in the order in which they were given; jobs without any have no
/// order. Jobs that nobody waits for any more count no longer. Futures are run by somebody else: they wait
/// for nothing.
///
/// **Threads.** A thread serves one function after the other. What a function has deleted later goes at its
/// end, and an interruption, a priority or a quit() of its thread ends with it; `thread_local` variables and
/// the thread's own name keep for the next what they hold. A thread may wait for a further function as long
/// as the process lives: what is to go with a thread belongs into one of the application's own. The library
/// stays in the process from the first job on.
///
/// All of it is used in the GUI thread. Elsewhere, without an application, and with a receiver of another
/// thread, the functions throw a std::logic_error at once. \since 1.0
class LUMQT_EXPORT CBPJob
{
public:
    CBPJob() = delete;

    /// Runs \a function and waits for it while events are handled; says how it ended, and what it returned.
    ///
    /// Waits in \a waitIn, such as a CBPWaitBtn, which is not owned and may die at any time. If it is null,
    /// \a window, those that it belongs to and those that belong to it take no input meanwhile, and after 880
    /// milliseconds a small window with \a text, progress and remaining time appears over it. With a function
    /// that can be cancelled it has a button for that, and Escape does it, too. Without \a window it is modal
    /// to the application. A \a text "STR_GLOBAL_UNIQUE" shows no window, as with CBaseSyncExecuter. On
    /// Windows the task bar button of \a window shows the progress, and is red for a while after a job that
    /// failed.
    ///
    /// Jobs that were started for this window before have to end first.
    ///
    /// The wait ends sooner where \a window emits `sigQuit(void *)` or is destroyed, where it is broken off
    /// in \a waitIn, and when the application quits. The job is told to stop then, and forgotten. Waits nest:
    /// an outer one returns after the inner ones. \since 1.0
    template <class Function>
    static auto run(QObject *window, const QString &text, Function &&function, CBPSyncObj *waitIn = nullptr)
    {
        const auto task = prepare(text, std::forward<Function>(function));
        const CBPJobOutcome outcome = wait(task.job, window, waitIn);
        if (outcome.isFailed())
            std::rethrow_exception(outcome.exception());
        return task.value->result(outcome, isOver(task.job));
    }

    /// Runs \a function and returns at once. There is no nested event loop: when it is over, \a then is
    /// called from the event loop of the GUI thread with the CBPJobResult, or with nothing. If \a receiver is
    /// destroyed before that, the job is told to stop, and forgotten. Without \a receiver \a then is called
    /// in any case. Without \a then nobody is told, and a failure goes to the log. \since 1.0
    template <class Function, class Then = std::nullptr_t>
    static CBPJobHandle start(QObject *receiver, const QString &text, Function &&function,
                              Then &&then = nullptr)
    {
        const auto task = prepare(text, std::forward<Function>(function));
        std::function<void(const CBPJobOutcome &)> tell;
        if constexpr (!std::is_null_pointer_v<std::decay_t<Then>>) {
            // Shared: it may be of a kind that cannot be copied.
            const auto told = std::make_shared<std::decay_t<Then>>(std::forward<Then>(then));
            using Result = decltype(task.value->result(CBPJobOutcome(), true));
            static_assert(std::is_invocable_v<std::decay_t<Then> &, Result> ||
                              std::is_invocable_v<std::decay_t<Then> &>,
                          "then takes a CBPJobResult of what the function returns, or nothing");
            tell = [told, value = task.value](const CBPJobOutcome &outcome) {
                if constexpr (std::is_invocable_v<std::decay_t<Then> &, Result>)
                    std::invoke(*told, value->result(outcome, true));
                else
                    std::invoke(*told);
            };
            if (!lumqt::isSet(*told))
                tell = nullptr;
        }
        return begin(task.job, receiver, std::move(tell));
    }

    /// How many functions run at a time; at first as many as the processor can. \since 1.0
    static int maximumRunning();

    /// Sets how many functions run at a time. What is less than 1 counts as 1. Those that run go on.
    /// \since 1.0
    static void setMaximumRunning(int count);

    /// Tells all jobs to stop and waits for those that have begun, \a milliseconds at most, or as long as it
    /// takes if that is negative. Returns the texts of those that have not stopped, as they were given to
    /// run() or start(), and logs them. Those that have not begun never do. No events are handled. For the
    /// end of the application, while the application object exists. \since 1.0
    static QStringList waitForAll(int milliseconds);

private:
    template <class Value> struct Prepared
    {
        lumqt::JobPointer job;
        std::shared_ptr<Value> value;
    };

    template <class Function> static auto prepare(const QString &text, Function &&function)
    {
        using Given = std::decay_t<Function>;
        if constexpr (lumqt::FutureValue<Given>::isFuture) {
            return prepareFuture<typename lumqt::FutureValue<Given>::Type>(text, function);
        } else {
            using Task = lumqt::JobTask<Given>;
            const auto task = std::make_shared<Task>(std::forward<Function>(function));
            return Prepared<Task>{create(
                                      text, [task](CBPJobControl &control) { task->run(control); },
                                      std::is_invocable_v<Given &, CBPJobControl &>),
                                  task};
        }
    }

    template <class T> static auto prepareFuture(const QString &text, QFuture<T> future)
    {
        struct Task : lumqt::JobValue<T>
        {
            QFutureWatcher<T> watcher;
        };
        const auto task = std::make_shared<Task>();
        const lumqt::JobPointer job = createForFuture(
            text, [future]() mutable { future.cancel(); }, [future] { return future.isFinished(); }, task);
        const std::weak_ptr<lumqt::JobRecord> weak = job; // which keeps the watcher
        const auto progress = [weak, future] {
            tellProgress(weak.lock(), future.progressValue() - future.progressMinimum(),
                         future.progressMaximum() - future.progressMinimum(), future.progressText());
        };
        QObject::connect(&task->watcher, &QFutureWatcherBase::progressValueChanged, progress);
        QObject::connect(&task->watcher, &QFutureWatcherBase::progressTextChanged, progress);
        QObject::connect(&task->watcher, &QFutureWatcherBase::finished,
                         [weak, future, raw = task.get()]() mutable {
                             std::exception_ptr error;
                             try {
                                 future.waitForFinished(); // throws what has ended it
                                 if constexpr (!std::is_void_v<T>) {
                                     if (future.resultCount() > 0)
                                         raw->value.emplace(lumqt::firstOf(future));
                                 }
                             } catch (...) {
                                 error = std::current_exception();
                             }
                             futureEnded(weak.lock(), error, future.isCanceled());
                         });
        task->watcher.setFuture(future);
        return Prepared<Task>{job, task};
    }

    static lumqt::JobPointer create(const QString &text, std::function<void(CBPJobControl &)> work,
                                    bool canCancel);
    static lumqt::JobPointer createForFuture(const QString &text, std::function<void()> cancel,
                                             std::function<bool()> isFinished, std::shared_ptr<void> watcher);
    static void tellProgress(const lumqt::JobPointer &job, int done, int total, const QString &text);
    static void futureEnded(const lumqt::JobPointer &job, std::exception_ptr error, bool cancelled);
    static CBPJobOutcome wait(const lumqt::JobPointer &job, QObject *window, CBPSyncObj *waitIn);
    static CBPJobHandle begin(const lumqt::JobPointer &job, QObject *receiver,
                              std::function<void(const CBPJobOutcome &)> then);
    static bool isOver(const lumqt::JobPointer &job);
};
