#include "CBPLineEdit.h"
#include "CBPTextEdit.h"
#include "Pixels.h"
#include "TestMain.h"

#include <QClipboard>
#include <QMimeData>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolButton>

namespace {

void mouse(QWidget &widget, QEvent::Type type, const QPoint &at, Qt::MouseButtons held = Qt::LeftButton)
{
    QMouseEvent event(type, at, type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held,
                      Qt::NoModifier);
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
    void defaults()
    {
        QWidget parent;
        const CBPLineEdit plain;
        const CBPLineEdit child(&parent, true);
        QVERIFY(!plain.parentWidget());
        QCOMPARE(child.parentWidget(), &parent);
        for (const CBPLineEdit *edit : {&plain, &child}) {
            QVERIFY(edit->findChildren<QToolButton *>().isEmpty());
            QCOMPARE(edit->textMargins(), QMargins());
        }
    }

    void firstClick_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("readOnly");
        QTest::addColumn<int>("moved"); // pixels, while the button is down
        QTest::addColumn<bool>("selectsAll");
        QTest::newRow("text") << "some words" << false << 0 << true;
        QTest::newRow("trembling hand") << "some words" << false << 2 << true;
        QTest::newRow("read-only") << "some words" << true << 0 << false;
        QTest::newRow("empty") << "" << false << 0 << false;
        QTest::newRow("4000 characters") << QString(4000, 'x') << false << 0 << true;
    }

    void firstClick()
    {
        QFETCH(QString, text);
        QFETCH(bool, readOnly);
        QFETCH(int, moved);
        QFETCH(bool, selectsAll);
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
        if (selectsAll) {
            mouse(edit, QEvent::MouseButtonPress, at);
            mouse(edit, QEvent::MouseButtonRelease, at, Qt::NoButton);
            QCOMPARE(edit.selectedText(), QString());
            QVERIFY(edit.cursorPosition() < 3);
            return;
        }
        // It has not been spent.
        edit.setReadOnly(false);
        edit.setText("other words");
        mouse(edit, QEvent::MouseButtonPress, at);
        QCOMPARE(edit.selectedText(), QString("other words"));
    }

    void firstDrag_data()
    {
        QTest::addColumn<int>("from"); // pixels
        QTest::addColumn<int>("to");
        QTest::newRow("from the middle on") << 120 << 220;
        QTest::newRow("and back") << 220 << 120;
        QTest::newRow("from the start") << 4 << 120;
    }

    void firstDrag()
    {
        QFETCH(int, from);
        QFETCH(int, to);
        QString selected[2];
        CBPLineEdit edit;
        edit.resize(400, 30);
        edit.setText(QString("some words ").repeated(5));
        for (QString &text : selected) { // a first and a second time
            mouse(edit, QEvent::MouseButtonPress, QPoint(from, 15));
            for (int step = 1; step <= 10; ++step)
                mouse(edit, QEvent::MouseMove, QPoint(from + step * (to - from) / 10, 15));
            mouse(edit, QEvent::MouseButtonRelease, QPoint(to, 15), Qt::NoButton);
            text = edit.selectedText();
            QCOMPARE(edit.selectionStart(), edit.cursorPositionAt(QPoint(qMin(from, to), 15)));
            QCOMPARE(edit.selectionEnd(), edit.cursorPositionAt(QPoint(qMax(from, to), 15)));
            edit.deselect();
        }
        QVERIFY(selected[0].size() > 5);
        QCOMPARE(selected[0], selected[1]);
    }

    void longPassword()
    {
        CBPLineEdit edit(QString(), true);
        edit.setEchoMode(QLineEdit::Password);
        edit.resize(200, 30);
        const QString word(4000, QLatin1Char('s'));
        edit.setText(word);
        QTest::mouseClick(&edit, Qt::LeftButton);
        QCOMPARE(edit.selectedText().size(), 4000);
        edit.grab();
        QTest::keyClick(&edit, Qt::Key_A); // replaces it
        QCOMPARE(edit.text(), QString("a"));
    }

    void blockedKeys_data()
    {
        QTest::addColumn<bool>("blocks");
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("does");
        QTest::addColumn<bool>("works");
        for (const bool blocks : {false, true}) {
            const auto row = [blocks](const char *name) -> QTestData & {
                return QTest::newRow(qPrintable(QString(blocks ? "blocked: %1" : "free: %1").arg(name)))
                       << blocks;
            };
            row("select all") << int(Qt::CTRL + Qt::Key_A) << "select" << !blocks;
            row("copy") << int(Qt::CTRL + Qt::Key_C) << "copy" << !blocks;
            row("copy, the other key") << int(Qt::CTRL + Qt::Key_Insert) << "copy" << !blocks;
            row("paste") << int(Qt::CTRL + Qt::Key_V) << "paste" << !blocks;
            row("paste, the other key") << int(Qt::SHIFT + Qt::Key_Insert) << "paste" << !blocks;
            row("cut") << int(Qt::CTRL + Qt::Key_X) << "cut" << true;
        }
    }

