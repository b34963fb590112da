#pragma once

#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>

// A press of the mouse that leaves the whole text of a line edit selected, though Qt sets the cursor by it.
namespace lumqt {

// After the press of the base class; notes where it was, and the character there.
inline void selectByPress(QLineEdit &edit, const QMouseEvent *event, QPoint &at, int &cursor)
{
    at = event->pos();
    cursor = edit.cursorPosition();
    edit.selectAll();
}

// Before the move of the base class: whether the selection stays, since a hand that trembles does not drag. A
// drag begins at the character that was pressed, not where the whole selection does.
inline bool staysSelected(QLineEdit &edit, const QMouseEvent *event, bool &selecting, const QPoint &at,
                          int cursor)
{
    if (!selecting || !(event->buttons() & Qt::LeftButton))
        return false;
    if ((event->pos() - at).manhattanLength() < QApplication::startDragDistance())
        return true;
    selecting = false;
    edit.setCursorPosition(cursor);
    return false;
}

} // namespace lumqt
