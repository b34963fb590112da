#include "GalleryWindow.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Rows.h"
#include "Screenshots.h"
#include "TestMain.h"
#include "Theme.h"

#include <QApplication>
#include <QFontInfo>
#include <QLabel>

#include <memory>

namespace {

const QDir kPictures(QStringLiteral(LUMQT_PAGE_PICTURES));
constexpr int kShades = 16;
constexpr int kStep = 256 / kShades;
// How far a pixel may be from its shade: processors round differently in the last bit or two.
constexpr int kFarthest = kStep / 2 + 3;

constexpr int kFewest = 6; // pixels of a colour amid others of it that make it a flat one
// From line to line, a smaller difference is a gradient's, which processors round.
constexpr int kGradient = 12;

// Shades of grey keep the files small; the colours have a file of their own.
QImage shadesOf(const QImage &picture)
{
    return picture.convertToFormat(QImage::Format_RGB32).convertToFormat(QImage::Format_Grayscale8);
}

// As it is kept: the middle of each pixel's shade.
QImage keptOf(const QImage &shades)
{
    QVector<QRgb> colors;
    for (int shade = 0; shade < kShades; ++shade)
        colors << qRgb(shade * 17, shade * 17, shade * 17);
    QImage kept(shades.size(), QImage::Format_Indexed8);
    kept.setColorTable(colors);
    for (int y = 0; y < kept.height(); ++y) {
        for (int x = 0; x < kept.width(); ++x)
            kept.scanLine(y)[x] = shades.constScanLine(y)[x] / kStep;
    }
    return kept;
}

// A page that is lower than the list of pages grows with the list: without the ground that it then has more of
// than the kept one.
QImage asHighAs(const QImage &kept, const QImage &picture)
{
    QSet<QRgb> more;
    for (int y = kept.height(); y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            more << picture.pixel(x, y);
    }
    return more.size() == 1 ? picture.copy(0, 0, picture.width(), kept.height()) : picture;
}

// Where a picture differs from the kept one.
QRegion differences(const QImage &shades, const QImage &kept)
{
    QRegion result;
    for (int y = 0; y < shades.height(); ++y) {
        const uchar *now = shades.constScanLine(y);
        const uchar *then = kept.constScanLine(y);
        for (int x = 0; x < shades.width(); ++x) {
            if (qAbs(now[x] - (then[x] / 17 * kStep + kStep / 2)) > kFarthest)
                result += QRect(x, y, 1, 1);
        }
    }
    return result;
}

bool isGradient(QRgb color, QRgb beside)
{
    return color != beside && qAbs(qRed(color) - qRed(beside)) < kGradient &&
           qAbs(qGreen(color) - qGreen(beside)) < kGradient && qAbs(qBlue(color) - qBlue(beside)) < kGradient;
}

// The colours of grounds, lines and the strokes of letters, to the last bit: of what lies in rows or columns
// of one colour.
QStringList flatColorsOf(const QImage &image)
{
    const QImage picture = image.convertToFormat(QImage::Format_RGB32);
    const auto line = [&](int y) { return reinterpret_cast<const QRgb *>(picture.constScanLine(y)); };
    QHash<QRgb, int> runs;
    for (int y = 1; y < picture.height() - 1; ++y) {
        const QRgb *above = line(y - 1), *here = line(y), *below = line(y + 1);
        int *count = nullptr; // of the colour to the left
        for (int x = 1; x < picture.width() - 1; ++x) {
            const QRgb color = here[x];
            const bool inRow = here[x - 1] == color && here[x + 1] == color;
            const bool inColumn = above[x] == color && below[x] == color;
            if ((inRow && !isGradient(color, above[x]) && !isGradient(color, below[x])) ||
                (inColumn && !isGradient(color, here[x - 1]) && !isGradient(color, here[x + 1]))) {
                count = count && here[x - 1] == color ? count : &runs[color];
                ++*count;
            } else {
                count = nullptr;
            }
        }
    }
    QStringList colors;
    for (auto run = runs.cbegin(); run != runs.cend(); ++run) {
        if (run.value() >= kFewest)
            colors << QColor(run.key()).name().mid(1);
    }
    colors.sort();
    return colors;
}

// Per page, a line of its own in colors.txt.
QMap<QString, QStringList> keptColors()
{
    QMap<QString, QStringList> result;
    QFile file(kPictures.filePath(QStringLiteral("colors.txt")));
    if (!file.open(QIODevice::ReadOnly))
        return result;
    const auto lines = QString::fromLatin1(file.readAll()).split('\n');
    for (const QString &line : lines) {
        const QStringList words = line.split(' ');
        result[words.first()] = words.mid(1);
    }
    result.remove(QString());
    return result;
}

bool keepColors(const QMap<QString, QStringList> &colors)
{
    QByteArray text;
    for (auto page = colors.cbegin(); page != colors.cend(); ++page)
        text += (page.key() + ' ' + page.value().join(' ') + '\n').toLatin1();
    QFile file(kPictures.filePath(QStringLiteral("colors.txt")));
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
}

QStringList without(QStringList all, const QStringList &some)
{
    for (const QString &one : some)
        all.removeAll(one);
    return all;
}

} // namespace

