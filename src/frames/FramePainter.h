#pragma once

#include "foundation/Internals.h"

#include <QColor>
#include <QSizeF>

class QPainter;

namespace lumqt::frame {

// Border and title strip of a window of `size` logical pixels whose border is `fw` wide; what lies outside of
// the border's line is filled with `outside`. The client area is left alone.
LUMQT_TESTED void paintFrame(QPainter &painter, const QSizeF &size, int fw, const QColor &outside);

} // namespace lumqt::frame
