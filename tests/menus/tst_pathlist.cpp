#include "Acts.h"
#include "Await.h"
#include "CBPComboBox.h"
#include "CBPComboxItem.h"
#include "CBPImageButton.h"
#include "CBPPathDropdWnd.h"
#include "FormatByteSize.h"
#include "Pixels.h"
#include "TestMain.h"
#include "Util.h"

#include <QAbstractItemView>
#include <QLabel>
#include <QLayout>
#include <QWheelEvent>

#include <climits>
#include <tuple>

namespace {

const QColor kHover(0xed, 0xf3, 0xfe);
constexpr qint64 kGiga = 1024LL * 1024 * 1024;

ComboxItem location(const QString &path, qint64 total = 0)
{
    ComboxItem item;
    item.icon = Util::getResFullPath(QStringLiteral("../res/icon_user.png"));
    item.path = path;
    item.freeBytes = total / 2;
    item.totalBytes = total;
    return item;
}

struct List : CBPPathDropdWnd
{
    explicit List(int count = 0)
    {
        SetFixedWidth(330);
        for (int i = 0; i < count; ++i)
            add(QStringLiteral("/folder %1").arg(i));
    }

    void add(const QString &path)
    {
        ComboxItem item = location(path);
        AppendItem(item);
    }

    QStringList paths(bool selectedOnly = false)
    {
        QStringList all;
        for (const CBPComboxItem *row : pathItems())
            if (!selectedOnly || row->GetItem().selected)
                all << row->GetItem().path;
        return all;
    }
    QStringList selected() { return paths(true); }
    // It need not be the active window.
    bool open()
    {
        move(40, 40);
        show();
        return QTest::qWaitForWindowExposed(this, kPatience);
    }

    CBPComboxItem *at(int index) { return pathItems().at(index); }
};

CBPImageButton *deleteButton(CBPComboxItem *row)
{
    return row->findChild<CBPImageButton *>();
}

// Icon, path and space, as they lie in the row.
QLabel *labelOf(const CBPComboxItem *row, int index)
{
    return row->findChildren<QLabel *>().at(index);
}

QLabel *pathLabel(const CBPComboxItem *row)
{
    return labelOf(row, 1);
}

void clickDelete(CBPComboxItem *row)
{
    sendEvent(*row, QEvent::Enter);
    QTest::mouseClick(deleteButton(row), Qt::LeftButton);
}

} // namespace

class TestPathList : public QObject
{
    Q_OBJECT

private slots:
    void rowShowsItsRecord()
    {
        ComboxItem item = location("/tmp/<b>bold</b>", 2 * kGiga);
        item.extra3 = "kept";
        item.extraNumber = 7;
        CBPComboxItem row(item, nullptr);
        item.path = "/other";
        QCOMPARE(row.GetItem().path + row.GetItem().extra3, QString("/tmp/<b>bold</b>kept"));
        QCOMPARE(row.GetItem().extraNumber, 7);
        QCOMPARE(pathLabel(&row)->textFormat(), Qt::PlainText);
        QCOMPARE(row.height(), 30);
        CBPImageButton *button = deleteButton(&row);
        for (const QEvent::Type type : {QEvent::None, QEvent::Enter, QEvent::Leave}) {
            const bool hovered = type == QEvent::Enter;
            sendEvent(row, type);
            QCOMPARE(grabbedAt(row, 1, 1), hovered ? kHover : QColor(Qt::white));
            QCOMPARE(button->isVisibleTo(&row), hovered);
        }
        clickDelete(&row); // nobody is called
        row.SetDeleteBtnCB(nullptr, &row);
        QSignalSpy deletes(button, &CBPImageButton::btn_released);
        clickDelete(&row);
        QCOMPARE(deletes, QList<QVariantList>{{255}});
        for (const auto &[deeds, file] : {std::pair{"enter", "delete_hover"}, {"press", "delete_press"}}) {
            perform(button, deeds);
            CBPImageButton expected({4, Util::getResFullPath(QStringLiteral("../res/%1.png").arg(file))},
                                    false, 255);
            QCOMPARE(pictureOf(*button), pictureOf(expected));
        }
        ComboxItem unknown = location("/unknown");
        unknown.freeBytes = 5;
        CBPComboxItem bare(unknown, nullptr);
        QCOMPARE(labelOf(&bare, 2)->text(), QString());
    }

