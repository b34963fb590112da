#include "foundation/ThemeFile.h"

#include "foundation/Log.h"

#include <QFileInfo>
#include <QMetaEnum>
#include <QSettings>

namespace lumqt {

namespace {

constexpr qint64 kLargestFile = 256 * 1024; // bytes; a whole theme has some 10 KiB
const char kExpectedColor[] = "#rrggbb or #aarrggbb";

void complain(const QString &file, const QString &key, const QString &expected)
{
    qCWarning(lcLumQt, "The theme file %s, key %s: expected %s", qUtf8Printable(file), qUtf8Printable(key),
              qUtf8Printable(expected));
}

bool isOurs(const QString &name)
{
    for (const BuiltInTheme theme : {BuiltInTheme::Light, BuiltInTheme::Dark, BuiltInTheme::Contrast}) {
        if (name.compare(QLatin1String(nameOf(theme)), Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

// Purposes by their names in lower case, in which a file may write them as it likes.
const QHash<QString, int> &purposes()
{
    static const QHash<QString, int> known = [] {
        QHash<QString, int> names;
        const auto purpose = QMetaEnum::fromType<Purpose>();
        for (int i = 0; i < purpose.keyCount(); ++i)
            names.insert(QString::fromLatin1(purpose.key(i)).toLower(), purpose.value(i));
        return names;
    }();
    return known;
}

// Invalid for all but the two notations: QColor would take names, and fewer digits.
QColor colorOf(const QVariant &value)
{
    const QString text = value.toString().trimmed();
    return text.startsWith(QLatin1Char('#')) && (text.size() == 7 || text.size() == 9) ? QColor(text)
                                                                                       : QColor();
}

BuiltInTheme baseOf(const QString &file, const QVariant &value, const QString &name)
{
    const QString base = value.toString().trimmed().toLower();
    if (base == QLatin1String(nameOf(BuiltInTheme::Dark)))
        return BuiltInTheme::Dark;
    if (base != QLatin1String(nameOf(BuiltInTheme::Light))) {
        const bool itself = base == name.toLower();
        complain(file, QStringLiteral("base"),
                 itself ? QStringLiteral("light or dark, not the theme itself")
                        : QStringLiteral("light or dark"));
    }
    return BuiltInTheme::Light;
}

bool isReadable(const QString &file)
{
    const QFileInfo info(file);
    const char *wrong = nullptr;
    if (!info.isFile() || !info.isReadable())
        wrong = "a file that can be read";
    else if (info.size() > kLargestFile)
        wrong = "at most 256 KiB";
    if (wrong)
        qCWarning(lcLumQt, "The theme file %s: expected %s", qUtf8Printable(file), wrong);
    return !wrong;
}

QString nameIn(const QSettings &settings, const QString &file)
{
    const QString fallback = QFileInfo(file).completeBaseName();
    const QString said = settings.value(QStringLiteral("name")).toString().trimmed();
    if (!said.isEmpty() && !isOurs(said))
        return said;
    if (!said.isEmpty())
        complain(file, QStringLiteral("name"), QStringLiteral("none of the library's names"));
    if (!isOurs(fallback) && !fallback.isEmpty())
        return fallback;
    if (said.isEmpty())
        complain(file, QStringLiteral("name"), QStringLiteral("one, since the file's is the library's"));
    return QString();
}

} // namespace

NamedTheme readTheme(const QString &file)
{
    NamedTheme read;
    if (!isReadable(file))
        return read;
    QSettings settings(file, QSettings::IniFormat);
    settings.setIniCodec("UTF-8");
    if (settings.status() != QSettings::NoError) {
        qCWarning(lcLumQt, "The theme file %s: expected lines of key = value", qUtf8Printable(file));
        return read;
    }
    read.name = nameIn(settings, file);
    ThemeColors own;
    const QStringList keys = settings.allKeys();
    for (const QString &key : keys) {
        const QString plain = key.toLower();
        if (plain == QLatin1String("name"))
            continue;
        if (plain == QLatin1String("base")) {
            read.theme.base = baseOf(file, settings.value(key), read.name);
            continue;
        }
        const int purpose = purposes().value(plain, -1);
        const QColor color = colorOf(settings.value(key));
        if (purpose < 0)
            complain(file, key, QStringLiteral("a purpose of CBPTheme, name or base"));
        else if (!color.isValid())
            complain(file, key, QLatin1String(kExpectedColor));
        if (purpose < 0 || !color.isValid())
            continue;
        own[size_t(purpose)] = color;
        read.theme.said.set(size_t(purpose));
    }
    read.theme.colors = themeOf(read.theme.base, own, read.theme.said);
    return read;
}

} // namespace lumqt
