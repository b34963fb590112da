#include "buttons/GroupButton.h"

#include "CButtonGroupBox.h"
#include "foundation/Accessible.h"
#include "foundation/FocusMark.h"
#include "foundation/ImageLoader.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>

namespace lumqt {

namespace {

constexpr int kPressed = 2;     // state
constexpr int kLikeGround = 27; // difference in grey; the ring has 3:1 and more on it

} // namespace

class GroupButton::Accessible : public AccessibleButton
{
public:
    explicit Accessible(GroupButton *button)
        : AccessibleButton(button, [button] { return button->text(); }), m_button(button)
    {
    }

    QAccessible::Role role() const override
    {
        if (m_button && m_button->m_isTab)
            return QAccessible::PageTab;
        return m_button && m_button->m_exclusive ? QAccessible::RadioButton : QAccessible::PushButton;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = AccessibleButton::state();
        if (m_button && m_button->m_isTab) {
            state.selectable = true;
            state.selected = m_button->isSelected();
        } else if (m_button && m_button->m_exclusive) {
            state.checkable = true;
            state.checked = m_button->isSelected();
        }
        return state;
    }

    QVector<QPair<QAccessibleInterface *, QAccessible::Relation>>
    relations(QAccessible::Relation match) const override
    {
        auto found = AccessibleButton::relations(match);
        QAccessibleInterface *page =
            m_button && m_button->m_page ? QAccessible::queryAccessibleInterface(m_button->m_page) : nullptr;
        if (page && match.testFlag(QAccessible::Controlled))
            found.append({page, QAccessible::Controlled});
        return found;
    }

private:
    QPointer<GroupButton> m_button;
};

GroupButton::GroupButton(const QString &text, int id, bool exclusive)
    : CBPPushBtn(QString(), id, ALIGN_CENTER, true, false), m_exclusive(exclusive)
{
    installAccessible(staticMetaObject.className(), makeAccessible);
    setTextElided(true);   // the width is the same for every text
    setAutoDefault(false); // Enter in a dialog is for its real buttons, as beside a radio button
    // Not by the base's constructor: a change of the text makes Qt look for the accessible interface, and it
    // would keep that of the base class.
    setText(text);
}

GroupButton::~GroupButton()
{
    // Not one that is being destroyed itself: it is none of its class any more.
    if (auto *group = qobject_cast<CButtonGroupBox *>(parentWidget()))
        group->forget(this);
}

void GroupButton::setIconFile(const QString &path)
{
    m_iconFile = path;
    readIcon();
    onThemeChange(this, [this] { // few buttons of a group have an icon
        if (icon().cacheKey() == m_readIcon)
            readIcon();
    });
}

void GroupButton::readIcon()
{
    setIcon(QIcon(themePicture(m_iconFile)));
    m_readIcon = icon().cacheKey();
}

void GroupButton::makeTabOf(QWidget *page)
{
    m_isTab = true;
    m_page = page;
}

QAccessibleInterface *GroupButton::makeAccessible(QWidget *widget)
{
    auto *button = qobject_cast<GroupButton *>(widget);
    return button ? new Accessible(button) : nullptr;
}

void GroupButton::paintEvent(QPaintEvent *event)
{
    CBPPushBtn::paintEvent(event);
    QPainter painter(this);
    if (const auto *group = qobject_cast<CButtonGroupBox *>(parentWidget())) {
        painter.translate(-pos());
        group->drawOverButton(painter, geometry());
        painter.translate(pos());
    }
    if (m_focusMark != FocusMark::Shown || !isEnabled())
        return;
    drawFocusRing(painter, rect(), 0, 0);
    const int grey = qGray(paintedBgColor(isSelected() ? kPressed : state()).rgb());
    const QColor &ground = themeColor(Purpose::Ground);
    if (qAbs(grey - qGray(ground.rgb())) <= kLikeGround)
        return;
    Body air; // or the ring would not be seen on a ground as blue as it
    air.frame = ground;
    air.frameWidth = kFocusRingWidth;
    constexpr int ring = kFocusRingWidth;
    drawBody(painter, rect().adjusted(ring, ring, -ring, -ring), air);
}

void GroupButton::focusInEvent(QFocusEvent *event)
{
    focusGained(m_focusMark, event->reason());
    CBPPushBtn::focusInEvent(event);
}

void GroupButton::focusOutEvent(QFocusEvent *event)
{
    focusLost(m_focusMark, event->reason());
    CBPPushBtn::focusOutEvent(event);
}

void GroupButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space) {
        keyUsed(m_focusMark);
        update();
    }
    CBPPushBtn::keyPressEvent(event);
}

void GroupButton::selectedChanged()
{
    if (m_exclusive && isSelected())
        emit chosen();
}

} // namespace lumqt
