#include "Screenshots.h"

#include "GalleryWindow.h"
#include "Theme.h"

#include <QCursor>
#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTextStream>
#include <QThread>
#include <QWindow>

namespace {

constexpr int kTimeout = 10000; // ms
constexpr int kPointerInset = 4;
// ms: what fades has its last colour, and the frame of a native window is painted by messages of its own.
constexpr int kSettleTime = 150;

void settle(int milliseconds)
{
    QElapsedTimer time;
    time.start();
    do {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QThread::msleep(1);
    } while (time.elapsed() < milliseconds);
}

template <class Condition> bool waitUntil(const Condition &met)
{
    QElapsedTimer time;
    time.start();
    while (!met()) {
        if (time.elapsed() > kTimeout)
            return false;
        settle(10);
    }
    return true;
}

// Native frames are painted outside of the widget, so there only the screen has the whole picture.
bool frameIsNative()
{
    return QGuiApplication::platformName() == QLatin1String("windows");
}

QPixmap photograph(GalleryWindow &window)
{
    if (!frameIsNative())
        return window.grab();
    const QRect rect = window.windowRect();
    QScreen *screen = window.windowHandle()->screen();
    const QPoint onScreen = rect.topLeft() - screen->geometry().topLeft();
    return screen->grabWindow(0, onScreen.x(), onScreen.y(), rect.width(), rect.height());
}

} // namespace

void fitToPage(GalleryWindow &window)
{
    int height = window.fullHeight();
    height += (theme::kUnit - height % theme::kUnit) % theme::kUnit; // whole device pixels at every scale
    if (frameIsNative()) {
        const QRect available = window.screen()->availableGeometry();
        height = qMin(height, available.height() - window.titleHight() - window.frameWidth());
        // By where it is, as Qt reckons with a native frame of another size.
        window.move(window.pos() + available.topLeft() - window.windowRect().topLeft());
    }
    window.resize(window.width(), height);
}

namespace {

class Album
{
public:
    explicit Album(const QString &dir) : m_dir(dir) {}

    bool open()
    {
        if (QDir().mkpath(m_dir.path()))
            return true;
        fail(m_dir.path());
        return false;
    }

    void add(const QPixmap &picture, const QString &name)
    {
        const QString file = m_dir.filePath(name);
        if (picture.isNull() || !picture.save(file, "PNG")) {
            fail(file);
            return;
        }
        m_files << QStringLiteral("%1 %2x%3").arg(name).arg(picture.width()).arg(picture.height());
        QTextStream(stdout) << QDir::toNativeSeparators(file) << Qt::endl;
    }

    // A program with a window of its own may have no standard output to tell of its pictures.
    int close()
    {
        QFile list(m_dir.filePath(QStringLiteral("screenshots.txt")));
        const QByteArray text = m_files.join(QLatin1Char('\n')).toUtf8() + '\n';
        if (!list.open(QIODevice::WriteOnly) || list.write(text) != text.size() || !list.flush())
            fail(list.fileName());
        return m_failed ? 1 : 0;
    }

private:
    void fail(const QString &file)
    {
        m_failed = true;
        QTextStream(stderr) << "cannot write " << QDir::toNativeSeparators(file) << Qt::endl;
    }

    QDir m_dir;
    QStringList m_files;
    bool m_failed = false;
};

void photographPage(GalleryWindow &window, const QString &pageId, Album &album)
{
    window.showPage(pageId);
    settle(kSettleTime);
    fitToPage(window);
    settle(kSettleTime);
    // What is selected is paler in a window that is not active, as it may be after dialogs that the page has
    // made and destroyed. There are pictures of it all the same.
    window.activateWindow();
    if (!waitUntil([&] { return window.isActiveWindow(); }))
        QTextStream(stderr) << "the window is not active" << Qt::endl;
    settle(kSettleTime);
    QScrollBar *bar = window.scrollArea()->verticalScrollBar();
    int part = 1;
    for (;; ++part) {
        const QString suffix = part == 1 ? QString() : QStringLiteral("-%1").arg(part);
        album.add(photograph(window), pageId + suffix + QStringLiteral(".png"));
        if (bar->value() == bar->maximum())
            break;
        bar->setValue(bar->value() + bar->pageStep());
        settle(kSettleTime);
    }
}

} // namespace

int takeScreenshots(GalleryWindow &window, const QStringList &pageIds, const QString &dir)
{
    Album album(dir);
    if (!album.open())
        return 1;
    if (!waitUntil([&] { return window.windowHandle() && window.windowHandle()->isExposed(); })) {
        QTextStream(stderr) << "the window does not show" << Qt::endl;
        return 1;
    }
    // Above the list of pages nothing answers the pointer.
    QCursor::setPos(
        window.mapToGlobal(window.contentsRect().topLeft() + QPoint(kPointerInset, kPointerInset)));
    for (const QString &pageId : pageIds)
        photographPage(window, pageId, album);
    return album.close();
}
