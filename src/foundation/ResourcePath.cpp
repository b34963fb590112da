#include "foundation/ResourcePath.h"

#include <QStringList>

namespace lumqt {

QString resourcePath(const QString &programFolder, const QString &name, const QString &separator)
{
    if (name.isEmpty())
        return QString();

    QString base = programFolder;
    base.replace(QLatin1Char('/'), separator);
    if (base.endsWith(separator))
        base.chop(separator.size());

    // Every occurrence of the folder's name goes, not only the last part: applications lay out their folders
    // for it.
    const QStringList parts = base.split(separator, Qt::KeepEmptyParts);
    const QString last = parts.isEmpty() ? QString() : parts.last();
    if (!last.isEmpty())
        base.remove(last, Qt::CaseSensitive);

    QString relative = name;
    relative.remove(QLatin1String("../"));
    relative.replace(QLatin1Char('/'), separator);
    return base + relative;
}

} // namespace lumqt
