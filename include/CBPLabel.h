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

protected:
    void paintEvent(QPaintEvent *event) override;
};
