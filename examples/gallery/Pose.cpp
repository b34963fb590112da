#include "Pose.h"

#include "CBPPushBtn.h"
#include "CBPWinFrm.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
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

// Of what is selected, where it does not stand in a letter.
void moveCursorToEnd(QWidget *sample)
{
    auto *edit = qobject_cast<QLineEdit *>(sample);
    if (!edit && sample->inherits("QAbstractSpinBox"))
        edit = sample->findChild<QLineEdit *>();
    if (edit && edit->hasSelectedText())
        edit->setSelection(edit->selectionStart(), edit->selectionLength());
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
        // One that has no size yet may take its middle for a place beside what can be pressed.
        if (auto *button = qobject_cast<QAbstractButton *>(sample))
            button->setDown(true);
        if (auto *button = qobject_cast<CBPPushBtn *>(sample))
            button->setFocus(false); // its press marks it as focused, too
        break;
    case Focused: {
        sample->ensurePolished(); // a style that follows the focus begins to do so here
        QFocusEvent event(QEvent::FocusIn, Qt::TabFocusReason);
        QCoreApplication::sendEvent(sample, &event);
        new FocusWhilePainting(sample);
        moveCursorToEnd(sample);
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
