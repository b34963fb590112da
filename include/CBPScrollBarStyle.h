#pragma once

#include "LumQtGlobal.h"

#include <QProxyStyle>

/// A style that gives scroll bars a thickness of their own.
///
/// Everything else comes from a style of its own, of the kind that the application has when it is made; where
/// that has no name (a style sheet of the application, a style made without QStyleFactory) of the desktop's.
/// The application's style object itself is never touched. A widget does not own its style: keep this one
/// longer than the scroll bar, or give it the bar as parent. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPScrollBarStyle : public QProxyStyle
{
    Q_OBJECT

public:
    /// A style whose scroll bars are 0 pixels thick: set the thickness. \since 1.0
    CBPScrollBarStyle();

    /// Sets the thickness in logical pixels. Widgets that have the style already take it over at their next
    /// layout. \since 1.0
    void setScrollBarExtent(int extent);

    /// The thickness for QStyle::PM_ScrollBarExtent, the underlying style's answer for every other metric.
    /// \since 1.0
    int pixelMetric(PixelMetric metric, const QStyleOption *option = nullptr,
                    const QWidget *widget = nullptr) const override;

private:
    int m_iExtent = 0;
};
