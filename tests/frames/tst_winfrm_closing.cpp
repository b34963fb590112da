#include "FrameProbe.h"

#include "foundation/QtCompat.h"
#include "platform/Platform.h"
#include "Rows.h"
#include "TestMain.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QWindow>

namespace {

template <class Window> void closeBy(Window &window, const QString &way)
{
    if (way == "button")
        clickTitle(window, 8);
    else if (way == "Escape")
        QTest::keyClick(&window, Qt::Key_Escape);
    else if (way == "system")
        closeBySystem(window);
    else if (way == "signal")
        emit window.titleBar()->on_dbl_clickedSignal(true);
    else if (way == "hook")
        window.OnClose();
    else
        window.close();
}

// Where a dialog is while it runs; nowhere when it ends with anything but a rejection.
QRect geometryInside(Dialog &w)
{
    QRect at;
    QTimer::singleShot(0, &w, [&] {
        at = w.geometry();
        clickTitle(w, 8);
    });
    return w.exec() == QDialog::Rejected ? at : QRect();
}

} // namespace

class TestWinFrmClosing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { lumqt::platform::answers() = m_answers; }

    void closing_data()
    {
        columns<QString, int, bool, int, bool>("way", "hook", "disabled", "calls", "closes");
        for (const int hook : {ByBase, Directly, NotAtAll}) {
            for (const bool disabled : {false, true}) {
                const auto way = [=](const char *name, int calls, bool closes) {
                    QTest::addRow("%s, hook %d%s", name, hook, disabled ? ", disabled" : "")
                        << name << hook << disabled << calls << closes;
                };
                way("button", 1, hook != NotAtAll);
                way("signal", 1, hook != NotAtAll);
                way("Escape", !disabled, hook != NotAtAll && !disabled);
                way("system", !disabled, !disabled);
                way("close()", !disabled, !disabled);
            }
        }
        row("hook called by the application", "hook", int(ByBase), true, 1, true);
    }
    void closing()
    {
        inBoth([](auto &w) {
            QFETCH(QString, way);
            QFETCH(int, hook);
            QFETCH(bool, disabled); // Escape and Alt+F4
            QFETCH(bool, closes);
            w.Init();
            w.closing = hook;
            w.SetDisableEscAndF4Flag(disabled);
            auto *dialog = qobject_cast<QDialog *>(static_cast<QWidget *>(&w));
            QList<int> told; // that it has ended
            if (dialog)
                connect(dialog, &QDialog::finished, [&told](int result) { told << result; });
            for (int time = 1; time <= 2; ++time) { // and once more when shown again
                w.calls.clear();
                told.clear();
                if (dialog)
                    dialog->setResult(77);
                dialog &&time == 2 ? dialog->open() : w.show();
                QVERIFY(QTest::qWaitForWindowExposed(&w, kPatience));
                closeBy(w, way);
                QTEST(int(w.calls.size()), "calls");
                QCOMPARE(w.isVisible(), !closes);
                QCOMPARE(told, dialog && closes ? QList<int>{QDialog::Rejected} : QList<int>());
            }
            w.calls.clear();
            w.show();
            clickTitle(w, 8); // whatever came before, this button closes
            QCOMPARE(w.calls, QStringList{"close"});
            const bool survived = survives(w, "close", [&](auto &dying) {
                dying.SetDisableEscAndF4Flag(disabled);
                closeBy(dying, way);
            });
            QTEST(int(!survived), "calls");
        });
    }

    // Other requests while the first one is asked about: the hook is not entered again, nor passed over.
    void hookThatAsks()
    {
        Dialog w;
        w.Init();
        w.show();
        w.closing = NotAtAll;
        w.inClosing = [&w] {
            for (const char *way : {"button", "Escape", "system"})
                closeBy(w, way);
        };
        for (const int times : {1, 2}) {
            clickTitle(w, 8);
            QVERIFY(w.calls.size() == times && w.isVisible());
        }
    }

    // The name of a row is its keys.
    void keys_data()
    {
        columns<QString, bool>("calls", "accepted");
        row("F1", "help", false);
        row("Shift+F1", "help", false);
        row("Escape", "close", true);
        row("Ctrl+Escape", "", false);
        row("Num+Escape", "", false);
        row("Alt+F4", "", false);
        row("A", "", false);
        row("Return", "", true);
        row("Num+Enter", "", true);
        row("Num+Shift+Enter", "", true);
        row("Num+Return", "", false);
        row("Ctrl+Return", "", false);
    }
    void keys()
    {
        inBoth([](auto &w) {
            QFETCH(QString, calls);
            const auto press = [](QWidget &window) {
                const int keys = lumqt::firstKey(QKeySequence(QTest::currentDataTag()));
                const auto modifiers = Qt::KeyboardModifiers(keys & int(Qt::KeyboardModifierMask));
                QKeyEvent event(QEvent::KeyPress, keys & ~int(Qt::KeyboardModifierMask), modifiers);
                QCoreApplication::sendEvent(&window, &event);
                return event.isAccepted();
            };
            QCOMPARE(survives(w, calls, press), calls.isEmpty());
            w.Init();
            w.show();
            QTEST(press(w), "accepted");
            QCOMPARE(w.calls.join(' '), calls);
        });
    }

    // In a CBPWinWidget, as a dialog has but one default button.
    void returnKey_data()
    {
        columns<QString, QString>("state", "clicked"); // the buttons' state in words
        for (const char *words : {"default", "default disabled", "default hidden", "focused",
                                  "default, second focused", "default, second default focused"})
            row(words, words, "");
        row("default focused", "default focused", "first");
        row("default hidden, second default focused", "default hidden, second default focused", "second");
    }
    void returnKey()
    {
        QFETCH(QString, state);
        Widget w;
        w.Init();
        auto *edit = new QLineEdit;
        auto *box = new QWidget; // the buttons are no children of the window
        w.AppendContent(edit, false, false, 0);
        w.AppendContent(box, false, false, 0);
        QStringList clicked;
        QWidget *focused = edit;
        for (const QString name : {"first", "second"}) {
            const bool second = name == "second";
            auto *button = new QPushButton(name, box);
            const QString part = state.section(", second", second, second);
            button->setDefault(part.contains("default"));
            button->setEnabled(!part.contains("disabled"));
            button->setHidden(part.contains("hidden"));
            if (part.contains("focused"))
                focused = button;
            connect(button, &QPushButton::clicked, [&clicked, name] { clicked << name; });
        }
        showActive(w);
        focused->setFocus();
        AWAIT_EQUAL(QApplication::focusWidget(), focused);
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier); // as it climbs from below
        QCoreApplication::sendEvent(&w, &event);
        QTEST(clicked.join(' '), "clicked");
        QVERIFY(event.isAccepted());
    }

    void parentHides_data()
    {
        names("way",
              {"hidden", "ancestor", "not modal", "minimised", "closed before", "deadly", "destroyed"});
    }
    void parentHides()
    {
        inBoth([](auto &like) {
            using Window = std::decay_t<decltype(like)>;
            QFETCH(QString, way);
            QPointer<QWidget> top(new QWidget);
            auto *parent = new QWidget(top);
            top->show();
            QPointer<Window> w(new Window(parent));
            w->Init();
            w->setWindowModality(way == "not modal" ? Qt::NonModal : Qt::WindowModal);
            w->setVisible(way != "closed before");
            w->deadly = way == "deadly" ? "close" : "";
            if (way == "minimised") {
                QHideEvent minimised;
                QSpontaneKeyEvent::setSpontaneous(&minimised);
                qApp->notify(parent, &minimised); // sendEvent() would not let it be spontaneous
            } else if (way == "destroyed") {
                delete top; // which hides before it deletes
            } else {
                (way == "ancestor" ? top.data() : parent)->hide();
            }
            QCOMPARE(w.isNull(), way == "deadly" || way == "destroyed");
            if (w)
                QCOMPARE(w->calls.size(), way == "hidden" || way == "ancestor");
            delete w;
            delete top;
        });
    }

    void centring_data()
    {
        columns<QRect, QRect, QSize, QPoint>("area", "parent", "size", "place"); // no parent: a null one
        const QRect none;
        const QRect screen(0, 0, 1000, 800);
        const QSize size(300, 200);
        row("no parent", screen, none, QSize(300, 201), QPoint(350, 299));
        // The origin is not added, only kept to.
        row("offset area", QRect(400, 300, 600, 500), none, size, QPoint(400, 300));
        row("slightly offset", QRect(20, 10, 600, 500), none, size, QPoint(150, 150));
        row("over the parent", screen, QRect(200, 150, 500, 400), size, QPoint(300, 250));
        row("right, bottom", QRect(0, 0, 700, 500), QRect(600, 400, 200, 200), size, QPoint(400, 300));
        row("left, top", QRect(90, 80, 700, 500), QRect(50, 30, 100, 100), size, QPoint(90, 80));
        row("too large", QRect(60, 50, 200, 100), none, size, QPoint(60, 50));
        row("no answer", none, none, size, QPoint(7, 8));
    }
    void centring()
    {
        QFETCH(QRect, area);
        QFETCH(QRect, parent);
        QFETCH(QSize, size);
        lumqt::platform::answers().workArea = [area] { return area; };
        QWidget window(nullptr, Qt::FramelessWindowHint);
        auto *child = new QWidget(&window); // which is the parent
        child->setGeometry(QRect(QPoint(40, 20), parent.size()));
        if (!parent.isNull()) {
            window.setGeometry(parent.adjusted(-40, -20, 60, 60));
            window.show();
            QVERIFY(QTest::qWaitForWindowExposed(&window, kPatience));
            AWAIT_EQUAL(QRect(child->mapToGlobal(QPoint(0, 0)), child->size()), parent);
        }
        Dialog w(parent.isNull() ? nullptr : child);
        w.Init();
        w.move(7, 8);
        w.resize(size);
        QTEST(geometryInside(w).topLeft(), "place");
    }

    // Measured as it is going to be shown, and again when it has grown since.
    void firstCentring()
    {
        lumqt::platform::answers().workArea = [] { return QRect(0, 0, 1200, 1000); };
        Dialog w;
        w.Init();
        auto *text = new QLabel("text");
        w.AppendContent(text, false, false, 0);
        w.setFixedWidth(500);
        w.setMinimumHeight(200);
        for (const int height : {200, 360}) {
            text->setMinimumHeight(height - 2 * 10 - 60 - 16 - 12);
            QCOMPARE(geometryInside(w), QRect(350, (1000 - height) / 2, 500, height));
        }
        // One that is just shown is placed by Qt, as any dialog.
        QWidget parent;
        parent.setGeometry(500, 400, 400, 300);
        parent.show();
        Dialog shown(&parent);
        shown.Init();
        shown.show();
        QVERIFY(!shown.pos().isNull());
    }

    // Run again by whom its end is told, it is closed as it was the first time.
    void runAgain()
    {
        for (const QString row : {"button", "Escape", "close()", "button, Escape disabled"}) {
            const QString way = row.section(',', 0, 0);
            Dialog w;
            w.Init();
            w.SetDisableEscAndF4Flag(row.contains("disabled"));
            int ends = 0;
            connect(&w, &QDialog::finished, &w, [&] {
                if (++ends > 1)
                    return;
                QTimer::singleShot(0, &w, [&w, way] { closeBy(w, way == "close()" ? "button" : way); });
                QTimer::singleShot(20000, &w, &QWidget::hide); // or it would hang
                w.exec();
            });
            w.open();
            closeBy(w, way);
            QVERIFY2(ends == 2 && !w.isVisible(), qPrintable(row));
        }
    }

    void rejecting()
    {
        class Refusing : public Dialog
        {
        public:
            void reject() override
            {
                if (!refuses)
                    Dialog::reject();
            }
            bool refuses = false;
        } w;
        w.Init();
        w.SetDisableEscAndF4Flag(true);
        QSignalSpy rejected(&w, &QDialog::rejected);
        w.show();
        w.reject();
        QVERIFY(w.isVisible());
        w.SetDisableEscAndF4Flag(false);
        w.refuses = true;
        QVERIFY(!w.close());
        QVERIFY(w.isVisible() && rejected.isEmpty());
        w.refuses = false;
        w.reject();
        QVERIFY(!w.isVisible() && rejected.size() == 1);
    }

private:
    const lumqt::platform::Answers m_answers = lumqt::platform::answers();
};

LUMQT_TEST_MAIN(TestWinFrmClosing)
#include "tst_winfrm_closing.moc"
