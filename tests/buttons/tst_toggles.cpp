#include "Acts.h"
#include "Await.h"
#include "CBPImageButton.h"
#include "CBPToolButton.h"
#include "CButtonGroupBox.h"
#include "CTriStateButton.h"
#include "Pixels.h"
#include "Selections.h"
#include "TestMain.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QToolTip>

class TestToggles : public QObject
{
    Q_OBJECT

private slots:
    // Each way to click sends the same signals and toggles, or does not. In clicked() any button may be
    // deleted; here it may in pressed(), too.
    void flags()
    {
        const auto check = [this](bool locked, bool noToggle, bool bySet, bool byClick) {
            for (const Click how : {Click::Left, Click::Right, Click::Space, Click::Enter, Click::Tool}) {
                QPointer<CTriStateButton> button = new CTriStateButton("Mon", locked, noToggle, nullptr);
                button->setDefault(true);
                QStringList log;
                const auto note = [&log](const char *what) { return [&log, what] { log << what; }; };
                connect(button, &QPushButton::pressed, this, note("pressed"));
                connect(button, &QPushButton::released, this, note("released"));
                connect(button, &QPushButton::toggled, this, note("toggled"));
                connect(button, &CBPPushBtn::sigBtnClicked, this, note("id"));
                connect(button, &QPushButton::clicked, this, [&](bool checked) {
                    log << QStringLiteral("clicked %1 %2").arg(checked).arg(button->IsChecked());
                });
                button->SetChecked(true);
                QVERIFY(button->IsChecked() == bySet && log.isEmpty());
                button->SetChecked(false);
                const QString start(how == Click::Right ? "" : "pressed ");
                for (const bool checked : {byClick, false}) {
                    click(button, how);
                    QVERIFY(button->IsChecked() == checked && !button->isDown());
                    QCOMPARE(log.join(' '), start + QStringLiteral("clicked 0 %1").arg(checked));
                    log.clear();
                }
                connect(button, &QPushButton::pressed, this, [&] { delete button; });
                click(button, how);
                QCOMPARE(button.isNull(), how != Click::Right);
                delete button;
            }
        };
        check(false, false, true, true);
        check(true, false, false, true);
        check(false, true, false, false);
    }

    // Of three looks, and none for "disabled".
    void colors()
    {
        CTriStateButton button("MM", false, false, nullptr);
        QCOMPARE(button.minimumSize(), QSize(85, 28));
        QVERIFY(button.textColor(2).isValid() && !button.textColor(3).isValid());
        QColor colors[] = {Qt::red, Qt::blue, Qt::magenta}; // plain, hovered, checked
        button.SetColor(colors[0], colors[2], colors[1]);
        for (int look = 0; look < 3; ++look)
            QCOMPARE(button.textColor(look), colors[look]);
        QVERIFY(!button.textColor(3).isValid());
    }

    // The tool tip of a text that is too long is the whole of it.
    void longTexts()
    {
        for (const QString text : {"Mon", "MMMMMM MMMMMMMMMMM <b>"}) {
            CTriStateButton button(text, false, false, nullptr);
            button.show();
            button.grab(); // which tells whether it is cut off
            QHelpEvent asked(QEvent::ToolTip, QPoint(5, 5), button.mapToGlobal(QPoint(5, 5)));
            QCoreApplication::sendEvent(&button, &asked);
            QCOMPARE(QToolTip::text(), text.size() > 3 ? "<p>" + text.toHtmlEscaped() + "</p>" : QString());
            button.setToolTip(QStringLiteral("own"));
            QCoreApplication::sendEvent(&button, &asked);
            QCOMPARE(QToolTip::text(), QStringLiteral("own"));
            QToolTip::hideText();
            AWAIT(QToolTip::text().isEmpty());
        }
        // As much of it as there is room for, whatever the width of a letter.
        CTriStateButton whole(QString(40, 'M'), false, false, nullptr), part("", false, false, nullptr);
        for (int width = 85; width < 105; ++width) {
            part.setText(whole.fontMetrics().elidedText(whole.text(), Qt::ElideRight, width - 2 * 4));
            for (CTriStateButton *button : {&whole, &part})
                button->setFixedSize(width, 28);
            QCOMPARE(pictureOf(whole, 1), pictureOf(part, 1));
        }
    }

