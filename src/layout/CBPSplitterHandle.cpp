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
    const int width = lumqt::boundedPixels(m_pen.width());
    // The upper edge goes up, out of the handle: only the sides and the lower edge are meant to be seen.
    lumqt::drawOutlined(painter, rect().marginsRemoved(QMargins(0, -width, width, width)), m_pen, m_brush);
}
