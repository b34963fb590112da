#include "datetime/RegionalSettings.h"
#include "TestMain.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QScopeGuard>

#include <climits>

#if defined(Q_OS_WIN)
#include <windows.h>
#else
#include "platform/generic/LocaleTexts.h"

#include <QLocale>

#include <time.h>
#endif

namespace {

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

} // namespace

// What comes from the system, and what comes from anywhere.
class TestDateTimeSystem : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_system = lumqt::platform::answers().localeInfo; }

    void init()
    {
        Settings::forget();
        live({"yyyy-MM-dd", "HH:mm:ss", "-", ":"});
    }

    void cleanup() { lumqt::platform::answers().localeInfo = m_system; }

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
                _BPDateTime expected;
                if (ticks != 0 && local <= quint64(LLONG_MAX)) {
                    const QDateTime time =
                        QDateTime(QDate(1601, 1, 1), QTime(0, 0), Qt::UTC).addSecs(qint64(local / 10000000));
                    expected = {quint16(time.date().year()),         quint16(time.date().month()),
                                quint16(time.date().day()),          quint16(time.time().hour()),
                                quint16(time.time().minute()),       quint16(time.time().second()),
                                quint16(time.date().dayOfWeek() % 7)};
                }
                if (!(IBPDateTime::Tran64SecToBPDateTime(ticks) == expected))
                    qWarning("%s, %llu", zone.constData(), ticks);
                QCOMPARE(IBPDateTime::Tran64SecToBPDateTime(ticks), expected);
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
        const struct
        {
            const char *locale, *texts;
        } rows[] = {{"C", "/|:|MM/dd/yyyy|HH:mm:ss"},       {"ar_EG", "/|:|d/M/yyyy|h:mm:ss tt"},
                    {"dz_BT", "-|:|yyyy-MM-dd|h:mm:ss tt"}, {"bg_BG", ".|:|d.MM.yy .|H:mm:ss"},
                    {"zh_CN", "/|:|yyyy/M/d|tt h:mm:ss"},   {"zh_TW", "/|:|yyyy/M/d|tt h:mm:ss"},
                    {"da_DK", ".|.|dd.MM.yyyy|HH.mm.ss"},   {"nl_NL", "-|:|dd-MM-yyyy|HH:mm:ss"},
                    {"en_US", "/|:|M/d/yy|h:mm:ss tt"},     {"en_ZA", "/|:|yyyy/MM/dd|HH:mm:ss"},
                    {"en_GB", "/|:|dd/MM/yyyy|HH:mm:ss"},   {"fi_FI", ".|.|d.M.yyyy|H.mm.ss"},
                    {"fr_FR", "/|:|dd/MM/yyyy|HH:mm:ss"},   {"fr_CA", "-|:|yyyy-MM-dd|HH:mm:ss"},
                    {"de_DE", ".|:|dd.MM.yy|HH:mm:ss"},     {"he_IL", ".|:|d.M.yyyy|H:mm:ss"},
                    {"hi_IN", "/|:|d/M/yy|h:mm:ss tt"},     {"hu_HU", ". |:|yyyy. MM. dd.|H:mm:ss"},
                    {"it_IT", "/|:|dd/MM/yy|HH:mm:ss"},     {"ja_JP", "/|:|yyyy/MM/dd|H:mm:ss"},
                    {"ko_KR", ". |:|yy. M. d.|tt h:mm:ss"}, {"fa_IR", "/|:|yyyy/M/d|H:mm:ss"},
                    {"pl_PL", ".|:|dd.MM.yyyy|HH:mm:ss"},   {"pt_BR", "/|:|dd/MM/yyyy|HH:mm:ss"},
                    {"ru_RU", ".|:|dd.MM.yyyy|HH:mm:ss"},   {"sk_SK", ". |:|d. M. yyyy|H:mm:ss"},
                    {"es_ES", "/|:|d/M/yy|H:mm:ss"},        {"sv_SE", "-|:|yyyy-MM-dd|HH:mm:ss"},
                    {"th_TH", "/|:|d/M/yy|HH:mm:ss"},       {"tr_TR", ".|:|d.MM.yyyy|HH:mm:ss"}};
        const auto textsOf = [](const QLocale &locale) {
            QStringList texts;
            for (const unsigned long type : {0x1DUL, 0x1EUL, 0x1FUL, 0x1003UL})
                texts << lumqt::platform::localeText(locale, type);
            return texts;
        };
        for (const auto &row : rows)
            QCOMPARE(textsOf(QLocale(row.locale)).join('|'), QString(row.texts));
        // None falls back to a clock of twelve hours that it does not have.
        const QRegularExpression known("^(tt hh?|HH?)[:.]mm[:.]ss$|^hh?[:.]mm[:.]ss tt$");
        const auto all =
            QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry);
        for (const QLocale &locale : all)
            QVERIFY2(known.match(textsOf(locale).last()).hasMatch(), qPrintable(locale.name()));
        QVERIFY(!Settings::_GetSystemLocaleInfo(0x1F, 0x400).empty());
        QVERIFY(Settings::_GetSystemLocaleInfo(0x59, 0x400).empty());
#endif
    }

    void longTexts()
    {
        constexpr int kLength = 1 << 22; // a run time that grows with the square would not end
        const QByteArray refused[] = {QByteArray(kLength, '7'), QByteArray("1 ").repeated(kLength / 2),
                                      QByteArray("A").repeated(kLength)};
        const auto check = [](const QByteArray &text, int day) {
            _BPDateTime dt;
            QCOMPARE(IBPDateTime::TransSystemTimeFromString(dt, text.toStdString()), day > 0);
            QCOMPARE(IBPDateTime::TransSystemDateFromString(dt, text.toStdString()), day > 0);
            QCOMPARE(int(dt.wDay), day);
        };
        for (const QByteArray &text : refused)
            check(text, 0);
        check((QByteArray(kLength, '0') + "7 ").repeated(3), 7);
    }

private:
    std::function<QString(unsigned long, unsigned long)> m_system;
};

LUMQT_TEST_MAIN(TestDateTimeSystem)
#include "tst_datetime_system.moc"
