#include "CBPDaySelector.h"

#include "buttons/FocusGroup.h"
#include "CTriStateButton.h"
#include "datetime/ChoiceButtons.h"
#include "foundation/Accessible.h"
#include "foundation/ListText.h"

#include <QGridLayout>

namespace {

constexpr int kColumns = 7;
constexpr int kLastColumns = 4; // that the last button takes
constexpr int kLastWidth = kLastColumns * lumqt::kChoiceWidth + (kLastColumns - 1) * lumqt::kChoiceSpacing;

} // namespace

CBPDaySelector::CBPDaySelector(QStringList &names, QString &strExtraItem, QString &strSelectAll,
                               QWidget *parent)
    : QWidget(parent), m_listItems(names), m_strExtraItem(strExtraItem), m_strSelectAll(strSelectAll)
{
    lumqt::installAccessible(staticMetaObject.className(), lumqt::makeGrouping);
    build();
}

CBPDaySelector::CBPDaySelector(QWidget *parent) : QWidget(parent)
{
    lumqt::installAccessible(staticMetaObject.className(), lumqt::makeGrouping);
}

CBPDaySelector::~CBPDaySelector() = default;

void CBPDaySelector::build()
{
    QStringList items = m_listItems;
    if (!m_strExtraItem.isEmpty())
        items.append(m_strExtraItem);
    if (!m_strSelectAll.isEmpty())
        items.append(m_strSelectAll);
    if (!items.isEmpty())
        buildGrid(items);
}

void CBPDaySelector::rebuild()
{
    lumqt::FormerChoices former(this, m_listButtons, m_listWanted);
    build();
    if (former.giveWay())
        tellSelected();
}

QStringList CBPDaySelector::items() const
{
    return m_listItems;
}

void CBPDaySelector::setItems(const QStringList &items)
{
    const QStringList names = lumqt::listOf(items);
    if (m_listItems == names)
        return;
    m_listItems = names;
    rebuild();
}

QString CBPDaySelector::extraItem() const
{
    return m_strExtraItem;
}

void CBPDaySelector::setExtraItem(const QString &text)
{
    if (m_strExtraItem == text)
        return;
    m_strExtraItem = text;
    rebuild();
}

QString CBPDaySelector::selectAllItem() const
{
    return m_strSelectAll;
}

void CBPDaySelector::setSelectAllItem(const QString &text)
{
    if (m_strSelectAll == text)
        return;
    m_strSelectAll = text;
    rebuild();
}

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
    return selected();
}

void CBPDaySelector::SetSelected(QStringList texts)
{
    const QPointer<CBPDaySelector> alive(this);
    if (!texts.isEmpty()) {
        m_listWanted = texts;
        lumqt::checkTexts(m_listButtons, texts);
    }
    if (alive)
        tellSelected();
}

void CBPDaySelector::resetSelected()
{
    const QPointer<CBPDaySelector> alive(this);
    m_listWanted.clear();
    lumqt::checkTexts(m_listButtons, {});
    if (alive)
        tellSelected();
}

QStringList CBPDaySelector::selected() const
{
    return lumqt::checkedTexts(m_listButtons);
}

void CBPDaySelector::setSelected(const QStringList &texts)
{
    SetSelected(lumqt::listOf(texts));
}

void CBPDaySelector::tellSelected()
{
    const QStringList now = selected();
    if (now == m_listTold)
        return;
    m_listTold = now;
    emit selectedChanged(now);
}

void CBPDaySelector::clicked(bool bAll)
{
    m_listWanted.clear();
    const QPointer<CBPDaySelector> alive(this);
    emit sigBtnClicked(bAll);
    if (alive)
        tellSelected();
}

void CBPDaySelector::slotBtnClicked(bool bChecked)
{
    clicked(bChecked);
}

void CBPDaySelector::onSelectAll()
{
    for (CTriStateButton *button : qAsConst(m_listButtons)) {
        if (button)
            button->SetChecked(true);
    }
    clicked(true);
}
