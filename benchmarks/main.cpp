#include "Bench.h"
#include "FontSetup.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>

// What the library claims about speed, measured beside plain Qt in the same run. scripts/run-benchmarks.sh
// makes a table of what it writes.
int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QDir::setCurrent(QCoreApplication::applicationDirPath());
    setUpFonts();
    QApplication::setStyle(QStringLiteral("Fusion"));

    QCommandLineParser parser;
    const QCommandLineOption json(QStringLiteral("json"),
                                  QStringLiteral("Writes what was measured into it, not to stdout."),
                                  QStringLiteral("file"));
    const QCommandLineOption rounds(QStringLiteral("rounds"),
                                    QStringLiteral("Rounds to measure; 9 if not given."),
                                    QStringLiteral("number"));
    const QCommandLineOption only(QStringLiteral("only"),
                                  QStringLiteral("Measures what has this in its name, and nothing else."),
                                  QStringLiteral("text"));
    parser.addOptions({json, rounds, only});
    parser.addHelpOption();
    parser.process(application);

    Bench bench;
    if (parser.isSet(rounds))
        bench.rounds = qMax(5, parser.value(rounds).toInt());
    bench.only = parser.value(only);
    benchPushButtons(bench);
    benchImageButtons(bench);
    benchFrame(bench);
    benchDialogs(bench);
    benchMemory(bench);
    benchExecuter(bench);
    benchSelectors(bench);
    benchDateTimes(bench);
    benchProgressBar(bench);
    benchLayouts(bench);
    benchPathList(bench);
    benchFilling(bench);
    benchThemes(bench);
    benchWidgets(bench);
    return bench.report(parser.value(json)) ? 0 : 1;
}
