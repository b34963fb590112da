#pragma once

#include "CBPBox.h"

#include <QHBoxLayout>
#include <QVector>

namespace lumqt {

// A row of widgets that goes on in further rows below when it is wider than its room. As long as it is not,
// it is a plain horizontal layout.
class WrappingRow : public QHBoxLayout
{
public:
    // Rows that are aligned to the left, or the right.
    explicit WrappingRow(Qt::Alignment side) : m_side(side) {}

    // The width that the rows may have, in logical pixels; without end at first, as with kEndless.
    void setRoom(int room);
    static constexpr int kEndless = QWIDGETSIZE_MAX;

    // What all takes at least in a single row.
    QSize singleRow() const;

    QSize sizeHint() const override;
    QSize minimumSize() const override;
    QSize maximumSize() const override;
    bool hasHeightForWidth() const override;
    void setGeometry(const QRect &rect) override;

private:
    struct Row
    {
        QVector<QLayoutItem *> items;
        QSize size;
    };
    QVector<Row> rows() const;
    QSize itemSize(QLayoutItem *item) const;
    bool mayWrap() const { return m_room != kEndless; }

    const Qt::Alignment m_side;
    int m_room = kEndless;
};

// A box that is one part of a dialog's row of buttons, the left or the right one. It shows what lies below
// it, so that the body's round corners and the line reach the eye.
class ButtonPart : public CBPBox
{
public:
    ButtonPart(Qt::Alignment side, int spacing);

    WrappingRow *row() const { return m_row; }

private:
    WrappingRow *m_row;
};

// Has the two parts stand side by side where there is room for that, else one below the other, each in as
// many rows as it takes. Returns by how much that is higher than a single row.
int wrapParts(QBoxLayout *both, const ButtonPart &left, const ButtonPart &right, int room, int spacing);

} // namespace lumqt
