#include "CBPFlowLayout.h"

#include "foundation/Log.h"
#include "foundation/Painting.h"
#include "layout/Packing.h"

#include <QApplication>
#include <QWidget>

#include <limits>

// The gaps around an item. Where neither the layout nor what it lies in has any, they are those that the
// style of the item's own widget leaves between push buttons.
class CBPFlowLayout::Gaps
{
public:
    explicit Gaps(const CBPFlowLayout *layout)
        : m_layout(layout),
          m_horizontal(layout->horizontalSpacing()),
          m_vertical(layout->verticalSpacing()),
          m_ask(m_horizontal < 0 || m_vertical < 0),
          m_ownX(m_horizontal),
          m_ownY(m_vertical)
    {
    }

    void goTo(QLayoutItem *item)
    {
        if (m_ask)
            ask(item->widget());
    }
    int horizontal() const { return m_horizontal; }
    int vertical() const { return m_vertical; }

private:
    void ask(const QWidget *widget)
    {
        if (!widget) // a spacer or a layout has no style
            widget = m_layout->parentWidget();
        const QStyle *style = widget ? widget->style() : QApplication::style();
        if (style == m_style)
            return;
        m_style = style;
        // A style without an answer would have the items overlap.
        if (m_ownX < 0)
            m_horizontal = qMax(0, gap(Qt::Horizontal));
        if (m_ownY < 0)
            m_vertical = qMax(0, gap(Qt::Vertical));
    }
    int gap(Qt::Orientation orientation) const
    {
        return m_style->layoutSpacing(QSizePolicy::PushButton, QSizePolicy::PushButton, orientation);
    }

    const CBPFlowLayout *m_layout;
    int m_horizontal;
    int m_vertical;
    const bool m_ask;
    const int m_ownX;
    const int m_ownY;
    const QStyle *m_style = nullptr; // of the last item; most have the same
};

CBPFlowLayout::CBPFlowLayout(QWidget *parent, int margin, int hSpacing, int vSpacing)
    : QLayout(parent),
      m_iHSpacing(lumqt::boundedPixels(hSpacing)),
      m_iVSpacing(lumqt::boundedPixels(vSpacing))
{
    setContentsMargins(lumqt::boundedPixels(QMargins(margin, margin, margin, margin)));
}

CBPFlowLayout::CBPFlowLayout(int margin, int hSpacing, int vSpacing)
    : CBPFlowLayout(nullptr, margin, hSpacing, vSpacing)
{
}

CBPFlowLayout::~CBPFlowLayout()
{
    // Not left to the base class: by then nobody could take an item out.
    while (!m_listItems.isEmpty())
        delete m_listItems.takeFirst();
}

// Qt's own would follow a widget around it in circles, and null nowhere.
void CBPFlowLayout::addWidget(QWidget *widget)
{
    if (!widget) {
        qCWarning(lcLumQt, "CBPFlowLayout: null is no item");
        return;
    }
    if (!lumqt::canPack(parentWidget(), widget))
        return;
    m_bTaking = true;
    QLayout::addWidget(widget);
    m_bTaking = false;
}

bool CBPFlowLayout::canTake(QLayoutItem *item) const
{
    if (!item) {
        qCWarning(lcLumQt, "CBPFlowLayout: null is no item");
        return false;
    }
    QLayout *inner = item->layout();
    for (const QObject *around = this; inner && around; around = around->parent()) {
        if (around == inner) {
            qCWarning(lcLumQt, "A CBPFlowLayout cannot hold itself or a layout that it lies in");
            return false;
        }
    }
    if (inner && inner->parent() && inner->parent() != this) { // two owners would both delete it
        qCWarning(lcLumQt, "CBPFlowLayout: the layout lies in another one, or is a widget's");
        return false;
    }
    if (m_setItems.contains(item)) {
        qCWarning(lcLumQt, "CBPFlowLayout: the item is there already");
        return false;
    }
    return inner ? lumqt::canPack(parentWidget(), inner)
                 : !item->widget() || lumqt::canPack(parentWidget(), item->widget());
}

void CBPFlowLayout::addItem(QLayoutItem *item)
{
    if (!canTake(item))
        return;
    QLayout *inner = item->layout();
    if (inner && !inner->parent()) {
        m_bTaking = true;
        addChildLayout(inner);
        m_bTaking = false;
    }
    m_listItems.append(item);
    m_setItems.insert(item);
    invalidate();
}

int CBPFlowLayout::count() const
{
    return m_listItems.size();
}

