#include "CBPImageButton.h"
#include "CTextTips.h"
#include "foundation/FontLookup.h"
#include "foundation/ImageLoader.h"
#include "Pixels.h"
#include "TestMain.h"

#include <QAccessible>
#include <QDialog>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QLinearGradient>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace {

constexpr int kId = 31;
const QColor kStateColors[] = {Qt::red, Qt::green, Qt::blue, Qt::cyan};
const QColor kRing("#2f86d8");
const QVector<QColor> kGrounds{QColor(10, 20, 30), QColor(40, 50, 60), QColor(70, 80, 90),
                               QColor(100, 110, 120)};

void savePng(const QString &file, const QSize &size, const QColor &color)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    QVERIFY(image.save(file, "PNG"));
}

void write(const QString &file, const QByteArray &content)
{
    QFile out(file);
    QVERIFY(out.open(QIODevice::WriteOnly));
    out.write(content);
}

QByteArray drawing(const QSize &size, const QColor &color)
{
    return QStringLiteral("<svg xmlns='http://www.w3.org/2000/svg' width='%1' height='%2'>"
                          "<rect width='%1' height='%2' fill='%3'/></svg>")
        .arg(QString::number(size.width()), QString::number(size.height()), color.name())
        .toLatin1();
}

// The picture of the button alone, on white. In device pixels.
QImage shot(QWidget &widget)
{
    QPixmap pixmap(widget.size() * widget.devicePixelRatioF());
    pixmap.setDevicePixelRatio(widget.devicePixelRatioF());
    pixmap.fill(Qt::white);
    widget.render(&pixmap, QPoint(), QRegion(), QWidget::DrawChildren);
    return pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
}

QColor pixel(QWidget &widget, int x, int y)
{
    const qreal ratio = widget.devicePixelRatioF();
    return shot(widget).pixelColor(qRound(x * ratio), qRound(y * ratio));
}

// In device pixels, as the edges of a logical rectangle are rounded.
QRect onDevice(const QRect &rect, qreal ratio)
{
    const int left = qRound(rect.x() * ratio);
    const int top = qRound(rect.y() * ratio);
    return QRect(left, top, qRound(rect.width() * ratio), qRound(rect.height() * ratio));
}

CTextTips *tips()
{
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (auto *tip = qobject_cast<CTextTips *>(window))
            return tip;
    }
    return nullptr;
}

void show(QWidget &widget)
{
    widget.show();
    widget.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&widget));
}

void send(QWidget &widget, QEvent::Type type)
{
    const QPointF at(5, 5);
    if (type == QEvent::Enter) {
        QEnterEvent event(at, at, at);
        QCoreApplication::sendEvent(&widget, &event);
    } else {
        QEvent event(type);
        QCoreApplication::sendEvent(&widget, &event);
    }
}

class Painted : public CBPImageButton
{
public:
    using CBPImageButton::CBPImageButton;
    int paints = 0;
    void paintEvent(QPaintEvent *event) override
    {
        ++paints;
        CBPImageButton::paintEvent(event);
    }
};

} // namespace

