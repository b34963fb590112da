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

// What is left of a piece between fields without words, quoted or not, and marks of direction: Windows'
// patterns have neither.
QString bare(const QString &piece)
{
    QString text;
    for (const QChar c : piece) {
        if (piece.front() != QLatin1Char('\'') && c.unicode() < 0x80 && !c.isLetter())
            text += c;
    }
    return text;
}

bool isOneOf(const QString &field, const char *letters)
{
    return QLatin1String(letters).contains(field.front().toLower());
}

// What stands between the first field and the next one. Blanks alone are left of a word.
QString separator(const QString &pattern, const char *letters, const char *otherwise)
{
    QString result;
    int fields = 0;
    forEachPart(pattern, [&](const QString &part, bool isField) {
        if (isField)
            fields += isOneOf(part, letters) ? 1 : 0;
        else if (fields == 1)
            result += bare(part);
    });
    return fields < 2 || result.trimmed().isEmpty() ? QString::fromLatin1(otherwise) : result;
}

// Qt and Windows write dates alike. One of Qt's has the names of months instead of numbers, that of the
// language "C"; it becomes the one that Windows has where there is no region.
QString windowsDatePattern(const QString &qtPattern)
{
    if (qtPattern.contains(QLatin1String("MMM")))
        return QStringLiteral("MM/dd/yyyy");
    QString result;
    bool word = false; // with what follows it, such as the dot of an abbreviation
    forEachPart(qtPattern, [&](const QString &part, bool isField) {
        word = !isField && (word || part.front() == QLatin1Char('\''));
        if (!word)
            result += isField && isOneOf(part, "dmy") ? part : bare(part);
    });
    return result.trimmed();
}

// From Qt's short pattern: the long one has words and a time zone in it. The seconds, which it lacks, are
// written as its minutes are. An "h" is of the 12-hour clock only beside AM or PM, or beside a part of the
// day ("B"), of which there may be more than two. Beside that an "H" is not.
QString windowsTimePattern(const QString &qtPattern)
{
    QString hours;
    int halfAt = 0; // of the day: before (-1) or after (1) the hours
    forEachPart(qtPattern, [&](const QString &part, bool isField) {
        if (isField && isOneOf(part, "ab"))
            halfAt = hours.isEmpty() ? -1 : 1;
        else if (isField && isOneOf(part, "h"))
            hours = part;
    });
    if (hours.startsWith(QLatin1Char('H')))
        halfAt = 0;
    const QString between = separator(qtPattern, "hm", ":");
    const QString time = (halfAt != 0 ? hours.toLower() : hours.toUpper()) + between + QLatin1String("mm") +
                         between + QLatin1String("ss");
    return halfAt < 0 ? QLatin1String("tt ") + time : halfAt > 0 ? time + QLatin1String(" tt") : time;
}

} // namespace

QString localeText(const QLocale &locale, unsigned long type)
{
    const QString date = windowsDatePattern(locale.dateFormat(QLocale::ShortFormat));
    const QString time = locale.timeFormat(QLocale::ShortFormat);
    switch (type) {
    case LocaleShortDate:
        return date;
    case LocaleTimePattern:
        return windowsTimePattern(time);
    case LocaleDateSeparator:
        return separator(date, "dmy", "/");
    case LocaleTimeSeparator:
        return separator(time, "hm", ":");
    default:
        return QString();
    }
}

} // namespace lumqt::platform
