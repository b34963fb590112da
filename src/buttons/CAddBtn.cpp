#include "CAddBtn.h"

#include "foundation/Accessible.h"
#include "foundation/Painting.h"

#include <QFontMetrics>
#include <QPainter>

namespace {

// Metrics, in logical pixels.
constexpr int kHeight = 28;
constexpr int kMark = 12; // across
constexpr int kStroke = 2;
constexpr int kGap = 8;
constexpr int kSidePadding = 12;

QAccessibleInterface *makeAccessible(QWidget *widget)
{
    auto *button = qobject_cast<CAddBtn *>(widget);
    if (!button)
        return nullptr;
    return new lumqt::AccessibleButton(button, [button] {
        if (!button->text().isEmpty())
            return button->text();
        return button->toolTip().isEmpty() ? CAddBtn::tr("Add") : button->toolTip();
    });
}

void drawMark(QPainter &painter, const QPoint &topLeft, const QColor &color)
{
    const int middle = (kMark - kStroke) / 2;
    const QRect strokes[] = {QRect(0, middle, kMark, kStroke), QRect(middle, 0, kStroke, middle),
                             QRect(middle, middle + kStroke, kStroke, middle)};
    for (const QRect &stroke : strokes) // which do not overlap: the colour may be see-through
        painter.fillRect(lumqt::wholeDevicePixels(painter, stroke.translated(topLeft)), color);
}

} // namespace

CAddBtn::CAddBtn(QWidget *parent) : CBPPushBtn(parent)
{
    init();
}

CAddBtn::CAddBtn(QString text, int id, QWidget *parent) : CBPPushBtn(QString(), id, ALIGN_CENTER)
{
    setParent(parent);
    init();
    setText(text); // not by the base, where screen readers would take the button for one of that class
}

CAddBtn::~CAddBtn() = default;

void CAddBtn::init()
{
    lumqt::installAccessible("CAddBtn", makeAccessible);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize CAddBtn::sizeHint() const
{
    if (text().isEmpty())
        return QSize(kHeight, kHeight);
    const int width = QFontMetrics(textFont()).horizontalAdvance(text());
    return QSize(qMin(2 * kSidePadding + kMark + kGap + qMin(width, QWIDGETSIZE_MAX), QWIDGETSIZE_MAX),
                 kHeight);
}

void CAddBtn::drawPixmapAndText(QPainter *painter, QPen &pen, QRect &rect, int index)
{
    pen.setColor(paintedTextColor(index));
    painter->setPen(pen);
    painter->setFont(textFont());
    const QString label = elided(text(), rect.width() - 2 * kGap - kMark);
    const int advance = QFontMetrics(textFont()).horizontalAdvance(label);
    const int block = label.isEmpty() ? kMark : kMark + kGap + advance;
    const QPoint topLeft(rect.x() + (rect.width() - block) / 2, rect.y() + (rect.height() - kMark) / 2);
    drawMark(*painter, topLeft, pen.color());
    if (!label.isEmpty())
        painter->drawText(QRect(topLeft.x() + kMark + kGap, rect.y(), advance + kGap, rect.height()),
                          Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, label);
}
