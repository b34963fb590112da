#include "buttons/ButtonIds.h"

#include "CBPPushBtn.h"

namespace lumqt {

int buttonIdChanges = 0;

void ButtonIds::refresh()
{
    if (m_valid && m_changes == buttonIdChanges)
        return;
    m_byId.clear();
    m_leastFree = 0;
    m_valid = true;
    m_shared = false;
    m_changes = buttonIdChanges;
    for (CBPPushBtn *button : m_buttons) {
        if (!button)
            continue;
        m_shared = m_shared || m_byId.contains(button->bindId());
        if (!m_byId.value(button->bindId()))
            m_byId.insert(button->bindId(), button);
    }
}

CBPPushBtn *ButtonIds::button(int id)
{
    refresh();
    const auto found = m_byId.constFind(id);
    if (found == m_byId.constEnd())
        return nullptr;
    if (*found)
        return *found;
    m_valid = false; // destroyed somewhere else; another one may have its id
    refresh();
    return m_byId.value(id);
}

int ButtonIds::freeId()
{
    refresh();
    while (button(m_leastFree))
        ++m_leastFree;
    return m_leastFree;
}

void ButtonIds::added(CBPPushBtn *button)
{
    if (!m_byId.contains(button->bindId())) {
        m_byId.insert(button->bindId(), button);
        return;
    }
    m_shared = true;
    m_valid = m_valid && m_buttons.constLast() == button; // else it may be the first that has the id
}

void ButtonIds::removed(const CBPPushBtn *button)
{
    // Another one may have its id.
    m_valid = m_valid && !m_shared && m_byId.value(button->bindId()) == button;
    if (!m_valid)
        return;
    m_byId.remove(button->bindId());
    m_leastFree = qMin(m_leastFree, qMax(0, button->bindId()));
}

} // namespace lumqt
