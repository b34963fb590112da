#include "CMsgBox.h"

#include "MsgBoxProbe.h"
#include "Pixels.h"
#include "platform/Platform.h"
#include "Rows.h"
#include "TestMain.h"

#include <QScrollArea>
#include <QScrollBar>

namespace {

QString longWord(int length)
{
    return QString(length, QLatin1Char('m'));
}

// The label is whole, if only by scrolling, and so is the button below it.
void verifyFits(MsgBox &box, QLabel *label, bool scrolls)
{
    QTRY_COMPARE(box.findChild<QScrollArea *>() != nullptr, scrolls);
    QTRY_VERIFY(label->height() >= label->heightForWidth(label->width()));
    QVERIFY(isWholeIn(label, scrolls ? box.findChild<QScrollArea *>()->widget() : &box));
    QVERIFY(isWholeIn(box.GetBtn(kOk), &box));
    QVERIFY(box.height() <= 600);
}

void verifyScrolling(const MsgBox &box, const QScrollArea &area, bool wide)
{
    if (wide) {
        QCOMPARE(box.width(), 1024);
        QVERIFY(area.horizontalScrollBar()->maximum() > 0);
        QTRY_COMPARE(area.verticalScrollBar()->maximum() > 0, box.height() == 600);
    } else {
        QTRY_VERIFY(area.verticalScrollBar()->isVisible() && area.verticalScrollBar()->maximum() > 0);
        QVERIFY(area.horizontalScrollBar()->maximum() == 0 && (area.focusPolicy() & Qt::TabFocus));
    }
}

} // namespace

// How large message boxes are: all of a text is to be seen, on small screens, too.
class TestMsgBoxSizes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { lumqt::platform::answers() = m_answers; }

    void texts_data()
    {
        const QString words = QString("word ").repeated(4000);
        columns<QString, QString, int, bool>("text", "head", "width", "scrolls");
        row("empty", "", "", 0, false);
        row("lines", QString("a line of it\n").repeated(12), "Head", 0, false);
        row("a long word", longWord(300), longWord(200), 0, false);
        row("20000, words", words, "Head", 0, true);
        row("a million, one word", longWord(1000000), "Head", 0, true); // for ever, were it not proportional
        row("20000, one word, rich", "<b>" + longWord(20000), "Head", 0, true);
        row("20000, the heading", "Text", longWord(20000), 0, true);
        row("wider than 500", "<pre>" + longWord(60), "", 400, false);
        row("wider than the screen", "<pre>" + longWord(4000), "", 1025, true);
        row("wide and high", "<pre>" + (longWord(200) + "\n").repeated(99), "", 1025, true);
        row("a huge picture", "<img width=3000 height=20> and words", "", 3000, true);
    }
    // At once, or when the text comes later.
    void texts()
    {
        QFETCH(QString, text);
        QFETCH(QString, head);
        QFETCH(int, width); // of the label, at least; 0: the box keeps its own
        QFETCH(bool, scrolls);
        lumqt::platform::answers().workArea = [] { return QRect(0, 0, 1024, 600); };
        for (const bool later : {false, true}) {
            if (later && text.size() > 100000)
                continue;
            MsgBox box;
            box.whileRunning([&] {
                const QRect before(QPoint(300, 350), box.size());
                if (later) {
                    box.move(before.topLeft());
                    QTRY_COMPARE(box.pos(), before.topLeft());
                    box.label("Text")->setText(text);
                }
                box.grab();
                for (QLabel *label :
                     {box.label(text), box.label("<font color=\"#4baeb3\">" + head + "</font>")}) {
                    if (label->isHidden() || label->text().isEmpty())
                        continue;
                    QTRY_VERIFY(label->width() >= width);
                    verifyFits(box, label, scrolls);
                }
                if (text == longWord(300)) { // its last line is seen, and nothing ends at the right edge
                    const QLabel *label = box.label(text);
                    const QRect ink = inkOf(shot(*box.label(text)));
                    QVERIFY(ink.bottom() > label->height() - label->fontMetrics().height());
                    QVERIFY(ink.right() < label->width() - 1);
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
                QCOMPARE(ink.center().x() > room.center().x(), direction == Qt::RightToLeft);
            });
            box.message(0, "Text", "Head", kOk);
        }
    }

    void prompts()
    {
        lumqt::platform::answers().workArea = [] { return QRect(0, 0, 1024, 600); };
        for (const int length : {400, 20000}) {
            for (const bool folder : {true, false}) {
                const QString text = longWord(length);
                MsgBox box;
                box.whileRunning([&] {
                    box.grab();
                    verifyFits(box, box.label(text), length == 20000);
                    QCOMPARE(box.width(), 500);
                });
                if (folder)
                    box.showCreateDirBox(0, text, kOk);
                else
                    box.showUserAndPasswordBox(0, text, 1, 9, kOk);
            }
        }
    }

    void checkTexts_data()
    {
        columns<int, int, bool>("length", "buttons", "cut");
        row("none", 0, kOk, false);
        row("fits", 4, kOk | kCancel, false);
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
            QCOMPARE(check->size().boundedTo(check->sizeHint()), check->sizeHint());
            QVERIFY(isWholeIn(check, &box));
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

    void longLink()
    {
        MsgBox box;
        box.whileRunning([&] {
            box.grab();
            auto *link = box.findChild<CBPLinkerButton *>();
            QCOMPARE(box.width(), 500);
            QVERIFY(isWholeIn(link, &box));
            QCOMPARE(link->toolTip(), link->text());
        });
        box.messageWithLink(0, "Text", longWord(20000), "", "", kOk);
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
            for (const auto &[lines, whole] : {std::pair(15, true), std::pair(400, false)}) {
                const int before = box.height();
                label->setText(wide + QString("\nline").repeated(lines));
                QTRY_VERIFY(box.height() > before);
                QTRY_COMPARE(area->verticalScrollBar()->maximum() == 0, whole);
            }
            QCOMPARE(box.height(), 600);
        });
        box.message(0, wide, "", kOk);
    }

private:
    const lumqt::platform::Answers m_answers = lumqt::platform::answers();
};

LUMQT_TEST_MAIN(TestMsgBoxSizes)
#include "tst_msgbox_sizes.moc"
