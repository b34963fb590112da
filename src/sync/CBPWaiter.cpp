#include "CBPWaiter.h"

#include "foundation/FontLookup.h"
#include "foundation/ImageLoader.h"
#include "foundation/Log.h"
#include "foundation/ModalShow.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"

#include <QCloseEvent>
#include <QDir>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>

#include <climits>
#include <limits>

namespace {

// Metrics in logical pixels, and times in milliseconds.
constexpr int kWidth = 130;
constexpr int kHeight = 38;
constexpr int kPointSize = 12;
constexpr int kTextMargin = 6; // both sides of the text together
constexpr int kEdge = 3;       // between the frame and what comes in
constexpr int kAnimationTick = 30;
constexpr int kTextTick = 300;
constexpr int kLongestRun = 300000;
constexpr int kFrameCount = 3;
constexpr int kMostSteps = std::numeric_limits<quint8>::max();

constexpr int kEnded = 1;

// Relative to the current directory as it is now; without "..", by which it may be known as one of `res`.
QString pathOf(const char *image)
{
    return QDir::cleanPath(QDir::current().absoluteFilePath(QString::fromLatin1(image)));
}

} // namespace

CBPWaiter::CBPWaiter(QWidget *parent, QString text, unsigned int timeLimit, bool)
    : QDialog(parent, Qt::FramelessWindowHint | Qt::Dialog),
      m_text(text),
      m_timeLimit(timeLimit),
      m_quitTimer(this),
      m_leftImage(pathOf("../res/log_l.png")),
      m_rightImage(pathOf("../res/log_r.png"))
{
    lumqt::wearPalette(this);
    Init();
}

CBPWaiter::~CBPWaiter() = default;

void CBPWaiter::Init()
{
    for (int dots = 1; dots <= kFrameCount; ++dots)
        m_textFrames << m_text + QString(dots, QLatin1Char('.'));
    m_font = QFont(GetFontFamily(lumqt::NormalWeight), kPointSize);
    m_textSize = QFontMetrics(m_font).size(Qt::TextExpandTabs, m_textFrames.last());
    setFixedSize(kWidth, kHeight);
    setAttribute(Qt::WA_TranslucentBackground);
    setAccessibleName(m_text);
    m_quitTimer.setSingleShot(true);
    m_quitTimer.setInterval(kLongestRun);
    connect(&m_quitTimer, SIGNAL(timeout()), this, SLOT(on_TimeoutQuit()));
}

void CBPWaiter::SetRespondEsc(bool respond)
{
    m_respondEsc = respond;
}

// ----------------------------------------------------------------------------------------------------------
// running

void CBPWaiter::Run()
{
    if (m_running) {
        qCWarning(lcLumQt, "CBPWaiter runs already");
        return;
    }
    m_running = true;
    m_textPhase = false;
    m_step = 0;
    m_dots = 0;
    m_animationTimer = new QTimer(this);
    connect(m_animationTimer.data(), SIGNAL(timeout()), this, SLOT(on_timeout()));
    m_runClock.start();
    restartTimer();
    m_quitTimer.start();
    // Shown here and not by exec(): what is ended while it is being shown would leave that in a loop that
    // nobody ends.
    const QPointer<CBPWaiter> alive(this);
    const bool wasModal = testAttribute(Qt::WA_ShowModal);
    setResult(Rejected);
    if (lumqt::showModally(this))
        exec();
    if (!alive)
        return;
    setAttribute(Qt::WA_ShowModal, wasModal);
    stopTimers();
    m_running = false;
}

void CBPWaiter::UnRun()
{
    stopTimers();
    done(kEnded);
}

// However it ends: a timer that goes on would end it again, or the next run.
void CBPWaiter::done(int result)
{
    stopTimers();
    QDialog::done(result);
}

void CBPWaiter::stopTimers()
{
    m_quitTimer.stop();
    if (!m_animationTimer)
        return;
    m_animationTimer->disconnect(this);
    m_animationTimer->stop();
    m_animationTimer->deleteLater(); // it may be what we are called by
    m_animationTimer.clear();
}

void CBPWaiter::restartTimer()
{
    if (!m_animationTimer)
        return;
    int interval = m_textPhase ? kTextTick : kAnimationTick;
    if (m_resting) // nothing to see; one tick when the time is over
        interval = int(qBound(qint64(interval), qint64(m_timeLimit) - m_runClock.elapsed(), qint64(INT_MAX)));
    m_animationTimer->start(interval);
}

