#include "Acts.h"
#include "CBPPushBtn.h"
#include "CButtonGroupBox.h"
#include "CFoucsLabel.h"
#include "CTabContainer.h"
#include "CTabPageItem.h"
#include "Pixels.h"
#include "TestMain.h"

#include <QBoxLayout>
#include <QLabel>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>
#include <QSignalSpy>

#include <memory>
#include <private/qguiapplication_p.h>

namespace {

QVector<QPair<QObject *, int>> selections;

void noteSelection(QAccessibleEvent *event)
{
    if (event->type() == QAccessible::SelectionAdd || event->type() == QAccessible::SelectionRemove)
        selections.append({event->object(), event->type()});
}

// A tab "Tab <id>" per id, and its page.
QVector<QWidget *> addTabs(CTabContainer &tabs, const QVector<int> &ids)
{
    QVector<QWidget *> pages;
    for (const int id : ids) {
        pages << new QLabel(QString::number(id));
        tabs.Appendtab(pages.last(), QStringLiteral("Tab %1").arg(id), id);
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

class Hidings : public QObject
{
public:
    explicit Hidings(QWidget *widget) { widget->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::HideToParent;
        return false;
    }
};

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

    QString focus() const
    {
        QString result;
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
    void initTestCase() { platform()->setActive(true); }
    void cleanupTestCase() { platform()->setActive(false); }

    void firstTabIsCurrent()
    {
        CTabContainer tabs;
        QCOMPARE(tabs.currentIndex(), -1);
        QSignalSpy changed(&tabs, &CTabContainer::sigTabChanged);
        QVector<QWidget *> pages = addTabs(tabs, {3, 1, 2});
        QCOMPARE(tabs.currentIndex(), 3);
        QTRY_COMPARE(shown(pages), QStringLiteral("x--"));
        QVERIFY(changed.isEmpty());
        // One that comes later stays until a tab is clicked.
        pages += addTabs(tabs, {9});
        QCoreApplication::processEvents();
        QCOMPARE(shown(pages), QStringLiteral("x--x"));
        click(tab(tabs, 1), Click::Left);
        QCOMPARE(shown(pages), QStringLiteral("-x--"));
    }

    void clicksAndSelections()
    {
        CTabContainer tabs;
        const QVector<QWidget *> pages = addTabs(tabs, {3, 1, 2});
        QCoreApplication::processEvents();
        QStringList log;
        connect(&tabs, &CTabContainer::sigTabChanged, this, [&](int id) {
            log << QStringLiteral("%1 %2 %3").arg(id).arg(tabs.currentIndex()).arg(shown(pages));
        });
        click(tab(tabs, 1), Click::Left);
        click(tab(tabs, 2), Click::Space);
        tabs.SetSelected(3);
        QCOMPARE(log, (QStringList{QStringLiteral("1 1 -x-"), QStringLiteral("2 2 --x"),
                                   QStringLiteral("3 3 x--")}));
        tabs.SetSelected(77);
        QCOMPARE(tabs.currentIndex(), 77);
        QCOMPARE(shown(pages), QStringLiteral("x--"));
        QCOMPARE(log.size(), 3);
    }

    void badTabs()
    {
        auto tabs = std::make_unique<CTabContainer>();
        QVector<QWidget *> pages = addTabs(*tabs, {5, 6});
        tabs->Appendtab(nullptr, QString(), 7);
        tabs->AppendWidget(nullptr);
        QTest::ignoreMessage(QtWarningMsg, "A CTabContainer cannot hold itself or a widget that it lies in");
        tabs->Appendtab(tabs.get(), QString(), 7);
        QVERIFY(!tab(*tabs, 7));
        QTest::ignoreMessage(QtWarningMsg, "CTabContainer: there is a tab 6 already");
        pages += addTabs(*tabs, {6, 8});
        QCoreApplication::processEvents();
        const auto buttons = tabs->findChildren<CBPPushBtn *>();
        QCOMPARE(buttons.size(), 4);
        click(buttons[2], Click::Left); // the second of that id
        QCOMPARE(shown(pages), QStringLiteral("--x-"));
        delete tab(*tabs, 5);
        delete pages.takeAt(1);
        tabs->SetSelected(6); // its page is gone
        QCOMPARE(shown(pages), QStringLiteral("---"));
        delete tab(*tabs, 8); // its page is left
        tabs->SetSelected(6);
        delete tabs->layout();
        tabs->Appendtab(new QWidget(tabs.get()), QString(), 10);
        tabs->AppendWidget(new QWidget(tabs.get()));
        delete tabs->findChild<CButtonGroupBox *>();
        tabs->SetSelected(6);
        QVERIFY(!tabs->findChild<CBPPushBtn *>());

        // Deleted before its first turn of the loop, and in its own signal.
        addTabs(*new CTabContainer(tabs.get()), {1, 2});
        tabs.reset();
        QCoreApplication::processEvents();
        for (const Click how : {Click::Left, Click::Space, Click::Tool}) {
            QPointer<CTabContainer> dying = new CTabContainer;
            addTabs(*dying, {1, 2});
            connect(dying.data(), &CTabContainer::sigTabChanged, this, [&] { delete dying.data(); });
            click(tab(*dying, 2), how);
            QVERIFY(!dying);
        }
    }

    // A page that two tabs share is not hidden for the other's sake.
    void onePageForTwoTabs()
    {
        CTabContainer tabs;
        auto *page = new QWidget;
        tabs.Appendtab(page, QStringLiteral("One"), 1);
        tabs.Appendtab(page, QStringLiteral("Two"), 2);
        QCoreApplication::processEvents();
        const Hidings hidings(page);
        for (const int id : {1, 2, 1})
            tabs.SetSelected(id);
        QVERIFY(!page->isHidden() && hidings.count == 0);
    }

    void tabsForScreenReaders()
    {
        CTabContainer tabs;
        const QVector<QWidget *> pages = addTabs(tabs, {1, 2});
        QCoreApplication::processEvents();
        QAccessibleInterface *second = QAccessible::queryAccessibleInterface(tab(tabs, 2));
        QCOMPARE(second->role(), QAccessible::PageTab);
        QCOMPARE(second->parent()->role(), QAccessible::PageTabList);
        QCOMPARE(second->text(QAccessible::Name), QStringLiteral("Tab 2"));
        QVERIFY(second->state().selectable && !second->state().selected && !second->state().checkable);
        const auto relations = second->relations();
        QCOMPARE(relations.size(), 1);
        QCOMPARE(relations[0].first->object(), pages[1]);
        QVERIFY(second->relations(QAccessible::Label).isEmpty());
        listen([&] { tabs.SetSelected(2); });
        QVERIFY(second->state().selected);
        QVERIFY(selections.contains({tab(tabs, 2), QAccessible::SelectionAdd}));
        delete pages[1];
        QVERIFY(second->relations().isEmpty());
    }

    // --------------------------------------------------------------------------------------------------------

    void oneEntryIsOpen()
    {
        Accordion three(3);
        three.entries[1]->SetFocus();
        QCOMPARE(shown(three.contents), QStringLiteral("-x-"));
        QCOMPARE(three.focus(), QStringLiteral("-x-"));
        QStringList log;
        for (CTabPageItem *entry : three.entries) {
            connect(entry, &CTabPageItem::sigCurItemClicked, this, [&, entry](CTabPageItem *clicked) {
                log << (clicked == entry ? shown(three.contents) + three.focus() : QStringLiteral("?"));
            });
        }
        const Click ways[] = {Click::Left, Click::Space, Click::Enter, Click::Tool};
        for (int i = 0; i < 4; ++i)
            click(three.entries[i % 3]->GetTitleWidget(), ways[i]);
        click(three.entries[1]->GetTitleWidget(), Click::Right);
        QCOMPARE(log, (QStringList{QStringLiteral("x--x--"), QStringLiteral("-x--x-"),
                                   QStringLiteral("--x--x"), QStringLiteral("x--x--")}));
    }

    void badEntries()
    {
        CTabPageItem bare(-5);
        bare.ChangeTitle(QStringLiteral("x"));
        bare.SetIconPath({}, {});
        bare.SetFocusLabelColor(QColor(), QColor());
        bare.HideTailIcon();
        bare.SetFocus();
        QVERIFY(!bare.IsFocus() && !bare.GetTitleWidget() && !bare.GetCommentWidget());

        Accordion four(4);
        for (CTabPageItem *entry : four.entries)
            entry->SetGroup(four.entries + QVector<CTabPageItem *>{nullptr, &bare});
        QPointer<CFoucsLabel> title = four.entries[0]->GetTitleWidget();
        QCOMPARE(title->height(), 30);
        auto *other = new QLabel(&four.window);
        four.entries[0]->AddPage(QStringLiteral("Other"), other, 9); // a second time
        QCOMPARE(four.entries[0]->GetTitleWidget(), title.data());
        QCOMPARE(title->Text(), QStringLiteral("Other"));
        delete four.contents[0];
        four.entries[0]->SetFocus();
        four.entries[1]->AddPage(QStringLiteral("Without a content"), nullptr, 0);
        delete four.entries.takeAt(2);
        delete four.entries[1]->GetTitleWidget();
        delete four.contents[3];
        click(four.entries[2]->GetTitleWidget(), Click::Left);
        QCOMPARE(four.focus(), QStringLiteral("--x"));
        QVERIFY(other->isHidden());
        four.entries[1]->SetFocus(); // has lost its title
        QCOMPARE(four.focus(), QStringLiteral("--x"));
    }

    void lifeOfATitle()
    {
        auto entry = std::make_unique<CTabPageItem>(30);
        entry->AddPage(QStringLiteral("x"), nullptr, 0);
        const QPointer<CFoucsLabel> title = entry->GetTitleWidget();
        entry.reset();
        QVERIFY(!title); // nobody else's
        Accordion placed(1);
        const QPointer<CFoucsLabel> kept = placed.entries[0]->GetTitleWidget();
        delete placed.entries[0];
        QVERIFY(kept);
        for (const Click how : {Click::Left, Click::Space, Click::Enter, Click::Tool}) {
            QPointer<CTabPageItem> dying = new CTabPageItem(30);
            dying->AddPage(QStringLiteral("x"), nullptr, 0);
            connect(dying.data(), &CTabPageItem::sigCurItemClicked, this, [&] { delete dying.data(); });
            click(dying->GetTitleWidget(), how);
            QVERIFY(!dying);
        }
    }

    // --------------------------------------------------------------------------------------------------------

    void labelTellsOfClicksOnly()
    {
        CFoucsLabel first(QStringLiteral("First"));
        CFoucsLabel second(QStringLiteral("Second"));
        auto *gone = new CFoucsLabel;
        for (CFoucsLabel *each : {&first, &second})
            each->SetSiblings({&first, nullptr, gone, &second});
        delete gone;
        QSignalSpy firstChanged(&first, &CFoucsLabel::FocusChanged);
        QSignalSpy secondChanged(&second, &CFoucsLabel::FocusChanged);
        listen([&] {
            first.SetFocus(true);
            second.SetFocus(true);
            second.SetFocus(true);
        });
        QVERIFY(second.IsFocus() && !first.IsFocus());
        QCOMPARE(selections, (QVector<QPair<QObject *, int>>{{&first, QAccessible::SelectionAdd},
                                                             {&first, QAccessible::SelectionRemove},
                                                             {&second, QAccessible::SelectionAdd}}));
        second.SetFocus(false);
        QVERIFY(!second.IsFocus() && firstChanged.isEmpty() && secondChanged.isEmpty());

        click(&first, Click::Left);
        QCOMPARE(firstChanged.takeFirst().value(0).value<CFoucsLabel *>(), &first);
        sendMouse(second, QEvent::MouseButtonPress);
        sendMouse(second, QEvent::MouseButtonRelease, Qt::LeftButton, QPoint(-5, 5)); // thought better of it
        sendMouse(second, QEvent::MouseButtonRelease);                                // pressed elsewhere
        QTest::keyPress(&second, Qt::Key_Space);
        sendFocus(second, QEvent::FocusOut); // and let go somewhere else
        QTest::keyRelease(&second, Qt::Key_Space);
        second.setEnabled(false);
        click(&second, Click::Tool);
        QVERIFY(secondChanged.isEmpty() && first.IsFocus());
        QAccessibleInterface *face = QAccessible::queryAccessibleInterface(&first);
        QCOMPARE(face->role(), QAccessible::PageTab);
        QCOMPARE(face->text(QAccessible::Name), QStringLiteral("First"));
        QVERIFY(face->state().selectable && face->state().selected);
    }

    void labelLooks_data() { scalings(); }

    // Where icon, bar and arrow stand, either way.
    void labelLooks()
    {
        QFETCH(qreal, ratio);
        CFoucsLabel label(QStringLiteral("Title"), 20, 6);
        label.SetColor(Qt::black, Qt::red);
        label.resize(300, 40);
        for (const bool mirrored : {false, true}) {
            label.setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
            label.SetFocus(false);
            const QImage plain = render(label, ratio, mirrored);
            QVERIFY(!hasInk(plain, QRect(0, 0, 30, 40), Qt::black));
            QVERIFY(hasInk(plain, QRect(32, 0, 40, 40), Qt::black));
            QVERIFY(hasInk(plain, QRect(278, 10, 10, 20), Qt::black));
            label.SetFocus(true);
            const QImage focused = render(label, ratio, mirrored);
            QVERIFY(!hasInk(focused, focused.rect(), Qt::black));
            const QRect strip(0, 0, qRound(10 * ratio), focused.height());
            const QRect bar = boxOf(focused.copy(strip), Qt::red);
            QVERIFY(bar.topLeft() == QPoint(0, 0) && bar.height() == focused.height());
            QVERIFY(qAbs(bar.width() - 3 * ratio) < 1);
            QVERIFY(focused.pixelColor(focused.width() / 2, 2) != QColor(Qt::white)); // its ground
        }
        label.HideTailIcon();
        QVERIFY(!hasInk(render(label, ratio, true), QRect(278, 10, 10, 20), Qt::red));
    }

    void labelSizes()
    {
        CFoucsLabel label(QStringLiteral("A rather long title"), 0, 10);
        const QSize plain = label.sizeHint();
        QVERIFY(label.minimumSizeHint().width() < plain.width());
        const QString icon = QStringLiteral("../res/icon_user.png");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("none\\.png")));
        label.SetIconPath({icon}, {QStringLiteral("none.png"), icon, icon});
        const int width = QImage(icon).width();
        QCOMPARE(label.sizeHint().width(), plain.width() + width + 10 + width - 10); // instead of our arrow
        label.resize(1, 1);
        label.grab();
        CFoucsLabel huge(QString(1000000, QLatin1Char('W')), std::numeric_limits<int>::max(),
                         std::numeric_limits<int>::min());
        QVERIFY(huge.sizeHint().isValid());
        huge.resize(80, 30);
        huge.grab();
    }

private:
    static QPlatformAccessibility *platform()
    {
        return QGuiApplicationPrivate::platformIntegration()->accessibility();
    }

    template <class Act> static void listen(Act act)
    {
        selections.clear();
        const auto previous = QAccessible::installUpdateHandler(noteSelection);
        act();
        QAccessible::installUpdateHandler(previous);
    }

    // The label on white, turned back when it is mirrored.
    static QImage render(CFoucsLabel &label, qreal ratio, bool mirrored)
    {
        QImage image(label.size() * ratio, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::white);
        label.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        return mirrored ? image.mirrored(true, false) : image;
    }

    // Whether something of the colour, antialiased or not, is in the rectangle of logical pixels.
    static bool hasInk(const QImage &image, const QRect &where, const QColor &color)
    {
        const qreal ratio = image.devicePixelRatio();
        const QRect pixels = QRectF(QPointF(where.topLeft()) * ratio, QSizeF(where.size()) * ratio).toRect();
        for (int y = pixels.top(); y <= pixels.bottom() && y < image.height(); ++y) {
            for (int x = pixels.left(); x <= pixels.right() && x < image.width(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                if (qAbs(pixel.red() - color.red()) + qAbs(pixel.green() - color.green()) < 120)
                    return true;
            }
        }
        return false;
    }
};

LUMQT_TEST_MAIN(TestTabs)
#include "tst_tabs.moc"
