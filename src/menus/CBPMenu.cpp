#include "CBPMenu.h"

#include "CBPMenuItemSizeStyle.h"
#include "foundation/FontLookup.h"
#include "foundation/Log.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "menus/ItemTable.h"
#include "menus/MenuMetrics.h"
#include "menus/MenuTexts.h"

#include <QActionEvent>
#include <QApplication>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QStyleOptionMenuItem>

#include <algorithm>
#include <iterator>

using lumqt::Purpose;

namespace {

constexpr int kWidestText = 200; // to begin with: shorter texts do not make a narrower menu
constexpr int kMinWidth = 153;
constexpr int kRoomBesideText = 49;
constexpr int kRoomBesideTextWithArrow = 60;
constexpr int kStateImages = 4;
const char kSizeRule[] = "CBPMenu{margin:0;padding:0;border:none}"
                         "CBPMenu::item{width:%1px;height:%2px;min-width:0;min-height:0;"
                         "max-width:%1px;max-height:%2px;margin:0;padding:0;border:none}";
constexpr QStyle::PixelMetric kRoomAround[] = {QStyle::PM_MenuPanelWidth, QStyle::PM_MenuHMargin,
                                               QStyle::PM_MenuVMargin};

QSize boundedSize(const QSize &size)
{
    return {lumqt::boundedPixels(size.width()), lumqt::boundedPixels(size.height())};
}

} // namespace

CBPMenu::CBPMenu(QWidget *parent) : QMenu(parent)
{
    Init();
}

CBPMenu::CBPMenu(const QString &title, QWidget *parent) : QMenu(title, parent)
{
    Init();
}

CBPMenu::~CBPMenu()
{
    // A widget forgets a style that is deleted; the one that Qt puts in between for a style sheet does not.
    // What was torn off shares it, and lives until the event loop turns.
    const auto tornOff = tornOffMenus();
    if (m_sizeStyle && style() != m_sizeStyle)
        setStyle(nullptr);
    for (const QPointer<QMenu> &menu : tornOff)
        if (menu)
            menu->setStyle(nullptr);
    delete m_sizeStyle;
}

// Qt keeps them to itself; they have the style and the items of the menu, at least one of them.
QVector<QPointer<QMenu>> CBPMenu::tornOffMenus() const
{
    QVector<QPointer<QMenu>> found;
    const auto windows = m_mayBeTorn ? QApplication::topLevelWidgets() : QWidgetList();
    for (QWidget *window : windows) {
        auto *menu = window->inherits("QTornOffMenu") ? qobject_cast<QMenu *>(window) : nullptr;
        const bool sameItems = menu && !actions().isEmpty() && menu->actions() == actions();
        if (sameItems || (menu && menu->style() == style()))
            found.append(menu);
    }
    return found;
}

void CBPMenu::Init()
{
    m_tables = std::make_unique<lumqt::ItemTables>();
    m_texts = std::make_unique<lumqt::MenuTexts>();
    m_leftMargin = lumqt::kMenuMargin;
    m_spacing = lumqt::kMenuMargin;
    m_defIconWidth = lumqt::kMenuIconWidth;
    m_widestText = kWidestText;
    m_itemHeight = lumqt::kMenuItemHeight;
    m_fontSize = lumqt::kTextPixelSize;
    m_minWidth = kMinWidth;
    m_radius = lumqt::kMenuRadius;
    m_bottomHeight = lumqt::kMenuBottomHeight;
    m_separatorRectHeight = lumqt::kMenuSeparatorRectHeight;
    m_separatorHeight = lumqt::kMenuSeparatorHeight;
    m_borderWidth = lumqt::kMenuBorderWidth;
    m_font = lumqt::uiFont(lumqt::NormalWeight, lumqt::kTextPixelSize);
    setObjectName(QStringLiteral("id_PopupMenu"));
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);
}

QAction *CBPMenu::addItem(CBPMenuItem *item, const QString &text)
{
    addAction(item);
    resetMenuSize(text);
    return item;
}

QAction *CBPMenu::AddAction(QString text, QVariant itemData)
{
    return addItem(new CBPMenuItem(text, itemData, this), text);
}

QAction *CBPMenu::AddAction(QString iconPath, QString text, QVariant itemData)
{
    auto *item = new CBPMenuItem(text, itemData, this);
    item->setIconFile(iconPath);
    return addItem(item, text);
}

QAction *CBPMenu::AddAction(QVector<QString> images, QString text, QVariant itemData)
{
    SetActionRes(itemData, images);
    return addItem(new CBPMenuItem(images, text, itemData, this), text);
}

QAction *CBPMenu::AddAction(QVector<QString> images, QString text, QVariant itemData, QSize itemSize)
{
    SetActionRes(itemData, images);
    useItemSize(itemSize);
    return addItem(new CBPMenuItem(images, text, itemData, this), text);
}

