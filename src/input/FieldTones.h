#pragma once

#include "foundation/Palette.h"

namespace lumqt {

// What a field for a text has of the theme.
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

} // namespace lumqt
