#include "Acts.h"
#include "CBPPushBtn.h"
#include "CBPTheme.h"
#include "foundation/ImageLoader.h"
#include "foundation/Palette.h"
#include "Pixels.h"
#include "Rows.h"
#include "TestMain.h"
#include "Util.h"

#include <QGraphicsOpacityEffect>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QTemporaryDir>

#include <memory>

using P = CBPTheme::Purpose;

namespace {

QStringList s_lines; // of the log, since it was cleared
QtMessageHandler s_before = nullptr;

void listen(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (qstrcmp(context.category, "lumqtlib") == 0)
        s_lines << text;
    else
        s_before(type, context, text);
}

class Painted : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).fillRect(rect(), CBPTheme::color(P::Field)); }
};

// A label that wears the theme, in a panel.
struct Worn
{
    Worn() { lumqt::wearTheme(&label, {{QPalette::WindowText, P::Text}, {QPalette::Base, P::Field}}); }
    QString colors() const
    {
        QStringList all;
        for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Base})
            all << label.palette().color(role).name();
        return all.join(' ');
    }
    QWidget panel;
    QLabel label{&panel};
};

void set(QWidget &widget, QPalette palette, QPalette::ColorRole role, const char *color)
{
    palette.setColor(role, QColor(color));
    widget.setPalette(palette);
}

} // namespace

