#pragma once

#include "LumQtGlobal.h"

#include <QBrush>
#include <QPen>
#include <QSplitterHandle>

/// A handle of a CBPSplitter: a bar filled and outlined in a brush and a pen of its own, light grey at first.
///
/// CBPSplitter makes its handles; QSplitter::handle() gives them. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPSplitterHandle : public QSplitterHandle
{
    Q_OBJECT

public:
    /// A handle of \a parent, which must not be null, as for any QSplitterHandle. \since 1.0
    CBPSplitterHandle(Qt::Orientation orientation, QSplitter *parent);
    ~CBPSplitterHandle() override;

    /// Sets the outline and the fill. Shown at the next repaint, which this does not ask for.
    ///
    /// The outline is moved up by the pen's width (logical pixels), so that its upper edge runs along the
    /// handle's outside, and in by as much at the right and at the bottom. \since 1.0
    void setColr(QPen pen, QBrush brush);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QPen m_pen;
    QBrush m_brush;
    bool m_own = false; // both, set by a caller
};
