#include "ClassPictures.h"

#include "GalleryWindow.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Screenshots.h"
#include "ThemeTable.h"

#include "CBPLinkerButton.h"

#include <QDir>
#include <QHash>
#include <QPixmap>
#include <QTextStream>
#include <QVariant>

namespace {

constexpr int kMostHeight = 440; // of a picture, in logical pixels
constexpr int kMargin = 8;

struct Place
{
    QString page;
    QString section;
    int samples = 0;
};

// Windows are posed as pictures of themselves, and some classes are seen in others only.
const struct
{
    const char *className;
    const char *page;
    const char *section;
} kPosed[] = {
    {"CBaseWin", "frameless-window", "Frame"},
    {"CBPWinFrm", "framed-windows", "Windows"},
    {"CBPWinWidget", "framed-windows", "Windows"},
    {"CBPWinFrmTitle", "framed-windows", "Title bar"},
    {"CBPPopWnd", "pop-up-windows", "Windows"},
    {"CMsgBox", "message-box", "Messages"},
    {"CBPMenu", "menu", "Items"},
    {"CBPMenuItem", "menu", "Items"},
    {"CBPTipWnd", "tips", "Orientations"},
    {"CTextTips", "tips", "Text tips"},
    {"CBPUISyncWaiter", "waiters", "Windows"},
    {"CBPWaiter", "waiters", "Windows"},
    {"CBPJobWindow", "jobs", "Window"},
    {"CBPAnimationObj", "animation", "The spinner's pictures"},
    {"CBPGifLable", "animation", "Step by step"},
    {"CBPImageButton", "image-button", "States"},
    {"CBPWaitBtn", "waiters", "Waiting button"},
    {"CBtnObj", "push-button", "Colours"},
    {"CBPFlowLayout", "flow-layout", "Widths"},
};

bool isOurs(const QString &className)
{
    return className.size() > 2 && className.at(0) == QLatin1Char('C') && className.at(1).isUpper();
}

// Where each class is seen most often; a section to try things in comes after the others.
QHash<QString, Place> places(GalleryWindow &window)
{
    QHash<QString, Place> found;
    for (const PageInfo &info : pages()) {
        window.showPage(info.id);
        const QVector<Section *> sections = window.page()->sections();
        for (const Section *section : sections) {
            QHash<QString, int> counts;
            const auto widgets = section->findChildren<QWidget *>();
            for (const QWidget *widget : widgets) {
                const QString name = QString::fromLatin1(widget->metaObject()->className());
                if (isOurs(name) && !widget->property(kSourceLink).toBool())
                    counts[name] += section->title() == QLatin1String("Try it") ? 1 : 4;
            }
            for (auto count = counts.cbegin(); count != counts.cend(); ++count) {
                if (info.group != PageGroup::Start && count.value() > found.value(count.key()).samples)
                    found[count.key()] = {info.id, section->title(), count.value()};
            }
        }
    }
    for (const auto &posed : kPosed)
        found[QString::fromLatin1(posed.className)] = {QString::fromLatin1(posed.page),
                                                       QString::fromLatin1(posed.section), 1};
    return found;
}

QPixmap pictureOf(GalleryWindow &window, const Place &place)
{
    window.showPage(place.page);
    fitToPage(window);
    const QVector<Section *> sections = window.page()->sections();
    for (const Section *section : sections) {
        if (section->title() != place.section)
            continue;
        const auto links = section->findChildren<CBPLinkerButton *>();
        for (CBPLinkerButton *link : links) {
            if (link->property(kSourceLink).toBool())
                link->hide();
        }
        QRect area(section->mapTo(window.page(), QPoint(0, 0)), section->size());
        area.setHeight(qMin(area.height(), kMostHeight));
        return window.page()->grab(area.adjusted(-kMargin, -kMargin, kMargin, kMargin));
    }
    return QPixmap();
}

} // namespace

int takeClassPictures(GalleryWindow &window, const QString &dir)
{
    const QDir folder(dir);
    if (!folder.mkpath(QStringLiteral("."))) {
        QTextStream(stderr) << "cannot write into " << QDir::toNativeSeparators(dir) << Qt::endl;
        return 1;
    }
    int failures = writeThemeTable(folder.filePath(QStringLiteral("themes.txt"))) ? 0 : 1;
    const QHash<QString, Place> all = places(window);
    for (auto place = all.cbegin(); place != all.cend(); ++place) {
        const QString file = folder.filePath(place.key() + QStringLiteral(".png"));
        if (pictureOf(window, place.value()).save(file, "PNG")) {
            QTextStream(stdout) << QDir::toNativeSeparators(file) << Qt::endl;
            continue;
        }
        ++failures;
        QTextStream(stderr) << "no picture of " << place.key() << Qt::endl;
    }
    return failures ? 1 : 0;
}
