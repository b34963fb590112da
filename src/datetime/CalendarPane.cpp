#include "datetime/CalendarPane.h"

#include "foundation/FontLookup.h"
#include "foundation/IconPixmap.h"
#include "foundation/Painting.h"
#include "Util.h"

#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QProxyStyle>
#include <QSpinBox>
#include <QStyleOptionToolButton>
#include <QTableView>
#include <QTextCharFormat>
#include <QToolButton>

namespace lumqt {

namespace {

// Look and metrics, in logical pixels.
const QColor kGround(255, 255, 255);
const QColor kBar(237, 245, 253);
const QColor kInk(34, 42, 62);
const QColor kDayNames(103, 114, 128);
const QColor kWeekend(253, 123, 0);
const QColor kOtherMonth(103, 114, 128);
const QColor kOutOfRange(180, 188, 198);
const QColor kSelected(73, 167, 245);
const QColor kHover(228, 241, 253);
const QColor kPress(201, 227, 251);
const QColor kToday(47, 134, 214);
constexpr int kDayNamePixelSize = 12;
constexpr int kDayPixelSize = 13;
constexpr int kTitlePixelSize = 14;
constexpr int kRadius = 3;
constexpr QSize kCell(36, 30);
constexpr int kRows = 7; // with the names of the days
constexpr int kBarHeight = 40;
constexpr int kButtonSize = 28;
constexpr int kButtonPadding = 8; // beside a text
constexpr int kTriangleWidth = 8;
constexpr int kTriangleHeight = 4;
constexpr int kTriangleGap = 6;
const char kPrevIcon[] = "../res/calendar_prev.png";
const char kNextIcon[] = "../res/calendar_next.png";

} // namespace

// Buttons of the bar: no frame, a tile under the mouse, and a ring where the focus is, which the calendar
// hides for its arrows.
class CalendarPane::ButtonStyle : public QProxyStyle
{
public:
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override
    {
        const auto *button = qstyleoption_cast<const QStyleOptionToolButton *>(option);
        if (control != CC_ToolButton || !button || !widget) {
            QProxyStyle::drawComplexControl(control, option, painter, widget);
            return;
        }
        Body tile;
        tile.radiusX = tile.radiusY = kRadius;
        if (button->state & (State_Sunken | State_On))
            tile.fill = kPress;
        else if (button->state & State_MouseOver)
            tile.fill = kHover.darker(103);
        if (tile.fill.isValid())
            drawBody(*painter, button->rect, tile);
        drawContent(*button, *painter, *widget);
        if (widget->hasFocus())
            drawFocusRing(*painter, button->rect);
    }

    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget) const override
    {
        const auto *button = qstyleoption_cast<const QStyleOptionToolButton *>(option);
        if (type != CT_ToolButton || !button)
            return QProxyStyle::sizeFromContents(type, option, size, widget);
        if (button->text.isEmpty())
            return QSize(kButtonSize, kButtonSize);
        const int triangle = hasMenu(*button) ? kTriangleGap + kTriangleWidth : 0;
        const int text = button->fontMetrics.horizontalAdvance(button->text);
        return QSize(text + triangle + 2 * kButtonPadding, kButtonSize);
    }

private:
    static bool hasMenu(const QStyleOptionToolButton &button)
    {
        return button.features & QStyleOptionToolButton::HasMenu;
    }

    static void drawContent(const QStyleOptionToolButton &button, QPainter &painter, const QWidget &widget)
    {
        if (button.text.isEmpty()) {
            const QPixmap picture = iconPixmap(button.icon, button.iconSize, QIcon::Normal, &widget);
            QRect place(QPoint(0, 0), (QSizeF(picture.size()) / picture.devicePixelRatioF()).toSize());
            place.moveCenter(button.rect.center());
            painter.drawPixmap(place.topLeft(), picture);
            return;
        }
        QRect text = button.rect.adjusted(kButtonPadding, 0, -kButtonPadding, 0);
        if (hasMenu(button)) {
            const QPointF triangle(text.right() + 1 - kTriangleWidth,
                                   text.top() + (text.height() - kTriangleHeight) / 2.0);
            drawDropTriangle(painter, triangle, kTriangleWidth, kTriangleHeight, kInk);
            text.setRight(text.right() - kTriangleWidth - kTriangleGap);
        }
        painter.setFont(widget.font());
        painter.setPen(kInk);
        painter.drawText(text, Qt::AlignCenter | Qt::TextSingleLine, button.text);
    }
};

CalendarPane::CalendarPane(const QString &prevName, const QString &nextName)
{
    setGridVisible(false);
    setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    setHorizontalHeaderFormat(QCalendarWidget::ShortDayNames);
    setFont(uiFont(NormalWeight, kDayPixelSize));
    setMinimumSize(kCell.width() * 7, kBarHeight + kCell.height() * kRows);
    setColors();
    setUpView();
    setUpBar(prevName, nextName);
    setUpYearEdit();
}

