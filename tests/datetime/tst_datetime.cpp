#include "datetime/RegionalSettings.h"
#include "TestMain.h"

#include <QDate>

#include <climits>

namespace {

QString text(const std::string &utf8)
{
    return QString::fromStdString(utf8);
}

} // namespace

class TestDateTime : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_system = lumqt::platform::answers().localeInfo; }

    void init()
    {
        Settings::forget();
        live({"yyyy-MM-dd", "HH:mm:ss", "-", ":"});
    }

    void cleanup()
    {
        lumqt::platform::answers().localeInfo = m_system;
        Settings::forget();
    }

    void dateFormats()
    {
        // Pattern; format, normalised pattern, counts, the seventh of March 2024.
        const char *const rows[][2] = {{"yy/M/d", "1 yy-M-d 2 1 1 24/03/07"},
                                       {"yy-MM-dd", "2 yy-MM-dd 2 2 2 24/03/07"},
                                       {"yyyy/M/d", "3 yyyy-M-d 4 1 1 2024/03/07"},
                                       {"yyyy.MM.d", "4 yyyy-MM-d 4 2 1 2024/03/07"},
                                       {"yyyy-MM-dd", "5 yyyy-MM-dd 4 2 2 2024/03/07"},
                                       {"M/d/yyyy", "6 M-d-yyyy 4 1 1 03/07/2024"},
                                       {"M/d/yy", "7 M-d-yy 2 1 1 03/07/24"},
                                       {"MM dd yyyy", "8 MM-dd-yyyy 4 2 2 03/07/2024"},
                                       {"d.MM.yyyy", "9 d-MM-yyyy 4 2 1 07/03/2024"},
                                       {"d/M/yy", "10 d-M-yy 2 1 1 07/03/24"},
                                       {"dd.MM.yy", "11 dd-MM-yy 2 2 2 07/03/24"},
                                       {"dd.MM.yyyy", "12 dd-MM-yyyy 4 2 2 07/03/2024"},
                                       {"d/M/yyyy", "6 M-D-YYYY 4 1 1 03/07/2024"},
                                       {"YYYY-MM-DD", "6 M-D-YYYY 4 1 1 03/07/2024"},
                                       {"dd. MM. yyyy", "6 M-D-YYYY 4 1 1 03/07/2024"},
                                       {"yyyy\u5e74M\u6708d\u65e5", "6 M-D-YYYY 4 1 1 03/07/2024"},
                                       {"", "6 M-D-YYYY 4 1 1 03/07/2024"}};
        for (const auto &row : rows) {
            Settings::forget();
            live({row[0], QString(), "/", QString()});
            QStringList got{QString::number(IBPDateTime::GetSystemDateFormat()),
                            text(IBPDateTime::GetStringDateFormat())};
            for (const auto count : {&IBPDateTime::GetSystemYearCounts, &IBPDateTime::GetSystemMonthCounts,
                                     &IBPDateTime::GetSystemDayCounts})
                got << QString::number(count());
            std::string written;
            QVERIFY(IBPDateTime::TransSystemDateToString({2024, 3, 7, 0, 0, 0, 0}, written));
            got << text(written);
            QCOMPARE(got.join(' '), QString(row[1]));
            _BPDateTime read;
            Settings::forget(); // reading alone finds out the order, too
            QVERIFY(IBPDateTime::TransSystemDateFromString(read, written));
            QCOMPARE(read.wYear % 100 * 10000 + read.wMonth * 100 + read.wDay, 240307);
        }
    }

    void timeFormats()
    {
        // Pattern; format, letters of the hour, without and with seconds.
        const char *const rows[][2] = {{"tt h:mm:ss", "1 1 tt h:mm tt h:mm:ss"},
                                       {"H.mm.ss", "2 1 H:mm H:mm:ss"},
                                       {"tt hh-mm-ss", "3 2 tt hh:mm tt hh:mm:ss"},
                                       {"HH:mm:ss", "4 2 HH:mm HH:mm:ss"},
                                       {"h:mm:ss tt", "5 1 h:mm tt h:mm:ss tt"},
                                       {"hh:mm:ss tt", "6 2 hh:mm tt hh:mm:ss tt"},
                                       {"HH'h'mm", "1 1 h:mm tt h:mm:ss tt"},
                                       {"h:mm:ss\u00a0tt", "1 1 h:mm tt h:mm:ss tt"},
                                       {"", "1 1 h:mm tt h:mm:ss tt"}};
        for (const auto &row : rows) {
            Settings::forget();
            live({QString(), row[0], QString(), QString()});
            const QString shortPattern = text(IBPDateTime::GetStringTimeFormat(false));
            QCOMPARE(QString("%1 %2 %3 %4")
                         .arg(IBPDateTime::GetSystemTimeFormat())
                         .arg(IBPDateTime::GetSystemHourCounts())
                         .arg(shortPattern, text(IBPDateTime::GetStringTimeFormat(true))),
                     QString(row[1]));
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
        live({"dd.MM.yy", "h:mm:ss tt", "!", "!"});
        QCOMPARE(int(IBPDateTime::GetSystemDateFormat()), 5);
        QCOMPARE(int(IBPDateTime::GetSystemTimeFormat()), 4);
        QCOMPARE(IBPDateTime::GetSystemDateSplitor() + IBPDateTime::GetSystemTimeSplitor(),
                 std::string("-:"));
        QVERIFY(IBPDateTime::GetUseSystemFormat());
        IBPDateTime::SetUseSystemFormat(false);
        QVERIFY(!IBPDateTime::GetUseSystemFormat());
        // What is found out on the way comes too late for the year.
        Settings::forget();
        live({"dd.MM.yy", QString(), ".", QString()});
        for (const char *expected : {"07.03.2024", "07.03.24"}) {
            std::string written;
            QVERIFY(IBPDateTime::TransSystemDateToString({2024, 3, 7, 0, 0, 0, 0}, written));
            QCOMPARE(written, std::string(expected));
        }
    }

    void dateToText()
    {
        const struct
        {
            _BPDateTime date;
            std::string separator, text; // no text: refused
        } rows[] = {{{2024, 0, 1}, "", ""},
                    {{2024, 13, 1}, "", ""},
                    {{2024, 1, 0}, "", ""},
                    {{2024, 1, 32}, "", ""},
                    {{65535, 65535, 65535}, "", ""},
                    {{2023, 2, 31}, "", "2023-02-31"},
                    {{0, 1, 1}, "", "0000-01-01"},
                    {{65535, 12, 31}, "", "65535-12-31"},
                    {{2024, 3, 7}, "\u5e74", "2024\u5e7403\u5e7407"},
                    {{2024, 3, 7}, std::string("a\0b", 3), std::string("2024a\0b03a\0b07", 14)}};
        for (const auto &row : rows) {
            std::string written = "as it was";
            const bool done = IBPDateTime::TransSystemDateToString(row.date, written, row.separator);
            QCOMPARE(done, !row.text.empty());
            QCOMPARE(written, done ? row.text : "as it was");
        }
    }

    void textToDate()
    {
        const struct
        {
            QByteArray text;
            std::vector<int> fields; // year, month, day, day of the week; empty: refused
        } rows[] = {{"2024-02-29", {2024, 2, 29, 4}},
                    {"2024-02-30", {2024, 2, 30, 9}},
                    {"2024-03-10", {2024, 3, 10, 7}},
                    {"0-0-0", {0, 0, 0, 9}},
                    {"24/3/7", {24, 3, 7, 4}},
                    {"-5 -6 +7 ", {5, 6, 7, 2}},
                    {"x12y3z2024", {12, 3, 2024, 9}},
                    {"2024\u5e743\u67087\u65e5", {2024, 3, 7, 4}},
                    {QByteArray("2024\0\0003\0007", 9), {2024, 3, 7, 4}},
                    {"65535-12-31", {65535, 12, 31, QDate(65535, 12, 31).dayOfWeek()}},
                    {"65536-65537-1", {65535, 65535, 1, 9}},
                    {"2147483647 2147483648 99999999999999999999", {65535, 65535, 65535, 9}},
                    {"", {}},
                    {"2024", {}},
                    {"1/2", {}},
                    {"1/2/3/4", {}},
                    {"\uff11-\uff12-\uff13", {}}}; // digits of another script
        for (const auto &row : rows) {
            const _BPDateTime before{1, 2, 3, 4, 5, 6, 9};
            _BPDateTime dt = before;
            QVERIFY2(IBPDateTime::TransSystemDateFromString(dt, row.text.toStdString()) != row.fields.empty(),
                     row.text);
            _BPDateTime expected = before;
            if (!row.fields.empty())
                expected = {quint16(row.fields[0]), quint16(row.fields[1]), quint16(row.fields[2]), 4, 5, 6,
                            quint16(row.fields[3])};
            QCOMPARE(dt, expected);
        }
    }

    void timeToText()
    {
        const struct
        {
            _BPDateTime time;
            bool withSecond;
            const char *separator, *text; // no text: refused
        } rows[] = {{{0, 0, 0, 23, 5, 9}, true, "", "23:05:09"},
                    {{0, 0, 0, 23, 5, 9}, false, "", "23:05"},
                    {{}, true, " h ", "00 h 00 h 00"},
                    {{0, 0, 0, 23, 59, 59}, true, "\u00b7", "23\u00b759\u00b759"},
                    {{0, 0, 0, 24, 0, 0}, true, "", ""},
                    {{0, 0, 0, 0, 60, 0}, true, "", ""},
                    {{0, 0, 0, 0, 0, 60}, false, "", ""}};
        for (const auto &row : rows) {
            std::string written = "as it was";
            const bool done =
                IBPDateTime::TransSystemTimeToString(row.time, written, row.withSecond, row.separator);
            QCOMPARE(done, *row.text != '\0');
            QCOMPARE(written, std::string(done ? row.text : "as it was"));
        }
    }

    void textToTime()
    {
        const _BPDateTime before{1, 2, 3, 7, 8, 9, 5};
        const struct
        {
            const char *text;
            _BPDateTime time;
        } rows[] = {{"23:59:59", {1, 2, 3, 23, 59, 59, 5}},
                    {"12:30:00 AM", {1, 2, 3, 0, 30, 0, 5}},
                    {"12:30:00 PM", {1, 2, 3, 12, 30, 0, 5}},
                    {"PM 3.15.7", {1, 2, 3, 15, 15, 7, 5}},
                    {"11:59:59PM", {1, 2, 3, 23, 59, 59, 5}},
                    {"3:15:00 pm", {1, 2, 3, 3, 15, 0, 5}},
                    {"AM 3:15:00 PM", {1, 2, 3, 3, 15, 0, 5}},
                    {"PM 3:15:00 AM", {1, 2, 3, 3, 15, 0, 5}},
                    // Taken, but nothing changes.
                    {"00:30:00 PM", before},
                    {"00:30:00 AM", before},
                    {"13:00:00 PM", before},
                    {"14:00:00 AM", before},
                    {"25:00:00", before},
                    {"24:00:00", before},
                    {"0:60:0", before},
                    {"0:0:60", before},
                    {"4294967297:0:0", before}};
        _BPDateTime dt = before;
        for (const auto &row : rows) {
            dt = before;
            QVERIFY2(IBPDateTime::TransSystemTimeFromString(dt, row.text), row.text);
            QCOMPARE(dt, row.time);
        }
        for (const char *refused : {"12:30 AM", "1:2:3:4", "AM", ""})
            QVERIFY2(!IBPDateTime::TransSystemTimeFromString(dt, refused), refused);
        QCOMPARE(dt, before);
    }

    void hours()
    {
        for (unsigned hour = 0; hour < 24; ++hour) {
            unsigned twelve = 99;
            unsigned back = 99;
            bool pm = hour < 12;
            QVERIFY(IBPDateTime::TrasmitTimeHour24To12(hour, twelve, pm));
            QVERIFY(twelve >= 1 && twelve <= 12 && pm == (hour >= 12));
            QVERIFY(IBPDateTime::TrasmitTimeHour12To24(twelve, back, pm));
            QCOMPARE(back, hour);
        }
        unsigned hour = 99;
        bool pm = true;
        for (const unsigned wrong : {24u, UINT_MAX})
            QVERIFY(!IBPDateTime::TrasmitTimeHour24To12(wrong, hour, pm));
        for (const unsigned wrong : {0u, 13u, UINT_MAX})
            QVERIFY(!IBPDateTime::TrasmitTimeHour12To24(wrong, hour, true));
        QVERIFY(hour == 99 && pm);
    }

    void combined()
    {
        const struct
        {
            quint16 hour;
            const char *texts;
        } rows[] = {{0, "AM 12:30 00:30"},
                    {9, "AM 09:30 09:30"},
                    {12, "PM 12:30 00:30"},
                    {15, "PM 03:30 00:30"},
                    {24, "AM 00:30 00:30"}};
        for (const auto &row : rows) {
            const _BPDateTime dt{2024, 3, 7, row.hour, 30, 9, 0};
            QCOMPARE(IBPDateTime::CombinTime(dt, true) + ' ' + IBPDateTime::CombinTime(dt, false),
                     std::string(row.texts));
        }
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
        QVERIFY(Settings::ConcatenateToString(end).empty());
        std::vector<int> numbers{1};
        bool noMarker = true;
        bool am = true;
        QVERIFY(Settings::SeparateStringToInt("2 PM", numbers, noMarker, am));
        QVERIFY(!noMarker && !am);
        am = true;
        QVERIFY(Settings::SeparateStringToInt("x", numbers, noMarker, am));
        QVERIFY(noMarker && am);
        QCOMPARE(numbers, (std::vector<int>{1, 2})); // what was there stays
    }

private:
    std::function<QString(unsigned long, unsigned long)> m_system;
};

LUMQT_TEST_MAIN(TestDateTime)
#include "tst_datetime.moc"
