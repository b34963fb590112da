#pragma once

#include "LumQtGlobal.h"

#include <QProxyStyle>
#include <QSize>

/// A style that gives every item of a menu one fixed size, takes the menu's frame away and lets the menu
/// scroll where it is taller than the screen.
///
/// Everything else comes from a style of its own, of the kind that the application has when it is made; where
/// that has no name (a style sheet of the application, a style made without QStyleFactory) of the desktop's.
/// The application's style object itself is never touched. A widget does not own its style: keep this one
/// longer than the menu, or give it the menu as parent. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPMenuItemSizeStyle : public QProxyStyle
{
    Q_OBJECT

public:
    /// A style whose menu items are \a size large (logical pixels). Separators count as items. With an empty
    /// size the items are not shown. \since 1.0
    explicit CBPMenuItemSizeStyle(const QSize &size);

    /// 0 for QStyle::PM_MenuPanelWidth, the underlying style's answer for every other metric.
    /// \since 1.0
    int pixelMetric(PixelMetric metric, const QStyleOption *option = nullptr,
                    const QWidget *widget = nullptr) const override;

    /// The fixed size for QStyle::CT_MenuItem; for QStyle::CT_Menu \a size as it is, so that the menu is no
    /// larger than its items; the underlying style's answer for all other contents. \since 1.0
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget) const override;

    /// 1 for QStyle::SH_Menu_Scrollable, the underlying style's answer for every other hint.
    /// \since 1.0
    int styleHint(StyleHint hint, const QStyleOption *option = nullptr, const QWidget *widget = nullptr,
                  QStyleHintReturn *returnData = nullptr) const override;

private:
    QSize m_size;
};
