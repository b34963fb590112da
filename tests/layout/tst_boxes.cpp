#include "Acts.h"
#include "Await.h"
#include "CBPBox.h"
#include "CBPFrameBox.h"
#include "CBPGridBox.h"
#include "CBPWidget.h"
#include "Pixels.h"
#include "TestMain.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPointer>

#include <tuple>

namespace {

const QColor kNothing(1, 2, 3); // what lies below a widget
const QColor kCell(120, 200, 120);
const QColor kLine(215, 215, 215);
const QColor kBand(250, 250, 250);

QImage picture(QWidget &widget, qreal ratio = 1.0)
{
    return pictureOf(widget, ratio, kNothing);
}

QWidget *cell(int width)
{
    auto *result = new CBPWidget;
    result->setBrush(kCell);
    result->setFixedSize(width, 20);
    return result;
}

QLabel *label(const char *name)
{
    auto *result = new QLabel(name);
    result->setObjectName(name);
    return result;
}

// What a box holds: widgets by their names, nested layouts in brackets, spaces by their sizes; with the
// stretch factors there are.
QString contentsOf(QLayout *layout)
{
    QStringList all;
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        if (item->widget())
            all << item->widget()->objectName();
        else if (item->layout())
            all << '[' + contentsOf(item->layout()) + ']';
        else
            all << QString("%1x%2").arg(item->sizeHint().width()).arg(item->sizeHint().height());
        if (const int stretch = qobject_cast<QBoxLayout *>(layout)->stretch(i))
            all.last() += QString("*%1").arg(stretch);
    }
    return all.join(' ');
}

// A row of cells of these widths in its box; the first cell goes once it is there.
QImage gridOf(const QVector<int> &widths, Qt::LayoutDirection direction, bool firstDies)
{
    CBPGridBox box(false, false, 9);
    box.setLayoutDirection(direction);
    for (const int width : widths)
        box.PackStart(cell(width), false, false, 0, Qt::AlignLeft);
    if (firstDies)
        delete box.layout()->itemAt(0)->widget();
    box.setFixedSize(100, 22);
    box.ensurePolished();
    box.layout()->activate();
    return picture(box);
}

} // namespace

