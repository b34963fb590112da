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

    void grids()
    {
        const struct
        {
            int names;
            const char *extra, *all;
            int buttons;
            QPoint last; // column and row
        } rows[] = {{0, "", "", 0, {}},       {31, "", "All", 32, {3, 4}}, {31, "Last", "All", 33, {4, 4}},
                    {31, "", "", 31, {2, 4}}, // the last one is wide, whichever it is
                    {7, "", "", 7, {6, 0}},   {0, "", "All", 1, {0, 0}},   {400, "", "", 400, {0, 57}}};
        for (const auto &given : rows) {
            Days selector(days(given.names), given.extra, given.all);
            QCOMPARE(selector.count(), given.buttons);
            auto *grid = qobject_cast<QGridLayout *>(selector.layout());
            QCOMPARE(grid != nullptr, given.buttons > 0);
            for (int i = 0; i < given.buttons; ++i) {
                const bool wide = i == given.buttons - 1;
                int row = 0, column = 0, rowSpan = 0, columns = 0;
                grid->getItemPosition(i, &row, &column, &rowSpan, &columns);
                QCOMPARE(QPoint(column, row), wide ? given.last : QPoint(i % 7, i / 7));
                QCOMPARE(columns, wide ? 4 : 1);
                const CTriStateButton *button = selector.button(i);
                QCOMPARE(button->minimumSize(), QSize(wide ? 255 : 60, 28));
                QCOMPARE(button->maximumSize(), button->minimumSize());
                QCOMPARE(button->font().pixelSize() == 14, button->text() != given.all);
            }
            selector.SetSelected(days(500) << given.extra << given.all);
            QStringList selected = days(given.names);
            if (*given.extra)
                selected << given.extra;
            QCOMPARE(selector.GetSelected(), selected);
        }
    }

    void selection()
    {
        const QStringList rows[][2] = {{{}, {"b", "B", "b"}}, // an empty list keeps all
                                       {{"?"}, {}},
                                       {{"B"}, {"B"}},
                                       {{"b", "a", "b"}, {"a", "b", "b"}}};
        for (const auto &row : rows) {
            QStringList names{"a", "b", "B", "b"};
            Days daily(names, QString(), "All");
            CBPWeekSelector weekly(names);
            QSignalSpy spy(&daily, &CBPDaySelector::sigBtnClicked);
            for (const QStringList &texts : {QStringList{"b", "B"}, row[0]}) {
                daily.SetSelected(texts);
                weekly.SetSelected(texts);
            }
            QCOMPARE(daily.GetSelected(), row[1]);
            QCOMPARE(weekly.GetSelected(), row[1]);
            QVERIFY(spy.isEmpty());
        }
    }

    void signalsOfBoth()
    {
        Days daily(days(3), QString(), "All");
        QSignalSpy spy(&daily, &CBPDaySelector::sigBtnClicked);
        for (const Click how : {Click::Left, Click::Space, Click::Tool}) {
            daily.SetSelected({"?"});
            click(daily.button(1), how);
            QCOMPARE(spy.takeFirst().first().toBool(), false);
            QCOMPARE(daily.GetSelected(), QStringList("2"));
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
        for (const QString all : {"", "All"}) {
            Days daily({all, "a"}, QString(), all);
            click(daily.button(0), Click::Left);
            QCOMPARE(daily.GetSelected(), QStringList("a"));
        }
        QStringList nameless{QString(), QString()};
        CBPWeekSelector weekly(nameless);
        click(weekly.findChild<CTriStateButton *>(), Click::Left);
        QCOMPARE(weekly.GetSelected(), QStringList(QString()));
        QStringList none;
        QCOMPARE(CBPWeekSelector(none).GetSelected(), QStringList());
    }

    void disabledShowsTheChosen()
    {
        Days daily(days(3), QString(), "All");
        daily.setEnabled(false);
        const QImage plain = pictureOf(*daily.button(1));
        daily.SetSelected({"2"});
        QVERIFY(pictureOf(*daily.button(1)) != plain);
    }

    void deletedInItsOwnSignal()
    {
        for (const int index : {0, 3}) {
            for (const Click how : {Click::Left, Click::Space, Click::Enter, Click::Tool}) {
                QPointer<Days> daily = new Days(days(3), QString(), "All");
                daily->button(index)->setAutoDefault(true);
                connect(daily.data(), &CBPDaySelector::sigBtnClicked, this, [&] { delete daily.data(); });
                click(daily->button(index), how);
                QVERIFY(!daily);
            }
        }
    }

    // From one button to the next, by their numbers in the order of the layout.
    void arrows()
    {
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
        Days daily(days(31), QString(), "All");
        showActive(daily);
        for (const auto &row : rows) {
            daily.SetSelected({"?"});
            daily.button(row.from)->setFocus();
            QTest::keyClick(daily.button(row.from), row.key);
            QCOMPARE(daily.focusWidget(), daily.button(row.to));
            QTest::keyClick(daily.focusWidget(), Qt::Key_Space);
            QCOMPARE(daily.GetSelected().size(), row.to == 31 ? 31 : 1);
            int stops = 0;
            for (int i = 0; i < daily.count(); ++i)
                stops += daily.button(i)->focusPolicy() & Qt::TabFocus ? 1 : 0;
            QCOMPARE(stops, 1);
        }
    }
};

LUMQT_TEST_MAIN(TestSelectors)
#include "tst_selectors.moc"
