// The shape of a menu, and that of its window where nothing composes windows.

#include "CBPMenu.h"

#include "foundation/Painting.h"
#include "menus/MenuMetrics.h"
#include "platform/Platform.h"

#include <QBitmap>
#include <QPainter>
#include <QResizeEvent>

using lumqt::boundedPixels;

QRect CBPMenu::bodyRect() const
{
    return m_subLevel ? rect().adjusted(lumqt::kMenuSubLevelInset, 0, -lumqt::kMenuSubLevelInset, 0) : rect();
}

// The square part of a menu's body: it hides the upper round corners, the bottom strip keeps the lower ones.
QRect CBPMenu::innerRect() const
{
    const int border = boundedPixels(m_borderWidth);
    return m_subLevel ? QRect() : rect().adjusted(border, border, -border, -boundedPixels(m_bottomHeight));
}

// The body with its round corners. Only these are drawn: a menu with hundreds of items is far higher than the
// screen, and a bitmap of all of it would be made for each item that is added while it is open.
QRegion CBPMenu::bodyShape() const
{
    const QRect body = bodyRect();
    const int radius = boundedPixels(m_radius);
    const QSize size = body.size().boundedTo(QSize(2 * radius, 2 * radius));
    if (size.isEmpty())
        return body;
    QBitmap bitmap(size);
    bitmap.clear();
    QPainter painter(&bitmap);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(QRect(QPoint(), size), radius, radius);
    painter.end();

    const QRegion round(bitmap);
    const QSize quarter((size.width() + 1) / 2, (size.height() + 1) / 2);
    const QPoint opposite(body.width() - size.width(), body.height() - size.height());
    QRegion shape(body);
    for (const bool right : {false, true}) {
        for (const bool low : {false, true}) {
            const QRect corner(QPoint(right ? size.width() - quarter.width() : 0,
                                      low ? size.height() - quarter.height() : 0),
                               quarter);
            const QPoint way = body.topLeft() + QPoint(right ? opposite.x() : 0, low ? opposite.y() : 0);
            shape -= (QRegion(corner) - round).translated(way);
        }
    }
    return shape;
}

// Without a compositor what is transparent shows black: the window itself then gets the menu's shape.
void CBPMenu::updateMask()
{
    if (!m_opaque || size().isEmpty())
        clearMask();
    else
        setMask(bodyShape() + innerRect());
}

void CBPMenu::showEvent(QShowEvent *event)
{
    QMenu::showEvent(event);
    const bool opaque = !lumqt::platform::answers().composited();
    if (opaque == m_opaque)
        return;
    m_opaque = opaque;
    updateMask();
}

void CBPMenu::resizeEvent(QResizeEvent *event)
{
    QMenu::resizeEvent(event);
    if (m_opaque && event->size() != event->oldSize())
        updateMask();
}
