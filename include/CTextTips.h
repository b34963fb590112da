#pragma once

#include "LumQtGlobal.h"

#include <QBrush>
#include <QColor>
#include <QWidget>

class QLabel;

/// A plain dark box with a text, shown like a tool tip: without a frame, on top, and never active.
///
/// Whoever makes it places, shows and hides it. It is as large as its text. Its ground is SetBkgColor()'s
/// alone: what a style sheet lays behind labels is not laid behind its text. Screen readers call it by its
/// text where it has no accessible name. GUI thread only. \since 1.0
class LUMQT_EXPORT CTextTips : public QWidget
{
    Q_OBJECT
    /// The text, plain or rich. \since 1.0
    Q_PROPERTY(QString text READ text WRITE SetShowText NOTIFY textChanged)
    /// Colour of the box. An invalid one is left out; a reset brings back the theme's. \since 1.0
    Q_PROPERTY(QColor backgroundColor READ backgroundColor WRITE SetBkgColor RESET resetBackgroundColor)
    /// Width of the text in pixels, at which it wraps; 0 or less: its own. \since 1.0
    Q_PROPERTY(int textWidth READ textWidth WRITE setTextWidth)

public:
    /// A tip without text. With a \a width above 0 the text is that many logical pixels wide and wraps at
    /// words, or within a word that is longer than a line; otherwise it keeps its lines and decides the width
    /// itself. \since 1.0
    explicit CTextTips(int width = 0, QWidget *parent = nullptr);

    /// Sets the text, plain or rich as QLabel tells them apart, and fits the box to it. Where the text brings
    /// no colour of its own it is white, or dark on a light background. \since 1.0
    void SetShowText(const QString &text);

    /// The text. \since 1.0
    QString text() const;

    /// Sets the background colour; #101c2d at first. An invalid colour is ignored.
    /// \since 1.0
    void SetBkgColor(const QColor &color);

    /// The background colour; the built-in one where none is set. \since 1.0
    QColor backgroundColor() const;

    /// Gives the box the theme's colour again. \since 1.0
    void resetBackgroundColor();

    /// The width of the text, as it was set. \since 1.0
    int textWidth() const { return m_width; }

    /// Sets the width of the text as the constructor does, and fits the box to it. \since 1.0
    void setTextWidth(int width);

Q_SIGNALS:
    /// SetShowText() has set another text. The tip may be deleted here. \since 1.0
    void textChanged(const QString &text);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void InitLayout();
    QLabel *makeLabel();
    void followBackground();

    QColor m_bkgColor; // invalid: the theme's
    QBrush m_textBrush;
    QLabel *m_label = nullptr;
    int m_width;
};
