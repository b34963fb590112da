#include "datetime/RegionalSettings.h"
#include "TestMain.h"

#include <QDate>

#include <climits>

namespace {

const Region kIso{"yyyy-MM-dd", "HH:mm:ss", "-", ":"};

} // namespace

class TestDateTime : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_system = lumqt::platform::answers().localeInfo; }

    void init()
    {
        Settings::forget();
        live(kIso);
    }

    void cleanup()
    {
        lumqt::platform::answers().localeInfo = m_system;
        Settings::forget();
    }

    void dateFormats_data();
    void dateFormats();
    void timeFormats_data();
    void timeFormats();
    void readOnce();
    void firstYearHasFourDigits();
    void dateToText_data();
    void dateToText();
    void textToDate_data();
    void textToDate();
    void timeToText_data();
    void timeToText();
    void textToTime_data();
    void textToTime();
    void hours();
    void combined_data();
    void combined();
    void compact();
    void comparison();
    void parts();

private:
    std::function<QString(unsigned long, unsigned long)> m_system;
};

void TestDateTime::dateFormats_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QStringList>("expected"); // format, pattern, counts, the seventh of March 2024
    const struct
    {
        const char *pattern;
        int format;
        const char *normalised;
        const char *counts;
        const char *text;
    } rows[] = {
        {"yy/M/d", 1, "yy-M-d", "2 1 1", "24/03/07"},
        {"yy-MM-dd", 2, "yy-MM-dd", "2 2 2", "24/03/07"},
        {"yyyy/M/d", 3, "yyyy-M-d", "4 1 1", "2024/03/07"},
        {"yyyy.MM.d", 4, "yyyy-MM-d", "4 2 1", "2024/03/07"},
        {"yyyy-MM-dd", 5, "yyyy-MM-dd", "4 2 2", "2024/03/07"},
        {"M/d/yyyy", 6, "M-d-yyyy", "4 1 1", "03/07/2024"},
        {"M/d/yy", 7, "M-d-yy", "2 1 1", "03/07/24"},
        {"MM dd yyyy", 8, "MM-dd-yyyy", "4 2 2", "03/07/2024"},
        {"d.MM.yyyy", 9, "d-MM-yyyy", "4 2 1", "07/03/2024"},
        {"d/M/yy", 10, "d-M-yy", "2 1 1", "07/03/24"},
        {"dd.MM.yy", 11, "dd-MM-yy", "2 2 2", "07/03/24"},
        {"dd.MM.yyyy", 12, "dd-MM-yyyy", "4 2 2", "07/03/2024"},
        {"d/M/yyyy", 6, "M-D-YYYY", "4 1 1", "03/07/2024"},
        {"YYYY-MM-DD", 6, "M-D-YYYY", "4 1 1", "03/07/2024"},
        {"dd. MM. yyyy", 6, "M-D-YYYY", "4 1 1", "03/07/2024"},
        {"yyyy\xE5\xB9\xB4M\xE6\x9C\x88"
         "d\xE6\x97\xA5",
         6, "M-D-YYYY", "4 1 1", "03/07/2024"},
        {"", 6, "M-D-YYYY", "4 1 1", "03/07/2024"},
    };
    for (const auto &row : rows)
        QTest::addRow("%s", row.pattern)
            << QString::fromUtf8(row.pattern)
            << QStringList{QString::number(row.format), row.normalised, row.counts, row.text};
}

void TestDateTime::dateFormats()
{
    QFETCH(QString, pattern);
    QFETCH(QStringList, expected);
    live({pattern, QString(), "/", QString()});
    QStringList got{QString::number(IBPDateTime::GetSystemDateFormat()),
                    QString::fromStdString(IBPDateTime::GetStringDateFormat())};
    got << QString("%1 %2 %3")
               .arg(IBPDateTime::GetSystemYearCounts())
               .arg(IBPDateTime::GetSystemMonthCounts())
               .arg(IBPDateTime::GetSystemDayCounts());
    std::string written;
    QVERIFY(IBPDateTime::TransSystemDateToString({2024, 3, 7, 0, 0, 0, 0}, written));
    got << QString::fromStdString(written);
    QCOMPARE(got, expected);
    _BPDateTime read;
    Settings::forget(); // reading alone finds out the order, too
    QVERIFY(IBPDateTime::TransSystemDateFromString(read, written));
    QCOMPARE(read.wYear % 100 * 10000 + read.wMonth * 100 + read.wDay, 240307);
}

