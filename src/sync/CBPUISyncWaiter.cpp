#include "CBPUISyncWaiter.h"

#include "foundation/Painting.h"
#include "platform/Platform.h"
#include "sync/MovieLabel.h"
#include "Util.h"

#include <QBitmap>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMovie>
#include <QPainter>
#include <QVBoxLayout>

namespace {

// In logical pixels.
constexpr int kSide = 100;
constexpr int kEscaped = 0;
constexpr int kEnded = 1;

} // namespace

CBPUISyncWaiter::CBPUISyncWaiter(QString text, QWidget *parent) : CBPPopWnd(parent)
{
    setAccessibleName(text);
    // A waiter on its own is not a last window whose closing ends the application.
    setAttribute(Qt::WA_QuitOnClose, false);
    Layout();
}

CBPUISyncWaiter::~CBPUISyncWaiter() = default;

void CBPUISyncWaiter::Layout()
{
    setObjectName(QStringLiteral("id_WaiterWnd"));
    setAttribute(Qt::WA_TranslucentBackground);
    setFixedSize(kSide, kSide);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    m_spinner = new lumqt::MovieLabel(Util::getResFullPath(QStringLiteral("../res/waiting.gif")), this);
    column->addWidget(m_spinner.data(), 0, Qt::AlignCenter);
}

// ----------------------------------------------------------------------------------------------------------
// waiting

int CBPUISyncWaiter::run(CBPEvtLoop *loop, bool global)
{
    // The waiter may be gone after either.
    const QPointer<CBPUISyncWaiter> alive(this);
    if (global)
        CBPSyncObj::run(loop, false);
    else
        Run();
    // The end of the application leaves the wait, and the window as it is: in the way of any other.
    if (alive)
        hide();
    return 0;
}

int CBPUISyncWaiter::exit(CBPEvtLoop *loop, bool global)
{
    const QPointer<CBPUISyncWaiter> alive(this);
    if (global)
        CBPSyncObj::exit(loop, false);
    else
        UnRun();
    if (alive)
        m_waiterResult = kEnded;
    return 0;
}

void CBPUISyncWaiter::setWaitingLabel(QLabel *label)
{
    m_waitingLabel = label;
}

void CBPUISyncWaiter::setWaitingText(QString text)
{
    if (m_waitingLabel)
        m_waitingLabel->setText(text);
}

QString CBPUISyncWaiter::waitingText() const
{
    return m_waitingLabel ? m_waitingLabel->text() : QString();
}

void CBPUISyncWaiter::SetRespondEsc(bool respond)
{
    m_respondEsc = respond;
}

int CBPUISyncWaiter::GetResult()
{
    return m_waiterResult;
}

// ----------------------------------------------------------------------------------------------------------
// events

// Past the pop-up's and the frame's rules, which have no Escape and no buttons to offer here.
void CBPUISyncWaiter::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        // What the base does not take for Escape would leave the window, and say it was closed.
        if (!m_respondEsc || !event->matches(QKeySequence::Cancel)) {
            event->accept();
            return;
        }
        const QPointer<CBPUISyncWaiter> alive(this);
        m_waiterResult = kEscaped;
        emit sigPressEscape();
        if (!alive || !isVisible()) // a slot has ended the wait, and that once is enough
            return;
    }
    QDialog::keyPressEvent(event); // NOLINT(bugprone-parent-virtual-call): other keys are the dialog's alone
}

void CBPUISyncWaiter::closeEvent(QCloseEvent *event)
{
    event->ignore(); // it ends with the job
}

void CBPUISyncWaiter::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(rect(), Qt::transparent);
}

QRegion CBPUISyncWaiter::visibleShape() const
{
    const QMovie *movie = m_spinner ? m_spinner->movie() : nullptr;
    if (!movie)
        return rect();
    const QPixmap tile = movie->currentPixmap().scaled(m_spinner->size());
    // Of a picture without see-through parts there is no mask.
    const QRegion shape = tile.mask().isNull() ? QRegion(tile.rect()) : QRegion(tile.mask());
    return shape.translated(m_spinner->pos());
}
