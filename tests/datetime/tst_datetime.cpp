#include "IBPDateTime.h"
#include "platform/Platform.h"
#include "TestMain.h"

#include <climits>
#include <tuple>

#if defined(Q_OS_WIN)
#include <windows.h>
#else
#include "platform/generic/LocaleTexts.h"

#include <QLocale>

#include <time.h>
#endif

namespace {

// Each test is a new process as far as the class can tell.
class Settings : public IBPDateTime
{
public:
    using IBPDateTime::_GetSystemLocaleInfo;
    using IBPDateTime::ConcatenateToString;
    using IBPDateTime::SeparateStringToInt;

    static void forget()
    {
        auto all = std::tie(m_bUseSystemFormat, m_dateFormat, m_timeFormat, m_iYearCounts, m_iMonthCounts,
                            m_iDayCounts, m_iHourCounts, m_iMinCounts, m_iSecCounts, m_strDate,
                            m_strDateSplitor, m_strTime, m_strTimeSplitor);
        static const auto atFirst =
            std::apply([](auto... values) { return std::make_tuple(values...); }, all);
        all = atFirst;
    }
};

// Sets the regional settings.
void live(const QString &date, const QString &time, const QString &dateSeparator,
          const QString &timeSeparator)
{
    const QHash<unsigned long, QString> texts{
        {0x1D, dateSeparator}, {0x1E, timeSeparator}, {0x1F, date}, {0x1003, time}};
    lumqt::platform::answers().localeInfo = [texts](unsigned long type, unsigned long locale) {
        return locale == 0x400 ? texts.value(type) : QString();
    };
}

QString shown(const _BPDateTime &dt)
{
    return QString::asprintf("%d-%d-%d %d:%d:%d (%d)", dt.wYear, dt.wMonth, dt.wDay, dt.wHour, dt.wMinute,
                             dt.wSecond, dt.wDayOfWeek);
}

constexpr quint64 kFileTimeOf1970 = 116444736000000000;

// Today.
int secondsAheadOfUtc()
{
#if defined(Q_OS_WIN)
    // Not of the C library, which has a zone of its own where TZ is set.
    TIME_ZONE_INFORMATION zone = {};
    const bool summer = GetTimeZoneInformation(&zone) == TIME_ZONE_ID_DAYLIGHT;
    return -60 * int(zone.Bias + (summer ? zone.DaylightBias : zone.StandardBias));
#else
    return QDateTime::currentDateTime().offsetFromUtc();
#endif
}

QString text(const std::string &utf8)
{
    return QString::fromStdString(utf8);
}

} // namespace

