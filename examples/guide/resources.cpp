// High density, the current directory, the catalogue of texts, and where the library looks for its files.
#include "CBaseWin.h"
#include "CBPImage.h"
#include "CBPLabel.h"
#include "Util.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QTranslator>
#include <QVBoxLayout>

namespace {

//! [look]
QString look(const QString &name)
{
    const QString path = Util::getResFullPath(name);
    return QString("%1: %2").arg(name, QFileInfo::exists(path) ? "found" : "missing");
}
//! [look]

//! [ini]
QString titleColor()
{
    QVariant value;
    const QString file = Util::getResFullPath("../res/UIConfig.ini");
    if (!Util::readIni("window", "title_bgcolor", value, file))
        return "not set";
    return value.toString();
}
//! [ini]

} // namespace

int main(int argc, char *argv[])
{
    //! [start]
    // Before there is an application:
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0) // which does so by itself
    QGuiApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QGuiApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication application(argc, argv);

    // Before the first widget:
    QDir::setCurrent(QCoreApplication::applicationDirPath());
    Util::InstallCatalogue(); // the library's English texts
    //! [start]

    //! [language]
    // Lives as long as the application. Without the file, or with a damaged one, the texts stay English.
    const QString german = Util::getResFullPath("../res/lumqtlib_de.qm");
    if (QTranslator *texts = QFile::exists(german) ? Util::LoadCatalogue(german, &application) : nullptr)
        QCoreApplication::installTranslator(texts);
    //! [language]

    CBaseWin window;
    window.setCaption("Resources");
    window.setCentralWidget(new QWidget);
    auto *column = new QVBoxLayout(window.centralWidget());
    column->setContentsMargins(32, 24, 32, 24);
    column->setSpacing(8);
    //! [picture]
    auto *picture = new CBPImage(Util::getResFullPath("../res/icon_info.png")); // or icon_info@2x.png
    //! [picture]
    column->addWidget(picture);
    for (const char *name : {"../res/title_logo.png", "../res/Common/langind.ini", "../res/lumqtlib_en.qm"})
        column->addWidget(new CBPLabel(look(name), 14));
    column->addWidget(new CBPLabel("Colour of the title bars: " + titleColor(), 14));
    column->addStretch();
    window.resize(480, 300);
    window.show();
    return application.exec();
}
