#pragma once

/// \file
/// \since 1.0

/// When a link is underlined.
/// \since 1.0
enum ENLinkerType : int {
    ENLinkerTypeAlways = 0, ///< always
    ENLinkerTypeHover = 1,  ///< while the mouse is over it
    ENLinkerTypeNever = 2,  ///< never
};
