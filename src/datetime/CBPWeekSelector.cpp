#include "CBPWeekSelector.h"

#include "buttons/FocusGroup.h"
#include "CTriStateButton.h"
#include "datetime/ChoiceButtons.h"
#include "foundation/Accessible.h"
#include "foundation/ListText.h"

#include <QHBoxLayout>

CBPWeekSelector::CBPWeekSelector(QStringList &names, QWidget *parent) : CBPWeekSelector(parent)
{
    m_listItems = names;
    build();
}

CBPWeekSelector::CBPWeekSelector(QWidget *parent) : QWidget(parent)
{
    lumqt::installAccessible(staticMetaObject.className(), lumqt::makeGrouping);
}

CBPWeekSelector::~CBPWeekSelector() = default;

void CBPWeekSelector::build()
{
    if (m_listItems.isEmpty())
        return;
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(lumqt::kChoiceSpacing);
    auto *group = new lumqt::FocusGroup(this);
    for (const QString &name : qAsConst(m_listItems)) {
        CTriStateButton *button = lumqt::makeChoice(name);
        connect(button, &QAbstractButton::clicked, this, &CBPWeekSelector::slotBtnClicked);
        m_listButtons.append(button);
        row->addWidget(button);
        group->add(button);
    }
}

QStringList CBPWeekSelector::items() const
{
    return m_listItems;
}

void CBPWeekSelector::setItems(const QStringList &items)
{
    const QStringList names = lumqt::listOf(items);
    if (m_listItems == names)
        return;
    m_listItems = names;
    lumqt::FormerChoices former(this, m_listButtons, m_listWanted);
    build();
    if (former.giveWay())
        tellSelected();
}

QStringList CBPWeekSelector::GetSelected()
{
    return selected();
}

void CBPWeekSelector::SetSelected(QStringList texts)
{
    const QPointer<CBPWeekSelector> alive(this);
    if (!texts.isEmpty()) {
        m_listWanted = texts;
        lumqt::checkTexts(m_listButtons, texts);
    }
    if (alive)
        tellSelected();
}

void CBPWeekSelector::resetSelected()
{
    const QPointer<CBPWeekSelector> alive(this);
    m_listWanted.clear();
    lumqt::checkTexts(m_listButtons, {});
    if (alive)
        tellSelected();
}

QStringList CBPWeekSelector::selected() const
{
    return lumqt::checkedTexts(m_listButtons);
}

void CBPWeekSelector::setSelected(const QStringList &texts)
{
    SetSelected(lumqt::listOf(texts));
}

void CBPWeekSelector::tellSelected()
{
    const QStringList now = selected();
    if (now == m_listTold)
        return;
    m_listTold = now;
    emit selectedChanged(now);
}

void CBPWeekSelector::slotBtnClicked(bool bChecked)
{
    m_listWanted.clear();
    const QPointer<CBPWeekSelector> alive(this);
    emit sigBtnClicked(bChecked);
    if (alive)
        tellSelected();
}
