#include "CBPDrawLabel.h"
#include "CBPImage.h"
#include "CBPLabel.h"
#include "CBPLine.h"
#include "Pixels.h"
#include "TestMain.h"

#include "foundation/FontLookup.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace {

const QColor kBar(75, 174, 178);

QImage picture(QWidget &widget, int ratio = 1)
{
    QImage image(widget.size() * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

bool isBlank(const QImage &image)
{
    QImage white = image;
    white.fill(Qt::white);
    return image == white;
}

void key(QWidget &widget, QEvent::Type type, int code, bool repeated = false)
{
    QKeyEvent event(type, code, Qt::NoModifier, QString(), repeated);
    QCoreApplication::sendEvent(&widget, &event);
}

class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget *widget) { widget->installEventFilter(this); }
    int paints = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        paints += event->type() == QEvent::Paint;
        return false;
    }
};

void release(QWidget &widget, Qt::MouseButton button = Qt::LeftButton, const QPoint &at = QPoint(1, 1))
{
    QMouseEvent event(QEvent::MouseButtonRelease, at, button, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

} // namespace

class TestLabels : public QObject
{
    Q_OBJECT

private:
    QString file(const QString &name, int width, int height, const QColor &color = Qt::red)
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(color);
        const QString path = m_dir.filePath(name);
        return image.save(path) ? path : QString();
    }

    QTemporaryDir m_dir;

private Q_SLOTS:
    void labelFonts_data()
    {
        QTest::addColumn<int>("asked"); // INT_MIN: no size is given
        QTest::addColumn<int>("size");
        QTest::newRow("no size") << INT_MIN << 12;
        QTest::newRow("20") << 20 << 20;
        QTest::newRow("a null pointer for the parent, to the compiler a number") << 0 << 12;
        QTest::newRow("negative") << -4 << 12;
    }

    void labelFonts()
    {
        QFETCH(int, asked);
        QFETCH(int, size);
        QWidget parent;
        if (asked < 0 && asked != INT_MIN) {
            const QString warning = QString("CBPLabel: %1 is no font size").arg(asked);
            QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
            QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
        }
        const bool plain = asked == INT_MIN;
        const CBPLabel label = plain ? CBPLabel("Text", &parent) : CBPLabel("Text", asked, &parent);
        QCOMPARE(label.font().pixelSize(), size);
        QCOMPARE(label.font().family(), GetFontFamily(1));
        QCOMPARE(label.text(), QString("Text"));
        QCOMPARE(label.parentWidget(), &parent);
        const CBPLabel colored("Text", QColor(Qt::blue), plain ? 12 : asked, &parent);
        QCOMPARE(colored.font(), label.font());
        QCOMPARE(colored.palette().color(QPalette::WindowText), QColor(Qt::blue));
    }

    void labelOfItsParent()
    {
        QWidget parent;
        QFont font("Any family");
        font.setPixelSize(31);
        parent.setFont(font);
        CBPLabel label(&parent);
        QCOMPARE(label.font().pixelSize(), 31);
        QCOMPARE(label.text(), QString());
        label.SetTextColor(Qt::red);
        label.SetTextColor(QColor());
        QCOMPARE(label.palette().color(QPalette::WindowText), QColor(Qt::red));
    }

    void drawnText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("rounded");
        QTest::addColumn<QSize>("size");
        QTest::newRow("plain") << "NEW" << false << QSize(120, 31);
        QTest::newRow("pill") << "NEW" << true << QSize(121, 40);
        QTest::newRow("markup and & are text") << "<b>&</b>" << false << QSize(120, 30);
    }

    void drawnText()
    {
        QFETCH(QString, text);
        QFETCH(bool, rounded);
        QFETCH(QSize, size);
        CBPDrawLabel label(text, Qt::red, rounded);
        QVERIFY(!label.parentWidget());
        label.resize(size);
        for (const int ratio : {1, 2}) {
            const QImage image = picture(label, ratio);
            QImage inner = image.copy(image.rect().adjusted(20 * ratio, 2 * ratio, -20 * ratio, -2 * ratio));
            inner.setDevicePixelRatio(1);
            // In the middle, whatever the glyphs' own margins are.
            QRect ink;
            for (int y = 0; y < inner.height(); ++y) {
                for (int x = 0; x < inner.width(); ++x) {
                    if (inner.pixelColor(x, y) != QColor(Qt::white))
                        ink |= QRect(x, y, 1, 1);
                }
            }
            QVERIFY(ink.width() > 10 * ratio);
            QVERIFY(qAbs(ink.center().x() - inner.rect().center().x()) <= 2 * ratio);
            QVERIFY(qAbs(ink.center().y() - inner.rect().center().y()) <= 3 * ratio);
            // The outline lies on whole pixels and the corners are outside of it.
            const QColor edge = rounded ? QColor(Qt::red) : QColor(Qt::white);
            QCOMPARE(image.pixelColor(image.width() / 2, 0), edge);
            QCOMPARE(image.pixelColor(image.width() / 2, image.height() - 1), edge);
            for (const int x : {0, image.width() - 1}) { // the outermost point of an arc is nearly the colour
                const QColor end = image.pixelColor(x, image.height() / 2);
                QVERIFY(qAbs(end.green() - edge.green()) < 32 && end.red() == 255);
            }
            QCOMPARE(image.pixelColor(0, 0), QColor(Qt::white));
            QCOMPARE(image.pixelColor(image.height() / 4, 0), QColor(Qt::white)); // of half the height
            QCOMPARE(image.pixelColor(image.height() / 2, image.height() / 4), QColor(Qt::white)); // no fill
        }
    }

    void drawnTextChanges()
    {
        QString text("HHHH");
        CBPDrawLabel label(text, Qt::red, true);
        const QSize small = label.sizeHint();
        QFont font(GetFontFamily(1));
        font.setPixelSize(14);
        const QFontMetrics metrics(font);
        QCOMPARE(CBPDrawLabel(text, Qt::red, false).sizeHint(),
                 QSize(metrics.horizontalAdvance(text), metrics.height()));
        label.resize(300, 100);
        const QImage before = picture(label);
        QString family = GetFontFamily(1);
        label.SetTextFont(family, 60);
        QVERIFY(label.sizeHint().height() > small.height() * 2);
        const QImage large = picture(label);
        QVERIFY(large != before);
        for (const int bad : {0, -3}) {
            QTest::ignoreMessage(QtWarningMsg,
                                 qPrintable(QString("CBPDrawLabel: %1 is no font size").arg(bad)));
            label.SetTextFont(family, bad);
        }
        QCOMPARE(picture(label), large);
        label.SetTextShowColor(Qt::blue);
        QVERIFY(boxOf(picture(label), Qt::red).isEmpty());
        QCOMPARE(boxOf(picture(label), Qt::blue).height(), label.height());
        label.SetTextShowColor(QColor()); // as a pen has it
        QCOMPARE(boxOf(picture(label), Qt::black).height(), label.height());
        CBPDrawLabel black(text, QColor(), true);
        black.SetTextFont(family, 60);
        black.resize(label.size());
        QCOMPARE(picture(black), picture(label));
        label.resize(20, 20); // the text runs out at both sides, on one line
        QCOMPARE(picture(label).size(), QSize(20, 20));
    }

    void emptyTextPaintsNothing()
    {
        QString none;
        CBPDrawLabel label(none, Qt::red, true);
        label.resize(60, 20);
        QVERIFY(isBlank(picture(label)));
        QCOMPARE(label.sizeHint().width(), 0);
    }

    void drawnTextIsRead()
    {
        QString text("Read me");
        CBPDrawLabel label(text, Qt::red, false);
        QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(&label);
        QVERIFY(reader);
        QCOMPARE(reader->role(), QAccessible::StaticText);
        QCOMPARE(reader->text(QAccessible::Name), text);
    }

    void imageTakesTheSizeOfItsFile()
    {
        const QString red = file("red.png", 30, 20);
        CBPImage empty;
        QVERIFY(empty.pixmap(Qt::ReturnByValue).isNull());
        CBPImage named(red.toUtf8().constData());
        CBPImage image(red);
        QCOMPARE(image.size(), QSize(30, 20));
        QCOMPARE(named.size(), QSize(30, 20));
        QCOMPARE(image.minimumSize(), image.maximumSize());
        QCOMPARE(boxOf(picture(image), Qt::red), image.rect());
        image.SetImageRes(file("blue.png", 8, 9, Qt::blue));
        QCOMPARE(image.size(), QSize(8, 9));
        QCOMPARE(boxOf(picture(image), Qt::blue), image.rect());
    }

    void badImages_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("warning");
        QTest::newRow("missing") << "missing.png"
                                 << "The image %1 is missing";
        QTest::newRow("broken") << "broken.png"
                                << "The image %1 cannot be read: Unsupported image format";
        QTest::newRow("empty name") << QString() << QString();
    }

    void badImages()
    {
        QFETCH(QString, name);
        QFETCH(QString, warning);
        QFile broken(m_dir.filePath("broken.png"));
        QVERIFY(broken.open(QIODevice::WriteOnly) && broken.write("no image") > 0);
        broken.close();
        const QString path = name.isEmpty() ? QString() : m_dir.filePath(name);
        CBPImage image(file("before.png", 30, 20));
        if (!warning.isEmpty())
            QTest::ignoreMessage(QtWarningMsg, qPrintable(warning.arg(path)));
        image.SetImageRes(path);
        QCOMPARE(image.size(), QSize(0, 0));
        QVERIFY(image.pixmap(Qt::ReturnByValue).isNull());
        const char *nothing = nullptr;
        QCOMPARE(CBPImage(nothing).size(), QSize(0, 0));
    }

    void imageClicks_data()
    {
        QTest::addColumn<int>("flag"); // 0 never set, 1 on, 2 on and off
        QTest::addColumn<int>("clicks");
        QTest::newRow("never asked for") << 0 << 0;
        QTest::newRow("on") << 1 << 1;
        QTest::newRow("off again") << 2 << 0;
    }

    void imageClicks()
    {
        QFETCH(int, flag);
        QFETCH(int, clicks);
        CBPImage image(file("click.png", 30, 20));
        if (flag > 0)
            image.SetChgCursor(true);
        if (flag > 1)
            image.SetChgCursor(false);
        QCOMPARE(image.cursor().shape(), flag == 1 ? Qt::PointingHandCursor : Qt::ArrowCursor);
        QSignalSpy spy(&image, &CBPImage::sigImgClick);
        for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
            spy.clear();
            release(image, button, QPoint(500, 500)); // let go anywhere
            QCOMPARE(spy.count(), clicks);
        }
        spy.clear();
        key(image, QEvent::KeyPress, Qt::Key_Space);
        QCOMPARE(spy.count(), 0);
        key(image, QEvent::KeyRelease, Qt::Key_Space);
        QCOMPARE(spy.count(), clicks);
        for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
            spy.clear();
            key(image, QEvent::KeyPress, enter);
            key(image, QEvent::KeyPress, enter, true);
            key(image, QEvent::KeyRelease, enter);
            QCOMPARE(spy.count(), clicks);
        }
        spy.clear();
        key(image, QEvent::KeyRelease, Qt::Key_Space); // went down elsewhere
        key(image, QEvent::KeyPress, Qt::Key_Space);
        QFocusEvent out(QEvent::FocusOut);
        QCoreApplication::sendEvent(&image, &out);
        key(image, QEvent::KeyRelease, Qt::Key_Space);
        key(image, QEvent::KeyPress, Qt::Key_A);
        QCOMPARE(spy.count(), 0);
    }

    void imageInTheTabOrder()
    {
        QWidget window;
        auto *layout = new QHBoxLayout(&window);
        auto *still = new CBPImage(file("still.png", 30, 20));
        auto *image = new CBPImage(file("click.png", 30, 20));
        layout->addWidget(still);
        layout->addWidget(image);
        image->SetChgCursor(true);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        image->clearFocus(); // the window gave it
        const QImage before = picture(*image);
        QTest::keyClick(&window, Qt::Key_Tab);
        QVERIFY(image->hasFocus());
        QVERIFY(picture(*image) != before); // the ring
        QCoreApplication::processEvents();
        const PaintCounter counter(image);
        image->SetChgCursor(false);
        QTRY_VERIFY(counter.paints > 0); // the ring goes from the screen
        QCOMPARE(picture(*image), before);
        QVERIFY(!image->hasFocus());
    }

    void imageIsRead()
    {
        QWidget parent;
        auto *image = new CBPImage(file("read.png", 30, 20));
        image->setParent(&parent);
        image->setToolTip("Change the picture");
        QSignalSpy spy(image, &CBPImage::sigImgClick);
        QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(image);
        QVERIFY(reader);
        QCOMPARE(reader->role(), QAccessible::Graphic);
        QCOMPARE(reader->text(QAccessible::Name), QString("Change the picture"));
        const QString press = QAccessibleActionInterface::pressAction();
        QVERIFY(!reader->actionInterface()->actionNames().contains(press));
        reader->actionInterface()->doAction(press);
        QCOMPARE(spy.count(), 0);
        image->SetChgCursor(true);
        image->setAccessibleName("Picture");
        QCOMPARE(reader->role(), QAccessible::PushButton);
        QCOMPARE(reader->text(QAccessible::Name), QString("Picture"));
        QVERIFY(reader->actionInterface()->actionNames().contains(press));
        reader->actionInterface()->doAction(press);
        QCOMPARE(spy.count(), 1);
    }

    void imageDiesInItsSignal_data()
    {
        QTest::addColumn<int>("code"); // 0: the mouse
        QTest::newRow("mouse") << 0;
        QTest::newRow("Enter") << int(Qt::Key_Return);
        QTest::newRow("Space") << int(Qt::Key_Space);
    }

    void imageDiesInItsSignal()
    {
        QFETCH(int, code);
        QPointer<CBPImage> image = new CBPImage(file("gone.png", 30, 20));
        image->SetChgCursor(true);
        connect(image.data(), &CBPImage::sigImgClick, this, [&image] { delete image; });
        if (!code)
            release(*image);
        else
            key(*image, QEvent::KeyPress, code);
        if (image)
            key(*image, QEvent::KeyRelease, code);
        QVERIFY(!image);
    }

    void line_data()
    {
        QTest::addColumn<bool>("horizontal");
        QTest::addColumn<QSize>("size");
        QTest::newRow("row") << true << QSize(60, 20);
        QTest::newRow("column") << false << QSize(40, 50);
        QTest::newRow("less high than its bar") << true << QSize(40, 2);
    }

    void line()
    {
        QFETCH(bool, horizontal);
        QFETCH(QSize, size);
        CBPLine line(horizontal, nullptr);
        line.resize(size);
        QCOMPARE(qobject_cast<QHBoxLayout *>(line.layout()) != nullptr, horizontal);
        QCOMPARE(line.layout()->contentsMargins(), QMargins());
        QCOMPARE(line.findChildren<QLabel *>().size(), 1);
        const QImage image = picture(line);
        QCOMPARE(boxOf(image, kBar), QRect(0, 0, size.width(), qMin(3, size.height())));
        if (size.height() > 3)
            QVERIFY(isBlank(image.copy(0, 3, size.width(), size.height() - 3)));
    }
};

LUMQT_TEST_MAIN(TestLabels)
#include "tst_labels.moc"
