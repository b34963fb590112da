#pragma once

#include <QAbstractButton>
#include <QKeySequence>

// The texts that a class of the library is handed are plain, buttons, labels, tabs, lists and titles alike:
// an "&" is drawn as "&", told to screen readers as "&", and makes no shortcut with Alt. (Three are Qt's
// own in this, as they are operated by Qt's rules: the check boxes, which are QCheckBoxes in everything,
// the items of menus, and the title of a group box that is not seen.) An application that wants a shortcut
// sets one.
namespace lumqt {

// Takes away the shortcut that QAbstractButton::setText() makes of an "&". It is no virtual function, and is
// reached past the class of the library by a pointer to the base: the button asks with each event it gets,
// among them the shortcut's own. `known` is the text at the last look, and the button's to keep: a shortcut
// that is set while the text stays is the application's own.
inline void dropMnemonic(QAbstractButton *button, QString &known)
{
    const QString text = button->text();
    if (text == known)
        return;
    known = text;
    if (!button->shortcut().isEmpty() && button->shortcut() == QKeySequence::mnemonic(text))
        button->setShortcut(QKeySequence());
}

} // namespace lumqt
