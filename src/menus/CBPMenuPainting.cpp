#include "CBPMenu.h"

#include "foundation/IconPixmap.h"
#include "foundation/ImageLoader.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "menus/MenuMetrics.h"
#include "menus/MenuTexts.h"

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

constexpr int kBodyIndex = 0;     // of the background colours
constexpr int kHoverIndex = 2;    // of the background colours
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
    QRect first; // item that has a place
    QRect last;
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

// Null for an item that is hidden. QMenu goes through its items to the one that it is asked for: whoever asks
// for each makes a menu slow that has thousands.
QRect CBPMenu::placeOf(QAction *action) const
{
    return action->isVisible() ? actionGeometry(action) : QRect();
}

// In a menu of one column: the index of the first item that does not end above `y`.
int CBPMenu::firstFrom(const QList<QAction *> &actions, int y) const
{
    int low = 0;
    int high = actions.size();
    while (low < high) {
        const int middle = low + (high - low) / 2;
        int shown = middle; // or the next one that has a place
        QRect place = placeOf(actions.at(shown));
        while (place.isNull() && ++shown < high)
            place = placeOf(actions.at(shown));
        if (shown < high && place.bottom() < y)
            low = shown + 1;
        else
            high = middle;
    }
    return low;
}

QVector<CBPMenu::ItemView> CBPMenu::itemsIn(const QRegion &region, const QAction *hovered) const
{
    QVector<ItemView> items;
    const auto all = actions();
    const QRect area = region.boundingRect();
    const bool oneColumn = style()->styleHint(QStyle::SH_Menu_Scrollable, nullptr, this);
    for (int i = oneColumn ? firstFrom(all, area.top()) : 0; i < all.size(); ++i) {
        const QRect place = placeOf(all.at(i));
        if (place.isNull()) // which may be anywhere
            continue;
        if (oneColumn && place.top() > area.bottom())
            break;
        if (region.intersects(place))
            items.append({all.at(i), place, all.at(i) == hovered});
    }
    return items;
}

CBPMenu::ScrollAreas CBPMenu::scrollAreas() const
{
    ScrollAreas areas;
    const auto all = actions();
    for (auto it = all.begin(); it != all.end() && areas.first.isNull(); ++it)
        areas.first = placeOf(*it);
    for (auto it = all.rbegin(); it != all.rend() && areas.last.isNull(); ++it)
        areas.last = placeOf(*it);
    const int height = style()->pixelMetric(QStyle::PM_MenuScrollerHeight, nullptr, this);
    if (areas.first.top() < 0)
        areas.up = QRect(0, 0, width(), height);
    if (areas.last.bottom() > rect().bottom())
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

    QAction *const hovered = hoveredAction();
    paintItems(&painter, itemsIn(event->region(), hovered), areas);
    painter.setClipping(false);
    drawScrollArrow(&painter, areas.up, false, textColor(false));
    drawScrollArrow(&painter, areas.down, true, textColor(false));
    if (m_borderWidth <= 0 || m_subLevel)
        paintFrame(&painter);
    followHover(hovered, event->region());
}

void CBPMenu::paintItems(QPainter *painter, const QVector<ItemView> &items, const ScrollAreas &areas)
{
    for (const ItemView &item : items) {
        if (item.action->isSeparator()) {
            paintSeparator(painter, item.rect);
            continue;
        }
        if (item.hovered) { // what counts is whether it is the first or the last one
            const int count = areas.first == areas.last ? 1 : 3;
            const int index = item.rect == areas.first ? 0 : item.rect == areas.last ? count - 1 : 1;
            PaintAction(painter, item.rect, index, count);
        }
        if (!qobject_cast<QWidgetAction *>(item.action)) // those bring their own widget
            paintItem(painter, item);
    }
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
        *painter,
        QRectF(m_subLevel ? rect.adjusted(lumqt::kMenuSubLevelInset, 0, -lumqt::kMenuSubLevelInset, 0)
                          : rect));
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
