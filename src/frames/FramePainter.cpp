#include "frames/FramePainter.h"

#include "frames/FrameGeometry.h"

#include <QPainter>

namespace lumqt::frame {

namespace {
const QColor kBorder(34, 133, 212);
const QColor kTitleFill(255, 255, 255);
const QColor kTitleLine(221, 221, 221);
} // namespace

// Lines are filled rectangles: with a pen a line lies half a pixel beside what it borders on at 150 and 200
// per cent, and the gap would show `outside`.
void paintFrame(QPainter &painter, const QSizeF &size, int fw, const QColor &outside)
{
    const qreal w = size.width();
    const qreal h = size.height();
    const int title = titleHeight(fw);
    const auto fill = [&painter](const QRectF &rect, const QColor &color) {
        if (rect.isValid())
            painter.fillRect(rect, color);
    };
    painter.save();
    // A pixel mixed with a colour that is made transparent would stay visible.
    painter.setRenderHint(QPainter::Antialiasing, false);
    fill(QRectF(QPointF(0, 0), size), outside);
    fill(QRectF(fw - 1, fw - 1, w - 2 * fw + 2, h - 2 * fw + 2), kBorder);
    fill(QRectF(fw, fw, w - 2 * fw, h - 2 * fw), outside);
    fill(QRectF(fw, fw, w - 2 * fw, title), kTitleFill);
    // Covers a pixel of the right border.
    fill(QRectF(fw, title - 1, w - 2 * fw + 1, 1), kTitleLine);
    painter.restore();
}

} // namespace lumqt::frame
