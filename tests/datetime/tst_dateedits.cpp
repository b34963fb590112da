#include "CBPDateSelector.h"
#include "CBPImageButton.h"
#include "CBPTipWnd.h"
#include "CEditTimeEdit.h"
#include "TestMain.h"

#include <QAccessible>
#include <QCalendarWidget>
#include <QDateEdit>
#include <QLayout>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTableView>
#include <QTextCharFormat>
#include <QTimeEdit>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

const QColor kFrame(215, 215, 215);
const QColor kAccent(73, 167, 245);

QString spokenName(QWidget *widget)
{
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(widget);
    return interface ? interface->text(QAccessible::Name) : QString();
}

// A window with a selector on the seventh of March 2024 and something else to go to.
struct Scene
{
    QWidget window;
    QPointer<CBPDateSelector> selector = new CBPDateSelector;
    QPushButton *elsewhere = new QPushButton("Elsewhere");
    QDateEdit *edit = selector->findChild<QDateEdit *>();
    CBPImageButton *button = selector->findChild<CBPImageButton *>();

    Scene()
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(selector);
        layout->addWidget(elsewhere);
        QDate date(2024, 3, 7);
        selector->SetDate(date);
        window.setGeometry(300, 100, 400, 120);
        window.show();
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window))
            qWarning("the window is not active");
        edit->setFocus();
    }

    CBPTipWnd *tip() const { return button->findChild<CBPTipWnd *>(); }
    QCalendarWidget *calendar() const { return tip() ? tip()->findChild<QCalendarWidget *>() : nullptr; }
    QTableView *view() const { return calendar()->findChild<QTableView *>(); }

    void open(const QString &how = "Alt+Down")
    {
        if (how == "mouse")
            QTest::mouseClick(button, Qt::LeftButton);
        else if (how == "Space")
            QTest::keyClick(button, Qt::Key_Space);
        else
            QTest::keyClick(edit, Qt::Key_Down, Qt::AltModifier);
        QVERIFY(tip() && QTest::qWaitForWindowActive(tip()));
        QTRY_VERIFY(view()->hasFocus());
    }

    // Of the calendar, in the view's coordinates.
    QPoint dayAt(int day) const
    {
        const QAbstractItemModel *days = view()->model();
        for (int row = 1; row < days->rowCount(); ++row) {
            for (int column = 0; column < days->columnCount(); ++column) {
                const QModelIndex index = days->index(row, column);
                if (index.data().toInt() == day && (row > 2 || day < 20)) // not of the month before
                    return view()->visualRect(index).center();
            }
        }
        return QPoint();
    }
};

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

    void showActive()
    {
        show();
        activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(this));
    }
};

const QTime kMorning(6, 30);
const QTime kNoon(12, 0);
const QTime kEvening(18, 0);

} // namespace

class TestDateEdits : public QObject
{
    Q_OBJECT

private slots:
    void field();
    void range_data();
    void range();
    void opens_data();
    void opens();
    void escape_data();
    void escape();
    void picks_data();
    void picks();
    void clickElsewhere();
    void openedAgain();
    void calendarLook();
    void deletedByThePick_data();
    void deletedByThePick();
    void deletedWhileOpen();
    void newList();
    void addAndRemove_data();
    void addAndRemove();
    void initialize_data();
    void initialize();
    void times();
    void listFocus();
    void listNames();
    void deletedByItsItem();
};

