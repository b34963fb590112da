#pragma once

#include "LumQtGlobal.h"

#include <QColor>
#include <QFont>
#include <QString>
#include <QWidget>

#include <memory>

namespace lumqt {
class CachedText;
}

/// A plain text in the middle of the widget, with the outline of a pill around it or without.
///
/// It is never wrapped: only its own line breaks begin a line, and what is too long runs out at both sides.
/// Screen readers find it as a text. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPDrawLabel : public QWidget
{
    Q_OBJECT

public:
    /// A widget without a parent that shows \a text in \a color, 14 pixels large; \a rounded adds the pill
    /// in the same colour. With an empty text neither is painted; an invalid colour is black. \since 1.0
    CBPDrawLabel(QString &text, QColor color, bool rounded);

    ~CBPDrawLabel() override;

    /// Sets the font's family and its size in pixels; a size below 1 is left out with a warning. \since 1.0
    void SetTextFont(QString &family, int pixelSize);

    /// Sets the colour of the text and its outline; an invalid one is black. \since 1.0
    void SetTextShowColor(QColor color);

    /// Room for the text, and for the round ends of the pill. \since 1.0
    QSize sizeHint() const override;
    /// The same: a layout keeps it this large. \since 1.0
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_text;
    QColor m_color;
    QFont m_font;
    bool m_rounded;
    std::unique_ptr<lumqt::CachedText> m_layout;
};
