#include "CBPGifLable.h"

#include "foundation/EmbeddedRes.h"
#include "foundation/ImageLoader.h"
#include "foundation/Palette.h"
#include "foundation/StyledGround.h"

#include <QDir>
#include <QFileInfo>
#include <QTimerEvent>

#include <utility>

namespace {

constexpr int kFrameInterval = 100; // ms
constexpr int kNoFrame = -1;

} // namespace

CBPGifLable::CBPGifLable(const QString &dir, const int &count, QWidget *parent) : CBPGifLable(parent)
{
    SetResInfo(dir, count);
}

CBPGifLable::CBPGifLable(QWidget *parent) : QLabel(parent)
{
    lumqt::onThemeChange(this, [this] {
        if (m_playing && !pixmap(Qt::ReturnByValue).isNull())
            SetResPic(m_shown);
    });
}

CBPGifLable::~CBPGifLable()
{
    killFrameTimer();
}

void CBPGifLable::SetResInfo(const QString &dir, const int &count)
{
    m_dir = dir;
    m_count = count;
    RestSize();
    startIfWaiting();
}

bool CBPGifLable::StartGif()
{
    // A start that fails stops nothing: what plays goes on, and StopGif() has a picture to take away.
    const bool wasRunning = std::exchange(m_running, false);
    m_waiting = false;
    if (m_count >= 1)
        play();
    const bool running = m_running;
    if (running != wasRunning)
        emit runningChanged(running); // the label may be gone after
    return running;
}

void CBPGifLable::play()
{
    killFrameTimer();
    m_frame = 0;
    m_timerId = startTimer(kFrameInterval, Qt::CoarseTimer);
    m_playing = m_running = m_timerId != 0;
    if (!isVisible())
        killFrameTimer(); // showEvent() makes another
}

void CBPGifLable::StopGif()
{
    m_waiting = false;
    if (!m_playing)
        return;
    m_playing = false;
    m_frame = kNoFrame;
    killFrameTimer();
    SetResPic(kNoFrame);
    if (std::exchange(m_running, false))
        emit runningChanged(false);
}

bool CBPGifLable::IsRunning() const
{
    return m_running;
}

void CBPGifLable::setRunning(bool running)
{
    if (!running)
        StopGif();
    else if (!m_running && !StartGif())
        m_waiting = true;
}

QString CBPGifLable::folder() const
{
    return m_dir;
}

void CBPGifLable::setFolder(const QString &folder)
{
    SetResInfo(folder, m_count);
}

int CBPGifLable::frameCount() const
{
    return m_count;
}

// The size is that of the folder's first picture, whatever their number.
void CBPGifLable::setFrameCount(int count)
{
    m_count = count;
    startIfWaiting();
}

void CBPGifLable::startIfWaiting()
{
    if (m_waiting && m_count >= 1)
        StartGif();
}

void CBPGifLable::RestSize()
{
    const QString file = m_dir.isEmpty() ? QString() : m_dir + QLatin1String("//0.png");
    setFixedSize(lumqt::logicalSize(lumqt::loadPixmap(file, devicePixelRatioF())));
}

void CBPGifLable::SetResPic(int number)
{
    m_shown = number;
    const QString file = m_dir + QDir::separator() + QString::number(number) + QLatin1String(".png");
    // Of the picture that stands for none a folder has a file or, as a rule, not.
    const bool wanted =
        !m_dir.isEmpty() && (number != kNoFrame || QFileInfo::exists(lumqt::fileToRead(file)));
    setPixmap(wanted ? lumqt::loadPixmap(file, devicePixelRatioF()) : QPixmap());
}

void CBPGifLable::killFrameTimer()
{
    if (m_timerId)
        killTimer(m_timerId);
    m_timerId = 0;
}

// ------------------------------------------------------------------------------------------------------------
// events

void CBPGifLable::timerEvent(QTimerEvent *event)
{
    if (!event->isAccepted() || event->timerId() != m_timerId) {
        QLabel::timerEvent(event);
        return;
    }
    // Greater, not equal: the folder has one picture more than the count says.
    if (m_frame > m_count)
        m_frame = 0;
    SetResPic(m_frame);
    ++m_frame;
}

void CBPGifLable::paintEvent(QPaintEvent *event)
{
    if (!lumqt::paintsWholePicture(*this))
        QLabel::paintEvent(event);
}

void CBPGifLable::showEvent(QShowEvent *event)
{
    if (m_playing && !m_timerId)
        m_timerId = startTimer(kFrameInterval, Qt::CoarseTimer);
    QLabel::showEvent(event);
}

void CBPGifLable::hideEvent(QHideEvent *event)
{
    killFrameTimer();
    QLabel::hideEvent(event);
}
