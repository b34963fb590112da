#include "frames/TitleLabel.h"

#include "foundation/ElidedText.h"

#include <QPainter>
#include <QStyle>

namespace lumqt {

namespace {
const QChar kLeftToRight(0x200e); // a mark without a width
}

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
    QString shown = elidedLine(text(), font(), area.width());
    if (!text().isRightToLeft())
        shown += kLeftToRight; // keeps the ellipsis at the end in a window that is mirrored
    QPainter painter(this);
    style()->drawItemText(&painter, area, int(alignment()), palette(), isEnabled(), shown, foregroundRole());
}

} // namespace lumqt
