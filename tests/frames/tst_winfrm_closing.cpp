#include "FrameProbe.h"

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
        inBoth([](auto of) {
            QFETCH(QString, way);
            QFETCH(int, hook);
            QFETCH(bool, disabled); // Escape and Alt+F4
            QFETCH(bool, closes);
            typename decltype(of)::type w;
            w.Init();
            w.closing = hook;
            w.SetDisableEscAndF4Flag(disabled);
            constexpr bool isDialog = std::is_same_v<decltype(w), Dialog>;
            QStringList told; // that it has ended
            if constexpr (isDialog) {
                connect(&w, &QDialog::finished, &w, [&told](int result) { told << QString::number(result); });
                connect(&w, &QDialog::rejected, &w, [&told] { told << QStringLiteral("rejected"); });
            }
            for (int time = 1; time <= 2; ++time) { // and once more when shown again
                w.calls.clear();
                told.clear();
                if constexpr (isDialog) {
                    w.setResult(77);
                    time == 1 ? w.show() : w.open();
                } else {
                    w.show();
                }
                QVERIFY(QTest::qWaitForWindowExposed(&w));
                closeBy(w, way);
                QTEST(w.calls.size(), "calls");
                QCOMPARE(w.isVisible(), !closes);
                const bool tells = isDialog && closes;
                QCOMPARE(told, tells ? QStringList({"rejected", "0"}) : QStringList());
            }
            w.calls.clear();
            w.show();
            clickTitle(w, 8); // whatever came before, this button closes
            QCOMPARE(w.calls, QStringList{"close"});

            QPointer<typename decltype(of)::type> dying(new typename decltype(of)::type);
            dying->Init();
            dying->deadly = QStringLiteral("close");
            dying->SetDisableEscAndF4Flag(disabled);
            dying->show();
            closeBy(*dying, way);
            QTEST(int(dying.isNull()), "calls");
            delete dying;
        });
    }

    // Other requests while the first one is asked about: the hook is not entered again, nor passed over.
    void hookThatAsks()
    {
        class Asking : public Dialog
        {
        public:
            void OnClose() override
            {
                ++asked;
                clickTitle(*this, 8);
                QTest::keyClick(this, Qt::Key_Escape);
                closeBySystem(*this);
            }
            int asked = 0;
        } w;
        w.Init();
        w.show();
        for (const int times : {1, 2}) {
            clickTitle(w, 8);
            QVERIFY(w.asked == times && w.isVisible());
        }
    }

    void keys_data()
    {
        columns<int, int, QString, bool>("key", "modifiers", "calls", "accepted");
        const auto key = [](const char *name, int pressed, int modifiers, const char *calls, bool accepted) {
            row(name, pressed, modifiers, calls, accepted);
        };
        key("F1", Qt::Key_F1, 0, "help", false);
        key("Shift+F1", Qt::Key_F1, Qt::ShiftModifier, "help", false);
        key("Escape", Qt::Key_Escape, 0, "close", true);
        key("Ctrl+Escape", Qt::Key_Escape, Qt::ControlModifier, "", false);
        key("Keypad+Escape", Qt::Key_Escape, Qt::KeypadModifier, "", false);
        key("Alt+F4", Qt::Key_F4, Qt::AltModifier, "", false);
        key("letter", Qt::Key_A, 0, "", false);
        key("Return", Qt::Key_Return, 0, "", true);
        key("Enter", Qt::Key_Enter, Qt::KeypadModifier, "", true);
        key("Shift+Enter", Qt::Key_Enter, Qt::KeypadModifier | Qt::ShiftModifier, "", true);
        key("Keypad+Return", Qt::Key_Return, Qt::KeypadModifier, "", false);
        key("Ctrl+Return", Qt::Key_Return, Qt::ControlModifier, "", false);
    }
    void keys()
    {
        inBoth([](auto of) {
            QFETCH(int, key);
            QFETCH(int, modifiers);
            QFETCH(QString, calls);
            for (const bool dies : {false, true}) {
                QPointer<typename decltype(of)::type> w(new typename decltype(of)::type);
                w->Init();
                w->show();
                w->deadly = dies ? calls : QString();
                QKeyEvent event(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers));
                QCoreApplication::sendEvent(w, &event);
                QCOMPARE(w.isNull(), dies && !calls.isEmpty());
                if (!dies) {
                    QCOMPARE(w->calls.join(' '), calls);
                    QTEST(event.isAccepted(), "accepted");
                }
                delete w;
            }
        });
    }

    // In a CBPWinWidget, as a dialog has but one default button.
    void returnKey_data()
    {
        columns<QString, QString>("state", "clicked"); // the buttons' state in words
        const auto state = [](const char *words, const char *clicked) { row(words, words, clicked); };
        state("default focused", "first");
        state("default", "");
        state("default disabled", "");
        state("default hidden", "");
        state("focused", "");
        state("default, second focused", "");
        state("default, second default focused", "");
        state("default hidden, second default focused", "second");
    }
    void returnKey()
    {
        QFETCH(QString, state);
        Widget w;
        w.Init();
        auto *box = new QWidget; // the buttons are no children of the window
        QPushButton first(QStringLiteral("first"), box);
        QPushButton second(QStringLiteral("second"), box);
        auto *edit = new QLineEdit;
        w.AppendContent(edit, false, false, 0);
        w.AppendContent(box, false, false, 0);
        QStringList clicked;
        QWidget *focused = edit;
        for (QPushButton *button : {&first, &second}) {
            const QString part = state.section(", second", button == &second, button == &second);
            button->setDefault(part.contains("default"));
            button->setEnabled(!part.contains("disabled"));
            button->setHidden(part.contains("hidden"));
            if (part.contains("focused"))
                focused = button;
            connect(button, &QPushButton::clicked, [&clicked, button] { clicked << button->text(); });
        }
        showActive(w);
        focused->setFocus();
        QTRY_COMPARE(QApplication::focusWidget(), focused);
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier); // as it climbs from below
        QCoreApplication::sendEvent(&w, &event);
        QTEST(clicked.join(' '), "clicked");
        QVERIFY(event.isAccepted());
    }

    void parentHides_data()
    {
        columns<QString, int>("way", "closes");
        row("hidden", "hidden", 1);
        row("ancestor hidden", "ancestor", 1);
        row("hidden, not modal", "not modal", 0);
        row("minimised", "minimised", 0);
        row("window closed before", "before", 0);
        row("deadly", "deadly", 1);
        row("destroyed", "destroyed", 1);
    }
    void parentHides()
    {
        inBoth([](auto of) {
            QFETCH(QString, way);
            QPointer<QWidget> top(new QWidget);
            auto *parent = new QWidget(top);
            top->show();
            QPointer<typename decltype(of)::type> w(new typename decltype(of)::type(parent));
            w->Init();
            w->setWindowModality(way == "not modal" ? Qt::NonModal : Qt::WindowModal);
            w->setVisible(way != "before");
            if (way == "deadly")
                w->deadly = QStringLiteral("close");
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
                QTEST(w->calls.size(), "closes");
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
            QVERIFY(QTest::qWaitForWindowExposed(&window));
            QTRY_COMPARE(QRect(child->mapToGlobal(QPoint(0, 0)), child->size()), parent);
        }
        Dialog w(parent.isNull() ? nullptr : child);
        w.Init();
        w.move(7, 8);
        w.resize(size);
        QPoint at;
        QTimer::singleShot(0, &w, [&] {
            at = w.pos();
            clickTitle(w, 8);
        });
        QCOMPARE(w.exec(), 0);
        QTEST(at, "place");
    }

    // Measured as it is going to be shown, and again when it has grown since.
    void firstCentring()
    {
        lumqt::platform::answers().workArea = [] { return QRect(0, 0, 1200, 1000); };
        Dialog w;
        w.Init();
        auto *text = new QLabel(QStringLiteral("text"));
        w.AppendContent(text, false, false, 0);
        w.setFixedWidth(500);
        w.setMinimumHeight(200);
        for (const int height : {200, 360}) {
            text->setMinimumHeight(height - 2 * 10 - 60 - 16 - 12);
            QRect at;
            QTimer::singleShot(0, &w, [&] {
                at = w.geometry();
                clickTitle(w, 8);
            });
            w.exec();
            QCOMPARE(at, QRect(350, (1000 - height) / 2, 500, height));
        }
    }

    // Run again by whom its end is told, it is closed as it was the first time.
    void runAgain()
    {
        for (const QString way : {"button", "Escape", "close()"}) {
            Probe<CBPWinFrm> w;
            w.Init();
            int ends = 0;
            connect(&w, &QDialog::finished, &w, [&] {
                if (++ends > 1)
                    return;
                QTimer::singleShot(0, &w, [&w, way] { closeBy(w, way == "close()" ? "button" : way); });
                QTimer::singleShot(5000, &w, &QWidget::hide);
                w.exec();
            });
            w.open();
            closeBy(w, way);
            QVERIFY2(ends == 2 && !w.isVisible(), qPrintable(way));
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
