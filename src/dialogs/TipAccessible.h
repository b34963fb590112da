#pragma once

#include <QAccessibleWidget>

namespace lumqt {

// A tip, which is called by what it says where the application gave it no name.
class TipAccessible : public QAccessibleWidget
{
public:
    TipAccessible(QWidget *tip, QAccessible::Role role) : QAccessibleWidget(tip, role) {}

    QString text(QAccessible::Text kind) const override;
};

} // namespace lumqt
