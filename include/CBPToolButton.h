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
    /// The image files: normal, hover, pressed, disabled. \since 1.0
    Q_PROPERTY(QStringList images READ images WRITE setImages)
    /// The caption beside the image or below it, shown as it is. \since 1.0
    Q_PROPERTY(QString text READ text WRITE SetText NOTIFY textChanged)
    /// The number that sigClick() reports. \since 1.0
    Q_PROPERTY(int id READ GetBtnID WRITE setId)
    /// Where the image stands; with a number that is neither nothing is drawn. \since 1.0
    Q_PROPERTY(Align align READ align WRITE setAlign)
    /// Whether the button fixes its own width. \since 1.0
    Q_PROPERTY(bool autoResize READ autoResize WRITE resizeItself)
    /// The colours of text and triangle by state. \since 1.0
    Q_PROPERTY(QStringList textColors READ textColors WRITE setTextColors RESET resetTextColors)
    /// The room in pixels left of the content; 10 at first. \since 1.0
    Q_PROPERTY(int leftBorder READ leftBorder WRITE setLeftBorder RESET resetLeftBorder)
    /// The room in pixels right of the content; 10 at first. \since 1.0
    Q_PROPERTY(int rightBorder READ rightBorder WRITE setRightBorder RESET resetRightBorder)
    /// The gap between image and text in pixels; 5 at first. \since 1.0
    Q_PROPERTY(int spacing READ spacing WRITE SetSpacing RESET resetSpacing)
    /// The width in pixels of the menu's triangle; 6 at first. \since 1.0
    Q_PROPERTY(int arrowWidth READ arrowWidth WRITE setArrowWidth RESET resetArrowWidth)
    /// The height in pixels of the menu's triangle; 4 at first. \since 1.0
    Q_PROPERTY(int arrowHeight READ arrowHeight WRITE setArrowHeight RESET resetArrowHeight)
    /// The family of the text's font. \since 1.0
    Q_PROPERTY(QString fontFamily READ fontFamily WRITE setFontFamily RESET resetFontFamily)
    /// The size of the text's font in pixels; 14 at first, and less than 1 is left out. \since 1.0
    Q_PROPERTY(int pixelSize READ pixelSize WRITE showPixelSize RESET resetPixelSize)
    /// Whether the menu stays open when the button is hidden. \since 1.0
    Q_PROPERTY(bool shrinked READ isShrinked WRITE setIsShrinked)
    /// Whether the pointer over the button is an open hand; false makes it the arrow. \since 1.0
    Q_PROPERTY(bool handCursor READ hasHandCursor WRITE SetChgCursor)