    // Made checkable, it is what a group of Qt takes it for.
    void inAButtonGroup()
    {
        QButtonGroup group;
        CTriStateButton buttons[] = {{"One", false, false, nullptr}, {"Two", false, false, nullptr}};
        for (CTriStateButton &button : buttons) {
            button.setCheckable(true);
            group.addButton(&button);
        }
        const auto chosen = [&](int index) {
            const CTriStateButton &other = buttons[1 - index];
            return buttons[index].IsChecked() && buttons[index].isChecked() && !other.IsChecked() &&
                   !other.isChecked();
        };
        QSignalSpy groupClicked(&group, &QButtonGroup::idClicked);
        QSignalSpy groupReleased(&group, &QButtonGroup::idReleased);
        for (const Click how : {Click::Left, Click::Space, Click::Tool}) {
            for (const int index : {0, 1, 1}) { // the group keeps one chosen
                click(&buttons[index], how);
                QVERIFY(chosen(index));
            }
        }
        QVERIFY(groupClicked.isEmpty() && groupReleased.isEmpty());
        buttons[0].SetChecked(true);
        QVERIFY(chosen(0));
        buttons[1].setChecked(true);
        QVERIFY(chosen(1));
    }

    void spoken()
    {
        selections::setActive(true);
        CTriStateButton button("R&D", false, false, nullptr);
        CTriStateButton all("All", true, true, nullptr);
        CButtonGroupBox group(true, nullptr);
        CBPPushBtn *first = group.AddButton(1, "One", QString());
        group.AddButton(2, "Two", QString());
        const auto face = [](QWidget *widget) { return QAccessible::queryAccessibleInterface(widget); };
        QCOMPARE(face(&button)->role(), QAccessible::CheckBox);
        QCOMPARE(face(&all)->role(), QAccessible::PushButton);
        QCOMPARE(face(first)->role(), QAccessible::RadioButton);
        for (const bool checkable : {true, false}) {
            for (CTriStateButton *each : {&button, &all}) {
                each->setCheckable(checkable);
                const QStringList names = face(each)->actionInterface()->actionNames();
                QVERIFY(names.contains(QAccessibleActionInterface::pressAction()));
                QCOMPARE(names.contains(QAccessibleActionInterface::toggleAction()), each == &button);
            }
        }
        QVERIFY(face(&button)->state().checkable && !face(&button)->state().checked);
        CBPImageButton bare({4, QString()}, false, 1, nullptr);
        bare.setCheckable(true);
        for (const bool on : {true, false}) {
            bare.setChecked(on);
            bare.setDown(on);
            const QAccessible::State state = face(&bare)->state();
            QVERIFY(state.checkable && state.checked == on && state.pressed == on);
        }
        const auto told = [](const std::function<void()> &act) { return selections::during(act).size(); };
        QCOMPARE(told([&] {
                     button.SetChecked(true);
                     button.SetChecked(true);
                     const QString toggle = QAccessibleActionInterface::toggleAction();
                     face(&button)->actionInterface()->doAction(toggle);
                     click(&button, Click::Left);
                 }),
                 3);
        QVERIFY(face(&button)->state().checked);
        QCOMPARE(told([&] { click(first, Click::Tool); }), 1);
        QVERIFY(face(first)->state().checked);
        QCOMPARE(told([&] { click(group.GetButton(2), Click::Left); }), 2);
        QVERIFY(!face(first)->state().checked);
        CBPToolButton tool("Tool", 1, ENAlignLeft, false);
        QCOMPARE(told([&] {
                     for (const bool selected : {true, true, false})
                         tool.SetSelected(selected);
                 }),
                 2);
        static int names = 0;
        const auto before = QAccessible::installUpdateHandler(
            [](QAccessibleEvent *event) { names += event->type() == QAccessible::NameChanged; });
        CBPImageButton image({}, false, 1);
        image.SetTipsTxt("tip");
        image.SetText("text", true, 0);
        QAccessible::installUpdateHandler(before);
        QCOMPARE(names, 2);
        selections::setActive(false);
    }

