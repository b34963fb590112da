#include "FontSetup.h"
#include "foundation/Look.h"
#include "GalleryWindow.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pixels.h"
#include "Rows.h"
#include "Screenshots.h"
#include "Theme.h"

#include "CBPPushBtn.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QStyleFactory>

#include <algorithm>
#include <cmath>

// What has to hold on every page: every class is there, in every state, as its user would see it.
class TestGallery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { delete m_window; }
    void everythingHasAName_data() { pageRows(); }
    void everythingHasAName();
    void everythingCanBeSeen_data() { pageRows(); }
    void everythingCanBeSeen();
    void builtInPairs_data();
    void builtInPairs();
    void straightEdgesAreSharp_data() { pageRows(); }
    void straightEdgesAreSharp();

private:
    void pageRows();
    Page *open();

    GalleryWindow *m_window = nullptr;
};

namespace {

constexpr double kTextContrast = 4.5;
constexpr double kPartContrast = 3.0;
constexpr qreal kReadable = 3; // the ratio at which the strokes of letters are whole pixels
constexpr int kStraight = 12;  // logical pixels in a line that no letter has
constexpr int kFrame = 4;      // logical pixels in which a frame and a focus ring lie
const char *const kOutlined[] = {"QLineEdit", "QTextEdit",        "QAbstractSpinBox", "QComboBox",
                                 "QCheckBox", "CBPIPInputWidget", "CBPDateSelector"};
constexpr int kThin = 3; // device pixels
constexpr int kStep = 6; // of a colour's parts, above that of a gradient

double luminance(QRgb color)
{
    const auto part = [](int value) {
        const double share = value / 255.0;
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(qRed(color)) + 0.7152 * part(qGreen(color)) + 0.0722 * part(qBlue(color));
}

double contrast(QRgb one, QRgb other)
{
    const double a = luminance(one), b = luminance(other);
    return (qMax(a, b) + 0.05) / (qMin(a, b) + 0.05);
}

// Pairs that are fixed as they are, though they are harder to see than others.
const struct
{
    const char *pair;
    const char *state;
    double contrast;
} kFixed[] = {
    {"CBPLinkerButton #008cff on #ffffff", "any but pressed", 3.4},
    {"CBPLinkerButton #53b2ff on #ffffff", "pressed or selected", 2.3},
    {"CBPWaitBtn #ffffff on #49a7f5", "first button of a window", 2.6},
    {"CBPWaitBtn #ffffff on #5baff6", "the same, hovered", 2.4},
    {"CTriStateButton #4caeb2 on #e2f2f3", "chosen", 2.3},
    {"CTriStateButton #70bfc2 on #edf7f8", "hovered", 1.9},
    {"QLabel #7f8fa4 on #222a3e", "title", 4.3},
    {"lumqt::GroupButton #57aef6 on #ffffff", "normal", 2.4},
    {"lumqt::GroupButton #ffffff on #4195dc", "chosen tab", 3.2},
    {"lumqt::GroupButton #ffffff on #5baff6", "hovered tab", 2.4},
};

// Empty for a pair that can be seen, or is fixed.
QString faintPair(const QWidget *widget, QRgb ink, QRgb ground, double least)
{
    const double seen = contrast(ink, ground);
    const QString pair = QStringLiteral("%1 %2 on %3")
                             .arg(QString::fromLatin1(widget->metaObject()->className()), QColor(ink).name(),
                                  QColor(ground).name());
    const bool fixed = std::any_of(std::begin(kFixed), std::end(kFixed), [&](const auto &known) {
        return pair == QLatin1String(known.pair) && qAbs(known.contrast - seen) < 0.06;
    });
    return seen >= least || fixed ? QString() : QStringLiteral("%1 (%2:1)").arg(pair).arg(seen, 0, 'f', 2);
}

// The colour that most of `rect` has, and the one that stands out most from it.
std::pair<QRgb, QRgb> groundAndInk(const QImage &image, const QRect &rect)
{
    QHash<QRgb, int> counts;
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x)
            ++counts[image.pixel(x, y)];
    }
    const auto all = counts.keys();
    const QRgb ground =
        *std::max_element(all.begin(), all.end(), [&](QRgb a, QRgb b) { return counts[a] < counts[b]; });
    const QRgb ink = *std::max_element(
        all.begin(), all.end(), [&](QRgb a, QRgb b) { return contrast(a, ground) < contrast(b, ground); });
    return {ground, ink};
}

