#include "Acts.h"
#include "Await.h"
#include "CBPJumpSlider.h"
#include "CBPSmoothSlider.h"
#include "Pixels.h"
#include "TestMain.h"

#include <QFocusFrame>
#include <QLineEdit>
#include <QSignalSpy>
#include <QVBoxLayout>

namespace {

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
void present(QWidget &slider)
{
    slider.resize(300, 70);
    slider.show();
    QVERIFY(QTest::qWaitForWindowExposed(&slider, kPatience));
}

struct Jump : CBPJumpSlider
{
    explicit Jump(const QStringList &labels = kLevels) : CBPJumpSlider(nullptr)
    {
        Init(labels);
        present(*this);
    }
};

struct Smooth : CBPSmoothSlider
{
    explicit Smooth(int maximum = 100, int minimum = 0) : CBPSmoothSlider(nullptr)
    {
        Init(kEnds, maximum, minimum);
        present(*this);
    }
};

struct Both
{
    Jump jump;
    Smooth smooth;
    const QVector<QWidget *> all{&jump, &smooth};
};

void click(QWidget *widget, int x, int y = 6)
{
    QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, QPoint(x, y));
}

void drag(QWidget *widget, int x, int y)
{
    QMouseEvent move(QEvent::MouseMove, QPointF(x, y), widget->mapToGlobal(QPoint(x, y)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &move);
}

// How many texts stand beside each other, with 8 columns between them at least.
int textsIn(const QImage &row)
{
    int texts = 0;
    for (int x = 0, blank = 8; x < row.width(); ++x) {
        const bool ink = !inkOf(row.copy(x, 0, 1, row.height()), 128).isEmpty();
        texts += ink && blank >= 8;
        blank = ink ? 0 : blank + 1;
    }
    return texts;
}

} // namespace

