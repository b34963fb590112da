#include "Await.h"
#include "CBPIPAddrEdit.h"
#include "CBPIPInputWidget.h"
#include "RealInput.h"
#include "Spoken.h"
#include "TestMain.h"

#include <QClipboard>
#include <QDropEvent>
#include <QFocusFrame>
#include <QMimeData>
#include <QPointer>
#include <QSignalSpy>

#include <memory>
#include <tuple>

namespace {

struct Field : CBPIPInputWidget
{
    explicit Field(const QString &octets = "...")
    {
        edits = findChildren<CBPIPAddrEdit *>();
        setState(octets);
    }

    bool open()
    {
        move(60, 60);
        show();
        activateWindow();
        return QTest::qWaitForWindowActive(this, kPatience);
    }

    // The octets, with the cursor or the selection in the one of the focus: "10.1|68.." or "10.[168]..".
    QString state() const
    {
        QStringList texts;
        for (const CBPIPAddrEdit *edit : edits) {
            texts << edit->text();
            if (edit->hasFocus() && edit->hasSelectedText())
                texts.last() = '[' + edit->selectedText() + ']';
            else if (edit->hasFocus())
                texts.last().insert(edit->cursorPosition(), '|');
        }
        return texts.join('.');
    }

    void setState(const QString &state)
    {
        const QStringList texts = state.split('.');
        for (int i = 0; i < 4; ++i) {
            edits[i]->setText(QString(texts[i]).remove(QRegularExpression("[][|]")));
            if (texts[i].contains('[') || texts[i].contains('|'))
                edits[i]->setFocus();
            if (texts[i].contains('[') && !edits[i]->text().isEmpty())
                edits[i]->selectAll();
            else if (texts[i].contains('|'))
                edits[i]->setCursorPosition(texts[i].indexOf('|'));
        }
    }

    QList<CBPIPAddrEdit *> edits;
};

} // namespace

