#include "IBPDateTime.h"

#include "platform/Platform.h"

#include <algorithm>
#include <cctype>

// What the regional settings say.
namespace {

const char kDateSeparator[] = "/";
const char kTimeSeparator[] = ":";

struct DatePattern
{
    const char *text;
    BPSystemDateFormat format;
    int year, month, day; // letters
};

// In the order in which they are tried.
constexpr DatePattern kDatePatterns[] = {
    {"yy-M-d", BPDateFormat_yy_M_d, 2, 1, 1},         {"yy-MM-dd", BPDateFormat_yy_MM_dd, 2, 2, 2},
    {"yyyy-M-d", BPDateFormat_yyyy_M_d, 4, 1, 1},     {"yyyy-MM-d", BPDateFormat_yyyy_MM_d, 4, 2, 1},
    {"yyyy-MM-dd", BPDateFormat_yyyy_MM_dd, 4, 2, 2}, {"M-d-yyyy", BPDateFormat_M_d_yyyy, 4, 1, 1},
    {"M-d-yy", BPDateFormat_M_d_yy, 2, 1, 1},         {"MM-dd-yyyy", BPDateFormat_MM_dd_yyyy, 4, 2, 2},
    {"d-M-yy", BPDateFormat_d_M_yy, 2, 1, 1},         {"d-MM-yyyy", BPDateFormat_d_MM_yyyy, 4, 2, 1},
    {"dd-MM-yyyy", BPDateFormat_dd_MM_yyyy, 4, 2, 2}, {"dd-MM-yy", BPDateFormat_dd_MM_yy, 2, 2, 2},
};
// What a pattern that is not among them counts as. The text is no pattern of the table, which is meant.
constexpr BPSystemDateFormat kOtherDate = BPDateFormat_M_d_yyyy;
const char kOtherDateText[] = "M-D-YYYY";

struct TimePattern
{
    const char *text;
    BPSystemTimeFormat format;
    int hour; // letters
};

constexpr TimePattern kTimePatterns[] = {
    {"tt h:mm:ss", BPTimeFormat_tt_h_mm_ss, 1},   {"h:mm:ss tt", BPTimeFormat_h_mm_ss_tt, 1},
    {"tt hh:mm:ss", BPTimeFormat_tt_hh_mm_ss, 2}, {"hh:mm:ss tt", BPTimeFormat_hh_mm_ss_tt, 2},
    {"H:mm:ss", BPTimeFormat_H_mm_ss, 1},         {"HH:mm:ss", BPTimeFormat_HH_mm_ss, 2},
};
// Text and format of the other patterns do not match each other, which is meant, too.
constexpr BPSystemTimeFormat kOtherTime = BPTimeFormat_tt_h_mm_ss;
const char kOtherTimeText[] = "h:mm:ss tt";

template <class Pattern, size_t count>
const Pattern *patternOf(const Pattern (&patterns)[count], const std::string &text)
{
    const Pattern *end = patterns + count;
    const Pattern *found =
        std::find_if(patterns, end, [&](const Pattern &pattern) { return text == pattern.text; });
    return found == end ? nullptr : found;
}

template <class Pattern, size_t count, class Format>
const Pattern *patternOf(const Pattern (&patterns)[count], Format format)
{
    const Pattern *end = patterns + count;
    const Pattern *found =
        std::find_if(patterns, end, [=](const Pattern &pattern) { return pattern.format == format; });
    return found == end ? nullptr : found;
}

// Characters are signed, and the C library takes none below zero.
bool isLetter(char c)
{
    return std::isalpha(static_cast<unsigned char>(c)) != 0;
}

bool isLetterOrSpace(char c)
{
    return isLetter(c) || std::isspace(static_cast<unsigned char>(c)) != 0;
}

} // namespace

bool IBPDateTime::m_bUseSystemFormat = true;
BPSystemDateFormat IBPDateTime::m_dateFormat = BPDateFormat_None;
BPSystemTimeFormat IBPDateTime::m_timeFormat = BPTimeFormat_None;
int IBPDateTime::m_iYearCounts = 4;
int IBPDateTime::m_iMonthCounts = 1;
int IBPDateTime::m_iDayCounts = 1;
int IBPDateTime::m_iHourCounts = 1;
int IBPDateTime::m_iMinCounts = 2;
int IBPDateTime::m_iSecCounts = 2;
std::string IBPDateTime::m_strDate;
std::string IBPDateTime::m_strDateSplitor;
std::string IBPDateTime::m_strTime;
std::string IBPDateTime::m_strTimeSplitor;

