#include "CBPPushBtn.h"

#include "buttons/DropMenu.h"
#include "CBPMenu.h"
#include "foundation/Accessible.h"
#include "foundation/FontLookup.h"
#include "foundation/IconPixmap.h"
#include "foundation/Painting.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace {

// Look and metrics, in logical pixels.
const QColor kFocusFrameColor(75, 167, 245);
const QColor kArrowColor(127, 134, 143);
constexpr int kHeight = 28;
constexpr int kMinimumWidth = 85;
constexpr int kSpacing = 10;
constexpr int kSidePadding = 20; // both sides of a self-sized button together
constexpr int kMenuPadding = 10; // what a menu adds to a self-sized button
constexpr int kLeftStart = 16;   // of the icon with ALIGN_LEFT
constexpr int kArrowWidth = 8;
constexpr int kArrowHeight = 4;
constexpr int kFocusRingWidth = 2;
constexpr int kFrameWidth = 1;
constexpr int kElidedInset = 4; // of a text that ends in an ellipsis, at each side
constexpr int kDisabledCheckedAlpha = 128;

enum State { Normal = 0, Hover = 1, Pressed = 2, Disabled = 3 };

QColor withAlpha(QColor color, int alpha)
{
    if (color.isValid())
        color.setAlpha(alpha);
    return color;
}

} // namespace

// While a handler of an event runs the base's, it is the handler that reports a click, after the base's own
// signals. Slots may run further handlers of the same button, so each keeps what it found.
class CBPPushBtn::ClickWatch
{
public:
    explicit ClickWatch(CBPPushBtn *button)
        : m_button(button), m_outerReports(button->m_reportsItself), m_outerClicked(button->m_wasClicked)
    {
        button->m_reportsItself = true;
        button->m_wasClicked = false;
    }
    ~ClickWatch() { end(); }
    ClickWatch(const ClickWatch &) = delete;
    ClickWatch &operator=(const ClickWatch &) = delete;

    // To be called when the base is done. False: the button is gone.
    bool end()
    {
        if (m_button && !m_ended) {
            m_clicked = m_button->m_wasClicked;
            m_button->m_reportsItself = m_outerReports;
            m_button->m_wasClicked = m_outerClicked;
        }
        m_ended = true;
        return m_button;
    }
    bool clicked() const { return m_clicked; }

private:
    const QPointer<CBPPushBtn> m_button;
    const bool m_outerReports;
    const bool m_outerClicked;
    bool m_clicked = false;
    bool m_ended = false;
};

CBPPushBtn::CBPPushBtn(QWidget *parent, bool autoResize, bool iconAfterText)
    : QPushButton(parent), m_autoResize(autoResize), m_iconAfterText(iconAfterText)
{
    init();
}

CBPPushBtn::CBPPushBtn(QString text, QWidget *parent, bool autoResize, bool iconAfterText)
    : QPushButton(text, parent), m_autoResize(autoResize), m_iconAfterText(iconAfterText)
{
    init();
}

CBPPushBtn::CBPPushBtn(QString text, int id, __ALIGN_TYPE align, bool autoResize, bool iconAfterText)
    : QPushButton(text, nullptr),
      m_bindId(id),
      m_autoResize(autoResize),
      m_align(align),
      m_iconAfterText(iconAfterText)
{
    init();
}

CBPPushBtn::~CBPPushBtn() = default;

void CBPPushBtn::init()
{
    lumqt::registerMenuItem();
    m_focusFrameColor = kFocusFrameColor;
    m_minimumWidth = kMinimumWidth;
    m_spacing = kSpacing;
    m_arrowWidth = kArrowWidth;
    m_arrowHeight = kArrowHeight;
    m_font = lumqt::uiFont();
    m_textLayout = std::make_unique<lumqt::CachedText>();
    setFixedHeight(kHeight);
    autoResizeBtn();
    // Dialogs and assistive tools press a button through click(), which no event handler sees.
    connect(this, &QAbstractButton::clicked, this, &CBPPushBtn::reportActivation);
}

void CBPPushBtn::setText(const QString &text)
{
    QPushButton::setText(text);
    autoResizeBtn();
}

