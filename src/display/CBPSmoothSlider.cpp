#include "CBPSmoothSlider.h"

#include "display/SliderParts.h"
#include "foundation/ListText.h"
#include "foundation/Log.h"
#include "foundation/Palette.h"

#include <QMouseEvent>
#include <QPainter>

namespace {

// Look and metrics, in logical pixels.
constexpr int kHeight = 44;
constexpr int kEndInset = 7; // of the outer ticks
constexpr int kValueBaseline = 13;

// The value at a place on the slider, counted from 0: the minimum is only its bound.
int valueAt(const QSlider &slider, int x)
{
    const qint64 range = qint64(slider.maximum()) - slider.minimum();
    const qint64 value = x * range / qMax(1, slider.width());
    return int(qBound(qint64(slider.minimum()), value, qint64(slider.maximum())));
}

} // namespace

CBPSmoothSlider::CBPSmoothSlider(QWidget *parent) : QWidget(parent) {}

CBPSmoothSlider::~CBPSmoothSlider() = default;

void CBPSmoothSlider::Init(QStringList labels, int maximum, int minimum)
{
    if (labels.size() < 2) {
        qCWarning(lcLumQt, "CBPSmoothSlider: %d labels make no slider", int(labels.size()));
        return;
    }
    if (minimum > maximum)
        qCWarning(lcLumQt, "CBPSmoothSlider: the minimum %d is above the maximum %d", minimum, maximum);
    m_labels = labels;
    m_minimum = minimum;
    m_maximum = maximum;
    m_wantedValue = 0;
    if (!m_slider || !m_labelRow) {
        delete m_slider; // an application may have deleted the other one
        delete m_labelRow;
        const lumqt::SliderParts parts = lumqt::makeSliderParts(this, {});
        parts.slider->followPointer(&valueAt);
        connect(parts.slider, &QSlider::valueChanged, this, &CBPSmoothSlider::valueChanged);
        m_slider = parts.slider;
        m_labelRow = parts.labelRow;
        m_slider->setFixedHeight(kHeight);
    }
    lumqt::setSliderLabels(*m_slider, *m_labelRow, m_labels);
    // What listens to the value may delete the slider, or this with it.
    const QPointer<QSlider> slider = m_slider;
    slider->setRange(minimum, maximum);
    if (slider)
        slider->setValue(0);
}

QStringList CBPSmoothSlider::labels() const
{
    return m_labels;
}

void CBPSmoothSlider::setLabels(const QStringList &labels)
{
    const QStringList names = lumqt::listOf(labels);
    if (m_slider && m_labelRow && names.size() >= 2) {
        m_labels = names;
        lumqt::setSliderLabels(*m_slider, *m_labelRow, m_labels);
        m_slider->update(); // its ticks
        return;
    }
    const int value = m_wantedValue;
    const QPointer<CBPSmoothSlider> alive(this);
    Init(names, m_maximum, m_minimum);
    if (alive && value != 0)
        SetValue(value);
}

int CBPSmoothSlider::minimum() const
{
    return m_slider ? m_slider->minimum() : m_minimum;
}

void CBPSmoothSlider::setMinimum(int minimum)
{
    m_minimum = minimum;
    applyRange();
}

void CBPSmoothSlider::resetMinimum()
{
    setMinimum(kMinimum);
}

int CBPSmoothSlider::maximum() const
{
    return m_slider ? m_slider->maximum() : qMax(m_minimum, m_maximum);
}

void CBPSmoothSlider::setMaximum(int maximum)
{
    m_maximum = maximum;
    applyRange();
}

void CBPSmoothSlider::resetMaximum()
{
    setMaximum(kMaximum);
}

void CBPSmoothSlider::applyRange()
{
    if (m_slider)
        m_slider->setRange(m_minimum, m_maximum);
}

void CBPSmoothSlider::SetValue(int value)
{
    if (m_slider)
        m_slider->setValue(value);
    else
        m_wantedValue = value;
}

int CBPSmoothSlider::GetValue() const
{
    return m_slider ? m_slider->value() : -1;
}

bool CBPSmoothSlider::eventFilter(QObject *watched, QEvent *event)
{
    if (!watched->isWidgetType())
        return false;
    if (event->type() == QEvent::Paint)
        return doPaintEvent(static_cast<QPaintEvent *>(event), static_cast<QWidget *>(watched));
    return event->type() == QEvent::MouseButtonRelease &&
           doMouseEvent(static_cast<QMouseEvent *>(event), static_cast<QWidget *>(watched));
}

bool CBPSmoothSlider::doMouseEvent(QMouseEvent *event, QWidget *widget)
{
    if (!m_slider || !widget->isEnabled())
        return false;
    const QPointer<QWidget> alive(widget);
    if (widget == m_labelRow) {
        const int index = lumqt::sliderLabelAt(*m_labelRow, m_labels, event->pos());
        if (index >= 0)
            m_slider->setValue(index == 0 ? 0 : m_slider->maximum());
    } else if (widget == m_slider && widget->width() >= 1) {
        m_slider->setValue(valueAt(*m_slider, event->pos().x()));
    }
    return !alive; // otherwise it has to see the release, too
}

bool CBPSmoothSlider::doPaintEvent(QPaintEvent *, QWidget *widget)
{
    return (widget == m_slider && DrawSlider()) || (widget == m_labelRow && DrawLabel());
}

bool CBPSmoothSlider::DrawSlider()
{
    QPainter painter(m_slider);
    const QRect rect = m_slider->rect();
    lumqt::drawSliderTrack(painter, rect, m_labels.size() - 1, kEndInset);
    // Counted from 0: the minimum has no part in it.
    const qint64 maximum = m_slider->maximum() == 0 ? 1 : m_slider->maximum();
    const qint64 wanted = rect.x() + qint64(m_slider->sliderPosition()) * rect.width() / maximum;
    const int end = rect.x() + rect.width();
    int x = 0;
    if (wanted >= lumqt::kSliderHandle / 2)
        x = int(qMin<qint64>(wanted, end - lumqt::kSliderHandle));
    const int middle = rect.y() + rect.height() / 2;
    lumqt::drawSliderHandle(painter, *m_slider, QPoint(x, middle - lumqt::kSliderHandle / 2),
                            lumqt::themeColor(lumqt::Purpose::SliderHandle)); // also of a disabled slider
    drawValue(painter, x);
    return true;
}

void CBPSmoothSlider::drawValue(QPainter &painter, int handleX) const
{
    const QRect rect = m_slider->rect();
    const QString text = QString::number(m_slider->sliderPosition());
    const QFontMetrics metrics = painter.fontMetrics();
    const int width = metrics.horizontalAdvance(text);
    const int centred = handleX + lumqt::kSliderHandle / 2 - width / 2;
    // Where both ends cannot be kept, the left one is: it holds the sign and the large digits.
    const int x = qMax(0, qMin(centred, rect.x() + rect.width() - width));
    painter.setPen(lumqt::themeColor(lumqt::Purpose::SliderText));
    painter.drawText(x, rect.y() + qMax(kValueBaseline, metrics.capHeight() + 1), text);
}

bool CBPSmoothSlider::DrawLabel()
{
    lumqt::drawSliderLabels(*m_labelRow, m_labels);
    return true;
}