void TestDateEdits::field()
{
    Scene scene;
    scene.elsewhere->setFocus();
    const auto frame = [&] { return scene.selector->grab().toImage().pixelColor(0, 0); };
    QCOMPARE(frame(), kFrame);
    scene.selector->setFocus(); // goes to the field, which shows it
    QVERIFY(scene.edit->hasFocus());
    QVERIFY(frame() != kFrame);
    // Tab goes on to the button, and out.
    QTest::keyClick(scene.edit, Qt::Key_Tab);
    while (scene.edit->hasFocus()) // from part to part of the date first, in some styles
        QTest::keyClick(scene.edit, Qt::Key_Tab);
    QVERIFY(scene.button->hasFocus());
    QTest::keyClick(scene.button, Qt::Key_Tab);
    QVERIFY(scene.elsewhere->hasFocus());
    QCOMPARE(frame(), kFrame);
    QVERIFY(!spokenName(scene.button).isEmpty() && !spokenName(scene.edit).isEmpty());
    QSignalSpy spy(scene.selector.data(), SIGNAL(sigDateEditFinish()));
    QTest::keyClick(scene.edit, Qt::Key_Return);
    QCOMPARE(spy.count(), 1);
    scene.selector->setEnabled(false);
    QTest::keyClick(scene.edit, Qt::Key_Down, Qt::AltModifier);
    QVERIFY(!scene.tip());
}

void TestDateEdits::range_data()
{
    QTest::addColumn<QDate>("given");
    QTest::addColumn<QDate>("kept");
    QTest::newRow("first") << QDate(1980, 1, 1) << QDate(1980, 1, 1);
    QTest::newRow("before") << QDate(1979, 12, 31) << QDate(1980, 1, 1);
    QTest::newRow("last") << QDate(2099, 12, 31) << QDate(2099, 12, 31);
    QTest::newRow("after") << QDate(2100, 1, 1) << QDate(2099, 12, 31);
    QTest::newRow("no date") << QDate() << QDate(2024, 3, 7);
    QTest::newRow("no such day") << QDate(2023, 2, 29) << QDate(2024, 3, 7);
}

void TestDateEdits::range()
{
    QFETCH(QDate, given);
    CBPDateSelector selector;
    QDate date(2024, 3, 7);
    selector.SetDate(date);
    QSignalSpy spy(&selector, SIGNAL(sigDateEditFinish()));
    selector.SetDate(given);
    QTEST(selector.GetDate(), "kept");
    QCOMPARE(spy.count(), 0);
}

void TestDateEdits::opens_data()
{
    QTest::addColumn<QString>("how");
    for (const char *how : {"mouse", "Space", "Alt+Down"})
        QTest::newRow(how) << QString(how);
}

void TestDateEdits::opens()
{
    QFETCH(QString, how);
    Scene scene;
    scene.open(how);
    QCOMPARE(scene.calendar()->selectedDate(), QDate(2024, 3, 7));
    QCOMPARE(scene.selector->GetDate(), QDate(2024, 3, 7)); // the key did not step it
    // The calendar fills the window but for its frame.
    QCOMPARE(scene.calendar()->geometry(), scene.tip()->rect().adjusted(1, 1, -1, -1));
    QCOMPARE(scene.tip()->layout()->count(), 1);
    QCOMPARE(scene.tip()->pos(), scene.button->mapToGlobal(QPoint(-1, scene.button->height())));
}

void TestDateEdits::escape_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<bool>("toButton");
    QTest::newRow("from the field") << "Alt+Down" << false;
    QTest::newRow("from the button") << "Space" << true;
}

void TestDateEdits::escape()
{
    QFETCH(QString, how);
    QFETCH(bool, toButton);
    Scene scene;
    if (toButton)
        scene.button->setFocus();
    scene.open(how);
    QTest::keyClick(scene.view(), Qt::Key_Right);
    QSignalSpy spy(scene.selector.data(), SIGNAL(sigDateEditFinish()));
    QTest::keyClick(scene.view(), Qt::Key_Escape);
    QVERIFY(!scene.tip()->isVisible());
    QTRY_VERIFY(scene.window.isActiveWindow());
    QTRY_COMPARE(QApplication::focusWidget(), toButton ? static_cast<QWidget *>(scene.button) : scene.edit);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(scene.selector->GetDate(), QDate(2024, 3, 7));
    // And again, from a button of the calendar.
    scene.open(how);
    QTest::keyClick(scene.calendar()->findChild<QToolButton *>("qt_calendar_nextmonth"), Qt::Key_Escape);
    QTRY_VERIFY(!scene.tip()->isVisible() && scene.window.isActiveWindow());
}

void TestDateEdits::picks_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<int>("count");
    QTest::newRow("click") << "click" << 1;
    QTest::newRow("Return") << "Return" << 1;
    QTest::newRow("double click") << "double click" << 2;
}

