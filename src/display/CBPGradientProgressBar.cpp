#include "CBPGradientProgressBar.h"

#include "display/ProgressPictures.h"
#include "foundation/Accessible.h"
#include "foundation/Log.h"
#include "foundation/Palette.h"
#include "platform/Platform.h"

#include <QPointer>
#include <QResizeEvent>
#include <QTimer>
#include <QtMath>

#include <limits>

using lumqt::Purpose;

namespace {

// Look and metrics, in logical pixels.
constexpr int kHeight = 8;
constexpr int kHighlightStep = 10;
constexpr int kHighlightPause = 500; // how far left of the bar the next sweep starts
constexpr int kTravelStep = 3;       // pixels with each repaint

constexpr int kSweepInterval = 20; // ms
constexpr double kLeast = 0.01;
constexpr double kCountsAsFull = 0.9999;
constexpr double kNearlyFull = 0.98; // from here the bar hurries

// Milliseconds between two pixels: the larger the step, the faster the bar follows.
int growthInterval(double from, double to)
{
    if (to > kNearlyFull)
        return 1;
    return int(qBound(1.0, 1.0 / qAbs(to - from), double(std::numeric_limits<int>::max())));
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

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Value && m_bar && !m_bar->m_busy)
            return CBPGradientProgressBar::tr("%1%").arg(lumqt::wholePercent(m_bar->m_value));
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

    QVariant currentValue() const override { return m_bar ? lumqt::wholePercent(m_bar->m_value) : 0; }
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
    const int told = lumqt::wholePercent(value);
    if (told != lumqt::wholePercent(before)) {
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
    const QRect before = highlightPlace();
    m_travelled += kTravelStep;
    m_highlightPosition += kHighlightStep;
    if (m_highlightPosition >= m_barWidth)
        m_highlightPosition -= m_barWidth + kHighlightPause;
    const bool rests = m_barWidth == progressBarWidth() && m_barWidth != width() && !m_showText;
    repaintOrRest(rests && !m_busy ? (QRegion(before) + highlightPlace()) & rect() : QRegion(rect()));
}

void CBPGradientProgressBar::slotDrawBarTimeOut()
{
    repaintOrRest(changedByGrowth());
}

// A bar that is scrolled out of view, or has no width, is shown and yet never painted: the paint that comes
// once it is seen starts its timers again.
void CBPGradientProgressBar::repaintOrRest(const QRegion &changed)
{
    update(changed);
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
