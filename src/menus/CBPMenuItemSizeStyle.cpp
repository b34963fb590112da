#include "CBPMenuItemSizeStyle.h"

#include "foundation/AppStyle.h"

CBPMenuItemSizeStyle::CBPMenuItemSizeStyle(const QSize &size)
    : QProxyStyle(lumqt::applicationStyleKey()), m_size(size)
{
}

int CBPMenuItemSizeStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                                      const QWidget *widget) const
{
    return metric == PM_MenuPanelWidth ? 0 : QProxyStyle::pixelMetric(metric, option, widget);
}

QSize CBPMenuItemSizeStyle::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                                             const QWidget *widget) const
{
    if (type == CT_MenuItem)
        return m_size;
    // A style of Windows makes the menu one pixel wider than its items: a stripe that no highlight reaches.
    if (type == CT_Menu)
        return size;
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

int CBPMenuItemSizeStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                                    QStyleHintReturn *returnData) const
{
    return hint == SH_Menu_Scrollable ? 1 : QProxyStyle::styleHint(hint, option, widget, returnData);
}
