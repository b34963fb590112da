#include "CBPSplitterHandle.h"

#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "layout/BoxPainting.h"

#include <QPainter>

CBPSplitterHandle::CBPSplitterHandle(Qt::Orientation orientation, QSplitter *parent)
    : QSplitterHandle(orientation, parent)
{
}

CBPSplitterHandle::~CBPSplitterHandle() = default;

void CBPSplitterHandle::setColr(QPen pen, QBrush brush)
{
    m_pen = pen;
    m_brush = brush;
    m_ownPen = true;
    m_ownBrush = true;
}

QBrush CBPSplitterHandle::brush() const
{
    return m_ownBrush ? m_brush : QBrush(lumqt::builtInColor(lumqt::Purpose::SplitterGround));
}

void CBPSplitterHandle::setBrush(const QBrush &brush)
{
    m_brush = brush;
    m_ownBrush = true;
    update();
}

void CBPSplitterHandle::resetBrush()
{
    m_ownBrush = false;
    update();
}

void CBPSplitterHandle::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    // The upper edge goes up, out of the handle: only the sides and the lower edge are meant to be seen.
    using lumqt::Purpose;
    const QBrush ground = m_ownBrush ? m_brush : QBrush(lumqt::themeColor(Purpose::SplitterGround));
    if (!m_ownPen || lumqt::isPlainLine(m_pen)) {
        const Qt::Edges seen = Qt::LeftEdge | Qt::RightEdge | Qt::BottomEdge;
        const QRectF inner = lumqt::fillEdges(painter, QRectF(rect()), seen, QColor());
        painter.fillRect(inner.united(QRectF(rect().topLeft(), inner.bottomRight())), ground);
        lumqt::fillEdges(painter, QRectF(rect()), seen,
                         m_ownPen ? m_pen.color() : lumqt::themeColor(Purpose::SplitterFrame));
        return;
    }
    painter.setPen(m_pen);
    painter.setBrush(ground);
    const int width = lumqt::boundedPixels(m_pen.width());
    painter.drawRect(rect().marginsRemoved(QMargins(0, -width, width, width)));
}
