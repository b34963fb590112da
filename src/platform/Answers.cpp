#include "platform/Platform.h"

#include <QGuiApplication>

namespace lumqt::platform {

namespace {

std::function<void()> s_watcher;
bool s_tells = false; // what every window hears is told once

// For each application that is made, since the one to come counts, too.
void listen()
{
    s_tells = false; // the one before may have ended before it told
    if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        return;
    listenForAppearance();
    appearanceChanged();
}

} // namespace

Answers &answers()
{
    static Answers inForce = systemAnswers();
    return inForce;
}

void watchAppearance(std::function<void()> changed)
{
    s_watcher = std::move(changed);
    static bool listens = false;
    if (!listens && s_watcher)
        qAddPreRoutine(listen); // which runs at once where there is an application
    listens = listens || s_watcher;
}

void appearanceChanged()
{
    if (!s_watcher || s_tells)
        return;
    s_tells = true;
    // Not within a message of the system: whoever hears of a theme may do anything.
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [] {
            s_tells = false;
            if (s_watcher)
                s_watcher();
        },
        Qt::QueuedConnection);
}

} // namespace lumqt::platform
