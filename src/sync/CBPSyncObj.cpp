#include "CBPSyncObj.h"

#include "CBPEvtLoop.h"

CBPSyncObj::CBPSyncObj() : m_ownLoop(std::make_shared<CBPEvtLoop>()), m_life(std::make_shared<char>()) {}

CBPSyncObj::~CBPSyncObj()
{
    // Nobody could end these waits any more.
    for (const QPointer<CBPEvtLoop> &loop : qAsConst(m_waiting)) {
        if (loop)
            loop->exit(0);
    }
}

int CBPSyncObj::run(CBPEvtLoop *loop, bool)
{
    // Nothing of this object is touched after the wait, and its own loop lives as long as that.
    const std::shared_ptr<CBPEvtLoop> own = m_ownLoop;
    CBPEvtLoop *waiting = loop ? loop : own.get();
    if (waiting->isRunning())
        return 0;
    const std::weak_ptr<void> life = m_life;
    m_waiting.append(waiting);
    const int code = waiting->exec(QEventLoop::AllEvents);
    if (!life.expired())
        m_waiting.removeLast(); // waits end in the order they were nested in
    return code;
}

int CBPSyncObj::exit(CBPEvtLoop *loop, bool)
{
    CBPEvtLoop *waiting = loop ? loop : m_ownLoop.get();
    if (waiting->isRunning())
        waiting->exit(0);
    return 0;
}

bool CBPSyncObj::isInLoop(const CBPEvtLoop *loop) const
{
    return loop ? loop->isRunning() : m_ownLoop->isRunning();
}

void CBPSyncObj::setText(QString text)
{
    m_text = text;
}

QString CBPSyncObj::text()
{
    return m_text;
}