void CalendarPane::setColors()
{
    QPalette colors = palette();
    for (const QPalette::ColorRole ground :
         {QPalette::Window, QPalette::Base, QPalette::AlternateBase, QPalette::Button})
        colors.setColor(ground, kGround);
    for (const QPalette::ColorRole text :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
        colors.setColor(text, kInk);
    colors.setColor(QPalette::Highlight, kBar); // what Qt fills the bar with
    setPalette(colors);

    QTextCharFormat names;
    names.setForeground(kDayNames);
    names.setFont(uiFont(NormalWeight, kDayNamePixelSize));
    setHeaderTextFormat(names);
    QTextCharFormat weekend;
    weekend.setForeground(kWeekend);
    setWeekdayTextFormat(Qt::Saturday, weekend);
    setWeekdayTextFormat(Qt::Sunday, weekend);
}

void CalendarPane::setUpView()
{
    m_view = findChild<QTableView *>(QStringLiteral("qt_calendar_calendarview"));
    if (!m_view)
        return;
    m_view->viewport()->setMouseTracking(true);
    m_view->viewport()->installEventFilter(this);
    m_view->installEventFilter(this);
}

void CalendarPane::setUpBar(const QString &prevName, const QString &nextName)
{
    m_prev = findChild<QToolButton *>(QStringLiteral("qt_calendar_prevmonth"));
    m_next = findChild<QToolButton *>(QStringLiteral("qt_calendar_nextmonth"));
    if (m_prev)
        m_prev->setAccessibleName(prevName);
    if (m_next)
        m_next->setAccessibleName(nextName);
    auto *bar = findChild<QWidget *>(QStringLiteral("qt_calendar_navigationbar"));
    if (!bar)
        return;
    bar->setFixedHeight(kBarHeight);
    auto *style = new ButtonStyle;
    style->setParent(this); // widgets do not own their style
    const QList<QToolButton *> buttons = bar->findChildren<QToolButton *>();
    for (QToolButton *button : buttons) {
        button->setStyle(style);
        button->setFont(uiFont(SemiboldWeight, kTitlePixelSize));
        button->setAttribute(Qt::WA_Hover);
        button->setFocusPolicy(Qt::StrongFocus);
        if (QMenu *menu = button->menu()) {
            QPalette colors = palette();
            colors.setColor(QPalette::Highlight, kHover);
            menu->setPalette(colors);
            menu->setFont(font());
        }
    }
    setIcons();
}

// The year is stepped, not typed.
void CalendarPane::setUpYearEdit()
{
    auto *year = findChild<QSpinBox *>(QStringLiteral("qt_calendar_yearedit"));
    auto *text = year ? year->findChild<QLineEdit *>(QStringLiteral("qt_spinbox_lineedit")) : nullptr;
    if (!text)
        return;
    text->setEnabled(false);
    QPalette colors = year->palette();
    colors.setColor(QPalette::Disabled, QPalette::Text, kInk); // it is no less the year
    text->setPalette(colors);
}

void CalendarPane::setIcons()
{
    if (m_prev)
        m_prev->setIcon(QIcon(Util::getResFullPath(QLatin1String(kPrevIcon))));
    if (m_next)
        m_next->setIcon(QIcon(Util::getResFullPath(QLatin1String(kNextIcon))));
}

bool CalendarPane::event(QEvent *event)
{
    const bool result = QCalendarWidget::event(event);
    if (event->type() == QEvent::LayoutDirectionChange || event->type() == QEvent::StyleChange)
        setIcons(); // the calendar has just set the style's
    return result;
}

bool CalendarPane::eventFilter(QObject *watched, QEvent *event)
{
    if (m_view && watched == m_view->viewport()) {
        if (event->type() == QEvent::MouseMove)
            hover(static_cast<QMouseEvent *>(event)->pos());
        else if (event->type() == QEvent::Leave || event->type() == QEvent::Hide)
            hover(QPoint(-1, -1));
    } else if (m_view && watched == m_view &&
               (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)) {
        m_viewHasFocus = event->type() == QEvent::FocusIn;
        m_view->viewport()->update();
    }
    return QCalendarWidget::eventFilter(watched, event);
}

void CalendarPane::hover(const QPoint &position)
{
    const QModelIndex before = m_view->indexAt(m_hovered);
    const QModelIndex now = m_view->indexAt(position);
    m_hovered = position;
    if (before == now)
        return;
    m_view->viewport()->update(m_view->visualRect(before));
    m_view->viewport()->update(m_view->visualRect(now));
}

QColor CalendarPane::textColor(const QDate &date) const
{
    if (date < minimumDate() || date > maximumDate())
        return kOutOfRange;
    if (date == selectedDate())
        return kInk;
    const QTextCharFormat own = dateTextFormat(date);
    if (own.hasProperty(QTextFormat::ForegroundBrush))
        return own.foreground().color();
    if (date.month() != monthShown())
        return kOtherMonth;
    const QTextCharFormat day = weekdayTextFormat(Qt::DayOfWeek(date.dayOfWeek()));
    return day.hasProperty(QTextFormat::ForegroundBrush) ? day.foreground().color() : kInk;
}

void CalendarPane::paintCell(QPainter *painter, const QRect &rect, const QDate &date) const
{
    const bool inRange = date >= minimumDate() && date <= maximumDate();
    const bool selected = date == selectedDate();
    Body tile;
    tile.radiusX = tile.radiusY = kRadius;
    if (selected)
        tile.fill = kSelected;
    else if (inRange && rect.contains(m_hovered))
        tile.fill = kHover;
    if (selected && m_viewHasFocus)
        tile.frame = kInk;
    else if (date == QDate::currentDate())
        tile.frame = kToday;
    const QRect place = rect.adjusted(1, 1, -1, -1);
    painter->save();
    painter->fillRect(rect, kGround);
    drawBody(*painter, place, tile);
    painter->setFont(uiFont(selected ? SemiboldWeight : NormalWeight, kDayPixelSize));
    painter->setPen(textColor(date));
    painter->drawText(place, Qt::AlignCenter | Qt::TextSingleLine, locale().toString(date.day()));
    painter->restore();
}

} // namespace lumqt
