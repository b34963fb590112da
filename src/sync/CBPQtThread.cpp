#include "CBPQtThread.h"

namespace {

constexpr unsigned long kPollMicroseconds = 200;

} // namespace

CBPQtThread::CBPQtThread(QObject *parent) : QThread(parent)
{
    connect(this, SIGNAL(finished()), this, SLOT(quit()));
}

CBPQtThread::~CBPQtThread()
{
    // A running thread must not be destroyed, and a parent does not ask.
    m_stop = true;
    while (!wait(1) && QThread::currentThread() != this)
        quit();
}

void CBPQtThread::setCB(void (*cb)(void *), void *context)
{
    m_callback = cb;
    m_context = context;
    m_stop = false;
}

bool CBPQtThread::IsStop() const
{
    return m_stop;
}

void CBPQtThread::SetStop()
{
    m_stop = true;
}

void CBPQtThread::start()
{
    QThread::start(QThread::InheritPriority);
}

// Starting here is meant: of a thread that never ran nobody could tell that it has ended.
void CBPQtThread::WaitExit()
{
    m_stop = true;
    if (QThread::currentThread() == this)
        return;
    start();
    while (isRunning()) {
        quit(); // without a function it is an event loop that runs, perhaps only from now on
        usleep(kPollMicroseconds);
    }
}

void CBPQtThread::run()
{
    if (m_stop)
        return;
    if (m_callback)
        m_callback(m_context);
    else
        QThread::run();
}
