#include "CBPSplitterHandle.h"

#include "foundation/Painting.h"
#include "layout/BoxPainting.h"

#include <QPainter>

namespace {

const QColor kOutline(155, 155, 155, 205);
const QColor kFill(241, 241, 241);

} // namespace

CBPSplitterHandle::CBPSplitterHandle(Qt::Orientation orientation, QSplitter *parent)
    : QSplitterHandle(orientation, parent), m_pen(kOutline), m_brush(kFill)
{
}

CBPSplitterHandle::~CBPSplitterHandle() = default;

void CBPSplitterHandle::setColr(QPen pen, QBrush brush)
{
    m_pen = pen;
    m_brush = brush;
}

void CBPSplitterHandle::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    // The upper edge goes up, out of the handle: only the sides and the lower edge are meant to be seen.
    if (lumqt::isPlainLine(m_pen)) {
        const Qt::Edges seen = Qt::LeftEdge | Qt::RightEdge | Qt::BottomEdge;
        const QRectF inner = lumqt::fillEdges(painter, QRectF(rect()), seen, QColor());
        painter.fillRect(inner.united(QRectF(rect().topLeft(), inner.bottomRight())), m_brush);
        lumqt::fillEdges(painter, QRectF(rect()), seen, m_pen.color());
        return;
    }
    painter.setPen(m_pen);
    painter.setBrush(m_brush);
    const int width = lumqt::boundedPixels(m_pen.width());
    painter.drawRect(rect().marginsRemoved(QMargins(0, -width, width, width)));
}
