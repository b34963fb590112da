#pragma once

#include "LumQtGlobal.h"

#include <QPointer>
#include <QWidget>

class CBPFlowLayout;

/// A widget that places what lies in it as CBPFlowLayout does: for forms, which know no layouts but Qt's.
///
/// Each widget that is made in it, or moved into it, comes to the end of the flow by itself; one that is a
/// window does not, and one that becomes a window takes no room as long as it is one. In a layout the widget
/// asks for the height that its width makes necessary. A row of widgets is one place of the flow if it has a
/// widget of its own around it; a layout alone would share its widgets with the flow. Sizes are logical
/// pixels. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPFlowWidget : public QWidget
{
    Q_OBJECT
    /// Pixels that are left free on all four sides; -1, as after a reset, leaves them to the style.
    /// \since 1.0
    Q_PROPERTY(int margin READ margin WRITE setMargin RESET resetMargin)
    /// Pixels between the widgets of a row; -1, as after a reset, leaves them to the style. \since 1.0
    Q_PROPERTY(
        int horizontalSpacing READ horizontalSpacing WRITE setHorizontalSpacing RESET resetHorizontalSpacing)
    /// Pixels between rows; -1, as after a reset, leaves them to the style. \since 1.0
    Q_PROPERTY(int verticalSpacing READ verticalSpacing WRITE setVerticalSpacing RESET resetVerticalSpacing)

public:
    /// An empty flow, its margin and spacings the style's. \since 1.0
    explicit CBPFlowWidget(QWidget *parent = nullptr);
    ~CBPFlowWidget() override;

    /// What is left free at the left, and at the other sides unless QLayout::setContentsMargins() of the
    /// layout says else. \since 1.0
    int margin() const;

    /// Sets what is left free on all four sides; a negative number leaves it to the style. \since 1.0
    void setMargin(int margin);

    /// Leaves the margin to the style. \since 1.0
    void resetMargin();

    /// The gap between the widgets of a row, also where it is the style's. \since 1.0
    int horizontalSpacing() const;

    /// Sets the gap between the widgets of a row; see CBPFlowLayout::setHorizontalSpacing(). \since 1.0
    void setHorizontalSpacing(int spacing);

    /// Leaves the gap between the widgets of a row to the style. \since 1.0
    void resetHorizontalSpacing();

    /// The gap between rows, also where it is the style's. \since 1.0
    int verticalSpacing() const;

    /// Sets the gap between rows; see CBPFlowLayout::setVerticalSpacing(). \since 1.0
    void setVerticalSpacing(int spacing);

    /// Leaves the gap between rows to the style. \since 1.0
    void resetVerticalSpacing();

protected:
    void childEvent(QChildEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QPointer<CBPFlowLayout> m_flow; // gone when an application replaces the layout
};
