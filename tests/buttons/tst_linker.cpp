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
        QWidget parent;
        CBPLinkerButton link("R&D <b>x</b>", ENLinkerTypeHover, -7, &parent);
        QCOMPARE(link.parentWidget(), &parent);
        QCOMPARE(link.text(), QString("R&D <b>x</b>"));
        QCOMPARE(link.bindData(), -7);
        QVERIFY(!link.IsSelected());
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
        check(9, "enter press", 2, false);
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

    void changesOfTheType()
    {
        CBPLinkerButton link(kText, ENLinkerTypeAlways);
        link.resize(link.sizeHint());
        QVERIFY(underlined(link));
        link.SetLinkerType(ENLinkerTypeHover);
        QVERIFY(!underlined(link));
        link.SetLinkerType(ENLinkerTypeNever);
        QVERIFY(!underlined(link));
        link.SetLinkerType(ENLinkerTypeAlways);
        QVERIFY(underlined(link));
    }

    void mouseClicks()
    {
        const auto check = [](const char *press, const char *release, int count) {
            CBPLinkerButton link(kText, ENLinkerTypeNever, 42);
            link.SetTextColor(kOwnColors);
            link.resize(link.sizeHint());
            QSignalSpy spy(&link, &CBPLinkerButton::sigLinkerClick);
            perform(&link, press);
            QVERIFY2(paintedIn(link, kOwn[2]) == (count == 1), press);
            QCOMPARE(spy.count(), 0);
            perform(&link, release);
            QVERIFY2(spy.count() == count && (!count || spy.at(0).at(0) == 42), press);
        };
        check("press", "release", 1);
        check("right", "rightup", 0);
        check("disable press", "release", 0);
    }

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
        const QImage before = pictureOf(*link);
        QTest::keyClick(other, Qt::Key_Tab);
        QVERIFY(link->hasFocus());
        QVERIFY(paintedIn(*link, kOwn[1]));
        QVERIFY(pictureOf(*link).pixelColor(link->width() / 2, 0) != before.pixelColor(link->width() / 2, 0));
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
            spy.clear();
            QTest::keyPress(link, key);
            QCOMPARE(spy.count(), key == Qt::Key_Space ? 0 : 1);
            QCOMPARE(paintedIn(*link, kOwn[2]), key == Qt::Key_Space);
            QTest::keyRelease(link, key);
            QCOMPARE(spy.count(), 1);
            QCOMPARE(spy.at(0).at(0).toInt(), 5);
            QVERIFY(paintedIn(*link, kOwn[1]));
        }
        spy.clear();
        QTest::keyPress(link, Qt::Key_Space);
        other->setFocus(); // let go elsewhere
        QTest::keyRelease(link, Qt::Key_Space);
        QTest::keyClick(link, Qt::Key_A);
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(link, &repeated);
        QCOMPARE(spy.count(), 0);
        QTest::mouseClick(link, Qt::LeftButton); // leaves the focus alone
        QCOMPARE(spy.count(), 1);
        QVERIFY(other->hasFocus());
    }

    void diesInItsSignal()
    {
        for (const char *events : {"press release", "return", "space spaceup"}) {
            QPointer<CBPLinkerButton> link = new CBPLinkerButton(kText);
            connect(link.data(), &CBPLinkerButton::sigLinkerClick, this, [&link] { delete link; });
            perform(link, events);
            QVERIFY2(!link, events);
        }
    }

    void tipOfAnElidedText()
    {
        CBPLinkerButton link("A text that does not always fit");
        link.resize(link.sizeHint());
        const int whole = link.width();
        pictureOf(link);
        QCOMPARE(link.toolTip(), QString());
        link.resize(whole / 2, link.height());
        QCOMPARE(link.toolTip(), QString()); // at the next paint
        pictureOf(link);
        QCOMPARE(link.toolTip(), link.text());
        link.setText("Another text that does not fit");
        pictureOf(link);
        QCOMPARE(link.toolTip(), link.text());
        link.resize(1, link.height());
        pictureOf(link);
        link.resize(whole * 2, link.height());
        pictureOf(link);
        QCOMPARE(link.toolTip(), QString());
        link.SetFontPixel(60); // the same width, another font
        pictureOf(link);
        QCOMPARE(link.toolTip(), link.text());
    }

    void screenReader()
    {
        QWidget parent;
        CBPLinkerButton link("Learn more", ENLinkerTypeHover, 3, &parent);
        QSignalSpy spy(&link, &CBPLinkerButton::sigLinkerClick);
        QAccessibleInterface *reader = accessible(&link);
        QVERIFY(reader);
        QCOMPARE(reader->role(), QAccessible::Link);
        QCOMPARE(reader->text(QAccessible::Name), QString("Learn more"));
        QVERIFY(reader->state().focusable);
        QVERIFY(reader->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
        reader->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).toInt(), 3);
        link.setAccessibleName("About links");
        QCOMPARE(reader->text(QAccessible::Name), QString("About links"));
        link.setEnabled(false);
        reader->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(spy.count(), 1);

        QLabel label("A label");
        QCOMPARE(accessible(&label)->role(), QAccessible::StaticText);
    }

    // Along the left edge, in the middle of the height, and cut at the end; a text of lines is not cut.
    void placedText()
    {
        CBPLinkerButton link(kText, ENLinkerTypeNever);
        link.SetTextColor(QVector<QColor>(4, Qt::black));
        link.resize(link.sizeHint() + QSize(100, 60));
        pictureOf(link);
        const QRect ink = inkOf(pictureOf(link));
        QVERIFY(ink.left() <= 2);
        QVERIFY(qAbs(ink.center().y() - link.rect().center().y()) <= 4);
        link.resize(link.sizeHint().width() - 10, 20);
        pictureOf(link);
        QCOMPARE(link.toolTip(), QString(kText));
        link.setText("One line\nand a second one that is longer");
        link.resize(link.sizeHint());
        pictureOf(link);
        QCOMPARE(link.toolTip(), QString());
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

    void repaints()
    {
        class Painted : public CBPLinkerButton
        {
        public:
            using CBPLinkerButton::CBPLinkerButton;
            int paints = 0;
            int tips = 0;
            bool event(QEvent *event) override
            {
                paints += event->type() == QEvent::Paint;
                tips += event->type() == QEvent::ToolTipChange;
                return CBPLinkerButton::event(event);
            }
        };
        QWidget window; // a window may not be as narrow as the link is to be
        window.resize(200, 100);
        Painted link(kText, ENLinkerTypeNever, 0, &window);
        link.resize(20, 20);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTRY_VERIFY(link.paints > 0);
        QCoreApplication::processEvents();
        const QVector<std::function<void()>> changes{
            [&] { sendEvent(link, QEvent::Enter); }, [&] { sendEvent(link, QEvent::Leave); },
            [&] { sendFocus(link, QEvent::FocusIn); }, [&] { link.SetSelected(true); }};
        for (const auto &change : changes) {
            link.paints = 0;
            change();
            QTRY_VERIFY(link.paints > 0);
        }
        QCOMPARE(link.tips, 1); // told once that the text is cut, not at each paint
    }

    void checkBox()
    {
        QWidget parent;
        auto *plain = new CBPCheckBox(&parent);
        CBPCheckBox box(QString("Remember me"), &parent);
        QCOMPARE(plain->text(), QString());
        QCOMPARE(plain->parentWidget(), &parent);
        QCOMPARE(box.text(), QString("Remember me"));
        QCOMPARE(accessible(&box)->role(), QAccessible::CheckBox);

        // Addressed by its class, and painted as any check box.
        box.setStyleSheet(
            "CBPCheckBox { color: #ff0000; } CBPCheckBox::indicator { width: 20px; height: 20px; "
            "background: #0000ff; }");
        box.resize(box.sizeHint());
        QVERIFY(paintedIn(box, Qt::blue));
        QSignalSpy spy(&box, &QCheckBox::toggled);
        QTest::keyClick(&box, Qt::Key_Space);
        QCOMPARE(spy.count(), 1);
        QVERIFY(box.isChecked());
    }
};

LUMQT_TEST_MAIN(TestLinker)
#include "tst_linker.moc"
