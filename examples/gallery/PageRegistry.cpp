#include "PageRegistry.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>

namespace {

// Filled while the statics of the pages are made, in no order; sorted at the first look.
QVector<PageInfo> &registered()
{
    static QVector<PageInfo> list;
    return list;
}

} // namespace

void registerPage(PageInfo page, const char *file)
{
    page.file =
        QFileInfo(QString::fromLocal8Bit(file).replace(QLatin1Char('\\'), QLatin1Char('/'))).fileName();
    registered().append(page);
}

const QVector<PageInfo> &pages()
{
    static const QVector<PageInfo> sorted = [] {
        QVector<PageInfo> list = registered();
        std::sort(list.begin(), list.end(), [](const PageInfo &a, const PageInfo &b) {
            return a.group != b.group ? a.group < b.group : a.title < b.title;
        });
        return list;
    }();
    return sorted;
}

QString groupTitle(PageGroup group)
{
    switch (group) {
    case PageGroup::Start:
        break;
    case PageGroup::Foundation:
        return QStringLiteral("Foundation");
    case PageGroup::Windows:
        return QStringLiteral("Windows and dialogs");
    case PageGroup::Buttons:
        return QStringLiteral("Buttons");
    case PageGroup::Menus:
        return QStringLiteral("Menus and lists");
    case PageGroup::Waiting:
        return QStringLiteral("Waiting");
    case PageGroup::DateAndTime:
        return QStringLiteral("Date and time");
    case PageGroup::Containers:
        return QStringLiteral("Containers");
    case PageGroup::Input:
        return QStringLiteral("Input");
    case PageGroup::Displays:
        return QStringLiteral("Display");
    }
    return QString();
}

QString sourceOf(const PageInfo &page)
{
    QFile file(QStringLiteral(":/source/") + page.file);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

bool matches(const PageInfo &page, const QStringList &words)
{
    if (words.isEmpty())
        return true;
    const QString text =
        page.title + QLatin1Char('\n') + groupTitle(page.group) + QLatin1Char('\n') + sourceOf(page);
    return std::all_of(words.cbegin(), words.cend(),
                       [&](const QString &word) { return text.contains(word, Qt::CaseInsensitive); });
}
