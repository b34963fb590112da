#include "sync/MovieLabel.h"

#include "foundation/StyledGround.h"

#include <QFileInfo>
#include <QMovie>
#include <QPainter>

namespace lumqt {

MovieLabel::MovieLabel(const QString &path, QWidget *parent) : CBPLabel(parent), m_path(path)
{
    load();
}

// Again when the label is shown, which may be on another screen.
void MovieLabel::load()
{
    const QFileInfo file(m_path);
    const QString dense =
        file.path() + QLatin1Char('/') + file.completeBaseName() + QLatin1String("@2x.") + file.suffix();
    const bool isDense = devicePixelRatioF() > 1.0 && QFileInfo::exists(dense);
    const QString wanted = isDense ? dense : m_path;
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
