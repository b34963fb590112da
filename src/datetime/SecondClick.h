#pragma once

#include <QObject>

#include <functional>

namespace lumqt {

// The first click of a double click closes the window it was made in, and the second one would press whatever
// lies beneath. Takes that one for itself: press, double click and release reach nobody in this application.
// Lives until the next press, wherever it is; clicks on other applications are out of reach.
class SecondClick : public QObject
{
public:
    // `made` is called on the second click, if it is one.
    explicit SecondClick(std::function<void()> made);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void end();

    std::function<void()> m_made;
    bool m_taking = false; // from its press to its release
};

} // namespace lumqt
