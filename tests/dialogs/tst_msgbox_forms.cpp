#include "CMsgBox.h"

#include "foundation/FieldText.h"
#include "MsgBoxProbe.h"
#include "platform/Platform.h"
#include "Rows.h"
#include "TestMain.h"

#include <QAccessible>
#include <QClipboard>
#include <QScrollArea>

namespace {

constexpr int kUser = 0x1;
constexpr int kPassword = 0x2;
constexpr int kHint = 0x4;

// The window in front, once it is: with the keyboard focus where it belongs.
bool isInFront(QWidget &box)
{
    box.activateWindow();
    return QTest::qWaitForWindowActive(&box, kPatience);
}

// A key goes to what has the focus, as from the keyboard.
void type(QWidget &box, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(box.focusWidget() ? box.focusWidget() : &box, key, modifiers);
}

} // namespace

class TestMsgBoxForms : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // ------------------------------------------------------------------------------------------------------
    // a folder's name

    void dirNames_data()
    {
        columns<int, QString, QString, int>("buttons", "typed", "name", "result"); // after Return
        const int both = kOk | kCancel;
        row("nothing", both, "", "", 0);
        row("spaces", both, "   ", "   ", 0);
        row("a name", both, "abc", "abc", kOk);
        row("acceptable", both, "abc]", "abc]", -1);
        row("two, without OK", 0x601, "a b]c]", "a b]c]", -1);
        row("a tab", both, "\t", "\t", kOk);
        row("refused", both, "a/b:c\\d*e?f\"g<h>i|j", "abcdefghij", kOk);
        row("256", both, QString(300, 'x'), QString(256, 'x'), kOk);
    }
    void dirNames()
    {
        QFETCH(int, buttons);
        QFETCH(QString, typed);
        QFETCH(int, result); // 0: there is none
        MsgBox box;
        QSignalSpy quits(&box, &CMsgBox::sigQuit);
        QSignalSpy finished(&box, &QDialog::finished);
        int endings = 0;
        box.whileRunning([&] {
            QVERIFY(isInFront(box));
            CBPLineEdit *edit = box.edits().constFirst();
            QCOMPARE(box.focusWidget(), edit);
            QVERIFY(!box.ButtonIsEnable(kOk) && !box.label("Please enter the dir name:"));
            for (const QChar &key : typed) // a paste is refused or taken as a whole
                edit->insert(key);
            QTEST(edit->text(), "name");
            QCOMPARE(box.GetUser(), edit->text());
            QCOMPARE(box.ButtonIsEnable(kOk), result != 0 && (buttons & kOk));
            type(box, Qt::Key_Return);
            endings = finished.size();
            QCOMPARE(box.isVisible(), endings == 0);
        });
        const QString prompt(typed.isEmpty() ? "" : "Name"); // which replaces that of the box in any case
        QCOMPARE(box.showCreateDirBox(1, prompt, buttons), result == 0 ? -1 : result);
        QTEST(box.GetUser(), "name");
        QCOMPARE(endings, int(result != 0));
        QVERIFY(quits.size() == 1 && finished.size() == 1 && box.GetPassword().isEmpty());
    }

    // The edit is read as what is asked for, whatever comes to stand there.
    void dirBox()
    {
        MsgBox box;
        box.whileRunning([&] {
            CBPLineEdit *edit = box.edits().constFirst();
            QCOMPARE(edit->objectName(), QString("DefaultLineEdit"));
            const auto *spoken = QAccessible::queryAccessibleInterface(edit);
            QCOMPARE(spoken->text(QAccessible::Name), QString("Name"));
            box.label("<b>Name")->setText("");
            AWAIT_EQUAL(spoken->text(QAccessible::Name), QString("{caption}Question"));
            box.SetWindowTitle("Title");
            AWAIT_EQUAL(spoken->text(QAccessible::Name), QString("Title"));
            edit->setText(QString(60, ']'));
            edit->insert("x"); // there are many ways to divide what is there
            QCOMPARE(edit->text().size(), 61);
            edit->setText("a");
            edit->clearFocus();
            QVERIFY(!edit->hasAcceptableInput() && !lumqt::isRefused(edit)); // nor is the frame red
            edit->setText(" ");
            QVERIFY(!box.ButtonIsEnable(kOk));
            QTest::mouseClick(box.GetBtn(kCancel), Qt::LeftButton);
        });
        QCOMPARE(box.showCreateDirBox(1, "<b>Name", kOk | kCancel), kCancel);
    }

    // ------------------------------------------------------------------------------------------------------
    // user name and password

    void okButton_data()
    {
        columns<int, QString, QString, bool, bool, bool>("fields", "user", "password", "allowEmpty", "typed",
                                                         "ok");
        row("nothing", 3, "", "", true, false, false);
        row("both", 3, "user", "secret", false, false, true);
        row("no user", 3, "", "secret", true, false, false);
        row("no password", 3, "user", "", false, false, false);
        row("empty allowed", 3, "user", "", true, false, true);
        row("no edit, no user", 2, "", "secret", false, false, false);
        row("no edits", 8, "user", "secret", false, false, true);
        row("all there is", -1, "user", "secret", false, false, true);
        row("typed user", 3, "user", "", false, true, true); // the password does not matter then
        row("typed user alone", 1, "user", "", false, true, true);
        row("typed password, no user", 3, "", "secret", true, true, false);
        row("typed password", 2, "", "secret", false, true, true);
        row("typed no password", 2, "", "", false, true, false);
        row("typed no password, allowed", 2, "", "", true, true, true);
    }
    void okButton()
    {
        QFETCH(int, fields);
        QFETCH(QString, user);
        QFETCH(QString, password);
        QFETCH(bool, allowEmpty);
        QFETCH(bool, typed);
        MsgBox box;
        box.whileRunning([&] {
            const auto edits = box.edits();
            QCOMPARE(edits.size(), bool(fields & kUser) + bool(fields & kPassword));
            QVERIFY(edits.isEmpty() || box.focusWidget() == edits[0]);
            QCOMPARE(box.label("Wrong") != nullptr, bool(fields & kHint));
            for (CBPLineEdit *edit : edits) {
                const bool secret = edit->echoMode() == QLineEdit::Password;
                QCOMPARE(secret, edit != edits[0] || !(fields & kUser));
                QCOMPARE(edit->maxLength(), secret ? 64 : 128);
                if (typed)
                    edit->setText("x"); // first something else, so that each of them changes
            }
            for (CBPLineEdit *edit : typed ? edits : QList<CBPLineEdit *>())
                edit->setText(edit->echoMode() == QLineEdit::Password ? password : user);
            QTEST(box.ButtonIsEnable(kOk), "ok");
            QCOMPARE(box.GetBtn(kOk)->text(), QString("Proceed"));
            QVERIFY(box.GetBtn(kOk)->IsFocus() && !box.GetBtn(kCancel)->IsFocus());
            QCOMPARE(box.GetUser(), fields & kUser ? user : QString());
            QCOMPARE(box.GetPassword(), fields & kPassword ? password : QString());
        });
        box.showUserAndPasswordBox(0, "", fields, 64, kOk | kCancel, "", typed ? "" : user,
                                   typed ? "" : password, "Wrong", allowEmpty);
    }

    // Once for each change; a form that follows begins with entries of its own.
    void tellsOfTheEntries()
    {
        MsgBox box;
        QSignalSpy users(&box, &CMsgBox::userChanged);
        QSignalSpy passwords(&box, &CMsgBox::passwordChanged);
        const auto ask = [&box](const QString &user, const QString &password) {
            box.whileRunning([&] {
                const auto shown = box.edits().mid(box.edits().size() - 2);
                for (CBPLineEdit *edit : shown)
                    edit->setText(edit->text() + QLatin1Char('!'));
            });
            box.showUserAndPasswordBox(0, "", 3, 64, kOk, "", user, password);
        };
        ask("me", "");
        QCOMPARE(users, QList<QVariantList>({{"me"}, {"me!"}}));
        QCOMPARE(passwords, QList<QVariantList>({{"!"}}));
        ask("", "!");
        QCOMPARE(users.mid(2), QList<QVariantList>({{""}, {"!"}}));
        QCOMPARE(passwords.mid(1), QList<QVariantList>({{"!!"}}));
    }

    // A length that is none is no limit.
    void names()
    {
        MsgBox box;
        box.whileRunning([&] {
            QStringList found;
            const auto edits = box.edits();
            for (CBPLineEdit *edit : edits) {
                edit->setText("secret");
                QCOMPARE(edit->objectName(), QString("DefaultLineEdit"));
                found << QAccessible::queryAccessibleInterface(edit)->text(QAccessible::Name)
                      << edit->placeholderText();
            }
            QCOMPARE(found, QStringList({"User name", "User name", "Password", "Password"}));
            QCOMPARE(QAccessible::queryAccessibleInterface(&box)->text(QAccessible::Description),
                     QString("Prompt\nHint"));
            QCOMPARE(box.label("Hint")->palette().color(QPalette::WindowText), QColor(Qt::red));
            QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
            QVERIFY(QApplication::clipboard()->text().contains("Prompt"));
            QVERIFY(!QApplication::clipboard()->text().contains("secret"));
            QCOMPARE(box.GetPassword(), QString("secret"));
        });
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("-3"));
        box.showUserAndPasswordBox(0, "Prompt", 7, -3, kOk, "", "", "", "Hint");
    }

    // What is being typed goes on when the form becomes higher than the screen meanwhile.
    void focusKept()
    {
        const auto restore = restoring(lumqt::platform::answers());
        lumqt::platform::answers().workArea = [] { return QRect(0, 0, 1024, 600); };
        MsgBox box;
        box.whileRunning([&] {
            QVERIFY(isInFront(box));
            CBPLineEdit *password = box.edits().constLast();
            password->setFocus();
            box.label("Prompt")->setText(QString("line\n").repeated(99));
            AWAIT(box.findChild<QScrollArea *>());
            QCOMPARE(box.focusWidget(), password);
            AWAIT(password->hasFocus());
        });
        box.showUserAndPasswordBox(0, "Prompt", 3, 9, kOk);
    }

    // ------------------------------------------------------------------------------------------------------
    // keyboard

    void keys_data()
    {
        columns<int, int, int, int, int>("field", "buttons", "disabled", "key", "result");
        const int both = kOk | kCancel;
        const auto key = [](const char *name, int field, int buttons, int disabled, Qt::Key pressed,
                            int result) { row(name, field, buttons, disabled, int(pressed), result); };
        key("Return", 0, both, 0, Qt::Key_Return, kOk);
        key("Enter", 0, both, 0, Qt::Key_Enter, kOk);
        key("Return, disabled", 0, both, kOk, Qt::Key_Return, -1);
        key("Return, no OK", 0, kYes, 0, Qt::Key_Return, -1);
        key("Return, user", kUser, both, 0, Qt::Key_Return, kOk);
        key("Return, password", kPassword, both, 0, Qt::Key_Return, kOk);
        key("Escape", 0, both, 0, Qt::Key_Escape, kCancel);
        key("Escape, disabled", 0, both, kCancel, Qt::Key_Escape, -1);
        key("Escape, no Cancel", 0, kOk, 0, Qt::Key_Escape, -1);
        key("Escape, user", kUser, both, 0, Qt::Key_Escape, kCancel);
        key("another", 0, both, 0, Qt::Key_F5, -1);
    }
    void keys()
    {
        QFETCH(int, field);
        QFETCH(int, buttons);
        QFETCH(int, disabled);
        QFETCH(int, key);
        MsgBox box;
        QSignalSpy quits(&box, &CMsgBox::sigQuit);
        box.whileRunning([&] {
            QVERIFY(isInFront(box));
            box.EnableButton(disabled, false);
            QWidget *to = field ? static_cast<QWidget *>(box.edits().constFirst()) : &box;
            for (int i = 0; i < 2; ++i) // no answer to a box that has one
                QTest::keyClick(to, Qt::Key(key));
        });
        if (field)
            QTEST(box.showUserAndPasswordBox(0, "", field, 9, buttons, "", "user", "secret"), "result");
        else
            QTEST(box.message(0, "Text", "", buttons), "result");
        QCOMPARE(quits.size(), 1);
    }

    // Neither a press that is taken back is Cancel, nor what the application forbids.
    void lockedEscape()
    {
        MsgBox box;
        box.whileRunning([&] {
            QTest::keyPress(box.GetBtn(kOk), Qt::Key_Space);
            QTest::keyClick(box.GetBtn(kOk), Qt::Key_Escape);
            QVERIFY(!box.GetBtn(kOk)->isDown());
            box.SetDisableEscAndF4Flag(true);
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        QCOMPARE(box.message(0, "Text", "", kOk | kCancel), -1);
    }

    void firstFocus_data()
    {
        columns<int, QString, int>("buttons", "change", "focused");
        row("OK", kOk | kCancel, "", kOk);
        row("OK among others", kOk | kNo | 0x80000 | 0x2, "", kOk);
        row("Yes", kNo | kYes | 0x10, "", kYes);
        row("OK, No", kOk | kNo, "", kOk);
        row("Restart now", 0x600000, "", 0x200000);
        row("not Back", 0x80000 | kNo, "", kNo);
        row("only Cancel", kCancel, "", kCancel);
        row("the application's default", kOk | kNo, "default", kNo);
        row("disabled", kOk | kNo, "disabled", kNo);
        row("hidden", kOk | kNo, "hidden", kNo);
        row("Close, not No", kNo | 0x100000, "", 0x100000);
        row("beside something", kOk | kNo, "beside", kOk);
    }
    // One rule for pop-ups and message boxes, and for the default button.
    void firstFocus()
    {
        QFETCH(int, buttons);
        QFETCH(QString, change); // of a pop-up before it is shown
        QFETCH(int, focused);
        for (const bool isBox : {false, true}) {
            if (isBox && !change.isEmpty())
                continue;
            MsgBox box;
            PopUp w(nullptr, buttons);
            if (change == "default")
                w.GetBtn(focused)->setDefault(true);
            else if (change == "beside")
                w.PrependWidget(new QCheckBox);
            else if (!change.isEmpty())
                change == "disabled" ? w.EnableButton(kOk, false) : w.GetBtn(kOk)->hide();
            CBPPopWnd &dialog = isBox ? static_cast<CBPPopWnd &>(box) : w;
            later(&dialog, [&] {
                QVERIFY(isInFront(dialog));
                AWAIT_EQUAL(dialog.focusWidget(), dialog.GetBtn(focused));
                QVERIFY(dialog.GetBtn(focused)->isDefault());
                dialog.UnRun();
            });
            if (isBox)
                box.messageWithLink(0, "Text", "Link", "", "", buttons);
            else
                w.Run();
        }
    }
};

LUMQT_TEST_MAIN(TestMsgBoxForms)
#include "tst_msgbox_forms.moc"
