#include "foundation/ImageLoader.h"

#include "foundation/EmbeddedRes.h"
#include "foundation/FileLook.h"
#include "foundation/Log.h"
#include "foundation/Palette.h"
#include "Util.h"

#include <QApplication>
#include <QCache>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QSharedPointer>
#include <QSvgRenderer>
#include <QTimer>

#include <algorithm>

namespace lumqt {

namespace {

// Pixels; larger files are no pictures of an interface. A strip may be long.
constexpr int kMaxSide = 32767;
constexpr qint64 kMaxPixels = 8192 * 8192;
constexpr int kCacheKiB = 48 * 1024; // decoded pictures
constexpr int kSeenKiB = 16 * 1024;  // those of them that are kept for the names they were asked for by
constexpr int kLookInterval = 50;    // ms between two looks at the files of what is painted
constexpr int kParsedDrawings = 256; // SVG files kept parsed
const char kRes[] = "../res/";
constexpr qreal kHighDensity = 2.0;
const char kPackedDrawing[] = "svgz"; // Qt's name for it
constexpr int kSteps = 4;             // between two whole ratios: those that systems offer

// A file of the same picture that is drawn for another ratio: "name@2x.png".
struct Twin
{
    QString file;
    qreal ratio = 1.0;
    FileLook look;
};

} // namespace

struct Picture
{
    QPixmap pixmap;
    QSize size = QSize(0, 0); // logical
    FileLook look;
    bool isDrawing = false;
    QVector<Twin> twins; // that can apply, there or not; the better one first

