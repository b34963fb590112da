#include "CBPDateSelector.h"

#include "CBPBox.h"
#include "CBPImageButton.h"
#include "CBPStyle.h"
#include "CBPTipWnd.h"
#include "datetime/CalendarPane.h"
#include "datetime/FrameAbove.h"
#include "datetime/SecondClick.h"
#include "foundation/Accessible.h"
#include "foundation/Look.h"
#include "foundation/Palette.h"
#include "foundation/StyleParts.h"
#include "foundation/Tones.h"
#include "Util.h"

#include <QDateEdit>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStyleOption>

namespace {

// Look and metrics, in logical pixels.
const QMargins kMargins(1, 1, 5, 1);
const QMargins kCalendarMargins(1, 1, 1, 1);
constexpr int kEditMargin = 2; // that a line edit keeps beside its text
constexpr int kButtonId = 255;
const char *const kButtonImages[] = {"../res/icon_log_calendar.png", "../res/icon_log_calendar_hover.png",
                                     "../res/icon_log_calendar_press.png",
                                     "../res/icon_log_calendar_disable.png"};

QDate firstDate()
{
    return QDate(1980, 1, 1);
}

QDate lastDate()
{
    return QDate(2099, 12, 31);
}

QAccessibleInterface *makeAccessible(QWidget *widget)
{
    return new QAccessibleWidget(widget, QAccessible::Grouping);
}

// A field without a frame of its own, whose text keeps off that around it.
class DateField : public QDateEdit
{
public:
    explicit DateField(QWidget *parent) : QDateEdit(parent)
    {
        const QString format = displayFormat().remove(QLatin1String("dddd"));
        // From right to left Qt turns the parts of a date around, and with them 2024-03-07 into 07-03-2024.
        // The numbers of a date stand as they are written in either direction.
        setLayoutDirection(Qt::LeftToRight);
        setDisplayFormat(format);
        setFrame(false);
        setButtonSymbols(QAbstractSpinBox::NoButtons);
    }

    // Where the text begins, at the selector's outer edge.
    void setSide(Qt::LayoutDirection direction)
    {
        const bool right = direction == Qt::RightToLeft;
        setAlignment(right ? Qt::AlignRight : Qt::AlignLeft);
        lineEdit()->setTextMargins(right ? 0 : inset(), 0, right ? inset() : 0, 0);
    }

    QSize sizeHint() const override { return roomy(QDateEdit::sizeHint()); }
    QSize minimumSizeHint() const override { return roomy(QDateEdit::minimumSizeHint()); }

private:
    static int inset() { return lumqt::kFieldInset - kMargins.left() - kEditMargin; }
    static QSize roomy(const QSize &size)
    {
        const int least = lumqt::kFieldHeight - kMargins.top() - kMargins.bottom();
        return {size.width() + inset(), qMax(size.height(), least)};
    }
};

} // namespace

CBPDateSelector::CBPDateSelector(QWidget *parent) : QWidget(parent)
{
    lumqt::installAccessible("CBPDateSelector", makeAccessible);
    Layout(parent);
}

CBPDateSelector::~CBPDateSelector()
{
    if (!m_pTipWnd)
        return;
    if (m_iPicks == 0) {
        delete m_pTipWnd;
        return;
    }
    // Deleted by somebody who heard of a pick: the calendar is not done with telling.
    m_pTipWnd->hide();
    m_pTipWnd->setParent(nullptr);
    m_pTipWnd->deleteLater();
}