    void blockedKeys()
    {
        QFETCH(bool, blocks);
        QFETCH(int, key);
        QFETCH(QString, does);
        QFETCH(bool, works);
        QWidget window;
        CBPLineEdit edit(&window, blocks);
        edit.setText("words");
        edit.setSelection(0, 2);
        QApplication::clipboard()->setText("clip");
        int pressed = 0;
        connect(&edit, &CBPLineEdit::KeyPressed, this, [&pressed] { ++pressed; });
        const Qt::KeyboardModifiers modifiers(key & int(Qt::KeyboardModifierMask));
        QKeyEvent event(QEvent::KeyPress, key & ~int(Qt::KeyboardModifierMask), modifiers);
        QCoreApplication::sendEvent(&edit, &event);
        QVERIFY(event.isAccepted()); // also a key that does nothing goes no further
        QCOMPARE(pressed, works ? 1 : 0);
        const QString clip = QApplication::clipboard()->text();
        const bool happened = does == "select"  ? edit.selectedText() == "words"
                              : does == "copy"  ? clip == "wo"
                              : does == "paste" ? edit.text() == "cliprds"
                                                : edit.text() == "rds" && clip == "wo";
        QCOMPARE(happened, works);
        if (!works) {
            QCOMPARE(edit.text(), QString("words"));
            QCOMPARE(edit.selectedText(), QString("wo"));
            QCOMPARE(clip, QString("clip"));
        }
        QTest::keyClick(&edit, Qt::Key_B);
        QCOMPARE(pressed, works ? 2 : 1);
    }

    void signalsComeBeforeTheEditActs()
    {
        HookedEdit edit;
        edit.setText("words");
        QString text;
        QStringList heard;
        connect(&edit, &CBPLineEdit::KeyPressed, this, [&](QKeyEvent *event) {
            text = edit.text();
            heard << QString("pressed %1").arg(event->text());
        });
        connect(&edit, &CBPLineEdit::KeyReleased, this,
                [&](QKeyEvent *event) { heard << QString("released %1").arg(event->text()); });
        connect(&edit, &CBPLineEdit::sigLoseFocus, this, [&] { heard << "focus"; });
        QTest::keyPress(&edit, 'x');
        QCOMPARE(text, QString("words"));
        QCOMPARE(edit.text(), QString("wordsx"));
        QTest::keyRelease(&edit, 'x');
        QFocusEvent out(QEvent::FocusOut);
        QCoreApplication::sendEvent(&edit, &out);
        QCOMPARE(heard, QStringList({"pressed x", "released x", "focus"}));
        mouse(edit, QEvent::MouseButtonPress, QPoint(4, 4));
        QCOMPARE(edit.releases, 0);
        mouse(edit, QEvent::MouseButtonRelease, QPoint(4, 4), Qt::NoButton);
        QCOMPARE(edit.releases, 1);
    }

