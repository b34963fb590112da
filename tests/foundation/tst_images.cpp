#include "CBPStyle.h"
#include "CBPTreeWidget.h"
#include "foundation/IconPixmap.h"
#include "foundation/ImageLoader.h"
#include "foundation/Painting.h"
#include "foundation/QtCompat.h"
#include "Pictures.h"
#include "Pixels.h"
#include "TestMain.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QIcon>
#include <QPainter>
#include <QPushButton>
#include <QTabBar>
#include <QTemporaryDir>
#include <QToolButton>

#include <tuple>

using lumqt::loadPixmap;
using lumqt::logicalSize;

namespace {

QColor middle(const QPixmap &pixmap)
{
    const QImage image = pixmap.toImage();
    return image.pixelColor(image.width() / 2, image.height() / 2);
}

void savePng(const QString &file, int side, const QColor &color)
{
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(color);
    QVERIFY(image.save(file, "PNG"));
}

void write(const QString &file, const QByteArray &content)
{
    QFile out(file);
    QVERIFY(out.open(QIODevice::WriteOnly));
    out.write(content);
}

QImage canvas(int width, int height, qreal ratio = 1.0)
{
    QImage image(qRound(width * ratio), qRound(height * ratio), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    return image;
}

QImage painted(const QRect &rect, const lumqt::Body &body, qreal ratio = 1.0, const QSize &size = {80, 60})
{
    QImage image = canvas(size.width(), size.height(), ratio);
    QPainter painter(&image);
    lumqt::drawBody(painter, rect, body);
    return image;
}

lumqt::Body roundBody()
{
    lumqt::Body body;
    body.fill = QColor(200, 220, 240);
    body.frame = QColor(10, 20, 30);
    body.radiusX = body.radiusY = 12;
    return body;
}

// Of all controls whose icon Qt paints for the library's style.
void verifyStyleIsDense(const QIcon &icon, QRgb color)
{
    const auto verify = [color](QWidget &widget) {
        CBPStyle::Apply(&widget);
        widget.ensurePolished();
        const QImage image = widget.grab().toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                count += image.pixel(x, y) == color;
        }
        const qreal side = 16 * image.devicePixelRatio();
        QVERIFY2(count >= side * side * 0.95, widget.metaObject()->className());
    };
    QPushButton push(icon, "Push");
    QToolButton tool;
    tool.setIcon(icon);
    QCheckBox check("Check");
    check.setIcon(icon);
    for (QAbstractButton *button : std::initializer_list<QAbstractButton *>{&push, &tool, &check}) {
        button->setIconSize(QSize(16, 16));
        verify(*button);
    }
    QTabBar tabs;
    tabs.addTab(icon, "Tab");
    tabs.setIconSize(QSize(16, 16));
    verify(tabs);
    QComboBox combo;
    combo.addItem(icon, "Combo");
    combo.setIconSize(QSize(16, 16));
    verify(combo);
    CBPTreeWidget tree;
    tree.setHeaderHidden(true);
    new QTreeWidgetItem(&tree, {"Row"});
    tree.topLevelItem(0)->setIcon(0, icon);
    tree.setIconSize(QSize(16, 16));
    verify(tree);
    tree.clear();
    tree.setHeaderHidden(false);
    tree.headerItem()->setIcon(0, icon);
    verify(tree);
}

} // namespace

