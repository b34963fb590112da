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

// The same of a part of a field that keeps the ground of one in use.
inline const QVector<PaletteTone> &octetTones()
{
    static const QVector<PaletteTone> tones = [] {
        QVector<PaletteTone> all = fieldTones();
        all[1].purpose = Purpose::Field;
        return all;
    }();
    return tones;
}

} // namespace lumqt
