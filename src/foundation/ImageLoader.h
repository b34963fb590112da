#pragma once

#include "foundation/Internals.h"

#include <QPixmap>
#include <QString>

namespace lumqt {

// The image file at `path` for a surface with `ratio` device pixels to a logical one; null when it is
// missing, broken or larger than any image of an interface can be (said once in the log). An empty path is
// silently null.
//
// "name@2x.ext" beside the file is taken for ratios above 1, and ".svg" is rendered at the ratio, so the
// pixmap has the logical size of the file and is sharp at 1, 1.5 and 2. What was decoded is kept; each call
// looks only whether the file's time or size changed, so a replaced file shows at the next paint. GUI thread
// only.
LUMQT_TESTED QPixmap loadPixmap(const QString &path, qreal ratio);

// Size of the pixmap in logical pixels, which are what widgets lay out with; 0 x 0 when null.
LUMQT_TESTED QSize logicalSize(const QPixmap &pixmap);

} // namespace lumqt
