#pragma once

#include "foundation/Internals.h"

#include <QFont>
#include <QString>

// Name of the interface language, such as "English". Asked of the system until the answer is not empty, then
// kept.
LUMQT_TESTED QString GetUILanguage();

// Font family of the interface language for a weight: 0 light, 1 normal, 2 semibold, 3 bold. "Segoe UI" where
// the table has none. The table is "../res/Common/langind.ini" of the current directory at the first call.
LUMQT_TESTED QString GetFontFamily(int weightIndex);

namespace lumqt {

enum FontWeight { LightWeight = 0, NormalWeight = 1, SemiboldWeight = 2, BoldWeight = 3 };
constexpr int kTextPixelSize = 14;

// The font of a widget. Equal requests share one QFont, so that comparing two of them is comparing two
// pointers.
LUMQT_TESTED QFont uiFont(int weightIndex = NormalWeight, int pixelSize = kTextPixelSize);

// `font`, and what it leaves open as `rest` has it: a painter completes it so with the font of its widget.
// Widgets with the same two share one QFont, for which Qt looks up the letters once.
QFont completed(const QFont &font, const QFont &rest);

// Whether `text` is set in the same letters, and is as long, in both fonts: such as in a family that is not
// installed and in the one that stands for it. False when in doubt.
LUMQT_TESTED bool looksTheSame(const QString &text, const QFont &one, const QFont &other);

} // namespace lumqt
