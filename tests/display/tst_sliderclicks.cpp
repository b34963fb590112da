#include "display/SliderHelpers.h"
#include "TestMain.h"

#include <QPointer>

namespace {

struct TimerCount : QObject
{
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Timer;
        return false;
    }

    int count = 0;
};

} // namespace

class TestSliderClicks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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

    // Wherever the style has its groove: what is painted, and the rows above and below it, take a click.
    void jumpClicks()
    {
        CBPJumpSlider slider(nullptr);
        slider.Init({"0", "1", "2", "3", "4"});
        show(slider);
        QSlider *inner = sliderOf(slider);
        const struct
        {
            int x;
            const char *position; // from the middle one, whose handle has the columns 143 to 156
        } rows[] = {{143, "2"}, {156, "2"}, {142, "1"}, {157, "3"}, {299, "3"}, {1, "1"}};
        for (int y = 0; y < inner->height(); ++y) {
            for (const auto &row : rows) {
                slider.SetPosByText("2");
                click(inner, row.x, y);
                QCOMPARE(slider.GetPosText(), QString(row.position));
                QVERIFY(!inner->isSliderDown());
            }
        }
        // Held down it goes as far as the pointer.
        TimerCount ticks;
        inner->installEventFilter(&ticks);
        slider.SetPosByText("4");
        QTest::mousePress(inner, Qt::LeftButton, Qt::NoModifier, QPoint(80, 8));
        QTRY_COMPARE(ticks.count, 3);
        QCOMPARE(slider.GetPosText(), QString("1"));
        QTest::mouseRelease(inner, Qt::LeftButton, Qt::NoModifier, QPoint(80, 8));
        slider.SetPosByText("3");
        QTest::mousePress(inner, Qt::LeftButton, Qt::NoModifier, QPoint(219, 16));
        const struct
        {
            int x;
            const char *position;
        } drags[] = {{185, "3"}, {175, "2"}, {-50, "0"}, {900, "4"}};
        for (const auto &drag : drags) {
            QMouseEvent move(QEvent::MouseMove, QPointF(drag.x, 16), Qt::NoButton, Qt::LeftButton,
                             Qt::NoModifier);
            QCoreApplication::sendEvent(inner, &move);
            QCOMPARE(slider.GetPosText(), QString(drag.position));
        }
        QTest::mouseRelease(inner, Qt::LeftButton, Qt::NoModifier, QPoint(290, 16));
        QVERIFY(!inner->isSliderDown());
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

    // What listens to the value deletes the slider in the middle of the change.
    void deletedByItsListener_data()
    {
        QTest::addColumn<bool>("jump");
        QTest::addColumn<QString>("by");
        for (const char *by : {"label", "slider", "Init"}) {
            QTest::addRow("jump, %s", by) << true << QString(by);
            QTest::addRow("smooth, %s", by) << false << QString(by);
        }
    }

    void deletedByItsListener()
    {
        QFETCH(bool, jump);
        QFETCH(QString, by);
        auto *jumpSlider = jump ? new CBPJumpSlider(nullptr) : nullptr;
        auto *smoothSlider = jump ? nullptr : new CBPSmoothSlider(nullptr);
        const QPointer<QWidget> slider = jump ? static_cast<QWidget *>(jumpSlider) : smoothSlider;
        jump ? jumpSlider->Init(kLevels) : smoothSlider->Init(kEnds, 100, 0);
        show(*slider);
        if (by == "Init")
            sliderOf(*slider)->setValue(sliderOf(*slider)->maximum());
        connect(sliderOf(*slider), &QSlider::valueChanged, this, [slider] { delete slider; });
        if (by == "Init")
            jump ? jumpSlider->Init(kEnds) : smoothSlider->Init(kEnds, 10, 0);
        QWidget *target = slider ? sliderOf(*slider) : nullptr;
        if (by == "label")
            target = rowOf(*slider);
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            if (slider) {
                QMouseEvent event(type, QPointF(297, 6), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
                QCoreApplication::sendEvent(target, &event);
            }
        }
        QVERIFY(!slider);
    }
};

LUMQT_TEST_MAIN(TestSliderClicks)
#include "tst_sliderclicks.moc"