class TestDateTime : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        m_system = lumqt::platform::answers().localeInfo;
        QVERIFY(IBPDateTime::GetSystemMinCounts() == 2 &&
                IBPDateTime::GetSystemSecCounts() == 2); // from the start
    }

    void init()
    {
        Settings::forget();
        live("yyyy-MM-dd", "HH:mm:ss", "-", ":");
    }

    void cleanup()
    {
        lumqt::platform::answers().localeInfo = m_system;
        Settings::forget();
    }

    void dateFormats()
    {
        // Pattern; format, normalised pattern, counts. All others are read as the sixth.
        const std::pair<QString, QString> rows[] = {
            {"yy/M/d", "1 yy-M-d 2 1 1"},         {"yy-MM-dd", "2 yy-MM-dd 2 2 2"},
            {"yyyy/M/d", "3 yyyy-M-d 4 1 1"},     {"yyyy.MM.d", "4 yyyy-MM-d 4 2 1"},
            {"yyyy-MM-dd", "5 yyyy-MM-dd 4 2 2"}, {"M/d/yyyy", "6 M-d-yyyy 4 1 1"},
            {"M/d/yy", "7 M-d-yy 2 1 1"},         {"MM dd yyyy", "8 MM-dd-yyyy 4 2 2"},
            {"d.MM.yyyy", "9 d-MM-yyyy 4 2 1"},   {"d/M/yy", "10 d-M-yy 2 1 1"},
            {"dd.MM.yy", "11 dd-MM-yy 2 2 2"},    {"dd.MM.yyyy", "12 dd-MM-yyyy 4 2 2"},
            {"d/M/yyyy", "6 M-D-YYYY 4 1 1"},     {"M\u6708d", "6 M-D-YYYY 4 1 1"}};
        for (const auto &[pattern, expected] : rows) {
            Settings::forget();
            live(pattern, QString(), "/", QString());
            const int format = IBPDateTime::GetSystemDateFormat();
            QCOMPARE(QString("%1 %2 %3 %4 %5")
                         .arg(format)
                         .arg(text(IBPDateTime::GetStringDateFormat()))
                         .arg(IBPDateTime::GetSystemYearCounts())
                         .arg(IBPDateTime::GetSystemMonthCounts())
                         .arg(IBPDateTime::GetSystemDayCounts()),
                     expected);
            // The seventh of March 2024, by year, by month or by day first.
            const QString year = IBPDateTime::GetSystemYearCounts() == 2 ? "24" : "2024";
            const QString date = format < 6 ? "%1/03/07" : format < 9 ? "03/07/%1" : "07/03/%1";
            std::string written;
            QVERIFY(IBPDateTime::TransSystemDateToString({2024, 3, 7, 0, 0, 0, 0}, written));
            QCOMPARE(text(written), date.arg(year));
            _BPDateTime read;
            Settings::forget(); // reading alone finds out the order, too
            QVERIFY(IBPDateTime::TransSystemDateFromString(read, written));
            QCOMPARE(read.wYear % 100 * 10000 + read.wMonth * 100 + read.wDay, 240307);
        }
    }

    void timeFormats()
    {
        // Pattern; format, letters of the hour, pattern with seconds.
        const std::pair<QString, QString> rows[] = {
            {"tt h:mm:ss", "1 1 tt h:mm:ss"},   {"H.mm.ss", "2 1 H:mm:ss"},
            {"tt hh-mm-ss", "3 2 tt hh:mm:ss"}, {"HH:mm:ss", "4 2 HH:mm:ss"},
            {"h:mm:ss tt", "5 1 h:mm:ss tt"},   {"hh:mm:ss tt", "6 2 hh:mm:ss tt"},
            {"HH'h'mm", "1 1 h:mm:ss tt"},      {"h:mm\u00a0tt", "1 1 h:mm:ss tt"}};
        for (const auto &[pattern, expected] : rows) {
            Settings::forget();
            live(QString(), pattern, QString(), QString());
            const QString withoutSeconds = text(IBPDateTime::GetStringTimeFormat(false));
            const QString whole = text(IBPDateTime::GetStringTimeFormat(true));
            QCOMPARE(QString("%1 %2 ")
                             .arg(IBPDateTime::GetSystemTimeFormat())
                             .arg(IBPDateTime::GetSystemHourCounts()) +
                         whole,
                     expected);
            QCOMPARE(withoutSeconds, QString(whole).remove(":ss"));
            // Whatever the format, with the separator that stands for a missing one.
            std::string written;
            QVERIFY(IBPDateTime::TransSystemTimeToString({0, 0, 0, 23, 5, 9, 0}, written, true));
            QCOMPARE(written + IBPDateTime::GetSystemDateSplitor(), std::string("23:05:09/"));
        }
    }

    // A change of the settings shows in the next process only.
    void readOnce()
    {
        QCOMPARE(IBPDateTime::GetSystemYearCounts() + IBPDateTime::GetSystemMonthCounts() +
                     IBPDateTime::GetSystemDayCounts() + IBPDateTime::GetSystemHourCounts(),
                 4 + 1 + 1 + 1);
        IBPDateTime::GetSystemDateFormat();
        IBPDateTime::GetSystemTimeFormat();
        IBPDateTime::GetSystemDateSplitor();
        IBPDateTime::GetSystemTimeSplitor();
        live("dd.MM.yy", "h:mm:ss tt", "!", "!");
        QCOMPARE(int(IBPDateTime::GetSystemDateFormat()), 5);
        QCOMPARE(int(IBPDateTime::GetSystemTimeFormat()), 4);
        QCOMPARE(IBPDateTime::GetSystemDateSplitor() + IBPDateTime::GetSystemTimeSplitor(),
                 std::string("-:"));
        QVERIFY(IBPDateTime::GetUseSystemFormat());
        IBPDateTime::SetUseSystemFormat(false);
        QVERIFY(!IBPDateTime::GetUseSystemFormat());
        // What is found out on the way comes too late for the year.
        Settings::forget();
        live("dd.MM.yy", QString(), ".", QString());
        for (const char *expected : {"07.03.2024", "07.03.24"}) {
            std::string written;
            QVERIFY(IBPDateTime::TransSystemDateToString({2024, 3, 7, 0, 0, 0, 0}, written));
            QCOMPARE(written, std::string(expected));
        }
    }

    void dateToText()
    {
        // What has no text is refused.
        const std::tuple<_BPDateTime, std::string, std::string> rows[] = {
            {{2024, 0, 1}, "", ""},
            {{2024, 13, 1}, "", ""},
            {{2024, 1, 0}, "", ""},
            {{2024, 1, 32}, "", ""},
            {{2023, 2, 31}, "", "2023-02-31"},
            {{0, 1, 1}, "", "0000-01-01"},
            {{65535, 12, 31}, "", "65535-12-31"},
            {{24, 3, 7}, "\u5e74", "0024\u5e7403\u5e7407"}};
        for (const auto &[date, separator, text] : rows) {
            std::string written = "as it was";
            QCOMPARE(IBPDateTime::TransSystemDateToString(date, written, separator), !text.empty());
            QCOMPARE(written, text.empty() ? "as it was" : text);
        }
    }

    void textToDate()
    {
        // Year, month, day, day of the week.
        const std::pair<std::string, QString> rows[] = {
            {"2024-02-29", "2024 2 29 4"},   {"2024\u5e743\u67087", "2024 3 7 4"},
            {"2024-02-30", "2024 2 30 9"},   {std::string("24\0003\0007", 6), "24 3 7 4"},
            {"2024-03-10", "2024 3 10 7"},   {"65536-4294967297-1", "65535 65535 1 9"},
            {"-5 -6 +2024 ", "5 6 2024 9"},  {"2147483647 2147483648 1", "65535 65535 1 9"},
            {"x12y3z2024", "12 3 2024 9"},   {"99999999999-1-1", "65535 1 1 2"},
            {"65535-12-31", "65535 12 31 2"}};
        _BPDateTime dt;
        for (const auto &[text, fields] : rows) {
            dt = {1, 2, 3, 4, 5, 6, 9};
            QVERIFY(IBPDateTime::TransSystemDateFromString(dt, text));
            QCOMPARE(QString::asprintf("%d %d %d %d", dt.wYear, dt.wMonth, dt.wDay, dt.wDayOfWeek), fields);
            QVERIFY(dt.wHour == 4 && dt.wMinute == 5 && dt.wSecond == 6);
        }
        dt = {1, 2, 3, 4, 5, 6, 9};
        for (const char *refused : {"", "1/2", "1/2/3/4", "\uff11-\uff12-\uff13"}) // digits of another script
            QVERIFY2(!IBPDateTime::TransSystemDateFromString(dt, refused), refused);
        QCOMPARE(shown(dt), QString("1-2-3 4:5:6 (9)"));
    }

    void timeToText()
    {
        // What has no text is refused.
        const std::tuple<_BPDateTime, bool, std::string, std::string> rows[] = {
            {{0, 0, 0, 23, 5, 9}, true, "", "23:05:09"},
            {{0, 0, 0, 23, 5, 9}, false, "", "23:05"},
            {{}, true, " h ", "00 h 00 h 00"},
            {{0, 0, 0, 23, 59, 59}, true, "\u00b7", "23\u00b759\u00b759"},
            {{0, 0, 0, 24, 0, 0}, true, "", ""},
            {{0, 0, 0, 0, 60, 0}, true, "", ""},
            {{0, 0, 0, 0, 0, 60}, false, "", ""}};
        for (const auto &[time, withSecond, separator, text] : rows) {
            std::string written = "as it was";
            QCOMPARE(IBPDateTime::TransSystemTimeToString(time, written, withSecond, separator),
                     !text.empty());
            QCOMPARE(written, text.empty() ? "as it was" : text);
        }
    }

    void textToTime()
    {
        // Those of which nothing is taken are texts of times, too.
        const char *const rows[][2] = {
            {"23:59:59", "23 59 59"},    {"12:30:00 AM", "0 30 0"},   {"12:30:00 PM", "12 30 0"},
            {"PM 3.15.7", "15 15 7"},    {"11:59:59PM", "23 59 59"},  {"3:15:00 pm", "3 15 0"},
            {"AM 3:15:00 PM", "3 15 0"}, {"PM 3:15:00 AM", "3 15 0"}, {"00:30:00 PM", "7 8 9"},
            {"00:30:00 AM", "7 8 9"},    {"13:00:00 PM", "7 8 9"},    {"14:00:00 AM", "7 8 9"},
            {"25:00:00", "7 8 9"},       {"24:00:00", "7 8 9"},       {"0:60:0", "7 8 9"},
            {"0:0:60", "7 8 9"},         {"4294967297:0:0", "7 8 9"}};
        for (const auto &row : rows) {
            _BPDateTime dt{1, 2, 3, 7, 8, 9, 5};
            QVERIFY2(IBPDateTime::TransSystemTimeFromString(dt, row[0]), row[0]);
            QCOMPARE(QString::asprintf("%d %d %d", dt.wHour, dt.wMinute, dt.wSecond), QString(row[1]));
            QVERIFY(dt.wYear == 1 && dt.wMonth == 2 && dt.wDay == 3 && dt.wDayOfWeek == 5);
        }
        const _BPDateTime before{1, 2, 3, 7, 8, 9, 5};
        _BPDateTime dt = before;
        for (const char *refused : {"12:30 AM", "1:2:3:4", "AM", ""})
            QVERIFY2(!IBPDateTime::TransSystemTimeFromString(dt, refused), refused);
        QCOMPARE(shown(dt), shown(before));
    }

    void combined()
    {
        const std::pair<quint16, std::string> rows[] = {
            {0, "AM 12:30 00:30"},  {1, "AM 01:30 01:30"},  {11, "AM 11:30 11:30"}, {12, "PM 12:30 00:30"},
            {13, "PM 01:30 00:30"}, {23, "PM 11:30 00:30"}, {24, "AM 00:30 00:30"}};
        for (const auto &[hour, texts] : rows) {
            const _BPDateTime dt{2024, 3, 7, hour, 30, 9, 0};
            QCOMPARE(IBPDateTime::CombinTime(dt, true) + ' ' + IBPDateTime::CombinTime(dt, false), texts);
        }
        unsigned hour = 99;
        bool pm = true;
        for (const unsigned wrong : {24u, UINT_MAX})
            QVERIFY(!IBPDateTime::TrasmitTimeHour24To12(wrong, hour, pm));
        for (const unsigned wrong : {0u, 13u, UINT_MAX})
            QVERIFY(!IBPDateTime::TrasmitTimeHour12To24(wrong, hour, true));
        QVERIFY(hour == 99 && pm);
        QVERIFY(IBPDateTime::TrasmitTimeHour24To12(0, hour, pm) && hour == 12 && !pm);
        const _BPDateTime date{2024, 3, 7, 0, 0, 0, 0};
        QCOMPARE(IBPDateTime::CombinDate(date) + IBPDateTime::CombinDate(date, " of "),
                 std::string("03-0703 of 07"));
    }

    void comparison()
    {
        const _BPDateTime base{2024, 9, 9, 9, 9, 9, 7};
        const _BPDateTime later[] = {{2025, 1, 1, 0, 0, 0, 0},  {2024, 10, 1, 0, 0, 0, 0},
                                     {2024, 9, 10, 0, 0, 0, 0}, {2024, 9, 9, 10, 0, 0, 0},
                                     {2024, 9, 9, 9, 10, 0, 0}, {2024, 9, 9, 9, 9, 10, 0}};
        for (const _BPDateTime &dt : later) {
            QVERIFY(IBPDateTime::CompareDateTime(base, dt) < 0);
            QVERIFY(IBPDateTime::CompareDateTime(dt, base) > 0);
        }
        QCOMPARE(IBPDateTime::CompareDateTime(base, {2024, 9, 9, 9, 9, 9, 1}), 0);
        QCOMPARE(IBPDateTime::TranDateTimeToString({2024, 3, 7, 15, 5, 9, 4}), std::string("20240307150509"));
        QCOMPARE(IBPDateTime::TranDateTimeToString({65535, 65535, 65535, 65535, 65535, 65535, 65535}),
                 std::string("655356553565535655356553565535"));
    }

    void parts()
    {
        const char *const end = nullptr;
        QCOMPARE(Settings::ConcatenateToString("a", "", "bc", end), std::string("abc"));
        std::vector<int> numbers{1}; // what was there stays
        bool noMarker = true;
        bool am = true;
        QVERIFY(Settings::SeparateStringToInt("2 PM", numbers, noMarker, am) && !noMarker && !am);
        am = true;
        QVERIFY(Settings::SeparateStringToInt("x", numbers, noMarker, am) && noMarker && am);
        QCOMPARE(numbers, (std::vector<int>{1, 2}));
    }

    void fileTime()
    {
        // Seconds from 1970: that, 1900-03-01, a leap day, winter and summer, the end of the year 9999.
        QVector<quint64> times{0, 9999999, 7 * 864000000000ULL, LLONG_MAX, 1ULL << 63, ~0ULL};
        for (const qint64 seconds :
             {0LL, -25508LL * 86400, 951825599LL, 1705325709LL, 1721050509LL, 253402300799LL})
            times << kFileTimeOf1970 + quint64(seconds * 10000000);
        times << times.last() + 9999999;
#if defined(Q_OS_WIN)
        const QByteArrayList zones{"the system's"}; // another one would be another process
#else
        // Summer time somewhere all year round, so that today's offset is not that of some of the dates.
        const QByteArrayList zones{"UTC0", "AAA-1BBB,M3.5.0,M10.5.0/3", "AAA+5:30",
                                   "AAA-10BBB,M10.1.0,M4.1.0/3"};
        const QByteArray zoneBefore = qgetenv("TZ");
        const auto putBack = qScopeGuard([&] {
            zoneBefore.isNull() ? qunsetenv("TZ") : qputenv("TZ", zoneBefore);
            tzset();
        });
#endif
        for (const QByteArray &zone : zones) {
#if !defined(Q_OS_WIN)
            qputenv("TZ", zone);
            tzset();
#endif
            const int ahead = secondsAheadOfUtc();
            for (const quint64 ticks : times) {
                const quint64 local = ticks + quint64(qint64(ahead)) * 10000000;
                const QDateTime time =
                    QDateTime(QDate(1601, 1, 1), QTime(0, 0), Qt::UTC).addSecs(qint64(local / 10000000));
                QString expected = shown({});
                if (ticks != 0 && local <= quint64(LLONG_MAX))
                    expected = QString("%1-%2 (%3)")
                                   .arg(time.date().year()) // of five digits, too
                                   .arg(time.toString("M-d H:m:s"))
                                   .arg(time.date().dayOfWeek() % 7);
                QVERIFY2(shown(IBPDateTime::Tran64SecToBPDateTime(ticks)) == expected,
                         zone + ", " + QByteArray::number(ticks));
            }
        }
    }

    void clock()
    {
        _BPDateTime now{0, 0, 0, 0, 0, 0, 9};
        // Broken down by the C library, as the clock is.
        const auto qtNow = [] { return QDateTime::fromMSecsSinceEpoch(QDateTime::currentMSecsSinceEpoch()); };
        const QDateTime before = qtNow();
        IBPDateTime::GetSystemTime(&now);
        const QDateTime after = qtNow();
        const QDateTime read(QDate(now.wYear, now.wMonth, now.wDay),
                             QTime(now.wHour, now.wMinute, now.wSecond));
        QVERIFY2(before.addSecs(-1) < read && read <= after, qPrintable(read.toString(Qt::ISODate)));
        QCOMPARE(now.wDayOfWeek, quint16(9));
        IBPDateTime::GetSystemTime(nullptr);
    }

    void systemsOwn()
    {
        lumqt::platform::answers().localeInfo = m_system;
#if defined(Q_OS_WIN)
        for (const unsigned long type : {0x1DUL, 0x1EUL, 0x1FUL, 0x1003UL, 0x59UL}) {
            wchar_t text[256] = {};
            QVERIFY(GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text, 256) > 1);
            QCOMPARE(QString::fromStdString(Settings::_GetSystemLocaleInfo(type, 0x400)),
                     QString::fromWCharArray(text));
        }
        QVERIFY(Settings::_GetSystemLocaleInfo(0xFFFF, 0x400).empty());
