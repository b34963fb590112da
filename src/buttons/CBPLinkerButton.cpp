#include "CBPLinkerButton.h"

#include "foundation/Accessible.h"
#include "foundation/FocusMark.h"
#include "foundation/FocusRing.h"
#include "foundation/FontLookup.h"
#include "foundation/ListText.h"
#include "foundation/Log.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "foundation/PressKeys.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

namespace {

constexpr int kColorCount = 4;
const QSize kFocusRoom(0, 4); // above and below the text, so that rows of links keep their rings apart
const char kFontSheet[] = "QLabel{font-family:\"%1\"; font-size:14px;}";
const char kFontSizeSheet[] = "QLabel{font-size:%1px;}";

enum State { Normal = 0, Hover = 1, Pressed = 2, Disabled = 3 };

// What screen readers see: a link, where a label would be a piece of text.
class AccessibleLink : public lumqt::AccessiblePressable
{
public:
    explicit AccessibleLink(CBPLinkerButton *link) : AccessiblePressable(link, QAccessible::Link) {}

    QAccessible::State state() const override
    {
        QAccessible::State result = QAccessibleWidget::state();
        result.linked = true;
        result.selected = link() && link()->IsSelected();
        return result;
    }

protected:
    QString ownName() const override { return link() ? link()->text() : QString(); }
    void press() override { emit link()->sigLinkerClick(link()->bindData()); }

private:
    CBPLinkerButton *link() const { return qobject_cast<CBPLinkerButton *>(object()); }
};

QAccessibleInterface *makeAccessible(QWidget *widget)
{
    auto *link = qobject_cast<CBPLinkerButton *>(widget);
    return link ? new AccessibleLink(link) : nullptr;
}

} // namespace

CBPLinkerButton::CBPLinkerButton(const QString &text, ENLinkerType type, int bindId, QWidget *parent)
    : QLabel(parent),
      m_type(type),
      m_font(lumqt::uiFont()),
      m_bindId(bindId),
      m_layout(std::make_unique<lumqt::CachedText>())
{
    lumqt::installAccessible(staticMetaObject.className(), makeAccessible);
    setTextFormat(Qt::PlainText); // the text is painted as it is, and is to be measured so
    setText(text); // not by the base's constructor: Qt would take the label for a plain one from then on
    setStyleSheet(QString::fromLatin1(kFontSheet).arg(m_font.family()));
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::TabFocus); // a click leaves the focus where the user works
}

CBPLinkerButton::CBPLinkerButton(QWidget *parent) : CBPLinkerButton(QString(), ENLinkerTypeHover, 0, parent)
{
}

CBPLinkerButton::~CBPLinkerButton() = default;

void CBPLinkerButton::SetFontPixel(int px)
{
    if (px < 1) {
        qCWarning(lcLumQt, "CBPLinkerButton: %d is no font size", px);
        return;
    }
    m_font.setPixelSize(px);
    m_elidedWidth = -1;
    wearSheet(QString::fromLatin1(kFontSizeSheet).arg(px));
    updateGeometry();
    update();
}

void CBPLinkerButton::resetFontPixelSize()
{
    m_font.setPixelSize(lumqt::kTextPixelSize);
    m_elidedWidth = -1;
    wearSheet(QString::fromLatin1(kFontSheet).arg(m_font.family()));
    updateGeometry();
    update();
}

// Not once more: a style sheet around that sets the size does so again with each sheet that the link gets.
void CBPLinkerButton::wearSheet(const QString &sheet)
{
    if (styleSheet() != sheet)
        setStyleSheet(sheet);
}

void CBPLinkerButton::SetTextColor(QColor &c)
{
    m_textColors.fill(c, kColorCount);
    update();
}

void CBPLinkerButton::SetTextColor(const QVector<QColor> &colors)
{
    m_textColors = colors;
    update();
}

void CBPLinkerButton::setTextColors(const QStringList &names)
{
    SetTextColor(lumqt::colorsOf(names));
}

QStringList CBPLinkerButton::textColors() const
{
    return lumqt::colorNames(m_textColors.isEmpty() ? lumqt::builtInColors(lumqt::Purpose::Link)
                                                    : m_textColors);
}

void CBPLinkerButton::resetTextColors()
{
    SetTextColor(QVector<QColor>());
}

void CBPLinkerButton::SetSelected(bool selected)
{
    if (m_selected == selected)
        return;
    m_selected = selected;
    update();
    emit selectionChanged(selected); // the link may be gone after
}

bool CBPLinkerButton::IsSelected() const
{
    return m_selected;
}

void CBPLinkerButton::SetLinkerType(ENLinkerType type)
{
    m_type = type;
    m_hoverUnderline = type == ENLinkerTypeHover && isEnabled() && underMouse();
    update();
}

int CBPLinkerButton::bindData() const
{
    return m_bindId;
}

QSize CBPLinkerButton::sizeHint() const
{
    const QSize label = QLabel::sizeHint();
    if (text().isEmpty())
        return label; // perhaps of a picture
    // The label measures in the style sheet's font, which after SetFontPixel() is not the one painted with. A
    // least size that an application set holds the room for the ring, too.
    const QSize line = m_layout->lineSize(text(), m_font);
    const auto roomy = [](int asked, int needed, int room, int least) {
        return asked <= least ? qMax(least, needed + room) : qMax(asked, needed) + room;
    };
    return QSize(roomy(label.width(), line.width(), kFocusRoom.width(), minimumWidth()),
                 roomy(label.height(), line.height(), kFocusRoom.height(), minimumHeight()));
}

// ------------------------------------------------------------------------------------------------------------
// events

void CBPLinkerButton::setLook(int mouseState)
{
    m_mouseState = mouseState;
    update();
}

