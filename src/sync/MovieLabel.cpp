#include "sync/MovieLabel.h"

#include "foundation/ImageLoader.h"
#include "foundation/Palette.h"
#include "foundation/StyledGround.h"

#include <QFileInfo>
#include <QMovie>
#include <QPainter>

namespace lumqt {

MovieLabel::MovieLabel(const QString &path, QWidget *parent) : CBPLabel(parent), m_path(path)
{
    load();
    onThemeChange(this, [this] { renew(); });
}

QString MovieLabel::wantedFile(bool &isDense) const
{
    const QString path = themePicture(m_path);
    const QFileInfo file(path);
    const QString dense =
        file.path() + QLatin1Char('/') + file.completeBaseName() + QLatin1String("@2x.") + file.suffix();
    isDense = devicePixelRatioF() > 1.0 && QFileInfo::exists(dense);
    return isDense ? dense : path;
}

// Again when the label is shown, which may be on another screen.
void MovieLabel::load()
{
    bool isDense = false;
    const QString wanted = wantedFile(isDense);
    if (wanted == m_loaded)
        return;
    m_loaded = wanted;
    delete movie();
    auto *movie = new QMovie(wanted, QByteArray(), this);
    movie->jumpToFrame(0); // also gives the size
    m_size = movie->frameRect().size() / (isDense ? 2 : 1);
    setMovie(movie);
    setFixedSize(m_size);
}

// What starts again shows the next picture, so that is to be the one that shows now. It is reached in steps:
// these files have no other way to it.
void MovieLabel::renew()
{
    bool isDense = false;
    const QString wanted = wantedFile(isDense);
    if (!movie() || wanted == m_loaded)
        return;
    m_loaded = wanted;
    const bool runs = movie()->state() != QMovie::NotRunning;
    const int frame = movie()->currentFrameNumber();
    movie()->stop();
    movie()->setFileName(wanted);
    const int steps = qMax(0, runs ? frame : frame + 1);
    for (int step = 0; step < steps; ++step)
        movie()->jumpToNextFrame();
    if (runs)
        movie()->start();
    update();
}

QSize MovieLabel::sizeHint() const
{
    return m_size;
}

bool MovieLabel::event(QEvent *event)
{
    const bool handled = CBPLabel::event(event);
    refuseStyledGround(this, event); // it has round corners, on a window that is not there otherwise
    return handled;
}

void MovieLabel::paintEvent(QPaintEvent *)
{
    const QPixmap picture = movie() ? movie()->currentPixmap() : QPixmap();
    if (picture.isNull())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(rect(), picture);
}

void MovieLabel::showEvent(QShowEvent *event)
{
    load();
    if (movie())
        movie()->start();
    CBPLabel::showEvent(event);
}

void MovieLabel::hideEvent(QHideEvent *event)
{
    if (movie())
        movie()->stop();
    CBPLabel::hideEvent(event);
}

} // namespace lumqt
