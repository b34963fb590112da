#include "IBPDateTime.h"

#include "platform/Platform.h"

#include <QDate>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <limits>

namespace {

enum class Order { None, YearFirst, MonthFirst, DayFirst };

Order orderOf(BPSystemDateFormat format)
{
    if (format >= BPDateFormat_yy_M_d && format <= BPDateFormat_yyyy_MM_dd)
        return Order::YearFirst;
    if (format >= BPDateFormat_M_d_yyyy && format <= BPDateFormat_MM_dd_yyyy)
        return Order::MonthFirst;
    if (format >= BPDateFormat_d_MM_yyyy && format <= BPDateFormat_dd_MM_yyyy)
        return Order::DayFirst;
    return Order::None;
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// At least `width` digits, and never fewer than the number has.
void appendNumber(std::string &text, unsigned int number, int width)
{
    char digits[std::numeric_limits<unsigned int>::digits10 + 1];
    int count = 0;
    do {
        digits[count++] = char('0' + number % 10);
        number /= 10;
    } while (number != 0);
    if (width > count)
        text.append(size_t(width - count), '0');
    while (count > 0)
        text += digits[--count];
}

std::string numberText(unsigned int number, int width)
{
    std::string text;
    appendNumber(text, number, width);
    return text;
}

// Numbers beyond the field become its largest, not some other date.
unsigned short fieldOf(int number)
{
    return static_cast<unsigned short>(std::min<int>(number, std::numeric_limits<unsigned short>::max()));
}

} // namespace

IBPDateTime::~IBPDateTime() = default;

// ------------------------------------------------------------------------------------------------------------
// dates

bool IBPDateTime::TransSystemDateToString(const _BPDateTime &dt, std::string &out, std::string sep)
{
    if (dt.wMonth < 1 || dt.wMonth > 12 || dt.wDay < 1 || dt.wDay > 31)
        return false;
    // Before the format is determined, which changes the count: the first call writes four digits.
    const std::string year =
        m_iYearCounts == 2 ? numberText(dt.wYear % 100U, m_iYearCounts) : numberText(dt.wYear, m_iYearCounts);
    const std::string month = numberText(dt.wMonth, 2);
    const std::string day = numberText(dt.wDay, 2);
    if (sep.empty())
        sep = GetSystemDateSplitor();
    switch (orderOf(GetSystemDateFormat())) {
    case Order::YearFirst:
        out = year + sep + month + sep + day;
        return true;
    case Order::MonthFirst:
        out = month + sep + day + sep + year;
        return true;
    case Order::DayFirst:
        out = day + sep + month + sep + year;
        return true;
    case Order::None:
        break;
    }
    return false;
}

bool IBPDateTime::TransSystemDateFromString(_BPDateTime &dt, const std::string &text)
{
    std::vector<int> numbers;
    SeparateStringToInt(text, numbers);
    if (numbers.size() != 3)
        return false;
    const unsigned short first = fieldOf(numbers[0]);
    const unsigned short second = fieldOf(numbers[1]);
    const unsigned short third = fieldOf(numbers[2]);
    switch (orderOf(GetSystemDateFormat())) {
    case Order::YearFirst:
        dt.wYear = first;
        dt.wMonth = second;
        dt.wDay = third;
        break;
    case Order::MonthFirst:
        dt.wMonth = first;
        dt.wDay = second;
        dt.wYear = third;
        break;
    case Order::DayFirst:
        dt.wDay = first;
        dt.wMonth = second;
        dt.wYear = third;
        break;
    case Order::None:
        return true;
    }
    // Callers check the date themselves: also one that is not valid has been read.
    const QDate date(dt.wYear, dt.wMonth, dt.wDay);
    if (date.isValid())
        dt.wDayOfWeek = static_cast<unsigned short>(date.dayOfWeek());
    return true;
}

std::string IBPDateTime::CombinDate(const _BPDateTime &dt, std::string sep)
{
    if (sep.empty())
        sep = GetSystemDateSplitor();
    return numberText(dt.wMonth, 2) + sep + numberText(dt.wDay, 2);
}

// ------------------------------------------------------------------------------------------------------------
// times of day

bool IBPDateTime::TransSystemTimeToString(const _BPDateTime &dt, std::string &out, bool bWithSecond,
                                          std::string sep)
{
    if (dt.wHour >= 24 || dt.wMinute >= 60 || dt.wSecond >= 60)
        return false;
    GetSystemTimeFormat(); // for the counts; the text is that of 24 hours in every format
    if (sep.empty())
        sep = GetSystemTimeSplitor();
    std::string text = numberText(dt.wHour, 2) + sep + numberText(dt.wMinute, 2);
    if (bWithSecond)
        text += sep + numberText(dt.wSecond, m_iSecCounts);
    out = text;
    return true;
}

bool IBPDateTime::TransSystemTimeFromString(_BPDateTime &dt, const std::string &text)
{
    std::vector<int> numbers;
    bool noMarker = false;
    bool am = false;
    SeparateStringToInt(text, numbers, noMarker, am);
    if (numbers.size() != 3)
        return false;
    // True although nothing is read, here and below: callers tell by the record.
    if (numbers[0] >= 24 || numbers[1] >= 60 || numbers[2] >= 60)
        return true;
    auto hour = static_cast<unsigned int>(numbers[0]);
    if (!noMarker && !TrasmitTimeHour12To24(hour, hour, !am))
        return true;
    dt.wHour = static_cast<unsigned short>(hour);
    dt.wMinute = fieldOf(numbers[1]);
    dt.wSecond = fieldOf(numbers[2]);
    return true;
}

std::string IBPDateTime::CombinTime(const _BPDateTime &dt, bool b12Hour, std::string sep)
{
    if (sep.empty())
        sep = GetSystemTimeSplitor();
    std::string text;
    unsigned int hour = 0;
    if (b12Hour) {
        bool pm = false;
        TrasmitTimeHour24To12(dt.wHour, hour, pm);
        text = pm ? "PM " : "AM ";
    } else {
        // The hour counts as one of the morning, and as 0 when there is none such. That is meant.
        TrasmitTimeHour12To24(dt.wHour, hour, false);
    }
    return text + numberText(hour, 2) + sep + numberText(dt.wMinute, 2);
}

bool IBPDateTime::TrasmitTimeHour24To12(unsigned int hour24, unsigned int &hour12, bool &bPM)
{
    if (hour24 > 23)
        return false;
    bPM = hour24 >= 12;
    const unsigned int hour = hour24 % 12;
    hour12 = hour == 0 ? 12 : hour;
    return true;
}

bool IBPDateTime::TrasmitTimeHour12To24(unsigned int hour12, unsigned int &hour24, bool bPM)
{
    if (hour12 < 1 || hour12 > 12)
        return false;
    hour24 = hour12 % 12 + (bPM ? 12 : 0);
    return true;
}

// ------------------------------------------------------------------------------------------------------------
// records

std::string IBPDateTime::TranDateTimeToString(const _BPDateTime &dt)
{
    char text[6 * 5 + 1]; // each field may have five digits
    const int length = std::snprintf(text, sizeof text, "%04d%02d%02d%02d%02d%02d", dt.wYear, dt.wMonth,
                                     dt.wDay, dt.wHour, dt.wMinute, dt.wSecond);
    return length > 0 ? std::string(text, size_t(length)) : std::string();
}

int IBPDateTime::CompareDateTime(_BPDateTime first, _BPDateTime second)
{
    return TranDateTimeToString(first).compare(TranDateTimeToString(second));
}

void IBPDateTime::GetSystemTime(_BPDateTime *pDateTime)
{
    if (!pDateTime)
        return;
    const lumqt::platform::ClockTime now = lumqt::platform::localClock();
    const unsigned short dayOfWeek = pDateTime->wDayOfWeek;
    *pDateTime = {now.year, now.month, now.day, now.hour, now.minute, now.second, dayOfWeek};
}

_BPDateTime IBPDateTime::Tran64SecToBPDateTime(unsigned long long fileTime)
{
    if (fileTime == 0)
        return {};
    const lumqt::platform::ClockTime time = lumqt::platform::localFileTime(fileTime);
    return {time.year, time.month, time.day, time.hour, time.minute, time.second, time.dayOfWeek};
}

// ------------------------------------------------------------------------------------------------------------
// texts

std::string IBPDateTime::ConcatenateToString(const char *first, ...)
{
    std::string text;
    va_list rest;
    va_start(rest, first);
    for (const char *part = first; part; part = va_arg(rest, const char *))
        text += part;
    va_end(rest);
    return text;
}

bool IBPDateTime::SeparateStringToInt(const std::string &text, std::vector<int> &numbers)
{
    constexpr int largest = std::numeric_limits<int>::max();
    bool inNumber = false;
    int number = 0;
    for (const char c : text) {
        if (isDigit(c)) {
            const int digit = c - '0';
            number = number > (largest - digit) / 10 ? largest : number * 10 + digit;
        } else if (inNumber) {
            numbers.push_back(number);
            number = 0;
        }
        inNumber = isDigit(c);
    }
    if (inNumber)
        numbers.push_back(number);
    return true;
}

bool IBPDateTime::SeparateStringToInt(const std::string &text, std::vector<int> &numbers, bool &bNoMarker,
                                      bool &bAM)
{
    SeparateStringToInt(text, numbers);
    bNoMarker = false;
    if (text.find("AM") != std::string::npos)
        bAM = true;
    else if (text.find("PM") == std::string::npos)
        bNoMarker = true;
    else
        bAM = false;
    return true;
}
