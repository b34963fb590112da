#pragma once

#include "CBtnObj.h"
#include "LumQtCompat.h"

#include <QFont>
#include <QPointer>
#include <QPushButton>

#include <memory>

class CBPMenu;
class CBPMenuItem;
class QAction;
class QPainter;
class QPen;

namespace lumqt {
class CachedText;
enum class Press : unsigned char;
struct ButtonTones;
} // namespace lumqt

/// The library's push button: text, an icon before or behind it, a colour per state, an id, and a drop-down
/// menu if wanted.
///
/// The button is 28 pixels high. Its colours come from the CBtnObj it carries. A click reports
/// sigBtnClicked() with the button's id; a button with a menu opens the menu instead. The text is plain: an
/// "&" in it is shown, and makes no shortcut. For keyboard users Space, and Enter on a default button, do
/// what the mouse does.
///
/// Where it is not as a QPushButton: moves of the mouse go unnoticed. Dragging it off the pressed button does
/// not lift the button, and a release outside, though no clicked() or released() comes, is told by
/// sigBtnClicked(). Escape takes the press back. A button with a menu sends pressed() and opens the menu with
/// the release: released(), clicked() and toggled() do not come of the mouse or a key, and auto-repeat is not
/// for it. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPPushBtn : public QPushButton, public CBtnObj
{
    Q_OBJECT
    /// Whether the button answers the user; see setEnabled(). \since 1.0
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled)
    /// The caption, shown as it is: an "&" makes no shortcut. \since 1.0
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    /// The picture beside the text, or in the middle where there is none. \since 1.0
    Q_PROPERTY(QIcon icon READ icon WRITE setIcon)
    /// The largest size in pixels that the icon is drawn at; a button that sizes itself counts it. \since 1.0
    Q_PROPERTY(QSize iconSize READ iconSize WRITE resizeIcon)
    /// Of no effect: the button paints itself. \since 1.0
    Q_PROPERTY(bool flat READ isFlat WRITE setFlat DESIGNABLE false)
    /// What the text is drawn in; what it leaves open is as in the widget's font. \since 1.0
    Q_PROPERTY(QFont textFont READ textFont WRITE SetFont RESET resetTextFont)
    /// Whether the button fixes its own width; icon, menu and minimumAutoWidth count. \since 1.0
    Q_PROPERTY(bool autoResize READ autoResize WRITE setAutoResize)
    /// The least width in pixels of a button that sizes itself; 85 at first. \since 1.0
    Q_PROPERTY(int minimumAutoWidth READ minimumAutoWidth WRITE SetMininzerWidth RESET resetMinimumAutoWidth)
    /// Whether the icon stands to the right of the text. \since 1.0
    Q_PROPERTY(bool iconAfterText READ isIconAfterText WRITE setIconAfterText)
    /// Where the icon starts, at the left edge or centred together with the text. \since 1.0
    Q_PROPERTY(__ALIGN_TYPE alignment READ alignment WRITE setAlignment)
    /// The gap between icon and text in pixels; 10 at first. \since 1.0
    Q_PROPERTY(int spacing READ spacing WRITE showSpacing RESET resetSpacing)
    /// How many pixels an icon behind the text is moved down; 0 at first. \since 1.0
    Q_PROPERTY(
        int iconVerticalOffset READ iconVerticalOffset WRITE showIconOffset RESET resetIconVerticalOffset)
    /// Whether a click opens the menu, for which a triangle is drawn, and is not reported. \since 1.0
    Q_PROPERTY(bool hasMenu READ hasMenu WRITE setHasMenu)
    /// The number that sigBtnClicked() reports. \since 1.0
    Q_PROPERTY(int bindId READ bindId WRITE setBindId)
    /// Whether the button looks pressed for good. \since 1.0
    Q_PROPERTY(bool selected READ isSelected WRITE setSelected NOTIFY selectionChanged)
    /// The colour of the focus ring. \since 1.0
    Q_PROPERTY(QColor focusFrameColor READ focusFrameColor WRITE showFocusFrame RESET resetFocusFrameColor)
    /// The backgrounds by state: normal, hover, pressed, disabled. \since 1.0
    Q_PROPERTY(QStringList backgroundColors READ backgroundColors WRITE setBackgroundColors RESET
                   resetBackgroundColors)
    /// Whether all backgrounds are see-through; false makes see-through ones opaque. \since 1.0
    Q_PROPERTY(bool backgroundTransparent READ isBackgroundTransparent WRITE showTransparent)
    /// The frame colours by state. \since 1.0
    Q_PROPERTY(QStringList frameColors READ frameColors WRITE setFrameColors RESET resetFrameColors)
    /// Whether it goes without the focus ring and, with square corners, without its frame. \since 1.0
    Q_PROPERTY(bool frameTransparent READ isFrameTransparent WRITE showFrameless)
    /// Kept for derived buttons that draw a frame of their own, in pixels: this one's is one wide. \since 1.0
    Q_PROPERTY(int frameWidth READ frmWidth WRITE setFrmWidth DESIGNABLE false)
    /// The corner radius in pixels; 0, square, at first. \since 1.0
    Q_PROPERTY(int cornerRadius READ cornerRadius WRITE setCornerRadius RESET resetCornerRadius)
    /// The text colours by state. \since 1.0
    Q_PROPERTY(QStringList textColors READ textColors WRITE setTextColors RESET resetTextColors)
    /// Kept for derived buttons that draw a triangle of their own: this one's is the theme's. \since 1.0
    Q_PROPERTY(QStringList triangleColors READ triangleColors WRITE setTriangleColors RESET
                   resetTriangleColors DESIGNABLE false)
    /// What is laid over the background of a checked button; none at first. \since 1.0
    Q_PROPERTY(QColor checkedBackgroundColor READ checkedBgColor WRITE showCheckedBackground RESET
                   resetCheckedBackgroundColor)
    /// The frame of that; none at first. \since 1.0
    Q_PROPERTY(
        QColor checkedFrameColor READ checkedFrmColor WRITE showCheckedFrame RESET resetCheckedFrameColor)

