#include "Pose.h"

#include "CBPWinFrm.h"

#include <QAbstractScrollArea>
#include <QApplication>
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

// Some ask for the focus when they paint, and those that a style paints do. To them a widget has it when the
// one that it stands in for has it; that may be any of the program.
class FocusWhilePainting : public QObject
{
public:
    explicit FocusWhilePainting(QWidget *sample) : QObject(sample), m_sample(sample)
    {
        sample->installEventFilter(this);
        if (auto *area = qobject_cast<QAbstractScrollArea *>(sample))
            area->viewport()->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        QWidget *focused = QApplication::focusWidget();
        if (event->type() != QEvent::Paint || m_painting || !focused || m_sample->hasFocus())
            return false;
        m_painting = true;
        m_sample->setFocusProxy(focused);
        QCoreApplication::sendEvent(watched, event);
        m_sample->setFocusProxy(nullptr); // or the end of the sample would be that of the focus
        m_painting = false;
        return true;
    }

private:
    QWidget *m_sample;
    bool m_painting = false;
};

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
        new FocusWhilePainting(sample);
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
