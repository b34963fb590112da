#pragma once

#include "LumQtGlobal.h"

#include <QColor>
#include <QIcon>
#include <QMargins>
#include <QStringList>
#include <QVector>

class QWidget;

namespace lumqt {
struct ButtonTones;
}

/// Appearance and state of a button: what every custom-drawn button carries beside its Qt base.
///
/// A plain value without signals: setters store, and the button shows a change at its next paint. Those that
/// properties use, which take colours by name or reset them, and the corner radius have it paint at once.
///
/// Every list of colours holds one entry per state in the order normal, hover, pressed, disabled. A
/// list of another length is stored, but buttons paint with the built-in colours until it is replaced by one
/// of four. What was never set is reported in the built-in colours and painted in those of the theme
/// (CBPTheme). GUI thread only. \since 1.0
class LUMQT_EXPORT CBtnObj
{
public:
    /// State normal, no focus, the library's own colours, square corners, a frame of one pixel.
    /// \since 1.0
    CBtnObj();
    /// \since 1.0
    ~CBtnObj() = default;
    /// Copies state, colours and measures.
    /// \since 1.0
    CBtnObj(const CBtnObj &other) = default;
    /// Takes them over; \a other may only be assigned to or destroyed after that.
    /// \since 1.0
    CBtnObj(CBtnObj &&other) = default;
    /// Copies state, colours and measures.
    /// \since 1.0
    CBtnObj &operator=(const CBtnObj &other) = default;
    /// Takes them over; \a other may only be assigned to or destroyed after that.
    /// \since 1.0
    CBtnObj &operator=(CBtnObj &&other) = default;

    /// The state: 0 normal, 1 hover, 2 pressed, 3 disabled.
    /// \since 1.0
    int state() const { return m_state; }

    /// Stores the state; values outside 0..3 are ignored.
    /// \since 1.0
    void setState(int state);

    /// Whether the button shows itself as focused.
    /// \since 1.0
    bool IsFocus() const { return m_focus; }

    /// Sets the focus flag. It moves no keyboard focus.
    /// \since 1.0
    void setFocus(bool focus) { m_focus = focus; }

    /// Background for a state; an invalid colour for an index outside the list.
    /// \since 1.0
    QColor bgColor(int index) const { return m_bgColor.value(index); }
    /// Replaces the backgrounds.
    /// \since 1.0
    void setBgColor(QVector<QColor> colors);

    /// The backgrounds by name, "#rrggbb" or "#aarrggbb"; the built-in ones where none were set.
    /// \since 1.0
    QStringList backgroundColors() const;
    /// The same as setBgColor() by name, except that no names at all are resetBackgroundColors(), and that
    /// what setBgTrancent() has made see-through stays so. An empty name paints none. \since 1.0
    void setBackgroundColors(const QStringList &names);
    /// Makes the backgrounds the theme's again.
    /// \since 1.0
    void resetBackgroundColors();

    /// Frame colour for a state; an invalid colour for an index outside the list.
    /// \since 1.0
    QColor frmColor(int index) const { return m_frmColor.value(index); }
    /// Replaces the frame colours.
    /// \since 1.0
    void setFrmColor(QVector<QColor> colors);

    /// The frame colours by name; see backgroundColors().
    /// \since 1.0
    QStringList frameColors() const;
    /// The same as setFrmColor() by name. An empty name draws no frame.
    /// \since 1.0
    void setFrameColors(const QStringList &names);
    /// Makes them the theme's again.
    /// \since 1.0
    void resetFrameColors();

    /// Text colour for a state; an invalid colour for an index outside the list.
    /// \since 1.0
    QColor textColor(int index) const { return m_textColor.value(index); }
    /// Replaces the text colours.
    /// \since 1.0
    void setTextColor(QVector<QColor> colors);

    /// The text colours by name; see backgroundColors().
    /// \since 1.0
    QStringList textColors() const;
    /// The same as setTextColor() by name.
    /// \since 1.0
    void setTextColors(const QStringList &names);
    /// Makes them the theme's again.
    /// \since 1.0
    void resetTextColors();

    /// Focus colour for a state, at first the background; for buttons that choose to use it.
    /// \since 1.0
    QColor focusColor(int index) const { return m_focusColor.value(index); }
    /// Replaces the focus colours.
    /// \since 1.0
    void setFocusColor(QVector<QColor> colors);

    /// Colour of the drop-down triangle for a state; for buttons that choose to use it.
    /// \since 1.0
    QColor triangleColor(int index) const { return m_triangleColor.value(index); }
    /// Replaces the triangle colours.
    /// \since 1.0
    void setTriangleColor(QVector<QColor> colors);

    /// The triangle colours by name; see backgroundColors().
    /// \since 1.0
    QStringList triangleColors() const;
    /// The same as setTriangleColor() by name.
    /// \since 1.0
    void setTriangleColors(const QStringList &names);
    /// Makes them the theme's again.
    /// \since 1.0
    void resetTriangleColors();

