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
    /// The plain text, of as many lines as it has line breaks. \since 1.0
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    /// Colour of the text and its outline; the theme's until one is set. \since 1.0
    Q_PROPERTY(QColor textColor READ textColor WRITE SetTextShowColor RESET resetTextColor)
    /// Whether the outline of a pill is drawn around the text. \since 1.0
    Q_PROPERTY(bool rounded READ isRounded WRITE setRounded)
    /// Size of the text in pixels, 14 at first; one below 1 is left out. \since 1.0
    Q_PROPERTY(int pixelSize READ pixelSize WRITE setPixelSize RESET resetPixelSize)
    /// Font family of the text; that of the interface language at first. \since 1.0
    Q_PROPERTY(QString fontFamily READ fontFamily WRITE setFontFamily RESET resetFontFamily)

public:
    /// An empty widget, without a pill, whose text will have the colour of the theme. \since 1.0
    explicit CBPDrawLabel(QWidget *parent = nullptr);

    /// A widget without a parent that shows \a text in \a color, 14 pixels large; \a rounded adds the pill
    /// in the same colour. With an empty text neither is painted; an invalid colour is black. \since 1.0
    CBPDrawLabel(QString &text, QColor color, bool rounded);

    ~CBPDrawLabel() override;

    /// Sets the font's family and its size in pixels; a size below 1 is left out with a warning. \since 1.0
    void SetTextFont(QString &family, int pixelSize);

    /// Sets the colour of the text and its outline; an invalid one is black. \since 1.0
    void SetTextShowColor(QColor color);

    /// The text. \since 1.0
    QString text() const;

    /// Sets the text, and the accessible name with it unless that is another one. \since 1.0
    void setText(const QString &text);

    /// The colour of the text and its outline. \since 1.0
    QColor textColor() const;

    /// Gives text and outline the colour of the theme. \since 1.0
    void resetTextColor();

    /// Whether there is a pill around the text. \since 1.0
    bool isRounded() const;

    /// Adds the pill or takes it away. \since 1.0
    void setRounded(bool rounded);

    /// The size of the text in pixels. \since 1.0
    int pixelSize() const;

    /// Sets the size of the text as SetTextFont() does. \since 1.0
    void setPixelSize(int pixelSize);

    /// Makes the text 14 pixels large. \since 1.0
    void resetPixelSize();

    /// The font family of the text. \since 1.0
    QString fontFamily() const;

    /// Sets the font family as SetTextFont() does. \since 1.0
    void setFontFamily(const QString &family);

    /// Sets the text in the font of the interface language. \since 1.0
    void resetFontFamily();

    /// Room for the text, and for the round ends of the pill. \since 1.0
    QSize sizeHint() const override;
    /// The same: a layout keeps it this large. \since 1.0
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The text is another one. \since 1.0
    void textChanged(const QString &text);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_text;
    QColor m_color; // invalid: the theme's
    QFont m_font;
    bool m_rounded;
    std::unique_ptr<lumqt::CachedText> m_layout;
};
