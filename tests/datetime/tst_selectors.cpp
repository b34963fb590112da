#include "Acts.h"
#include "CBPDaySelector.h"
#include "CBPWeekSelector.h"
#include "CTriStateButton.h"
#include "Pixels.h"
#include "TestMain.h"

#include <QGridLayout>
#include <QSignalSpy>

namespace {

QStringList days(int count)
{
    QStringList names;
    for (int i = 1; i <= count; ++i)
        names << QString::number(i);
    return names;
}

struct Days : public CBPDaySelector
{
    Days(QStringList names, QString extra, QString all) : CBPDaySelector(names, extra, all) {}

    // In the order of the layout, the one that selects all included.
    CTriStateButton *button(int index) const
    {
        auto *item = layout() ? layout()->itemAt(index) : nullptr;
        return item ? qobject_cast<CTriStateButton *>(item->widget()) : nullptr;
    }
    int count() const { return layout() ? layout()->count() : 0; }
};

} // namespace

class TestSelectors : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QFont font = QApplication::font();
        font.setPixelSize(11); // the choices have a size of their own
        QApplication::setFont(font);
    }

    void grids_data()
    {
        QTest::addColumn<int>("names");
        QTest::addColumn<QString>("extra");
        QTest::addColumn<QString>("all");
        QTest::addColumn<int>("buttons");
        QTest::addColumn<QPoint>("last"); // column and row
        const QString none;
        QTest::newRow("nothing") << 0 << none << none << 0 << QPoint();
        QTest::newRow("month") << 31 << none << QStringLiteral("All") << 32 << QPoint(3, 4);
        QTest::newRow("month and extra")
            << 31 << QStringLiteral("Last") << QStringLiteral("All") << 33 << QPoint(4, 4);
        QTest::newRow("the last is wide") << 31 << none << none << 31 << QPoint(2, 4);
        QTest::newRow("one row") << 7 << none << none << 7 << QPoint(6, 0);
        QTest::newRow("only all") << 0 << none << QStringLiteral("All") << 1 << QPoint(0, 0);
        QTest::newRow("many") << 400 << none << none << 400 << QPoint(0, 57);
    }

    void grids()
    {
        QFETCH(int, names);
        QFETCH(QString, extra);
        QFETCH(QString, all);
        QFETCH(int, buttons);
        QFETCH(QPoint, last);
        Days selector(days(names), extra, all);
        QCOMPARE(selector.count(), buttons);
        auto *grid = qobject_cast<QGridLayout *>(selector.layout());
        QCOMPARE(grid != nullptr, buttons > 0);
        for (int i = 0; i < buttons; ++i) {
            const bool wide = i == buttons - 1;
            int row = 0, column = 0, rows = 0, columns = 0;
            grid->getItemPosition(i, &row, &column, &rows, &columns);
            QCOMPARE(QPoint(column, row), wide ? last : QPoint(i % 7, i / 7));
            QCOMPARE(columns, wide ? 4 : 1);
            QCOMPARE(selector.button(i)->minimumSize(), QSize(wide ? 255 : 60, 28));
            QCOMPARE(selector.button(i)->maximumSize(), selector.button(i)->minimumSize());
            QCOMPARE(selector.button(i)->font().pixelSize() == 14, selector.button(i)->text() != all);
        }
        selector.SetSelected(days(500) << extra << all);
        QCOMPARE(selector.GetSelected(), extra.isEmpty() ? days(names) : days(names) << extra);
    }

    void selection_data()
    {
        QTest::addColumn<QStringList>("set");
        QTest::addColumn<QStringList>("selected");
        const QStringList before{QStringLiteral("b"), QStringLiteral("B"), QStringLiteral("b")};
        QTest::newRow("empty keeps all") << QStringList() << before;
        QTest::newRow("strangers clear") << QStringList(QStringLiteral("?")) << QStringList();
        QTest::newRow("by case") << QStringList(QStringLiteral("B")) << QStringList(QStringLiteral("B"));
        QTest::newRow("in order, with twins")
            << QStringList{QStringLiteral("b"), QStringLiteral("a"), QStringLiteral("b")}
            << QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("b")};
    }

    void selection()
    {
        QFETCH(QStringList, set);
        QStringList names{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("B"), QStringLiteral("b")};
        Days daily(names, QString(), QStringLiteral("All"));
        CBPWeekSelector weekly(names);
        QSignalSpy spy(&daily, &CBPDaySelector::sigBtnClicked);
        daily.SetSelected({QStringLiteral("b"), QStringLiteral("B")});
        weekly.SetSelected({QStringLiteral("b"), QStringLiteral("B")});
        daily.SetSelected(set);
        weekly.SetSelected(set);
        QTEST(daily.GetSelected(), "selected");
        QTEST(weekly.GetSelected(), "selected");
        QVERIFY(spy.isEmpty());
    }

    void signalsOfBoth()
    {
        Days daily(days(3), QString(), QStringLiteral("All"));
        QSignalSpy spy(&daily, &CBPDaySelector::sigBtnClicked);
        for (const Click how : {Click::Left, Click::Space, Click::Tool}) {
            daily.SetSelected({QStringLiteral("?")});
            click(daily.button(1), how);
            QCOMPARE(spy.takeFirst().first().toBool(), false);
            QCOMPARE(daily.GetSelected(), QStringList(QStringLiteral("2")));
            click(daily.button(3), how);
            QCOMPARE(spy.takeFirst().first().toBool(), true);
            QCOMPARE(daily.GetSelected(), days(3));
            QVERIFY(spy.isEmpty() && !daily.button(3)->IsChecked());
        }
        QStringList names = days(2);
        CBPWeekSelector weekly(names);
        QSignalSpy other(&weekly, &CBPWeekSelector::sigBtnClicked);
        click(weekly.findChild<CTriStateButton *>(), Click::Left);
        QCOMPARE(other.takeFirst().first().toBool(), false);
        delete weekly.findChild<CTriStateButton *>(); // no list keeps what is gone
        QVERIFY(weekly.GetSelected().isEmpty());
        delete daily.button(0);
        click(daily.button(2), Click::Left);
        QCOMPARE(daily.GetSelected().size(), 2);
    }

    void namesLikeThatOfAll()
    {
        // An empty name equals the text of a button that was not asked for.
        Days empty({QString(), QStringLiteral("a")}, QString(), QString());
        click(empty.button(0), Click::Left);
        QCOMPARE(empty.GetSelected(), QStringList(QStringLiteral("a")));
        Days twins({QStringLiteral("All"), QStringLiteral("a")}, QString(), QStringLiteral("All"));
        click(twins.button(0), Click::Left);
        QCOMPARE(twins.GetSelected(), QStringList(QStringLiteral("a")));
        QStringList nameless{QString(), QString()};
        CBPWeekSelector weekly(nameless);
        click(weekly.findChild<CTriStateButton *>(), Click::Left);
        QCOMPARE(weekly.GetSelected(), QStringList(QString()));
        QStringList none;
        QCOMPARE(CBPWeekSelector(none).GetSelected(), QStringList());
    }

    void disabledShowsTheChosen()
    {
        Days daily(days(3), QString(), QStringLiteral("All"));
        daily.setEnabled(false);
        const QImage plain = pictureOf(*daily.button(1));
        daily.SetSelected({QStringLiteral("2")});
        QVERIFY(pictureOf(*daily.button(1)) != plain);
    }

    void deletedInItsOwnSignal()
    {
        for (const int index : {0, 3}) {
            for (const Click how : {Click::Left, Click::Space, Click::Enter, Click::Tool}) {
                QPointer<Days> daily = new Days(days(3), QString(), QStringLiteral("All"));
                daily->button(index)->setAutoDefault(true);
                connect(daily.data(), &CBPDaySelector::sigBtnClicked, this, [&] { delete daily.data(); });
                click(daily->button(index), how);
                QVERIFY(!daily);
            }
        }
    }

    // From one button to the next, by their numbers in the order of the layout.
    void arrows_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("to");
        const struct
        {
            int from;
            Qt::Key key;
            int to;
        } rows[] = {{0, Qt::Key_Right, 1},  {1, Qt::Key_Left, 0},   {0, Qt::Key_Left, 0},
                    {0, Qt::Key_Up, 0},     {0, Qt::Key_Down, 7},   {10, Qt::Key_Up, 3},
                    {6, Qt::Key_Right, 6},  {22, Qt::Key_Down, 29}, {24, Qt::Key_Down, 31},
                    {27, Qt::Key_Down, 31}, {31, Qt::Key_Left, 30}, {31, Qt::Key_Down, 31},
                    {31, Qt::Key_Home, 0},  {9, Qt::Key_End, 31},   {31, Qt::Key_Up, 26}};
        for (const auto &row : rows)
            QTest::addRow("%d %x", row.from, uint(row.key)) << row.from << int(row.key) << row.to;
    }

    void arrows()
    {
        QFETCH(int, from);
        QFETCH(int, key);
        QFETCH(int, to);
        Days daily(days(31), QString(), QStringLiteral("All"));
        daily.show();
        daily.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&daily));
        daily.button(from)->setFocus();
        QTest::keyClick(daily.button(from), Qt::Key(key));
        QCOMPARE(daily.focusWidget(), daily.button(to));
        QTest::keyClick(daily.focusWidget(), Qt::Key_Space);
        QCOMPARE(daily.GetSelected().size(), to == 31 ? 31 : 1);
        int stops = 0;
        for (int i = 0; i < daily.count(); ++i)
            stops += daily.button(i)->focusPolicy() & Qt::TabFocus ? 1 : 0;
        QCOMPARE(stops, 1);
    }
};

LUMQT_TEST_MAIN(TestSelectors)
#include "tst_selectors.moc"
