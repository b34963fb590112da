#pragma once

#include "CBPMenuItem.h"
#include "ENState.h"
#include "LumQtCompat.h"
#include "LumQtGlobal.h"

#include <QColor>
#include <QFont>
#include <QMenu>
#include <QPixmap>
#include <QPointer>
#include <QStringList>
#include <QVector>

#include <memory>

class CBPMenuItemSizeStyle;

namespace lumqt {
struct ItemTables;
class MenuTexts;
} // namespace lumqt

/// The library's pop-up menu: a frameless, translucent QMenu that paints its own rounded body, items,
/// separators and highlight.
///
/// Its items are CBPMenuItem actions that carry the caller's id in their data. All items share one size: as
/// wide as the widest text the menu has seen, at least 249 pixels (260 with a sub-menu), and 40 pixels high.
/// Shown with QMenu::popup() or QMenu::exec(); mouse, keyboard, mnemonics and screen readers work as in any
/// QMenu, and the item chosen last by mouse or keyboard is the one highlighted. Shortcuts and check marks of
/// actions are not painted, and a disabled item is dimmed. From right to left all of it is mirrored, the
/// arrows of nested menus with their images. Torn off (QMenu::setTearOffEnabled()), a menu has
/// the look of the style, with items of the same size.
///
/// It may be deleted while it is open. Slots of triggered() and hovered() use deleteLater() for it: QMenu is
/// still at work then.
///
/// A style sheet of the application changes neither the size of its items nor the room around them: where it
/// would, the menu adds a rule to its own style sheet, also behind one that is set for it.
///
/// Setters take effect at the next repaint; those that concern sizes at the next AddAction(), AddMenu() or
/// ResetMenuWidth(). All sizes are logical pixels, all lists and images are copied. GUI thread only.
/// \since 1.0
class LUMQT_EXPORT CBPMenu : public QMenu
{
    Q_OBJECT
    /// Colour of the texts; one that is none is black. A reset brings back the theme's. \since 1.0
    Q_PROPERTY(QColor textColor READ textColor WRITE setTextColor RESET resetTextColor)
    /// Names of the background colours: the first is the menu's, the third the highlighted item's. A reset
    /// brings back the theme's. \since 1.0
    Q_PROPERTY(QStringList backgroundColors READ backgroundColors WRITE setBackgroundColors RESET
                   resetBackgroundColors)
    /// Names of colours that are stored, not painted. \since 1.0
    Q_PROPERTY(QStringList frameColors READ frameColors WRITE setFrameColors DESIGNABLE false)
    /// Pixels left of the images. \since 1.0
    Q_PROPERTY(int leftMargin READ leftMargin WRITE setLeftMargin RESET resetLeftMargin)
    /// Pixels between images and texts. \since 1.0
    Q_PROPERTY(int spacing READ spacing WRITE SetSpacing RESET resetSpacing)
    /// Least width of the image column in pixels. \since 1.0
    Q_PROPERTY(int iconWidth READ iconWidth WRITE SetDefIconWidth RESET resetIconWidth)
    /// Pixel size at which the texts of items added from now on are measured. \since 1.0
    Q_PROPERTY(int fontPixelSize READ fontPixelSize WRITE SetMenuFontSize RESET resetFontPixelSize)
    /// Family of the font that the texts are painted in. \since 1.0
    Q_PROPERTY(QString textFamily READ textFamily WRITE setTextFamily RESET resetTextFamily)
    /// Pixel size in which the texts are painted; 1 for less. \since 1.0
    Q_PROPERTY(int textPixelSize READ textPixelSize WRITE setTextPixelSize RESET resetTextPixelSize)
    /// Radius of the round corners in pixels; 0 for less. \since 1.0
    Q_PROPERTY(int cornerRadius READ cornerRadius WRITE SetBordRadios RESET resetCornerRadius)
    /// Whether the menu has the look of a nested one; see SetSubLeveMennu(). \since 1.0
    Q_PROPERTY(bool subLevel READ isSubLevel DESIGNABLE false)
    /// Image file of the arrow of items that open a sub-menu; empty: none. \since 1.0
    Q_PROPERTY(QString subMenuIcon READ subMenuIcon WRITE SetSubMenuRightIcon)
    /// Greatest thickness at which the separators' line is painted, in pixels. \since 1.0
    Q_PROPERTY(int separatorRectHeight READ separatorRectHeight WRITE setSeparatorRectHeight RESET
                   resetSeparatorRectHeight)
    /// Thickness of the separators' line in pixels. \since 1.0
    Q_PROPERTY(int separatorHeight READ separatorHeight WRITE setSeparatorHeight RESET resetSeparatorHeight)
    /// Width of the border around the menu in pixels; 0 for less. \since 1.0
    Q_PROPERTY(int borderWidth READ borderWidth WRITE setBorderWidth RESET resetBorderWidth)
    /// Colour of the border around the menu; none at first. \since 1.0
    Q_PROPERTY(QColor borderColor READ borderColor WRITE setBorderColor RESET resetBorderColor)
    /// Height of the items from the next one on in pixels; with 0 or less they are not shown. \since 1.0
    Q_PROPERTY(int itemHeight READ itemHeight WRITE SetMenuItemHeiht RESET resetItemHeight)
    /// Height of the strip with the lower round corners in pixels. \since 1.0
    Q_PROPERTY(int bottomHeight READ bottomHeight WRITE SetMenuBottomHeight RESET resetBottomHeight)

public:
    /// An empty menu.
    /// \since 1.0
    explicit CBPMenu(QWidget *parent = nullptr);

