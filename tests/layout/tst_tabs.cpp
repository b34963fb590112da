#include "Acts.h"
#include "Await.h"
#include "CBPPushBtn.h"
#include "CButtonGroupBox.h"
#include "CFoucsLabel.h"
#include "CTabContainer.h"
#include "CTabPageItem.h"
#include "Selections.h"
#include "TestMain.h"

#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>

#include <memory>

namespace {

// A tab "Tab <id>" with an icon per id, and its page.
QVector<QWidget *> addTabs(CTabContainer &tabs, const QVector<int> &ids)
{
    QVector<QWidget *> pages;
    for (const int id : ids) {
        pages << new QLabel(QString::number(id));
        tabs.Appendtab(pages.last(), QStringLiteral("Tab %1").arg(id), id, "../res/icon_user.png");
    }
    return pages;
}

CBPPushBtn *tab(CTabContainer &tabs, int id)
{
    return tabs.findChild<CButtonGroupBox *>()->GetButton(id);
}

// Which of the widgets are shown, as in "-x-".
template <class Widgets> QString shown(const Widgets &widgets)
{
    QString result;
    for (QWidget *widget : widgets)
        result += QLatin1Char(!widget ? '0' : widget->isHidden() ? '-' : 'x');
    return result;
}

// Entries of one group with contents, placed in a window.
struct Accordion
{
    QWidget window;
    QVector<CTabPageItem *> entries;
    QVector<QPointer<QWidget>> contents;

    explicit Accordion(int count)
    {
        auto *column = new QVBoxLayout(&window);
        for (int i = 0; i < count; ++i) {
            entries << new CTabPageItem(30, &window);
            contents << new QLabel(QString::number(i));
            entries.last()->AddPage(QStringLiteral("Title %1").arg(i), contents.last(), 4);
            column->addWidget(entries.last()->GetTitleWidget());
            column->addWidget(contents.last());
        }
        for (CTabPageItem *entry : qAsConst(entries))
            entry->SetGroup(entries);
    }

    // Which contents are shown, and which titles have the focus.
    QString state() const
    {
        QString result = shown(contents) + ' ';
        for (CTabPageItem *entry : entries)
            result += QLatin1Char(entry->IsFocus() ? 'x' : '-');
        return result;
    }
};

} // namespace

