#include "display/SliderParts.h"

#include "foundation/Accessible.h"
#include "foundation/FocusMark.h"
#include "foundation/FocusRing.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "foundation/StyledGround.h"
#include "foundation/TabOrder.h"
#include "foundation/Tones.h"

#include <QFocusEvent>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QVBoxLayout>

namespace lumqt {

namespace {

// Look and metrics, in logical pixels.
constexpr int kTrackWidth = 4;
constexpr int kTickTop = 2; // below the middle
constexpr int kTickHeight = 11;
constexpr int kNaturalHeight = 2 * (kTickTop + kTickHeight) + 2;
constexpr int kHalo = 4; // around the handle
constexpr int kHoverAlpha = 48;
constexpr int kPressedAlpha = 96;
constexpr int kLabelBaseline = 12;
constexpr int kLabelGap = 12; // the least between two labels of a slider that has all the room it asks for

// Large letters are not cut off at the top.
int labelBaseline(const QFontMetrics &metrics)
{
    return qMax(kLabelBaseline, metrics.capHeight() + 1);
}

int labelWidth(const QFontMetrics &metrics, const QString &label)
{
    return qMin(metrics.horizontalAdvance(label), QWIDGETSIZE_MAX);
}

// As high as its owner's letters, and wide enough for all labels. A label without a text of its own would
// stay as high as its first font.
class LabelRow : public QLabel
{
public:
    LabelRow() { wearTheme(this, labelTones()); }

    void setLabels(const QStringList &labels)
    {
        m_labels = labels;
        updateGeometry();
        update();
    }

    QSize sizeHint() const override
    {
        return QSize(qMax(labelsWidth(), minimumSizeHint().width()), minimumSizeHint().height());
    }

    // Labels that find no room overlap: a row of many must not keep its window from being made narrow.
    QSize minimumSizeHint() const override
    {
        const QFontMetrics metrics = fontMetrics();
        return QSize(metrics.averageCharWidth(),
                     qMax(metrics.height(), labelBaseline(metrics) + metrics.descent()));
    }

protected:
    bool event(QEvent *event) override
    {
        const bool handled = QLabel::event(event);
        refuseStyledGround(this, event);
        return handled;
    }

private:
    // The outer labels end at their ticks, and the inner ones are in the middle of theirs.
    int labelsWidth() const
    {
        const QFontMetrics metrics = fontMetrics();
        const int last = m_labels.size() - 1;
        qint64 step = 0;
        int before = 0; // of the label before, what reaches towards this one
        for (int i = 0; i <= last; ++i) {
            const int width = labelWidth(metrics, m_labels[i]);
            const int half = (width + 1) / 2;
            if (i > 0)
                step = qMax<qint64>(step, before + kLabelGap + (i == last ? width : half));
            before = i == 0 ? width : half;
        }
        return int(qMin<qint64>(step * last, QWIDGETSIZE_MAX));
    }

    QStringList m_labels;
};

} // namespace

class SpokenSlider::Accessible : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit Accessible(SpokenSlider *slider)
        : QAccessibleWidget(slider, QAccessible::Slider), m_slider(slider)
    {
    }

    static QAccessibleInterface *make(QWidget *widget)
    {
        auto *slider = qobject_cast<SpokenSlider *>(widget);
        return slider ? new Accessible(slider) : nullptr;
    }

    QString text(QAccessible::Text kind) const override
    {
        QString own = QAccessibleWidget::text(kind);
        if (!m_slider || !own.isEmpty())
            return own;
        if (kind == QAccessible::Value) {
            const QString value = m_slider->m_spokenValue ? m_slider->m_spokenValue() : QString();
            return value.isEmpty() ? QString::number(m_slider->value()) : value;
        }
        // An application names the widget that it knows.
        if (QAccessibleInterface *owner = QAccessible::queryAccessibleInterface(m_slider->parentWidget()))
            own = owner->text(kind);
        if (kind == QAccessible::Name && own.isEmpty() && !m_slider->m_labels.isEmpty())
            own = m_slider->m_labels.first() + QStringLiteral(" \u2013 ") + m_slider->m_labels.last();
        return own;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return m_slider ? m_slider->value() : 0; }
    void setCurrentValue(const QVariant &value) override
    {
        if (m_slider && m_slider->isEnabled())
            m_slider->setValue(value.toInt());
    }
    QVariant maximumValue() const override { return m_slider ? m_slider->maximum() : 0; }
    QVariant minimumValue() const override { return m_slider ? m_slider->minimum() : 0; }
    QVariant minimumStepSize() const override { return m_slider ? m_slider->singleStep() : 1; }

private:
    QPointer<SpokenSlider> m_slider;
};

