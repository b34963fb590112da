#include "CBPDropdownBtn.h"

#include "buttons/DropMenu.h"
#include "CBPMenu.h"
#include "foundation/Accessible.h"
#include "foundation/ElidedText.h"
#include "foundation/FocusMark.h"
#include "foundation/FontLookup.h"
#include "foundation/IconPixmap.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QStyle>

namespace {

// Look and metrics, in logical pixels.
constexpr int kHeight = 28;
constexpr int kPadding = 12; // left of the content
constexpr int kIconSize = 16;
constexpr int kIconGap = 8;
constexpr int kTextGap = 2;       // between text and arrow part
constexpr int kSplitTextGap = 10; // the same with a line between them
constexpr int kArrowPart = 25;    // width of the part with the triangle
constexpr int kArrowWidth = 8;
constexpr int kArrowHeight = 4;
constexpr int kDividerInset = 6;  // from the upper and the lower edge
constexpr int kDividerAlpha = 96; // of a text colour that was set
constexpr int kMenuGap = 2;       // between button and menu

enum State { Normal = 0, Hover = 1, Pressed = 2, Disabled = 3 };

} // namespace

class CBPDropdownBtn::Accessible : public lumqt::AccessiblePressable
{
public:
    explicit Accessible(CBPDropdownBtn *button)
        : AccessiblePressable(button, QAccessible::ButtonMenu), m_button(button)
    {
    }

    QAccessible::Role role() const override
    {
        return m_button && m_button->m_split ? QAccessible::ButtonDropDown : QAccessible::ButtonMenu;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        state.expanded = m_button && m_button->m_menuOpen;
        return state;
    }

    QStringList actionNames() const override
    {
        QStringList names = AccessiblePressable::actionNames();
        if (m_button && m_button->isEnabled())
            names.append(showMenuAction());
        return names;
    }

    void doAction(const QString &action) override
    {
        if (action == showMenuAction() && m_button && m_button->isEnabled())
            m_button->OpenMenu();
        else
            AccessiblePressable::doAction(action);
    }

protected:
    QString ownName() const override { return m_button ? m_button->m_text : QString(); }
    void press() override { m_button->activate(); }

private:
    QPointer<CBPDropdownBtn> m_button;
};

CBPDropdownBtn::CBPDropdownBtn(QWidget *parent) : CBPDropdownBtn(QString(), 0, parent) {}

CBPDropdownBtn::CBPDropdownBtn(QString text, int id, QWidget *parent)
    : QWidget(parent),
      m_text(text),
      m_font(lumqt::uiFont()),
      m_id(id),
      m_label(std::make_unique<lumqt::CachedText>())
{
    m_owner.widget = this;
    lumqt::registerMenuItem();
    lumqt::installAccessible(staticMetaObject.className(), makeAccessible);
    setFixedHeight(kHeight);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
}

CBPDropdownBtn::~CBPDropdownBtn() = default;

QAccessibleInterface *CBPDropdownBtn::makeAccessible(QWidget *widget)
{
    auto *button = qobject_cast<CBPDropdownBtn *>(widget);
    return button ? new Accessible(button) : nullptr;
}

void CBPDropdownBtn::setText(const QString &text)
{
    const bool changed = m_text != text;
    m_text = text;
    updateGeometry();
    update();
    if (changed)
        emit textChanged(QString(m_text)); // the button may be gone after
}

QString CBPDropdownBtn::text() const
{
    return m_text;
}

void CBPDropdownBtn::setIcon(const QIcon &icon)
{
    m_icon = icon;
    updateGeometry();
    update();
}

void CBPDropdownBtn::SetFont(const QFont &font)
{
    m_font = font;
    updateGeometry();
    update();
}

void CBPDropdownBtn::setSplit(bool split)
{
    m_split = split;
    updateGeometry();
    update();
}

void CBPDropdownBtn::setFocusFrameColor(QColor color)
{
    m_focusFrameColor = color;
    m_ownRing = true;
    update();
}

int CBPDropdownBtn::bindId() const
{
    return m_id;
}

// ------------------------------------------------------------------------------------------------------------
// menu

CBPMenu *CBPDropdownBtn::ownedMenu()
{
    if (!m_menu)
        m_menu = lumqt::makeDropMenu(this);
    return m_menu;
}

void CBPDropdownBtn::AppendMenuItem(QString iconPath, QString text, int id)
{
    ownedMenu()->AddAction(iconPath, text, QVariant(id));
}

void CBPDropdownBtn::AppendSubMenu(CBPMenu *menu)
{
    if (menu)
        ownedMenu()->AddMenu(menu);
}

CBPMenu *CBPDropdownBtn::GetMenu() const
{
    return m_menu;
}