void CBPPushBtn::setIcon(const QIcon &icon)
{
    QPushButton::setIcon(icon);
    autoResizeBtn();
}

void CBPPushBtn::SetFont(const QFont &font)
{
    m_font = font;
    autoResizeBtn();
    update();
}

void CBPPushBtn::SetMininzerWidth(int width)
{
    m_minimumWidth = width;
    autoResizeBtn();
}

void CBPPushBtn::setTextElided(bool elided)
{
    m_elided = elided;
    update();
}

QFont CBPPushBtn::textFont() const
{
    return m_font;
}

QString CBPPushBtn::elided(const QString &text, int width) const
{
    const int room = qMax(0, width);
    QString line = text.left(room + 1); // more cannot fit, and need not be measured at each paint
    line.replace(QLatin1Char('\n'), QLatin1Char(' '));
    return QFontMetrics(m_font).elidedText(line, Qt::ElideRight, room);
}

void CBPPushBtn::setSpacing(int spacing)
{
    m_spacing = spacing;
}

void CBPPushBtn::SetIconVoffSet(const int &offset)
{
    m_iconVerticalOffset = offset;
}

void CBPPushBtn::setHasMenu(bool hasMenu)
{
    m_hasMenu = hasMenu;
    autoResizeBtn();
    update();
}

void CBPPushBtn::AppendMenuItem(QString iconPath, QString text, int id)
{
    m_hasMenu = true;
    if (!m_menu)
        m_menu = lumqt::makeDropMenu(this);
    m_menu->AddAction(iconPath, text, QVariant(id));
    autoResizeBtn();
    update();
}

CBPMenu *CBPPushBtn::GetMenu()
{
    return m_menu;
}

int CBPPushBtn::bindId() const
{
    return m_bindId;
}

void CBPPushBtn::setSelected(bool selected)
{
    const bool changed = m_selected != selected;
    m_selected = selected;
    update();
    if (changed)
        lumqt::tellChosen(this, selected);
}

bool CBPPushBtn::isSelected() const
{
    return m_selected;
}

QColor CBPPushBtn::focusFrameColor() const
{
    return m_focusFrameColor;
}

void CBPPushBtn::setEnabled(bool enabled)
{
    setState(enabled ? Normal : Disabled);
    QPushButton::setEnabled(enabled);
}

void CBPPushBtn::setDisabled(bool disabled)
{
    setEnabled(!disabled);
}

void CBPPushBtn::setAsDefaultBtn()
{
    setFocus(true);
    QPushButton::setDefault(true);
}

void CBPPushBtn::setFocusFrameColor(QColor color)
{
    m_focusFrameColor = color;
}

void CBPPushBtn::setBgTrancent(bool transparent)
{
    CBtnObj::setBgTrancent(transparent);
    setAttribute(Qt::WA_TranslucentBackground, transparent);
    // Qt sets this one along with the first but does not take it back: what lies below would never be
    // cleared.
    if (!transparent)
        setAttribute(Qt::WA_NoSystemBackground, false);
}

void CBPPushBtn::OnActionTriggered(QAction *pAct)
{
    if (CBPMenuItem *item = lumqt::chosenItem(pAct))
        emit sigActionTriggered(item);
}

// ----------------------------------------------------------------------------------------------------------
// sizes

QPixmap CBPPushBtn::iconPixmap() const
{
    return lumqt::iconPixmap(icon(), iconSize(), iconMode(), this);
}

int CBPPushBtn::iconWidth() const
{
    return icon().isNull() ? 0 : lumqt::logicalSize(iconPixmap()).width();
}

int CBPPushBtn::textWidth() const
{
    // A self-sized button is sized by its icon, its minimum width and its menu, never by its text: rows of
    // dialog buttons keep one width in every language, and the triangle keeps its place.
    return 0;
}

void CBPPushBtn::autoResizeBtn()
{
    if (!m_autoResize)
        return;
    const int icon = iconWidth();
    const int content = icon + (icon != 0 ? lumqt::boundedPixels(m_spacing) : 0) + textWidth() + kSidePadding;
    const int width = qMax(content, lumqt::boundedPixels(m_minimumWidth)) + (m_hasMenu ? kMenuPadding : 0);
    setFixedWidth(qBound(0, width, QWIDGETSIZE_MAX));
}

