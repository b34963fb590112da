#include "CBPGradientProgressBar.h"

#include "foundation/Accessible.h"
#include "foundation/FontLookup.h"
#include "foundation/Log.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "platform/Platform.h"

#include <QPainter>
#include <QPainterPath>
#include <QPointer>
#include <QResizeEvent>
#include <QTimer>
#include <QtMath>

#include <limits>

using lumqt::Purpose;

namespace {

// Look and metrics, in logical pixels.
constexpr int kHeight = 8;
constexpr qreal kRadius = 4;
constexpr qreal kHighlightRadius = 2;
constexpr int kHighlightWidth = 100;
constexpr int kHighlightStep = 10;
constexpr int kHighlightPause = 500; // how far left of the bar the next sweep starts
constexpr int kTravelStep = 3;       // pixels with each repaint
constexpr int kTravelShare = 4;      // of the track the piece is this part
constexpr int kTextPixelSize = 12;
constexpr int kTextMargin = 6; // both sides together

constexpr int kSweepInterval = 20; // ms
constexpr double kLeast = 0.01;
constexpr double kCountsAsFull = 0.9999;
constexpr double kNearlyFull = 0.98; // from here the bar hurries
constexpr double kTextStep = 0.005;  // of the shown value, with each repaint

// Milliseconds between two pixels: the larger the step, the faster the bar follows.
int growthInterval(double from, double to)
{
    if (to > kNearlyFull)
        return 1;
    return int(qBound(1.0, 1.0 / qAbs(to - from), double(std::numeric_limits<int>::max())));
}

// What of a piece lies in the whole, both with round ends.
void drawWithin(QPainter &painter, const QRect &whole, const QRect &piece, const QBrush &brush, qreal radius)
{
    QPainterPath clip;
    clip.addRoundedRect(lumqt::wholeDevicePixels(painter, whole), radius, radius);
    painter.save();
    painter.setClipPath(clip);
    painter.setBrush(brush);
    painter.drawRoundedRect(lumqt::wholeDevicePixels(painter, piece), radius, radius);
    painter.restore();
}

} // namespace

class CBPGradientProgressBar::Accessible : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit Accessible(CBPGradientProgressBar *bar)
        : QAccessibleWidget(bar, QAccessible::ProgressBar), m_bar(bar)
    {
    }

    static QAccessibleInterface *make(QWidget *widget)
    {
        auto *bar = qobject_cast<CBPGradientProgressBar *>(widget);
        return bar ? new Accessible(bar) : nullptr;
    }

    // Truncated, as everywhere: 100 per cent is said of a full bar only.
    static int percent(double value) { return int(value * 100 + 1e-9); }

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Value && m_bar && !m_bar->m_busy)
            return CBPGradientProgressBar::tr("%1%").arg(percent(m_bar->m_value));
        return QAccessibleWidget::text(kind);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = true;
        state.busy = m_bar && m_bar->m_busy;
        return state;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return m_bar ? percent(m_bar->m_value) : 0; }
    void setCurrentValue(const QVariant &) override {} // progress is told, not set
    QVariant maximumValue() const override { return 100; }
    QVariant minimumValue() const override { return 0; }
    QVariant minimumStepSize() const override { return 1; }

private:
    QPointer<CBPGradientProgressBar> m_bar;
};

CBPGradientProgressBar::CBPGradientProgressBar(QColor colorOne, QColor colorTwo, QColor colorThree)
    : m_colorThree(colorThree), m_colorOne(colorOne), m_colorTwo(colorTwo)
{
    colorsChanged();
    lumqt::installAccessible("CBPGradientProgressBar", &Accessible::make);
    setFixedHeight(kHeight);
}

CBPGradientProgressBar::~CBPGradientProgressBar() = default;

