#pragma once

#include "foundation/Internals.h"

#include <QColor>

class QWidget;

// How colours change when the mouse, a press or the focus comes and goes. GUI thread only.
namespace lumqt {

constexpr int kFadeTime = 120; // ms

// The colour to paint `part` of `widget` in now, on its way to `target`; the widget is repainted until it is
// there. A part that is painted for the first time, one that is not on the screen, and all of them where the
// system asks for less motion have their colour at once. The numbers of parts are the caller's. Colours that
// come and go are the same colour without and with opacity.
LUMQT_TESTED QColor fadedColor(const QWidget *widget, int part, const QColor &target);

// How many parts are on their way: at rest none, and then no timer runs.
LUMQT_TESTED int runningFades();

} // namespace lumqt
