#pragma once

#include "CBPPushBtn.h"
#include "LumQtCompat.h"

/// A push button in the shape of a circle, for an icon or a letter or two.
///
/// Only the circle answers the mouse. Screen readers are told the accessible name; where none was set, the
/// text or the tool tip. The focus ring is #2f86d8 at first. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPRoundBtn : public CBPPushBtn
{
    Q_OBJECT

public:
    /// A button of \a diameter pixels, from 1 to 4096, with an \a id for sigBtnClicked().
    /// \since 1.0
    explicit CBPRoundBtn(int diameter = 28, int id = 0, QWidget *parent = nullptr);
    ~CBPRoundBtn() override;

    /// Sets the diameter in pixels, kept between 1 and 4096.
    /// \since 1.0
    void SetDiameter(int diameter);

    /// The diameter in pixels.
    /// \since 1.0
    int GetDiameter() const;

protected:
    bool hitButton(const QPoint &position) const override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    /// Override it with lumqt::EnterEvent, and it compiles with either Qt. \since 1.0
    void enterEvent(lumqt::EnterEvent *event) override;

private:
    void hover(const QPoint &position);
};
