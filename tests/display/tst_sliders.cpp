#include "display/SliderHelpers.h"
#include "TestMain.h"

#include <QAccessible>
#include <QVBoxLayout>

namespace {

const QColor kRing(47, 134, 216);
const QColor kTick(146, 146, 146);

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

    // The track, its ticks and the letters of each label, which the row below has under its tick.
    void pictures_data()
    {
        QTest::addColumn<bool>("jump");
        QTest::addColumn<QVector<int>>("ticks");
        QTest::addColumn<int>("height"); // of the slider
        QTest::newRow("jump") << true << QVector<int>{8, 100, 200, 292} << 40;
        QTest::newRow("smooth") << false << QVector<int>{7, 293} << 44;
    }

    void pictures()
    {
        QFETCH(bool, jump);
        QFETCH(QVector<int>, ticks);
        QFETCH(int, height);
        CBPJumpSlider jumpSlider(nullptr);
        CBPSmoothSlider smoothSlider(nullptr);
        jumpSlider.Init(kLevels);
        smoothSlider.Init(kEnds, 100, 0);
        QWidget &widget = jump ? static_cast<QWidget &>(jumpSlider) : smoothSlider;
        QSlider *inner = sliderOf(widget);
        inner->setFixedHeight(height);
        show(widget);
        const int middle = height / 2;
        for (int i = 0; i < ticks.size(); ++i) {
            inner->setValue(i < ticks.size() / 2 ? inner->maximum() : 0); // the handle is elsewhere
            const QImage image = inner->grab().toImage();
            const QImage around = image.copy(ticks[i] - 5, 0, 11, height);
            QCOMPARE(boxOf(around, kTick), QRect(5, middle + 2, 1, 11));
            QCOMPARE(boxOf(around, kGrey), QRect(0, middle - 2, 11, 4));
            QCOMPARE(image.pixelColor(i == 0 ? 0 : 299, middle), kGrey);
        }
        const QImage row = rowOf(widget)->grab().toImage();
        const int last = ticks.size() - 1;
        const int step = 300 / last;
        for (int i = 0; i <= last; ++i) {
            const QRect part = QRect(i * step - step / 2, 0, step, row.height()) & row.rect();
            const QRect ink = inkOf(row.copy(part), 128).translated(part.topLeft());
            const int off = i == 0 ? ink.left() : i == last ? 299 - ink.right() : ink.center().x() - i * step;
            QVERIFY2(!ink.isEmpty() && qAbs(off) <= 2, wordsOf(ink));
            QVERIFY2(i > 0 || qAbs(ink.bottom() - 11) <= 1, wordsOf(ink)); // nothing below the line
        }
    }

    void labelsGrowWithTheFont()
    {
        CBPJumpSlider slider(nullptr);
        slider.Init(kLevels);
        show(slider);
        QFont large = slider.font();
        large.setPointSize(30);
        slider.setFont(large);
        QTRY_VERIFY(rowOf(slider)->height() >= QFontMetrics(large).height());
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
        for (const Qt::FocusReason reason : {Qt::ActiveWindowFocusReason, Qt::OtherFocusReason}) {
            jump->setFocus(reason); // no key was touched so far
            QTRY_VERIFY(inner->hasFocus());
            QVERIFY(!ringShows());
            inner->clearFocus();
        }
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
