#include "CBPRoundBtn.h"

#include "buttons/ButtonTones.h"
#include "ENState.h"
#include "foundation/Accessible.h"
#include "foundation/QtCompat.h"

#include <QCursor>
#include <QMouseEvent>
#include <QPointer>

namespace {

// Across, in logical pixels.
constexpr int kDiameter = 28;
constexpr int kLargest = 4096;

QAccessibleInterface *makeAccessible(QWidget *widget)
{
    auto *button = qobject_cast<CBPRoundBtn *>(widget);
    if (!button)
        return nullptr;
    return new lumqt::AccessibleButton(button, [button] { return button->text(); });
}

} // namespace

CBPRoundBtn::CBPRoundBtn(int diameter, int id, QWidget *parent) : CBPPushBtn(QString(), id, ALIGN_CENTER)
{
    lumqt::installAccessible("CBPRoundBtn", makeAccessible);
    setParent(parent);
    setMouseTracking(true); // it enters the circle after the corner
    SetDiameter(diameter);
    lumqt::ButtonTones::setRing(*this, lumqt::Purpose::FocusRing);
}

CBPRoundBtn::CBPRoundBtn(QWidget *parent) : CBPRoundBtn(kDiameter, 0, parent) {}

CBPRoundBtn::~CBPRoundBtn() = default;

void CBPRoundBtn::SetDiameter(int diameter)
{
    const int pixels = qBound(1, diameter, kLargest);
    setFixedSize(pixels, pixels);
    const int radius = (pixels + 1) / 2;
    setRoundRadius({radius, radius});
    update();
}

void CBPRoundBtn::resetDiameter()
{
    SetDiameter(kDiameter);
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
    if (event->button() == Qt::LeftButton && !isDown()) {
        event->ignore();
        return;
    }
    const QPointer<CBPRoundBtn> alive(this);
    CBPPushBtn::mouseReleaseEvent(event);
    if (alive && !hitButton(event->pos()))
        hover(event->pos());
}

void CBPRoundBtn::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons() == Qt::NoButton)
        hover(event->pos());
    CBPPushBtn::mouseMoveEvent(event);
}

// The event brings the place where the mouse came in, unless an application made a plain one.
void CBPRoundBtn::enterEvent(lumqt::EnterEvent *event)
{
    CBPPushBtn::enterEvent(event);
    const QEnterEvent *entered = lumqt::enterOf(event);
    hover(entered ? lumqt::position(*entered) : mapFromGlobal(QCursor::pos()));
}

// For the base all of the square is the button.
void CBPRoundBtn::hover(const QPoint &position)
{
    const bool hit = hitButton(position);
    if (state() != (hit ? ENStateNormal : ENStateHover))
        return;
    setState(hit ? ENStateHover : ENStateNormal);
    update();
}
