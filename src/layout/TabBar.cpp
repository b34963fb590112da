#include "layout/TabBar.h"

#include "buttons/GroupButton.h"
#include "foundation/Accessible.h"

namespace lumqt {

namespace {

const QColor kFrameColor(73, 167, 245);
const QColor kBgColors[] = {QColor(255, 255, 255), QColor(91, 175, 246), QColor(65, 149, 220),
                            QColor(201, 229, 252)};

} // namespace

TabBar::TabBar() : CButtonGroupBox(true, nullptr)
{
    installAccessible(staticMetaObject.className(), makeAccessible);
    QVector<QColor> grounds;
    for (const QColor &color : kBgColors)
        grounds.append(color);
    SetBgClr(grounds);
    SetFrameClr(kFrameColor);
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
