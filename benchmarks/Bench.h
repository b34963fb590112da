#pragma once

#include <QJsonArray>
#include <QString>
#include <QVector>

#include <functional>

// Measures alternatives in turn, round by round, in one process: what a noisy machine does to one it does to
// all. What is timed is counted in instructions as well, which no machine's mood changes: by the kernel where
// it does that, and else in a run under Callgrind, which writes a file for each variant.
class Bench
{
public:
    struct Variant
    {
        QString name;
        std::function<double()> measure; // one round; returns microseconds, or what else `unit` says
    };

    // The first variant is compared with the others: `limits` holds the largest ratio first/other that is
    // promised, 0 where nothing is. It is one of instructions where both variants use time(), and otherwise
    // of what they return.
    void compare(const QString &title, const QString &unit, const QVector<Variant> &variants,
                 const QVector<double> &limits);

    // Microseconds that `work` takes, in all threads.
    static double time(const std::function<void()> &work);

    // Writes what was measured as JSON; returns whether that was possible.
    bool report(const QString &jsonFile) const;

    int rounds = 9;
    QString only; // measures what has this in its title

private:
    QJsonArray m_rows;
};

void benchPushButtons(Bench &bench);
void benchImageButtons(Bench &bench);
void benchFrame(Bench &bench);
void benchDialogs(Bench &bench);
void benchMemory(Bench &bench);
void benchExecuter(Bench &bench);
void benchSelectors(Bench &bench);
void benchDateTimes(Bench &bench);
void benchProgressBar(Bench &bench);
void benchLayouts(Bench &bench);
void benchPathList(Bench &bench);
void benchFilling(Bench &bench);
void benchThemes(Bench &bench);
void benchWidgets(Bench &bench);
