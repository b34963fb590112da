#pragma once

#include "CBPPushBtn.h"
#include "LumQtCompat.h"

#include <memory>

class QAccessibleInterface;

namespace lumqt {
class CachedText;
enum class FocusMark : unsigned char;
} // namespace lumqt

/// A toggle button with three looks: plain, hovered and checked.
///
/// In a dialog Enter is left to the dialog's own buttons, unless setDefault() or setAutoDefault() says
/// otherwise. A release of any mouse button, wherever the pointer is by then, flips it and emits clicked(),
/// whose argument is always false: ask IsChecked(). Space, Enter where the button is its dialog's default
/// button, and assistive tools do exactly the same, pressed() included; sigBtnClicked() and released() never
/// come, except that click() and a press that Escape takes back emit released() as in every button. Screen
/// readers are told of a check box, or of a plain button when it never toggles.
///
/// Where it is not as a QPushButton: the base class does not see the release, so there is no released(), the
/// right button clicks, too, a press is one wherever the mouse is dragged, and with setAutoRepeat() the last
/// release is not signalled. It is no auto-default button. Its state is its own: isChecked() and toggled()
/// take no part, unless setCheckable() is called, before the first click: then both are one state, toggled()
/// comes with SetChecked(), too, and the button can be one of an exclusive QButtonGroup. The
/// group sends buttonClicked() for click() only, and buttonReleased() where released() comes; buttonToggled()
/// tells of the choice. setChecked() then changes any button, a locked one and one that never toggles, too.
///
/// The look's index (0 plain, 1 hovered, 2 checked) picks the background of CBtnObj::setBgColor() and the
/// text colour; the frame has colours of its own, see SetColor(). The text is drawn on one line in the
/// widget's font, QWidget::setFont(); SetFont() has no effect on it. Where it finds no room within the frame
/// it ends in an ellipsis, and the tool tip shows all of it. GUI thread only. \since 1.0
class LUMQT_EXPORT CTriStateButton : public CBPPushBtn
{
    Q_OBJECT

public:
    /// An unchecked button, 28 pixels high and 85 wide.
    ///
    /// With \a locked only clicks change it: SetChecked() is refused. With \a noToggle nothing does: clicks
    /// are reported, and that is all. \since 1.0
    CTriStateButton(QString text, bool locked, bool noToggle, QWidget *parent);
    ~CTriStateButton() override;

    /// Whether the button is checked.
    /// \since 1.0
    bool IsChecked() const;

    /// Checks the button or not, without a signal. Ignored on a locked button and on one that never toggles.
    /// \since 1.0
    void SetChecked(bool checked);

    /// Sets the frame colours, copied, and makes them the text colours of the three looks, too. Before, a
    /// plain text is black, whatever its frame. An invalid colour draws no frame, and its text in the
    /// built-in colour. \since 1.0
    void SetColor(QColor &plain, QColor &checked, QColor &hover);

protected:
    void paintEvent(QPaintEvent *event) override;
    /// Override it with lumqt::EnterEvent, and it compiles with either Qt. \since 1.0
    void enterEvent(lumqt::EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void nextCheckState() override;
    void checkStateSet() override;
    void reportActivation() override;

private:
    class Accessible;
    friend class Accessible;

    static QAccessibleInterface *makeAccessible(QWidget *widget);
    void clickByTool();
    void followRelease();
    void mark(bool checked);
    QColor lookTextColor(int look) const;
    QColor frameColor(int look) const;

    bool m_checked = false;
    bool m_hovered = false;
    bool m_noToggle;
    bool m_locked;
    bool m_ownFrames = false; // an application has set these
    QColor m_plainColor;
    QColor m_checkedColor;
    QColor m_hoverColor;
    std::unique_ptr<lumqt::CachedText> m_label;
    lumqt::FocusMark m_focusMark{};
};
