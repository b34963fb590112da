#include "Acts.h"
#include "CBPCheckBox.h"
#include "CBPLinkerButton.h"
#include "Pixels.h"
#include "TestMain.h"

#include <QAccessible>
#include <QPointer>
#include <QSignalSpy>
#include <QVBoxLayout>

namespace {

const QColor kNormal(0, 140, 255);
const QColor kPressed(83, 178, 255);
const QColor kDisabled(189, 189, 189);
const QColor kOwn[] = {Qt::red, Qt::green, Qt::blue, Qt::magenta};
const QVector<QColor> kOwnColors{kOwn[0], kOwn[1], kOwn[2], kOwn[3]};
const QString kText = QStringLiteral("WWWWWWWW");

// The colour that the text of the link is painted in: of a run of pixels that is a stroke or an underline.
bool paintedIn(QWidget &link, const QColor &color)
{
    return !boxOf(pictureOf(link, 1), color).isEmpty();
}

// A line below the text, as long as the text (and not the ring of the focus, at the very bottom).
bool underlinedAt(QWidget &link, int ratio)
{
    pictureOf(link, ratio); // the text is painted another way from the second time on
    const QImage image = pictureOf(link, ratio);
    for (int y = image.height() / 2; y < image.height() - ratio; ++y) {
        int run = 0;
        for (int x = 2; x < image.width() - 2; ++x)
            run += image.pixelColor(x, y) != QColor(Qt::white);
        if (run > image.width() * 9 / 10)
            return true;
    }
    return false;
}

bool underlined(QWidget &link)
{
    const bool plain = underlinedAt(link, 1);
    if (underlinedAt(link, 2) != plain)
        QTest::qFail("underlined at one density only", __FILE__, __LINE__);
    return plain;
}

QAccessibleInterface *accessible(QWidget *widget)
{
    return QAccessible::queryAccessibleInterface(widget);
}

} // namespace

