#pragma once

/// \file
/// \since 1.0

#include "LumQtGlobal.h"

#include <string>
#include <vector>

/// A date and a time of day. Nothing checks the fields until an operation of IBPDateTime does; all are 0 at
/// first. \since 1.0
struct _BPDateTime
{
    unsigned short wYear = 0;   ///< the full year, such as 2024; no century is ever added
    unsigned short wMonth = 0;  ///< 1 to 12
    unsigned short wDay = 0;    ///< 1 to 31
    unsigned short wHour = 0;   ///< 0 to 23
    unsigned short wMinute = 0; ///< 0 to 59
    unsigned short wSecond = 0; ///< 0 to 59
    /// Read from a text: 1 (Monday) to 7 (Sunday). Made of a file time: 0 (Sunday) to 6 (Saturday).
    unsigned short wDayOfWeek = 0;
};

/// The user's short date, by the pattern that it has once every character that is no letter is a "-".
/// \since 1.0
enum BPSystemDateFormat {
    BPDateFormat_None = 0, ///< not determined yet
    BPDateFormat_yy_M_d = 1,
    BPDateFormat_yy_MM_dd = 2,
    BPDateFormat_yyyy_M_d = 3,
    BPDateFormat_yyyy_MM_d = 4,
    BPDateFormat_yyyy_MM_dd = 5,
    BPDateFormat_M_d_yyyy = 6, ///< also every pattern that is not among these
    BPDateFormat_M_d_yy = 7,
    BPDateFormat_MM_dd_yyyy = 8,
    BPDateFormat_d_MM_yyyy = 9,
    BPDateFormat_d_M_yy = 10,
    BPDateFormat_dd_MM_yy = 11,
    BPDateFormat_dd_MM_yyyy = 12,
};

/// The user's time of day, by its pattern. \since 1.0
enum BPSystemTimeFormat {
    BPTimeFormat_None = 0,       ///< not determined yet
    BPTimeFormat_tt_h_mm_ss = 1, ///< also every pattern that is not among these
    BPTimeFormat_H_mm_ss = 2,
    BPTimeFormat_tt_hh_mm_ss = 3,
    BPTimeFormat_HH_mm_ss = 4,
    BPTimeFormat_h_mm_ss_tt = 5,
    BPTimeFormat_hh_mm_ss_tt = 6,
};

/// Turns dates and times into texts in the order of the user's regional settings, and back.
///
/// Outside Windows the settings are the short formats of the system's QLocale, in the notation of Windows:
/// words are left out, the time has seconds, and where there is no region the date is MM/dd/yyyy.
///
/// All operations are static. Texts are UTF-8. The settings are read once, when first needed, and kept until
/// the process ends. Nothing throws or says anything: a failure is a false result or an empty text. Where an
/// operation takes a separator, an empty one means that of the settings; it may have any length. GUI thread
/// only. \since 1.0
class LUMQT_EXPORT IBPDateTime
{
public:
    virtual ~IBPDateTime();

    /// The user's short date; BPDateFormat_M_d_yyyy where it is none of the enumeration. \since 1.0
    static BPSystemDateFormat GetSystemDateFormat();

    /// The user's time of day; BPTimeFormat_tt_h_mm_ss where it is none of the enumeration. \since 1.0
    static BPSystemTimeFormat GetSystemTimeFormat();

    /// What separates the parts of a date: "/" where the settings say nothing. \since 1.0
    static std::string GetSystemDateSplitor();

    /// What separates the parts of a time: ":" where the settings say nothing. \since 1.0
    static std::string GetSystemTimeSplitor();

    /// The pattern of the short date with "-" between its parts, such as "dd-MM-yyyy"; "M-D-YYYY" where it is
    /// none of BPSystemDateFormat. \since 1.0
    static std::string GetStringDateFormat();

    /// The pattern of the time with ":" between its parts, such as "h:mm:ss tt", or without its ":ss". That
    /// text also stands for every pattern that is none of BPSystemTimeFormat. \since 1.0
    static std::string GetStringTimeFormat(bool bWithSecond);

    /// Digits of the year, 2 or 4. The counts are those of the pattern once another operation has determined
    /// the format; until then they are 4, and 1 for month, day and hour. \since 1.0
    static int GetSystemYearCounts();

    /// Letters of the month in the pattern, 1 or 2. \since 1.0
    static int GetSystemMonthCounts();

    /// Letters of the day in the pattern, 1 or 2. \since 1.0
    static int GetSystemDayCounts();

    /// Letters of the hour in the pattern, 1 or 2. \since 1.0
    static int GetSystemHourCounts();

    /// Digits of the minute: 2. \since 1.0
    static int GetSystemMinCounts();

    /// Digits of the second: 2. \since 1.0
    static int GetSystemSecCounts();

    /// Keeps a flag for the application; nothing here depends on it. \since 1.0
    static void SetUseSystemFormat(bool bUse);

    /// The flag that was set; true at first. \since 1.0
    static bool GetUseSystemFormat();

    /// Writes the date in the user's order, such as "2024/03/07", to \a out. Month and day have two digits,
    /// the year as many as the count says: four as long as no other operation has determined the format.
    /// False, with \a out untouched, for a month outside 1 to 12 or a day outside 1 to 31; days that the
    /// month lacks, and any year, pass. \since 1.0
    static bool TransSystemDateToString(const _BPDateTime &dt, std::string &out,
                                        std::string sep = std::string());

