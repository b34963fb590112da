#pragma once

class CBPWinFrm;
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
QWidget *portrait(CBPWinFrm &dialog, int width, int height);

} // namespace pose