// The themes, their files, and what wears them.
class TestTheme : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        QApplication::setStyle("Fusion"); // native ones have colours of their own, whatever the palette
        s_before = qInstallMessageHandler(listen);
    }
    void cleanupTestCase() { qInstallMessageHandler(s_before); }
    void init() { s_lines.clear(); }
    void cleanup()
    {
        CBPTheme::givePalette(false);
        CBPTheme::apply("light");
    }

    void applies()
    {
        QCOMPARE(CBPTheme::names().mid(0, 3), (QStringList{"light", "dark", "contrast"}));
        QCOMPARE(CBPTheme::current(), "light");
        Worn worn;
        QStringList heard;
        QObject receiver;
        connect(CBPTheme::instance(), &CBPTheme::changed, &receiver, [&](const QString &name) {
            heard << name + ' ' + worn.colors();
            if (name == "contrast") // as many hear of it as of the one before, and later
                CBPTheme::apply("dark");
        });
        QStringList second;
        connect(CBPTheme::instance(), &CBPTheme::changed, &receiver,
                [&](const QString &name) { second << name; });
        const auto heardOf = [&](const QString &name, bool known) {
            heard.clear();
            return CBPTheme::apply(name) == known ? heard : QStringList{"?"};
        };
        QCOMPARE(heardOf("Dark", false), {});
        QCOMPARE(s_lines.size(), 1);
        QVERIFY2(s_lines.value(0).contains("Dark"), qPrintable(s_lines.value(0)));
        QCOMPARE(heardOf("light", true), {});
        QCOMPARE(heardOf("dark", true), QStringList{"dark #e8ecf3 #151922"});
        QCOMPARE(heardOf("dark", true), {});
        second.clear();
        QCOMPARE(heardOf("contrast", true),
                 (QStringList{"contrast #ffffff #000000", "dark #e8ecf3 #151922"}));
        QCOMPARE(second, (QStringList{"contrast", "dark"}));
        QCOMPARE(CBPTheme::current(), "dark");
        QCOMPARE(s_lines.size(), 1);
    }

    void colorOfAnything()
    {
        for (const int number : {-1, lumqt::kPurposes, INT_MAX, INT_MIN})
            QVERIFY(!CBPTheme::color(P(number)).isValid());
        QCOMPARE(CBPTheme::color(P(lumqt::kPurposes - 1)), QColor(Qt::white));
    }

    // What a file "mine.ini" makes of a theme: its name; colours; and the log, as keys with what is expected.
    void loads_data()
    {
        columns<QByteArray, QString, QString, QString>("text", "name", "colors", "log");
        const auto add = [](const char *text, const char *colors, const char *log = "",
                            const char *name = "mine") {
            row(QByteArray(text).simplified(), QByteArray(text), QString::fromUtf8(name), QString(colors),
                QString(log));
        };
        const char color[] = "#rrggbb or #aarrggbb", base[] = "light or dark";
        add("", "Text=#ff222a3e");
        add("text=#123456", "Text=#ff123456 CalendarText=#ff123456 Ground=#ffffffff");
        add("name = Blau & Gr\xc3\xbcn, hell\nText = #80123456", "Text=#80123456", "",
            "Blau & Gr\xc3\xbcn, hell");
        add("name=\"a;b\" ; remark\ntext=#123456;remark", "Text=#ff123456", "", "a;b");
        add("\xef\xbb\xbfname=bom\r\n\r\n[Colours]\r\nTEXT = #ABCDEF\r\n", "Text=#ffabcdef", "", "bom");
        add("[General]\rtext=#123456\r; a\r", "Text=#ff123456");
        add("accent=#123456\nbase=DARK",
            "Accent=#ff123456 Chosen=#ff123456 TabFrame=#ff123456 Ground=#ff1c212c");
        add("accent=#123456", "Accent=#ff123456 Chosen=#ff123456 TabFrame=#ff49a7f5");
        add("accent=#123456\nchosen=#654321", "Chosen=#ff654321 CalendarChosen=#ff123456");
        for (const char *bad : {"red", "#123", "#12345", "#12345g", "#0x1234", "#+12345", "123456", "",
                                "#123456789", "#ff 123456"})
            add(("text=" + QByteArray(bad)).constData(), "Text=#ff222a3e",
                (QByteArray("text: ") + color).constData());
        add("text=#123456, #654321\nField=#000001", "Text=#ff222a3e Field=#ff000001",
            (QByteArray("text: ") + color).constData());
        add("Colour=#123456\ntext\nField=#000001", "Field=#ff000001",
            "lines of key = value|Colour: a purpose of CBPTheme, name or base");
        add("\xef\xbb\xbf[Colours]\n=#123456\nName", "",
            "lines of key = value|: a purpose of CBPTheme, name or base");
        add("Base=contrast", "Ground=#ffffffff", (QByteArray("Base: ") + base).constData());
        add("base=", "Ground=#ffffffff", (QByteArray("base: ") + base).constData());
        add("base=Mine", "Ground=#ffffffff", "base: light or dark, not the theme itself");
        add("name=x\nbase=X", "", "base: light or dark, not the theme itself", "x");
        add("name=Dark", "Ground=#ffffffff", "name: none of the library's names");
    }
    void loads()
    {
        QFETCH(QByteArray, text);
        QFETCH(QString, name);
        QFETCH(QString, colors);
        QFETCH(QString, log);
        const QString file = write("mine.ini", text);
        QCOMPARE(CBPTheme::load(file), name);
        QStringList lines;
        for (const QString &line : log.split('|', Qt::SkipEmptyParts))
            lines << QString(line.contains(": ") ? "The theme file %1, key %2"
                                                 : "The theme file %1: expected %2")
                         .arg(file, QString(line).replace(": ", ": expected "));
        QCOMPARE(s_lines, lines);
        QCOMPARE(CBPTheme::names().count(name), 1);
        QVERIFY(CBPTheme::apply(name));
        QStringList found;
        for (const QString &pair : colors.split(' ', Qt::SkipEmptyParts)) {
            const QByteArray purpose = pair.section('=', 0, 0).toLatin1();
            const int value = QMetaEnum::fromType<P>().keyToValue(purpose.constData());
            found << purpose + '=' + CBPTheme::color(P(value)).name(QColor::HexArgb);
        }
        QCOMPARE(found.join(' '), colors);
    }

    void refuses_data()
    {
        columns<QString, QByteArray, QString>("file", "text", "expected");
        const char unreadable[] = "a file that can be read";
        row("missing", QString("gone.ini"), QByteArray(), QString(unreadable));
        row("nothing", QString(), QByteArray(), QString(unreadable));
        row("folder", QString("folder"), QByteArray(), QString(unreadable));
        row("device", QString("/dev/zero"), QByteArray(), QString(unreadable));
        row("huge", QString("huge.ini"), "text=#123456\n" + QByteArray(256 * 1024, ';'),
            QString("at most 256 KiB"));
        row("binary", QString("a.ini"), QByteArray("text=#123456\n\0", 14), QString("text in UTF-8"));
        row("Latin-1", QString("b.ini"), QByteArray("name=Gr\xfcn"), QString("text in UTF-8"));
        row("cut", QString("c.ini"), QByteArray("name=Gr\xc3"), QString("text in UTF-8"));
        row("UTF-16", QString("d.ini"), QByteArray("\xff\xfen\0a\0m\0e\0", 10), QString("text in UTF-8"));
        row("the library's", QString("Light.ini"), QByteArray("text=#123456"),
            QString("one, since the file's is the library's"));
        row("both", QString("dark.ini"), QByteArray("name=light"), QString("none of the library's names"));
    }
    void refuses()
    {
        QFETCH(QString, file);
        QFETCH(QByteArray, text);
        QFETCH(QString, expected);
        const QStringList names = CBPTheme::names();
        QVERIFY(QDir(m_dir.path()).mkpath("folder"));
        const QString path = file.isEmpty() || file.startsWith('/') ? file
                             : text.isEmpty()                       ? m_dir.filePath(file)
                                                                    : write(file, text);
        QCOMPARE(CBPTheme::load(path), QString());
        QCOMPARE(CBPTheme::names(), names);
        QCOMPARE(s_lines.size(), 1);
        QVERIFY2(s_lines[0].startsWith("The theme file " + path) &&
                     s_lines[0].endsWith(": expected " + expected),
                 qPrintable(s_lines[0]));
    }

    // While it is shown, each time it has other colours, however fast.
    void loadsAgain()
    {
        QStringList heard;
        QObject receiver;
        connect(CBPTheme::instance(), &CBPTheme::changed, &receiver,
                [&](const QString &name) { heard << name + CBPTheme::color(P::Text).name(); });
        const auto load = [&](const char *text) { CBPTheme::load(write("again.ini", text)); };
        load("text=#000001");
        CBPTheme::apply("again");
        load("text=#000002");
        load("text=#000003");
        load("text=#000003\n; the same");
        load("text=#000003\nbase=dark");
        CBPTheme::apply("dark");
        load("text=#000004");
        QCOMPARE(heard, (QStringList{"again#000001", "again#000002", "again#000003", "again#000003",
                                     "dark#e8ecf3"}));
        QCOMPARE(CBPTheme::names().count("again"), 1);
    }

    void followsTheSystem()
    {
        using lumqt::platform::Appearance;
        const auto before = lumqt::platform::answers().appearance;
        Appearance now = Appearance::Dark;
        const auto tell = [] {
            lumqt::platform::appearanceChanged();
            QCoreApplication::processEvents();
        };
        lumqt::platform::answers().appearance = [&] { return now; };
        CBPTheme::followSystem(true);
        QCOMPARE(CBPTheme::current(), "dark");
        QVERIFY(!CBPTheme::apply("none"));
        QVERIFY(CBPTheme::isFollowingSystem());
        now = Appearance::HighContrast;
        tell();
        QCOMPARE(CBPTheme::current(), "contrast");
        CBPTheme::followSystem(false);
        CBPTheme::followSystem(true);
        QCOMPARE(CBPTheme::current(), "contrast");
        CBPTheme::apply("contrast");
        QVERIFY(!CBPTheme::isFollowingSystem());
        now = Appearance::Light;
        tell();
        QCOMPARE(CBPTheme::current(), "contrast");
        lumqt::platform::answers().appearance = before;
    }

    // Text and ground of a label after each step of its life: "light" and so on are themes; "text" is one
    // that is set for the text, in a copy of the palette, "fresh" the same in a palette of its own.
    void wears_data()
    {
        columns<QString>("life");
        const char *const lives[] = {
            "light=.. dark=dd contrast=cc light=..",
            "dark=dd text=rd contrast=rc light=r. dark=rd",
            "text=r. dark=rd light=r.",
            "dark=dd fresh=rd light=r.",
            "sheet=s. dark=sd light=s. nosheet=..",
            "dark=dd sheet=sd contrast=sc light=s. nosheet=.. dark=dd",
            "dark=dd sheet=sd nosheet=dd contrast=cc",
            "dark=dd panel=dd contrast=rc light=r.",
            "panel=r. dark=rd light=r.",
            "dark=dd light=.. asdark=d. light=d.",
            "dark=dd justdark=dd contrast=dc light=d.",
            "dark=dd asdark=dd contrast=dc light=d.",
            "dark=dd away=dd light=..",
        };
        for (const char *life : lives)
            row(life, QString(life));
    }
    void wears()
    {
        QFETCH(QString, life);
        QWidget other;
        Worn worn;
        const Deeds own{
            {"text", [&] { set(worn.label, worn.label.palette(), QPalette::WindowText, "red"); }},
            {"fresh", [&] { set(worn.label, QPalette(), QPalette::WindowText, "red"); }},
            {"panel", [&] { set(worn.panel, worn.panel.palette(), QPalette::WindowText, "red"); }},
            {"asdark", [&] { set(worn.label, worn.label.palette(), QPalette::WindowText, "#e8ecf3"); }},
            {"justdark", [&] { set(worn.label, QPalette(), QPalette::WindowText, "#e8ecf3"); }},
            {"sheet",
             [&] {
                 worn.label.setStyleSheet("color: blue");
                 worn.label.ensurePolished();
             }},
            {"nosheet", [&] { worn.label.setStyleSheet({}); }},
            {"away", [&] { worn.label.setParent(&other); }},
            {"light", [] { CBPTheme::apply("light"); }},
            {"dark", [] { CBPTheme::apply("dark"); }},
            {"contrast", [] { CBPTheme::apply("contrast"); }},
        };
        const QPalette plain = worn.label.palette();
        const QMap<QString, char> letters{{plain.color(QPalette::WindowText).name() + '0', '.'},
                                          {plain.color(QPalette::Base).name() + '1', '.'},
                                          {"#e8ecf30", 'd'},
                                          {"#1519221", 'd'},
                                          {"#ffffff0", 'c'},
                                          {"#0000001", 'c'},
                                          {"#ff00000", 'r'},
                                          {"#0000ff0", 's'}};
        const auto look = [&] {
            const QStringList colors = worn.colors().split(' ');
            return QString(letters.value(colors[0] + '0', '?')) + letters.value(colors[1] + '1', '?');
        };
        QCOMPARE(traced(&worn.label, life, look, own), life);
    }

    // A window with palette(), while it is wanted, and what it has of its own beside it.
    void givesPalette()
    {
        QWidget window;
        QLabel plain(&window), ours(&window);
        lumqt::wearTheme(&window, {{QPalette::Window, P::RaisedGround}});
        lumqt::wearPalette(&window);
        lumqt::wearTheme(&ours, {{QPalette::WindowText, P::Danger}});
        const QPalette before = window.palette();
        const auto colors = [&] {
            const auto name = [](const QWidget &widget, QPalette::ColorRole role) {
                return widget.palette().color(role).name();
            };
            return QStringList{name(window, QPalette::Window), name(plain, QPalette::WindowText),
                               name(plain, QPalette::Highlight), name(ours, QPalette::WindowText)}
                .join(' ');
        };
        const QString without = colors();
        CBPTheme::givePalette(true);
        QVERIFY(CBPTheme::givesPalette());
        QCOMPARE(colors(), "#ffffff #222a3e #1f71bf #222a3e");
        CBPTheme::apply("dark");
        QCOMPARE(colors(), "#262d3b #e8ecf3 #4da3f0 #ff7b7b");
        set(window, window.palette(), QPalette::Highlight, "#123456");
        QCOMPARE(CBPTheme::palette().color(QPalette::WindowText).name(), "#e8ecf3");
        CBPTheme::givePalette(false);
        QCOMPARE(colors(), "#262d3b " + before.color(QPalette::WindowText).name() + " #123456 #ff7b7b");
        CBPTheme::apply("light");
        set(window, QPalette(), QPalette::Highlight, before.color(QPalette::Highlight).name().toLatin1());
        QCOMPARE(colors(), without);
    }

    void picturesOfTheTheme()
    {
        const QString res = Util::getResFullPath("../res/");
        const QString twin = QDir::fromNativeSeparators(res) + "dark/list_hover.png";
        QCOMPARE(lumqt::themePicture(res + "list_hover.png"), res + "list_hover.png");
        CBPTheme::apply(CBPTheme::load(write("night.ini", "base=dark")));
        QCOMPARE(lumqt::themePicture(res + "list_hover.png"), twin);
        QCOMPARE(lumqt::themePicture(QDir::toNativeSeparators(res) + "list_hover.png"), twin);
        for (const QString &path : {res + "none.png", m_dir.filePath("list_hover.png"), twin, QString()})
            QCOMPARE(lumqt::themePicture(path), path);
    }

    // Of a window with many buttons, one of which is kept as a picture by its effect.
    // Nothing is done for a widget before there is something to wear, and what was deleted is forgotten.
    void hundredsAreDressed()
    {
        std::vector<std::unique_ptr<Worn>> all;
        for (int i = 0; i < 1000; ++i) {
            all.push_back(std::make_unique<Worn>());
            if (i % 3 != 0)
                all.pop_back();
        }
        const QString light = all.front()->colors();
        QVERIFY(all.front()->label.children().isEmpty());
        for (const char *theme : {"dark", "light"}) {
            CBPTheme::apply(theme);
            for (const auto &one : all)
                QCOMPARE(one->colors(), theme == QByteArray("dark") ? "#e8ecf3 #151922" : light);
        }
    }

    void switchesOnceAndAtRest()
    {
        QWidget window;
        auto *grid = new QGridLayout(&window);
        QVector<QWidget *> all{&window};
        for (int i = 0; i < 400; ++i) {
            all << new CBPPushBtn(QString::number(i), &window);
            grid->addWidget(all.last(), i / 20, i % 20);
        }
        Painted dimmed(&window);
        dimmed.setGeometry(0, 0, 8, 8);
        dimmed.setGraphicsEffect(new QGraphicsOpacityEffect(&dimmed));
        all << &dimmed;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        repaints(window, [] {}); // what is due
        std::vector<std::unique_ptr<EventCounter>> paints, moves;
        for (QWidget *widget : all) {
            paints.push_back(std::make_unique<EventCounter>(widget, QVector<QEvent::Type>{QEvent::Paint}));
            moves.push_back(std::make_unique<EventCounter>(
                widget, QVector<QEvent::Type>{QEvent::Resize, QEvent::Move, QEvent::Show, QEvent::Hide,
                                              QEvent::LayoutRequest}));
        }
        QVERIFY(repaints(window, [] { CBPTheme::apply("dark"); }));
        for (size_t i = 0; i < paints.size(); ++i) {
            QVERIFY2(paints[i]->count >= 1 && paints[i]->count <= 3, QByteArray::number(paints[i]->count));
            QCOMPARE(moves[i]->count, 0);
        }
        const TimerCounter timers;
        QTest::qWait(300);
        QCOMPARE(timers.count, 0);
    }

private:
    // Of all but the watchdog of tests.
    class TimerCounter : public QObject
    {
    public:
        TimerCounter() { qApp->installEventFilter(this); }
        int count = 0;

    protected:
        bool eventFilter(QObject *object, QEvent *event) override
        {
            const auto *timer = qobject_cast<QTimer *>(object);
            count += event->type() == QEvent::Timer && !(timer && timer->interval() == 200);
            return false;
        }
    };

    QString write(const QString &name, const QByteArray &text)
    {
        QFile file(m_dir.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            QTest::qFail("cannot write", __FILE__, __LINE__);
        return file.fileName();
    }

    QTemporaryDir m_dir;
};

LUMQT_TEST_MAIN(TestTheme)
#include "tst_theme.moc"
