#include "CEditTimeEdit.h"

#include "CBPImageButton.h"
#include "datetime/DimmedWhenDisabled.h"
#include "ENState.h"
#include "foundation/Accessible.h"
#include "foundation/ListText.h"
#include "foundation/TabOrder.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QTimeEdit>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace {

constexpr int kItemSpacing = 10; // pixels between the fields, once there are more than one
constexpr int kButtonId = 255;
constexpr int kMaximumCount = 4;

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
    m_listTold = times();
}

CEditTimeEdit::CEditTimeEdit(QWidget *parent) : CEditTimeEdit(QString(), QString(), kMaximumCount, parent) {}

CEditTimeEdit::~CEditTimeEdit()
{
    // Each one that goes takes itself off its list.
    qDeleteAll(std::exchange(m_listItems, {}));
    qDeleteAll(std::exchange(m_listRemoved, {}));
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
    new lumqt::DimmedWhenDisabled(m_pAddBtn);
    lumqt::stopWherePictured(*m_pAddBtn, m_strAddIcon);
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
    connect(item, &QObject::destroyed, this, &CEditTimeEdit::forgetItem);
    connect(item, &CEditTimeEditItem::timeChanged, this, &CEditTimeEdit::tellTimes);
    if (before && before->m_pDelBtn && m_pAddBtn) {
        // Tab follows the row; otherwise what is made last comes last, after the add button.
        lumqt::placeBehind(before->m_pDelBtn, item->m_pTimeEdit);
        lumqt::placeBehind(item->m_pTimeEdit, item->m_pDelBtn);
    }
    nameItems(m_listItems.size() - 1);
    return item;
}

// By its address only: it is no more than an object by now.
void CEditTimeEdit::forgetItem(QObject *item)
{
    const auto isItem = [item](const CEditTimeEditItem *other) { return other == item; };
    m_listRemoved.erase(std::remove_if(m_listRemoved.begin(), m_listRemoved.end(), isItem),
                        m_listRemoved.end());
    const auto found = std::find_if(m_listItems.begin(), m_listItems.end(), isItem);
    if (found == m_listItems.end())
        return;
    const int index = int(found - m_listItems.begin());
    m_listItems.erase(found);
    itemRemoved(index);
    // Later: who hears of it may delete the list, and with it an item that is being deleted.
    QTimer::singleShot(0, this, [this] { tellTimes(); });
}

void CEditTimeEdit::OnBtnPressed(int)
{
    if (!m_pItemLayout || !m_pAddBtn)
        return;
    CEditTimeEditItem *item = appendItem();
    m_pItemLayout->setSpacing(kItemSpacing);
    m_listItems.first()->SetIconVisual(m_listItems.size() > 1);
    if (isVisible())
        item->show(); // a hidden widget cannot take the focus
    updateAddButton();
    tellTimes();
}

void CEditTimeEdit::onHideItem(CEditTimeEditItem *pItem)
{
    const int index = m_listItems.indexOf(pItem);
    if (!m_pItemLayout || !m_pAddBtn || m_listItems.size() < 2 || index < 0)
        return;
    const QPointer<CEditTimeEditItem> item(pItem);
    m_listItems.removeAt(index);
    m_listRemoved.append(pItem);
    // To the field that takes its place: not to its button, which would remove it with the next key. Who
    // hears that a field was left may delete the item.
    QTimeEdit *next = m_listItems.at(qMin(index, m_listItems.size() - 1))->m_pTimeEdit;
    const QPointer<CEditTimeEdit> alive(this);
    if (next && holdsFocus(pItem))
        next->setFocus();
    if (!alive)
        return;
    if (item) {
        item->hide();
        m_pItemLayout->removeWidget(item);
    }
    itemRemoved(index);
    tellTimes();
}

void CEditTimeEdit::itemRemoved(int index)
{
    nameItems(index);
    updateAddButton();
    if (m_listItems.size() == 1)
        m_listItems.first()->SetIconVisual(false);
}

