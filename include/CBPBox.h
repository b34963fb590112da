#pragma once

#include "CBPWidget.h"

#include <QColor>
#include <QLayout>
#include <QSize>
#include <QVector>

#include <cstddef>
#include <type_traits>

class QBoxLayout;
class QPropertyAnimation;
class QSpacerItem;

namespace lumqt {
/// \cond
struct InForm // a box without a layout
{
};

// A pointer to a widget, of whatever kind. As a plain QWidget * it would be as good for the literal 0 as the
// flag is that says that a box is no column.
template <class Parent>
using IfParent = std::enable_if_t<std::is_convertible<Parent, QWidget *>::value &&
                                  !std::is_same<Parent, std::nullptr_t>::value>;
/// \endcond
} // namespace lumqt

/// A row or column of widgets: a widget with one box layout, operations to pack it, a one-pixel frame with a
/// filled ground if wanted, and animations that open and fold it.
///
/// Packed widgets become children of the box, as in any layout. The box paints nothing of its own until
/// SetDrawFrame(). Sizes and paddings are logical pixels. A null widget, layout or spacer is left out, and
/// so, with a warning, is a widget that the box lies in.
///
/// A box of a form, made with a parent, has no layout until the form sets one or something is packed. What is
/// packed then goes to the end of that row or column. Where the form has set a layout of another kind, a
/// widget that is packed becomes a child and no more, layouts and spacers stay the caller's, and the first
/// time a warning says so. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPBox : public CBPWidget
{
    Q_OBJECT
    /// Whether the box is a row or a column. Items that are there lie so from then on, too. \since 1.0
    Q_PROPERTY(Qt::Orientation orientation READ orientation WRITE setOrientation)
    /// Pixels between the items; a negative number leaves them to the style. A layout that a form sets brings
    /// its own. \since 1.0
    Q_PROPERTY(int spacing READ spacing WRITE SetSpacing RESET resetSpacing)
    /// How the layout rules the box's size. A layout that a form sets brings its own. \since 1.0
    Q_PROPERTY(QLayout::SizeConstraint sizeConstraint READ sizeConstraint WRITE SetSizeConstraint RESET
                   resetSizeConstraint)
    /// Pixels between the left edge and the items, beside the margin of a layout that a form sets. \since 1.0
    Q_PROPERTY(int leftBorder READ leftBorder WRITE setLeftBorder RESET resetLeftBorder)
    /// The same at the top. \since 1.0
    Q_PROPERTY(int topBorder READ topBorder WRITE setTopBorder RESET resetTopBorder)
    /// The same at the right. \since 1.0
    Q_PROPERTY(int rightBorder READ rightBorder WRITE setRightBorder RESET resetRightBorder)
    /// The same at the bottom. \since 1.0
    Q_PROPERTY(int bottomBorder READ bottomBorder WRITE setBottomBorder RESET resetBottomBorder)
    /// Whether frame and ground are painted, from the next repaint on. \since 1.0
    Q_PROPERTY(bool drawsFrame READ drawsFrame WRITE showFrame)
    /// Colour of the frame; the theme's until it is set, and after a reset. \since 1.0
    Q_PROPERTY(QColor frameColor READ frameColor WRITE SetFrameClr RESET resetFrameColor)
    /// Colour of the ground inside the frame; the theme's until it is set, and after a reset. \since 1.0
    Q_PROPERTY(QColor backgroundColor READ backgroundColor WRITE SetBgClr RESET resetBackgroundColor)
    /// Of CBPWidget, whose ground a box does not paint. \since 1.0
    Q_PROPERTY(QBrush brush READ brush WRITE setBrush RESET resetBrush DESIGNABLE false STORED false)
    /// Of CBPWidget, whose outline a box does not paint. \since 1.0
    Q_PROPERTY(QPen pen READ pen WRITE setPen DESIGNABLE false STORED false)

public:
    /// An empty box without a parent, a column if \a bVertical, a row otherwise, with \a iSpacing pixels
    /// between its items (a negative number leaves that to the style). \a bOption has no effect. \since 1.0
    explicit CBPBox(bool bVertical = false, bool bOption = false, int iSpacing = 0);

    /// An empty row in \a parent, a pointer to a widget, without a layout: for forms, see above. \since 1.0
    template <class Parent, class = lumqt::IfParent<Parent>>
    explicit CBPBox(Parent parent) : CBPBox(lumqt::InForm(), parent)
    {
    }
    ~CBPBox() override;

    /// Adds a widget at the end and, behind it, a space of \a iPadding pixels: always two items of the
    /// layout, also with a padding of 0. With \a bExpand the widget's size policy becomes Expanding both
    /// ways. \a bOption has no effect. \since 1.0
    void PackStart(QWidget *pWidget, bool bExpand = false, bool bOption = false, int iPadding = 0,
                   Qt::Alignment align = {});

    /// Adds a layout at the end with the stretch factor \a iStretch and, behind it, a space of \a iPadding
    /// pixels. The box owns the layout then. \since 1.0
    void PackStart(QLayout *pLayout, int iPadding = 0, int iStretch = 0);

    /// Inserts a widget, without a space, before the item \a index of the layout. Widgets that PackStart()
    /// added count two. A negative index, or one beyond the end, adds at the end. \since 1.0
    void InsertWidget(int index, QWidget *pWidget, int iStretch = 0, Qt::Alignment align = {});

    /// Adds a spacer at the end. The box owns it then; one that it has already is left out. \since 1.0
    void AddSpacerItem(QSpacerItem *pItem);

    /// Adds a space of \a iSpacing pixels at the end.
    /// \since 1.0
    void AddSpacing(int iSpacing);

    /// Sets the space between the box's edges and its items, all 0 at first: the widget's contents margins.
    /// \since 1.0
    void SetBorderWidth(int left, int top, int right, int bottom);

    /// The space at the left edge. \since 1.0
    int leftBorder() const { return contentsMargins().left(); }

    /// Sets the space at the left edge alone. \since 1.0
    void setLeftBorder(int border);

    /// Leaves that space that a box of this class has at first. \since 1.0
    void resetLeftBorder();

    /// The space at the top edge. \since 1.0
    int topBorder() const { return contentsMargins().top(); }

    /// Sets the space at the top edge alone. \since 1.0
    void setTopBorder(int border);

    /// Leaves that space that a box of this class has at first. \since 1.0
    void resetTopBorder();

    /// The space at the right edge. \since 1.0
    int rightBorder() const { return contentsMargins().right(); }

    /// Sets the space at the right edge alone. \since 1.0
    void setRightBorder(int border);

    /// Leaves that space that a box of this class has at first. \since 1.0
    void resetRightBorder();

    /// The space at the bottom edge. \since 1.0
    int bottomBorder() const { return contentsMargins().bottom(); }

    /// Sets the space at the bottom edge alone. \since 1.0
    void setBottomBorder(int border);

    /// Leaves that space that a box of this class has at first. \since 1.0
    void resetBottomBorder();

    /// Sets the space between items.
    /// \since 1.0
    void SetSpacing(int iSpacing);

    /// The space between items: of the layout, or what it will have once it is made. \since 1.0
    int spacing() const;

    /// Leaves the space between items that the constructor left. \since 1.0
    void resetSpacing();

    /// Makes a row or a column of the box. A layout that is neither, set by a form, stays what it is.
    /// \since 1.0
    void setOrientation(Qt::Orientation orientation);

    /// Whether the layout is a row or a column, or will be once it is made. \since 1.0
    Qt::Orientation orientation() const;

    /// Sets how the layout rules the box's size: a QLayout::SizeConstraint. Another number is left out.
    /// \since 1.0
    void SetSizeConstraint(int iConstraint);

    /// How the layout rules the box's size, or will once it is made. \since 1.0
    QLayout::SizeConstraint sizeConstraint() const;

    /// Makes it QLayout::SetDefaultConstraint again. \since 1.0
    void resetSizeConstraint();

    /// Switches the frame and the ground on or off; off at first. Shows at the next repaint only.
    /// \since 1.0
    void SetDrawFrame(bool bDrawFrame);

    /// Whether frame and ground are painted. \since 1.0
    bool drawsFrame() const { return m_bDrawFrame; }

    /// Sets the frame's colour and repaints. Red at first: set your own.
    /// \since 1.0
    void SetFrameClr(QColor clrFrame);

    /// The frame's colour as it is painted, for derived boxes that draw more of it: of the current theme
    /// until SetFrameClr(), not the one that is built in. \since 1.0
    QColor frameColor() const;

    /// Gives the frame the theme's colour again. \since 1.0
    void resetFrameColor();

    /// Sets the colour of the ground, white at first, and repaints. It is painted together with the frame
    /// only. \since 1.0
    void SetBgClr(QColor clrBg);

    /// The colour of SetBgClr(); until it is called the built-in one. \since 1.0
    QColor backgroundColor() const;

    /// Gives the ground the theme's colour again. \since 1.0
    void resetBackgroundColor();

    /// Takes all items out of the layout. The widgets stay children of the box. With \a bHide they are
    /// hidden, and packed layouts and spacers deleted; without, they stay visible where they are, and layouts
    /// and spacers that were packed are the caller's again. \since 1.0
    void RemoveChildren(bool bHide);

    /// Takes a widget out of the box's own layout (not out of a packed layout); the space behind it stays.
    /// With \a bDelete it is deleted once control is back in the event loop. A widget that is not in the
    /// layout is left alone. \since 1.0
    void RemoveChild(QWidget *pWidget, bool bDelete);

    /// Animates the maximum height from \a iStart to \a iEnd in \a iDuration milliseconds, evenly. Negative
    /// numbers count as 0.
    ///
    /// The box imposes nothing of its own: an animation of the height that is under way is given up for the
    /// new one, which begins at \a iStart and takes the whole time. To turn a half-open box round without a
    /// jump, pass its maximumHeight() as the start, and the part of the time that fits. \since 1.0
    void AnimatedExpanding(int iStart, int iEnd, int iDuration);

    /// The same for folding. Nothing happens while the maximum height is 0, not even to an animation that
    /// opens the box from there: right after AnimatedExpanding(0, ...) it opens all the same. \since 1.0
    void AnimatedCollapse(int iStart, int iEnd, int iDuration);

    /// The same for the size, which should not be a layout's to rule then.
    /// \since 1.0
    void AnimatedHorizontal(QSize start, QSize end, int iDuration);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void showFrame(bool drawn)
    {
        SetDrawFrame(drawn); // which leaves it to the next paint
        update();
    }

    friend class CButtonGroupBox;
    friend class CBPGridBox;
    CBPBox(lumqt::InForm, QWidget *parent);
    void Init();
    QBoxLayout *packedLayout();
    void setFramePurpose(int purpose);

    bool m_bVertical = false;
    bool m_bOption = false; // kept for callers that pass it; nothing depends on it
    int m_iSpacing = 0;
    int m_iFirstSpacing = 0;
    int m_iFirstBorder = 0;
    int m_iConstraint = -1; // for the layout that is yet to be made; negative: its own
    bool m_bToldLayout = false;
    bool m_bDrawFrame = false;
    QColor m_clrFrame;
    QColor m_clrBg;
    bool m_ownFrame = false; // set by a caller
    bool m_ownBg = false;
    int m_framePurpose; // a CBPTheme::Purpose: of the frame until a caller sets its colour
    QPropertyAnimation *m_pHeightAnimation = nullptr;
    QPropertyAnimation *m_pSizeAnimation = nullptr;
    QVector<QSpacerItem *> m_givenSpacers; // of AddSpacerItem(), to tell them from our own
};
