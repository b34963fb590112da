#pragma once

#include "LumQtGlobal.h"

#include <QColor>
#include <QElapsedTimer>
#include <QWidget>

#include <memory>

class QPainter;
class QTimer;

namespace lumqt {
class CachedText;
}

/// A thin progress bar, 8 pixels high, whose filled part is a gradient and grows smoothly, from left to right
/// in any language.
///
/// The first value shows at once. From then on the filled part grows by a pixel with each repaint, sooner
/// after large steps than after small ones, and falls at once. Where values come faster than it grows it
/// hurries to keep up with them, though never by more than a pixel with each repaint. While the bar is not
/// full a highlight sweeps along the filled part. A full bar, and one that is hidden, minimised or scrolled
/// out of view, costs no timer. The track is the theme's CBPTheme::Purpose::ProgressTrack, white at first:
/// put the bar on a ground that is not.
///
/// Screen readers are told the value in per cent. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPGradientProgressBar : public QWidget
{
    Q_OBJECT

public:
    /// An empty bar without a parent: put it into a layout, or delete it.
    ///
    /// The highlight has the colour \a colorTwo; there is none if that is invalid. The other two are kept for
    /// themes and painted nowhere. \since 1.0
    explicit CBPGradientProgressBar(QColor colorOne = QColor(75, 174, 179),
                                    QColor colorTwo = QColor(88, 205, 210),
                                    QColor colorThree = QColor(215, 215, 219));
    ~CBPGradientProgressBar() override;

    /// Sets the fraction that is done. What is below 0.01 counts as 0.01, what is above 0.9999 as 1; NaN is
    /// ignored. Mind the type: 1.0 is a full bar, 1 is one per cent. \since 1.0
    void setValue(double value);

    /// Sets what is done in per cent: setValue(percent / 100.0).
    /// \since 1.0
    void setValue(int percent);

    /// Whether the filled part keeps its share when the bar is resized; true at first. With false it keeps
    /// its pixels and grows from there. It shows or hides nothing, in spite of its name. \since 1.0
    void setIsVisible(bool visible);

public Q_SLOTS:
    /// Moves the highlight on and repaints; the bar's own timer calls it.
    /// \since 1.0
    void slotGradientTimerOut();

    /// Repaints, and so lets the bar grow by a pixel; the bar's own timer calls it.
    /// \since 1.0
    void slotDrawBarTimeOut();

protected:
    /// Whether the percentage is written into the middle of the bar; false at first. A bar of 8 pixels has no
    /// room for it: a derived class that wants it makes itself higher. \since 1.0
    void setTextShown(bool shown);

    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    class Accessible;

    int progressBarWidth() const;
    void resetMembers();
    void growTo(double value);
    void startSweep();
    void runTimers();
    void repaintOrRest();
    bool drawTrack(QPainter &painter, const QRect &track) const;
    void drawHighlight(QPainter &painter, const QRect &filled) const;
    void drawPercentage(QPainter &painter, const QRect &filled);

    QTimer *m_gradientTimer = nullptr;
    QTimer *m_drawTimer = nullptr;
    int m_highlightPosition = 0;
    double m_value = 0.0;
    int m_barWidth = 0;
    double m_shownValue = 0.0;
    QColor m_colorThree;
    QColor m_colorOne;
    QColor m_colorTwo;
    bool m_firstValue = true;
    bool m_rescaleOnResize = true;
    bool m_showText = false;
    bool m_ownColors;        // others than the default ones
    int m_measuredWidth = 0; // the widget's width that the bar width goes with
    bool m_onScreen = false;
    std::unique_ptr<lumqt::CachedText> m_text; // made when first painted
    QElapsedTimer m_sinceValue;
};
