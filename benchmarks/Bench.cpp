#include "Bench.h"

#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

#include <algorithm>

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#else // such a build counts nothing
#define RUNNING_ON_VALGRIND 0
#define CALLGRIND_START_INSTRUMENTATION
#define CALLGRIND_STOP_INSTRUMENTATION
#define CALLGRIND_ZERO_STATS
#define CALLGRIND_DUMP_STATS_AT(name)
#endif

namespace {

double median(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    const int middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

} // namespace

// Below Callgrind, what is timed is counted, and nothing else.
double Bench::time(const std::function<void()> &work)
{
    QElapsedTimer clock;
    clock.start();
    CALLGRIND_START_INSTRUMENTATION;
    work();
    CALLGRIND_STOP_INSTRUMENTATION;
    return clock.nsecsElapsed() / 1000.0;
}

void Bench::compare(const QString &title, const QString &unit, const QVector<Variant> &variants,
                    const QVector<double> &limits)
{
    if (!title.contains(only))
        return;
    QVector<QVector<double>> times(variants.size());
    const int last = RUNNING_ON_VALGRIND ? 1 : rounds; // counts are the same each time
    for (int round = 0; round <= last; ++round) {      // the first one warms up
        for (int i = 0; i < variants.size(); ++i) {
            CALLGRIND_ZERO_STATS;
            const double value = variants[i].measure();
            if (round == 0)
                continue;
            times[i].append(value);
            CALLGRIND_DUMP_STATS_AT(qPrintable(title + QLatin1String(": ") + variants[i].name));
        }
    }
    for (int i = 1; i < variants.size(); ++i) {
        QVector<double> ratios;
        for (int round = 0; round < times[0].size(); ++round)
            ratios.append(times[0][round] / times[i][round]);
        m_rows.append({title, unit, variants[0].name, variants[i].name, median(times[0]), median(times[i]),
                       median(ratios), limits.value(i - 1)});
    }
}

bool Bench::report(const QString &jsonFile) const
{
    QTextStream out(stdout);
    bool kept = true;
    QJsonArray rows;
    out << QString::asprintf("%-34s %-14s %9s   %-18s %9s %7s %7s\n", "what", "ours", "median", "beside",
                             "median", "ratio", "limit");
    for (const Row &row : m_rows) {
        const bool good = row.limit <= 0 || row.ratio <= row.limit;
        kept = kept && good;
        out << QString::asprintf("%-34s %-14s %9.2f   %-18s %9.2f %7.2f %7s %s\n", qPrintable(row.title),
                                 qPrintable(row.ours), row.ourMedian, qPrintable(row.other), row.otherMedian,
                                 row.ratio, row.limit > 0 ? qPrintable(QString::number(row.limit)) : "-",
                                 good ? "" : "MISSED");
        rows.append(QJsonObject{{QStringLiteral("what"), row.title},
                                {QStringLiteral("unit"), row.unit},
                                {QStringLiteral("ours"), row.ours},
                                {QStringLiteral("beside"), row.other},
                                {QStringLiteral("ourMedian"), row.ourMedian},
                                {QStringLiteral("besideMedian"), row.otherMedian},
                                {QStringLiteral("ratio"), row.ratio},
                                {QStringLiteral("limit"), row.limit}});
    }
    out << "Medians of " << rounds
        << " rounds, in microseconds a piece; ratio: median of the rounds' ratios.\n";
    if (!jsonFile.isEmpty()) {
        QFile file(jsonFile);
        if (!file.open(QIODevice::WriteOnly))
            qWarning("%s cannot be written", qPrintable(jsonFile));
        else
            file.write(QJsonDocument(rows).toJson());
    }
    return kept;
}
