// Palettes in the colours of the theme, for what Qt paints itself.

#include "foundation/Palette.h"

#include "foundation/AppStyle.h"

#include <QWidget>

namespace lumqt {

namespace {

constexpr QPalette::ColorGroup kGroups[] = {QPalette::Active, QPalette::Inactive, QPalette::Disabled};

// All that Qt's styles ask for, the disabled ones last, over those of all groups.
const QVector<PaletteTone> &wholePalette()
{
    static const QVector<PaletteTone> tones = {
        {QPalette::Window, Purpose::Ground},
        {QPalette::WindowText, Purpose::Text},
        {QPalette::Base, Purpose::Field},
        {QPalette::AlternateBase, Purpose::RaisedGround},
        {QPalette::Text, Purpose::Text},
        {QPalette::PlaceholderText, Purpose::QuietText},
        {QPalette::Button, Purpose::ButtonGround},
        {QPalette::ButtonText, Purpose::Text},
        {QPalette::BrightText, Purpose::Danger},
        {QPalette::Light, Purpose::RaisedGround},
        {QPalette::Midlight, Purpose::Rule},
        {QPalette::Mid, Purpose::Frame},
        {QPalette::Dark, Purpose::Frame},
        {QPalette::Shadow, Purpose::Shadow},
        {QPalette::Highlight, Purpose::Chosen},
        {QPalette::HighlightedText, Purpose::ChosenText},
        {QPalette::Link, Purpose::Link},
        {QPalette::LinkVisited, Purpose::LinkPressed},
        {QPalette::ToolTipBase, Purpose::TipGround},
        {QPalette::ToolTipText, Purpose::Text},
        {QPalette::WindowText, Purpose::DisabledText, QPalette::Disabled},
        {QPalette::Text, Purpose::DisabledText, QPalette::Disabled},
        {QPalette::ButtonText, Purpose::DisabledText, QPalette::Disabled},
        {QPalette::Base, Purpose::FieldDisabled, QPalette::Disabled},
        {QPalette::Highlight, Purpose::ChosenDisabled, QPalette::Disabled},
        {QPalette::HighlightedText, Purpose::DisabledText, QPalette::Disabled},
    };
    return tones;
}

// Of the windows: where fields and buttons are native, and light whatever their palette, it is the ground
// that these lie on, and what is written on that.
const QVector<PaletteTone> &windowPalette()
{
    static const QVector<PaletteTone> grounds = {
        {QPalette::Window, Purpose::Ground},
        {QPalette::WindowText, Purpose::Text},
        {QPalette::WindowText, Purpose::DisabledText, QPalette::Disabled},
    };
    return hasNativeLook() ? grounds : wholePalette();
}

// What the theme has put into the palette of one widget. A role whose colours are no longer those that were
// put there was set by somebody else, and is left to him.
class Wearer : public QObject
{
public:
    Wearer(QWidget *widget, const QVector<PaletteTone> &tones, bool whole)
        : QObject(widget), m_widget(widget), m_tones(tones), m_whole(whole)
    {
        renew();
        onThemeChange(this, [this] { renew(); });
    }

private:
    bool isWorn(QPalette::ColorRole role, const QPalette &palette) const
    {
        if (!(m_worn.resolve() & (1u << role)))
            return false;
        for (const QPalette::ColorGroup group : kGroups) {
            if (palette.brush(group, role) != m_worn.brush(group, role))
                return false;
        }
        return true;
    }

    void renew()
    {
        const bool wears = m_whole ? wantsPalette() : !isPlainLight();
        const QPalette current =
            m_widget->palette(); // its mask tells of the widget alone, not of those around
        QPalette next = current;
        uint mine = 0;
        for (const PaletteTone &tone : m_tones) {
            if (!current.isBrushSet(QPalette::Active, tone.role) || isWorn(tone.role, current))
                mine |= 1u << tone.role;
        }
        next.resolve(next.resolve() & ~mine);
        for (const PaletteTone &tone : m_tones) {
            if (wears && mine & (1u << tone.role))
                next.setColor(tone.group, tone.role, themeColor(tone.purpose));
        }
        m_worn = next;
        m_worn.resolve(wears ? mine : 0);
        if (next.resolve() != current.resolve() || next != current)
            m_widget->setPalette(next);
    }

    QWidget *m_widget;
    QVector<PaletteTone> m_tones;
    QPalette m_worn;
    bool m_whole;
};

bool s_wanted = false;

} // namespace

void wearTheme(QWidget *widget, const QVector<PaletteTone> &tones)
{
    new Wearer(widget, tones, false);
}

void wearWholeTheme(QWidget *widget)
{
    wearTheme(widget, wholePalette());
}

void wearPalette(QWidget *window)
{
    sharePalette();
    new Wearer(window, windowPalette(), true);
}

QPalette themePalette()
{
    QPalette palette;
    for (const PaletteTone &tone : wholePalette())
        palette.setColor(tone.group, tone.role, themeColor(tone.purpose));
    return palette;
}

bool wantsPalette()
{
    return s_wanted;
}

void setWantsPalette(bool wants)
{
    if (wants == s_wanted)
        return;
    s_wanted = wants;
    emit ThemeNews::instance()->renewed();
}

} // namespace lumqt
