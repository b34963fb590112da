#include "FontSetup.h"
#include "GalleryWindow.h"
#include "Monkey.h"
#include "PageRegistry.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QStyleFactory>
#include <QTextStream>

// Sanitizers and the library's own asserts find what is wrong; this program only has to come to its end.
int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setQuitOnLastWindowClosed(false);
    QDir::setCurrent(QCoreApplication::applicationDirPath());

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Random input over every page of the gallery."));
    parser.addHelpOption();
    const QCommandLineOption seconds(QStringLiteral("seconds"), QStringLiteral("How long."),
                                     QStringLiteral("n"), QStringLiteral("60"));
    const QCommandLineOption seed(QStringLiteral("seed"), QStringLiteral("Of the random numbers."),
                                  QStringLiteral("n"), QStringLiteral("1"));
    parser.addOptions({seconds, seed});
    parser.process(application);

    setUpFonts();
    QTextStream(stdout) << "seed " << parser.value(seed) << ", " << parser.value(seconds) << " seconds"
                        << Qt::endl;
    GalleryWindow window;
    window.showPage(pages().first().id);
    window.show();
    Monkey monkey(window, parser.value(seed).toUInt(), parser.value(seconds).toInt());
    monkey.start();
    int code = 0;
    do {
        code = QApplication::exec(); // a main window that is closed by its button ends it before the time is
                                     // over
    } while (!monkey.isOver());
    QTextStream(stdout) << monkey.steps() << " steps, " << monkey.visitedPages() << " of " << pages().size()
                        << " pages\nTotals: 1 passed, 0 failed, 0 skipped" << Qt::endl; // as test programs do
    return code;
}
