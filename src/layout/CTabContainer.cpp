#include "CTabContainer.h"

#include "CBPPushBtn.h"
#include "foundation/Log.h"
#include "foundation/TabOrder.h"
#include "layout/Packing.h"
#include "layout/Pages.h"
#include "layout/TabBar.h"

#include <QChildEvent>
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
    addTab(pPage, strText, id, strExtra, nullptr);
    tellCurrent();
}

// Before the tab `before`, or at the end.
void CTabContainer::addTab(QWidget *page, const QString &text, int id, const QString &icon,
                           CBPPushBtn *before)
{
    if (m_iCurIndex == -1)
        m_iCurIndex = id;
    CBPPushBtn *button = m_pTabBar->addTab(id, text, icon, page, before);
    connect(button, &CBPPushBtn::sigBtnClicked, this, &CTabContainer::slotTabItemClicked);
    connect(button, &CBPPushBtn::textChanged, this, &CTabContainer::tellSoon);
    const auto isGone = [](const Tab &tab) { return !tab.first && !tab.second; };
    m_listTabs.erase(std::remove_if(m_listTabs.begin(), m_listTabs.end(), isGone), m_listTabs.end());
    const auto place = std::find_if(m_listTabs.begin(), m_listTabs.end(),
                                    [before](const Tab &tab) { return before && tab.first == before; });
    // The tabs come before the pages, though they are made after them.
    const auto last =
        std::find_if(m_listTabs.crbegin(), m_listTabs.crend(), [](const Tab &tab) { return tab.first; });
    lumqt::placeBehind(last == m_listTabs.crend() ? static_cast<QWidget *>(m_pTabBar) : last->first.data(),
                       button);
    m_listTabs.insert(place, Tab(button, page));
    m_pContentLayout->addWidget(page);
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
    else
        tellCurrent();
}

int CTabContainer::currentIndex() const
{
    return m_iCurIndex;
}

CBPPushBtn *CTabContainer::GetTabItem(int id)
{
    return m_pTabBar ? m_pTabBar->GetButton(id) : nullptr;
}

// ------------------------------------------------------------------------------------------------------------
// pages by their places

QVector<CTabContainer::Tab> CTabContainer::ownTabs() const
{
    QVector<Tab> own;
    for (const Tab &tab : m_listTabs) {
        if (tab.first && isOwn(tab.second))
            own.append(tab);
    }
    return own;
}

int CTabContainer::count() const
{
    return int(ownTabs().size());
}

QWidget *CTabContainer::widget(int index) const
{
    return ownTabs().value(index).second;
}

int CTabContainer::indexOf(const QWidget *page) const
{
    const QVector<Tab> own = ownTabs();
    const auto found =
        std::find_if(own.cbegin(), own.cend(), [page](const Tab &tab) { return tab.second == page; });
    return found == own.cend() ? -1 : int(found - own.cbegin());
}

int CTabContainer::currentPage() const
{
    const QVector<Tab> own = ownTabs();
    const auto found = std::find_if(own.cbegin(), own.cend(),
                                    [this](const Tab &tab) { return tab.first->bindId() == m_iCurIndex; });
    return found == own.cend() ? -1 : int(found - own.cbegin());
}

void CTabContainer::setCurrentPage(int index)
{
    if (index < 0)
        return;
    const QVector<Tab> own = ownTabs();
    m_iWanted = index < own.size() ? -1 : index;
    if (index < own.size() && index != currentPage())
        SetSelected(own.at(index).first->bindId());
}

QString CTabContainer::currentTabText() const
{
    const Tab tab = ownTabs().value(currentPage());
    return tab.first ? tab.first->text() : QString();
}

void CTabContainer::setCurrentTabText(const QString &text)
{
    const Tab tab = ownTabs().value(currentPage());
    const QPointer<CTabContainer> alive(this);
    if (tab.second)
        tab.second->setWindowTitle(text);
    if (tab.first && tab.first->text() != text) // no page of addPage(), which has seen to it
        tab.first->setText(text);
    if (alive)
        tellCurrent();
}