    // The space is shown whole, and the path ends in an ellipsis where it does not go in beside it.
    void pathIsCutWhereThereIsNoRoom()
    {
        const QString kLong = "/a/longer/path";
        ComboxItem item = location(kLong, 1024 * kGiga);
        CBPComboxItem row(item, nullptr);
        const int least = row.minimumSizeHint().width();
        const auto layOut = [&row](int width) {
            row.resize(width, 30);
            QVERIFY(!row.grab().isNull());
        };
        layOut(row.sizeHint().width());
        row.layout()->setSizeConstraint(QLayout::SetNoConstraint); // as in a list, which squeezes its rows
        layOut(416);
        QCOMPARE(row.minimumSizeHint().width(), least); // as little as before
        row.setMinimumWidth(1);
        QLabel *path = labelOf(&row, 1);
        QLabel *space = labelOf(&row, 2);
        QCOMPARE(path->toolTip() + space->toolTip(), QString());
        const int room = path->width() - 15;
        layOut(row.sizeHint().width() - 15);
        QCOMPARE(path->width(), room);
        QCOMPARE(path->text(), kLong); // shortened by SetPathMaxWidth() alone
        QCOMPARE(path->toolTip(), kLong);
        for (const int width : {row.minimumSizeHint().width(), 200}) {
            row.SetPathMaxWidth(width);
            layOut(width);
            QVERIFY(!inkOf(pictureOf(*path), 128).isEmpty());
        }
        QCOMPARE(path->width(), 60); // it keeps some room, and the space is cut
        QVERIFY(space->geometry().right() < 200 && !space->toolTip().isEmpty());
        row.SetPathMaxWidth(600);
        layOut(row.sizeHint().width());
        QCOMPARE(path->toolTip(), QString());
    }

    void rowIsClickedInside()
    {
        const std::tuple<QPoint, Qt::MouseButton, int> rows[] = {
            {{150, 15}, Qt::LeftButton, 1},
            {{299, 29}, Qt::LeftButton, 1}, // the last pixel
            {{300, 15}, Qt::LeftButton, 0},
            {{150, -1}, Qt::LeftButton, 0},
            {{150, 15}, Qt::RightButton, 0}};
        ComboxItem item = location("/a");
        CBPComboxItem row(item, nullptr);
        row.resize(300, 30);
        int clicks = 0;
        connect(&row, &CBPComboxItem::itemClicked, &row, [&] { ++clicks; });
        for (const auto &[at, button, count] : rows) {
            QMouseEvent event(QEvent::MouseButtonRelease, at, row.mapToGlobal(at), button, Qt::NoButton, {});
            QCoreApplication::sendEvent(&row, &event);
            QCOMPARE(std::exchange(clicks, 0), count);
        }
    }

    void pathsAreElided()
    {
        List list;
        const QString path = QStringLiteral("/a rather/long <b>path</b>/of a folder");
        list.add(path);
        list.SetFixedWidth(330);
        list.add(path + '2'); // those that follow, too
        QCOMPARE(list.width(), 330);
        for (CBPComboxItem *row : list.pathItems()) {
            QLabel *label = pathLabel(row);
            const QFontMetrics metrics(QFont(label->font().family()));
            QCOMPARE(label->text(), metrics.elidedText(row->GetItem().path, Qt::ElideRight, 100));
            QVERIFY(label->toolTip().contains("&lt;b&gt;path"));
        }
        for (const int width : {0, -1, INT_MIN, INT_MAX})
            list.SetFixedWidth(width);
        QCOMPARE(pathLabel(list.at(0))->text(), path);
        QCOMPARE(pathLabel(list.at(0))->toolTip(), QString());
    }