void CBPLinkerButton::followMouse(bool over)
{
    if (m_type == ENLinkerTypeHover)
        m_hoverUnderline = over;
    setLook(over ? Hover : Normal);
}

void CBPLinkerButton::enterEvent(lumqt::EnterEvent *event)
{
    if (isEnabled())
        followMouse(true);
    QLabel::enterEvent(event);
}

void CBPLinkerButton::leaveEvent(QEvent *event)
{
    if (isEnabled())
        followMouse(false);
    QLabel::leaveEvent(event);
}

void CBPLinkerButton::focusInEvent(QFocusEvent *event)
{
    if (isEnabled()) {
        lumqt::focusMoved(m_press);
        lumqt::focusGained(m_focusMark, event->reason());
        lumqt::setRingAround(this, m_focusMark == lumqt::FocusMark::Shown);
        setLook(Hover);
    }
    QLabel::focusInEvent(event);
}

void CBPLinkerButton::focusOutEvent(QFocusEvent *event)
{
    lumqt::focusMoved(m_press);
    lumqt::focusLost(m_focusMark, event->reason());
    lumqt::setRingAround(this, false);
    if (isEnabled())
        setLook(Normal);
    QLabel::focusOutEvent(event);
}

void CBPLinkerButton::mousePressEvent(QMouseEvent *event)
{
    if (isEnabled() && event->button() == Qt::LeftButton) {
        m_press = lumqt::Press::Mouse;
        setLook(Pressed);
    }
    QLabel::mousePressEvent(event);
}

void CBPLinkerButton::mouseReleaseEvent(QMouseEvent *event)
{
    if (isEnabled() && event->button() == Qt::LeftButton) {
        const QPointer<CBPLinkerButton> alive(this);
        if (lumqt::mouseReleased(m_press))
            emit sigLinkerClick(m_bindId);
        if (!alive)
            return;
        setLook(Normal);
    }
    QLabel::mouseReleaseEvent(event);
}

void CBPLinkerButton::rest()
{
    setLook(isEnabled() && hasFocus() ? Hover : Normal);
}

// A key counts as a press and a release of the mouse; the look of the focus stays.
void CBPLinkerButton::clickByKey()
{
    const QPointer<CBPLinkerButton> alive(this);
    emit sigLinkerClick(m_bindId);
    if (alive)
        rest();
}

void CBPLinkerButton::keyPressEvent(QKeyEvent *event)
{
    const lumqt::PressStep step = isEnabled() ? lumqt::keyPressed(event, m_press) : lumqt::PressStep::NotMine;
    if (step == lumqt::PressStep::NotMine) {
        QLabel::keyPressEvent(event);
        return;
    }
    lumqt::keyUsed(m_focusMark);
    lumqt::setRingAround(this, m_focusMark == lumqt::FocusMark::Shown);
    if (step == lumqt::PressStep::Down)
        setLook(Pressed);
    else if (step == lumqt::PressStep::TakenBack)
        rest();
    else if (step == lumqt::PressStep::Click)
        clickByKey();
}

void CBPLinkerButton::keyReleaseEvent(QKeyEvent *event)
{
    const lumqt::PressStep step = lumqt::keyReleased(event, m_press);
    if (step == lumqt::PressStep::NotMine)
        QLabel::keyReleaseEvent(event);
    else if (step == lumqt::PressStep::Click && isEnabled())
        clickByKey();
}

void CBPLinkerButton::changeEvent(QEvent *event)
{
    // The mouse and the focus may have come or gone while the link took no notice.
    if (event->type() == QEvent::EnabledChange) {
        m_press = lumqt::Press::None;
        followMouse(isEnabled() && underMouse());
        if (isEnabled() && hasFocus())
            setLook(Hover);
    }
    QLabel::changeEvent(event);
}

// ------------------------------------------------------------------------------------------------------------
// painting

QString CBPLinkerButton::shownText()
{
    const QString whole = text();
    const int room = contentsRect().width();
    if (m_elidedWidth != room || m_elidedOf != whole) {
        m_elidedWidth = room;
        m_elidedOf = whole;
        // Several lines would be measured as one.
        const bool oneLine = !whole.contains(QLatin1Char('\n'));
        m_elided = oneLine ? QFontMetrics(m_font).elidedText(whole, Qt::ElideRight, room) : whole;
    }
    return m_elided;
}

void CBPLinkerButton::paintEvent(QPaintEvent *event)
{
    if (text().isEmpty())
        QLabel::paintEvent(event); // perhaps a picture
    const int index = !isEnabled() ? int(Disabled) : m_selected ? int(Pressed) : m_mouseState;
    bool underlined = m_font.underline();
    if (m_type == ENLinkerTypeHover)
        underlined = m_hoverUnderline;
    else if (m_type == ENLinkerTypeAlways || m_type == ENLinkerTypeNever)
        underlined = m_type == ENLinkerTypeAlways;
    underlined = underlined && isEnabled();
    if (m_font.underline() != underlined)
        m_font.setUnderline(underlined);

    const QString shown = shownText();
    const QString tip = shown == text() ? QString() : text();
    if (toolTip() != tip)
        setToolTip(tip);

    QPainter painter(this);
    const QColor own = m_textColors.value(index);
    painter.setPen(own.isValid() ? own : lumqt::themeColor(lumqt::Purpose::Link, index));
    // A style sheet's padding and border are kept free. The line begins where lines of the layout begin.
    QRect place = contentsRect();
    if (isRightToLeft())
        place.setLeft(qMax(place.left(), place.right() + 1 - m_layout->lineSize(shown, m_font).width()));
    m_layout->drawLeft(painter, place, shown, m_font);
}
