#pragma once

#include "foundation/Painting.h"

#include <QColor>
#include <QRectF>

class QPainter;
class QPen;

// What the painters of the boxes share. Boxes change their size while they are animated, so nothing here is
// kept from one paint to the next.
namespace lumqt {

// Fills `rect` (logical pixels) in one colour, its edges on whole device pixels.
void fillPixels(QPainter &painter, const QRectF &rect, const QColor &color);

// The same of a line, which is as thick wherever it lies.
void fillLine(QPainter &painter, const QRectF &rect, const QColor &color);

// A frame one logical pixel wide within `rect`, and the ground inside it. Colours that are invalid are left
// out.
void fillFramed(QPainter &painter, const QRectF &rect, const QColor &ground, const QColor &frame);

// Whether a pen draws lines as fillEdges() does.
bool isPlainLine(const QPen &pen);

} // namespace lumqt
