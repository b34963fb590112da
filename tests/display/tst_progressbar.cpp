#include "Await.h"
#include "CBPGradientProgressBar.h"
#include "CBPTheme.h"
#include "Later.h"
#include "Pixels.h"
#include "TestMain.h"

#include <QAccessible>
#include <QBackingStore>
#include <QTimer>

#include <limits>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr int kWidth = 200;

// Columns of the middle row that are filled, from the left. Each look is a repaint.
int filledBy(QWidget &bar)
{
    const QImage image = bar.grab().toImage();
    int filled = 0;
    for (int x = 0; x < image.width(); ++x)
        filled += image.pixelColor(x, 4).red() < 150;
    return filled;
}

QVector<int> intervalsOf(const QWidget &bar, bool activeOnly)
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVector<int> intervals;
    for (const QTimer *timer : bar.findChildren<QTimer *>()) {
        if (timer->isActive() || !activeOnly)
            intervals << timer->interval();
    }
    std::sort(intervals.begin(), intervals.end());
    return intervals;
}

struct Bar : CBPGradientProgressBar
{
    template <class Value>
    explicit Bar(Value value, const QColor &highlight = QColor())
        : CBPGradientProgressBar(Qt::black, highlight)
    {
        resize(kWidth, 8);
        setValue(value);
    }
    using CBPGradientProgressBar::setTextShown;
};

QImage picture(QWidget &widget)
{
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

// What was painted there before, and is flushed to the screen.
QImage onScreen(const QWidget &window)
{
    QBackingStore *store = window.backingStore();
    const bool isReady = store && !store->size().isEmpty(); // or Windows has no picture to look at
    QPaintDevice *surface = isReady ? store->paintDevice() : nullptr;
    const auto *image =
        surface && surface->devType() == QInternal::Image ? static_cast<QImage *>(surface) : nullptr;
    const QRect whole(QPoint(0, 0), window.size() * window.devicePixelRatioF());
    return image ? image->copy(whole).convertToFormat(QImage::Format_RGB32) : QImage();
}

// While it lives, no timer of the bar does anything.
class Stopped : public QObject
{
public:
    explicit Stopped(const QObject &bar) : m_bar(bar) { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        return event->type() == QEvent::Timer && watched->parent() == &m_bar;
    }

private:
    const QObject &m_bar;
};

// Repaints, without any timer. Once more for those that a repaint asked for.
void deliver()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents();
}

} // namespace

class TestProgressBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { CBPTheme::apply(QStringLiteral("light")); }

    // The first value shows at once.
    void values()
    {
        const std::tuple<double, int, int> rows[] = {
            {0.0, 2, 1},       {-1.0, 2, 1},    {0.5, 100, 50},        {0.99995, 199, 100},
            {1.0, 199, 100},   {7.0, 199, 100}, {kInfinity, 199, 100}, {-kInfinity, 2, 1},
            {0.9999, 199, 99}, {1e-300, 2, 1},  {0.29, 57, 29},        {std::nan(""), 0, 0}};
        for (const auto &[value, filled, told] : rows) {
            CBPGradientProgressBar bar(Qt::black, QColor());
            bar.resize(kWidth, 8);
            QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(&bar);
            QVERIFY(spoken->role() == QAccessible::ProgressBar && spoken->state().readOnly);
            QAccessibleValueInterface *number = spoken->valueInterface();
            QVERIFY(number->minimumValue() == 0 && number->maximumValue() == 100 &&
                    number->minimumStepSize() == 1);
            QCOMPARE(number->currentValue().toInt(), 0);
            if (qIsNaN(value))
                QTest::ignoreMessage(QtWarningMsg,
                                     "CBPGradientProgressBar: a value that is not a number is ignored");
            bar.setValue(value);
            QCOMPARE(filledBy(bar), filled);
            QCOMPARE(bar.height(), 8);
            number->setCurrentValue(77);
            QCOMPARE(number->currentValue().toInt(), told); // per cent
            QCOMPARE(spoken->text(QAccessible::Value), QString("%1%").arg(told));
        }
        for (const auto &[percent, filled] :
             {std::pair(INT_MIN, 2), {1, 2}, {29, 57}, {100, 199}, {INT_MAX, 199}}) {
            Bar bar(percent);
            QCOMPARE(filledBy(bar), filled);
        }
    }

    // A pixel with each repaint on the way up, at once on the way down.
    void growth()
    {
        Bar bar(0.5);
        bar.setValue(0.515);
        for (const int filled : {101, 102, 103, 103})
            QCOMPARE(filledBy(bar), filled);
        bar.setValue(0.25);
        QCOMPARE(filledBy(bar), 50);
    }

    // Of the growth; the sweep has 20 ms.
    void intervals()
    {
        const std::tuple<double, double, int> rows[] = {
            {0.5, 0.6, 10}, {0.6, 0.1, 2}, {0.97, 0.985, 1}, {0.5, 0.99995, 1}, {0.5, 0.5 + 1e-12, INT_MAX},
            {0.01, 0.97, 1}};
        for (const auto &[from, to, interval] : rows) {
            Bar bar(from);
            bar.setValue(from);
            QCOMPARE(intervalsOf(bar, false), QVector<int>{20});
            bar.setValue(to);
            QCOMPARE(intervalsOf(bar, false), (QVector<int>{qMin(20, interval), qMax(20, interval)}));
        }
    }

    void timersOnlyWhereSeen()
    {
        CBPGradientProgressBar bar;
        bar.resize(kWidth, 8);
        QCOMPARE(intervalsOf(bar, false), QVector<int>());
        bar.setValue(0.5);
        bar.setValue(0.95); // not shown yet: nothing ticks
        QCOMPARE(intervalsOf(bar, true), QVector<int>());
        bar.show();
        QCOMPARE(intervalsOf(bar, true), (QVector<int>{2, 20}));
        bar.hide();
        QCOMPARE(intervalsOf(bar, true), QVector<int>());
        bar.show();
        AWAIT_EQUAL(intervalsOf(bar, true), QVector<int>{20}); // grown up; the highlight goes on
        bar.setValue(1.0);
        AWAIT_EQUAL(intervalsOf(bar, false), QVector<int>()); // at rest
        bar.setValue(1.0);
        QCOMPARE(intervalsOf(bar, true), QVector<int>{20});
        AWAIT_EQUAL(intervalsOf(bar, false), QVector<int>());
        bar.setValue(0.4);
        AWAIT_EQUAL(intervalsOf(bar, true), QVector<int>{20});
        QVERIFY(qAbs(filledBy(bar) - 80) <= 1); // the highlight may tint the edge
    }

    // Values that come faster than it grew do not keep it from growing.
    void keepsUp()
    {
        Bar bar(0.1);
        bar.show();
        bar.setValue(0.11);
        QCOMPARE(intervalsOf(bar, true), (QVector<int>{20, 100}));
        int grown = 0;
        for (QTimer *timer : bar.findChildren<QTimer *>()) {
            if (timer->interval() != 20)
                connect(timer, &QTimer::timeout, this, [&grown] { ++grown; });
        }
        double value = 0.11;
        AWAIT((bar.setValue(value = qMin(0.96, value + 0.0005)), grown >= 5)); // faster than it repaints
    }

    // Shown all the same, and never painted.
    void restsOutOfSight()
    {
        for (const QRect &away : {QRect(-300, 0, kWidth, 8), QRect(0, 0, 0, 8)}) { // scrolled away; no width
            QWidget window;
            window.resize(300, 50);
            CBPGradientProgressBar bar;
            bar.setParent(&window);
            bar.setGeometry(away);
            bar.setValue(0.5);
            window.show();
            AWAIT_EQUAL(intervalsOf(bar, true), QVector<int>());
            bar.setValue(0.9);
            AWAIT_EQUAL(intervalsOf(bar, true), QVector<int>());
            bar.setGeometry(0, 0, kWidth, 8);
            AWAIT_EQUAL(intervalsOf(bar, true), QVector<int>{20}); // grown up
            QVERIFY(qAbs(filledBy(bar) - 180) <= 1);
            bar.setParent(nullptr);
        }
    }

    // On the screen, where it paints what has changed, it looks as if it were painted as a whole.
    void paintsWhatChanged_data()
    {
        QTest::addColumn<QString>("theme");
        for (const char *theme : {"light", "dark", "contrast"})
            QTest::newRow(theme) << theme;
    }

    void paintsWhatChanged()
    {
        QFETCH(QString, theme);
        CBPTheme::apply(theme);
        Bar bar(0.4, Qt::red);
        const Stopped clock(bar); // the test is the clock
        bar.show();
        AWAIT(onScreen(bar) == picture(bar));
        int width = 80;
        int ticks = 0;
        const auto compare = [&] {
            deliver();
            Bar whole((width + 0.5) / kWidth, Qt::red);
            for (int i = 0; i < ticks; ++i)
                whole.slotGradientTimerOut();
            QCOMPARE(onScreen(bar), picture(whole));
        };
        bar.setValue(0.6);
        for (; width < 120; ++width) {
            compare();
            if (width % 4 == 0 && ++ticks)
                bar.slotGradientTimerOut();
            if (width % 14 == 5 && ++width)
                bar.repaint(QRect(3, 2, 20, 3)); // somebody else's, and one more for the rest
            else
                bar.slotDrawBarTimeOut();
        }
        compare();
        for (; ticks < 80; ++ticks) { // once round
            compare();
            bar.slotGradientTimerOut();
        }
        bar.setValue(0.2);
        bar.slotDrawBarTimeOut();
        deliver();
        QCOMPARE(onScreen(bar), picture(bar));
        bar.setValue(1.0);
        for (int i = 0; i < kWidth; ++i) {
            bar.slotDrawBarTimeOut();
            deliver();
        }
        QCOMPARE(onScreen(bar), picture(bar));
    }

    // One that somebody else asked for is followed by one more, and not by one after the other.
    void growsByTheClock()
    {
        Bar bar(0.4);
        const Stopped clock(bar);
        bar.show();
        AWAIT(onScreen(bar) == picture(bar));
        bar.setValue(0.9);
        bar.repaint(QRect(3, 2, 20, 3));
        for (int i = 0; i < 20; ++i)
            deliver();
        QVERIFY(filledBy(bar) < 90);
    }

    // Wherever it lies between the pixels of a screen.
    void fractions()
    {
        Bar moved(0.5, Qt::red);
        for (int y = 0; y < 16; ++y) {
            const auto drawn = [y](QWidget &bar) {
                QImage image(300, 30, QImage::Format_ARGB32_Premultiplied);
                image.setDevicePixelRatio(1.25);
                image.fill(Qt::transparent);
                bar.render(&image, QPoint(y, y), QRegion(), QWidget::DrawChildren);
                return image;
            };
            Bar bar(0.5, Qt::red);
            const QImage image = drawn(bar);
            QCOMPARE(drawn(moved), image);
            const auto isPainted = [&](int row) { return image.pixelColor(200, row).alpha() == 255; };
            const int top = qRound(y * 1.25);
            const int bottom = qRound((y + 7) * 1.25); // the first below
            QVERIFY(isPainted(top) && isPainted(bottom - 1) && !isPainted(bottom));
        }
    }

    // What is kept of the picture goes with its colours.
    void recoloured()
    {
        Bar bar(0.5, Qt::red);
        for (const char *theme : {"dark", "contrast", "light"}) {
            CBPTheme::apply(QLatin1String(theme));
            for (const QColor &highlight : {QColor(Qt::green), QColor(255, 0, 0, 90)}) {
                bar.setColorTwo(highlight);
                Bar fresh(0.5, highlight);
                QCOMPARE(picture(bar), picture(fresh));
            }
        }
    }

    void resizing()
    {
        for (const auto &[shown, rescales, filled] :
             {std::tuple(true, true, 200), {true, false, 101}, {false, true, 200}}) {
            Bar bar(0.5);
            bar.setIsVisible(rescales);
            bar.setVisible(shown); // if not, it is laid out before it is shown
            bar.resize(2 * kWidth, 8);
            QCOMPARE(filledBy(bar), filled);
        }
    }

    // A full bar that lost its width has nothing to scale, and must fill again all the same.
    void fullAgain()
    {
        CBPGradientProgressBar bar;
        bar.resize(40, 8);
        bar.setValue(1.0);
        bar.show();
        AWAIT_EQUAL(intervalsOf(bar, false), QVector<int>());
        bar.resize(0, 8);
        bar.resize(40, 8);
        AWAIT_EQUAL(filledBy(bar), 39);
        AWAIT_EQUAL(intervalsOf(bar, false), QVector<int>());
    }

    // From the pause on: a sweep starts 500 pixels and the bar's width before the end.
    void highlight()
    {
        Bar bar(0.5, Qt::red);
        const auto sweptAt = [&bar](int ticks) {
            for (int i = 0; i < ticks; ++i)
                bar.slotGradientTimerOut();
            return bar.grab().toImage().pixelColor(50, 4).red() > 200;
        };
        QVERIFY(sweptAt(0) && !sweptAt(10) && !sweptAt(39) && sweptAt(11));
    }

    // The number follows by half a per cent with each repaint and is truncated; in a full bar it jumps.
    // A quarter of the bar travels, or stands in the middle for who wants nothing to move; the value comes
    // back.
    void busy()
    {
        const auto restore = restoring(lumqt::platform::answers().lessMotion);
        Bar bar(0.5);
        bar.setBusy(true);
        QVERIFY(qAbs(filledBy(bar) - kWidth / 4) <= 2);
        QVERIFY(grabbedAt(bar, 20, 4).red() > 150 && grabbedAt(bar, kWidth / 2, 4).red() < 150);
        QAccessibleInterface *face = QAccessible::queryAccessibleInterface(&bar);
        QVERIFY(face->state().busy && face->text(QAccessible::Value).isEmpty());
        lumqt::platform::answers().lessMotion = [] { return false; };
        QVERIFY(grabbedAt(bar, 20, 4).red() < 150);
        for (int tick = 0; tick < 30; ++tick)
            bar.slotGradientTimerOut();
        QVERIFY(grabbedAt(bar, 20, 4).red() > 150 && qAbs(filledBy(bar) - kWidth / 4) <= 2);
        bar.setBusy(false);
        QCOMPARE(filledBy(bar), kWidth / 2);
        QVERIFY(!face->state().busy && !face->text(QAccessible::Value).isEmpty());
        CBPGradientProgressBar empty; // which costs no timer before and after
        empty.show();
        empty.setBusy(true);
        QCOMPARE(intervalsOf(empty, true).size(), 1);
        empty.setBusy(false);
        QVERIFY(intervalsOf(empty, true).isEmpty());
    }

    void text()
    {
        Bar bar(0.2);
        bar.setFixedHeight(20);
        bar.setTextShown(true);
        const auto number = [&bar] { return bar.grab(QRect(80, 0, 40, 20)).toImage(); };
        QImage before = number();
        const QRect ink = inkOf(before);
        QVERIFY2(!ink.isEmpty() && qAbs(ink.center().x() - 20) <= 12, wordsOf(ink));
        bar.setValue(0.3);
        QVector<int> changes;
        for (int repaint = 1; repaint <= 25; ++repaint) {
            const QImage now = number();
            if (now != before)
                changes << repaint;
            before = now;
        }
        QCOMPARE(changes, (QVector<int>{2, 4, 6, 8, 10, 12, 14, 16, 18, 20}));
        Bar hundred(1.0), grown(0.5);
        for (Bar *full : {&hundred, &grown}) {
            full->setTextShown(true);
            full->setFixedSize(40, 20);
            full->setValue(1.0);
        }
        for (int repaint = 0; repaint < 21; ++repaint)
            grown.grab();
        QCOMPARE(grown.grab().toImage(), hundred.grab().toImage());
    }
};

LUMQT_TEST_MAIN(TestProgressBar)
#include "tst_progressbar.moc"
