#include "CBPTipWnd.h"

#include "CBPBox.h"
#include "dialogs/TipAccessible.h"
#include "foundation/Accessible.h"
#include "foundation/Log.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "platform/Platform.h"

#include <QBitmap>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QVBoxLayout>

namespace {

// Metrics, in logical pixels.
constexpr int kRadius = 3;
constexpr int kArrowInset = 45; // of an arrow at the left or right, from that side
constexpr int kArrowHalfWidth = 6;
constexpr int kBodyTop = 7; // where the arrow's base lies
const QMargins kContentMargins(16, 12, 16, 12);

QAccessibleInterface *makeAccessible(QWidget *widget)
{
    return new lumqt::TipAccessible(widget, QAccessible::HelpBalloon);
}

// The middle of the line that fills the pixel at `at`, so that the outline is sharp at every scaling.
struct LinePlace
{
    qreal ratio;
    int pixels; // width of the line on the device

    qreal operator()(qreal at) const { return (qRound(at * ratio) + pixels / 2.0) / ratio; }
    qreal width() const { return pixels / ratio; }
};

// Body and arrow as one outline. `right` and `bottom` of the body are the width and height of `rect`, which
// lies one pixel within the window all round: the outline is as far from the right edge as from the left.
QPainterPath bubble(const QPoint &tip, const QRect &rect, qreal radiusX, qreal radiusY,
                    const LinePlace &place)
{
    const qreal left = place(rect.left());
    const qreal top = place(kBodyTop);
    const qreal right = place(rect.width());
    const qreal bottom = place(rect.height());
    const qreal x = place(tip.x());
    const qreal rx = qBound(0.0, radiusX, qMax(0.0, (right - left) / 2));
    const qreal ry = qBound(0.0, radiusY, qMax(0.0, (bottom - top) / 2));

    QPainterPath path(QPointF(x, place(tip.y())));
    path.lineTo(x - kArrowHalfWidth, top);
    path.lineTo(left + rx, top);
    path.arcTo(left, top, 2 * rx, 2 * ry, 90, 90);
    path.lineTo(left, bottom - ry);
    path.arcTo(left, bottom - 2 * ry, 2 * rx, 2 * ry, 180, 90);
    path.lineTo(right - rx, bottom);
    path.arcTo(right - 2 * rx, bottom - 2 * ry, 2 * rx, 2 * ry, 270, 90);
    path.lineTo(right, top + ry);
    path.arcTo(right - 2 * rx, top, 2 * rx, 2 * ry, 0, 90);
    path.lineTo(x + kArrowHalfWidth, top);
    path.closeSubpath();
    return path;
}

// Below the bound widget where there is room, else above it; and to the side as far as needed.
QPoint placeOnScreen(QPoint place, const QSize &size, const QRect &bound)
{
    const QScreen *screen = QGuiApplication::screenAt(bound.center());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    if (!screen)
        return place;
    const QRect area = screen->availableGeometry();
    const QPoint last = area.bottomRight() - QPoint(size.width(), size.height()) + QPoint(1, 1);
    if (place.y() > last.y() && bound.top() - size.height() >= area.top())
        place.setY(bound.top() - size.height());
    // On a screen that is too small its upper left corner is seen.
    return QPoint(qMax(area.left(), qMin(place.x(), last.x())), qMax(area.top(), qMin(place.y(), last.y())));
}

} // namespace

// Watches what the bound widget lies in while the tip shows. A watcher of its own: the tip's event filter
// takes the deactivation of whatever it watches, and these go on needing theirs.
class CBPTipWnd::Follower : public QObject
{
public:
    explicit Follower(CBPTipWnd *tip) : m_tip(tip) {}

    // A window manager that answers late puts the tip back where it was before it grew. It is contradicted
    // some times only: one that means it would never end.
    void movedBySystem()
    {
        if (m_contradictions >= kMostContradictions)
            return;
        ++m_contradictions;
        QMetaObject::invokeMethod(
            m_tip,
            [tip = m_tip] {
                if (tip->isVisible())
                    tip->MoveRect(tip->m_orientation);
            },
            Qt::QueuedConnection);
    }
    void expectMoves() { m_contradictions = 0; }

    void start()
    {
        stop();
        expectMoves();
        if (!m_tip->m_bound || m_tip->m_bound->isWindow())
            return;
        for (QWidget *widget = m_tip->m_bound->parentWidget(); widget; widget = widget->parentWidget()) {
            widget->installEventFilter(this);
            m_watched.append(widget);
            if (widget->isWindow())
                break;
        }
    }

