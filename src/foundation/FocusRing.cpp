#include "foundation/FocusRing.h"

#include "foundation/Painting.h"

#include <QCommonStyle>
#include <QCoreApplication>
#include <QEvent>
#include <QFocusFrame>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QPointer>
#include <QStyleHintReturnMask>
#include <QStyleOption>

namespace lumqt {

namespace {

constexpr int kFaint = 24; // alpha that counts for nothing: shadows, antialiased edges

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

QRect opaqueBox(const QImage &image)
{
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > kFaint)
                box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

} // namespace

bool hasRingRoom(const QRect &all, const QRect &ink)
{
    constexpr int room = kFocusRingWidth + 1;
    return ink.isEmpty() || all.adjusted(room, room, -room, -room).contains(ink);
}

QRect inkOfLine(const QString &text, const QFont &font, const QPoint &topLeft)
{
    const QFontMetrics metrics(font);
    return text.isEmpty() ? QRect()
                          : metrics.tightBoundingRect(text).translated(topLeft + QPoint(0, metrics.ascent()));
}

QRect inkOfPicture(const QPixmap &picture, const QPoint &topLeft)
{
    const QRect box = opaqueBox(picture.toImage());
    const qreal ratio = picture.devicePixelRatioF();
    const QRectF ink(QPointF(box.topLeft()) / ratio, QSizeF(box.size()) / ratio);
    return ink.translated(topLeft).toAlignedRect();
}

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
