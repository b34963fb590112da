#include "sync/JobWait.h"

#include "CBPJobWindow.h"
#include "platform/Platform.h"
#include "sync/JobQueue.h"
#include "sync/WaitLoop.h"
#include "sync/WaitNames.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>

namespace lumqt {

namespace {

constexpr int kDelayMs = 880; // a shorter wait shows nothing
constexpr int kTickMs = 17;   // 60 a second at most
constexpr int kFailureMs = 3000;

using platform::TaskBar;

QWidget *topOf(QObject *window)
{
    auto *widget = qobject_cast<QWidget *>(window);
    return widget ? widget->window() : nullptr;
}

// Those who wait, the innermost last, which the task bar tells of.
QVector<JobWait *> &waits()
{
    static QVector<JobWait *> all;
    return all;
}

// How often the task bar has been told, so that a failure is not taken away from what comes after it.
int taskBarTurn = 0;

void tellTaskBar(QWidget *owner, TaskBar what, double done)
{
    ++taskBarTurn;
    platform::answers().taskBar(owner, what, done);
}

bool hasWidgets()
{
    return qobject_cast<QApplication *>(QCoreApplication::instance());
}

// That which the task bar has a button for.
QWidget *ownerOf(QWidget *window)
{
    while (window && window->parentWidget())
        window = window->parentWidget()->window();
    return window;
}

} // namespace

JobWait::JobWait(JobPointer job, QObject *window, CBPSyncObj *waitIn)
    : m_job(std::move(job)),
      m_syncObj(waitIn ? waitIn : &m_own),
      m_syncLife(m_syncObj->m_life),
      m_loop(std::make_shared<WaitLoop>()),
      m_window(window),
      m_showsWindow(!waitIn && !isGlobalWait(m_job->name) && hasWidgets())
{
    m_job->wait = this;
    waits().append(this);
    if (m_showsWindow)
        m_modalBefore = QApplication::activeModalWidget();
    if (!window)
        return;
    if (tellsOfItsEnd(window))
        connect(window, SIGNAL(sigQuit(void *)), this, SLOT(onWindowGone()));
    connect(window, &QObject::destroyed, this, &JobWait::onWindowGone);
}

JobWait::~JobWait()
{
    m_job->wait = nullptr;
    unblock();
    delete m_shown.data();
    waits().removeOne(this);
    if (m_taskBar >= 0)
        tellTaskBar(ownerOf(topOf(m_window)), TaskBar::Nothing, 0);
    if (!waits().isEmpty())
        waits().last()->m_taskBar = -1; // it shows again
}

CBPSyncObj *JobWait::syncObj() const
{
    return m_syncLife.expired() ? nullptr : m_syncObj;
}

bool JobWait::isGlobal() const
{
    return isGlobalWait(m_job->name);
}

// ------------------------------------------------------------------------------------------------------------
// waiting

void JobWait::run()
{
    if (m_showsWindow)
        block();
    m_delay.start(kDelayMs, Qt::PreciseTimer, this);
    if (CBPSyncObj *sync = syncObj())
        sync->setText(m_job->name);
    // Events may have been handled in there.
    CBPSyncObj *sync = m_ended ? nullptr : syncObj();
    if (sync)
        sync->run(&m_loop->events, isGlobal());
    m_loop->nudge.reset();
    m_delay.stop();
    m_ticks.stop();
}

void JobWait::end()
{
    if (std::exchange(m_ended, true))
        return;
    const std::shared_ptr<WaitLoop> loop = m_loop;
    if (CBPSyncObj *sync = syncObj())
        sync->exit(&loop->events, isGlobal());
    loop->end(); // also a wait that outlived what it was seen in
}

void JobWait::onWindowGone()
{
    m_windowGone = m_windowGone || m_job->phase != JobRecord::Phase::Over;
    end();
}

// ------------------------------------------------------------------------------------------------------------
// what the user must not do meanwhile

// Until there is a window to be modal: one that is, but is not to be seen, would take the focus.
void JobWait::block()
{
    const QWidget *own = topOf(m_window);
    const auto belongsTo = [](const QWidget *window, const QWidget *to) {
        while (window && window != to)
            window = window->parentWidget() ? window->parentWidget()->window() : nullptr;
        return window != nullptr;
    };
    const auto all = QApplication::topLevelWidgets();
    for (QWidget *window : all) {
        if (!own || belongsTo(own, window) || belongsTo(window, own))
            m_blocked.append(window);
    }
    QCoreApplication::instance()->installEventFilter(this);
}

void JobWait::unblock()
{
    if (m_blocked.isEmpty())
        return;
    m_blocked.clear();
    QCoreApplication::instance()->removeEventFilter(this);
}

bool JobWait::isBlocked(const QObject *watched) const
{
    if (!watched->isWidgetType())
        return false;
    const QWidget *window = static_cast<const QWidget *>(watched)->window();
    return std::find(m_blocked.cbegin(), m_blocked.cend(), window) != m_blocked.cend();
}

// What begins something; what ends it, such as the release of a button, has to come through.
bool JobWait::eventFilter(QObject *watched, QEvent *event)
{
    if (!isBlocked(watched))
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::Shortcut:
    case QEvent::ContextMenu:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TabletPress:
    case QEvent::InputMethod:
    case QEvent::DragEnter:
    case QEvent::Drop:
        return true;
    case QEvent::ShortcutOverride: // accepted, no shortcut comes of it
        event->accept();
        return true;
    case QEvent::Close:
        if (event->spontaneous())
            event->ignore();
        return event->spontaneous();
    default:
        return false;
    }
}