void TestDateTime::timeFormats_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QStringList>("expected"); // format, letters of the hour, pattern, without seconds
    const struct
    {
        const char *pattern;
        int format;
        int hourCount;
        const char *normalised;
        const char *withoutSecond;
    } rows[] = {
        {"tt h:mm:ss", 1, 1, "tt h:mm:ss", "tt h:mm"},
        {"H.mm.ss", 2, 1, "H:mm:ss", "H:mm"},
        {"tt hh-mm-ss", 3, 2, "tt hh:mm:ss", "tt hh:mm"},
        {"HH:mm:ss", 4, 2, "HH:mm:ss", "HH:mm"},
        {"h:mm:ss tt", 5, 1, "h:mm:ss tt", "h:mm tt"},
        {"hh:mm:ss tt", 6, 2, "hh:mm:ss tt", "hh:mm tt"},
        {"HH'h'mm", 1, 1, "h:mm:ss tt", "h:mm tt"},
        {"h:mm:ss\xC2\xA0tt", 1, 1, "h:mm:ss tt", "h:mm tt"},
        {"", 1, 1, "h:mm:ss tt", "h:mm tt"},
    };
    for (const auto &row : rows)
        QTest::addRow("%s", row.pattern)
            << QString::fromUtf8(row.pattern)
            << QStringList{QString::number(row.format), QString::number(row.hourCount), row.normalised,
                           row.withoutSecond};
}

void TestDateTime::timeFormats()
{
    QFETCH(QString, pattern);
    live({QString(), pattern, QString(), QString()});
    const QString shortPattern = QString::fromStdString(IBPDateTime::GetStringTimeFormat(false));
    QTEST((QStringList{QString::number(IBPDateTime::GetSystemTimeFormat()),
                       QString::number(IBPDateTime::GetSystemHourCounts()),
                       QString::fromStdString(IBPDateTime::GetStringTimeFormat(true)), shortPattern}),
          "expected");
    // Whatever the format, with the separator that stands for a missing one.
    std::string text;
    QVERIFY(IBPDateTime::TransSystemTimeToString({0, 0, 0, 23, 5, 9, 0}, text, true));
    QCOMPARE(text, std::string("23:05:09"));
    QCOMPARE(IBPDateTime::GetSystemDateSplitor(), std::string("/"));
}

// A change of the settings shows in the next process only.
void TestDateTime::readOnce()
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
    QCOMPARE(IBPDateTime::GetSystemDateSplitor() + IBPDateTime::GetSystemTimeSplitor(), std::string("-:"));
    QVERIFY(IBPDateTime::GetUseSystemFormat());
    IBPDateTime::SetUseSystemFormat(false);
    QVERIFY(!IBPDateTime::GetUseSystemFormat());
}

void TestDateTime::firstYearHasFourDigits()
{
    live({"dd.MM.yy", QString(), ".", QString()});
    std::string text;
    QVERIFY(IBPDateTime::TransSystemDateToString({2024, 3, 7, 0, 0, 0, 0}, text));
    QCOMPARE(text, std::string("07.03.2024"));
    QVERIFY(IBPDateTime::TransSystemDateToString({2004, 3, 7, 0, 0, 0, 0}, text));
    QCOMPARE(text, std::string("07.03.04"));
}

void TestDateTime::dateToText_data()
{
    QTest::addColumn<QVector<int>>("date");
    QTest::addColumn<QByteArray>("separator");
    QTest::addColumn<QByteArray>("text"); // null: refused
    QTest::newRow("no month") << QVector<int>{2024, 0, 1} << QByteArray() << QByteArray();
    QTest::newRow("month 13") << QVector<int>{2024, 13, 1} << QByteArray() << QByteArray();
    QTest::newRow("no day") << QVector<int>{2024, 1, 0} << QByteArray() << QByteArray();
    QTest::newRow("day 32") << QVector<int>{2024, 1, 32} << QByteArray() << QByteArray();
    QTest::newRow("largest") << QVector<int>{65535, 65535, 65535} << QByteArray() << QByteArray();
    QTest::newRow("February 31") << QVector<int>{2023, 2, 31} << QByteArray() << QByteArray("2023-02-31");
    QTest::newRow("year 0") << QVector<int>{0, 1, 1} << QByteArray() << QByteArray("0000-01-01");
    QTest::newRow("year 65535") << QVector<int>{65535, 12, 31} << QByteArray() << QByteArray("65535-12-31");
    QTest::newRow("three bytes") << QVector<int>{2024, 3, 7} << QByteArray("\xE5\xB9\xB4")
                                 << QByteArray("2024\xE5\xB9\xB4"
                                               "03\xE5\xB9\xB4"
                                               "07");
    QTest::newRow("a NUL byte") << QVector<int>{2024, 3, 7} << QByteArray("a\0b", 3)
                                << QByteArray("2024a\0b03a\0b07", 14);
}

