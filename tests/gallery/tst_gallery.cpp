#include "Contrast.h"
#include "Edges.h"
#include "GalleryWindow.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Rows.h"
#include "Screenshots.h"
#include "TestMain.h"
#include "Theme.h"
#include "ThemeMenu.h"

#include "CBPDateSelector.h"
#include "CBPImageButton.h"
#include "CBPTheme.h"
#include "CMsgBox.h"

#include <QAccessible>
#include <QApplication>
#include <QCalendarWidget>
#include <QDir>
#include <QScopeGuard>
#include <QTimer>

#include <private/qhighdpiscaling_p.h>

#include <memory>

constexpr int kSettled = 300; // ms: what fades has its last colour

// Keeps what is animated where it is: the dispatcher of Windows hands out timers with posted events.
class Stillness : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override { return event->type() == QEvent::Timer; }
};

// What has to hold on every page: every class is seen there, in every state.
class TestGallery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QApplication::setCursorFlashTime(0);
        theme::setUpLook();
        scaleScreen(1.0);
    }
    void cleanup()
    {
        scaleScreen(1.0);
        CBPTheme::apply("light");
    }
    void cleanupTestCase() { m_window.reset(); }

    // For who cannot see it, what takes the focus has a name; who can, sees texts and outlines.
    void everythingHasANameAndCanBeSeen_data()
    {
        columns<QString, QString>("theme", "page");
        QStringList themes{"light", "dark", "contrast"};
#ifdef __SANITIZE_ADDRESS__
        themes = QStringList{"light"}; // it takes seconds a page, and everyPageFollowsTheTheme() shows all
#endif
        for (const QString &theme : qAsConst(themes)) {
            for (const PageInfo &page : pages())
                row(qPrintable(page.id + ' ' + theme), theme, page.id);
        }
    }
    void everythingHasANameAndCanBeSeen()
    {
        QFETCH(QString, theme);
        QFETCH(QString, page);
        CBPTheme::apply(theme);
        QStringList faults = faintPartsOf(*open(page));
        QVector<QAccessibleInterface *> left{QAccessible::queryAccessibleInterface(m_window.get())};
        while (!left.isEmpty()) {
            QAccessibleInterface *face = left.takeLast();
            if (!face || face->state().invisible)
                continue;
            for (int i = 0; i < face->childCount(); ++i)
                left << face->child(i);
            if (face->state().focusable && face->text(QAccessible::Name).isEmpty())
                faults << (face->object() ? face->object()->metaObject()->className() : "item");
        }
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1String(", "))));
    }

    // What pages show as pictures only.
    void messagesAndCalendarsCanBeSeen_data()
    {
        names("theme", {"light", "dark", "contrast"});
    }
    void messagesAndCalendarsCanBeSeen()
    {
        QFETCH(QString, theme);
        CBPTheme::apply(theme);
        CMsgBox box;
        QStringList all;
        QTimer::singleShot(0, &box, [&] {
            all = faintPartsOf(box);
            box.close();
        });
        box.message(1, "It holds 38 files.", "Delete the folder?", 0x1800);
        CBPDateSelector selector;
        selector.findChild<CBPImageButton *>()->click();
        QWidget *calendar = selector.findChild<QCalendarWidget *>()->window();
        all << faintPartsOf(*calendar);
        calendar->close();
        QVERIFY2(all.isEmpty(), qPrintable(all.join(QLatin1String(", "))));
    }

    // The one in use is ticked, whoever chose it.
    void theMenuSwitchesThemes()
    {
        const auto reset = qScopeGuard([] { CBPTheme::apply("light"); });
        ThemeMenu menu(nullptr);
        const auto ticked = [&menu] {
            emit menu.aboutToShow();
            QStringList texts;
            for (const QAction *action : menu.actions()) {
                if (!action->icon().isNull())
                    texts << action->text();
            }
            return texts.join(',');
        };
        QCOMPARE(ticked(), QString("Light"));
        menu.actions().at(1)->trigger();
        QCOMPARE(CBPTheme::current(), QString("dark"));
        QCOMPARE(ticked(), QString("Dark"));
        menu.actions().at(3)->trigger();
        QVERIFY(CBPTheme::isFollowingSystem());
        QCOMPARE(ticked(), QString("As the system"));
        QCOMPARE(CBPTheme::load(":/gallery/paper.ini"), QString("Paper"));
        CBPTheme::apply("Paper");
        QCOMPARE(ticked(), QString("Paper"));
    }

    // Where edges lie between pixels, there are lines of a colour that is not there at 100 per cent. Other
    // scales find no more: at 200 per cent nothing lies between pixels.
    void straightEdgesAreSharp()
    {
        if (QGuiApplication::platformName() == QLatin1String("windows"))
            QSKIP(
                "The system keeps the window within the screen, so that pages are cut and get scroll bars.");
        QStringList faults;
        QHash<QString, KnownLines> known; // of pages at 100 per cent
        int all = 0;
        for (const qreal scale : {1.0, 1.25, 1.5}) {
            scaleScreen(scale);
            for (const PageInfo &info : pages()) {
                if (info.id == QLatin1String("resources")) // pictures as they are in their files
                    continue;
                open(info.id);
                const QVector<Line> lines = linesOf(m_window->grab().toImage(), qRound(kStraight * scale));
                all += lines.size();
                if (scale == 1.0) {
                    known[info.id] = knownOf(*m_window, lines);
                    continue;
                }
                for (const QString &fault : faultsIn(*m_window, lines, known[info.id], scale))
                    faults << QStringLiteral("%1 at %2: %3").arg(info.id, QString::number(scale), fault);
            }
        }
        QVERIFY2(all > 1000, QByteArray::number(all));
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
    }

    // Whoever keeps a colour or a picture renews it: a page that saw another theme before is as one made in
    // this theme, and back in the first it is as it was.
    void everyPageFollowsTheTheme_data()
    {
        columns<QString>("page");
        for (const PageInfo &page : pages())
            row(qPrintable(page.id), page.id);
    }
    void everyPageFollowsTheTheme()
    {
        QFETCH(QString, page);
        Stillness still;
        qApp->installEventFilter(&still);
        const auto picture = [](GalleryWindow &window) {
            QApplication::setActiveWindow(&window);
            pose::renew(&window);
            QCoreApplication::sendPostedEvents();        // and no event loop, which would set things moving
            for (int layout = 0; layout < 4; ++layout) { // texts are as high as the first one made them wide
                fitToPage(window);
                QCoreApplication::sendPostedEvents();
            }
            return window.grab().toImage();
        };
        const auto made = [&] {
            auto window = std::make_unique<GalleryWindow>();
            window->show();
            window->showPage(page);
            if (page == "tabs") { // which lay themselves out when the loop turns
                qApp->removeEventFilter(&still);
                QTest::qWait(kSettled);
                qApp->installEventFilter(&still);
            }
            return window;
        };
        const auto reset = qScopeGuard([] { CBPTheme::apply("light"); });
        const QStringList themes{"dark", "contrast"};
        QVector<QImage> fresh; // before there is a window that would lose its focus to these
        for (const QString &theme : themes) {
            CBPTheme::apply(theme);
            fresh << picture(*made());
        }
        CBPTheme::apply("light");
        const auto window = made();
        const QImage light = picture(*window);
        for (int i = 0; i < themes.size(); ++i) {
            CBPTheme::apply(themes[i]);
            const QImage changed = picture(*window);
            QVERIFY2(changed == fresh[i], differ(changed, fresh[i], page + '-' + themes[i]));
            QVERIFY(changed != light);
        }
        CBPTheme::apply("light");
        const QImage again = picture(*window);
        QVERIFY2(again == light, differ(again, light, page + "-again"));
    }

