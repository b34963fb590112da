#include "CBPWidget.h"

#include "foundation/Palette.h"
#include "foundation/QtCompat.h"
#include "layout/BoxPainting.h"

#include <QPainter>

CBPWidget::CBPWidget(QWidget *parent) : QWidget(parent), m_pen(Qt::NoPen) {}

CBPWidget::~CBPWidget() = default;

void CBPWidget::setBrush(QBrush brush)
{
    m_brush = brush;
    m_ownBrush = true;
    update();
}

QBrush CBPWidget::brush() const
{
    return m_ownBrush ? m_brush : QBrush(lumqt::builtInColor(lumqt::Purpose::PanelGround));
}

void CBPWidget::resetBrush()
{
    m_ownBrush = false;
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
    lumqt::enlargePatterns(painter);
    const bool plain = lumqt::isPlainLine(m_pen);
    painter.setPen(plain ? QPen(Qt::NoPen) : m_pen);
    painter.setBrush(m_ownBrush ? m_brush : QBrush(lumqt::themeColor(lumqt::Purpose::PanelGround)));
    painter.drawRect(rect());
    if (plain) // the others of its lines are outside
        lumqt::fillEdges(painter, QRectF(rect()), Qt::TopEdge | Qt::LeftEdge, m_pen.color());
}
