#pragma once

#include <QDate>
#include <QEvent>
#include <QGuiApplication>
#include <QHash>
#include <QIcon>
#include <QIconEngine>
#include <QKeySequence>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QPixmapCache>
#include <QSettings>
#include <QString>
#include <QVariant>
#include <QWidget>

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
#include <QRegularExpression>
#include <QRegularExpressionValidator>

#include <array>
#include <cmath>
#else
#include <QCoreApplication>
#include <QRegExp>
#include <QRegExpValidator>
#endif

// What Qt 5.15 and Qt 6 spell differently, so that nothing else of the library asks for the version of Qt.
// What the public headers need is in LumQtCompat.h.
namespace lumqt {

// What qHash() takes and gives.
using HashValue = decltype(qHash(0));

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)

// How a calendar hands on the day of a cell.
using CellDate = QDate;

// Of the pen that a table draws its grid with, whose middle is half of that further right and down.
constexpr int kGridPenWidth = 1;

// What to take off below the single line of an edit that is higher by `room`, which may be negative; both in
// pixels. For a font is a pixel less high than in Qt 5, and Qt has its line a pixel lower where half of the
// room is rounded for that.
inline int excessBelow(int room)
{
    return (room + 1) / 2 - room / 2;
}

inline QPoint globalPosition(const QMouseEvent &event)
{
    return event.globalPosition().toPoint();
}

template <class PointerEvent> QPoint position(const PointerEvent &event)
{
    return event.position().toPoint();
}

// Of the window, by an event in it. Not rounded.
inline QPointF windowPlace(const QMouseEvent &event)
{
    return event.globalPosition() - event.scenePosition();
}

// The event in which the pointer came in, or null where an application made a plain one.
inline const QEnterEvent *enterOf(const QEvent *event)
{
    return event->isPointerEvent() ? static_cast<const QEnterEvent *>(event) : nullptr;
}

// The marks of the brushes that a palette has itself and does not inherit: here one for each role and group.
using PaletteMarks = QPalette::ResolveMask;

inline PaletteMarks marksOf(const QPalette &palette)
{
    return palette.resolveMask();
}

inline void setMarks(QPalette &palette, PaletteMarks marks)
{
    palette.setResolveMask(marks);
}

// The same of what a font has itself.
inline uint marksOf(const QFont &font)
{
    return font.resolveMask();
}

inline void setMarks(QFont &font, uint marks)
{
    font.setResolveMask(marks);
}

// The marks of a role in all groups. Where Qt keeps them is its own affair, and has changed.
inline PaletteMarks marksOf(QPalette::ColorRole role)
{
    static const auto known = [] {
        std::array<PaletteMarks, QPalette::NColorRoles> marks;
        for (int each = 0; each < QPalette::NColorRoles; ++each) {
            QPalette palette;
            palette.setResolveMask(0);
            palette.setBrush(QPalette::All, QPalette::ColorRole(each), QBrush(Qt::red));
            marks[size_t(each)] = palette.resolveMask();
        }
        return marks;
    }();
    return known[size_t(role)];
}

// The marks of each role that a palette has in some group. A role counts as a whole: whoever sets it in one
// group has set it.
inline PaletteMarks ownRoles(const QPalette &palette)
{
    PaletteMarks roles = 0;
    for (int role = 0; role < QPalette::NColorRoles; ++role) {
        const PaletteMarks marks = marksOf(QPalette::ColorRole(role));
        if (marksOf(palette) & marks)
            roles |= marks;
    }
    return roles;
}

// Calls `changed` whenever the application has another palette, for as long as it lives.
inline void onPaletteChange(QGuiApplication &application, void (*changed)())
{
    class Listener : public QObject
    {
    public:
        Listener(QObject *parent, void (*told)()) : QObject(parent), m_told(told) {}
        bool eventFilter(QObject *watched, QEvent *event) override
        {
            if (event->type() == QEvent::ApplicationPaletteChange && watched == parent())
                m_told();
            return false;
        }

    private:
        void (*m_told)();
    };
    application.installEventFilter(new Listener(&application, changed));
}

