#include "CBPMenuItem.h"

#include "foundation/EmbeddedRes.h"

namespace {
constexpr int kStateImages = 4;
}

CBPMenuItem::CBPMenuItem(const QIcon &icon, const QString &text, const QVariant &data, QObject *parent)
    : QAction(icon, text, parent)
{
    setData(data);
}

CBPMenuItem::CBPMenuItem(const QVector<QString> &images, const QString &text, const QVariant &data,
                         QObject *parent)
    : CBPMenuItem(text, data, parent)
{
    if (images.size() == kStateImages)
        setIconFile(images.first());
}

CBPMenuItem::CBPMenuItem(const QString &text, const QVariant &data, QObject *parent) : QAction(text, parent)
{
    setData(data);
}

// An icon does not say which of its pictures is the one for ordinary density, the file does: the menu paints
// from the file for as long as nobody has given the item another icon.
void CBPMenuItem::setIconFile(const QString &path)
{
    setIcon(QIcon(lumqt::fileToRead(path)));
    m_iconFile = path;
    m_iconKey = icon().cacheKey();
}

QString CBPMenuItem::iconFile() const
{
    return icon().cacheKey() == m_iconKey ? m_iconFile : QString();
}
