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

    // Adds a tab that shows `page`, before the tab `before` or, if that is null, at the end.
    CBPPushBtn *addTab(int id, const QString &text, const QString &iconPath, QWidget *page,
                       CBPPushBtn *before = nullptr);

    // For the container of the pages.
    using CButtonGroupBox::fitHeight;
    using CButtonGroupBox::removeButton;
    int freeId();

private:
    CBPPushBtn *insertButton(CBPPushBtn *before, int id, const QString &text, const QString &iconPath);
    static QAccessibleInterface *makeAccessible(QWidget *widget);
};

} // namespace lumqt
