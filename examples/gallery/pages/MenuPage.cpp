#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPMenu.h"
#include "CBPMenuItem.h"
#include "CBPPushBtn.h"

#include <QCursor>
#include <QIcon>
#include <QLabel>
#include <QScopedPointer>

namespace {

constexpr int kColumns = 3;
constexpr int kLeastWidth = 249; // of a menu
constexpr int kTickWidth = 16;
constexpr int kPictureWidth = 32; // of the pictures for dark grounds

QString supportFile()
{
    return theme::picturePath("Common/ico_onlinesupport_normal.svg");
}

QString giftFile()
{
    return theme::picturePath("Common/gift_normal.svg");
}

QString nestedFile()
{
    return ":/gallery/nested.svg";
}

QVector<QString> removeImages()
{
    QVector<QString> images;
    for (const char *state : {"normal", "hover", "press", "normal"})
        images << theme::picturePath(QString("icon_delete_%1.png").arg(state));
    return images;
}

// The picture of a menu as it pops up, with one item highlighted. It takes the menu.
QPixmap portrait(CBPMenu *menu, QAction *highlighted = nullptr)
{
    const QScopedPointer<CBPMenu> owner(menu);
    menu->resize(menu->sizeHint());
    menu->move(QCursor::pos() + QPoint(1, 1)); // an item under the pointer would be highlighted
    menu->setActiveAction(highlighted);
    return menu->grab();
}

QPixmap texts()
{
    auto *menu = new CBPMenu;
    menu->AddAction("Open", 1);
    QAction *second = menu->AddAction("Rename", 2);
    menu->AddAction("Delete", 3)->setEnabled(false);
    return portrait(menu, second);
}

QPixmap pictures()
{
    auto *menu = new CBPMenu;
    menu->SetDefIconWidth(kPictureWidth); // aligns the texts
    menu->AddAction(supportFile(), "Online support", 1);
    menu->AddAction(giftFile(), "Offers", 2);
    menu->AddAction(QString(), "No picture", 3);
    return portrait(menu);
}

QPixmap stateImages()
{
    auto *menu = new CBPMenu;
    menu->AddAction(removeImages(), "At rest", 1);
    menu->AddAction(removeImages(), "At rest", 2);
    return portrait(menu, menu->AddAction(removeImages(), "Highlighted, the last", 3));
}

QPixmap badges()
{
    auto *menu = new CBPMenu;
    menu->AddAction("New messages", 1);
    menu->AddAction("A present", 2);
    menu->AddAction("Nothing new", 3);
    menu->SetActionSpecialFlag(1, true, QString());
    menu->SetActionSpecialFlag(2, true, giftFile());
    return portrait(menu);
}

QPixmap chosen()
{
    auto *menu = new CBPMenu;
    menu->SetDefIconWidth(kTickWidth);
    for (const char *language : {"Deutsch", "English", "Français"})
        menu->AddAction(QString::fromUtf8(language), menu->actions().size() + 1);
    menu->SetShowCheckIcon(2, QIcon(":/gallery/tick.svg"));
    return portrait(menu);
}

QPixmap separators()
{
    auto *menu = new CBPMenu;
    menu->setSeparatorRectHeight(17);
    menu->setSeparatorHeight(1);
    constexpr theme::Tone ground{0xffe9eef3, theme::Purpose::RaisedGround};
    menu->setBg({ground, QColor(), theme::kAccent, QColor()});
    menu->setTextColor(theme::kInk);
    menu->AddAction("Cut", 1);
    menu->AddAction("Copy", 2);
    menu->addSeparator();
    menu->AddAction("Select all", 3);
    return portrait(menu);
}

QPixmap bordered()
{
    auto *menu = new CBPMenu;
    menu->SetBorderInfo(1, theme::kTeal);
    menu->AddAction("First", 1);
    QAction *second = menu->AddAction("Second", 2);
    menu->AddAction("Third", 3);
    return portrait(menu, second);
}

QPixmap nested()
{
    auto *menu = new CBPMenu;
    menu->SetSubLeveMennu();
    QAction *first = menu->AddAction("First", 1);
    menu->AddAction("Second", 2);
    menu->AddAction("Third", 3);
    return portrait(menu, first);
}

QPixmap single()
{
    auto *menu = new CBPMenu;
    menu->SetSubLeveMennu();
    return portrait(menu, menu->AddAction("The only one", 1));
}

QPixmap light()
{
    auto *menu = new CBPMenu;
    constexpr theme::Tone hovered{0xffe2f2f3, theme::Purpose::Pressed};
    menu->setBg({theme::kGround, QColor(), hovered, theme::kGround});
    menu->setTextColor(theme::kText);
    menu->SetBorderInfo(1, theme::kLine);
    menu->AddAction("Open", 1);
    QAction *second = menu->AddAction("Rename", 2);
    menu->AddAction("Delete", 3)->setEnabled(false);
    return portrait(menu, second);
}

QPixmap compact()
{
    auto *menu = new CBPMenu;
    menu->SetMenuItemHeiht(28);
    menu->SetBorder(16, 0, 0, 0);
    menu->SetDefIconWidth(0);
    menu->SetSpacing(0);
    menu->SetFont(theme::font(theme::Normal, 12).family(), 12);
    for (const char *text : {"28 pixels high", "12 pixel font", "No image column", "16 pixels from the left"})
        menu->AddAction(QString(text), 1);
    return portrait(menu);
}

QPixmap wide()
{
    auto *menu = new CBPMenu;
    menu->SetBordRadios(10);
    menu->SetMenuBottomHeight(10);
    menu->AddAction("As wide as the widest text of all", 1);
    menu->AddAction("Short", 2);
    return portrait(menu, menu->AddAction("Radius 10", 3));
}

QPixmap square()
{
    auto *menu = new CBPMenu;
    menu->SetBordRadios(0);
    menu->AddAction("Radius 0", 1);
    QAction *second = menu->AddAction("Square corners", 2);
    menu->AddAction("At the bottom, too", 3);
    return portrait(menu, second);
}

QPixmap elided()
{
    auto *menu = new CBPMenu;
    menu->AddAction("Measured at 14 pixels", 1);
    menu->AddAction("A long text that must be cut", 2);
    menu->AddAction("Short", 3);
    menu->SetFont(theme::font(theme::Normal, 18).family(), 18);
    return portrait(menu);
}

CBPMenu *subMenu(const QString &title, QWidget *owner)
{
    auto *menu = new CBPMenu(title, owner);
    menu->SetSubLeveMennu();
    menu->AddAction("Mail", 11);
    menu->AddAction("Calendar", 12);
    menu->AddAction("Printer", 13);
    return menu;
}

// Everything at once, to try by mouse and keyboard.
CBPMenu *fullMenu(QWidget *owner)
{
    auto *menu = new CBPMenu(owner);
    menu->setSeparatorRectHeight(17);
    menu->setSeparatorHeight(1);
    menu->SetSubMenuRightIcon(nestedFile());
    menu->SetDefIconWidth(kTickWidth);
    menu->AddAction(removeImages(), "State images", 1);
    menu->AddAction("With a badge", 2);
    menu->SetActionSpecialFlag(2, true, QString());
    menu->addSeparator();
    menu->AddMenu(subMenu("Send to", menu));
    menu->AddAction("Disabled", 3)->setEnabled(false);
    menu->AddAction("Without a picture", 4);
    menu->ResetMenuWidth();
    return menu;
}

CBPPushBtn *opener(const QString &text, CBPMenu *menu, EventLog *log)
{
    auto *button = new CBPPushBtn(text, nullptr);
    button->setFixedWidth(168);
    menu->setParent(button, menu->windowFlags());
    QObject::connect(menu, &QMenu::triggered, log, [log](QAction *action) {
        log->add(QString("triggered: \"%1\", %2").arg(action->text(), action->data().toString()));
    });
    QObject::connect(button, &CBPPushBtn::sigBtnClicked, menu,
                     [button, menu] { menu->popup(button->mapToGlobal(QPoint(0, button->height() + 1))); });
    return button;
}

void addLiveSamples(Page *page)
{
    Section *section =
        page->addSection("Try it", "The mouse, the arrow keys, Enter and Escape work as in any menu. "
                                   "Items that are chosen appear below.");
    auto *log = new EventLog("Nothing chosen yet: open a menu.");
    auto *longMenu = new CBPMenu;
    for (int i = 1; i <= 60; ++i)
        longMenu->AddAction(QString("Item %1 of 60").arg(i), i);
    section->addSamples({{"A bit of everything", opener("Open a menu", fullMenu(nullptr), log)},
                         {"Longer than the screen", opener("Open a long menu", longMenu, log)}});
    section->addWide(log);
}

QPixmap parentOfNested()
{
    auto *menu = new CBPMenu;
    menu->SetSubMenuRightIcon(nestedFile());
    menu->AddAction("Open", 1);
    menu->AddMenu(subMenu("Send to", menu));
    menu->AddMenu(subMenu("Move to", menu));
    menu->ResetMenuWidth();
    return portrait(menu);
}

QPixmap mirrored()
{
    auto *menu = new CBPMenu;
    menu->setLayoutDirection(Qt::RightToLeft);
    menu->SetSubMenuRightIcon(nestedFile());
    QAction *first = menu->AddAction(removeImages(), "With a picture", 1);
    menu->AddAction("With a badge", 2);
    menu->SetActionSpecialFlag(2, true, QString());
    menu->AddMenu(subMenu("Send to", menu));
    menu->ResetMenuWidth();
    return portrait(menu, first);
}

Page *makePage()
{
    auto *page =
        new Page("Menu", "CBPMenu: a pop-up menu whose items all have one size, with pictures, badges, "
                         "separators and nested menus.");
    addLiveSamples(page);
    page->addSection("Items",
                     "An item has a text and, if wanted, a picture, four pictures by state, or a badge.")
        ->addColumns(kColumns,
                     {{"Texts; one highlighted, one disabled", pose::shown(texts)},
                      {"Picture files in a column of 32 pixels", pose::shown(pictures)},
                      {"Pictures by state", pose::shown(stateImages)},
                      {"Badges: a dot and a picture", pose::shown(badges)},
                      {"One chosen item", pose::shown(chosen)},
                      {"A separator of 17 pixels, with a line of 1", pose::shown(separators)}},
                     kLeastWidth);
    page->addSection("Looks", "The highlight follows the corners of a menu without a border.")
        ->addColumns(kColumns,
                     {{"With nested menus", pose::shown(parentOfNested)},
                      {"A nested menu", pose::shown(nested)},
                      {"A nested menu with one item", pose::shown(single)},
                      {"With a border", pose::shown(bordered)},
                      {"Own colours", pose::shown(light)},
                      {"Low items", pose::shown(compact)},
                      {"Wide text, large radius", pose::shown(wide)},
                      {"Square corners", pose::shown(square)},
                      {"Painted at 18 pixels, measured at 14", pose::shown(elided)},
                      {"Right to left", pose::shown(mirrored)}},
                     kLeastWidth);
    return page;
}

void registerThis()
{
    registerPage({"menu", "Menu", PageGroup::Menus, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
