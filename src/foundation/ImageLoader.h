#pragma once

#include "foundation/Internals.h"

#include <QPixmap>
#include <QString>
#include <QVector>

#include <memory>

namespace lumqt {

// The image file at `path` for a surface with `ratio` device pixels to a logical one; null when it is
// missing, broken or larger than any image of an interface can be (said once in the log). An empty path is
// silently null.
//
// "name@2x.ext" beside the file is taken for ratios above 1, but "name@1.5x.ext" where the ratio is exactly
// that (likewise any other in quarters), and ".svg" is rendered at the ratio, so the pixmap has the logical
// size of the file and is sharp at 1, 1.5 and 2. What was decoded is kept; each call looks only whether a
// file's time or size changed. GUI thread only.
LUMQT_TESTED QPixmap loadPixmap(const QString &path, qreal ratio);

// The same for a paint event, which may come any number of times a second: by a look that is less than 50 ms
// old, if there is one for the present theme. Where that may have missed a change, the files are looked at
// once more when the time is over, and what has changed is painted anew without anybody asking for it.
LUMQT_TESTED QPixmap paintedPixmap(const QString &path, qreal ratio);

// Its logical size.
QSize paintedSize(const QString &path, qreal ratio);

// The file to read for `path`, see fileToRead(), or what stands in for it in the current theme: the one of
// the same name in the theme's folder below `res`, or beside it, if there is one. For who reads a file
// himself; loadPixmap() looks by itself.
LUMQT_TESTED QString themePicture(const QString &path);

// Logical size of the image file at `path`, for laying out, as it was within the last tick of the coarse
// clock: a widget asks for it several times while it is made.
QSize pictureSize(const QString &path, qreal ratio);

// Size of the pixmap in logical pixels, which are what widgets lay out with; 0 x 0 when null.
LUMQT_TESTED QSize logicalSize(const QPixmap &pixmap);

struct SeenImage;

// The image files of a widget that may stand in a window by the hundred, for its paint event. Kept here, the
// picture is not even looked up.
class LUMQT_TESTED PaintedImage
{
public:
    // The file number `index` of `paths`, which is there, as paintedPixmap() has it. Good until the
    // next call.
    const QPixmap &pixmap(const QVector<QString> &paths, int index, qreal ratio);

    // Logical size of the last picture.
    QSize size() const;

    // The paths are others now.
    void forget() { m_index = -1; }

private:
    int m_index = -1;
    qreal m_ratio = 0.0;
    std::shared_ptr<SeenImage> m_seen;
};

} // namespace lumqt