QString shownText(const QWidget *widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(widget))
        return label->text();
    if (const auto *edit = qobject_cast<const QLineEdit *>(widget))
        return edit->displayText() + edit->placeholderText();
    return widget->property("text").toString();
}

// What is known by its outline, as far as it is not drawn by what it stands in or a picture of the
// application's.
bool hasOutline(const QWidget *widget)
{
    const auto inherits = [&](const QObject *object) {
        return std::any_of(std::begin(kOutlined), std::end(kOutlined),
                           [&](const char *name) { return object->inherits(name); });
    };
    return inherits(widget) && !inherits(widget->parent()) && !widget->inherits("CBPImageCheckBox");
}

QRect deviceRect(const QRectF &rect, qreal ratio, const QImage &within)
{
    return QRectF(rect.topLeft() * ratio, rect.size() * ratio).toAlignedRect() & within.rect();
}

bool isFar(QRgb a, QRgb b, int step)
{
    return qAbs(qRed(a) - qRed(b)) > step || qAbs(qGreen(a) - qGreen(b)) > step ||
           qAbs(qBlue(a) - qBlue(b)) > step;
}

// A run of one colour along a row or, of a transposed picture, along a column.
struct Run
{
    QRgb color;
    QPoint middle;
};

QVector<Run> runsOf(const QImage &image, int least)
{
    QVector<Run> runs;
    for (int y = 0; y < image.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int first = 0, x = 1; x <= image.width(); ++x) {
            if (x < image.width() && line[x] == line[first])
                continue;
            if (x - first >= least)
                runs << Run{line[first], QPoint((first + x) / 2, y)};
            first = x;
        }
    }
    return runs;
}

// Whether the run is a line of a few pixels between others.
bool isThin(const QImage &image, const Run &run)
{
    for (const int step : {-1, 1}) {
        int y = run.middle.y() + step;
        while (image.valid(run.middle.x(), y) && image.pixel(run.middle.x(), y) == run.color)
            y += step;
        if (qAbs(y - run.middle.y()) > kThin || !image.valid(run.middle.x(), y) ||
            !isFar(image.pixel(run.middle.x(), y), run.color, kStep))
            return false;
    }
    return true;
}

// Rows become columns.
QImage turned(const QImage &image)
{
    QImage result(image.height(), image.width(), image.format());
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            result.setPixel(y, x, image.pixel(x, y));
    }
    return result;
}

} // namespace

void TestGallery::initTestCase()
{
    theme::setUpColors();
    m_window = new GalleryWindow;
    m_window->show();
}

void TestGallery::pageRows()
{
    columns<QString>("page");
    for (const PageInfo &page : pages())
        row(qPrintable(page.id), page.id);
}

// The row's page, with all that is on it.
Page *TestGallery::open()
{
    QFETCH(QString, page);
    m_window->showPage(page);
    fitToPage(*m_window);
    QCoreApplication::processEvents();
    return m_window->page();
}

void TestGallery::everythingHasAName()
{
    open();
    QStringList nameless;
    QVector<QAccessibleInterface *> open{QAccessible::queryAccessibleInterface(m_window)};
    while (!open.isEmpty()) {
        QAccessibleInterface *face = open.takeLast();
        if (!face || face->state().invisible)
            continue;
        for (int i = 0; i < face->childCount(); ++i)
            open << face->child(i);
        if (!face->state().focusable || !face->text(QAccessible::Name).isEmpty())
            continue;
        const QObject *object = face->object();
        const QRect place = face->rect().translated(-m_window->page()->mapToGlobal(QPoint()));
        nameless << QStringLiteral("%1 at %2,%3")
                        .arg(object ? object->metaObject()->className() : "item")
                        .arg(place.x())
                        .arg(place.y());
    }
    QVERIFY2(nameless.isEmpty(), qPrintable(nameless.join(QLatin1String("; "))));
}

