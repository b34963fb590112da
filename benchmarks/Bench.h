#pragma once

#include <QString>
#include <QVector>

#include <functional>

// Measures alternatives in turn, round by round, in one process: what a noisy machine does to one it does to
// all.
class Bench
{
public:
    struct Variant
    {
        QString name;
        std::function<double()> measure; // one round; returns microseconds
    };

    // The first variant is compared with the others: `limits` holds the largest ratio first/other that is
    // promised, 0 where nothing is.
    void compare(const QString &title, const QString &unit, const QVector<Variant> &variants,
                 const QVector<double> &limits);

    // Microseconds that `work` takes.
    static double time(const std::function<void()> &work);

    // Prints the ratios; returns whether every promise holds.
    bool report(const QString &jsonFile) const;

    int rounds = 9;
    QString only; // measures what has this in its title

private:
    struct Row
    {
        QString title;
        QString unit;
        QString ours;
        QString other;
        double ourMedian;   // microseconds
        double otherMedian; // microseconds
        double ratio;       // median of the rounds' ratios
        double limit;
    };

    QVector<Row> m_rows;
};

void benchPushButtons(Bench &bench);
void benchImageButtons(Bench &bench);
void benchFrame(Bench &bench);
void benchDialogs(Bench &bench);
void benchExecuter(Bench &bench);
void benchSelectors(Bench &bench);
void benchDateTimes(Bench &bench);
void benchProgressBar(Bench &bench);
void benchLayouts(Bench &bench);
void benchPathList(Bench &bench);
void benchThemes(Bench &bench);
void benchWidgets(Bench &bench);
