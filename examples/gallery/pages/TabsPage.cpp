#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPPushBtn.h"
#include "CButtonGroupBox.h"
#include "CFoucsLabel.h"
#include "CTabContainer.h"
#include "CTabPageItem.h"

#include <QApplication>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr theme::Tone kOrange{0xffa84f12, theme::Purpose::Warning}; // 4.5:1 on its own tint, too
constexpr int kTitleHeight = 40;
constexpr int kTitleWidth = 240;
constexpr int kContainerWidth = (theme::kPageWidth - 3 * theme::kUnit) / 2;

QWidget *words(const QString &text, int indent = 0)
{
    QLabel *label = theme::label(text, theme::Normal, 13, theme::kText, true);
    label->setContentsMargins(indent, 0, 0, 0);
    return label;
}

QStringList tabNames()
{
    return {"Backup", "Restore", "Options"};
}

QString iconFile(const QString &name)
{
    return QString(":/gallery/%1.svg").arg(name.toLower());
}

constexpr char kChosen[] = "chosenTab"; // a dynamic property

QVector<QColor> tabTexts()
{
    using theme::Purpose;
    return theme::colorsOf({{0xff57aef6, Purpose::GroupText},
                            {0xffffffff, Purpose::GroupTextHovered},
                            {0xffffffff, Purpose::GroupTextPressed},
                            {0xffbbbbbb, Purpose::GroupTextDisabled}});
}

// The icons of all tabs, in the colours of the built-in texts.
void tintIcons(CTabContainer *tabs)
{
    const QStringList names = tabNames();
    for (int i = 0; i < names.size(); ++i) {
        CBPPushBtn *button = tabs->findChild<CButtonGroupBox *>()->GetButton(i + 1);
        theme::setTintedIcon(button, iconFile(names[i]), tabTexts(),
                             i + 1 == tabs->property(kChosen).toInt());
    }
}

CTabContainer *container(bool icons, bool extra)
{
    auto *tabs = new CTabContainer;
    const QStringList names = tabNames();
    for (int i = 0; i < names.size(); ++i) {
        tabs->Appendtab(words(QString("What stands on the page \"%1\".").arg(names[i])), names[i], i + 1,
                        icons ? iconFile(names[i]) : QString());
    }
    if (icons) {
        const auto buttons = tabs->findChildren<CBPPushBtn *>();
        for (CBPPushBtn *button : buttons) {
            button->setSpacing(20);
            button->setFixedWidth(104);
        }
        tabs->setProperty(kChosen, 1);
        theme::follow(tabs, [tabs] { tintIcons(tabs); });
        QObject::connect(tabs, &CTabContainer::sigTabChanged, tabs, [tabs](int id) {
            tabs->setProperty(kChosen, id);
            tintIcons(tabs);
        });
    }
    theme::lowerButtons(tabs->findChild<CButtonGroupBox *>());
    if (extra) {
        auto *button = new CBPPushBtn("Help", nullptr);
        button->setFixedWidth(72);
        tabs->AppendWidget(button);
    }
    tabs->setFixedWidth(kContainerWidth);
    return tabs;
}

// Titles and contents of one group in a column; the entries are children of it.
QWidget *accordion(EventLog *log, bool plain)
{
    auto *panel = new QWidget;
    panel->setFixedWidth(kContainerWidth);
    auto *column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(theme::kUnit / 2);
    const struct
    {
        const char *title;
        const char *icon;
        const char *content;
    } texts[] = {
        {"Who can restore", "icon_user.png", "Whoever knows the password, on this device and on any other."},
        {"When it runs", nullptr, "On weekdays at 22:00, or at the next start of the device."},
        {"Where it goes", "icon_lock.png", "To drive D, encrypted. A second place can be added at any time."},
    };
    QVector<CTabPageItem *> entries;
    for (const auto &text : texts) {
        auto *entry = new CTabPageItem(kTitleHeight, panel);
        entry->AddPage(text.title, words(text.content, plain ? 12 : 42), 0);
        theme::follow(entry, [entry, plain] {
            entry->SetFocusLabelColor(theme::kInk, plain ? kOrange.color() : QColor());
        });
        if (plain)
            entry->HideTailIcon();
        else
            entry->SetIconPath({text.icon ? theme::picturePath(text.icon) : ":/gallery/clock.svg"}, {});
        column->addWidget(entry->GetTitleWidget());
        column->addWidget(entry->GetCommentWidget());
        entries << entry;
        QObject::connect(entry, &CTabPageItem::sigCurItemClicked, log, [log](CTabPageItem *item) {
            log->add(QString("sigCurItemClicked(\"%1\")").arg(item->GetTitleWidget()->Text()));
        });
    }
    for (CTabPageItem *entry : qAsConst(entries))
        entry->SetGroup(entries);
    entries.first()->SetFocus();
    return panel;
}

