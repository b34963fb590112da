#pragma once

#include "LumQtGlobal.h"

#include <QColor>
#include <QLabel>
#include <QString>

/// A QLabel in the font of the interface language.
///
/// Font sizes are in pixels; one below 1 counts as 12. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPLabel : public QLabel
{
    Q_OBJECT
    /// Colour of the text; the theme's, or that of a widget around, until one is set. \since 1.0
    Q_PROPERTY(QColor textColor READ textColor WRITE SetTextColor RESET resetTextColor)
    /// Size of the font in pixels; what is below 1 counts as 12. \since 1.0
    Q_PROPERTY(int pixelSize READ pixelSize WRITE setPixelSize RESET resetPixelSize)

public:
    /// An empty label in the font that its parent gives it. \since 1.0
    explicit CBPLabel(QWidget *parent = nullptr);

    /// A label with \a text, 12 pixels large. \since 1.0
    explicit CBPLabel(QString text, QWidget *parent = nullptr);

    /// A label with \a text, \a pixelSize pixels large. \since 1.0
    CBPLabel(QString text, int pixelSize, QWidget *parent = nullptr);

    /// The same with a text in \a color. \since 1.0
    CBPLabel(QString text, QColor color, int pixelSize, QWidget *parent = nullptr);

    ~CBPLabel() override;

    /// Sets the colour of the text, which a style sheet overrules. An invalid one is left out. \since 1.0
    void SetTextColor(QColor color);

    /// The colour of the text while the label is enabled. \since 1.0
    QColor textColor() const;

    /// Gives the text the colour back that it had before one was set. \since 1.0
    void resetTextColor();

    /// The size of the font in pixels, also where it was set in points. \since 1.0
    int pixelSize() const;

    /// Sets the size of the font in pixels; what is below 1 counts as 12. Where nobody has set a font, it is
    /// that of the interface language from then on. \since 1.0
    void setPixelSize(int pixelSize);

    /// Gives the font the size back that the label was made with, or, of one made without a text, that which
    /// its parent gives it. \since 1.0
    void resetPixelSize();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int m_firstSize = 0; // pixels; 0: its parent's to give
};