void CEditTimeEdit::updateAddButton()
{
    if (!m_pAddBtn)
        return;
    const bool show = m_listItems.size() < m_iMaxCount;
    QTimeEdit *last = m_listItems.isEmpty() ? nullptr : m_listItems.last()->m_pTimeEdit;
    if (!show && last && holdsFocus(m_pAddBtn))
        last->setFocus();
    m_pAddBtn->setVisible(show);
}

void CEditTimeEdit::nameItems(int from)
{
    for (int i = from; i < m_listItems.size(); ++i) {
        const CEditTimeEditItem *item = m_listItems.at(i);
        const QString name = tr("Time %1").arg(i + 1);
        if (item->m_pTimeEdit)
            item->m_pTimeEdit->setAccessibleName(name);
        if (auto *text = item->m_pTimeEdit ? item->m_pTimeEdit->findChild<QLineEdit *>() : nullptr)
            text->setAccessibleName(name);
        if (item->m_pDelBtn)
            item->m_pDelBtn->setAccessibleName(tr("Remove time %1").arg(i + 1));
    }
}

void CEditTimeEdit::Initialize(QVector<QTime> times)
{
    const QPointer<CEditTimeEdit> alive(this);
    m_bSettingTimes = true;
    for (int i = 0; i < times.size(); ++i) {
        if (i >= m_listItems.size())
            OnBtnPressed(-1);
        if (i >= m_listItems.size())
            break;
        m_listItems.at(i)->SetQTime(times[i]);
        if (!alive)
            return;
    }
    m_bSettingTimes = false;
    tellTimes();
}

// Once for each change, whatever it is made of.
void CEditTimeEdit::tellTimes()
{
    const QStringList now = times();
    if (m_bSettingTimes || now == m_listTold)
        return;
    m_listTold = now;
    emit timesChanged(now);
}

QString CEditTimeEdit::addIcon() const
{
    return m_strAddIcon;
}

void CEditTimeEdit::setAddIcon(const QString &path)
{
    m_strAddIcon = path;
    if (m_pAddBtn)
        lumqt::setOnlyPicture(*m_pAddBtn, path);
}

QString CEditTimeEdit::deleteIcon() const
{
    return m_strDelIcon;
}

void CEditTimeEdit::setDeleteIcon(const QString &path)
{
    m_strDelIcon = path;
    for (CEditTimeEditItem *item : qAsConst(m_listItems))
        item->setIconPath(path);
}

int CEditTimeEdit::maximumCount() const
{
    return m_iMaxCount;
}

// The constructor has the add button beside a single field whatever the number.
void CEditTimeEdit::setMaximumCount(int count)
{
    m_iMaxCount = count;
    if (m_listItems.size() > 1)
        updateAddButton();
    else if (m_pAddBtn)
        m_pAddBtn->setVisible(true);
}

void CEditTimeEdit::resetMaximumCount()
{
    setMaximumCount(kMaximumCount);
}

QStringList CEditTimeEdit::times() const
{
    QStringList texts;
    for (const CEditTimeEditItem *item : m_listItems) {
        const QTime time = item->GetQTime();
        texts.append(time.toString(time.second() > 0 ? QStringLiteral("hh:mm:ss") : QStringLiteral("hh:mm")));
    }
    return texts;
}

void CEditTimeEdit::setTimes(const QStringList &times)
{
    QVector<QTime> parsed;
    for (const QString &time : lumqt::listOf(times))
        parsed.append(QTime::fromString(time, Qt::ISODate));
    Initialize(parsed);
}

void CEditTimeEdit::resetTimes()
{
    const QPointer<CEditTimeEdit> alive(this);
    m_bSettingTimes = true;
    for (int left = m_listItems.size(); alive && left > 1; --left)
        onHideItem(m_listItems.last()); // the focus goes to the field before it
    QTime midnight(0, 0);
    if (alive && !m_listItems.isEmpty())
        m_listItems.first()->SetQTime(midnight);
    if (!alive)
        return;
    m_bSettingTimes = false;
    tellTimes();
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
