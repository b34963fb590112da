#include "CBPStateWidget.h"

#include "foundation/Accessible.h"
#include "foundation/ListText.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"

#include <QPainter>
#include <QtMath>

namespace {

// A caller's radius as it can be painted; NaN and the like mean none.
qreal painted(double radius)
{
    return qIsFinite(radius) ? qBound(0.0, radius, double(QWIDGETSIZE_MAX)) : 0.0;
}

QStringList reported(const QVector<QColor> &own, lumqt::Purpose builtIn)
{
    return lumqt::colorNames(own.isEmpty() ? lumqt::builtInColors(builtIn) : own);
}

} // namespace

CBPStateWidget::CBPStateWidget(QWidget *parent) : QWidget(parent, Qt::FramelessWindowHint)
{
    setAttribute(Qt::WA_TranslucentBackground);
}

CBPStateWidget::~CBPStateWidget() = default;

void CBPStateWidget::SetBgColor(QVector<QColor> colors)
{
    m_bgColors = colors;
}

void CBPStateWidget::setBackgroundColors(const QStringList &names)
{
    SetBgColor(lumqt::colorsOf(names));
    update();
}

QStringList CBPStateWidget::backgroundColors() const
{
    return reported(m_bgColors, lumqt::Purpose::StateGround);
}

void CBPStateWidget::resetBackgroundColors()
{
    setBackgroundColors(QStringList());
}

void CBPStateWidget::SetFrmColor(QVector<QColor> colors)
{
    m_frmColors = colors;
}

void CBPStateWidget::setFrameColors(const QStringList &names)
{
    SetFrmColor(lumqt::colorsOf(names));
    update();
}

QStringList CBPStateWidget::frameColors() const
{
    return reported(m_frmColors, lumqt::Purpose::StateFrame);
}

void CBPStateWidget::resetFrameColors()
{
    setFrameColors(QStringList());
}

void CBPStateWidget::SetDrawBg(bool draw)
{
    m_drawBg = draw;
}

void CBPStateWidget::showBackground(bool shown)
{
    SetDrawBg(shown);
    update();
}

void CBPStateWidget::SetFrmTrancent(bool transparent)
{
    m_frmTrancent = transparent;
}

void CBPStateWidget::showFrameless(bool frameless)
{
    SetFrmTrancent(frameless);
    update();
}

void CBPStateWidget::SetSelected(bool selected)
{
    const bool changed = m_selected != selected;
    m_selected = selected;
    SetState(selected ? ENStateHover : ENStateNormal);
    if (!changed)
        return;
    lumqt::tellChecked(this);
    emit selectionChanged(selected); // the widget may be gone after
}

void CBPStateWidget::SetRoundRadius(double x, double y)
{
    m_radiusX = x;
    m_radiusY = y;
}

void CBPStateWidget::setXRadius(double radius)
{
    SetRoundRadius(radius, m_radiusY);
    update();
}

void CBPStateWidget::setYRadius(double radius)
{
    SetRoundRadius(m_radiusX, radius);
    update();
}

void CBPStateWidget::GetRoundRadius(double &x, double &y) const
{
    x = m_radiusX;
    y = m_radiusY;
}

void CBPStateWidget::SetState(ENState state)
{
    if (state < ENStateNormal || state > ENStateDisable)
        return;
    m_state = state;
    update();
}

void CBPStateWidget::SetEnabled(bool enabled)
{
    setEnabled(enabled);
    SetState(ENStateDisable); // whichever it was
}

void CBPStateWidget::OnExpose() {}

bool CBPStateWidget::onEnter()
{
    return true;
}

bool CBPStateWidget::onLeave()
{
    return true;
}

// ------------------------------------------------------------------------------------------------------------
// events

void CBPStateWidget::becomes(ENState state)
{
    SetState(isEnabled() ? state : ENStateDisable);
}

void CBPStateWidget::mousePressEvent(QMouseEvent *event)
{
    becomes(ENStatePress);
    QWidget::mousePressEvent(event);
}

void CBPStateWidget::focusInEvent(QFocusEvent *event)
{
    becomes(ENStateHover);
    QWidget::focusInEvent(event);
}

void CBPStateWidget::focusOutEvent(QFocusEvent *event)
{
    becomes(ENStateNormal);
    QWidget::focusOutEvent(event);
}

void CBPStateWidget::enterEvent(lumqt::EnterEvent *event)
{
    if (onEnter())
        becomes(ENStateHover);
    QWidget::enterEvent(event);
}

void CBPStateWidget::leaveEvent(QEvent *event)
{
    if (onLeave())
        becomes(ENStateNormal);
    QWidget::leaveEvent(event);
}

void CBPStateWidget::changeEvent(QEvent *event)
{
    // Callers that disable the widget, or its parent, through QWidget come by here.
    if (event->type() == QEvent::EnabledChange)
        becomes(ENStateNormal);
    QWidget::changeEvent(event);
}

void CBPStateWidget::paintEvent(QPaintEvent *)
{
    const int index = m_selected ? int(ENStateHover) : int(m_state);
    lumqt::Body body;
    if (m_drawBg) {
        const QColor own = m_bgColors.value(index);
        body.fill = own.isValid() ? own : lumqt::themeColor(lumqt::Purpose::StateGround, index);
    }
    body.radiusX = painted(m_radiusX);
    body.radiusY = painted(m_radiusY);
    // Round corners keep their frame; only a square widget goes without.
    if (!m_frmTrancent || (body.radiusX > 0 && body.radiusY > 0)) {
        const QColor own = m_frmColors.value(index);
        body.frame = own.isValid() ? own : lumqt::themeColor(lumqt::Purpose::StateFrame, index);
    }
    {
        QPainter painter(this);
        lumqt::drawBody(painter, rect(), body);
    }
    OnExpose(); // which has a painter of its own
}