void addLive(Page *page)
{
    Section *section = page->addSection(
        "Try it",
        "Use the mouse, Tab, the arrow keys and Space in the tabs, and Tab, Space and Enter in the titles.");
    auto *log = new EventLog("No signal yet: click a tab or a title.");
    CTabContainer *tabs = container(false, true);
    QObject::connect(tabs, &CTabContainer::sigTabChanged, log,
                     [log](int id) { log->add(QString("sigTabChanged(%1)").arg(id)); });
    section->addColumns(2, {{"CTabContainer", tabs}, {"CTabPageItem: an accordion", accordion(log, false)}});
    section->addWide(log);
}

void addTabs(Page *page)
{
    CTabContainer *hovered = container(false, false);
    pose::put(hovered->findChild<CButtonGroupBox *>()->GetButton(2), pose::Hovered);
    CTabContainer *focused = container(false, false);
    pose::put(focused->findChild<CButtonGroupBox *>()->GetButton(3), pose::Focused);
    CTabContainer *off = container(false, false);
    off->setEnabled(false);
    CTabContainer *mirrored = container(false, true);
    mirrored->setLayoutDirection(Qt::RightToLeft);
    CTabContainer *cut = container(false, false);
    cut->findChild<CButtonGroupBox *>()->GetButton(2)->setText("Notifications");
    page->addSection("Tabs",
                     "A row of tabs has other widgets at its far end, if wanted, and the current page below "
                     "it.")
        ->addColumns(2, {{"Hovered", hovered},
                         {"Keyboard focus", focused},
                         {"Disabled", off},
                         {"With icons and a button", container(true, true)},
                         {"Right to left", mirrored},
                         {"Long text: the tool tip shows it all", cut}});
}

SampleRow titles(const QString &caption, bool focused, bool tail, const QString &icon,
                 Qt::LayoutDirection direction = QApplication::layoutDirection())
{
    SampleRow row{caption, {}};
    for (const pose::State state : {pose::Normal, pose::Hovered, pose::Focused, pose::Disabled}) {
        auto *title = new CFoucsLabel("Versions", 0, 10, icon.isEmpty() ? icon : theme::picturePath(icon));
        title->setLayoutDirection(direction);
        title->SetFocus(focused);
        if (!tail)
            title->HideTailIcon();
        title->setFixedSize(152, kTitleHeight);
        pose::put(title, state);
        row.widgets << title;
    }
    return row;
}

void addTitles(Page *page)
{
    Section *section = page->addSection("Titles", "In CFoucsLabel, \"focused\" means the current one of its "
                                                  "siblings. The ring is that of the keyboard.");
    section->addTable(
        {"Normal", "Hovered", "Keyboard focus", "Disabled"},
        {titles("Plain", false, true, "icon_user.png"), titles("Focused", true, true, "icon_user.png"),
         titles("No icon", true, true, QString()), titles("No arrow", false, false, "icon_lock.png"),
         titles("Right to left", true, true, "icon_user.png", Qt::RightToLeft)});
    auto *own = new CFoucsLabel("Own arrows");
    own->SetIconPath({theme::picturePath("icon_lock.png")},
                     {theme::picturePath("icon_arrowdown.png"), theme::picturePath("icon_arrowup.png")});
    theme::follow(own, [own] { own->SetColor(theme::kInk, kOrange); });
    own->SetFocus(true);
    auto *indented = new CFoucsLabel("Moved in by 24 pixels", 24);
    auto *cut = new CFoucsLabel("A title that is longer than its place allows");
    for (CFoucsLabel *title : {own, indented, cut})
        title->setFixedSize(kTitleWidth, kTitleHeight);
    section->addSamples({{"Own arrows and colours", own}, {"Indented", indented}, {"Cut", cut}});
}

Page *makePage()
{
    auto *page = new Page("Tabs and accordion",
                          "CTabContainer: tabs above pages. CTabPageItem: titles above contents, one of "
                          "which is open. CFoucsLabel: such a title.");
    addLive(page);
    addTabs(page);
    addTitles(page);
    auto *log = new EventLog("No signal yet: click a title.");
    Section *section =
        page->addSection("Accordion", "It can have its own colours, and neither icons nor arrows.");
    section->addSamples({{"Orange where it is open", accordion(log, true)}});
    section->addWide(log);
    return page;
}

void registerThis()
{
    registerPage({"tabs", "Tabs and accordion", PageGroup::Containers, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
