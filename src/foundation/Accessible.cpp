#include "foundation/Accessible.h"

#include <QAbstractButton>
#include <QHash>
#include <QPushButton>

namespace lumqt {

namespace {

using Maker = QAccessibleInterface *(*)(QWidget *);

QHash<QString, Maker> &makers()
{
    static QHash<QString, Maker> known;
    return known;
}

// Qt asks for the class of an object first, then for each of its base classes.
QAccessibleInterface *makeInterface(const QString &className, QObject *object)
{
    const Maker make = makers().value(className);
    return make && object && object->isWidgetType() ? make(static_cast<QWidget *>(object)) : nullptr;
}

} // namespace

void installAccessible(const char *className, Maker make)
{
    const auto name = QString::fromLatin1(className);
    if (makers().contains(name))
        return;
    makers().insert(name, make);
    QAccessible::installFactory(makeInterface);
}

QAccessibleInterface *makeGrouping(QWidget *widget)
{
    return new QAccessibleWidget(widget, QAccessible::Grouping);
}

void tellChecked(QWidget *widget)
{
    if (!QAccessible::isActive())
        return;
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(widget, changed);
    QAccessible::updateAccessibility(&event);
}

void tellChosen(QWidget *widget, bool chosen)
{
    if (!QAccessible::isActive())
        return;
    const QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(widget);
    if (interface && interface->state().selectable)
        tellSelected(widget, chosen);
    else
        tellChecked(widget);
}

void tellSelected(QWidget *widget, bool selected)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(widget, selected ? QAccessible::SelectionAdd : QAccessible::SelectionRemove);
    QAccessible::updateAccessibility(&event);
}

AccessibleButton::AccessibleButton(QAbstractButton *button, std::function<QString()> ownName)
    : QAccessibleWidget(button, QAccessible::PushButton), m_ownName(std::move(ownName))
{
}

QAbstractButton *AccessibleButton::button() const
{
    return qobject_cast<QAbstractButton *>(object());
}

QString AccessibleButton::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Name && button() && button()->accessibleName().isEmpty()) {
        const QString name = m_ownName();
        if (!name.isEmpty() || !button()->toolTip().isEmpty())
            return name.isEmpty() ? button()->toolTip() : name;
        return button()->text().isEmpty() ? QAccessibleWidget::text(kind) : QString();
    }
    if (kind == QAccessible::Accelerator && button()) {
        const auto *push = qobject_cast<const QPushButton *>(button());
        const QKeySequence keys =
            push && push->isDefault() ? QKeySequence(Qt::Key_Enter) : button()->shortcut();
        return keys.toString(QKeySequence::NativeText);
    }
    return QAccessibleWidget::text(kind);
}

QAccessible::Role AccessibleButton::role() const
{
    if (!button() || !button()->isCheckable())
        return QAccessible::PushButton;
    return button()->autoExclusive() ? QAccessible::RadioButton : QAccessible::CheckBox;
}

QAccessible::State AccessibleButton::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    const QAbstractButton *source = button();
    if (!source)
        return state;
    state.checkable = source->isCheckable();
    state.checked = source->isChecked();
    state.pressed = source->isDown();
    const auto *push = qobject_cast<const QPushButton *>(source);
    state.defaultButton = push && push->isDefault();
    return state;
}

QStringList AccessibleButton::actionNames() const
{
    QStringList names;
    if (button() && button()->isEnabled())
        names << (button()->isCheckable() ? toggleAction() : pressAction());
    return names << QAccessibleWidget::actionNames();
}

void AccessibleButton::doAction(const QString &action)
{
    if (!button() || !button()->isEnabled())
        return;
    if (action == pressAction() || (action == toggleAction() && button()->isCheckable()))
        button()->click(); // the button, and this with it, may be gone after
    else
        QAccessibleWidget::doAction(action);
}

QStringList AccessibleButton::keyBindingsForAction(const QString &action) const
{
    QStringList keys;
    if (button() && (action == pressAction() || action == toggleAction()) && !button()->shortcut().isEmpty())
        keys << button()->shortcut().toString();
    return keys;
}

bool AccessiblePressable::canPress() const
{
    return widget() && widget()->isEnabled() && isPressable();
}

QString AccessiblePressable::text(QAccessible::Text kind) const
{
    if (kind != QAccessible::Name || !widget() || !widget()->accessibleName().isEmpty())
        return QAccessibleWidget::text(kind);
    const QString name = ownName();
    return name.isEmpty() ? widget()->toolTip() : name;
}

QStringList AccessiblePressable::actionNames() const
{
    QStringList names = QAccessibleWidget::actionNames();
    if (canPress())
        names.prepend(pressAction());
    return names;
}

void AccessiblePressable::doAction(const QString &action)
{
    if (action != pressAction())
        QAccessibleWidget::doAction(action);
    else if (canPress())
        press();
}

} // namespace lumqt