class TestBoxes : public QObject
{
    Q_OBJECT

private slots:
    void widgetFollowsItsSetters()
    {
        CBPWidget widget;
        widget.resize(20, 10);
        widget.Show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget, kPatience));
        QCOMPARE(boxOf(picture(widget), Qt::white), widget.rect());
        QVERIFY(repaints(widget, [&] { widget.setPen(QPen(Qt::blue)); }));
        QVERIFY(repaints(widget, [&] { widget.setBrush(Qt::NoBrush); }));
        widget.Hide();
        QVERIFY(!widget.isVisible());
    }

    void frame()
    {
        CBPBox box;
        box.resize(40, 20);
        box.show();
        QVERIFY(QTest::qWaitForWindowExposed(&box, kPatience));
        QVERIFY(!repaints(box, [&] { box.SetDrawFrame(true); })); // shows at the next one
        QVERIFY(repaints(box, [&] { box.SetFrameClr(Qt::blue); }));
        QVERIFY(repaints(box, [&] { box.SetBgClr(Qt::green); }));
        for (const qreal ratio : {1.5, 2.0}) {
            const QImage image = picture(box, ratio);
            const int width = qRound(ratio);
            QCOMPARE(boxOf(image, Qt::blue), image.rect());
            QCOMPARE(boxOf(image, Qt::green), image.rect().adjusted(width, width, -width, -width));
        }
    }

    // A column that expands, a row, and a space of nothing, which is an item all the same. Further ones go in
    // front, behind the first space, and to the end, where there is no such index.
    void packs()
    {
        const std::tuple<bool, bool, int, const char *, int, const char *> rows[] = {
            {false, false, 5, "a 5x0 [b]*3 5x0", 2, "a 5x0 x*2 [b]*3 5x0"},
            {true, true, 12, "a 0x12 [b]*3 0x12", -7, "a 0x12 [b]*3 0x12 x*2"},
            {false, true, 0, "a 0x0 [b]*3 0x0", 5, "a 0x0 [b]*3 0x0 x*2"},
            {false, true, 0, "a 0x0 [b]*3 0x0", 4, "a 0x0 [b]*3 0x0 x*2"},
            {true, false, 1, "a 0x1 [b]*3 0x1", 0, "x*2 a 0x1 [b]*3 0x1"}};
        for (const auto &[vertical, expand, padding, packed, index, inserted] : rows) {
            CBPBox box(vertical, true, 7);
            QVERIFY(!box.parent() && box.layout()->spacing() == 7);
            QLabel *a = label("a");
            a->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Maximum);
            box.PackStart(a, expand, true, padding, Qt::AlignBottom);
            QCOMPARE(box.layout()->itemAt(0)->alignment(), Qt::AlignBottom);
            QCOMPARE(a->sizePolicy().horizontalPolicy(),
                     expand ? QSizePolicy::Expanding : QSizePolicy::Fixed);
            QCOMPARE(a->sizePolicy().verticalPolicy(),
                     expand ? QSizePolicy::Expanding : QSizePolicy::Maximum);
            auto *inner = new QHBoxLayout;
            inner->addWidget(label("b"));
            box.PackStart(inner, padding, 3);
            QCOMPARE(contentsOf(box.layout()), packed);
            box.InsertWidget(index, label("x"), 2, Qt::AlignTop);
            QCOMPARE(contentsOf(box.layout()), inserted);
            QCOMPARE(box.layout()->itemAt(box.layout()->indexOf(box.findChild<QLabel *>("x")))->alignment(),
                     Qt::AlignTop);
            box.SetSpacing(3);
            box.SetBorderWidth(1, 2, 3, 4);
            QVERIFY(box.layout()->spacing() == 3 && box.contentsMargins() == QMargins(1, 2, 3, 4));
            QCOMPARE(box.layout()->contentsMargins(), QMargins());
            for (const int wrong : {QLayout::SetDefaultConstraint - 1, QLayout::SetMinAndMaxSize + 1}) {
                for (const int right : {QLayout::SetDefaultConstraint, QLayout::SetMinAndMaxSize}) {
                    box.SetSizeConstraint(right);
                    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("is no size constraint"));
                    box.SetSizeConstraint(wrong);
                    QCOMPARE(int(box.layout()->sizeConstraint()), right);
                }
            }
        }
    }

    void leavesOutWhatItCannotHold()
    {
        QWidget window;
        auto *outer = new QVBoxLayout(&window);
        auto *box = new CBPGridBox;
        auto *frameBox = new CBPFrameBox(10, 10);
        outer->addWidget(box);
        outer->addWidget(frameBox);
        CBPBox &base = *box;
        box->PackStart(static_cast<QWidget *>(nullptr), true, false, 5);
        box->PackStart(static_cast<QLayout *>(nullptr), 5, 1);
        box->InsertWidget(0, nullptr);
        box->AddSpacerItem(nullptr);
        box->RemoveChild(nullptr, true);
        box->RemoveChild(&window, true);
        auto *around = new QHBoxLayout;
        auto *nested = new QHBoxLayout;
        around->addLayout(nested);
        nested->addWidget(&window);
        for (const char *name : {"CBPGridBox", "CBPGridBox", "CBPGridBox", "CBPFrameBox", "CBPGridBox"}) {
            const QString text = QString("A %1 cannot hold itself or a widget that it lies in").arg(name);
            QTest::ignoreMessage(QtWarningMsg, qPrintable(text));
        }
        box->PackStart(&window, true);
        base.PackStart(box);
        box->InsertWidget(0, &window);
        frameBox->AddContentWidget(&window, 3);
        base.PackStart(around, 0, 0);
        delete around;
        frameBox->AddTitleWidget(nullptr, 3);
        frameBox->AddBottomWidget(nullptr, 3);
        QCOMPARE(contentsOf(frameBox->layout()), "[] [] []");
        QVERIFY(!window.parent() && window.sizePolicy().horizontalPolicy() != QSizePolicy::Expanding);
        auto *spacer = new QSpacerItem(9, 9);
        box->AddSpacerItem(spacer);
        box->AddSpacerItem(spacer);
        box->AddSpacing(4);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("already has a parent"));
        QWidget other;
        box->PackStart(new QHBoxLayout(&other), 5, 0); // which stays there, so no space comes behind it
        QCOMPARE(contentsOf(box->layout()), "9x9 4x0");
        QVERIFY(!picture(*box).isNull());
    }

    // All of them, hidden or left where they are, and one of them, at once or deleted later.
    void removes()
    {
        for (const bool hard : {true, false}) {
            CBPBox box(true);
            QPointer<QLabel> first = label("first");
            QPointer<QLabel> second = label("second");
            QPointer<QLabel> nested = label("nested");
            QPointer<QHBoxLayout> inner = new QHBoxLayout;
            inner->addWidget(nested);
            auto *spacer = new QSpacerItem(9, 9);
            box.PackStart(first, false, false, 4);
            box.PackStart(second, false, false, 5);
            box.PackStart(inner, 4, 0);
            box.AddSpacerItem(spacer);
            box.RemoveChild(second, hard);
            box.RemoveChild(nested, hard);                                        // is not its own
            QCOMPARE(contentsOf(box.layout()), "first 0x4 0x5 [nested] 0x4 9x9"); // the space stays
            QVERIFY(second);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCOMPARE(second.isNull(), hard);

            box.show();
            const QRect place = first->geometry();
            box.RemoveChildren(hard);
            QVERIFY(first && nested && contentsOf(box.layout()).isEmpty());
            QCOMPARE(first->isVisible(), !hard);
            QCOMPARE(first->geometry(), place);
            QCOMPARE(first->parentWidget(), &box);
            QVERIFY(nested->isVisible()); // the box knows its own items only
            QCOMPARE(inner.isNull(), hard);
            if (hard)
                continue;
            box.PackStart(inner, 0, 0); // they are the caller's again
            box.AddSpacerItem(spacer);
            QCOMPARE(contentsOf(box.layout()), "[nested] 0x0 9x9");
        }
    }

    // Start, end and time are the caller's, also while another animation is under way.
    void animations()
    {
        CBPBox box(true);
        const struct
        {
            bool opens;
            int start, end, duration, at, until; // the last: -1 waits for a move, -2 not at all
        } steps[] = {{true, 10, 60, 40, 10, 60},        {false, 60, 0, 40, 60, 0},
                     {false, 80, 20, 0, 0, 0}, // it is folded
                     {true, -5, 90, -3, 90, 90},        {true, 0, 1000, 10000, 0, -1},
                     {false, 700, 100, 10000, 700, -1}, {true, 0, 90, 40, 0, -2},
                     {false, 90, 30, 0, 0, 90}}; // folded still: it opens all the same
        for (const auto &step : steps) {
            if (step.opens)
                box.AnimatedExpanding(step.start, step.end, step.duration);
            else
                box.AnimatedCollapse(step.start, step.end, step.duration);
            QCOMPARE(box.maximumHeight(), step.at);
            AWAIT(step.until < 0 || box.maximumHeight() == step.until);
            AWAIT(step.until != -1 || box.maximumHeight() != step.at);
        }
        box.AnimatedHorizontal(QSize(100, 50), QSize(500, 50), 10000);
        AWAIT(box.width() > 100);
        box.AnimatedHorizontal(QSize(500, 20), QSize(80, 50), 40);
        QCOMPARE(box.size(), QSize(500, 20));
        AWAIT_EQUAL(box.size(), QSize(80, 50));
        box.AnimatedHorizontal(QSize(-3, -4), QSize(-5, -6), 0);
        QCOMPARE(box.size(), QSize(0, 0));
    }

    // From the right where the language runs so; a cell that has died has no line behind it.
    void gridLines()
    {
        // Room behind the last cell stays empty.
        QVERIFY(boxOf(gridOf({10}, Qt::LeftToRight, false).copy(1, 1, 98, 20), kLine).isEmpty());
        const QImage three = gridOf({10, 20, 30}, Qt::LeftToRight, false);
        QCOMPARE(boxOf(three.copy(1, 1, 98, 20), kLine), QRect(10, 0, 22, 20));
        QCOMPARE(gridOf({10, 20, 30}, Qt::RightToLeft, false), three.mirrored(true, false));
        QCOMPARE(gridOf({40, 10, 20, 30}, Qt::LeftToRight, true), three);
    }

    // The bands, and what lies between them, are one: only the bottom area is left out. Boxes that are higher
    // than both bands, just as high, lower, and lower than the bottom band.
    void frameBoxBands()
    {
        for (const auto &[height, end] :
             {std::pair(200, 160), std::pair(70, 30), std::pair(50, 30), std::pair(20, 20)}) {
            CBPFrameBox box(30, 40);
            box.resize(60, height);
            QCOMPARE(boxOf(picture(box, 2), kBand), QRect(2, 2, 118, 2 * end - 2));
        }
        for (const int wild : {INT_MIN, INT_MAX}) {
            CBPFrameBox box(wild, wild);
            box.resize(60, 200);
            QVERIFY(!picture(box).isNull());
        }
    }

    void frameBoxRows()
    {
        QWidget window;
        auto *box = new CBPFrameBox(30, 40, &window);
        QVERIFY(!box->parent());
        (new QVBoxLayout(&window))->addWidget(box);
        QCOMPARE(box->parentWidget(), &window);
        box->AddBottomWidget(label("d"), 2);
        box->AddContentWidget(label("c"), 5);
        box->AddTitleWidget(label("a"), 3);
        box->AddTitleWidget(label("b"), 0);
        QCOMPARE(contentsOf(box->layout()), "[a 3x0 b 0x0] [c 0x5] [d 2x0]");
    }
};

LUMQT_TEST_MAIN(TestBoxes)
#include "tst_boxes.moc"