    void onePathOneRow()
    {
        List list(3);
        ComboxItem again = location("/folder 1");
        again.icon = "other.png";
        list.AppendItem(again);
        list.add("/FOLDER 1");
        QCOMPARE(list.paths(), QStringList({"/folder 0", "/folder 1", "/folder 2", "/FOLDER 1"}));
        QVERIFY(list.at(1)->GetItem().icon != "other.png");
        QCOMPARE(list.selected(), QStringList("/FOLDER 1"));
        QVERIFY(list.open());
        QCOMPARE(list.height(), 100);
        QCOMPARE(grabbedAt(*list.at(0)->parentWidget(), 1, 1), QColor(Qt::white)); // around the rows, too
        // What was changed through the record counts.
        list.at(0)->GetItem().path = "/FOLDER 1";
        list.at(0)->GetItem().path = "/moved"; // the other row is still known by its path
        list.at(1)->SetSelected(true);
        list.add("/moved");
        list.add("/FOLDER 1");
        QCOMPARE(list.pathItems().size(), 4);
        list.add("/folder 0");
        QCOMPARE(list.selected(), QStringList("/folder 0"));
    }

    void clickPicks()
    {
        List list(3);
        QVERIFY(list.open());
        ComboxItem *picked = nullptr;
        connect(&list, &CBPPathDropdWnd::itemClicked, &list, [&](ComboxItem &item) {
            QVERIFY(!list.isVisible() && !picked);
            picked = &item;
        });
        QTest::mouseClick(list.at(1), Qt::LeftButton);
        QCOMPARE(picked, &list.at(1)->GetItem());
        QCOMPARE(list.selected(), QStringList("/folder 1"));
        list.add("/newest");
        QCOMPARE(list.selected(), QStringList("/newest"));
    }

    // Once for each change, those that lose it before the one that has it, and the path last.
    void tellsOfTheSelection()
    {
        List list(3);
        QStringList told;
        const auto say = [&told](const QString &what) { told << what; };
        const auto heard = [&told] { return std::exchange(told, QStringList()).join(' '); };
        connect(&list, &CBPPathDropdWnd::currentPathChanged, &list, say);
        connect(&list, &CBPPathDropdWnd::itemClicked, &list, [&](ComboxItem &) { say("clicked"); });
        connect(&list, &CBPPathDropdWnd::sigItemDelete, &list, [&](CBPComboxItem *) { say("deleted"); });
        for (const CBPComboxItem *row : list.pathItems())
            connect(row, &CBPComboxItem::selectionChanged, &list,
                    [&say, row](bool selected) { say((selected ? '+' : '-') + row->path().right(1)); });
        list.add("/folder 1"); // there is one
        QCOMPARE(heard(), QString());
        list.add("/new");
        QCOMPARE(heard(), QString("-2 /new"));
        for (int time = 0; time < 2; ++time)
            QTest::mouseClick(list.at(0), Qt::LeftButton);
        QCOMPARE(heard(), QString("clicked +0 /folder 0 clicked"));
        for (int time = 0; time < 2; ++time)
            list.at(1)->SetSelected(true);
        QCOMPARE(heard(), QString("+1")); // the first of two
        list.at(0)->SetSelected(false);
        QCOMPARE(heard(), QString("-0 /folder 1"));
        list.DeleteItem(location("/folder 2"));
        list.DeleteItem(location("/folder 1"));
        QCOMPARE(heard(), QString("deleted deleted "));
        list.add("/last");
        delete list.pathItems().last();
        QCoreApplication::processEvents();
        QCOMPARE(heard(), QString("/last "));
    }

    void selectionSignalsMayDelete()
    {
        for (const bool window : {false, true}) {
            QPointer<List> list = new List(3);
            const QPointer<CBPComboxItem> row = list->at(2);
            connect(row, &CBPComboxItem::selectionChanged, qApp,
                    [&] { delete (window ? static_cast<QWidget *>(list) : row); });
            list->add("/new");
            QVERIFY(!row && list.isNull() == window);
            if (!list)
                continue;
            connect(list, &CBPPathDropdWnd::currentPathChanged, qApp, [&] { delete list; });
            delete list->pathItems().last();
            AWAIT(!list);
        }
    }