    void diesInItsSignals_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("key pressed") << int(QEvent::KeyPress);
        QTest::newRow("key released") << int(QEvent::KeyRelease);
        QTest::newRow("focus lost") << int(QEvent::FocusOut);
        QTest::newRow("mouse released") << int(QEvent::MouseButtonRelease);
    }

    void diesInItsSignals()
    {
        QFETCH(int, type);
        auto *hooked = new HookedEdit;
        hooked->dies = true;
        QPointer<CBPLineEdit> edit = hooked;
        const auto die = [&edit] { delete edit; };
        connect(hooked, &CBPLineEdit::KeyPressed, this, die);
        connect(hooked, &CBPLineEdit::KeyReleased, this, die);
        connect(hooked, &CBPLineEdit::sigLoseFocus, this, die);
        if (type == QEvent::MouseButtonRelease) {
            mouse(*hooked, QEvent::MouseButtonRelease, QPoint(4, 4));
        } else if (type == QEvent::FocusOut) {
            QFocusEvent event(QEvent::FocusOut);
            QCoreApplication::sendEvent(hooked, &event);
        } else {
            QKeyEvent event(QEvent::Type(type), Qt::Key_A, Qt::NoModifier, "a");
            QCoreApplication::sendEvent(hooked, &event);
        }
        QVERIFY(!edit);
    }

    void icon_data()
    {
        QTest::addColumn<QSize>("picture");
        QTest::newRow("small") << QSize(20, 10);
        QTest::newRow("higher than the edit") << QSize(16, 64);
        QTest::newRow("missing") << QSize(0, 0);
    }

    void icon()
    {
        QFETCH(QSize, picture);
        const QTemporaryDir dir;
        const QString path = dir.filePath("icon.png");
        if (picture.isEmpty()) {
            QTest::ignoreMessage(QtWarningMsg, qPrintable(QString("The image %1 is missing").arg(path)));
        } else {
            QImage image(picture, QImage::Format_RGB32);
            image.fill(Qt::red);
            QVERIFY(image.save(path));
        }
        CBPLineEdit edit(path);
        auto *button = edit.findChild<QToolButton *>();
        QVERIFY(button);
        QCOMPARE(button->size(), picture);
        QCOMPARE(button->iconSize(), picture);
        QCOMPARE(button->styleSheet(), QString("QToolButton{border:none; padding:2px;}"));
        QCOMPARE(button->focusPolicy(), Qt::NoFocus);
        QCOMPARE(edit.textMargins(), QMargins(picture.width() + 5, 0, 0, 0));
        for (const int height : {31, 40}) {
            edit.resize(200, height);
            edit.grab(); // resizes what has not been shown
            QCOMPARE(button->pos(), QPoint(2, (height - picture.height()) / 2));
        }
        if (picture.isEmpty())
            return;
        // The whole button is the picture, which is not shrunk.
        QImage image = button->grab().toImage();
        QCOMPARE(boxOf(image, Qt::red), image.rect());
        button->setEnabled(false);
        QVERIFY(boxOf(button->grab().toImage(), Qt::red).isEmpty());
        button->setEnabled(true);
        QPixmap other(picture);
        other.fill(Qt::blue);
        button->setIcon(other);
        image = button->grab().toImage();
        QCOMPARE(image.pixelColor(image.rect().center()), QColor(Qt::blue));
    }

    void textLimit_data()
    {
        QTest::addColumn<int>("limit");
        QTest::addColumn<QString>("pasted");
        QTest::addColumn<QString>("kept");
        const QString lines = QString("ab\n").repeated(100);
        const QString smile = QString::fromUtf8("\xF0\x9F\x98\x80");
        QTest::newRow("too long") << 100 << QString(300, 'x') << QString(100, 'x');
        QTest::newRow("fits exactly") << 100 << QString(100, 'x') << QString(100, 'x');
        QTest::newRow("one too long") << 100 << QString(101, 'x') << QString(100, 'x');
        QTest::newRow("a line break counts one") << 100 << lines << lines.left(100);
        QTest::newRow("0: none") << 0 << QString(300, 'x') << QString(300, 'x');
        QTest::newRow("negative: none") << -1 << QString(300, 'x') << QString(300, 'x');
        QTest::newRow("most negative") << INT_MIN << QString(300, 'x') << QString(300, 'x');
        QTest::newRow("no half characters") << 3 << smile + smile << smile;
        QTest::newRow("not even one") << 1 << smile << QString();
    }

    void textLimit()
    {
        QFETCH(int, limit);
        QFETCH(QString, pasted);
        QFETCH(QString, kept);
        ViewedTextEdit edit;
        edit.setMaxLength(limit);
        QSignalSpy spy(&edit, &QTextEdit::textChanged);
        edit.paste(pasted);
        QCOMPARE(edit.toPlainText(), kept);
        QVERIFY(spy.count() <= 2);
        QCOMPARE(edit.textCursor().position(), kept.size());
        // Text that is inserted in front pushes the end out, and the cursor goes to the end.
        edit.moveCursor(QTextCursor::Start);
        edit.insertPlainText("y");
        const bool full = limit > 0 && kept.size() == limit;
        QCOMPARE(edit.toPlainText(), "y" + (full ? kept.left(limit - 1) : kept));
        if (full)
            QCOMPARE(edit.textCursor().position(), limit);
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
    }

    void textLimitWhileUndoing_data()
    {
        QTest::addColumn<bool>("redo");
        QTest::newRow("undo") << false;
        QTest::newRow("redo") << true;
    }

    void textLimitWhileUndoing()
    {
        QFETCH(bool, redo);
        CBPTextEdit edit;
        edit.insertPlainText(QString(100, 'x'));
        if (redo) {
            edit.undo();
        } else {
            edit.selectAll();
            edit.textCursor().removeSelectedText(); // which the limit then does not concern
        }
        edit.setMaxLength(60);
        QTest::ignoreMessage(QtWarningMsg, "QTextCursor::setPosition: Position '100' out of range");
        if (redo)
            edit.redo();
        else
            edit.undo();
        QCOMPARE(edit.toPlainText(), QString(60, 'x'));
        QTRY_COMPARE(edit.textCursor().position(), 60);
        // Otherwise the application may set the cursor where it likes.
        edit.setPlainText(QString(100, 'x'));
        edit.moveCursor(QTextCursor::Start);
        QCoreApplication::processEvents();
        QCOMPARE(edit.textCursor().position(), 0);
    }

    void textMargins()
    {
        ViewedTextEdit edit;
        edit.setTextMargin(1, 2, 3, 4);
        QCOMPARE(edit.margins(), QMargins(1, 2, 3, 4));
        edit.setTextMargin(-1, INT_MIN, INT_MAX, 4);
        QCOMPARE(edit.margins(), QMargins(0, 0, QWIDGETSIZE_MAX, 4));
        edit.resize(100, 100);
        edit.grab();
    }
};

LUMQT_TEST_MAIN(TestLineEdits)
#include "tst_lineedits.moc"