void CBPDateSelector::Layout(QWidget *parent)
{
    m_pBox = new CBPBox(false, false, 0);
    m_pBox->SetDrawFrame(true);
    auto *layout = new QHBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_pBox);
    setLayout(layout);

    m_pDateEdit = new DateField(parent);
    m_pDateEdit->setDateRange(firstDate(), lastDate());
    m_pDateEdit->setAccessibleName(tr("Date"));
    m_pDateEdit->findChild<QLineEdit *>()->setAccessibleName(tr("Date"));
    CBPStyle::Apply(m_pDateEdit);
    lumqt::wearTheme(m_pDateEdit, lumqt::fieldTones());
    m_pDateEdit->installEventFilter(this);
    m_dateTold = m_pDateEdit->date();
    connect(m_pDateEdit, SIGNAL(editingFinished()), this, SLOT(onDateEditFinish()));
    connect(m_pDateEdit.data(), &QDateTimeEdit::dateChanged, this, &CBPDateSelector::tellDate);
    m_pBox->PackStart(m_pDateEdit, false, false, 0);

    QVector<QString> images;
    for (const char *image : kButtonImages)
        images.append(Util::getResFullPath(QLatin1String(image)));
    m_pCalendarBtn = new CBPImageButton(images, false, kButtonId);
    m_pCalendarBtn->setAccessibleName(tr("Open the calendar"));
    m_pCalendarBtn->installEventFilter(this);
    m_pBox->PackStart(m_pCalendarBtn, false, false, 0);
    connect(m_pCalendarBtn, SIGNAL(btn_released(int)), this, SLOT(OnCalendarBtn(int)));
    setFocusProxy(m_pDateEdit);
    m_pFrame = new lumqt::FrameAbove(this);
    chooseSides();
    updateLook();
    lumqt::onThemeChange(this, [this] { updateLook(); });
}

void CBPDateSelector::SetDate(QDate &date)
{
    if (m_pDateEdit)
        m_pDateEdit->setDate(date);
}

QDate CBPDateSelector::GetDate() const
{
    return m_pDateEdit ? m_pDateEdit->date() : QDate();
}

QDate CBPDateSelector::minimumDate() const
{
    return firstDate();
}

QDate CBPDateSelector::maximumDate() const
{
    return lastDate();
}

// Return in the field tells of its date, too, where nothing has changed.
void CBPDateSelector::tellDate()
{
    const QDate date = GetDate();
    if (m_iUntold > 0 || !date.isValid() || date == m_dateTold)
        return;
    m_dateTold = date;
    emit dateChanged(date);
}

// ------------------------------------------------------------------------------------------------------------
// calendar

void CBPDateSelector::OnCalendarBtn(int)
{
    if (!m_pCalendarBtn)
        return;
    if (!m_pTipWnd) {
        m_pTipWnd = new CBPTipWnd(ENOrientationNone, m_pCalendarBtn);
        m_pTipWnd->m_onScreen = true;
        m_pTipWnd->SetRoundRadius(0, 0);
        m_pTipWnd->ShowClickBindWidget(false);
        m_pTipWnd->setAccessibleName(tr("Calendar"));
        m_pTipWnd->installEventFilter(this);
    }
    m_pTipWnd->setLayoutDirection(layoutDirection()); // which a window does not get from its parent
    CreateCalendar();
    if (m_pDateEdit && m_pCalendar) {
        static_cast<lumqt::CalendarPane *>(m_pCalendar.data())->setScale(m_pDateEdit->font());
        m_pCalendar->setSelectedDate(m_pDateEdit->date());
        m_pCalendar->showSelectedDate(); // also where another month was left open
    }
    // A window that is not shown yet cannot be activated.
    m_pTipWnd->show();
    m_pTipWnd->activateWindow();
    if (m_pCalendar)
        m_pCalendar->setFocus();
}

void CBPDateSelector::CreateCalendar()
{
    if (m_pCalendar || !m_pTipWnd)
        return;
    const lumqt::CalendarPane::Names names{tr("Calendar"), tr("Previous month"), tr("Next month"),
                                           tr("Year")};
    m_pCalendar = new lumqt::CalendarPane(names);
    m_pCalendar->setAccessibleName(tr("Calendar"));
    m_pCalendar->setDateRange(firstDate(), lastDate());
    connect(m_pCalendar, SIGNAL(activated(const QDate &)), this, SLOT(onCalendarActived(const QDate &)));
    connect(m_pCalendar, SIGNAL(clicked(const QDate &)), this, SLOT(onCalendarClicked(const QDate &)));

    // The window comes with a layout and a box of its own, and a widget takes no second layout.
    delete m_pTipWnd->layout();
    qDeleteAll(m_pTipWnd->findChildren<CBPBox *>(QString(), Qt::FindDirectChildrenOnly));
    auto *layout = new QHBoxLayout;
    layout->setContentsMargins(kCalendarMargins);
    layout->addWidget(m_pCalendar);
    m_pTipWnd->setLayout(layout);
    (new lumqt::FrameAbove(m_pTipWnd))->setColor(lumqt::Purpose::CalendarFrame);
}