void TestDateTime::dateToText()
{
    QFETCH(QVector<int>, date);
    QFETCH(QByteArray, separator);
    QFETCH(QByteArray, text);
    std::string written = "as it was";
    const bool done = IBPDateTime::TransSystemDateToString(
        {quint16(date[0]), quint16(date[1]), quint16(date[2]), 0, 0, 0, 0}, written, separator.toStdString());
    QCOMPARE(done, !text.isNull());
    QCOMPARE(QByteArray::fromStdString(written), done ? text : QByteArray("as it was"));
}

void TestDateTime::textToDate_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QVector<int>>("fields"); // year, month, day, day of the week; empty: refused
    const struct
    {
        QByteArray text;
        QVector<int> fields;
    } rows[] = {
        {"2024-02-29", {2024, 2, 29, 4}},
        {"2024-02-30", {2024, 2, 30, 9}},
        {"2024-03-10", {2024, 3, 10, 7}},
        {"0-0-0", {0, 0, 0, 9}},
        {"24/3/7", {24, 3, 7, 4}},
        {"-5 -6 +7 ", {5, 6, 7, 2}},
        {"x12y3z2024", {12, 3, 2024, 9}},
        {"2024\xE5\xB9\xB4"
         "3\xE6\x9C\x88"
         "7\xE6\x97\xA5",
         {2024, 3, 7, 4}},
        {QByteArray("2024\0\0003\0007", 9), {2024, 3, 7, 4}},
        {"65535-12-31", {65535, 12, 31, QDate(65535, 12, 31).dayOfWeek()}},
        {"65536-65537-1", {65535, 65535, 1, 9}},
        {"2147483647 2147483648 99999999999999999999", {65535, 65535, 65535, 9}},
        {"", {}},
        {"2024", {}},
        {"1/2", {}},
        {"1/2/3/4", {}},
        {"\xEF\xBC\x91-\xEF\xBC\x92-\xEF\xBC\x93", {}}, // digits of another script
    };
    for (const auto &row : rows)
        QTest::addRow("\"%s\"", row.text.constData()) << row.text << row.fields;
}

void TestDateTime::textToDate()
{
    QFETCH(QByteArray, text);
    QFETCH(QVector<int>, fields);
    const _BPDateTime before{1, 2, 3, 4, 5, 6, 9};
    _BPDateTime dt = before;
    QCOMPARE(IBPDateTime::TransSystemDateFromString(dt, text.toStdString()), !fields.isEmpty());
    _BPDateTime expected = before;
    if (!fields.isEmpty())
        expected = {quint16(fields[0]), quint16(fields[1]), quint16(fields[2]), 4, 5, 6, quint16(fields[3])};
    QCOMPARE(dt, expected);
}

void TestDateTime::timeToText_data()
{
    QTest::addColumn<QVector<int>>("time");
    QTest::addColumn<bool>("withSecond");
    QTest::addColumn<QString>("separator");
    QTest::addColumn<QString>("text"); // null: refused
    QTest::newRow("seconds") << QVector<int>{23, 5, 9} << true << ""
                             << "23:05:09";
    QTest::newRow("no seconds") << QVector<int>{23, 5, 9} << false << ""
                                << "23:05";
    QTest::newRow("midnight") << QVector<int>{0, 0, 0} << true << " h "
                              << "00 h 00 h 00";
    QTest::newRow("two bytes") << QVector<int>{23, 59, 59} << true << QString(QChar(0xB7))
                               << QString::fromUtf8("23\xC2\xB7"
                                                    "59\xC2\xB7"
                                                    "59");
    QTest::newRow("24 hours") << QVector<int>{24, 0, 0} << true << "" << QString();
    QTest::newRow("60 minutes") << QVector<int>{0, 60, 0} << true << "" << QString();
    QTest::newRow("60 seconds") << QVector<int>{0, 0, 60} << false << "" << QString();
}

