#include "foundation/ResourcePath.h"

#include <QStringList>

namespace lumqt {

QString resourceBase(const QString &programFolder, const QString &separator)
{
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
    return base;
}

QString resourceTail(const QString &name, const QString &separator)
{
    QString tail = name;
    tail.remove(QLatin1String("../"));
    tail.replace(QLatin1Char('/'), separator);
    return tail;
}

QString resourcePath(const QString &programFolder, const QString &name, const QString &separator)
{
    return name.isEmpty() ? QString()
                          : resourceBase(programFolder, separator) + resourceTail(name, separator);
}

} // namespace lumqt
