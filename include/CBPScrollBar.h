#pragma once

#include "LumQtGlobal.h"

#include <QColor>
#include <QScrollBar>
#include <QStringList>
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
    /// Kept, no more: the slider is drawn square. In pixels. \since 1.0
    Q_PROPERTY(double sliderXRadius READ sliderXRadius WRITE setSliderXRadius RESET resetSliderXRadius
                   DESIGNABLE false)
    /// The same of the other radius. \since 1.0
    Q_PROPERTY(double sliderYRadius READ sliderYRadius WRITE setSliderYRadius RESET resetSliderYRadius
                   DESIGNABLE false)
    /// Names of the slider's colours, of which the first two are drawn: at rest, and under the mouse. One
    /// that is no colour leaves the slider unpainted then. A reset brings back the theme's. \since 1.0
    Q_PROPERTY(QStringList sliderColors READ sliderColors WRITE setSliderColors RESET resetSliderColors)
    /// Kept, no more: the arrow buttons are not painted. \since 1.0
    Q_PROPERTY(QColor firstArrowColor READ firstArrowColor WRITE setFirstArrowColor DESIGNABLE false)
    /// The same of the second colour. \since 1.0
    Q_PROPERTY(QColor secondArrowColor READ secondArrowColor WRITE setSecondArrowColor DESIGNABLE false)
    /// Kept, no more: no middle line is painted. \since 1.0
    Q_PROPERTY(QColor midLineColor READ midLineColor WRITE SetBgMidLine DESIGNABLE false)
    /// Colour of the ground that the slider and the areas beside it leave free; one that is none leaves it
    /// unpainted. A reset brings back the theme's. \since 1.0
    Q_PROPERTY(QColor barColor READ barColor WRITE SetBarBg RESET resetBarColor)

public:
    /// A scroll bar in the built-in colours.
    /// \since 1.0
    explicit CBPScrollBar(Qt::Orientation orientation, QWidget *parent = nullptr);

    /// A vertical scroll bar in the built-in colours.
    /// \since 1.0
    explicit CBPScrollBar(QWidget *parent = nullptr);
    ~CBPScrollBar() override;

    /// Keeps two radii, 5 pixels at first. The slider is drawn square whatever they are. \since 1.0
    void SetSliderRadius(double radiusX, double radiusY);

    /// The first radius. \since 1.0
    double sliderXRadius() const { return m_dRadiusX; }

    /// Keeps the first radius alone. \since 1.0
    void setSliderXRadius(double radius);

    /// Makes the first radius 5 pixels again. \since 1.0
    void resetSliderXRadius();

    /// The second radius. \since 1.0
    double sliderYRadius() const { return m_dRadiusY; }

    /// Keeps the second radius alone. \since 1.0
    void setSliderYRadius(double radius);

    /// Makes the second radius 5 pixels again. \since 1.0
    void resetSliderYRadius();

    /// Sets the colours of the slider, one per ENState: the first is drawn, and the second under the mouse.
    /// Where one of these two is missing the theme's takes its place. The list is copied. \since 1.0
    void SetSliderBg(QVector<QColor> &colors);

    /// The names of the slider's colours; those that are built in where none are set. \since 1.0
    QStringList sliderColors() const;

    /// Sets the colours of the slider by their names; see SetSliderBg(). \since 1.0
    void setSliderColors(const QStringList &colors);

    /// Gives the slider the theme's colours again. \since 1.0
    void resetSliderColors();

    /// Keeps two colours for the arrow buttons, which are not painted. \since 1.0
    void SetArrowBg(QColor &background1, QColor &background2);

    /// The first colour of the arrow buttons; invalid at first. \since 1.0
    QColor firstArrowColor() const { return m_clrArrowBg1; }

    /// Keeps the first colour of the arrow buttons alone. \since 1.0
    void setFirstArrowColor(QColor color);

    /// The second colour of the arrow buttons; invalid at first. \since 1.0
    QColor secondArrowColor() const { return m_clrArrowBg2; }

    /// Keeps the second colour of the arrow buttons alone. \since 1.0
    void setSecondArrowColor(QColor color);

    /// Keeps a colour for a middle line, which is not painted. \since 1.0
    void SetBgMidLine(QColor &color);

    /// The colour that is kept for a middle line; invalid at first. \since 1.0
    QColor midLineColor() const { return m_clrMidLine; }

    /// Sets the colour of the ground: of all that the slider and the areas beside it leave free. \since 1.0
    void SetBarBg(QColor &color);

    /// The colour of the ground; the built-in one where none is set. \since 1.0
    QColor barColor() const;

    /// Gives the ground the theme's colour again. \since 1.0
    void resetBarColor();

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
