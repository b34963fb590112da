#include "CBPSplitter.h"

#include "CBPSplitterHandle.h"

CBPSplitter::CBPSplitter(Qt::Orientation orientation, QWidget *parent) : QSplitter(orientation, parent) {}

CBPSplitter::~CBPSplitter() = default;

void CBPSplitter::setHandlerClr(QPen pen, QBrush brush)
{
    // The first one only: callers colour the others themselves.
    if (auto *first = qobject_cast<CBPSplitterHandle *>(handle(0)))
        first->setColr(pen, brush);
}

QSplitterHandle *CBPSplitter::createHandle()
{
    return new CBPSplitterHandle(orientation(), this);
}
