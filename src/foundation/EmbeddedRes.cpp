#include "foundation/EmbeddedRes.h"

#include "platform/Platform.h"
#include "Util.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QMutex>

namespace lumqt {

namespace {

const char kRes[] = "../res/"; // from the current directory, or from the program's as Util has it

// What is there of the folder, beside the program and for names from the current directory.
struct Folders
{
    QString own; // with "/" at its end
    bool ownIsThere = true;
    bool relativeIsThere = true;
    qint64 tick = -1;

    void look()
    {
        own = QDir::fromNativeSeparators(Util::getResFullPath(QLatin1String(kRes)));
        ownIsThere = QFileInfo(own).isDir();
        relativeIsThere = ownIsThere || QFileInfo(QLatin1String(kRes)).isDir();
    }
};

QString inCopy(const QString &name)
{
    static const bool isThere = QFileInfo(QLatin1String(kResCopy)).isDir();
    // Widgets join names with a separator too many, which only a file system forgives.
    const QString file = isThere ? QDir::cleanPath(QLatin1String(kResCopy) + name) : QString();
    return file.startsWith(QLatin1String(kResCopy)) ? file : QString();
}

} // namespace

QString fileToRead(const QString &path)
{
    static QMutex mutex;
    static Folders folders;
    if (path.isEmpty() || path.startsWith(QLatin1Char(':')) || !QCoreApplication::instance())
        return path;
    const QMutexLocker lock(&mutex);
    const qint64 now = platform::coarseClock();
    if (folders.tick != now)
        folders.look();
    folders.tick = now;
    if (folders.ownIsThere)
        return path;
    const QString plain = QDir::fromNativeSeparators(path);
    QString copy;
    if (plain.startsWith(folders.own))
        copy = inCopy(plain.mid(folders.own.size()));
    else if (!folders.relativeIsThere && plain.startsWith(QLatin1String(kRes)))
        copy = inCopy(plain.mid(int(qstrlen(kRes))));
    return copy.isEmpty() ? path : copy;
}

} // namespace lumqt
