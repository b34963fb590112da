#include "datetime/FrameAbove.h"

#include "foundation/Painting.h"

#include <QChildEvent>
#include <QPainter>

namespace lumqt {

FrameAbove::FrameAbove(QWidget *around) : QWidget(around)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(around->rect());
    around->installEventFilter(this);
}

void FrameAbove::setColor(Purpose color)
{
    if (m_color == color)
        return;
    m_color = color;
    update();
}

void FrameAbove::setFocusRing(bool shown)
{
    if (m_ring == shown)
        return;
    m_ring = shown;
    update();
}

bool FrameAbove::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        setGeometry(static_cast<QWidget *>(watched)->rect());
    else if (event->type() == QEvent::ChildPolished && static_cast<QChildEvent *>(event)->child() != this)
        raise(); // what is added later lies on top
    return false;
}

void FrameAbove::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (m_ring) {
        drawFocusRing(painter, rect(), 0, 0);
        return;
    }
    Body frame;
    frame.frame = themeColor(m_color);
    drawBody(painter, rect(), frame);
}

} // namespace lumqt
