#include "Contrast.h"
#include "Edges.h"
#include "foundation/Look.h"
#include "GalleryWindow.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Rows.h"
#include "Screenshots.h"
#include "TestMain.h"
#include "Theme.h"

#include "CBPDateSelector.h"
#include "CBPImageButton.h"
#include "CBPMenu.h"
#include "CBPStyle.h"
#include "CBtnObj.h"
#include "CMsgBox.h"

#include <QAccessible>
#include <QApplication>
#include <QCalendarWidget>
#include <QStyleFactory>
#include <QTimer>

#include <private/qhighdpiscaling_p.h>

#include <memory>

namespace {

struct Colors : CBtnObj
{
    using CBtnObj::paintedBgColor, CBtnObj::paintedFrmColor, CBtnObj::paintedTextColor;
};

} // namespace

#ifdef Q_OS_WIN
constexpr bool kOnWindows = true;
#else
constexpr bool kOnWindows = false;
#endif

// What has to hold on every page: every class is seen there, in every state.
class TestGallery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
        CBPStyle::Install();
        QApplication::setCursorFlashTime(0);
        theme::setUpColors();
        scaleScreen(1.0);
    }
    void cleanup() { scaleScreen(1.0); }
    void cleanupTestCase() { m_window.reset(); }

    // For who cannot see it, what takes the focus has a name; who can, sees texts and outlines.
    void everythingHasANameAndCanBeSeen_data()
    {
        columns<QString>("page");
        for (const PageInfo &page : pages())
            row(qPrintable(page.id), page.id);
    }
    void everythingHasANameAndCanBeSeen()
    {
        QFETCH(QString, page);
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

    // What pages show as pictures only, and what they show of no widget.
    void messagesAndColorsCanBeSeen()
    {
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
        CBPMenu menu;
        menu.setActiveAction(menu.AddAction("Rename", 1));
        menu.AddAction("Delete", 2);
        menu.resize(menu.sizeHint());
        const QImage picture = pictureOf(menu, kReadable);
        for (QAction *action : menu.actions())
            all << faint("menu text", pairIn(picture, menu.actionGeometry(action)), kTextContrast);
        const QRgb white = 0xffffffff;
        const Colors button;
        for (int state = 0; state < 3; ++state) {
            const QRgb ground = button.paintedBgColor(state).rgb();
            all << faint("button", {ground, button.paintedTextColor(state).rgb()}, kTextContrast)
                << faint("button frame", {white, button.paintedFrmColor(state).rgb()}, kPartContrast);
        }
        using namespace lumqt;
        for (const QRgb ground : {kFieldGround, kHoveredGround, kPressedGround, kRaisedGround})
            all << faint("field text", {ground, kFieldText}, kTextContrast);
        for (const QRgb frame : {kFieldFrame, kFieldFrameHovered, kFieldFrameInvalid, kFocusRingColor})
            all << faint("field frame", {kFieldGround, frame}, kPartContrast);
        for (const QRgb accent : {kAccent, kAccentHovered, kAccentPressed})
            all << faint("accent", {accent, white}, kTextContrast);
        all << faint("ring on a title bar", {theme::kInk.rgb(), kFocusRingColor}, kPartContrast);
        QVERIFY2(all.isEmpty(), qPrintable(all.join(QLatin1String(", "))));
    }

    // Where edges lie between pixels, there are lines of a colour that is not there at 100 per cent. Other
    // scales find no more: at 200 per cent nothing lies between pixels.
    void straightEdgesAreSharp()
    {
        if (kOnWindows)
            QSKIP(
                "The system keeps the window within the screen, so that pages are cut and get scroll bars.");
        QStringList faults;
        for (const qreal scale : {1.0, 1.25, 1.5})
            faults += lookAtPages(scale);
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

    // Notes the colours of straight lines at 100 per cent; names those that come up at another scale.
    QStringList lookAtPages(qreal scale)
    {
        QStringList faults;
        scaleScreen(scale);
        for (const PageInfo &info : pages()) {
            if (info.id == QLatin1String("resources")) // pictures as they are in their files
                continue;
            open(info.id);
            const QVector<Line> lines = linesOf(m_window->grab().toImage(), qRound(kStraight * scale));
            if (scale == 1.0) {
                m_known[info.id] = knownOf(*m_window, lines);
                continue;
            }
            for (const QString &fault : faultsIn(*m_window, lines, m_known.value(info.id), scale))
                faults << QStringLiteral("%1 at %2: %3").arg(info.id, QString::number(scale), fault);
        }
        return faults;
    }

    std::unique_ptr<GalleryWindow> m_window;
    QHash<QString, KnownLines> m_known; // by page
};

LUMQT_TEST_MAIN(TestGallery)
#include "tst_gallery.moc"
