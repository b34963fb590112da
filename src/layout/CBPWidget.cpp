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
    lumqt::drawOutlined(painter, rect(), m_pen, m_brush);
}
