#include "foundation/Look.h"
#include "GalleryWindow.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pixels.h"
#include "Rows.h"
#include "Screenshots.h"
#include "TestMain.h"
#include "Theme.h"

#include "CBPMenu.h"
#include "CBPStyle.h"
#include "CBtnObj.h"
#include "CMsgBox.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QStyleFactory>
#include <QTimer>
#include <QtMath>

#include <private/qhighdpiscaling_p.h>

#include <algorithm>
#include <memory>

namespace {

constexpr double kTextContrast = 4.5;
constexpr double kPartContrast = 3.0; // of outlines and rings
constexpr qreal kReadable = 3;        // the ratio at which the strokes of letters are whole pixels
constexpr int kFrame = 4;             // logical pixels in which a frame and a focus ring lie
constexpr int kStraight = 12;         // logical pixels of the shortest edges, those of indicators,
constexpr int kLetter = 24;           // of what is longer than letters in a button and than text cursors
constexpr int kLargeLetter = 40;      // and in a label
constexpr int kThin = 3;              // device pixels of the thickest line
constexpr int kStep = 6;              // of a colour, beyond that of a gradient

// Pairs that are fixed as they are, though they are harder to see than others.
const QStringList kFixed{
    "CBPLabel #4baeb3 on #ffffff 2.6",           // heading of a message
    "CBPLinkerButton #008cff on #ffffff 3.4",    // normal, hovered, focused
    "CBPLinkerButton #53b2ff on #ffffff 2.3",    // pressed, selected
    "CBPWaitBtn #ffffff on #49a7f5 2.6",         // first button of a window
    "CBPWaitBtn #ffffff on #5baff6 2.4",         // the same, hovered
    "CBPWaitBtn #ffffff on #4195dc 3.2",         // the same, pressed
    "CTriStateButton #4caeb2 on #e2f2f3 2.3",    // chosen
    "CTriStateButton #70bfc2 on #edf7f8 1.9",    // hovered
    "QLabel #7f8fa4 on #222a3e 4.3",             // title of a window
    "lumqt::GroupButton #57aef6 on #ffffff 2.4", // normal
    "lumqt::GroupButton #ffffff on #4195dc 3.2", // chosen tab
    "lumqt::GroupButton #ffffff on #5baff6 2.4", // hovered tab
    "lumqt::GroupButton #222a3e on #4195dc 4.5", // picture of a chosen tab
    "CBPDateSelector #d7d7d7 on #ffffff 1.4",    // without the focus
    "CBPDateSelector #d7d7d7 on #f7f9fb 1.4",    // the same, on a panel
    "menu text #ffffff on #4baeb2 2.6",          // hovered
    "button frame #bce0e2 on #ffffff 1.4",       // hovered
    "button frame #87c8cc on #ffffff 1.9",       // pressed
};

double luminance(QRgb color)
{
    const auto part = [](int value) {
        const double share = value / 255.0;
        return share <= 0.03928 ? share / 12.92 : qPow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(qRed(color)) + 0.7152 * part(qGreen(color)) + 0.0722 * part(qBlue(color)) + 0.05;
}

double contrast(QRgb one, QRgb other)
{
    const double ratio = luminance(one) / luminance(other);
    return qMax(ratio, 1 / ratio);
}

struct Pair
{
    QRgb ground;
    QRgb ink;
};

// Names the pair, if it is too hard to see and not fixed.
QStringList faint(const QString &what, const Pair &pair, double least)
{
    const double seen = contrast(pair.ink, pair.ground);
    const QString name =
        QStringLiteral("%1 %2 on %3 %4")
            .arg(what, QColor(pair.ink).name(), QColor(pair.ground).name(), QString::number(seen, 'f', 1));
    return seen >= least || kFixed.contains(name) ? QStringList() : QStringList(name);
}

// The colour that most of a place has, and the one that stands out most from it.
Pair pairIn(const QImage &picture, const QRectF &place)
{
    const QRect pixels =
        QRectF(place.topLeft() * kReadable, place.size() * kReadable).toRect() & picture.rect();
    QHash<QRgb, int> counts;
    for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
        for (int x = pixels.left(); x <= pixels.right(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    Pair pair{};
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        pair.ground = it.value() > counts.value(pair.ground) ? it.key() : pair.ground;
    pair.ink = pair.ground;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        pair.ink = contrast(it.key(), pair.ground) > contrast(pair.ink, pair.ground) ? it.key() : pair.ink;
    return pair;
}

bool inheritsOneOf(const QObject *object, std::initializer_list<const char *> names)
{
    return std::any_of(names.begin(), names.end(), [&](const char *name) { return object->inherits(name); });
}

// What does not have the library's look: shown beside it for comparison, or a scroll bar that a sheet of the
// application's draws (between the pixels, as sheets do).
bool isPlain(const QWidget *widget)
{
    return widget && (widget->style()->inherits("QFusionStyle") ||
                      (widget->inherits("QScrollBar") && !widget->styleSheet().isEmpty()) ||
                      isPlain(widget->parentWidget()));
}

// Whether it is known by its outline; that of a part is drawn by the whole, or is a picture of the
// application's.
bool hasOutline(const QWidget *widget)
{
    const auto outlined = {"QLineEdit", "QTextEdit",        "QAbstractSpinBox", "QComboBox",
                           "QCheckBox", "CBPIPInputWidget", "CBPDateSelector"};
    for (const QObject *whole = widget->parent(); whole; whole = whole->parent()) {
        if (inheritsOneOf(whole, outlined))
            return false;
    }
    return inheritsOneOf(widget, outlined) && !widget->inherits("CBPImageCheckBox") && !isPlain(widget);
}

QString textOf(const QWidget *widget)
{
    return widget->property("text").toString() + widget->property("placeholderText").toString();
}

// Texts against their grounds, and outlines against what lies around them.
QStringList faintPartsOf(QWidget &root)
{
    const QImage picture = pictureOf(root, kReadable);
    QStringList all;
    for (const QWidget *widget : root.findChildren<QWidget *>()) {
        if (!widget->isVisible() || !widget->isEnabled())
            continue;
        const QString name = QString::fromLatin1(widget->metaObject()->className());
        const QRect place(widget->mapTo(&root, QPoint()), widget->size());
        const int frame = widget->inherits("QLabel") ? 0 : kFrame;
        if (!textOf(widget).trimmed().isEmpty())
            all << faint(name, pairIn(picture, place.adjusted(frame, frame, -frame, -frame)), kTextContrast);
        const QRect edge(place.left() - kFrame, place.center().y(), 2 * kFrame, 1);
        if (hasOutline(widget))
            all << faint(name, pairIn(picture, edge), kPartContrast);
    }
    all.removeDuplicates();
    return all;
}

bool isFar(QRgb a, QRgb b, int step)
{
    return qAbs(qRed(a) - qRed(b)) > step || qAbs(qGreen(a) - qGreen(b)) > step ||
           qAbs(qBlue(a) - qBlue(b)) > step;
}

// A straight line or ground of one colour, along a row or a column of pixels.
struct Line
{
    QRgb color;
    QPoint middle;
    int length;
    bool thin; // it lies between other colours
};

bool isThin(const QImage &image, const QPoint &middle, const QPoint &across)
{
    const QRgb color = image.pixel(middle);
    const auto ends = [&](const QPoint &step) {
        QPoint at = middle;
        for (int i = 0; i <= kThin && image.valid(at) && image.pixel(at) == color; ++i)
            at += step;
        return image.valid(at) && isFar(image.pixel(at), color, kStep);
    };
    return ends(across) && ends(-across);
}

QVector<Line> linesOf(const QImage &image, int least)
{
    QVector<Line> lines;
    for (const QPoint &along : {QPoint(1, 0), QPoint(0, 1)}) {
        const QPoint across = along.transposed();
        const int length = along.x() ? image.width() : image.height();
        const int step = along.x() ? 1 : image.width();
        for (int i = 0; i < image.width() + image.height() - length; ++i) {
            const auto *pixels =
                reinterpret_cast<const QRgb *>(image.constBits()) + i * (along.x() ? image.width() : 1);
            for (int first = 0, at = 1; at <= length; ++at) {
                if (at < length && pixels[at * step] == pixels[first * step])
                    continue;
                const QPoint middle = (first + at) / 2 * along + i * across;
                if (at - first >= least)
                    lines << Line{pixels[first * step], middle, at - first, isThin(image, middle, across)};
                first = at;
            }
        }
    }
    return lines;
}

// In logical pixels, longer than what letters and pictures have of straight edges.
int leastEdgeOf(const QWidget *widget)
{
    const auto *label = qobject_cast<const QLabel *>(widget);
    if (!widget || (label && !label->pixmap(Qt::ReturnByValue).isNull()))
        return QWIDGETSIZE_MAX;
    return label || widget->inherits("CBPDrawLabel") ? kLargeLetter
           : widget->inherits("QCheckBox")           ? kStraight
                                                     : kLetter;
}

// Thin lines of a colour that is not among the known ones.
QStringList strangersIn(const QWidget &window, const QVector<Line> &lines, const QSet<QRgb> &known,
                        qreal scale)
{
    QRegion plain;
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        if (widget->isVisible() && isPlain(widget))
            plain += QRect(widget->mapTo(&window, QPoint()), widget->size()).adjusted(-8, -8, 8, 8);
    }
    QMap<QString, QString> found;
    for (const Line &line : lines) {
        const QPoint at = line.middle / scale;
        const QWidget *widget = window.childAt(at);
        const auto isLine = [&](QRgb color) { return !isFar(color, line.color, 2); };
        if (!line.thin || line.length < leastEdgeOf(widget) * scale || plain.contains(at) ||
            std::any_of(known.cbegin(), known.cend(), isLine))
            continue;
        const QString what =
            QStringLiteral("%1 %2").arg(widget->metaObject()->className(), QColor(line.color).name());
        found[what] = QStringLiteral("%1 at %2,%3").arg(what).arg(at.x()).arg(at.y());
    }
    return found.values();
}

struct Colors : CBtnObj
{
    using CBtnObj::paintedBgColor, CBtnObj::paintedFrmColor, CBtnObj::paintedTextColor;
};

} // namespace

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

    void everythingHasAName_data() { pageRows(); }
    void everythingHasAName()
    {
        QFETCH(QString, page);
        open(page);
        QStringList nameless;
        QVector<QAccessibleInterface *> left{QAccessible::queryAccessibleInterface(m_window.get())};
        while (!left.isEmpty()) {
            QAccessibleInterface *face = left.takeLast();
            if (!face || face->state().invisible)
                continue;
            for (int i = 0; i < face->childCount(); ++i)
                left << face->child(i);
            if (face->state().focusable && face->text(QAccessible::Name).isEmpty())
                nameless << (face->object() ? face->object()->metaObject()->className() : "item");
        }
        QVERIFY2(nameless.isEmpty(), qPrintable(nameless.join(QLatin1String(", "))));
    }

    void everythingCanBeSeen_data() { pageRows(); }
    void everythingCanBeSeen()
    {
        QFETCH(QString, page);
        const QStringList parts = faintPartsOf(*open(page));
        QVERIFY2(parts.isEmpty(), qPrintable(parts.join(QLatin1String(", "))));
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

    void straightEdgesAreSharp_data()
    {
        columns<qreal>("ratio");
        row("125 per cent", 1.25);
        row("150 per cent", 1.5);
        row("175 per cent", 1.75);
        row("200 per cent", 2.0);
    }
    // Where edges lie between pixels, there are lines of a colour that is not there at 100 per cent.
    void straightEdgesAreSharp()
    {
        QFETCH(qreal, ratio);
        if (m_colors.isEmpty())
            lookAtPages(1.0);
        QCOMPARE(lookAtPages(ratio), 0);
    }

private:
    void pageRows()
    {
        columns<QString>("page");
        for (const PageInfo &page : pages())
            row(qPrintable(page.id), page.id);
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

    // Notes the colours of straight lines at 100 per cent; counts those that come up at another scale.
    int lookAtPages(qreal scale)
    {
        int count = 0;
        scaleScreen(scale);
        for (const PageInfo &info : pages()) {
            if (info.id == QLatin1String("resources")) // pictures as they are in their files
                continue;
            open(info.id);
            if (scale == 1.0) {
                noteColors();
                continue;
            }
            for (const QString &stranger : strangersIn(*m_window, linesNow(scale), m_colors, scale)) {
                qWarning("%s: %s", qPrintable(info.id), qPrintable(stranger));
                ++count;
            }
        }
        return count;
    }

    QVector<Line> linesNow(qreal scale)
    {
        const QImage picture = m_window->grab().toImage().convertToFormat(QImage::Format_ARGB32);
        return linesOf(picture, qRound(kStraight * scale));
    }

    void noteColors()
    {
        const QVector<Line> lines = linesNow(1.0);
        for (const Line &line : lines)
            m_colors << line.color;
    }

    std::unique_ptr<GalleryWindow> m_window;
    QSet<QRgb> m_colors;
};

LUMQT_TEST_MAIN(TestGallery)
#include "tst_gallery.moc"
