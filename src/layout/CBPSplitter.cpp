#include "CBPSplitter.h"

#include "CBPSplitterHandle.h"
#include "foundation/Palette.h"

CBPSplitter::CBPSplitter(Qt::Orientation orientation, QWidget *parent) : QSplitter(orientation, parent) {}

CBPSplitter::CBPSplitter(QWidget *parent) : CBPSplitter(Qt::Horizontal, parent) {}

CBPSplitter::~CBPSplitter() = default;

void CBPSplitter::setHandlerClr(QPen pen, QBrush brush)
{
    // The first one only: callers colour the others themselves.
    if (auto *first = qobject_cast<CBPSplitterHandle *>(handle(0)))
        first->setColr(pen, brush);
}

QSplitterHandle *CBPSplitter::createHandle()
{
    auto *made = new CBPSplitterHandle(orientation(), this);
    if (m_ownBrush)
        made->setBrush(m_handleBrush);
    return made;
}

QBrush CBPSplitter::handleBrush() const
{
    return m_ownBrush ? m_handleBrush : QBrush(lumqt::builtInColor(lumqt::Purpose::SplitterGround));
}

void CBPSplitter::setHandleBrush(const QBrush &brush)
{
    m_handleBrush = brush;
    m_ownBrush = true;
    for (int i = 0; i < count(); ++i) {
        if (auto *each = qobject_cast<CBPSplitterHandle *>(handle(i)))
            each->setBrush(brush);
    }
}

void CBPSplitter::resetHandleBrush()
{
    m_ownBrush = false;
    for (int i = 0; i < count(); ++i) {
        if (auto *each = qobject_cast<CBPSplitterHandle *>(handle(i)))
            each->resetBrush();
    }
}
