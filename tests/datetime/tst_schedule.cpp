#include "Acts.h"
#include "CBPDaySelector.h"
#include "CBPImageButton.h"
#include "CBPWeekSelector.h"
#include "CEditTimeEdit.h"
#include "CTriStateButton.h"
#include "Spoken.h"
#include "TestMain.h"

#include <QLayout>
#include <QSignalSpy>
#include <QTimeEdit>

#include <algorithm>
#include <climits>
#include <tuple>

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
        return qobject_cast<CTriStateButton *>(layout()->itemAt(index)->widget());
    }
    int count() const { return layout() ? layout()->count() : 0; }
};

QList<QTimeEdit *> fieldsOf(const CEditTimeEdit &list)
{
    QList<QTimeEdit *> fields;
    const QLayout *items = list.layout()->itemAt(0)->layout();
    for (int i = 0; i < items->count(); ++i)
        fields << items->itemAt(i)->widget()->findChild<QTimeEdit *>();
    return fields;
}

CBPImageButton *deleteButtonOf(QTimeEdit *field)
{
    return field->parentWidget()->findChild<CBPImageButton *>();
}

CBPImageButton *addButtonOf(CEditTimeEdit &list)
{
    return list.findChild<CBPImageButton *>(QString(), Qt::FindDirectChildrenOnly);
}

struct TimeList : CEditTimeEdit
{
    explicit TimeList(int maxCount, const QVector<QTime> &times = {})
        : CEditTimeEdit("../res/list_normal.png", "../res/delete.png", maxCount)
    {
        Initialize(times);
    }
};

const QTime kMorning(6, 30);
const QTime kNoon(12, 0);
const QTime kEvening(18, 0);

} // namespace

