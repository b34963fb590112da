// Views: headers, rows and branches.

#include "foundation/Fade.h"
#include "foundation/Painting.h"
#include "foundation/QtCompat.h"
#include "foundation/StyleParts.h"
#include "foundation/StyleWatch.h"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QHeaderView>
#include <QIcon>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QStyleOption>
#include <QTableView>

#include <cmath>
#include <typeinfo>

namespace lumqt {

namespace {

constexpr qreal kLeastRingContrast = 3;
// Windows' own style has items selected in a ground so much darker than the view's.
constexpr int kNativeDarkness = 108;
constexpr int kSeparatorHeight = 5;
constexpr int kMarginBesidePictures = 2; // which is kept on each side of a picture and of the text

// Relative luminance, and the contrast of two colours.
qreal luminance(const QColor &color)
{
    const auto linear = [](qreal part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

qreal contrast(const QColor &one, const QColor &other)
{
    const qreal a = luminance(one) + 0.05;
    const qreal b = luminance(other) + 0.05;
    return qMax(a, b) / qMin(a, b);
}

// Qt's own delegate for such a list asks no style how its rows look.
class ListDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const QSize size = QStyledItemDelegate::sizeHint(option, index);
        if (isSeparator(index))
            return QSize(size.width(), kSeparatorHeight);
        return QSize(size.width(), qMax(size.height(), kFieldHeight));
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        if (!isSeparator(index)) {
            QStyledItemDelegate::paint(painter, option, index);
            return;
        }
        QRect line = option.rect;
        line.setBottom(line.center().y());
        fillEdges(*painter, line, Qt::BottomEdge, StyleColors(option).rule);
    }

private:
    static bool isSeparator(const QModelIndex &index) // as QComboBox::insertSeparator() marks one
    {
        return index.data(Qt::AccessibleDescriptionRole).toString() == QLatin1String("separator");
    }
};

// Of a table with a grid as thick as that, and in one line with it: Qt draws it itself.
void drawSectionRule(const Canvas &canvas, const QRect &rect, Qt::Edge edge, const QColor &color)
{
    const auto *table = qobject_cast<const QTableView *>(canvas.widget ? canvas.widget->parent() : nullptr);
    if (!table || !table->showGrid()) {
        fillEdges(canvas.painter, rect, edge, color);
        return;
    }
    const QLineF line = edge == Qt::BottomEdge ? QLineF(rect.bottomLeft(), rect.bottomRight())
                        : edge == Qt::LeftEdge ? QLineF(rect.topLeft(), rect.bottomLeft())
                                               : QLineF(rect.topRight(), rect.bottomRight());
    const QPen pen = canvas.painter.pen();
    canvas.painter.setPen(QPen(color, kGridPenWidth));
    canvas.painter.drawLine(line.translated(kGridPenWidth / 2.0, kGridPenWidth / 2.0));
    canvas.painter.setPen(pen);
}

void drawSection(const QStyleOptionHeader &option, const Canvas &canvas)
{
    const StyleColors colors(option);
    const bool enabled = option.state & QStyle::State_Enabled;
    const bool down = option.state & (QStyle::State_Sunken | QStyle::State_On);
    const bool hovered = enabled && option.state & QStyle::State_MouseOver;
    QColor ground = down ? colors.pressed : hovered ? colors.hovered : colors.raised;
    if (!down && !hovered && option.palette.isBrushSet(QPalette::Active, QPalette::Button))
        ground = option.palette.color(QPalette::Button);
    const QRectF rect = wholeDevicePixels(canvas.painter, option.rect);
    canvas.painter.fillRect(
        rect, fadedColor(controlOf<QHeaderView>(canvas).control, FadingSections + option.section, ground));
    drawSectionRule(canvas, option.rect, Qt::BottomEdge, colors.rule);
    const bool reversed = option.direction == Qt::RightToLeft;
    const int end = canvas.widget ? canvas.widget->width() - 1 : -1;
    // Where the view ends, its frame is the rule.
    if (option.orientation == Qt::Vertical || (reversed ? option.rect.left() > 0 : option.rect.right() < end))
        drawSectionRule(canvas, option.rect, reversed ? Qt::LeftEdge : Qt::RightEdge, colors.rule);
}

void drawSectionText(const QStyleOptionHeader &option, const Canvas &canvas)
{
    const int margin = canvas.style.pixelMetric(QStyle::PM_HeaderMargin, &option, canvas.widget);
    QRect text = option.rect.adjusted(margin, 0, -margin, 0);
    if (option.sortIndicator != QStyleOptionHeader::None)
        text.setRight(text.right() - kTriangleWidth - kIconGap);
    text = QStyle::visualRect(option.direction, option.rect, text);
    QStyleOptionHeader inner(option);
    inner.rect = text;
    if (!option.icon.isNull()) {
        const int side = canvas.style.pixelMetric(QStyle::PM_SmallIconSize, &option, canvas.widget);
        QRect place(text.left(), text.top() + (text.height() - side) / 2, side, side);
        denseIcon(option.icon)
            .paint(&canvas.painter, QStyle::visualRect(option.direction, text, place), Qt::AlignCenter,
                   option.state & QStyle::State_Enabled ? QIcon::Normal : QIcon::Disabled);
        inner.rect = QStyle::visualRect(option.direction, text, text.adjusted(side + kIconGap, 0, 0, 0));
    }
    canvas.style.drawItemText(&canvas.painter, inner.rect, int(option.textAlignment), option.palette,
                              option.state & QStyle::State_Enabled, option.text, QPalette::ButtonText);
}

void drawSortArrow(const QStyleOptionHeader &option, const Canvas &canvas)
{
    if (option.sortIndicator == QStyleOptionHeader::None)
        return;
    // Qt names the indicator by where its base lies: "down" is ascending.
    const bool up = option.sortIndicator == QStyleOptionHeader::SortDown;
    drawTriangle(canvas, option.rect, up ? Qt::UpArrow : Qt::DownArrow, StyleColors(option).triangle);
}

// As the base does it, which asks itself where the parts lie, not the style around it.
void drawHeader(const QStyleOptionHeader &option, const Canvas &canvas)
{
    const QStyle &style = canvas.style;
    const QRegion clip = canvas.painter.clipRegion();
    const bool clipped = canvas.painter.hasClipping();
    canvas.painter.setClipRect(option.rect, clipped ? Qt::IntersectClip : Qt::ReplaceClip);
    style.drawControl(QStyle::CE_HeaderSection, &option, &canvas.painter, canvas.widget);
    QStyleOptionHeader part(option);
    part.rect = style.subElementRect(QStyle::SE_HeaderLabel, &option, canvas.widget);
    if (part.rect.isValid())
        style.drawControl(QStyle::CE_HeaderLabel, &part, &canvas.painter, canvas.widget);
    if (option.sortIndicator != QStyleOptionHeader::None) {
        part.rect = style.subElementRect(QStyle::SE_HeaderArrow, &option, canvas.widget);
        style.drawPrimitive(QStyle::PE_IndicatorHeaderArrow, &part, &canvas.painter, canvas.widget);
    }
    canvas.painter.setClipRegion(clip);
    canvas.painter.setClipping(clipped);
}

QPalette::ColorGroup groupOf(const QStyleOption &option)
{
    return !(option.state & QStyle::State_Enabled) ? QPalette::Disabled
           : option.state & QStyle::State_Active   ? QPalette::Active
                                                   : QPalette::Inactive;
}

bool hasNativeSelection(const QPalette &palette)
{
    return palette.color(QPalette::Active, QPalette::Highlight) ==
           palette.base().color().darker(kNativeDarkness);
}

// A table says only of the cell under the mouse that it is; where whole rows are selected, rows are hovered.
bool isHovered(const QStyleOptionViewItem &option, const Canvas &canvas)
{
    if (option.state & QStyle::State_MouseOver)
        return true;
    const auto *table = qobject_cast<const QTableView *>(canvas.widget);
    if (!table || table->selectionBehavior() != QAbstractItemView::SelectRows)
        return false;
    const QPoint mouse = canvas.watch.mouseIn(table->viewport());
    return table->viewport()->rect().contains(mouse) && option.index.isValid() &&
           table->indexAt(mouse).row() == option.index.row();
}

void drawItem(const QStyleOptionViewItem &option, const Canvas &canvas)
{
    const bool selected = option.state & QStyle::State_Selected;
    const auto fill = [&](const QBrush &brush) {
        canvas.painter.fillRect(wholeDevicePixels(canvas.painter, option.rect), brush);
    };
    if (option.backgroundBrush.style() != Qt::NoBrush) {
        const QPointF origin = canvas.painter.brushOrigin();
        canvas.painter.setBrushOrigin(option.rect.topLeft());
        fill(option.backgroundBrush);
        canvas.painter.setBrushOrigin(origin);
    }
    if (selected && hasNativeSelection(option.palette))
        fill(selectionPalette(option, canvas.style).brush(groupOf(option), QPalette::Highlight));
    else if (selected)
        fill(option.palette.brush(groupOf(option), QPalette::Highlight));
    else if (option.state & QStyle::State_Enabled && isHovered(option, canvas))
        fill(StyleColors(option).hovered);
    const auto *view = qobject_cast<const QAbstractItemView *>(canvas.widget);
    if (view && canvas.watch.showsFocus(view) && option.index.isValid() &&
        view->currentIndex() == option.index)
        drawRowRing(canvas, option);
}

// Below the cells of a tree's row, and beside them where its branches are.
void drawRow(const QStyleOptionViewItem &option, const Canvas &canvas)
{
    const QRectF rect = wholeDevicePixels(canvas.painter, option.rect);
    const QPalette palette = selectionPalette(option, canvas.style);
    if (option.state & QStyle::State_Selected &&
        canvas.style.styleHint(QStyle::SH_ItemView_ShowDecorationSelected, &option, canvas.widget))
        canvas.painter.fillRect(rect, palette.brush(groupOf(option), QPalette::Highlight));
    else if (option.state & QStyle::State_MouseOver && option.state & QStyle::State_Enabled)
        canvas.painter.fillRect(rect, StyleColors(option).hovered);
    else if (option.features & QStyleOptionViewItem::Alternate)
        canvas.painter.fillRect(rect, palette.brush(groupOf(option), QPalette::AlternateBase));
}

void drawBranch(const QStyleOption &option, const Canvas &canvas)
{
    if (!(option.state & QStyle::State_Children))
        return;
    const StyleColors colors(option);
    const Qt::ArrowType closed = option.direction == Qt::RightToLeft ? Qt::LeftArrow : Qt::RightArrow;
    QColor color = option.state & QStyle::State_MouseOver ? colors.accent : colors.triangle;
    if (option.state & QStyle::State_Selected &&
        canvas.style.styleHint(QStyle::SH_ItemView_ShowDecorationSelected, &option, canvas.widget))
        color = selectionPalette(option, canvas.style).color(groupOf(option), QPalette::HighlightedText);
    drawTriangle(canvas, option.rect, option.state & QStyle::State_Open ? Qt::DownArrow : closed, color);
}

} // namespace

void drawRowRing(const Canvas &canvas, const QStyleOption &option)
{
    if (canvas.widget && isComboPopUp(canvas.widget->parentWidget()))
        return; // where the row of the keys is the selected one
    const bool selected = option.state & QStyle::State_Selected;
    const auto color = [&](QPalette::ColorRole role) { return option.palette.color(groupOf(option), role); };
    QRectF rect = wholeDevicePixels(canvas.painter, option.rect);
    Body ring;
    ring.frame = StyleColors(option).of(Purpose::FocusRing);
    ring.frameWidth = kFocusRingWidth;
    if (contrast(ring.frame, color(selected ? QPalette::Highlight : QPalette::Base)) < kLeastRingContrast) {
        ring.frame = color(selected ? QPalette::HighlightedText : QPalette::Text);
        const qreal scale = qMax(1.0, qAbs(canvas.painter.deviceTransform().m11()));
        const qreal pixel = qRound(scale) / scale; // of the row's ground, seen on both sides
        rect.adjust(pixel, pixel, -pixel, -pixel);
    }
    drawBody(canvas.painter, rect, ring);
}

bool drawViewPrimitive(QStyle::PrimitiveElement element, const QStyleOption &option, const Canvas &canvas)
{
    switch (element) {
    case QStyle::PE_PanelItemViewItem:
        if (const auto *item = qstyleoption_cast<const QStyleOptionViewItem *>(&option)) {
            drawItem(*item, canvas);
            return true;
        }
        return false;
    case QStyle::PE_PanelItemViewRow:
        if (const auto *row = qstyleoption_cast<const QStyleOptionViewItem *>(&option)) {
            drawRow(*row, canvas);
            return true;
        }
        return false;
    case QStyle::PE_PanelScrollAreaCorner:
        canvas.painter.fillRect(option.rect, StyleColors(option).raised);
        return true;
    case QStyle::PE_IndicatorBranch:
        drawBranch(option, canvas);
        return true;
    case QStyle::PE_IndicatorHeaderArrow:
        if (const auto *header = qstyleoption_cast<const QStyleOptionHeader *>(&option)) {
            drawSortArrow(*header, canvas);
            return true;
        }
        return false;
    default:
        return false;
    }
}

bool drawViewControl(QStyle::ControlElement element, const QStyleOption &option, const Canvas &canvas)
{
    const auto *header = qstyleoption_cast<const QStyleOptionHeader *>(&option);
    switch (element) {
    case QStyle::CE_Header:
        if (header)
            drawHeader(*header, canvas);
        return header;
    case QStyle::CE_HeaderSection:
        if (header)
            drawSection(*header, canvas);
        return header;
    case QStyle::CE_HeaderLabel:
        if (header)
            drawSectionText(*header, canvas);
        return header;
    case QStyle::CE_HeaderEmptyArea: {
        const StyleColors colors(option);
        canvas.painter.fillRect(option.rect, colors.raised);
        if (option.state & QStyle::State_Horizontal)
            drawSectionRule(canvas, option.rect, Qt::BottomEdge, colors.rule);
        return true;
    }
    default:
        return false;
    }
}

QSize headerSize(const QStyleOptionHeader &option, const QStyle &style, const QWidget *widget)
{
    const QSize text = option.fontMetrics.size(0, option.text);
    const int icon = option.icon.isNull() ? 0 : style.pixelMetric(QStyle::PM_SmallIconSize, &option, widget);
    int width = text.width() + 2 * kFieldInset + (icon ? icon + kIconGap : 0);
    if (option.sortIndicator != QStyleOptionHeader::None)
        width += kTriangleWidth + kIconGap;
    return QSize(width, qMax(kFieldHeight, qMax(text.height(), icon) + 2 * kFieldPadding));
}

void furnishList(QWidget *list)
{
    auto *view = qobject_cast<QAbstractItemView *>(list);
    if (!view || !isComboPopUp(view->parentWidget()) || !view->itemDelegate() ||
        dynamic_cast<ListDelegate *>(view->itemDelegate()))
        return;
    const QAbstractItemDelegate &delegate = *view->itemDelegate(); // of Qt's own list, or of another view
    // The view's, not the combo box's, which would delete the other one: Qt may be going through the
    // children to give them a style.
    if (typeid(delegate) == typeid(QStyledItemDelegate) || // the application's may have no meta-object
        !qstrcmp(delegate.metaObject()->className(), "QComboBoxDelegate"))
        view->setItemDelegate(new ListDelegate(view));
}

bool hasRows(const QWidget *widget)
{
    return qobject_cast<const QAbstractItemView *>(widget) &&
           !qobject_cast<const QCalendarWidget *>(widget->parentWidget());
}

int rowMargin(const QStyleOption *option)
{
    const auto *item = qstyleoption_cast<const QStyleOptionViewItem *>(option);
    const bool pictures = item && item->features & (QStyleOptionViewItem::HasDecoration |
                                                    QStyleOptionViewItem::HasCheckIndicator);
    return pictures ? kMarginBesidePictures : kFieldInset - 1;
}

int editorInset(const QWidget *widget)
{
    const QWidget *viewport = widget ? widget->parentWidget() : nullptr;
    const auto *view = viewport ? qobject_cast<const QAbstractItemView *>(viewport->parentWidget()) : nullptr;
    if (!view || view->viewport() != viewport || !hasRows(view))
        return 0;
    const QModelIndex row = view->currentIndex(); // which is the one that is edited
    const bool pictures = row.data(Qt::DecorationRole).isValid() || row.data(Qt::CheckStateRole).isValid();
    return (pictures ? kMarginBesidePictures + 1 : kFieldInset) - kLineEditMargin;
}

QPalette selectionPalette(const QStyleOption &option, const QStyle &style)
{
    QPalette palette = option.palette;
    const QColor highlight = palette.color(QPalette::Active, QPalette::Highlight);
    // That of the theme, and not one of the application's that is of the same colour.
    const bool themed =
        highlight == themeColor(Purpose::Chosen) &&
        palette.color(QPalette::Disabled, QPalette::Highlight) == themeColor(Purpose::ChosenDisabled);
    const bool plain = themed ||
                       highlight == style.standardPalette().color(QPalette::Active, QPalette::Highlight) ||
                       hasNativeSelection(palette);
    if (!(option.state & QStyle::State_Selected) || !plain)
        return palette;
    const StyleColors colors(option);
    palette.setColor(QPalette::Highlight, colors.of(Purpose::Chosen));
    palette.setColor(QPalette::HighlightedText, colors.of(Purpose::ChosenText));
    const QColor text = colors.dark ? palette.color(QPalette::Text) : colors.of(Purpose::Text);
    const auto ground = [&colors](Purpose purpose) { return colors.dark ? colors.rule : colors.of(purpose); };
    palette.setColor(QPalette::Inactive, QPalette::Highlight, ground(Purpose::ChosenInactive));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, text);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, ground(Purpose::ChosenDisabled));
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText,
                     palette.color(QPalette::Disabled, QPalette::Text));
    return palette;
}

QStyleOptionViewItem selectedItem(const QStyleOptionViewItem &option, const QStyle &style)
{
    QStyleOptionViewItem item(option);
    item.palette = selectionPalette(option, style);
    // Windows' own style takes the colour of what is not selected.
    item.palette.setColor(QPalette::Active, QPalette::Text,
                          item.palette.color(groupOf(option), QPalette::HighlightedText));
    return item;
}

} // namespace lumqt
