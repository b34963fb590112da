#include "CBPJumpSlider.h"
#include "CBPSmoothSlider.h"
#include "Pixels.h"
#include "TestMain.h"

#include <QAccessible>
#include <QVBoxLayout>

namespace {

const QColor kBlue(73, 167, 245);
const QColor kGrey(229, 229, 229);
const QColor kRing(47, 134, 216);
const QStringList kLevels{"Low", "Medium", "High", "Full"};
const QStringList kEnds{"0", "All"};

QSlider *sliderOf(const QWidget &widget)
{
    return widget.findChild<QSlider *>();
}

QLabel *rowOf(const QWidget &widget)
{
    return widget.findChild<QLabel *>();
}

// Shown, 300 pixels wide.
template <class Slider> void show(Slider &slider)
{
    slider.resize(300, 70);
    slider.show();
    QVERIFY(QTest::qWaitForWindowExposed(&slider));
}

void click(QWidget *widget, int x, int y = 6)
{
    QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, QPoint(x, y));
}

QRect handleOf(const QWidget &widget, const QColor &color = kBlue)
{
    const QImage image = sliderOf(widget)->grab().toImage();
    if (color == kGrey) { // as the track is: look above it
        const QImage above = image.copy(0, 0, image.width(), image.height() / 2 - 2);
        return boxOf(above, color);
    }
    return boxOf(image, color);
}

} // namespace

