#pragma once

class QEvent;
class QFont;
class QString;
class QWidget;

// Of a text that finds no room in its widget an ellipsis stands for the end, and the tool tip shows all of
// it. GUI thread only.
namespace lumqt {

// What of `text` is drawn on one line in `width` pixels: all of it, or as much as fits and an ellipsis. A
// line break counts as a space.
QString elidedLine(const QString &text, const QFont &font, int width);

// `whole` as the text of a tool tip that reads like it: plain, and in lines where it is long.
QString toolTipOf(const QString &whole);

// Shows `whole` as the tool tip that `event` asks `widget` for, unless the application gave the widget one of
// its own. False, and nothing is done, for any other event and while the text is not `cut`.
bool showWholeText(QWidget *widget, QEvent *event, const QString &whole, bool cut);

} // namespace lumqt
