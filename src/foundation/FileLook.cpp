#include "foundation/FileLook.h"

#include <QDateTime>
#include <QFileInfo>

namespace lumqt {

namespace {

// File systems tell times in steps of some milliseconds: a file that was read sooner after its change than
// this may have changed once more at the same time.
constexpr qint64 kSettlingMs = 50;

// Names that only Qt can look up: resources (":/name") and search paths ("icons:name"), but no drive letter.
bool isQtName(const QString &file)
{
    const int colon = file.indexOf(QLatin1Char(':'));
    return colon == 0 || colon > 1;
}

} // namespace

platform::FileStamp stampOf(const QString &file)
{
    platform::FileStamp stamp = platform::fileStamp(file);
    if (!stamp.exists() && isQtName(file)) {
        const QFileInfo info(file);
        if (info.isFile()) {
            stamp.modified = info.lastModified().toMSecsSinceEpoch();
            stamp.size = info.size();
        }
    }
    return stamp;
}

FileLook lookAt(const QString &file)
{
    FileLook look;
    look.stamp = stampOf(file);
    look.settled =
        !look.stamp.exists() || qAbs(QDateTime::currentMSecsSinceEpoch() - look.stamp.modified) > kSettlingMs;
    return look;
}

} // namespace lumqt
