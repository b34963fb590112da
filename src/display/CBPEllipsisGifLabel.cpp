#include "CBPEllipsisGifLabel.h"

#include "foundation/Tones.h"

#include <QTimerEvent>

#include <utility>

namespace {

constexpr int kDotInterval = 1000; // ms
constexpr int kDots = 3;
constexpr int kMostDotsReserved = 24; // an odd maximum must not widen a window

} // namespace

CBPEllipsisGifLabel::CBPEllipsisGifLabel() : CBPEllipsisGifLabel(kDots) {}

CBPEllipsisGifLabel::CBPEllipsisGifLabel(int maxDots, QWidget *parent) : QLabel(parent), m_maxDots(maxDots)
{
    lumqt::wearTheme(this, lumqt::labelTones());
}

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
    emit runningChanged(true);
    return true;
}

void CBPEllipsisGifLabel::HideGifLable()
{
    // The id stays, and with it the label's one show is over.
    const bool wasPlaying = std::exchange(m_playing, false);
    pauseDots();
    hide();
    if (wasPlaying)
        emit runningChanged(false);
}

int CBPEllipsisGifLabel::maximumDots() const
{
    return m_maxDots;
}

void CBPEllipsisGifLabel::setMaximumDots(int dots)
{
    m_maxDots = dots;
    updateGeometry();
}

void CBPEllipsisGifLabel::resetMaximumDots()
{
    setMaximumDots(kDots);
}

bool CBPEllipsisGifLabel::isRunning() const
{
    return m_playing;
}

void CBPEllipsisGifLabel::setRunning(bool running)
{
    if (running == m_playing)
        return;
    if (running)
        ShowGifLable();
    else
        HideGifLable();
}

QSize CBPEllipsisGifLabel::sizeHint() const
{
    return showsDots() ? rowSize() : QLabel::sizeHint().expandedTo(rowSize());
}

QSize CBPEllipsisGifLabel::minimumSizeHint() const
{
    return showsDots() ? rowSize() : QLabel::minimumSizeHint().expandedTo(rowSize());
}

// Not a text that was set before the first dot.
bool CBPEllipsisGifLabel::showsDots() const
{
    return text() == QString(m_dots, QLatin1Char('.'));
}

// As a label measures its text, with any number of dots: an empty label has another height, and Qt does not
// count its indent.
QSize CBPEllipsisGifLabel::rowSize() const
{
    const QFontMetrics metrics = fontMetrics();
    const QString full(qBound(0, m_maxDots, kMostDotsReserved), QLatin1Char('.'));
    const QRect anyRoom(0, 0, QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    QSize size = metrics.boundingRect(anyRoom, Qt::AlignLeft, full).size();
    size = size.expandedTo(QSize(metrics.averageCharWidth(), qMax(metrics.height(), metrics.lineSpacing())));
    int inset = indent();
    if (inset < 0 && frameWidth() > 0)
        inset = metrics.horizontalAdvance(QLatin1Char('x')) - 2 * margin();
    if (alignment() & (Qt::AlignLeft | Qt::AlignRight))
        size.rwidth() += qMax(0, inset);
    if (alignment() & (Qt::AlignTop | Qt::AlignBottom))
        size.rheight() += qMax(0, inset);
    const QMargins around = contentsMargins() + margin();
    return size.grownBy(around).expandedTo(minimumSize());
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
