#pragma once

#include <QPoint>
#include <Qt>

// The pointer and the keyboard of the screen itself: what is done here goes through the window manager, grabs
// and activation as a person's hand does, where events sent to a widget pass all of these by. It arrives when
// the event loop turns, so tests wait for what it leads to. Positions are Qt's, in logical pixels of the
// primary screen.
namespace RealInput {

// False on a platform without a screen of its own (offscreen); nothing below does anything there.
bool available();

void moveTo(const QPoint &global);
void press(Qt::MouseButton button = Qt::LeftButton);
void release(Qt::MouseButton button = Qt::LeftButton);
void click(const QPoint &global, Qt::MouseButton button = Qt::LeftButton);

// Latin letters, digits, Space, Tab, Return, Escape, Home, End, arrows, function keys, Alt, Control and
// Shift.
void pressKey(Qt::Key key);
void releaseKey(Qt::Key key);
void typeKey(Qt::Key key);

} // namespace RealInput
