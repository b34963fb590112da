#include "Await.h"
#include "CBPLineEdit.h"
#include "CBPTextEdit.h"
#include "foundation/FieldText.h"
#include "Pictures.h"
#include "Pixels.h"
#include "TestMain.h"

#include <QClipboard>
#include <QIntValidator>
#include <QMimeData>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolButton>

#include <tuple>

namespace {

void mouse(QWidget &widget, QEvent::Type type, const QPoint &at, Qt::MouseButtons held = Qt::LeftButton)
{
    QMouseEvent event(type, at, widget.mapToGlobal(at),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

// Tells what the edit held when the hook was called.
class HookedEdit : public CBPLineEdit
{
public:
    HookedEdit() : CBPLineEdit(nullptr, false) {}
    int releases = 0;
    bool dies = false;

protected:
    void onMouseReleased(QMouseEvent *event) override
    {
        ++releases;
        CBPLineEdit::onMouseReleased(event);
        if (dies)
            delete this;
    }
};

class ViewedTextEdit : public CBPTextEdit
{
public:
    QMargins margins() const { return viewportMargins(); }
    void paste(const QString &text)
    {
        QMimeData clip;
        clip.setText(text);
        insertFromMimeData(&clip);
    }
};

} // namespace

class TestLineEdits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstClick()
    {
        const std::tuple<QString, bool, int, bool> rows[] = {
            {"some words", false, 0, true},
            {"some words", false, 2, true}, // a trembling hand
            {"some words", true, 0, false},
            {"", false, 0, false},
            {QString(4000, 'x'), false, 0, true}};
        for (const auto &[text, readOnly, moved, selectsAll] : rows) {
            CBPLineEdit edit;
            edit.resize(300, 30);
            edit.setText(text);
            edit.setReadOnly(readOnly);
            const QPoint at(8, 15);
            mouse(edit, QEvent::MouseButtonPress, at);
            QCOMPARE(edit.selectedText(), selectsAll ? text : QString());
            if (moved)
                mouse(edit, QEvent::MouseMove, at + QPoint(moved, 0));
            mouse(edit, QEvent::MouseButtonRelease, at + QPoint(moved, 0), Qt::NoButton);
            QCOMPARE(edit.selectedText(), selectsAll ? text : QString());
            if (!selectsAll) { // it has not been spent
                edit.setReadOnly(false);
                edit.setText("other words");
            }
            mouse(edit, QEvent::MouseButtonPress, at);
            QCOMPARE(edit.selectedText(), selectsAll ? QString() : QString("other words"));
            mouse(edit, QEvent::MouseButtonRelease, at, Qt::NoButton);
            QVERIFY(!selectsAll || edit.cursorPosition() < 3);
        }
    }

    // A first and a second drag: from the middle on, back, and from the start.
    void firstDrag()
    {
        for (const auto &[from, to] : {std::pair(120, 220), std::pair(220, 120), std::pair(4, 120)}) {
            CBPLineEdit edit;
            edit.resize(400, 30);
            edit.setText(QString("some words ").repeated(5));
            for (int time = 0; time < 2; ++time) {
                mouse(edit, QEvent::MouseButtonPress, QPoint(from, 15));
                for (int step = 1; step <= 10; ++step)
                    mouse(edit, QEvent::MouseMove, QPoint(from + step * (to - from) / 10, 15));
                mouse(edit, QEvent::MouseButtonRelease, QPoint(to, 15), Qt::NoButton);
                QVERIFY(edit.selectedText().size() > 5);
                QCOMPARE(edit.selectionStart(), edit.cursorPositionAt(QPoint(qMin(from, to), 15)));
                QCOMPARE(edit.selectionEnd(), edit.cursorPositionAt(QPoint(qMax(from, to), 15)));
                edit.deselect();
            }
        }
    }

    // The other keys for copy and paste are Ctrl+Insert and Shift+Insert. Cutting is free.
    void blockedKeys()
    {
        const std::tuple<Qt::KeyboardModifier, Qt::Key, const char *> keys[] = {
            {Qt::ControlModifier, Qt::Key_A, "select"},    {Qt::ControlModifier, Qt::Key_C, "copy"},
            {Qt::ControlModifier, Qt::Key_Insert, "copy"}, {Qt::ControlModifier, Qt::Key_V, "paste"},
            {Qt::ShiftModifier, Qt::Key_Insert, "paste"},  {Qt::ControlModifier, Qt::Key_X, "cut"}};
        for (int row = 0; row < 12; ++row) {
            const bool blocks = row < 6;
            const auto [modifiers, key, does] = keys[row % 6];
            const bool works = !blocks || qstrcmp(does, "cut") == 0;
            QWidget window;
            CBPLineEdit edit(&window, blocks);
            edit.setText("words");
            edit.setSelection(0, 2);
            QApplication::clipboard()->setText("clip");
            int pressed = 0;
            connect(&edit, &CBPLineEdit::KeyPressed, this, [&pressed] { ++pressed; });
            QKeyEvent event(QEvent::KeyPress, key, modifiers);
            QCoreApplication::sendEvent(&edit, &event);
            QVERIFY(event.isAccepted()); // also a key that does nothing goes no further
            QCOMPARE(pressed, works ? 1 : 0);
            const QMap<QString, QString> outcomes{{"select", "words words clip"},
                                                  {"copy", "words wo wo"},
                                                  {"paste", "cliprds  clip"},
                                                  {"cut", "rds  wo"}};
            const QStringList state{edit.text(), edit.selectedText(), QApplication::clipboard()->text()};
            QCOMPARE(state.join(' '), works ? outcomes[does] : QString("words wo clip"));
            QTest::keyClick(&edit, Qt::Key_B);
            QCOMPARE(pressed, works ? 2 : 1);
        }
    }

    void signalsComeBeforeTheEditActs()
    {
        HookedEdit edit;
        edit.setText("words");
        QStringList heard;
        const auto hear = [&](const QString &text) { heard << text + " in " + edit.text(); };
        connect(&edit, &CBPLineEdit::KeyPressed, this, [&](QKeyEvent *event) { hear(event->text()); });
        connect(&edit, &CBPLineEdit::KeyReleased, this,
                [&](QKeyEvent *event) { hear(event->text() + " up"); });
        connect(&edit, &CBPLineEdit::sigLoseFocus, this, [&] { hear("focus"); });
        QTest::keyPress(&edit, 'x');
        QKeyEvent up(QEvent::KeyRelease, Qt::Key_X, Qt::NoModifier, "x");
        QCoreApplication::sendEvent(&edit, &up);
        QVERIFY(!up.isAccepted()); // and goes on to the parent
        QFocusEvent out(QEvent::FocusOut);
        QCoreApplication::sendEvent(&edit, &out);
        QCOMPARE(heard, QStringList({"x in words", "x up in wordsx", "focus in wordsx"}));
        mouse(edit, QEvent::MouseButtonPress, QPoint(4, 4));
        QCOMPARE(edit.releases, 0);
        mouse(edit, QEvent::MouseButtonRelease, QPoint(4, 4), Qt::NoButton);
        QCOMPARE(edit.releases, 1);
    }

    void diesInItsSignals()
    {
        for (const auto type :
             {QEvent::KeyPress, QEvent::KeyRelease, QEvent::FocusOut, QEvent::MouseButtonRelease}) {
            auto *hooked = new HookedEdit;
            hooked->dies = true;
            QPointer<CBPLineEdit> edit = hooked;
            const auto die = [&edit] { delete edit; };
            connect(hooked, &CBPLineEdit::KeyPressed, this, die);
            connect(hooked, &CBPLineEdit::KeyReleased, this, die);
            connect(hooked, &CBPLineEdit::sigLoseFocus, this, die);
            QKeyEvent key(type, Qt::Key_A, Qt::NoModifier, "a");
            QFocusEvent focus(type);
            if (type == QEvent::MouseButtonRelease)
                mouse(*hooked, type, QPoint(4, 4));
            else if (type == QEvent::FocusOut)
                QCoreApplication::sendEvent(hooked, &focus);
            else
                QCoreApplication::sendEvent(hooked, &key);
            QVERIFY(!edit);
        }
    }

    // Small, higher than the edit, and missing.
    void icon()
    {
        const QTemporaryDir dir;
        for (const QSize &size : {QSize(20, 10), QSize(16, 64), QSize(0, 0)}) {
            const QString path = dir.filePath(QString("icon%1.png").arg(size.height()));
            if (size.isEmpty())
                QTest::ignoreMessage(QtWarningMsg, qPrintable(QString("The image %1 is missing").arg(path)));
            else
                savePicture(path, size, Qt::red);
            CBPLineEdit edit(path);
            auto *button = edit.findChild<QToolButton *>();
            QVERIFY(button && button->size() == size && button->iconSize() == size);
            QCOMPARE(button->styleSheet(), QString("QToolButton{border:none; padding:2px;}"));
            QCOMPARE(button->focusPolicy(), Qt::NoFocus);
            QCOMPARE(edit.textMargins(), QMargins(size.width() + 5, 0, 0, 0));
            edit.resize(200, 31);
            edit.grab(); // resizes what has not been shown
            QCOMPARE(button->pos(), QPoint(2, (31 - size.height()) / 2));
        }
        CBPLineEdit turned(dir.filePath("icon10.png"));
        turned.grab();
        turned.setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(turned.textMargins(), QMargins(0, 0, 25, 0));
        QCOMPARE(turned.findChild<QToolButton *>()->pos(),
                 QPoint(turned.width() - 22, (turned.height() - 10) / 2));
        QPixmap other(20, 10); // of the application
        other.fill(Qt::blue);
        turned.findChild<QToolButton *>()->setIcon(other);
        QVERIFY(!boxOf(turned.grab().toImage(), Qt::blue).isEmpty());
        QWidget parent;
        const CBPLineEdit child(&parent, true);
        QVERIFY(child.parentWidget() == &parent && child.findChildren<QToolButton *>().isEmpty());
        QCOMPARE(child.textMargins(), QMargins());
    }

    // With a validator for 100 to 999, or an input mask.
    void refusedTexts()
    {
        const std::tuple<const char *, const char *, bool, bool> rows[] = {
            {"", "123", false, false},      {"", "12", false, true},        {"", "12", true, false},
            {"\\A99.99", "", false, false}, {"\\A99.99", "1", false, true}, {"", "", false, false}};
        for (const auto &[mask, text, focused, refused] : rows) {
            CBPLineEdit edit;
            *mask ? edit.setInputMask(mask) : edit.setValidator(new QIntValidator(100, 999, &edit));
            edit.setText(text);
            edit.show();
            QVERIFY(QTest::qWaitForWindowActive(&edit, kPatience));
            if (!focused)
                edit.clearFocus();
            QCOMPARE(lumqt::isRefused(&edit), refused);
        }
    }

    void measures()
    {
        CBPLineEdit line;
        line.setTextMargins(0, 10, 0, 10);
        QVERIFY(line.minimumSizeHint().height() >= line.fontMetrics().height() + 24);
        ViewedTextEdit text;
        text.setTextMargin(-1, INT_MIN, INT_MAX, 4);
        QCOMPARE(text.margins(), QMargins(0, 0, QWIDGETSIZE_MAX, 4));
        text.grab();
        text.setTextMargin(8, 9, 10, 11);
        QCOMPARE(text.margins(), QMargins(8, 9, 10, 11));
    }

    // One ground below the margin and the text.
    void grounds()
    {
        QPalette yellow;
        yellow.setColor(QPalette::Base, Qt::yellow);
        for (const char *sheet : {"", "QTextEdit{background:yellow}", "QWidget{background:yellow}",
                                  "QFrame{background:yellow}", "QFrame{border:1px solid red}"}) {
            qApp->setStyleSheet(sheet);
            CBPTextEdit text;
            if (!*sheet)
                text.setPalette(yellow);
            text.setTextMargin(8, 9, 10, 11);
            for (const bool enabled : {true, false}) {
                text.setEnabled(enabled);
                const QImage image = pictureOf(text, 1, Qt::red);
                QCOMPARE(image.pixelColor(5, 20), image.pixelColor(80, 20));
                if (enabled && !QByteArray(sheet).contains("border"))
                    QVERIFY2(image.pixelColor(80, 20) == QColor(Qt::yellow), sheet);
            }
        }
        qApp->setStyleSheet(QString());
    }

    // A line break counts one; characters of two halves stay whole. No limit: 0 and below.
    void textLimit()
    {
        const QString lines = QString("ab\n").repeated(100);
        const QString smile = QString::fromUtf8("\xF0\x9F\x98\x80");
        const QString many(300, 'x');
        const QString hundred(100, 'x');
        const std::tuple<int, QString, QString> rows[] = {
            {100, many, hundred},          {100, hundred, hundred},   {100, hundred + 'x', hundred},
            {100, lines, lines.left(100)}, {0, many, many},           {-1, many, many},
            {INT_MIN, many, many},         {3, smile + smile, smile}, {1, smile, QString()}};
        for (const auto &[limit, pasted, kept] : rows) {
            ViewedTextEdit edit;
            edit.setMaxLength(limit);
            const QSignalSpy spy(&edit, &QTextEdit::textChanged);
            edit.paste(pasted);
            QCOMPARE(edit.toPlainText(), kept);
            QVERIFY(spy.count() <= 2);
            QCOMPARE(edit.textCursor().position(), kept.size());
            // Text that is inserted in front pushes the end out, and the cursor goes to the end.
            edit.moveCursor(QTextCursor::Start);
            edit.insertPlainText("y");
            const bool full = limit > 0 && kept.size() == limit;
            QCOMPARE(edit.toPlainText(), "y" + (full ? kept.left(limit - 1) : kept));
            QVERIFY(!full || edit.textCursor().position() == limit);
        }
    }

    void textLimitComesLater()
    {
        CBPTextEdit edit;
        edit.setHtml("<b>Twelve chars</b>");
        edit.setMaxLength(4);
        QCOMPARE(edit.toPlainText(), QString("Twelve chars"));
        edit.append("more");
        QCOMPARE(edit.toPlainText(), QString("Twel"));
        QCOMPARE(edit.textCursor().charFormat().fontWeight(), int(QFont::Normal));
        for (const bool redo : {false, true}) {
            CBPTextEdit undone;
            undone.insertPlainText(QString(100, 'x'));
            undone.selectAll();
            if (redo)
                undone.undo();
            else
                undone.textCursor().removeSelectedText(); // which the limit then does not concern
            undone.setMaxLength(60);
            QTest::ignoreMessage(QtWarningMsg, "QTextCursor::setPosition: Position '100' out of range");
            redo ? undone.redo() : undone.undo();
            QCOMPARE(undone.toPlainText(), QString(60, 'x'));
            AWAIT_EQUAL(undone.textCursor().position(), 60);
            // Otherwise the application may set the cursor where it likes.
            undone.setPlainText(QString(100, 'x'));
            undone.moveCursor(QTextCursor::Start);
            QCoreApplication::processEvents();
            QCOMPARE(undone.textCursor().position(), 0);
        }
    }
};

LUMQT_TEST_MAIN(TestLineEdits)
#include "tst_lineedits.moc"
