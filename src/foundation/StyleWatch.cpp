#include "foundation/StyleWatch.h"

#include "foundation/FocusRing.h"
#include "foundation/QtCompat.h"
#include "foundation/StyleParts.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QGroupBox>
#include <QHeaderView>
#include <QHoverEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScrollBar>
#include <QSlider>
#include <QTabBar>
#include <QTextEdit>
#include <QTimer>
#include <QVector>

namespace lumqt {

namespace {

constexpr QPoint kNowhere(-1, -1);

// By the name that Qt gives it: the class has no meta-object.
bool holdsScrollBars(const QWidget *widget)
{
    return widget->objectName() == QLatin1String("qt_scrollarea_hcontainer") ||
           widget->objectName() == QLatin1String("qt_scrollarea_vcontainer");
}

// Which children are a widget's own parts, not content of the application.
bool isPartOf(const QWidget *widget, const QWidget *child)
{
    if (qobject_cast<const QAbstractScrollArea *>(widget)) {
        return qobject_cast<const QHeaderView *>(child) || child->inherits("QTableCornerButton") ||
               holdsScrollBars(child);
    }
    if (holdsScrollBars(widget))
        return qobject_cast<const QScrollBar *>(child);
    if (isComboPopUp(widget))
        return qobject_cast<const QAbstractItemView *>(child) || child->inherits("QComboBoxPrivateScroller");
    if (qobject_cast<const QComboBox *>(widget))
        return qobject_cast<const QLineEdit *>(child) || isComboPopUp(child);
    return qobject_cast<const QAbstractSpinBox *>(widget) && qobject_cast<const QLineEdit *>(child);
}

bool hasOurs(const QWidget *widget)
{
    return widget->style()->styleHint(kIsOurs, nullptr, widget) == kOurs;
}

bool isDressed(const QWidget *widget)
{
    return widget->testAttribute(Qt::WA_SetStyle) && hasOurs(widget);
}

QVector<QWidget *> partsOf(const QWidget *widget)
{
    QVector<QWidget *> parts;
    for (QObject *child : widget->children()) {
        auto *part = qobject_cast<QWidget *>(child);
        if (part && isPartOf(widget, part))
            parts << part;
    }
    return parts;
}

// Where the application has taken the style away, or set another one.
void undressParts(const QWidget *widget)
{
    const QVector<QWidget *> parts = partsOf(widget);
    for (QWidget *part : parts) {
        if (isDressed(part))
            part->setStyle(nullptr); // which undresses its own parts
    }
}

// What has its content up to its edges, and nothing else that shows the focus: an area without a frame, and a
// slider. The library's own sliders have their ring around what they lie in; a text has its cursor.
bool hasRingOutside(const QWidget *widget)
{
    if (qobject_cast<const QSlider *>(widget))
        return !widget->inherits("lumqt::SpokenSlider");
    const auto *area = qobject_cast<const QAbstractScrollArea *>(widget);
    return area && area->frameWidth() == 0 && !qobject_cast<const QHeaderView *>(area) &&
           !qobject_cast<const QTextEdit *>(area) && !qobject_cast<const QPlainTextEdit *>(area);
}

} // namespace

bool isComboPopUp(const QWidget *widget)
{
    return widget && widget->inherits("QComboBoxPrivateContainer");
}

bool StyleWatch::wants(const QWidget *widget)
{
    const auto *view = qobject_cast<const QAbstractItemView *>(widget->parentWidget());
    return qobject_cast<const QAbstractButton *>(widget) ||
           qobject_cast<const QAbstractScrollArea *>(widget) || qobject_cast<const QLineEdit *>(widget) ||
           qobject_cast<const QComboBox *>(widget) || qobject_cast<const QAbstractSpinBox *>(widget) ||
           qobject_cast<const QAbstractSlider *>(widget) || qobject_cast<const QGroupBox *>(widget) ||
           qobject_cast<const QTabBar *>(widget) || (view && view->viewport() == widget);
}

void StyleWatch::watch(QWidget *widget)
{
    if (m_known.contains(widget))
        return;
    Known known;
    if (widget->hasFocus())
        focusGained(known.mark, Qt::OtherFocusReason);
    m_known.insert(widget, known);
    widget->installEventFilter(this);
    connect(widget, &QObject::destroyed, this, [this](QObject *gone) { m_known.remove(gone); });
    placeRing(widget);
}

void StyleWatch::dress(QWidget *widget)
{
    watch(widget);
    widget->setStyle(m_style);
    dressParts(widget);
}

void StyleWatch::dressParts(QWidget *widget)
{
    const QVector<QWidget *> parts = partsOf(widget);
    for (QWidget *part : parts) {
        if (!part->testAttribute(Qt::WA_SetStyle))
            dress(part);
    }
}

// Qt wraps a widget's own style into the style sheet of the application only when the style is set: a sheet
// that comes later would leave the widget out.
void StyleWatch::followSheet(QWidget *widget)
{
    const auto misses = [style = m_style](const QWidget *dressed) {
        return dressed->style() == style && dressed->testAttribute(Qt::WA_SetStyle) &&
               !qApp->styleSheet().isEmpty();
    };
    if (!misses(widget))
        return;
    // Not while it is painted.
    QTimer::singleShot(0, widget, [self = QPointer<StyleWatch>(this), widget, misses] {
        if (self && misses(widget))
            widget->setStyle(self->m_style);
    });
}

void StyleWatch::followStyle(QWidget *widget)
{
    if (!isDressed(widget))
        undressParts(widget);
    if (hasOurs(widget))
        return;
    if (m_known.take(widget).ringed)
        setRingAround(widget, false);
    widget->removeEventFilter(this);
    disconnect(widget, &QObject::destroyed, this, nullptr);
}

bool StyleWatch::knows(const QWidget *widget) const
{
    return m_known.contains(widget);
}

bool StyleWatch::showsFocus(const QWidget *widget) const
{
    return m_known.value(widget).mark == FocusMark::Shown;
}

bool StyleWatch::hasFocus(const QWidget *widget) const
{
    const FocusMark mark = m_known.value(widget).mark;
    return mark == FocusMark::Shown || mark == FocusMark::Quiet;
}

QPoint StyleWatch::mouseIn(const QWidget *viewport) const
{
    return m_known.value(viewport).mouse;
}

// Without the content, which costs more.
void StyleWatch::updateFrame(QWidget *widget)
{
    const QRect rect = widget->rect();
    widget->update(QRegion(rect) - rect.adjusted(kViewFrame, kViewFrame, -kViewFrame, -kViewFrame));
}

void StyleWatch::markFocus(QWidget *widget, QEvent *event)
{
    FocusMark &mark = m_known[widget].mark;
    const FocusMark before = mark;
    if (event->type() == QEvent::FocusIn)
        focusGained(mark, static_cast<QFocusEvent *>(event)->reason());
    else if (event->type() == QEvent::FocusOut)
        focusLost(mark, static_cast<QFocusEvent *>(event)->reason());
    else
        keyUsed(mark);
    if (mark != before)
        widget->update();
    placeRing(widget);
}

// Outside of the widget, where it is to be.
void StyleWatch::placeRing(QWidget *widget)
{
    const auto known = m_known.find(widget);
    if (known == m_known.end())
        return;
    const bool ringed = known->mark == FocusMark::Shown && widget->isEnabled() && hasRingOutside(widget) &&
                        !ringLiesInRow(widget);
    if (ringed == known->ringed)
        return;
    known->ringed = ringed;
    setRingAround(widget, ringed);
}

bool StyleWatch::eventFilter(QObject *watched, QEvent *event)
{
    if (!watched->isWidgetType() || !m_known.contains(watched))
        return false;
    auto *widget = static_cast<QWidget *>(watched);
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::KeyPress:
        markFocus(widget, event);
        if (event->type() == QEvent::KeyPress) // which may choose a first row
            QTimer::singleShot(0, widget, [self = QPointer<StyleWatch>(this), widget] {
                if (self)
                    self->placeRing(widget);
            });
        break;
    case QEvent::Enter:
    case QEvent::Leave:
        if (qobject_cast<QAbstractScrollArea *>(widget))
            updateFrame(widget);
        break;
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
        m_known[watched].mouse = position(*static_cast<QHoverEvent *>(event));
        break;
    case QEvent::HoverLeave:
        m_known[watched].mouse = kNowhere;
        break;
    case QEvent::Paint:
    case QEvent::Show:
        followSheet(widget);
        break;
    case QEvent::EnabledChange:
        placeRing(widget);
        break;
    case QEvent::ChildPolished:
        if (isDressed(widget))
            dressParts(widget);
        break;
    case QEvent::StyleChange:
        followStyle(widget);
        break;
    default:
        break;
    }
    return false;
}

} // namespace lumqt
