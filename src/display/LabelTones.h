#pragma once

#include "foundation/Palette.h"

namespace lumqt {

// What a text that lies on a window has of the theme.
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

} // namespace lumqt
