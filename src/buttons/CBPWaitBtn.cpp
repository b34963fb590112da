#include "CBPWaitBtn.h"

#include "buttons/AccessibleWaitBtn.h"
#include "buttons/ButtonTones.h"
#include "CBPEvtLoop.h"
#include "foundation/IconPixmap.h"
#include "foundation/ImageLoader.h"
#include "foundation/ListText.h"
#include "foundation/Painting.h"

#include <QPainter>
#include <QShowEvent>
#include <QStyle>

namespace {

constexpr int kNoFrameYet = 255;
constexpr int kSpinnerGap = 6; // pixels between spinner and waiting text
constexpr int kInset = 4;      // of both from the button's ends, where there is no more room
constexpr int kHover = 1;      // state

} // namespace

class CBPWaitBtn::Accessible : public lumqt::AccessibleWaitBtn
{
public:
    explicit Accessible(CBPWaitBtn *button)
        : AccessibleWaitBtn(button, [button] { return button->shownName(); })
    {
    }

    static QAccessibleInterface *make(QWidget *widget)
    {
        auto *button = qobject_cast<CBPWaitBtn *>(widget);
        return button ? new Accessible(button) : nullptr;
    }
};

CBPWaitBtn::CBPWaitBtn(const QStringList &frames, const QString &text, const QString &waitingText,
                       QWidget *parent, bool autoResize)
    : CBPPushBtn(parent, autoResize, false),
      m_text(text),
      m_waitingText(waitingText),
      m_animation(QStringList())
{
    lumqt::installAccessible("CBPWaitBtn", &Accessible::make);
    // The text not by the base: Qt tells of it, and makes the accessible interface of what the object is
    // then. Of a class derived from this one that is this class, so with an empty text nothing is told.
    if (!text.isEmpty())
        setText(text);
    setReslist(frames);
    connect(this, SIGNAL(clicked()), this, SLOT(onBtnClicked()));
}

CBPWaitBtn::CBPWaitBtn(QWidget *parent) : CBPWaitBtn(QStringList(), QString(), QString(), parent) {}

CBPWaitBtn::~CBPWaitBtn() = default;

void CBPWaitBtn::setReslist(const QStringList &frames)
{
    if (frames.isEmpty())
        return;
    m_frames = frames;
    m_animation.setRes(frames);
    connect(&m_animation, SIGNAL(frameChanged(int)), this, SLOT(iconChanged(int)));
}

void CBPWaitBtn::setFrames(const QStringList &frames)
{
    if (frames.isEmpty())
        return;
    disconnect(&m_animation, SIGNAL(frameChanged(int)), this, SLOT(iconChanged(int)));
    setReslist(lumqt::listOf(frames));
}

// A later wait is not to take the text of an earlier one, still shown, for the one that it ends with.
void CBPWaitBtn::setWaitingText(const QString &waitingText)
{
    const bool shows = m_showsWaitingText && text() == m_waitingText;
    m_waitingText = waitingText;
    if (shows)
        showText(waitingText, true);
}

void CBPWaitBtn::setWaitingText(QString &text, QString &waitingText)
{
    m_waitingText = waitingText;
    setNormalText(text);
}

void CBPWaitBtn::setNormalText(const QString &text)
{
    m_text = text;
    showText(text, false);
}

void CBPWaitBtn::showText(const QString &text, bool waiting)
{
    m_showsWaitingText = waiting;
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
    m_restored = false;
    tellWaiting();
    if (!alive)
        return 0;
    if (m_restored) { // by who was told: there is no loop yet that could have been ended
        --m_waits;
        return 0;
    }
    const int code = CBPSyncObj::run(loop, false);
    if (!alive)
        return code;
    // The loop may have been left by other means than exit(), and the spinner stopped by Show(false), which
    // leaves the text away.
    if (--m_waits == 0 && !m_restored)
        restore();
    return code;
}

int CBPWaitBtn::exit(CBPEvtLoop *loop, bool)
{
    if (m_waits > 1) // the button stays the other wait's
        return CBPSyncObj::exit(loop, false);
    const QPointer<CBPWaitBtn> alive(this);
    m_restored = true;
    restore();
    if (alive)
        QWidget::setFocus();
    // A button that is gone by now has ended its waits itself.
    return alive ? CBPSyncObj::exit(loop, false) : 0;
}

