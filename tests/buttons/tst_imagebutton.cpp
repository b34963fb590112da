#include "Acts.h"
#include "CBPImageButton.h"
#include "CBPImageTextBtn.h"
#include "CTextTips.h"
#include "foundation/FontLookup.h"
#include "foundation/ImageLoader.h"
#include "Pictures.h"
#include "Pixels.h"
#include "Spoken.h"
#include "TestMain.h"

#include <QLabel>
#include <QThread>

namespace {

constexpr int kId = 31;
const QVector<QColor> kStateColors{QColor(255, 255, 0), QColor(0, 255, 0), QColor(0, 0, 255),
                                   QColor(0, 255, 255)}; // no ink, unlike texts
const QVector<QColor> kBlack(4, Qt::black);

QColor pixel(QWidget &widget, int x, int y)
{
    return pixelOf(pictureOf(widget), x, y);
}

CTextTips *tips()
{
    CTextTips *found = nullptr;
    for (QWidget *each : QApplication::topLevelWidgets())
        found = found ? found : qobject_cast<CTextTips *>(each);
    return found;
}

Deeds ownDeeds(CBPImageButton *button)
{
    return {
        {"select", [=] { button->SetSelect(true); }},
        {"deselect", [=] { button->SetSelect(false); }},
        {"untold", [] { QVERIFY(!tips()); }},
        {"notip", [=] { button->SetTipsTxt(QString()); }},
        {"unseen", // disabled meanwhile
         [=] { perform(button, "disable enable"); }},
    };
}

} // namespace

