#include "Pose.h"

#include "CBPPushBtn.h"
#include "CBPTheme.h"
#include "CBPWinFrm.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>
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

namespace {

// Most stand on pages that are not on show, and taking a dialog's picture takes a while.
class Portrait : public QLabel
{
public:
    explicit Portrait(const std::function<QPixmap()> &take) : m_take(take)
    {
        setPixmap(m_take());
        connect(CBPTheme::instance(), &CBPTheme::changed, this, [this] {
            m_stale = true;
            QTimer::singleShot(0, this, [this] {
                if (isVisible())
                    renew();
            });
        });
    }

    void renew()
    {
        if (!m_stale)
            return;
        m_stale = false;
        const QPointer<Portrait> alive(this);
        const auto take = m_take; // outlives the label
        const QPixmap picture = take();
        if (alive)
            setPixmap(picture);
    }

private:
    std::function<QPixmap()> m_take;
    bool m_stale = false;
};

} // namespace

QLabel *shown(const std::function<QPixmap()> &take)
{
    return new Portrait(take);
}

void renew(QWidget *root)
{
    QVector<QPointer<Portrait>> portraits;
    const auto labels = root->findChildren<QLabel *>();
    for (QLabel *label : labels) {
        if (auto *portrait = dynamic_cast<Portrait *>(label))
            portraits << portrait;
    }
    for (const QPointer<Portrait> &portrait : qAsConst(portraits)) {
        if (portrait)
            portrait->renew();
    }
}

QPixmap portrait(CBPWinFrm &dialog, int width, int height)
{
    dialog.setAttribute(Qt::WA_DontShowOnScreen);
    if (!dialog.contentWidget()) // or the title bar shares the room with the text
        dialog.AppendContent(new QWidget, true, false, 0);
    dialog.resize(width, height);
    return dialog.grab();
}

} // namespace pose
