#include "Acts.h"
#include "CAddBtn.h"
#include "CBPImageCheckBox.h"
#include "CBPImageTextBtn.h"
#include "CBPLinkerButton.h"
#include "CBPMenuBtn.h"
#include "CBPRoundBtn.h"
#include "Pictures.h"
#include "Pixels.h"
#include "Spoken.h"
#include "TestMain.h"

#include <QAccessible>
#include <QSignalSpy>

namespace {

const QColor kArrow(127, 134, 143);

// Of links.
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

} // namespace

class TestSmallButtons : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    const QVector<QColor> m_off{Qt::red, Qt::green, Qt::blue, Qt::gray};
    const QVector<QColor> m_on{Qt::darkRed, Qt::darkGreen, Qt::darkBlue, Qt::darkGray};
    const QVector<QString> m_offFiles = savePictures(m_dir, "off%1.png", QSize(10, 10), m_off);
    const QVector<QString> m_onFiles = savePictures(m_dir, "on%1.png", QSize(10, 10), m_on);

private Q_SLOTS:
    // The mark of each state, checked and not.
    void checkBoxMarks()
    {
        CBPImageCheckBox box(m_offFiles, m_onFiles, "&Remember");
        const QSize hint = box.sizeHint();
        QVERIFY(hint.width() > 40);
        box.resize(hint);
        box.show();
        const auto mark = [&box](const char *events) {
            perform(&box, events,
                    {{"down", [&] { box.setDown(true); }}, {"up", [&] { box.setDown(false); }}});
            return box.grab().toImage().pixelColor(7, box.rect().center().y());
        };
        for (const bool checked : {false, true}) {
            const QVector<QColor> &colors = checked ? m_on : m_off;
            box.setChecked(checked);
            QCOMPARE(mark("leave"), colors[0]);
            QCOMPARE(mark("enter"), colors[1]);
            QCOMPARE(mark("down"), colors[2]);
            QCOMPARE(mark("up disable"), colors[3]);
            mark("enable leave");
        }
        box.setCheckState(Qt::PartiallyChecked);
        QCOMPARE(mark(""), m_on[0]);
        box.setCheckState(Qt::Unchecked);
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            box.setLayoutDirection(direction);
            const QRect place = boxOf(box.grab().toImage(), m_off[0]);
            QCOMPARE(place.size(), QSize(10, 10));
            QCOMPARE(place.left(), direction == Qt::LeftToRight ? 0 : box.width() - 10);
        }
        QTest::mouseClick(&box, Qt::LeftButton, Qt::NoModifier, QPoint(hint.width() - 2, 2));
        QVERIFY(box.isChecked());
        QCOMPARE(QAccessible::queryAccessibleInterface(&box)->role(), QAccessible::CheckBox);
        QCOMPARE(spokenName(&box), QString("Remember"));
        box.setText(QString());
        box.setToolTip("tip");
        QCOMPARE(spokenName(&box), QString("tip"));
    }

    // A plain one then: any check box, but addressed by its class.
    void checkBoxWithoutImages()
    {
        CBPCheckBox plain("Re&member");
        plain.setStyleSheet("CBPCheckBox::indicator { width: 20px; height: 20px; background: #0000ff; }");
        plain.resize(plain.sizeHint());
        QVERIFY(paintedIn(plain, Qt::blue));
        QCOMPARE(spokenName(&plain), QString("Remember"));
        const QImage expected = plain.grab().toImage();
        for (int count = 0; count <= 5; count += count == 3 ? 2 : 1) {
            CBPImageCheckBox box(m_offFiles, (m_offFiles + m_onFiles).mid(0, count), plain.text());
            box.setStyleSheet(plain.styleSheet());
            QCOMPARE(box.sizeHint(), plain.sizeHint());
            box.resize(box.sizeHint());
            QCOMPARE(box.grab().toImage(), expected);
        }
        CBPImageCheckBox missing({"a", "b", "c", "d"}, {"a", "b", "c", "d"}, "Text");
        missing.resize(missing.sizeHint());
        QVERIFY(!inkOf(missing.grab().toImage()).isEmpty()); // the text is there all the same
    }

    void imageText()
    {
        CBPImageTextBtn button(m_offFiles, "Text", 7);
        const QSize beside = button.size();
        QVERIFY(beside.width() > 10 + 8 && beside.height() < 30);
        button.SetTextBelow(true);
        QVERIFY(button.height() > beside.height() && button.width() < beside.width());
        const QRect mark = boxOf(button.grab().toImage(), m_off[0]);
        QCOMPARE(mark.size(), QSize(10, 10)); // no text over it
        QCOMPARE(mark.top(), 0);
        QVERIFY(!inkOf(pictureOf(button, 1).copy(0, 11, button.width(), button.height() - 11)).isEmpty());
        QVERIFY(qAbs(mark.center().x() - button.width() / 2) <= 1);
        QCOMPARE(button.GetID(), 7);
        button.SetLabel("A longer text");
        QVERIFY(button.width() > beside.width());
        CBPImageTextBtn narrow(savePictures(m_dir, "wide%1.png", QSize(80, 10), m_off),
                               "ii"); // under the middle of the wider image
        narrow.SetTextBelow(true);
        QCOMPARE(narrow.width(), 80);
        const QRect text = inkOf(pictureOf(narrow, 1).copy(0, 11, 80, 20), 200);
        QVERIFY2(!text.isEmpty() && qAbs(text.left() - (79 - text.right())) <= 2, wordsOf(text));
    }

    void imageAlone()
    {
        for (const bool below : {false, true}) {
            CBPImageTextBtn button(m_offFiles, below ? "Text" : "");
            button.SetTextBelow(below);
            button.SetLabel(QString());
            QCOMPARE(button.size(), QSize(10, 10));
            QCOMPARE(button.GetSize(), button.size());
            QCOMPARE(boxOf(button.grab().toImage(), m_off[0]), button.rect());
            button.SetLabel("Text");
            QVERIFY(button.width() > 20 && boxOf(button.grab().toImage(), m_off[0]).width() == 10);
        }
        CBPImageTextBtn none({}, "");
        none.grab();
    }

    // Corners of the square are no part of the circle.
    void round()
    {
        CBPRoundBtn button(40, 3);
        QSignalSpy clicks(&button, SIGNAL(sigBtnClicked(int)));
        for (const QPoint &at : {QPoint(20, 20), {8, 8}, {0, 20}, {39, 20}, {1, 1}, {39, 39}, {4, 4}})
            QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, at);
        QCOMPARE(clicks.size(), 4);
        sendEvent(button, QEvent::Leave);
        const QImage plain = button.grab().toImage();
        const auto comesTo = [&](const QPoint &at) {
            sendMouse(button, QEvent::MouseMove, Qt::NoButton, at);
            return button.grab().toImage() != plain;
        };
        QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
        QCoreApplication::sendEvent(&button, &enter);
        QVERIFY(button.grab().toImage() == plain);
        QVERIFY(comesTo({20, 20}) && !comesTo({38, 1}) && comesTo({20, 1}));
        sendMouse(button, QEvent::MouseButtonPress, Qt::LeftButton, {20, 20});
        QVERIFY(comesTo({1, 1})); // pressed
        sendMouse(button, QEvent::MouseButtonRelease, Qt::LeftButton, {1, 1});
        QVERIFY(button.grab().toImage() == plain);
        button.setEnabled(false);
        const QImage disabled = button.grab().toImage();
        comesTo({20, 20});
        QCOMPARE(button.grab().toImage(), disabled);
        button.SetDiameter(INT_MIN);
        QCOMPARE(button.size(), QSize(1, 1));
        button.grab();
        button.SetDiameter(INT_MAX);
        QCOMPARE(button.GetDiameter(), 4096);
    }

    // Text and triangle are centred as one, and the triangle is right behind the text.
    void menuButton()
    {
        CBPMenuBtn button("Sort by", nullptr);
        button.setBgColor({Qt::white, Qt::white, Qt::white, Qt::white});
        button.setTextColor({Qt::black, Qt::black, Qt::black, Qt::black});
        button.setFrmTrancent(true);
        for (const int extra : {0, 60, -30}) {
            button.resize(button.sizeHint().width() + extra, 28);
            const QImage image = button.grab().toImage();
            const QRect triangle = boxOf(image, kArrow);
            const QRect text = inkOf(image.copy(0, 0, triangle.left() - 1, 28), 200);
            QVERIFY2(triangle.left() - text.right() >= 4 && triangle.left() - text.right() <= 12,
                     wordsOf(text));
            QVERIFY2(qAbs(text.left() - (button.width() - 1 - triangle.right())) <= 5, wordsOf(triangle));
            button.setIcon(QIcon(m_offFiles[0])); // which is not drawn
            QCOMPARE(button.grab().toImage(), image);
        }
        button.setText(QString());
        QVERIFY(qAbs(boxOf(button.grab().toImage(), kArrow).center().x() - button.width() / 2) <= 1);
    }

    void add()
    {
        const auto check = [](const char *text, const char *tip, const char *name, int left) {
            CAddBtn button(text, 5, nullptr);
            button.setToolTip(tip);
            const QColor color(200, 0, 0);
            button.setTextColor({color, color, color, Qt::blue});
            button.resize(button.sizeHint());
            QCOMPARE(spokenName(&button), QString(name));
            const QImage image = button.grab().toImage();
            const QRect mark = boxOf(image.copy(0, 0, left + 16, 28), color);
            QVERIFY2(mark.left() == left && mark.size() == QSize(12, 12), wordsOf(mark));
            QCOMPARE(image.pixelColor(mark.topLeft() + QPoint(5, 5)), color);
            QVERIFY(image.pixelColor(mark.topLeft()) != color);
            button.setEnabled(false);
            QVERIFY(!boxOf(button.grab().toImage(), Qt::blue).isEmpty());
        };
        check("", "", "Add", 8);
        check("", "Add a time", "Add a time", 8);
        check("New", "Add a time", "New", 12);
    }

    // --------------------------------------------------------------------------------------------------------
    // links

    void defaults()
    {
        CBPLinkerButton link("R&D <b>x</b>", ENLinkerTypeHover, -7);
        QCOMPARE(link.text(), QString("R&D <b>x</b>"));
        QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(&link);
        QVERIFY(reader->role() == QAccessible::Link && reader->state().focusable);
        QVERIFY(reader->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
        link.setAccessibleName("About links");
        QCOMPARE(reader->text(QAccessible::Name), QString("About links"));
        QLabel label("A label");
        QCOMPARE(QAccessible::queryAccessibleInterface(&label)->role(), QAccessible::StaticText);
        QVERIFY(link.bindData() == -7 && !link.IsSelected());
        QCOMPARE(link.cursor().shape(), Qt::PointingHandCursor);
        QCOMPARE(link.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
        QVERIFY(link.styleSheet().startsWith("QLabel{font-family:\""));
        QVERIFY(link.styleSheet().endsWith("\"; font-size:14px;}"));
        link.resize(link.sizeHint());
        QVERIFY(paintedIn(link, kNormal));
        link.SetSelected(true);
        link.SetTextColor(QVector<QColor>{Qt::red}); // what is missing is built in
        QVERIFY(paintedIn(link, kPressed));
        link.setEnabled(false);
        QVERIFY(paintedIn(link, kDisabled));
        QColor one(Qt::darkGreen); // of all states
        link.SetTextColor(one);
        QVERIFY(paintedIn(link, one));
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
        check(ENLinkerTypeHover, "", 0, false);
        check(ENLinkerTypeHover, "enter", 1, true);
        check(ENLinkerTypeHover, "enter leave", 0, false);
        check(ENLinkerTypeHover, "focusin", 1, false);
        check(ENLinkerTypeHover, "focusin focusout", 0, false);
        check(ENLinkerTypeHover, "enter press", 2, true);
        check(ENLinkerTypeHover, "enter press release", 0, true); // at rest until the next enter
        check(ENLinkerTypeHover, "enter disable enter focusin leave enable", 0, false);
        check(ENLinkerTypeNever, "enter press", 2, false);
        check(ENLinkerTypeNever, "right", 0, false);
        check(ENLinkerTypeNever, "disable press enable", 0, false);
        check(ENLinkerTypeNever, "focusin space", 2, false);
        check(9, "enter press", 2, false);
        CBPLinkerButton link(kText, ENLinkerTypeAlways);
        link.resize(link.sizeHint());
        for (const ENLinkerType type : {ENLinkerTypeHover, ENLinkerTypeAlways, ENLinkerTypeNever}) {
            link.SetLinkerType(type);
            QCOMPARE(underlined(link), type == ENLinkerTypeAlways);
        }
        // The text is along the left edge, in the middle of the height.
        link.SetTextColor(QVector<QColor>(4, Qt::black));
        link.resize(link.sizeHint() + QSize(100, 60));
        const QRect ink = inkOf(pictureOf(link, 1));
        QVERIFY2(ink.left() <= 2 && qAbs(ink.center().y() - link.rect().center().y()) <= 4, wordsOf(ink));
    }

    // One click a press of Enter, and the look of the focus stays; a click of the mouse leaves the focus
    // alone.
    void linkKeys()
    {
        QWidget window;
        QCheckBox other(&window);
        CBPLinkerButton link(kText, ENLinkerTypeNever, 5, &window);
        link.SetTextColor(kOwnColors);
        link.resize(link.sizeHint());
        showActive(window);
        QSignalSpy spy(&link, &CBPLinkerButton::sigLinkerClick);
        link.setFocus();
        QTest::keyClick(&link, Qt::Key_Enter);
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(&link, &repeated);
        QVERIFY(spy.count() == 1 && paintedIn(link, kOwn[1]));
        other.setFocus();
        QTest::mouseClick(&link, Qt::LeftButton);
        QVERIFY(spy.count() == 2 && other.hasFocus());
    }

    void tipOfAnElidedText()
    {
        CBPLinkerButton link("A text that does not always fit");
        const QSize whole = link.sizeHint();
        const auto tip = [&link](const QSize &size) {
            const QString before = link.toolTip();
            link.resize(size);
            if (link.toolTip() != before) // at the next paint
                return QString("too early");
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
        QVERIFY(link.sizeHint().width() > whole.width() * 2);
        link.SetFontPixel(14);
        for (const int bad : {0, -3}) {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("is no font size"));
            link.SetFontPixel(bad);
        }
        QCOMPARE(link.styleSheet(), QString("QLabel{font-size:14px;}"));
        link.setText("One line\nand a second one that is longer"); // lines are not cut
        QCOMPARE(tip(link.sizeHint()), QString());
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
};

LUMQT_TEST_MAIN(TestSmallButtons)
#include "tst_smallbuttons.moc"
