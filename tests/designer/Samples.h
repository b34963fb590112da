#pragma once

#include <QBrush>
#include <QColor>
#include <QDate>
#include <QFont>
#include <QHash>
#include <QIcon>
#include <QLocale>
#include <QMetaProperty>
#include <QPen>
#include <QSize>
#include <QStringList>
#include <QTime>
#include <QVariant>
#include <QVector>

// Two values for each property, which differ from each other and from what a new object has.
namespace samples {

using Pair = QPair<QVariant, QVariant>;

// A style sheet names the file of the first one.
constexpr const char *kIconFiles[] = {":/lumqtlib/res/close_normal.png", ":/lumqtlib/res/list_normal.png"};

inline QStringList files(const QString &stem)
{
    QStringList names;
    for (const char *state : {"normal", "hover", "press", "disable"})
        names.append(QStringLiteral("../res/%1_%2.png").arg(stem, QLatin1String(state)));
    return names;
}

// Of what not any value will do for.
inline const QHash<QString, Pair> &special()
{
    static const QHash<QString, Pair> values{
        {"CButtonGroupBox.checkedId", {1, 0}},
        {"CBPWinFrmTitle.shownButtons", {8, 64}},
        {"CBPWinFrm.titleButtons", {8, 64}},
        {"CBPWinWidget.titleButtons", {8, 64}},
        {"CBPPopWnd.titleButtons", {8, 64}},
        {"CMsgBox.titleButtons", {8, 64}},
        {"CBPIPInputWidget.ip", {"192.168.1.2", "10.0.0.1"}},
        {"CBPDaySelector.selected", {QStringList{"b", "c"}, QStringList{"a"}}},
        {"CBPWeekSelector.selected", {QStringList{"b", "c"}, QStringList{"a"}}},
        {"CEditTimeEdit.times", {QStringList{"08:00"}, QStringList{"09:30"}}},
        {"CBPJumpSlider.value", {2, 1}},
        {"CBPJumpSlider.currentText", {"c", "b"}},
        {"CTabContainer.currentPage", {1, 0}},
        {"CTabContainer.currentIndex", {1, 0}},
        {"CBPEllipsisGifLabel.maximumDots", {5, 8}},
        {"CBPEllipsisGifLabel.running", {false, false}}, // it runs once in its life
        {"CBPGradientProgressBar.value", {0.5, 0.25}},
        {"CFoucsLabel.leadIcons", {QStringList{"a.png", "b.png"}, QStringList{"c.png", "d.png"}}},
        {"CFoucsLabel.tailIcons", {QStringList{"a.png", "b.png"}, QStringList{"c.png", "d.png"}}},
        {"CTabPageItem.leadIcons", {QStringList{"a.png", "b.png"}, QStringList{"c.png", "d.png"}}},
        {"CTabPageItem.tailIcons", {QStringList{"a.png", "b.png"}, QStringList{"c.png", "d.png"}}},
    };
    return values;
}

inline QFont font(int points)
{
    QFont font(QStringLiteral("Segoe UI"));
    font.setPointSize(points); // a form has no pixels for fonts
    return font;
}

inline Pair lists(const QString &name)
{
    if (name.endsWith(QLatin1String("olors")))
        return {QStringList{"#112233", "#223344", "#80334455", "#445566"},
                QStringList{"#aa0000", "#00bb00", "#0000cc", "#dddd00"}};
    if (name == QLatin1String("items") || name == QLatin1String("labels"))
        return {QStringList{"a", "b", "c"}, QStringList{"x", "y"}};
    return {files(QStringLiteral("close")), files(QStringLiteral("list"))};
}

inline Pair of(const QMetaProperty &property, const QString &type)
{
    const QString name = QString::fromLatin1(property.name());
    const auto own = special().constFind(type + QLatin1Char('.') + name);
    if (own != special().constEnd())
        return *own;
    if (property.isEnumType()) {
        const QMetaEnum keys = property.enumerator();
        return {keys.value(keys.keyCount() - 1), keys.value(keys.isFlag() ? 1 : 0)};
    }
    switch (property.userType()) {
    case QMetaType::Bool:
        return {true, false};
    case QMetaType::Int:
    case QMetaType::UInt:
        return {24, 31};
    case QMetaType::Double:
        return {4.5, 2.0};
    case QMetaType::QString:
        return {QStringLiteral("one"), QStringLiteral("two")};
    case QMetaType::QStringList:
        return lists(name);
    case QMetaType::QColor:
        return {QColor(18, 52, 86), QColor(171, 205, 239, 128)};
    case QMetaType::QBrush:
        return {QBrush(QColor(18, 52, 86)), QBrush(QColor(171, 205, 239), Qt::Dense4Pattern)};
    case QMetaType::QPen:
        return {QPen(QColor(18, 52, 86), 2), QPen(Qt::NoPen)};
    case QMetaType::QFont:
        return {font(17), font(21)};
    case QMetaType::QIcon:
        return {QIcon(kIconFiles[0]), QIcon(kIconFiles[1])};
    case QMetaType::QSize:
        return {QSize(20, 20), QSize(24, 24)};
    case QMetaType::QDate:
        return {QDate(2024, 2, 29), QDate(2031, 12, 1)};
    case QMetaType::QTime:
        return {QTime(7, 15), QTime(23, 59)};
    default:
        return {};
    }
}

// What other properties have to be first.
inline QVector<QPair<QByteArray, QVariant>> before(const QString &type)
{
    static const QStringList letters{"a", "b", "c"};
    static const QHash<QString, QVector<QPair<QByteArray, QVariant>>> values{
        {"CBPJumpSlider", {{"labels", letters}}},
        {"CBPSmoothSlider", {{"labels", letters}, {"maximum", 100}}},
        {"CButtonGroupBox", {{"items", letters}}},
        {"CBPDaySelector", {{"items", letters}}},
        {"CBPWeekSelector", {{"items", letters}}},
        {"CBPGifLable", {{"frameCount", 3}}}};
    return values.value(type);
}

// Icons are equal when they show the same, fonts when they say the same.
inline bool equal(const QVariant &one, const QVariant &other)
{
    if (one.userType() == QMetaType::QIcon)
        return one.value<QIcon>().pixmap(16).toImage() == other.value<QIcon>().pixmap(16).toImage();
    if (one.userType() == QMetaType::QFont)
        return one.value<QFont>().toString() == other.value<QFont>().toString();
    // With Qt 6 a value of an enumeration is no number any more.
    if (one.userType() != other.userType() &&
        (one.userType() == QMetaType::Int || other.userType() == QMetaType::Int))
        return one.toInt() == other.toInt();
    return one == other;
}

// Whether the library's class says it, and not Qt's below.
inline bool isOurs(const QMetaObject *type, int index)
{
    while (type->propertyOffset() > index)
        type = type->superClass();
    return type->className()[0] == 'C';
}

// As a style sheet has it; empty for types that it has no words for.
inline QString inSheet(const QMetaProperty &property, const QVariant &value)
{
    if (property.isFlagType())
        return QString();
    if (property.isEnumType())
        return QString::fromLatin1(property.enumerator().valueToKey(value.toInt()));
    switch (property.userType()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Double:
        return value.toString();
    case QMetaType::QString:
        return QLatin1Char('"') + value.toString() + QLatin1Char('"');
    case QMetaType::QStringList:
        return QLatin1Char('"') + value.toStringList().join(QLatin1String(", ")) + QLatin1Char('"');
    case QMetaType::QColor:
        return value.value<QColor>().name(QColor::HexArgb);
    case QMetaType::QIcon:
        return QStringLiteral("url(%1)").arg(QLatin1String(kIconFiles[0]));
    case QMetaType::QSize:
        return QStringLiteral("%1px %2px").arg(value.toSize().width()).arg(value.toSize().height());
    default:
        return QString();
    }
}

} // namespace samples
