#include "CBPPushBtn.h"

#include "buttons/ButtonTones.h"
#include "buttons/DropMenu.h"
#include "CBPMenu.h"
#include "foundation/Accessible.h"
#include "foundation/ElidedText.h"
#include "foundation/FontLookup.h"
#include "foundation/Painting.h"
#include "foundation/PlainText.h"
#include "foundation/PressKeys.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace {

// Look and metrics, in logical pixels.
constexpr int kHeight = 28;
constexpr int kArrowWidth = 8;
constexpr int kArrowHeight = 4;

enum State { Normal = 0, Hover = 1, Pressed = 2, Disabled = 3 };

QAccessibleInterface *makeAccessible(QWidget *widget)
{
    auto *button = qobject_cast<CBPPushBtn *>(widget);
    return button ? new lumqt::AccessibleButton(button, [button] { return button->text(); }) : nullptr;
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
    : QPushButton(parent), m_autoResize(autoResize), m_iconAfterText(iconAfterText)
{
    init();
    setText(text);
}

CBPPushBtn::CBPPushBtn(QString text, int id, __ALIGN_TYPE align, bool autoResize, bool iconAfterText)
    : QPushButton(nullptr),
      m_bindId(id),
      m_autoResize(autoResize),
      m_align(align),
      m_iconAfterText(iconAfterText)
{
    init();
    setText(text);
}

CBPPushBtn::~CBPPushBtn() = default;

// The text comes after this: where somebody listens, Qt asks for the accessible interface with the first one,
// and the base's constructor would get its own.
void CBPPushBtn::init()
{
    static const bool once = [] {
        lumqt::registerMenuItem();
        lumqt::installAccessible(staticMetaObject.className(), makeAccessible);
        return true;
    }();
    Q_UNUSED(once)
    m_owner.widget = this;
    m_ringPurpose = short(lumqt::Purpose::ButtonFocusRing);
    m_minimumWidth = kMinimumAutoWidth;
    m_spacing = kIconSpacing;
    m_arrowWidth = kArrowWidth;
    m_arrowHeight = kArrowHeight;
    m_font = lumqt::uiFont();
    setFixedHeight(kHeight);
    autoResizeBtn();
    // Dialogs and assistive tools press a button through click(), which no event handler sees.
    connect(this, &QAbstractButton::clicked, this, &CBPPushBtn::reportActivation);
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

void CBPPushBtn::OnActionTriggered(QAction *pAct)
{
    if (CBPMenuItem *item = lumqt::chosenItem(pAct))
        emit sigActionTriggered(item);
}

// ----------------------------------------------------------------------------------------------------------
// events

bool CBPPushBtn::event(QEvent *event)
{
    lumqt::dropMnemonic(this, m_plainText);
    return lumqt::showWholeText(this, event, text(), m_cut) || QPushButton::event(event);
}

void CBPPushBtn::mousePressEvent(QMouseEvent *event)
{
    if (state() == Disabled) {
        event->ignore();
        return;
    }
    if (event->button() != Qt::LeftButton)
        return;
    m_press = lumqt::Press::Mouse;
    m_markedBefore = IsFocus();
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
    if (!pressEnded())
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

// A press marks the button as focused. One that the mouse gives no focus hears of none that leaves it,
// either: the mark goes with the release.
void CBPPushBtn::returnMark()
{
    if (!hasFocus() && !(focusPolicy() & Qt::ClickFocus))
        setFocus(m_markedBefore);
}

// The left mouse button was released; whether that counts, Escape not having taken the press back.
bool CBPPushBtn::pressEnded()
{
    returnMark();
    return lumqt::mouseReleased(m_press);
}

// The button hears of no release while it is disabled or hidden.
void CBPPushBtn::pressLost()
{
    if (m_press == lumqt::Press::None)
        return;
    returnMark();
    if (m_press == lumqt::Press::Mouse)
        m_press = lumqt::Press::None;
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

void CBPPushBtn::enterEvent(lumqt::EnterEvent *event)
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
    if (event->type() == QEvent::EnabledChange) {
        setState(isEnabled() ? Normal : Disabled);
        pressLost();
    } else {
        m_hintedContent = QSize(); // another style, or a style sheet that says something else
    }
    QPushButton::changeEvent(event);
    update();
}

void CBPPushBtn::hideEvent(QHideEvent *event)
{
    pressLost();
    QPushButton::hideEvent(event);
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
    if (!watch.end())
        return;
    // Only a press of the mouse has a release that is still to come.
    const bool takenBack = wasDown && !isDown() && event->matches(QKeySequence::Cancel);
    if (takenBack && m_press == lumqt::Press::Mouse)
        m_press = lumqt::Press::TakenBack;
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
