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

public:
    /// A tip without text. With a \a width above 0 the text is that many logical pixels wide and wraps at
    /// words, or within a word that is longer than a line; otherwise it keeps its lines and decides the width
    /// itself. \since 1.0
    explicit CTextTips(int width = 0, QWidget *parent = nullptr);

    /// Sets the text, plain or rich as QLabel tells them apart, and fits the box to it. Where the text brings
    /// no colour of its own it is white, or dark on a light background. \since 1.0
    void SetShowText(const QString &text);

    /// Sets the background colour; #101c2d at first. An invalid colour is ignored.
    /// \since 1.0
    void SetBkgColor(const QColor &color);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void InitLayout();
    void followBackground();

    QColor m_bkgColor; // invalid: the theme's
    QBrush m_textBrush;
    QLabel *m_label = nullptr;
    int m_width;
};
