#include "foundation/ListText.h"

#include "foundation/Log.h"

namespace lumqt {

namespace {

constexpr int kOpaque = 255;

QString nameOf(const QColor &color)
{
    if (!color.isValid())
        return QString();
    return color.name(color.alpha() == kOpaque ? QColor::HexRgb : QColor::HexArgb);
}

QColor colorOf(const QString &name)
{
    if (name.isEmpty())
        return QColor();
    const QColor color(name);
    if (!color.isValid())
        qCWarning(lcLumQt, "'%s' is no colour", qUtf8Printable(name));
    return color;
}

} // namespace

QStringList listOf(const QStringList &entries)
{
    if (entries.size() != 1 || !entries.first().contains(QLatin1Char(',')))
        return entries;
    QStringList parts = entries.first().split(QLatin1Char(','));
    for (QString &part : parts)
        part = part.trimmed();
    return parts;
}

QStringList colorNames(const QVector<QColor> &colors)
{
    QStringList names;
    for (const QColor &color : colors)
        names.append(nameOf(color));
    return names;
}

QVector<QColor> colorsOf(const QStringList &names)
{
    QVector<QColor> colors;
    for (const QString &name : listOf(names))
        colors.append(colorOf(name));
    return colors;
}

QVector<QString> filesOf(const QStringList &names)
{
    return listOf(names).toVector();
}

QStringList fileNames(const QVector<QString> &files)
{
    return QStringList(files.begin(), files.end());
}

} // namespace lumqt
