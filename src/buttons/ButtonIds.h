#pragma once

#include <QHash>
#include <QPointer>
#include <QVector>

class CBPPushBtn;

namespace lumqt {

// Finds the buttons of a group by their ids without a look at each, so that a group of n buttons is filled in
// n steps. An application may give a button another id at any time: then all of them are looked at once more.
class ButtonIds
{
public:
    using Buttons = QVector<QPointer<CBPPushBtn>>;

    explicit ButtonIds(const Buttons &buttons) : m_buttons(buttons) {}

    // The first of the buttons that has the id, or null.
    CBPPushBtn *button(int id);
    // The least id from 0 on that none has.
    int freeId();

    // To be called when it has become one of the buttons, or is none any more.
    void added(CBPPushBtn *button);
    void removed(const CBPPushBtn *button);

private:
    void refresh();

    const Buttons &m_buttons;
    QHash<int, QPointer<CBPPushBtn>> m_byId;
    int m_leastFree = 0; // none less than this is free
    bool m_valid = false;
    bool m_shared = false; // buttons have the same id
    int m_changes = 0;     // of ids, when this was filled
};

// How often an application gave any button another id. Of the GUI thread.
extern int buttonIdChanges;

} // namespace lumqt
