#include "CEditTimeEdit.h"

#include "CBPImageButton.h"
#include "ENState.h"
#include "foundation/Accessible.h"

#include <QHBoxLayout>
#include <QTimeEdit>

namespace {

constexpr int kItemSpacing = 10; // pixels between the fields, once there are more than one
constexpr int kButtonId = 255;

QAccessibleInterface *makeAccessible(QWidget *widget)
{
    return new QAccessibleWidget(widget, QAccessible::Grouping);
}

bool holdsFocus(const QWidget *widget)
{
    const QWidget *focus = widget->window()->focusWidget();
    return focus && (focus == widget || widget->isAncestorOf(focus));
}

} // namespace

CEditTimeEdit::CEditTimeEdit(QString addIcon, QString delIcon, int maxCount, QWidget *parent)
    : QWidget(parent), m_strAddIcon(addIcon), m_strDelIcon(delIcon), m_iMaxCount(maxCount)
{
    lumqt::installAccessible("CEditTimeEdit", makeAccessible);
    Layout();
}

CEditTimeEdit::~CEditTimeEdit()
{
    qDeleteAll(m_listItems);
    m_listItems.clear();
    qDeleteAll(m_listRemoved);
    m_listRemoved.clear();
}

void CEditTimeEdit::Layout()
{
    auto *layout = new QHBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    setLayout(layout);
    m_pItemLayout = new QHBoxLayout;
    m_pItemLayout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(m_pItemLayout);
    appendItem()->SetIconVisual(false);

    m_pAddBtn = new CBPImageButton(QVector<QString>(ENStateDisable + 1, m_strAddIcon), false, kButtonId);
    m_pAddBtn->setAccessibleName(tr("Add a time"));
    layout->addWidget(m_pAddBtn);
    connect(m_pAddBtn, SIGNAL(btn_released(int)), this, SLOT(OnBtnPressed(int)));
}

CEditTimeEditItem *CEditTimeEdit::appendItem()
{
    auto *item = new CEditTimeEditItem(m_strDelIcon, this);
    CEditTimeEditItem *before = m_listItems.isEmpty() ? nullptr : m_listItems.last();
    m_listItems.append(item);
    m_pItemLayout->addWidget(item);
    connect(item, SIGNAL(sigHideItem(CEditTimeEditItem *)), this, SLOT(onHideItem(CEditTimeEditItem *)));
    if (before && m_pAddBtn) {
        // Tab follows the row; otherwise what is made last comes last, after the add button.
        setTabOrder(before->m_pDelBtn, item->m_pTimeEdit);
        setTabOrder(item->m_pTimeEdit, item->m_pDelBtn);
    }
    nameItems();
    return item;
}

void CEditTimeEdit::OnBtnPressed(int)
{
    if (!m_pItemLayout || !m_pAddBtn)
        return;
    CEditTimeEditItem *item = appendItem();
    m_pItemLayout->setSpacing(kItemSpacing);
    m_listItems.first()->SetIconVisual(true);
    if (isVisible())
        item->show(); // a hidden widget cannot take the focus
    updateAddButton();
}

void CEditTimeEdit::onHideItem(CEditTimeEditItem *pItem)
{
    const int index = m_listItems.indexOf(pItem);
    if (!m_pItemLayout || !m_pAddBtn || m_listItems.size() < 2 || index < 0)
        return;
    m_listItems.removeAt(index);
    m_listRemoved.append(pItem);
    // To the field that takes its place: not to its button, which would remove it with the next key.
    if (holdsFocus(pItem))
        m_listItems.at(qMin(index, m_listItems.size() - 1))->m_pTimeEdit->setFocus();
    pItem->hide();
    m_pItemLayout->removeWidget(pItem);
    nameItems();
    updateAddButton();
    if (m_listItems.size() == 1)
        m_listItems.first()->SetIconVisual(false);
}

void CEditTimeEdit::updateAddButton()
{
    const bool show = m_listItems.size() < m_iMaxCount;
    if (!show && holdsFocus(m_pAddBtn))
        m_listItems.last()->m_pTimeEdit->setFocus();
    m_pAddBtn->setVisible(show);
}

void CEditTimeEdit::nameItems()
{
    int number = 0;
    for (const CEditTimeEditItem *item : qAsConst(m_listItems)) {
        ++number;
        item->m_pTimeEdit->setAccessibleName(tr("Time %1").arg(number));
        item->m_pDelBtn->setAccessibleName(tr("Remove time %1").arg(number));
    }
}

void CEditTimeEdit::Initialize(QVector<QTime> times)
{
    for (int i = 0; i < times.size(); ++i) {
        if (i >= m_listItems.size())
            OnBtnPressed(-1);
        if (i >= m_listItems.size())
            return;
        m_listItems.at(i)->SetQTime(times[i]);
    }
}

QVector<QTime> CEditTimeEdit::GetQTimes() const
{
    QVector<QTime> times;
    for (const CEditTimeEditItem *item : m_listItems)
        times.append(item->GetQTime());
    return times;
}

QVector<QTime> CEditTimeEdit::GetQTimesSorted() const
{
    QVector<QTime> times = GetQTimes();
    for (int i = 0; i < times.size() - 1; ++i) {
        for (int j = i + 1; j < times.size(); ++j) {
            if (times.at(j).msecsSinceStartOfDay() < times.at(i).msecsSinceStartOfDay())
                qSwap(times[i], times[j]);
        }
    }
    return times;
}