    /// An empty menu with a title, which is its text where it is added to another menu.
    /// \since 1.0
    explicit CBPMenu(const QString &title, QWidget *parent = nullptr);
    ~CBPMenu() override;

    /// Adds an item without an image. Like the other forms it returns the new CBPMenuItem, whose parent is
    /// the menu, and widens all items when \a text is the widest so far. \since 1.0
    QAction *AddAction(QString text, QVariant itemData);

    /// Adds an item with the image file \a iconPath before its text; a file that is missing leaves the place
    /// empty. \since 1.0
    QAction *AddAction(QString iconPath, QString text, QVariant itemData);

    /// Adds an item with one image per state and registers them under \a itemData, as SetActionRes() does. Of
    /// the four the menu shows the first, and the second while the item is highlighted. Another number of
    /// images than four is registered but not shown. \since 1.0
    QAction *AddAction(QVector<QString> images, QString text, QVariant itemData);

    /// As the form before. \a itemSize becomes the size of the menu's items only when \a text is empty: any
    /// other text sizes the items anew at once. \since 1.0
    QAction *AddAction(QVector<QString> images, QString text, QVariant itemData, QSize itemSize);

    /// Adds \a menu as a sub-menu under its title and returns the action that opens it. Null, and the menu
    /// itself, are ignored and give null. The sub-menu keeps its owner; when it is destroyed its item goes
    /// with it. Items sized before get the room for the arrow at the next sizing, see ResetMenuWidth().
    /// \since 1.0
    QAction *AddMenu(QMenu *menu);

    /// Adds a separator. It is as high as an item, and its line invisible, until setSeparatorRectHeight() and
    /// setSeparatorHeight() are called. Hides QMenu::addSeparator(). \since 1.0
    void addSeparator();

    /// Shows or hides every action whose data is \a id as an integer. Separators, sub-menus and items whose
    /// data is no number count as 0. \since 1.0
    void ShowHideMenuItem(int id, bool show);

    /// Marks one chosen item: the actions whose data is \a id as an integer get \a icon, all others lose
    /// theirs, also when no action has that id. State images stay and win over the icon. \since 1.0
    void SetShowCheckIcon(int id, QIcon icon);

    /// Puts a badge behind the text of the items with \a itemData, or takes it away. \a res is the badge's
    /// image file; an empty one gives a red dot. \since 1.0
    void SetActionSpecialFlag(QVariant itemData, bool on, const QString &res);