    void stop()
    {
        for (const QPointer<QWidget> &widget : qAsConst(m_watched)) {
            if (widget)
                widget->removeEventFilter(this);
        }
        m_watched.clear();
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        // A new parent needs no look: it hides the widget, and the tip with it.
        if (event->type() != QEvent::Move && event->type() != QEvent::Resize)
            return false;
        const QWidget *bound = m_tip->m_bound;
        if (bound && bound->isVisible() && isOutOfSight(bound))
            m_tip->hide();
        else
            m_tip->MoveRect(m_tip->m_orientation);
        expectMoves();
        return false;
    }

private:
    // Scrolled or cut away by what it lies in. What lies on it, such as its own children, does not count.
    static bool isOutOfSight(const QWidget *widget)
    {
        QRect seen = widget->rect();
        for (; !seen.isEmpty() && !widget->isWindow() && widget->parentWidget();
             widget = widget->parentWidget())
            seen = seen.translated(widget->pos()) & widget->parentWidget()->rect();
        return seen.isEmpty();
    }

    static constexpr int kMostContradictions = 3;

    CBPTipWnd *m_tip;
    QVector<QPointer<QWidget>> m_watched;
    int m_contradictions = 0;
};

CBPTipWnd::CBPTipWnd(ENOrientation orientation, QWidget *bound)
    : QWidget(bound, Qt::FramelessWindowHint | Qt::Tool),
      m_bound(bound),
      m_orientation(orientation),
      m_radiusX(kRadius),
      m_radiusY(kRadius),
      m_follower(new Follower(this))
{
    lumqt::installAccessible("CBPTipWnd", makeAccessible);
    Init();
}

CBPTipWnd::~CBPTipWnd() = default;

void CBPTipWnd::Init()
{
    setAttribute(Qt::WA_TranslucentBackground);
    lumqt::wearPalette(this);
    // The state alone: setWindowState() would make the native window now, where it is not to be, and ask a
    // window manager to activate what it has never shown.
    overrideWindowState(Qt::WindowActive);
    installEventFilter(this);
    if (m_bound) {
        m_bound->installEventFilter(this);
        // An application may have given the tip another parent.
        connect(m_bound.data(), &QObject::destroyed, this, &QWidget::hide);
    }
    auto *layout = new QVBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_box = new CBPBox(true, false, 0);
    m_box->setContentsMargins(kContentMargins);
    layout->addWidget(m_box);
    setLayout(layout);
}

void CBPTipWnd::SetRoundRadius(int x, int y)
{
    m_radiusX = x;
    m_radiusY = y;
    if (isVisible())
        updateMask();
    update();
}

void CBPTipWnd::setXRadius(int radius)
{
    SetRoundRadius(radius, yRadius());
}

void CBPTipWnd::setYRadius(int radius)
{
    SetRoundRadius(xRadius(), radius);
}

void CBPTipWnd::resetXRadius()
{
    setXRadius(kRadius);
}

void CBPTipWnd::resetYRadius()
{
    setYRadius(kRadius);
}

CBPTipWnd::Orientation CBPTipWnd::orientation() const
{
    const bool known = m_orientation >= ENOrientationNone && m_orientation <= ENOrientationRight;
    return known ? Orientation(m_orientation) : OrientationNone;
}

void CBPTipWnd::setOrientation(Orientation orientation)
{
    m_orientation = ENOrientation(orientation);
    if (isVisible()) {
        MoveRect(m_orientation);
        updateMask();
    }
    update();
}

void CBPTipWnd::ShowClickBindWidget(bool follow)
{
    m_follow = follow;
}

void CBPTipWnd::AppendWidget(QWidget *widget)
{
    if (!widget) {
        qCWarning(lcLumQt, "CBPTipWnd::AppendWidget: there is no widget");
        return;
    }
    if (m_box)
        m_box->PackStart(widget, false, false, 0);
    m_follow = true;
}

// ----------------------------------------------------------------------------------------------------------
// events

bool CBPTipWnd::eventFilter(QObject *object, QEvent *event)
{
    if (object == this && event->type() == QEvent::LayoutRequest && isVisible())
        fitContent();
    if (object == this && event->type() == QEvent::Move && event->spontaneous())
        m_follower->movedBySystem();
    if (object == m_bound) {
        followBound(event);
    } else if (event->type() == QEvent::WindowDeactivate) {
        hide();
        return true;
    }
    return false;
}

void CBPTipWnd::followBound(QEvent *event)
{
    switch (event->type()) {
    case QEvent::Enter:
        if (m_follow) {
            show();
            activateWindow(); // a window that is not shown yet cannot be activated
        }
        break;
    case QEvent::Leave:
        if (m_follow)
            hide();
        break;
    case QEvent::Hide:
        hide();
        break;
    case QEvent::Move:
    case QEvent::Resize:
        if (isVisible())
            MoveRect(m_orientation);
        break;
    default:
        break;
    }
}