// What users see: every page of the gallery, every class in every state, beside the picture of it that a
// person looked at. Who changes the look on purpose lets LUMQT_RENEW_PICTURES=1 write them anew, and looks at
// what changed.
class TestPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (QGuiApplication::platformName() != QLatin1String("offscreen"))
            QSKIP("The pictures are those of one platform's letters and frames.");
        if (QFontInfo(QApplication::font()).family() != QLatin1String("Open Sans"))
            QSKIP("The fonts of the pictures are not installed.");
        QApplication::setCursorFlashTime(0);
        theme::setUpLook();
    }
    // A window each: no page looks as it does because of those before it.
    void init()
    {
        m_window = std::make_unique<GalleryWindow>();
        m_window->show();
        QApplication::setActiveWindow(m_window.get()); // without an event loop, which would set things moving
    }
    void cleanup() { m_window.reset(); }

    void looksAsBefore_data()
    {
        columns<QString>("page");
        for (const PageInfo &page : pages())
            row(qPrintable(page.id), page.id);
    }
    void looksAsBefore()
    {
        QFETCH(QString, page);
        m_window->showPage(page);
        // Where it was built is no matter of the look.
        const QString folder = QDir::cleanPath(QCoreApplication::applicationDirPath() + "/..");
        for (QLabel *label : m_window->findChildren<QLabel *>()) {
            if (label->text().startsWith(folder))
                label->setText(label->text().mid(folder.size()));
        }
        // No event loop turns, so that nothing that moves has begun to.
        QCoreApplication::sendPostedEvents();
        fitToPage(*m_window);
        QCoreApplication::sendPostedEvents();
        const QPixmap picture = page == pages().first().id ? m_window->grab() : m_window->page()->grab();
        const QStringList colors = flatColorsOf(picture.toImage());
        const QString file = page + QStringLiteral(".png");
        if (qEnvironmentVariableIsSet("LUMQT_RENEW_PICTURES")) {
            QVERIFY(keptOf(shadesOf(picture.toImage())).save(kPictures.filePath(file), "PNG", 0));
            m_colors[page] = colors;
            QVERIFY(keepColors(m_colors));
        }
        const QImage kept = QImage(kPictures.filePath(file)).convertToFormat(QImage::Format_Grayscale8);
        const QImage shades = asHighAs(kept, shadesOf(picture.toImage()));
        const QRegion differ =
            shades.size() == kept.size() ? differences(shades, kept) : QRegion(shades.rect());
        if (differ.isEmpty() && colors == m_colors[page])
            return;
        QDir().mkpath(QStringLiteral("pages"));
        const QString seen = QDir(QStringLiteral("pages")).absoluteFilePath(file);
        picture.save(seen);
        const QRect area = differ.boundingRect();
        QFAIL(qPrintable(QStringLiteral("differs within %1,%2 %3x%4; colours gone: %5; new: %6 (%7)")
                             .arg(area.x())
                             .arg(area.y())
                             .arg(area.width())
                             .arg(area.height())
                             .arg(without(m_colors[page], colors).join(' '),
                                  without(colors, m_colors[page]).join(' '), seen)));
    }

private:
    std::unique_ptr<GalleryWindow> m_window;
    QMap<QString, QStringList> m_colors = keptColors();
};

int main(int argc, char *argv[])
{
    qputenv("LC_ALL", "C"); // dates and numbers are written as in the pictures
    return runTest<TestPages>(argc, argv);
}

#include "tst_pages.moc"
