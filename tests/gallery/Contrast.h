#pragma once

#include "CBPTheme.h"
#include "Edges.h"
#include "Pixels.h"

#include <QAbstractItemView>
#include <QHeaderView>
#include <QStyleOption>
#include <QTabBar>
#include <QtMath>

#include <algorithm>

constexpr double kTextContrast = 4.5;
constexpr double kPartContrast = 3.0; // of outlines and rings
constexpr double kHighTextContrast = 7.0;
constexpr double kHighPartContrast = 4.5;
constexpr qreal kReadable = 3; // the ratio at which the strokes of letters are whole pixels
constexpr int kFrame = 4;      // logical pixels in which a frame and a focus ring lie
constexpr int kItem = 8;       // logical pixels of the smallest item, and beside an icon

// Pairs that are fixed as they are in the light theme, though they are harder to see than others.
const QStringList kFixed{
    "CBPLabel #4baeb3 on #ffffff 2.6",           // heading of a message
    "CBPLinkerButton #008cff on #ffffff 3.4",    // normal, hovered, focused
    "CBPLinkerButton #53b2ff on #ffffff 2.3",    // pressed, selected
    "CBPWaitBtn #ffffff on #49a7f5 2.6",         // first button of a window
    "CBPWaitBtn #ffffff on #5baff6 2.4",         // the same, hovered
    "CBPWaitBtn #ffffff on #4195dc 3.2",         // the same, pressed
    "CTriStateButton #4caeb2 on #e2f2f3 2.3",    // chosen
    "CTriStateButton #70bfc2 on #edf7f8 1.9",    // hovered
    "lumqt::GroupButton #57aef6 on #ffffff 2.4", // normal
    "lumqt::GroupButton #ffffff on #4195dc 3.2", // chosen tab
    "lumqt::GroupButton #ffffff on #5baff6 2.4", // hovered tab
    "CBPDateSelector #d7d7d7 on #ffffff 1.4",    // without the focus
    "CBPDateSelector #d7d7d7 on #f7f9fb 1.4",    // the same, on a panel
    "QCalendarView #fd7b00 on #ffffff 2.6",      // weekend
};

