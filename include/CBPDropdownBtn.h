#pragma once

#include "CBtnObj.h"
#include "LumQtCompat.h"

#include <QFont>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <memory>

class CBPMenu;
class CBPMenuItem;
class QAccessibleInterface;
class QAction;

namespace lumqt {
class CachedText;
enum class FocusMark : unsigned char;
} // namespace lumqt

/// A button that drops a menu down: a text, an icon before it if wanted, and a triangle at the right.
///
/// A press anywhere on it opens the menu right below, or above where the screen ends. A split button opens it
/// by the part with the triangle only; its other part is a button of its own, which reports sigBtnClicked().
/// Space and Enter do what a press on the text does, Enter in a dialog, too, as of a push button; Escape
/// takes back a press that is held, and so does a release elsewhere. Down, Alt+Down and F4 open the menu
/// always. Without a menu nothing opens. Hiding the button closes its menu.
///
/// The button is 28 pixels high. Colours, corner radii and the flag for the frame are those of the CBtnObj it
/// carries, the triangle's included; a list without four entries is put aside for the built-in colours. The
/// text is plain, and ends in an ellipsis where there is no room; the tool tip shows all of it then. Setters
/// repaint, except those of CBtnObj. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPDropdownBtn : public QWidget, public CBtnObj
{
    Q_OBJECT
    /// The caption, shown as it is: an "&" makes no shortcut. \since 1.0
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    /// The picture before the text, 16 x 16 pixels. \since 1.0
    Q_PROPERTY(QIcon icon READ icon WRITE setIcon)
    /// What the text is drawn in; what it leaves open is as in the widget's font. \since 1.0
    Q_PROPERTY(QFont textFont READ textFont WRITE SetFont RESET resetTextFont)
    /// Whether only the part with the triangle opens the menu, and the other one clicks. \since 1.0
    Q_PROPERTY(bool split READ isSplit WRITE setSplit)
    /// The number that sigBtnClicked() reports. \since 1.0
    Q_PROPERTY(int bindId READ bindId WRITE setBindId)
    /// The colour of the focus ring. \since 1.0
    Q_PROPERTY(
        QColor focusFrameColor READ focusFrameColor WRITE setFocusFrameColor RESET resetFocusFrameColor)
    /// The backgrounds by state: normal, hover, pressed, disabled. \since 1.0
    Q_PROPERTY(QStringList backgroundColors READ backgroundColors WRITE setBackgroundColors RESET
                   resetBackgroundColors)
    /// Whether all backgrounds are see-through; false makes see-through ones opaque. \since 1.0
    Q_PROPERTY(bool backgroundTransparent READ isBackgroundTransparent WRITE showTransparent)
    /// The frame colours by state. \since 1.0
    Q_PROPERTY(QStringList frameColors READ frameColors WRITE setFrameColors RESET resetFrameColors)
    /// Whether a button with square corners goes without its frame. \since 1.0
    Q_PROPERTY(bool frameTransparent READ isFrameTransparent WRITE showFrameless)
    /// The corner radius in pixels; 0, square, at first. \since 1.0
    Q_PROPERTY(int cornerRadius READ cornerRadius WRITE setCornerRadius RESET resetCornerRadius)
    /// The text colours by state; the line of a split button follows them. \since 1.0
    Q_PROPERTY(QStringList textColors READ textColors WRITE setTextColors RESET resetTextColors)
    /// The colours of the triangle by state. \since 1.0
    Q_PROPERTY(
        QStringList triangleColors READ triangleColors WRITE setTriangleColors RESET resetTriangleColors)

public:
    /// A button without text; the id is 0.
    /// \since 1.0
    explicit CBPDropdownBtn(QWidget *parent = nullptr);

    /// A button with \a text and an \a id.
    /// \since 1.0
    CBPDropdownBtn(QString text, int id, QWidget *parent = nullptr);

    /// Deletes the button's menu, too, once control is back in the event loop.
    /// \since 1.0
    ~CBPDropdownBtn() override;

    // Both the keyboard focus and the record's focus flag go by this name.
    using CBtnObj::setFocus;
    using QWidget::setFocus;

    /// Sets the text.
    /// \since 1.0
    void setText(const QString &text);

    /// The text.
    /// \since 1.0
    QString text() const;

    /// Sets the icon, 16 x 16 pixels; null means none.
    /// \since 1.0
    void setIcon(const QIcon &icon);

    /// The icon.
    /// \since 1.0
    QIcon icon() const { return m_icon; }

    /// Sets the font of the text (QWidget::setFont() has no effect on it).
    /// \since 1.0
    void SetFont(const QFont &font);

    /// The font of the text: that of SetFont(), and what it leaves open as the widget's own font has it.
    /// \since 1.0
    QFont textFont() const;

    /// Makes it the library's font again.
    /// \since 1.0
    void resetTextFont();

    /// With true only the part with the triangle opens the menu, and the other one clicks; false at first.
    /// \since 1.0
    void setSplit(bool split);

    /// Whether only the part with the triangle opens the menu.
    /// \since 1.0
    bool isSplit() const { return m_split; }

    /// Sets the colour of the focus ring, two pixels wide; #2f86d8 at first.
    /// \since 1.0
    void setFocusFrameColor(QColor color);

    /// The colour of setFocusFrameColor(), #2f86d8 where it has set none.
    /// \since 1.0
    QColor focusFrameColor() const;

    /// Makes it the theme's again.
    /// \since 1.0
    void resetFocusFrameColor();

    /// Adds an item to the button's menu, which the first call makes. \a id becomes the item's data.
    /// An empty or missing icon file gives an item without an icon. \since 1.0
    void AppendMenuItem(QString iconPath, QString text, int id);

    /// Adds \a menu, which keeps its owner, as a sub-menu of the button's menu. Null is ignored.
    /// \since 1.0
    void AppendSubMenu(CBPMenu *menu);

    /// The menu, or null. It belongs to the button; an application may delete it before.
    /// \since 1.0
    CBPMenu *GetMenu() const;

    /// The id that sigBtnClicked() reports.
    /// \since 1.0
    int bindId() const;

    /// Sets the id that sigBtnClicked() reports.
    /// \since 1.0
    void setBindId(int id) { m_id = id; }

    /// Opens the menu, as a press on the triangle does, and returns once it is closed. The button may be
    /// gone then. Without a menu, while it is open, and on a disabled button nothing
    /// happens. \since 1.0
    void OpenMenu();

    /// The size at which all of the text is shown.
    /// \since 1.0
    QSize sizeHint() const override;

    /// The least useful size: the text has become an ellipsis.
    /// \since 1.0
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The text's part of a split button was clicked: pressed and released there, or by keyboard or an
    /// assistive tool. The button may be deleted here. \since 1.0
    void sigBtnClicked(int iBtnId);

    /// An item of the menu was chosen. The item belongs to the menu.
    /// \since 1.0
    void sigActionTriggered(CBPMenuItem *pItem);

    /// setText() has changed the text. The button may be deleted here.
    /// \since 1.0
    void textChanged(const QString &text);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    /// Override it with lumqt::EnterEvent, and it compiles with either Qt. \since 1.0
    void enterEvent(lumqt::EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    bool event(QEvent *event) override;

private Q_SLOTS:
    void OnActionTriggered(QAction *pAct);

private:
    class Accessible;
    friend class Accessible;

    static QAccessibleInterface *makeAccessible(QWidget *widget);
    CBPMenu *ownedMenu();
    QPoint menuPosition() const;
    void look(int state);
    void rest();
    void activate();
    QSize hint(int textWidth) const;
    int textGap() const;
    QRect visual(const QRect &place) const;
    QRect arrowRect() const;
    QColor dividerColor(int index) const;
    void drawContent(QPainter &painter, int index);
    // Writers of properties: the setters, which leave it to the next paint to show the change.
    void showTransparent(bool transparent);
    void showFrameless(bool frameless);

    QString m_text;
    QIcon m_icon;
    QFont m_font;
    int m_id = 0;
    QColor m_focusFrameColor;
    bool m_ownRing = false; // an application has set its colour
    bool m_split = false;
    bool m_pressed = false; // by mouse or Space, and to be clicked at the release
    bool m_menuOpen = false;
    QPointer<CBPMenu> m_menu;
    std::unique_ptr<lumqt::CachedText> m_label;
    lumqt::FocusMark m_focusMark{};
    bool m_cut = false; // an ellipsis stood for the end of the text at the last paint
};
