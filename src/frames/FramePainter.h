#pragma once

#include "foundation/Internals.h"

#include <QColor>
#include <QRectF>
#include <QSizeF>

class QPainter;

namespace lumqt::frame {

// Border and title strip around the area `client` of a window of `size` logical pixels whose border is `fw`
// wide; what lies outside of the border's line is filled with `outside`. The client area is left alone.
//
// Where the client area lies is told and not computed: its edges are whole device pixels, which a multiple of
// `fw` is not at 150 per cent, and the line is to touch it.
LUMQT_TESTED void paintFrame(QPainter &painter, const QSizeF &size, const QRectF &client, int fw,
                             const QColor &outside);

} // namespace lumqt::frame