// ------------------------------------------------------------------------------------------------------------
// what the user sees

void JobWait::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_ticks.timerId()) {
        update();
    } else if (event->timerId() == m_delay.timerId()) {
        m_delay.stop();
        if (m_ended)
            return;
        m_ticks.start(kTickMs, this);
        update();
    }
}

void JobWait::show()
{
    m_shown = new CBPJobWindow(m_job->text(), m_job->canCancel, topOf(m_window));
    connect(m_shown.data(), &CBPJobWindow::cancelled, this, [this] { JobQueue::instance().stop(m_job); });
    if (m_job->isToldToStop()) // by another way
        m_shown->cancel();
    m_wasShown = true;
    m_shown->open();
    unblock();
}

// A dialog that has come meanwhile, such as a question of the job's own, would lie behind and be blocked.
bool JobWait::isOtherModal() const
{
    const QWidget *modal = QApplication::activeModalWidget();
    return modal && modal != m_modalBefore;
}

void JobWait::update()
{
    if (m_showsWindow && !m_shown && !m_wasShown && !isOtherModal())
        show();
    if (const int number = m_job->textNumber(); number != m_textNumber) {
        m_textNumber = number;
        const QString text = m_job->text();
        if (m_shown)
            m_shown->setText(text);
        if (CBPSyncObj *sync = syncObj())
            sync->setText(text);
    }
    const double progress = m_job->progress();
    if (m_shown)
        m_shown->setProgress(progress);
    QWidget *owner = ownerOf(topOf(m_window));
    const int taskBar = progress < 0 ? 0 : 1 + int(progress * 1000);
    if (owner && taskBar != m_taskBar && waits().last() == this) {
        m_taskBar = taskBar;
        tellTaskBar(owner, progress < 0 ? TaskBar::Busy : TaskBar::Progress, progress);
    }
}

void JobWait::showFailure(QObject *window)
{
    QWidget *owner = ownerOf(topOf(window));
    if (!owner)
        return;
    tellTaskBar(owner, TaskBar::Failure, 1);
    QTimer::singleShot(kFailureMs, owner, [owner, turn = taskBarTurn] {
        if (turn == taskBarTurn)
            tellTaskBar(owner, TaskBar::Nothing, 0);
    });
}

} // namespace lumqt
