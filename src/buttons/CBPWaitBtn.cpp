#include "CBPWaitBtn.h"

#include "CBPEvtLoop.h"
#include "foundation/Accessible.h"
#include "foundation/ImageLoader.h"

#include <QShowEvent>

namespace {

constexpr int kNoFrameYet = 255;

} // namespace

// A button without a text is not without a name while it waits.
class CBPWaitBtn::Accessible : public lumqt::AccessibleButton
{
public:
    explicit Accessible(CBPWaitBtn *button)
        : AccessibleButton(button, [button] { return button->shownName(); }), m_button(button)
    {
    }

    static QAccessibleInterface *make(QWidget *widget)
    {
        auto *button = qobject_cast<CBPWaitBtn *>(widget);
        return button ? new Accessible(button) : nullptr;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = AccessibleButton::state();
        state.busy = m_button && m_button->isWaitting();
        return state;
    }

private:
    QPointer<CBPWaitBtn> m_button;
};

CBPWaitBtn::CBPWaitBtn(const QStringList &frames, const QString &text, const QString &waitingText,
                       QWidget *parent, bool autoResize)
    : CBPPushBtn(parent, autoResize, false),
      m_text(text),
      m_waitingText(waitingText),
      m_animation(QStringList())
{
    lumqt::installAccessible("CBPWaitBtn", &Accessible::make);
    // Not by the base: Qt tells of the new text, and makes the accessible interface of what the object is
    // then.
    setText(text);
    setReslist(frames);
    connect(this, SIGNAL(clicked()), this, SLOT(onBtnClicked()));
}

CBPWaitBtn::~CBPWaitBtn() = default;

void CBPWaitBtn::setReslist(const QStringList &frames)
{
    if (frames.isEmpty())
        return;
    m_animation.setRes(frames);
    connect(&m_animation, SIGNAL(frameChanged(int)), this, SLOT(iconChanged(int)));
}

void CBPWaitBtn::setWaitingText(QString &text, QString &waitingText)
{
    m_text = text;
    m_waitingText = waitingText;
    setText(text);
}

void CBPWaitBtn::resetText(const QString &text)
{
    m_text = text;
    setText(text);
}

QString CBPWaitBtn::shownName() const
{
    const QString shown = text();
    return shown.isEmpty() ? m_text : shown;
}

bool CBPWaitBtn::isWaitting()
{
    return m_waiting;
}

QPixmap CBPWaitBtn::currentPixmap()
{
    return m_animation.currentPixmap();
}

// ----------------------------------------------------------------------------------------------------------
// waiting

int CBPWaitBtn::run(CBPEvtLoop *loop, bool)
{
    if (isInLoop(loop))
        return 0; // the button belongs to the wait under way
    const QPointer<CBPWaitBtn> alive(this);
    startWaiting();
    setEnabled(false);
    if (!alive) // the focus left it, and somebody minded
        return 0;
    ++m_waits;
    const int code = CBPSyncObj::run(loop, false);
    if (!alive)
        return code;
    // The loop may have been left by other means than exit().
    if (--m_waits == 0 && m_waiting)
        restore();
    return code;
}

int CBPWaitBtn::exit(CBPEvtLoop *loop, bool)
{
    const QPointer<CBPWaitBtn> alive(this);
    restore();
    if (alive)
        QWidget::setFocus();
    // A button that is gone by now has ended its waits itself.
    return alive ? CBPSyncObj::exit(loop, false) : 0;
}

void CBPWaitBtn::Show(bool show)
{
    if (show) {
        startWaiting();
        setEnabled(false);
    } else {
        stopWaiting();
        repaint();
        setEnabled(true);
    }
}

void CBPWaitBtn::restore()
{
    setText(m_text);
    setIcon(QIcon(QString()));
    stopWaiting();
    repaint();
    setEnabled(true);
}

// Once, however often it is asked for: the animation counts its starts, and one stop is to be enough.
void CBPWaitBtn::startWaiting()
{
    if (m_waiting)
        return;
    m_waiting = true;
    if (!m_hidden)
        m_animation.start();
}

void CBPWaitBtn::stopWaiting()
{
    m_waiting = false;
    m_animation.stop();
}

void CBPWaitBtn::showEvent(QShowEvent *event)
{
    m_hidden = false;
    if (m_waiting && !m_animation.isRunning()) {
        if (m_animation.curentIndex() != kNoFrameYet)
            m_animation.setDelayInterval(0); // it goes on where it was
        m_animation.start();
    }
    CBPPushBtn::showEvent(event);
}

void CBPWaitBtn::hideEvent(QHideEvent *event)
{
    m_hidden = true;
    if (m_animation.isRunning())
        m_animation.stop();
    CBPPushBtn::hideEvent(event);
}

void CBPWaitBtn::iconChanged(int)
{
    const QPixmap frame = m_animation.currentPixmap();
    QIcon icon(frame);
    icon.addPixmap(frame, QIcon::Disabled); // the button is disabled, the spinner is not to be grey
    setIconSize(lumqt::logicalSize(frame));
    setIcon(icon);
    setText(m_waitingText);
}

void CBPWaitBtn::onBtnClicked() {}
