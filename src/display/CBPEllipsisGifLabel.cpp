#include "CBPEllipsisGifLabel.h"

#include <QTimerEvent>

namespace {

constexpr int kDotInterval = 1000; // ms
constexpr int kDots = 3;
constexpr int kMostDotsReserved = 24; // an odd maximum must not widen a window

} // namespace

CBPEllipsisGifLabel::CBPEllipsisGifLabel() : CBPEllipsisGifLabel(kDots) {}

CBPEllipsisGifLabel::CBPEllipsisGifLabel(int maxDots, QWidget *parent) : QLabel(parent), m_maxDots(maxDots) {}

CBPEllipsisGifLabel::~CBPEllipsisGifLabel()
{
    pauseDots();
}

bool CBPEllipsisGifLabel::ShowGifLable()
{
    if (m_timerId || !startDots())
        return false;
    m_playing = true;
    show();
    if (!isVisible()) // in a window that is hidden still
        pauseDots();
    return true;
}

void CBPEllipsisGifLabel::HideGifLable()
{
    // The id stays, and with it the label's one show is over.
    m_playing = false;
    pauseDots();
    hide();
}

QSize CBPEllipsisGifLabel::sizeHint() const
{
    const QSize own = QLabel::sizeHint();
    const QString full(qBound(0, m_maxDots, kMostDotsReserved), QLatin1Char('.'));
    // As the label measures its text.
    const QRect anyRoom(0, 0, QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    const int dots = fontMetrics().boundingRect(anyRoom, Qt::AlignLeft, full).width();
    const QMargins around = contentsMargins();
    return own.expandedTo(QSize(dots + 2 * margin() + around.left() + around.right(), own.height()));
}

void CBPEllipsisGifLabel::SetText()
{
    setText(QString(m_dots, QLatin1Char('.')));
}

bool CBPEllipsisGifLabel::startDots()
{
    const int id = startTimer(kDotInterval, Qt::CoarseTimer);
    m_ticking = id != 0;
    if (m_ticking)
        m_timerId = id;
    return m_ticking;
}

void CBPEllipsisGifLabel::pauseDots()
{
    if (m_ticking)
        killTimer(m_timerId);
    m_ticking = false;
}

// ------------------------------------------------------------------------------------------------------------
// events

void CBPEllipsisGifLabel::timerEvent(QTimerEvent *event)
{
    if (!event->isAccepted() || !m_ticking || event->timerId() != m_timerId) {
        QLabel::timerEvent(event);
        return;
    }
    m_dots = m_dots < m_maxDots ? m_dots + 1 : 0;
    SetText();
}

void CBPEllipsisGifLabel::showEvent(QShowEvent *event)
{
    if (m_playing && !m_ticking)
        startDots();
    QLabel::showEvent(event);
}

void CBPEllipsisGifLabel::hideEvent(QHideEvent *event)
{
    pauseDots();
    QLabel::hideEvent(event);
}
