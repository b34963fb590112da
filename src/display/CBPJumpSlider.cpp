#include "CBPJumpSlider.h"

#include "display/SliderParts.h"
#include "foundation/ListText.h"
#include "foundation/Log.h"
#include "foundation/Palette.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

namespace {

constexpr int kEndInset = 8; // of the outer ticks, in logical pixels

// The position whose tick is nearest to a place on the slider.
int valueAt(const QSlider &slider, int x)
{
    const int last = qMax(1, slider.maximum());
    const int step = slider.width() / last;
    if (step < 1) // more positions than pixels
        return QStyle::sliderValueFromPosition(0, last, x, qMax(1, slider.width()));
    return qBound(0, (x + step / 2) / step, last);
}

QRect handleOf(const QSlider &slider)
{
    const QRect rect = slider.rect();
    const int last = qMax(1, slider.maximum());
    const QPoint centre(lumqt::sliderTick(rect, slider.sliderPosition(), last, kEndInset),
                        rect.y() + rect.height() / 2);
    const int radius = lumqt::kSliderHandle / 2;
    return QRect(centre - QPoint(radius, radius), QSize(lumqt::kSliderHandle, lumqt::kSliderHandle));
}

} // namespace

CBPJumpSlider::CBPJumpSlider(QWidget *parent) : QWidget(parent) {}

CBPJumpSlider::~CBPJumpSlider() = default;

void CBPJumpSlider::Init(QStringList labels)
{
    if (labels.size() < 2) {
        qCWarning(lcLumQt, "CBPJumpSlider: %d labels make no slider", int(labels.size()));
        return;
    }
    m_labels = labels;
    m_wantedValue = 0;
    m_wantedText.clear();
    if (!m_slider || !m_labelRow) {
        delete m_slider; // an application may have deleted the other one
        delete m_labelRow;
        const QPointer<CBPJumpSlider> self(this);
        const lumqt::SliderParts parts =
            lumqt::makeSliderParts(this, [self] { return self ? self->GetPosText() : QString(); });
        parts.slider->stepToPointer(&valueAt, &handleOf);
        connect(parts.slider, &QSlider::valueChanged, this, [this](int value) {
            const QPointer<CBPJumpSlider> alive(this);
            emit valueChanged(value);
            if (alive)
                tellText();
        });
        m_slider = parts.slider;
        m_labelRow = parts.labelRow;
        m_slider->setPageStep(1);
        m_slider->setTickInterval(1);
    }
    lumqt::setSliderLabels(*m_slider, *m_labelRow, m_labels);
    // What listens to the value may delete the slider, or this with it.
    const QPointer<QSlider> slider = m_slider;
    slider->setValue(0); // before the range, which would tell of a position in between
    if (slider)
        slider->setRange(0, m_labels.size() - 1);
    if (slider)
        tellText();
}

void CBPJumpSlider::tellText()
{
    const QString text = GetPosText();
    if (text == m_toldText)
        return;
    m_toldText = text;
    emit currentTextChanged(text);
}

QStringList CBPJumpSlider::labels() const
{
    return m_labels;
}

void CBPJumpSlider::setLabels(const QStringList &labels)
{
    const int value = m_wantedValue;
    const QString text = m_wantedText;
    const QPointer<CBPJumpSlider> alive(this);
    Init(lumqt::listOf(labels));
    if (!alive || !m_slider)
        return;
    if (!text.isEmpty())
        SetPosByText(text);
    else if (value != 0)
        setValue(value);
}

int CBPJumpSlider::value() const
{
    return m_slider ? m_slider->value() : -1;
}

void CBPJumpSlider::setValue(int value)
{
    if (m_slider) {
        m_slider->setValue(value);
        return;
    }
    m_wantedValue = value;
    m_wantedText.clear();
}

void CBPJumpSlider::SetPosByText(QString text)
{
    const int index = m_labels.indexOf(text);
    if (!m_slider)
        m_wantedText = text;
    else if (index >= 0)
        m_slider->setValue(index);
}

QString CBPJumpSlider::GetPosText() const
{
    return m_slider ? m_labels.value(m_slider->value()) : QString();
}

bool CBPJumpSlider::eventFilter(QObject *watched, QEvent *event)
{
    auto *widget = qobject_cast<QWidget *>(watched);
    if (widget && event->type() == QEvent::MouseButtonRelease)
        return doMouseEvent(static_cast<QMouseEvent *>(event), widget);
    return widget && event->type() == QEvent::Paint &&
           doPaintEvent(static_cast<QPaintEvent *>(event), widget);
}

bool CBPJumpSlider::doMouseEvent(QMouseEvent *event, QWidget *widget)
{
    if (widget != m_labelRow || !widget->isEnabled())
        return false;
    const QPointer<QWidget> alive(widget);
    const int index = lumqt::sliderLabelAt(*m_labelRow, m_labels, event->pos());
    if (index >= 0 && m_slider)
        m_slider->setValue(index); // not by its text, which another label may have, too
    return !alive;
}

bool CBPJumpSlider::doPaintEvent(QPaintEvent *, QWidget *widget)
{
    if (widget == m_labelRow)
        return DrawLabel();
    return widget == m_slider && DrawSlider();
}

bool CBPJumpSlider::DrawSlider()
{
    using lumqt::Purpose;
    QPainter painter(m_slider);
    const QRect rect = m_slider->rect();
    lumqt::drawSliderTrack(painter, rect, m_labels.size() - 1, kEndInset);
    lumqt::drawSliderHandle(
        painter, *m_slider, handleOf(*m_slider).topLeft(),
        lumqt::themeColor(m_slider->isEnabled() ? Purpose::SliderHandle : Purpose::SliderHandleDisabled));
    return true;
}

bool CBPJumpSlider::DrawLabel()
{
    lumqt::drawSliderLabels(*m_labelRow, m_labels);
    return true;
}