    /// Whether items with \a itemData have a badge; \a res is then set to its image file, and untouched
    /// otherwise. \since 1.0
    bool IsActionSpecial(const QVariant &itemData, QString &res);

    /// Sets the four state images of the items with \a itemData.
    /// \since 1.0
    void SetActionRes(const QVariant &itemData, const QVector<QString> &images);

    /// Forgets the state images of all items, then sets those of the items with \a itemData.
    /// \since 1.0
    void ResetActionRes(const QVariant &itemData, const QVector<QString> &images);

    /// Colour of the texts; the theme's until it is set, which is white in the light one. An invalid one is
    /// black.
    /// \since 1.0
    void setTextColor(QColor color);

    /// The colour of the texts; the built-in one where none is set. \since 1.0
    QColor textColor() const;

    /// Gives the texts the theme's colours again. \since 1.0
    void resetTextColor();

    /// Background colours: entry 0 fills the menu, entry 2 the highlighted item; the others are not used. A
    /// colour that is missing or invalid is replaced by the built-in one when painting. \since 1.0
    void setBg(QVector<QColor> colors);

    /// The names of the background colours; those that are built in where none are set. \since 1.0
    QStringList backgroundColors() const;

    /// Sets the background colours by their names; see setBg(). \since 1.0
    void setBackgroundColors(const QStringList &colors);

    /// Gives menu and highlight the theme's colours again. \since 1.0
    void resetBackgroundColors();

    /// Stored, not painted: see SetBorderInfo() for the menu's border.
    /// \since 1.0
    void setFrameClr(QVector<QColor> colors);

    /// The names of the colours of setFrameClr(). \since 1.0
    QStringList frameColors() const;

    /// Stores colours by their names; see setFrameClr(). \since 1.0
    void setFrameColors(const QStringList &colors);

    /// Sets the room left of the images; 6 by default. The other three values are not used.
    /// \since 1.0
    void SetBorder(int left, int top, int right, int bottom);

    /// The room left of the images. \since 1.0
    int leftMargin() const { return m_leftMargin; }

    /// Sets the room left of the images. \since 1.0
    void setLeftMargin(int margin);

    /// Leaves 6 pixels left of the images. \since 1.0
    void resetLeftMargin();

    /// Room between images and texts; 6 by default.
    /// \since 1.0
    void SetSpacing(int spacing);

    /// The room between images and texts. \since 1.0
    int spacing() const { return m_spacing; }

    /// Leaves 6 pixels between images and texts. \since 1.0
    void resetSpacing();

    /// Least width of the image column, also of an item without an image; 14 by default.
    /// \since 1.0
    void SetDefIconWidth(int width);

    /// The least width of the image column. \since 1.0
    int iconWidth() const { return m_defIconWidth; }

    /// Makes the image column at least 14 pixels wide. \since 1.0
    void resetIconWidth();

    /// Pixel size at which texts are measured; 14 by default. See SetFont() for the size they are painted in.
    /// \since 1.0
    void SetMenuFontSize(int pixelSize);

    /// The pixel size at which texts are measured. \since 1.0
    int fontPixelSize() const { return m_fontSize; }

    /// Has texts measured at 14 pixels. \since 1.0
    void resetFontPixelSize();

    /// Radius of the menu's round corners; 4 by default. Below 1 they are square.
    /// \since 1.0
    void SetBordRadios(const int &radius);

    /// The radius of the round corners. \since 1.0
    int cornerRadius() const { return m_radius; }

    /// Makes the radius of the round corners 4 pixels. \since 1.0
    void resetCornerRadius();

    /// Gives the menu the look of a nested one: all four corners round, two pixels narrower on either side.
    /// \since 1.0
    void SetSubLeveMennu();

    /// Whether the menu has the look of a nested one. \since 1.0
    bool isSubLevel() const { return m_subLevel; }

    /// Image file of the arrow at the right of items that open a sub-menu; there is none by default.
    /// \since 1.0
    void SetSubMenuRightIcon(const QString &path);

    /// The image file of the arrow. \since 1.0
    QString subMenuIcon() const { return m_arrowFile; }

