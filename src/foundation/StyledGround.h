#pragma once

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QStyleOption>

// What the style sheet of an application, which means its own labels, does to ours. GUI thread only.
namespace lumqt {

// For the event handler of a label that only stands in for a part of ours, after its base class: no
// ground and no border behind it.
inline void refuseStyledGround(QWidget *part, const QEvent *event)
{
    if (event->type() == QEvent::Polish || event->type() == QEvent::StyleChange)
        part->setAttribute(Qt::WA_StyledBackground, false);
}

// For the paint event of a label that is as large as its picture: paints it where the padding or the border
// of a style sheet leaves the picture too little room, and says whether it did.
inline bool paintsWholePicture(QLabel &label)
{
    QPixmap picture = label.pixmap(Qt::ReturnByValue);
    const QSizeF size = QSizeF(picture.size()) / picture.devicePixelRatio();
    const auto hasRoom = [size](const QRect &room) {
        return size.width() <= room.width() && size.height() <= room.height();
    };
    if (picture.isNull() || label.hasScaledContents() || !hasRoom(label.rect()) ||
        hasRoom(label.contentsRect()))
        return false;
    QStyleOption option;
    option.initFrom(&label);
    if (!label.isEnabled())
        picture = label.style()->generatedIconPixmap(QIcon::Disabled, picture, &option);
    QPainter painter(&label);
    label.style()->drawItemPixmap(&painter, label.rect(), Qt::AlignCenter, picture);
    return true;
}

} // namespace lumqt