// ----------------------------------------------------------------------------------------------------------
// events

void CBPPushBtn::mousePressEvent(QMouseEvent *event)
{
    if (state() == Disabled) {
        event->ignore();
        return;
    }
    if (event->button() != Qt::LeftButton)
        return;
    setState(Pressed);
    setFocus(true);
    const QPointer<CBPPushBtn> alive(this);
    if (event->type() == QEvent::MouseButtonDblClick)
        emit doubleClicked();
    if (alive)
        QPushButton::mousePressEvent(event);
    if (alive)
        update();
}

void CBPPushBtn::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (m_hasMenu) {
        openMenu();
        return;
    }
    setState(Hover);
    ClickWatch watch(this);
    QPushButton::mouseReleaseEvent(event);
    if (!watch.end())
        return;
    update();
    // Also for a release outside the button, where clicked() does not come.
    emit sigBtnClicked(m_bindId);
}

void CBPPushBtn::mouseMoveEvent(QMouseEvent *)
{
    // Swallowed: a press stays a press wherever the mouse goes before the release.
}

void CBPPushBtn::focusInEvent(QFocusEvent *event)
{
    setFocus(true);
    QPushButton::focusInEvent(event);
    update();
}

void CBPPushBtn::focusOutEvent(QFocusEvent *event)
{
    setState(Normal);
    setFocus(false);
    QPushButton::focusOutEvent(event);
    update();
}

void CBPPushBtn::enterEvent(QEvent *event)
{
    if (state() == Disabled) {
        event->ignore();
        return;
    }
    setState(Hover);
    QPushButton::enterEvent(event);
    update();
}

void CBPPushBtn::leaveEvent(QEvent *event)
{
    if (state() == Disabled) {
        event->ignore();
        return;
    }
    setState(Normal);
    QPushButton::leaveEvent(event);
    update();
}

void CBPPushBtn::changeEvent(QEvent *event)
{
    // Callers that disable the button, or its parent, through QWidget come by here.
    if (event->type() == QEvent::EnabledChange)
        setState(isEnabled() ? Normal : Disabled);
    QPushButton::changeEvent(event);
    update();
}

void CBPPushBtn::keyPressEvent(QKeyEvent *event)
{
    const bool enter = event->key() == Qt::Key_Enter || event->key() == Qt::Key_Return;
    if (enter && m_hasMenu && (autoDefault() || isDefault())) {
        openMenu();
        return;
    }
    const bool wasDown = isDown();
    ClickWatch watch(this);
    QPushButton::keyPressEvent(event);
    if (watch.end())
        followKey(wasDown, watch.clicked());
}

void CBPPushBtn::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat() && m_hasMenu && isDown()) {
        const QPointer<CBPPushBtn> alive(this);
        openMenu();
        if (alive) {
            setState(underMouse() ? Hover : Normal);
            update();
        }
        return;
    }
    const bool wasDown = isDown();
    ClickWatch watch(this);
    QPushButton::keyReleaseEvent(event);
    if (watch.end())
        followKey(wasDown, watch.clicked());
}

// The look follows the button going down and up by a key, and a click is reported after the base's own
// signals.
void CBPPushBtn::followKey(bool wasDown, bool clicked)
{
    if (isDown() != wasDown && isEnabled()) {
        setState(isDown() ? Pressed : underMouse() ? Hover : Normal);
        update();
    }
    if (clicked)
        emit sigBtnClicked(m_bindId);
}

// A click that no handler of ours is behind: click() was called, by a dialog for its default button or by an
// assistive tool.
void CBPPushBtn::reportActivation()
{
    if (m_reportsItself) {
        m_reportsItself = false; // one click belongs to the handler, further ones come from slots
        m_wasClicked = true;
    } else if (m_hasMenu) {
        openMenu();
    } else {
        emit sigBtnClicked(m_bindId);
    }
}

