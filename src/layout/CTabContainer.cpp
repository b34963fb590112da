#include "CTabContainer.h"

#include "CBPPushBtn.h"
#include "foundation/Log.h"
#include "layout/Packing.h"
#include "layout/Pages.h"
#include "layout/TabBar.h"

#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int kRowSpacing = 16; // between the tabs and the page, in pixels

} // namespace

CTabContainer::CTabContainer(QWidget *parent) : QWidget(parent)
{
    Layout();
}

CTabContainer::~CTabContainer() = default;

void CTabContainer::Layout()
{
    auto *column = new QVBoxLayout;
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kRowSpacing);
    setLayout(column);
    m_pTabBar = new lumqt::TabBar;
    m_pTabBarLayout = new QHBoxLayout;
    m_pTabBarLayout->addWidget(m_pTabBar);
    m_pTabBarLayout->addSpacerItem(new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum));
    column->addLayout(m_pTabBarLayout);
    m_pContentLayout = new QHBoxLayout;
    column->addLayout(m_pContentLayout);
    QTimer::singleShot(0, this, &CTabContainer::slotDoInitialize);
}

void CTabContainer::Appendtab(QWidget *pPage, QString strText, int id, QString strExtra)
{
    if (!m_pTabBar || !m_pContentLayout || !lumqt::canPack(this, pPage))
        return;
    if (GetTabItem(id))
        qCWarning(lcLumQt, "CTabContainer: there is a tab %d already", id);
    if (m_iCurIndex == -1)
        m_iCurIndex = id;
    CBPPushBtn *button = m_pTabBar->addTab(id, strText, strExtra, pPage);
    connect(button, &CBPPushBtn::sigBtnClicked, this, &CTabContainer::slotTabItemClicked);
    const auto isGone = [](const Tab &tab) { return !tab.first && !tab.second; };
    m_listTabs.erase(std::remove_if(m_listTabs.begin(), m_listTabs.end(), isGone), m_listTabs.end());
    m_listTabs.append({button, pPage});
    m_pContentLayout->addWidget(pPage);
}

void CTabContainer::AppendWidget(QWidget *pWidget)
{
    if (m_pTabBarLayout && lumqt::canPack(this, pWidget))
        m_pTabBarLayout->addWidget(pWidget);
}

void CTabContainer::SetSelected(int id)
{
    m_iCurIndex = id;
    if (CBPPushBtn *button = GetTabItem(id))
        emit button->sigBtnClicked(id); // the container may be gone after
}

int CTabContainer::currentIndex() const
{
    return m_iCurIndex;
}

CBPPushBtn *CTabContainer::GetTabItem(int id)
{
    return m_pTabBar ? m_pTabBar->GetButton(id) : nullptr;
}

// Once, for the tabs that are there by now.
void CTabContainer::slotDoInitialize()
{
    QVector<lumqt::PageChoice> pages;
    for (const Tab &tab : qAsConst(m_listTabs)) {
        const bool current = tab.first && tab.first->bindId() == m_iCurIndex;
        if (tab.first)
            tab.first->setSelected(current);
        if (isOwn(tab.second))
            pages.append({tab.second, current});
    }
    lumqt::showChosen(pages);
}

// A page that the application has taken out again is no business of the container's.
bool CTabContainer::isOwn(const QWidget *page) const
{
    return page && page->parentWidget() == this;
}

void CTabContainer::slotTabItemClicked(int id)
{
    QObject *clicked = sender();
    if (!clicked)
        return;
    QVector<lumqt::PageChoice> pages;
    for (const Tab &tab : qAsConst(m_listTabs)) {
        if (isOwn(tab.second))
            pages.append({tab.second, tab.first == clicked});
    }
    const QPointer<CTabContainer> alive(this);
    lumqt::showChosen(pages);
    if (!alive)
        return;
    m_iCurIndex = id;
    emit sigTabChanged(id); // the container may be gone after
}