void CBPGradientProgressBar::setValue(double value)
{
    if (qIsNaN(value)) {
        qCWarning(lcLumQt, "CBPGradientProgressBar: a value that is not a number is ignored");
        return;
    }
    if (value < kLeast)
        value = kLeast;
    else if (value > kCountsAsFull)
        value = 1.0;
    const double before = m_value;
    if (m_firstValue) {
        m_firstValue = false;
        m_value = m_shownValue = value;
        m_barWidth = progressBarWidth();
        m_measuredWidth = width();
        update();
    } else if (value != m_value) {
        if (!m_drawTimer) {
            m_drawTimer = new QTimer(this);
            connect(m_drawTimer, SIGNAL(timeout()), this, SLOT(slotDrawBarTimeOut()));
        }
        growTo(value);
    }
    startSweep();
    const int told = Accessible::percent(value);
    if (told != Accessible::percent(before)) {
        QAccessibleValueChangeEvent event(this, told);
        QAccessible::updateAccessibility(&event);
    }
    if (value != before)
        emit valueChanged(value);
}

void CBPGradientProgressBar::setValue(int percent)
{
    setValue(percent / 100.0);
}

double CBPGradientProgressBar::value() const
{
    return m_value;
}

void CBPGradientProgressBar::setIsVisible(bool visible)
{
    m_rescaleOnResize = visible;
}

bool CBPGradientProgressBar::isShareKept() const
{
    return m_rescaleOnResize;
}

void CBPGradientProgressBar::setTextShown(bool shown)
{
    m_showText = shown;
    update();
}

bool CBPGradientProgressBar::isTextShown() const
{
    return m_showText;
}