QLayoutItem *CBPFlowLayout::itemAt(int index) const
{
    return m_listItems.value(index);
}

QLayoutItem *CBPFlowLayout::takeAt(int index)
{
    if (index < 0 || index >= m_listItems.size())
        return nullptr;
    QLayoutItem *item = m_listItems.takeAt(index);
    m_setItems.remove(item);
    QLayout *inner = item->layout();
    if (inner && inner->parent() == this)
        inner->setParent(nullptr);
    invalidate();
    return item;
}

int CBPFlowLayout::horizontalSpacing() const
{
    return m_iHSpacing >= 0 ? m_iHSpacing : smartSpacing(QStyle::PM_LayoutHorizontalSpacing);
}

void CBPFlowLayout::setHorizontalSpacing(int spacing)
{
    m_iHSpacing = lumqt::boundedPixels(spacing);
    invalidate();
}

void CBPFlowLayout::resetHorizontalSpacing()
{
    setHorizontalSpacing(-1);
}

void CBPFlowLayout::setVerticalSpacing(int spacing)
{
    m_iVSpacing = lumqt::boundedPixels(spacing);
    invalidate();
}

void CBPFlowLayout::resetVerticalSpacing()
{
    setVerticalSpacing(-1);
}

int CBPFlowLayout::verticalSpacing() const
{
    return m_iVSpacing >= 0 ? m_iVSpacing : smartSpacing(QStyle::PM_LayoutVerticalSpacing);
}

int CBPFlowLayout::smartSpacing(QStyle::PixelMetric pm) const
{
    if (!parent())
        return -1;
    if (parent()->isWidgetType()) {
        const auto *widget = static_cast<const QWidget *>(parent());
        return widget->style()->pixelMetric(pm, nullptr, widget);
    }
    return static_cast<const QLayout *>(parent())->spacing();
}

Qt::Orientations CBPFlowLayout::expandingDirections() const
{
    return {};
}

bool CBPFlowLayout::hasHeightForWidth() const
{
    return true;
}

int CBPFlowLayout::heightForWidth(int width) const
{
    return doLayout(QRect(0, 0, width, 0), true);
}

void CBPFlowLayout::setGeometry(const QRect &rect)
{
    QLayout::setGeometry(rect);
    doLayout(rect, false);
}

QSize CBPFlowLayout::sizeHint() const
{
    return minimumSize();
}

QSize CBPFlowLayout::minimumSize() const
{
    QSize size(0, 0);
    for (const QLayoutItem *item : m_listItems)
        size = size.expandedTo(item->minimumSize());
    const QMargins margins = contentsMargins();
    return size + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

bool CBPFlowLayout::isMirrored() const
{
    const QWidget *widget = parentWidget();
    return widget ? widget->isRightToLeft() : QGuiApplication::isRightToLeft();
}

int CBPFlowLayout::doLayout(const QRect &rect, bool testOnly) const
{
    const QRect room = rect.marginsRemoved(contentsMargins());
    const bool mirrored = isMirrored();
    Gaps gaps(this);
    // Hints of any size: thousands of them may add up to more than an int.
    qint64 x = room.left();
    qint64 y = room.top();
    int lineHeight = 0;
    // By index: a widget that is placed may delete others, which are no items any more then.
    for (int i = 0; i < m_listItems.size(); ++i) {
        QLayoutItem *item = m_listItems.at(i);
        const QSize hint = item->sizeHint();
        if (hint.isNull() && item->widget() && item->isEmpty()) // hidden: neither room nor a gap
            continue;
        gaps.goTo(item);
        // The right edge is the last pixel inside, so an item that would end with the room goes to the next
        // row. Meant so; rows of windows in use would break elsewhere.
        if (x + hint.width() > room.right() && lineHeight > 0) {
            x = room.left();
            y += lineHeight + gaps.vertical();
            lineHeight = 0;
        }
        if (!testOnly) {
            const int limit = std::numeric_limits<int>::max() / 2;
            const QRect place(QPoint(int(qMin<qint64>(x, limit)), int(qMin<qint64>(y, limit))), hint);
            item->setGeometry(mirrored ? QStyle::visualRect(Qt::RightToLeft, room, place) : place);
        }
        x += hint.width() + gaps.horizontal();
        lineHeight = qMax(lineHeight, hint.height());
    }
    const qint64 height = y + lineHeight - rect.top() + contentsMargins().bottom();
    return int(qMin<qint64>(height, std::numeric_limits<int>::max()));
}