private:
    // Says where two pictures differ, and keeps them. It is asked each time.
    static const char *differ(const QImage &one, const QImage &other, const QString &name)
    {
        static QByteArray text;
        if (one == other)
            return "";
        QRect area;
        for (int y = 0; y < qMin(one.height(), other.height()); ++y) {
            for (int x = 0; x < qMin(one.width(), other.width()); ++x)
                area |= one.pixel(x, y) == other.pixel(x, y) ? QRect() : QRect(x, y, 1, 1);
        }
        QDir().mkpath("themes");
        one.save("themes/" + name + ".png");
        other.save("themes/" + name + "-expected.png");
        text = QStringLiteral("%1x%2 and %3x%4 differ within %5,%6 %7x%8, see %9")
                   .arg(one.width())
                   .arg(one.height())
                   .arg(other.width())
                   .arg(other.height())
                   .arg(area.x())
                   .arg(area.y())
                   .arg(area.width())
                   .arg(area.height())
                   .arg(QDir("themes").absoluteFilePath(name))
                   .toUtf8();
        return text.constData();
    }

    // A window on a screen of that scaling.
    void scaleScreen(qreal factor)
    {
        if (m_window && factor == QHighDpiScaling::factor(m_window->windowHandle()))
            return;
        m_window.reset();
        QHighDpiScaling::setGlobalFactor(factor);
        m_window = std::make_unique<GalleryWindow>();
        m_window->show();
    }

    // A page, with all that is on it.
    Page *open(const QString &page)
    {
        m_window->showPage(page);
        fitToPage(*m_window);
        QCoreApplication::processEvents();
        return m_window->page();
    }

    std::unique_ptr<GalleryWindow> m_window;
};

LUMQT_TEST_MAIN(TestGallery)
#include "tst_gallery.moc"
