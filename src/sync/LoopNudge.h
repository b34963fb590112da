#pragma once

#include <QObject>

namespace lumqt {

// Keeps turning the event loops of the thread that made it, until it is destroyed.
//
// An event loop that was told to end from a loop within it may never look: on Windows the inner loop clears
// the dispatcher's interruption, and the outer one goes on to sleep until the next message, if the two were
// entered from a posted event. Whoever ends a wait keeps one of these until the wait has been left.
class LoopNudge : public QObject
{
public:
    LoopNudge() { startTimer(kIntervalMs); }

private:
    static constexpr int kIntervalMs = 15;
};

} // namespace lumqt