public:
    /// Where the icon starts. The text itself is always centred in the button.
    /// \since 1.0
    enum __ALIGN_TYPE : int {
        ALIGN_LEFT = 0,   ///< 16 pixels from the left edge
        ALIGN_CENTER = 1, ///< icon and text as one centred block
    };
    Q_ENUM(__ALIGN_TYPE)

    /// A button without text; the id is 0.
    ///
    /// With \a autoResize the button fixes its own width: icon, menu and minimum width count, the text does
    /// not. With \a iconAfterText the icon stands to the right of the text. \since 1.0
    explicit CBPPushBtn(QWidget *parent = nullptr, bool autoResize = false, bool iconAfterText = false);

    /// A button with \a text; the id is 0. See the first constructor.
    /// \since 1.0
    CBPPushBtn(QString text, QWidget *parent, bool autoResize = false, bool iconAfterText = false);

    /// A button with \a text and an \a id, without a parent: put it into a layout, or delete it.
    /// An \a align that is none of the enumeration starts the icon at the left edge.
    /// \since 1.0
    CBPPushBtn(QString text, int id, __ALIGN_TYPE align, bool autoResize = false, bool iconAfterText = false);

    /// Deletes the menu that the button made, too, once control is back in the event loop.
    /// \since 1.0
    ~CBPPushBtn() override;

    // Both the keyboard focus and the record's focus flag go by this name.
    using CBtnObj::setFocus;
    using QPushButton::setFocus;

    /// Sets the text; then the button sizes itself, if it does.
    /// \since 1.0
    void setText(const QString &text);

    /// Sets the icon, drawn at iconSize(); then the button sizes itself, if it does.
    /// \since 1.0
    void setIcon(const QIcon &icon);

    /// Sets the font that the text is drawn in (QWidget::setFont() has no effect on it).
    /// \since 1.0
    void SetFont(const QFont &font);

    /// The font of the text: that of SetFont(), and what it leaves open as the widget's own font has it.
    /// \since 1.0
    QFont textFont() const;

    /// Makes it the library's font again.
    /// \since 1.0
    void resetTextFont();

    /// Makes the button fix its own width, or frees a width that it has fixed.
    /// \since 1.0
    void setAutoResize(bool autoResize);

    /// Whether the button fixes its own width.
    /// \since 1.0
    bool autoResize() const { return m_autoResize; }

    /// Sets the lower bound of a self-sized button's width, in pixels; 85 at first.
    /// \since 1.0
    void SetMininzerWidth(int width);

    /// What SetMininzerWidth() has set.
    /// \since 1.0
    int minimumAutoWidth() const { return m_minimumWidth; }

    /// Makes it 85 pixels again.
    /// \since 1.0
    void resetMinimumAutoWidth();

    /// Puts the icon to the right of the text, or before it, where it is at first.
    /// \since 1.0
    void setIconAfterText(bool after);

    /// Whether the icon stands to the right of the text.
    /// \since 1.0
    bool isIconAfterText() const { return m_iconAfterText; }

    /// Sets where the icon starts. A number that is none of the enumeration means the left edge.
    /// \since 1.0
    void setAlignment(__ALIGN_TYPE align);

    /// Where the icon starts.
    /// \since 1.0
    __ALIGN_TYPE alignment() const { return __ALIGN_TYPE(m_align); }

    /// Sets the gap between icon and text in pixels; 10 at first. Takes effect at the next resize or paint.
    /// \since 1.0
    void setSpacing(int spacing);

    /// The gap between icon and text in pixels.
    /// \since 1.0
    int spacing() const { return m_spacing; }

    /// Makes it 10 pixels again.
    /// \since 1.0
    void resetSpacing();

    /// Moves an icon behind the text down by \a offset pixels; 0 at first.
    /// \since 1.0
    void SetIconVoffSet(const int &offset);

    /// What SetIconVoffSet() has set.
    /// \since 1.0
    int iconVerticalOffset() const { return m_iconVerticalOffset; }

    /// Moves the icon back.
    /// \since 1.0
    void resetIconVerticalOffset();

    /// With true the button draws a triangle and opens its menu instead of clicking. Without a menu a click
    /// then does nothing. \since 1.0
    void setHasMenu(bool hasMenu);

    /// Whether a click opens the menu.
    /// \since 1.0
    bool hasMenu() const { return m_hasMenu; }

    /// Adds an item to the button's menu, which the first call makes. \a id becomes the item's data.
    /// An empty or missing icon file gives an item without an icon.
    /// \since 1.0
    void AppendMenuItem(QString iconPath, QString text, int id);

    /// The menu, or null. It belongs to the button; an application may delete it before.
    /// \since 1.0
    CBPMenu *GetMenu();

    /// The id that sigBtnClicked() reports.
    /// \since 1.0
    int bindId() const;

    /// Sets the id that sigBtnClicked() reports.
    /// \since 1.0
    void setBindId(int id);

    /// Paints the button as pressed as long as it is enabled, or no longer.
    /// \since 1.0
    void setSelected(bool selected);

    /// The flag of setSelected().
    /// \since 1.0
    bool isSelected() const;

    /// Enables or disables the button. Calls through QWidget do the same.
    /// \since 1.0
    void setEnabled(bool enabled);

    /// The opposite of setEnabled().
    /// \since 1.0
    void setDisabled(bool disabled);

    /// Makes the button its dialog's default button and shows it as focused.
    /// \since 1.0
    void setAsDefaultBtn();

    /// Sets the colour of the focus ring, two pixels wide; #4ba7f5 at first. Shown at the next paint.
    /// \since 1.0
    void setFocusFrameColor(QColor color);

    /// The colour of setFocusFrameColor().
    /// \since 1.0
    QColor focusFrameColor() const;

    /// Makes it the theme's again.
    /// \since 1.0
    void resetFocusFrameColor();

    /// Makes the background see-through in every state, or opaque again.
    /// \since 1.0
    void setBgTrancent(bool transparent);

    /// Takes the background of the checked look away.
    /// \since 1.0
    void resetCheckedBackgroundColor();

    /// Takes the frame of the checked look away.
    /// \since 1.0
    void resetCheckedFrameColor();

    /// As QPushButton's, and never narrower than the text, whatever a style sheet says of push buttons.
    /// \since 1.0
    QSize sizeHint() const override;