void CBPGradientProgressBar::setBusy(bool busy)
{
    if (m_busy == busy)
        return;
    m_busy = busy;
    m_travelled = 0;
    if (busy || !m_firstValue)
        startSweep();
    else
        resetMembers(); // it is at rest, as before its first value
    update();
    QAccessible::State changed;
    changed.busy = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

int CBPGradientProgressBar::progressBarWidth() const
{
    return int(m_value * width());
}

// ----------------------------------------------------------------------------------------------------------
// colours

QColor CBPGradientProgressBar::colorOne() const
{
    return m_ownColors ? m_colorOne : lumqt::themeColor(Purpose::ProgressFirst);
}

void CBPGradientProgressBar::setColorOne(const QColor &color)
{
    m_colorOne = color;
    colorsChanged();
}

void CBPGradientProgressBar::resetColorOne()
{
    setColorOne(lumqt::builtInColor(Purpose::ProgressFirst));
}

QColor CBPGradientProgressBar::colorTwo() const
{
    return m_ownColors ? m_colorTwo : lumqt::themeColor(Purpose::ProgressSecond);
}

void CBPGradientProgressBar::setColorTwo(const QColor &color)
{
    m_colorTwo = color;
    colorsChanged();
}

void CBPGradientProgressBar::resetColorTwo()
{
    setColorTwo(lumqt::builtInColor(Purpose::ProgressSecond));
}

QColor CBPGradientProgressBar::colorThree() const
{
    return m_ownColors ? m_colorThree : lumqt::themeColor(Purpose::ProgressThird);
}

void CBPGradientProgressBar::setColorThree(const QColor &color)
{
    m_colorThree = color;
    colorsChanged();
}

void CBPGradientProgressBar::resetColorThree()
{
    setColorThree(lumqt::builtInColor(Purpose::ProgressThird));
}

// The three are one set: whoever has one of his own has them all.
void CBPGradientProgressBar::colorsChanged()
{
    m_ownColors = m_colorOne != lumqt::builtInColor(Purpose::ProgressFirst) ||
                  m_colorTwo != lumqt::builtInColor(Purpose::ProgressSecond) ||
                  m_colorThree != lumqt::builtInColor(Purpose::ProgressThird);
    update();
}

// ----------------------------------------------------------------------------------------------------------
// timers

void CBPGradientProgressBar::startSweep()
{
    if (!m_gradientTimer) {
        m_gradientTimer = new QTimer(this);
        m_gradientTimer->setInterval(kSweepInterval);
        connect(m_gradientTimer, SIGNAL(timeout()), this, SLOT(slotGradientTimerOut()));
    }
    runTimers();
}

// Each step begins an interval of its own. Of values that come before the bar has reached the last one, each
// would begin it anew, and none would ever end: the bar then goes on as it does, or so fast that it arrives
// by the time that the next value comes, if they go on to come as they do.
void CBPGradientProgressBar::growTo(double value)
{
    const bool overtaken = m_drawTimer->isActive() && m_barWidth < progressBarWidth();
    const qint64 pause = m_sinceValue.isValid() ? m_sinceValue.elapsed() : 0;
    m_sinceValue.start();
    int interval = growthInterval(m_value, value);
    m_value = value;
    if (overtaken) {
        const int missing = qMax(1, progressBarWidth() - m_barWidth);
        interval = int(qBound(qint64(1), pause / missing, qint64(qMin(interval, m_drawTimer->interval()))));
        if (interval == m_drawTimer->interval())
            return;
    }
    m_drawTimer->stop();
    m_drawTimer->setInterval(interval);
}

// A timer ticks only for what somebody can see: the sweep on the screen, the growth until its target is
// reached.
void CBPGradientProgressBar::runTimers()
{
    const auto run = [](QTimer *timer, bool wanted) {
        if (timer && timer->isActive() != wanted)
            wanted ? timer->start() : timer->stop();
    };
    const bool rests = m_busy && lumqt::platform::answers().lessMotion();
    run(m_gradientTimer, m_onScreen && !rests);
    run(m_drawTimer, m_onScreen && !m_busy && m_barWidth != progressBarWidth());
}

void CBPGradientProgressBar::resetMembers()
{
    // Not deleted at once: the repaint may come from the timer's own signal.
    for (QTimer **timer : {&m_gradientTimer, &m_drawTimer}) {
        if (*timer) {
            (*timer)->stop();
            (*timer)->deleteLater();
        }
        *timer = nullptr;
    }
}

void CBPGradientProgressBar::slotGradientTimerOut()
{
    m_travelled += kTravelStep;
    m_highlightPosition += kHighlightStep;
    if (m_highlightPosition >= m_barWidth)
        m_highlightPosition -= m_barWidth + kHighlightPause;
    repaintOrRest();
}

void CBPGradientProgressBar::slotDrawBarTimeOut()
{
    repaintOrRest();
}

// A bar that is scrolled out of view, or has no width, is shown and yet never painted: the paint that comes
// once it is seen starts its timers again.
void CBPGradientProgressBar::repaintOrRest()
{
    update();
    if (!visibleRegion().isEmpty())
        return;
    for (QTimer *timer : {m_gradientTimer, m_drawTimer}) {
        if (timer)
            timer->stop();
    }
}

// ------------------------------------------------------------------------------------------------------------
// events

void CBPGradientProgressBar::showEvent(QShowEvent *event)
{
    m_onScreen = true;
    runTimers();
    QWidget::showEvent(event);
}

void CBPGradientProgressBar::hideEvent(QHideEvent *event)
{
    m_onScreen = false;
    runTimers();
    QWidget::hideEvent(event);
}

void CBPGradientProgressBar::resizeEvent(QResizeEvent *event)
{
    // A widget that was laid out before it was shown is told of no old size.
    const int oldWidth = event->oldSize().isValid() ? event->oldSize().width() : m_measuredWidth;
    if (m_rescaleOnResize && oldWidth > 0 && event->size().width() >= 0)
        m_barWidth = int(qint64(m_barWidth) * event->size().width() / oldWidth);
    m_measuredWidth = width();
    // A full bar is at rest; where it is not full any more, it must not stay so.
    if (!m_firstValue && m_barWidth < progressBarWidth())
        startSweep();
    QWidget::resizeEvent(event);
}

// Says whether it has a line around it.
bool CBPGradientProgressBar::drawTrack(QPainter &painter, const QRect &track) const
{
    const QColor &frame = lumqt::themeColor(Purpose::ProgressFrame);
    const bool framed = frame.alpha() > 0;
    if (framed) {
        painter.setBrush(frame);
        painter.drawRoundedRect(lumqt::wholeDevicePixels(painter, track), kRadius, kRadius);
    }
    const qreal inset = framed ? 1 : 0;
    painter.setBrush(lumqt::themeColor(Purpose::ProgressTrack));
    painter.drawRoundedRect(
        lumqt::wholeDevicePixels(painter, QRectF(track).adjusted(inset, inset, -inset, -inset)),
        kRadius - inset, kRadius - inset);
    return framed;
}

void CBPGradientProgressBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QRect track = rect().adjusted(0, 0, -1, -1);
    const bool framed = drawTrack(painter, track);
    if (m_busy) {
        drawTraveller(painter, framed ? track.adjusted(1, 1, -1, -1) : track.adjusted(1, 1, 0, 0));
        runTimers();
        return;
    }
    m_barWidth = qMin(m_barWidth + 1, progressBarWidth());
    QRect filled = track.adjusted(1, 1, 0, 0);
    filled.setWidth(m_barWidth);
    if (framed)
        filled &= track.adjusted(1, 1, -1, -1);
    if (m_barWidth > 0) {
        QLinearGradient gradient(filled.left(), 0, filled.right(), 0);
        gradient.setColorAt(0, lumqt::themeColor(Purpose::ProgressStart));
        gradient.setColorAt(1, lumqt::themeColor(Purpose::ProgressEnd));
        painter.setBrush(gradient);
        painter.drawRoundedRect(lumqt::wholeDevicePixels(painter, filled), kRadius, kRadius);
    }
    const bool full = m_barWidth == width();
    if (!full)
        drawHighlight(painter, filled);
    else
        m_shownValue = m_value; // no further repaint will come to catch up
    if (m_showText)
        drawPercentage(painter, filled);
    if (full)
        resetMembers();
    else
        runTimers();
}

