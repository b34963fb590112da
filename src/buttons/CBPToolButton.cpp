#include "CBPToolButton.h"

#include "buttons/DropMenu.h"
#include "CBPMenu.h"
#include "foundation/Accessible.h"
#include "foundation/FocusMark.h"
#include "foundation/FontLookup.h"
#include "foundation/ImageLoader.h"
#include "foundation/Log.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "foundation/PressKeys.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace {

// Look and metrics, in logical pixels.
constexpr int kMenuWidth = 10;      // what a menu adds to the button's width
constexpr int kHintedVerticals = 6; // above and below the content, of the height that is asked for

} // namespace

// What screen readers see: a button, where a plain widget would be nothing.
class CBPToolButton::Accessible : public lumqt::AccessiblePressable
{
public:
    explicit Accessible(CBPToolButton *button)
        : AccessiblePressable(button, QAccessible::PushButton), m_button(button)
    {
    }

    QAccessible::Role role() const override
    {
        return m_button && m_button->m_hasMenu ? QAccessible::ButtonMenu : QAccessible::PushButton;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        if (m_button) {
            state.checked = m_button->isSelected();
            state.hasPopup = m_button->m_hasMenu;
        }
        return state;
    }

protected:
    QString ownName() const override { return m_button ? m_button->m_text : QString(); }
    void press() override { m_button->activate(); }

private:
    QPointer<CBPToolButton> m_button;
};

CBPToolButton::CBPToolButton(QString &image, QString text, int id, ENAlign align, bool autoResize)
    : CBPStateWidget(nullptr),
      m_images(kStates, image),
      m_text(text),
      m_align(align),
      m_id(id),
      m_autoResize(autoResize)
{
    init();
}

CBPToolButton::CBPToolButton(QVector<QString> &images, QString text, int id, ENAlign align, bool autoResize)
    : CBPStateWidget(nullptr),
      m_images(images),
      m_text(text),
      m_align(align),
      m_id(id),
      m_autoResize(autoResize)
{
    init();
}

CBPToolButton::CBPToolButton(QString text, int id, ENAlign align, bool autoResize)
    : CBPStateWidget(nullptr), m_text(text), m_align(align), m_id(id), m_autoResize(autoResize)
{
    init();
}

CBPToolButton::CBPToolButton(QWidget *parent) : CBPToolButton(QString(), 0, ENAlignLeft, false)
{
    setParent(parent);
}

CBPToolButton::~CBPToolButton() = default;

void CBPToolButton::init()
{
    lumqt::registerMenuItem();
    lumqt::installAccessible(staticMetaObject.className(), makeAccessible);
    m_font = lumqt::uiFont();
    m_left = kSideBorder;
    m_right = kSideBorder;
    m_spacing = kImageSpacing;
    m_arrowWidth = kArrowWidth;
    m_arrowHeight = kArrowHeight;
    m_label = std::make_unique<lumqt::CachedText>();
    m_image = std::make_unique<lumqt::PaintedImage>();
    setFocusPolicy(Qt::TabFocus); // a click leaves the focus where the user works
    measureText();
    AutoResize();
}

QAccessibleInterface *CBPToolButton::makeAccessible(QWidget *widget)
{
    auto *button = qobject_cast<CBPToolButton *>(widget);
    return button ? new Accessible(button) : nullptr;
}

// ------------------------------------------------------------------------------------------------------------
// menu

CBPMenu *CBPToolButton::ownedMenu()
{
    if (!m_menu)
        m_menu = lumqt::makeDropMenu(this);
    return m_menu;
}

void CBPToolButton::menuChanged()
{
    m_hasMenu = true;
    AutoResize();
    update();
}

void CBPToolButton::AppendMenuItem(QString iconPath, QString text, int id)
{
    ownedMenu()->AddAction(iconPath, text, QVariant(id));
    menuChanged();
}

void CBPToolButton::AppendSubMenu(CBPMenu *menu)
{
    if (!menu)
        return;
    ownedMenu()->AddMenu(menu);
    menuChanged();
}

void CBPToolButton::SetMenu(CBPMenu *menu)
{
    if (!m_menu)
        return;
    m_menu = menu;
    menuChanged();
}

CBPMenu *CBPToolButton::GetMenu() const
{
    return m_menu;
}

void CBPToolButton::OnActionTriggered(QAction *pAct)
{
    if (CBPMenuItem *item = lumqt::chosenItem(pAct))
        emit sigActionTriggered(item);
}

// ------------------------------------------------------------------------------------------------------------
// events

