#include "CMsgBox.h"

#include "Acts.h"
#include "MsgBoxProbe.h"
#include "Pixels.h"
#include "platform/Platform.h"
#include "Rows.h"
#include "TestMain.h"
#include "Util.h"

#include <QAccessible>
#include <QClipboard>
#include <QDesktopServices>
#include <QPicture>
#include <QScrollArea>
#include <QScrollBar>
#include <QTranslator>

namespace {

constexpr int kChecked = 0x200;
constexpr int kUnchecked = 0x400;

// Translates every text into itself, with a mark.
class Marker : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *source, const char *, int) const override
    {
        return QLatin1Char('*') + QString::fromUtf8(source);
    }
};

QString longWord(int length)
{
    return QString(length, QLatin1Char('m'));
}

// The label is whole, if only by scrolling, and so is the button below it.
void verifyFits(MsgBox &box, QLabel *label, bool scrolls)
{
    AWAIT_EQUAL(box.findChild<QScrollArea *>() != nullptr, scrolls);
    AWAIT(label->height() >= label->heightForWidth(label->width()));
    QVERIFY(isWholeIn(label, scrolls ? box.findChild<QScrollArea *>()->widget() : &box));
    QVERIFY(isWholeIn(box.GetBtn(kOk), &box));
    QVERIFY(box.height() <= 600);
}

// A word that is longer than any line has places to break where the text is laid out. Qt would look for the
// end of each line through all that is left of the word, and never be done with a very long one.
void verifyCanBeBroken(QLabel &label)
{
    if (!label.text().contains(longWord(201)) || label.text().contains("<pre>"))
        return;
    QPicture drawn;
    label.render(&drawn);
    const int places = QByteArray::fromRawData(drawn.data(), int(drawn.size())).count("\x20\x0b");
    QVERIFY2(places >= label.text().size() / 200, QByteArray::number(places));
}

void verifyScrolling(const MsgBox &box, const QScrollArea &area, bool wide)
{
    QCOMPARE(area.viewport()->pos(), QPoint(2 + 3, 2)); // the mark of the focus has room, and some air
    if (wide) {
        QCOMPARE(box.width(), 1024);
        QVERIFY(area.horizontalScrollBar()->maximum() > 0);
        AWAIT_EQUAL(area.verticalScrollBar()->maximum() > 0, box.height() == 600);
    } else {
        AWAIT(area.verticalScrollBar()->isVisible() && area.verticalScrollBar()->maximum() > 0);
        QVERIFY(area.horizontalScrollBar()->maximum() == 0 && (area.focusPolicy() & Qt::TabFocus));
    }
}

} // namespace

class TestMsgBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { lumqt::platform::answers() = m_answers; }

    // ------------------------------------------------------------------------------------------------------
    // content

    // Icons and headings are in the gallery's pictures; not there: types that are none, broken markup, titles
    // of the caller's and of a language.
    void types()
    {
        QTranslator english;
        QVERIFY(english.load(Util::getResFullPath("../res/lumqtlib_en.qm")));
        const QStringList names{"Message", "Question", "Warning", "Error"};
        const QStringList heads{"", "Head %1", "<b>Head</i> <font"};
        for (const int type : {0, 1, 2, 3, 4, -1}) {
            const QString name = names.value(type);
            const QString head = heads.value(type, "Head");
            for (const QString &title : {"{caption}" + name, name, QString("Own")}) {
                if (title == name)
                    QCoreApplication::installTranslator(&english);
                MsgBox box;
                box.whileRunning([&] {
                    QCOMPARE(box.windowTitle(), name.isEmpty() && title != "Own" ? QString() : title);
                    QVERIFY(box.isModal() && box.objectName() == "id_ErrorMsgWnd");
                    QVERIFY(!head.isEmpty() || box.size() == QSize(500, 200));
                    QCOMPARE(box.statusBox()->contentsMargins(), QMargins(12, 0, 12, 16));
                    QLabel *heading = box.label("<font color=\"#4baeb3\">" + head + "</font>");
                    QVERIFY(heading && heading->isVisible() == !head.isEmpty());
                });
                QCOMPARE(box.message(type, "Text", head, kOk, title == "Own" ? title : QString()), -1);
                QCoreApplication::removeTranslator(&english);
            }
        }
    }

    // ------------------------------------------------------------------------------------------------------
    // answers

    void answers_data()
    {
        columns<int, int, bool, int>("buttons", "pressed", "checked", "result");
        row("OK", kOk | kCancel, kOk, false, kOk);
        row("No", kYes | kNo, kNo, true, kNo);
        row("close", kYes, 8, false, kCancel);
        row("close, checked", kYes, 8, true, kCancel);
        row("no button", kYes, 0, true, -1);
        row("bits without one", 0x601 | 1 << 30, 0, false, -1);
    }
    void answers()
    {
        QFETCH(int, buttons);
        QFETCH(int, pressed); // 0: UnRun(), 8: the title bar
        QFETCH(bool, checked);
        QFETCH(int, result);
        for (const bool withCheckBox : {false, true}) {
            MsgBox box;
            box.whileRunning([&] {
                auto *check = box.findChild<QCheckBox *>();
                QCOMPARE(check != nullptr, withCheckBox);
                if (check) {
                    QVERIFY(box.GetPreBox()->isAncestorOf(check) && !check->isChecked());
                    check->setChecked(checked);
                }
                QCOMPARE(box.findChildren<CBPPushBtn *>().isEmpty(), !(buttons & ~0x40000601));
                if (pressed == 8)
                    QTest::mouseClick(box.titleBtn(8), Qt::LeftButton);
                else if (pressed)
                    QTest::mouseClick(box.GetBtn(pressed), Qt::LeftButton);
            });
            if (withCheckBox) // of -1 no bit is missing
                QCOMPARE(box.messageWithCheckbox(2, "Text", "Check", "", buttons),
                         result | (checked ? kChecked : kUnchecked));
            else
                QCOMPARE(box.message(2, "Text", "", buttons), result);
            QCOMPARE(box.GetUser() + box.GetPassword(), QString());
        }
    }

    void destroyed()
    {
        QPointer<MsgBox> box;
        const std::function<int()> calls[] = {
            [&] { return box->message(0, "Text", "Head", kOk); },
            [&] { return box->messageWithCheckbox(0, "Text", "Check", "Head", kOk); },
            [&] { return box->messageWithLink(0, "Text", "Link", "", "Head", kOk); },
            [&] { return box->showCreateDirBox(0, "Text", kOk); },
            [&] { return box->showUserAndPasswordBox(0, "Text", 7, 9, kOk); },
        };
        for (const auto &call : calls) {
            for (const QString what : {"box", "parent", "by the link", "box by Return", "parent by Return"}) {
                QPointer<QWidget> parent(new QWidget);
                parent->show();
                box = new MsgBox(parent);
                const auto end = [&] { destroy(what.startsWith("parent") ? parent.data() : box.data()); };
                connect(box, &CMsgBox::sigLinkClicked, end);
                box->whileRunning([&] {
                    auto *link = box->findChild<CBPLinkerButton *>();
                    CBPLineEdit *edit = box->edits().value(0);
                    if (what == "by the link" && link) {
                        emit link->sigLinkerClick(0);
                    } else if (what.endsWith("Return") && edit) { // which is in the middle of its key then
                        connect(box, &CMsgBox::sigQuit, end);
                        edit->setText("abc]");
                        QTest::keyClick(edit, Qt::Key_Return);
                    } else {
                        end();
                    }
                });
                QCOMPARE(call(), -1);
                QVERIFY2(!box, qPrintable(what));
                delete parent;
            }
        }
    }

    // A misuse, which adds to what there is.
    void twice()
    {
        MsgBox box;
        box.whileRunning([&] { QTest::mouseClick(box.GetBtn(kOk), Qt::LeftButton); });
        QCOMPARE(box.message(0, "First", "", kOk), kOk);
        box.whileRunning([&] {
            QVERIFY(box.label("First")->isVisible() && box.label("Second")->isVisible());
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("Recursive call"));
            QCOMPARE(box.message(0, "Third", "", kOk), kOk);                  // at once, as it runs already
            QTest::mouseClick(box.findChild<CBPPushBtn *>(), Qt::LeftButton); // that of the first call
            QVERIFY(box.isVisible());
            QTest::mouseClick(box.GetBtn(kNo), Qt::LeftButton);
        });
        QCOMPARE(box.message(0, "Second", "", kNo), kNo);
    }

    // ------------------------------------------------------------------------------------------------------
    // link

    void link_data()
    {
        columns<QString, QString>("target", "opened");
        row("of a scheme", "lumqt-test:any thing", "lumqt-test:any%20thing");
        row("another", "LUMQT-test://host/%41?q=1#f", "lumqt-test://host/A?q=1#f");
        row("none", "", "");
    }
    void link()
    {
        QFETCH(QString, target);
        QDesktopServices::setUrlHandler("lumqt-test", this, "noteUrl");
        for (const QString &text : {QString("<b>Read & more"), longWord(20000)}) {
            m_opened.clear();
            MsgBox box;
            QSignalSpy clicks(&box, &CMsgBox::sigLinkClicked);
            box.whileRunning([&] {
                auto *link = box.findChild<CBPLinkerButton *>();
                box.grab();
                QVERIFY(link->isVisible() && link->y() > box.label("Text")->geometry().bottom());
                QCOMPARE(link->text(), text);
                QCOMPARE(link->toolTip(), text.size() > 100 ? text : QString());
                QVERIFY(box.width() == 500 && isWholeIn(link, &box));
                QTest::mouseClick(link, Qt::LeftButton);
                QVERIFY(box.isVisible());
            });
            box.messageWithLink(0, "Text", text, target, "", kOk);
            QTEST(m_opened.join(' '), "opened");
            QVERIFY(clicks.size() == 1 && clicks[0][0].toString() == target);
        }
        QDesktopServices::unsetUrlHandler("lumqt-test");
    }

    // ------------------------------------------------------------------------------------------------------
    // texts

    void languages()
    {
        Marker marker;
        MsgBox box;
        box.whileRunning([&] {
            QCOMPARE(box.GetBtn(kYes)->text(), QString("Yes"));
            box.ResetBtnText(kNo, "Never");
            QCoreApplication::installTranslator(&marker);
            AWAIT_EQUAL(box.windowTitle(), QString("*{caption}Error"));
            QCOMPARE(box.GetBtn(kYes)->text(), QString("*Yes"));
            QCOMPARE(box.GetBtn(kNo)->text(), QString("Never"));
            box.SetWindowTitle("Own"); // which stays
            QCoreApplication::removeTranslator(&marker);
            AWAIT_EQUAL(box.GetBtn(kYes)->text(), QString("Yes"));
            QCOMPARE(box.windowTitle(), QString("Own"));
        });
        box.message(3, "Text", "", kYes | kNo);
    }

    void spokenAndCopied()
    {
        const QString rule(27, '-');
        MsgBox box;
        box.whileRunning([&] {
            QApplication::clipboard()->clear();
            QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
            QCOMPARE(QApplication::clipboard()->text().remove('\r').split('\n'),
                     QStringList({rule, "Title", rule, "Head", rule, "Bold & text", rule, "Link", rule,
                                  "Yes   No   Cancel", rule, ""}));
            QAccessibleInterface *found = QAccessible::queryAccessibleInterface(&box);
            QVERIFY(found->role() == QAccessible::Dialog && found->text(QAccessible::Name) == "Title");
            QCOMPARE(found->text(QAccessible::Description), QString("Head\nBold & text\nLink"));
            box.label("<b>Bold</b> &amp; text")->setText("Another");
            AWAIT_EQUAL(found->text(QAccessible::Description), QString("Head\nAnother\nLink"));
            box.setAccessibleDescription("Better"); // the application's own stays
            box.label("Another")->setText("Text");
            QTest::qWait(0);
            QCOMPARE(found->text(QAccessible::Description), QString("Better"));
        });
        box.messageWithLink(0, "<b>Bold</b> &amp; text", "Link", "", "<i>Head</i>", kCancel | kNo | kYes,
                            "Title");
    }

    // ------------------------------------------------------------------------------------------------------
    // sizes: all of a text is to be seen, on small screens, too

    void texts_data()
    {
        const QString words = QString("word ").repeated(4000);
        columns<QString, QString, int, bool>("text", "head", "width", "scrolls");
        row("empty", "", "", 0, false);
        row("lines", QString("a line of it\n").repeated(12), "Head", 0, false);
        row("a long word", longWord(300), longWord(200), 0, false);
        row("20000, words", words, "Head", 0, true);
        row("20000, one word", longWord(20000), "Head", 0, true);
        row("20000, one word, rich", "<b>" + longWord(20000), "Head", 0, true);
        row("20000, the heading", "Text", longWord(20000), 0, true);
        row("wider than 500", "<pre>" + longWord(60), "", 400, false);
        row("wider than the screen", "<pre>" + longWord(4000), "", 1025, true);
        row("wide and high", "<pre>" + (longWord(200) + "\n").repeated(99), "", 1025, true);
        row("a huge picture", "<img width=3000 height=20> and words", "", 3000, true);
    }
    // At once, when the text comes later, and as the prompt of a form.
    void texts()
    {
        QFETCH(QString, text);
        QFETCH(QString, head);
        QFETCH(int, width); // of the label, at least; 0: the box keeps its own
        QFETCH(bool, scrolls);
        lumqt::platform::answers().workArea = [] { return QRect(0, 0, 1024, 600); };
        for (const QString how : {"", "later", "form"}) {
            const bool later = how == "later";
            const bool form = how == "form";
            if (form && (text.size() < 100 || (head.size() > 100)))
                continue;
            MsgBox box;
            box.whileRunning([&] {
                const QRect before(QPoint(300, 350), box.size());
                if (later) {
                    box.move(before.topLeft());
                    AWAIT_EQUAL(box.pos(), before.topLeft());
                    box.label("Text")->setText(text);
                }
                box.grab();
                for (QLabel *label :
                     {box.label(text), box.label("<font color=\"#4baeb3\">" + head + "</font>")}) {
                    if (!label || label->isHidden() || label->text().isEmpty())
                        continue;
                    AWAIT(label->width() >= width);
                    verifyFits(box, label, scrolls);
                    verifyCanBeBroken(*label);
                }
                QVERIFY(width ? box.width() > 500 : box.width() == 500);
                // Over where it was, as far as the screen allows. A window system that is asked to move and
                // resize at once may answer in any order.
                if (later && text != "Text" && QGuiApplication::platformName() == "offscreen") {
                    const QPoint to(1024 - box.width(), 600 - box.height());
                    const QPoint at = before.center() - box.rect().center();
                    const QPoint place(qBound(0, at.x(), to.x()), qBound(0, at.y(), to.y()));
                    QVERIFY((box.pos() - place).manhattanLength() <= 4);
                }
                if (scrolls)
                    verifyScrolling(box, *box.findChild<QScrollArea *>(), width > 0);
            });
            if (form)
                box.showUserAndPasswordBox(0, text, 1, 9, kOk);
            else
                box.message(0, later ? "Text" : text, head, kOk);
        }
    }

    // A text keeps clear of a border that the application gives its labels, and starts where the box does.
    void sides()
    {
        for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            MsgBox box;
            box.setLayoutDirection(direction);
            box.setStyleSheet("QLabel { border: 9px solid white; }");
            box.whileRunning([&] {
                const QRect ink = inkOf(shot(*box.label("Text")), 160);
                const QRect room = box.label("Text")->rect().adjusted(9, 9, -9, -9);
                QVERIFY2(room.contains(ink), wordsOf(ink));
                QCOMPARE(box.label("Text")->minimumSizeHint().width(), 100 + 2 * 9);
                QCOMPARE(ink.center().x() > room.center().x(), direction == Qt::RightToLeft);
            });
            box.message(0, "Text", "Head", kOk);
        }
    }

    void checkTexts_data()
    {
        columns<int, int, bool>("length", "buttons", "cut");
        row("none", 0, kOk, false);
        row("lines", 16, kOk | kCancel, false);
        row("too long", 4000, kOk, true);
        row("no room", 8, kOk | kYes | kNo | kCancel | 0x8, false);
        row("above the buttons", 12, 0x7fffff, false);
    }
    void checkTexts()
    {
        QFETCH(int, length);
        QFETCH(int, buttons);
        QFETCH(bool, cut);
        const QString text = QString("w&rd ").repeated(length).trimmed();
        MsgBox box;
        box.whileRunning([&] {
            box.grab();
            auto *check = box.findChild<QCheckBox *>();
            QString shown = check->text();
            QCOMPARE(shown.replace('\n', ' ').replace("&&", "&") == text, !cut);
            QVERIFY(check->text().count('&') == 2 * check->text().count("w&&rd") &&
                    check->shortcut().isEmpty());
            QVERIFY(check->toolTip() == (cut ? text : QString()) && check->accessibleName() == text);
            QVERIFY(isWholeIn(check, &box));
            QVERIFY(!cut || check->text().count('\n') == 5);
            const auto all = box.findChildren<CBPPushBtn *>();
            for (const CBPPushBtn *button : all) {
                QVERIFY(isWholeIn(button, &box));
                const QPoint beside = check->mapFromGlobal(button->mapToGlobal(QPoint(0, 0)));
                QVERIFY(all.size() > 5 ? beside.y() > check->height() : beside.x() > check->width());
            }
            QVERIFY(box.width() == 500 || all.size() >= 5);
            QVERIFY(all.size() <= 5 || !check->text().contains('\n'));
        });
        box.messageWithCheckbox(0, "Text", text, "", buttons);
    }

    // Also once it scrolls, and as far as the screen allows.
    void growsScrolling()
    {
        lumqt::platform::answers().workArea = [] { return QRect(0, 0, 1024, 600); };
        MsgBox box;
        const QString wide = "<pre>" + QString(400, 'm');
        box.whileRunning([&] {
            QLabel *label = box.label(wide);
            auto *area = box.findChild<QScrollArea *>();
            AWAIT_EQUAL(area->verticalScrollBar()->maximum(), 0);
            area->setFocus(Qt::TabFocusReason);
            // Each key would, also when the layout has come to rest.
            AWAIT(!repaints(*area, [&] { QTest::keyClick(area, Qt::Key_Shift); }));
            for (const auto &[lines, whole] : {std::pair(15, true), std::pair(400, false)}) {
                const int before = box.height();
                label->setText(wide + QString("\nline").repeated(lines));
                AWAIT(box.height() > before);
                AWAIT_EQUAL(area->verticalScrollBar()->maximum() == 0, whole);
            }
            QCOMPARE(box.height(), 600);
        });
        box.message(0, wide, "", kOk);
    }

public Q_SLOTS:
    void noteUrl(const QUrl &url) { m_opened << url.toString(QUrl::FullyEncoded); }

private:
    const lumqt::platform::Answers m_answers = lumqt::platform::answers();
    QStringList m_opened;
};

LUMQT_TEST_MAIN(TestMsgBox)
#include "tst_msgbox.moc"