void TestDateEdits::picks()
{
    QFETCH(QString, how);
    QFETCH(int, count);
    Scene scene;
    scene.open();
    QSignalSpy spy(scene.selector.data(), SIGNAL(sigDateEditFinish()));
    if (how == "click") {
        QTest::mouseClick(scene.view()->viewport(), Qt::LeftButton, {}, scene.dayAt(15));
    } else if (how == "Return") {
        QTest::keyClick(scene.view(), Qt::Key_Down);
        QTest::keyClick(scene.view(), Qt::Key_Right);
        QTest::keyClick(scene.view(), Qt::Key_Return);
    } else { // the calendar says both
        emit scene.calendar()->clicked(QDate(2024, 3, 15));
        emit scene.calendar()->activated(QDate(2024, 3, 15));
    }
    QCOMPARE(spy.count(), count);
    QCOMPARE(scene.selector->GetDate(), QDate(2024, 3, 15));
    QVERIFY(!scene.tip()->isVisible());
    QTRY_VERIFY(scene.window.isActiveWindow() && scene.edit->hasFocus());
    QCOMPARE(spy.count(), count);
}

// Who clicks elsewhere has said where the focus goes.
void TestDateEdits::clickElsewhere()
{
    Scene scene;
    scene.open();
    scene.window.activateWindow();
    scene.elsewhere->setFocus();
    QTRY_VERIFY(!scene.tip()->isVisible());
    QTRY_VERIFY(scene.elsewhere->hasFocus());
}

void TestDateEdits::openedAgain()
{
    Scene scene;
    scene.open();
    const QPointer<QCalendarWidget> calendar = scene.calendar();
    calendar->showNextYear();
    QTest::keyClick(scene.view(), Qt::Key_Escape);
    QTRY_VERIFY(scene.window.isActiveWindow());
    scene.open(); // the same date, but another month was left open
    QCOMPARE(scene.calendar(), calendar.data());
    QCOMPARE(QDate(calendar->yearShown(), calendar->monthShown(), 1), QDate(2024, 3, 1));
    QTest::keyClick(scene.view(), Qt::Key_Escape);
    QTRY_VERIFY(scene.window.isActiveWindow());
    QDate later(2031, 10, 2);
    scene.selector->SetDate(later);
    scene.open();
    QCOMPARE(calendar->selectedDate(), later);
    QCOMPARE(scene.button->findChildren<CBPTipWnd *>().size(), 1);
}

void TestDateEdits::calendarLook()
{
    Scene scene;
    scene.open();
    const QCalendarWidget *calendar = scene.calendar();
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday})
        QCOMPARE(calendar->weekdayTextFormat(day).foreground().color(), QColor(253, 123, 0));
    QVERIFY(!calendar->isGridVisible());
    QCOMPARE(calendar->verticalHeaderFormat(), QCalendarWidget::NoVerticalHeader);
    auto *year = calendar->findChild<QSpinBox *>("qt_calendar_yearedit");
    QVERIFY(!year->findChild<QLineEdit *>("qt_spinbox_lineedit")->isEnabled());
    QVERIFY(year->isEnabled());
    for (const char *name : {"prevmonth", "nextmonth"}) {
        auto *button = calendar->findChild<QToolButton *>(QString("qt_calendar_") + name);
        const QString file = QString("../res/calendar_%1.png").arg(QString(name).left(4));
        QCOMPARE(button->icon().pixmap(16, 16).toImage().pixelColor(5, 8), QImage(file).pixelColor(5, 8));
        QVERIFY(!spokenName(button).isEmpty());
    }

    // The selected day is a tile of the accent, and a day under the pointer has one, too.
    QWidget *days = scene.view()->viewport();
    const auto corner = [&](int day) {
        return days->grab().toImage().pixelColor(scene.dayAt(day) + QPoint(-10, -10));
    };
    QCOMPARE(corner(7), kAccent);
    QCOMPARE(corner(20), QColor(Qt::white));
    for (const int day : {20, 21}) {
        QMouseEvent move(QEvent::MouseMove, scene.dayAt(day), Qt::NoButton, Qt::NoButton, {});
        QCoreApplication::sendEvent(days, &move);
        QCOMPARE(corner(20) != QColor(Qt::white), day == 20);
    }
}

