#pragma once

#include <QDialog>
#include <QKeyEvent>

// Keys press a widget as they press a button: Space when it is let go, Enter at once. Escape takes a press
// back while Space or the mouse is held, and reaches nobody else then; letting go is no click any more. So do
// all buttons of the library, those that Qt gives it to and those that are none to Qt; Escape is heard by
// what has the focus, which a click does not give to tool buttons and links.
//
// A release of the mouse outside clicks wherever the class says so, and nowhere else. In a dialog Enter is
// for its default button: what derives from QPushButton answers it as that does, toggles and the buttons of
// groups and of images being no auto-default buttons, and a tool button answers it elsewhere only. Links are
// followed by it everywhere, as links in a text are, and so are pictures that can be clicked, which
// forget no press of the mouse by Escape. A drop-down button takes Enter as a push button with the focus
// does.
namespace lumqt {

// A press under way: the widget's to keep, and to clear when it is disabled.
enum class Press : unsigned char {
    None,
    Space,
    Mouse,     // the widget sets it
    TakenBack, // the mouse is still down, and its release counts for nothing
};

enum class PressStep {
    NotMine, // for the base class
    Nothing, // taken, and nothing to do: a key that repeats itself
    Down,    // to be shown pressed
    Click,
    TakenBack, // to be shown at rest
};

inline PressStep keyPressed(const QKeyEvent *event, Press &press)
{
    if ((press == Press::Space || press == Press::Mouse) && event->matches(QKeySequence::Cancel)) {
        press = press == Press::Mouse ? Press::TakenBack : Press::None;
        return PressStep::TakenBack;
    }
    const bool space = event->key() == Qt::Key_Space;
    if (!space && event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return PressStep::NotMine;
    if (event->isAutoRepeat())
        return PressStep::Nothing;
    press = space ? Press::Space : Press::None;
    return space ? PressStep::Down : PressStep::Click;
}

inline PressStep keyReleased(const QKeyEvent *event, Press &press)
{
    if (event->key() != Qt::Key_Space || press != Press::Space)
        return PressStep::NotMine;
    if (event->isAutoRepeat())
        return PressStep::Nothing;
    press = Press::None;
    return PressStep::Click;
}

// Whether the release of the mouse counts.
inline bool mouseReleased(Press &press)
{
    const bool counts = press != Press::TakenBack;
    press = Press::None;
    return counts;
}

// To be called when the focus comes or goes: keys that are let go elsewhere are no press, and Escape is that
// of a press of the mouse no more.
inline void focusMoved(Press &press)
{
    if (press != Press::TakenBack)
        press = Press::None;
}

// The same for widgets that keep no more than whether Space is down.
inline PressStep keyPressed(const QKeyEvent *event, bool &spaceDown)
{
    Press press = spaceDown ? Press::Space : Press::None;
    const PressStep step = keyPressed(event, press);
    spaceDown = press == Press::Space;
    return step;
}

inline PressStep keyReleased(const QKeyEvent *event, bool &spaceDown)
{
    Press press = spaceDown ? Press::Space : Press::None;
    const PressStep step = keyReleased(event, press);
    spaceDown = press == Press::Space;
    return step;
}

// Whether Enter on `widget`, which cannot be a default button, is for those of the dialog that it is in.
inline bool enterIsTheDialogs(const QWidget *widget, const QKeyEvent *event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    return enter && qobject_cast<const QDialog *>(widget->window());
}

} // namespace lumqt