void CBPDropdownBtn::OnActionTriggered(QAction *pAct)
{
    if (CBPMenuItem *item = lumqt::chosenItem(pAct))
        emit sigActionTriggered(item);
}

// Below the button, or above it at the end of the screen: Qt would move the menu over the button, under the
// mouse that opened it.
QPoint CBPDropdownBtn::menuPosition() const
{
    const QSize menuSize = m_menu->sizeHint();
    const int menuHeight = menuSize.height();
    const QPoint below =
        mapToGlobal(QPoint(isRightToLeft() ? width() - menuSize.width() : 0, height() + kMenuGap));
    const QRect screenRect = screen()->availableGeometry();
    const int above = mapToGlobal(QPoint(0, 0)).y() - kMenuGap - menuHeight;
    const bool fitsBelow = below.y() + menuHeight - 1 <= screenRect.bottom();
    return fitsBelow || above < screenRect.top() ? below : QPoint(below.x(), above);
}

void CBPDropdownBtn::OpenMenu()
{
    if (!m_menu || m_menuOpen || !isEnabled())
        return;
    const QPointer<CBPDropdownBtn> alive(this);
    m_menuOpen = true;
    look(Pressed);
    m_menu->exec(menuPosition());
    if (!alive)
        return;
    m_menuOpen = false;
    rest();
}

// What a press on the text does. The button may be gone after.
void CBPDropdownBtn::activate()
{
    if (m_split)
        emit sigBtnClicked(m_id);
    else
        OpenMenu();
}

// ------------------------------------------------------------------------------------------------------------
// events

void CBPDropdownBtn::look(int state)
{
    setState(isEnabled() ? state : Disabled);
    update();
}

void CBPDropdownBtn::rest()
{
    look(underMouse() ? Hover : Normal);
}

bool CBPDropdownBtn::event(QEvent *event)
{
    return lumqt::showWholeText(this, event, m_text, m_cut) || QWidget::event(event);
}

void CBPDropdownBtn::mousePressEvent(QMouseEvent *event)
{
    // A press that closes the menu comes here, too, and is not to open it again.
    if (event->button() != Qt::LeftButton || m_menuOpen)
        return;
    if (!m_split || arrowRect().contains(event->pos())) {
        OpenMenu();
        return;
    }
    m_pressed = true;
    look(Pressed);
}

void CBPDropdownBtn::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_pressed)
        return;
    m_pressed = false;
    rest();
    if (rect().contains(event->pos()) && !arrowRect().contains(event->pos()))
        activate();
}

void CBPDropdownBtn::keyPressEvent(QKeyEvent *event)
{
    const bool takesBack = m_pressed && event->matches(QKeySequence::Cancel); // and nobody else hears of it
    const bool presses = event->key() == Qt::Key_Space;
    const bool activates = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    // Alt+F4 and Ctrl+F4 close windows.
    const bool plainF4 = event->key() == Qt::Key_F4 && !(event->modifiers() & ~Qt::KeypadModifier);
    const bool opens = plainF4 || event->key() == Qt::Key_Down;
    if (!takesBack && !presses && !activates && !opens) {
        QWidget::keyPressEvent(event);
        return;
    }
    lumqt::keyUsed(m_focusMark);
    setFocus(m_focusMark == lumqt::FocusMark::Shown);
    update();
    if (takesBack) {
        m_pressed = false;
        rest();
    } else if (opens) {
        OpenMenu();
    } else if (event->isAutoRepeat()) {
        return;
    } else if (activates) {
        activate();
    } else {
        m_pressed = true;
        look(Pressed);
    }
}

void CBPDropdownBtn::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Space || !m_pressed) {
        QWidget::keyReleaseEvent(event);
        return;
    }
    if (event->isAutoRepeat())
        return;
    m_pressed = false;
    rest();
    activate();
}

void CBPDropdownBtn::focusInEvent(QFocusEvent *event)
{
    lumqt::focusGained(m_focusMark, event->reason());
    setFocus(m_focusMark == lumqt::FocusMark::Shown);
    QWidget::focusInEvent(event);
    update();
}

void CBPDropdownBtn::focusOutEvent(QFocusEvent *event)
{
    lumqt::focusLost(m_focusMark, event->reason());
    setFocus(false);
    if (m_pressed) { // the release goes elsewhere
        m_pressed = false;
        rest();
    }
    QWidget::focusOutEvent(event);
    update();
}

void CBPDropdownBtn::enterEvent(lumqt::EnterEvent *event)
{
    if (!m_pressed && !m_menuOpen)
        look(Hover);
    QWidget::enterEvent(event);
}

void CBPDropdownBtn::leaveEvent(QEvent *event)
{
    if (!m_pressed && !m_menuOpen)
        look(Normal);
    QWidget::leaveEvent(event);
}

