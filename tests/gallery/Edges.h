#pragma once

#include <QHash>
#include <QImage>
#include <QLabel>
#include <QMap>
#include <QSet>
#include <QSlider>
#include <QStyle>

#include <algorithm>
#include <map>
#include <tuple>

constexpr int kStraight = 12;    // logical pixels of the shortest edges, those of indicators,
constexpr int kLetter = 24;      // of what is longer than letters in a button and than text cursors
constexpr int kLargeLetter = 40; // and in a label
constexpr int kBeside = 2;       // logical pixels
constexpr int kThin = 3;         // device pixels of the thickest line
constexpr int kStep = 6;         // of a colour, beyond that of a gradient

// Accent and hovered row, known everywhere: which line has a state may differ from one scale to another.
const QList<QRgb> kStates{0xff1f71bf, 0xffedf3fe};

// Lines that are drawn evenly, but covered in part by children, whose edges lie at rounded logical pixels.
// With Qt 6, whose lines of text are less high, the pages have them at other fractions of a pixel.
constexpr bool kOtherFractions = QT_VERSION_MAJOR > 5;
const QStringList kUneven{"CBPGridBox #1f71bf", "lumqt::TabBar #49a7f5", "CBPBox #d7d7d7",
                          kOtherFractions ? "CBPGridBox #d7d7d7" : ""};

// What does not have the library's look: shown beside it for comparison, the slider whose groove Qt draws
// between the pixels there, or a scroll bar that a sheet of the application's draws (there too, as sheets
// do).
inline bool isPlain(const QWidget *widget)
{
    return widget && (widget->style()->inherits("QFusionStyle") ||
                      (kOtherFractions && widget->metaObject() == &QSlider::staticMetaObject) ||
                      (widget->inherits("QScrollBar") && !widget->styleSheet().isEmpty()) ||
                      isPlain(widget->parentWidget()));
}

inline bool isFar(QRgb a, QRgb b, int step)
{
    return qAbs(qRed(a) - qRed(b)) > step || qAbs(qGreen(a) - qGreen(b)) > step ||
           qAbs(qBlue(a) - qBlue(b)) > step;
}

// How thick the straight lines of a colour are at 100 per cent, by the class that they lie in.
using KnownLines = QHash<QByteArray, QHash<QRgb, QSet<int>>>;

// A straight line or ground of one colour, along a row or a column of pixels.
struct Line
{
    QRgb color;
    QPoint middle;
    int length;
    bool across;
    int thickness; // 0 unless it lies between other colours
};

inline int thicknessOf(const QImage &image, const QPoint &middle, const QPoint &across)
{
    const QRgb color = image.pixel(middle);
    int thickness = 1;
    for (const QPoint &step : {across, -across}) {
        QPoint at = middle + step;
        int same = 0;
        for (; same <= kThin && image.valid(at) && image.pixel(at) == color; ++same)
            at += step;
        if (!image.valid(at) || !isFar(image.pixel(at), color, kStep))
            return 0;
        thickness += same;
    }
    return thickness;
}

inline QVector<Line> linesOf(const QImage &picture, int least)
{
    const QImage image = picture.convertToFormat(QImage::Format_ARGB32);
    QVector<Line> lines;
    const auto add = [&](const QPoint &from, const QPoint &along, int length) {
        const QPoint middle = from + length / 2 * along;
        if (length >= least)
            lines << Line{image.pixel(middle), middle, length, along.x() != 0,
                          thicknessOf(image, middle, along.transposed())};
    };
    // Row by row, also for the lines down the columns: pixels below each other are far apart in memory.
    QVector<int> tops(image.width());
    for (int y = 0, width = image.width(); y < image.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        const QRgb *above = y > 0 ? row - width : row;
        for (int x = 0, left = 0; x < width; ++x) {
            if (x + 1 == width || row[x + 1] != row[x]) {
                add(QPoint(left, y), QPoint(1, 0), x + 1 - left);
                left = x + 1;
            }
            if (row[x] != above[x]) {
                add(QPoint(x, tops[x]), QPoint(0, 1), y - tops[x]);
                tops[x] = y;
            }
        }
    }
    for (int x = 0; x < image.width(); ++x)
        add(QPoint(x, tops[x]), QPoint(0, 1), image.height() - tops[x]);
    return lines;
}

