#pragma once

/// \file
/// \since 1.0

/// The look of a widget or menu item, and the index of its entry in every per-state list of colours or
/// images. \since 1.0
enum ENState : int {
    ENStateNormal = 0,  ///< at rest
    ENStateHover = 1,   ///< under the mouse
    ENStatePress = 2,   ///< pressed
    ENStateDisable = 3, ///< disabled
};