class TestSliders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingWithoutTwoLabels()
    {
        for (const QStringList &labels : {QStringList(), QStringList("One")}) {
            CBPJumpSlider jump(nullptr);
            CBPSmoothSlider smooth(nullptr);
            const QByteArray words = QString("%1 labels make no slider").arg(labels.size()).toUtf8();
            QTest::ignoreMessage(QtWarningMsg, "CBPJumpSlider: " + words);
            QTest::ignoreMessage(QtWarningMsg, "CBPSmoothSlider: " + words);
            jump.Init(labels);
            smooth.Init(labels, 10, 0);
            jump.SetPosByText("One");
            smooth.SetValue(5);
            QCOMPARE(jump.GetPosText(), QString());
            QCOMPARE(smooth.GetValue(), -1);
            QVERIFY(!sliderOf(jump) && !sliderOf(smooth) && !jump.layout());
        }
    }

    void texts()
    {
        CBPJumpSlider slider(nullptr);
        slider.Init({"a", "b", "a", ""});
        const struct
        {
            const char *asked;
            int position;
        } rows[] = {{"b", 1}, {"c", 1}, {"a", 0}, {"", 3}, {"A", 3}};
        for (const auto &row : rows) {
            slider.SetPosByText(row.asked);
            QCOMPARE(sliderOf(slider)->value(), row.position);
        }
    }

    // Each label is where its tick is, and clicking it goes there; also for labels of one text, and after
    // the window moved without a repaint.
    void jumpLabels_data()
    {
        QTest::addColumn<QStringList>("labels");
        QTest::newRow("levels") << kLevels;
        QTest::newRow("equal") << QStringList{"Same", "Same", "Same"};
    }

    void jumpLabels()
    {
        QFETCH(QStringList, labels);
        CBPJumpSlider slider(nullptr);
        slider.Init(labels);
        show(slider);
        slider.move(slider.pos() + QPoint(40, 30));
        const int last = labels.size() - 1;
        for (const int index : {last, 0, 1}) {
            const int at = index * (300 / last);
            click(rowOf(slider), index == 0 ? 3 : index == last ? at - 3 : at);
            QCOMPARE(sliderOf(slider)->value(), index);
            QCOMPARE(slider.GetPosText(), labels[index]);
            const QRect handle = handleOf(slider);
            const int inset = index == 0 ? 8 : index == last ? -8 : 0;
            QVERIFY2(qAbs(handle.center().x() - (at + inset)) <= 1, wordsOf(handle));
        }
        click(rowOf(slider), 300 / last / 2); // between two labels
        QCOMPARE(sliderOf(slider)->value(), 1);
    }

    void disabled()
    {
        CBPJumpSlider jump(nullptr);
        jump.Init(kLevels);
        show(jump);
        CBPSmoothSlider smooth(nullptr);
        smooth.Init(kEnds, 100, 0);
        show(smooth);
        for (QWidget *widget : {static_cast<QWidget *>(&jump), static_cast<QWidget *>(&smooth)}) {
            widget->setEnabled(false);
            click(rowOf(*widget), 297);
            click(sliderOf(*widget), 200);
            QCOMPARE(sliderOf(*widget)->value(), 0);
        }
        QVERIFY(handleOf(jump).isEmpty());
        QVERIFY(!handleOf(jump, kGrey).isEmpty());
        QVERIFY(!handleOf(smooth).isEmpty()); // blue whatever happens
    }

    void smoothClicks_data()
    {
        QTest::addColumn<int>("minimum");
        QTest::addColumn<int>("maximum");
        QTest::addColumn<int>("x"); // on the slider; -1: the first label, -2: the last one
        QTest::addColumn<int>("value");
        QTest::newRow("three quarters") << 0 << 100 << 225 << 75;
        QTest::newRow("the minimum is not added") << 20 << 100 << 150 << 40;
        QTest::newRow("but kept") << 20 << 100 << 6 << 20;
        QTest::newRow("first label") << 0 << 100 << -1 << 0;
        QTest::newRow("first label, minimum above 0") << 20 << 100 << -1 << 20;
        QTest::newRow("first label, minimum below 0") << -50 << 100 << -1 << 0;
        QTest::newRow("last label") << -50 << 100 << -2 << 100;
        QTest::newRow("all ints") << INT_MIN << INT_MAX << 150 << INT_MAX;
        QTest::newRow("large") << 0 << INT_MAX << 150 << INT_MAX / 2;
        QTest::newRow("no range") << 7 << 7 << 150 << 7;
        QTest::newRow("below 0") << -100 << -20 << 150 << -20;
    }

    void smoothClicks()
    {
        QFETCH(int, minimum);
        QFETCH(int, maximum);
        QFETCH(int, x);
        QFETCH(int, value);
        CBPSmoothSlider slider(nullptr);
        slider.Init(kEnds, maximum, minimum);
        show(slider);
        slider.SetValue(minimum == maximum || x == -2 ? minimum : maximum);
        if (x < 0)
            click(rowOf(slider), x == -1 ? 3 : 297);
        else
            click(sliderOf(slider), x);
        QCOMPARE(slider.GetValue(), value);
        QVERIFY(!sliderOf(slider)->isSliderDown());
    }

    void minimumAboveMaximum()
    {
        CBPSmoothSlider slider(nullptr);
        QTest::ignoreMessage(QtWarningMsg, "CBPSmoothSlider: the minimum 50 is above the maximum 10");
        slider.Init(kEnds, 10, 50);
        show(slider);
        slider.SetValue(30);
        QCOMPARE(slider.GetValue(), 50);
        click(rowOf(slider), 3);
        QCOMPARE(slider.GetValue(), 50);
    }

    // Pressed anywhere the handle is under the pointer and follows it.
    void dragging()
    {
        CBPSmoothSlider slider(nullptr);
        slider.Init(kEnds, 100, 0);
        show(slider);
        QSlider *inner = sliderOf(slider);
        QTest::mousePress(inner, Qt::LeftButton, Qt::NoModifier, QPoint(285, 22));
        QCOMPARE(slider.GetValue(), 95);
        const struct
        {
            int x;
            int value;
        } rows[] = {{150, 50}, {-900, 0}, {9000, 100}, {30, 10}};
        for (const auto &row : rows) {
            QMouseEvent move(QEvent::MouseMove, QPointF(row.x, 22), Qt::NoButton, Qt::LeftButton,
                             Qt::NoModifier);
            QCoreApplication::sendEvent(inner, &move);
            QCOMPARE(slider.GetValue(), row.value);
        }
        QTest::mouseRelease(inner, Qt::LeftButton, Qt::NoModifier, QPoint(60, 22));
        QCOMPARE(slider.GetValue(), 20);
    }

    // Left edge of the handle by value; the value stands above it, within the slider.
    void smoothHandle()
    {
        CBPSmoothSlider slider(nullptr);
        slider.Init(kEnds, 100, -20);
        show(slider);
        const struct
        {
            int value;
            int x;
        } rows[] = {{-20, 0}, {0, 0}, {2, 0}, {3, 9}, {50, 150}, {95, 285}, {99, 286}, {100, 286}};
        for (const auto &row : rows) {
            slider.SetValue(row.value);
            const QRect handle = handleOf(slider);
            QVERIFY2(qAbs(handle.left() - row.x) <= 1 && qAbs(handle.right() - row.x - 13) <= 1 &&
                         qAbs(handle.center().y() - 22) <= 1,
                     wordsOf(handle));
            const QRect ink = inkOf(sliderOf(slider)->grab(QRect(0, 0, 300, 14)).toImage());
            QVERIFY2(!ink.isEmpty() && qAbs(ink.center().x() - qBound(4, row.x + 7, 296)) <= 9, wordsOf(ink));
        }
        for (const int extreme : {INT_MIN, INT_MAX, 0}) {
            slider.Init(kEnds, extreme, INT_MIN);
            slider.SetValue(INT_MIN);
            QVERIFY(!handleOf(slider).isEmpty());
        }
    }

    void keys()
    {
        CBPJumpSlider jump(nullptr);
        jump.Init(kLevels);
        CBPSmoothSlider smooth(nullptr);
        smooth.Init(kEnds, 100, 0);
        const struct
        {
            Qt::Key key;
            int jump;
            int smooth;
        } rows[] = {{Qt::Key_Right, 1, 1}, {Qt::Key_PageUp, 2, 11},   {Qt::Key_End, 3, 100},
                    {Qt::Key_Left, 2, 99}, {Qt::Key_PageDown, 1, 89}, {Qt::Key_Home, 0, 0}};
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            jump.setLayoutDirection(direction); // both are painted from left to right
            smooth.setLayoutDirection(direction);
            for (const auto &row : rows) {
                QTest::keyClick(sliderOf(jump), row.key);
                QTest::keyClick(sliderOf(smooth), row.key);
                QCOMPARE(sliderOf(jump)->value(), row.jump);
                QCOMPARE(smooth.GetValue(), row.smooth);
            }
        }
    }

    void focus()
    {
        QWidget window;
        auto *layout = new QVBoxLayout(&window);
        auto *jump = new CBPJumpSlider(&window);
        jump->Init(kLevels);
        layout->addWidget(jump);
        const auto ringShows = [jump] { return handleOf(*jump, kRing).width() > 100; };
        QSlider *inner = sliderOf(*jump);
        window.show();
        QApplication::setActiveWindow(&window);
        inner->clearFocus();
        QVERIFY(inner->focusPolicy() & Qt::TabFocus);
        QVERIFY(!ringShows());
        jump->setFocus(Qt::MouseFocusReason);
        QTRY_VERIFY(inner->hasFocus());
        QVERIFY(!ringShows());
        QTest::keyClick(inner, Qt::Key_Right);
        QVERIFY(ringShows());
        inner->clearFocus();
        QVERIFY(!ringShows());
        jump->setFocus(Qt::TabFocusReason);
        QTRY_VERIFY(ringShows());
    }

    void screenReaders()
    {
        CBPJumpSlider jump(nullptr);
        jump.Init(kLevels);
        jump.setAccessibleName("Quality");
        jump.SetPosByText("High");
        QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(sliderOf(jump));
        QCOMPARE(spoken->role(), QAccessible::Slider);
        QCOMPARE(spoken->text(QAccessible::Name), QString("Quality"));
        QCOMPARE(spoken->text(QAccessible::Value), QString("High"));
        QVERIFY(spoken->valueInterface());
        QCOMPARE(spoken->valueInterface()->currentValue().toInt(), 2);
        QCOMPARE(spoken->valueInterface()->maximumValue().toInt(), 3);
        spoken->valueInterface()->setCurrentValue(1);
        QCOMPARE(jump.GetPosText(), QString("Medium"));

        CBPSmoothSlider smooth(nullptr);
        smooth.Init(kEnds, 100, 0);
        smooth.SetValue(42);
        spoken = QAccessible::queryAccessibleInterface(sliderOf(smooth));
        QCOMPARE(spoken->text(QAccessible::Value), QString("42"));
    }

    void initTwice()
    {
        CBPJumpSlider jump(nullptr);
        jump.Init(kLevels);
        jump.SetPosByText("Full");
        jump.Init({"One", "Two"});
        QCOMPARE(jump.GetPosText(), QString("One"));
        QCOMPARE(jump.findChildren<QSlider *>().size(), 1);
        delete rowOf(jump); // by somebody who wants no labels
        jump.grab();
        jump.Init(kLevels);
        QVERIFY(rowOf(jump));
        QCOMPARE(jump.findChildren<QSlider *>().size(), 1);
        delete sliderOf(jump);
        QCOMPARE(jump.GetPosText(), QString());
        click(rowOf(jump), 3);
    }

    // What listens to the value deletes the slider in the middle of the click.
    void deletedByItsListener()
    {
        for (const bool onLabel : {true, false}) {
            QPointer<CBPSmoothSlider> slider = new CBPSmoothSlider(nullptr);
            slider->Init(kEnds, 100, 0);
            show(*slider);
            connect(sliderOf(*slider), &QSlider::valueChanged, this, [slider] { delete slider; });
            QWidget *target = onLabel ? static_cast<QWidget *>(rowOf(*slider)) : sliderOf(*slider);
            QMouseEvent release(QEvent::MouseButtonRelease, QPointF(297, 6), Qt::LeftButton, Qt::NoButton,
                                Qt::NoModifier);
            QCoreApplication::sendEvent(target, &release);
            QVERIFY(!slider);
        }
    }

    // More labels than pixels, long ones, none to be seen.
    void awkwardLabels()
    {
        QStringList many;
        for (int i = 0; i < 2000; ++i)
            many << QString::number(i);
        for (const QStringList &labels : {many, QStringList{QString(5000, 'W'), QString()}}) {
            CBPJumpSlider slider(nullptr);
            slider.Init(labels);
            show(slider);
            sliderOf(slider)->setValue(labels.size() - 1);
            slider.grab();
            click(rowOf(slider), 150);
            QVERIFY(labels.contains(slider.GetPosText()));
        }
    }
};

LUMQT_TEST_MAIN(TestSliders)
#include "tst_sliders.moc"
