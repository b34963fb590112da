#include "platform/Platform.h"
#include "platform/windows/WindowsTaskBar.h"

#include "LumQtCompat.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QWidget>
#include <QWindow>

#include <windows.h>

#include <dwmapi.h>
#include <time.h>

#include <vector>

namespace lumqt::platform {

namespace {

// The system speaks physical pixels, widgets logical ones.
qreal ratioOf(const QWidget *widget)
{
    if (widget)
        return widget->devicePixelRatioF();
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? screen->devicePixelRatio() : 1.0;
}

int metric(int index, const QWidget *widget)
{
    return qRound(GetSystemMetrics(index) / ratioOf(widget));
}

constexpr int kLongestPlainPath = 240; // characters; longer ones need a prefix that Qt knows to set
constexpr qint64 kFileTimeOf1970 = 116444736000000000; // in steps of 100 ns since 1601
constexpr qint64 kFileTimeSteps = 10000;               // in a millisecond

qint64 joined(DWORD high, DWORD low)
{
    return qint64((quint64(high) << 32) | low);
}

FileStamp longWay(const QString &path)
{
    FileStamp stamp;
    const QFileInfo info(path);
    if (info.isFile()) {
        stamp.modified = info.lastModified().toMSecsSinceEpoch();
        stamp.size = info.size();
    }
    return stamp;
}

QRect primaryWorkArea()
{
    RECT area = {0, 0, 0, 0};
    if (!SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0))
        return QRect();
    const qreal ratio = ratioOf(nullptr);
    // RECT's right and bottom are exclusive.
    return QRect(qRound(area.left / ratio), qRound(area.top / ratio),
                 qRound((area.right - area.left) / ratio), qRound((area.bottom - area.top) / ratio));
}

QString localeInfo(unsigned long type, unsigned long locale)
{
    const int length = GetLocaleInfoW(locale, type, nullptr, 0); // with the terminator
    if (length < 1)
        return QString();
    std::vector<wchar_t> text(size_t(length) + 1);
    if (GetLocaleInfoW(locale, type, text.data(), length) != length)
        return QString(); // the settings changed between the two questions
    return QString::fromWCharArray(text.data());
}

// Set by the user, "choose your default app mode".
bool wantsDarkApplications()
{
    const QSettings settings(
        QStringLiteral(
            "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize"),
        QSettings::NativeFormat);
    return settings.value(QStringLiteral("AppsUseLightTheme"), 1).toInt() == 0;
}

Appearance appearance()
{
    HIGHCONTRASTW contrast = {};
    contrast.cbSize = sizeof(contrast);
    if (SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof(contrast), &contrast, 0) &&
        contrast.dwFlags & HCF_HIGHCONTRASTON)
        return Appearance::HighContrast;
    return wantsDarkApplications() ? Appearance::Dark : Appearance::Light;
}

// Hears what Windows tells each window when a setting has changed: it says which one only as a text, and not
// always, so each is a reason to look.
class SettingsListener : public QAbstractNativeEventFilter
{
public:
    bool nativeEventFilter(const QByteArray &, void *message, NativeResult *) override
    {
        const UINT kind = static_cast<const MSG *>(message)->message;
        if (kind == WM_SETTINGCHANGE || kind == WM_SYSCOLORCHANGE || kind == WM_THEMECHANGED)
            appearanceChanged();
        return false;
    }
};

} // namespace

QString pathSeparator()
{
    return QCoreApplication::translate("QObject", "\\");
}

FileStamp fileStamp(const QString &path)
{
    FileStamp stamp;
    WIN32_FILE_ATTRIBUTE_DATA found = {};
    if (path.size() > kLongestPlainPath)
        return longWay(path);
    if (!GetFileAttributesExW(reinterpret_cast<const wchar_t *>(path.utf16()), GetFileExInfoStandard, &found))
        return stamp;
    if (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT)
        return longWay(path); // time and size asked for are those of what the link leads to
    if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
        return stamp;
    const qint64 time = joined(found.ftLastWriteTime.dwHighDateTime, found.ftLastWriteTime.dwLowDateTime);
    stamp.modified = (time - kFileTimeOf1970) / kFileTimeSteps;
    stamp.size = joined(found.nFileSizeHigh, found.nFileSizeLow);
    return stamp;
}

void stayLoaded()
{
    HMODULE library = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<LPCWSTR>(&stayLoaded), &library);
}

qint64 coarseClock()
{
    return qint64(GetTickCount64());
}

ClockTime localClock()
{
    const __time64_t now = _time64(nullptr);
    tm parts = {};
    return _localtime64_s(&parts, &now) == 0 ? clockTime(parts) : ClockTime();
}

ClockTime localFileTime(quint64 fileTime)
{
    const FILETIME utc = {DWORD(fileTime), DWORD(fileTime >> 32)};
    FILETIME local = {};
    SYSTEMTIME parts = {};
    if (FileTimeToLocalFileTime(&utc, &local))
        FileTimeToSystemTime(&local, &parts);
    ClockTime clock;
    clock.year = parts.wYear;
    clock.month = parts.wMonth;
    clock.day = parts.wDay;
    clock.hour = parts.wHour;
    clock.minute = parts.wMinute;
    clock.second = parts.wSecond;
    clock.dayOfWeek = parts.wDayOfWeek;
    return clock;
}

void listenForAppearance()
{
    static SettingsListener listener; // takes itself out of the application when it goes
    qGuiApp->installNativeEventFilter(&listener);
}

Answers systemAnswers()
{
    Answers system;
    system.frameWidth = [](const QWidget *widget) { return metric(SM_CXSIZEFRAME, widget); };
    system.captionHeight = [](const QWidget *widget) { return metric(SM_CYCAPTION, widget); };
    system.workArea = primaryWorkArea;
    system.composited = [] {
        BOOL enabled = FALSE;
        return SUCCEEDED(DwmIsCompositionEnabled(&enabled)) && enabled;
    };
    system.lessMotion = [] {
        BOOL animated = TRUE;
        return SystemParametersInfoW(SPI_GETCLIENTAREAANIMATION, 0, &animated, 0) && !animated;
    };
    system.taskBar = showOnTaskBar;
    system.appearance = appearance;
    system.localeInfo = localeInfo;
    system.interfaceLanguage = [] {
        const QSettings settings(QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVEX\\Lumora"),
                                 QSettings::NativeFormat);
        return settings.value(QStringLiteral("Language"), QStringLiteral("English")).toString();
    };
    return system;
}

} // namespace lumqt::platform
