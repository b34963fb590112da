#pragma once

// What fields, indicators and buttons have in common, so that those which stand in one row look like
// one family. Sizes are logical pixels.
namespace lumqt {

constexpr int kFieldHeight = 28; // of a row of fields and push buttons
constexpr int kFieldInset = 8;   // from a field's outer edge to its text
constexpr int kFocusRingWidth = 2;

} // namespace lumqt
