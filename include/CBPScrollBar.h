#pragma once

#include "LumQtGlobal.h"

#include <QColor>
#include <QScrollBar>
#include <QStyle>
#include <QVector>

class QPainter;
class QStyleOptionSlider;

/// A flat scroll bar, 10 pixels thick: a ground, the two areas beside the slider and the slider, which is
/// darker under the mouse. The arrow buttons work, and are not painted.
///
/// Wheel and keys do what they do on a QScrollBar, which is not what they do on a slider: turning the wheel
/// away from you goes to the minimum, Ctrl or Shift makes it a page. Colours and radii that painting has no
/// use for are kept, no more. A colour that is not valid leaves its part unpainted. GUI thread only.
/// \since 1.0
class LUMQT_EXPORT CBPScrollBar : public QScrollBar
{
    Q_OBJECT

public:
    /// A scroll bar in the built-in colours.
    /// \since 1.0
    explicit CBPScrollBar(Qt::Orientation orientation, QWidget *parent = nullptr);
    ~CBPScrollBar() override;

    /// Keeps two radii, 5 pixels at first. The slider is drawn square whatever they are. \since 1.0
    void SetSliderRadius(double radiusX, double radiusY);

    /// Sets the colours of the slider, one per ENState: the first is drawn, and the second under the mouse.
    /// Where one of these two is missing the theme's takes its place. The list is copied. \since 1.0
    void SetSliderBg(QVector<QColor> &colors);

    /// Keeps two colours for the arrow buttons, which are not painted. \since 1.0
    void SetArrowBg(QColor &background1, QColor &background2);

    /// Keeps a colour for a middle line, which is not painted. \since 1.0
    void SetBgMidLine(QColor &color);

    /// Sets the colour of the ground: of all that the slider and the areas beside it leave free. \since 1.0
    void SetBarBg(QColor &color);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void DrawComplexControl(QPainter &painter, const QStyleOptionSlider &option);
    void DrawVertiaclBar(QPainter &painter, const QStyleOptionSlider &option);
    void DrawHorinalBar(QPainter &painter, const QStyleOptionSlider &option);
    QRect GetAvailableRect(const QStyleOptionSlider *option, QStyle::SubControl part);
    void drawParts(QPainter &painter, const QStyleOptionSlider &option);
    void keepSlider();

    double m_dRadiusX;
    double m_dRadiusY;
    QVector<QColor> m_vecSliderBg;
    QColor m_clrArrowBg1;
    QColor m_clrArrowBg2;
    QColor m_clrMidLine;
    QColor m_clrBarBg;
    bool m_ownGround = false; // set by a caller
};
