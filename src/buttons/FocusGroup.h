#pragma once

#include <QObject>
#include <QPointer>
#include <QVector>

class QKeyEvent;
class QWidget;

namespace lumqt {

// Makes buttons that stand together one stop of the Tab key. The arrow keys move the focus among them, as
// they lie on the screen; Home and End move it to the first and the last. The focus never leaves the group by
// an arrow key. Where it was last, Tab comes back to. GUI thread only.
class FocusGroup : public QObject
{
public:
    // The group belongs to `container`, in which its members lie.
    explicit FocusGroup(QWidget *container);

    // Adds a member before another one, or at the end; one that does not take the focus by Tab is left out.
    void add(QWidget *member, const QWidget *before = nullptr);

    // Lets go of all members.
    void release();

    // Makes a member that was chosen the one that Tab comes to, unless the focus is in the group.
    void choose(QWidget *member);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *container() const;
    bool canStop(const QWidget *member) const;
    void setStop(QWidget *member);
    void keepStop();
    void forget(QObject *member);
    bool moveFocus(QWidget *from, const QKeyEvent *event);
    QWidget *neighbour(const QWidget *from, int key) const;

    QVector<QPointer<QWidget>> m_members; // in the order of Home and End
    QPointer<QWidget> m_stop;
};

} // namespace lumqt
