#pragma once

#include "foundation/Painting.h"

#include <QFont>
#include <QHash>
#include <QSharedPointer>
#include <QSize>
#include <QString>

class QAction;

namespace lumqt {

// The texts of a menu's items as they are painted. Each is laid out when it is first painted, so that a menu
// with hundreds of items pays for those on the screen only.
class MenuTexts
{
public:
    struct Text
    {
        CachedText layout;
        QString source; // the action's text
        QString shown;  // without the marks of mnemonics and without a shortcut, elided to the room
        QSize size;     // of what is shown, logical pixels
        int room = -1;
        int underlineX = 0; // of the mnemonic, from the left edge of the text
        int underlineWidth = 0;
    };

    // The text of `action` in at most `room` pixels.
    Text &text(const QAction *action, const QFont &font, int room);
    void forget(const QAction *action) { m_texts.remove(action); }
    // To be called when the font changes.
    void forgetAll() { m_texts.clear(); }

private:
    QHash<const QAction *, QSharedPointer<Text>> m_texts;
};

} // namespace lumqt
