#pragma once

#include "CBPWaitBtn.h"
#include "foundation/Accessible.h"

#include <QPointer>

namespace lumqt {

// What screen readers are told of a waiting button: that it is busy, and its name also while it shows none.
class AccessibleWaitBtn : public AccessibleButton
{
public:
    AccessibleWaitBtn(CBPWaitBtn *button, std::function<QString()> ownName)
        : AccessibleButton(button, std::move(ownName)), m_button(button)
    {
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = AccessibleButton::state();
        state.busy = m_button && m_button->isWaitting();
        return state;
    }

private:
    QPointer<CBPWaitBtn> m_button;
};

} // namespace lumqt
