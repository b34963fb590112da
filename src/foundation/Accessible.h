#pragma once

#include <QAccessibleWidget>

#include <functional>

class QAbstractButton;

// What screen readers are told of widgets that Qt knows too little about. GUI thread only.
namespace lumqt {

// Makes `make` the source of the accessible interface of the class `className` and of those derived from it.
// A second source for a class is ignored, so a constructor may call this each time.
void installAccessible(const char *className, QAccessibleInterface *(*make)(QWidget *widget));

// The interface of a widget that only holds others together: a group.
QAccessibleInterface *makeGrouping(QWidget *widget);

// Says that the check mark of `widget`, or what stands for it, has changed.
void tellChecked(QWidget *widget);

// Says that `widget` was chosen or no longer is, in the words of what it is: one of a list or a check mark.
void tellChosen(QWidget *widget, bool chosen);

// Says that `widget` was chosen among its siblings, or no longer is.
void tellSelected(QWidget *widget, bool selected);

// A push button whose name, where the application set none, its class knows; the tool tip stands for one that
// is empty. All else is as Qt tells it of a QPushButton; Qt's own interface would take the "&" out of a text.
class AccessibleButton : public QAccessibleWidget
{
public:
    AccessibleButton(QAbstractButton *button, std::function<QString()> ownName);

    QString text(QAccessible::Text kind) const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString &action) override;
    QStringList keyBindingsForAction(const QString &action) const override;

private:
    QAbstractButton *button() const;

    std::function<QString()> m_ownName;
};

// A widget that is no button, and that assistive tools press all the same.
class AccessiblePressable : public QAccessibleWidget
{
public:
    AccessiblePressable(QWidget *widget, QAccessible::Role role) : QAccessibleWidget(widget, role) {}

    QString text(QAccessible::Text kind) const override;
    QStringList actionNames() const override;
    void doAction(const QString &action) override;

protected:
    // Its name where the application set none; the tool tip where this is empty.
    virtual QString ownName() const { return QString(); }
    // Whether it can be pressed at all; a disabled widget never can.
    virtual bool isPressable() const { return true; }
    virtual void press() = 0;

private:
    bool canPress() const;
};

} // namespace lumqt
