#include "Acts.h"
#include "CAddBtn.h"
#include "CBPDropdownBtn.h"
#include "CBPImageCheckBox.h"
#include "CBPImageTextBtn.h"
#include "CBPLinkerButton.h"
#include "CBPRoundBtn.h"
#include "CBPToolButton.h"
#include "CTriStateButton.h"
#include "Pictures.h"
#include "Pixels.h"
#include "Spoken.h"
#include "TestMain.h"

#include <QAccessible>
#include <QSignalSpy>

#include <climits>

namespace {

// Of links.
const QColor kNormal(0, 140, 255);
const QColor kPressed(83, 178, 255);
const QColor kDisabled(189, 189, 189);
const QVector<QColor> kOwnColors{Qt::red, Qt::green, Qt::blue, Qt::magenta};
const QString kText = QStringLiteral("WWWWWWWW");

bool paintedIn(QWidget &link, const QColor &color)
{
    return !boxOf(pictureOf(link, 1), color).isEmpty();
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
        box.resize(box.sizeHint());
        box.show();
        QVERIFY(box.width() > 40);
        const QString life =
            "leave=0 enter=1 down:1=2 down:0=1 disable=3 enable=1 leave=0 checked:1=4 enter=5 "
            "down:1=6 down:0=5 disable=7 enable=5 leave=4 checked:0=0 partly=4";
        const auto mark = [&] { return indexOf(grabbedAt(box, 7, box.height() / 2), m_off + m_on); };
        const Deeds own{{"partly", [&] { box.setCheckState(Qt::PartiallyChecked); }}};
        QCOMPARE(traced(&box, life, mark, own), life);
        box.setCheckState(Qt::Unchecked);
        for (const bool mirrored : {false, true}) {
            box.setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
            const QRect place(mirrored ? box.width() - 10 : 0, (box.height() - 10) / 2, 10, 10);
            QCOMPARE(boxOf(box.grab().toImage(), m_off[0]), place);
        }
        QTest::mouseClick(&box, Qt::LeftButton, Qt::NoModifier, QPoint(box.width() - 2, 2));
        QVERIFY(box.isChecked());
        QCOMPARE(QAccessible::queryAccessibleInterface(&box)->role(), QAccessible::CheckBox);
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
        button.SetTextBelow(true);
        QVERIFY(button.height() > beside.height() && button.width() < beside.width());
        QCOMPARE(button.GetID(), 7);
        button.SetLabel("A longer text");
        QVERIFY(button.width() > beside.width());
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
        const auto to = [&](int x, int y, QEvent::Type type = QEvent::MouseMove) {
            const auto held = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
            return [=, &button] { sendMouse(button, type, held, QPoint(x, y)); };
        };
        QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
        const Deeds own{{"corner", [&] { QCoreApplication::sendEvent(&button, &enter); }},
                        {"middle", to(20, 20)},
                        {"beside", to(38, 1)},
                        {"top", to(20, 1)},
                        {"up", to(1, 1, QEvent::MouseButtonRelease)}};
        const QString life = "leave=0 corner=0 middle=1 beside=0 top=1 press=2 beside=2 up=0 top=1 disable=3 "
                             "middle=3 enable=0";
        QCOMPARE(traced(
                     &button, life, [&] { return QString::number(button.state()); }, own),
                 life);
    }

    void addNames()
    {
        const auto check = [](const char *text, const char *tip, const char *name) {
            CAddBtn button(text, 5, nullptr);
            button.setToolTip(tip);
            QCOMPARE(spokenName(&button), QString(name));
        };
        check("", "", "Add");
        check("", "Add a time", "Add a time");
        check("New", "Add a time", "New");
    }

