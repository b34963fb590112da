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
#include <utility>

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
    auto place = m_listTabs.end();
    if (before)
        place = std::find_if(m_listTabs.begin(), m_listTabs.end(),
                             [before](const Tab &tab) { return tab.first == before; });
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

// Goes through the tabs whose pages are here, and no further than to the one that is looked for: its place,
// or -1. Asked at each page that is added, and then for the first one as a rule.
template <class IsIt> int CTabContainer::findOwn(const IsIt &isIt) const
{
    int place = 0;
    for (const Tab &tab : m_listTabs) {
        if (!tab.first || !isOwn(tab.second))
            continue;
        if (isIt(tab, place))
            return place;
        ++place;
    }
    return -1;
}

// Two null pointers where there is none.
CTabContainer::Tab CTabContainer::ownTab(int index) const
{
    Tab found;
    if (index < 0)
        return found;
    findOwn([&found, index](const Tab &tab, int place) {
        if (place == index)
            found = tab;
        return place == index;
    });
    return found;
}

int CTabContainer::count() const
{
    int own = 0;
    findOwn([&own](const Tab &, int) {
        ++own;
        return false;
    });
    return own;
}

QWidget *CTabContainer::widget(int index) const
{
    return ownTab(index).second;
}

int CTabContainer::indexOf(const QWidget *page) const
{
    return isOwn(page) ? findOwn([page](const Tab &tab, int) { return tab.second == page; }) : -1;
}

int CTabContainer::findCurrent(Tab &tab) const
{
    return findOwn([this, &tab](const Tab &each, int) {
        const bool current = each.first->bindId() == m_iCurIndex;
        if (current)
            tab = each;
        return current;
    });
}

int CTabContainer::currentPage() const
{
    Tab tab;
    return findCurrent(tab);
}

void CTabContainer::setCurrentPage(int index)
{
    if (index < 0)
        return;
    const Tab tab = ownTab(index);
    m_iWanted = tab.first ? -1 : index;
    if (tab.first && index != currentPage())
        SetSelected(tab.first->bindId());
}

QString CTabContainer::currentTabText() const
{
    Tab tab;
    findCurrent(tab);
    return tab.first ? tab.first->text() : QString();
}

void CTabContainer::setCurrentTabText(const QString &text)
{
    Tab tab;
    findCurrent(tab);
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
    const int id = m_pTabBar->freeId();
    const QPointer<CTabContainer> alive(this);
    addTab(page, page->windowTitle(), id, QString(), ownTab(index).first);
    CBPPushBtn *button = GetTabItem(id);
    connect(page, &QWidget::windowTitleChanged, button,
            [button](const QString &title) { button->setText(title); });
    if (!widget(1)) // it is the only one
        m_pTabBar->fitHeight();
    if (id == m_iCurIndex)
        showCurrent();
    else
        page->hide();
    if (alive && m_iWanted >= 0 && widget(m_iWanted))
        setCurrentPage(m_iWanted);
    if (alive)
        tellCurrent();
}

void CTabContainer::removePage(int index)
{
    const Tab removed = ownTab(index);
    if (!removed.second || !m_pTabBar)
        return;
    const QPointer<CTabContainer> alive(this);
    const bool current = index == currentPage();
    m_listTabs.removeOne(removed);
    removed.second->disconnect(removed.first); // its title is its own again
    removed.first->disconnect(this);
    if (m_pContentLayout)
        delete m_pContentLayout->takeAt(m_pContentLayout->indexOf(removed.second));
    m_pTabBar->removeButton(removed.first); // not at once: it may be the one that was clicked
    if (removed.second)
        removed.second->hide();
    if (!alive)
        return;
    if (current) {
        const Tab behind = ownTab(index);
        const Tab next = behind.first ? behind : ownTab(count() - 1);
        m_iCurIndex = next.first ? next.first->bindId() : -1;
        showCurrent();
    }
    if (alive)
        tellCurrent();
}

// Last in all that may have changed it: the container may be gone after.
void CTabContainer::tellCurrent()
{
    Tab tab;
    const int page = findCurrent(tab);
    const QPointer<CTabContainer> alive(this);
    if (page != m_iToldPage || m_iCurIndex != m_iToldId) {
        m_iToldPage = page;
        m_iToldId = m_iCurIndex;
        emit currentChanged(page);
        if (!alive)
            return;
        tab = Tab(); // who has heard of it may have changed anything
        findCurrent(tab);
    }
    const QString text = tab.first ? tab.first->text() : QString();
    if (text == m_strToldText)
        return;
    m_strToldText = text;
    emit currentTabTextChanged(text);
}

// Of what a page does by itself, or others with it: who hears of it may delete the container, which is not to
// go in the middle of that.
void CTabContainer::tellSoon()
{
    if (std::exchange(m_bTellsSoon, true))
        return;
    QTimer::singleShot(0, this, [this] {
        m_bTellsSoon = false;
        const auto isGone = [](const Tab &tab) { return !tab.first && !tab.second; };
        m_listTabs.erase(std::remove_if(m_listTabs.begin(), m_listTabs.end(), isGone), m_listTabs.end());
        tellCurrent();
    });
}

// A page that is deleted or given another parent is missed, and found again when it comes back.
void CTabContainer::childEvent(QChildEvent *event)
{
    QWidget::childEvent(event);
    if (m_bTellsSoon)
        return;
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