void CBPDropdownBtn::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange) {
        m_pressed = false;
        rest();
    }
    QWidget::changeEvent(event);
}

void CBPDropdownBtn::hideEvent(QHideEvent *event)
{
    const QPointer<CBPDropdownBtn> alive(this);
    if (m_menuOpen && m_menu)
        m_menu->hide(); // it would stay on the screen without its button
    if (alive)
        QWidget::hideEvent(event);
}

// ------------------------------------------------------------------------------------------------------------
// sizes and painting

QSize CBPDropdownBtn::hint(int textWidth) const
{
    const int icon = m_icon.isNull() ? 0 : kIconSize + (m_text.isEmpty() ? 0 : kIconGap);
    return QSize(kPadding + icon + textWidth + textGap() + kArrowPart, kHeight);
}

int CBPDropdownBtn::textGap() const
{
    return m_split ? kSplitTextGap : kTextGap;
}

// As a painter completes it.
QFont CBPDropdownBtn::textFont() const
{
    return lumqt::completed(m_font, font());
}

QSize CBPDropdownBtn::sizeHint() const
{
    return hint(QFontMetrics(textFont()).horizontalAdvance(m_text));
}

QSize CBPDropdownBtn::minimumSizeHint() const
{
    const QFontMetrics metrics(textFont());
    const int ellipsis = metrics.horizontalAdvance(QChar(0x2026));
    return hint(qMin(ellipsis, metrics.horizontalAdvance(m_text)));
}

// Where `place` lies in the direction of the layout: the triangle is at the end of the line.
QRect CBPDropdownBtn::visual(const QRect &place) const
{
    return QStyle::visualRect(layoutDirection(), rect(), place);
}

QRect CBPDropdownBtn::arrowRect() const
{
    return visual(QRect(width() - kArrowPart, 0, kArrowPart, height()));
}

void CBPDropdownBtn::paintEvent(QPaintEvent *)
{
    const int index = isEnabled() ? state() : int(Disabled);
    lumqt::Body body;
    body.fill = paintedBgColor(index);
    body.radiusX = m_roundRadius.value(0);
    body.radiusY = m_roundRadius.value(1);
    if (IsFocus() && isEnabled()) {
        body.frame = m_ownRing ? m_focusFrameColor : lumqt::themeColor(lumqt::Purpose::FocusRing);
        body.frameWidth = lumqt::kFocusRingWidth;
    } else if (body.radiusX > 0 || !m_frmTrancent) {
        body.frame = paintedFrmColor(index);
    }
    QPainter painter(this);
    lumqt::drawBody(painter, rect().marginsRemoved(lumqt::boundedPixels(m_removeMargin)), body);
    drawContent(painter, index);
}

QColor CBPDropdownBtn::dividerColor(int index) const
{
    if (!hasOwnTextColor())
        return lumqt::themeColor(index == Disabled ? lumqt::Purpose::ButtonDividerDisabled
                                                   : lumqt::Purpose::ButtonDivider);
    QColor line = paintedTextColor(index);
    line.setAlpha(kDividerAlpha);
    return line;
}

void CBPDropdownBtn::drawContent(QPainter &painter, int index)
{
    const QRect arrow = arrowRect();
    int left = kPadding;
    if (!m_icon.isNull()) {
        const QPixmap icon = lumqt::iconPixmap(m_icon, QSize(kIconSize, kIconSize), iconMode(), this);
        const QSize size = lumqt::logicalSize(icon);
        const QPoint place(left + (kIconSize - size.width()) / 2, (height() - size.height()) / 2);
        painter.drawPixmap(visual(QRect(place, size)).topLeft(), icon);
        left += kIconSize + kIconGap;
    }
    const int room = width() - kArrowPart - textGap() - left;
    m_cut = m_label->lineSize(m_text, textFont()).width() > room;
    if (room > 0 && !m_text.isEmpty()) {
        painter.setPen(paintedTextColor(index));
        const QString shown = m_cut ? lumqt::elidedLine(m_text, textFont(), room) : m_text;
        const int advance = qMin(room, m_label->lineSize(shown, textFont()).width());
        m_label->drawLeft(painter, visual(QRect(left, 0, advance, height())), shown, textFont());
    }
    if (m_split) {
        const QColor line = dividerColor(index);
        const QRect place(width() - kArrowPart, kDividerInset, 1, height() - 2 * kDividerInset);
        painter.fillRect(lumqt::evenDevicePixels(painter, visual(place)), line);
    }
    lumqt::drawDropTriangle(
        painter, QPointF(arrow.left() + (arrow.width() - kArrowWidth) / 2, (height() - kArrowHeight) / 2),
        kArrowWidth, kArrowHeight, paintedTriangleColor(index));
}
