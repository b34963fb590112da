#include "foundation/FontLookup.h"

#include "foundation/EmbeddedRes.h"
#include "foundation/Log.h"
#include "foundation/QtCompat.h"
#include "platform/Platform.h"

#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <QSettings>

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
    QString language = GetUILanguage();
    if (language.isEmpty())
        language = GetUILanguage(); // an installer may be writing the setting: one more look
    // Never deleted: fonts are looked up until the last widget is gone.
    static QSettings *const table = openFontTable();

    QString key = language + QLatin1Char('/');
    if (weightIndex >= lumqt::LightWeight && weightIndex <= lumqt::BoldWeight)
        key += QLatin1String(kWeightKeys[weightIndex]);
    QString family = table->value(key, QVariant()).toString();
    if (!family.isEmpty())
        return family;
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

} // namespace lumqt
