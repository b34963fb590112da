#include "CAddBtn.h"

#include "buttons/ButtonTones.h"
#include "foundation/Accessible.h"
#include "foundation/Painting.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>
#include <QtMath>

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

// In whole device pixels, and as long on both sides of the middle at every ratio.
void drawMark(QPainter &painter, const QPoint &topLeft, const QColor &color)
{
    const QRectF box = lumqt::wholeDevicePixels(painter, QRectF(topLeft, QSizeF(kMark, kMark)));
    const qreal pixel = kMark / painter.deviceTransform().mapRect(QRectF(0, 0, kMark, kMark)).width();
    const qreal stroke = qMax(1, qRound(kStroke / pixel)) * pixel;
    const qreal arm = qFloor((box.width() - stroke) / 2 / pixel) * pixel;
    const qreal length = 2 * arm + stroke;
    const QRectF strokes[] = {QRectF(0, arm, length, stroke), QRectF(arm, 0, stroke, arm),
                              QRectF(arm, arm + stroke, stroke, arm)};
    for (const QRectF &each : strokes) // which do not overlap: the colour may be see-through
        painter.fillRect(each.translated(box.topLeft()), color);
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
    lumqt::ButtonTones::setRing(*this, lumqt::Purpose::FocusRing);
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
    const auto visual = [&](const QRect &place) {
        return QStyle::visualRect(layoutDirection(), rect, place);
    };
    drawMark(*painter, visual(QRect(topLeft, QSize(kMark, kMark))).topLeft(), pen.color());
    painter->setLayoutDirection(label.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight); // of the ellipsis
    if (!label.isEmpty())
        painter->drawText(visual(QRect(topLeft.x() + kMark + kGap, rect.y(), advance, rect.height())),
                          Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip, label);
}