    // --------------------------------------------------------------------------------------------------------

    void groupSelects()
    {
        const QVector<QColor> four{Qt::red, Qt::red, Qt::blue, Qt::red};
        for (const bool exclusive : {true, false}) {
            CButtonGroupBox group(exclusive, nullptr);
            CBPPushBtn *before = group.AddButton(0, "x", QString());
            group.SetBgClr(four);
            group.SetTextClr(four);
            QVector<CBPPushBtn *> buttons;
            for (int i = 0; i < 3; ++i)
                buttons << group.AddButton(i % 2 + 1, QStringLiteral("y"), QStringLiteral("none.png"));
            buttons[2]->setSelected(true);
            QCOMPARE(before->bgColor(2), QColor(219, 237, 253));
            QVERIFY(group.GetButton(1) == buttons[0] && !group.GetButton(7));
            buttons[1]->setBindId(7);
            QVERIFY(group.GetButton(7) == buttons[1] && !group.GetButton(2));
            buttons[1]->setBindId(2);
            QCOMPARE(buttons[0]->objectName(), QStringLiteral("id_bgb_y"));
            QSignalSpy clicked(&group, &CButtonGroupBox::sigBtnClicked);
            for (const Click how : {Click::Left, Click::Space, Click::Tool}) {
                click(buttons[1], how);
                QCOMPARE(clicked.takeFirst().first().toInt(), 2);
                sendEvent(*buttons[1], QEvent::Leave);
                QCOMPARE(grabbedAt(*buttons[0], 3, 14), QColor(Qt::red));
                QCOMPARE(grabbedAt(*buttons[1], 3, 14), QColor(exclusive ? Qt::blue : Qt::red));
                QCOMPARE(grabbedAt(*buttons[2], 3, 14), QColor(exclusive ? Qt::red : Qt::blue));
            }
            QVERIFY(clicked.isEmpty());
            delete buttons[0]; // the application's right
            QCOMPARE(group.GetButton(1), buttons[2]);
            click(buttons[2], Click::Left);
            QPointer<CButtonGroupBox> dying = new CButtonGroupBox(exclusive, nullptr);
            connect(dying.data(), &CButtonGroupBox::sigBtnClicked, this, [&] { delete dying.data(); });
            click(dying->AddButton(1, QString(), QString()), Click::Left);
            QVERIFY(!dying);
        }
    }

    // Side by side, with room for the lines.
    void groupPlaces()
    {
        for (const int count : {0, 1, 3}) {
            CButtonGroupBox group(true, nullptr);
            delete group.AddButton(9, QString(), QString()); // it gets along without its first button
            for (int i = 0; i < count; ++i)
                group.AddButton(i, "x", QString());
            QCoreApplication::processEvents();
            QCOMPARE(group.maximumHeight(), count ? 30 : QWIDGETSIZE_MAX);
            QCOMPARE(group.sizeHint().width(), count ? count * 86 + 1 : 2);
            for (const bool mirrored : {false, true}) {
                group.setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
                group.resize(700, 30); // room to spare is behind the buttons
                group.layout()->activate();
                for (int i = 0; i < count; ++i) {
                    const QRect place(mirrored ? 614 - i * 86 : 1 + i * 86, 1, 85, 28);
                    QCOMPARE(group.GetButton(i)->geometry(), place);
                }
            }
        }
    }