    void deletes()
    {
        List list(4);
        QVERIFY(list.open());
        QSignalSpy gone(&list, &CBPPathDropdWnd::sigItemDelete);
        QPointer<CBPComboxItem> row = list.at(2);
        list.DeleteItem(row->GetItem());
        QVERIFY(list.isVisible() && row && !row->isVisible() && gone.size() == 1);
        QCOMPARE(gone.at(0).at(0).value<CBPComboxItem *>(), row.data());
        AWAIT(!row);
        list.DeleteItem(location("/nowhere"));
        row = list.at(1);
        clickDelete(row);
        QVERIFY(!list.isVisible());
        QCOMPARE(gone.size(), 2);
        QCOMPARE(list.paths(), QStringList({"/folder 0", "/folder 3"}));
        list.add("/folder 1"); // there is no such row any more
        QCOMPARE(list.pathItems().size(), 3);
    }

    // What a slot may do to the list or the row that it hears of.
    void diesInItsSignal()
    {
        for (const QString by :
             {"click", "delete button", "Return", "Delete", "screen reader", "screen reader deletes"}) {
            for (const bool window : {false, true}) {
                QPointer<List> list = new List(3);
                QVERIFY(list->open());
                const QPointer<CBPComboxItem> row = list->at(1);
                const auto kill = [&] { delete (window ? static_cast<QWidget *>(list) : row); };
                if (window)
                    connect(list, &CBPPathDropdWnd::itemClicked, qApp, kill);
                else
                    connect(row, &CBPComboxItem::itemClicked, qApp, kill);
                connect(list, &CBPPathDropdWnd::sigItemDelete, qApp, kill);
                row->setFocus();
                auto *actions = QAccessible::queryAccessibleInterface(row)->actionInterface();
                if (by == "click")
                    QTest::mouseClick(list->windowHandle(), Qt::LeftButton, {},
                                      row->mapTo(list, row->rect().center()));
                else if (by == "delete button")
                    clickDelete(row);
                else if (by == "screen reader")
                    actions->doAction(QAccessibleActionInterface::pressAction());
                else if (by == "screen reader deletes")
                    actions->doAction(actions->actionNames().last());
                else
                    QTest::keyPress(row, by == "Return" ? Qt::Key_Return : Qt::Key_Delete);
                QVERIFY2(!row && list.isNull() == window, qPrintable(by));
                if (list) {
                    QCOMPARE(list->paths(), QStringList({"/folder 0", "/folder 2"}));
                    list->add("/folder 1");
                    QCOMPARE(list->pathItems().size(), 3);
                }
                delete list;
            }
        }
    }

    void keysMoveThroughRows()
    {
        List list(20);
        ComboxItem picked;
        connect(&list, &CBPPathDropdWnd::itemClicked, &list, [&](ComboxItem &item) { picked = item; });
        QVERIFY(list.open());
        const std::pair<Qt::Key, int> steps[] = {
            {Qt::Key_Up, 19},    {Qt::Key_Down, 18}, {Qt::Key_Down, 17},
            {Qt::Key_Up, 18},    {Qt::Key_End, 0},   {Qt::Key_Down, 0},
            {Qt::Key_PageUp, 2}, {Qt::Key_Home, 19}, {Qt::Key_PageDown, 17}};
        QCOMPARE(list.focusWidget(), list.at(19));
        for (const auto &[key, index] : steps) {
            QTest::keyClick(list.focusWidget(), key);
            CBPComboxItem *row = list.at(index);
            QCOMPARE(list.focusWidget(), row);
            QCOMPARE(row->visibleRegion().boundingRect(), row->rect());
            for (CBPComboxItem *other : list.pathItems()) // the Tab key comes back to it
                QCOMPARE(bool(other->focusPolicy() & Qt::TabFocus), other == row);
        }
        CBPComboxItem *row = list.at(17);
        QTest::keyClick(row, Qt::Key_Space);
        QCOMPARE(picked.path, QString("/folder 17"));
        QVERIFY(!list.isVisible());

        QVERIFY(list.open()); // on the row picked last
        QCOMPARE(list.focusWidget(), row);
        list.DeleteItem(row->GetItem());
        QCOMPARE(list.focusWidget(), list.at(16));
        QTest::keyClick(list.focusWidget(), Qt::Key_Escape);
        QVERIFY(!list.isVisible());
        QCOMPARE(list.pathItems().size(), 19);
        List far(20); // the current row is seen at the first show, wherever it lies
        far.pathItems().first()->SetSelected(true);
        far.pathItems().last()->SetSelected(false);
        QVERIFY(far.open());
        QCOMPARE(far.focusWidget(), far.at(0));
        QCOMPARE(far.at(0)->visibleRegion().boundingRect(), far.at(0)->rect());
        List empty;
        QVERIFY(empty.open());
        QTest::keyClick(&empty, Qt::Key_Down);
        QTest::keyClick(&empty, Qt::Key_Escape);
        QVERIFY(!empty.isVisible());
    }