class TestImages : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_folder.reset(new QTemporaryDir);
        QVERIFY(m_folder->isValid());
    }

    // The picture of the right density, and the logical size of the ordinary one at every ratio.
    void densities()
    {
        const QString file = path("a.png");
        savePng(file, 10, Qt::red);
        QCOMPARE(middle(loadPixmap(file, 2.0)), QColor(Qt::red));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("cannot be read"));
        write(path("a@2x.png"), "nothing");
        QCOMPARE(middle(loadPixmap(file, 2.0)), QColor(Qt::red));
        savePng(path("a@2x.png"), 20, Qt::blue); // comes later
        savePicture(path("b.svg"), QSize(10, 10), QColor(0, 255, 0));
        savePng(path("a@1.5x.png"), 15, Qt::cyan); // for this ratio alone
        for (const qreal ratio : {1.0, 1.4, 1.5, 1.6, 2.0}) {
            const QColor expected = ratio == 1.5 ? Qt::cyan : ratio > 1 ? Qt::blue : Qt::red;
            const QPair<QPixmap, QColor> shown[] = {{loadPixmap(file, ratio), expected},
                                                    {loadPixmap(path("b.svg"), ratio), QColor(0, 255, 0)}};
            for (const auto &[pixmap, color] : shown) {
                QCOMPARE(logicalSize(pixmap), QSize(10, 10));
                QCOMPARE(pixmap.width(), qRound(10 * ratio));
                QCOMPARE(middle(pixmap), color);
            }
        }
        savePng(path("a@1.5x.png"), 15, Qt::magenta);
        QCOMPARE(middle(loadPixmap(file, 1.5)), QColor(Qt::magenta));
    }

    // Files of few colours hold a table of them, with see-through ones among them, or shades of grey.
    void fewColors()
    {
        for (const QImage::Format format : {QImage::Format_Mono, QImage::Format_Indexed8,
                                            QImage::Format_Grayscale8, QImage::Format_Grayscale16}) {
            QImage image(34, 34, format);
            if (format == QImage::Format_Mono || format == QImage::Format_Indexed8)
                image.setColorTable({0xff000000, 0x00000000});
            image.fill(0);
            QVERIFY(image.save(path("few@2x.png"), "PNG"));
            savePng(path("few.png"), 17, Qt::red);
            for (const qreal ratio : {1.25, 1.5, 1.75, 2.0, 3.0}) {
                const QPixmap shown = loadPixmap(path("few.png"), ratio);
                QCOMPARE(shown.width(), qRound(17 * ratio));
                QCOMPARE(middle(shown), QColor(Qt::black));
            }
        }
    }

    // Kept while it is as it was, and what comes in its place shows, be that as large or as old as it.
    void filesChange()
    {
        for (const char *name : {"a.png", "a.svg"}) {
            const QString file = path(name);
            const auto shows = [&](const QColor &color) { return middle(loadPixmap(file, 1.0)) == color; };
            savePicture(file, QSize(10, 10), Qt::red);
            QVERIFY(shows(Qt::red));
            savePicture(file, QSize(40, 40), Qt::blue);
            QVERIFY(shows(Qt::blue));
            QVERIFY(QFile::remove(file));
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("is missing"));
            QVERIFY(loadPixmap(file, 1.0).isNull());
            QVERIFY(loadPixmap(file, 1.0).isNull()); // and is told of once
            for (const int hoursAgo : {3, 2, 0}) {
                const QColor color(0, 80 * hoursAgo, 0);
                savePicture(file, QSize(10, 10), color); // of one size whatever the colour
                QFile out(file);
                QVERIFY(out.open(QIODevice::ReadWrite));
                QVERIFY(out.setFileTime(QDateTime::currentDateTime().addSecs(-3600 * hoursAgo),
                                        QFileDevice::FileModificationTime));
                QVERIFY(shows(color));
                QVERIFY(hoursAgo == 0 ||
                        loadPixmap(file, 1.0).cacheKey() == loadPixmap(file, 1.0).cacheKey());
            }
        }
    }

    void badFiles()
    {
        QByteArray png;
        QBuffer buffer(&png);
        canvas(64, 64).save(&buffer, "PNG");
        // A well-formed file that announces 20,000 x 20,000 pixels.
        const QByteArray huge = QByteArray::fromHex(
            "89504e470d0a1a0a0000000d4948445200004e2000004e2008020000006c12d16e0000000b494441"
            "54789c6360800100000a00017f80745e0000000049454e44ae426082");
        const auto svg = [](const char *size) {
            return QByteArray("<svg xmlns='http://www.w3.org/2000/svg' ") + size + "/>";
        };
        const std::tuple<const char *, QByteArray, const char *> rows[] = {
            {"empty.png", "", "cannot be read"},
            {"cut.png", png.left(40), "cannot be read"},
            {"huge.png", huge, "too large"},
            {"broken.svg", "<svg><rect", "cannot be read"},
            {"huge.svg", svg("width='100000' height='9'"), "too large"},
            {"enormous.svg", svg("width='1500000000' height='1500000000'"), "too large"},
            {"sizeless.svg", svg(""), "has no size"}};
        for (const auto &[name, content, warning] : rows) {
            write(path(name), content);
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(warning));
            QVERIFY2(loadPixmap(path(name), 1.0).isNull(), name);
        }
        for (const char *missing : {"none.png", "."}) {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("is missing"));
            QVERIFY2(loadPixmap(path(missing), 1.0).isNull(), missing);
        }
        QCOMPARE(logicalSize(loadPixmap(QString(), 1.0)), QSize(0, 0));
    }

    // Every shipped picture is there at both densities.
    void shippedPictures()
    {
        int count = 0;
        QDirIterator files("../res", {"*.png", "*.svg"}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString file = files.next();
            if (file.contains("@"))
                continue;
            ++count;
            const QSize size = loadPixmap(file, 1.0).size();
            QVERIFY2(!size.isEmpty() && loadPixmap(file, 2.0).size() == size * 2, qPrintable(file));
            QVERIFY2(file.endsWith("svg") || QFile::exists(denseTwin(file)), qPrintable(file));
        }
        QVERIFY(count > 80);
    }

    // Straight strokes cover whole device pixels at every scaling, wherever a widget draws the picture:
    // across them there is no pixel between full and none.
    void straightStrokes()
    {
        for (const QString name : {"list_normal", "minimize_press", "maximize_normal", "line"}) {
            for (const qreal ratio : {1.0, 1.25, 1.5, 1.75, 2.0}) {
                QImage image = canvas(60, 60, ratio);
                QPainter painter(&image);
                painter.drawPixmap(11, 7, loadPixmap(QStringLiteral("../res/%1.png").arg(name), ratio));
                painter.end();
                const QPoint centre = inkOf(image, 250).center();
                QSet<QRgb> colors;
                for (int i = 0; i < image.width(); ++i)
                    colors << image.pixel(name == "line" ? QPoint(i, centre.y()) : QPoint(centre.x(), i));
                QVERIFY2(colors.size() == 2, qPrintable(name + QString::number(ratio)));
            }
        }
    }

    // The outermost device pixel has the frame's own colour at every scaling and place: nothing is smeared
    // over two, and the frame is as wide on one side as on the other. Bodies of odd sizes are none, or round.
    void bodyFrame()
    {
        lumqt::Body body = roundBody();
        for (const qreal ratio : {1.0, 1.25, 1.5, 2.0}) {
            for (const int radius : {0, 6}) {
                for (const QRect &rect : {QRect(0, 0, 80, 28), QRect(3, 5, 85, 27), QRect(1, 1, 600, 601)}) {
                    body.radiusX = body.radiusY = radius;
                    const QImage image = painted(rect, body, ratio, QSize(640, 640));
                    const QRectF exact = QTransform::fromScale(ratio, ratio).mapRect(QRectF(rect));
                    const QRect box(exact.topLeft().toPoint(), exact.bottomRight().toPoint() - QPoint(1, 1));
                    const QPoint middle = box.center();
                    const int width = qMax(1, qRound(ratio));
                    for (int i = 0; i <= width; ++i) { // the last one lies inside the frame
                        const QRect line = box.adjusted(i, i, -i, -i);
                        for (const QPoint &at :
                             {QPoint(line.left(), middle.y()), QPoint(line.right(), middle.y()),
                              QPoint(middle.x(), line.top()), QPoint(middle.x(), line.bottom())})
                            QCOMPARE(image.pixelColor(at), i < width ? body.frame : body.fill);
                    }
                    QCOMPARE(image.pixelColor(box.right() + 1, middle.y()), QColor(Qt::white));
                    QCOMPARE(image.pixelColor(box.topLeft()) == body.frame, radius == 0);
                }
            }
        }
        body.radiusY = 0; // one radius is none
        QCOMPARE(painted(QRect(0, 0, 80, 28), body).pixelColor(0, 0), body.frame);
        const QImage nothing = painted(QRect(), body);
        QCOMPARE(painted(QRect(5, 5, -3, 10), body), nothing);
        QCOMPARE(nothing, canvas(80, 60));
        body.radiusX = body.radiusY = 1000;
        body.frameWidth = -4;
        const QImage disc = painted(QRect(0, 0, 40, 40), body);
        QCOMPARE(disc.pixelColor(20, 20), body.fill);
        QCOMPARE(disc.pixelColor(0, 0), QColor(Qt::white));
    }

    // Bodies that differ in one thing only are different pictures.
    void bodiesAreToldApart()
    {
        const lumqt::Body body = roundBody();
        QVector<QImage> seen{painted(QRect(0, 0, 80, 60), body),
                             painted(QRect(0, 0, 40, 30), body, 2.0, QSize(40, 30))};
        void (*const changes[])(lumqt::Body &) = {
            [](lumqt::Body &look) { look.radiusX = 6; },    [](lumqt::Body &look) { look.radiusY = 6; },
            [](lumqt::Body &look) { look.frameWidth = 2; }, [](lumqt::Body &look) { look.frame = Qt::red; },
            [](lumqt::Body &look) { look.fill = Qt::red; }, [](lumqt::Body &look) { look.frame = QColor(); }};
        for (const auto change : changes) {
            lumqt::Body other = body;
            change(other);
            seen.append(painted(QRect(0, 0, 80, 60), other));
        }
        for (int i = 0; i < seen.size(); ++i) {
            seen[i].setDevicePixelRatio(1.0);
            for (int j = 0; j < i; ++j)
                QVERIFY2(seen[i] != seen[j], qPrintable(QStringLiteral("%1 and %2").arg(i).arg(j)));
        }
    }

    // The denser of two pictures, on screens that have more pixels than the other.
    void iconsAreDense()
    {
        QPixmap plain(16, 16), dense(32, 32);
        plain.fill(Qt::red);
        dense.fill(Qt::blue);
        dense.setDevicePixelRatio(2.0);
        QIcon icon(plain);
        icon.addPixmap(dense);
        const QWidget widget;
        const qreal ratio = widget.devicePixelRatioF();
        const QPixmap shown = lumqt::iconPixmap(icon, QSize(16, 16), QIcon::Normal, &widget);
        QCOMPARE(shown.size(), QSize(16, 16) * ratio);
        QCOMPARE(logicalSize(shown), QSize(16, 16));
        QCOMPARE(middle(shown), QColor(ratio > 1.0 ? Qt::blue : Qt::red));
        if (lumqt::iconsAreDense())
            verifyStyleIsDense(icon, ratio > 1.0 ? qRgb(0, 0, 255) : qRgb(255, 0, 0));
    }

    // A text that is measured and drawn from one layout is as large, and looks, as Qt measures and draws it
    // in separate steps: also where that layout would not do.
    void oneLayout()
    {
        QFont plain = QApplication::font();
        QFont spaced = plain;
        spaced.setLetterSpacing(QFont::AbsoluteSpacing, 1.5);
        spaced.setItalic(true);
        QFont struck = plain;
        struck.setStrikeOut(true);
        struck.setOverline(true);
        const QStringList texts{"Restart",
                                "AV fj",
                                " a ",
                                "a  ",
                                "A && B&c",
                                "a\tb",
                                "a\nb",
                                QString::fromUtf8("a\u00adb\u00a0"),
                                QString::fromUtf8("\u6587\u5b57 Text\uff0c"),
                                QString::fromUtf8("Zu\u0308rich"),
                                QString::fromUtf8("\u05e9\u05dc\u05d5\u05dd abc"),
                                QString::fromUtf8("abc \u05e9\u05dc\u05d5\u05dd"),
                                QString::fromUtf8("\U0001f600 x"),
                                QString(300, 'x'),
                                QString()};
        for (const QFont &font : {plain, spaced, struck}) {
            const QFontMetrics metrics(font);
            for (const QString &text : texts) {
                lumqt::CachedText cached;
                QCOMPARE(cached.styledSize(text, font), metrics.size(Qt::TextShowMnemonic, text));
                const bool lines = text.contains('\n') || text.contains('\t');
                const QSize line(metrics.horizontalAdvance(text), metrics.height());
                QCOMPARE(cached.lineSize(text, font), lines ? metrics.size(Qt::TextExpandTabs, text) : line);
                if (lines || text.isEmpty())
                    continue;
                for (int time = 0; time < 3; ++time) {
                    QImage ours = canvas(line.width(), line.height());
                    QImage theirs = ours;
                    QPainter painter(&ours);
                    cached.drawLeft(painter, ours.rect(), text, font);
                    painter.end();
                    painter.begin(&theirs);
                    painter.setFont(font);
                    painter.setLayoutDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
                    painter.drawText(0, metrics.ascent(), text);
                    painter.end();
                    QVERIFY2(ours == theirs, qPrintable(QString("%1, time %2").arg(text).arg(time)));
                }
            }
        }
    }

    // A text lies where a text painted in full lies, whether it is painted the first time or a later one, and
    // follows every change.
    void cachedText()
    {
        const QFont font = QApplication::font();
        lumqt::CachedText cached;
        QImage last;
        for (const QString &text :
             QStringList{"Restart", "Later & now", "a\nb", "Words that do not fit on one line"}) {
            QImage ours;
            for (int time = 0; time < 3; ++time) {
                QImage image = canvas(120, 60);
                QPainter painter(&image);
                cached.drawCentred(painter, image.rect(), text, font);
                painter.end();
                QVERIFY2(ours.isNull() || ours == image, qPrintable(text));
                ours = image;
            }
            QImage full = canvas(120, 60);
            QPainter reference(&full);
            reference.setFont(font);
            QTextOption option(Qt::AlignCenter);
            option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
            reference.drawText(QRectF(full.rect()), text, option);
            reference.end();
            QVERIFY(ours != last);
            QVERIFY2(inkOf(ours, 160).adjusted(-1, -1, 1, 1).contains(inkOf(full, 160)), qPrintable(text));
            last = ours;
        }
        QVERIFY(!inkOf(last, 160).isEmpty());

        QFont larger = font;
        larger.setPixelSize(30);
        const int small = cached.lineSize("Restart", font).height();
        QVERIFY(cached.lineSize("Restart", larger).height() > small);

        QFont underlined = font;
        underlined.setUnderline(true);
        QImage times[2];
        for (QImage &image : times) {
            image = canvas(120, 60);
            QPainter painter(&image);
            painter.setPen(QColor(0, 0, 0, 100)); // two lines on each other would be darker
            cached.drawCentred(painter, image.rect(), "Restart", underlined);
        }
        QCOMPARE(times[0], times[1]);
    }

private:
    QString path(const char *name) const { return m_folder->filePath(QLatin1String(name)); }

    QScopedPointer<QTemporaryDir> m_folder;
};

LUMQT_TEST_MAIN(TestImages)
#include "tst_images.moc"
