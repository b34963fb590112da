#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPComboBox.h"
#include "CBPComboxItem.h"
#include "CBPPathDropdWnd.h"
#include "CBPPushBtn.h"
#include "FormatByteSize.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QDir>
#include <QLabel>
#include <QScrollArea>

#include <algorithm>

namespace {

constexpr int kRowWidth = 416;
constexpr int kNarrowWidth = 200;
constexpr int kListWidth = 416;
constexpr int kShownRows = 2; // in the picture of a list
constexpr int kComboWidth = 144;
constexpr int kComboHeight = 28;
constexpr qint64 kGiga = 1LL << 30;

#ifdef Q_OS_WIN
const char kHome[] = "C:/Users/kim";
const char kBackup[] = "D:\\backup";
#else
const char kHome[] = "/home/kim";
const char kBackup[] = "/mnt/backup";
#endif

QString inHome(const QString &path = QString())
{
    return QDir::toNativeSeparators(path.isEmpty() ? kHome : kHome + ('/' + path));
}

ComboxItem location(const QString &path, qint64 free = 0, qint64 total = 0)
{
    ComboxItem item;
    item.icon = total ? ":/gallery/drive.svg" : ":/gallery/folder.svg";
    item.path = path;
    item.freeBytes = free;
    item.totalBytes = total;
    return item;
}

CBPComboxItem *row(ComboxItem item)
{
    auto *result = new CBPComboxItem(item, nullptr);
    result->setFixedWidth(kRowWidth);
    result->SetPathMaxWidth(kRowWidth);
    return result;
}

void fill(CBPPathDropdWnd *list)
{
    ComboxItem items[] = {location(inHome("documents")), location(inHome("a folder with a rather long name")),
                          location(kBackup, 411 * kGiga, 1862 * kGiga),
                          location(inHome(), 37 * kGiga, 238 * kGiga)};
    for (ComboxItem &item : items)
        list->AppendItem(item);
    list->SetFixedWidth(kListWidth);
}

void addLiveSamples(Page *page)
{
    Section *section = page->addSection(
        "Try it", "The arrow keys, Home and End move through the rows, Enter or Space picks one, Delete "
                  "deletes it, and Escape or a click elsewhere hides the list.");
    auto *log = new EventLog("No signal yet: open the list.");
    auto *open = new CBPPushBtn("Open the list", nullptr);
    open->setFixedWidth(144);
    auto *list = new CBPPathDropdWnd(open);
    list->setWindowTitle("Recent folders");
    fill(list);
    QObject::connect(open, &CBPPushBtn::sigBtnClicked, list, [open, list] {
        list->move(open->mapToGlobal(QPoint(0, open->height() + 4)));
        list->show();
        list->activateWindow();
    });
    auto *more = new CBPPushBtn("Fill it again", nullptr);
    more->setFixedWidth(144);
    QObject::connect(more, &CBPPushBtn::sigBtnClicked, list, [list] { fill(list); });
    QObject::connect(list, &CBPPathDropdWnd::itemClicked, log,
                     [log](ComboxItem &item) { log->add(QString("itemClicked(\"%1\")").arg(item.path)); });
    QObject::connect(list, &CBPPathDropdWnd::sigItemDelete, log, [log](CBPComboxItem *gone) {
        log->add(QString("sigItemDelete(\"%1\")").arg(gone->GetItem().path));
    });
    section->addSamples({{"CBPPathDropdWnd", open}, {"AppendItem", more}});
    section->addWide(log);
}

// Makes a list that is shown as low as its first rows are, so that none is cut.
void showWholeRows(CBPPathDropdWnd *list, int count)
{
    QVector<int> ends;
    const auto rows = list->findChildren<CBPComboxItem *>();
    for (const CBPComboxItem *row : rows)
        ends << row->geometry().bottom() + 1;
    std::sort(ends.begin(), ends.end());
    const auto *area = list->findChild<QScrollArea *>();
    if (!area || ends.size() < count)
        return;
    const int height = list->height() - area->viewport()->height() + ends[count - 1];
    list->setFixedHeight((height + 3) / 4 * 4); // whole device pixels at every scale
    QCoreApplication::sendPostedEvents();
}

void addList(Page *page)
{
    QLabel *picture = pose::shown([] {
        CBPPathDropdWnd list;
        fill(&list);
        list.setAttribute(Qt::WA_DontShowOnScreen);
        list.show();
        QCoreApplication::sendPostedEvents(); // the scroll bar comes with them
        showWholeRows(&list, kShownRows);
        return list.grab();
    });
    page->addSection("The list", "The row added last is on top. A path that is there already is not added "
                                 "a second time.")
        ->addSamples({{"Two of four rows, 416 pixels wide", picture}});
}

void addRows(Page *page)
{
    Section *section =
        page->addSection("Rows", "Free and total space are shown where the total is known, and the delete "
                                 "button while the mouse is over "
                                 "the row. A path reads from left to right in either direction.");
    CBPComboxItem *mirrored = row(location(inHome("documents"), 37 * kGiga, 238 * kGiga));
    mirrored->setLayoutDirection(Qt::RightToLeft);
    CBPComboxItem *narrow = row(location(inHome("documents"), 37 * kGiga, 238 * kGiga));
    narrow->setFixedWidth(kNarrowWidth);
    const ComboxItem disk = location(inHome(), 37 * kGiga, 238 * kGiga);
    section->addColumns(2,
                        {{"At rest", pose::in(pose::Normal, row(disk))},
                         {"Under the mouse", pose::in(pose::Hovered, row(disk))},
                         {"With the keyboard focus", pose::in(pose::Focused, row(disk))},
                         {"Its space is not known", row(location(inHome("documents")))},
                         {"A long path", row(location(inHome("documents/a folder with a rather long name")))},
                         {"Names are plain text", row(location(inHome("R&D")))},
                         {"Right to left", mirrored},
                         {"200 pixels wide", narrow}},
                        kRowWidth);
}

QLabel *sizeText(qint64 bytes)
{
    return theme::label(FormatByteSize(bytes), theme::Normal, 14, theme::kInk);
}

void addSizes(Page *page)
{
    Section *section = page->addSection(
        "FormatByteSize", "Numbers of bytes as people read them. A unit is 1024 of the one before.");
    section->addColumns(4, {{"1023", sizeText(1023)},
                            {"1536", sizeText(1536)},
                            {"1073741824", sizeText(kGiga)},
                            {"The greatest number", sizeText(std::numeric_limits<qint64>::max())}});
}

CBPComboBox *combo()
{
    auto *result = new CBPComboBox(nullptr);
    result->addItems({"Every day", "Every week", "Every month"});
    result->setFont(theme::font(theme::Normal, 14));
    result->setFixedSize(kComboWidth, kComboHeight);
    return result;
}

// The picture of a list that is never shown.
QWidget *comboList()
{
    return pose::shown([] {
        const std::unique_ptr<CBPComboBox> owner(combo());
        QWidget *list = owner->view()->parentWidget();
        list->resize(kComboWidth, owner->count() * kComboHeight + 2);
        owner->view()->setCurrentIndex(owner->model()->index(1, 0));
        return list->grab();
    });
}

void addCombos(Page *page)
{
    page->addSection("CBPComboBox", "The mouse wheel does nothing to it.")
        ->addSamples({{"Live", combo()},
                      {"Hovered", pose::in(pose::Hovered, combo())},
                      {"Focused", pose::in(pose::Focused, combo())},
                      {"Its list", comboList()},
                      {"Disabled", pose::in(pose::Disabled, combo())}});
}

Page *makePage()
{
    auto *page =
        new Page("Path list", "CBPPathDropdWnd: a drop-down list of locations, and what belongs to it.");
    addLiveSamples(page);
    addList(page);
    addRows(page);
    addSizes(page);
    addCombos(page);
    return page;
}

void registerThis()
{
    registerPage({"path-list", "Path list", PageGroup::Menus, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
