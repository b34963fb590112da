#pragma once

#include "LumQtGlobal.h"

#include <QColor>
#include <QElapsedTimer>
#include <QWidget>

#include <memory>
#include <type_traits>

class QPainter;
class QTimer;

namespace lumqt {
struct ProgressPictures;
} // namespace lumqt

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
    /// The fraction that is done: 0 before the first one, from then on 0.01 to 1. \since 1.0
    Q_PROPERTY(double value READ value WRITE setValue NOTIFY valueChanged)
    /// Whether the percentage is written into the bar, which has to be made higher for it. \since 1.0
    Q_PROPERTY(bool textShown READ isTextShown WRITE setTextShown)
    /// Whether the filled part keeps its share when the bar is resized. \since 1.0
    Q_PROPERTY(bool shareKept READ isShareKept WRITE setIsVisible)
    /// Whether it is not known how much is done: a piece then travels along the track. \since 1.0
    Q_PROPERTY(bool busy READ isBusy WRITE setBusy)
    /// Kept for themes, and painted nowhere. \since 1.0
    Q_PROPERTY(QColor colorOne READ colorOne WRITE setColorOne RESET resetColorOne)
    /// Colour of the highlight; an invalid one is none. \since 1.0
    Q_PROPERTY(QColor colorTwo READ colorTwo WRITE setColorTwo RESET resetColorTwo)
    /// Kept for themes, and painted nowhere. \since 1.0
    Q_PROPERTY(QColor colorThree READ colorThree WRITE setColorThree RESET resetColorThree)

public:
    /// An empty bar without a parent: put it into a layout, or delete it.
    ///
    /// The highlight has the colour \a colorTwo; there is none if that is invalid. The other two are kept for
    /// themes and painted nowhere. \since 1.0
    explicit CBPGradientProgressBar(QColor colorOne = QColor(75, 174, 179),
                                    QColor colorTwo = QColor(88, 205, 210),
                                    QColor colorThree = QColor(215, 215, 219));

    /// An empty bar in \a parent, a pointer to any widget, in the colours of the theme. \since 1.0
    template <class Widget, std::enable_if_t<std::is_convertible<Widget *, QWidget *>::value, int> = 0>
    explicit CBPGradientProgressBar(Widget *parent) : CBPGradientProgressBar()
    {
        setParent(parent);
    }

    ~CBPGradientProgressBar() override;

    /// Sets the fraction that is done. What is below 0.01 counts as 0.01, what is above 0.9999 as 1; NaN is
    /// ignored. Mind the type: 1.0 is a full bar, 1 is one per cent. \since 1.0
    void setValue(double value);

    /// Sets what is done in per cent: setValue(percent / 100.0).
    /// \since 1.0
    void setValue(int percent);

    /// The fraction that is done, which the filled part is growing to. \since 1.0
    double value() const;

    /// Whether the filled part keeps its share when the bar is resized; true at first. With false it keeps
    /// its pixels and grows from there. It shows or hides nothing, in spite of its name. \since 1.0
    void setIsVisible(bool visible);

    /// Whether the filled part keeps its share when the bar is resized. \since 1.0
    bool isShareKept() const;

    /// Whether the percentage is written into the middle of the bar; false at first. A bar of 8 pixels has no
    /// room for it: who wants it makes the bar higher. \since 1.0
    void setTextShown(bool shown);

    /// Whether the percentage is written into the bar. \since 1.0
    bool isTextShown() const;

    /// Whether it is not known how much is done; false at first. A piece of the bar then travels along the
    /// track, or stands in its middle where the user wants nothing to move. The value stays, and shows again
    /// after that. \since 1.0
    void setBusy(bool busy);

    /// Whether it is not known how much is done. \since 1.0
    bool isBusy() const { return m_busy; }

    /// The first colour, which is painted nowhere. \since 1.0
    QColor colorOne() const;

    /// Sets the first colour. While all three are the built-in ones, they are those of the theme. \since 1.0
    void setColorOne(const QColor &color);

    /// Makes the first colour the built-in one. \since 1.0
    void resetColorOne();

    /// The colour of the highlight. \since 1.0
    QColor colorTwo() const;

    /// Sets the colour of the highlight; with an invalid one there is none. \since 1.0
    void setColorTwo(const QColor &color);

    /// Makes the colour of the highlight the built-in one. \since 1.0
    void resetColorTwo();

    /// The third colour, which is painted nowhere. \since 1.0
    QColor colorThree() const;

    /// Sets the third colour. \since 1.0
    void setColorThree(const QColor &color);

    /// Makes the third colour the built-in one. \since 1.0
    void resetColorThree();

public Q_SLOTS:
    /// Moves the highlight on and repaints; the bar's own timer calls it.
    /// \since 1.0
    void slotGradientTimerOut();

    /// Repaints, and so lets the bar grow by a pixel; the bar's own timer calls it.
    /// \since 1.0
    void slotDrawBarTimeOut();

Q_SIGNALS:
    /// Another fraction is done. \since 1.0
    void valueChanged(double value);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    class Accessible;

    int progressBarWidth() const;
    void resetMembers();
    void growTo(double value);
    void colorsChanged();
    void startSweep();
    void runTimers();
    void repaintOrRest(const QRegion &changed);
    QRect changedByGrowth() const;
    QRect highlightPlace() const;
    void grow(const QPaintEvent &event);
    void drawTrack(QPainter &painter, const QRect &track, bool framed) const;
    void drawTraveller(QPainter &painter, const QRect &track) const;
    void drawFilled(QPainter &painter, const QRect &filled) const;
    void drawHighlight(QPainter &painter, const QRect &filled) const;
    void drawPercentage(QPainter &painter, const QRect &filled);

    QTimer *m_gradientTimer = nullptr;
    QTimer *m_drawTimer = nullptr;
    int m_highlightPosition = 0;
    quint32 m_travelled = 0; // of the piece that is busy, in pixels
    double m_value = 0.0;
    int m_barWidth = 0;
    double m_shownValue = 0.0;
    QColor m_colorThree;
    QColor m_colorOne;
    QColor m_colorTwo;
    bool m_firstValue = true;
    bool m_rescaleOnResize = true;
    bool m_showText = false;
    bool m_busy = false;
    bool m_ownColors = false; // others than the default ones
    int m_measuredWidth = 0;  // the widget's width that the bar width goes with
    bool m_onScreen = false;
    std::unique_ptr<lumqt::ProgressPictures> m_pictures; // made when first painted
    QElapsedTimer m_sinceValue;
};
