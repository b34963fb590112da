#include "ClassPictures.h"
#include "FontSetup.h"
#include "GalleryWindow.h"
#include "PageRegistry.h"
#include "Screenshots.h"
#include "Theme.h"

#include "CBPTheme.h"
#include "Util.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QTextStream>

#include <utility>

namespace {

constexpr char kSystem[] = "system"; // among the names of themes

struct Options
{
    QString page;
    QString theme;         // its name
    QString screenshots;   // absolute; empty: none are taken
    QString classPictures; // the same
    bool list = false;
    bool help = false;
};

void describe(QCommandLineParser &parser)
{
    parser.setApplicationDescription(QStringLiteral("Every widget of LumQtLib on a page."));
    parser.addOption({QStringLiteral("page"), QStringLiteral("Open at this page."), QStringLiteral("name")});
    parser.addOption(
        {QStringLiteral("screenshots"),
         QStringLiteral("Write a picture of every page (or of the one given by --page) and quit."),
         QStringLiteral("folder")});
    parser.addOption({QStringLiteral("class-pictures"),
                      QStringLiteral("Write a picture of every class, and the colours of the themes, for the "
                                     "documentation, and quit."),
                      QStringLiteral("folder")});
    parser.addOption({QStringLiteral("theme"),
                      QStringLiteral("Show this theme: light, dark, contrast, system, or a theme file."),
                      QStringLiteral("name")});
    parser.addOption({QStringLiteral("list"), QStringLiteral("List the pages and quit.")});
    parser.addOption(
        {{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help and quit.")});
}

bool isPage(const QString &id)
{
    for (const PageInfo &page : pages()) {
        if (page.id == id)
            return true;
    }
    return false;
}

// Loads the theme, if `name` is a file, and gives its own name.
bool isTheme(QString &name)
{
    if (name == QLatin1String(kSystem) || CBPTheme::names().contains(name))
        return true;
    const bool file = QFileInfo(name).isFile();
    name = file ? CBPTheme::load(name) : QString();
    return !name.isEmpty();
}

// An error as text; empty when all is well. The parser's own way on Windows, a message box, suits no script.
QString read(QCommandLineParser &parser, Options &options)
{
    describe(parser);
    if (!parser.parse(QCoreApplication::arguments()))
        return parser.errorText();
    if (!parser.positionalArguments().isEmpty())
        return QStringLiteral("what is %1?").arg(parser.positionalArguments().constFirst());
    options.page = parser.value(QStringLiteral("page"));
    if (parser.isSet(QStringLiteral("page")) && !isPage(options.page))
        return QStringLiteral("there is no page %1; see --list").arg(options.page);
    options.theme = parser.value(QStringLiteral("theme"));
    if (parser.isSet(QStringLiteral("theme")) && !isTheme(options.theme))
        return QStringLiteral("there is no theme %1").arg(parser.value(QStringLiteral("theme")));
    for (auto [option, folder] : {std::pair("screenshots", &options.screenshots),
                                  std::pair("class-pictures", &options.classPictures)}) {
        const QString name = QString::fromLatin1(option);
        if (!parser.isSet(name))
            continue;
        if (parser.value(name).isEmpty())
            return QStringLiteral("--%1 needs a folder").arg(name);
        *folder = QDir(parser.value(name)).absolutePath();
    }
    options.list = parser.isSet(QStringLiteral("list"));
    options.help = parser.isSet(QStringLiteral("help"));
    return QString();
}

QStringList allPageIds()
{
    QStringList ids;
    for (const PageInfo &page : pages())
        ids << page.id;
    return ids;
}

// Pictures have the density that QT_SCALE_FACTOR says, not that of the screen they are taken on. Qt reads the
// setting when the application is made, which is before the command line is parsed.
void fixDensityOfPictures(int argc, char *argv[])
{
    for (int i = 1; i < argc; ++i) {
        const bool pictures =
            qstrncmp(argv[i], "--screenshots", 13) == 0 || qstrncmp(argv[i], "--class-pictures", 16) == 0;
        if (pictures && !qEnvironmentVariableIsSet("QT_FONT_DPI"))
            qputenv("QT_FONT_DPI", "96");
    }
}

int run(const Options &options)
{
    setUpFonts();
    theme::setUpLook();
    if (options.theme == QLatin1String(kSystem))
        CBPTheme::followSystem(true);
    else if (!options.theme.isEmpty())
        CBPTheme::apply(options.theme);
    Util::InstallCatalogue(); // the library's own English texts, such as the titles of message boxes
    GalleryWindow window;
    window.showPage(options.page.isEmpty() ? pages().first().id : options.page);
    window.show();
    if (!options.classPictures.isEmpty())
        return takeClassPictures(window, options.classPictures);
    if (options.screenshots.isEmpty())
        return QApplication::exec();
    return takeScreenshots(window, options.page.isEmpty() ? allPageIds() : QStringList(options.page),
                           options.screenshots);
}

} // namespace

int main(int argc, char *argv[])
{
    fixDensityOfPictures(argc, argv);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0) // which does so by itself
    QGuiApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QGuiApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication application(argc, argv);

    QCommandLineParser parser;
    Options options;
    const QString error = read(parser, options); // before the current directory changes
    // The library looks for some of its files from the folder that lies beside res/.
    QDir::setCurrent(QCoreApplication::applicationDirPath());
    if (!error.isEmpty()) {
        QTextStream(stderr) << error << Qt::endl;
        return 2;
    }
    if (options.help) {
        QTextStream(stdout) << parser.helpText();
        return 0;
    }
    if (options.list) {
        QTextStream(stdout) << allPageIds().join(QLatin1Char('\n')) << Qt::endl;
        return 0;
    }
    return run(options);
}
