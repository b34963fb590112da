#include "GalleryWindow.h"

#include "Page.h"
#include "PageList.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"
#include "ThemeMenu.h"

#include "CBPMenu.h"
#include "CBPMenuItem.h"
#include "CBPSearchEdit.h"
#include "LumQtVersion.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int kListButton = 1;
constexpr int kTickWidth = 16;
constexpr int kSeparator = 17; // the height that the menu gives any
constexpr QSize kFirstSize(1208, 800);
constexpr QSize kLeastSize(760, 480);

// Where both scroll bars meet, as plain as they are.
QWidget *plainCorner()
{
    auto *corner = new QWidget;
    theme::fill(corner, theme::kGround);
    return corner;
}

// Between the side bar and the page, where both have one ground.
QWidget *edge(QWidget *bar)
{
    auto *line = new QWidget(bar);
    line->setFixedWidth(1);
    theme::fill(line, theme::kLine);
    theme::follow(line, [line] { line->setVisible(theme::kSide.color() == theme::kGround.color()); });
    return line;
}

} // namespace

GalleryWindow::GalleryWindow() : m_list(nullptr), m_stack(new QStackedWidget)
{
    setCaption(tr("LumQtLib gallery"));
    setWindowTitle(tr("LumQtLib gallery"));

    auto *content = new QWidget;
    auto *layout = new QHBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeSideBar());
    layout->addWidget(m_stack, 1);
    setCentralWidget(content);
    setMinimumSize(kLeastSize);
    resize(kFirstSize);

    connect(m_list, &PageList::pageSelected, this, &GalleryWindow::openPage);
    m_list->setFocus();
}

QWidget *GalleryWindow::makeSideBar()
{
    auto *bar = new QWidget;
    bar->setFixedWidth(theme::kSideBarWidth);
    bar->setAccessibleName(tr("Side bar"));
    theme::fill(bar, theme::kSide);

    auto *layout = new QVBoxLayout;
    layout->setContentsMargins(0, theme::kUnit, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeSearch());
    m_nothingFound = theme::label(tr("No page has that."), theme::Normal, 14, theme::kSideText);
    m_nothingFound->setContentsMargins(3 * theme::kUnit, theme::kUnit, theme::kUnit, theme::kUnit);
    m_nothingFound->hide();
    layout->addWidget(m_nothingFound);
    m_list = new PageList;
    layout->addWidget(m_list, 1);
    QLabel *version =
        theme::label(QStringLiteral("LumQtLib " LUMQT_VERSION_STR), theme::Normal, 12, theme::kSideHeading);
    version->setContentsMargins(3 * theme::kUnit, 2 * theme::kUnit, 0, 2 * theme::kUnit);
    layout->addWidget(version);
    auto *both = new QGridLayout(bar);
    both->setContentsMargins(0, 0, 0, 0);
    both->addLayout(layout, 0, 0);
    both->addWidget(edge(bar), 0, 0, Qt::AlignRight); // over the list
    return bar;
}

QWidget *GalleryWindow::makeSearch()
{
    auto *place = new QWidget;
    auto *layout = new QHBoxLayout(place);
    layout->setContentsMargins(2 * theme::kUnit, theme::kUnit, 2 * theme::kUnit, theme::kUnit);
    auto *edit = new CBPSearchEdit(nullptr);
    edit->setFixedHeight(theme::kControlHeight);
    edit->setFont(theme::font(theme::Normal, 14));
    edit->setPlaceholderText(tr("Search"));
    edit->setAccessibleName(tr("Search the pages"));
    edit->setToolTip(tr("Words of a title, or names of classes"));
    layout->addWidget(edit);
    connect(edit, &QLineEdit::textChanged, this, &GalleryWindow::search);
    connect(edit, &QLineEdit::returnPressed, this, [this] {
        if (!m_list->firstShown().isEmpty())
            showPage(m_list->firstShown());
    });
    return place;
}

