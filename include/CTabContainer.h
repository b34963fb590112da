#pragma once

#include "LumQtGlobal.h"

#include <QList>
#include <QPair>
#include <QPointer>
#include <QString>
#include <QVector>
#include <QWidget>

class CBPPushBtn;
class QHBoxLayout;

namespace lumqt {
class TabBar;
}

/// A row of tabs above pages, of which one is seen.
///
/// The first tab is the current one until another is clicked. Pages stand in one row: those of tabs that were
/// added before control was back in the event loop, all but the current one, are hidden then; a page that
/// comes later stays visible, beside the current one, until a tab is clicked. To keep a window from taking
/// the width of all pages, hide them before they are added. A tab is 85 pixels wide, and wider only for an
/// icon: a text that finds no room ends in an ellipsis, and a tool tip shows all of it. The tabs are one stop
/// of the Tab key: the arrow keys move along them, Space opens a page. Screen readers find a list of page
/// tabs, which of them is selected, and its page. Tabs and pages may be deleted; the page of a deleted tab
/// goes at the next click.
///
/// A tab has an id, by which the signals tell of it, and a place among the tabs, by which forms count: the
/// pages from 0 on. In a container that was filled by addPage() alone the two are the same. GUI thread only.
/// \since 1.0
class LUMQT_EXPORT CTabContainer : public QWidget
{
    Q_OBJECT
    /// Number of the pages. \since 1.0
    Q_PROPERTY(int count READ count)
    /// Place of the current page. One that there is no page for yet becomes the current one once there is.
    /// \since 1.0
    Q_PROPERTY(int currentPage READ currentPage WRITE setCurrentPage NOTIFY currentChanged)
    /// Id of the current tab. \since 1.0
    Q_PROPERTY(int currentIndex READ currentIndex WRITE SetSelected NOTIFY currentChanged
                   DESIGNABLE false STORED false)
    /// Text of the current tab; the window title of its page, which holds it. \since 1.0
    Q_PROPERTY(QString currentTabText READ currentTabText WRITE setCurrentTabText NOTIFY currentTabTextChanged
                   DESIGNABLE false STORED false)

public:
    /// A container without tabs.
    /// \since 1.0
    explicit CTabContainer(QWidget *parent = nullptr);
    ~CTabContainer() override;

    /// Adds a tab and its page at the end. The page becomes a child of the container; one that is given
    /// another parent later is neither shown nor hidden any more.
    ///
    /// \a strText is the tab's text, \a strExtra the file of its icon; empty: none. \a id is what the signals
    /// report; it should be the tab's own (a second tab of an id is told in the log, and can be clicked, but
    /// not selected by SetSelected()). Null adds nothing, and so, with a warning, does a widget that the
    /// container lies in. \since 1.0
    void Appendtab(QWidget *pPage, QString strText, int id, QString strExtra = QString());

    /// Adds a widget at the far end of the row of tabs; it becomes a child of the container. Null is left
    /// out. \since 1.0
    void AppendWidget(QWidget *pWidget);

    /// Makes the tab \a id the current one as a click would: sigTabChanged() is sent. An id that has no tab
    /// becomes currentIndex() all the same, and the page stays. \since 1.0
    void SetSelected(int id);

    /// The id of the current tab; -1 before there is one.
    /// \since 1.0
    int currentIndex() const;

    /// Number of the pages that are in the container and have a tab. \since 1.0
    int count() const;

    /// The page at the place \a index; null when there is none. \since 1.0
    QWidget *widget(int index) const;

    /// The place of \a page; -1 for one that is not here. \since 1.0
    int indexOf(const QWidget *page) const;

    /// The place of the current page; -1 when there is none. \since 1.0
    int currentPage() const;

    /// Makes the page at the place \a index the current one as a click would, unless it is. An index that has
    /// no page yet, such as that of a form which is being made, counts once there is one; a click comes
    /// before it. A negative one is left out. \since 1.0
    void setCurrentPage(int index);

    /// The text of the current tab. \since 1.0
    QString currentTabText() const;

    /// Gives the current tab another text and its page that window title; without a page nothing happens.
    /// \since 1.0
    void setCurrentTabText(const QString &text);

    /// Adds a page as addPage() does, before the one at the place \a index; an index that is none adds it at
    /// the end. \since 1.0
    void insertPage(int index, QWidget *page);

    /// Takes the page at the place \a index out and deletes its tab; the others keep their ids. Of the
    /// current one the page behind it, or else the last one, takes the place. The page is hidden and stays a
    /// child of the container until it is given another parent. \since 1.0
    void removePage(int index);

public Q_SLOTS:
    /// Adds a page at the end, under the lowest id from 0 on that no tab has. The tab's text is the page's
    /// window title, now and whenever that changes. The first page is the current one, the others are hidden.
    /// Left out are null and a page that is here already and, with a warning, a widget that the container
    /// lies in. \since 1.0
    void addPage(QWidget *page);

Q_SIGNALS:
    /// A tab was clicked or selected, and its page is shown by now. The container may be deleted here.
    /// \since 1.0
    void sigTabChanged(int btnId);

    /// Another tab is the current one now, or it has another place, \a index; -1: there is none. After
    /// sigTabChanged(), if that is sent, too. The container may be deleted here. \since 1.0
    void currentChanged(int index);

    /// Another tab is the current one, with another text, or its text is another one: a moment
    /// later, where the page has changed it. After currentChanged(), if that is sent, too. The container may
    /// be deleted here. \since 1.0
    void currentTabTextChanged(const QString &text);

protected:
    void childEvent(QChildEvent *event) override;

private Q_SLOTS:
    void slotDoInitialize();
    void slotTabItemClicked(int id);

private:
    using Tab = QPair<QPointer<CBPPushBtn>, QPointer<QWidget>>;

    void Layout();
    CBPPushBtn *GetTabItem(int id);
    bool isOwn(const QWidget *page) const;
    template <class IsIt> int findOwn(const IsIt &isIt) const;
    Tab ownTab(int index) const;
    int findCurrent(Tab &tab) const;
    void addTab(QWidget *page, const QString &text, int id, const QString &icon, CBPPushBtn *before);
    void showCurrent();
    void tellCurrent();
    void tellSoon();

    QPointer<lumqt::TabBar> m_pTabBar;
    QPointer<QHBoxLayout> m_pContentLayout;
    QPointer<QHBoxLayout> m_pTabBarLayout;
    QList<Tab> m_listTabs;
    bool m_bTellsSoon = false;
    int m_iCurIndex = -1;
    int m_iWanted = -1; // place of a page that is yet to come
    int m_iToldId = -1; // by currentChanged()
    int m_iToldPage = -1;
    QString m_strToldText; // by currentTabTextChanged()
};