void CBPPushBtn::openMenu()
{
    // The base never sees the release, and would take a later one for a click.
    setDown(false);
    if (m_menu)
        lumqt::openDropMenu(this, m_menu); // nothing of the button is touched after this
}

// ----------------------------------------------------------------------------------------------------------
// painting

void CBPPushBtn::paintEvent(QPaintEvent *)
{
    if (!isEnabled())
        setState(Disabled);
    const int index = isEnabled() && m_selected ? int(Pressed) : state();
    const bool showsFocus = IsFocus() && index == Normal && !m_frmTrancent;
    // The outer edge of the focus ring lies on the body's edge, all round.
    QPen pen(showsFocus ? m_focusFrameColor : paintedFrmColor(index),
             showsFocus ? kFocusRingWidth : kFrameWidth);

    lumqt::Body body;
    body.fill = paintedBgColor(index);
    body.radiusX = m_roundRadius.value(0);
    body.radiusY = m_roundRadius.value(1);
    // A rounded body keeps its frame; only a square one goes without.
    if (body.radiusX != 0 || !m_frmTrancent)
        body.frame = pen.color();
    body.frameWidth = pen.width();

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QRect content = rect().marginsRemoved(lumqt::boundedPixels(m_removeMargin));
    lumqt::drawBody(painter, content, body);
    if (isCheckable() && isChecked())
        drawCheckedLook(painter, content);
    if (showsFocus)
        content.adjust(1, 1, -1, -1);
    painter.setPen(pen); // a derived class may draw with what it finds
    painter.setBrush(body.fill);
    drawPixmapAndText(&painter, pen, content, index);
    drawArrow(&painter);
}

void CBPPushBtn::drawCheckedLook(QPainter &painter, const QRect &rect) const
{
    lumqt::Body checked; // square, also on a rounded button
    checked.fill = isEnabled() ? m_checkedBgColor : withAlpha(m_checkedBgColor, kDisabledCheckedAlpha);
    checked.frame = isEnabled() ? m_checkedFrmColor : withAlpha(m_checkedFrmColor, kDisabledCheckedAlpha);
    lumqt::drawBody(painter, rect, checked);
}

void CBPPushBtn::drawPixmapAndText(QPainter *painter, QPen &pen, QRect &rect, int index)
{
    const QString label = m_elided ? elided(text(), rect.width() - 2 * kElidedInset) : text();
    if (!icon().isNull()) {
        const QPixmap pixmap = iconPixmap();
        const QSize size = lumqt::logicalSize(pixmap);
        const int textSize = label.isEmpty() ? 0 : m_textLayout->lineSize(label, m_font).width();
        const int spacing = lumqt::boundedPixels(m_spacing);
        const int blockWidth = pixmap.isNull() ? textSize : size.width() + spacing + textSize;
        int x = 0;
        if (m_align == ALIGN_LEFT)
            x = kLeftStart;
        else if (m_align == ALIGN_CENTER)
            x = rect.x() + (rect.width() - blockWidth) / 2;
        const int y = rect.y() + (rect.height() - size.height()) / 2;
        if (label.isEmpty())
            painter->drawPixmap(rect.x() + (rect.width() - size.width()) / 2, y, pixmap);
        else if (m_iconAfterText)
            painter->drawPixmap(textSize + spacing + x,
                                (height() - size.height()) / 2 + lumqt::boundedPixels(m_iconVerticalOffset),
                                pixmap);
        else
            painter->drawPixmap(x, y, pixmap);
    }
    pen.setColor(paintedTextColor(index));
    painter->setPen(pen);
    // The text is centred in the whole rectangle, wherever the icon is.
    m_textLayout->drawCentred(*painter, rect, label, m_font);
}

void CBPPushBtn::drawArrow(QPainter *painter)
{
    if (!m_hasMenu)
        return;
    const int icon = iconWidth();
    const int spacing = lumqt::boundedPixels(m_spacing);
    const int x = (width() - icon - textWidth() - spacing) / 2 + icon + spacing + textWidth();
    const int y = (height() - m_arrowHeight) / 2;
    lumqt::drawDropTriangle(*painter, QPointF(x, y), m_arrowWidth, m_arrowHeight, kArrowColor);
}
