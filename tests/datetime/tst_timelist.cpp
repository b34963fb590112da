#include "Acts.h"
#include "CBPImageButton.h"
#include "CEditTimeEdit.h"
#include "Pixels.h"
#include "Spoken.h"
#include "TestMain.h"

#include <QLayout>
#include <QSignalSpy>
#include <QTimeEdit>

#include <algorithm>
#include <climits>

namespace {

QList<QTimeEdit *> fieldsOf(const CEditTimeEdit &list)
{
    QList<QTimeEdit *> fields;
    for (int i = 0; i < list.layout()->itemAt(0)->layout()->count(); ++i)
        fields << list.layout()->itemAt(0)->layout()->itemAt(i)->widget()->findChild<QTimeEdit *>();
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

class TestTimeList : public QObject
{
    Q_OBJECT

private slots:
    void newList()
    {
        TimeList list(4);
        QCOMPARE(fieldsOf(list).size(), 1);
        QVERIFY(deleteButtonOf(fieldsOf(list).first())->isHidden());
        QVERIFY(!addButtonOf(list)->isHidden());
        QTimeEdit *field = fieldsOf(list).first();
        field->setTime(QTime(23, 59));
        field->setCurrentSection(QDateTimeEdit::HourSection);
        field->stepUp();
        QCOMPARE(list.GetQTimes(), QVector<QTime>{QTime(0, 59)});
        // Buttons have one picture for all their states, but do not look alike in all.
        deleteButtonOf(field)->show();
        for (CBPImageButton *button : {deleteButtonOf(field), addButtonOf(list)}) {
            const QImage enabled = pictureOf(*button);
            list.setEnabled(false);
            QVERIFY(pictureOf(*button) != enabled);
            list.setEnabled(true);
            QCOMPARE(pictureOf(*button), enabled);
        }
    }

    void addAndRemove()
    {
        for (const int maxCount : {INT_MIN, -1, 0, 1, 2, 3, INT_MAX}) {
            for (const int count : {2, 3}) {
                TimeList list(maxCount);
                for (int i = 1; i < count; ++i)
                    addButtonOf(list)->click();
                QCOMPARE(fieldsOf(list).size(), count);
                QCOMPARE(!addButtonOf(list)->isHidden(), count < maxCount);
                const QList<QTimeEdit *> fields = fieldsOf(list);
                for (QTimeEdit *field : fields)
                    QVERIFY(!deleteButtonOf(field)->isHidden());
                for (int left = count - 1; left > 0; --left) {
                    deleteButtonOf(fieldsOf(list).first())->click();
                    QCOMPARE(fieldsOf(list).size(), left);
                    QCOMPARE(!addButtonOf(list)->isHidden(), left < maxCount);
                }
                QTimeEdit *last = fieldsOf(list).first();
                QCOMPARE(last, fields.last());
                QVERIFY(deleteButtonOf(last)->isHidden());
                QVERIFY(fields.first()->parentWidget()->isHidden());
                deleteButtonOf(last)->click();
                QCOMPARE(list.GetQTimes().size(), 1);
            }
        }
    }

    void initialize()
    {
        using Times = QVector<QTime>;
        const QTime one(1, 0);
        const Times five{kEvening, kMorning, kNoon, kMorning, QTime(23, 59)};
        const struct
        {
            Times times, kept; // by two fields at 01:00
        } rows[] = {{{}, {one, one}},
                    {{kNoon}, {kNoon, one}},
                    {{QTime(), kNoon}, {one, kNoon}}, // no time
                    {five, five}};                    // more than the greatest count
        for (const auto &row : rows) {
            TimeList list(3, {one, one});
            list.Initialize(row.times);
            QCOMPARE(list.GetQTimes(), row.kept);
            QCOMPARE(!addButtonOf(list)->isHidden(), row.kept.size() < 3);
            Times sorted = row.kept;
            std::sort(sorted.begin(), sorted.end());
            QCOMPARE(list.GetQTimesSorted(), sorted);
        }
    }

    void times()
    {
        CEditTimeEditItem item("../res/delete.png");
        QSignalSpy spy(&item, SIGNAL(sigHideItem(CEditTimeEditItem *)));
        QTime noon = kNoon;
        item.SetQTime(noon);
        QCOMPARE(item.GetQTime(), kNoon);
        item.SetIconVisual(false);
        auto *button = item.findChild<CBPImageButton *>();
        QVERIFY(button->isHidden());
        item.SetIconVisual(true);
        item.show();
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(qvariant_cast<CEditTimeEditItem *>(spy[0][0]), &item);
        QVERIFY(item.isVisible());
    }

    // By keyboard all through; the focus never leaves the list.
    void listFocus()
    {
        TimeList list(3, {kMorning, kEvening});
        showActive(list);
        CBPImageButton *add = addButtonOf(list);
        add->setFocus();
        QTest::keyClick(add, Qt::Key_Space);
        QCOMPARE(QApplication::focusWidget(), fieldsOf(list).last()); // the button is gone
        QList<QTimeEdit *> fields = fieldsOf(list);
        fields.last()->setTime(kNoon);

        deleteButtonOf(fields[1])->setFocus();
        QTest::keyClick(deleteButtonOf(fields[1]), Qt::Key_Space);
        QCOMPARE(list.GetQTimes(), (QVector<QTime>{kMorning, kNoon}));
        QCOMPARE(QApplication::focusWidget(), fields[2]);
        add->setFocus();
        QTest::keyClick(add, Qt::Key_Space);
        QCOMPARE(QApplication::focusWidget(), fieldsOf(list).last());
        fields = fieldsOf(list);

        // Tab goes through the row, and from its end to the add button.
        deleteButtonOf(fields[2])->setFocus();
        QTest::keyClick(deleteButtonOf(fields[2]), Qt::Key_Space);
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
        list.Initialize({kNoon, kNoon, kNoon});
        delete items.takeAt(1);
        QCOMPARE(list.GetQTimes(), (QVector<QTime>{kNoon, kNoon}));
        QVERIFY(!addButtonOf(list)->isHidden());
        QVERIFY(spokenName(fieldsOf(list).last()).contains('2'));
        delete items.takeLast();
        QVERIFY(deleteButtonOf(fieldsOf(list).first())->isHidden());
        qDeleteAll(items);
        QVERIFY(list.GetQTimes().isEmpty());
        addButtonOf(list)->click();
        QVERIFY(deleteButtonOf(fieldsOf(list).first())->isHidden()); // as a single one
        delete addButtonOf(list);
        list.Initialize({kMorning, kNoon});
        QCOMPARE(list.GetQTimes(), QVector<QTime>{kMorning});
    }
};

LUMQT_TEST_MAIN(TestTimeList)
#include "tst_timelist.moc"
