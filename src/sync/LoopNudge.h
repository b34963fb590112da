#pragma once

#include <QObject>

#include <functional>

namespace lumqt {

// Keeps turning the event loops of the thread that made it, until it is destroyed; does `act` each time.
//
// An event loop that was told to end from a loop within it may never look: on Windows the inner loop clears
// the dispatcher's interruption, and the outer one goes on to sleep until the next message, if the two were
// entered from a posted event. Whoever ends a wait keeps one of these until the wait has been left.
class LoopNudge : public QObject
{
public:
    explicit LoopNudge(std::function<void()> act = [] {}) : m_act(std::move(act)) { startTimer(kIntervalMs); }

protected:
    void timerEvent(QTimerEvent *) override { m_act(); }

private:
    static constexpr int kIntervalMs = 15;
    const std::function<void()> m_act;
};

} // namespace lumqt