    /// Makes separators 17 pixels high, whatever \a height is: \a height only decides whether their line is
    /// painted, see setSeparatorHeight(). \since 1.0
    void setSeparatorRectHeight(int height);

    /// The value given to setSeparatorRectHeight(). \since 1.0
    int separatorRectHeight() const { return m_separatorRectHeight; }

    /// Makes separators as high as an item again, without a line. \since 1.0
    void resetSeparatorRectHeight();

    /// Thickness of the separators' line; 0 by default. It is painted when it is at least 1 and not larger
    /// than the value given to setSeparatorRectHeight(). \since 1.0
    void setSeparatorHeight(int width);

    /// The thickness of the separators' line. \since 1.0
    int separatorHeight() const { return m_separatorHeight; }

    /// Takes the separators' line away. \since 1.0
    void resetSeparatorHeight();

    /// Border around the menu; none by default, where a theme gives it no frame. A nested menu has none.
    /// \since 1.0
    void SetBorderInfo(int width, const QColor &color);

    /// The width of the border. \since 1.0
    int borderWidth() const { return m_borderWidth; }

    /// Sets the width of the border alone. \since 1.0
    void setBorderWidth(int width);

    /// Takes the border away, and leaves its colour for another. \since 1.0
    void resetBorderWidth();

    /// The colour of the border; invalid at first. \since 1.0
    QColor borderColor() const { return m_borderColor; }

    /// Sets the colour of the border alone. \since 1.0
    void setBorderColor(const QColor &color);

    /// Takes the colour of the border away, which is then invalid again. \since 1.0
    void resetBorderColor();

    /// Height of the items; 40 by default. With 0 or less the items are not shown.
    /// \since 1.0
    void SetMenuItemHeiht(int height);

    /// The height of the items. \since 1.0
    int itemHeight() const { return m_itemHeight; }

    /// Makes the items 40 pixels high. \since 1.0
    void resetItemHeight();

    /// Height of the strip at the bottom in which the menu's lower corners are round; 6 by default.
    /// \since 1.0
    void SetMenuBottomHeight(int height);

    /// The height of the bottom strip. \since 1.0
    int bottomHeight() const { return m_bottomHeight; }

    /// Makes the bottom strip 6 pixels high. \since 1.0
    void resetBottomHeight();

    /// Font of the texts. Texts wider than their item are elided. Sizes below 1 count as 1.
    /// \since 1.0
    void SetFont(const QString &family, int pixelSize);

    /// The family of the font of the texts. \since 1.0
    QString textFamily() const;

    /// Sets the family of the font of the texts alone. \since 1.0
    void setTextFamily(const QString &family);

    /// Paints the texts in the library's family again. \since 1.0
    void resetTextFamily();

    /// The pixel size of the font of the texts. \since 1.0
    int textPixelSize() const;

    /// Sets the pixel size of the font of the texts alone. \since 1.0
    void setTextPixelSize(int pixelSize);

    /// Paints the texts at 14 pixels again. \since 1.0
    void resetTextPixelSize();

    /// The least width of an item: 153.
    /// \since 1.0
    int GetMenuWidth();

    /// Measures all texts of this menu, and of those of its sub-menus that are a CBPMenu, each by its own
    /// resetMenuSize(). The menu only grows: removing long items does not make it narrower. \since 1.0
    void ResetMenuWidth();

    /// Makes room for \a text in all items of the menu. An empty text changes nothing.
    /// \since 1.0
    virtual void resetMenuSize(QString text);

protected:
    /// \since 1.0
    bool event(QEvent *event) override;

    /// Width of \a text, as it stands, in the library's font at \a pixelSize.
    /// \since 1.0
    int menuItemLen(QString text, int pixelSize);

    /// Paints the highlight of item \a index of \a count shown ones into \a rect, round where the menu is.
    /// \since 1.0
    void PaintAction(QPainter *painter, const QRect &rect, int index, int count);

    /// Paints the line of a separator into \a rect.
    /// \since 1.0
    void paintSeparator(QPainter *painter, const QRect &rect);

