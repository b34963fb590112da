#pragma once

#include "LumQtGlobal.h"

#include <QLayout>
#include <QList>
#include <QSet>
#include <QStyle>

/// A layout that places its items one after the other, each as large as its size hint, and begins a new row
/// where the next one would not fit, as words are set in a paragraph.
///
/// The narrower the layout, the more height it asks for. Rows begin at the left, in a right-to-left widget at
/// the right. An item that is wider than the layout stands in a row of its own and sticks out. Hidden widgets
/// take neither room nor a gap; spacers and layouts are items like any other. The layout owns its items, and
/// widgets become children of the widget that it is set on, as in any layout. Sizes are logical pixels. GUI
/// thread only.
///
/// \code
/// auto *tags = new CBPFlowLayout(panel, 0, 8, 8);
/// for (const QString &name : names)
///     tags->addWidget(new QPushButton(name));
/// \endcode
/// \since 1.0
class LUMQT_EXPORT CBPFlowLayout : public QLayout
{
    Q_OBJECT
    /// Pixels between the items of a row; -1, as after a reset, leaves them to the style. \since 1.0
    Q_PROPERTY(
        int horizontalSpacing READ horizontalSpacing WRITE setHorizontalSpacing RESET resetHorizontalSpacing)
    /// Pixels between rows; -1, as after a reset, leaves them to the style. \since 1.0
    Q_PROPERTY(int verticalSpacing READ verticalSpacing WRITE setVerticalSpacing RESET resetVerticalSpacing)

public:
    /// The layout of \a parent. \a margin is left free on all four sides, \a hSpacing between the items of a
    /// row and \a vSpacing between rows; a negative number takes each from the style. \since 1.0
    explicit CBPFlowLayout(QWidget *parent, int margin = -1, int hSpacing = -1, int vSpacing = -1);

    /// A layout to be set on a widget, or put into another layout, later; with negative spacings the outer
    /// layout's count then. See the first constructor. \since 1.0
    explicit CBPFlowLayout(int margin = -1, int hSpacing = -1, int vSpacing = -1);

    /// Deletes the items, not their widgets.
    /// \since 1.0
    ~CBPFlowLayout() override;

    /// Adds a widget at the end; it becomes a child of the widget that the layout is set on. Left out with a
    /// warning: null, and a widget that the layout lies in. \since 1.0
    void addWidget(QWidget *widget);

    /// Adds an item at the end, a spacer or a layout; the layout owns it then. Left out with a warning, and
    /// still the caller's: null, an item that is there already, this layout itself, a layout that this one
    /// lies in or that holds a widget around it, and one that another layout or a widget has. \since 1.0
    void addItem(QLayoutItem *item) override;

    /// Number of items.
    /// \since 1.0
    int count() const override;

    /// The item at \a index, which stays the layout's; null when there is none.
    /// \since 1.0
    QLayoutItem *itemAt(int index) const override;

    /// Takes the item at \a index out; it is the caller's then. Null when there is none.
    /// \since 1.0
    QLayoutItem *takeAt(int index) override;

    /// The gap between the items of a row. Where the constructor was given a negative one: the parent
    /// widget's style's, or the outer layout's spacing; -1 without either. \since 1.0
    int horizontalSpacing() const;

    /// Sets the gap between the items of a row; a negative number as in the constructor. \since 1.0
    void setHorizontalSpacing(int spacing);

    /// Leaves the gap between the items of a row to the style. \since 1.0
    void resetHorizontalSpacing();

    /// The gap between rows; see horizontalSpacing().
    /// \since 1.0
    int verticalSpacing() const;

    /// Sets the gap between rows; a negative number as in the constructor. \since 1.0
    void setVerticalSpacing(int spacing);

    /// Leaves the gap between rows to the style. \since 1.0
    void resetVerticalSpacing();

    /// None: the layout takes no more room than it needs.
    /// \since 1.0
    Qt::Orientations expandingDirections() const override;

    /// True.
    /// \since 1.0
    bool hasHeightForWidth() const override;

    /// The height that the items need in \a width pixels, margins included. Takes time in proportion to the
    /// items. \since 1.0
    int heightForWidth(int width) const override;

    /// Places the items.
    /// \since 1.0
    void setGeometry(const QRect &rect) override;

    /// The same as minimumSize().
    /// \since 1.0
    QSize sizeHint() const override;

    /// The size in which each item fits by itself, and the margins.
    /// \since 1.0
    QSize minimumSize() const override;

private:
    class Gaps;
    friend class CBPFlowWidget;

    bool canTake(QLayoutItem *item) const;
    int doLayout(const QRect &rect, bool testOnly) const;
    int smartSpacing(QStyle::PixelMetric pm) const;
    bool isMirrored() const;

    QList<QLayoutItem *> m_listItems;
    QSet<const QLayoutItem *> m_setItems; // the same, to tell whether one is there already
    int m_iHSpacing;
    int m_iVSpacing;
    bool m_bTaking = false; // an item that is added brings widgets along, which are none of their own
};
