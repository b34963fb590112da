#pragma once

#include "LumQtGlobal.h"

#include <QBrush>
#include <QPen>
#include <QWidget>

class QPainter;
class QPainterPath;

/// A widget that fills itself with a brush, some of its corners rounded: the ground of the title bar.
///
/// What lies outside the round corners is see-through. Derived classes set m_brush and m_pen, and call
/// QWidget::update() after. All sizes are logical pixels. GUI thread only. \since 1.0
class LUMQT_EXPORT CRoundedRectBase : public QWidget
{
    Q_OBJECT
    /// Whether the corners are round that are meant to be. \since 1.0
    Q_PROPERTY(bool rounded READ isRounded WRITE SetRoundRectEnabled)

public:
    /// A widget with corners of \a radius pixels where the flags say so, black and without an outline.
    /// A radius beyond half of the widget's width or height counts as that half. \since 1.0
    CRoundedRectBase(unsigned int radius, QWidget *parent, bool topLeft, bool topRight, bool bottomRight,
                     bool bottomLeft);

    /// With false all corners become square, with true those that the constructor was given are round again.
    /// \since 1.0
    void SetRoundRectEnabled(bool enabled);

    /// What SetRoundRectEnabled() was told; true at first. \since 1.0
    bool isRounded() const { return m_rounded; }

protected:
    void paintEvent(QPaintEvent *event) override;

    /// Whether all corners are square whatever SetRoundRectEnabled() says, as those of a window that fills
    /// the screen; false at first. \since 1.0
    void setSquare(bool square);

    QBrush m_brush; ///< what the widget is filled with; black at first, of which a theme makes its own
    QPen m_pen;     ///< of the outline, which lies inside the widget; none at first

private:
    QPainterPath shape(const QRectF &rect) const;
    bool fillAsBar(QPainter &painter, const QRectF &area) const;
    QPixmap topPicture(const QSizeF &size, const QBrush &brush, qreal ratio) const;

    QBrush m_first; // shares its data with m_brush until a derived class sets that
    unsigned int m_radius;
    bool m_topLeft;
    bool m_topRight;
    bool m_bottomRight;
    bool m_bottomLeft;
    bool m_rounded = true;
    bool m_square = false;
};
