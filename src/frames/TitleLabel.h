#pragma once

#include <QFont>
#include <QLabel>

namespace lumqt {

// A title on one line. What finds no room is cut with an ellipsis, so that a long title neither widens the
// window nor pushes the buttons out of it; the tool tip shows all of it.
class TitleLabel : public QLabel
{
public:
    explicit TitleLabel(QWidget *parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    bool isCut() const;
    bool isPlainLine() const;
    QSize lineHint() const;

    mutable QSize m_textSize; // of the text below in the font below
    mutable QString m_measuredText;
    mutable QFont m_measuredFont;
};

} // namespace lumqt
