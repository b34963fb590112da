#include "CBPRoundBtn.h"

#include "foundation/Accessible.h"

#include <QMouseEvent>

namespace {

constexpr int kLargest = 4096; // across, in logical pixels

QAccessibleInterface *makeAccessible(QWidget *widget)
{
    auto *button = qobject_cast<CBPRoundBtn *>(widget);
    if (!button)
        return nullptr;
    return new lumqt::AccessibleButton(
        button, [button] { return button->text().isEmpty() ? button->toolTip() : button->text(); });
}

} // namespace

CBPRoundBtn::CBPRoundBtn(int diameter, int id, QWidget *parent) : CBPPushBtn(QString(), id, ALIGN_CENTER)
{
    lumqt::installAccessible("CBPRoundBtn", makeAccessible);
    setParent(parent);
    SetDiameter(diameter);
}

CBPRoundBtn::~CBPRoundBtn() = default;

void CBPRoundBtn::SetDiameter(int diameter)
{
    const int pixels = qBound(1, diameter, kLargest);
    setFixedSize(pixels, pixels);
    const int radius = (pixels + 1) / 2;
    setRoundRadius({radius, radius});
    update();
}

int CBPRoundBtn::GetDiameter() const
{
    return width();
}

bool CBPRoundBtn::hitButton(const QPoint &position) const
{
    const QPointF fromCentre = QPointF(position) + QPointF(0.5, 0.5) - QRectF(rect()).center();
    return QPointF::dotProduct(fromCentre, fromCentre) <= width() * width() / 4.0;
}

void CBPRoundBtn::mousePressEvent(QMouseEvent *event)
{
    if (hitButton(event->pos()))
        CBPPushBtn::mousePressEvent(event);
    else
        event->ignore();
}

void CBPRoundBtn::mouseReleaseEvent(QMouseEvent *event)
{
    // The base takes any release for a click.
    if (event->button() != Qt::LeftButton || isDown())
        CBPPushBtn::mouseReleaseEvent(event);
    else
        event->ignore();
}