void CBPTipWnd::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        hide();
    QWidget::keyPressEvent(event);
}

// The native window is made with the size and place that the tip is to have. Qt makes it with the size of an
// empty widget first, and a window manager may answer with that one last.
void CBPTipWnd::setVisible(bool visible)
{
    if (visible && !isVisible()) {
        fitContent();
        MoveRect(m_orientation);
    }
    QWidget::setVisible(visible);
}

// Unless the application gave the tip a size.
void CBPTipWnd::fitContent()
{
    if (testAttribute(Qt::WA_Resized))
        return;
    adjustSize();
    setAttribute(Qt::WA_Resized, false); // the content still decides, next time too
}

void CBPTipWnd::showEvent(QShowEvent *event)
{
    // Before the window is on the screen, which it would cross otherwise.
    MoveRect(m_orientation);
    m_follower->start();
    updateMask();
    QWidget::showEvent(event);
}

void CBPTipWnd::hideEvent(QHideEvent *event)
{
    m_follower->stop();
    QWidget::hideEvent(event);
}

void CBPTipWnd::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (!isVisible())
        return;
    m_follower->expectMoves();
    MoveRect(m_orientation);
    updateMask();
}

void CBPTipWnd::MoveRect(ENOrientation orientation)
{
    if (!m_bound)
        return;
    const QPoint corner = m_bound->mapToGlobal(QPoint(0, 0));
    int x = corner.x();
    switch (orientation) {
    case ENOrientationLeft:
        break;
    case ENOrientationCenter:
        x -= (width() - m_bound->width()) / 2;
        break;
    case ENOrientationRight:
        x += m_bound->width() - width();
        break;
    default:
        x -= 1;
        break;
    }
    QPoint target(x, corner.y() + m_bound->height());
    if (m_onScreen)
        target = placeOnScreen(target, size(), QRect(corner, m_bound->size()));
    if (pos() != target)
        move(target);
}

// ----------------------------------------------------------------------------------------------------------
// painting

void CBPTipWnd::paintEvent(QPaintEvent *)
{
    MoveRect(m_orientation);
    QPainter painter(this);
    QRect body = rect().adjusted(1, 1, -1, -1);
    const int x = arrowX(body);
    if (x >= 0) {
        DrawTips(&painter, x, body.top(), body);
        return;
    }
    lumqt::Body plain;
    plain.fill = lumqt::themeColor(lumqt::Purpose::TipGround);
    plain.frame = lumqt::themeColor(lumqt::Purpose::TipFrame);
    plain.radiusX = qMax(0, int(m_radiusX));
    plain.radiusY = qMax(0, int(m_radiusY));
    lumqt::drawBody(painter, rect(), plain);
}

// -1 for a tip without an arrow.
int CBPTipWnd::arrowX(const QRect &rect) const
{
    switch (m_orientation) {
    case ENOrientationLeft:
        return rect.left() + kArrowInset;
    case ENOrientationCenter:
        return rect.width() / 2;
    case ENOrientationRight:
        return qMax(0, rect.width() - kArrowInset);
    default:
        return -1;
    }
}

void CBPTipWnd::DrawTips(QPainter *painter, int x, int y, QRect &rect)
{
    const qreal ratio = painter->device()->devicePixelRatioF();
    const LinePlace place{ratio, qMax(1, qRound(ratio))};
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(lumqt::themeColor(lumqt::Purpose::TipFrame), place.width(), Qt::SolidLine,
                         Qt::SquareCap, Qt::MiterJoin));
    painter->setBrush(lumqt::themeColor(lumqt::Purpose::TipGround));
    painter->drawPath(bubble(QPoint(x, y), rect, m_radiusX, m_radiusY, place));
}

// Where windows are not blended with what lies behind them, see-through parts would be black.
void CBPTipWnd::updateMask()
{
    if (lumqt::platform::answers().composited()) {
        if (m_masked)
            clearMask();
        m_masked = false;
        return;
    }
    const QRect body = rect().adjusted(1, 1, -1, -1);
    const int x = arrowX(body);
    QBitmap shape(size());
    shape.fill(Qt::color0);
    QPainter painter(&shape);
    painter.setPen(Qt::color1);
    painter.setBrush(Qt::color1);
    if (x >= 0)
        painter.drawPath(bubble(QPoint(x, body.top()), body, m_radiusX, m_radiusY, LinePlace{1.0, 1}));
    else
        painter.drawRoundedRect(rect().adjusted(0, 0, -1, -1), m_radiusX, m_radiusY);
    painter.end();
    setMask(shape);
    m_masked = true;
}