// Of a widget's text against its ground, and of its outline against what lies around.
void TestGallery::everythingCanBeSeen()
{
    Page *page = open();
    const QImage picture = pictureOf(*page, kReadable);
    QStringList faint;
    const auto widgets = page->findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (!widget->isVisible() || !widget->isEnabled())
            continue;
        const QRect place(widget->mapTo(page, QPoint()), widget->size());
        const int frame = qobject_cast<const QLabel *>(widget) ? 0 : kFrame;
        const QRect inside = deviceRect(place.adjusted(frame, frame, -frame, -frame), kReadable, picture);
        if (!inside.isEmpty() && !shownText(widget).trimmed().isEmpty()) {
            const auto [ground, ink] = groundAndInk(picture, inside);
            faint << faintPair(widget, ink, ground, kTextContrast);
        }
        if (hasOutline(widget)) {
            const QRect edge(place.left() - kFrame, place.center().y(), 2 * kFrame, 1);
            const auto [ground, ink] = groundAndInk(picture, deviceRect(edge, kReadable, picture));
            faint << faintPair(widget, ink, ground, kPartContrast);
        }
    }
    faint.removeDuplicates();
    faint.removeAll(QString());
    QVERIFY2(faint.isEmpty(), qPrintable(faint.join(QLatin1String("; "))));
}

void TestGallery::builtInPairs_data()
{
    columns<QRgb, QRgb, double>("ink", "ground", "least");
    using namespace lumqt;
    const QRgb white = 0xffffffff;
    row("ring on white", kFocusRingColor, white, kPartContrast);
    row("ring on a title bar", kFocusRingColor, theme::kInk.rgb(), kPartContrast);
    row("field", kFieldText, kFieldGround, kTextContrast);
    row("field frame", kFieldFrame, kFieldGround, kPartContrast);
    row("hovered frame", kFieldFrameHovered, kFieldGround, kPartContrast);
    row("invalid frame", kFieldFrameInvalid, kFieldGround, kPartContrast);
    row("accent on white", kAccent, white, kTextContrast);
    row("white on the accent hovered", white, kAccentHovered, kTextContrast);
    row("white on the accent pressed", white, kAccentPressed, kTextContrast);
    row("hovered row", kFieldText, kHoveredGround, kTextContrast);
    row("pressed row", kFieldText, kPressedGround, kTextContrast);
    row("header", kFieldText, kRaisedGround, kTextContrast);
}

void TestGallery::builtInPairs()
{
    QFETCH(QRgb, ink);
    QFETCH(QRgb, ground);
    QFETCH(double, least);
    QVERIFY2(contrast(ink, ground) >= least, qPrintable(QString::number(contrast(ink, ground))));
}

// At a ratio that is no whole number, edges between pixels would show as lines of a colour that is not there
// at 1.
void TestGallery::straightEdgesAreSharp()
{
    Page *page = open();
    const QImage plain = pictureOf(*page, 1);
    QSet<QRgb> colors;
    for (const QImage &image : {plain, turned(plain)}) {
        for (const Run &run : runsOf(image, kStraight - 2))
            colors << run.color;
    }
    QStringList blurred;
    for (const qreal ratio : {1.25, 1.5, 1.75, 2.0}) {
        const QImage picture = pictureOf(*page, ratio);
        for (const bool upright : {false, true}) {
            const QImage image = upright ? turned(picture) : picture;
            for (const Run &run : runsOf(image, qRound(kStraight * ratio))) {
                if (std::any_of(colors.cbegin(), colors.cend(),
                                [&](QRgb color) { return !isFar(color, run.color, 2); }) ||
                    !isThin(image, run))
                    continue;
                const QPoint at = (upright ? run.middle.transposed() : run.middle) / ratio;
                const QWidget *widget = page->childAt(at);
                const auto *label = qobject_cast<const QLabel *>(widget);
                if (widget && !(label && label->pixmap(Qt::ReturnByValue).isNull() == false))
                    blurred << QStringLiteral("%1 %2 at %3,%4 (%5)")
                                   .arg(widget->metaObject()->className(), QColor(run.color).name())
                                   .arg(at.x())
                                   .arg(at.y())
                                   .arg(ratio);
            }
        }
    }
    QVERIFY2(blurred.isEmpty(), qPrintable(blurred.mid(0, 40).join(QLatin1String("; "))));
}

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QDir::setCurrent(QCoreApplication::applicationDirPath());
    setUpFonts();
    TestGallery test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_gallery.moc"