QAction *CBPMenu::AddMenu(QMenu *menu)
{
    if (!menu)
        return nullptr;
    if (menu == this) {
        qCWarning(lcLumQt, "CBPMenu::AddMenu: a menu cannot be its own sub-menu");
        return nullptr;
    }
    if (m_subMenus.size() == m_subMenus.capacity())
        m_subMenus.removeAll(QPointer<QMenu>()); // those destroyed since
    if (!m_subMenus.contains(menu))
        m_subMenus.append(menu);
    QAction *action = addMenu(menu);
    resetMenuSize(menu->title());
    return action;
}

void CBPMenu::addSeparator()
{
    QMenu::addSeparator();
}

void CBPMenu::ShowHideMenuItem(int id, bool show)
{
    const auto all = actions();
    for (QAction *action : all)
        if (action->data().toInt() == id)
            action->setVisible(show);
}

void CBPMenu::SetShowCheckIcon(int id, QIcon icon)
{
    const auto all = actions();
    for (QAction *action : all) {
        const bool chosen = action->data().toInt() == id;
        // Each change measures all items of a menu that is open.
        if (chosen)
            action->setIcon(icon);
        else if (!action->icon().isNull())
            action->setIcon(QIcon());
    }
}

void CBPMenu::SetActionSpecialFlag(QVariant itemData, bool on, const QString &res)
{
    if (on)
        m_tables->flags.set(itemData, res);
    else
        m_tables->flags.remove(itemData);
    update();
}

bool CBPMenu::IsActionSpecial(const QVariant &itemData, QString &res)
{
    const QString *flag = m_tables->flags.find(itemData);
    if (flag)
        res = *flag;
    return flag;
}

void CBPMenu::SetActionRes(const QVariant &itemData, const QVector<QString> &images)
{
    m_tables->pictures.set(itemData, images);
    update();
}

void CBPMenu::ResetActionRes(const QVariant &itemData, const QVector<QString> &images)
{
    m_tables->pictures.clear();
    SetActionRes(itemData, images);
}

bool CBPMenu::GetActionRes(const QVariant &itemData, const ENState &state, QString &path)
{
    const QVector<QString> *images = m_tables->pictures.find(itemData);
    if (!images || images->size() != kStateImages)
        return false;
    path = images->value(state);
    return true;
}

void CBPMenu::setTextColor(QColor color)
{
    m_textColor = color.isValid() ? color : QColor(color.rgb()); // as a pen has it
    update();
}

void CBPMenu::setBg(QVector<QColor> colors)
{
    m_bg = colors;
    update();
}

QColor CBPMenu::background(int index) const
{
    return lumqt::ownOr(m_bg.value(index), index == 0 ? Purpose::MenuGround : Purpose::MenuGroundHovered);
}

// On a highlight of the application's own as anywhere else: a theme knows nothing of that.
QColor CBPMenu::textColor(bool hovered) const
{
    return lumqt::ownOr(m_textColor,
                        hovered && m_bg.isEmpty() ? Purpose::MenuTextHovered : Purpose::MenuText);
}

void CBPMenu::setFrameClr(QVector<QColor> colors)
{
    m_frameClr = colors;
}

void CBPMenu::SetBorder(int left, int, int, int)
{
    m_leftMargin = left;
    update();
}

void CBPMenu::SetSpacing(int spacing)
{
    m_spacing = spacing;
    update();
}

void CBPMenu::SetDefIconWidth(int width)
{
    m_defIconWidth = width;
    update();
}

void CBPMenu::SetMenuFontSize(int pixelSize)
{
    m_fontSize = pixelSize;
}

void CBPMenu::SetBordRadios(const int &radius)
{
    m_radius = qMax(0, radius);
    updateMask();
    update();
}

void CBPMenu::SetSubLeveMennu()
{
    m_subLevel = true;
    updateMask();
    update();
}

void CBPMenu::SetSubMenuRightIcon(const QString &path)
{
    m_arrowFile = path;
    update();
}

void CBPMenu::setSeparatorRectHeight(int height)
{
    m_separatorRectHeight = height;
    // Before the menu is shown nobody would tell it that its rule is gone.
    const bool ruled = styleSheet().endsWith(m_sizeRule);
    const QString sheet = QLatin1String(lumqt::kMenuSeparatorSheet) + (ruled ? m_sizeRule : QString());
    if (styleSheet() != sheet)
        setStyleSheet(sheet);
    update();
}

void CBPMenu::setSeparatorHeight(int width)
{
    m_separatorHeight = width;
    update();
}

void CBPMenu::SetBorderInfo(int width, const QColor &color)
{
    m_borderWidth = qMax(0, width);
    m_borderColor = color;
    updateMask();
    update();
}

void CBPMenu::SetMenuItemHeiht(int height)
{
    m_itemHeight = height;
}

void CBPMenu::SetMenuBottomHeight(int height)
{
    m_bottomHeight = height;
    updateMask();
    update();
}

void CBPMenu::SetFont(const QString &family, int pixelSize)
{
    QFont font;
    font.setFamily(family);
    font.setPixelSize(qMax(1, pixelSize));
    m_font = font;
    m_texts->forgetAll();
    update();
}

int CBPMenu::GetMenuWidth()
{
    return m_minWidth;
}

