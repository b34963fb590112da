#pragma once

/// \file
/// \since 1.0

/// How a tool button lays out its image and its text.
/// \since 1.0
enum ENAlign : int {
    ENAlignLeft = 0, ///< image at the left, text to its right
    ENAlignTop = 1,  ///< image above the text, both centred horizontally
};
