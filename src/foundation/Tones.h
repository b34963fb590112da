#pragma once

#include "foundation/Palette.h"

// What widgets that Qt paints have of the theme, for wearTheme(): one list for all of a kind.
namespace lumqt {

// A ground, and what is written on it.
inline const QVector<PaletteTone> &groundTones()
{
    static const QVector<PaletteTone> tones = {
        {QPalette::Window, Purpose::Ground},
        {QPalette::WindowText, Purpose::Text},
        {QPalette::WindowText, Purpose::DisabledText, QPalette::Disabled},
    };
    return tones;
}

// A field for a text.
inline const QVector<PaletteTone> &fieldTones()
{
    static const QVector<PaletteTone> tones = {
        {QPalette::Base, Purpose::Field},
        {QPalette::Base, Purpose::FieldDisabled, QPalette::Disabled},
        {QPalette::Text, Purpose::Text},
        {QPalette::Text, Purpose::DisabledText, QPalette::Disabled},
        {QPalette::PlaceholderText, Purpose::QuietText},
        {QPalette::PlaceholderText, Purpose::DisabledText, QPalette::Disabled},
        {QPalette::Highlight, Purpose::Chosen},
        {QPalette::HighlightedText, Purpose::ChosenText},
        {QPalette::Highlight, Purpose::FrameDisabled, QPalette::Disabled},
    };
    return tones;
}

// A text that lies on a window.
inline const QVector<PaletteTone> &labelTones()
{
    static const QVector<PaletteTone> tones = {
        {QPalette::WindowText, Purpose::LabelText},
        {QPalette::WindowText, Purpose::DisabledText, QPalette::Disabled},
        {QPalette::Link, Purpose::Link},
        {QPalette::LinkVisited, Purpose::LinkPressed},
        {QPalette::Highlight, Purpose::Chosen},
        {QPalette::HighlightedText, Purpose::ChosenText},
    };
    return tones;
}

// For the document of a rich text, whose links Qt gives the colour that the application's palette has, for
// light grounds, when it reads the text.
inline QString linkSheet()
{
    return isPlainLight() ? QString() : QStringLiteral("a{color:%1}").arg(themeColor(Purpose::Link).name());
}

} // namespace lumqt