class TestIPInput : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        QLocale::setDefault(QLocale::c());
        RealInput::release();
    }

    void dottedTexts()
    {
        const char *taken[] = {"1.2.3.4", "0.0.0.0", "255.255.255.255", "007.08.9.010"};
        const char *refused[] = {"",          "1.2.3",     "1.2.3.4.5",         "1..3.4",      "1.2.3.",
                                 ".1.2.3",    "1.2.3.300", "256.1.1.1",         "1.2.3.-4",    "+1.2.3.4",
                                 " 1.2.3.4",  "1.2.3.4 ",  "a.b.c.d",           "1,2.3.4.5",   "0001.2.3.4",
                                 "1.2.3.4\n", "...",       "99999999999.1.1.1", "\u0661.2.3.4"};
        for (const char *language : {"C", "de_DE", "fr_FR", "ar_EG"}) {
            QLocale::setDefault(QLocale(language));
            for (const char *text : taken) {
                Field field("9.8.7.6");
                field.setIP(text);
                QCOMPARE(field.IPAddrString(), QString(text));
            }
            Field field("9.8.7.6");
            for (const auto *octet : field.edits)
                QVERIFY(octet->objectName() == "NoFrameLineEdit" && octet->maxLength() == 3);
            for (const char *text : refused) {
                field.setIP(QString::fromUtf8(text));
                QVERIFY2(field.IPAddrString() == "9.8.7.6", text);
            }
        }
    }

    void numbers()
    {
        const std::tuple<unsigned long, const char *, unsigned int> rows[] = {
            {0x0100a8c0ul, "192.168.0.1", 0xc0a80001u},
            {0xfffffffful, "255.255.255.255", 0xffffffffu},
            {0x80ul, "128.0.0.0", 0x80000000u},
            {0ul, "0.0.0.0", 0u},
            {~0ul, "255.255.255.255", 0xffffffffu}}; // of 64 bits on some systems
        Field field;
        for (const auto &[number, text, back] : rows) {
            field.setIP(number);
            QCOMPARE(field.IPAddrString(), QString(text));
            QCOMPARE(field.IPAddrNum(), back);
        }
        QCOMPARE(Field("192..0.1").IPAddrString(), QString("192..0.1"));
        QCOMPARE(Field("192..0.1").IPAddrNum(), 0xc0000001u);
    }

    void tellsOfEachOctet()
    {
        Field field("1.2.3.4");
        QSignalSpy changed(&field, &CBPIPInputWidget::textChanged);
        QSignalSpy edited(&field, &CBPIPInputWidget::textEdited);
        field.setIP("1.2.30.40");
        QCOMPARE(changed.size(), 2);
        QCOMPARE(changed.last().first().toString(), QString("1.2.30.40"));
        QCOMPARE(edited.size(), 0);
        QTest::keyClick(field.edits[3], Qt::Key_Backspace);
        QCOMPARE(edited.size(), 1);
        QCOMPARE(edited.last().first().toString(), QString("1.2.30.4"));
        // And screen readers.
        QAccessibleInterface *group = QAccessible::queryAccessibleInterface(&field);
        QCOMPARE(group->role(), QAccessible::Grouping);
        QCOMPARE(group->text(QAccessible::Value), QString("1.2.30.4"));
        QCOMPARE(spokenName(&field), QString("IP address"));
        QCOMPARE(spokenName(field.edits[1]), QString("Octet 2 of 4"));
        field.setAccessibleName("Gateway");
        QCOMPARE(spokenName(&field), QString("Gateway"));
    }

    // L, R, B and T are the keys left, right, backspace and tab, ^ is Ctrl, + in front of one of them is
    // Shift.
    void keys()
    {
        const std::tuple<const char *, const char *, const char *> rows[] = {
            {"|.168..", "192", "192.[168].."}, {"|...", "19", "19|..."},
            {"...|", "192", "...192|"},        {"|...", "256", "25|..."},
            {"|...", "999", "99|..."},         {"|...", "-+ae,1", "1|..."},
            {"1|.2..", ".", "1.[2].."},        {"1|.2..", " ", "1.[2].."},
            {"|1.2..", ".", "|1.2.."},         {"[1].2..", ".", "[1].2.."},
            {"...4|", ".", "...4|"},           {"12.|34..", "L", "12|.34.."},
            {"12.3|4..", "L", "12.|34.."},     {"|12.34..", "L", "|12.34.."},
            {"12|.34..", "R", "12.|34.."},     {"1|2.34..", "R", "12|.34.."},
            {"..3.45|", "R", "..3.45|"},       {"12.|34..", "^L", "[12].34.."},
            {"12|.34..", "^R", "12.[34].."},   {"12.|34..", "+L", "12.|34.."},
            {"12.34|..", "+R", "12.34|.."},    {"12.34.|.", "B", "12.3|.."},
            {"12..|.4", "B", "12.|..4"},       {"|...", "B", "|..."},
            {"12.|34..", "B", "12.|34.."},     {"[1].2.3.4", "T", "1.[2].3.4"},
            {"[1].2.3.4", "TTT", "1.2.3.[4]"}};
        const QMap<QChar, Qt::Key> named{
            {'L', Qt::Key_Left}, {'R', Qt::Key_Right}, {'B', Qt::Key_Backspace}, {'T', Qt::Key_Tab}};
        for (const char *language : {"C", "de_DE"}) {
            QLocale::setDefault(QLocale(language));
            Field field;
            QVERIFY(field.open());
            field.setFocus();
            QVERIFY(field.edits[0]->hasFocus());
            for (const auto &[before, typed, after] : rows) {
                field.setState(before);
                QCOMPARE(field.state(), QString(before));
                Qt::KeyboardModifiers modifiers;
                for (const QChar key : QString(typed)) {
                    if (key == '^' || (key == '+' && qstrlen(typed) == 2))
                        modifiers = key == '^' ? Qt::ControlModifier : Qt::ShiftModifier;
                    else if (named.contains(key))
                        QTest::keyClick(QApplication::focusWidget(), named[key], modifiers);
                    else
                        QTest::keyClick(QApplication::focusWidget(), key.toLatin1());
                }
                const QString found = field.state();
                QVERIFY2(found == after, qPrintable(QString("%1 in %2: %3").arg(typed, before, found)));
            }
        }
    }

    // A whole address goes into all octets, anything else into one, or nowhere.
    void pastes()
    {
        const std::pair<const char *, const char *> rows[] = {
            {"192.168.0.1", "192.168.0.1"}, {" \t192.168.0.1\r\n", "192.168.0.1"},
            {"1.2.3.4", "1.2.3.4"},         {"44", ""}, // into this octet only
            {"1.2.3.300", "9.9.9.9"},       {"1.2.3", "9.9.9.9"},
            {"192.168.0.300", "9.9.9.9"},   {"192.168.0.1:80", "9.9.9.9"}};
        Field field;
        QVERIFY(field.open());
        for (const auto &[text, after] : rows) {
            for (const QString &by : QString("key slot drop middle").split(' ')) {
                for (int octet = 0; octet < 4; ++octet) {
                    if ((by == "drop" || by == "middle") && !*after)
                        continue; // where it is put is the line edit's business
                    if (by == "middle" && !QApplication::clipboard()->supportsSelection())
                        continue;
                    field.setState("9.9.9.9");
                    const QSignalSpy edited(&field, &CBPIPInputWidget::textEdited);
                    CBPIPAddrEdit *edit = field.edits[octet];
                    edit->setFocus();
                    edit->selectAll();
                    QApplication::clipboard()->setText(text);
                    if (by == "key")
                        QTest::keyClick(edit, Qt::Key_V, Qt::ControlModifier);
                    else if (by == "middle")
                        pasteSelection(edit, text);
                    else if (by == "slot") // as the menu does
                        QMetaObject::invokeMethod(edit, "paste");
                    else
                        drop(edit, text);
                    QStringList expected{"9", "9", "9", "9"};
                    expected[octet] = text;
                    QCOMPARE(field.IPAddrString(), *after ? QString(after) : expected.join('.'));
                    const bool whole = *after && qstrcmp(after, "9.9.9.9") != 0;
                    QCOMPARE(edited.size(), whole ? 4 : !*after ? 1 : 0);
                    QVERIFY(!whole || field.state() == QString(after) + '|');
                }
            }
        }
    }

    void pastesWhereItMay()
    {
        QApplication::clipboard()->setText("1.2.3.4");
        for (const QString why : {"read only", "disabled", "a fifth", "a stranger"}) {
            Field field("9.9.9.9");
            CBPIPAddrEdit fifth;
            QLineEdit stranger;
            field.edits[1]->setReadOnly(why == "read only");
            field.edits[2]->setEnabled(why != "disabled");
            if (why == "a fifth")
                field.edits[3]->setNextTabEdit(&fifth);
            if (why == "a stranger")
                field.edits[0]->setPreTabEdit(&stranger);
            field.edits[0]->paste();
            QVERIFY2(field.IPAddrString() == "9.9.9.9", qPrintable(why));
        }
        CBPIPAddrEdit alone;
        alone.setText("7");
        alone.setNextTabEdit(&alone); // and no end of it
        alone.setPreTabEdit(&alone);
        alone.paste();
        QCOMPARE(alone.text(), QString("7"));
        alone.setNextTabEdit(nullptr);
        alone.setPreTabEdit(nullptr);
        QTest::keyClicks(&alone, ".");
        auto neighbour = std::make_unique<CBPIPAddrEdit>();
        alone.setNextTabEdit(neighbour.get());
        alone.setPreTabEdit(neighbour.get());
        neighbour.reset();
        alone.clear();
        QTest::keyClick(&alone, Qt::Key_Backspace);
        QTest::keyClicks(&alone, "192 ");
        QCOMPARE(alone.text(), QString("192"));
    }

    // Addresses are written from the left in every language.
    void leftToRight()
    {
        QWidget arabic;
        arabic.setLayoutDirection(Qt::RightToLeft);
        auto *its = new Field;
        its->setParent(&arabic);
        arabic.show();
        for (int i = 1; i < 4; ++i)
            QVERIFY(its->edits[i - 1]->x() < its->edits[i]->x());
    }

    // A click that brings the focus selects; the next one sets the cursor, a drag and a double click select.
    void pointer()
    {
        if (!RealInput::available())
            QSKIP("There is no pointer");
        QWidget window;
        auto *field = new Field("1.168.3.4");
        window.setGeometry(60, 60, 240, 120);
        window.show();
        field->setParent(&window);
        QVERIFY(field->open()); // the window, at the same place in it
        const auto at = [field](int x) { return field->edits[1]->mapToGlobal(QPoint(x, 7)); };
        const auto second = [](bool doubles) { QApplication::setDoubleClickInterval(doubles ? 60000 : 0); };
        const std::tuple<int, bool, const char *> clicks[] = {
            {15, false, "1.[168].3.4"}, {1, false, "1.|168.3.4"}, {1, true, "1.[168].3.4"}};
        for (const auto &[x, doubles, after] : clicks) {
            second(doubles);
            RealInput::click(at(x));
            AWAIT_EQUAL(field->state(), QString(after));
            QCOMPARE(window.findChild<QFocusFrame *>()->geometry(), field->geometry().adjusted(-4, -4, 4, 4));
        }
        field->edits[1]->clearFocus();
        QVERIFY(!window.findChild<QFocusFrame *>());
        second(false);
        RealInput::moveTo(at(29));
        RealInput::press();
        AWAIT_EQUAL(field->state(), QString("1.[168].3.4"));
        RealInput::moveTo(at(16));
        AWAIT(field->state().contains("[68]") || field->state().contains("[8]"));
        RealInput::release();
    }

private:
    static void pasteSelection(CBPIPAddrEdit *edit, const QString &text)
    {
        QApplication::clipboard()->setText(text, QClipboard::Selection);
        QTest::mouseClick(edit, Qt::MiddleButton);
    }

    static void drop(CBPIPAddrEdit *edit, const QString &text)
    {
        QMimeData data;
        data.setText(text);
        QDragEnterEvent enter(edit->rect().center(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(edit, &enter);
        QDropEvent event(QPointF(edit->rect().center()), Qt::CopyAction, &data, Qt::LeftButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(edit, &event);
    }
};

LUMQT_TEST_MAIN(TestIPInput)
#include "tst_ipinput.moc"
