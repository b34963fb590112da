#include "platform/generic/LocaleTexts.h"

#include "platform/Platform.h"

#include <QLocale>

#include <functional>

namespace lumqt::platform {

namespace {

// Hands the parts of a pattern to `take`: a field (a run of one letter) or what stands between fields,
// quotes with their content in one piece.
void forEachPart(const QString &pattern, const std::function<void(const QString &, bool isField)> &take)
{
    int end = 0;
    for (int start = 0; start < pattern.size(); start = end) {
        const QChar first = pattern.at(start);
        end = start + 1;
        if (first == QLatin1Char('\'')) {
            const int close = pattern.indexOf(first, end);
            end = close < 0 ? pattern.size() : close + 1;
        } else if (first.isLetter()) {
            while (end < pattern.size() && pattern.at(end) == first)
                ++end;
        }
        take(pattern.mid(start, end - start), first.isLetter());
    }
}

// Dates are written alike by Qt and Windows, times are not.
QString windowsTimePattern(const QString &qtPattern)
{
    bool has12Hours = false;
    forEachPart(qtPattern, [&](const QString &part, bool isField) {
        has12Hours |= isField && part.front().toLower() == QLatin1Char('a');
    });
    QString result;
    forEachPart(qtPattern, [&](const QString &part, bool isField) {
        const char letter = isField ? part.front().toLower().toLatin1() : '\0';
        if (letter == 'a')
            result += QLatin1String("tt"); // the "P" of "AP" follows as a field of its own
        else if (letter == 'h')
            result += has12Hours ? part.toLower() : part.toUpper();
        else if (letter != 't' && letter != 'z' &&
                 letter != 'p') // time zone and milliseconds: Windows has none
            result += part;
    });
    return result.remove(QLatin1String("()")).remove(QLatin1String("[]")).trimmed();
}

// What follows the first field made of one of `letters`.
QString separatorAfter(const QString &pattern, const QString &letters)
{
    QString separator;
    bool found = false;
    bool ended = false;
    forEachPart(pattern, [&](const QString &part, bool isField) {
        if (found && !isField && !ended)
            separator += part;
        ended |= found && isField;
        found |= isField && letters.contains(part.front());
    });
    return ended ? separator.remove(QLatin1Char('\'')) : QString();
}

} // namespace

QString localeText(const QLocale &locale, unsigned long type)
{
    switch (type) {
    case LocaleShortDate:
        return locale.dateFormat(QLocale::ShortFormat);
    case LocaleTimePattern:
        return windowsTimePattern(locale.timeFormat(QLocale::LongFormat));
    case LocaleDateSeparator:
        return separatorAfter(locale.dateFormat(QLocale::ShortFormat), QStringLiteral("dMy"));
    case LocaleTimeSeparator:
        return separatorAfter(locale.timeFormat(QLocale::LongFormat), QStringLiteral("hH"));
    default:
        return QString();
    }
}

} // namespace lumqt::platform