#else
        // Date separator, time separator, date, time.
        const std::pair<QString, QString> rows[] = {
            {"C", "/|:|MM/dd/yyyy|HH:mm:ss"},     {"ar_EG", "/|:|d/M/yyyy|h:mm:ss tt"},
            {"da_DK", ".|.|dd.MM.yyyy|HH.mm.ss"}, {"dz_BT", "-|:|yyyy-MM-dd|h:mm:ss tt"},
            {"bg_BG", ".|:|d.MM.yy|H:mm:ss"},     {"zh_TW", "/|:|yyyy/M/d|tt h:mm:ss"},
            {"en_US", "/|:|M/d/yy|h:mm:ss tt"},   {"ko_KR", ". |:|yy. M. d.|tt h:mm:ss"},
            {"he_IL", ".|:|d.M.yyyy|H:mm:ss"},    {"hu_HU", ". |:|yyyy. MM. dd.|H:mm:ss"},
            {"fa_IR", "/|:|yyyy/M/d|H:mm:ss"},    {"fr_CA", "-|:|yyyy-MM-dd|HH:mm:ss"}};
        const auto textsOf = [](const QLocale &locale) {
            QStringList texts;
            for (const unsigned long type : {0x1DUL, 0x1EUL, 0x1FUL, 0x1003UL})
                texts << lumqt::platform::localeText(locale, type);
            return texts;
        };
        for (const auto &[locale, texts] : rows)
            QCOMPARE(textsOf(QLocale(locale)).join('|'), texts);
        // None falls back to a clock of twelve hours that it does not have.
        const QRegularExpression known("^(tt hh?|HH?)[:.]mm[:.]ss$|^hh?[:.]mm[:.]ss tt$");
        const QRegularExpression numbers("^(d+|M+|y+)[^a-zA-Z]+(d+|M+|y+)[^a-zA-Z]+(d+|M+|y+)\\W*$");
        const auto all =
            QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry);
        for (const QLocale &locale : all)
            QVERIFY2(known.match(textsOf(locale).last()).hasMatch() &&
                         numbers.match(textsOf(locale).at(2)).hasMatch(),
                     qPrintable(locale.name() + ": " + textsOf(locale).join('|')));
        QVERIFY(!Settings::_GetSystemLocaleInfo(0x1F, 0x400).empty());
        QVERIFY(Settings::_GetSystemLocaleInfo(0x59, 0x400).empty());
        // What else stands in for Windows' answers.
        const auto &system = lumqt::platform::answers();
        QCOMPARE(QSize(system.frameWidth(nullptr), system.captionHeight(nullptr)), QSize(4, 19));
        QCOMPARE(system.workArea(), QGuiApplication::primaryScreen()->availableGeometry());
        QVERIFY(system.composited() || QGuiApplication::platformName() == "xcb");
        const QTemporaryDir folder;
        QSettings::setPath(QSettings::NativeFormat, QSettings::SystemScope, folder.path());
        QCOMPARE(system.interfaceLanguage(), QString("English"));
        QSettings(QSettings::SystemScope, "TALVEX", "Lumora").setValue("Language", "Polski");
        QCOMPARE(system.interfaceLanguage(), QString("Polski"));
#endif
    }

private:
    std::function<QString(unsigned long, unsigned long)> m_system;
};

LUMQT_TEST_MAIN(TestDateTime)
#include "tst_datetime.moc"