    void hidesWhenLeft()
    {
        List list(2);
        QSignalSpy gone(&list, &CBPPathDropdWnd::sigItemDelete);
        QVERIFY(list.open());
        QVERIFY(list.windowState() & Qt::WindowActive);
        QCOMPARE(list.windowFlags() & (Qt::FramelessWindowHint | Qt::WindowType_Mask),
                 Qt::FramelessWindowHint | Qt::Tool);
        sendEvent(list, QEvent::WindowDeactivate);
        QVERIFY(!list.isVisible() && gone.isEmpty());
    }

    void screenReadersFindAList()
    {
        List list(3);
        list.setAccessibleName("Recent folders");
        ComboxItem disk = location("/disk", 2 * kGiga);
        list.AppendItem(disk);
        CBPComboxItem *row = list.pathItems().last();
        QAccessibleInterface *item = QAccessible::queryAccessibleInterface(row);
        QVERIFY(item);
        QCOMPARE(item->role(), QAccessible::ListItem);
        QCOMPARE(item->text(QAccessible::Name), QString("/disk"));
        QCOMPARE(item->text(QAccessible::Description), QString("1.00 GB Free of 2.00 GB"));
        QVERIFY(item->state().selected && item->state().focusable);
        QVERIFY(!QAccessible::queryAccessibleInterface(list.pathItems().first())->state().selected);
        QAccessibleInterface *rows = item->parent();
        QCOMPARE(rows->role(), QAccessible::List);
        QCOMPARE(rows->text(QAccessible::Name), QString("Recent folders"));
        QCOMPARE(rows->childCount(), 4);
        QCOMPARE(rows->child(0), item); // from top to bottom
        list.DeleteItem(disk);
        QCOMPARE(rows->childCount(), 3);
    }

    void byteSizes()
    {
        // Number, whether none is told in kilobytes, decimals.
        const std::tuple<qint64, bool, int, QString> rows[] = {{0, false, 2, "0 Bytes"},
                                                               {0, true, 2, "0 KB"},
                                                               {1, true, 2, "1 Bytes"},
                                                               {-kGiga, true, 2, "-1073741824 Bytes"},
                                                               {1024, false, 2, "1.00 KB"},
                                                               {1024 * 1024 - 1, false, 2, "1024.00 KB"},
                                                               {1024 * 1024, false, 0, "1 MB"},
                                                               {1024 * kGiga - 1, false, 1, "1024.0 GB"},
                                                               {1024 * kGiga, false, 2, "1.00 TB"},
                                                               {1536, false, -1, "2 KB"},
                                                               {1536, false, 99, "1.50000000000000000 KB"},
                                                               {LLONG_MAX, false, 2, "8388608.00 TB"}};
        for (const auto &[bytes, zeroAsKilobytes, decimals, text] : rows)
            QCOMPARE(FormatByteSize(bytes, zeroAsKilobytes, decimals), text);
    }

    void wheelChangesNoChoice()
    {
        QWidget parent;
        auto *box = new CBPComboBox(&parent);
        box->addItems({"a", "b", "c"});
        QCOMPARE(box->view()->metaObject()->className(), "QListView");
        QWheelEvent event(QPointF(5, 5), box->mapToGlobal(QPoint(5, 5)), QPoint(), QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        event.ignore();
        QCoreApplication::sendEvent(box, &event);
        QCOMPARE(box->currentIndex(), 0);
        QCOMPARE(box->focusPolicy(), Qt::StrongFocus);
        QVERIFY(event.isAccepted());
    }
};

LUMQT_TEST_MAIN(TestPathList)
#include "tst_pathlist.moc"
