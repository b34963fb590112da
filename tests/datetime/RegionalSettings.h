#pragma once

#include "IBPDateTime.h"
#include "platform/Platform.h"

#include <QHash>
#include <QtTest>

#include <tuple>

inline auto tied(const _BPDateTime &dt)
{
    return std::tie(dt.wYear, dt.wMonth, dt.wDay, dt.wHour, dt.wMinute, dt.wSecond, dt.wDayOfWeek);
}

inline bool operator==(const _BPDateTime &a, const _BPDateTime &b)
{
    return tied(a) == tied(b);
}

inline char *toString(const _BPDateTime &dt)
{
    return QTest::toString(QString::asprintf("%d-%d-%d %d:%d:%d (%d)", dt.wYear, dt.wMonth, dt.wDay, dt.wHour,
                                             dt.wMinute, dt.wSecond, dt.wDayOfWeek));
}

// Each test is a new process as far as the class can tell.
class Settings : public IBPDateTime
{
public:
    using IBPDateTime::_GetSystemLocaleInfo;
    using IBPDateTime::ConcatenateToString;
    using IBPDateTime::SeparateStringToInt;

    static void forget()
    {
        m_bUseSystemFormat = true;
        m_dateFormat = BPDateFormat_None;
        m_timeFormat = BPTimeFormat_None;
        m_iYearCounts = 4;
        m_iMonthCounts = m_iDayCounts = m_iHourCounts = 1;
        m_iMinCounts = m_iSecCounts = 2;
        for (std::string *text : {&m_strDate, &m_strDateSplitor, &m_strTime, &m_strTimeSplitor})
            text->clear();
    }
};

struct Region
{
    QString date, time, dateSeparator, timeSeparator;
};

// Sets the regional settings.
inline void live(const Region &region)
{
    lumqt::platform::answers().localeInfo = [region](unsigned long type, unsigned long locale) {
        const QHash<unsigned long, QString> texts{{0x1D, region.dateSeparator},
                                                  {0x1E, region.timeSeparator},
                                                  {0x1F, region.date},
                                                  {0x1003, region.time}};
        return locale == 0x400 ? texts.value(type) : QString();
    };
}
