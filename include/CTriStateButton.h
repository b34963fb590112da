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
    // A locked button, and one that never toggles, refuses to be checked: that comes first.
    /// Whether it is checked. It cannot be set while the button is locked or never toggles. \since 1.0
    Q_PROPERTY(bool checked READ IsChecked WRITE SetChecked NOTIFY checkedChanged USER true)
    /// Whether only clicks change it. \since 1.0
    Q_PROPERTY(bool locked READ isLocked WRITE setLocked)
    /// Whether not even clicks change it. \since 1.0
    Q_PROPERTY(bool neverToggles READ neverToggles WRITE setNeverToggles)
    /// The frame of the unchecked button, and its text's colour where textColors does not say it. \since 1.0
    Q_PROPERTY(QColor plainColor READ plainColor WRITE setPlainColor RESET resetPlainColor)
    /// The same under the mouse. \since 1.0
    Q_PROPERTY(QColor hoverColor READ hoverColor WRITE setHoverColor RESET resetHoverColor)
    /// The same of the checked button. \since 1.0
    Q_PROPERTY(QColor checkedColor READ checkedColor WRITE setCheckedColor RESET resetCheckedColor)
    /// The text colours by look: plain, hovered, checked. \since 1.0
    Q_PROPERTY(QStringList textColors READ textColors WRITE setTextColors RESET resetTextColors)
    /// Of no effect: the text is drawn in the widget's own font. \since 1.0
    Q_PROPERTY(QFont textFont READ textFont WRITE SetFont DESIGNABLE false)
    /// Of no effect: the three colours above are the frame's. \since 1.0
    Q_PROPERTY(QStringList frameColors READ frameColors WRITE setFrameColors DESIGNABLE false)
    /// Of no effect: an invalid colour of the three leaves the frame away. \since 1.0
    Q_PROPERTY(bool frameTransparent READ isFrameTransparent WRITE setFrmTrancent DESIGNABLE false)
    /// Of no effect, and so is checkedFrameColor: the third background is the checked one's. \since 1.0
    Q_PROPERTY(QColor checkedBackgroundColor READ checkedBgColor WRITE setCheckedBgColor DESIGNABLE false)
    /// See checkedBackgroundColor. \since 1.0
    Q_PROPERTY(QColor checkedFrameColor READ checkedFrmColor WRITE setCheckedFrmColor DESIGNABLE false)
    /// Not for a toggle, which clicks. \since 1.0
    Q_PROPERTY(bool hasMenu READ hasMenu WRITE setHasMenu DESIGNABLE false)
    /// Of no effect, as the five below: the button draws none. \since 1.0
    Q_PROPERTY(QIcon icon READ icon WRITE setIcon DESIGNABLE false)
    /// See icon. \since 1.0
    Q_PROPERTY(QSize iconSize READ iconSize WRITE setIconSize DESIGNABLE false)
    /// See icon. \since 1.0
    Q_PROPERTY(bool iconAfterText READ isIconAfterText WRITE setIconAfterText DESIGNABLE false)
    /// See icon. \since 1.0
    Q_PROPERTY(__ALIGN_TYPE alignment READ alignment WRITE setAlignment DESIGNABLE false)
    /// See icon. \since 1.0
    Q_PROPERTY(int spacing READ spacing WRITE setSpacing DESIGNABLE false)
    /// See icon. \since 1.0
    Q_PROPERTY(int iconVerticalOffset READ iconVerticalOffset WRITE SetIconVoffSet DESIGNABLE false)

public:
    /// An unchecked button, 28 pixels high and 85 wide.
    ///
    /// With \a locked only clicks change it: SetChecked() is refused. With \a noToggle nothing does: clicks
    /// are reported, and that is all. \since 1.0
    CTriStateButton(QString text, bool locked, bool noToggle, QWidget *parent);

    /// The same without a text, neither locked nor kept from toggling.
    /// \since 1.0
    explicit CTriStateButton(QWidget *parent = nullptr);
    ~CTriStateButton() override;

    /// Whether the button is checked.
    /// \since 1.0
    bool IsChecked() const;

    /// Checks the button or not, without a signal but checkedChanged(). Ignored on a locked button and on one
    /// that never toggles. \since 1.0
    void SetChecked(bool checked);

    /// Locks the button, or no longer; see the constructor.
    /// \since 1.0
    void setLocked(bool locked) { m_locked = locked; }

    /// Whether SetChecked() is refused.
    /// \since 1.0
    bool isLocked() const { return m_locked; }

    /// Keeps the button from toggling, or no longer; see the constructor.
    /// \since 1.0
    void setNeverToggles(bool never) { m_noToggle = never; }

    /// Whether clicks are reported and change nothing.
    /// \since 1.0
    bool neverToggles() const { return m_noToggle; }

    /// Sets the frame colours, copied, and makes them the text colours of the three looks, too. Before, a
    /// plain text is black, whatever its frame. An invalid colour draws no frame, and its text in the
    /// built-in colour. \since 1.0
    void SetColor(QColor &plain, QColor &checked, QColor &hover);

    /// Sets the frame colour of the plain button alone, which is its text's, too, unless setTextColors() has
    /// set those. See SetColor() about an invalid one. \since 1.0
    void setPlainColor(const QColor &color);
    /// The frame colour of the plain button.
    /// \since 1.0
    QColor plainColor() const;
    /// Makes it the theme's again.
    /// \since 1.0
    void resetPlainColor();

    /// The same under the mouse; see setPlainColor().
    /// \since 1.0
    void setHoverColor(const QColor &color);
    /// The frame colour under the mouse.
    /// \since 1.0
    QColor hoverColor() const;
    /// Makes it the theme's again.
    /// \since 1.0
    void resetHoverColor();

    /// The same of the checked button; see setPlainColor().
    /// \since 1.0
    void setCheckedColor(const QColor &color);
    /// The frame colour of the checked button.
    /// \since 1.0
    QColor checkedColor() const;
    /// Makes it the theme's again.
    /// \since 1.0
    void resetCheckedColor();

    /// The text colours by name: plain, hovered, checked.
    /// \since 1.0
    QStringList textColors() const;
    /// Sets them: three, or as setTextColor() takes them. A colour of the frame is no longer the text's
    /// then. \since 1.0
    void setTextColors(const QStringList &names);
    /// Makes them those of the frame again, where these were set, else the theme's.
    /// \since 1.0
    void resetTextColors();

Q_SIGNALS:
    /// The button was checked, or no longer is: told after clicked(); of click() and of a checkable button
    /// along with clicked() or toggled(). The button may be deleted here. \since 1.0
    void checkedChanged(bool checked);

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
    void tellCheck();
    void setFrame(int look, const QColor &color, bool own);
    QColor reportedFrame(int look) const;
    bool hasOwnTexts() const;
    QColor lookTextColor(int look) const;
    QColor frameColor(int look) const;

    bool m_checked = false;
    bool m_toldChecked = false;     // what checkedChanged() has said last
    bool m_tellsAfterClick = false; // clicked() is under way, and checkedChanged() comes after
    bool m_followsToggled = false;  // connected to it
    bool m_hovered = false;
    bool m_noToggle;
    bool m_locked;
    unsigned char m_ownFrames = 0; // a bit for each look whose frame an application has set
    QColor m_frames[3];            // by look
    QVector<QColor> m_frameTexts;  // the text colours that come of the frames
    std::unique_ptr<lumqt::CachedText> m_label;
    lumqt::FocusMark m_focusMark{};
};
