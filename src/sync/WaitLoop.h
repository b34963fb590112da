#pragma once

#include "CBPEvtLoop.h"
#include "sync/LoopNudge.h"

#include <memory>

namespace lumqt {

// The loop of somebody who waits.
struct WaitLoop
{
    CBPEvtLoop events;
    std::unique_ptr<LoopNudge> nudge;

    // Ends it. What is to be waited in may handle events before its loop begins; nothing would be there to be
    // ended yet, so it is ended again until the wait has been left.
    void end()
    {
        events.exit(0);
        nudge = std::make_unique<LoopNudge>([this] { events.exit(0); });
    }
};

} // namespace lumqt
