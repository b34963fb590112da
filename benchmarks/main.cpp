#include "Bench.h"
#include "FontSetup.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>

// What the library claims about speed, measured beside plain Qt in the same run.
int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QDir::setCurrent(QCoreApplication::applicationDirPath());
    setUpFonts();
    QApplication::setStyle(QStringLiteral("Fusion"));

    QCommandLineParser parser;
    const QCommandLineOption json(QStringLiteral("json"), QStringLiteral("Also writes the rows as JSON."),
                                  QStringLiteral("file"));
    const QCommandLineOption rounds(QStringLiteral("rounds"),
                                    QStringLiteral("Rounds to measure; 9 if not given."),
                                    QStringLiteral("number"));
    parser.addOptions({json, rounds});
    parser.addHelpOption();
    parser.process(application);

    Bench bench;
    if (parser.isSet(rounds))
        bench.rounds = qMax(5, parser.value(rounds).toInt());
    benchPushButtons(bench);
    benchImageButtons(bench);
    benchFrame(bench);
    benchDialogs(bench);
    benchExecuter(bench);
    benchSelectors(bench);
    benchDateTimes(bench);
    benchProgressBar(bench);
    benchLayouts(bench);
    benchPathList(bench);
    benchThemes(bench);
    return bench.report(parser.value(json)) ? 0 : 1;
}
