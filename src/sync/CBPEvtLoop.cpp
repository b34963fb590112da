#include "CBPEvtLoop.h"

#include "sync/LoopNudge.h"

#include <QPointer>

CBPEvtLoop::CBPEvtLoop() = default;

CBPEvtLoop::~CBPEvtLoop()
{
    exit(0);
}

int CBPEvtLoop::exec(QFlags<QEventLoop::ProcessEventsFlag> flags)
{
    if (m_inExec) {
        // The base would say so in the log, and return the same.
        if (QEventLoop::isRunning())
            ++m_runCount;
        return -1;
    }
    ++m_runCount;
    const QPointer<CBPEvtLoop> alive(this);
    m_inExec = true;
    const int code = QEventLoop::exec(flags);
    if (!alive)
        return code;
    m_inExec = false;
    m_nudge.reset();
    // Also left by what does not count, such as the application's end: no exit() will come for it.
    m_runCount = 0;
    return code;
}

void CBPEvtLoop::exit(int code)
{
    if (m_runCount == 0 || --m_runCount > 0)
        return;
    QEventLoop::exit(code);
    m_nudge = std::make_unique<lumqt::LoopNudge>();
}

bool CBPEvtLoop::isRunning() const
{
    return m_runCount > 0 || QEventLoop::isRunning();
}