Q_SIGNALS:
    /// The second press of a double-click with the left mouse button.
    /// \since 1.0
    void doubleClicked();

    /// The button without a menu was clicked: the left mouse button was released after a press on it,
    /// wherever, or the keyboard or an assistive tool pressed it. After a mouse click it follows clicked().
    /// \since 1.0
    void sigBtnClicked(int iBtnId);

    /// An item of the button's menu was chosen. The item belongs to the menu.
    /// \since 1.0
    void sigActionTriggered(CBPMenuItem *pItem);

    /// setText() has changed the text. The button may be deleted here.
    /// \since 1.0
    void textChanged(const QString &text);

    /// setSelected() has changed the flag; of a click in a CButtonGroupBox it is told after the click. The
    /// button may be deleted here. \since 1.0
    void selectionChanged(bool selected);

protected:
    /// Draws the drop-down triangle, if the button has a menu.
    /// \since 1.0
    void drawArrow(QPainter *painter);

    /// Draws icon and text into \a rect in the colours of the state \a index; \a pen is the painter's own and
    /// is changed to the text colour. Replace it to draw another content. \since 1.0
    virtual void drawPixmapAndText(QPainter *painter, QPen &pen, QRect &rect, int index);

    /// With true a text that is wider than the button is drawn on one line and ends in an ellipsis; at first
    /// it is wrapped. \since 1.0
    void setTextElided(bool elided);

    /// Hears of each click that none of the button's event handlers is behind, before others do, and reports
    /// it by sigBtnClicked() or opens the menu. \since 1.0
    virtual void reportActivation();

    /// What of \a text is drawn on one line in \a width pixels: all of it, or as much as fits and an
    /// ellipsis. A line break counts as a space. A tool tip shows all of the text then, where the application
    /// set none. \since 1.0
    QString elided(const QString &text, int width) const;

    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    /// Override it with lumqt::EnterEvent, and it compiles with either Qt. \since 1.0
    void enterEvent(lumqt::EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    bool event(QEvent *event) override;

    /// Called when setSelected() has changed the flag; does nothing here. \since 1.0
    virtual void selectedChanged();

    void hideEvent(QHideEvent *event) override;

private Q_SLOTS:
    void OnActionTriggered(QAction *pAct);

private:
    class ClickWatch;
    friend class ClickWatch;
    friend class CBPMenuBtn;
    friend class CBPPopWnd;
    friend class CButtonGroupBox;
    friend class CTriStateButton;
    friend struct lumqt::ButtonTones;

    static constexpr int kMinimumAutoWidth = 85; // pixels, as the next two
    static constexpr int kIconSpacing = 10;
    static constexpr int kIconOffset = 0;

    void init();
    void autoResizeBtn();
    bool changeSelected(bool selected);
    void tellSelected();
    // Writers of properties: the setters, where those leave it to the next paint or resize to show the
    // change.
    void resizeIcon(const QSize &size);
    void showSpacing(int spacing);
    void showIconOffset(int offset);
    void showFocusFrame(const QColor &color);
    void showTransparent(bool transparent);
    void showFrameless(bool frameless);
    void showCheckedBackground(const QColor &color);
    void showCheckedFrame(const QColor &color);
    int iconWidth() const;
    int textWidth() const;
    lumqt::CachedText &textLayout() const;
    QSize styledSize(const QString &label, const QFont &letters) const;
    QPixmap iconPixmap() const;
    void openMenu();
    void returnMark();
    bool pressEnded();
    void pressLost();
    void followKey(bool wasDown, bool clicked);
    void drawCheckedLook(QPainter &painter, const QRect &rect) const;

    QColor m_focusFrameColor;
    short m_ringPurpose; // until an application sets the colour
    bool m_ownRing = false;
    int m_bindId = 0;
    bool m_autoResize = false;
    bool m_selected = false;
    bool m_toldSelected = false; // what selectionChanged() has said last
    int m_align = ALIGN_CENTER;
    int m_minimumWidth;
    int m_autoWidth = 0; // that the button has fixed last
    int m_spacing;
    QPointer<CBPMenu> m_menu;
    bool m_hasMenu = false;
    int m_arrowWidth;
    int m_arrowHeight;
    QFont m_font;
    bool m_iconAfterText = false;
    bool m_elided = false;
    int m_iconVerticalOffset = kIconOffset;
    bool m_reportsItself = false; // an event handler will emit sigBtnClicked when the base is done
    bool m_wasClicked = false;    // clicked() came while the handler was at work
    mutable std::unique_ptr<lumqt::CachedText> m_textLayout; // made when first measured or painted
    QString m_plainText;                                     // the text that makes no shortcut
    bool m_markedBefore = false;                             // as focused, when the mouse pressed it
    lumqt::Press m_press{};                                  // of the mouse
    mutable bool m_cut = false; // an ellipsis stood for the end of the text at the last paint
    mutable bool m_hintedAutoDefault = false;
    mutable bool m_hintedFlat = false;
    mutable QString m_hintedText;  // what the style was asked for last, and how the button was then
    mutable QSize m_hintedContent; // size of the text
    mutable QSize m_hint;          // what it said
};