    /// Corner radius in pixels: 0 the horizontal one, 1 the vertical one; 0 for an index outside the list.
    /// \since 1.0
    int roundRadius(int index) const { return m_roundRadius.value(index); }
    /// Replaces the radii: horizontal, vertical, in pixels. A horizontal radius of 0 means square corners.
    /// \since 1.0
    void setRoundRadius(QVector<int> radii) { m_roundRadius = radii; }

    /// The horizontal corner radius in pixels.
    /// \since 1.0
    int cornerRadius() const { return roundRadius(0); }
    /// Sets both corner radii, in pixels.
    /// \since 1.0
    void setCornerRadius(int radius);
    /// Makes the corners square again.
    /// \since 1.0
    void resetCornerRadius();

    /// Background of the checked look; invalid at first, which paints none.
    /// \since 1.0
    QColor checkedBgColor() const { return m_checkedBgColor; }
    /// Sets the background of the checked look.
    /// \since 1.0
    void setCheckedBgColor(const QColor &color) { m_checkedBgColor = color; }

    /// Frame of the checked look; invalid at first, which paints none.
    /// \since 1.0
    QColor checkedFrmColor() const { return m_checkedFrmColor; }
    /// Sets the frame of the checked look.
    /// \since 1.0
    void setCheckedFrmColor(const QColor &color) { m_checkedFrmColor = color; }

    /// Frame width in pixels; for buttons that choose to use it.
    /// \since 1.0
    int frmWidth() const { return m_frmWidth; }
    /// Sets the frame width in pixels.
    /// \since 1.0
    void setFrmWidth(int width) { m_frmWidth = width; }

    /// With true a square button draws no frame: its background reaches the edges.
    /// \since 1.0
    void setFrmTrancent(bool transparent) { m_frmTrancent = transparent; }
    /// What setFrmTrancent() has set; false at first.
    /// \since 1.0
    bool isFrameTransparent() const { return m_frmTrancent; }

    /// Makes every background fully transparent, or fully opaque. It rewrites the present list only: colours
    /// set later keep their own alpha. \since 1.0
    void setBgTrancent(bool transparent);
    /// What setBgTrancent() has set; false at first.
    /// \since 1.0
    bool isBackgroundTransparent() const { return m_bgTrancent; }

    /// Margins, in pixels, that are cut off the widget before background and frame are painted.
    /// \since 1.0
    void setRemoveMargin(QMargins margins) { m_removeMargin = margins; }

    /// The mode in which a button in this state fetches its icon.
    /// \since 1.0
    QIcon::Mode iconMode() const;

protected:
    /// The background to paint for a state: from a list of four entries that was set, else the theme's.
    /// \since 1.0
    QColor paintedBgColor(int index) const;
    /// The frame colour to paint for a state; see paintedBgColor().
    /// \since 1.0
    QColor paintedFrmColor(int index) const;
    /// The text colour to paint for a state; see paintedBgColor().
    /// \since 1.0
    QColor paintedTextColor(int index) const;

    int m_state = 0;                 ///< what state() answers
    bool m_focus = false;            ///< what IsFocus() answers
    QVector<QColor> m_bgColor;       ///< backgrounds, one per state
    QVector<QColor> m_frmColor;      ///< frame colours, one per state
    QVector<QColor> m_textColor;     ///< text colours, one per state
    QVector<QColor> m_focusColor;    ///< focus colours, one per state
    QVector<QColor> m_triangleColor; ///< colours of the drop-down triangle, one per state
    QVector<int> m_roundRadius;      ///< corner radii, horizontal and vertical, in pixels
    QColor m_checkedBgColor;         ///< background of the checked look; invalid paints none
    QColor m_checkedFrmColor;        ///< frame of the checked look; invalid paints none
    int m_frmWidth = 1;              ///< frame width in pixels
    bool m_frmTrancent = false;      ///< no frame around a square button
    QMargins m_removeMargin;         ///< cut off the widget before painting, in pixels

private:
    friend struct lumqt::ButtonTones;
    friend class CBPDropdownBtn;
    friend class CBPPushBtn;

    // The widget whose record this is; a copy is nobody's, and what is assigned to keeps its own.
    struct Owner
    {
        Owner() = default;
        Owner(const Owner &) {}
        Owner &operator=(const Owner &) { return *this; }
        QWidget *widget = nullptr;
    };

    void repaintOwner();

    QColor paintedTriangleColor(int index) const;
    bool hasOwnTextColor() const;

    short m_bgPurpose; // CBPTheme::Purpose of the first state, of a list that nobody has set
    short m_frmPurpose;
    short m_textPurpose;
    short
        m_ownBgPurpose; // those that the button has by its class, for when its colours are the theme's again
    short m_ownFrmPurpose;
    short m_ownTextPurpose;
    bool m_waits = false; // disabled, and to be seen waiting
    bool m_bgTrancent = false;
    Owner m_owner;
};
