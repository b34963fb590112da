#include "CBPMenu.h"

#include "foundation/IconPixmap.h"
#include "foundation/ImageLoader.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "menus/MenuTexts.h"
#include "platform/Platform.h"

#include <QBitmap>
#include <QCursor>
#include <QPainter>
#include <QPainterPath>
#include <QPaintEvent>
#include <QPointer>
#include <QStyle>
#include <QWidgetAction>

using lumqt::boundedPixels;
using lumqt::logicalSize;
using lumqt::paintedPixmap;
using lumqt::Purpose;

namespace {

constexpr int kBodyIndex = 0;  // of the background colours
constexpr int kHoverIndex = 2; // of the background colours
constexpr int kSubLevelInset = 2;
constexpr int kCornerRoom = 2;    // between the plain part of a highlight and round corners
constexpr int kLargestIcon = 255; // side
constexpr int kArrowMargin = 8;   // between the arrow and the right edge
constexpr int kGapBehindText = 6; // to the badge or the arrow
constexpr int kSeparatorIndent = 10;
constexpr qreal kDisabledOpacity = 0.4;
constexpr int kScrollArrowWidth = 10;
constexpr int kScrollArrowHeight = 5;

int centred(const QRect &rect, int height)
{
    return rect.y() + (rect.height() - height) / 2;
}

// Size of an icon that came without a file name. Beside an ordinary picture an icon holds, for screens of
// high density, the same one with two or three times the pixels; the size on the screen is that of the
// ordinary one.
QSize iconSize(const QIcon &icon, const QWidget *menu)
{
    const QSize largest(kLargestIcon, kLargestIcon);
    const QSize size = icon.actualSize(largest);
    const QList<QSize> pictures = icon.availableSizes();
    if (pictures.isEmpty() && (size.width() == kLargestIcon || size.height() == kLargestIcon)) {
        // A drawing without a size of its own would fill several items.
        const int side = menu->style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, menu);
        return icon.actualSize(QSize(side, side));
    }
    if (menu->devicePixelRatioF() > 1.0) {
        for (const int times : {3, 2})
            if (size.width() % times == 0 && pictures.contains(size / times))
                return size / times;
    }
    return size;
}

void drawScrollArrow(QPainter *painter, const QRect &area, bool down, const QColor &color)
{
    if (area.isEmpty())
        return;
    painter->save();
    painter->translate(area.x() + (area.width() - kScrollArrowWidth) / 2.0,
                       area.y() + (area.height() - kScrollArrowHeight) / 2.0 +
                           (down ? 0 : kScrollArrowHeight));
    painter->scale(1.0, down ? 1.0 : -1.0);
    lumqt::drawDropTriangle(*painter, QPointF(), kScrollArrowWidth, kScrollArrowHeight, color);
    painter->restore();
}

} // namespace

// Where a menu taller than the screen scrolls; empty where nothing more follows.
struct CBPMenu::ScrollAreas
{
    QRect up;
    QRect down;

    bool contain(const QPoint &pos) const { return up.contains(pos) || down.contains(pos); }
};

struct CBPMenu::ItemView
{
    QAction *action;
    QRect rect;
    bool hovered;
};

QColor CBPMenu::bodyColor() const
{
    QColor color = background(kBodyIndex);
    if (m_opaque)
        color.setAlpha(255);
    return color;
}

// What antialiased corners blend into where the mask cuts them.
QColor CBPMenu::edgeColor() const
{
    QColor color = m_borderColor;
    color.setAlpha(255);
    return !m_subLevel && m_borderWidth > 0 && m_borderColor.isValid() ? color : bodyColor();
}

