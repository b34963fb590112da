#pragma once

#include <QObject>
#include <QString>

// What the words of a wait mean, whoever waits.
namespace lumqt {

// The signal by which a window tells that it goes away.
constexpr char kQuitSignal[] = "sigQuit(void*)";

// Framed windows have none, and may be destroyed without any word.
inline bool tellsOfItsEnd(const QObject *window)
{
    return window->metaObject()->indexOfSignal(kQuitSignal) >= 0;
}

// The text of a wait that belongs to no window, and shows none.
inline bool isGlobalWait(const QString &text)
{
    return text == QLatin1String("STR_GLOBAL_UNIQUE");
}

} // namespace lumqt
