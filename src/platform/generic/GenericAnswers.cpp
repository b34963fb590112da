#include "platform/Platform.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSettings>

namespace lumqt::platform {

namespace {
// What an ordinary Windows desktop answers, so that a window has the same proportions here.
constexpr int kFrameWidth = 4;
constexpr int kCaptionHeight = 19;
} // namespace

QString pathSeparator()
{
    return QStringLiteral("/");
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
    system.interfaceLanguage = [] {
        // The machine-wide settings of the application stand where the registry key stands on Windows.
        const QSettings settings(QSettings::SystemScope, QStringLiteral("TALVEX"), QStringLiteral("Lumora"));
        return settings.value(QStringLiteral("Language"), QStringLiteral("English")).toString();
    };
    return system;
}

} // namespace lumqt::platform
