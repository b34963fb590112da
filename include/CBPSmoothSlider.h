#pragma once

#include "LumQtGlobal.h"

#include <QLabel>
#include <QPointer>
#include <QSlider>
#include <QStringList>
#include <QWidget>

class QMouseEvent;
class QPaintEvent;
class QPainter;

/// A slider with a range of whole numbers that shows its value above the handle, and labels, as a rule two,
/// under it.
///
/// Arrow, Page, Home and End keys move it. A click on the first label sets the value 0, on any other the
/// maximum: labels stand for the two ends. The left button sets the value at the pointer as soon as it goes
/// down, and the handle follows until it is released; a release of any other button sets it, too. Values are
/// counted from 0 whatever the minimum, so that with one below 0 the pointer reaches the maximum before the
/// right end, and keys alone reach what is below 0.
///
/// Texts are plain. Screen readers are told a slider of this widget's accessible name, or else of the first
/// and the last label. The natural size has room for all labels side by side; made narrower, they overlap.
/// GUI thread only. \since 1.0
class LUMQT_EXPORT CBPSmoothSlider : public QWidget
{
    Q_OBJECT

public:
    /// An empty widget until Init().
    /// \since 1.0
    explicit CBPSmoothSlider(QWidget *parent);
    ~CBPSmoothSlider() override;

    /// Makes the slider, 44 pixels high, and sets it to 0, or the number nearest to it. Mind the order:
    /// \a maximum comes first. A minimum above the maximum is the only value. Called again it takes the new
    /// labels and range. With fewer than two labels it does nothing. \since 1.0
    void Init(QStringList labels, int maximum, int minimum);

    /// Sets the value, kept within the range; nothing without a slider.
    /// \since 1.0
    void SetValue(int value);

    /// The value; -1 without a slider.
    /// \since 1.0
    int GetValue() const;

    /// Paints the slider and its labels, and takes the clicks on both.
    /// \since 1.0
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// The value is another one: once for each change, whether the user, a call or Init() made it.
    /// \since 1.0
    void valueChanged(int value);

private:
    bool doMouseEvent(QMouseEvent *event, QWidget *widget);
    bool doPaintEvent(QPaintEvent *event, QWidget *widget);
    bool DrawSlider();
    bool DrawLabel();
    void drawValue(QPainter &painter, int handleX) const;

    QStringList m_labels;
    QPointer<QSlider> m_slider;
    QPointer<QLabel> m_labelRow;
};
