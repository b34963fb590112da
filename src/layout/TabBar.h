#pragma once

#include "CButtonGroupBox.h"

class QAccessibleInterface;

namespace lumqt {

// The row of tabs of a container of pages: a group of buttons that screen readers are told of as a list of
// tabs.
class TabBar : public CButtonGroupBox
{
    Q_OBJECT

public:
    TabBar();

    // Adds a tab that shows `page`.
    CBPPushBtn *addTab(int id, const QString &text, const QString &iconPath, QWidget *page);

private:
    static QAccessibleInterface *makeAccessible(QWidget *widget);
};

} // namespace lumqt