void TestDateTime::timeToText()
{
    QFETCH(QVector<int>, time);
    QFETCH(bool, withSecond);
    QFETCH(QString, separator);
    QFETCH(QString, text);
    std::string written = "as it was";
    const bool done = IBPDateTime::TransSystemTimeToString(
        {0, 0, 0, quint16(time[0]), quint16(time[1]), quint16(time[2]), 0}, written, withSecond,
        separator.toStdString());
    QCOMPARE(done, !text.isNull());
    QCOMPARE(QString::fromStdString(written), done ? text : QString("as it was"));
}

void TestDateTime::textToTime_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QVector<int>>("time");
    const QVector<int> before{7, 8, 9};
    const struct
    {
        const char *text;
        bool result;
        QVector<int> time;
    } rows[] = {
        {"23:59:59", true, {23, 59, 59}},
        {"12:30:00 AM", true, {0, 30, 0}},
        {"12:30:00 PM", true, {12, 30, 0}},
        {"PM 3.15.7", true, {15, 15, 7}},
        {"11:59:59PM", true, {23, 59, 59}},
        {"3:15:00 pm", true, {3, 15, 0}},
        {"AM 3:15:00 PM", true, {3, 15, 0}},
        {"PM 3:15:00 AM", true, {3, 15, 0}},
        {"00:30:00 PM", true, before},
        {"00:30:00 AM", true, before},
        {"13:00:00 PM", true, before},
        {"14:00:00 AM", true, before},
        {"25:00:00", true, before},
        {"24:00:00", true, before},
        {"0:60:0", true, before},
        {"0:0:60", true, before},
        {"4294967297:0:0", true, before},
        {"12:30 AM", false, before},
        {"1:2:3:4", false, before},
        {"AM", false, before},
        {"", false, before},
    };
    for (const auto &row : rows)
        QTest::addRow("\"%s\"", row.text) << QString(row.text) << row.result << row.time;
}

void TestDateTime::textToTime()
{
    QFETCH(QString, text);
    QFETCH(QVector<int>, time);
    _BPDateTime dt{1, 2, 3, 7, 8, 9, 5};
    QTEST(IBPDateTime::TransSystemTimeFromString(dt, text.toStdString()), "result");
    QCOMPARE(dt, (_BPDateTime{1, 2, 3, quint16(time[0]), quint16(time[1]), quint16(time[2]), 5}));
}

void TestDateTime::hours()
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

void TestDateTime::combined_data()
{
    QTest::addColumn<int>("hour");
    QTest::addColumn<QString>("of12");
    QTest::addColumn<QString>("of24");
    QTest::newRow("midnight") << 0 << "AM 12:30"
                              << "00:30";
    QTest::newRow("morning") << 9 << "AM 09:30"
                             << "09:30";
    QTest::newRow("noon") << 12 << "PM 12:30"
                          << "00:30";
    QTest::newRow("afternoon") << 15 << "PM 03:30"
                               << "00:30";
    QTest::newRow("no hour") << 24 << "AM 00:30"
                             << "00:30";
}

void TestDateTime::combined()
{
    QFETCH(int, hour);
    const _BPDateTime dt{2024, 3, 7, quint16(hour), 30, 9, 0};
    QTEST(QString::fromStdString(IBPDateTime::CombinTime(dt, true)), "of12");
    QTEST(QString::fromStdString(IBPDateTime::CombinTime(dt, false)), "of24");
    QCOMPARE(IBPDateTime::CombinDate(dt) + IBPDateTime::CombinDate(dt, " of "), std::string("03-0703 of 07"));
}

void TestDateTime::compact()
{
    QCOMPARE(IBPDateTime::TranDateTimeToString({2024, 3, 7, 15, 5, 9, 4}), std::string("20240307150509"));
    QCOMPARE(IBPDateTime::TranDateTimeToString({}), std::string(14, '0'));
    QCOMPARE(IBPDateTime::TranDateTimeToString({65535, 65535, 65535, 65535, 65535, 65535, 65535}),
             std::string("655356553565535655356553565535"));
}

void TestDateTime::comparison()
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
}

void TestDateTime::parts()
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

LUMQT_TEST_MAIN(TestDateTime)
#include "tst_datetime.moc"
