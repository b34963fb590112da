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
    /// How large the circle is across, in pixels from 1 to 4096; 28 at first. \since 1.0
    Q_PROPERTY(int diameter READ GetDiameter WRITE SetDiameter RESET resetDiameter)
    /// Half the diameter: it is not for a form to set, nor are the two below. \since 1.0
    Q_PROPERTY(int cornerRadius READ cornerRadius WRITE setCornerRadius DESIGNABLE false STORED false)
    /// False: the diameter says how wide the button is. \since 1.0
    Q_PROPERTY(bool autoResize READ autoResize WRITE setAutoResize DESIGNABLE false STORED false)
    /// Of no effect as long as autoResize is false. \since 1.0
    Q_PROPERTY(int minimumAutoWidth READ minimumAutoWidth WRITE SetMininzerWidth DESIGNABLE false)

public:
    /// A button of \a diameter pixels, from 1 to 4096, with an \a id for sigBtnClicked().
    /// \since 1.0
    explicit CBPRoundBtn(int diameter = 28, int id = 0, QWidget *parent = nullptr);

    /// A button of 28 pixels; the id is 0.
    /// \since 1.0
    explicit CBPRoundBtn(QWidget *parent);
    ~CBPRoundBtn() override;

    /// Sets the diameter in pixels, kept between 1 and 4096.
    /// \since 1.0
    void SetDiameter(int diameter);

    /// The diameter in pixels.
    /// \since 1.0
    int GetDiameter() const;

    /// Makes it 28 pixels again.
    /// \since 1.0
    void resetDiameter();

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