class TestImageButton : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_png = files("image%1.png", QSize(20, 16)); }

    void sizes()
    {
        const QFontMetrics metrics(lumqt::uiFont());
        const QString text = QStringLiteral("A text wider than the image");
        // `fixed` is what comes on top of the text's width and, without a text height, of the font's.
        const auto check = [&](bool round, bool beside, int textHeight, QSize fixed) {
            fixed.rwidth() += metrics.horizontalAdvance(text);
            if (textHeight == 0)
                fixed.setHeight(beside ? qMax(16, metrics.height()) : fixed.height() + metrics.height());
            for (const int images : {4, 3, 0}) {
                CBPImageButton button(m_png.mid(0, images), round, kId);
                QCOMPARE(button.GetSize(), images == 4 ? QSize(20, 16) : QSize());
                button.SetHight(textHeight);
                button.SetText(text, lumqt::uiFont(), kBlack, beside, 7, 3);
                QCOMPARE(button.GetSize(), images == 4 ? fixed : QSize());
                QCOMPARE(button.minimumSize() == fixed && button.maximumSize() == fixed, images == 4);
            }
        };
        // The image is 20 x 16, spacing 7, left margin 3, border 5: 20 + 2 + 7 + 3 + 10.
        check(false, true, 40, QSize(42, 40));
        check(false, true, 4, QSize(42, 16));
        check(false, true, 0, QSize(42, 0));
        check(false, false, 40, QSize(2, 63));
        check(false, false, 0, QSize(2, 23));
        check(true, true, 40, QSize(82, 40));
        check(true, true, 0, QSize(58 + metrics.height(), 0)); // both heights count
        check(true, false, 0, QSize(18, 23));
    }

    void whoResizes()
    {
        CBPImageButton button(m_png, false, kId);
        button.SetBorder(50, true);
        QCOMPARE(button.GetSize(), QSize(20, 16)); // there is no text
        button.SetText("x", true, 0);
        const int width = button.GetSize().width();
        button.SetBorder(10, false);
        QCOMPARE(button.GetSize().width(), width);
        button.SetBorder(10, true);
        QVector<QString> large = files("large%1.png", QSize(64, 64));
        button.SetImgButtonRes(large);
        QCOMPARE(button.size().width(), width - 80);
        button.SetText(QString(), true, 90);
        QCOMPARE(button.size().width(), width - 80);
    }

    // What befalls the button, its look then, and what it reported; the report may be the last.
    void reactions()
    {
        for (const QString life :
             {"enter=1 press=2pressed release=2btn_released31 leave=0 enter=1 press=2pressed out=2 leave=0 "
              "right=2 rightup=2 press=2pressed release=2btn_released31 double=2pressed "
              "release=2btn_released31",
              "select=2selectionChanged1 leave=2 enter=2 untold=2 press=2 release=2 " // deaf
              "space=2 spaceup=2 call=2pressed,released,clicked0 disable=3 "
              "enable=0selectionChanged0 press=2pressed", // and not any more
              "press=2pressed select=2selectionChanged1 release=2 disable=3 "
              "enable=0selectionChanged0 enter=1 select=2selectionChanged1 deselect=0selectionChanged0",
              "select=2selectionChanged1 unseen=2 press=2",
              "checkable:1=0 press=2pressed release=2toggled1,btn_released31 space=2pressed "
              "spaceup=0toggled0,released,btn_released31,clicked0 disable=3",
              // What reports the click comes before other slots of clicked().
              "space=2pressed spaceup=0released,btn_released31,clicked0 space=2pressed focusout=0 spaceup=0 "
              "default:1=0 return=0pressed,released,btn_released31,clicked0 "
              "call=0pressed,released,btn_released31,clicked0"}) {
            for (const bool deadly : {false, true}) {
                QPointer<CBPImageButton> button = new CBPImageButton(m_png, false, kId);
                button->SetTipsTxt("Tip");
                SignalLog log(button, [&](const QString &signal) {
                    if (deadly && signal == "btn_released31")
                        delete button;
                });
                const auto look = [&] { return indexOf(pixel(*button, 10, 8), kStateColors) + log.taken(); };
                const QString lived = traced(button, life, look, ownDeeds(button));
                QCOMPARE(button.isNull(), deadly && life.contains("31"));
                if (button)
                    QCOMPARE(lived, life);
                delete button;
                QVERIFY(!tips()); // gone with the button
            }
        }
    }

    // Each image lies on whole device pixels, at whatever scaling this runs: not a pixel is lost, doubled or
    // mixed with its neighbour.
    void places()
    {
        const QString pattern = m_folder.filePath(QStringLiteral("pattern.png"));
        for (const int scale : {1, 2}) {
            QImage image(20 * scale, 16 * scale, QImage::Format_RGB32);
            for (int i = 0; i < image.width() * image.height(); ++i)
                image.setPixelColor(i % image.width(), i / image.width(), QColor(i * 37 % 256, i % 256, 90));
            QVERIFY(image.save(scale == 1 ? pattern : denseTwin(pattern), "PNG"));
        }
        // "x.SVG" is no drawing for the loader: what it holds is told by its content.
        const auto check = [&](bool round, int border, int margin, int offset, const QPoint &place) {
            for (const QString &file :
                 {pattern, files("image%1.svg", QSize(20, 16))[0], files("upper%1.SVG", QSize(20, 16))[0]}) {
                CBPImageButton button(QVector<QString>(4, file), round, kId);
                button.SetBorder(border, false);
                button.SetText(QString(), lumqt::uiFont(), {}, true, 0, margin);
                button.SetIconVoffset(offset);
                button.setFixedSize(90, 30); // around an image of 20 x 16
                const qreal ratio = button.devicePixelRatioF();
                const QImage expected = lumqt::loadPixmap(file, ratio).toImage();
                const QRect target = QTransform::fromScale(ratio, ratio).mapRect(QRect(place, QSize(20, 16)));
                QCOMPARE(expected.size(), target.size());
                QCOMPARE(pictureOf(button).copy(target).convertToFormat(QImage::Format_RGB32),
                         expected.convertToFormat(QImage::Format_RGB32));
            }
        };
        check(false, 0, 0, 0, QPoint(0, 7));
        check(false, 6, 8, 0, QPoint(14, 7));
        check(true, 5, 8, 0, QPoint(20, 7));
        check(false, 4, 0, 4, QPoint(4, 11));
        check(false, 4, 0, -7, QPoint(4, 0));
    }

    // Buttons that share files share the looks at them, which are not many, and miss nothing.
    void filesChangeOnDisk()
    {
        QVector<QString> images = files("shared%1.png", QSize(10, 10));
        CBPImageButton first(images, false, 1);
        CBPImageButton second(images, false, 2);
        const auto shown = [&](const QColor &one, const QColor &two) {
            return pixel(first, 7, 5) == one && pixel(second, 7, 5) == two;
        };
        makeOld(images[0]);
        QVERIFY(shown(Qt::yellow, Qt::yellow) && shown(Qt::yellow, Qt::yellow));
        savePicture(images[0], QSize(10, 10), Qt::red);
        AWAIT(shown(Qt::red, Qt::red));
        makeOld(images[0]);
        AWAIT(shown(Qt::red, Qt::red));
        second.SetImgButtonRes(m_png);
        QVERIFY(shown(Qt::red, Qt::yellow));
        for (const QString &file : {images[0], denseTwin(images[0])})
            QFile::remove(file);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("is missing"));
        AWAIT(shown(Qt::white, Qt::yellow));
    }

    // A button is painted just before a file changes, and just after, and then no more.
    void changeAfterLastPaint()
    {
        const QVector<QString> images = files("late%1.png", QSize(40, 40));
        makeOld(images[0]);
        CBPImageButton button(images, false, 1);
        button.show();
        const auto onScreen = [&button] {
            return pixelOf(button.screen()->grabWindow(button.winId()).toImage(), 20, 20);
        };
        AWAIT(onScreen() == QColor(Qt::yellow));
        button.repaint();
        savePicture(images[0], QSize(40, 40), Qt::red);
        button.repaint();
        AWAIT(onScreen() == QColor(Qt::red));
    }

    // The same where something goes on for long: a look that an earlier paint has asked for is still to come.
    void changeInLongWork()
    {
        const QVector<QString> images = files("later%1.png", QSize(40, 40));
        makeOld(images[0]);
        CBPImageButton button(images, false, 1);
        button.setAttribute(Qt::WA_DontShowOnScreen); // nothing else has it painted
        button.show();
        QTest::qWait(100); // until nobody waits for a look at other files
        for (const bool last : {false, false, true}) {
            button.grab();
            if (last)
                savePicture(images[0], QSize(40, 40), Qt::red);
            button.grab();
            QThread::msleep(last ? 0 : 60);
        }
        QCoreApplication::sendPostedEvents(); // without the timers
        EventCounter asked(&button, {QEvent::UpdateRequest, QEvent::UpdateLater});
        AWAIT(asked.count > 0);
        QCOMPARE(pixel(button, 20, 20), QColor(Qt::red));
    }

    // Lists of another length change nothing.
    void backgrounds()
    {
        CBPImageButton button(m_png, false, kId);
        button.setFixedSize(90, 30);
        button.SetBkgColors(kBlack);
        button.SetBkgColors({Qt::red, Qt::red});
        QCOMPARE(pixel(button, 60, 15), QColor(Qt::black));
        button.SetBkgBrush(QVector<QBrush>(4, Qt::yellow));
        button.SetBkgBrush({Qt::red, Qt::red});
        QCOMPARE(pixel(button, 60, 15), QColor(Qt::yellow));
    }

    void hiddenLook()
    {
        CBPImageButton button(m_png, false, kId);
        button.setFixedSize(90, 30);
        button.SetBkgColors(kBlack);
        button.SetSpecialIcon(true, Qt::blue);
        button.show();
        QVERIFY(QTest::qWaitForWindowExposed(&button, kPatience));
        QCoreApplication::processEvents();
        EventCounter asked(&button, {QEvent::UpdateRequest, QEvent::UpdateLater, QEvent::Paint});
        button.SetBtnShow(false);
        QCoreApplication::processEvents();
        QCOMPARE(asked.count, 0); // shows with the next paint
        QVERIFY(inkOf(pictureOf(button), 255).isEmpty());
    }

    // Measured as large as painted, wherever the size comes from.
    void fonts()
    {
        for (const char *sheet : {"", "QWidget { font-size: 30px; }", "QWidget { font-weight: bold; }"}) {
            QWidget window;
            window.resize(600, 200);
            CBPImageTextBtn labelled(m_png, "MMMMMMMMMM", kId, &window);
            CBPImageButton button(m_png, false, kId, &window);
            button.SetText("MMMMMMMMMM", QFont(GetFontFamily(1)), kBlack, true, 0, 0);
            const int before = button.width();
            window.setStyleSheet(QLatin1String(sheet));
            window.show();
            QVERIFY(button.width() > before || !QByteArray(sheet).contains("30px"));
            const int free =
                button.width() - inkOf(pictureOf(button), 200).right() / button.devicePixelRatioF();
            QVERIFY2(free >= 5 && free <= 20, QByteArray::number(free));
            QVERIFY(inkOf(pictureOf(labelled)).right() < labelled.width() * labelled.devicePixelRatioF() - 4);
        }
    }

    void tipShowsAndGoes()
    {
        for (const char *events :
             {"leave", "press", "space", "disable", "hide", "parenthide", "notip", "select leave", "away"}) {
            QWidget window;
            CBPImageButton button(m_png, false, kId, &window);
            showActive(window);
            sendEvent(button, QEvent::Enter);
            QVERIFY(!tips()); // there is no text
            sendEvent(button, QEvent::Leave);
            button.SetTipsTxt("50% of %1");
            QCursor::setPos(120, 90);
            sendEvent(button, QEvent::Enter);
            QVERIFY2(tips() && tips()->isVisible(), events);
            QCOMPARE(tips()->pos(), QPoint(125, 95));
            QVERIFY(!tips()->parent());
            const QLabel *label = tips()->findChild<QLabel *>();
            QCOMPARE(label->text(), QStringLiteral("<font style=\"font-family:%1; font-size: 14px; "
                                                   "color:#ffffff;\">50% of %2</font>")
                                        .arg(GetFontFamily(1), "%1"));
            button.SetTipsTxt("new");
            QVERIFY(label->text().contains(QLatin1String(">new<")));
            QWidget elsewhere;
            Deeds deeds = ownDeeds(&button);
            deeds.insert("away", [&] { showActive(elsewhere); });
            perform(&button, events, deeds);
            QVERIFY2(!tips()->isVisible(), events);
        }
    }

private:
    QVector<QString> files(const char *name, const QSize &size)
    {
        return savePictures(m_folder, name, size, kStateColors);
    }

    QTemporaryDir m_folder;
    QVector<QString> m_png;
};

LUMQT_TEST_MAIN(TestImageButton)
#include "tst_imagebutton.moc"
