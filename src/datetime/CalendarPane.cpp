#include "datetime/CalendarPane.h"

#include "foundation/AppStyle.h"
#include "foundation/FontLookup.h"
#include "foundation/IconPixmap.h"
#include "foundation/ImageLoader.h"
#include "foundation/Look.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "Util.h"

#include <QKeyEvent>
#include <QLayout>
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

// Look and metrics, in logical pixels; those of texts and what holds them at the usual size of a text.
constexpr int kDayNamePixelSize = 12;
constexpr int kDayPixelSize = 13;
constexpr int kTitlePixelSize = 14;
constexpr int kRadius = 3;
constexpr int kAir = 1;                            // around a day's tile
constexpr int kTileInset = kAir + kFocusRingReach; // with the focus ring
constexpr qreal kLeastScale = 1.2;                 // sizes beside the usual one change nothing
constexpr qreal kMostScale = 4;
constexpr QSize kCell(36, 30);
constexpr int kRows = 7; // with the names of the days
constexpr int kBarHeight = 40;
constexpr int kBarMargin = 4; // puts the arrows above the middles of the outer days
constexpr int kButtonSize = 28;
constexpr int kIconSize = 16;     // of the arrows
constexpr int kButtonPadding = 8; // beside a text
constexpr int kYearInset = 4;
constexpr int kTriangleWidth = 8;
constexpr int kTriangleHeight = 4;
constexpr int kTriangleGap = 6;
const char kPrevIcon[] = "../res/calendar_prev.png";
const char kNextIcon[] = "../res/calendar_next.png";

constexpr QPalette::ColorRole kGrounds[] = {QPalette::Window, QPalette::Base, QPalette::AlternateBase,
                                            QPalette::Button};
constexpr QPalette::ColorRole kTexts[] = {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                                          QPalette::HighlightedText};

} // namespace

// What lies in the bar. Buttons: no frame, a tile under the mouse, and a ring where the focus is, which the
// calendar hides for its arrows. The year while it is stepped, and the frame of the menu of months.
class CalendarPane::BarStyle : public QProxyStyle
{
public:
    BarStyle() : QProxyStyle(applicationStyleKey()) {}

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override
    {
        const auto *button = qstyleoption_cast<const QStyleOptionToolButton *>(option);
        if (control == CC_ToolButton && button && widget)
            drawButton(*button, *painter, *widget);
        else if (control == CC_SpinBox)
            drawSpinBox(*option, *painter, widget);
        else
            QProxyStyle::drawComplexControl(control, option, painter, widget);
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        if (element != PE_FrameMenu && element != PE_PanelMenu) {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
            return;
        }
        Body panel;
        panel.fill = themeColor(Purpose::CalendarGround);
        panel.frame = themeColor(Purpose::CalendarFrame);
        if (element == PE_FrameMenu)
            panel.fill = QColor();
        drawBody(*painter, option->rect, panel);
    }

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                         const QWidget *widget) const override
    {
        if (control != CC_SpinBox || part == SC_SpinBoxFrame)
            return QProxyStyle::subControlRect(control, option, part, widget);
        // All of it lies within the ring.
        const QRect inner =
            option->rect.adjusted(kFocusRingWidth, kFocusRingWidth, -kFocusRingWidth, -kFocusRingWidth);
        QRect place = inner.adjusted(0, 0, -stepsWidth(*option), 0);
        if (part != SC_SpinBoxEditField) {
            place.setRect(place.right() + 1, inner.top(), stepsWidth(*option), inner.height() / 2);
            if (part == SC_SpinBoxDown)
                place.moveBottom(inner.bottom());
        }
        return visualRect(option->direction, option->rect, place);
    }

    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget) const override
    {
        const auto *button = qstyleoption_cast<const QStyleOptionToolButton *>(option);
        if (type == CT_SpinBox)
            return size +
                   QSize(2 * (kYearInset + kFocusRingWidth) + stepsWidth(*option), 2 * kFocusRingWidth);
        if (type != CT_ToolButton || !button)
            return QProxyStyle::sizeFromContents(type, option, size, widget);
        if (button->text.isEmpty() && widget)
            return QSize(widget->maximumHeight(), widget->maximumHeight()); // a square
        const int triangle = hasMenu(*button) ? kTriangleGap + triangleSize(*button).width() : 0;
        const int text = button->fontMetrics.horizontalAdvance(button->text);
        return QSize(text + triangle + 2 * kButtonPadding, kButtonSize);
    }

