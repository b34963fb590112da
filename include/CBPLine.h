#pragma once

#include "LumQtGlobal.h"

#include <QWidget>

class QLabel;

/// A strip that fills its place in a layout, with an accent bar of 3 pixels along its top.
///
/// Decoration: it takes no focus. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPLine : public QWidget
{
    Q_OBJECT
    /// Whether the layout is a row, as at first, or a column. \since 1.0
    Q_PROPERTY(Qt::Orientation orientation READ orientation WRITE setOrientation)

public:
    /// A strip whose layout is a row. \since 1.0
    explicit CBPLine(QWidget *parent = nullptr);

    /// A strip whose layout is a row (\a horizontal) or a column. \since 1.0
    CBPLine(bool horizontal, QWidget *parent);

    ~CBPLine() override;

    /// Whether the layout is a row or a column. \since 1.0
    Qt::Orientation orientation() const;

    /// Makes the layout a row; a column for any other value than Qt::Horizontal. \since 1.0
    void setOrientation(Qt::Orientation orientation);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QLabel *m_label; // the place of the bar; a child
    bool m_horizontal;
};
