#pragma once

class CBPMenu;
class CBPMenuItem;
class QAction;
class QWidget;

// What the buttons with a drop-down menu share. GUI thread only.
namespace lumqt {

// A menu for `button`, whose slot OnActionTriggered(QAction *) hears of what is chosen. It has no parent and
// dies after the button, not with it: the button may be dying inside the menu's own event loop. An
// application may delete it before.
CBPMenu *makeDropMenu(QWidget *button);

// Opens `menu` where applications expect that of `button`, and returns once it is closed. The button may be
// gone then: choosing an item may have deleted it.
void openDropMenu(const QWidget *button, CBPMenu *menu);

// What signals report of a chosen action. Null for sub-menus and actions that the application added itself:
// they are no items of ours.
CBPMenuItem *chosenItem(QAction *action);

// Makes pointers to items fit for queued signals: the buttons' headers only name the class.
void registerMenuItem();

} // namespace lumqt
