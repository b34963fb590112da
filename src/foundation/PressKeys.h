#pragma once

#include <QKeyEvent>

// The keys that press a widget as they press a button: Enter at once, Space when it is let go. `spaceDown` is
// the widget's to keep, and to clear when it loses the focus or is disabled: letting go is no press any more
// then.
namespace lumqt {

enum class PressStep {
    NotMine, // for the base class
    Nothing, // taken, and nothing to do: a key that repeats itself
    Down,    // to be shown pressed
    Click,
};

inline PressStep keyPressed(const QKeyEvent *event, bool &spaceDown)
{
    const bool space = event->key() == Qt::Key_Space;
    if (!space && event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return PressStep::NotMine;
    if (event->isAutoRepeat())
        return PressStep::Nothing;
    spaceDown = space;
    return space ? PressStep::Down : PressStep::Click;
}

inline PressStep keyReleased(const QKeyEvent *event, bool &spaceDown)
{
    if (event->key() != Qt::Key_Space || !spaceDown)
        return PressStep::NotMine;
    if (event->isAutoRepeat())
        return PressStep::Nothing;
    spaceDown = false;
    return PressStep::Click;
}

} // namespace lumqt
