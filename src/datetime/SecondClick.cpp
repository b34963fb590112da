#include "datetime/SecondClick.h"

#include <QApplication>
#include <QMouseEvent>

#include <utility>

namespace lumqt {

SecondClick::SecondClick(std::function<void()> made) : QObject(qApp), m_made(std::move(made))
{
    qApp->installEventFilter(this);
}

void SecondClick::end()
{
    m_taking = false;
    qApp->removeEventFilter(this);
    deleteLater();
}

bool SecondClick::eventFilter(QObject *, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseButtonDblClick &&
        type != QEvent::MouseButtonRelease)
        return false;
    if (m_taking && type != QEvent::MouseButtonPress) {
        if (type == QEvent::MouseButtonRelease)
            end();
        return true;
    }
    if (type == QEvent::MouseButtonRelease)
        return false; // of the first click
    // Qt says of a press whether it is the second one, wherever the first was.
    const auto *press = static_cast<QMouseEvent *>(event);
    if (m_taking || !(press->flags() & Qt::MouseEventCreatedDoubleClick)) {
        end();
        return false;
    }
    m_taking = true;
    std::exchange(m_made, nullptr)();
    return true;
}

} // namespace lumqt
