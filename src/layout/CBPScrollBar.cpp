#include "CBPScrollBar.h"

#include "CBPScrollBarStyle.h"
#include "ENState.h"
#include "foundation/ListText.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"

#include <QEvent>
#include <QPainter>
#include <QStyleOptionSlider>

using lumqt::Purpose;

namespace {

// Look and metrics, in logical pixels.
constexpr int kThickness = 10;
constexpr double kSliderRadius = 5.0;
const char kNoBox[] = "CBPScrollBar { padding: 0; margin: 0; border: none; }";

void fill(QPainter &painter, const QRect &rect, const QColor &color)
{
    if (color.isValid())
        painter.fillRect(lumqt::wholeDevicePixels(painter, rect), color);
}

// Without a ground of its own the bar covers what lies below, also in a theme that would let it through.
QColor opaque(QColor color)
{
    color.setAlpha(255);
    return color;
}

} // namespace

CBPScrollBar::CBPScrollBar(Qt::Orientation orientation, QWidget *parent)
    : QScrollBar(orientation, parent), m_dRadiusX(kSliderRadius), m_dRadiusY(kSliderRadius)
{
    auto *flat = new CBPScrollBarStyle;
    flat->setParent(this); // setStyle() does not take it over
    flat->setScrollBarExtent(kThickness);
    setStyle(flat);
    setAttribute(Qt::WA_Hover); // not every style asks for repaints when the mouse comes and goes
}

CBPScrollBar::CBPScrollBar(QWidget *parent) : CBPScrollBar(Qt::Vertical, parent) {}

CBPScrollBar::~CBPScrollBar() = default;

void CBPScrollBar::SetSliderRadius(double radiusX, double radiusY)
{
    m_dRadiusX = radiusX;
    m_dRadiusY = radiusY;
}

void CBPScrollBar::setSliderXRadius(double radius)
{
    SetSliderRadius(radius, m_dRadiusY);
}

void CBPScrollBar::setSliderYRadius(double radius)
{
    SetSliderRadius(m_dRadiusX, radius);
}

void CBPScrollBar::resetSliderXRadius()
{
    setSliderXRadius(kSliderRadius);
}

void CBPScrollBar::resetSliderYRadius()
{
    setSliderYRadius(kSliderRadius);
}

QStringList CBPScrollBar::sliderColors() const
{
    if (!m_vecSliderBg.isEmpty())
        return lumqt::colorNames(m_vecSliderBg);
    return lumqt::colorNames(
        {lumqt::builtInColor(Purpose::ScrollSlider), lumqt::builtInColor(Purpose::ScrollSliderHovered)});
}

void CBPScrollBar::setSliderColors(const QStringList &colors)
{
    QVector<QColor> named = lumqt::colorsOf(colors);
    SetSliderBg(named);
}

void CBPScrollBar::resetSliderColors()
{
    setSliderColors(QStringList());
}

void CBPScrollBar::SetSliderBg(QVector<QColor> &colors)
{
    m_vecSliderBg = colors;
    update();
}

void CBPScrollBar::SetArrowBg(QColor &background1, QColor &background2)
{
    m_clrArrowBg1 = background1;
    m_clrArrowBg2 = background2;
}

void CBPScrollBar::setFirstArrowColor(QColor color)
{
    SetArrowBg(color, m_clrArrowBg2);
}

void CBPScrollBar::setSecondArrowColor(QColor color)
{
    SetArrowBg(m_clrArrowBg1, color);
}

void CBPScrollBar::SetBgMidLine(QColor &color)
{
    m_clrMidLine = color;
}

void CBPScrollBar::SetBarBg(QColor &color)
{
    m_clrBarBg = color;
    m_ownGround = true;
    // The base class promises to cover what lies below; a ground that lets it through does not.
    setAttribute(Qt::WA_OpaquePaintEvent, color.isValid() && color.alpha() == 255);
    update();
}

QColor CBPScrollBar::barColor() const
{
    return m_ownGround ? m_clrBarBg : lumqt::builtInColor(Purpose::ScrollGround);
}

void CBPScrollBar::resetBarColor()
{
    m_ownGround = false;
    setAttribute(Qt::WA_OpaquePaintEvent);
    update();
}

bool CBPScrollBar::event(QEvent *event)
{
    const bool handled = QScrollBar::event(event);
    if (event->type() == QEvent::Resize || event->type() == QEvent::StyleChange)
        keepSlider();
    return handled;
}

// The padding that a style sheet gives to all widgets leaves a bar that is as thin nothing to be seen or
// pressed. A sheet that is meant for this very bar is taken as it is.
void CBPScrollBar::keepSlider()
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect groove = GetAvailableRect(&option, QStyle::SC_ScrollBarGroove);
    const int across = orientation() == Qt::Horizontal ? groove.height() : groove.width();
    const bool thick = orientation() == Qt::Horizontal ? height() > 0 : width() > 0;
    if (thick && across <= 0 && styleSheet().isEmpty())
        setStyleSheet(QString::fromLatin1(kNoBox));
}

void CBPScrollBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QStyleOptionSlider option;
    initStyleOption(&option);
    option.subControls = QStyle::SC_All; // which initStyleOption() leaves to the painter
    fill(painter, option.rect, m_ownGround ? m_clrBarBg : opaque(lumqt::themeColor(Purpose::ScrollGround)));
    DrawComplexControl(painter, option);
}

void CBPScrollBar::DrawComplexControl(QPainter &painter, const QStyleOptionSlider &option)
{
    if (option.orientation == Qt::Horizontal)
        DrawHorinalBar(painter, option);
    else
        DrawVertiaclBar(painter, option);
}

void CBPScrollBar::DrawVertiaclBar(QPainter &painter, const QStyleOptionSlider &option)
{
    drawParts(painter, option);
}

void CBPScrollBar::DrawHorinalBar(QPainter &painter, const QStyleOptionSlider &option)
{
    drawParts(painter, option);
}

QRect CBPScrollBar::GetAvailableRect(const QStyleOptionSlider *option, QStyle::SubControl part)
{
    return style()->subControlRect(QStyle::CC_ScrollBar, option, part, this);
}

// Both orientations have the same parts; where they lie is the style's business.
void CBPScrollBar::drawParts(QPainter &painter, const QStyleOptionSlider &option)
{
    for (const QStyle::SubControl page : {QStyle::SC_ScrollBarSubPage, QStyle::SC_ScrollBarAddPage}) {
        if (option.subControls & page)
            fill(painter, GetAvailableRect(&option, page), lumqt::themeColor(Purpose::ScrollPage));
    }
    if (!(option.subControls & QStyle::SC_ScrollBarSlider))
        return;
    const bool underMouse = option.state & QStyle::State_MouseOver;
    const int state = underMouse ? ENStateHover : ENStateNormal;
    const QColor &themes =
        lumqt::themeColor(underMouse ? Purpose::ScrollSliderHovered : Purpose::ScrollSlider);
    const bool own = state < m_vecSliderBg.size();
    fill(painter, GetAvailableRect(&option, QStyle::SC_ScrollBarSlider),
         own ? m_vecSliderBg.at(state) : themes);
}
