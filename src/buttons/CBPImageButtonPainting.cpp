#include "CBPImageButton.h"

#include "ENState.h"
#include "foundation/FocusMark.h"
#include "foundation/ImageLoader.h"
#include "foundation/Painting.h"

#include <QPaintEngine>
#include <QPainter>

namespace {

// Look and metrics, in logical pixels.
constexpr int kFocusRingWidth = 2;
constexpr int kFocusRingRadius = 3; // of a button with square corners
constexpr int kFrameWidth = 1;
const QPoint kDotOffset(-12, 4); // from the top right pixel

// Of what is painted on in the end. Asking the widget takes a walk to its window, for each button of many.
qreal ratioOf(const QPainter &painter)
{
    const QPaintDevice *surface = painter.paintEngine() ? painter.paintEngine()->paintDevice() : nullptr;
    return surface ? surface->devicePixelRatioF() : 1.0;
}

} // namespace

void CBPImageButton::paintEvent(QPaintEvent *event)
{
    if (!m_shown) {
        QWidget::paintEvent(event); // NOLINT(bugprone-parent-virtual-call)
        return;
    }
    followEnabled();
    if (!isEnabled())
        m_index = ENStateDisable;
    QPainter painter(this);
    PaintBkg(&painter);
    if (m_images.size() == kStates)
        drawImage(painter);
    DrawTextW(&painter);
    PaintSpecialIcon(&painter);
    if (m_focusMark == lumqt::FocusMark::Shown)
        drawFocusRing(painter);
    m_paintedImage = QSize();
}

void CBPImageButton::drawImage(QPainter &painter)
{
    const QPixmap &pixmap = m_image->pixmap(m_images, m_index, ratioOf(painter));
    m_paintedImage = m_image->size();
    if (m_paintedImage.isEmpty())
        return;
    const int x = (m_round ? height() / 2 : m_leftMargin) + m_border;
    const int y = (height() - m_paintedImage.height()) / 2 + m_iconVoffset;
    painter.drawPixmap(x, y, pixmap);
}

void CBPImageButton::PaintBkg(QPainter *painter)
{
    if (!painter)
        return;
    if (m_bkgBrushes.size() == kStates)
        drawBackground(*painter, m_bkgBrushes.at(m_index));
    else if (m_bkgColors.size() == kStates)
        drawBackground(*painter, m_bkgColors.at(m_index));
}

int CBPImageButton::cornerRadius() const
{
    return m_round ? height() / 2 : qMax(0, m_borderRadius);
}

void CBPImageButton::drawBackground(QPainter &painter, const QBrush &brush)
{
    lumqt::Body body;
    if (m_borderColors.size() == kStates)
        body.frame = m_borderColors.at(m_index);
    else if (!m_borderColors.isEmpty() && painter.pen().style() != Qt::NoPen)
        body.frame = painter.pen().color();
    body.frameWidth = kFrameWidth;
    body.radiusX = body.radiusY = cornerRadius();
    if (brush.style() == Qt::SolidPattern) {
        body.fill = brush.color();
        lumqt::drawBody(painter, rect(), body);
        return;
    }
    if (brush.style() != Qt::NoBrush) {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(brush);
        painter.drawRoundedRect(rect(), body.radiusX, body.radiusY);
        painter.restore();
    }
    lumqt::drawBody(painter, rect(), body); // the frame
}

void CBPImageButton::DrawTextW(QPainter *painter)
{
    if (!painter || m_text.isEmpty() || m_images.size() != kStates || m_textColors.size() != kStates)
        return;
    const QSize image = m_paintedImage.isValid() ? m_paintedImage : imageSize(m_index);
    QPoint start(m_textIndent, image.height() + m_spacing);
    if (m_besideImage) {
        start = QPoint(image.width() + (m_round ? height() / 2 : 0) + m_spacing + m_leftMargin + m_border, 0);
    }
    if (!m_textLayout)
        m_textLayout = std::make_unique<lumqt::CachedText>();
    painter->setPen(m_textColors.at(m_index));
    m_textLayout->drawLeft(*painter, QRect(start, rect().bottomRight()), m_text, paintedFont());
}

void CBPImageButton::PaintSpecialIcon(QPainter *painter)
{
    if (painter && m_specialIconShown)
        lumqt::drawDotBadge(*painter, rect().topRight() + kDotOffset, m_specialIconColor);
}

void CBPImageButton::drawFocusRing(QPainter &painter) const
{
    lumqt::Body ring;
    ring.frame = QColor(lumqt::kFocusRingColor);
    ring.frameWidth = kFocusRingWidth;
    ring.radiusX = ring.radiusY = cornerRadius() > 0 ? cornerRadius() : kFocusRingRadius;
    lumqt::drawBody(painter, rect(), ring);
}
