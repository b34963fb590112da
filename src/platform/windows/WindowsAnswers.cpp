#include "platform/Platform.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QWidget>
#include <QWindow>

#include <windows.h>

#include <dwmapi.h>

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

} // namespace

QString pathSeparator()
{
    return QCoreApplication::translate("QObject", "\\");
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
    system.interfaceLanguage = [] {
        const QSettings settings(QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVEX\\Lumora"),
                                 QSettings::NativeFormat);
        return settings.value(QStringLiteral("Language"), QStringLiteral("English")).toString();
    };
    return system;
}

} // namespace lumqt::platform