bool CBPWaiter::isOver() const
{
    return m_runClock.isValid() && m_runClock.elapsed() >= qint64(m_timeLimit);
}

void CBPWaiter::advance()
{
    if (m_textPhase) {
        m_dots = (m_dots + 1) % kFrameCount;
        return;
    }
    ++m_step;
    // Of a text that is wider than the count reaches there is nothing more to see, either.
    if (2 * int(m_step) < m_textSize.width() + kTextMargin && m_step < kMostSteps)
        return;
    --m_step;
    m_textPhase = true;
    restartTimer();
}

void CBPWaiter::on_timeout()
{
    advance();
    if (isOver()) {
        done(kEnded); // the dialog may be gone after this
        return;
    }
    if (m_resting) // the one tick came early, as timers may
        restartTimer();
    update();
}

void CBPWaiter::on_TimeoutQuit()
{
    const QPointer<CBPWaiter> alive(this);
    UnRun();
    if (alive)
        emit rejected();
}

// ----------------------------------------------------------------------------------------------------------
// events

void CBPWaiter::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && !m_respondEsc)
        event->accept();
    else
        QDialog::keyPressEvent(event);
}

void CBPWaiter::closeEvent(QCloseEvent *event)
{
    // The base would hide the dialog whatever becomes of the event.
    if (m_respondEsc)
        QDialog::closeEvent(event);
    else
        event->ignore();
}

void CBPWaiter::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (m_resting) {
        m_resting = false;
        restartTimer();
    }
}

void CBPWaiter::hideEvent(QHideEvent *event)
{
    QDialog::hideEvent(event);
    if (event->spontaneous()) {
        m_resting = true;
        restartTimer();
    }
}

// ----------------------------------------------------------------------------------------------------------
// painting

void CBPWaiter::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    lumqt::Body body;
    body.fill = lumqt::themeColor(lumqt::Purpose::WaiterGround);
    body.frame = lumqt::themeColor(lumqt::Purpose::WaiterFrame);
    lumqt::drawBody(painter, rect(), body);
    painter.setFont(m_font);
    painter.setPen(lumqt::themeColor(lumqt::Purpose::WaiterText));
    painter.setLayoutDirection(m_text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight); // of the dots
    QRect area = rect().adjusted(0, 0, -1, -1);
    if (m_textPhase)
        DrawTextW(&painter, area);
    else
        DrawAnimated(&painter, area);
}

QRect CBPWaiter::textBox(const QRect &rect) const
{
    return QRect(QPoint((rect.width() - m_textSize.width()) / 2, (rect.height() - m_textSize.height()) / 2),
                 m_textSize);
}

void CBPWaiter::DrawAnimated(QPainter *painter, QRect &rect)
{
    painter->drawText(textBox(rect), Qt::AlignHCenter | Qt::TextExpandTabs, m_textFrames.last());
    drawHalves(painter, rect);
}

// The text begins where the longest one does, so that it stands still while the dots change.
void CBPWaiter::DrawTextW(QPainter *painter, QRect &rect)
{
    const QRectF longest = painter->boundingRect(QRectF(textBox(rect)), Qt::AlignHCenter | Qt::TextExpandTabs,
                                                 m_textFrames.last());
    painter->drawText(longest, Qt::AlignLeft | Qt::TextExpandTabs, m_textFrames.value(m_dots));
    drawHalves(painter, rect);
}

// Beside the text, never over it: they come in from the edges and have closed in on it with the last step.
void CBPWaiter::drawHalves(QPainter *painter, const QRect &rect)
{
    const qreal ratio = devicePixelRatioF();
    const QPixmap left = lumqt::paintedPixmap(m_leftImage, ratio);
    const QPixmap right = lumqt::paintedPixmap(m_rightImage, ratio);
    const QSize leftSize = lumqt::logicalSize(left);
    const QSize rightSize = lumqt::logicalSize(right);
    const int middle = rect.width() / 2;
    const int closed = (m_textSize.width() + kTextMargin + 1) / 2 - 1;
    const auto away = [&](int width) {
        const int way = qMax(0, middle - width - closed - kEdge);
        return closed + (closed > 0 ? way * (closed - qMin<int>(m_step, closed)) / closed : 0);
    };
    painter->drawPixmap(middle - away(leftSize.width()) - leftSize.width(),
                        (rect.height() + 1 - leftSize.height()) / 2, left);
    painter->drawPixmap(middle + away(rightSize.width()), (rect.height() + 1 - rightSize.height()) / 2,
                        right);
}