class TestTabs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { selections::setActive(true); }
    void cleanupTestCase() { selections::setActive(false); }

    void clicksAndSelections()
    {
        CTabContainer tabs;
        QCOMPARE(tabs.currentIndex(), -1);
        QVector<QWidget *> pages = addTabs(tabs, {3, 1, 2});
        QStringList log;
        const auto stops = [&] { // where Tab comes to, wherever the focus was before
            QString result;
            for (const int id : {3, 1, 2})
                result += tab(tabs, id)->focusPolicy() == Qt::StrongFocus ? 'x' : '-';
            return result;
        };
        connect(&tabs, &CTabContainer::sigTabChanged, this, [&](int id) {
            log << QString("%1 %2 %3 %4").arg(id).arg(tabs.currentIndex()).arg(shown(pages), stops());
        });
        QVERIFY(tabs.currentIndex() == 3 && stops() == "x--" && !tab(tabs, 3)->icon().isNull());
        AWAIT_EQUAL(shown(pages), QString("x--"));
        // One that comes later stays until a tab is clicked.
        pages += addTabs(tabs, {9});
        QCoreApplication::processEvents();
        QCOMPARE(shown(pages), QString("x--x"));
        click(tab(tabs, 1), Click::Left);
        click(tab(tabs, 2), Click::Space);
        tabs.SetSelected(3);
        tab(tabs, 1)->setEnabled(false);
        tabs.SetSelected(1); // nowhere for Tab to come to
        tabs.SetSelected(77);
        QCOMPARE(log, QStringList({"1 1 -x-- -x-", "2 2 --x- --x", "3 3 x--- x--", "1 1 -x-- x--"}));
        QVERIFY(tabs.currentIndex() == 77 && shown(pages) == "-x--");
    }

    void badTabs()
    {
        auto tabs = std::make_unique<CTabContainer>();
        QVector<QWidget *> pages = addTabs(*tabs, {5, 6});
        tabs->Appendtab(nullptr, QString(), 7);
        tabs->AppendWidget(nullptr);
        for (int times = 0; times < 2; ++times)
            QTest::ignoreMessage(QtWarningMsg,
                                 "A CTabContainer cannot hold itself or a widget that it lies in");
        tabs->Appendtab(tabs.get(), QString(), 7);
        QVERIFY(!tab(*tabs, 7));
        QTest::ignoreMessage(QtWarningMsg, "CTabContainer: there is a tab 6 already");
        pages += addTabs(*tabs, {6, 8});
        QCoreApplication::processEvents();
        const auto buttons = tabs->findChildren<CBPPushBtn *>();
        QCOMPARE(buttons.size(), 4);
        click(buttons[2], Click::Left); // the second of that id
        QCOMPARE(shown(pages), "--x-");
        delete tab(*tabs, 5);
        delete pages.takeAt(1);
        tabs->SetSelected(6); // its page is gone
        QCOMPARE(shown(pages), "---");
        delete tab(*tabs, 8); // its page is left
        tabs->SetSelected(6);
        delete tabs->layout();
        tabs->Appendtab(new QWidget(tabs.get()), QString(), 10);
        tabs->AppendWidget(new QWidget(tabs.get()));
        delete tabs->findChild<CButtonGroupBox *>();
        tabs->SetSelected(6);
        QVERIFY(!tabs->findChild<CBPPushBtn *>());

        // Deleted before its first turn of the loop.
        auto *inner = new CTabContainer(tabs.get());
        inner->AppendWidget(tabs.get());
        addTabs(*inner, {1, 2});
        tabs.reset();
        QCoreApplication::processEvents();
    }

    // A page that the application has taken out is its own again. One that two tabs share is not hidden for
    // the other's sake.
    void pages()
    {
        CTabContainer tabs;
        CTabContainer other;
        const QVector<QWidget *> pages = addTabs(tabs, {1, 2, 3, 4});
        tabs.Appendtab(pages[3], "Shared", 5);
        const std::unique_ptr<QWidget> window(pages[0]);
        window->setParent(nullptr);
        window->show();
        other.Appendtab(pages[2], QString(), 1);
        QCoreApplication::processEvents();
        tabs.SetSelected(2);
        QCOMPARE(shown(pages), "xxx-");
        window->hide();
        tabs.SetSelected(1);
        QCOMPARE(shown(pages), "--x-");
        tabs.show();
        tabs.SetSelected(4);
        const EventCounter hidings(pages[3], {QEvent::Hide});
        for (const int id : {5, 4})
            tabs.SetSelected(id);
        QVERIFY(pages[3]->isVisible() && hidings.count == 0);
    }

    void tabsForScreenReaders()
    {
        CTabContainer tabs;
        const QVector<QWidget *> pages = addTabs(tabs, {1, 2});
        QCoreApplication::processEvents();
        QAccessibleInterface *second = QAccessible::queryAccessibleInterface(tab(tabs, 2));
        QCOMPARE(second->role(), QAccessible::PageTab);
        QCOMPARE(second->parent()->role(), QAccessible::PageTabList);
        QCOMPARE(second->text(QAccessible::Name), "Tab 2");
        QVERIFY(second->state().selectable && !second->state().selected && !second->state().checkable);
        const auto relations = second->relations();
        QVERIFY(relations.size() == 1 && relations[0].first->object() == pages[1]);
        QVERIFY(second->relations(QAccessible::Label).isEmpty());
        QCOMPARE(selections::during([&] { tabs.SetSelected(2); }),
                 (selections::Heard{{tab(tabs, 1), QAccessible::SelectionRemove},
                                    {tab(tabs, 2), QAccessible::SelectionAdd}}));
        QVERIFY(second->state().selected);
        delete pages[1];
        QVERIFY(second->relations().isEmpty());
    }

    // --------------------------------------------------------------------------------------------------------

    void oneEntryIsOpen()
    {
        Accordion three(3);
        three.entries[1]->SetFocus();
        QCOMPARE(three.state(), QString("-x- -x-"));
        QStringList log;
        for (CTabPageItem *entry : three.entries) {
            connect(entry, &CTabPageItem::sigCurItemClicked, this,
                    [&, entry](CTabPageItem *clicked) { log << (clicked == entry ? three.state() : "?"); });
        }
        const Click ways[] = {Click::Left, Click::Space, Click::Enter, Click::Tool};
        for (int i = 0; i < 4; ++i)
            click(three.entries[i % 3]->GetTitleWidget(), ways[i]);
        click(three.entries[1]->GetTitleWidget(), Click::Right);
        QCOMPARE(log, QStringList({"x-- x--", "-x- -x-", "--x --x", "x-- x--"}));
        three.entries[1]->SetGroup(three.entries.mid(1)); // in place of the one before
        three.entries[1]->SetFocus();
        QCOMPARE(three.state(), QString("xx- xx-"));
    }

    void badEntries()
    {
        CTabPageItem bare(-5);
        bare.ChangeTitle("x");
        bare.SetIconPath({}, {});
        bare.SetFocusLabelColor(QColor(), QColor());
        bare.HideTailIcon();
        bare.SetFocus();
        QVERIFY(!bare.IsFocus() && !bare.GetTitleWidget() && !bare.GetCommentWidget());
        CTabPageItem flat(-5);
        flat.AddPage("x", &bare, 0);
        QVERIFY(flat.GetTitleWidget()->height() == 0 && flat.GetCommentWidget() == &bare);

        Accordion four(4);
        for (CTabPageItem *entry : four.entries)
            entry->SetGroup(four.entries + QVector<CTabPageItem *>{nullptr, &bare});
        QPointer<CFoucsLabel> title = four.entries[0]->GetTitleWidget();
        QCOMPARE(title->height(), 30);
        auto *other = new QLabel(&four.window);
        four.entries[0]->AddPage("Other", other, 9); // a second time
        QVERIFY(four.entries[0]->GetTitleWidget() == title && title->Text() == "Other");
        delete four.contents[0];
        four.entries[0]->SetFocus();
        four.entries[1]->AddPage("Without a content", nullptr, 0);
        delete four.entries.takeAt(2);
        delete four.entries[1]->GetTitleWidget();
        delete four.contents[3];
        click(four.entries[2]->GetTitleWidget(), Click::Left);
        QVERIFY(four.state().endsWith(" --x") && other->isHidden());
        four.entries[1]->SetFocus(); // has lost its title
        QVERIFY(four.state().endsWith(" --x"));
    }

    // What is asked of an entry, its title does.
    void entryPassesOn()
    {
        CTabPageItem entry(40);
        entry.AddPage("Old", nullptr, 25);
        entry.ChangeTitle("New");
        CFoucsLabel twin("New", 25, 10);
        const QStringList tail{"../res/icon_info.png", "../res/icon_user.png"};
        entry.SetIconPath({}, tail);
        twin.SetIconPath({}, tail);
        for (CFoucsLabel *label : {entry.GetTitleWidget(), &twin})
            label->resize(200, 40);
        QCOMPARE(entry.GetTitleWidget()->grab().toImage(), twin.grab().toImage());
    }

    // A title goes with its entry where nobody has it. Entries and tabs may be deleted in their own signals.
    void lives()
    {
        Accordion two(2);
        const QPointer<CFoucsLabel> placed = two.entries[0]->GetTitleWidget();
        const QPointer<CFoucsLabel> loose = two.entries[1]->GetTitleWidget();
        loose->setParent(nullptr);
        qDeleteAll(two.entries);
        QVERIFY(placed && !loose); // nobody else's
        for (const Click how : {Click::Left, Click::Space, Click::Enter, Click::Tool}) {
            const QPointer<CTabPageItem> entry = new CTabPageItem(30);
            entry->AddPage("x", nullptr, 0);
            connect(entry.data(), &CTabPageItem::sigCurItemClicked, this, [&] { delete entry; });
            click(entry->GetTitleWidget(), how);
            QVERIFY(!entry);
            if (how == Click::Enter) // does not press a tab
                continue;
            const QPointer<CTabContainer> tabs = new CTabContainer;
            addTabs(*tabs, {1, 2});
            connect(tabs.data(), &CTabContainer::sigTabChanged, this, [&] { delete tabs; });
            click(tab(*tabs, 2), how);
            QVERIFY(!tabs);
        }
    }

    // As forms fill a container, and as Designer changes it.
    void pagesByPlace()
    {
        CTabContainer tabs;
        QStringList told;
        connect(&tabs, &CTabContainer::currentChanged, &tabs,
                [&](int index) { told << QString::number(index); });
        QVector<QWidget *> pages;
        for (const char *title : {"One", "Two", "Three"}) {
            pages << new QWidget;
            pages.last()->setWindowTitle(QLatin1String(title));
        }
        tabs.setCurrentPage(1); // there once it comes
        tabs.addPage(pages[0]);
        tabs.addPage(pages[2]);
        tabs.insertPage(1, pages[1]);
        tabs.addPage(pages[1]); // is here already
        tabs.addPage(nullptr);
        QCOMPARE(tabs.count(), 3);
        for (int place = 0; place < 3; ++place) {
            QCOMPARE(tabs.widget(place), pages[place]);
            QCOMPARE(tabs.indexOf(pages[place]), place);
        }
        tabs.setCurrentPage(0);
        QCOMPARE(tabs.currentTabText(), QStringLiteral("One"));
        QCOMPARE(shown(pages), QStringLiteral("x--"));
        pages[0]->setWindowTitle("First");
        QCOMPARE(tabs.currentTabText(), QStringLiteral("First"));
        told.clear();
        tabs.removePage(0);
        QCOMPARE(tabs.count(), 2);
        QCOMPARE(tabs.currentPage(), 0);
        QCOMPARE(shown(pages), QStringLiteral("-x-"));
        QCOMPARE(told.size(), 1);
        tabs.removePage(7);
        tabs.removePage(-1);
        QCOMPARE(tabs.count(), 2);
        // Without the container's doing.
        QSignalSpy texts(&tabs, &CTabContainer::currentTabTextChanged);
        tabs.setCurrentTabText("Second");
        QCoreApplication::processEvents(); // what was to be told until now has been
        told.clear();
        pages[2]->setParent(nullptr); // another one
        delete pages[1];
        AWAIT_EQUAL(told, QStringList("-1"));
        QCOMPARE(texts, (QList<QList<QVariant>>{{"Second"}, {""}}));
        delete pages[2];
    }

    // As a form makes them: what is in the pages first.
    void tabsComeBeforePages()
    {
        QWidget window;
        auto *tabs = new CTabContainer(&window);
        new QLineEdit(&window);
        for (const char *title : {"One", "Two"}) {
            auto *page = new QWidget;
            page->setWindowTitle(title);
            new QLineEdit(page);
            tabs->addPage(page);
        }
        const auto stops = [&window] {
            QStringList names;
            for (QWidget *each = window.nextInFocusChain(); each != &window;
                 each = each->nextInFocusChain()) {
                if (each->focusPolicy() & Qt::TabFocus)
                    names << each->metaObject()->className();
            }
            return names.join(' ');
        };
        QCOMPARE(stops(), QString("lumqt::GroupButton QLineEdit QLineEdit QLineEdit"));
    }
};

LUMQT_TEST_MAIN(TestTabs)
#include "tst_tabs.moc"
