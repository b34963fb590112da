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
    m_own = true;
}

void CBPSplitterHandle::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    // The upper edge goes up, out of the handle: only the sides and the lower edge are meant to be seen.
    if (!m_own || lumqt::isPlainLine(m_pen)) {
        using lumqt::Purpose;
        const Qt::Edges seen = Qt::LeftEdge | Qt::RightEdge | Qt::BottomEdge;
        const QRectF inner = lumqt::fillEdges(painter, QRectF(rect()), seen, QColor());
        painter.fillRect(inner.united(QRectF(rect().topLeft(), inner.bottomRight())),
                         m_own ? m_brush : QBrush(lumqt::themeColor(Purpose::SplitterGround)));
        lumqt::fillEdges(painter, QRectF(rect()), seen,
                         m_own ? m_pen.color() : lumqt::themeColor(Purpose::SplitterFrame));
        return;
    }
    painter.setPen(m_pen);
    painter.setBrush(m_brush);
    const int width = lumqt::boundedPixels(m_pen.width());
    painter.drawRect(rect().marginsRemoved(QMargins(0, -width, width, width)));
}
