#pragma once

#include "LumQtGlobal.h"

#include <QLabel>

/// A label for "working ...": a row of dots that gains one every second and begins anew when it is full.
///
/// It asks for the room of its full row, of 24 dots at most, so that nothing beside it moves. While it is
/// hidden no timer runs. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPEllipsisGifLabel : public QLabel
{
    Q_OBJECT

public:
    /// A row of up to three dots, without a parent. \since 1.0
    CBPEllipsisGifLabel();

    /// A row of up to \a maxDots dots; below 1 the text stays empty. \since 1.0
    explicit CBPEllipsisGifLabel(int maxDots, QWidget *parent = nullptr);

    ~CBPEllipsisGifLabel() override;

    /// Shows the label and starts its animation, once in its life: returns false, and does nothing, at any
    /// further call, also after HideGifLable(). The text is replaced with the first dot, one second later.
    /// \since 1.0
    bool ShowGifLable();

    /// Ends the animation and hides the label. \since 1.0
    void HideGifLable();

    /// Room for the full row. \since 1.0
    QSize sizeHint() const override;
    /// The same: neighbours stand still in a row in want of room, too. \since 1.0
    QSize minimumSizeHint() const override;

protected:
    /// Shows as many dots as there are now. \since 1.0
    void SetText();

    void timerEvent(QTimerEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    bool showsDots() const;
    QSize rowSize() const;
    bool startDots();
    void pauseDots();

    int m_timerId = 0; // of the last timer, also when that is gone
    bool m_ticking = false;
    bool m_playing = false; // from ShowGifLable() to HideGifLable()
    int m_dots = 0;
    int m_maxDots;
};
