#include "Util.h"

#include "foundation/Catalogue.h"
#include "foundation/EmbeddedRes.h"
#include "foundation/FileLook.h"
#include "foundation/Log.h"
#include "foundation/QtCompat.h"
#include "foundation/ResourcePath.h"
#include "platform/Platform.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QHash>
#include <QMutex>
#include <QSettings>

namespace {

const char kConfigFile[] = "../res/UIConfig.ini";
const char kWindowGroup[] = "window";

// Without an application QCoreApplication has no folder to tell, and warns when asked.
QString programFolder()
{
    return QCoreApplication::instance() ? QCoreApplication::applicationDirPath() : QString();
}

// Paths are asked for by the dozen whenever a window is made. Any thread may ask.
QString resourceBase()
{
    static QMutex mutex;
    static QString knownFolder;
    static QString base;
    const QString folder = programFolder();
    const QMutexLocker lock(&mutex);
    if (folder != knownFolder) {
        knownFolder = folder;
        base = lumqt::resourceBase(folder, lumqt::platform::pathSeparator());
    }
    return base;
}

struct ConfiguredColor
{
    QString file;
    lumqt::FileLook look;
    QColor color;
    bool found = false;
};

ConfiguredColor readColor(const char *key, const QString &file)
{
    ConfiguredColor read{file, lumqt::lookAt(file), QColor(), false};
    QVariant value;
    read.found = Util::readIni(QLatin1String(kWindowGroup), QLatin1String(key), value, file);
    read.color = read.found ? QColor(value.toString()) : QColor();
    if (read.found && !read.color.isValid())
        qCWarning(lcLumQt, "%s of %s is no colour", key, kConfigFile);
    return read;
}

// Each title bar asks when it is made; the file is read again when it has changed.
QColor configuredColor(const char *key, bool &found)
{
    static QMutex mutex;
    static QHash<QByteArray, ConfiguredColor> colors;
    const QString file = lumqt::fileToRead(Util::getResFullPath(QLatin1String(kConfigFile)));
    const QMutexLocker lock(&mutex);
    ConfiguredColor &known = colors[key];
    if (known.file != file || !known.look.holdsFor(lumqt::stampOf(file)))
        known = readColor(key, file);
    found = known.found;
    return known.color;
}

} // namespace

QString Util::getResFullPath(const QString &rel)
{
    return rel.isEmpty() ? QString()
                         : resourceBase() + lumqt::resourceTail(rel, lumqt::platform::pathSeparator());
}

QString Util::getLumResFullPath(const QString &name)
{
    return getResFullPath(QLatin1String("../res/Common/") + name);
}

QString Util::getcurappPath(const QString &name)
{
    if (name.isEmpty())
        return QString();
    const QString separator = lumqt::platform::pathSeparator();
    return programFolder().replace(QLatin1Char('/'), separator) + separator + name;
}

QString Util::chopTailChar(const QString &s, char c, bool alsoBackslash)
{
    if (s.isEmpty() || s.back() != QLatin1Char(c))
        return s;
    const QString rest = s.left(s.size() - 1);
    return alsoBackslash ? chopDirSplitor(rest) : rest;
}

QString Util::chopDirSplitor(const QString &s)
{
    return chopTailChar(s, '\\', false);
}

bool Util::readIni(QString group, QString key, QVariant &value, QString file)
{
    if (file.isEmpty() || key.isEmpty() || group.isEmpty())
        return false;
    file = lumqt::fileToRead(file);
    const QSettings settings(file, QSettings::IniFormat);
    value = settings.value(group + QLatin1Char('/') + key, QVariant());
    // A file that is not there is an ordinary thing to ask.
    if (settings.status() != QSettings::NoError || QFileInfo(file).isDir())
        qCWarning(lcLumQt, "The settings file %s cannot be read", qUtf8Printable(file));
    return value.isValid();
}

void Util::writeIni(QString group, QString key, QVariant value, QString file)
{
    if (file.isEmpty() || key.isEmpty() || group.isEmpty())
        return;
    QSettings settings(file, QSettings::IniFormat);
    settings.beginGroup(group);
    settings.setValue(key, value);
    settings.endGroup();
    settings.sync();
    // A format error is one of reading: what could not be read has been replaced.
    if (settings.status() == QSettings::AccessError)
        qCWarning(lcLumQt, "The settings file %s cannot be written", qUtf8Printable(file));
}

QColor Util::GetWindowTitleBgColor()
{
    bool found = false;
    return configuredColor("title_bgcolor", found);
}

QColor Util::GetWindowTitleTextColor()
{
    bool found = false;
    return configuredColor("title_textcolor", found);
}

QColor Util::GetWindowTitleBottomLineClr(bool &found)
{
    // The key is spelled as every shipped file spells it.
    return configuredColor("title_bottonline", found);
}

bool Util::IsMail(const QString &s)
{
    return lumqt::matchesWhole(s, QStringLiteral("^[\\w.%+-]+@[A-Z0-9.-]+\\.[A-Z]{2,4}$"),
                               Qt::CaseInsensitive);
}

bool Util::IsIPAddress(const QString &s)
{
    return lumqt::matchesWhole(
        s, QStringLiteral("^(([1]?\\d\\d?|2[0-4]\\d|25[0-5])\\.){3}([1]?\\d\\d?|2[0-4]\\d|25[0-5])$"),
        Qt::CaseSensitive);
}

bool Util::InstallCatalogue(const QString &language)
{
    return lumqt::installOwnCatalogue(language);
}

QTranslator *Util::LoadCatalogue(const QString &file, QObject *parent)
{
    return lumqt::loadCatalogue(file, parent);
}
