#include "platform/Platform.h"

#include <QFile>
#include <QGuiApplication>
#include <QLibrary>
#include <QScreen>
#include <QSettings>

#include <sys/stat.h>
#include <time.h>

namespace lumqt::platform {

namespace {
// What an ordinary Windows desktop answers, so that a window has the same proportions here.
constexpr int kFrameWidth = 4;
constexpr int kCaptionHeight = 19;

// A compositing manager owns the selection _NET_WM_CM_Sn of its screen. Xlib is loaded, not linked: only
// programs that run on an X server need it, and there Qt has it in the process already.
bool xComposited()
{
    QLibrary xlib(QStringLiteral("X11"), 6);
    const auto openDisplay = reinterpret_cast<void *(*)(const char *)>(xlib.resolve("XOpenDisplay"));
    const auto defaultScreen = reinterpret_cast<int (*)(void *)>(xlib.resolve("XDefaultScreen"));
    const auto internAtom =
        reinterpret_cast<unsigned long (*)(void *, const char *, int)>(xlib.resolve("XInternAtom"));
    const auto selectionOwner =
        reinterpret_cast<unsigned long (*)(void *, unsigned long)>(xlib.resolve("XGetSelectionOwner"));
    if (!openDisplay || !defaultScreen || !internAtom || !selectionOwner)
        return false;
    // One connection for the life of the program: the question is asked whenever a menu opens.
    static void *const display = openDisplay(nullptr);
    if (!display)
        return false;
    const QByteArray name = "_NET_WM_CM_S" + QByteArray::number(defaultScreen(display));
    return selectionOwner(display, internAtom(display, name.constData(), 0)) != 0;
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
    system.interfaceLanguage = [] {
        // The machine-wide settings of the application stand where the registry key stands on Windows.
        const QSettings settings(QSettings::SystemScope, QStringLiteral("TALVEX"), QStringLiteral("Lumora"));
        return settings.value(QStringLiteral("Language"), QStringLiteral("English")).toString();
    };
    return system;
}

} // namespace lumqt::platform