QRect CBPMenu::bodyRect() const
{
    return m_subLevel ? rect().adjusted(kSubLevelInset, 0, -kSubLevelInset, 0) : rect();
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

CBPMenu::ScrollAreas CBPMenu::scrollAreas() const
{
    QRect first;
    QRect last;
    const auto all = actions();
    for (auto it = all.begin(); it != all.end() && first.isNull(); ++it)
        first = actionGeometry(*it);
    for (auto it = all.rbegin(); it != all.rend() && last.isNull(); ++it)
        last = actionGeometry(*it);
    ScrollAreas areas;
    const int height = style()->pixelMetric(QStyle::PM_MenuScrollerHeight, nullptr, this);
    if (first.top() < 0)
        areas.up = QRect(0, 0, width(), height);
    if (last.bottom() > rect().bottom())
        areas.down = QRect(0, rect().bottom() + 1 - height, width(), height);
    return areas;
}

// The item to highlight: QMenu's active action, else the one under the cursor. QMenu keeps its active action
// in step with the mouse, so the two differ only where the highlight must not follow the cursor: the keyboard
// moved it last, or the cursor is on its way into an open sub-menu. There is no active action before the
// mouse moves over a menu that opened under it.
QAction *CBPMenu::hoveredAction() const
{
    QAction *action = activeAction();
    if (!action) {
        const QPoint cursor = mapFromGlobal(QCursor::pos());
        if (rect().contains(cursor) && !scrollAreas().contain(cursor))
            action = actionAt(cursor);
    }
    return action && action->isEnabled() && !action->isSeparator() ? action : nullptr;
}

// Repaints what gained and lost the highlight since the last paint, except `painted`. QMenu repaints its old
// and new active action, but knows nothing of an item that is highlighted because the cursor lies on it.
void CBPMenu::followHover(QAction *hovered, const QRegion &painted)
{
    if (hovered == m_shownHover)
        return;
    QRegion dirty;
    for (QAction *action : {m_shownHover.data(), hovered})
        if (action)
            dirty += actionGeometry(action);
    m_shownHover = hovered;
    dirty = dirty.intersected(rect()).subtracted(painted);
    if (!dirty.isEmpty())
        update(dirty);
}

void CBPMenu::mouseMoveEvent(QMouseEvent *event)
{
    const QPointer<CBPMenu> alive(this); // slots of hovered() run any code
    QMenu::mouseMoveEvent(event);
    if (alive)
        followHover(hoveredAction(), QRegion());
}

void CBPMenu::enterEvent(lumqt::EnterEvent *event)
{
    const QPointer<CBPMenu> alive(this);
    QMenu::enterEvent(event);
    if (alive)
        followHover(hoveredAction(), QRegion());
}

void CBPMenu::leaveEvent(QEvent *event)
{
    const QPointer<CBPMenu> alive(this);
    QMenu::leaveEvent(event);
    if (alive)
        followHover(hoveredAction(), QRegion());
}

void CBPMenu::paintEvent(QPaintEvent *event)
{
    m_mayBeTorn |= isTearOffEnabled();
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(event->rect(), m_opaque ? edgeColor() : QColor(Qt::transparent));
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setLayoutDirection(layoutDirection()); // else the application's
    painter.setPen(Qt::NoPen);
    painter.setBrush(bodyColor());
    paintBody(&painter);

    const ScrollAreas areas = scrollAreas();
    if (!areas.up.isEmpty() || !areas.down.isEmpty())
        painter.setClipRegion(QRegion(rect()) - areas.up - areas.down);

    QVector<ItemView> items;
    QAction *const hovered = hoveredAction();
    const auto all = actions();
    items.reserve(all.size());
    for (QAction *action : all) {
        const QRect geometry = actionGeometry(action); // null for one that is hidden
        if (!geometry.isNull())
            items.append({action, geometry, action == hovered});
    }
    for (int i = 0; i < items.size(); ++i) {
        const ItemView &item = items.at(i);
        if (!event->region().intersects(item.rect))
            continue;
        if (item.action->isSeparator()) {
            paintSeparator(&painter, item.rect);
            continue;
        }
        if (item.hovered)
            PaintAction(&painter, item.rect, i, items.size());
        if (!qobject_cast<QWidgetAction *>(item.action)) // those bring their own widget
            paintItem(&painter, item);
    }
    painter.setClipping(false);
    drawScrollArrow(&painter, areas.up, false, textColor(false));
    drawScrollArrow(&painter, areas.down, true, textColor(false));
    if (m_borderWidth <= 0 || m_subLevel)
        paintFrame(&painter);
    followHover(hovered, event->region());
}

void CBPMenu::paintBody(QPainter *painter)
{
    lumqt::Body body;
    body.fill = bodyColor();
    body.radiusX = body.radiusY = boundedPixels(m_radius);
    if (!m_subLevel && m_borderWidth > 0) {
        body.frame = m_borderColor;
        body.frameWidth = boundedPixels(m_borderWidth);
    }
    lumqt::drawBody(*painter, bodyRect(), body);
    const QRect inner = innerRect();
    if (inner.isEmpty())
        return;
    // Up to the frame, which is as many device pixels thick at each side.
    const qreal ratio = painter->device()->devicePixelRatioF();
    const qreal border = body.frame.isValid() ? qMax(1, qRound(body.frameWidth * ratio)) / ratio : 0;
    QRectF fill = lumqt::wholeDevicePixels(*painter, QRectF(rect())).adjusted(border, border, -border, 0);
    fill.setBottom(lumqt::wholeDevicePixels(*painter, QRectF(inner)).bottom());
    painter->fillRect(fill, bodyColor());
}

// The theme's, over the items, around the shape that the body has: its upper corners may be square.
void CBPMenu::paintFrame(QPainter *painter)
{
    lumqt::Body frame;
    frame.frame = lumqt::themeColor(Purpose::MenuFrame);
    if (frame.frame.alpha() == 0)
        return;
    const QRect inner = innerRect();
    if (!inner.isEmpty()) {
        painter->setClipRect(QRect(rect().topLeft(), inner.bottomRight()));
        lumqt::drawBody(*painter, rect(), frame);
        painter->setClipRegion(QRegion(rect()) - QRect(rect().topLeft(), inner.bottomRight()));
    }
    frame.radiusX = frame.radiusY = boundedPixels(m_radius);
    lumqt::drawBody(*painter, bodyRect(), frame);
    painter->setClipping(false);
}

// Else it is that of the other texts, dimmed.
bool CBPMenu::hasOwnDisabledText() const
{
    return !m_textColor.isValid() &&
           lumqt::themeColor(Purpose::MenuTextDisabled) != lumqt::themeColor(Purpose::MenuText);
}

QColor CBPMenu::itemTextColor(const ItemView &item) const
{
    return !item.action->isEnabled() && hasOwnDisabledText() ? lumqt::themeColor(Purpose::MenuTextDisabled)
                                                             : textColor(item.hovered);
}

QPixmap CBPMenu::itemPixmap(QAction *action, bool hovered)
{
    const qreal ratio = devicePixelRatioF();
    QString file;
    if (GetActionRes(action->data(), hovered ? ENStateHover : ENStateNormal, file)) {
        const QPixmap pixmap = paintedPixmap(file, ratio);
        if (!pixmap.isNull())
            return pixmap;
    }
    if (const auto *item = qobject_cast<CBPMenuItem *>(action)) {
        const QPixmap pixmap = paintedPixmap(item->iconFile(), ratio);
        const QSize size = logicalSize(pixmap);
        if (!pixmap.isNull() && size.width() <= kLargestIcon && size.height() <= kLargestIcon)
            return pixmap;
    }
    const QIcon icon = action->icon();
    return icon.isNull() ? QPixmap() : lumqt::iconPixmap(icon, iconSize(icon, this), QIcon::Normal, this);
}

// Places are as if the menu ran from left to right; in one that runs the other way an item is mirrored about
// its middle, its texts and images themselves excepted.
void CBPMenu::paintItem(QPainter *painter, const ItemView &item)
{
    const QRect &rect = item.rect;
    const auto place = [this, &rect](int x, const QSize &size) {
        return QStyle::visualRect(layoutDirection(), rect,
                                  QRect(QPoint(x, centred(rect, size.height())), size));
    };
    const bool enabled = item.action->isEnabled();
    const bool ownText = !enabled && hasOwnDisabledText();
    const qreal opacity = enabled ? 1.0 : lumqt::disabledOpacity(kDisabledOpacity);
    painter->setOpacity(opacity);

    int x = rect.x() + boundedPixels(m_leftMargin);
    const QPixmap image = itemPixmap(item.action, item.hovered);
    const QSize imageSize = logicalSize(image);
    if (!image.isNull())
        painter->drawPixmap(place(x, imageSize).topLeft(), image);
    x += qMax(imageSize.width(), boundedPixels(m_defIconWidth)) + boundedPixels(m_spacing);

    int end = rect.x() + rect.width();
    const bool subMenu = opensSubMenu(item.action);
    const QPixmap arrow = subMenu ? arrowPixmap() : QPixmap();
    if (!arrow.isNull()) {
        const QSize arrowSize = logicalSize(arrow);
        end -= kArrowMargin + arrowSize.width();
        painter->drawPixmap(place(end, arrowSize).topLeft(), arrow);
        end -= kGapBehindText;
    }

    lumqt::MenuTexts::Text &text = m_texts->text(item.action, m_font, end - x);
    const QRect textRect = place(x, text.size);
    const QColor color = itemTextColor(item);
    painter->setOpacity(ownText ? 1.0 : opacity);
    painter->setPen(color);
    text.layout.drawLeft(*painter, textRect, text.shown, m_font);
    if (text.underlineWidth > 0 && style()->styleHint(QStyle::SH_UnderlineShortcut, nullptr, this)) {
        const QFontMetrics metrics(m_font);
        const QRectF line(textRect.x() + text.underlineX,
                          textRect.y() + metrics.ascent() + metrics.underlinePos(), text.underlineWidth,
                          qMax(1, metrics.lineWidth()));
        painter->fillRect(lumqt::evenDevicePixels(*painter, line), color);
    }
    painter->setOpacity(opacity);
    if (!subMenu) {
        const int behind = x + text.size.width() + kGapBehindText;
        const QRect rest(behind, rect.y(), rect.x() + rect.width() - behind, rect.height());
        m_paintsHovered = item.hovered && m_bg.isEmpty();
        paintSpecialFlag(painter, item.action->data(), QStyle::visualRect(layoutDirection(), rect, rest));
        m_paintsHovered = false;
    }
    painter->setOpacity(1.0);
}

// It points to where the nested menu opens.
QPixmap CBPMenu::arrowPixmap()
{
    const QPixmap arrow = paintedPixmap(m_arrowFile, devicePixelRatioF());
    if (arrow.isNull() || !isRightToLeft())
        return arrow;
    if (m_mirroredOf != arrow.cacheKey()) {
        m_mirroredOf = arrow.cacheKey();
        m_mirroredArrow = arrow.transformed(QTransform::fromScale(-1, 1));
    }
    return m_mirroredArrow;
}

void CBPMenu::PaintAction(QPainter *painter, const QRect &rect, int index, int count)
{
    const QColor color = background(kHoverIndex);
    const QRectF fill = lumqt::wholeDevicePixels(
        *painter, QRectF(m_subLevel ? rect.adjusted(kSubLevelInset, 0, -kSubLevelInset, 0) : rect));
    if (m_opaque && (index == 0 || index == count - 1)) {
        // The window itself is round there. It may be larger by a part of a pixel.
        painter->fillRect(fill.adjusted(0, 0, 0, index == count - 1 ? 1 : 0), color);
        return;
    }
    if (!m_subLevel && (m_borderWidth > 0 || index != count - 1)) {
        painter->fillRect(fill, color);
        return;
    }
    const int cut = boundedPixels(m_radius) + kCornerRoom;
    // One path for both parts: a translucent colour must not lie twice where they overlap.
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addRoundedRect(fill, m_radius, m_radius);
    QRectF plain; // none on a nested menu with one item
    if (!m_subLevel || index > 0)
        plain = fill.adjusted(0, 0, 0, -cut);
    else if (count > 1)
        plain = fill.adjusted(0, cut, 0, 0);
    if (!plain.isEmpty())
        path.addRect(plain);
    painter->fillPath(path, color);
}

void CBPMenu::paintSeparator(QPainter *painter, const QRect &rect)
{
    if (m_separatorHeight < 1 || m_separatorRectHeight < m_separatorHeight)
        return;
    const int left = rect.x() + kSeparatorIndent;
    const int right = rect.right() - kSeparatorIndent;
    const int thickness = boundedPixels(m_separatorHeight);
    // The rows that a pen of this width covers whose middle is where a line of it would begin: thick lines
    // lie higher than centred.
    const int top = centred(rect, thickness) - thickness / 2;
    const QRectF line(left, top, qMax(0, right - left + 1), thickness);
    painter->fillRect(lumqt::evenDevicePixels(*painter, line), lumqt::themeColor(Purpose::MenuSeparator));
}

void CBPMenu::paintSpecialFlag(QPainter *painter, const QVariant &itemData, const QRect &rect)
{
    QString file;
    if (!IsActionSpecial(itemData, file))
        return;
    const QPixmap image = paintedPixmap(file, devicePixelRatioF());
    const int width = file.isEmpty() ? lumqt::kDotBadgeSize : logicalSize(image).width();
    const int height = file.isEmpty() ? lumqt::kDotBadgeSize : logicalSize(image).height();
    const int x = isRightToLeft() ? rect.x() + rect.width() - width : rect.left();
    if (file.isEmpty())
        lumqt::drawDotBadge(*painter, QPoint(x, centred(rect, height)),
                            lumqt::themeColor(m_paintsHovered ? Purpose::MenuBadgeHovered : Purpose::Badge));
    else if (!image.isNull())
        painter->drawPixmap(x, centred(rect, height), image);
}
