#include "CBPImageButton.h"

#include "ENState.h"
#include "foundation/FocusMark.h"
#include "foundation/FocusRing.h"
#include "foundation/ImageLoader.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"

#include <QFontMetrics>
#include <QPaintEngine>
#include <QPainter>

namespace {

// Look and metrics, in logical pixels.
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
    if (m_ringInside)
        lumqt::drawFocusRing(painter, rect(), cornerRadius(), cornerRadius());
    m_paintedImage = QSize();
}

void CBPImageButton::drawImage(QPainter &painter)
{
    const QPixmap &pixmap = m_image->pixmap(m_images, m_index, ratioOf(painter));
    m_paintedImage = m_image->size();
    if (m_paintedImage.isEmpty())
        return;
    const QPoint place = imagePlace(m_paintedImage);
    if (m_turnsImage && isRightToLeft())
        painter.drawPixmap(place, pixmap.transformed(QTransform::fromScale(-1, 1)));
    else
        painter.drawPixmap(place, pixmap);
}

QSize CBPImageButton::imageSize(int index) const
{
    return lumqt::pictureSize(m_images.value(index), devicePixelRatioF());
}

QPoint CBPImageButton::imagePlace(const QSize &image) const
{
    const int x = (m_round ? height() / 2 : m_leftMargin) + m_border;
    const int y = (height() - image.height()) / 2 + m_iconVoffset;
    return QPoint((m_mirrors || m_turnsImage) && isRightToLeft() ? width() - x - image.width() : x, y);
}

QRect CBPImageButton::textPlace(const QSize &image) const
{
    QPoint start(m_textIndent, image.height() + m_spacing);
    if (m_besideImage)
        start = QPoint(image.width() + (m_round ? height() / 2 : 0) + m_spacing + m_leftMargin + m_border, 0);
    const QRect place(start, rect().bottomRight());
    if (!m_mirrors || !isRightToLeft())
        return place;
    const int advance = QFontMetrics(paintedFont()).horizontalAdvance(m_text);
    return QRect(width() - start.x() - advance, start.y(), advance, place.height());
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
    if (!painter || m_text.isEmpty() || m_images.size() != kStates ||
        (m_ownTextColors && m_textColors.size() != kStates))
        return;
    const QSize image = m_paintedImage.isValid() ? m_paintedImage : imageSize(m_index);
    if (!m_textLayout)
        m_textLayout = std::make_unique<lumqt::CachedText>();
    painter->setPen(m_ownTextColors ? m_textColors.at(m_index)
                                    : lumqt::themeColor(lumqt::Purpose(m_textPurpose), m_index));
    m_textLayout->drawLeft(*painter, textPlace(image), m_text, paintedFont());
}

void CBPImageButton::PaintSpecialIcon(QPainter *painter)
{
    if (painter && m_specialIconShown)
        lumqt::drawDotBadge(*painter, rect().topRight() + kDotOffset,
                            m_specialIconPurpose < 0
                                ? m_specialIconColor
                                : lumqt::themeColor(lumqt::Purpose(m_specialIconPurpose)));
}

void CBPImageButton::updateRing()
{
    placeRing();
    update();
}

// At the edge of the button, or around it where image or text reach that far.
void CBPImageButton::placeRing()
{
    const bool shown = m_focusMark == lumqt::FocusMark::Shown && m_shown;
    m_ringInside = shown && hasRingRoom();
    lumqt::setRingAround(this, shown && !m_ringInside);
}

bool CBPImageButton::hasRingRoom() const
{
    if (m_images.size() != kStates)
        return true; // neither image nor text
    const QPixmap picture = lumqt::loadPixmap(m_images.at(m_index), devicePixelRatioF());
    const QSize image = lumqt::logicalSize(picture);
    const QFont font = paintedFont();
    const QRect place = textPlace(image);
    const QPoint line(place.x(), place.y() + (place.height() - QFontMetrics(font).height()) / 2);
    return lumqt::hasRingRoom(rect(), lumqt::inkOfPicture(picture, imagePlace(image))) &&
           lumqt::hasRingRoom(rect(), lumqt::inkOfLine(m_text, font, line));
}
