#include "sync/RemainingTime.h"

#include "CBPJobWindow.h"

namespace lumqt {

namespace {

constexpr double kEnoughProgress = 0.02; // to tell how long the rest takes
constexpr double kFallsBack = 0.05;      // less is no new beginning
constexpr qint64 kEnoughTime = 2000;     // ms, the same
constexpr qint64 kSpeaks = 1000;         // ms between two texts
constexpr qint64 kInMinutes = 90;        // seconds, from which on it is told in minutes
constexpr qint64 kInSteps = 20;          // seconds, from which on it is told in steps of five
constexpr qint64 kMost = 1 << 30;        // minutes

} // namespace

QString RemainingTime::text(double progress, qint64 now)
{
    if (progress < 0 || progress >= 1) {
        m_start = -1;
        m_text.clear();
        return m_text;
    }
    if (m_start < 0 || progress < m_last - kFallsBack) { // it begins, or begins again
        m_start = now;
        m_startProgress = m_last = progress;
        m_text.clear();
    }
    m_last = qMax(m_last, progress); // several threads may report in any order
    const double done = m_last - m_startProgress;
    const qint64 passed = now - m_start;
    if (done < kEnoughProgress || passed < kEnoughTime || (!m_text.isEmpty() && now - m_said < kSpeaks))
        return m_text;
    m_said = now;
    auto seconds = qint64(double(passed) / done * (1 - m_last) / 1000 + 0.999);
    if (seconds > kInMinutes) {
        m_text = CBPJobWindow::tr("About %1 min left").arg(int(qMin((seconds + 30) / 60, kMost)));
        return m_text;
    }
    if (seconds > kInSteps)
        seconds = (seconds + 4) / 5 * 5;
    m_text = CBPJobWindow::tr("About %1 s left").arg(int(qMax<qint64>(seconds, 1)));
    return m_text;
}

} // namespace lumqt