std::string IBPDateTime::_GetSystemLocaleInfo(unsigned long lcType, unsigned long locale)
{
    const QByteArray text = lumqt::platform::answers().localeInfo(lcType, locale).toUtf8();
    return std::string(text.constData(), size_t(text.size()));
}

void IBPDateTime::_GetSystemDateFormat()
{
    m_strDate = _GetSystemLocaleInfo(lumqt::platform::LocaleShortDate, lumqt::platform::kUserLocale);
    std::replace_if(
        m_strDate.begin(), m_strDate.end(), [](char c) { return !isLetter(c); }, '-');
    const DatePattern *pattern = patternOf(kDatePatterns, m_strDate);
    m_dateFormat = pattern ? pattern->format : kOtherDate;
    if (!pattern)
        m_strDate = kOtherDateText;
    _AnalysisDateCounts();
}

void IBPDateTime::_GetSystemTimeFormat()
{
    m_strTime = _GetSystemLocaleInfo(lumqt::platform::LocaleTimePattern, lumqt::platform::kUserLocale);
    std::replace_if(
        m_strTime.begin(), m_strTime.end(), [](char c) { return !isLetterOrSpace(c); }, ':');
    const TimePattern *pattern = patternOf(kTimePatterns, m_strTime);
    m_timeFormat = pattern ? pattern->format : kOtherTime;
    if (!pattern)
        m_strTime = kOtherTimeText;
    _AnalysisTimeCounts();
}

void IBPDateTime::_AnalysisDateCounts()
{
    const DatePattern *pattern = patternOf(kDatePatterns, m_dateFormat);
    if (!pattern)
        return;
    m_iYearCounts = pattern->year;
    m_iMonthCounts = pattern->month;
    m_iDayCounts = pattern->day;
}

void IBPDateTime::_AnalysisTimeCounts()
{
    m_iMinCounts = 2;
    m_iSecCounts = 2;
    if (const TimePattern *pattern = patternOf(kTimePatterns, m_timeFormat))
        m_iHourCounts = pattern->hour;
}

BPSystemDateFormat IBPDateTime::GetSystemDateFormat()
{
    if (m_dateFormat == BPDateFormat_None)
        _GetSystemDateFormat();
    return m_dateFormat;
}

BPSystemTimeFormat IBPDateTime::GetSystemTimeFormat()
{
    if (m_timeFormat == BPTimeFormat_None)
        _GetSystemTimeFormat();
    return m_timeFormat;
}

std::string IBPDateTime::GetSystemDateSplitor()
{
    if (m_strDateSplitor.empty())
        m_strDateSplitor =
            _GetSystemLocaleInfo(lumqt::platform::LocaleDateSeparator, lumqt::platform::kUserLocale);
    if (m_strDateSplitor.empty())
        m_strDateSplitor = kDateSeparator;
    return m_strDateSplitor;
}

std::string IBPDateTime::GetSystemTimeSplitor()
{
    if (m_strTimeSplitor.empty())
        m_strTimeSplitor =
            _GetSystemLocaleInfo(lumqt::platform::LocaleTimeSeparator, lumqt::platform::kUserLocale);
    if (m_strTimeSplitor.empty())
        m_strTimeSplitor = kTimeSeparator;
    return m_strTimeSplitor;
}

std::string IBPDateTime::GetStringDateFormat()
{
    GetSystemDateFormat();
    return m_strDate;
}

std::string IBPDateTime::GetStringTimeFormat(bool bWithSecond)
{
    GetSystemTimeFormat();
    std::string text = m_strTime;
    const char seconds[] = ":ss";
    const size_t at = text.find(seconds);
    if (!bWithSecond && at != std::string::npos)
        text.erase(at, sizeof seconds - 1);
    return text;
}

int IBPDateTime::GetSystemYearCounts()
{
    return m_iYearCounts;
}

int IBPDateTime::GetSystemMonthCounts()
{
    return m_iMonthCounts;
}

int IBPDateTime::GetSystemDayCounts()
{
    return m_iDayCounts;
}

int IBPDateTime::GetSystemHourCounts()
{
    return m_iHourCounts;
}

int IBPDateTime::GetSystemMinCounts()
{
    return m_iMinCounts;
}

int IBPDateTime::GetSystemSecCounts()
{
    return m_iSecCounts;
}

void IBPDateTime::SetUseSystemFormat(bool bUse)
{
    m_bUseSystemFormat = bUse;
}

bool IBPDateTime::GetUseSystemFormat()
{
    return m_bUseSystemFormat;
}