inline double luminance(QRgb color)
{
    const auto part = [](int value) {
        const double share = value / 255.0;
        return share <= 0.03928 ? share / 12.92 : qPow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(qRed(color)) + 0.7152 * part(qGreen(color)) + 0.0722 * part(qBlue(color)) + 0.05;
}

inline double contrast(QRgb one, QRgb other)
{
    const double ratio = luminance(one) / luminance(other);
    return qMax(ratio, 1 / ratio);
}

struct Pair
{
    QRgb ground;
    QRgb ink;
};

// Names the pair, if it is too hard to see in the current theme and not fixed.
inline QStringList faint(const QString &what, const Pair &pair, double least)
{
    const double seen = contrast(pair.ink, pair.ground);
    const QString name =
        QStringLiteral("%1 %2 on %3 %4")
            .arg(what, QColor(pair.ink).name(), QColor(pair.ground).name(), QString::number(seen, 'f', 1));
    const bool isFixed = CBPTheme::current() == QLatin1String("light") && kFixed.contains(name);
    return seen >= least || isFixed ? QStringList() : QStringList(name);
}

// The colour that most of a place has, and the one that stands out most from it.
inline Pair pairIn(const QImage &picture, const QRectF &place)
{
    const QRectF pixels(place.topLeft() * kReadable, place.size() * kReadable);
    const QHash<QRgb, int> counts = colorsIn(picture, pixels.toRect() & picture.rect());
    Pair pair{};
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        pair.ground = it.value() > counts.value(pair.ground) ? it.key() : pair.ground;
    pair.ink = pair.ground;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        pair.ink = contrast(it.key(), pair.ground) > contrast(pair.ink, pair.ground) ? it.key() : pair.ink;
    return pair;
}

inline bool inheritsOneOf(const QObject *object, std::initializer_list<const char *> names)
{
    return std::any_of(names.begin(), names.end(), [&](const char *name) { return object->inherits(name); });
}

// Whether it is known by its outline; that of a part is drawn by the whole, or is a picture of the
// application's.
inline bool hasOutline(const QWidget *widget)
{
    const auto outlined = {"QLineEdit", "QTextEdit",        "QAbstractSpinBox", "QComboBox",
                           "QCheckBox", "CBPIPInputWidget", "CBPDateSelector"};
    for (const QObject *whole = widget->parent(); whole; whole = whole->parent()) {
        if (inheritsOneOf(whole, outlined))
            return false;
    }
    return inheritsOneOf(widget, outlined) && !widget->inherits("CBPImageCheckBox") && !isPlain(widget);
}

// Of every row, header or tab that is shown and can be chosen, without its icon.
inline QVector<QRect> itemsOf(const QWidget *widget)
{
    QVector<QRect> items;
    if (const auto *bar = qobject_cast<const QTabBar *>(widget)) {
        for (int i = 0; i < bar->count(); ++i)
            items << (bar->isTabEnabled(i) ? bar->tabRect(i) : QRect());
    } else if (const auto *header = qobject_cast<const QHeaderView *>(widget)) {
        for (int i = 0; i < header->count() && header->orientation() == Qt::Horizontal; ++i)
            items << QRect(header->sectionViewportPosition(i), 0, header->sectionSize(i), header->height());
    } else if (const auto *view = qobject_cast<const QAbstractItemView *>(widget)) {
        const QRect seen = view->viewport()->rect();
        for (int i = 0; i < seen.width() / kItem * (seen.height() / kItem); ++i) {
            const QPoint at = QPoint(i % (seen.width() / kItem), i / (seen.width() / kItem)) * kItem;
            const QModelIndex index = view->indexAt(at);
            const int icon = index.data(Qt::DecorationRole).isNull() ? 0 : view->iconSize().width() + kItem;
            const QRect item = view->visualRect(index).adjusted(icon, 0, 0, 0) & seen;
            if (index.flags() & Qt::ItemIsEnabled && !index.data().toString().isEmpty() &&
                !items.contains(item.translated(view->viewport()->pos())))
                items << item.translated(view->viewport()->pos());
        }
    }
    return items;
}

// Where a widget has texts: a dark indicator, arrow or icon beside a faint text would stand for it.
inline QVector<QRect> textsOf(const QWidget *widget)
{
    QString text;
    for (const char *name : {"text", "placeholderText", "currentText", "plainText", "title"})
        text += widget->property(name).toString();
    QRect place = widget->rect();
    QStyleOptionButton button;
    QStyleOptionComboBox box;
    QStyleOptionGroupBox group;
    button.initFrom(widget);
    box.initFrom(widget);
    group.initFrom(widget);
    group.text = text;
    group.subControls = QStyle::SC_GroupBoxLabel;
    const QStyle *style = widget->style();
    if (widget->inherits("QCheckBox"))
        place = style->subElementRect(QStyle::SE_CheckBoxContents, &button, widget);
    else if (widget->inherits("QRadioButton"))
        place = style->subElementRect(QStyle::SE_RadioButtonContents, &button, widget);
    else if (widget->inherits("QComboBox"))
        place = style->subControlRect(QStyle::CC_ComboBox, &box, QStyle::SC_ComboBoxEditField, widget);
    else if (widget->inherits("QGroupBox"))
        place = style->subControlRect(QStyle::CC_GroupBox, &group, QStyle::SC_GroupBoxLabel, widget);
    else if (!widget->inherits("QLabel"))
        place.adjust(kFrame, kFrame, -kFrame, -kFrame);
    return itemsOf(widget) + (text.trimmed().isEmpty() ? QVector<QRect>() : QVector<QRect>{place});
}

// Texts against their grounds, and outlines against what lies around them.
inline QStringList faintPartsOf(QWidget &root)
{
    const bool isHigh = CBPTheme::current() == QLatin1String("contrast");
    const double text = isHigh ? kHighTextContrast : kTextContrast;
    const double part = isHigh ? kHighPartContrast : kPartContrast;
    const QImage picture = pictureOf(root, kReadable);
    QStringList all;
    for (const QWidget *widget : root.findChildren<QWidget *>()) {
        if (!widget->isVisible() || !widget->isEnabled())
            continue;
        const QString name = QString::fromLatin1(widget->metaObject()->className());
        const QRect place(widget->mapTo(&root, QPoint()), widget->size());
        for (const QRect &words : textsOf(widget)) {
            if (!words.isEmpty())
                all << faint(name, pairIn(picture, words.translated(place.topLeft())), text);
        }
        const QRect edge(place.left() - kFrame, place.center().y(), 2 * kFrame, 1);
        if (hasOutline(widget))
            all << faint(name, pairIn(picture, edge), part);
    }
    all.removeDuplicates();
    return all;
}
