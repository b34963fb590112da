#include "foundation/IconPixmap.h"

#include <QCoreApplication>
#include <QWidget>

namespace lumqt {

QPixmap iconPixmap(const QIcon &icon, const QSize &size, QIcon::Mode mode, const QWidget *widget)
{
    if (icon.isNull() || size.isEmpty())
        return QPixmap();
    const qreal ratio = widget->devicePixelRatioF();
    if (ratio <= 1.0 || QCoreApplication::testAttribute(Qt::AA_UseHighDpiPixmaps))
        return icon.pixmap(widget->window()->windowHandle(), size, mode);
    QPixmap pixmap = icon.pixmap(size * ratio, mode);
    // An icon without a picture that large answers with a smaller one.
    const qreal got = qMax(pixmap.width() / qreal(size.width()), pixmap.height() / qreal(size.height()));
    pixmap.setDevicePixelRatio(qMax(1.0, got));
    return pixmap;
}

} // namespace lumqt
