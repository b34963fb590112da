#pragma once

#include <QRect>

class QPainter;

namespace lumqt {

// Radius of the corners of a dialog, those of its title bar; in logical pixels.
constexpr int kDialogRadius = 12;

// Draws a soft shadow into the `border` pixels around the body of a dialog that fills `rect`. What the body
// covers is left as it is, but for its corners.
void drawShadow(QPainter &painter, const QRect &rect, int border);

} // namespace lumqt
