#include "layout/TabBar.h"

#include "buttons/GroupButton.h"
#include "foundation/Accessible.h"
#include "foundation/Palette.h"

namespace lumqt {

TabBar::TabBar() : CButtonGroupBox(true, nullptr)
{
    installAccessible(staticMetaObject.className(), makeAccessible);
    setTones(int(Purpose::TabFrame), int(Purpose::TabGround));
}

CBPPushBtn *TabBar::addTab(int id, const QString &text, const QString &iconPath, QWidget *page)
{
    CBPPushBtn *button = AddButton(id, text, iconPath);
    if (auto *tab = qobject_cast<GroupButton *>(button))
        tab->makeTabOf(page);
    return button;
}

QAccessibleInterface *TabBar::makeAccessible(QWidget *widget)
{
    return new QAccessibleWidget(widget, QAccessible::PageTabList);
}

} // namespace lumqt
