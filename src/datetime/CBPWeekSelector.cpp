#include "CBPWeekSelector.h"

#include "buttons/FocusGroup.h"
#include "CTriStateButton.h"
#include "datetime/ChoiceButtons.h"
#include "foundation/Accessible.h"

#include <QHBoxLayout>

CBPWeekSelector::CBPWeekSelector(QStringList &names, QWidget *parent) : QWidget(parent)
{
    lumqt::installAccessible(staticMetaObject.className(), lumqt::makeGrouping);
    if (names.isEmpty())
        return;
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(lumqt::kChoiceSpacing);
    auto *group = new lumqt::FocusGroup(this);
    for (const QString &name : qAsConst(names)) {
        CTriStateButton *button = lumqt::makeChoice(name);
        connect(button, &QAbstractButton::clicked, this, &CBPWeekSelector::slotBtnClicked);
        m_listButtons.append(button);
        row->addWidget(button);
        group->add(button);
    }
}

CBPWeekSelector::~CBPWeekSelector() = default;

QStringList CBPWeekSelector::GetSelected()
{
    return lumqt::checkedTexts(m_listButtons);
}

void CBPWeekSelector::SetSelected(QStringList texts)
{
    lumqt::checkTexts(m_listButtons, texts);
}

void CBPWeekSelector::slotBtnClicked(bool bChecked)
{
    emit sigBtnClicked(bChecked);
}