    /// Paints the badge of the items with \a itemData, if they have one, where \a rect begins: at its left,
    /// and at its right in a menu that runs from right to left. \since 1.0
    void paintSpecialFlag(QPainter *painter, const QVariant &itemData, const QRect &rect);

    /// \since 1.0
    void paintEvent(QPaintEvent *event) override;
    /// \since 1.0
    void showEvent(QShowEvent *event) override;
    /// \since 1.0
    void resizeEvent(QResizeEvent *event) override;
    /// \since 1.0
    void keyPressEvent(QKeyEvent *event) override;
    /// \since 1.0
    void mouseMoveEvent(QMouseEvent *event) override;
    /// Override it with lumqt::EnterEvent, and it compiles with either Qt. \since 1.0
    void enterEvent(lumqt::EnterEvent *event) override;
    /// \since 1.0
    void leaveEvent(QEvent *event) override;
    /// \since 1.0
    void actionEvent(QActionEvent *event) override;
    /// \since 1.0
    void changeEvent(QEvent *event) override;

private:
    struct ScrollAreas;
    struct ItemView;

    void Init();
    bool GetActionRes(const QVariant &itemData, const ENState &state, QString &path);
    QAction *addItem(CBPMenuItem *item, const QString &text);
    void useItemSize(const QSize &size);
    void keepItemSize();
    bool opensSubMenu(const QAction *action) const;

    QColor background(int index) const;
    QColor textColor(bool hovered) const;
    bool hasOwnDisabledText() const;
    QColor itemTextColor(const ItemView &item) const;
    QColor bodyColor() const;
    QColor edgeColor() const;
    QRect bodyRect() const;
    QRect innerRect() const;
    QRegion bodyShape() const;
    void updateMask();
    void paintBody(QPainter *painter);
    void paintFrame(QPainter *painter);
    void paintItem(QPainter *painter, const ItemView &item);
    QPixmap itemPixmap(QAction *action, bool hovered);
    QPixmap arrowPixmap();
    QRect placeOf(QAction *action) const;
    int firstFrom(const QList<QAction *> &actions, int y) const;
    QVector<ItemView> itemsIn(const QRegion &region, const QAction *hovered) const;
    void paintItems(QPainter *painter, const QVector<ItemView> &items, const ScrollAreas &areas);
    ScrollAreas scrollAreas() const;
    QAction *hoveredAction() const;
    void followHover(QAction *hovered, const QRegion &painted);
    QVector<QPointer<QMenu>> tornOffMenus() const;

    QVector<QPointer<QMenu>> m_subMenus;
    QVector<QColor> m_bg; // empty: the theme's
    QVector<QColor> m_frameClr;
    CBPMenuItemSizeStyle *m_sizeStyle = nullptr; // owned; the one in use
    QSize m_itemSize;
    QString m_sizeRule; // in the style sheet, against one of the application
    bool m_keepsSize = false;
    bool m_otherStyle = false; // perhaps: the menu's style has changed since
    QColor m_textColor;        // invalid: not set, the theme's
    int m_widestText = 0;
    int m_itemHeight = 0;
    int m_minWidth = 0;
    int m_leftMargin = 0;
    int m_spacing = 0;
    int m_defIconWidth = 0;
    int m_fontSize = 0;
    int m_radius = 0;
    bool m_subLevel = false;
    QString m_arrowFile;
    QPixmap m_mirroredArrow; // of the picture with this cache key
    qint64 m_mirroredOf = 0;
    int m_separatorRectHeight = 0;
    int m_separatorHeight = 0;
    QColor m_borderColor;
    int m_borderWidth = 0;
    int m_bottomHeight = 0;
    QFont m_font;
    std::unique_ptr<lumqt::ItemTables> m_tables;
    std::unique_ptr<lumqt::MenuTexts> m_texts;
    QPointer<QAction> m_shownHover; // painted as hovered at the last paint
    bool m_paintsHovered = false;   // an item on the theme's highlight
    bool m_opaque = false;          // shown where nothing composes windows
    bool m_mayBeTorn = false;       // it has been shown with a handle to tear it off by
};