// What schedules are made with: day and week selectors, the list of times.
class TestSchedule : public QObject
{
    Q_OBJECT

private slots:
    void grids()
    {
        // Names, extra text, text of all; buttons.
        const std::tuple<int, QString, QString, int> rows[] = {{0, "", "", 0},   {31, "", "All", 32},
                                                               {31, "", "", 31}, {31, "Last", "All", 33},
                                                               {7, "", "", 7},   {0, "", "All", 1}};
        for (const auto &[names, extra, all, buttons] : rows) {
            Days selector(days(names), extra, all);
            QCOMPARE(selector.count(), buttons);
            QCOMPARE(selector.layout() != nullptr, buttons > 0);
            selector.SetSelected(days(500) << extra << all);
            QCOMPARE(selector.GetSelected(), extra.isEmpty() ? days(names) : days(names) << extra);
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

    // More than once before the event loop takes away what was there: nothing of it stays.
    void changedInARow()
    {
        Days changed(days(3), QString(), "All");
        for (const int count : {5, 0, 4, 2})
            changed.setItems(days(count));
        changed.SetSelected(days(1));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const Days made(days(2), QString(), "All");
        QCOMPARE(changed.children().size(), made.children().size());
        QCOMPARE(changed.GetSelected(), days(1));
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
        auto *button = weekly.findChild<CTriStateButton *>();
        click(button, Click::Left);
        QCOMPARE(weekly.GetSelected(), QStringList(QString()));
        QCOMPARE(button->focusPolicy(), Qt::NoFocus); // nothing to tell of
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
        const std::tuple<int, Qt::Key, int> rows[] = {
            {0, Qt::Key_Right, 1},  {1, Qt::Key_Left, 0},   {0, Qt::Key_Left, 0},   {0, Qt::Key_Up, 0},
            {0, Qt::Key_Down, 7},   {10, Qt::Key_Up, 3},    {6, Qt::Key_Right, 6},  {22, Qt::Key_Down, 29},
            {24, Qt::Key_Down, 31}, {27, Qt::Key_Down, 31}, {31, Qt::Key_Left, 30}, {31, Qt::Key_Down, 31},
            {31, Qt::Key_Home, 0},  {9, Qt::Key_End, 31},   {31, Qt::Key_Up, 26}};
        Days daily(days(31), QString(), "All");
        showActive(daily);
        for (const auto &[from, key, to] : rows) {
            daily.SetSelected({"?"});
            daily.button(from)->setFocus();
            QTest::keyClick(daily.button(from), key);
            QCOMPARE(daily.focusWidget(), daily.button(to));
            QTest::keyClick(daily.focusWidget(), Qt::Key_Space);
            QCOMPARE(daily.GetSelected().size(), to == 31 ? 31 : 1);
            int stops = 0;
            for (int i = 0; i < daily.count(); ++i)
                stops += daily.button(i)->focusPolicy() & Qt::TabFocus ? 1 : 0;
            QCOMPARE(stops, 1);
        }
    }

    void hoursGoRound()
    {
        TimeList list(4);
        QTimeEdit *field = fieldsOf(list).first();
        field->setTime(QTime(23, 59));
        field->setCurrentSection(QDateTimeEdit::HourSection);
        field->stepUp();
        QCOMPARE(list.GetQTimes(), QVector<QTime>{QTime(0, 59)});
    }

    void addAndRemove()
    {
        for (const int maxCount : {INT_MIN, 0, 1, 2, 3, INT_MAX}) {
            for (const int count : {1, 2, 3}) {
                TimeList list(maxCount);
                for (int i = 1; i < count; ++i)
                    addButtonOf(list)->click();
                const QList<QTimeEdit *> fields = fieldsOf(list);
                QCOMPARE(fields.size(), count);
                QCOMPARE(!addButtonOf(list)->isHidden(), count == 1 || count < maxCount);
                for (QTimeEdit *field : fields)
                    QCOMPARE(deleteButtonOf(field)->isHidden(), count == 1);
                for (int left = count - 1; left > 0; --left) {
                    deleteButtonOf(fieldsOf(list).first())->click();
                    QCOMPARE(fieldsOf(list), fields.mid(count - left));
                    QCOMPARE(!addButtonOf(list)->isHidden(), left < maxCount);
                }
                QVERIFY(count == 1 || fields.first()->parentWidget()->isHidden());
                QVERIFY(deleteButtonOf(fields.last())->isHidden());
                deleteButtonOf(fields.last())->click(); // the last one stays
                QCOMPARE(fieldsOf(list).size(), 1);
            }
        }
    }

    void initialize()
    {
        using Times = QVector<QTime>;
        const QTime one(1, 0);
        const Times five{kEvening, kMorning, kNoon, kMorning, QTime(23, 59)};
        const std::pair<Times, Times> rows[] = {{{}, {one, one}}, // by two fields at 01:00
                                                {{kNoon}, {kNoon, one}},
                                                {{QTime(), kNoon}, {one, kNoon}}, // no time
                                                {five, five}}; // more than the greatest count
        for (const auto &[times, kept] : rows) {
            TimeList list(3, {one, one});
            list.Initialize(times);
            QCOMPARE(list.GetQTimes(), kept);
            QCOMPARE(!addButtonOf(list)->isHidden(), kept.size() < 3);
            Times sorted = kept;
            std::sort(sorted.begin(), sorted.end());
            QCOMPARE(list.GetQTimesSorted(), sorted);
            QSignalSpy told(&list, &CEditTimeEdit::timesChanged);
            list.resetTimes();
            QCOMPARE(list.times(), QStringList("00:00"));
            QCOMPARE(told.size(), 1);
            QVERIFY(!addButtonOf(list)->isHidden() && deleteButtonOf(fieldsOf(list).first())->isHidden());
        }
    }

    // By keyboard all through; the focus never leaves the list.
    void listFocus()
    {
        TimeList list(3, {kMorning, kEvening});
        showActive(list);
        CBPImageButton *add = addButtonOf(list);
        const auto press = [](QWidget *button) {
            button->setFocus();
            QTest::keyClick(button, Qt::Key_Space);
        };
        press(add);
        QCOMPARE(QApplication::focusWidget(), fieldsOf(list).last()); // the button is gone
        QList<QTimeEdit *> fields = fieldsOf(list);
        fields.last()->setTime(kNoon);

        press(deleteButtonOf(fields[1]));
        QCOMPARE(list.GetQTimes(), (QVector<QTime>{kMorning, kNoon}));
        QCOMPARE(QApplication::focusWidget(), fields[2]);
        press(add);
        QCOMPARE(QApplication::focusWidget(), fieldsOf(list).last());
        fields = fieldsOf(list);

        // Tab goes through the row, and from its end to the add button.
        press(deleteButtonOf(fields[2]));
        QCOMPARE(QApplication::focusWidget(), fields[1]);
        QVector<QWidget *> chain;
        fields[0]->setFocus();
        for (int i = 0; i < 12; ++i) {
            QWidget *focus = QApplication::focusWidget();
            if (chain.isEmpty() || chain.last() != focus)
                chain << focus;
            QTest::keyClick(focus, Qt::Key_Tab);
        }
        QCOMPARE(chain.mid(0, 5), (QVector<QWidget *>{fields[0], deleteButtonOf(fields[0]), fields[1],
                                                      deleteButtonOf(fields[1]), add}));

        // What has no focus to lose takes none.
        fields[0]->setFocus();
        deleteButtonOf(fields[1])->click();
        QCOMPARE(QApplication::focusWidget(), fields[0]);
    }

    void listNames()
    {
        const auto restore = qScopeGuard([] { QApplication::setLayoutDirection(Qt::LeftToRight); });
        QApplication::setLayoutDirection(Qt::RightToLeft);
        TimeList list(4, {kMorning, kNoon, kEvening});
        deleteButtonOf(fieldsOf(list).first())->click();
        addButtonOf(list)->click();
        QSet<QString> names{spokenName(addButtonOf(list))};
        const QList<QTimeEdit *> fields = fieldsOf(list);
        for (QTimeEdit *field : fields)
            names << spokenName(field) << spokenName(deleteButtonOf(field));
        QCOMPARE(names.size(), 7);
        QVERIFY(!names.contains(QString()));
        QVERIFY(spokenName(fields.first()).contains('1'));
        fields.first()->setDisplayFormat("HH:mm");
        QApplication::setLayoutDirection(Qt::LeftToRight);
        QCOMPARE(fields.first()->text(), QString("12:00")); // not 00:12
        QVERIFY(spokenName(deleteButtonOf(fields.last())).contains('3'));
    }

    void deletedByItsItem()
    {
        for (const bool wholeList : {true, false}) { // the item, which the list would delete once more
            QPointer<TimeList> list = new TimeList(4, {kMorning, kNoon});
            QPointer<CEditTimeEditItem> item = list->findChild<CEditTimeEditItem *>();
            connect(item.data(), &CEditTimeEditItem::sigHideItem, this,
                    [&] { delete (wholeList ? static_cast<QWidget *>(list) : item); });
            list->show();
            QTest::mouseClick(deleteButtonOf(fieldsOf(*list).first()), Qt::LeftButton);
            QVERIFY(!item);
            QCOMPARE(!list, wholeList);
            QVERIFY(wholeList || list->GetQTimes() == QVector<QTime>{kNoon});
            delete list;
        }
    }

    // By somebody who went through the children: the list goes on with what is left.
    void partsDeleted()
    {
        TimeList list(3, {kMorning, kNoon, kEvening});
        QList<CEditTimeEditItem *> items = list.findChildren<CEditTimeEditItem *>();
        delete fieldsOf(list).at(1);
        QCOMPARE(list.GetQTimes(), (QVector<QTime>{kMorning, QTime(), kEvening}));
        delete items.takeAt(1);
        QVERIFY(!addButtonOf(list)->isHidden());
        QVERIFY(spokenName(fieldsOf(list).last()).contains('2'));
        delete items.takeLast();
        QVERIFY(deleteButtonOf(fieldsOf(list).first())->isHidden());
        delete addButtonOf(list);
        list.Initialize({kMorning, kNoon});
        QCOMPARE(list.GetQTimes(), QVector<QTime>{kMorning});
    }
};

LUMQT_TEST_MAIN(TestSchedule)
#include "tst_schedule.moc"