    // As a form sets it up; ids of what is there count.
    void groupItems()
    {
        CButtonGroupBox group;
        group.AddButton(1, "first", QString());
        QVector<int> told;
        connect(&group, &CButtonGroupBox::checkedIdChanged, &group, [&](int id) { told << id; });
        const QVector<QStringList> rows{{"a", "b", "c"}, {"d"}, {"e", "f", "g", "h"}, {}, {"i", "j"}};
        for (const QStringList &texts : rows) {
            group.setItems(texts);
            QCOMPARE(group.items(), texts);
            QCOMPARE(group.sizeHint().width(), qMax(2, texts.size() * 86 + 1));
            QCoreApplication::processEvents();
            group.setCheckedId(0);
            QCOMPARE(group.checkedId(), texts.size() > 1 ? 0 : -1);
        }
        QVERIFY(group.GetButton(0)->isSelected() && !group.GetButton(1)->isSelected());
        QCOMPARE(group.maximumHeight(), 30);
        group.setCheckedId(7);
        QCOMPARE(told, (QVector<int>{0, -1, 0, -1, 0, -1}));
        group.AddButton(7, "k", QString());
        QCOMPARE(group.checkedId(), 7);
        group.AddButton(-1, "l", QString()); // an id as any other
        QVERIFY(group.GetButton(7)->isSelected() && !group.GetButton(-1)->isSelected());
        group.setExclusive(false);
        group.setCheckedId(1);
        QVERIFY(!group.GetButton(1)->isSelected());
    }

    void groupIsOneTabStop()
    {
        QWidget window;
        QHBoxLayout layout(&window);
        QLineEdit before;
        CButtonGroupBox group(true, nullptr);
        QLineEdit after;
        for (QWidget *each : QWidgetList{&before, &group, &after})
            layout.addWidget(each);
        QVector<CBPPushBtn *> buttons;
        for (int i = 0; i < 4; ++i)
            buttons << group.AddButton(i, QString::number(i), QString());
        QWidget::setTabOrder(&before, buttons[0]);
        QWidget::setTabOrder(buttons[3], &after);
        buttons[0]->setSelected(true);
        showActive(window);
        const auto key = [&](Qt::Key code) {
            return [&window, code] { QTest::keyClick(window.focusWidget(), code); };
        };
        const auto focus = [](QWidget &field) { return [&field] { field.setFocus(); }; };
        const Deeds own{{"tab", key(Qt::Key_Tab)},
                        {"back", key(Qt::Key_Backtab)},
                        {"left", key(Qt::Key_Left)},
                        {"right", key(Qt::Key_Right)},
                        {"home", key(Qt::Key_Home)},
                        {"end", key(Qt::Key_End)},
                        {"first", focus(before)},
                        {"last", focus(after)},
                        {"chosen1", // by the program
                         [&] {
                             buttons[1]->setSelected(true);
                             buttons[0]->setSelected(false);
                         }},
                        {"less1", [&] { buttons[1]->setEnabled(false); }},
                        {"less2", [&] { buttons[2]->setEnabled(false); }},
                        {"more2", [&] { buttons[2]->setEnabled(true); }},
                        {"hide3", [&] { buttons[3]->hide(); }},
                        {"delete0", [&] { delete buttons[0]; }}};
        const QVector<QWidget *> all{buttons[0], buttons[1], buttons[2], buttons[3], &before, &after};
        const auto place = [&] { return QString::number(all.indexOf(window.focusWidget())); };
        const QString way =
            "first=4 tab=0 left=0 right=1 less2=1 right=3 tab=5 back=3 " // where it was
            "last=5 chosen1=5 back=1 home=0 end=3 last=5 hide3=5 back=0 last=5 delete0=5 back=1 "
            "first=4 less1=4 more2=4 tab=2";
        QCOMPARE(traced(&window, way, place, own), way);
    }
};

LUMQT_TEST_MAIN(TestToggles)
#include "tst_toggles.moc"
