#include "CBPScrollBarStyle.h"

#include "foundation/AppStyle.h"

CBPScrollBarStyle::CBPScrollBarStyle() : QProxyStyle(lumqt::applicationStyleKey()) {}

void CBPScrollBarStyle::setScrollBarExtent(int extent)
{
    m_iExtent = extent;
}

int CBPScrollBarStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                                   const QWidget *widget) const
{
    return metric == PM_ScrollBarExtent ? m_iExtent : QProxyStyle::pixelMetric(metric, option, widget);
}
