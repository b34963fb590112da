#include "CBPScrollBarStyle.h"

// The default constructor of the base makes a style of its own. Handing it the application's style would take
// that away from the application and destroy it with the first scroll bar.
CBPScrollBarStyle::CBPScrollBarStyle() = default;

void CBPScrollBarStyle::setScrollBarExtent(int extent)
{
    m_iExtent = extent;
}

int CBPScrollBarStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                                   const QWidget *widget) const
{
    return metric == PM_ScrollBarExtent ? m_iExtent : QProxyStyle::pixelMetric(metric, option, widget);
}
