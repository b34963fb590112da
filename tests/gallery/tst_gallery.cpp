#include "Contrast.h"
#include "Edges.h"
#include "GalleryWindow.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Rows.h"
#include "Screenshots.h"
#include "TestMain.h"
#include "Theme.h"

#include "CBPDateSelector.h"
#include "CBPImageButton.h"
#include "CBPTheme.h"
#include "CMsgBox.h"

#include <QAccessible>
#include <QApplication>
#include <QCalendarWidget>
#include <QTimer>

#include <private/qhighdpiscaling_p.h>

#include <memory>

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
        for (const char *theme : {"light", "dark", "contrast"}) {
            for (const PageInfo &page : pages())
                row(qPrintable(page.id + ' ' + theme), QString(theme), page.id);
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
    void messagesAndCalendarsCanBeSeen_data() { names("theme", {"light", "dark", "contrast"}); }
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

private:
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