// The button may be gone after.
void CBPToolButton::activate()
{
    if (!m_hasMenu)
        emit sigClick(m_id);
    else if (m_menu)
        lumqt::openDropMenu(this, m_menu);
}

void CBPToolButton::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        m_press = lumqt::Press::Mouse;
    CBPStateWidget::mousePressEvent(event);
}

void CBPToolButton::mouseReleaseEvent(QMouseEvent *event)
{
    const QPointer<CBPToolButton> alive(this);
    if (event->button() == Qt::LeftButton && lumqt::mouseReleased(m_press))
        activate();
    if (alive)
        CBPStateWidget::mouseReleaseEvent(event);
}

void CBPToolButton::focusInEvent(QFocusEvent *event)
{
    lumqt::focusMoved(m_press);
    lumqt::focusGained(m_focusMark, event->reason());
    CBPStateWidget::focusInEvent(event);
    updateRing();
}

void CBPToolButton::focusOutEvent(QFocusEvent *event)
{
    lumqt::focusMoved(m_press);
    lumqt::focusLost(m_focusMark, event->reason());
    CBPStateWidget::focusOutEvent(event);
    updateRing();
}

void CBPToolButton::rest()
{
    if (isEnabled())
        SetState(hasFocus() || underMouse() ? ENStateHover : ENStateNormal);
}

// A key counts as a press and a release of the mouse; the look of the focus comes back after.
void CBPToolButton::activateByKey()
{
    const QPointer<CBPToolButton> alive(this);
    activate();
    if (alive)
        rest();
}

void CBPToolButton::keyPressEvent(QKeyEvent *event)
{
    using lumqt::PressStep;
    PressStep step = PressStep::NotMine;
    if (m_hasMenu && event->key() == Qt::Key_Down)
        step = event->isAutoRepeat() ? PressStep::Nothing : PressStep::Click;
    else if (!lumqt::enterIsTheDialogs(this, event))
        step = lumqt::keyPressed(event, m_press);
    if (step == PressStep::NotMine) {
        CBPStateWidget::keyPressEvent(event);
        return;
    }
    lumqt::keyUsed(m_focusMark);
    updateRing();
    if (step == PressStep::TakenBack)
        rest();
    else if (step != PressStep::Nothing)
        SetState(ENStatePress);
    if (step == PressStep::Click)
        activateByKey();
}

void CBPToolButton::keyReleaseEvent(QKeyEvent *event)
{
    const lumqt::PressStep step = lumqt::keyReleased(event, m_press);
    if (step == lumqt::PressStep::NotMine)
        CBPStateWidget::keyReleaseEvent(event);
    else if (step == lumqt::PressStep::Click)
        activateByKey();
}

void CBPToolButton::hideEvent(QHideEvent *event)
{
    const QPointer<CBPToolButton> alive(this);
    if (!m_shrinked && m_menu)
        m_menu->hide();
    if (alive)
        CBPStateWidget::hideEvent(event);
}

// ------------------------------------------------------------------------------------------------------------
// sizes

void CBPToolButton::measureText()
{
    // An empty text has no size at all: in sums it counts as one pixel less than nothing.
    m_textSize = m_text.isEmpty() ? QSize() : QFontMetrics(m_font).size(Qt::TextExpandTabs, m_text);
}

// Invalid without images.
QSize CBPToolButton::currentImageSize() const
{
    if (m_images.isEmpty())
        return QSize();
    return lumqt::pictureSize(m_images.value(state()), devicePixelRatioF());
}

int CBPToolButton::contentWidth() const
{
    const int image = qMax(0, currentImageSize().width());
    int width = 0;
    if (m_align == ENAlignLeft)
        width = m_left + m_right + image + m_textSize.width() + m_spacing;
    else if (m_align == ENAlignTop)
        width = m_left + m_right + qMax(m_textSize.width(), image);
    if (m_hasMenu)
        width += kMenuWidth;
    return qBound(0, width, QWIDGETSIZE_MAX);
}

void CBPToolButton::AutoResize()
{
    updateGeometry();
    if (m_autoResize)
        setFixedWidth(contentWidth());
    updateRing();
}

QSize CBPToolButton::sizeHint() const
{
    const int image = qMax(0, currentImageSize().height());
    const int label = qMax(0, m_textSize.height());
    const int content = m_align == ENAlignTop ? image + m_spacing + label : qMax(image, label);
    return QSize(contentWidth(), qMax(0, content + 2 * kHintedVerticals));
}