class TestLinker : public QObject
{
    Q_OBJECT

private slots:
    void defaults()
    {
        CBPLinkerButton link("R&D <b>x</b>", ENLinkerTypeHover, -7);
        QCOMPARE(link.text(), QString("R&D <b>x</b>"));
        QVERIFY(link.bindData() == -7 && !link.IsSelected());
        QCOMPARE(link.cursor().shape(), Qt::PointingHandCursor);
        QCOMPARE(link.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
        QVERIFY(link.styleSheet().startsWith("QLabel{font-family:\""));
        QVERIFY(link.styleSheet().endsWith("\"; font-size:14px;}"));
        link.resize(link.sizeHint());
        QVERIFY(paintedIn(link, kNormal));
    }

    void fontSize()
    {
        CBPLinkerButton link(kText);
        const int small = link.sizeHint().width();
        link.SetFontPixel(28);
        QCOMPARE(link.styleSheet(), QString("QLabel{font-size:28px;}"));
        QVERIFY(link.sizeHint().width() > small * 3 / 2);
        link.resize(link.sizeHint());
        pictureOf(link);
        QCOMPARE(link.toolTip(), QString()); // its own size is always enough
        for (const int bad : {0, -3}) {
            QTest::ignoreMessage(QtWarningMsg,
                                 qPrintable(QString("CBPLinkerButton: %1 is no font size").arg(bad)));
            link.SetFontPixel(bad);
        }
        QCOMPARE(link.styleSheet(), QString("QLabel{font-size:28px;}"));
    }

    void looks()
    {
        const auto check = [](int type, const char *events, int color, bool line) {
            CBPLinkerButton link(kText, ENLinkerType(type));
            link.SetTextColor(kOwnColors);
            link.resize(link.sizeHint());
            perform(&link, events);
            for (int i = 0; i < 4; ++i)
                QVERIFY2(paintedIn(link, kOwn[i]) == (i == color), events);
            QVERIFY2(underlined(link) == line, events);
            link.SetSelected(true);
            QVERIFY(link.IsSelected());
            QVERIFY2(paintedIn(link, kOwn[2]), events);
            link.setEnabled(false);
            QVERIFY2(paintedIn(link, kOwn[3]) && !paintedIn(link, kOwn[2]), events);
            QVERIFY2(!underlined(link), events);
        };
        check(ENLinkerTypeAlways, "", 0, true);
        check(ENLinkerTypeAlways, "enter", 1, true);
        check(ENLinkerTypeAlways, "enter leave", 0, true);
        check(ENLinkerTypeHover, "", 0, false);
        check(ENLinkerTypeHover, "enter", 1, true);
        check(ENLinkerTypeHover, "enter leave", 0, false);
        check(ENLinkerTypeHover, "focusin", 1, false);
        check(ENLinkerTypeHover, "focusin focusout", 0, false);
        check(ENLinkerTypeHover, "enter press", 2, true);
        check(ENLinkerTypeHover, "enter press release", 0, true); // at rest until the next enter
        check(ENLinkerTypeHover, "enter disable enter focusin leave enable", 0, false);
        check(ENLinkerTypeNever, "enter", 1, false);
        check(ENLinkerTypeNever, "enter press", 2, false);
        check(ENLinkerTypeNever, "right", 0, false);
        check(ENLinkerTypeNever, "disable press enable", 0, false);
        check(9, "enter press", 2, false);
        CBPLinkerButton link(kText, ENLinkerTypeAlways);
        link.resize(link.sizeHint());
        for (const ENLinkerType type : {ENLinkerTypeHover, ENLinkerTypeAlways, ENLinkerTypeNever}) {
            link.SetLinkerType(type);
            QCOMPARE(underlined(link), type == ENLinkerTypeAlways);
        }
    }

    void colours()
    {
        CBPLinkerButton link(kText, ENLinkerTypeAlways);
        link.resize(link.sizeHint());
        link.SetSelected(true);
        QVERIFY(paintedIn(link, kPressed));
        link.SetTextColor(QVector<QColor>{Qt::red}); // what is missing is built in
        QVERIFY(paintedIn(link, kPressed));
        link.setEnabled(false);
        QVERIFY(paintedIn(link, kDisabled));
        QColor one(Qt::darkGreen);
        link.SetTextColor(one);
        QVERIFY(paintedIn(link, one));
        link.setEnabled(true);
        QVERIFY(paintedIn(link, one));
        link.SetSelected(false);
        QVERIFY(paintedIn(link, one));
    }

    // Keys look like the mouse, and the look of the focus stays; a click leaves the focus alone.
    void keyboard()
    {
        QWidget window;
        auto *layout = new QVBoxLayout(&window);
        auto *other = new QCheckBox;
        auto *link = new CBPLinkerButton(kText, ENLinkerTypeNever, 5);
        link->SetTextColor(kOwnColors);
        layout->addWidget(other);
        layout->addWidget(link);
        showActive(window);
        QSignalSpy spy(link, &CBPLinkerButton::sigLinkerClick);
        other->setFocus();
        QTest::keyClick(other, Qt::Key_Tab);
        QVERIFY(link->hasFocus() && paintedIn(*link, kOwn[1]));
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
            spy.clear();
            QTest::keyPress(link, key);
            QCOMPARE(spy.count(), key == Qt::Key_Space ? 0 : 1);
            QCOMPARE(paintedIn(*link, kOwn[2]), key == Qt::Key_Space);
            QTest::keyRelease(link, key);
            QVERIFY(spy.count() == 1 && spy.at(0).at(0) == 5 && paintedIn(*link, kOwn[1]));
        }
        spy.clear();
        QTest::keyClick(link, Qt::Key_A);
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(link, &repeated);
        QCOMPARE(spy.count(), 0);
        other->setFocus();
        QTest::mouseClick(link, Qt::LeftButton);
        QVERIFY(spy.count() == 1 && other->hasFocus());
    }

