#include "foundation/ImageLoader.h"

#include "foundation/Log.h"

#include <QCache>
#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QSharedPointer>
#include <QSvgRenderer>

namespace lumqt {

namespace {

constexpr int kMaxSide = 8192;       // pixels; larger files are no pictures of an interface
constexpr int kCacheKiB = 48 * 1024; // decoded pictures
constexpr int kParsedDrawings = 256; // SVG files kept parsed
const char kHighDensityMark[] = "@2x";
// File systems tell times in steps of some milliseconds: a file that was read sooner after its change than
// this may have changed once more at the same time.
constexpr qint64 kSettlingMs = 50;

// What tells one content of a file from the next.
struct FileStamp
{
    qint64 modified = -1; // milliseconds since 1970; -1: no such file
    qint64 size = -1;     // bytes
    bool settled = true;  // looked at long enough after the change

    bool exists() const { return modified != -1; }
    // Whether a content read at this stamp is still the file's, which now has the stamp `now`.
    bool holdsFor(const FileStamp &now) const
    {
        return settled && modified == now.modified && size == now.size;
    }
};

struct Picture
{
    QPixmap pixmap;
    QString highDensityFile; // empty where none can apply
    FileStamp stamp;
    FileStamp highDensityStamp;
};

struct Drawing
{
    QSharedPointer<QSvgRenderer> renderer;
    FileStamp stamp;
};

using PictureKey = QPair<QString, int>; // path, ratio in thousandths

void forgetAll();

QCache<PictureKey, Picture> &pictures()
{
    static QCache<PictureKey, Picture> *cache = [] {
        // Pixmaps must be gone before the application is.
        qAddPostRoutine(forgetAll);
        return new QCache<PictureKey, Picture>(kCacheKiB);
    }();
    return *cache;
}

QCache<QString, Drawing> &drawings()
{
    static auto *cache = new QCache<QString, Drawing>(kParsedDrawings);
    return *cache;
}

void forgetAll()
{
    pictures().clear();
    drawings().clear();
}

FileStamp stampOf(const QString &file)
{
    FileStamp stamp;
    const QFileInfo info(file);
    if (info.isFile()) {
        stamp.modified = qMax<qint64>(0, info.lastModified().toMSecsSinceEpoch());
        stamp.size = info.size();
        stamp.settled = qAbs(QDateTime::currentMSecsSinceEpoch() - stamp.modified) > kSettlingMs;
    }
    return stamp;
}

bool isDrawing(const QString &file)
{
    return file.endsWith(QLatin1String(".svg"));
}

bool isReasonable(const QSize &size, const QString &file)
{
    if (size.width() <= kMaxSide && size.height() <= kMaxSide)
        return true;
    qCWarning(lcLumQt, "The image %s is too large: %d x %d", qUtf8Printable(file), size.width(),
              size.height());
    return false;
}

QSharedPointer<QSvgRenderer> parsedDrawing(const QString &file, const FileStamp &stamp)
{
    if (const Drawing *known = drawings().object(file)) {
        if (known->stamp.holdsFor(stamp))
            return known->renderer;
    }
    auto renderer = QSharedPointer<QSvgRenderer>::create(file);
    drawings().insert(file, new Drawing{renderer, stamp});
    return renderer;
}

QPixmap renderDrawing(const QString &file, const FileStamp &stamp, qreal ratio)
{
    const auto renderer = parsedDrawing(file, stamp);
    if (!renderer->isValid()) {
        qCWarning(lcLumQt, "The image %s cannot be read", qUtf8Printable(file));
        return QPixmap();
    }
    const QSize size = renderer->defaultSize();
    if (size.isEmpty()) {
        qCWarning(lcLumQt, "The image %s has no size", qUtf8Printable(file));
        return QPixmap();
    }
    if (!isReasonable(size, file) || !isReasonable(size * ratio, file))
        return QPixmap();
    QPixmap pixmap(size * ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer->render(&painter, QRectF(pixmap.rect()));
    painter.end();
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

QImage decode(const QString &file)
{
    QImageReader reader(file);
    reader.setDecideFormatFromContent(true);
    // Formats that tell their size before decoding are refused before they cost memory.
    const QSize announced = reader.size();
    if (announced.isValid() && !isReasonable(announced, file))
        return QImage();
    QImage image = reader.read();
    if (image.isNull())
        qCWarning(lcLumQt, "The image %s cannot be read: %s", qUtf8Printable(file),
                  qUtf8Printable(reader.errorString()));
    return image;
}

// A picture whose device pixels are those of the surface: scaled once here, not at each paint.
QPixmap fitRatio(QImage image, qreal ownRatio, qreal ratio)
{
    if (image.isNull())
        return QPixmap();
    if (!qFuzzyCompare(ownRatio, ratio)) {
        const QSize target(qMax(1, qRound(image.width() * ratio / ownRatio)),
                           qMax(1, qRound(image.height() * ratio / ownRatio)));
        image = image.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    image.setDevicePixelRatio(ratio);
    return QPixmap::fromImage(image);
}

QPixmap read(const QString &path, const Picture &stamps, qreal ratio)
{
    if (isDrawing(path))
        return stamps.stamp.exists() ? renderDrawing(path, stamps.stamp, ratio) : QPixmap();
    if (stamps.highDensityStamp.exists()) {
        const QImage image = decode(stamps.highDensityFile);
        if (!image.isNull())
            return fitRatio(image, 2.0, ratio);
    }
    return stamps.stamp.exists() ? fitRatio(decode(path), 1.0, ratio) : QPixmap();
}

QString highDensityName(const QString &path)
{
    const int dot = path.lastIndexOf(QLatin1Char('.'));
    const int slash = qMax(path.lastIndexOf(QLatin1Char('/')), path.lastIndexOf(QLatin1Char('\\')));
    const int end = dot > slash ? dot : path.size();
    return path.left(end) + QLatin1String(kHighDensityMark) + path.mid(end);
}

int costOf(const QPixmap &pixmap)
{
    return 1 + pixmap.width() * pixmap.height() / 256; // KiB at four bytes a pixel
}

} // namespace

QPixmap loadPixmap(const QString &path, qreal ratio)
{
    if (path.isEmpty())
        return QPixmap();
    const PictureKey key(path, qRound(ratio * 1000));
    const Picture *known = pictures().object(key);
    const FileStamp stamp = stampOf(path);
    if (known && known->stamp.holdsFor(stamp) &&
        (known->highDensityFile.isEmpty() ||
         known->highDensityStamp.holdsFor(stampOf(known->highDensityFile))))
        return known->pixmap;

    auto *picture = new Picture;
    picture->stamp = stamp;
    if (ratio > 1.0 && !isDrawing(path)) {
        picture->highDensityFile = highDensityName(path);
        picture->highDensityStamp = stampOf(picture->highDensityFile);
    }
    if (!stamp.exists() && !picture->highDensityStamp.exists())
        qCWarning(lcLumQt, "The image %s is missing", qUtf8Printable(path));
    picture->pixmap = read(path, *picture, ratio);
    const QPixmap result = picture->pixmap;
    // What does not fit into the cache is deleted by the insertion.
    pictures().insert(key, picture, costOf(result));
    return result;
}

QSize logicalSize(const QPixmap &pixmap)
{
    return pixmap.isNull() ? QSize(0, 0) : pixmap.size() / pixmap.devicePixelRatio();
}

} // namespace lumqt
