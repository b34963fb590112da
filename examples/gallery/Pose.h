#pragma once

#include <QPixmap>

#include <functional>

class CBPWinFrm;
class QLabel;
class QWidget;

// Puts samples into a state by the events that a mouse or keyboard would cause, and keeps them there: a posed
// sample is deaf to the real ones.
namespace pose {

enum State { Normal, Hovered, Pressed, Focused, Disabled };

void put(QWidget *sample, State state);

// The same, for use where the sample is made.
template <class Widget> Widget *in(State state, Widget *sample)
{
    put(sample, state);
    return sample;
}

// The picture of a dialog that is never shown, in logical pixels.
QPixmap portrait(CBPWinFrm &dialog, int width, int height);

// A label with what `take` gives now, and gives anew after each change of the theme: at the next turn of the
// event loop, or, while the label cannot be seen, by renew().
QLabel *shown(const std::function<QPixmap()> &take);

// Renews what is below `root` and is of another theme. May handle events, as taking a picture of a dialog
// does.
void renew(QWidget *root);

} // namespace pose
