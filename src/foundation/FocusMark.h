#pragma once

#include <qnamespace.h>

// Whether a button shows that it has the keyboard focus. One rule for all of them: the ring shows whether a
// key, a program or the window brought the focus, and not for a press of the mouse, until a key is used.
// Where a window, a menu or another pop-up had the focus meanwhile, the ring is as it was before. A widget
// that takes no focus shows none, since it is asked of the focus itself. (CBPPushBtn shows its ring after a
// press of the mouse, too.)
namespace lumqt {

enum class FocusMark : unsigned char {
    None, // without the focus
    Shown,
    Quiet,     // with the focus, which the mouse brought
    QuietAway, // was quiet, and is to be again when the window or the pop-up gives the focus back
};

inline bool comesBack(Qt::FocusReason reason)
{
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::MenuBarFocusReason;
}

inline void focusGained(FocusMark &mark, Qt::FocusReason reason)
{
    const bool quiet = reason == Qt::MouseFocusReason || (mark == FocusMark::QuietAway && comesBack(reason));
    mark = quiet ? FocusMark::Quiet : FocusMark::Shown;
}

inline void focusLost(FocusMark &mark, Qt::FocusReason reason)
{
    const bool away = mark == FocusMark::Quiet && comesBack(reason);
    mark = away ? FocusMark::QuietAway : FocusMark::None;
}

// Somebody uses the keyboard after all.
inline void keyUsed(FocusMark &mark)
{
    if (mark == FocusMark::Quiet)
        mark = FocusMark::Shown;
}

} // namespace lumqt
