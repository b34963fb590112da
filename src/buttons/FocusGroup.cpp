#include "buttons/FocusGroup.h"

#include <QKeyEvent>
#include <QWidget>

#include <algorithm>

namespace lumqt {

namespace {

// The gap between two stretches of an axis; 0 when they overlap.
int gap(int firstLow, int firstHigh, int secondLow, int secondHigh)
{
    return qMax(0, qMax(secondLow - firstHigh, firstLow - secondHigh));
}

// How far `to` lies from `from` in the direction of an arrow key, the less the better; -1: elsewhere. What
// lies straight in that direction goes before what lies beside.
qint64 distance(const QRect &from, const QRect &to, int key)
{
    const QPoint way = to.center() - from.center();
    const bool sideways = key == Qt::Key_Left || key == Qt::Key_Right;
    const int ahead = key == Qt::Key_Left    ? from.left() - to.right()
                      : key == Qt::Key_Right ? to.left() - from.right()
                      : key == Qt::Key_Up    ? from.top() - to.bottom()
                                             : to.top() - from.bottom();
    if (ahead <= 0)
        return -1;
    const int aside = sideways ? gap(from.top(), from.bottom(), to.top(), to.bottom())
                               : gap(from.left(), from.right(), to.left(), to.right());
    if (sideways && aside > 0)
        return -1; // another row
    const int offCentre = qAbs(sideways ? way.y() : way.x());
    return (qint64(ahead) << 40) + (qint64(aside) << 20) + offCentre;
}

} // namespace

FocusGroup::FocusGroup(QWidget *container) : QObject(container) {}

QWidget *FocusGroup::container() const
{
    return static_cast<QWidget *>(parent());
}

void FocusGroup::add(QWidget *member, const QWidget *before)
{
    if (!(member->focusPolicy() & Qt::TabFocus))
        return;
    auto place = m_members.end();
    if (before)
        place = std::find(m_members.begin(), m_members.end(), before);
    m_members.insert(place, QPointer<QWidget>(member));
    member->installEventFilter(this);
    connect(member, &QObject::destroyed, this, &FocusGroup::forget);
    if (m_stop)
        member->setFocusPolicy(Qt::ClickFocus);
    else
        m_stop = member;
}

void FocusGroup::release()
{
    m_members.clear();
    m_stop = nullptr;
}

bool FocusGroup::canStop(const QWidget *member) const
{
    return member && !member->isHidden() && member->isEnabledTo(container()) &&
           member->focusPolicy() != Qt::NoFocus;
}

void FocusGroup::setStop(QWidget *member)
{
    if (m_stop == member)
        return;
    if (m_stop && m_stop->focusPolicy() != Qt::NoFocus)
        m_stop->setFocusPolicy(Qt::ClickFocus);
    m_stop = member;
    if (member)
        member->setFocusPolicy(Qt::StrongFocus);
}

void FocusGroup::choose(QWidget *member)
{
    QWidget *focus = container()->window()->focusWidget();
    const bool focused = focus && focus->hasFocus() && m_members.contains(focus);
    if (!focused && m_members.contains(member) && canStop(member))
        setStop(member);
}

// While a widget says that it is destroyed, pointers to it are not cleared yet.
void FocusGroup::forget(QObject *member)
{
    const auto gone = [member](const QPointer<QWidget> &each) { return !each || each == member; };
    m_members.erase(std::remove_if(m_members.begin(), m_members.end(), gone), m_members.end());
    if (m_stop == member)
        m_stop = nullptr;
    keepStop();
}

// A stop that is gone, hidden or disabled would leave the group out of reach.
void FocusGroup::keepStop()
{
    if (canStop(m_stop))
        return;
    const auto next =
        std::find_if(m_members.cbegin(), m_members.cend(), [this](QWidget *each) { return canStop(each); });
    if (next != m_members.cend())
        setStop(*next);
}

bool FocusGroup::eventFilter(QObject *watched, QEvent *event)
{
    auto *member = static_cast<QWidget *>(watched);
    switch (event->type()) {
    case QEvent::FocusIn:
        if (canStop(member)) // a program can give it the focus all the same
            setStop(member);
        break;
    case QEvent::EnabledChange:
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
        keepStop();
        break;
    case QEvent::KeyPress:
        return moveFocus(member, static_cast<QKeyEvent *>(event));
    default:
        break;
    }
    return false;
}

bool FocusGroup::moveFocus(QWidget *from, const QKeyEvent *event)
{
    if (event->modifiers() & ~Qt::KeypadModifier)
        return false;
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
        break;
    default:
        return false;
    }
    const bool back =
        event->key() == Qt::Key_Left || event->key() == Qt::Key_Up || event->key() == Qt::Key_Home;
    if (QWidget *next = neighbour(from, event->key()))
        next->setFocus(back ? Qt::BacktabFocusReason : Qt::TabFocusReason);
    return true;
}

QWidget *FocusGroup::neighbour(const QWidget *from, int key) const
{
    QWidget *best = nullptr;
    qint64 least = 0;
    for (QWidget *each : m_members) {
        if (!canStop(each) || each->parentWidget() != from->parentWidget())
            continue;
        if (key == Qt::Key_Home)
            return each;
        if (key == Qt::Key_End) {
            best = each;
            continue;
        }
        if (each == from)
            continue;
        const qint64 way = distance(from->geometry(), each->geometry(), key);
        if (way >= 0 && (!best || way < least)) {
            best = each;
            least = way;
        }
    }
    return best;
}

} // namespace lumqt
