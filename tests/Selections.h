#pragma once

#include <QAccessible>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>
#include <QPair>
#include <QVector>

#include <private/qguiapplication_p.h>

// What assistive tools hear while they listen: who was selected, or no longer is, and other changes of state.
namespace selections {

using Heard = QVector<QPair<QObject *, int>>;

inline Heard heard;

inline void note(QAccessibleEvent *event)
{
    const QVector<int> kinds{QAccessible::SelectionAdd, QAccessible::SelectionRemove,
                             QAccessible::StateChanged};
    if (kinds.contains(event->type()))
        heard.append({event->object(), event->type()});
}

// Tells the library that a tool listens, or no longer does.
inline void setActive(bool active)
{
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(active);
}

template <class Act> Heard during(Act act)
{
    heard.clear();
    const auto previous = QAccessible::installUpdateHandler(note);
    act();
    QAccessible::installUpdateHandler(previous);
    return heard;
}

} // namespace selections
