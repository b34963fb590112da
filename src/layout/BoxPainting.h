#pragma once

#include <QColor>
#include <QRectF>

class QBrush;
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

// The frame alone, `width` logical pixels wide: each of its sides as many device pixels.
void fillFrame(QPainter &painter, const QRectF &rect, int width, const QColor &color);

// What QPainter::drawRect() draws, its right and lower line outside `rect`. A plain line of one pixel has its
// sides alike at any ratio.
void drawOutlined(QPainter &painter, const QRect &rect, const QPen &pen, const QBrush &brush);

} // namespace lumqt
