#pragma once

#include <QAccessible>
#include <QString>
#include <QWidget>

// What a screen reader calls a widget.
inline QString spokenName(QWidget *widget)
{
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(widget);
    return interface ? interface->text(QAccessible::Name) : QString();
}
