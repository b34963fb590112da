#include "dialogs/ButtonRow.h"

#include <QStyle>
#include <QWidget>

namespace lumqt {

void WrappingRow::setRoom(int room)
{
    if (room == m_room)
        return;
    m_room = room;
    invalidate();
    // As long as nothing is shown, the layouts around hear of it from nobody else.
    for (QWidget *around = parentWidget(); around && !around->isWindow(); around = around->parentWidget()) {
        if (around->layout())
            around->layout()->invalidate();
        around->updateGeometry();
    }
}

QSize WrappingRow::singleRow() const
{
    return QHBoxLayout::minimumSize();
}

QSize WrappingRow::itemSize(QLayoutItem *item) const
{
    return item->sizeHint().boundedTo(QSize(m_room, QWIDGETSIZE_MAX)).expandedTo(item->minimumSize());
}

QVector<WrappingRow::Row> WrappingRow::rows() const
{
    QVector<Row> rows;
    for (int i = 0; i < count(); ++i) {
        QLayoutItem *item = itemAt(i);
        if (item->isEmpty() && !item->spacerItem())
            continue; // hidden
        // What is given as padding after a widget stands between two of a row only.
        const QSize size = itemSize(item);
        const bool isWidget = !item->spacerItem();
        const int before = isWidget && !rows.isEmpty() && !rows.constLast().items.isEmpty() ? spacing() : 0;
        if (rows.isEmpty() || (isWidget && rows.constLast().size.width() + before + size.width() > m_room)) {
            if (!isWidget)
                continue;
            rows.append({{item}, size});
            continue;
        }
        Row &row = rows.last();
        row.items << item;
        row.size = QSize(row.size.width() + before + size.width(), qMax(row.size.height(), size.height()));
    }
    return rows;
}

QSize WrappingRow::sizeHint() const
{
    return mayWrap() ? minimumSize() : QHBoxLayout::sizeHint();
}

QSize WrappingRow::minimumSize() const
{
    if (!mayWrap())
        return QHBoxLayout::minimumSize();
    QSize size(0, 0);
    const QVector<Row> all = rows();
    for (const Row &row : all)
        size = QSize(qMax(size.width(), row.size.width()),
                     size.height() + row.size.height() + (size.isEmpty() ? 0 : spacing()));
    return size;
}

QSize WrappingRow::maximumSize() const
{
    return mayWrap() ? QSize(QLAYOUTSIZE_MAX, QLAYOUTSIZE_MAX) : QHBoxLayout::maximumSize();
}

bool WrappingRow::hasHeightForWidth() const
{
    return !mayWrap() && QHBoxLayout::hasHeightForWidth();
}

void WrappingRow::setGeometry(const QRect &rect)
{
    if (!mayWrap()) {
        QHBoxLayout::setGeometry(rect);
        return;
    }
    QLayout::setGeometry(rect);
    const Qt::LayoutDirection direction =
        parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    int y = rect.y();
    const QVector<Row> all = rows();
    for (const Row &row : all) {
        int x = m_side & Qt::AlignRight ? rect.right() + 1 - row.size.width() : rect.x();
        bool first = true;
        for (QLayoutItem *item : row.items) {
            if (!item->spacerItem() && !first)
                x += spacing();
            first = false;
            const QRect cell(x, y, itemSize(item).width(), row.size.height());
            item->setGeometry(QStyle::visualRect(direction, rect, cell));
            x += cell.width();
        }
        y += row.size.height() + spacing();
    }
}

ButtonPart::ButtonPart(Qt::Alignment side, int spacing) : m_row(new WrappingRow(side))
{
    m_row->setContentsMargins(0, 0, 0, 0);
    delete layout();
    setLayout(m_row);
    setBrush(Qt::NoBrush);
    SetSpacing(spacing);
}

int wrapParts(QBoxLayout *both, const ButtonPart &left, const ButtonPart &right, int room, int spacing)
{
    WrappingRow *const first = left.row();
    WrappingRow *const second = right.row();
    const QSize one = first->singleRow();
    const QSize two = second->singleRow();
    const bool fits = one.width() + two.width() <= room;
    const bool below = !fits && one.width() > 0 && two.width() > 0;
    first->setRoom(fits ? WrappingRow::kEndless : room);
    second->setRoom(fits ? WrappingRow::kEndless : room);
    const auto direction = below ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight;
    if (both->direction() != direction) {
        both->setDirection(direction);
        both->setSpacing(below ? spacing : 0);
    }
    if (fits)
        return 0;
    const int high = below ? first->minimumSize().height() + spacing + second->minimumSize().height()
                           : qMax(first->minimumSize().height(), second->minimumSize().height());
    return high - qMax(one.height(), two.height());
}

} // namespace lumqt
