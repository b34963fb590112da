#pragma once

#include "LumQtGlobal.h"

#include <QList>
#include <QPair>
#include <QPointer>
#include <QString>
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
/// goes at the next click. GUI thread only. \since 1.0
class LUMQT_EXPORT CTabContainer : public QWidget
{
    Q_OBJECT

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

Q_SIGNALS:
    /// A tab was clicked or selected, and its page is shown by now. The container may be deleted here.
    /// \since 1.0
    void sigTabChanged(int btnId);

private Q_SLOTS:
    void slotDoInitialize();
    void slotTabItemClicked(int id);

private:
    using Tab = QPair<QPointer<CBPPushBtn>, QPointer<QWidget>>;

    void Layout();
    CBPPushBtn *GetTabItem(int id);
    bool isOwn(const QWidget *page) const;

    QPointer<lumqt::TabBar> m_pTabBar;
    QPointer<QHBoxLayout> m_pContentLayout;
    QPointer<QHBoxLayout> m_pTabBarLayout;
    QList<Tab> m_listTabs;
    int m_iCurIndex = -1;
};
