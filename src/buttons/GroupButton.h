#pragma once

#include "CBPPushBtn.h"

class QAccessibleInterface;

namespace lumqt {

enum class FocusMark : unsigned char;

// A button of a group: shows the focus although it has no frame, and tells screen readers whether it is the
// one that is selected: a radio button of an exclusive group, or a tab.
class GroupButton : public CBPPushBtn
{
    Q_OBJECT

public:
    GroupButton(const QString &text, int id, bool exclusive);
    ~GroupButton() override;

    void setExclusive(bool exclusive) { m_exclusive = exclusive; }

    // Its icon, which is the theme's own of that name where there is one. Until another is set.
    void setIconFile(const QString &path);

    // Screen readers are told of a tab that shows `page` from now on.
    void makeTabOf(QWidget *page);

Q_SIGNALS:
    // It became the selected button of an exclusive group, by whomever.
    void chosen();

protected:
    void paintEvent(QPaintEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void selectedChanged() override;

private:
    class Accessible;
    friend class Accessible;

    static QAccessibleInterface *makeAccessible(QWidget *widget);

    void readIcon();

    bool m_exclusive;
    bool m_isTab = false;
    QPointer<QWidget> m_page;
    FocusMark m_focusMark{};
    QString m_iconFile;
    qint64 m_readIcon = 0; // cache key of the icon that is the file's
};

} // namespace lumqt
