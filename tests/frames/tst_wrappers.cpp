#include "CBPQtGroupBox.h"
#include "CBPQtLine.h"
#include "CBPQtMainWindow.h"
#include "CBPQtTableView.h"
#include "CBPTableWidget.h"
#include "CBPTreeView.h"
#include "CBPTreeWidget.h"
#include "Pixels.h"
#include "TestMain.h"

#include <QHeaderView>
#include <QVBoxLayout>

namespace {

const QColor kNothing(1, 2, 3);
constexpr auto kEditTriggers = QAbstractItemView::SelectedClicked | QAbstractItemView::EditKeyPressed;

// Within a step of what the gradient rounds to.
bool near(const QColor &color, const QColor &expected)
{
    return qAbs(color.red() - expected.red()) <= 3 && qAbs(color.green() - expected.green()) <= 3 &&
           qAbs(color.blue() - expected.blue()) <= 3;
}

template <class Widget> void checkParent(const char *name, bool taken)
{
    QWidget parent;
    auto *widget = new Widget(&parent);
    QCOMPARE(widget->parentWidget(), taken ? &parent : nullptr);
    auto *layout = new QVBoxLayout(&parent);
    layout->addWidget(widget);
    QCOMPARE(widget->parentWidget(), &parent);
    QCOMPARE(widget->metaObject()->className(), name); // what style sheets go by
}

} // namespace

class TestWrappers : public QObject
{
    Q_OBJECT

private slots:
    void parents()
    {
        checkParent<CBPQtMainWindow>("CBPQtMainWindow", true);
        checkParent<CBPQtGroupBox>("CBPQtGroupBox", true);
        checkParent<CBPQtLine>("CBPQtLine", true);
        checkParent<CBPQtTableView>("CBPQtTableView", true);
        checkParent<CBPTableWidget>("CBPTableWidget", false);
        checkParent<CBPTreeView>("CBPTreeView", false);
    }

    void mainWindowFlags()
    {
        CBPQtMainWindow window(nullptr, Qt::Window | Qt::FramelessWindowHint);
        QVERIFY(window.windowFlags() & Qt::FramelessWindowHint);
    }

    void groupBoxPaintsOnlyItsChildren()
    {
        CBPQtGroupBox box;
        box.setTitle("A title that is not seen");
        box.resize(120, 60);
        auto *child = new QWidget(&box);
        child->setGeometry(20, 30, 10, 10);
        child->setAutoFillBackground(true);
        child->setPalette(QPalette(Qt::red));
        const QColor color = child->palette().color(QPalette::Window);
        const QImage image = pictureOf(box, 1, kNothing);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                QCOMPARE(image.pixelColor(x, y), child->geometry().contains(x, y) ? color : kNothing);
        }
    }

    void lineIsOnePixelWide_data() { scalings(); }

    void lineIsOnePixelWide()
    {
        QFETCH(qreal, ratio);
        CBPQtLine line;
        line.resize(10, 100);
        const QImage image = pictureOf(line, ratio, kNothing);
        const int bottom = image.height() - 1;
        for (int x = 0; x < qRound(ratio); ++x) {
            QVERIFY(near(image.pixelColor(x, 0), QColor(214, 231, 249)));
            QVERIFY(near(image.pixelColor(x, image.height() / 2), QColor(189, 201, 211)));
            QVERIFY(near(image.pixelColor(x, bottom), QColor(237, 244, 251)));
        }
        QCOMPARE(image.pixelColor(qRound(ratio), bottom / 2), kNothing);
        line.resize(0, 0);
        line.grab();
    }

    void table()
    {
        CBPTableWidget table;
        QCOMPARE(table.frameShape(), QFrame::NoFrame);
        QCOMPARE(table.selectionBehavior(), QAbstractItemView::SelectRows);
        QCOMPARE(table.editTriggers(), kEditTriggers);
        QVERIFY(!table.showGrid() && table.isSortingEnabled());
        QVERIFY(table.hasMouseTracking() && table.viewport()->hasMouseTracking());
        QVERIFY(table.verticalHeader()->isHidden() && !table.horizontalHeader()->highlightSections());
        QCOMPARE(table.textElideMode(), Qt::ElideRight);
        table.setColumnCount(2);
        table.setRowCount(3);
        QCOMPARE(table.rowHeight(2), 41);
        table.show();
        table.selectRow(0);
        QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::ControlModifier,
                          table.visualRect(table.model()->index(2, 1)).center());
        const QModelIndexList selected = table.selectionModel()->selectedRows();
        QVERIFY(selected.size() == 1 && selected.at(0).row() == 2); // one, as a whole
    }

    void tree()
    {
        CBPTreeWidget tree;
        QVERIFY(!tree.parent());
        QCOMPARE(tree.selectionBehavior(), QAbstractItemView::SelectRows);
        QCOMPARE(tree.editTriggers(), kEditTriggers);
        QVERIFY(tree.hasMouseTracking() && tree.viewport()->hasMouseTracking());
        QCOMPARE(tree.contextMenuPolicy(), Qt::CustomContextMenu);
        QVERIFY(tree.isSortingEnabled() && !tree.rootIsDecorated());
        tree.setColumnCount(2);
        for (const char *text : {"b", "a"})
            new QTreeWidgetItem(&tree, {text, "x"});
        tree.sortItems(0, Qt::AscendingOrder);
        tree.show();
        // Events go the base's way, with the flags set too.
        tree.setPtOffsetSwitchOn(true);
        tree.setOffsetPt(true);
        int presses = 0;
        connect(&tree, &QTreeWidget::itemPressed, this, [&presses] { ++presses; });
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::NoModifier,
                          tree.visualItemRect(tree.topLevelItem(0)).center());
        QCOMPARE(presses, 1);
        QCOMPARE(tree.currentItem()->text(0), QString("a"));
        QTest::keyClick(tree.viewport(), Qt::Key_Down);
        QCOMPARE(tree.currentItem()->text(0), QString("b"));
    }
};

LUMQT_TEST_MAIN(TestWrappers)
#include "tst_wrappers.moc"
