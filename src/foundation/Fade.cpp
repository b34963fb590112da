#include "foundation/Fade.h"

#include "foundation/Palette.h"
#include "foundation/StyleWatch.h"
#include "platform/Platform.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QHash>
#include <QHeaderView>
#include <QPointer>
#include <QSet>
#include <QStyle>
#include <QTimerEvent>
#include <QWidget>

namespace lumqt {

namespace {

constexpr int kFrameTime = 16; // ms

struct Part
{
    QRgb from = 0;
    QRgb target = 0;
    qint64 began = -1; // on the clock of the fades; -1: at rest
};

int mixed(int from, int to, qreal share)
{
    return qRound(from + (to - from) * share);
}

QColor mixed(QRgb from, QRgb to, qreal share)
{
    return QColor(mixed(qRed(from), qRed(to), share), mixed(qGreen(from), qGreen(to), share),
                  mixed(qBlue(from), qBlue(to), share), mixed(qAlpha(from), qAlpha(to), share));
}

class Fades : public QObject
{
public:
    explicit Fades(QObject *parent) : QObject(parent)
    {
        m_clock.start();
        onThemeChange(this, [this] { settleAll(); });
    }

    QColor color(const QWidget *widget, int number, const QColor &target)
    {
        auto parts = m_widgets.find(widget);
        if (parts == m_widgets.end()) {
            parts = m_widgets.insert(widget, {});
            connect(widget, &QObject::destroyed, this, [this, widget] { forget(widget); });
        }
        const auto known = parts->find(number);
        if (known == parts->end() || !widget->isVisible()) {
            settle((*parts)[number], target.rgba());
            return target;
        }
        Part &part = *known;
        if (part.target != target.rgba())
            start(widget, part, target.rgba());
        return part.began < 0 ? target : now(part);
    }

    int running() const { return m_running; }

protected:
    void timerEvent(QTimerEvent *) override
    {
        const QSet<const QWidget *> moving = m_moving;
        for (const QWidget *widget : moving) {
            bool rests = true;
            for (Part &part : m_widgets[widget]) {
                if (part.began >= 0 && m_clock.elapsed() - part.began >= kFadeTime)
                    settle(part, part.target);
                rests = rests && part.began < 0;
            }
            if (rests)
                m_moving.remove(widget);
            repaint(const_cast<QWidget *>(widget)); // painters have it as const
        }
        if (m_running == 0)
            m_timer.stop();
    }

private:
    QColor now(const Part &part) const
    {
        const qreal share = qreal(m_clock.elapsed() - part.began) / kFadeTime;
        return mixed(part.from, part.target, qBound(0.0, share, 1.0));
    }

    void start(const QWidget *widget, Part &part, QRgb target)
    {
        const auto &lessMotion = platform::answers().lessMotion;
        if ((lessMotion && lessMotion()) ||
            widget->style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, widget) == 0) {
            settle(part, target);
            return;
        }
        part.from = part.began < 0 ? part.target : now(part).rgba();
        part.target = target;
        if (part.began < 0)
            ++m_running;
        part.began = m_clock.elapsed();
        m_moving.insert(widget);
        if (!m_timer.isActive())
            m_timer.start(kFrameTime, Qt::PreciseTimer, this);
    }

    void settle(Part &part, QRgb target)
    {
        if (part.began >= 0)
            --m_running;
        part.began = -1;
        part.target = target;
    }

    // What is shown next is shown at once, with all the others.
    void settleAll()
    {
        for (QHash<int, Part> &parts : m_widgets)
            parts.clear();
        m_moving.clear();
        m_running = 0;
        m_timer.stop();
    }

    void forget(const QWidget *widget)
    {
        m_moving.remove(widget);
        const QHash<int, Part> parts = m_widgets.take(widget);
        for (const Part &part : parts)
            m_running -= part.began >= 0 ? 1 : 0;
    }

    static void repaint(QWidget *widget)
    {
        if (auto *header = qobject_cast<QHeaderView *>(widget)) // its sections lie in its viewport
            header->viewport()->update();
        else if (qobject_cast<QAbstractScrollArea *>(widget))
            StyleWatch::updateFrame(widget);
        else
            widget->update();
    }

    QHash<const QWidget *, QHash<int, Part>> m_widgets;
    QSet<const QWidget *> m_moving;
    QElapsedTimer m_clock;
    QBasicTimer m_timer;
    int m_running = 0;
};

QPointer<Fades> &fades()
{
    static QPointer<Fades> all;
    return all;
}

} // namespace

QColor fadedColor(const QWidget *widget, int part, const QColor &target)
{
    if (!widget || !QCoreApplication::instance())
        return target;
    if (!fades())
        fades() = new Fades(QCoreApplication::instance());
    return fades()->color(widget, part, target);
}

int runningFades()
{
    return fades() ? fades()->running() : 0;
}

} // namespace lumqt
