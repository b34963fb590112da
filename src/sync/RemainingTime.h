#pragma once

#include "foundation/Internals.h"

#include <QString>

namespace lumqt {

// What is said of the time that a job still takes.
class RemainingTime
{
public:
    // `progress`: 0 to 1, negative where it is not known; `now`: milliseconds on any clock. Empty until it
    // can be told. Changes once a second at most.
    LUMQT_TESTED QString text(double progress, qint64 now);

private:
    qint64 m_start = -1;
    double m_startProgress = 0;
    double m_last = 0;
    qint64 m_said = 0;
    QString m_text;
};

} // namespace lumqt
