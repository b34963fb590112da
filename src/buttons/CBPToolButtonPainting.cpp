#include "CBPToolButton.h"

#include "foundation/FocusMark.h"
#include "foundation/FocusRing.h"
#include "foundation/ImageLoader.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"

#include <QPainter>
#include <QResizeEvent>

namespace {

constexpr int kArrowGap = 3; // behind a text below its image, in logical pixels

} // namespace

void CBPToolButton::paintEvent(QPaintEvent *event)
{
    CBPStateWidget::paintEvent(event);
    QPainter painter(this);
    drawContent(painter);
    if (!m_ringInside)
        return;
    double radiusX = 0;
    double radiusY = 0;
    GetRoundRadius(radiusX, radiusY);
    lumqt::drawFocusRing(painter, rect(), radiusX, radiusY);
}

void CBPToolButton::resizeEvent(QResizeEvent *event)
{
    updateRing();
    CBPStateWidget::resizeEvent(event);
}

// At the edge of the button, or around it where image or text reach that far.
void CBPToolButton::updateRing()
{
    const bool shown = m_focusMark == lumqt::FocusMark::Shown;
    if (!shown && !m_ringShown)
        return;
    m_ringShown = shown;
    m_ringInside = shown && hasRingRoom();
    lumqt::setRingAround(this, shown && !m_ringInside);
    update();
}

bool CBPToolButton::hasRingRoom() const
{
    const QPixmap image = lumqt::loadPixmap(m_images.value(state()), devicePixelRatioF());
    const QSize size = m_images.isEmpty() ? QSize() : lumqt::logicalSize(image);
    return lumqt::hasRingRoom(rect(), lumqt::inkOfPicture(image, imagePosition(size))) &&
           lumqt::hasRingRoom(rect(), lumqt::inkOfLine(m_text, m_font, textPosition(size)));
}

QColor CBPToolButton::paintedTextColor() const
{
    const QColor own = m_textColors.value(state());
    return own.isValid() ? own : lumqt::themeColor(lumqt::Purpose::ToolText, state());
}

void CBPToolButton::drawContent(QPainter &painter)
{
    const QPixmap image =
        m_images.size() > state() ? m_image->pixmap(m_images, state(), devicePixelRatioF()) : QPixmap();
    const QSize imageSize = m_images.isEmpty() ? QSize() : lumqt::logicalSize(image);
    if (m_align == ENAlignLeft || m_align == ENAlignTop) {
        if (!image.isNull())
            painter.drawPixmap(imagePosition(imageSize), image);
        painter.setPen(paintedTextColor());
        m_label->drawCentred(painter, QRect(textPosition(imageSize), m_textSize), m_text, m_font);
    }
    if (m_hasMenu)
        lumqt::drawDropTriangle(painter, arrowPosition(imageSize), m_arrowWidth, m_arrowHeight,
                                paintedTextColor());
}

// `image` is its size, invalid without images; so are the two below.
QPoint CBPToolButton::imagePosition(const QSize &image) const
{
    if (m_align == ENAlignLeft)
        return QPoint(m_left, (height() - image.height()) / 2);
    if (m_align == ENAlignTop && !m_images.isEmpty())
        return QPoint((width() - image.width()) / 2,
                      (height() - image.height() - m_spacing - m_textSize.height()) / 2);
    return QPoint(0, 0);
}

QPoint CBPToolButton::textPosition(const QSize &image) const
{
    if (m_align == ENAlignLeft)
        return QPoint((m_images.isEmpty() ? 0 : m_left) + image.width() + m_spacing,
                      (height() - m_textSize.height()) / 2);
    if (m_align == ENAlignTop)
        return QPoint((width() - m_textSize.width()) / 2,
                      imagePosition(image).y() + image.height() + m_spacing);
    return QPoint(0, 0);
}

QPoint CBPToolButton::arrowPosition(const QSize &image) const
{
    const int textWidth = m_textSize.width();
    if (m_align == ENAlignLeft) {
        const int content = image.width() + textWidth + m_spacing;
        return QPoint((width() - content) / 2 + content, (height() - m_arrowHeight) / 2);
    }
    if (m_align == ENAlignTop) {
        const int above = image.height() + m_spacing;
        return QPoint((width() - textWidth) / 2 + textWidth + kArrowGap,
                      (height() - above - m_textSize.height()) / 2 + above + m_textSize.height() / 2);
    }
    return QPoint(0, 0);
}
