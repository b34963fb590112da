#include "CBPAnimationObj.h"

#include "foundation/ImageLoader.h"
#include "foundation/ListText.h"
#include "foundation/Log.h"
#include "foundation/Palette.h"

#include <QGuiApplication>

#include <climits>
#include <utility>

namespace {

constexpr int kInterval = 80; // ms
constexpr int kDelayTicks = 10;
constexpr int kNothingShown = 255;
constexpr int kMostStripFrames = 4096;

// Of the densest screen: the pictures are for whatever widget shows them.
QPixmap load(const QString &path)
{
    return lumqt::loadPixmap(path, qGuiApp ? qGuiApp->devicePixelRatio() : 1.0);
}

QPixmap cut(const QPixmap &strip, const QRect &logical)
{
    // Of an empty rectangle QPixmap would copy the whole.
    if (logical.isEmpty())
        return QPixmap();
    const qreal ratio = strip.devicePixelRatio();
    return strip.copy(
        QRectF(QPointF(logical.topLeft()) * ratio, QSizeF(logical.size()) * ratio).toAlignedRect());
}

} // namespace

CBPAnimationObj::CBPAnimationObj(QStringList paths)
{
    m_paths = paths;
    m_frames = load();
    init();
}

CBPAnimationObj::CBPAnimationObj(QVector<QPixmap> frames) : m_frames(frames)
{
    init();
}

CBPAnimationObj::CBPAnimationObj(QString file, int count, bool horizontal)
{
    if (count > kMostStripFrames)
        qCWarning(lcLumQt, "CBPAnimationObj: a strip has no more than %d frames", kMostStripFrames);
    m_paths = QStringList{file};
    m_isStrip = true;
    m_stripFrames = count;
    m_horizontal = horizontal;
    m_frames = load();
    init();
}

CBPAnimationObj::~CBPAnimationObj() = default;

void CBPAnimationObj::init()
{
    m_index = kNothingShown;
    m_timer.setInterval(kInterval);
    resetDelayInterval();
    connect(&m_timer, &QTimer::timeout, this, &CBPAnimationObj::onTimeout);
}

QVector<QPixmap> CBPAnimationObj::load() const
{
    m_generation = lumqt::themeGeneration();
    if (m_isStrip)
        return cutStrip();
    QVector<QPixmap> frames;
    frames.reserve(m_paths.size());
    for (const QString &path : m_paths)
        frames.append(::load(path));
    return frames;
}

QVector<QPixmap> CBPAnimationObj::cutStrip() const
{
    const QPixmap strip = ::load(m_paths.first());
    QVector<QPixmap> frames;
    QSize size = lumqt::logicalSize(strip);
    for (int i = 0; i < qMin(m_stripFrames, kMostStripFrames); ++i) {
        // Divided anew on every pass, which is meant: whoever cuts strips relies on it.
        if (m_horizontal)
            size.setWidth(size.width() / m_stripFrames);
        else
            size.setHeight(size.height() / m_stripFrames);
        const QPoint at = m_horizontal ? QPoint(i * size.width(), 0) : QPoint(0, i * size.height());
        frames.append(cut(strip, QRect(at, size)));
    }
    return frames;
}

// When a frame is asked for: there may be many animations, most of them at rest. A file that is gone by now
// leaves its frame as it is.
void CBPAnimationObj::followTheme() const
{
    if (m_paths.isEmpty() || m_generation == lumqt::themeGeneration())
        return;
    const QVector<QPixmap> frames = load();
    for (int i = 0; i < frames.size() && i < m_frames.size(); ++i) {
        if (!frames.at(i).isNull())
            m_frames[i] = frames.at(i);
    }
}

void CBPAnimationObj::start()
{
    begin();
    tellRunning();
}

void CBPAnimationObj::stop()
{
    end();
    tellRunning();
}

void CBPAnimationObj::begin()
{
    ++m_runs;
    m_timer.start();
}

void CBPAnimationObj::end()
{
    m_runs = qMax(0, m_runs - 1);
    if (m_runs < 1)
        m_timer.stop();
    resetDelayInterval();
}

void CBPAnimationObj::tellRunning()
{
    const bool running = isRunning();
    if (std::exchange(m_toldRunning, running) != running)
        emit runningChanged(running); // the animation may be gone after
}

bool CBPAnimationObj::isRunning() const
{
    return m_timer.isActive();
}

void CBPAnimationObj::setInterval(int ms)
{
    if (ms < 1) {
        qCWarning(lcLumQt, "CBPAnimationObj: %d ms is no interval", ms);
        return;
    }
    m_timer.setInterval(ms);
}

int CBPAnimationObj::interval() const
{
    return m_timer.interval();
}

void CBPAnimationObj::resetInterval()
{
    setInterval(kInterval);
}

void CBPAnimationObj::setDelayInterval(int ms)
{
    m_startDelay = ms;
}

int CBPAnimationObj::delayInterval() const
{
    return m_startDelay;
}

void CBPAnimationObj::resetDelayInterval()
{
    // Ten times an interval of days is more than an int holds.
    setDelayInterval(int(qMin<qint64>(qint64(kDelayTicks) * m_timer.interval(), INT_MAX)));
}

void CBPAnimationObj::setRes(QStringList paths)
{
    const bool wasRunning = isRunning();
    if (wasRunning)
        end();
    m_isStrip = false;
    m_paths = paths;
    m_frames = load();
    if (wasRunning)
        begin();
}

void CBPAnimationObj::setImages(const QStringList &paths)
{
    setRes(lumqt::listOf(paths));
}

QStringList CBPAnimationObj::images() const
{
    return m_paths;
}

int CBPAnimationObj::frameCount() const
{
    return int(m_frames.size());
}

int CBPAnimationObj::curentIndex() const
{
    return m_index;
}

QPixmap CBPAnimationObj::currentPixmap() const
{
    return pixmapAt(m_index);
}

QPixmap CBPAnimationObj::pixmapAt(int i) const
{
    followTheme();
    // The current index counts, not the one asked for: nothing is to be seen before the first change.
    return m_index == kNothingShown ? QPixmap() : m_frames.value(i);
}

void CBPAnimationObj::onFrameChanged(int index)
{
    emit frameChanged(index);
}

void CBPAnimationObj::onTimeout()
{
    if (m_startDelay >= 0)
        m_startDelay -= m_timer.interval();
    if (m_startDelay >= 0)
        return;
    if (m_frames.isEmpty()) {
        stop();
        return;
    }
    m_index = (m_index + 1) % m_frames.size();
    onFrameChanged(m_index);
}
