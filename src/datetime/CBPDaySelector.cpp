#include "CBPDaySelector.h"

#include "buttons/FocusGroup.h"
#include "CTriStateButton.h"
#include "datetime/ChoiceButtons.h"
#include "foundation/Accessible.h"

#include <QGridLayout>

namespace {

constexpr int kColumns = 7;
constexpr int kLastColumns = 4; // that the last button takes
constexpr int kLastWidth = kLastColumns * lumqt::kChoiceWidth + (kLastColumns - 1) * lumqt::kChoiceSpacing;

} // namespace

CBPDaySelector::CBPDaySelector(QStringList &names, QString &strExtraItem, QString &strSelectAll,
                               QWidget *parent)
    : QWidget(parent), m_strExtraItem(strExtraItem), m_strSelectAll(strSelectAll)
{
    lumqt::installAccessible(staticMetaObject.className(), lumqt::makeGrouping);
    QStringList items = names;
    if (!m_strExtraItem.isEmpty())
        items.append(m_strExtraItem);
    if (!m_strSelectAll.isEmpty())
        items.append(m_strSelectAll);
    if (!items.isEmpty())
        buildGrid(items);
}

CBPDaySelector::~CBPDaySelector() = default;

void CBPDaySelector::buildGrid(const QStringList &items)
{
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(lumqt::kChoiceSpacing);
    auto *group = new lumqt::FocusGroup(this);
    const int last = items.size() - 1;
    for (int i = 0; i <= last; ++i) {
        CTriStateButton *button = makeButton(items[i]);
        button->setFixedSize(i == last ? kLastWidth : lumqt::kChoiceWidth, lumqt::kChoiceHeight);
        grid->addWidget(button, i / kColumns, i % kColumns, 1, i == last ? kLastColumns : 1);
        group->add(button);
    }
}

CTriStateButton *CBPDaySelector::makeButton(const QString &text)
{
    // Also where no button that selects all was asked for: an empty name equals the empty text.
    if (text == m_strSelectAll) {
        auto *all = new CTriStateButton(text, true, true, nullptr);
        if (text.isEmpty())
            all->setFocusPolicy(Qt::NoFocus);
        connect(all, &QAbstractButton::clicked, this, &CBPDaySelector::onSelectAll);
        return all;
    }
    CTriStateButton *choice = lumqt::makeChoice(text);
    connect(choice, &QAbstractButton::clicked, this, &CBPDaySelector::slotBtnClicked);
    m_listButtons.append(choice);
    return choice;
}

QStringList CBPDaySelector::GetSelected()
{
    return lumqt::checkedTexts(m_listButtons);
}

void CBPDaySelector::SetSelected(QStringList texts)
{
    lumqt::checkTexts(m_listButtons, texts);
}

void CBPDaySelector::slotBtnClicked(bool bChecked)
{
    emit sigBtnClicked(bChecked);
}

void CBPDaySelector::onSelectAll()
{
    for (CTriStateButton *button : qAsConst(m_listButtons)) {
        if (button)
            button->SetChecked(true);
    }
    emit sigBtnClicked(true);
}