    void tipOfAnElidedText()
    {
        CBPLinkerButton link("A text that does not always fit");
        const QSize whole = link.sizeHint();
        const auto tip = [&link](const QSize &size) {
            const QString before = link.toolTip();
            link.resize(size);
            if (link.toolTip() != before) // at the next paint
                return QStringLiteral("too early");
            pictureOf(link);
            return link.toolTip();
        };
        QCOMPARE(tip(whole), QString());
        QCOMPARE(tip(QSize(whole.width() / 2, 20)), link.text());
        link.setText("Another text that does not fit");
        QCOMPARE(tip(link.size()), link.text());
        QCOMPARE(tip(QSize(1, 20)), link.text());
        QCOMPARE(tip(whole * 2), QString());
        link.SetFontPixel(60); // the same width, another font
        QCOMPARE(tip(link.size()), link.text());
        link.SetFontPixel(14);
        link.setText("One line\nand a second one that is longer"); // lines are not cut
        QCOMPARE(tip(link.sizeHint()), QString());
    }

    void screenReader()
    {
        CBPLinkerButton link("Learn more", ENLinkerTypeHover, 3);
        QAccessibleInterface *reader = accessible(&link);
        QVERIFY(reader->role() == QAccessible::Link && reader->state().focusable);
        QCOMPARE(reader->text(QAccessible::Name), QString("Learn more"));
        link.setAccessibleName("About links");
        QCOMPARE(reader->text(QAccessible::Name), QString("About links"));
        const QString press = QAccessibleActionInterface::pressAction();
        QVERIFY(reader->actionInterface()->actionNames().contains(press));
        QSignalSpy spy(&link, &CBPLinkerButton::sigLinkerClick);
        for (const bool enabled : {true, false}) {
            link.setEnabled(enabled);
            reader->actionInterface()->doAction(press);
            QCOMPARE(spy, QList<QVariantList>{QVariantList{3}});
        }
        QLabel label("A label");
        QCOMPARE(accessible(&label)->role(), QAccessible::StaticText);
    }

    // Along the left edge, in the middle of the height.
    void placedText()
    {
        CBPLinkerButton link(kText, ENLinkerTypeNever);
        link.SetTextColor(QVector<QColor>(4, Qt::black));
        link.resize(link.sizeHint() + QSize(100, 60));
        pictureOf(link); // it is painted another way from the second time on
        const QRect ink = inkOf(pictureOf(link));
        QVERIFY2(ink.left() <= 2 && qAbs(ink.center().y() - link.rect().center().y()) <= 4, wordsOf(ink));
    }

    // A label that shows a picture is as large as that, and shows it.
    void pictures()
    {
        CBPLinkerButton link{QString()};
        QPixmap picture(30, 40);
        picture.fill(Qt::red);
        picture.setDevicePixelRatio(2);
        link.setPixmap(picture);
        QCOMPARE(link.sizeHint(), QSize(15, 20));
        link.resize(link.sizeHint());
        QCOMPARE(boxOf(pictureOf(link, 1), Qt::red), link.rect());
        link.setText(kText);
        link.setMinimumSize(400, 300); // holds the room for the ring
        QCOMPARE(link.sizeHint(), QSize(400, 300));
    }

    // Addressed by its class, and for the rest any check box.
    void checkBox()
    {
        CBPCheckBox plain;
        CBPCheckBox box(QString("Remember &me"));
        QCOMPARE(plain.text(), QString());
        QCOMPARE(accessible(&box)->role(), QAccessible::CheckBox);
        QCOMPARE(accessible(&box)->text(QAccessible::Name), QString("Remember me"));
        box.setStyleSheet("CBPCheckBox::indicator { width: 20px; height: 20px; background: #0000ff; }");
        box.resize(box.sizeHint());
        QVERIFY(paintedIn(box, Qt::blue));
        QTest::keyClick(&box, Qt::Key_Space);
        QVERIFY(box.isChecked());
    }
};

LUMQT_TEST_MAIN(TestLinker)
#include "tst_linker.moc"