void CBPDateSelector::onCalendarActived(const QDate &date)
{
    UpdateDate(date);
}

// The calendar is gone after it, and cannot tell of a double click any more.
void CBPDateSelector::onCalendarClicked(const QDate &date)
{
    const QPointer<CBPDateSelector> alive(this);
    new lumqt::SecondClick([alive, date] {
        if (alive && alive->m_iPicks == 0)
            alive->onCalendarActived(date);
    });
    UpdateDate(date);
}

void CBPDateSelector::UpdateDate(const QDate &date)
{
    if (!m_pTipWnd || !m_pDateEdit)
        return;
    const QPointer<CBPDateSelector> alive(this);
    ++m_iPicks;
    ++m_iUntold;
    m_pDateEdit->setDate(date);
    if (alive && m_pTipWnd && m_pTipWnd->isVisible()) {
        giveFocusBack();
        if (alive && m_pTipWnd)
            m_pTipWnd->hide();
    }
    if (alive)
        onDateEditFinish();
    if (alive) {
        --m_iUntold;
        tellDate();
    }
    if (alive)
        --m_iPicks;
}

void CBPDateSelector::onDateEditFinish()
{
    emit sigDateEditFinish();
}

// ------------------------------------------------------------------------------------------------------------
// events

bool CBPDateSelector::eventFilter(QObject *watched, QEvent *event)
{
    // By what they are now: they go on reporting while they are destroyed, when they are no more than
    // widgets.
    if (qobject_cast<CBPTipWnd *>(watched)) {
        if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape)
            giveFocusBack(); // then it hides
        return false;
    }
    if (event->type() == QEvent::PaletteChange && qobject_cast<QDateEdit *>(watched))
        updateLook();
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        if (m_pFrame && qobject_cast<QDateEdit *>(watched))
            m_pFrame->setFocusRing(event->type() == QEvent::FocusIn);
        return false;
    }
    return opensCalendar(event);
}

bool CBPDateSelector::opensCalendar(QEvent *event)
{
    if (!isEnabled() || (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride))
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() != Qt::Key_Down || (key->modifiers() & ~Qt::KeypadModifier) != Qt::AltModifier)
        return false;
    event->accept();
    if (event->type() == QEvent::KeyPress)
        OnCalendarBtn(kButtonId);
    return true;
}

// Our window remembers which of its widgets had the focus. It is activated while the calendar still shows:
// a window system that loses its active window may think of another one first. Somebody who clicks elsewhere
// has said where the focus goes.
void CBPDateSelector::giveFocusBack()
{
    if (isVisible())
        window()->activateWindow();
}

bool CBPDateSelector::event(QEvent *event)
{
    const bool result = QWidget::event(event);
    if (event->type() == QEvent::Enter || event->type() == QEvent::Leave)
        updateLook();
    return result;
}

void CBPDateSelector::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LayoutDirectionChange)
        chooseSides();
    if (event->type() == QEvent::EnabledChange)
        updateLook();
    QWidget::changeEvent(event);
}

// Once for a direction: what an application sets after that stays.
void CBPDateSelector::chooseSides()
{
    if (!m_pBox || !m_pDateEdit)
        return;
    const QMargins mirrored(kMargins.right(), kMargins.top(), kMargins.left(), kMargins.bottom());
    m_pBox->setContentsMargins(isRightToLeft() ? mirrored : kMargins);
    static_cast<DateField *>(m_pDateEdit.data())->setSide(layoutDirection());
}

// The ground of box and field are one.
void CBPDateSelector::updateLook()
{
    if (!m_pBox || !m_pDateEdit || !m_pFrame)
        return;
    using lumqt::Purpose;
    QStyleOption option;
    option.initFrom(m_pDateEdit);
    m_pBox->SetBgClr(lumqt::StyleColors(option).ground);
    const Purpose still = isEnabled() ? Purpose::DateFrame : Purpose::DateFrameDisabled;
    m_pBox->SetFrameClr(lumqt::themeColor(still));
    m_pFrame->setColor(isEnabled() && underMouse() ? Purpose::FrameHovered : still);
}