// Ini files are UTF-8 without being asked.
inline void readAsUtf8(QSettings &) {}

// A key of such a file, from what QSettings makes of its bytes.
inline QString utf8Key(const QString &key)
{
    return key;
}

// Whether a value is another one in the type of the first, such as an enumerator and its number. Numbers are
// compared as such: an int is not what is left of 2.5.
inline bool sameValue(const QVariant &one, QVariant other)
{
    const auto isNumber = [](const QVariant &value) {
        const int type = value.userType();
        return (type >= QMetaType::Bool && type <= QMetaType::Double) || type == QMetaType::Float;
    };
    return one == other || (one.isValid() && other.isValid() && !(isNumber(one) && isNumber(other)) &&
                            other.convert(one.metaType()) && one == other);
}

// Whether icons give pictures for dense screens.
inline bool iconsAreDense()
{
    return true;
}

// Whether they give a coarse one all the same: between whole ratios Qt takes the coarser of two for the
// nearer.
inline bool iconsAreCoarse(qreal ratio)
{
    return ratio > 1.0 && ratio != std::ceil(ratio);
}

inline QPixmap densePixmap(const QIcon &icon, const QSize &size, qreal ratio, QIcon::Mode mode,
                           QIcon::State state)
{
    const QPixmap picture = icon.pixmap(size, ratio, mode, state);
    if (!iconsAreCoarse(ratio) || picture.devicePixelRatio() >= ratio)
        return picture;
    const QPixmap finer = icon.pixmap(size, std::ceil(ratio), mode, state);
    if (finer.devicePixelRatio() <= ratio)
        return finer;
    // Kept, as Qt keeps those that an icon gives: a paint may ask for it more than once.
    const QString key = QStringLiteral("lumqt-icon-%1-%2").arg(finer.cacheKey()).arg(ratio);
    QPixmap scaled;
    if (!QPixmapCache::find(key, &scaled)) {
        scaled = finer.scaled((finer.deviceIndependentSize() * ratio).toSize(), Qt::IgnoreAspectRatio,
                              Qt::SmoothTransformation);
        scaled.setDevicePixelRatio(ratio);
        QPixmapCache::insert(key, scaled);
    }
    return scaled;
}

inline QPixmap densePixmap(const QIcon &icon, const QSize &size, QIcon::Mode mode, const QWidget &widget)
{
    return densePixmap(icon, size, widget.devicePixelRatioF(), mode, QIcon::Off);
}

// An icon's pictures for who does not know of them: a style that Qt wrote.
class DenseIconEngine : public QIconEngine
{
public:
    explicit DenseIconEngine(const QIcon &icon) : m_icon(icon) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal ratio = painter->device()->devicePixelRatio();
        painter->drawPixmap(rect, scaledPixmap(rect.size() * ratio, mode, state, ratio));
    }
    QPixmap scaledPixmap(const QSize &pixels, QIcon::Mode mode, QIcon::State state, qreal ratio) override
    {
        return densePixmap(m_icon, pixels / ratio, ratio, mode, state);
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        return m_icon.pixmap(size, 1.0, mode, state);
    }
    QSize actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        return m_icon.actualSize(size, mode, state);
    }
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override
    {
        return m_icon.availableSizes(mode, state);
    }
    QString iconName() override { return m_icon.name(); }
    QIconEngine *clone() const override { return new DenseIconEngine(m_icon); }

private:
    QIcon m_icon;
};

inline QIcon denseIcon(const QIcon &icon)
{
    return icon.isNull() ? icon : QIcon(new DenseIconEngine(icon));
}

// Patterns of brushes are as large on dense screens as on others, where Qt 6 counts device pixels by itself.
inline void enlargePatterns(QPainter &painter)
{
    painter.setRenderHint(QPainter::NonCosmeticBrushPatterns);
}

// For tests: the keys of a sequence's first part with their modifiers, in one number.
inline int firstKey(const QKeySequence &keys)
{
    return keys[0].toCombined();
}

// For tests: what a signal or slot was called with, from the arguments that the meta-object hands on.
inline QVariant firstArgument(const QMetaMethod &method, void **arguments)
{
    return QVariant(method.parameterMetaType(0), arguments[1]);
}

