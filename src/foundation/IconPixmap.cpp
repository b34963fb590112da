#include "foundation/IconPixmap.h"

#include "foundation/Palette.h"
#include "foundation/QtCompat.h"

#include <QPainter>
#include <QWidget>

namespace lumqt {

namespace {

// Whether an icon has no disabled picture, and Qt makes one in the application's palette: for the ground that
// this has, which is not that of the theme. Of an icon that does not tell what it has, nobody knows.
bool isMadeForOtherGround(const QIcon &icon, QIcon::Mode mode)
{
    return mode == QIcon::Disabled && disabledOpacity(1) < 1 &&
           icon.availableSizes(QIcon::Disabled).isEmpty() && !icon.availableSizes().isEmpty();
}

QPixmap paler(const QPixmap &picture)
{
    QPixmap result(picture.size());
    result.setDevicePixelRatio(picture.devicePixelRatio());
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setOpacity(disabledOpacity(1));
    painter.drawPixmap(0, 0, picture);
    return result;
}

} // namespace

QPixmap iconPixmap(const QIcon &icon, const QSize &size, QIcon::Mode mode, const QWidget *widget)
{
    if (icon.isNull() || size.isEmpty())
        return QPixmap();
    if (isMadeForOtherGround(icon, mode))
        return paler(iconPixmap(icon, size, QIcon::Normal, widget));
    const qreal ratio = widget->devicePixelRatioF();
    if (ratio <= 1.0 || iconsAreDense())
        return densePixmap(icon, size, mode, *widget);
    QPixmap pixmap = icon.pixmap(size * ratio, mode);
    // An icon without a picture that large answers with a smaller one.
    const qreal got = qMax(pixmap.width() / qreal(size.width()), pixmap.height() / qreal(size.height()));
    pixmap.setDevicePixelRatio(qMax(1.0, got));
    return pixmap;
}

} // namespace lumqt