    /// Reads three numbers in the user's order; whatever is no digit separates them. False, with \a dt
    /// untouched, when there are more or fewer. Otherwise true: the date fields hold the numbers as they are,
    /// 65535 for larger ones, also when there is no such day. Only for a valid date the day of the week is
    /// set. \since 1.0
    static bool TransSystemDateFromString(_BPDateTime &dt, const std::string &text);

    /// Writes the time of day, such as "15:05:09", to \a out: with 24 hours whatever the settings say (use
    /// CombinTime() for 12). False, with \a out untouched, for a field out of its range. \since 1.0
    static bool TransSystemTimeToString(const _BPDateTime &dt, std::string &out, bool bWithSecond,
                                        std::string sep = std::string());

    /// Reads hour, minute and second. "AM" or "PM" anywhere in the text, in capitals, makes it a time of 12
    /// hours. False when there are not three numbers. True otherwise, with \a dt untouched when there is no
    /// such time: check it before and after. \since 1.0
    static bool TransSystemTimeFromString(_BPDateTime &dt, const std::string &text);

    /// Month and day in two digits each, such as "03/07"; in this order everywhere. \since 1.0
    static std::string CombinDate(const _BPDateTime &dt, std::string sep = std::string());

    /// Hour and minute. With \a b12Hour such as "PM 03:05"; an hour above 23 is written as "AM 00". Without
    /// it only the hours 1 to 11 are written as they are; all others, 12 included, as 00. \since 1.0
    static std::string CombinTime(const _BPDateTime &dt, bool b12Hour, std::string sep = std::string());

    /// Year, month, day, hour, minute and second as one row of digits, 14 for years up to 9999. Texts of 14
    /// digits sort by time. \since 1.0
    static std::string TranDateTimeToString(const _BPDateTime &dt);

    /// Less than 0 when \a first is earlier, 0 when they are equal, more than 0 when it is later: the order
    /// of the texts of TranDateTimeToString(), which is that of time for years up to 9999 and fields in their
    /// ranges. The day of the week does not count. \since 1.0
    static int CompareDateTime(_BPDateTime first, _BPDateTime second);

    /// Fills the record with the current local time, all but the day of the week. Null is ignored. \since 1.0
    static void GetSystemTime(_BPDateTime *pDateTime);

    /// The local time of a Windows file time, which counts 100 nanoseconds since 1601 UTC; all 0 for 0 and
    /// beyond the range. The offset from UTC is today's, also for a day in the other half of the year.
    /// \since 1.0
    static _BPDateTime Tran64SecToBPDateTime(unsigned long long fileTime);

    /// False, with the outputs untouched, for an hour above 23. \since 1.0
    static bool TrasmitTimeHour24To12(unsigned int hour24, unsigned int &hour12, bool &bPM);

    /// False, with the output untouched, for an hour of 0 or above 12. \since 1.0
    static bool TrasmitTimeHour12To24(unsigned int hour12, unsigned int &hour24, bool bPM);

protected:
    /// A text of the regional settings by its Windows number (LCTYPE); empty when there is none. Where the
    /// system is not Windows only the four that this class needs exist, and \a locale does not matter.
    /// \since 1.0
    static std::string _GetSystemLocaleInfo(unsigned long lcType, unsigned long locale);

    /// Reads the short date from the settings, and sets format, pattern and counts. \since 1.0
    static void _GetSystemDateFormat();

    /// Reads the time from the settings, and sets format, pattern and counts. \since 1.0
    static void _GetSystemTimeFormat();

    /// Sets the counts of the date that the format has. \since 1.0
    static void _AnalysisDateCounts();

    /// Sets the counts of the time that the format has. \since 1.0
    static void _AnalysisTimeCounts();

    /// Joins C strings; the last argument is a null pointer of type const char *. \since 1.0
    static std::string ConcatenateToString(const char *first, ...);

    /// Appends the numbers in a text, runs of digits, to \a numbers: the largest int for longer ones. Always
    /// true. \since 1.0
    static bool SeparateStringToInt(const std::string &text, std::vector<int> &numbers);

    /// Also tells whether the text has neither "AM" nor "PM", and, if it has, whether the first of them is
    /// in it; otherwise \a bAM is left alone. \since 1.0
    static bool SeparateStringToInt(const std::string &text, std::vector<int> &numbers, bool &bNoMarker,
                                    bool &bAM);

    static bool m_bUseSystemFormat;         ///< of the application. \since 1.0
    static BPSystemDateFormat m_dateFormat; ///< \since 1.0
    static BPSystemTimeFormat m_timeFormat; ///< \since 1.0
    static int m_iYearCounts;               ///< \since 1.0
    static int m_iMonthCounts;              ///< \since 1.0
    static int m_iDayCounts;                ///< \since 1.0
    static int m_iHourCounts;               ///< \since 1.0
    static int m_iMinCounts;                ///< \since 1.0
    static int m_iSecCounts;                ///< \since 1.0
    static std::string m_strDate;           ///< normalised pattern. \since 1.0
    static std::string m_strDateSplitor;    ///< empty until asked for. \since 1.0
    static std::string m_strTime;           ///< normalised pattern. \since 1.0
    static std::string m_strTimeSplitor;    ///< empty until asked for. \since 1.0
};
