#pragma once

#include "foundation/Internals.h"

#include <QRect>

class QFont;
class QPixmap;
class QString;
class QWidget;

// The ring of the keyboard focus around a widget whose content reaches its edges, as a link's text does: it
// lies outside the widget, over its neighbours' gaps, and takes no room. What has room of its own (a
// button, a field, an indicator) draws the same ring at its edge, with drawFocusRing().
namespace lumqt {

// From the widget's edge to the ring's outer edge: the ring, and two pixels of air beside letters.
constexpr int kRingMargin = 4;

// Shows the ring around `widget`, or takes it away. It follows the widget, hides with it and goes with it. At
// the edge of the window or the viewport, and around a window itself, there is no outside: it lies inside
// there. GUI thread only.
LUMQT_TESTED void setRingAround(QWidget *widget, bool shown);

// Whether `ink` leaves the room that a ring at the inner edge of `all` takes, and a pixel of air.
bool hasRingRoom(const QRect &all, const QRect &ink);

// Where something is drawn: the ink of a line of text whose box begins at `topLeft`, and of a picture.
QRect inkOfLine(const QString &text, const QFont &font, const QPoint &topLeft);
QRect inkOfPicture(const QPixmap &picture, const QPoint &topLeft);

} // namespace lumqt
