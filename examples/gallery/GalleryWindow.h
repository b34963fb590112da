#pragma once

#include "CBaseWin.h"

#include <QHash>

class CBPMenu;
class Page;
class PageList;
struct PageInfo;
class QLabel;
class QScrollArea;
class QStackedWidget;

// The gallery's window: the list of pages at the left, the page at the right. Pages are made when first
// shown.
class GalleryWindow : public CBaseWin
{
    Q_OBJECT

public:
    GalleryWindow();

    // False when there is no such page.
    bool showPage(const QString &pageId);

    // The scroll area of the page on show, and the page.
    QScrollArea *scrollArea() const;
    Page *page() const;

    // Height at which neither the page on show nor the list of pages is cut off.
    int fullHeight() const;

    // The window with its frame, in global coordinates; on every platform, wherever the frame lies.
    QRect windowRect();

protected:
    bool titleBtnClicked(int id) override;

private:
    QWidget *makeSideBar();
    QWidget *makeSearch();
    void search(const QString &words);
    void openPage(const QString &pageId);
    QScrollArea *scrollAreaOf(const PageInfo &info, Page *page);
    void openPageMenu();

    PageList *m_list;
    QStackedWidget *m_stack;
    QHash<QString, QScrollArea *> m_areas;
    QLabel *m_nothingFound = nullptr;
    CBPMenu *m_pageMenu = nullptr;
};