    bool settled() const
    {
        return look.settled &&
               std::all_of(twins.begin(), twins.end(), [](const Twin &twin) { return twin.look.settled; });
    }
    // Whether the files are as they were.
    bool holdsFor(const QString &path) const
    {
        return look.holdsFor(stampOf(path)) && std::all_of(twins.begin(), twins.end(), [](const Twin &twin) {
                   return twin.look.holdsFor(stampOf(twin.file));
               });
    }
    bool hasFile() const
    {
        return look.stamp.exists() || std::any_of(twins.begin(), twins.end(),
                                                  [](const Twin &twin) { return twin.look.stamp.exists(); });
    }
};

// What a name stood for when its files were looked at last.
struct SeenImage
{
    std::shared_ptr<Picture> picture; // painters keep what the cache may drop
    QString name;
    qreal ratio = 1.0;
    quint32 theme = 0;
    qint64 tick = 0;             // of the coarse clock
    bool isToBeLookedAt = false; // by and by
};

namespace {

struct Drawing
{
    QSharedPointer<QSvgRenderer> renderer;
    FileLook look;
};

using PictureKey = QPair<QString, int>; // path or name, ratio in thousandths

PictureKey keyOf(const QString &name, qreal ratio)
{
    return PictureKey(name, qRound(ratio * 1000));
}

void forgetAll();

using PicturePointer = std::shared_ptr<Picture>;
using SeenPointer = std::shared_ptr<SeenImage>;

QCache<PictureKey, PicturePointer> &pictures()
{
    static QCache<PictureKey, PicturePointer> *cache = [] {
        // Pixmaps must be gone before the application is.
        qAddPostRoutine(forgetAll);
        return new QCache<PictureKey, PicturePointer>(kCacheKiB);
    }();
    return *cache;
}

QCache<PictureKey, SeenPointer> &seenImages()
{
    static auto *cache = new QCache<PictureKey, SeenPointer>(kSeenKiB);
    return *cache;
}

QCache<QString, Drawing> &drawings()
{
    static auto *cache = new QCache<QString, Drawing>(kParsedDrawings);
    return *cache;
}

void forgetAll()
{
    seenImages().clear();
    pictures().clear();
    drawings().clear();
}

// By its name; a picture of pixels that is named so is none.
bool isDrawing(const QString &file)
{
    if (!file.endsWith(QLatin1String(".svg")))
        return false;
    const QByteArray content = QImageReader::imageFormat(file);
    return content.isEmpty() || content == "svg" || content == kPackedDrawing;
}

bool isReasonable(const QSize &size, const QString &file)
{
    if (size.width() <= kMaxSide && size.height() <= kMaxSide &&
        qint64(size.width()) * size.height() <= kMaxPixels)
        return true;
    qCWarning(lcLumQt, "The image %s is too large: %d x %d", qUtf8Printable(file), size.width(),
              size.height());
    return false;
}

QSharedPointer<QSvgRenderer> parsedDrawing(const QString &file, const FileLook &look)
{
    if (const Drawing *known = drawings().object(file)) {
        if (known->look.holdsFor(look.stamp))
            return known->renderer;
    }
    auto renderer = QSharedPointer<QSvgRenderer>::create();
    QFile packed(file);
    // By its name alone Qt would not know that it is to be unpacked.
    if (QImageReader::imageFormat(file) == kPackedDrawing && packed.open(QIODevice::ReadOnly))
        renderer->load(packed.readAll());
    else
        renderer->load(file);
    drawings().insert(file, new Drawing{renderer, look});
    return renderer;
}

QPixmap renderDrawing(const QString &file, const FileLook &look, qreal ratio)
{
    const auto renderer = parsedDrawing(file, look);
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
        // Qt 6 crashes where it scales a picture that has a table of colours.
        image = image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32);
        const QSize target(qMax(1, qRound(image.width() * ratio / ownRatio)),
                           qMax(1, qRound(image.height() * ratio / ownRatio)));
        image = image.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    image.setDevicePixelRatio(ratio);
    return QPixmap::fromImage(image);
}

QPixmap read(const QString &path, const Picture &looks, qreal ratio)
{
    const bool exists = looks.look.stamp.exists();
    if (looks.isDrawing)
        return exists ? renderDrawing(path, looks.look, ratio) : QPixmap();
    for (const Twin &twin : looks.twins) {
        const QImage image = twin.look.stamp.exists() ? decode(twin.file) : QImage();
        if (!image.isNull())
            return fitRatio(image, twin.ratio, ratio);
    }
    return exists ? fitRatio(decode(path), 1.0, ratio) : QPixmap();
}

Twin twinOf(const QString &path, qreal ratio)
{
    const int dot = path.lastIndexOf(QLatin1Char('.'));
    const int slash = qMax(path.lastIndexOf(QLatin1Char('/')), path.lastIndexOf(QLatin1Char('\\')));
    const int end = dot > slash ? dot : path.size();
    const QString mark = QLatin1Char('@') + QString::number(ratio) + QLatin1Char('x');
    Twin twin{path.left(end) + mark + path.mid(end), ratio, FileLook()};
    twin.look = lookAt(twin.file);
    return twin;
}

// One that is drawn for the very ratio has its strokes on whole pixels; any other is scaled.
QVector<Twin> twinsFor(const QString &path, qreal ratio)
{
    QVector<Twin> twins;
    if (ratio <= 1.0)
        return twins;
    const int steps = qRound(ratio * kSteps);
    if (qFuzzyCompare(ratio * kSteps, qreal(steps)) && steps % kSteps != 0)
        twins.append(twinOf(path, ratio));
    twins.append(twinOf(path, kHighDensity));
    return twins;
}

int costOf(const QPixmap &pixmap)
{
    return 1 + pixmap.width() * pixmap.height() / 256; // KiB at four bytes a pixel
}

PicturePointer lookAndLoad(const QString &name, qreal ratio)
{
    const QString path = themePicture(name);
    const PictureKey key = keyOf(path, ratio);
    if (const PicturePointer *known = pictures().object(key)) {
        if ((*known)->holdsFor(path))
            return *known;
    }
    auto picture = std::make_shared<Picture>();
    picture->look = lookAt(path);
    picture->isDrawing = isDrawing(path);
    if (!picture->isDrawing)
        picture->twins = twinsFor(path, ratio);
    if (!picture->hasFile())
        qCWarning(lcLumQt, "The image %s is missing", qUtf8Printable(path));
    picture->pixmap = read(path, *picture, ratio);
    picture->size = logicalSize(picture->pixmap);
    pictures().insert(key, new PicturePointer(picture), costOf(picture->pixmap));
    return picture;
}

void lookAnew(SeenImage &seen)
{
    seen.picture = lookAndLoad(seen.name, seen.ratio);
    seen.theme = themeGeneration();
    seen.tick = platform::coarseClock();
}

SeenPointer lookedAt(const QString &name, qreal ratio)
{
    const PictureKey key = keyOf(name, ratio);
    const SeenPointer *known = seenImages().object(key);
    SeenPointer seen = known ? *known : std::make_shared<SeenImage>();
    const PicturePointer before = seen->picture;
    seen->name = name;
    seen->ratio = ratio;
    lookAnew(*seen);
    if (seen->picture != before)
        seenImages().insert(key, new SeenPointer(seen), costOf(seen->picture->pixmap));
    return seen;
}

// A paint went by a look that may have missed a change since, and perhaps nothing is painted any more.
void lookByAndBy(const SeenPointer &seen)
{
    seen->isToBeLookedAt = true;
    // Nothing is held: at the application's end its timers outlast its pictures.
    const std::weak_ptr<SeenImage> kept = seen;
    const std::weak_ptr<Picture> painted = seen->picture;
    QTimer::singleShot(kLookInterval, qApp, [kept, painted, tick = seen->tick] {
        const SeenPointer now = kept.lock();
        if (!now)
            return;
        now->isToBeLookedAt = false;
        if (now->tick == tick)
            lookAnew(*now);
        else
            lookByAndBy(now); // a paint has looked meanwhile, and others may have gone by that
        if (now->picture != painted.lock())
            repaintEverything();
    });
}

bool servesPaint(const SeenPointer &seen)
{
    const qint64 age = platform::coarseClock() - seen->tick;
    if (age >= kLookInterval || seen->theme != themeGeneration())
        return false;
    if (!seen->isToBeLookedAt)
        lookByAndBy(seen);
    return true;
}

SeenPointer seenForPaint(const QString &name, qreal ratio)
{
    static const auto none = [] {
        auto seen = std::make_shared<SeenImage>();
        seen->picture = std::make_shared<Picture>();
        return seen;
    }();
    if (name.isEmpty())
        return none;
    const SeenPointer *known = seenImages().object(keyOf(name, ratio));
    return known && servesPaint(*known) ? *known : lookedAt(name, ratio);
}

} // namespace

