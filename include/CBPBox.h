#pragma once

#include "CBPWidget.h"

#include <QColor>
#include <QSize>
#include <QVector>

class QBoxLayout;
class QLayout;
class QPropertyAnimation;
class QSpacerItem;

namespace lumqt {
class ButtonPart;
}

/// A row or column of widgets: a widget with one box layout, operations to pack it, a one-pixel frame with a
/// filled ground if wanted, and animations that open and fold it.
///
/// Packed widgets become children of the box, as in any layout. The box paints nothing of its own until
/// SetDrawFrame(). Sizes and paddings are logical pixels. A null widget, layout or spacer is left out, and
/// so, with a warning, is a widget that the box lies in. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPBox : public CBPWidget
{
    Q_OBJECT

public:
    /// An empty box without a parent, a column if \a bVertical, a row otherwise, with \a iSpacing pixels
    /// between its items (a negative number leaves that to the style). \a bOption has no effect. \since 1.0
    explicit CBPBox(bool bVertical = false, bool bOption = false, int iSpacing = 0);
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

    /// Sets the space between items.
    /// \since 1.0
    void SetSpacing(int iSpacing);

    /// Sets how the layout rules the box's size: a QLayout::SizeConstraint. Another number is left out.
    /// \since 1.0
    void SetSizeConstraint(int iConstraint);

    /// Switches the frame and the ground on or off; off at first. Shows at the next repaint only.
    /// \since 1.0
    void SetDrawFrame(bool bDrawFrame);

    /// Sets the frame's colour and repaints. Red at first: set your own.
    /// \since 1.0
    void SetFrameClr(QColor clrFrame);

    /// Sets the colour of the ground, white at first, and repaints. It is painted together with the frame
    /// only. \since 1.0
    void SetBgClr(QColor clrBg);

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
    /// The frame's colour as it is painted, for derived boxes that draw more of it: of the current theme
    /// until SetFrameClr(), not the one that is built in. \since 1.0
    QColor frameColor() const;

    void paintEvent(QPaintEvent *event) override;

private:
    friend class CButtonGroupBox;
    friend class CBPGridBox;
    friend class lumqt::ButtonPart; // has another layout
    void Init();
    void setFramePurpose(int purpose);

    bool m_bVertical;
    bool m_bOption; // kept for callers that pass it; nothing depends on it
    int m_iSpacing;
    QBoxLayout *m_pLayout = nullptr;
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
