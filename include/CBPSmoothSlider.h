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
    /// The labels, two at least: fewer are refused. \since 1.0
    Q_PROPERTY(QStringList labels READ labels WRITE setLabels)
    /// The least value, 0 at first; above the maximum it is the only one. \since 1.0
    Q_PROPERTY(int minimum READ minimum WRITE setMinimum RESET resetMinimum)
    /// The greatest value, 100 at first. \since 1.0
    Q_PROPERTY(int maximum READ maximum WRITE setMaximum RESET resetMaximum)
    // After the range: once there is a slider, it is kept within that.
    /// The value; -1 without labels. \since 1.0
    Q_PROPERTY(int value READ GetValue WRITE SetValue NOTIFY valueChanged)

public:
    /// An empty widget until Init() or setLabels().
    /// \since 1.0
    explicit CBPSmoothSlider(QWidget *parent = nullptr);
    ~CBPSmoothSlider() override;

    /// Makes the slider, 44 pixels high, and sets it to 0, or the number nearest to it. Mind the order:
    /// \a maximum comes first. A minimum above the maximum is the only value. Called again it takes the new
    /// labels and range. With fewer than two labels it does nothing. \since 1.0
    void Init(QStringList labels, int maximum, int minimum);

    /// The labels. \since 1.0
    QStringList labels() const;

    /// Replaces the labels, and nothing else. Where there was no slider, it is made with the range and the
    /// value that have been set. A single text is taken apart at its commas; with fewer than two labels it
    /// does nothing. \since 1.0
    void setLabels(const QStringList &labels);

    /// The least value. \since 1.0
    int minimum() const;

    /// Sets the least value; one above the maximum is the only value, until that is raised. \since 1.0
    void setMinimum(int minimum);

    /// Makes it 0 again. \since 1.0
    void resetMinimum();

    /// The greatest value. \since 1.0
    int maximum() const;

    /// Sets the greatest value; below the minimum, that is the only value. \since 1.0
    void setMaximum(int maximum);

    /// Makes it 100 again. \since 1.0
    void resetMaximum();

    /// Sets the value, kept within the range. Without a slider it is kept for setLabels().
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
    static constexpr int kMinimum = 0;
    static constexpr int kMaximum = 100;

    bool doMouseEvent(QMouseEvent *event, QWidget *widget);
    bool doPaintEvent(QPaintEvent *event, QWidget *widget);
    bool DrawSlider();
    bool DrawLabel();
    void applyRange();
    void drawValue(QPainter &painter, int handleX) const;

    QStringList m_labels;
    int m_minimum = kMinimum; // as they were set, in whatever order
    int m_maximum = kMaximum;
    int m_wantedValue = 0; // of who set it before there was a slider
    QPointer<QSlider> m_slider;
    QPointer<QLabel> m_labelRow;
};