private:
    // Of a text of the usual height its own size, and as much larger as another text is.
    static QSize triangleSize(const QStyleOption &option)
    {
        const qreal usual = QFontMetricsF(uiFont(SemiboldWeight, kTitlePixelSize)).height();
        const qreal scale = qMax(1.0, option.fontMetrics.height() / usual);
        return {qRound(kTriangleWidth * scale), qRound(kTriangleHeight * scale)};
    }

    static int stepsWidth(const QStyleOption &option) { return triangleSize(option).width() + kTriangleGap; }

    static bool hasMenu(const QStyleOptionToolButton &button)
    {
        return button.features & QStyleOptionToolButton::HasMenu;
    }

    static void drawButton(const QStyleOptionToolButton &button, QPainter &painter, const QWidget &widget)
    {
        Body tile;
        tile.radiusX = tile.radiusY = kRadius;
        if (button.state & (State_Sunken | State_On))
            tile.fill = themeColor(Purpose::CalendarBarPressed);
        else if (button.state & State_MouseOver)
            tile.fill = themeColor(Purpose::CalendarBarHovered);
        if (tile.fill.isValid())
            drawBody(painter, button.rect, tile);
        drawContent(button, painter, widget);
        if (widget.hasFocus())
            drawFocusRing(painter, button.rect);
    }

    void drawSpinBox(const QStyleOptionComplex &option, QPainter &painter, const QWidget *widget) const
    {
        Body body;
        body.fill = themeColor(Purpose::CalendarGround);
        body.radiusX = body.radiusY = kRadius;
        drawBody(painter, option.rect, body);
        drawFocusRing(painter, option.rect); // it has the focus as long as it is there
        const QSize size = triangleSize(option);
        for (const SubControl arrow : {SC_SpinBoxUp, SC_SpinBoxDown}) {
            const QRectF place = proxy()->subControlRect(CC_SpinBox, &option, arrow, widget);
            painter.save();
            painter.translate(place.center());
            if (arrow == SC_SpinBoxUp)
                painter.rotate(180);
            drawDropTriangle(painter, QPointF(-size.width(), -size.height()) / 2, size.width(), size.height(),
                             themeColor(Purpose::CalendarText));
            painter.restore();
        }
    }

    static void drawContent(const QStyleOptionToolButton &button, QPainter &painter, const QWidget &widget)
    {
        if (button.text.isEmpty()) {
            QPixmap picture = iconPixmap(button.icon, button.iconSize, QIcon::Normal, &widget);
            if (button.direction == Qt::RightToLeft) // where the previous month lies to the right
                picture = picture.transformed(QTransform::fromScale(-1, 1));
            QRect place(QPoint(0, 0), button.iconSize);
            place.moveCenter(button.rect.center());
            painter.setRenderHint(QPainter::SmoothPixmapTransform);
            painter.drawPixmap(place, picture);
            return;
        }
        QRect text = button.rect.adjusted(kButtonPadding, 0, -kButtonPadding, 0);
        if (hasMenu(button)) {
            const QSize size = triangleSize(button);
            QRect triangle(text.right() + 1 - size.width(), text.top(), size.width(), text.height());
            triangle = QStyle::visualRect(button.direction, button.rect, triangle);
            drawDropTriangle(painter,
                             QPointF(triangle.left(), text.top() + (text.height() - size.height()) / 2.0),
                             size.width(), size.height(), themeColor(Purpose::CalendarText));
            text.setRight(text.right() - size.width() - kTriangleGap);
            text = QStyle::visualRect(button.direction, button.rect, text);
        }
        painter.setFont(widget.font());
        painter.setPen(themeColor(Purpose::CalendarText));
        painter.drawText(text, Qt::AlignCenter | Qt::TextSingleLine, button.text);
    }
};

CalendarPane::CalendarPane(const Names &names)
{
    setGridVisible(false);
    setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    setHorizontalHeaderFormat(QCalendarWidget::ShortDayNames);
    dress(this, Purpose::CalendarBar); // what Qt fills the bar with
    setTextColors();
    setUpView(names.days);
    setUpBar(names);
    setUpYearEdit(names.year);
    updateSizes();
    onThemeChange(this, [this] {
        setTextColors();
        setIcons();
    });
}

void CalendarPane::setScale(const QFont &text)
{
    const qreal scale = QFontInfo(text).pixelSize() / qreal(kDayPixelSize);
    const qreal wanted = scale < kLeastScale ? 1 : qMin(scale, kMostScale);
    if (qFuzzyCompare(wanted, m_scale))
        return;
    m_scale = wanted;
    updateSizes();
}

