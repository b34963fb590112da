#include "CBPQtTimer.h"

namespace {

constexpr int kInterval = 80; // milliseconds

} // namespace

CBPQtTimer::CBPQtTimer(QObject *)
{
    setInterval(kInterval);
    connect(this, SIGNAL(timeout()), this, SLOT(onTimeOut()));
}

int CBPQtTimer::timerCnt() const
{
    return m_count;
}

void CBPQtTimer::start()
{
    m_count = 0;
    QTimer::start();
}

void CBPQtTimer::start(int ms)
{
    m_count = 0;
    QTimer::start(ms);
}

void CBPQtTimer::onTimeOut()
{
    ++m_count;
}
