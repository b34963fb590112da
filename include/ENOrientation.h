#pragma once

/// Where a CBPTipWnd has its arrow, and how it stands under its widget.
/// \since 1.0
enum ENOrientation : int {
    ENOrientationNone = 0,   ///< no arrow; one pixel left of the widget's left edge
    ENOrientationLeft = 1,   ///< arrow 45 pixels from the left; left edges aligned
    ENOrientationCenter = 2, ///< arrow in the middle; centred under the widget
    ENOrientationRight = 3,  ///< arrow 45 pixels from the right; right edges aligned
};
