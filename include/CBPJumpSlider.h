#pragma once

#include "LumQtGlobal.h"

#include <QLabel>
#include <QPointer>
#include <QSlider>
#include <QString>
#include <QStringList>
#include <QWidget>

class QMouseEvent;
class QPaintEvent;

/// A slider that moves in whole steps between named positions, from left to right, one per label under it.
///
/// Arrow, Page, Home and End keys move it. A click on a label jumps there, one on the slider beside the
/// handle goes a step towards the pointer, and the handle can be dragged. Texts are plain. Screen readers are
/// told a slider of this widget's accessible name, or else of the first and the last label, whose value is
/// the label. The natural size has room for all labels side by side; made narrower, they overlap. GUI thread
/// only. \since 1.0
class LUMQT_EXPORT CBPJumpSlider : public QWidget
{
    Q_OBJECT
    /// The labels, two at least: fewer are refused. New ones set the slider to the first. \since 1.0
    Q_PROPERTY(QStringList labels READ labels WRITE setLabels)
    /// Number of the position, counted from 0; -1 without labels. \since 1.0
    Q_PROPERTY(int value READ value WRITE setValue NOTIFY valueChanged)
    /// The label at the position; a text that is none changes nothing. \since 1.0
    Q_PROPERTY(QString currentText READ GetPosText WRITE SetPosByText NOTIFY currentTextChanged
                   DESIGNABLE false STORED false)

public:
    /// An empty widget until Init() or setLabels().
    /// \since 1.0
    explicit CBPJumpSlider(QWidget *parent = nullptr);
    ~CBPJumpSlider() override;

    /// Makes the slider with a position per label and sets it to the first. Called again it takes the new
    /// labels. With fewer than two labels it does nothing. \since 1.0
    void Init(QStringList labels);

    /// The labels. \since 1.0
    QStringList labels() const;

    /// Init(), and then to the position that was set while there was no slider; a single text is taken apart
    /// at its commas. \since 1.0
    void setLabels(const QStringList &labels);

    /// The position; -1 without a slider. \since 1.0
    int value() const;

    /// Moves the slider to the position \a value, kept within the labels. Without a slider it is kept for
    /// setLabels(). \since 1.0
    void setValue(int value);

    /// Moves the slider to the first label equal to \a text; a text that is none changes nothing. Without a
    /// slider it is kept for setLabels(). \since 1.0
    void SetPosByText(QString text);

    /// The label at the slider's position; empty without a slider.
    /// \since 1.0
    QString GetPosText() const;

    /// Paints the slider and its labels, and takes the clicks on the labels.
    /// \since 1.0
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// The slider is at another position: its number, counted from 0; GetPosText() has the label. Once for
    /// each change, whether the user, a call or Init() made it. \since 1.0
    void valueChanged(int value);

    /// Another text is at the position, after valueChanged() if that is another one, too. The slider may be
    /// deleted here. \since 1.0
    void currentTextChanged(const QString &text);

private:
    void tellText();
    bool doMouseEvent(QMouseEvent *event, QWidget *widget);
    bool doPaintEvent(QPaintEvent *event, QWidget *widget);
    bool DrawSlider();
    bool DrawLabel();

    QStringList m_labels;
    int m_wantedValue = 0; // of who set it before there was a slider
    QString m_toldText;    // by currentTextChanged()
    QString m_wantedText;  // goes before
    QPointer<QSlider> m_slider;
    QPointer<QLabel> m_labelRow;
};
