#include "platform/Platform.h"

#include "foundation/QtCompat.h"
#include "platform/generic/LocaleTexts.h"
#include "platform/generic/XServer.h"

#include <QApplication>
#include <QFile>
#include <QGuiApplication>
#include <QLocale>
#include <QScreen>
#include <QSettings>
#include <QStyle>

#include <dlfcn.h>
#include <sys/stat.h>
#include <time.h>

#include <limits>

namespace lumqt::platform {

namespace {
// What an ordinary Windows desktop answers, so that a window has the same proportions here.
constexpr int kFrameWidth = 4;
constexpr int kCaptionHeight = 19;

constexpr int kDarkest = 128; // lightness below which a palette is a dark one

constexpr qint64 kFileTimeSteps = 10000000; // in a second
constexpr qint64 kSecondsOfDay = 86400;
constexpr qint64 kDaysOf400Years = 146097;

tm brokenDown(time_t moment)
{
    tm parts = {};
    localtime_r(&moment, &parts);
    return parts;
}

// The Gregorian date of a day counted from the first of March of a year that 400 divides: leap days come
// last in such a year, and all periods have the same length.
void setDate(ClockTime &clock, qint64 baseYear, qint64 days)
{
    const qint64 era = days / kDaysOf400Years;
    const qint64 day = days % kDaysOf400Years;
    const qint64 year = (day - day / 1460 + day / 36524 - day / 146096) / 365;
    const qint64 dayOfYear = day - (365 * year + year / 4 - year / 100);
    const qint64 month = (5 * dayOfYear + 2) / 153; // 0: March
    clock.day = quint16(dayOfYear - (153 * month + 2) / 5 + 1);
    clock.month = quint16(month < 10 ? month + 3 : month - 9);
    clock.year = quint16(baseYear + era * 400 + year + (clock.month <= 2 ? 1 : 0));
}

} // namespace

QString pathSeparator()
{
    return QStringLiteral("/");
}

FileStamp fileStamp(const QString &path)
{
    FileStamp stamp;
    struct stat found = {};
    if (stat(QFile::encodeName(path).constData(), &found) == 0 && S_ISREG(found.st_mode)) {
        stamp.modified = qint64(found.st_mtim.tv_sec) * 1000 + found.st_mtim.tv_nsec / 1000000;
        stamp.size = found.st_size;
    }
    return stamp;
}

void stayLoaded()
{
    Dl_info library = {};
    if (dladdr(reinterpret_cast<void *>(&stayLoaded), &library) && library.dli_fname)
        dlopen(library.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
}

qint64 coarseClock()
{
#if defined(CLOCK_MONOTONIC_COARSE)
    constexpr clockid_t clock = CLOCK_MONOTONIC_COARSE;
#else
    constexpr clockid_t clock = CLOCK_MONOTONIC;
#endif
    timespec now = {};
    clock_gettime(clock, &now);
    return qint64(now.tv_sec) * 1000 + now.tv_nsec / 1000000;
}

ClockTime localClock()
{
    return clockTime(brokenDown(time(nullptr)));
}

ClockTime localFileTime(quint64 fileTime)
{
    const qint64 ahead = brokenDown(time(nullptr)).tm_gmtoff;
    const quint64 local = fileTime + quint64(ahead) * quint64(kFileTimeSteps);
    ClockTime clock;
    if (local > quint64(std::numeric_limits<qint64>::max()))
        return clock;
    const qint64 seconds = qint64(local) / kFileTimeSteps;
    const qint64 days = seconds / kSecondsOfDay; // since 1601-01-01, a Monday
    setDate(clock, 1600, days + 306);            // the days from March to the end of a year
    clock.hour = quint16(seconds % kSecondsOfDay / 3600);
    clock.minute = quint16(seconds % 3600 / 60);
    clock.second = quint16(seconds % 60);
    clock.dayOfWeek = quint16((days + 1) % 7);
    return clock;
}

void listenForAppearance()
{
    onPaletteChange(*qGuiApp, appearanceChanged);
}

Answers systemAnswers()
{
    Answers system;
    system.frameWidth = [](const QWidget *) { return kFrameWidth; };
    system.captionHeight = [](const QWidget *) { return kCaptionHeight; };
    system.workArea = [] {
        const QScreen *screen = QGuiApplication::primaryScreen();
        return screen ? screen->availableGeometry() : QRect();
    };
    system.composited = [] {
        return QGuiApplication::platformName() != QLatin1String("xcb") || xComposited();
    };
    system.taskBar = [](QWidget *, TaskBar, double) {};
    system.lessMotion = [] { // as the desktop tells its styles
        return qobject_cast<QApplication *>(QCoreApplication::instance()) &&
               QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) == 0;
    };
    system.appearance = [] {
        const bool dark =
            qGuiApp && QGuiApplication::palette().color(QPalette::Window).lightness() < kDarkest;
        return dark ? Appearance::Dark : Appearance::Light;
    };
    system.localeInfo = [](unsigned long type, unsigned long) { return localeText(QLocale::system(), type); };
    system.interfaceLanguage = [] {
        // The machine-wide settings of the application stand where the registry key stands on Windows.
        const QSettings settings(QSettings::SystemScope, QStringLiteral("TALVEX"), QStringLiteral("Lumora"));
        return settings.value(QStringLiteral("Language"), QStringLiteral("English")).toString();
    };
    return system;
}

} // namespace lumqt::platform
