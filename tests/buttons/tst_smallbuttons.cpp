#include "Acts.h"
#include "CAddBtn.h"
#include "CBPImageCheckBox.h"
#include "CBPImageTextBtn.h"
#include "CBPMenuBtn.h"
#include "CBPRoundBtn.h"
#include "Pictures.h"
#include "Pixels.h"
#include "Spoken.h"
#include "TestMain.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace {

const QColor kArrow(127, 134, 143);

} // namespace

class TestSmallButtons : public QObject
{
    Q_OBJECT

private:
    // Image files, 10 pixels high.
    QVector<QString> files(const QVector<QColor> &colors, int width = 10)
    {
        QVector<QString> result;
        for (const QColor &color : colors) {
            result << m_dir.filePath(QString("%1%2.png").arg(color.name().mid(1), QString::number(width)));
            savePicture(result.last(), QSize(width, 10), color);
        }
        return result;
    }

    QTemporaryDir m_dir;
    const QVector<QColor> m_off{Qt::red, Qt::green, Qt::blue, Qt::gray};
    const QVector<QColor> m_on{Qt::darkRed, Qt::darkGreen, Qt::darkBlue, Qt::darkGray};

private Q_SLOTS:
    // The mark of each state, checked and not.
    void checkBoxMarks()
    {
        CBPImageCheckBox box(files(m_off), files(m_on));
        box.resize(box.sizeHint());
        const auto mark = [&box](const char *events) {
            perform(&box, events,
                    {{"down", [&] { box.setDown(true); }}, {"up", [&] { box.setDown(false); }}});
            return box.grab().toImage().pixelColor(box.rect().center());
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
    }

    void checkBoxWithText()
    {
        CBPImageCheckBox box(files(m_off), files(m_on), "&Remember");
        const QSize hint = box.sizeHint();
        QVERIFY(hint.width() > 40);
        box.resize(hint);
        box.show();
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            box.setLayoutDirection(direction);
            const QRect mark = boxOf(box.grab().toImage(), m_off[0]);
            QCOMPARE(mark.size(), QSize(10, 10));
            QCOMPARE(mark.left(), direction == Qt::LeftToRight ? 2 : box.width() - 12);
        }
        QTest::mouseClick(&box, Qt::LeftButton, Qt::NoModifier, QPoint(hint.width() - 2, 2));
        QVERIFY(box.isChecked());
        QTest::keyClick(&box, Qt::Key_Space);
        QVERIFY(!box.isChecked());
        QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(&box);
        QCOMPARE(spoken->role(), QAccessible::CheckBox);
        QCOMPARE(spoken->text(QAccessible::Name), QString("Remember"));
    }

    void checkBoxWithoutImages()
    {
        CBPCheckBox plain("Text", nullptr);
        plain.resize(plain.sizeHint());
        const QImage expected = plain.grab().toImage();
        const QVector<QString> four = files(m_off);
        for (int count = 0; count <= 5; count += count == 3 ? 2 : 1) {
            CBPImageCheckBox box(four, (four + four).mid(0, count), "Text");
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
        CBPImageTextBtn button(files(m_off), "Text", 7);
        const QSize beside = button.size();
        QVERIFY(beside.width() > 10 + 8 && beside.height() < 30);
        button.SetTextBelow(true);
        QVERIFY(button.height() > beside.height() && button.width() < beside.width());
        const QRect mark = boxOf(button.grab().toImage(), m_off[0]);
        QCOMPARE(mark.size(), QSize(10, 10)); // no text over it
        QCOMPARE(mark.top(), 0);
        QVERIFY(!inkOf(pictureOf(button, 1).copy(0, 11, button.width(), button.height() - 11)).isEmpty());
        QVERIFY(qAbs(mark.center().x() - button.width() / 2) <= 1);
        QSignalSpy clicks(&button, SIGNAL(btn_released(int)));
        QTest::mouseClick(&button, Qt::LeftButton);
        QCOMPARE(clicks, QList<QVariantList>{QVariantList{7}});
        QCOMPARE(QAccessible::queryAccessibleInterface(&button)->text(QAccessible::Name), QString("Text"));
        button.SetLabel("A longer text");
        QVERIFY(button.width() > beside.width());
        CBPImageTextBtn narrow(files(m_off, 80), "ii"); // under the middle of the wider image
        narrow.SetTextBelow(true);
        QCOMPARE(narrow.width(), 80);
        const QRect text = inkOf(pictureOf(narrow, 1).copy(0, 11, 80, 20), 200);
        QVERIFY2(!text.isEmpty() && qAbs(text.left() - (79 - text.right())) <= 2, wordsOf(text));
    }

    void imageAlone()
    {
        for (const bool below : {false, true}) {
            CBPImageTextBtn button(files(m_off), below ? "Text" : "");
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
        const auto clicked = [&](int x, int y) {
            clicks.clear();
            QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, QPoint(x, y));
            return clicks.size();
        };
        QVERIFY(clicked(20, 20) == 1 && clicked(8, 8) == 1 && clicked(0, 20) == 1 && clicked(39, 20) == 1);
        QVERIFY(clicked(1, 1) == 0 && clicked(39, 39) == 0 && clicked(4, 4) == 0);
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
            button.setIcon(QIcon(files(m_off)[0])); // which is not drawn
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
};

LUMQT_TEST_MAIN(TestSmallButtons)
#include "tst_smallbuttons.moc"
