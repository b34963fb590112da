#include "foundation/FocusRing.h"

#include "foundation/Painting.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QFocusFrame>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QPointer>

namespace lumqt {

namespace {

constexpr int kFaint = 24; // alpha that counts for nothing: shadows, antialiased edges

// What the ring lies on: the window, or the viewport that the widget is scrolled in.
QWidget *surfaceOf(QWidget *widget)
{
    QWidget *surface = widget;
    while (!surface->isWindow()) {
        QWidget *parent = surface->parentWidget();
        const bool scrolled = surface != widget && qobject_cast<QAbstractScrollArea *>(parent);
        if (scrolled || surface->windowType() == Qt::SubWindow)
            break;
        surface = parent;
    }
    return surface;
}

// Above the widget's neighbours, or else its parent would cut the ring. It does all by itself that Qt's frame
// does: that one hides for good from what Tab has to scroll to, and leaves its look to style sheets. It is
// one nevertheless, because Qt's containers take such a frame for none of their pages.
class RingFrame : public QFocusFrame
{
public:
    explicit RingFrame(QWidget *around) : m_around(around) { attach(); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::Show:
        case QEvent::Hide:
            settle();
            break;
        case QEvent::ZOrderChange:
            raise();
            break;
        case QEvent::ParentChange:
            if (watched != m_around) // of whom the keeper takes care
                attach();
            break;
        default:
            break;
        }
        return false;
    }

    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        drawFocusRing(painter, rect());
    }

private:
    void attach()
    {
        QWidget *surface = surfaceOf(m_around);
        setParent(surface);
        for (QWidget *each = m_around; each != surface; each = each->parentWidget())
            each->installEventFilter(this);
        surface->installEventFilter(this);
        settle();
    }

    void settle()
    {
        if (!m_around->isVisible() || surfaceOf(m_around) != parentWidget()) {
            hide();
            return;
        }
        QRect whole = m_around->rect();
        QRect shown = whole; // what its parents leave of it
        for (QWidget *each = m_around; each != parentWidget(); each = each->parentWidget()) {
            whole.translate(each->pos());
            shown = shown.translated(each->pos()) & each->parentWidget()->rect();
        }
        if (shown.isEmpty()) {
            hide();
            return;
        }
        place(whole, shown);
        if (isHidden()) {
            raise();
            show();
        }
    }

    // Where there is no outside the ring lies inside, but it stays outside where the widget is cut itself.
    void place(const QRect &whole, const QRect &shown)
    {
        const QRect room = parentWidget()->rect();
        const auto side = [](int left) { return left < 0 ? kRingMargin : qMin(kRingMargin, left); };
        const QMargins outside(side(whole.left()), side(whole.top()), side(room.right() - whole.right()),
                               side(room.bottom() - whole.bottom()));
        setMinimumSize(0, 0); // whatever a style sheet says
        setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        setGeometry(whole.marginsAdded(outside));
        const QMargins band(kRingMargin, kRingMargin, kRingMargin, kRingMargin);
        setMask((QRegion(rect()) - rect().marginsRemoved(band)) &
                shown.marginsAdded(band).translated(-pos()));
    }

    QWidget *m_around;
};

// Goes with the widget, and the ring with it: the frame keeps the widget's address. A widget that is not in
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
        if (!m_frame)
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
    if (box.isEmpty()) // of no picture, the ratio is 0, too
        return QRect();
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