void CTabContainer::addPage(QWidget *page)
{
    insertPage(-1, page);
}

void CTabContainer::insertPage(int index, QWidget *page)
{
    if (!m_pTabBar || !m_pContentLayout || !lumqt::canPack(this, page) || indexOf(page) >= 0)
        return;
    int id = 0;
    while (GetTabItem(id))
        ++id;
    const QPointer<CTabContainer> alive(this);
    addTab(page, page->windowTitle(), id, QString(), ownTabs().value(index).first);
    CBPPushBtn *button = GetTabItem(id);
    connect(page, &QWidget::windowTitleChanged, button,
            [button](const QString &title) { button->setText(title); });
    if (count() == 1)
        m_pTabBar->fitHeight();
    if (id == m_iCurIndex)
        showCurrent();
    else
        page->hide();
    if (alive && m_iWanted >= 0 && m_iWanted < count())
        setCurrentPage(m_iWanted);
    if (alive)
        tellCurrent();
}

void CTabContainer::removePage(int index)
{
    const Tab removed = ownTabs().value(index);
    if (!removed.second || !m_pTabBar)
        return;
    const QPointer<CTabContainer> alive(this);
    const bool current = index == currentPage();
    m_listTabs.removeOne(removed);
    removed.second->disconnect(removed.first); // its title is its own again
    removed.first->disconnect(this);
    if (m_pContentLayout)
        m_pContentLayout->removeWidget(removed.second);
    m_pTabBar->removeButton(removed.first); // not at once: it may be the one that was clicked
    if (removed.second)
        removed.second->hide();
    if (!alive)
        return;
    if (current) {
        const QVector<Tab> left = ownTabs();
        m_iCurIndex = left.isEmpty() ? -1 : left.at(qMin(index, int(left.size()) - 1)).first->bindId();
        showCurrent();
    }
    if (alive)
        tellCurrent();
}

// Last in all that may have changed it: the container may be gone after.
void CTabContainer::tellCurrent()
{
    const int page = currentPage();
    const QPointer<CTabContainer> alive(this);
    if (page != m_iToldPage || m_iCurIndex != m_iToldId) {
        m_iToldPage = page;
        m_iToldId = m_iCurIndex;
        emit currentChanged(page);
    }
    const QString text = alive ? currentTabText() : QString();
    if (!alive || text == m_strToldText)
        return;
    m_strToldText = text;
    emit currentTabTextChanged(text);
}

// Of what a page does by itself, or others with it: who hears of it may delete the container, which is not to
// go in the middle of that.
void CTabContainer::tellSoon()
{
    QTimer::singleShot(0, this, &CTabContainer::tellCurrent);
}

// A page that is deleted or given another parent is missed, and found again when it comes back.
void CTabContainer::childEvent(QChildEvent *event)
{
    QWidget::childEvent(event);
    const auto isChild = [event](const Tab &tab) { return tab.second == event->child(); };
    if (event->removed() || std::any_of(m_listTabs.cbegin(), m_listTabs.cend(), isChild))
        tellSoon();
}

// ------------------------------------------------------------------------------------------------------------
// what is shown

// Once, for the tabs that are there by now.
void CTabContainer::slotDoInitialize()
{
    showCurrent();
}

void CTabContainer::showCurrent()
{
    const QPointer<CTabContainer> alive(this);
    QVector<lumqt::PageChoice> pages;
    const QList<Tab> tabs = m_listTabs;
    for (const Tab &tab : tabs) {
        const bool current = tab.first && tab.first->bindId() == m_iCurIndex;
        if (tab.first)
            tab.first->setSelected(current);
        if (!alive)
            return;
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
    m_iWanted = -1;
    emit sigTabChanged(id); // the container may be gone after
    if (alive)
        tellCurrent();
}
