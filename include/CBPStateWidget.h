#pragma once

#include "ENState.h"
#include "LumQtCompat.h"
#include "LumQtGlobal.h"

#include <QColor>
#include <QStringList>
#include <QVector>
#include <QWidget>

/// A widget that follows the mouse and the focus by one of four states and paints a background and a frame in
/// the state's colours. Derive from it and paint the content in OnExpose().
///
/// Both lists hold one colour per state in the order normal, hover, pressed, disabled. Where an entry is
/// missing or invalid the built-in colour is painted. A release of the mouse does not change the state: the
/// next leave or enter does. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPStateWidget : public QWidget
{
    Q_OBJECT
    /// The backgrounds by state: normal, hover, pressed, disabled. \since 1.0
    Q_PROPERTY(QStringList backgroundColors READ backgroundColors WRITE setBackgroundColors RESET
                   resetBackgroundColors)
    /// The frame colours by state. \since 1.0
    Q_PROPERTY(QStringList frameColors READ frameColors WRITE setFrameColors RESET resetFrameColors)
    /// Whether the background is filled. \since 1.0
    Q_PROPERTY(bool drawsBackground READ drawsBackground WRITE showBackground)
    /// Whether a widget with square corners goes without its frame. \since 1.0
    Q_PROPERTY(bool frameTransparent READ isFrameTransparent WRITE showFrameless)
    /// Whether it is painted in the hover colours, whatever its state. \since 1.0
    Q_PROPERTY(bool selected READ isSelected WRITE SetSelected NOTIFY selectionChanged)
    /// The horizontal corner radius in pixels; the corners are square while either is 0. \since 1.0
    Q_PROPERTY(double xRadius READ xRadius WRITE setXRadius)
    /// The vertical corner radius in pixels; see xRadius. \since 1.0
    Q_PROPERTY(double yRadius READ yRadius WRITE setYRadius)
    /// The look of the moment, which mouse and focus change. \since 1.0
    Q_PROPERTY(State state READ look WRITE setLook DESIGNABLE false STORED false)

public:
    /// The look of the widget: ENState, for the property. \since 1.0
    enum State : int {
        StateNormal = ENStateNormal,   ///< at rest
        StateHover = ENStateHover,     ///< under the mouse, or focused
        StatePress = ENStatePress,     ///< pressed
        StateDisable = ENStateDisable, ///< disabled
    };
    Q_ENUM(State)

    /// A widget in the normal state, square, with background and frame.
    /// \since 1.0
    explicit CBPStateWidget(QWidget *parent = nullptr);
    ~CBPStateWidget() override;

    /// Replaces the background colours. Shown at the next paint.
    /// \since 1.0
    void SetBgColor(QVector<QColor> colors);

    /// The same by name, shown at once; an empty name stands for the built-in colour.
    /// \since 1.0
    void setBackgroundColors(const QStringList &names);

    /// The background colours by name, "#rrggbb" or "#aarrggbb"; the built-in ones where none were set.
    /// \since 1.0
    QStringList backgroundColors() const;

    /// Makes the background colours the theme's again.
    /// \since 1.0
    void resetBackgroundColors();

    /// Replaces the frame colours. Shown at the next paint.
    /// \since 1.0
    void SetFrmColor(QVector<QColor> colors);

    /// The same by name; see setBackgroundColors().
    /// \since 1.0
    void setFrameColors(const QStringList &names);

    /// The frame colours by name; see backgroundColors().
    /// \since 1.0
    QStringList frameColors() const;

    /// Makes the frame colours the theme's again.
    /// \since 1.0
    void resetFrameColors();

    /// With false the background is not filled. Shown at the next paint.
    /// \since 1.0
    void SetDrawBg(bool draw);

    /// Whether the background is filled; true at first.
    /// \since 1.0
    bool drawsBackground() const { return m_drawBg; }

    /// With true a widget with square corners draws no frame. Shown at the next paint.
    /// \since 1.0
    void SetFrmTrancent(bool transparent);

    /// What SetFrmTrancent() has set; false at first.
    /// \since 1.0
    bool isFrameTransparent() const { return m_frmTrancent; }

    /// Paints the widget in the hover colours, whatever its state, or no longer. The state becomes hover or
    /// normal, too. \since 1.0
    void SetSelected(bool selected);

    /// The flag of SetSelected().
    /// \since 1.0
    bool isSelected() const { return m_selected; }

    /// Sets the corner radii in pixels; 0 at first. The corners are round when neither is 0. Shown at the
    /// next paint. \since 1.0
    void SetRoundRadius(double x, double y);

    /// Returns the corner radii.
    /// \since 1.0
    void GetRoundRadius(double &x, double &y) const;

    /// Sets the horizontal corner radius in pixels.
    /// \since 1.0
    void setXRadius(double radius);

    /// The horizontal corner radius in pixels.
    /// \since 1.0
    double xRadius() const { return m_radiusX; }

    /// Sets the vertical corner radius in pixels.
    /// \since 1.0
    void setYRadius(double radius);

    /// The vertical corner radius in pixels.
    /// \since 1.0
    double yRadius() const { return m_radiusY; }

    /// The state.
    /// \since 1.0
    ENState state() const { return m_state; }

    /// The state; ENState by other names.
    /// \since 1.0
    State look() const { return static_cast<State>(m_state); }

    /// Sets the state. A number that is none is ignored.
    /// \since 1.0
    void SetState(ENState state);

    /// Enables or disables the widget. The state is "disabled" after either: an enabled widget looks so until
    /// the mouse or the focus comes or goes, or SetState() is called. QWidget::setEnabled() shows the normal
    /// state at once. \since 1.0
    void SetEnabled(bool enabled);

    /// Called at the end of each paint; does nothing here. Paint with a QPainter of your own.
    /// \since 1.0
    virtual void OnExpose();

    /// Asked when the mouse comes; with false the state stays as it is. Returns true here.
    /// \since 1.0
    virtual bool onEnter();

    /// Asked when the mouse goes; with false the state stays as it is. Returns true here.
    /// \since 1.0
    virtual bool onLeave();

Q_SIGNALS:
    /// SetSelected() has changed the flag. The widget may be deleted here.
    /// \since 1.0
    void selectionChanged(bool selected);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    /// Override it with lumqt::EnterEvent, and it compiles with either Qt. \since 1.0
    void enterEvent(lumqt::EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void becomes(ENState state);
    // Of the properties: the state by its other name, and the setters that leave it to the next paint to show
    // the change.
    void setLook(State state) { SetState(static_cast<ENState>(state)); }
    void showBackground(bool shown);
    void showFrameless(bool frameless);

    QVector<QColor> m_bgColors; // these are empty: not set
    QVector<QColor> m_frmColors;
    bool m_selected = false;
    bool m_drawBg = true;
    bool m_frmTrancent = false;
    double m_radiusX = 0.0;
    double m_radiusY = 0.0;
    ENState m_state = ENStateNormal;
};
