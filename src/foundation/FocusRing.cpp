#include "foundation/FocusRing.h"

#include "foundation/Painting.h"

#include <QCommonStyle>
#include <QCoreApplication>
#include <QEvent>
#include <QFocusFrame>
#include <QPainter>
#include <QPointer>
#include <QStyleHintReturnMask>
#include <QStyleOption>

namespace lumqt {

namespace {

// Tells Qt's frame how far out it lies, and what it looks like.
class RingStyle : public QCommonStyle
{
public:
    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override
    {
        const bool margin = metric == PM_FocusFrameHMargin || metric == PM_FocusFrameVMargin;
        return margin ? kRingMargin : QCommonStyle::pixelMetric(metric, option, widget);
    }

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *answer) const override
    {
        if (hint == SH_FocusFrame_AboveWidget) // else the widget's parent would cut the ring
            return 1;
        if (hint != SH_FocusFrame_Mask)
            return QCommonStyle::styleHint(hint, option, widget, answer);
        if (auto *mask = qstyleoption_cast<QStyleHintReturnMask *>(answer)) {
            const QRect inner = option->rect.adjusted(kRingMargin, kRingMargin, -kRingMargin, -kRingMargin);
            mask->region = QRegion(option->rect) - inner;
        }
        return 1;
    }

    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override
    {
        if (element == CE_FocusFrame)
            drawFocusRing(*painter, option->rect);
        else
            QCommonStyle::drawControl(element, option, painter, widget);
    }
};

QStyle *ringStyle()
{
    static QPointer<QStyle> style;
    if (!style) {
        style = new RingStyle;
        style->setParent(QCoreApplication::instance());
    }
    return style;
}

class RingFrame : public QFocusFrame
{
public:
    explicit RingFrame(QWidget *around) : QFocusFrame(around->window())
    {
        setStyle(ringStyle());
        setWidget(around);
    }

protected:
    // Qt's frame hides when the widget's style changes, for good.
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        return event->type() != QEvent::StyleChange && QFocusFrame::eventFilter(watched, event);
    }
};

// Goes with the widget, and the ring with it: Qt's frame keeps the widget's address. A widget that is not in
// its window yet gets the ring when it is shown there.
class RingKeeper : public QObject
{
public:
    explicit RingKeeper(QWidget *widget) : QObject(widget), m_widget(widget)
    {
        widget->installEventFilter(this);
        if (widget->isVisible())
            place();
    }
    ~RingKeeper() override { delete m_frame; }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::ParentChange)
            delete m_frame;
        if (event->type() == QEvent::Show)
            place();
        return false;
    }

private:
    void place()
    {
        if (!m_frame && !m_widget->isWindow())
            m_frame = new RingFrame(m_widget);
    }

    QWidget *m_widget;
    QPointer<RingFrame> m_frame;
};

RingKeeper *keeperOf(const QWidget *widget)
{
    for (QObject *child : widget->children()) {
        if (auto *keeper = dynamic_cast<RingKeeper *>(child))
            return keeper;
    }
    return nullptr;
}

} // namespace

void setRingAround(QWidget *widget, bool shown)
{
    RingKeeper *keeper = keeperOf(widget);
    if (shown == bool(keeper))
        return;
    if (!shown)
        delete keeper;
    else
        new RingKeeper(widget);
}

} // namespace lumqt
