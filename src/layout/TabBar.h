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

    // Takes a tab out and deletes it later.
    void removeTab(CBPPushBtn *tab);

    // Takes the height of the first tab a moment later, also in a row that was empty when it did so by
    // itself.
    void fitHeight();

private:
    CBPPushBtn *insertButton(CBPPushBtn *before, int id, const QString &text, const QString &iconPath);
    static QAccessibleInterface *makeAccessible(QWidget *widget);
};

} // namespace lumqt
