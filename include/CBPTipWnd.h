#pragma once

#include "ENOrientation.h"
#include "LumQtGlobal.h"

#include <QPointer>
#include <QWidget>

#include <memory>

class CBPBox;
class QPainter;
class QRect;

/// A bubble right under another widget, with an arrow that points up at it.
///
/// Show it with show() (and activateWindow(), so that it goes when the user clicks elsewhere), or let it
/// follow the mouse over its widget. It hides on Escape, when it stops being the active window, and together
/// with its widget. While it shows it stays under the widget, also where that is scrolled or its window
/// moved; a widget that is scrolled out of sight takes the bubble with it. Screen readers call it by the
/// texts of its labels where it has no accessible name. All sizes are logical pixels. GUI thread only.
/// \since 1.0
class LUMQT_EXPORT CBPTipWnd : public QWidget
{
    Q_OBJECT
    /// Where the arrow is, and how the tip stands under its widget. \since 1.0
    Q_PROPERTY(Orientation orientation READ orientation WRITE setOrientation)
    /// Corner radius across, in pixels. \since 1.0
    Q_PROPERTY(int xRadius READ xRadius WRITE setXRadius RESET resetXRadius)
    /// Corner radius down, in pixels. \since 1.0
    Q_PROPERTY(int yRadius READ yRadius WRITE setYRadius RESET resetYRadius)
    /// Whether the tip shows while the pointer is over its widget; AppendWidget() sets it. \since 1.0
    Q_PROPERTY(bool followsMouse READ followsMouse WRITE ShowClickBindWidget)

public:
    /// The same as the global enumeration, for forms and tools. \since 1.0
    enum Orientation : int {
        OrientationNone = ENOrientationNone,     ///< ENOrientationNone
        OrientationLeft = ENOrientationLeft,     ///< ENOrientationLeft
        OrientationCenter = ENOrientationCenter, ///< ENOrientationCenter
        OrientationRight = ENOrientationRight,   ///< ENOrientationRight
    };
    Q_ENUM(Orientation)

    /// A tip for the widget \a bound, which becomes its parent and deletes it. Without one the tip stays
    /// where it is put, and is the caller's. An \a orientation that is none of the enumeration counts as
    /// ENOrientationNone. \since 1.0
    CBPTipWnd(ENOrientation orientation, QWidget *bound);
    ~CBPTipWnd() override;

    /// Sets the corner radii in pixels; 3 at first. They are limited to half the bubble; negative ones are 0.
    /// \since 1.0
    void SetRoundRadius(int x, int y);

    /// The corner radius across, as it was set. \since 1.0
    int xRadius() const { return int(m_radiusX); }

    /// Sets the corner radius across alone. \since 1.0
    void setXRadius(int radius);

    /// Makes the corner radius across 3 pixels again. \since 1.0
    void resetXRadius();

    /// The corner radius down, as it was set. \since 1.0
    int yRadius() const { return int(m_radiusY); }

    /// Sets the corner radius down alone. \since 1.0
    void setYRadius(int radius);

    /// Makes the corner radius down 3 pixels again. \since 1.0
    void resetYRadius();

    /// Where the arrow is; OrientationNone also for what is none of the enumeration. \since 1.0
    Orientation orientation() const;

    /// Gives the tip another arrow and place, as the constructor does. \since 1.0
    void setOrientation(Orientation orientation);

    /// With true the tip follows the mouse: it shows while the pointer is over the bound widget. It does not
    /// at first. \since 1.0
    void ShowClickBindWidget(bool follow);

    /// Whether the tip follows the mouse. \since 1.0
    bool followsMouse() const { return m_follow; }

    /// Adds a widget below what the tip holds already. The tip owns it, and follows the mouse from now on:
    /// call ShowClickBindWidget(false) after this, not before, if it should not. A null widget is ignored,
    /// and once an application has given the tip a layout of its own nothing is added. \since 1.0
    void AppendWidget(QWidget *widget);

    /// Shows the tip at its place and as large as its content, unless it was given a size.
    /// \since 1.0
    void setVisible(bool visible) override;

protected:
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *object, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    friend class CBPDateSelector;
    class Follower;

    void Init();
    void fitContent();
    void MoveRect(ENOrientation orientation);
    void DrawTips(QPainter *painter, int x, int y, QRect &rect);
    int arrowX(const QRect &rect) const;
    void followBound(QEvent *event);
    void updateMask();

    QPointer<QWidget> m_bound;
    ENOrientation m_orientation;
    double m_radiusX;
    double m_radiusY;
    bool m_follow = false;
    QPointer<CBPBox> m_box; // gone when an application replaces the layout
    std::unique_ptr<Follower> m_follower;
    bool m_masked = false;
    bool m_onScreen = false; // whole, even if it is not right under its widget then
};
