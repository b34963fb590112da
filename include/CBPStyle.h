#pragma once

#include "LumQtGlobal.h"

#include <QProxyStyle>

namespace lumqt {
class StyleWatch;
}

/// The library's look for Qt's own widgets, so that they go with the library's: flat fields, check boxes,
/// radio buttons, combo boxes, spin boxes, headers, rows and scroll bars, sharp at every scaling.
///
/// Views, check boxes and combo boxes of the library have it from the start. An application asks for it with
/// Install() for all its widgets, or with Apply() for one. What it does not paint comes from a style of its
/// own, of the kind that the application has when it is made; where that has no name (a style sheet of the
/// application, a style made without QStyleFactory) of the desktop's. Keyboard, mouse and screen readers find
/// what they find without it.
///
/// A style sheet, a palette whose QPalette::Base is neither white nor the theme's CBPTheme::Purpose::Field
/// (of a widget or of the application) and a style that is set after this one win. On a dark palette fields
/// and rows take that palette's colours. Hover and focus fade within 120 milliseconds, unless the system asks
/// for less motion. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPStyle : public QProxyStyle
{
    Q_OBJECT

public:
    /// A style for an application that hands it on itself, as to QApplication::setStyle(), which takes it
    /// over. A widget that is given one does not own it. \since 1.0
    CBPStyle();
    ~CBPStyle() override;

    /// Gives the application this look, for the widgets that it has and those to come. Does nothing before
    /// there is a QApplication, and nothing where it has the look already. The style that it had goes, as
    /// with QApplication::setStyle(); its palette, style sheet and font stay. \since 1.0
    static void Install();

    /// Gives \a widget this look and, of a view, a combo box or a spin box, what it is made of: headers,
    /// scroll bars, the list that drops down, also those made later. What has a style of its own keeps it,
    /// and children that the application puts into the widget are left alone; only where there is a style
    /// sheet around them, Qt has children without a style of their own follow their parent's. All widgets
    /// share one style, which goes with the application. QWidget::setStyle(nullptr) takes the look from
    /// \a widget again. Null is allowed. \since 1.0
    static void Apply(QWidget *widget);

    /// \cond
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget = nullptr) const override;
    QRect subElementRect(SubElement element, const QStyleOption *option,
                         const QWidget *widget = nullptr) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                         const QWidget *widget = nullptr) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget = nullptr) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option = nullptr,
                    const QWidget *widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption *option = nullptr, const QWidget *widget = nullptr,
                  QStyleHintReturn *returnData = nullptr) const override;
    void polish(QWidget *widget) override;
    using QProxyStyle::polish;
    /// \endcond

private:
    void drawOnce(ControlElement element, const QStyleOption *option, QPainter *painter,
                  const QWidget *widget) const;

    lumqt::StyleWatch *m_pWatch;
};
