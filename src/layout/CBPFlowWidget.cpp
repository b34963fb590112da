#include "CBPFlowWidget.h"

#include "CBPFlowLayout.h"
#include "foundation/Painting.h"

#include <QChildEvent>
#include <QFocusFrame>

CBPFlowWidget::CBPFlowWidget(QWidget *parent) : QWidget(parent), m_flow(new CBPFlowLayout(this)) {}

CBPFlowWidget::~CBPFlowWidget() = default;

int CBPFlowWidget::margin() const
{
    return m_flow ? m_flow->contentsMargins().left() : 0;
}

void CBPFlowWidget::setMargin(int margin)
{
    if (m_flow)
        m_flow->setContentsMargins(lumqt::boundedPixels(QMargins(margin, margin, margin, margin)));
}

void CBPFlowWidget::resetMargin()
{
    setMargin(-1);
}

int CBPFlowWidget::horizontalSpacing() const
{
    return m_flow ? m_flow->horizontalSpacing() : 0;
}

void CBPFlowWidget::setHorizontalSpacing(int spacing)
{
    if (m_flow)
        m_flow->setHorizontalSpacing(spacing);
}

void CBPFlowWidget::resetHorizontalSpacing()
{
    setHorizontalSpacing(-1);
}

int CBPFlowWidget::verticalSpacing() const
{
    return m_flow ? m_flow->verticalSpacing() : 0;
}

void CBPFlowWidget::setVerticalSpacing(int spacing)
{
    if (m_flow)
        m_flow->setVerticalSpacing(spacing);
}

void CBPFlowWidget::resetVerticalSpacing()
{
    setVerticalSpacing(-1);
}

// A child that is announced has not got its window flags yet, which tell a dialog from a widget: they are
// there when it hears of its new parent, right after this.
void CBPFlowWidget::childEvent(QChildEvent *event)
{
    QWidget::childEvent(event);
    if (event->added() && event->child()->isWidgetType() && m_flow && !m_flow->m_bTaking)
        event->child()->installEventFilter(this);
}

bool CBPFlowWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::ParentChange || !watched->isWidgetType())
        return QWidget::eventFilter(watched, event);
    watched->removeEventFilter(this);
    auto *widget = static_cast<QWidget *>(watched);
    const bool mine = widget->parentWidget() == this && !widget->isWindow();
    if (mine && m_flow && !qobject_cast<QFocusFrame *>(widget)) // which lies around another child
        m_flow->addWidget(widget);
    return false;
}
