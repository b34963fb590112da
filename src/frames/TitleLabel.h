#pragma once

#include <QLabel>

namespace lumqt {

// A title on one line. What finds no room is cut with an ellipsis, so that a long title neither widens the
// window nor pushes the buttons out of it; the tool tip shows all of it.
class TitleLabel : public QLabel
{
public:
    explicit TitleLabel(QWidget *parent);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    bool isCut() const;
};

} // namespace lumqt
