#include "foundation/FontLookup.h"

#include "foundation/EmbeddedRes.h"
#include "foundation/Log.h"
#include "foundation/QtCompat.h"
#include "platform/Platform.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QHash>
#include <QRawFont>
#include <QSet>
#include <QSettings>
#include <QVector>

#include <algorithm>
#include <array>
#include <iterator>

namespace {

const char kFontTable[] = "../res/Common/langind.ini";
const char kDefaultFamily[] = "Segoe UI";
const char *const kWeightKeys[] = {"font_light", "font_normal", "font_semibold", "font_bold"};

// The path stays relative: the table is the one beside the folder that the program was started in.
QSettings *openFontTable()
{
    const QString file = lumqt::fileToRead(QLatin1String(kFontTable));
    if (!QFileInfo(file).isFile())
        qCWarning(lcLumQt, "The font table %s is missing: texts are set in %s", kFontTable, kDefaultFamily);
    auto *table = new QSettings(file, QSettings::IniFormat);
    lumqt::readAsUtf8(*table); // families of CJK languages have names of their own
    if (table->status() != QSettings::NoError)
        qCWarning(lcLumQt, "The font table %s cannot be read", kFontTable);
    return table;
}

void warnOfMissingFamily(const QString &key)
{
    static QSet<QString> told;
    if (told.contains(key))
        return;
    told.insert(key);
    qCWarning(lcLumQt, "The font table %s has no %s: texts are set in %s", kFontTable, qUtf8Printable(key),
              kDefaultFamily);
}

} // namespace

QString GetUILanguage()
{
    static QString language;
    if (language.isEmpty())
        language = lumqt::platform::answers().interfaceLanguage();
    return language;
}

QString GetFontFamily(int weightIndex)
{
    // Those of the language, which is kept once it is known.
    static std::array<QString, std::size(kWeightKeys)> known;
    const bool weight = weightIndex >= lumqt::LightWeight && weightIndex <= lumqt::BoldWeight;
    if (weight && !known[size_t(weightIndex)].isEmpty())
        return known[size_t(weightIndex)];
    QString language = GetUILanguage();
    if (language.isEmpty())
        language = GetUILanguage(); // an installer may be writing the setting: one more look
    // Never deleted: fonts are looked up until the last widget is gone.
    static QSettings *const table = openFontTable();

    QString key = language + QLatin1Char('/');
    if (weight)
        key += QLatin1String(kWeightKeys[weightIndex]);
    QString family = table->value(key, QVariant()).toString();
    if (!family.isEmpty()) {
        if (weight && !language.isEmpty())
            known[size_t(weightIndex)] = family;
        return family;
    }
    warnOfMissingFamily(key);
    return QString::fromLatin1(kDefaultFamily);
}

namespace lumqt {

QFont uiFont(int weightIndex, int pixelSize)
{
    static QHash<QPair<QString, int>, QFont> fonts;
    const int size = qMax(1, pixelSize); // QFont refuses others with a warning of its own
    const QString family = GetFontFamily(weightIndex);
    const auto key = qMakePair(family, size);
    auto found = fonts.find(key);
    if (found == fonts.end()) {
        QFont font;
        font.setFamily(family);
        font.setPixelSize(size);
        found = fonts.insert(key, font);
    }
    return *found;
}

QFont completed(const QFont &font, const QFont &rest)
{
    // Of the last ones only: a window is painted, or laid out, at a time, and its widgets are alike.
    static QFont lastFont, lastRest, last;
    // A copy may still count less, or more, of itself as its own.
    if (!font.isCopyOf(lastFont) || marksOf(font) != marksOf(lastFont) || !rest.isCopyOf(lastRest)) {
        lastFont = font;
        lastRest = rest;
        last = font.resolve(rest);
    }
    return last;
}

namespace {

constexpr ushort kLastLatin = 0x17f; // of the European languages

// The last character up to which a font has all of Latin by itself: each family has substitutes of its own.
ushort lastOfOwn(const QRawFont &font)
{
    ushort code = ' ';
    while (code < kLastLatin && (font.supportsCharacter(QChar(code + 1)) || (code >= '~' && code < 0xa0)))
        ++code;
    return code;
}

bool isSameFace(const QRawFont &one, const QRawFont &other)
{
    return one.isValid() && one.familyName() == other.familyName() && one.styleName() == other.styleName() &&
           one.pixelSize() == other.pixelSize() && one.weight() == other.weight() &&
           one.style() == other.style() && one.hintingPreference() == other.hintingPreference();
}

bool isSetTheSame(const QFont &one, const QFont &other)
{
    return one.weight() == other.weight() && one.style() == other.style() &&
           one.stretch() == other.stretch() && one.kerning() == other.kerning() &&
           one.styleStrategy() == other.styleStrategy() && one.capitalization() == other.capitalization() &&
           one.letterSpacingType() == other.letterSpacingType() &&
           one.letterSpacing() == other.letterSpacing() && one.wordSpacing() == other.wordSpacing();
}

// Two fonts that were compared, and up to which character they are the same.
struct Comparison
{
    QFont one;
    QFont other;
    ushort last = 0xffff;
};

ushort lastOfBoth(const QFont &one, const QFont &other)
{
    if (one == other)
        return 0xffff;
    const QRawFont face = QRawFont::fromFont(one);
    const bool same = isSetTheSame(one, other) && isSameFace(face, QRawFont::fromFont(other));
    return same ? lastOfOwn(face) : ushort(0);
}

constexpr int kKnownPairs = 8;

// The comparison takes as long as laying out a text or two, so that of the last fonts is kept.
ushort knownLastOfBoth(const QFont &one, const QFont &other)
{
    static QVector<Comparison> known;
    static QMetaObject::Connection news;
    for (const Comparison &pair : qAsConst(known)) {
        if (pair.one.isCopyOf(one) && pair.other.isCopyOf(other))
            return pair.last;
    }
    for (Comparison &pair : known) { // Qt completes the fonts of widgets into ones of their own
        if (pair.one == one && pair.other == other) {
            pair.one = one;
            pair.other = other;
            return pair.last;
        }
    }
    if (!news) // the font that an application adds may be the one that was missing
        news = QObject::connect(qGuiApp, &QGuiApplication::fontDatabaseChanged, [] { known.clear(); });
    if (known.size() == kKnownPairs)
        known.removeFirst();
    known.append({one, other, lastOfBoth(one, other)});
    return known.last().last;
}

} // namespace

bool looksTheSame(const QString &text, const QFont &one, const QFont &other)
{
    const ushort last = knownLastOfBoth(one, other);
    return std::all_of(text.begin(), text.end(), [last](QChar c) { return c.unicode() <= last; });
}

} // namespace lumqt