int CalendarPane::scaled(int pixels) const
{
    return qRound(pixels * m_scale);
}

void CalendarPane::updateSizes()
{
    setFont(uiFont(NormalWeight, scaled(kDayPixelSize)));
    QTextCharFormat names = headerTextFormat();
    names.setFont(uiFont(NormalWeight, scaled(kDayNamePixelSize)));
    setHeaderTextFormat(names);
    setMinimumSize(scaled(kCell.width()) * 7, scaled(kBarHeight) + scaled(kCell.height()) * kRows);
    if (m_bar)
        m_bar->setFixedHeight(scaled(kBarHeight));
    const QFont title = uiFont(SemiboldWeight, scaled(kTitlePixelSize));
    for (QToolButton *button : qAsConst(m_barButtons)) {
        button->setFixedHeight(scaled(kButtonSize));
        button->setIconSize(QSize(scaled(kIconSize), scaled(kIconSize)));
        button->setFont(title);
        if (button->menu())
            button->menu()->setFont(font());
    }
    if (m_year)
        m_year->setFont(title);
}

// In each theme, the light one too: the calendar's colours are not those of other windows. Each part has them
// itself: under a style sheet Qt hands on no palette.
void CalendarPane::dress(QWidget *part, Purpose highlight)
{
    QVector<PaletteTone> tones{{QPalette::Highlight, highlight}};
    for (const QPalette::ColorRole ground : kGrounds)
        tones.append({ground, Purpose::CalendarGround});
    for (const QPalette::ColorRole text : kTexts)
        tones.append({text, Purpose::CalendarText});
    keepTheme(part, tones);
}

// Of the names of the days and of the weekend; an application's formats stay.
void CalendarPane::setTextColors()
{
    const auto isOwn = [](const QTextCharFormat &format, const QBrush &worn) {
        return !format.hasProperty(QTextFormat::ForegroundBrush) || format.foreground() == worn;
    };
    const QBrush quiet = ownBrush(themeColor(Purpose::CalendarQuietText));
    const QBrush weekends = ownBrush(themeColor(Purpose::CalendarWeekend));
    QTextCharFormat names = headerTextFormat();
    if (isOwn(names, m_namesBrush)) {
        names.setForeground(quiet);
        setHeaderTextFormat(names);
    }
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) {
        QTextCharFormat weekend = weekdayTextFormat(day);
        if (!isOwn(weekend, m_weekendBrush) && m_weekendBrush != QBrush())
            continue;
        weekend.setForeground(weekends);
        setWeekdayTextFormat(day, weekend);
    }
    m_namesBrush = quiet;
    m_weekendBrush = weekends;
}

void CalendarPane::setUpView(const QString &name)
{
    m_view = findChild<QTableView *>(QStringLiteral("qt_calendar_calendarview"));
    if (!m_view)
        return;
    m_view->setAccessibleName(name);
    wearTheme(m_view, {{QPalette::Window, Purpose::CalendarGround}, // also under a style sheet
                       {QPalette::Base, Purpose::CalendarGround},
                       {QPalette::AlternateBase, Purpose::CalendarGround},
                       {QPalette::Text, Purpose::CalendarText}});
    m_view->viewport()->setMouseTracking(true);
    m_view->viewport()->installEventFilter(this);
    m_view->installEventFilter(this);
}

void CalendarPane::setUpBar(const Names &names)
{
    m_prev = findChild<QToolButton *>(QStringLiteral("qt_calendar_prevmonth"));
    m_next = findChild<QToolButton *>(QStringLiteral("qt_calendar_nextmonth"));
    if (m_prev)
        m_prev->setAccessibleName(names.previous);
    if (m_next)
        m_next->setAccessibleName(names.next);
    m_bar = findChild<QWidget *>(QStringLiteral("qt_calendar_navigationbar"));
    if (!m_bar)
        return;
    if (m_bar->layout())
        m_bar->layout()->setContentsMargins(kBarMargin, 0, kBarMargin, 0);
    m_barStyle = new BarStyle;
    m_barStyle->setParent(this); // widgets do not own their style
    m_barButtons = m_bar->findChildren<QToolButton *>();
    dress(m_bar, Purpose::CalendarBar);
    for (QToolButton *button : qAsConst(m_barButtons)) {
        dress(button, Purpose::CalendarBar);
        button->setStyle(m_barStyle);
        button->setAttribute(Qt::WA_Hover);
        button->setFocusPolicy(Qt::StrongFocus);
        if (QMenu *menu = button->menu()) {
            dress(menu, Purpose::CalendarHovered);
            menu->setStyle(m_barStyle);
            connect(menu, &QMenu::aboutToHide, button, [button] { forgetPointer(button); });
        }
    }
    setIcons();
}