    // Numbers and lists that no widget has end in a picture, not in an overflow.
    void wildSettings()
    {
        for (const int wild : {INT_MAX, INT_MIN, -100000}) {
            CBPPushBtn push(kText, nullptr, true, true);
            push.setIcon(QIcon(m_offFiles[0]));
            push.setSpacing(wild);
            push.SetIconVoffSet(wild);
            push.SetMininzerWidth(wild);
            push.setRoundRadius({wild, wild});
            push.setRemoveMargin(QMargins(wild, wild, wild, wild));
            CBPImageButton image(m_offFiles, false, 1);
            image.SetBorder(wild / 2, true);
            image.SetHight(wild);
            image.SetText("x", QFont(), {}, true, wild, wild / 2);
            image.SetIconVoffset(wild);
            CBPToolButton tool(kText, 1, ENAlignLeft, true);
            tool.SetHorBorder(wild, wild);
            tool.SetSpacing(wild);
            tool.SetArrowSize(wild, wild);
            tool.SetRoundRadius(1e300, wild);
            tool.SetBgColor({Qt::red});
            tool.SetEnabled(false); // there is no such colour
            CBPRoundBtn round(wild);
            QCOMPARE(round.GetDiameter(), wild > 0 ? 4096 : 1);
            CTriStateButton toggle(kText, false, false, nullptr);
            toggle.setTextColor({});
            toggle.setBgColor({Qt::red, Qt::red});
            CBPDropdownBtn drop(kText, 1);
            for (QWidget *widget : QWidgetList{&push, &image, &tool, &round, &toggle, &drop}) {
                QVERIFY(widget->minimumWidth() <= QWIDGETSIZE_MAX);
                widget->setFixedSize(9, 28);
                QVERIFY(!pictureOf(*widget).isNull());
            }
        }
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
        QCOMPARE(spokenName(&link), QString("About links"));
        QLabel label("A label");
        QCOMPARE(QAccessible::queryAccessibleInterface(&label)->role(), QAccessible::StaticText);
        QSignalSpy clicked(&link, &CBPLinkerButton::sigLinkerClick);
        click(&link, Click::Left);
        QVERIFY(link.bindData() == -7 && clicked.value(0).value(0) == -7);
        QCOMPARE(link.focusPolicy(), Qt::TabFocus); // a click of the mouse leaves the focus where it is
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

    // What befalls a link, the colour that it is painted in then, and whether it is underlined.
    void looks()
    {
        CBPLinkerButton link(kText, ENLinkerTypeAlways);
        link.SetTextColor(kOwnColors);
        link.resize(link.sizeHint());
        link.SetLinkerType(ENLinkerTypeNever);
        const int baseline = boxOf(pictureOf(link, 2), kOwnColors[0]).bottom();
        link.SetLinkerType(ENLinkerTypeAlways);
        const auto look = [&] {
            const QImage image = pictureOf(link, 2);
            QString all;
            for (int i = 0; i < 4; ++i) {
                const QRect box = boxOf(image, kOwnColors[i]);
                if (!box.isEmpty())
                    all += QString::number(i) + (box.bottom() > baseline ? "_" : "");
            }
            return all;
        };
        const auto becomes = [&](int type) {
            return [&link, type] { link.SetLinkerType(ENLinkerType(type)); };
        };
        const Deeds own{
            {"always", becomes(ENLinkerTypeAlways)},     {"hover", becomes(ENLinkerTypeHover)},
            {"never", becomes(ENLinkerTypeNever)},       {"other", becomes(9)},
            {"select", [&] { link.SetSelected(true); }}, {"deselect", [&] { link.SetSelected(false); }}};
        for (const QString life :
             {"always=0_ enter=1_ leave=0_ select=2_ disable=3 enable=2_ deselect=0_ never=0 hover=0",
              "enter=1_ leave=0 focusin=1 focusout=0 enter=1_ press=2_ "
              "release=0_ leave=0 " // at rest until the next enter
              "enter=1_ disable=3 enter=3 focusin=3 leave=3 enable=0 enter=1_ select=2_ disable=3 deselect=3",
              "enable=1_ never=1 hover=1_ never=1 enter=1 press=2 release=0 leave=0 right=0 rightup=0 "
              "disable=3 press=3 enable=0",
              "focusin=1 space=2 spaceup=0 other=0 enter=1 press=2"})
            QCOMPARE(traced(&link, life, look, own), life);
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
