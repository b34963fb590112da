#pragma once

#include "CBPPushBtn.h"

class QAccessibleInterface;

namespace lumqt {

// A button of a group: shows the focus although it has no frame, and tells screen readers whether it is the
// one that is selected: a radio button of an exclusive group, or a tab.
class GroupButton : public CBPPushBtn
{
    Q_OBJECT

public:
    GroupButton(const QString &text, int id, bool exclusive);

    // Screen readers are told of a tab that shows `page` from now on.
    void makeTabOf(QWidget *page);

protected:
    void paintEvent(QPaintEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    class Accessible;
    friend class Accessible;

    static QAccessibleInterface *makeAccessible(QWidget *widget);

    const bool m_exclusive;
    bool m_isTab = false;
    QPointer<QWidget> m_page;
    bool m_showsFocus = false; // focused by somebody who uses the keyboard
};

} // namespace lumqt