// The pointer leaves a button whose menu is open without a word, and it would look hovered until it is again.
void CalendarPane::forgetPointer(QWidget *button)
{
    if (button->rect().contains(button->mapFromGlobal(QCursor::pos())))
        return;
    button->setAttribute(Qt::WA_UnderMouse, false);
    button->update();
}

// The year is stepped, not typed.
void CalendarPane::setUpYearEdit(const QString &name)
{
    auto *year = findChild<QSpinBox *>(QStringLiteral("qt_calendar_yearedit"));
    auto *text = year ? year->findChild<QLineEdit *>(QStringLiteral("qt_spinbox_lineedit")) : nullptr;
    if (!text)
        return;
    year->setAccessibleName(name);
    text->setAccessibleName(name);
    text->setEnabled(false);
    text->setReadOnly(true); // a cursor would say otherwise
    text->setTextMargins(kYearInset, 0, 0, 0);
    dress(text, Purpose::CalendarBar); // also disabled: it is no less the year
    if (m_barStyle)
        year->setStyle(m_barStyle);
    year->installEventFilter(this);
    m_year = year;
}

void CalendarPane::setIcons()
{
    if (m_prev)
        m_prev->setIcon(QIcon(themePicture(Util::getResFullPath(QLatin1String(kPrevIcon)))));
    if (m_next)
        m_next->setIcon(QIcon(themePicture(Util::getResFullPath(QLatin1String(kNextIcon)))));
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
    } else if (m_view && watched == m_year && event->type() == QEvent::Hide && m_year->hasFocus()) {
        m_view->setFocus(); // it would go to the first button of the bar
    } else if (watched == m_year && event->type() == QEvent::KeyPress &&
               static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        // Its text is disabled and swallows the key, with which the calendar gives the stepping up.
        keyPressEvent(static_cast<QKeyEvent *>(event));
        return true;
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
        return themeColor(Purpose::CalendarOutOfRange);
    if (date == selectedDate())
        return themeColor(Purpose::CalendarChosenText);
    const QTextCharFormat own = dateTextFormat(date);
    if (own.hasProperty(QTextFormat::ForegroundBrush))
        return own.foreground().color();
    if (date.month() != monthShown())
        return themeColor(Purpose::CalendarQuietText);
    const QTextCharFormat day = weekdayTextFormat(Qt::DayOfWeek(date.dayOfWeek()));
    return day.hasProperty(QTextFormat::ForegroundBrush) ? day.foreground().color()
                                                         : themeColor(Purpose::CalendarText);
}

void CalendarPane::paintCell(QPainter *painter, const QRect &rect, CellDate date) const
{
    const bool inRange = date >= minimumDate() && date <= maximumDate();
    const bool selected = date == selectedDate();
    Body tile;
    tile.radiusX = tile.radiusY = kRadius;
    if (selected)
        tile.fill = themeColor(Purpose::CalendarChosen);
    else if (inRange && rect.contains(m_hovered))
        tile.fill = themeColor(Purpose::CalendarHovered);
    if (date == QDate::currentDate())
        tile.frame = themeColor(Purpose::CalendarToday);
    const QRect place = rect.adjusted(kAir, kAir, -kAir, -kAir);
    painter->save();
    painter->fillRect(wholeDevicePixels(*painter, QRectF(rect)), themeColor(Purpose::CalendarGround));
    const bool ringed = selected && m_viewHasFocus;
    const QRect content = ringed ? rect.adjusted(kTileInset, kTileInset, -kTileInset, -kTileInset) : place;
    drawBody(*painter, content, tile);
    if (ringed)
        drawFocusRing(*painter, focusRingAround(*painter, content));
    painter->setFont(uiFont(selected ? SemiboldWeight : NormalWeight, scaled(kDayPixelSize)));
    painter->setPen(textColor(date));
    painter->drawText(place, Qt::AlignCenter | Qt::TextSingleLine, locale().toString(date.day()));
    painter->restore();
}

} // namespace lumqt
