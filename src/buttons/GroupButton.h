#pragma once

#include "CBPPushBtn.h"

class QAccessibleInterface;

namespace lumqt {

// A button of a group: shows the focus although it has no frame, and tells screen readers whether it is the
// one that is selected.
class GroupButton : public CBPPushBtn
{
    Q_OBJECT

public:
    GroupButton(const QString &text, int id, bool exclusive);

protected:
    void paintEvent(QPaintEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    class Accessible;
    friend class Accessible;

    static QAccessibleInterface *makeAccessible(QWidget *widget);

    const bool m_exclusive;
    bool m_showsFocus = false; // focused by somebody who uses the keyboard
};

} // namespace lumqt