class TestSliders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // As a form makes them: the labels, with which the slider proper comes, when all widgets are there.
    void tabOrder()
    {
        QWidget window;
        QVector<QWidget *> edits{new QLineEdit(&window)};
        auto *jump = new CBPJumpSlider(&window);
        auto *smooth = new CBPSmoothSlider(&window);
        edits << new QLineEdit(&window);
        smooth->setLabels(kEnds);
        jump->setLabels(kLevels);
        QVector<QWidget *> stops;
        for (QWidget *each = window.nextInFocusChain(); each != &window; each = each->nextInFocusChain()) {
            if (each->focusPolicy() & Qt::TabFocus)
                stops << each;
        }
        QCOMPARE(stops, (QVector<QWidget *>{edits[0], sliderOf(*jump), sliderOf(*smooth), edits[1]}));
    }

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

    // A rule means the application's own labels.
    void otherLabelsSheet()
    {
        Both both;
        for (QWidget *slider : both.all) {
            slider->setStyleSheet("QLabel { background: red; border: 2px solid red }");
            QVERIFY(boxOf(slider->grab().toImage(), Qt::red).isEmpty());
        }
    }

    // Large enough for all labels, wherever the long one is, and for the ticks; a window may be narrower.
    void naturalSize()
    {
        const QString word = "Benachrichtigungen";
        for (const QStringList &labels :
             {kLevels, QStringList{"Nothing", "Everything"}, QStringList{"Unterdurchschnittlich", "b", "c"},
              QStringList{"a", "b", word}, QStringList{"a", word, word, "d"}}) {
            Both both;
            both.jump.Init(labels);
            both.smooth.Init(labels, 100, 0);
            for (QWidget *slider : both.all) {
                const QSize small = slider->sizeHint();
                QFont font = slider->font();
                font.setPointSize(16);
                slider->setFont(font);
                AWAIT(slider->sizeHint().width() > small.width());
                QVERIFY(slider->sizeHint().height() >= 28 + QFontMetrics(font).height());
                QVERIFY(slider->minimumSizeHint().width() < 60);
                slider->setFixedSize(slider->sizeHint());
                AWAIT_EQUAL(rowOf(*slider)->width(), slider->width());
                QCOMPARE(textsIn(rowOf(*slider)->grab().toImage()), labels.size());
            }
        }
    }

    // Left edge of the handle by value.
    void smoothHandle()
    {
        Smooth slider(100, -20);
        const auto handle = [&] { return boxOf(sliderOf(slider)->grab().toImage(), QColor(73, 167, 245)); };
        for (const auto &[value, x] :
             {std::pair(-20, 0), {0, 0}, {2, 0}, {3, 9}, {50, 150}, {95, 285}, {99, 286}, {100, 286}}) {
            slider.SetValue(value);
            QVERIFY2(qAbs(handle().left() - x) <= 1, wordsOf(handle()));
        }
        for (const int extreme : {INT_MIN, INT_MAX, 0}) {
            slider.Init(kEnds, extreme, INT_MIN);
            slider.SetValue(INT_MIN);
            QVERIFY(!handle().isEmpty());
        }
    }

    void keys()
    {
        Jump jump;
        Smooth smooth;
        QSignalSpy jumpTold(&jump, &CBPJumpSlider::valueChanged);
        QSignalSpy smoothTold(&smooth, &CBPSmoothSlider::valueChanged);
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            jump.setLayoutDirection(direction); // both are painted from left to right
            smooth.setLayoutDirection(direction);
            const std::tuple<Qt::Key, int, int> rows[] = {{Qt::Key_Right, 1, 1},     {Qt::Key_PageUp, 2, 11},
                                                          {Qt::Key_End, 3, 100},     {Qt::Key_Left, 2, 99},
                                                          {Qt::Key_PageDown, 1, 89}, {Qt::Key_Home, 0, 0}};
            for (const auto &[key, position, value] : rows) {
                QTest::keyClick(sliderOf(jump), key);
                QTest::keyClick(sliderOf(smooth), key);
                QCOMPARE(jump.GetPosText(), kLevels[position]);
                QCOMPARE(smooth.GetValue(), value);
                QCOMPARE(jumpTold.count() + smoothTold.count(), 2);
                QCOMPARE(jumpTold.takeFirst().at(0).toInt(), position);
                QCOMPARE(smoothTold.takeFirst().at(0).toInt(), value);
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
        const auto ringShows = [&] {
            const auto *ring = window.findChild<QFocusFrame *>();
            return ring && ring->geometry().contains(jump->geometry()); // around the labels, too
        };
        QSlider *inner = sliderOf(*jump);
        window.show();
        QApplication::setActiveWindow(&window);
        inner->clearFocus();
        QVERIFY(inner->focusPolicy() & Qt::TabFocus);
        for (const Qt::FocusReason reason :
             {Qt::ActiveWindowFocusReason, Qt::OtherFocusReason, Qt::MouseFocusReason, Qt::TabFocusReason}) {
            QVERIFY(!ringShows());
            jump->setFocus(reason);
            AWAIT(inner->hasFocus());
            QCOMPARE(ringShows(), reason != Qt::MouseFocusReason);
            if (reason == Qt::MouseFocusReason) {
                QTest::keyClick(inner, Qt::Key_Right);
                QVERIFY(ringShows());
            }
            inner->clearFocus();
        }
        jump->setFocus(Qt::TabFocusReason);
        AWAIT(ringShows());
        delete inner; // alone, by the application
        QVERIFY(!ringShows());
    }

    void screenReaders()
    {
        Jump jump;
        QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(sliderOf(jump));
        QCOMPARE(spoken->text(QAccessible::Name), QString::fromUtf8("Low – Full"));
        jump.setAccessibleName("Quality");
        jump.SetPosByText("High");
        QCOMPARE(spoken->role(), QAccessible::Slider);
        QCOMPARE(spoken->text(QAccessible::Name), QString("Quality"));
        QCOMPARE(spoken->text(QAccessible::Value), QString("High"));
        QVERIFY(spoken->valueInterface());
        QCOMPARE(spoken->valueInterface()->currentValue().toInt(), 2);
        QCOMPARE(spoken->valueInterface()->maximumValue().toInt(), 3);
        spoken->valueInterface()->setCurrentValue(1);
        QCOMPARE(jump.GetPosText(), QString("Medium"));

        Smooth smooth;
        smooth.SetValue(42);
        spoken = QAccessible::queryAccessibleInterface(sliderOf(smooth));
        QCOMPARE(spoken->text(QAccessible::Value), QString("42"));
        smooth.Init(kEnds, 100, 10);
        smooth.setEnabled(false);
        QAccessibleValueInterface *number = spoken->valueInterface();
        number->setCurrentValue(50);
        QCOMPARE(number->currentValue().toInt(), 10);
        QVERIFY(number->minimumValue() == 10 && number->minimumStepSize() == 1);
    }

    void textsAndSecondInit()
    {
        Jump jump({"a", "b", "a", ""});
        for (const auto &[asked, position] : {std::pair("b", 1), {"c", 1}, {"a", 0}, {"", 3}, {"A", 3}}) {
            jump.SetPosByText(asked);
            QCOMPARE(sliderOf(jump)->value(), position);
        }
        QVERIFY(repaints(*rowOf(jump), [&] { jump.Init({"One", "Two"}); }));
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
            Jump slider(labels);
            sliderOf(slider)->setValue(labels.size() - 1);
            slider.grab();
            click(rowOf(slider), 150);
            QVERIFY(labels.contains(slider.GetPosText()));
        }
    }

    // Each label is where its tick is, and clicking it goes there; also for labels of one text, and after
    // the window moved without a repaint.
    void jumpLabels()
    {
        for (const QStringList &labels : {kLevels, QStringList{"Same", "Same", "Same"}, kEnds}) {
            Jump slider(labels);
            slider.move(slider.pos() + QPoint(40, 30));
            const int last = labels.size() - 1;
            for (const int index : {last, 0, 1}) {
                const int at = index * (300 / last);
                click(rowOf(slider), index == 0 ? 3 : index == last ? at - 3 : at);
                QCOMPARE(sliderOf(slider)->value(), index);
                QCOMPARE(slider.GetPosText(), labels[index]);
            }
            click(rowOf(slider), 300 / last / 2); // between two labels
            QCOMPARE(sliderOf(slider)->value(), 1);
        }
    }

    // Wherever the style has its groove: what is painted, and the rows above and below it, take a click.
    void jumpClicks()
    {
        Jump slider({"0", "1", "2", "3", "4"});
        QSlider *inner = sliderOf(slider);
        for (int y = 0; y < inner->height(); ++y) { // the handle of the middle one has the columns 143 to 156
            for (const auto &[x, position] :
                 {std::pair(143, "2"), {156, "2"}, {142, "1"}, {157, "3"}, {299, "3"}, {1, "1"}}) {
                slider.SetPosByText("2");
                click(inner, x, y);
                QCOMPARE(slider.GetPosText(), QString(position));
                QVERIFY(!inner->isSliderDown());
            }
        }
        // Held down it goes as far as the pointer.
        const EventCounter ticks(inner, {QEvent::Timer});
        slider.SetPosByText("4");
        QTest::mousePress(inner, Qt::LeftButton, Qt::NoModifier, QPoint(80, 8));
        AWAIT(ticks.count >= 3);
        QCOMPARE(slider.GetPosText(), QString("1"));
        QTest::mouseRelease(inner, Qt::LeftButton, Qt::NoModifier, QPoint(80, 8));
        slider.SetPosByText("3");
        QTest::mousePress(inner, Qt::LeftButton, Qt::NoModifier, QPoint(219, 16));
        for (const auto &[x, position] : {std::pair(185, "3"), {175, "2"}, {-50, "0"}, {900, "4"}}) {
            drag(inner, x, 16);
            QCOMPARE(slider.GetPosText(), QString(position));
        }
        QTest::mouseRelease(inner, Qt::LeftButton, Qt::NoModifier, QPoint(290, 16));
        QVERIFY(!inner->isSliderDown());
    }

    // Held or not is on the screen at once, where the value stays as well.
    void heldAndDisabled()
    {
        Both both;
        for (QWidget *widget : both.all) {
            for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
                QVERIFY(repaints(*sliderOf(*widget), [&] { sendMouse(*sliderOf(*widget), type); }));
            sliderOf(*widget)->setValue(0);
            widget->setEnabled(false);
            click(rowOf(*widget), 297);
            click(sliderOf(*widget), 200);
            QCOMPARE(sliderOf(*widget)->value(), 0);
        }
    }

    void smoothClicks()
    {
        // On the slider at x, or on the first label (-1) or the last one (-2). The minimum is not added, but
        // kept.
        const std::tuple<int, int, int, int> rows[] = {{0, 100, 225, 75},
                                                       {20, 100, 150, 40},
                                                       {20, 100, 6, 20},
                                                       {0, 100, -1, 0},
                                                       {20, 100, -1, 20},
                                                       {-50, 100, -1, 0},
                                                       {-50, 100, -2, 100},
                                                       {7, 7, 150, 7},
                                                       {-100, -20, 150, -20},
                                                       {0, INT_MAX, 150, INT_MAX / 2},
                                                       {INT_MIN, INT_MAX, 150, INT_MAX}};
        for (const auto &[minimum, maximum, x, value] : rows) {
            Smooth slider(maximum, minimum);
            const int before = x == -2 ? minimum : maximum;
            slider.SetValue(before);
            QSignalSpy told(&slider, &CBPSmoothSlider::valueChanged);
            if (x < 0)
                click(rowOf(slider), x == -1 ? 3 : 297);
            else
                click(sliderOf(slider), x);
            QCOMPARE(slider.GetValue(), value);
            QCOMPARE(told.count(), int(value != before));
            QVERIFY(!sliderOf(slider)->isSliderDown());
        }
        // Pressed anywhere the handle is under the pointer and follows it.
        Smooth slider;
        QSlider *inner = sliderOf(slider);
        QTest::mousePress(inner, Qt::LeftButton, Qt::NoModifier, QPoint(285, 22));
        QCOMPARE(slider.GetValue(), 95);
        for (const auto &[x, value] : {std::pair(150, 50), {-900, 0}, {9000, 100}, {30, 10}}) {
            drag(inner, x, 22);
            QCOMPARE(slider.GetValue(), value);
        }
        QTest::mouseRelease(inner, Qt::LeftButton, Qt::NoModifier, QPoint(60, 22));
        QCOMPARE(slider.GetValue(), 20);
        QTest::ignoreMessage(QtWarningMsg, "CBPSmoothSlider: the minimum 50 is above the maximum 10");
        slider.Init(kEnds, 10, 50);
        slider.SetValue(30);
        QCOMPARE(slider.GetValue(), 50);
        click(rowOf(slider), 3);
        QCOMPARE(slider.GetValue(), 50);
    }

    // What listens to the value deletes the slider in the middle of the change.
    void deletedByItsListener()
    {
        for (const QString by : {"label", "slider", "Init"}) {
            auto *jump = new Jump;
            auto *smooth = new Smooth;
            const QVector<QPointer<QWidget>> both{jump, smooth};
            for (QWidget *slider : both)
                sliderOf(*slider)->setValue(by == "Init" ? sliderOf(*slider)->maximum() : 0);
            connect(jump, &CBPJumpSlider::valueChanged, this, [jump] { delete jump; });
            connect(smooth, &CBPSmoothSlider::valueChanged, this, [smooth] { delete smooth; });
            if (by == "Init") {
                jump->Init(kEnds);
                smooth->Init(kEnds, 10, 0);
            }
            for (const QPointer<QWidget> &slider : both) {
                for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
                    if (!slider)
                        continue;
                    QWidget *part = rowOf(*slider);
                    part = by == "label" ? part : sliderOf(*slider);
                    sendMouse(*part, type, Qt::LeftButton, QPoint(297, 6));
                }
                QVERIFY2(!slider, qPrintable(by));
            }
        }
    }
};

LUMQT_TEST_MAIN(TestSliders)
#include "tst_sliders.moc"
