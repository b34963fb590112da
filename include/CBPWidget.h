#pragma once

#include "LumQtGlobal.h"

#include <QBrush>
#include <QPen>
#include <QWidget>

/// A plain widget that paints its rectangle with a brush and a pen: the ground of the library's containers.
///
/// GUI thread only. \since 1.0
class LUMQT_EXPORT CBPWidget : public QWidget
{
    Q_OBJECT
    /// What the widget is filled with. A reset gives it the theme's ground again. \since 1.0
    Q_PROPERTY(QBrush brush READ brush WRITE setBrush RESET resetBrush)
    /// The pen of the outline, which a form cannot hold. \since 1.0
    Q_PROPERTY(QPen pen READ pen WRITE setPen DESIGNABLE false)

public:
    /// A widget filled in the theme's CBPTheme::Purpose::PanelGround, white at first, without an outline.
    /// \since 1.0
    explicit CBPWidget(QWidget *parent = nullptr);
    ~CBPWidget() override;

    /// Sets what the widget is filled with, and repaints. Qt::NoBrush leaves what lies below to be seen.
    /// \since 1.0
    void setBrush(QBrush brush);

    /// The brush of setBrush(); until it is called that of the built-in ground. \since 1.0
    QBrush brush() const;

    /// Fills the widget in the theme's ground again, as at first. \since 1.0
    void resetBrush();

    /// Sets the pen of the outline, and repaints; no pen at first. The outline runs along rect(): of a line
    /// one pixel wide the left and top edges are inside the widget. \since 1.0
    void setPen(QPen pen);

    /// The pen of the outline. \since 1.0
    QPen pen() const { return m_pen; }

    /// The same as show().
    /// \since 1.0
    void Show();

    /// The same as hide().
    /// \since 1.0
    void Hide();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QBrush m_brush;
    QPen m_pen;
    bool m_ownBrush = false; // set by a caller
};
