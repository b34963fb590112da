#include "CBPStyle.h"

#include "foundation/AppStyle.h"
#include "foundation/StyleParts.h"
#include "foundation/StyleWatch.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QFrame>
#include <QPointer>
#include <QStyleOption>

namespace {

CBPStyle *sharedStyle()
{
    static QPointer<CBPStyle> style;
    if (!style) {
        style = new CBPStyle;
        style->setParent(QCoreApplication::instance()); // setStyle() does not take it over
    }
    return style;
}

bool isStyledPanel(const QStyleOption *option)
{
    const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
    return frame && frame->frameShape == QFrame::StyledPanel;
}

bool hasFrame(const QStyleOption *option)
{
    const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
    return frame && frame->lineWidth > 0;
}

} // namespace

CBPStyle::CBPStyle() : QProxyStyle(lumqt::applicationStyleKey()), m_pWatch(new lumqt::StyleWatch(this)) {}

CBPStyle::~CBPStyle() = default;

void CBPStyle::Install()
{
    static QPointer<CBPStyle> installed;
    if (installed || !qobject_cast<QApplication *>(QCoreApplication::instance()))
        return;
    const QString key = lumqt::applicationStyleKey();
    installed = new CBPStyle;
    installed->setObjectName(key); // so that proxies go on to find the kind of style
    QApplication::setStyle(installed);
}

void CBPStyle::Apply(QWidget *widget)
{
    if (widget)
        sharedStyle()->m_pWatch->dress(widget);
}

void CBPStyle::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
    m_pWatch->watch(widget);
}

void CBPStyle::unpolish(QWidget *widget)
{
    QProxyStyle::unpolish(widget);
}

void CBPStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                             const QWidget *widget) const
{
    const lumqt::Canvas canvas{*painter, widget, *proxy(), *m_pWatch};
    if (!lumqt::drawFieldPrimitive(element, *option, canvas))
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void CBPStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                           const QWidget *widget) const
{
    const lumqt::Canvas canvas{*painter, widget, *proxy(), *m_pWatch};
    if (!lumqt::drawFieldControl(element, *option, canvas))
        QProxyStyle::drawControl(element, option, painter, widget);
}

void CBPStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                  QPainter *painter, const QWidget *widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect CBPStyle::subElementRect(SubElement element, const QStyleOption *option, const QWidget *widget) const
{
    if (element == SE_LineEditContents && hasFrame(option)) {
        const int beside = lumqt::kFieldInset - lumqt::kLineEditMargin;
        return option->rect.adjusted(beside, lumqt::kFocusRingWidth, -beside, -lumqt::kFocusRingWidth);
    }
    if (element == SE_ShapedFrameContents && isStyledPanel(option) &&
        qobject_cast<const QAbstractScrollArea *>(widget)) {
        constexpr int frame = lumqt::kViewFrame;
        return option->rect.adjusted(frame, frame, -frame, -frame);
    }
    return QProxyStyle::subElementRect(element, option, widget);
}

QRect CBPStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                               const QWidget *widget) const
{
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QSize CBPStyle::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                                 const QWidget *widget) const
{
    if (type == CT_LineEdit && hasFrame(option)) {
        const int width = size.width() + 2 * (lumqt::kFieldInset - lumqt::kLineEditMargin);
        return QSize(width, qMax(size.height() + 2 * lumqt::kFocusRingWidth, lumqt::kFieldHeight));
    }
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

int CBPStyle::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    return QProxyStyle::pixelMetric(metric, option, widget);
}

int CBPStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                        QStyleHintReturn *returnData) const
{
    if (hint == lumqt::kIsOurs)
        return lumqt::kOurs;
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}