// In logical pixels, longer than what letters and pictures have of straight edges.
inline int leastEdgeOf(const QWidget *widget)
{
    const auto *label = qobject_cast<const QLabel *>(widget);
    if (!widget || (label && !label->pixmap(Qt::ReturnByValue).isNull()))
        return QWIDGETSIZE_MAX;
    return label || widget->inherits("CBPDrawLabel") ? kLargeLetter
           : widget->inherits("QCheckBox")           ? kStraight
                                                     : kLetter;
}

inline QByteArray classAt(const QWidget &window, const QPoint &at)
{
    const QWidget *widget = window.childAt(at);
    return QByteArray(widget ? widget->metaObject()->className() : "");
}

// At another scale, a line may come to lie in what was beside it.
inline QSet<QByteArray> classesAround(const QWidget &window, const QPoint &at)
{
    QSet<QByteArray> classes{classAt(window, at)};
    for (const int x : {-kBeside, kBeside}) {
        for (const int y : {-kBeside, kBeside})
            classes << classAt(window, at + QPoint(x, y));
    }
    return classes;
}

inline KnownLines knownOf(const QWidget &window, const QVector<Line> &lines)
{
    KnownLines known;
    for (const Line &line : lines) {
        // Of a ground every third row will do: its neighbours are looked at with it.
        if (line.thickness == 0 && (line.across ? line.middle.y() : line.middle.x()) % 3 != 0)
            continue;
        for (const QByteArray &name : classesAround(window, line.middle))
            known[name][line.color] << line.thickness;
    }
    return known;
}

// Thin lines of a colour that is not known there, and those that are not as thick as others of the widget.
inline QStringList faultsIn(const QWidget &window, const QVector<Line> &lines, const KnownLines &known,
                            qreal scale)
{
    QRegion plain;
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        if (widget->isVisible() && isPlain(widget))
            plain += QRect(widget->mapTo(&window, QPoint()), widget->size()).adjusted(-8, -8, 8, 8);
    }
    QMap<QString, QString> found;
    std::map<std::tuple<const QWidget *, QRgb, bool>, int> thicknesses;
    for (const Line &line : lines) {
        const QPoint at = line.middle / scale;
        const QWidget *widget = window.childAt(at);
        if (!line.thickness || line.length < leastEdgeOf(widget) * scale || plain.contains(at))
            continue;
        const QHash<QRgb, QSet<int>> here = known.value(classAt(window, at));
        QList<QRgb> colors = kStates;
        for (const QByteArray &name : classesAround(window, at))
            colors += known.value(name).keys();
        const bool isKnown = std::any_of(colors.cbegin(), colors.cend(),
                                         [&](QRgb color) { return !isFar(color, line.color, 2); });
        const QSet<int> before = here.value(line.color);
        int &first = thicknesses[std::make_tuple(widget, line.color, line.across)];
        first = first ? first : line.thickness;
        // A bare widget is all ground: how thick it comes out is the layout's.
        const bool isEven = first == line.thickness || before.size() != 1 || before.contains(0) ||
                            widget->metaObject() == &QWidget::staticMetaObject;
        const QString what =
            QStringLiteral("%1 %2").arg(widget->metaObject()->className(), QColor(line.color).name());
        if (!isKnown || (!isEven && !kUneven.contains(what)))
            found[what] = QStringLiteral("%1 at %2,%3, %4")
                              .arg(what)
                              .arg(at.x())
                              .arg(at.y())
                              .arg(isKnown ? "uneven" : "unknown");
    }
    return found.values();
}