SpokenSlider::SpokenSlider(std::function<QString()> spokenValue)
    : QSlider(Qt::Horizontal), m_spokenValue(std::move(spokenValue))
{
    installAccessible("lumqt::SpokenSlider", &Accessible::make);
    // Painted from left to right whatever the language, so it has to move that way.
    setLayoutDirection(Qt::LeftToRight);
    setTickPosition(QSlider::TicksBelow);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
}

// Who deletes the slider alone leaves its parent without the focus.
SpokenSlider::~SpokenSlider()
{
    if (parentWidget())
        setRingAround(parentWidget(), false);
}

// The style's own height leaves the ticks, which are painted below the middle, no room.
QSize SpokenSlider::sizeHint() const
{
    return QSlider::sizeHint().expandedTo(QSize(0, kNaturalHeight));
}

QSize SpokenSlider::minimumSizeHint() const
{
    return QSlider::minimumSizeHint().expandedTo(QSize(0, kNaturalHeight));
}

void SpokenSlider::showRing()
{
    if (parentWidget())
        setRingAround(parentWidget(), m_focusMark == FocusMark::Shown && isEnabled());
}

void SpokenSlider::focusInEvent(QFocusEvent *event)
{
    focusGained(m_focusMark, event->reason());
    showRing();
    QSlider::focusInEvent(event);
}

void SpokenSlider::focusOutEvent(QFocusEvent *event)
{
    focusLost(m_focusMark, event->reason());
    showRing();
    QSlider::focusOutEvent(event);
}

void SpokenSlider::keyPressEvent(QKeyEvent *event)
{
    keyUsed(m_focusMark);
    showRing();
    QSlider::keyPressEvent(event); // what listens to the value may delete the slider
}

void SpokenSlider::mousePressEvent(QMouseEvent *event)
{
    if (!m_valueAt || event->button() != Qt::LeftButton) {
        QSlider::mousePressEvent(event);
        return;
    }
    event->accept();
    const int x = event->pos().x();
    m_grabbedAt = 0;
    if (m_handleOf) {
        const QRect handle = m_handleOf(*this);
        if (x < handle.left() || x > handle.right()) {
            stepTowards(x);
            return;
        }
        m_grabbedAt = x - handle.center().x();
    }
    const QPointer<SpokenSlider> alive(this);
    update(); // of the halo, before what is connected to the press
    setSliderDown(true);
    if (alive && !m_handleOf)
        setSliderPosition(m_valueAt(*this, x));
}

void SpokenSlider::stepTowards(int x)
{
    m_pageTarget = m_valueAt(*this, x);
    const SliderAction action = x > m_handleOf(*this).right() ? SliderPageStepAdd : SliderPageStepSub;
    setRepeatAction(action); // before the value changes: what listens to it may delete the slider
    triggerAction(action);
}

// The button that was pressed beside the handle is still down.
void SpokenSlider::timerEvent(QTimerEvent *event)
{
    const bool there = (repeatAction() == SliderPageStepAdd && sliderPosition() >= m_pageTarget) ||
                       (repeatAction() == SliderPageStepSub && sliderPosition() <= m_pageTarget);
    if (m_handleOf && there)
        setRepeatAction(SliderNoAction);
    else
        QSlider::timerEvent(event);
}

void SpokenSlider::mouseMoveEvent(QMouseEvent *event)
{
    if (m_valueAt && isSliderDown())
        setSliderPosition(m_valueAt(*this, event->pos().x() - m_grabbedAt));
    else
        QSlider::mouseMoveEvent(event);
}

