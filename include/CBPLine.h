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

public:
    /// A strip whose layout is a row (\a horizontal) or a column. The parent has no default, as a pointer
    /// alone would be taken for \a horizontal. \since 1.0
    CBPLine(bool horizontal, QWidget *parent);

    ~CBPLine() override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QLabel *m_label; // the place of the bar; a child
    bool m_horizontal;
};
