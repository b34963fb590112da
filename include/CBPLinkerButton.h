#pragma once

#include "ENLinkerType.h"
#include "LumQtCompat.h"
#include "LumQtGlobal.h"

#include <QColor>
#include <QFont>
#include <QLabel>
#include <QStringList>
#include <QVector>

#include <memory>

namespace lumqt {
class CachedText;
enum class FocusMark : unsigned char;
enum class Press : unsigned char;
} // namespace lumqt

/// A text link: a label that looks like a hyperlink and reports clicks with the number it was bound to.
///
/// The text is plain: no markup, and an "&" is an ampersand. On one line, at the left; what does not fit is
/// cut off, and the whole text is the tool tip then (a tool tip of the caller's own does not last). The Tab
/// key reaches the link; Space and Enter click it, Enter in a dialog, too, as links do in a text; Escape
/// takes back a press that is held while the focus is here, which a click does not bring. A release of the
/// mouse clicks, wherever it is. Screen readers find a link named by its text.
///
/// Where it is not as a QLabel: its focus policy is Qt::TabFocus from the start (and what
/// setTextInteractionFlags() makes of it, as with any label), and with a text its size hint leaves rows of
/// links room for the focus ring, which lies around the text. Without a text it shows and measures a pixmap,
/// movie or picture as a label does, and the ring around it. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPLinkerButton : public QLabel
{
    Q_OBJECT
    /// When the link is underlined. \since 1.0
    Q_PROPERTY(LinkType linkType READ linkType WRITE setLinkType)
    /// The number that sigLinkerClick() reports. \since 1.0
    Q_PROPERTY(int bindId READ bindData WRITE setBindId)
    /// Whether the link has the colour of a pressed one for good. \since 1.0
    Q_PROPERTY(bool selected READ IsSelected WRITE SetSelected NOTIFY selectionChanged)
    /// The text colours: normal, hovered or focused, pressed or selected, disabled. \since 1.0
    Q_PROPERTY(QStringList textColors READ textColors WRITE setTextColors RESET resetTextColors)
    /// The size of the font in pixels; 14 at first, and less than 1 is left out. \since 1.0
    Q_PROPERTY(int fontPixelSize READ fontPixelSize WRITE SetFontPixel RESET resetFontPixelSize)

public:
    /// When a link is underlined: ENLinkerType, for the property. \since 1.0
    enum LinkType : int {
        LinkTypeAlways = ENLinkerTypeAlways, ///< always
        LinkTypeHover = ENLinkerTypeHover,   ///< while the mouse is over it
        LinkTypeNever = ENLinkerTypeNever,   ///< never
    };
    Q_ENUM(LinkType)

    /// A link with \a text, underlined as \a type says (of another number, as it was), that reports \a
    /// bindId. \since 1.0
    explicit CBPLinkerButton(const QString &text, ENLinkerType type = ENLinkerTypeHover, int bindId = 0,
                             QWidget *parent = nullptr);

    /// A link without a text, underlined under the mouse; the number is 0.
    /// \since 1.0
    explicit CBPLinkerButton(QWidget *parent = nullptr);
    ~CBPLinkerButton() override;

    /// Sets the font size in pixels, 14 at first; less than 1 is left out with a warning.
    ///
    /// The text keeps the library's family, while the label's own style sheet is replaced by one that names
    /// the size only. \since 1.0
    void SetFontPixel(int px);

    /// The font size in pixels.
    /// \since 1.0
    int fontPixelSize() const { return m_font.pixelSize(); }

    /// Makes it 14 pixels again, by the style sheet that the link has at first.
    /// \since 1.0
    void resetFontPixelSize();

    /// Sets the text colour of all states, disabled too.
    /// \since 1.0
    void SetTextColor(QColor &c);

    /// Sets the text colours: normal, hovered or focused, pressed or selected, disabled. A state that the
    /// list has no valid colour for takes the built-in one. \since 1.0
    void SetTextColor(const QVector<QColor> &colors);

    /// The same by name; an empty name stands for the built-in colour.
    /// \since 1.0
    void setTextColors(const QStringList &names);

    /// The text colours by name, "#rrggbb" or "#aarrggbb"; the built-in ones where none were set.
    /// \since 1.0
    QStringList textColors() const;

    /// Makes the text colours the theme's again.
    /// \since 1.0
    void resetTextColors();

    /// Shows the pressed colour until further notice, or no longer.
    /// \since 1.0
    void SetSelected(bool selected);

    /// Whether the link was selected by SetSelected().
    /// \since 1.0
    bool IsSelected() const;

    /// Sets when the link is underlined.
    /// \since 1.0
    void SetLinkerType(ENLinkerType type);

    /// The same for the property.
    /// \since 1.0
    void setLinkType(LinkType type) { SetLinkerType(static_cast<ENLinkerType>(type)); }

    /// When the link is underlined.
    /// \since 1.0
    LinkType linkType() const { return static_cast<LinkType>(m_type); }

    /// The number that sigLinkerClick() reports.
    /// \since 1.0
    int bindData() const;

    /// Sets the number that sigLinkerClick() reports.
    /// \since 1.0
    void setBindId(int id) { m_bindId = id; }

    /// Room for the whole text, and a little above and below it.
    /// \since 1.0
    QSize sizeHint() const override;

Q_SIGNALS:
    /// The left mouse button was released, or Space or Enter pressed, on the enabled link.
    /// \since 1.0
    void sigLinkerClick(int bindId);

    /// SetSelected() has changed the flag. The link may be deleted here.
    /// \since 1.0
    void selectionChanged(bool selected);

protected:
    /// Override it with lumqt::EnterEvent, and it compiles with either Qt. \since 1.0
    void enterEvent(lumqt::EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void wearSheet(const QString &sheet);
    void setLook(int mouseState);
    void followMouse(bool over);
    void clickByKey();
    void rest();
    QString shownText();

    int m_type;
    int m_mouseState = 0;
    QFont m_font;
    QVector<QColor> m_textColors; // empty: not set
    int m_bindId;
    bool m_selected = false;
    bool m_hoverUnderline = false; // of the type that is underlined under the mouse
    QString m_elidedOf;            // what m_elided was made of, with the width below
    int m_elidedWidth = -1;
    QString m_elided;
    std::unique_ptr<lumqt::CachedText> m_layout;
    lumqt::FocusMark m_focusMark{};
    lumqt::Press m_press{};
};