void CBPMenu::ResetMenuWidth()
{
    const auto own = actions();
    for (const QAction *action : own)
        resetMenuSize(action->text());
    const auto subMenus = m_subMenus;
    for (const QPointer<QMenu> &subMenu : subMenus) {
        auto *menu = qobject_cast<CBPMenu *>(subMenu);
        if (!menu)
            continue;
        const auto theirs = menu->actions();
        for (const QAction *action : theirs)
            menu->resetMenuSize(action->text());
    }
}

// The text is measured as it stands, with the "&" of its mnemonic: items have always been that wide.
int CBPMenu::menuItemLen(QString text, int pixelSize)
{
    return QFontMetrics(lumqt::uiFont(lumqt::NormalWeight, pixelSize)).horizontalAdvance(text);
}

void CBPMenu::resetMenuSize(QString text)
{
    if (text.isEmpty())
        return;
    m_widestText = qMax(m_widestText, menuItemLen(text, m_fontSize));
    const bool nested = std::any_of(m_subMenus.cbegin(), m_subMenus.cend(),
                                    [](const QPointer<QMenu> &menu) { return !menu.isNull(); });
    const int room = nested ? kRoomBesideTextWithArrow : kRoomBesideText;
    useItemSize(QSize(qMax(m_minWidth, lumqt::boundedPixels(m_widestText) + room), m_itemHeight));
}

void CBPMenu::useItemSize(const QSize &size)
{
    // Each style brings a whole style of the application's kind with it: one per size, and only the last is
    // kept.
    if (m_sizeStyle && m_itemSize == size && !m_otherStyle)
        return;
    CBPMenuItemSizeStyle *previous = m_sizeStyle;
    const auto tornOff = tornOffMenus();
    m_itemSize = size;
    m_sizeStyle = new CBPMenuItemSizeStyle(boundedSize(size));
    setStyle(m_sizeStyle);
    keepItemSize();
    for (const QPointer<QMenu> &menu : tornOff) {
        if (menu)
            menu->setStyle(style());
        if (menu)
            menu->setFixedWidth(menu->sizeHint().width());
    }
    delete previous;
    m_otherStyle = false;
}

// A style sheet hides which style lies below it, so every change counts as one to another style; that of the
// menu itself is taken back in useItemSize().
void CBPMenu::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::StyleChange) {
        m_otherStyle = true;
        keepItemSize();
    }
    QMenu::changeEvent(event);
}

// Until it is polished a menu hears nothing of a style sheet, and asks what it last knew. popup() polishes it
// before it measures.
bool CBPMenu::event(QEvent *event)
{
    const bool result = QMenu::event(event);
    if (event->type() == QEvent::Polish)
        keepItemSize();
    return result;
}

// A style sheet of the application that gives all menus, or their items, a padding, a border or a size goes
// before any style, ours included. A rule of the menu's own goes before it; without need there is none.
void CBPMenu::keepItemSize()
{
    if (m_keepsSize || !m_sizeStyle || !style()->inherits("QStyleSheetStyle"))
        return;
    const QSize wanted = boundedSize(m_itemSize);
    const auto isKept = [this, &wanted](QStyle::State state) {
        QStyleOptionMenuItem item;
        item.initFrom(this);
        item.menuItemType = QStyleOptionMenuItem::Normal;
        item.state = state;
        return style()->sizeFromContents(QStyle::CT_MenuItem, &item, QSize(1, 1), this) == wanted;
    };
    const bool kept = isKept(QStyle::State_None) && isKept(QStyle::State_Enabled) &&
                      isKept(QStyle::State_Enabled | QStyle::State_Selected);
    const bool plain = std::all_of(std::begin(kRoomAround), std::end(kRoomAround), [this](auto metric) {
        return style()->pixelMetric(metric, nullptr, this) == m_sizeStyle->pixelMetric(metric, nullptr, this);
    });
    if (kept && plain)
        return;
    QString sheet = styleSheet();
    if (!m_sizeRule.isEmpty())
        sheet.remove(m_sizeRule);
    m_sizeRule = QString(QLatin1String(kSizeRule)).arg(qMax(0, wanted.width())).arg(qMax(0, wanted.height()));
    m_keepsSize = true; // each change of the sheet comes here again
    setStyleSheet(sheet + m_sizeRule);
    m_keepsSize = false;
}

bool CBPMenu::opensSubMenu(const QAction *action) const
{
    for (const QPointer<QMenu> &menu : m_subMenus)
        if (menu && menu->menuAction() == action)
            return true;
    return false;
}

// Some styles let the keyboard stop at disabled items. Those are not highlighted here, so it passes over
// them.
void CBPMenu::keyPressEvent(QKeyEvent *event)
{
    const bool steps = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down ||
                       event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
    const QPointer<CBPMenu> alive(this); // what the key triggers may delete the menu
    const QAction *const start = activeAction();
    int left = steps ? actions().size() : 1;
    do {
        QMenu::keyPressEvent(event);
    } while (--left > 0 && alive && activeAction() && activeAction() != start &&
             !activeAction()->isEnabled());
}

void CBPMenu::actionEvent(QActionEvent *event)
{
    if (event->type() == QEvent::ActionRemoved)
        m_texts->forget(event->action());
    QMenu::actionEvent(event);
}
