#pragma once

#include "CBPLabel.h"
#include "foundation/Palette.h"

#include <QHash>
#include <QTextDocument>

namespace lumqt {

// A label that breaks its text into lines wherever it has to: a QLabel lets a word that is longer than a line
// run out of sight. What is markup is decided as in a QLabel; links in it are not clickable.
class WrappedLabel : public CBPLabel
{
public:
    WrappedLabel(const QString &text, int weightIndex, int pixelSize);
    // The same in a colour of the theme, unless an application sets another.
    WrappedLabel(const QString &text, int weightIndex, int pixelSize, Purpose color);

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    // The text as a person reads it.
    static QString plainText(const QString &text);

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QTextDocument &laidOut(int width) const;
    int narrowest() const;

    // Of the text and font of the last use, as nothing tells of a new text.
    mutable QTextDocument m_document;
    mutable QString m_shown;
    mutable int m_narrowest = -1;
    mutable QHash<int, int> m_heights; // by width: a layout asks for some more than once
};

} // namespace lumqt
