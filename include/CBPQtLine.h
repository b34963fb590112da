#pragma once

#include "LumQtGlobal.h"

#include <QFrame>

/// A vertical divider: a line one pixel wide along the widget's left edge, a bluish grey that is darkest half
/// way down.
///
/// It has no size of its own; give it a fixed width, or stretch it over a gap. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPQtLine : public QFrame
{
    Q_OBJECT

public:
    /// A divider.
    /// \since 1.0
    explicit CBPQtLine(QWidget *parent = nullptr);
    ~CBPQtLine() override;

protected:
    void paintEvent(QPaintEvent *event) override;
};
