#pragma once

#include "foundation/Internals.h"

#include <QRect>
#include <QString>

#include <ctime>
#include <functional>

class QWidget;

// Everything the library asks of the operating system. `windows/` answers with Win32, `generic/` with Qt.
namespace lumqt::platform {

// What is asked of the regional settings; the numbers are those of Windows.
enum LocaleInfo : unsigned long {
    LocaleDateSeparator = 0x1D,
    LocaleTimeSeparator = 0x1E,
    LocaleShortDate = 0x1F,     // pattern, such as "dd.MM.yyyy"
    LocaleTimePattern = 0x1003, // with seconds, such as "h:mm:ss tt"
};
constexpr unsigned long kUserLocale = 0x400;

// How the user wants applications to look.
enum class Appearance { Light, Dark, HighContrast };

// What the task bar's button of a window shows of a job.
enum class TaskBar { Nothing, Busy, Progress, Failure };

// The answers of the system. All sizes are logical pixels of the widget's screen; a null widget means the
// primary screen.
struct Answers
{
    // Width of a sizing border (SM_CXSIZEFRAME, the same metric as SM_CXFRAME).
    std::function<int(const QWidget *)> frameWidth;
    // Height of a native caption (SM_CYCAPTION).
    std::function<int(const QWidget *)> captionHeight;
    // What the task bar leaves free of the primary screen.
    std::function<QRect()> workArea;
    // Name of the interface language that the application's installer has stored; "English" when none is.
    std::function<QString()> interfaceLanguage;
    // Whether translucent windows are blended with what lies behind them. Where they are not, what a window
    // leaves transparent is black.
    std::function<bool()> composited;
    // Has the button of a top-level window show it; `done` of what is shown is 0 to 1. Null, and a system
    // without such buttons, do nothing.
    std::function<void(QWidget *window, TaskBar what, double done)> taskBar;
    // Whether the user wants nothing to move that need not.
    std::function<bool()> lessMotion;
    // As the user has set it; where the system has no such setting, as the application's palette is.
    std::function<Appearance()> appearance;
    // A text of the regional settings, a LocaleInfo, in the notation of Windows. Empty when there is none.
    // Elsewhere the user's locale answers for all.
    std::function<QString(unsigned long type, unsigned long locale)> localeInfo;
};

// The answers in force: the system's own, until a test replaces one. GUI thread only.
LUMQT_TESTED Answers &answers();

// Calls `changed` from the event loop whenever appearance() may answer another thing, and when an application
// is made; until it is called with an empty function. There need not be an application yet.
void watchAppearance(std::function<void()> changed);

// Of the platforms: has appearanceChanged() called from now on, as long as the application lives.
void listenForAppearance();
LUMQT_TESTED void appearanceChanged();

// The separator that resource paths are built with.
LUMQT_TESTED QString pathSeparator();

// What tells one content of a file from the next.
struct FileStamp
{
    qint64 modified = -1; // milliseconds since 1970; -1: no such file, or no regular one
    qint64 size = -1;     // bytes

    bool exists() const { return size != -1; }
    bool operator==(const FileStamp &other) const { return modified == other.modified && size == other.size; }
};

// Asked at every paint of an image, so it is one question to the system. Paths that only Qt knows (resources,
// search paths) do not exist here. Any thread.
FileStamp fileStamp(const QString &path);

// Keeps the library in the process until that ends: from now on threads wait in its code.
void stayLoaded();

// A time that is next to free to ask for and changes every few milliseconds. Any thread.
qint64 coarseClock();

// A moment on the user's clock.
struct ClockTime
{
    quint16 year = 0;
    quint16 month = 0;
    quint16 day = 0;
    quint16 hour = 0;
    quint16 minute = 0;
    quint16 second = 0;
    quint16 dayOfWeek = 0; // 0: Sunday
};

inline ClockTime clockTime(const std::tm &parts)
{
    ClockTime clock;
    clock.year = quint16(parts.tm_year + 1900);
    clock.month = quint16(parts.tm_mon + 1);
    clock.day = quint16(parts.tm_mday);
    clock.hour = quint16(parts.tm_hour);
    clock.minute = quint16(parts.tm_min);
    clock.second = quint16(parts.tm_sec);
    clock.dayOfWeek = quint16(parts.tm_wday);
    return clock;
}

// Now. Any thread.
ClockTime localClock();

// A file time, in steps of 100 ns since 1601 UTC. It is moved by what the clock is ahead of UTC today, also
// when summer time was not the same then: that is how Windows reckons. All zero beyond the range. Any thread.
LUMQT_TESTED ClockTime localFileTime(quint64 fileTime);

// The system's own answers, from the platform folder.
Answers systemAnswers();

} // namespace lumqt::platform
