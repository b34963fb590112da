#include "layout/TabBar.h"

#include "buttons/ButtonIds.h"
#include "buttons/FocusGroup.h"
#include "buttons/GroupButton.h"
#include "foundation/Accessible.h"
#include "foundation/Palette.h"

#include <QBoxLayout>

namespace lumqt {

TabBar::TabBar() : CButtonGroupBox(true, nullptr)
{
    installAccessible(staticMetaObject.className(), makeAccessible);
    setTones(int(Purpose::TabFrame), int(Purpose::TabGround));
}

CBPPushBtn *TabBar::addTab(int id, const QString &text, const QString &iconPath, QWidget *page,
                           CBPPushBtn *before)
{
    CBPPushBtn *button = before && m_buttons.contains(before) ? insertButton(before, id, text, iconPath)
                                                              : AddButton(id, text, iconPath);
    if (auto *tab = qobject_cast<GroupButton *>(button))
        tab->makeTabOf(page);
    return button;
}

// In all the places that AddButton() puts one at the end of.
CBPPushBtn *TabBar::insertButton(CBPPushBtn *before, int id, const QString &text, const QString &iconPath)
{
    CBPPushBtn *button = CreateButton(id, text, iconPath);
    m_buttons.insert(m_buttons.indexOf(before), button);
    m_ids->added(button);
    const int place = layout()->indexOf(before);
    InsertWidget(place, button);
    static_cast<QBoxLayout *>(layout())->insertSpacing(place + 1, 0);
    m_focusGroup->add(button, before);
    return button;
}

int TabBar::freeId()
{
    return m_ids->freeId();
}

QAccessibleInterface *TabBar::makeAccessible(QWidget *widget)
{
    return new QAccessibleWidget(widget, QAccessible::PageTabList);
}

} // namespace lumqt