void SpokenSlider::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_valueAt || event->button() != Qt::LeftButton) {
        QSlider::mouseReleaseEvent(event);
        return;
    }
    event->accept();
    setRepeatAction(SliderNoAction);
    update();
    if (isSliderDown())
        setSliderDown(false); // what is connected to it may delete the slider
}

SliderParts makeSliderParts(QWidget *owner, std::function<QString()> spokenValue)
{
    const SliderParts parts{new SpokenSlider(std::move(spokenValue)), new LabelRow};
    parts.slider->installEventFilter(owner);
    parts.labelRow->installEventFilter(owner);
    QLayout *column = owner->layout();
    if (!column) {
        column = new QVBoxLayout(owner);
        column->setContentsMargins(0, 0, 0, 0);
    }
    column->addWidget(parts.slider);
    column->addWidget(parts.labelRow);
    placeBehind(owner, parts.slider);
    owner->setFocusProxy(parts.slider);
    return parts;
}

int sliderTick(const QRect &rect, int index, int last, int inset)
{
    const int x = rect.x() + index * (rect.width() / last);
    return index == 0 ? x + inset : index == last ? x - inset : x;
}

void drawSliderTrack(QPainter &painter, const QRect &rect, int last, int inset)
{
    const int middle = rect.y() + rect.height() / 2;
    const QRect track(rect.x(), middle - kTrackWidth / 2, rect.width(), kTrackWidth);
    painter.fillRect(wholeDevicePixels(painter, track), themeColor(Purpose::SliderTrack));
    for (int i = 0; i <= last; ++i) {
        const QRect tick(sliderTick(rect, i, last, inset), middle + kTickTop, 1, kTickHeight);
        painter.fillRect(evenDevicePixels(painter, tick), themeColor(Purpose::SliderTick));
    }
}

void drawSliderHandle(QPainter &painter, const QSlider &slider, const QPoint &topLeft, const QColor &color)
{
    const QRect place(topLeft, QSize(kSliderHandle, kSliderHandle));
    if (slider.isEnabled() && (slider.underMouse() || slider.isSliderDown())) {
        const QRect around = place.adjusted(-kHalo, -kHalo, kHalo, kHalo);
        Body halo;
        halo.fill = color;
        halo.fill.setAlpha(slider.isSliderDown() ? kPressedAlpha : kHoverAlpha);
        halo.radiusX = halo.radiusY = around.width() / 2.0;
        drawBody(painter, around, halo);
    }
    Body disc;
    disc.fill = color;
    disc.radiusX = disc.radiusY = kSliderHandle / 2.0;
    drawBody(painter, place, disc);
}

void setSliderLabels(QSlider &slider, QLabel &row, const QStringList &labels)
{
    static_cast<SpokenSlider &>(slider).setLabels(labels);
    static_cast<LabelRow &>(row).setLabels(labels);
}

// Where each label lies in the row, in its coordinates.
static QVector<QRect> sliderLabelRects(const QLabel &row, const QStringList &labels)
{
    const QRect rect = row.rect();
    const QFontMetrics metrics(row.font());
    const int last = labels.size() - 1;
    QVector<QRect> rects;
    rects.reserve(labels.size());
    for (int i = 0; i <= last; ++i) {
        const int width = labelWidth(metrics, labels[i]);
        const int shift = i == 0 ? 0 : i == last ? width : width / 2;
        rects << QRect(sliderTick(rect, i, last, 0) - shift, rect.y(), width, metrics.height());
    }
    return rects;
}

void drawSliderLabels(QLabel &row, const QStringList &labels)
{
    QPainter painter(&row);
    const QVector<QRect> rects = sliderLabelRects(row, labels);
    const int baseline = row.rect().y() + labelBaseline(painter.fontMetrics());
    for (int i = 0; i < rects.size(); ++i) {
        if (rects[i].intersects(row.rect()))
            painter.drawText(rects[i].x(), baseline, labels[i]);
    }
}

int sliderLabelAt(const QLabel &row, const QStringList &labels, const QPoint &position)
{
    const QVector<QRect> rects = sliderLabelRects(row, labels);
    for (int i = 0; i < rects.size(); ++i) {
        if (rects[i].contains(position))
            return i;
    }
    return -1;
}

} // namespace lumqt
