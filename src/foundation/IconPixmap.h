#pragma once

#include "foundation/ImageLoader.h"

#include <QIcon>

class QWidget;

namespace lumqt {

// The icon's picture for a widget, sharp at its device pixel ratio also where the application did not ask Qt
// for high-density pixmaps.
LUMQT_TESTED QPixmap iconPixmap(const QIcon &icon, const QSize &size, QIcon::Mode mode,
                                const QWidget *widget);

} // namespace lumqt