void TestDateEdits::deletedByThePick_data()
{
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("mouse") << true;
    QTest::newRow("Return") << false;
}

void TestDateEdits::deletedByThePick()
{
    QFETCH(bool, byMouse);
    Scene scene;
    scene.open();
    const QPointer<QCalendarWidget> calendar = scene.calendar();
    QTableView *view = scene.view();
    connect(scene.selector.data(), &CBPDateSelector::sigDateEditFinish, this, [&] { delete scene.selector; });
    if (byMouse)
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, scene.dayAt(15));
    else
        QTest::keyClick(view, Qt::Key_Return);
    QVERIFY(!scene.selector);
    QTRY_VERIFY(!calendar);
}

void TestDateEdits::deletedWhileOpen()
{
    Scene scene;
    scene.open();
    const QPointer<CBPTipWnd> tip = scene.tip();
    delete scene.selector;
    QVERIFY(!tip);
}

// ------------------------------------------------------------------------------------------------------------
// lists of times

void TestDateEdits::newList()
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
}

void TestDateEdits::addAndRemove_data()
{
    QTest::addColumn<int>("maxCount");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("more");
    for (const int maxCount : {INT_MIN, -1, 0, 1, 2, 3, INT_MAX}) {
        for (const int count : {2, 3})
            QTest::addRow("%d of %d", count, maxCount) << maxCount << count << (count < maxCount);
    }
}

void TestDateEdits::addAndRemove()
{
    QFETCH(int, maxCount);
    QFETCH(int, count);
    TimeList list(maxCount);
    for (int i = 1; i < count; ++i)
        addButtonOf(list)->click();
    QCOMPARE(fieldsOf(list).size(), count);
    QTEST(!addButtonOf(list)->isHidden(), "more");
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

void TestDateEdits::initialize_data()
{
    QTest::addColumn<QVector<QTime>>("times");
    QTest::addColumn<QVector<QTime>>("kept"); // by two fields at 01:00
    const QTime one(1, 0);
    QTest::newRow("none") << QVector<QTime>{} << QVector<QTime>{one, one};
    QTest::newRow("fewer") << QVector<QTime>{kNoon} << QVector<QTime>{kNoon, one};
    QTest::newRow("no time") << QVector<QTime>{QTime(), kNoon} << QVector<QTime>{one, kNoon};
    const QVector<QTime> five{kEvening, kMorning, kNoon, kMorning, QTime(23, 59)};
    QTest::newRow("more than the greatest count") << five << five;
}

void TestDateEdits::initialize()
{
    QFETCH(QVector<QTime>, times);
    QFETCH(QVector<QTime>, kept);
    TimeList list(3, {QTime(1, 0), QTime(1, 0)});
    list.Initialize(times);
    QCOMPARE(list.GetQTimes(), kept);
    QCOMPARE(!addButtonOf(list)->isHidden(), kept.size() < 3);
    std::sort(kept.begin(), kept.end());
    QCOMPARE(list.GetQTimesSorted(), kept);
}

void TestDateEdits::times()
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
void TestDateEdits::listFocus()
{
    TimeList list(3, {kMorning, kEvening});
    list.showActive();
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

void TestDateEdits::listNames()
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

void TestDateEdits::deletedByItsItem()
{
    QPointer<TimeList> list = new TimeList(4, {kMorning, kNoon});
    auto *item = qobject_cast<CEditTimeEditItem *>(fieldsOf(*list).first()->parentWidget());
    connect(item, &CEditTimeEditItem::sigHideItem, this, [&] { delete list; });
    list->show();
    QTest::mouseClick(deleteButtonOf(fieldsOf(*list).first()), Qt::LeftButton);
    QVERIFY(!list);
}

LUMQT_TEST_MAIN(TestDateEdits)
#include "tst_dateedits.moc"