// A text that matches from its beginning to its end. A word ("\w") has no accents that are characters of
// their own, which it has with Qt 5.
inline bool matchesWhole(const QString &text, const QString &pattern, Qt::CaseSensitivity cases)
{
    QRegularExpression::PatternOptions options = QRegularExpression::UseUnicodePropertiesOption;
    options.setFlag(QRegularExpression::CaseInsensitiveOption, cases == Qt::CaseInsensitive);
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern), options).match(text).hasMatch();
}

// Has the pattern, and goes by `quick`, which takes the same texts and never long. Owned by `parent`.
inline QValidator *patternValidator(const QString &pattern, const QString &quick, QObject *parent)
{
    class Quick : public QRegularExpressionValidator
    {
    public:
        Quick(const QString &shown, const QString &used, QObject *owner)
            : QRegularExpressionValidator(QRegularExpression(shown), owner), m_used(QRegularExpression(used))
        {
        }
        State validate(QString &text, int &position) const override
        {
            return m_used.validate(text, position);
        }

    private:
        const QRegularExpressionValidator m_used;
    };
    return new Quick(pattern, quick, parent);
}

#else

using CellDate = const QDate &;

constexpr int kGridPenWidth = 0; // a device pixel

inline int excessBelow(int)
{
    return 0;
}

inline QPoint globalPosition(const QMouseEvent &event)
{
    return event.globalPos();
}

template <class PointerEvent> QPoint position(const PointerEvent &event)
{
    return event.pos();
}

inline QPointF windowPlace(const QMouseEvent &event)
{
    return event.screenPos() - event.windowPos();
}

inline const QEnterEvent *enterOf(const QEvent *event)
{
    return dynamic_cast<const QEnterEvent *>(event);
}

using PaletteMarks = uint;

inline PaletteMarks marksOf(const QPalette &palette)
{
    return palette.resolve();
}

inline void setMarks(QPalette &palette, PaletteMarks marks)
{
    palette.resolve(marks);
}

inline uint marksOf(const QFont &font)
{
    return font.resolve();
}

inline void setMarks(QFont &font, uint marks)
{
    font.resolve(marks);
}

inline PaletteMarks marksOf(QPalette::ColorRole role)
{
    return PaletteMarks(1) << role;
}

inline PaletteMarks ownRoles(const QPalette &palette)
{
    return marksOf(palette);
}

inline void onPaletteChange(QGuiApplication &application, void (*changed)())
{
    QObject::connect(&application, &QGuiApplication::paletteChanged, &application, changed);
}

inline void readAsUtf8(QSettings &settings)
{
    settings.setIniCodec("UTF-8");
}

// The codec is for values: of a key it leaves the bytes.
inline QString utf8Key(const QString &key)
{
    return QString::fromUtf8(key.toLatin1());
}

inline bool sameValue(const QVariant &one, const QVariant &other)
{
    return one == other;
}

inline bool iconsAreDense()
{
    return QCoreApplication::testAttribute(Qt::AA_UseHighDpiPixmaps);
}

inline bool iconsAreCoarse(qreal)
{
    return false;
}

inline QPixmap densePixmap(const QIcon &icon, const QSize &size, QIcon::Mode mode, const QWidget &widget)
{
    return icon.pixmap(widget.window()->windowHandle(), size, mode);
}

inline QIcon denseIcon(const QIcon &icon)
{
    return icon;
}

inline void enlargePatterns(QPainter &) {}

inline int firstKey(const QKeySequence &keys)
{
    return keys[0];
}

inline QVariant firstArgument(const QMetaMethod &method, void **arguments)
{
    return QVariant(method.parameterType(0), arguments[1]);
}

inline bool matchesWhole(const QString &text, const QString &pattern, Qt::CaseSensitivity cases)
{
    return QRegExp(pattern, cases).exactMatch(text);
}

// No pattern takes long here.
inline QValidator *patternValidator(const QString &pattern, const QString &, QObject *parent)
{
    return new QRegExpValidator(QRegExp(pattern), parent);
}

#endif

} // namespace lumqt
