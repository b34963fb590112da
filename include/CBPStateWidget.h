#pragma once

#include "ENState.h"
#include "LumQtCompat.h"
#include "LumQtGlobal.h"

#include <QColor>
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

public:
    /// A widget in the normal state, square, with background and frame.
    /// \since 1.0
    explicit CBPStateWidget(QWidget *parent = nullptr);
    ~CBPStateWidget() override;

    /// Replaces the background colours. Shown at the next paint.
    /// \since 1.0
    void SetBgColor(QVector<QColor> colors);

    /// Replaces the frame colours. Shown at the next paint.
    /// \since 1.0
    void SetFrmColor(QVector<QColor> colors);

    /// With false the background is not filled. Shown at the next paint.
    /// \since 1.0
    void SetDrawBg(bool draw);

    /// With true a widget with square corners draws no frame. Shown at the next paint.
    /// \since 1.0
    void SetFrmTrancent(bool transparent);

    /// Paints the widget in the hover colours, whatever its state, or no longer. The state becomes hover or
    /// normal, too. \since 1.0
    void SetSelected(bool selected);

    /// Sets the corner radii in pixels; 0 at first. The corners are round when neither is 0. Shown at the
    /// next paint. \since 1.0
    void SetRoundRadius(double x, double y);

    /// Returns the corner radii.
    /// \since 1.0
    void GetRoundRadius(double &x, double &y) const;

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

protected:
    /// The state.
    /// \since 1.0
    ENState state() const { return m_state; }

    /// The flag of SetSelected().
    /// \since 1.0
    bool isSelected() const { return m_selected; }

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

    QVector<QColor> m_bgColors; // these are empty: not set
    QVector<QColor> m_frmColors;
    bool m_selected = false;
    bool m_drawBg = true;
    bool m_frmTrancent = false;
    double m_radiusX = 0.0;
    double m_radiusY = 0.0;
    ENState m_state = ENStateNormal;
};
