#include "Pose.h"

#include "CBPWinFrm.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QWidget>

namespace pose {

namespace {

void sendEnter(QWidget *sample)
{
    const QPointF centre = QRectF(sample->rect()).center();
    QEnterEvent event(centre, centre, sample->mapToGlobal(centre.toPoint()));
    QCoreApplication::sendEvent(sample, &event);
}

void sendPress(QWidget *sample)
{
    const QPointF centre = QRectF(sample->rect()).center();
    QMouseEvent event(QEvent::MouseButtonPress, centre, sample->mapToGlobal(centre.toPoint()), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(sample, &event);
}

} // namespace

void put(QWidget *sample, State state)
{
    sample->setAttribute(Qt::WA_TransparentForMouseEvents);
    sample->setFocusPolicy(Qt::NoFocus);
    switch (state) {
    case Normal:
        break;
    case Hovered:
        sendEnter(sample);
        break;
    case Pressed:
        sendEnter(sample);
        sendPress(sample);
        break;
    case Focused: {
        QFocusEvent event(QEvent::FocusIn, Qt::TabFocusReason);
        QCoreApplication::sendEvent(sample, &event);
        break;
    }
    case Disabled:
        sample->setEnabled(false);
        break;
    }
}

QWidget *portrait(CBPWinFrm &dialog, int width, int height)
{
    dialog.setAttribute(Qt::WA_DontShowOnScreen);
    dialog.AppendContent(new QWidget, true, false, 0); // or the title bar shares the room with the text
    dialog.resize(width, height);
    auto *label = new QLabel;
    label->setPixmap(dialog.grab());
    return label;
}

} // namespace pose