void CBPWaitBtn::Show(bool show)
{
    if (show) {
        const QPointer<CBPWaitBtn> alive(this);
        startWaiting();
        setEnabled(false);
        if (alive)
            tellWaiting();
    } else {
        if (showsSpinner())
            setIcon(QIcon()); // it would stand still on a button that can be pressed
        endWaiting();
    }
}

void CBPWaitBtn::restore()
{
    const QPointer<CBPWaitBtn> alive(this);
    showText(m_text, false);
    if (!alive) // somebody minded the text
        return;
    setIcon(QIcon(QString()));
    endWaiting();
}

void CBPWaitBtn::endWaiting()
{
    stopWaiting();
    repaint();
    const QPointer<CBPWaitBtn> alive(this);
    setEnabled(true);
    // The pointer came, or has stayed, while the button was disabled.
    if (alive && isEnabled() && underMouse()) {
        setState(kHover);
        update();
    }
    if (alive)
        tellWaiting();
}

// Last in all that changes it: the button may be gone after.
void CBPWaitBtn::tellWaiting()
{
    if (m_toldWaiting == m_waiting)
        return;
    m_toldWaiting = m_waiting;
    emit waitingChanged(m_waiting);
}

bool CBPWaitBtn::showsSpinner() const
{
    return !icon().isNull() && icon().cacheKey() == m_spinner;
}

// Once, however often it is asked for: the animation counts its starts, and one stop is to be enough.
void CBPWaitBtn::startWaiting()
{
    if (m_waiting)
        return;
    m_waiting = true;
    lumqt::ButtonTones::setWaiting(*this, true);
    // What setText() has set is what the wait ends with; the text of an earlier wait may still be shown.
    if (!m_showsWaitingText || text() != m_waitingText)
        m_text = text();
    if (!m_hidden)
        m_animation.start();
}

void CBPWaitBtn::stopWaiting()
{
    m_waiting = false;
    lumqt::ButtonTones::setWaiting(*this, false);
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
    if (frame.isNull())
        return; // a file that is missing: an empty button would tell nobody what it waits for
    QIcon icon(frame);
    icon.addPixmap(frame, QIcon::Disabled); // the button is disabled, the spinner is not to be grey
    m_spinner = icon.cacheKey();
    setIconSize(lumqt::logicalSize(frame));
    setIcon(icon);
    showText(m_waitingText, true);
}

void CBPWaitBtn::onBtnClicked() {}

// ----------------------------------------------------------------------------------------------------------
// painting

void CBPWaitBtn::drawPixmapAndText(QPainter *painter, QPen &pen, QRect &rect, int index)
{
    if (showsSpinner() && !text().isEmpty()) {
        drawSpinnerAndText(painter, pen, rect, index);
        return;
    }
    CBPPushBtn::drawPixmapAndText(painter, pen, rect, index);
    // Show(false) leaves the text that was shown last. Where that is none, the button says what it does
    // all the same.
    if (!m_waiting && m_showsWaitingText && text().isEmpty() && icon().isNull())
        lumqt::CachedText().drawCentred(*painter, rect, elided(m_text, rect.width() - 2 * kInset),
                                        textFont());
}

// The base centres the text, and before it makes room for half an icon only.
void CBPWaitBtn::drawSpinnerAndText(QPainter *painter, QPen &pen, const QRect &rect, int index)
{
    const QPixmap spinner = lumqt::iconPixmap(icon(), iconSize(), iconMode(), this);
    const QSize size = lumqt::logicalSize(spinner);
    const int before = size.width() + kSpinnerGap;
    const QRect room = rect.adjusted(kInset, 0, -kInset, 0);
    const QString label = elided(text(), room.width() - before);
    const QFontMetrics metrics(textFont());
    const int width = metrics.horizontalAdvance(label);
    int left = (room.width() - width) / 2;
    if (left < before) // not in the middle, then, but together with the spinner
        left = before + (room.width() - before - width) / 2;
    left += room.x();
    const int top = rect.y() + (rect.height() - size.height()) / 2;
    const QRect spinnerRect(QPoint(left - before, top), size);
    const QRect textRect(left, rect.y(), width, rect.height());
    painter->drawPixmap(QStyle::visualRect(layoutDirection(), rect, spinnerRect).topLeft(), spinner);
    pen.setColor(paintedTextColor(index));
    painter->setPen(pen);
    painter->setFont(textFont());
    painter->drawText(QStyle::visualRect(layoutDirection(), rect, textRect).x(),
                      rect.y() + (rect.height() - metrics.height()) / 2 + metrics.ascent(), label);
}