QString themePicture(const QString &path)
{
    const QString file = fileToRead(path);
    const QString folder = themeFolder();
    if (folder.isEmpty() || path.isEmpty() || !QCoreApplication::instance())
        return file;
    static const QString own = QDir::fromNativeSeparators(Util::getResFullPath(QLatin1String(kRes)));
    const QString plain = QDir::fromNativeSeparators(file);
    // Or from the current directory, or within the library.
    for (const QString &root : {own, QString(QLatin1String(kRes)), QString(QLatin1String(kResCopy))}) {
        if (!plain.startsWith(root))
            continue;
        const QString themed = root + folder + QLatin1Char('/') + plain.mid(root.size());
        if (stampOf(themed).exists())
            return themed;
    }
    const int slash = plain.lastIndexOf(QLatin1Char('/')) + 1;
    const QString beside = plain.left(slash) + folder + QLatin1Char('/') + plain.mid(slash);
    return stampOf(beside).exists() ? beside : file;
}

QPixmap loadPixmap(const QString &path, qreal ratio)
{
    return path.isEmpty() ? QPixmap() : lookedAt(path, ratio)->picture->pixmap;
}

QPixmap paintedPixmap(const QString &path, qreal ratio)
{
    return seenForPaint(path, ratio)->picture->pixmap;
}

QSize paintedSize(const QString &path, qreal ratio)
{
    return seenForPaint(path, ratio)->picture->size;
}

QSize pictureSize(const QString &path, qreal ratio)
{
    const SeenPointer *known = seenImages().object(keyOf(path, ratio));
    if (known && (*known)->tick == platform::coarseClock() && (*known)->theme == themeGeneration() &&
        (*known)->picture->settled())
        return (*known)->picture->size;
    return logicalSize(loadPixmap(path, ratio));
}

const QPixmap &PaintedImage::pixmap(const QVector<QString> &paths, int index, qreal ratio)
{
    if (index != m_index || ratio != m_ratio || !servesPaint(m_seen)) {
        m_seen = seenForPaint(paths.at(index), ratio);
        m_index = index;
        m_ratio = ratio;
    }
    return m_seen->picture->pixmap;
}

QSize PaintedImage::size() const
{
    return m_seen ? m_seen->picture->size : QSize();
}

QSize logicalSize(const QPixmap &pixmap)
{
    return pixmap.isNull() ? QSize(0, 0) : pixmap.size() / pixmap.devicePixelRatio();
}

} // namespace lumqt
