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
    /// What the handle is filled with. A reset gives it the theme's colour again. \since 1.0
    Q_PROPERTY(QBrush brush READ brush WRITE setBrush RESET resetBrush)

public:
    /// A handle of \a parent, which must not be null, as for any QSplitterHandle. \since 1.0
    CBPSplitterHandle(Qt::Orientation orientation, QSplitter *parent);
    ~CBPSplitterHandle() override;

    /// Sets the outline and the fill. Shown at the next repaint, which this does not ask for.
    ///
    /// The outline is moved up by the pen's width (logical pixels), so that its upper edge runs along the
    /// handle's outside, and in by as much at the right and at the bottom. \since 1.0
    void setColr(QPen pen, QBrush brush);

    /// The fill; until it is set that of the built-in colour. \since 1.0
    QBrush brush() const;

    /// Sets the fill alone, and repaints. \since 1.0
    void setBrush(const QBrush &brush);

    /// Fills the handle in the theme's colour again, and repaints. \since 1.0
    void resetBrush();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QPen m_pen;
    QBrush m_brush;
    bool m_ownPen = false; // set by a caller
    bool m_ownBrush = false;
};
