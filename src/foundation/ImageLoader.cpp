#include "foundation/ImageLoader.h"

#include "foundation/EmbeddedRes.h"
#include "foundation/FileLook.h"
#include "foundation/Log.h"
#include "foundation/Palette.h"
#include "Util.h"

#include <QCache>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QSharedPointer>
#include <QSvgRenderer>

#include <algorithm>

namespace lumqt {

namespace {

// Pixels; larger files are no pictures of an interface. A strip may be long.
constexpr int kMaxSide = 32767;
constexpr qint64 kMaxPixels = 8192 * 8192;
constexpr int kCacheKiB = 48 * 1024; // decoded pictures
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
    FileLook look;
    bool isDrawing = false;
    QVector<Twin> twins; // that can apply, there or not; the better one first
    // The last look: the pass it served, and the tick of the coarse clock. A pass has no end that anybody
    // tells, so the tick is what keeps an old look from a widget that paints much later.
    quint32 pass = 0;
    qint64 tick = -1;

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

namespace {

struct Drawing
{
    QSharedPointer<QSvgRenderer> renderer;
    FileLook look;
};

using PictureKey = QPair<QString, int>; // path, ratio in thousandths

void forgetAll();

using PicturePointer = std::shared_ptr<Picture>; // painters keep what the cache may drop

QCache<PictureKey, PicturePointer> &pictures()
{
    static QCache<PictureKey, PicturePointer> *cache = [] {
        // Pixmaps must be gone before the application is.
        qAddPostRoutine(forgetAll);
        return new QCache<PictureKey, PicturePointer>(kCacheKiB);
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
    const PictureKey key(path, qRound(ratio * 1000));
    if (const PicturePointer *known = pictures().object(key)) {
        Picture &old = **known;
        old.tick = platform::coarseClock();
        if (old.holdsFor(path))
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
    picture->tick = platform::coarseClock();
    pictures().insert(key, new PicturePointer(picture), costOf(picture->pixmap));
    return picture;
}

// The pass over a window that is under way, for a widget that last painted in `last`. One ends with the theme
// that it shows.
quint32 currentPass(quint32 last)
{
    static quint32 pass = 0; // never 0 once there is one
    static quint32 theme = 0;
    if (last == pass || theme != themeGeneration())
        pass = pass == UINT_MAX ? 1 : pass + 1;
    theme = themeGeneration();
    return pass;
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
    return path.isEmpty() ? QPixmap() : lookAndLoad(path, ratio)->pixmap;
}

QSize pictureSize(const QString &path, qreal ratio)
{
    const PicturePointer *known = pictures().object(PictureKey(themePicture(path), qRound(ratio * 1000)));
    if (known && (*known)->tick == platform::coarseClock() && (*known)->settled())
        return logicalSize((*known)->pixmap);
    return logicalSize(loadPixmap(path, ratio));
}

const QPixmap &PaintedImage::pixmap(const QVector<QString> &paths, int index, qreal ratio)
{
    m_pass = currentPass(m_pass);
    if (index != m_index || ratio != m_ratio || m_picture->pass != m_pass ||
        m_picture->tick != platform::coarseClock() || !m_picture->settled())
        look(paths.at(index), index, ratio);
    return m_picture->pixmap;
}

void PaintedImage::look(const QString &path, int index, qreal ratio)
{
    static const auto none = std::make_shared<Picture>();
    m_picture = path.isEmpty() ? none : lookAndLoad(path, ratio);
    m_picture->pass = m_pass;
    m_size = logicalSize(m_picture->pixmap);
    m_index = index;
    m_ratio = ratio;
}

QSize logicalSize(const QPixmap &pixmap)
{
    return pixmap.isNull() ? QSize(0, 0) : pixmap.size() / pixmap.devicePixelRatio();
}

} // namespace lumqt
