#pragma once

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

} // namespace pose
