#pragma once

#include "CBPStateWidget.h"
#include "ENAlign.h"

#include <QFont>
#include <QPointer>
#include <QString>

#include <memory>

class CBPMenu;
class CBPMenuItem;
class QAccessibleInterface;
class QAction;

namespace lumqt {
class CachedText;
class PaintedImage;
enum class FocusMark : unsigned char;
enum class Press : unsigned char;
} // namespace lumqt

/// A button of tool bars and side panels: an image per state and a text beside or below it, an id, and a
/// drop-down menu if wanted.
///
/// Releasing the left mouse button, wherever the pointer is by then, reports sigClick() with the id; a
/// button with a menu opens the menu instead. Space does the same for keyboard users, and Enter where the
/// window is no dialog, whose default button it is for; the Down key opens a menu. Escape takes back a
/// press that is held while the focus is here; a click does not bring it. Images are file names, one per
/// state in the order normal, hover, pressed, disabled; a list with fewer has none for the rest, and a
/// missing file leaves its place empty. The text is plain. Its height is the caller's or the layout's
/// business. All sizes are logical pixels. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPToolButton : public CBPStateWidget
{
    Q_OBJECT

public:
    /// A button, without a parent, that shows \a image in every state. With \a autoResize it fixes its own
    /// width. An \a align that is none of the enumeration draws neither image nor text. \since 1.0
    CBPToolButton(QString &image, QString text, int id, ENAlign align, bool autoResize);

    /// A button, without a parent, with an image per state. See the first constructor.
    /// \since 1.0
    CBPToolButton(QVector<QString> &images, QString text, int id, ENAlign align, bool autoResize);

    /// A button, without a parent, without images. See the first constructor.
    /// \since 1.0
    CBPToolButton(QString text, int id, ENAlign align, bool autoResize);

    /// Deletes the menu that the button made, too, once control is back in the event loop.
    /// \since 1.0
    ~CBPToolButton() override;

    /// Replaces the images, copied; an empty list leaves none. The button sizes itself, if it does.
    /// \since 1.0
    void SetImage(QVector<QString> &images);

    /// Shows \a image in every state. The button sizes itself, if it does.
    /// \since 1.0
    void SetImage(QString &image);

    /// Sets the text. The button sizes itself, if it does.
    /// \since 1.0
    void SetText(const QString &text);

    /// The text.
    /// \since 1.0
    QString text() const;

    /// Sets the colour of text and triangle in every state.
    /// \since 1.0
    void SetTextColor(QColor &color);

    /// Sets the colours of text and triangle, one per state. Where one is missing or invalid the built-in one
    /// is painted. \since 1.0
    void SetTextColor(QVector<QColor> colors);

    /// The text colour of the present state; invalid when the list has none.
    /// \since 1.0
    QColor textClr() const;

    /// The image file for the button disabled, or for it at rest; empty unless there are four.
    /// \since 1.0
    QString icon() const;

    /// Sets the room left and right of the content that a button that sizes itself counts; 10 at first. An
    /// image beside the text starts behind the left one. \since 1.0
    void SetHorBorder(int left, int right);

    /// Sets the gap between image and text; 5 at first. The button sizes itself, if it does.
    /// \since 1.0
    void SetSpacing(int spacing);

    /// Sets the size of the menu's triangle; 6 x 4 at first. Shown at the next paint.
    /// \since 1.0
    void SetArrowSize(int width, int height);

    /// Sets the font; the size is in pixels, and one below 1 is ignored. The width follows at the next
    /// setter that sizes. \since 1.0
    void SetTextFont(const QString &family, int pixelSize);

    /// Sets the font's size in pixels; see SetTextFont().
    /// \since 1.0
    void setPixelSize(int pixelSize);

    /// Makes the button fix its own width from the next setter that sizes on, or no longer.
    /// \since 1.0
    void setAutoResize(bool autoResize);

    /// With true the menu stays open when the button is hidden.
    /// \since 1.0
    void setIsShrinked(bool shrinked);

    /// Shows an open hand as the pointer over the button, or the arrow.
    /// \since 1.0
    void SetChgCursor(bool hand);

    /// Adds an item to the menu, which the first call makes: from then on the button opens it. \a id becomes
    /// the item's data; an empty \a iconPath gives an item without an icon. \since 1.0
    void AppendMenuItem(QString iconPath, QString text, int id);

    /// Adds \a menu, which keeps its owner, as a sub-menu; see AppendMenuItem(). Null is ignored.
    /// \since 1.0
    void AppendSubMenu(CBPMenu *menu);

    /// Replaces the menu, on a button that has one; on any other the call does nothing. The new one keeps its
    /// owner, and what is chosen in it is not reported: connect to it yourself. The menu before is kept while
    /// the button lives, when the button made it. With null a click opens nothing. \since 1.0
    void SetMenu(CBPMenu *menu);

    /// The menu, or null. An application may delete it.
    /// \since 1.0
    CBPMenu *GetMenu() const;

    /// The id that sigClick() reports.
    /// \since 1.0
    int GetBtnID() const;

    /// The size that the content asks for, with the borders.
    /// \since 1.0
    QSize sizeHint() const override;

Q_SIGNALS:
    /// The button without a menu was clicked. It may be deleted here.
    /// \since 1.0
    void sigClick(int id);

    /// An item of the menu that the button made was chosen. The item belongs to the menu.
    /// \since 1.0
    void sigActionTriggered(CBPMenuItem *item);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private Q_SLOTS:
    void OnActionTriggered(QAction *pAct);

private:
    class Accessible;
    friend class Accessible;

    static QAccessibleInterface *makeAccessible(QWidget *widget);
    void init();
    CBPMenu *ownedMenu();
    void menuChanged();
    void activate();
    void activateByKey();
    void rest();
    void AutoResize();
    int contentWidth() const;
    QSize currentImageSize() const;
    void measureText();
    QColor paintedTextColor() const;
    void drawContent(QPainter &painter);
    void updateRing();
    bool hasRingRoom() const;
    QPoint imagePosition(const QSize &image) const;
    QPoint textPosition(const QSize &image) const;
    QPoint arrowPosition(const QSize &image) const;

    QVector<QString> m_images;
    QString m_text;
    QVector<QColor> m_textColors;
    bool m_ownTextColors = false; // an application has set them
    QFont m_font;
    int m_left;
    int m_right;
    int m_spacing;
    ENAlign m_align;
    int m_id;
    int m_arrowWidth;
    int m_arrowHeight;
    bool m_hasMenu = false;
    QPointer<CBPMenu> m_menu;
    bool m_shrinked = false;
    bool m_autoResize;

    QSize m_textSize; // invalid for an empty text
    std::unique_ptr<lumqt::CachedText> m_label;
    std::unique_ptr<lumqt::PaintedImage> m_image;
    lumqt::FocusMark m_focusMark{};
    lumqt::Press m_press{};
    bool m_ringShown = false;
    bool m_ringInside = false;
};