// Begins where the bar does, leaves at the end and comes in again.
void CBPGradientProgressBar::drawTraveller(QPainter &painter, const QRect &track) const
{
    const int width = track.width() / kTravelShare;
    const bool rests = lumqt::platform::answers().lessMotion();
    const int way = track.width() + width;
    const int left = rests ? (track.width() - width) / 2
                           : int((m_travelled + quint32(width)) % quint32(qMax(1, way))) - width;
    const QRect piece(track.left() + left, track.top(), width, track.height());
    QLinearGradient gradient(piece.left(), 0, piece.right(), 0);
    gradient.setColorAt(0, lumqt::themeColor(Purpose::ProgressStart));
    gradient.setColorAt(1, lumqt::themeColor(Purpose::ProgressEnd));
    drawWithin(painter, track, piece, gradient, kRadius);
}

void CBPGradientProgressBar::drawHighlight(QPainter &painter, const QRect &filled) const
{
    const QRect highlight(m_highlightPosition, 1, kHighlightWidth, filled.height() - 1);
    const QColor color = colorTwo();
    if (!color.isValid() || filled.isEmpty() || !highlight.intersects(filled))
        return;
    QColor clear = color;
    clear.setAlpha(0);
    QLinearGradient gradient(highlight.left(), 0, highlight.right(), 0);
    gradient.setColorAt(0, clear);
    gradient.setColorAt(0.5, color);
    gradient.setColorAt(1, clear);
    drawWithin(painter, filled, highlight, gradient, kHighlightRadius);
}

void CBPGradientProgressBar::drawPercentage(QPainter &painter, const QRect &filled)
{
    m_shownValue += qBound(-kTextStep, m_value - m_shownValue, kTextStep);
    if (!m_text)
        m_text = std::make_unique<lumqt::CachedText>();
    const QString text = tr("%1%").arg(Accessible::percent(m_shownValue));
    const QFont font = lumqt::uiFont(lumqt::NormalWeight, kTextPixelSize);
    QRect box(0, 0, m_text->lineSize(text, font).width() + kTextMargin, height());
    box.moveLeft((width() - box.width()) / 2);
    painter.setPen(lumqt::themeColor(Purpose::ProgressText));
    m_text->drawLeft(painter, box, text, font);
    if (lumqt::themeColor(Purpose::ProgressText) == lumqt::themeColor(Purpose::ProgressTextDone))
        return;
    // Where the text lies on what is done, that may be as dark as the track is light, or the other way round.
    painter.save();
    painter.setClipRect(filled, Qt::IntersectClip);
    painter.setPen(lumqt::themeColor(Purpose::ProgressTextDone));
    m_text->drawLeft(painter, box, text, font);
    painter.restore();
}