void GalleryWindow::search(const QString &words)
{
    m_nothingFound->setVisible(m_list->filter(words) == 0);
}

bool GalleryWindow::showPage(const QString &pageId)
{
    return m_list->select(pageId);
}

QScrollArea *GalleryWindow::scrollArea() const
{
    return qobject_cast<QScrollArea *>(m_stack->currentWidget());
}

Page *GalleryWindow::page() const
{
    return static_cast<Page *>(scrollArea()->widget());
}

int GalleryWindow::fullHeight() const
{
    const QWidget *viewport = scrollArea()->viewport();
    const int missing = qMax(page()->fullHeight(viewport->width()) - viewport->height(),
                             m_list->fullHeight() - m_list->viewport()->height());
    return height() + missing;
}

QRect GalleryWindow::windowRect()
{
    // The frame either lies in the contents margins or, as a native one, outside of the widget.
    const QPoint inside = contentsRect().topLeft();
    if (!inside.isNull())
        return QRect(mapToGlobal(QPoint(0, 0)), size());
    return QRect(mapToGlobal(QPoint(0, 0)), size())
        .adjusted(-frameWidth(), -titleHight(), frameWidth(), frameWidth());
}

void GalleryWindow::openPage(const QString &pageId)
{
    const QVector<PageInfo> &all = pages();
    const auto info =
        std::find_if(all.cbegin(), all.cend(), [&](const PageInfo &page) { return page.id == pageId; });
    if (info == all.cend())
        return;
    if (!m_areas.contains(pageId)) {
        Page *page =
            info->make(); // which handles events to pose dialogs: the page may have been asked for again
        if (m_areas.contains(pageId))
            delete page;
        else
            m_stack->addWidget(m_areas[pageId] = scrollAreaOf(*info, page));
    }
    pose::renew(m_areas.value(pageId)); // which may do so, too
    if (m_list->selected() == pageId)
        m_stack->setCurrentWidget(m_areas.value(pageId));
}

QScrollArea *GalleryWindow::scrollAreaOf(const PageInfo &info, Page *page)
{
    auto *area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    area->setAccessibleName(info.title);
    area->setCornerWidget(plainCorner());
    page->offerSource(info);
    area->setWidget(page);
    return area;
}

bool GalleryWindow::titleBtnClicked(int id)
{
    if (id != kListButton)
        return CBaseWin::titleBtnClicked(id);
    openPageMenu();
    return true;
}

void GalleryWindow::openPageMenu()
{
    const QVector<PageInfo> &all = pages();
    if (!m_pageMenu) {
        m_pageMenu = new CBPMenu(this);
        m_pageMenu->SetDefIconWidth(kTickWidth);
        m_pageMenu->SetSubMenuRightIcon(QStringLiteral(":/gallery/nested.svg"));
        m_pageMenu->setSeparatorRectHeight(kSeparator);
        m_pageMenu->setSeparatorHeight(1);
        m_pageMenu->AddMenu(new ThemeMenu(m_pageMenu));
        m_pageMenu->addSeparator();
        for (int i = 0; i < all.size(); ++i)
            m_pageMenu->AddAction(all[i].title, i + 1); // what is no page counts as 0
        connect(m_pageMenu, &QMenu::triggered, this, [this](QAction *action) {
            if (m_pageMenu->actions().contains(action)) // and none of the menu of themes
                showPage(pages().value(action->data().toInt() - 1).id);
        });
    }
    for (int i = 0; i < all.size(); ++i) {
        if (all[i].id == m_list->selected())
            m_pageMenu->SetShowCheckIcon(i + 1, QIcon(":/gallery/tick.svg"));
    }
    // Its right edge lies below the button's, so that it stays within the window.
    const QPoint below = globalBtnRect(kListButton).bottomRight() + QPoint(1, 1);
    m_pageMenu->popup(below - QPoint(m_pageMenu->sizeHint().width(), 0));
}
