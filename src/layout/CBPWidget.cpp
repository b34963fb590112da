#include "CBPWidget.h"

#include "layout/BoxPainting.h"

#include <QPainter>

CBPWidget::CBPWidget(QWidget *parent) : QWidget(parent), m_brush(Qt::white), m_pen(Qt::NoPen) {}

CBPWidget::~CBPWidget() = default;

void CBPWidget::setBrush(QBrush brush)
{
    m_brush = brush;
    update();
}

void CBPWidget::setPen(QPen pen)
{
    m_pen = pen;
    update();
}

void CBPWidget::Show()
{
    show();
}

void CBPWidget::Hide()
{
    hide();
}

void CBPWidget::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const bool plain = lumqt::isPlainLine(m_pen);
    painter.setPen(plain ? QPen(Qt::NoPen) : m_pen);
    painter.setBrush(m_brush);
    painter.drawRect(rect());
    if (plain) // the others of its lines are outside
        lumqt::fillEdges(painter, QRectF(rect()), Qt::TopEdge | Qt::LeftEdge, m_pen.color());
}
