#pragma once

#include "sync/JobRecord.h"

namespace lumqt {

// Runs the job in a thread that has come back from another, or else in a new one; then tells the queue. As
// many as are asked for: the queue counts. GUI thread only.
void runInThread(const JobPointer &job);

} // namespace lumqt