public:
    /// How image and text are laid out: ENAlign, for the property. \since 1.0
    enum Align : int {
        AlignLeft = ENAlignLeft, ///< image at the left, text to its right
        AlignTop = ENAlignTop,   ///< image above the text, both centred horizontally
    };
    Q_ENUM(Align)

    /// A button, without a parent, that shows \a image in every state. With \a autoResize it fixes its own
    /// width. An \a align that is none of the enumeration draws neither image nor text. \since 1.0
    CBPToolButton(QString &image, QString text, int id, ENAlign align, bool autoResize);

    /// A button, without a parent, with an image per state. See the first constructor.
    /// \since 1.0
    CBPToolButton(QVector<QString> &images, QString text, int id, ENAlign align, bool autoResize);

    /// A button, without a parent, without images. See the first constructor.
    /// \since 1.0
    CBPToolButton(QString text, int id, ENAlign align, bool autoResize);

    /// A button without image and text, which does not size itself; the id is 0.
    /// \since 1.0
    explicit CBPToolButton(QWidget *parent = nullptr);

    /// Deletes the menu that the button made, too, once control is back in the event loop.
    /// \since 1.0
    ~CBPToolButton() override;

    /// Replaces the images, copied; an empty list leaves none. The button sizes itself, if it does.
    /// \since 1.0
    void SetImage(QVector<QString> &images);

    /// Shows \a image in every state. The button sizes itself, if it does.
    /// \since 1.0
    void SetImage(QString &image);

    /// Replaces the images; an empty list leaves none. The button sizes itself, if it does.
    /// \since 1.0
    void setImages(const QStringList &images);

    /// The image files.
    /// \since 1.0
    QStringList images() const;

    /// Sets how image and text are laid out; see the first constructor. The button sizes itself, if it does.
    /// \since 1.0
    void setAlign(Align align);

    /// How image and text are laid out.
    /// \since 1.0
    Align align() const { return static_cast<Align>(m_align); }

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

    /// The same by name; an empty name stands for the built-in colour.
    /// \since 1.0
    void setTextColors(const QStringList &names);

    /// The colours of text and triangle by name, "#rrggbb" or "#aarrggbb"; the built-in ones where none were
    /// set. \since 1.0
    QStringList textColors() const;

    /// Makes them the theme's again.
    /// \since 1.0
    void resetTextColors();

    /// The text colour of the present state; invalid when the list has none.
    /// \since 1.0
    QColor textClr() const;

    /// The image file for the button disabled, or for it at rest; empty unless there are four.
    /// \since 1.0
    QString icon() const;

    /// Sets the room left and right of the content that a button that sizes itself counts; 10 at first. An
    /// image beside the text starts behind the left one. \since 1.0
    void SetHorBorder(int left, int right);

    /// Sets the room left of the content alone.
    /// \since 1.0
    void setLeftBorder(int left) { SetHorBorder(left, m_right); }
    /// The room left of the content.
    /// \since 1.0
    int leftBorder() const { return m_left; }
    /// Makes it 10 again.
    /// \since 1.0
    void resetLeftBorder();

    /// Sets the room right of the content alone.
    /// \since 1.0
    void setRightBorder(int right) { SetHorBorder(m_left, right); }
    /// The room right of the content.
    /// \since 1.0
    int rightBorder() const { return m_right; }
    /// Makes it 10 again.
    /// \since 1.0
    void resetRightBorder();

    /// Sets the gap between image and text; 5 at first. The button sizes itself, if it does.
    /// \since 1.0
    void SetSpacing(int spacing);

    /// The gap between image and text.
    /// \since 1.0
    int spacing() const { return m_spacing; }

    /// Makes it 5 again.
    /// \since 1.0
    void resetSpacing();

    /// Sets the size of the menu's triangle; 6 x 4 at first. Shown at the next paint.
    /// \since 1.0
    void SetArrowSize(int width, int height);

    /// Sets the width of the triangle alone, shown at once.
    /// \since 1.0
    void setArrowWidth(int width);
    /// The width of the triangle.
    /// \since 1.0
    int arrowWidth() const { return m_arrowWidth; }
    /// Makes it 6 again.
    /// \since 1.0
    void resetArrowWidth();

    /// Sets the height of the triangle alone, shown at once.
    /// \since 1.0
    void setArrowHeight(int height);
    /// The height of the triangle.
    /// \since 1.0
    int arrowHeight() const { return m_arrowHeight; }
    /// Makes it 4 again.
    /// \since 1.0
    void resetArrowHeight();

    /// Sets the font; the size is in pixels, and one below 1 is ignored. The width follows at the next
    /// setter that sizes. \since 1.0
    void SetTextFont(const QString &family, int pixelSize);

    /// Sets the font's size in pixels; see SetTextFont().
    /// \since 1.0
    void setPixelSize(int pixelSize);

    /// The font's size in pixels.
    /// \since 1.0
    int pixelSize() const { return m_font.pixelSize(); }

    /// Makes it 14 again; the button sizes itself, if it does.
    /// \since 1.0
    void resetPixelSize();

    /// Sets the font's family; the button sizes itself, if it does.
    /// \since 1.0
    void setFontFamily(const QString &family);

    /// The font's family.
    /// \since 1.0
    QString fontFamily() const { return m_font.family(); }

    /// Makes it the library's again; the button sizes itself, if it does.
    /// \since 1.0
    void resetFontFamily();

    /// Makes the button fix its own width from the next setter that sizes on, or no longer.
    /// \since 1.0
    void setAutoResize(bool autoResize);

    /// Whether the button fixes its own width.
    /// \since 1.0
    bool autoResize() const { return m_autoResize; }

    /// With true the menu stays open when the button is hidden.
    /// \since 1.0
    void setIsShrinked(bool shrinked);

    /// What setIsShrinked() has set; false at first.
    /// \since 1.0
    bool isShrinked() const { return m_shrinked; }

    /// Shows an open hand as the pointer over the button, or the arrow.
    /// \since 1.0
    void SetChgCursor(bool hand);

    /// Whether the pointer over the button is an open hand.
    /// \since 1.0
    bool hasHandCursor() const;

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

    /// Sets the id that sigClick() reports.
    /// \since 1.0
    void setId(int id) { m_id = id; }

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

    /// SetText() has changed the text. The button may be deleted here.
    /// \since 1.0
    void textChanged(const QString &text);

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

    static constexpr int kStates = 4;
    // Metrics to begin with, in pixels.
    static constexpr int kSideBorder = 10;
    static constexpr int kImageSpacing = 5;
    static constexpr int kArrowWidth = 6;
    static constexpr int kArrowHeight = 4;

    static QAccessibleInterface *makeAccessible(QWidget *widget);
    void init();
    CBPMenu *ownedMenu();
    void menuChanged();
    void activate();
    void activateByKey();
    void rest();
    void AutoResize();
    // Writers of properties: the setters, which leave it to the next one to size the button.
    void resizeItself(bool itself);
    void showPixelSize(int pixelSize);
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
