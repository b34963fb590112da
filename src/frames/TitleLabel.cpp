#include "frames/TitleLabel.h"

#include "foundation/ElidedText.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

namespace lumqt {

namespace {

constexpr QChar kVariantsMark(0x9c); // between shorter and shorter texts, of which Qt takes what fits

}

TitleLabel::TitleLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setMinimumWidth(1);
}

// Whether QLabel would lay the text out alike for each of the three widths that it measures.
bool TitleLabel::isPlainLine() const
{
    return !text().isEmpty() && !text().contains(kVariantsMark) && !text().contains(QLatin1Char('\t')) &&
           frameWidth() == 0 && indent() <= 0 && margin() == 0 && !wordWrap();
}

// As QLabel has it, with the text laid out once.
QSize TitleLabel::lineHint() const
{
    if (m_measuredText != text() || m_measuredFont != font()) {
        m_measuredText = text();
        m_measuredFont = font();
        m_textSize = fontMetrics().size(0, text());
    }
    const QMargins around = contentsMargins();
    return (m_textSize + QSize(around.left() + around.right(), around.top() + around.bottom()))
        .expandedTo(minimumSize());
}

QSize TitleLabel::sizeHint() const
{
    ensurePolished(); // a style sheet has a say in font and frame
    return isPlainLine() ? lineHint() : QLabel::sizeHint();
}

QSize TitleLabel::minimumSizeHint() const
{
    ensurePolished();
    return isPlainLine() ? lineHint() : QLabel::minimumSizeHint();
}

bool TitleLabel::isCut() const
{
    const int room = contentsRect().width();
    // What was measured need not be once more, but for the spaces at its end, which had no part in that.
    const bool isLine = m_measuredText == text() && m_measuredFont == font() && !text().isEmpty() &&
                        !text().contains(QLatin1Char('\n')) && !text().back().isSpace();
    return !(isLine && m_textSize.width() <= room) && fontMetrics().horizontalAdvance(text()) > room;
}

bool TitleLabel::event(QEvent *event)
{
    // Measured only for the event that asks; there are many others.
    const bool cut = event->type() == QEvent::ToolTip && isCut();
    return showWholeText(this, event, text(), cut) || QLabel::event(event);
}

void TitleLabel::paintEvent(QPaintEvent *event)
{
    if (!isCut()) { // also a picture
        QLabel::paintEvent(event);
        return;
    }
    const QRect area = contentsRect();
    // At the side where the window starts, and in the text's own direction: in a mirrored window the ellipsis
    // stays at the end of a text that is not.
    const int side = int(QStyle::visualAlignment(layoutDirection(), alignment()) | Qt::AlignAbsolute);
    const int reading = text().isRightToLeft() ? Qt::TextForceRightToLeft : Qt::TextForceLeftToRight;
    QPainter painter(this);
    style()->drawItemText(&painter, area, side | reading, palette(), isEnabled(),
                          elidedLine(text(), font(), area.width()), foregroundRole());
}

} // namespace lumqt