class TestImageButton : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        m_png = files(QStringLiteral("png"), QSize(20, 16));
        m_svg = files(QStringLiteral("svg"), QSize(20, 16));
    }

    void sizes_data()
    {
        QTest::addColumn<int>("images");
        QTest::addColumn<bool>("round");
        QTest::addColumn<bool>("beside");
        QTest::addColumn<int>("textHeight");
        QTest::addColumn<QSize>("fixed"); // beyond the text's width and, where wanted, its height
        QTest::addColumn<bool>("countsFont");
        // The image is 20 x 16, spacing 7, left margin 3, border 5: 20 + 2 + 7 + 3 + 10.
        QTest::newRow("beside") << 4 << false << true << 40 << QSize(42, 40) << false;
        QTest::newRow("beside, flat text") << 4 << false << true << 4 << QSize(42, 16) << false;
        QTest::newRow("beside, font's height") << 4 << false << true << 0 << QSize(42, 0) << true;
        QTest::newRow("below") << 4 << false << false << 40 << QSize(2, 63) << false;
        QTest::newRow("below, font's height") << 4 << false << false << 0 << QSize(2, 23) << true;
        QTest::newRow("round") << 4 << true << true << 40 << QSize(82, 40) << false;
        QTest::newRow("round, below") << 4 << true << false << 40 << QSize(2, 63) << false;
        QTest::newRow("round, below, font") << 4 << true << false << 0 << QSize(18, 23) << true;
        QTest::newRow("three images") << 3 << false << true << 40 << QSize() << false;
        QTest::newRow("no images") << 0 << false << true << 40 << QSize() << false;
    }

    void sizes()
    {
        QFETCH(int, images);
        QFETCH(bool, round);
        QFETCH(bool, beside);
        QFETCH(int, textHeight);
        QFETCH(QSize, fixed);
        QFETCH(bool, countsFont);
        CBPImageButton button(m_png.mid(0, images), round, kId);
        QCOMPARE(button.GetID(), kId);
        QCOMPARE(button.GetSize(), images == 4 ? QSize(20, 16) : QSize());
        const QFont font = lumqt::uiFont();
        const QString text = QStringLiteral("A text wider than the image");
        button.SetHight(textHeight);
        button.SetText(text, font, QVector<QColor>(4, Qt::black), beside, 7, 3);
        if (!fixed.isValid()) {
            QCOMPARE(button.GetSize(), QSize());
            QVERIFY(button.maximumWidth() == QWIDGETSIZE_MAX);
            return;
        }
        const QFontMetrics metrics(font);
        QSize expected = fixed + QSize(metrics.horizontalAdvance(text), 0);
        if (countsFont)
            expected.setHeight(beside ? qMax(16, metrics.height()) : fixed.height() + metrics.height());
        QCOMPARE(button.GetSize(), expected);
        QCOMPARE(button.minimumSize(), expected);
        QCOMPARE(button.maximumSize(), expected);
    }

    // A round button beside its text takes the text's height and the image's, if the height is the font's.
    void roundBesideCountsTwice()
    {
        CBPImageButton square(m_png, false, kId);
        CBPImageButton round(m_png, true, kId);
        for (CBPImageButton *button : {&square, &round})
            button->SetText(QStringLiteral("Text"), lumqt::uiFont());
        QCOMPARE(round.GetSize().width() - square.GetSize().width(),
                 QFontMetrics(lumqt::uiFont()).height() + 16);
    }

    void whoResizes()
    {
        CBPImageButton button(m_png, false, kId);
        button.SetBorder(50, true);
        QCOMPARE(button.GetSize(), QSize(20, 16)); // there is no text
        button.SetText(QStringLiteral("x"), true, 0);
        const int width = button.GetSize().width();
        button.SetBorder(10, false);
        QCOMPARE(button.GetSize().width(), width);
        button.SetBorder(10, true);
        QCOMPARE(button.GetSize().width(), width - 80);
        QVector<QString> large = files(QStringLiteral("png"), QSize(64, 64), QStringLiteral("large"));
        button.SetImgButtonRes(large);
        QCOMPARE(button.GetSize().width(), width - 80);
        const QSize before = button.GetSize();
        button.SetText(QString(), true, 90);
        QCOMPARE(button.size(), before);
    }

    void wildNumbers()
    {
        CBPImageButton button(m_png, true, kId);
        for (const int wild : {-100000, INT_MAX, INT_MIN}) {
            button.SetBorder(wild / 2, true);
            button.SetHight(wild);
            button.SetText(QStringLiteral("x"), lumqt::uiFont(), {}, false, wild, wild / 2);
            button.SetText(QStringLiteral("x"), true, wild);
            button.SetIconVoffset(wild);
            button.grab(QRect(0, 0, 20, 20));
            QVERIFY(button.GetSize().width() >= 0 && button.GetSize().height() >= 0);
            QVERIFY(button.GetSize().width() <= QWIDGETSIZE_MAX);
        }
    }

    void reactions_data()
    {
        QTest::addColumn<QString>("events");
        QTest::addColumn<int>("look");
        QTest::addColumn<QString>("signalsSent");
        QTest::newRow("rest") << "" << 0 << "";
        QTest::newRow("enter") << "enter" << 1 << "";
        QTest::newRow("leave") << "enter leave" << 0 << "";
        QTest::newRow("press") << "enter press" << 2 << "pressed";
        QTest::newRow("click") << "enter press release" << 2 << "pressed 31";
        QTest::newRow("click and leave") << "enter press release leave" << 0 << "pressed 31";
        QTest::newRow("release outside") << "enter press out" << 2 << "pressed";
        QTest::newRow("right press") << "enter right" << 2 << "";
        QTest::newRow("right click") << "enter right rightup" << 2 << "";
        QTest::newRow("double click") << "press release double release" << 2 << "pressed 31 pressed 31";
        QTest::newRow("selected") << "enter select leave" << 2 << "";
        QTest::newRow("selected is deaf") << "select leave enter press release space" << 2 << "";
        QTest::newRow("selected while down") << "press select release disable" << 3 << "pressed";
        QTest::newRow("deselected") << "enter select deselect" << 0 << "";
        QTest::newRow("disabled") << "enter disable" << 3 << "";
        QTest::newRow("enabled again") << "enter disable shot enable" << 0 << "";
        QTest::newRow("disabled after a click") << "press release disable" << 3 << "pressed 31";
        QTest::newRow("space after a click") << "press release spaceup leave" << 0 << "pressed 31";
        QTest::newRow("space") << "space" << 0 << "pressed released clicked 31";
        QTest::newRow("space held") << "spacedown" << 2 << "pressed";
        QTest::newRow("space over") << "enter space leave" << 0 << "pressed released clicked 31";
        QTest::newRow("space, focus goes") << "spacedown focusout spaceup" << 0 << "pressed";
        QTest::newRow("enter key") << "return" << 0 << "";
        QTest::newRow("default") << "default return" << 0 << "pressed released clicked 31";
        QTest::newRow("by a program") << "call" << 0 << "pressed released clicked 31";
        QTest::newRow("selected, by a program") << "select call" << 2 << "pressed released clicked";
    }

    void reactions()
    {
        QFETCH(QString, events);
        QFETCH(int, look);
        QFETCH(QString, signalsSent);
        CBPImageButton button(m_png, false, kId);
        button.SetBorder(0, false);
        QStringList sent;
        connect(&button, &QPushButton::pressed, this, [&] { sent << QStringLiteral("pressed"); });
        connect(&button, &QPushButton::released, this, [&] { sent << QStringLiteral("released"); });
        connect(&button, &CBPImageButton::btn_released, this, [&](int id) { sent << QString::number(id); });
        connect(&button, &QPushButton::clicked, this, [&] { sent << QStringLiteral("clicked"); });
        QString expected = signalsSent;
        for (const QString &event : events.split(QLatin1Char(' '), Qt::SkipEmptyParts))
            perform(button, event);
        QCOMPARE(shot(button).pixelColor(3, 3), kStateColors[look]);
        // What reports the click comes before other slots of clicked().
        expected.replace(QLatin1String("clicked 31"), QLatin1String("31 clicked"));
        QCOMPARE(sent.join(QLatin1Char(' ')), expected);
    }

    // The pressed look is on the screen before the events that wait in line.
    void repaints_data()
    {
        QTest::addColumn<QString>("events");
        for (const char *events : {"enter", "enter leave", "press", "select", "space", "tab", "tab focusout",
                                   "images", "text", "border"})
            QTest::newRow(events) << events;
    }
    void repaints()
    {
        QFETCH(QString, events);
        Painted button(m_png, false, kId);
        show(button);
        const QStringList all = events.split(QLatin1Char(' '));
        for (const QString &event : all) {
            QTRY_VERIFY(button.paints > 0);
            QTest::qWait(0);
            button.paints = 0;
            perform(button, event);
        }
        QTRY_VERIFY(button.paints > 0);
    }

    void pressRepaintsAtOnce()
    {
        Painted button(m_png, false, kId);
        show(button);
        QTRY_VERIFY(button.paints > 0);
        QCoreApplication::processEvents();
        const int before = button.paints;
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), Qt::RightButton, Qt::RightButton, {});
        QCoreApplication::sendEvent(&button, &press);
        QCOMPARE(button.paints, before + 1);
    }

    void deletedByItsOwnSignal_data()
    {
        QTest::addColumn<QString>("events");
        QTest::newRow("mouse") << "enter press release";
        QTest::newRow("space") << "space";
        QTest::newRow("return") << "default return";
        QTest::newRow("call") << "call";
    }

    void deletedByItsOwnSignal()
    {
        QFETCH(QString, events);
        QPointer<CBPImageButton> button = new CBPImageButton(m_png, false, kId);
        button->SetTipsTxt(QStringLiteral("Tip"));
        connect(button.data(), &CBPImageButton::btn_released, this, [&] { delete button; });
        for (const QString &event : events.split(QLatin1Char(' '))) {
            if (button)
                perform(*button, event);
        }
        QVERIFY(!button);
        QVERIFY(!tips()); // gone with the button
    }

    void places_data()
    {
        QTest::addColumn<bool>("round");
        QTest::addColumn<int>("border");
        QTest::addColumn<int>("margin");
        QTest::addColumn<int>("offset");
        QTest::addColumn<QPoint>("place");
        // In a button of 90 x 30 with an image of 20 x 16.
        QTest::newRow("as made") << false << 5 << 0 << 0 << QPoint(5, 7);
        QTest::newRow("no border") << false << 0 << 0 << 0 << QPoint(0, 7);
        QTest::newRow("margin") << false << 6 << 8 << 0 << QPoint(14, 7);
        QTest::newRow("round") << true << 5 << 8 << 0 << QPoint(20, 7);
        QTest::newRow("lower") << false << 4 << 0 << 4 << QPoint(4, 11);
        QTest::newRow("higher") << false << 4 << 0 << -7 << QPoint(4, 0);
    }

    // Each image lies on whole device pixels, as sharp as its file, at whatever scaling this runs.
    void places()
    {
        QFETCH(bool, round);
        QFETCH(int, border);
        QFETCH(int, margin);
        QFETCH(int, offset);
        QFETCH(QPoint, place);
        for (const QVector<QString> &images : {m_png, m_svg}) {
            CBPImageButton button(images, round, kId);
            button.SetBorder(border, false);
            button.SetText(QString(), lumqt::uiFont(), {}, true, 0, margin);
            button.SetIconVoffset(offset);
            button.setFixedSize(90, 30);
            const QRect expected = onDevice(QRect(place, QSize(20, 16)), button.devicePixelRatioF());
            QCOMPARE(boxOf(shot(button), kStateColors[0]), expected);
        }
    }

    // Not a pixel of a picture is lost, doubled or mixed with its neighbour.
    void pixelForPixel()
    {
        const QString file = m_folder.filePath(QStringLiteral("pattern.png"));
        for (const int scale : {1, 2}) {
            QImage image(20 * scale, 16 * scale, QImage::Format_ARGB32);
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x)
                    image.setPixelColor(x, y, (x + y) % 2 ? QColor(12 * x / scale, 90, 0) : QColor(Qt::cyan));
            }
            const QString dense = m_folder.filePath(QStringLiteral("pattern@2x.png"));
            QVERIFY(image.save(scale == 1 ? file : dense, "PNG"));
        }
        for (const int border : {0, 1, 5}) {
            CBPImageButton button(QVector<QString>(4, file), false, kId);
            button.SetBorder(border, false);
            button.setFixedSize(60, 30);
            const qreal ratio = button.devicePixelRatioF();
            const QImage expected =
                lumqt::loadPixmap(file, ratio).toImage().convertToFormat(QImage::Format_ARGB32);
            const QPoint place = onDevice(QRect(border, 7, 20, 16), ratio).topLeft();
            QCOMPARE(shot(button).copy(QRect(place, expected.size())).convertToFormat(QImage::Format_RGB32),
                     expected.convertToFormat(QImage::Format_RGB32));
        }
    }

    // Buttons that share files share the looks at them, and miss nothing.
    void sharedFiles()
    {
        QVector<QString> images = files(QStringLiteral("png"), QSize(10, 10), QStringLiteral("shared"));
        QWidget window;
        window.resize(100, 40);
        CBPImageButton first(images, false, 1, &window);
        CBPImageButton second(images, false, 2, &window);
        second.move(40, 0);
        for (CBPImageButton *button : {&first, &second})
            button->SetBorder(0, false);
        const auto colors = [&] {
            const QImage image = window.grab().toImage();
            const qreal ratio = image.devicePixelRatio();
            return QVector<QColor>{image.pixelColor(qRound(3 * ratio), 3),
                                   image.pixelColor(qRound(43 * ratio), 3)};
        };
        makeOld(images[0]);
        for (int pass = 0; pass < 3; ++pass)
            QCOMPARE(colors(), QVector<QColor>(2, kStateColors[0]));
        savePng(images[0], QSize(10, 10), Qt::yellow);
        savePng(dense(images[0]), QSize(20, 20), Qt::yellow);
        QCOMPARE(colors(), QVector<QColor>(2, QColor(Qt::yellow)));
        makeOld(images[0]);
        QCOMPARE(colors(), QVector<QColor>(2, QColor(Qt::yellow)));
        second.SetImgButtonRes(m_png);
        QCOMPARE(colors(), (QVector<QColor>{Qt::yellow, kStateColors[0]}));
    }

    void imagesSwappedOnDisk()
    {
        QVector<QString> images = files(QStringLiteral("svg"), QSize(10, 10), QStringLiteral("swap"));
        makeOld(images[0]);
        CBPImageButton button(images, false, kId);
        button.SetBorder(0, false);
        QCOMPARE(shot(button).pixelColor(3, 3), kStateColors[0]);
        write(images[0], drawing(QSize(10, 10), QColor(1, 2, 3)));
        QCOMPARE(shot(button).pixelColor(3, 3), QColor(1, 2, 3));
        QVERIFY(QFile::remove(images[0]));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("is missing")));
        QCOMPARE(shot(button).pixelColor(3, 3), QColor(Qt::white));
        button.SetImgButtonRes(m_png);
        QCOMPARE(shot(button).pixelColor(3, 3), kStateColors[0]);
    }

    // "x.SVG" is no drawing for the loader: what it holds is told by its content.
    void upperCaseNameIsAPixmap()
    {
        QVector<QString> images;
        for (int i = 0; i < 4; ++i) {
            images << m_folder.filePath(QStringLiteral("upper%1.SVG").arg(i));
            savePng(images.last(), QSize(12, 12), kStateColors[i]);
        }
        CBPImageButton button(images, false, kId);
        button.SetBorder(0, false);
        QCOMPARE(button.GetSize(), QSize(12, 12));
        QCOMPARE(shot(button).pixelColor(3, 3), kStateColors[0]);
    }

    void backgrounds_data()
    {
        QTest::addColumn<int>("colors");
        QTest::addColumn<int>("brushes");
        QTest::addColumn<int>("borders");
        QTest::addColumn<QColor>("middle");
        QTest::addColumn<QColor>("edge");
        const QColor white = Qt::white;
        const QColor brush(Qt::yellow);
        const QColor border(Qt::magenta);
        QTest::newRow("none") << 0 << 0 << 0 << white << white;
        QTest::newRow("frame alone") << 0 << 0 << 4 << white << white;
        QTest::newRow("colours") << 4 << 0 << 0 << kGrounds[0] << kGrounds[0];
        QTest::newRow("two colours") << 2 << 0 << 0 << white << white;
        QTest::newRow("brushes first") << 4 << 4 << 0 << brush << brush;
        QTest::newRow("three brushes") << 4 << 3 << 0 << kGrounds[0] << kGrounds[0];
        QTest::newRow("framed") << 4 << 0 << 4 << kGrounds[0] << border;
        QTest::newRow("one frame colour") << 4 << 0 << 1 << kGrounds[0] << QColor(Qt::black);
    }

    void backgrounds()
    {
        QFETCH(int, colors);
        QFETCH(int, brushes);
        QFETCH(int, borders);
        for (const int images : {4, 3}) {
            CBPImageButton button(m_png.mid(0, images), false, kId);
            button.setFixedSize(90, 30);
            button.SetBkgColors(kGrounds.mid(0, colors));
            button.SetBkgBrush(QVector<QBrush>(brushes, QBrush(Qt::yellow)));
            button.SetBorderColor(QVector<QColor>(borders, QColor(Qt::magenta)));
            button.SetSpecialIcon(true, Qt::gray);
            QTEST(pixel(button, 60, 15), "middle");
            QTEST(pixel(button, 0, 15), "edge");
            QTEST(pixel(button, 60, 0), "edge");
            QTEST(pixel(button, 0, 0), "edge"); // square corners
            QCOMPARE(pixel(button, 5, 7) == kStateColors[0], images == 4);
            QCOMPARE(pixel(button, 81, 8), QColor(Qt::gray));
        }
    }

    void coloursStayInForce()
    {
        CBPImageButton button(m_png, false, kId);
        button.setFixedSize(90, 30);
        button.SetBkgColors(kGrounds);
        button.SetBkgColors({Qt::yellow, Qt::yellow});
        send(button, QEvent::Enter);
        QCOMPARE(pixel(button, 60, 15), kGrounds[1]);
        QLinearGradient gradient(0, 0, 90, 0);
        gradient.setColorAt(0, Qt::black);
        gradient.setColorAt(1, Qt::white);
        button.SetBkgBrush(QVector<QBrush>(4, QBrush(gradient)));
        button.SetBkgBrush({});
        QVERIFY(pixel(button, 85, 25).red() > pixel(button, 45, 25).red() + 80);
    }

    void corners_data()
    {
        QTest::addColumn<bool>("round");
        QTest::addColumn<int>("radius");
        QTest::addColumn<int>("filledFrom"); // x of the first filled pixel of the top row
        QTest::newRow("square") << false << 0 << 0;
        QTest::newRow("radius") << false << 8 << 8;
        QTest::newRow("capsule") << true << 0 << 15;
        QTest::newRow("negative") << false << -4 << 0;
    }

    void corners()
    {
        QFETCH(bool, round);
        QFETCH(int, radius);
        QFETCH(int, filledFrom);
        for (const QBrush &brush : {QBrush(Qt::yellow), QBrush(Qt::yellow, Qt::Dense1Pattern)}) {
            CBPImageButton button(m_png, round, kId);
            button.setFixedSize(90, 30);
            button.SetBorderRadius(radius);
            button.SetBkgBrush(QVector<QBrush>(4, brush));
            QCOMPARE(pixel(button, 0, 0) == QColor(Qt::white), filledFrom > 0);
            QVERIFY(boxOf(shot(button), Qt::yellow).contains(QPoint(45, 1)));
            QVERIFY(filledFrom < 3 || pixel(button, filledFrom / 4, 0) == QColor(Qt::white));
        }
    }

    void dot()
    {
        CBPImageButton button(QVector<QString>(), false, kId);
        button.setFixedSize(60, 30);
        button.SetSpecialIcon(true, Qt::blue);
        const qreal ratio = button.devicePixelRatioF();
        const QRect box = boxOf(shot(button), Qt::blue);
        QVERIFY(onDevice(QRect(47, 4, 8, 8), ratio).adjusted(-1, -1, 1, 1).contains(box));
        QVERIFY(box.width() >= 6 * ratio && box.height() >= 6 * ratio);
        button.SetSpecialIcon(false, Qt::blue);
        QVERIFY(boxOf(shot(button), Qt::blue).isEmpty());
    }

    void hiddenLook()
    {
        CBPImageButton button(m_png, false, kId);
        button.SetBkgColors(kGrounds);
        button.SetSpecialIcon(true, Qt::blue);
        button.SetBtnShow(false);
        const QImage image = shot(button);
        QCOMPARE(boxOf(image, Qt::white).size(), image.size());
        QCOMPARE(pixel(button, 7, 7), QColor(Qt::white));
    }

    void texts_data()
    {
        QTest::addColumn<bool>("round");
        QTest::addColumn<bool>("beside");
        QTest::addColumn<int>("images");
        QTest::addColumn<int>("colors");
        QTest::addColumn<QPoint>("start"); // invalid: no text
        // Spacing 7, margin 3, border 5, image 20 x 16, button 30 high.
        QTest::newRow("beside") << false << true << 4 << 4 << QPoint(35, 0);
        QTest::newRow("round") << true << true << 4 << 4 << QPoint(50, 0);
        QTest::newRow("below") << false << false << 4 << 4 << QPoint(0, 23);
        QTest::newRow("three images") << false << true << 3 << 4 << QPoint(-1, -1);
        QTest::newRow("three colours") << false << true << 4 << 3 << QPoint(-1, -1);
    }

    void texts()
    {
        QFETCH(bool, round);
        QFETCH(bool, beside);
        QFETCH(int, images);
        QFETCH(int, colors);
        QFETCH(QPoint, start);
        CBPImageButton button(m_png.mid(0, images), round, kId);
        button.SetText(QStringLiteral("||||"), lumqt::uiFont(), QVector<QColor>(colors, Qt::magenta), beside,
                       7, 3);
        button.setFixedSize(120, beside ? 30 : 60);
        const qreal ratio = button.devicePixelRatioF();
        const QRect ink = inkOf(shot(button));
        QCOMPARE(ink.isEmpty(), start.x() < 0);
        if (start.x() < 0)
            return;
        QVERIFY2(ink.left() >= start.x() * ratio && ink.left() <= (start.x() + 5) * ratio,
                 qPrintable(QString::number(ink.left())));
        QVERIFY(ink.top() >= start.y() * ratio);
        const int middle = (start.y() + button.height()) / 2;
        QVERIFY(qAbs(ink.center().y() - middle * ratio) <= 3 * ratio);
    }

    void tipShowsAndGoes_data()
    {
        QTest::addColumn<QString>("event");
        QTest::newRow("leave") << "leave";
        QTest::newRow("press") << "press";
        QTest::newRow("space") << "spacedown";
        QTest::newRow("disabled") << "disable";
        QTest::newRow("hidden") << "hide";
        QTest::newRow("parent hidden") << "parenthide";
        QTest::newRow("no text any more") << "notip";
        QTest::newRow("selected and left") << "select leave";
    }

    void tipShowsAndGoes()
    {
        QFETCH(QString, event);
        QWidget window;
        CBPImageButton button(m_png, false, kId, &window);
        show(window);
        send(button, QEvent::Enter);
        QVERIFY(!tips()); // there is no text
        send(button, QEvent::Leave);
        button.SetTipsTxt(QStringLiteral("50% of %1"));
        QCursor::setPos(120, 90);
        send(button, QEvent::Enter);
        QVERIFY(tips() && tips()->isVisible());
        QCOMPARE(tips()->pos(), QPoint(125, 95));
        QVERIFY(!tips()->parent());
        const QLabel *label = tips()->findChild<QLabel *>();
        QCOMPARE(label->text(), QStringLiteral("<font style=\"font-family:%1; font-size: 14px; "
                                               "color:#ffffff;\">50% of %2</font>")
                                    .arg(GetFontFamily(1), QStringLiteral("%1")));
        button.SetTipsTxt(QStringLiteral("new"));
        QVERIFY(label->text().contains(QLatin1String(">new<")));
        for (const QString &step : event.split(QLatin1Char(' ')))
            perform(button, step);
        QVERIFY(!tips()->isVisible());
    }

    void tipNotWhileSelected()
    {
        CBPImageButton button(m_png, false, kId);
        button.SetTipsTxt(QStringLiteral("Tip"));
        button.SetSelect(true);
        send(button, QEvent::Enter);
        QVERIFY(!tips());
    }

    // The ring is for people at the keyboard; a click brings the focus without it.
    void focusRing_data()
    {
        QTest::addColumn<int>("reason");
        QTest::addColumn<bool>("ring");
        QTest::newRow("tab") << int(Qt::TabFocusReason) << true;
        QTest::newRow("backtab") << int(Qt::BacktabFocusReason) << true;
        QTest::newRow("shortcut") << int(Qt::ShortcutFocusReason) << true;
        QTest::newRow("mouse") << int(Qt::MouseFocusReason) << false;
        QTest::newRow("program") << int(Qt::OtherFocusReason) << false;
    }

    void focusRing()
    {
        QFETCH(int, reason);
        QFETCH(bool, ring);
        QWidget window;
        CBPImageButton button(m_png, false, kId, &window);
        button.setFixedSize(40, 40);
        QPushButton other(&window);
        show(window);
        other.setFocus();
        QTRY_VERIFY(other.hasFocus());
        QCOMPARE(pixel(button, 0, 20), QColor(Qt::white));
        button.setFocus(Qt::FocusReason(reason));
        QVERIFY(button.hasFocus());
        QCOMPARE(pixel(button, 0, 20) == kRing, ring);
        QTest::keyClick(&button, Qt::Key_Space);
        QCOMPARE(pixel(button, 39, 20), kRing);
        other.setFocus(Qt::TabFocusReason);
        QCOMPARE(pixel(button, 0, 20), QColor(Qt::white));
    }

    void isNoAutoDefault()
    {
        QDialog dialog;
        CBPImageButton button(m_png, false, kId, &dialog);
        QPushButton accept(&dialog);
        show(dialog);
        QSignalSpy ours(&button, &CBPImageButton::btn_released);
        QSignalSpy theirs(&accept, &QPushButton::clicked);
        button.setFocus();
        QTest::keyClick(&button, Qt::Key_Return);
        QCOMPARE(ours.count(), 0);
        QCOMPARE(theirs.count(), 1);
    }

    void names_data()
    {
        QTest::addColumn<QString>("accessible");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("toolTip");
        QTest::addColumn<QString>("tip");
        QTest::addColumn<QString>("name");
        QTest::newRow("own") << "a"
                             << "b"
                             << "c"
                             << "d"
                             << "a";
        QTest::newRow("text") << ""
                              << "b"
                              << "c"
                              << "d"
                              << "b";
        QTest::newRow("tool tip") << ""
                                  << ""
                                  << "c"
                                  << "d"
                                  << "c";
        QTest::newRow("tip") << ""
                             << ""
                             << ""
                             << "d"
                             << "d";
        QTest::newRow("nothing") << ""
                                 << ""
                                 << ""
                                 << ""
                                 << "";
    }

    void names()
    {
        QFETCH(QString, accessible);
        QFETCH(QString, text);
        QFETCH(QString, toolTip);
        QFETCH(QString, tip);
        CBPImageButton button(m_png, false, kId);
        button.setAccessibleName(accessible);
        button.SetText(text, true, 0);
        button.setToolTip(toolTip);
        button.SetTipsTxt(tip);
        QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(&button);
        QVERIFY(spoken);
        QTEST(spoken->text(QAccessible::Name), "name");
        QCOMPARE(spoken->role(), QAccessible::PushButton);
        QVERIFY(spoken->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
        QSignalSpy pressed(&button, &CBPImageButton::btn_released);
        spoken->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(pressed.count(), 1);
        button.setEnabled(false);
        spoken->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(pressed.count(), 1);
    }

private:
    // Image files for the four states, and their dense twins, each in its state's colour.
    QVector<QString> files(const QString &ending, const QSize &size,
                           const QString &name = QStringLiteral("image"))
    {
        QVector<QString> result;
        for (int i = 0; i < 4; ++i) {
            const QString base = m_folder.filePath(name + QString::number(i));
            const QString file = base + QLatin1Char('.') + ending;
            if (ending == QLatin1String("svg")) {
                write(file, drawing(size, kStateColors[i]));
            } else {
                savePng(file, size, kStateColors[i]);
                savePng(base + QLatin1String("@2x.") + ending, size * 2, kStateColors[i]);
            }
            result << file;
        }
        return result;
    }

    static QString dense(const QString &file) { return QString(file).insert(file.size() - 4, "@2x"); }

    // Files that changed just now are read again at each look; one at rest for a while is not.
    static void makeOld(const QString &path)
    {
        const QDateTime past = QDateTime::currentDateTime().addSecs(-3600);
        for (const QString &name : {path, dense(path)}) {
            QFile file(name);
            if (file.exists() && file.open(QIODevice::ReadWrite))
                QVERIFY(file.setFileTime(past, QFileDevice::FileModificationTime));
        }
    }

    // Of texts in magenta.
    static QRect inkOf(const QImage &image)
    {
        QRect ink;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor color = image.pixelColor(x, y);
                if (color.red() > 200 && color.blue() > 200 && color.green() < 200)
                    ink |= QRect(x, y, 1, 1);
            }
        }
        return ink;
    }

    static void perform(CBPImageButton &button, const QString &event)
    {
        const QPoint middle = button.rect().center();
        const QMap<QString, std::function<void()>> acts{
            {"enter", [&] { send(button, QEvent::Enter); }},
            {"leave", [&] { send(button, QEvent::Leave); }},
            {"press", [&] { QTest::mousePress(&button, Qt::LeftButton, {}, middle); }},
            {"release", [&] { QTest::mouseRelease(&button, Qt::LeftButton, {}, middle); }},
            {"double", [&] { QTest::mouseEvent(QTest::MouseDClick, &button, Qt::LeftButton, {}, middle); }},
            {"out", [&] { QTest::mouseRelease(&button, Qt::LeftButton, {}, QPoint(500, 500)); }},
            {"right", [&] { QTest::mousePress(&button, Qt::RightButton, {}, middle); }},
            {"rightup", [&] { QTest::mouseRelease(&button, Qt::RightButton, {}, middle); }},
            {"select", [&] { button.SetSelect(true); }},
            {"deselect", [&] { button.SetSelect(false); }},
            {"disable", [&] { button.setEnabled(false); }},
            {"enable", [&] { button.setEnabled(true); }},
            {"shot", [&] { shot(button); }},
            {"space", [&] { QTest::keyClick(&button, Qt::Key_Space); }},
            {"spacedown", [&] { QTest::keyPress(&button, Qt::Key_Space); }},
            {"spaceup", [&] { QTest::keyRelease(&button, Qt::Key_Space); }},
            {"return", [&] { QTest::keyClick(&button, Qt::Key_Return); }},
            {"default", [&] { button.setDefault(true); }},
            {"call", [&] { button.click(); }},
            {"hide", [&] { button.hide(); }},
            {"parenthide", [&] { button.window()->hide(); }},
            {"notip", [&] { button.SetTipsTxt(QString()); }},
            {"images",
             [&] {
                 QVector<QString> others(4);
                 button.SetImgButtonRes(others);
             }},
            {"text", [&] { button.SetText(QStringLiteral("x"), QFont()); }},
            {"border", [&] { button.SetBorder(1, false); }},
            {"tab",
             [&] {
                 QFocusEvent gained(QEvent::FocusIn, Qt::TabFocusReason);
                 QCoreApplication::sendEvent(&button, &gained);
             }},
            {"focusout",
             [&] {
                 QFocusEvent away(QEvent::FocusOut, Qt::TabFocusReason);
                 QCoreApplication::sendEvent(&button, &away);
             }},
        };
        QVERIFY2(acts.contains(event), qPrintable(event));
        acts[event]();
    }

    QTemporaryDir m_folder;
    QVector<QString> m_png;
    QVector<QString> m_svg;
};

LUMQT_TEST_MAIN(TestImageButton)
#include "tst_imagebutton.moc"
