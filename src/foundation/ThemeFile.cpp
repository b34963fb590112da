#include "foundation/ThemeFile.h"

#include "foundation/Log.h"
#include "foundation/QtCompat.h"

#include <QFileInfo>
#include <QMap>
#include <QMetaEnum>
#include <QSettings>
#include <QTemporaryFile>

#include <algorithm>

namespace lumqt {

namespace {

constexpr qint64 kLargestFile = 256 * 1024; // bytes; a whole theme has some 10 KiB
const char kMark[] = "\xef\xbb\xbf";
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
QColor colorOf(const QString &text)
{
    const auto isDigit = [](QChar c) {
        return (c >= '0' && c <= '9') || (c.toLower() >= 'a' && c.toLower() <= 'f');
    };
    const QString digits = text.mid(1);
    if (!text.startsWith(QLatin1Char('#')) || !std::all_of(digits.begin(), digits.end(), isDigit))
        return QColor();
    const QRgb value = digits.toUInt(nullptr, 16);
    return digits.size() == 6   ? QColor::fromRgb(value)
           : digits.size() == 8 ? QColor::fromRgba(value)
                                : QColor();
}

QByteArray withoutMark(const QByteArray &bytes)
{
    return bytes.startsWith(kMark) ? bytes.mid(int(qstrlen(kMark))) : bytes;
}

// What a theme file holds, without the mark that says that it is UTF-8; null, and a line in the log, where
// that is no text. QSettings would take any bytes.
QByteArray contentOf(const QString &file)
{
    const char *wrong = nullptr;
    QFile source(file);
    QByteArray bytes;
    // Regular files only: a pipe would wait. What is read counts, not what is told: a file may grow
    // meanwhile.
    if (!QFileInfo(file).isFile() || !source.open(QIODevice::ReadOnly))
        wrong = "a file that can be read";
    else if ((bytes = source.read(kLargestFile + 1)).size() > kLargestFile)
        wrong = "at most 256 KiB";
    // What is no UTF-8 becomes another text there and back.
    else if (const QByteArray text = withoutMark(bytes);
             QString::fromUtf8(text).toUtf8() != text || text.contains('\0'))
        wrong = "text in UTF-8";
    if (wrong) {
        qCWarning(lcLumQt, "The theme file %s: expected %s", qUtf8Printable(file), wrong);
        return QByteArray();
    }
    return bytes.isNull() ? QByteArray("") : withoutMark(bytes);
}

struct Entry
{
    QString key; // as it is written
    QString value;
};

// By their keys in lower case, whatever section they are in. Read from a copy: of the file itself, QSettings
// would remember what was in it up to a tick of the clock ago, and a designer tries one colour after another.
QMap<QString, Entry> entriesOf(const QString &file, const QByteArray &content)
{
    QMap<QString, Entry> entries;
    QTemporaryFile copy;
    if (!copy.open() || copy.write(content) != content.size() || !copy.flush()) {
        qCWarning(lcLumQt, "The theme file %s: expected room for a copy of it", qUtf8Printable(file));
        return entries;
    }
    QSettings settings(copy.fileName(), QSettings::IniFormat);
    readAsUtf8(settings);
    const QStringList keys = settings.allKeys();
    for (const QString &path : keys) {
        const QString key = utf8Key(path.section(QLatin1Char('/'), -1));
        // A text with a comma is a list to QSettings, and there is nothing at an empty key.
        const QVariant value = path.isEmpty() ? QVariant() : settings.value(path);
        entries[key.toLower()] = {key, value.toStringList().join(QLatin1String(", ")).trimmed()};
    }
    if (settings.status() == QSettings::FormatError)
        qCWarning(lcLumQt, "The theme file %s: expected lines of key = value", qUtf8Printable(file));
    return entries;
}

BuiltInTheme baseOf(const QString &file, const Entry &entry, const QString &name)
{
    for (const BuiltInTheme base : {BuiltInTheme::Light, BuiltInTheme::Dark}) {
        if (entry.key.isEmpty() || entry.value.compare(QLatin1String(nameOf(base)), Qt::CaseInsensitive) == 0)
            return base;
    }
    const bool itself = !name.isEmpty() && entry.value.compare(name, Qt::CaseInsensitive) == 0;
    complain(file, entry.key,
             itself ? QStringLiteral("light or dark, not the theme itself")
                    : QStringLiteral("light or dark"));
    return BuiltInTheme::Light;
}

QString nameIn(const QString &file, const Entry &entry)
{
    const QString fallback = QFileInfo(file).completeBaseName();
    if (!entry.value.isEmpty() && !isOurs(entry.value))
        return entry.value;
    const bool isGood = !fallback.isEmpty() && !isOurs(fallback);
    if (!entry.value.isEmpty())
        complain(file, entry.key, QStringLiteral("none of the library's names"));
    else if (!isGood)
        complain(file, QStringLiteral("name"), QStringLiteral("one, since the file's is the library's"));
    return isGood ? fallback : QString();
}

} // namespace

NamedTheme readTheme(const QString &file)
{
    NamedTheme read;
    const QByteArray content = contentOf(file);
    if (content.isNull())
        return read;
    QMap<QString, Entry> entries = entriesOf(file, content);
    read.name = nameIn(file, entries.take(QStringLiteral("name")));
    read.theme.base = baseOf(file, entries.take(QStringLiteral("base")), read.name);
    ThemeColors own;
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry) {
        const int purpose = purposes().value(entry.key(), -1);
        const QColor color = colorOf(entry->value);
        if (purpose < 0)
            complain(file, entry->key, QStringLiteral("a purpose of CBPTheme, name or base"));
        else if (!color.isValid())
            complain(file, entry->key, QLatin1String(kExpectedColor));
        if (purpose < 0 || !color.isValid())
            continue;
        own[size_t(purpose)] = color;
        read.theme.said.set(size_t(purpose));
    }
    read.theme.colors = themeOf(read.theme.base, own, read.theme.said);
    return read;
}

} // namespace lumqt
