#include "Bench.h"

#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdio>

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#else // such a build counts nothing below Callgrind
#define RUNNING_ON_VALGRIND 0
#define CALLGRIND_START_INSTRUMENTATION
#define CALLGRIND_STOP_INSTRUMENTATION
#define CALLGRIND_DUMP_STATS_AT(name)
#endif

#ifdef __linux__
#include <linux/perf_event.h>
#include <sys/syscall.h>
#include <unistd.h>
#endif

#if defined(__clang__)
#define COMPILER "Clang " __clang_version__
#elif defined(__GNUC__)
#define COMPILER "GCC " __VERSION__
#else
#define COMPILER "MSVC"
#endif

namespace {

constexpr int kCountingTime = 1000; // ms, below Callgrind, after which no further round begins

bool isBelowCallgrind()
{
    return RUNNING_ON_VALGRIND != 0;
}

// The kernel's counter of the instructions that this process has executed, those of the kernel not included.
// Many virtual machines have none.
class Counter
{
public:
#ifdef __linux__
    Counter()
    {
        if (isBelowCallgrind()) // whose own instructions it would count
            return;
        perf_event_attr attributes{};
        attributes.type = PERF_TYPE_HARDWARE;
        attributes.size = sizeof attributes;
        attributes.config = PERF_COUNT_HW_INSTRUCTIONS;
        attributes.exclude_kernel = 1;
        attributes.exclude_hv = 1;
        attributes.inherit = 1; // by threads that are made from now on
        m_file = int(syscall(SYS_perf_event_open, &attributes, 0, -1, -1, PERF_FLAG_FD_CLOEXEC));
    }
    ~Counter()
    {
        if (m_file >= 0)
            close(m_file);
    }

    // 0 where there is none.
    double value() const
    {
        quint64 count = 0;
        return m_file >= 0 && read(m_file, &count, sizeof count) == sizeof count ? double(count) : 0.0;
    }
    Q_DISABLE_COPY(Counter)

private:
    int m_file = -1;
#else
    double value() const
    {
        return 0;
    }
#endif
};

const Counter counter{}; // from before any thread

// Of all calls of time() in one round of a variant. A variant that calls it in a thread waits for that.
struct Timed
{
    double microseconds = 0;
    double instructions = 0;
};
Timed timed;
bool warmingUp = false; // counts are not wanted, and would take long below Callgrind

// A variant and its rounds.
struct Figure
{
    QVector<double> values;
    QVector<double> instructions; // a piece
    double pieces = 0;            // what is timed in a round, divided by the value; 0 if nothing is timed

    void measure(const Bench::Variant &variant)
    {
        timed = Timed();
        const double value = variant.measure();
        if (warmingUp)
            return;
        values.append(value);
        pieces = value > 0 ? timed.microseconds / value : 0;
        if (pieces > 0)
            instructions.append(timed.instructions / pieces);
    }
};

double median(QVector<double> values)
{
    if (values.isEmpty())
        return 0;
    std::sort(values.begin(), values.end());
    const int middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

QJsonObject rowOf(const Figure &ours, const Figure &other)
{
    QVector<double> ratios;
    for (int round = 0; round < ours.values.size(); ++round)
        ratios.append(ours.values[round] / other.values[round]);
    QJsonObject row{{QStringLiteral("ourMedian"), median(ours.values)},
                    {QStringLiteral("besideMedian"), median(other.values)},
                    {QStringLiteral("ratio"), median(ratios)},
                    {QStringLiteral("ourPieces"), ours.pieces},
                    {QStringLiteral("besidePieces"), other.pieces}};
    if (counter.value() > 0) {
        row.insert(QStringLiteral("ourInstructions"), median(ours.instructions));
        row.insert(QStringLiteral("besideInstructions"), median(other.instructions));
    }
    return row;
}

} // namespace

double Bench::time(const std::function<void()> &work)
{
    QElapsedTimer clock;
    if (!warmingUp) {
        CALLGRIND_START_INSTRUMENTATION;
    }
    const double before = counter.value();
    clock.start();
    work();
    const double microseconds = double(clock.nsecsElapsed()) / 1000.0;
    timed.instructions += counter.value() - before;
    if (!warmingUp) {
        CALLGRIND_STOP_INSTRUMENTATION;
    }
    timed.microseconds += microseconds;
    return microseconds;
}

void Bench::compare(const QString &title, const QString &unit, const QVector<Variant> &variants,
                    const QVector<double> &limits)
{
    if (!title.contains(only))
        return;
    std::printf("  %s\n", qPrintable(title));
    std::fflush(stdout);
    QVector<Figure> figures(variants.size());
    QElapsedTimer clock;
    clock.start();
    for (int round = 0; round <= rounds; ++round) {
        warmingUp = round == 0;
        // Counts of what takes long hardly differ; those of short work with threads do.
        if (isBelowCallgrind() && round > 1 && clock.elapsed() > kCountingTime)
            break;
        for (int i = 0; i < variants.size(); ++i) {
            figures[i].measure(variants[i]);
            if (figures[i].pieces > 0) {
                CALLGRIND_DUMP_STATS_AT(qPrintable(title + QLatin1String(": ") + variants[i].name));
            }
        }
    }
    for (int i = 1; i < variants.size(); ++i) {
        QJsonObject row = rowOf(figures[0], figures[i]);
        row.insert(QStringLiteral("what"), title);
        row.insert(QStringLiteral("unit"), unit);
        row.insert(QStringLiteral("ours"), variants[0].name);
        row.insert(QStringLiteral("beside"), variants[i].name);
        row.insert(QStringLiteral("limit"), limits.value(i - 1));
        m_rows.append(row);
    }
}

bool Bench::report(const QString &jsonFile) const
{
    const QJsonObject all{{QStringLiteral("qt"), QString::fromLatin1(qVersion())},
                          {QStringLiteral("compiler"), QStringLiteral(COMPILER)},
                          {QStringLiteral("rounds"), rounds},
                          {QStringLiteral("rows"), m_rows}};
    QFile file(jsonFile);
    const bool isOpen =
        jsonFile.isEmpty() ? file.open(stdout, QIODevice::WriteOnly) : file.open(QIODevice::WriteOnly);
    return isOpen && file.write(QJsonDocument(all).toJson()) > 0;
}
