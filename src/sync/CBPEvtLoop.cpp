#include "CBPEvtLoop.h"

#include <QPointer>

CBPEvtLoop::CBPEvtLoop() = default;

CBPEvtLoop::~CBPEvtLoop()
{
    exit(0);
}

int CBPEvtLoop::exec(QFlags<QEventLoop::ProcessEventsFlag> flags)
{
    ++m_runCount;
    // The base would say so in the log, and return the same.
    if (m_runCount > 1 && QEventLoop::isRunning())
        return -1;
    const QPointer<CBPEvtLoop> alive(this);
    const int code = QEventLoop::exec(flags);
    // Also left by what does not count, such as the application's end: no exit() will come for it.
    if (alive && !QEventLoop::isRunning())
        m_runCount = 0;
    return code;
}

void CBPEvtLoop::exit(int code)
{
    if (m_runCount == 0 || --m_runCount > 0)
        return;
    QEventLoop::exit(code);
}

bool CBPEvtLoop::isRunning() const
{
    return m_runCount > 0 || QEventLoop::isRunning();
}
