#include "frames/TitleLabel.h"

#include "foundation/ElidedText.h"

#include <QPainter>
#include <QStyle>

namespace lumqt {

TitleLabel::TitleLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setMinimumWidth(1);
}

bool TitleLabel::isCut() const
{
    return fontMetrics().horizontalAdvance(text()) > contentsRect().width();
}

bool TitleLabel::event(QEvent *event)
{
    return showWholeText(this, event, text(), isCut()) || QLabel::event(event);
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
