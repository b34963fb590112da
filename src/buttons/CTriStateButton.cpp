#include "CTriStateButton.h"

#include "buttons/ButtonTones.h"
#include "foundation/Accessible.h"
#include "foundation/ElidedText.h"
#include "foundation/FocusMark.h"
#include "foundation/ListText.h"
#include "foundation/Painting.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace {

using lumqt::Purpose;

constexpr int kElidedInset = 4; // of a text that ends in an ellipsis, at each side

enum Look { Plain = 0, Hovered = 1, Checked = 2 };

constexpr unsigned char kAllLooks = 7; // a bit for each

constexpr Purpose kTexts[] = {Purpose::ToggleText, Purpose::ToggleHovered, Purpose::ToggleChecked};
constexpr Purpose kFrames[] = {Purpose::ToggleFrame, Purpose::ToggleHovered, Purpose::ToggleChecked};

// Three on purpose, one per look; there is no colour for "disabled" to set.
const QVector<QColor> &builtInTexts()
{
    static const QVector<QColor> colors = [] {
        QVector<QColor> texts;
        for (const Purpose purpose : kTexts)
            texts.append(lumqt::builtInColor(purpose));
        return texts;
    }();
    return colors;
}

} // namespace

// What screen readers see: a check box, whose mark the base class knows nothing of.
class CTriStateButton::Accessible : public lumqt::AccessibleButton
{
public:
    explicit Accessible(CTriStateButton *button)
        : AccessibleButton(button, [button] { return button->text(); }), m_button(button)
    {
    }

    QAccessible::Role role() const override
    {
        return m_button && m_button->m_noToggle ? QAccessible::PushButton : QAccessible::CheckBox;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = AccessibleButton::state();
        state.checkable = m_button && !m_button->m_noToggle;
        state.checked = m_button && m_button->m_checked;
        return state;
    }

    QStringList actionNames() const override
    {
        // Those of what the button is, whether it is checkable to Qt or not.
        QStringList names = QAccessibleWidget::actionNames(); // NOLINT(bugprone-parent-virtual-call)
        if (m_button && m_button->isEnabled())
            names.prepend(pressAction());
        if (m_button && m_button->isEnabled() && !m_button->m_noToggle)
            names.prepend(toggleAction());
        return names;
    }

    void doAction(const QString &action) override
    {
        if (!actionNames().contains(action))
            return;
        if (action == pressAction() || action == toggleAction())
            m_button->clickByTool(); // the button, and this with it, may be gone after
        else
            AccessibleButton::doAction(action);
    }

private:
    QPointer<CTriStateButton> m_button;
};

CTriStateButton::CTriStateButton(QString text, bool locked, bool noToggle, QWidget *parent)
    : CBPPushBtn(QString(), parent, true, false),
      m_noToggle(noToggle),
      m_locked(locked),
      m_label(std::make_unique<lumqt::CachedText>())
{
    lumqt::installAccessible(staticMetaObject.className(), makeAccessible);
    setAutoDefault(false); // Enter in a dialog is for its real buttons, as beside a check box
    lumqt::ButtonTones::setRing(*this, lumqt::Purpose::FocusRing);
    m_textColor = builtInTexts(); // not by the setter, which warns of lists without four
    // Not by the base's constructor: a change of the text makes Qt look for the accessible interface, and it
    // would keep that of the base class.
    setText(text);
}

CTriStateButton::CTriStateButton(QWidget *parent) : CTriStateButton(QString(), false, false, parent) {}

CTriStateButton::~CTriStateButton() = default;

QAccessibleInterface *CTriStateButton::makeAccessible(QWidget *widget)
{
    auto *button = qobject_cast<CTriStateButton *>(widget);
    return button ? new Accessible(button) : nullptr;
}

bool CTriStateButton::IsChecked() const
{
    return m_checked;
}

void CTriStateButton::SetChecked(bool checked)
{
    if (m_locked || m_noToggle)
        return;
    const QPointer<CTriStateButton> alive(this);
    if (isCheckable())
        setChecked(checked);
    else
        mark(checked);
    if (alive)
        tellCheck();
}

void CTriStateButton::mark(bool checked)
{
    if (m_checked == checked)
        return;
    m_checked = checked;
    update();
    lumqt::tellChecked(this);
}

void CTriStateButton::tellCheck()
{
    if (m_toldChecked == m_checked)
        return;
    m_toldChecked = m_checked;
    emit checkedChanged(m_checked); // the button may be gone after
}

// ------------------------------------------------------------------------------------------------------------
// clicks

// Also what click() and a shortcut do before they emit clicked().
void CTriStateButton::nextCheckState()
{
    if (m_noToggle)
        return;
    if (!isCheckable()) {
        mark(!m_checked);
        return;
    }
    const QPointer<CTriStateButton> alive(this);
    CBPPushBtn::nextCheckState(); // a group may have a say in it
    if (alive)
        mark(isChecked());
}

// An application that makes the button checkable, for a QButtonGroup, finds one state and not two.
void CTriStateButton::checkStateSet()
{
    if (!isCheckable())
        return;
    mark(isChecked());
    // The base goes on with the button after this, and says toggled() when it is done.
    if (!m_followsToggled)
        connect(this, &QAbstractButton::toggled, this, &CTriStateButton::tellCheck);
    m_followsToggled = true;
}

// A toggle says clicked() and no number, whoever clicks.
void CTriStateButton::reportActivation()
{
    if (!m_tellsAfterClick)
        tellCheck();
}

void CTriStateButton::followRelease()
{
    // The base never sees the release, and would take a later one for a click.
    setDown(false);
    const QPointer<CTriStateButton> alive(this);
    nextCheckState();
    if (!alive)
        return;
    m_tellsAfterClick = true;
    emit clicked(false);
    if (!alive)
        return;
    m_tellsAfterClick = false;
    tellCheck();
}

void CTriStateButton::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || pressEnded())
        followRelease();
}

void CTriStateButton::clickByTool()
{
    const QPointer<CTriStateButton> alive(this);
    emit pressed();
    if (alive)
        followRelease();
}

void CTriStateButton::keyPressEvent(QKeyEvent *event)
{
    const bool enter = event->key() == Qt::Key_Enter || event->key() == Qt::Key_Return;
    const bool activates = enter && (autoDefault() || isDefault());
    if (activates || event->key() == Qt::Key_Space) {
        lumqt::keyUsed(m_focusMark);
        update();
    }
    if (!activates)
        CBPPushBtn::keyPressEvent(event);
    else if (!event->isAutoRepeat()) // a held key would flicker
        clickByTool();
}

void CTriStateButton::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat() && isDown())
        followRelease();
    else
        CBPPushBtn::keyReleaseEvent(event);
}

// ------------------------------------------------------------------------------------------------------------
// looks

void CTriStateButton::enterEvent(lumqt::EnterEvent *event)
{
    m_hovered = true;
    CBPPushBtn::enterEvent(event);
    update();
}

void CTriStateButton::leaveEvent(QEvent *event)
{
    m_hovered = false;
    CBPPushBtn::leaveEvent(event);
    update();
}

void CTriStateButton::focusInEvent(QFocusEvent *event)
{
    lumqt::focusGained(m_focusMark, event->reason());
    CBPPushBtn::focusInEvent(event);
}

void CTriStateButton::focusOutEvent(QFocusEvent *event)
{
    lumqt::focusLost(m_focusMark, event->reason());
    CBPPushBtn::focusOutEvent(event);
}

void CTriStateButton::SetColor(QColor &plain, QColor &checked, QColor &hover)
{
    m_frames[Plain] = plain;
    m_frames[Hovered] = hover;
    m_frames[Checked] = checked;
    m_ownFrames = kAllLooks;
    m_frameTexts = {plain, hover, checked};
    m_textColor = m_frameTexts;
    update();
}

// Of one frame among three, in a form or a style sheet: text colours that were set are to stay, whichever
// comes first.
void CTriStateButton::setFrame(int look, const QColor &color, bool own)
{
    const bool textsFollow = !hasOwnTexts();
    const int bit = 1 << look;
    m_ownFrames = static_cast<unsigned char>(own ? m_ownFrames | bit : m_ownFrames & ~bit);
    m_frames[look] = own ? color : QColor();
    m_frameTexts = {m_frames[Plain], m_frames[Hovered], m_frames[Checked]};
    if (textsFollow)
        resetTextColors();
    update();
}

void CTriStateButton::setPlainColor(const QColor &color)
{
    setFrame(Plain, color, true);
}

QColor CTriStateButton::plainColor() const
{
    return reportedFrame(Plain);
}

void CTriStateButton::resetPlainColor()
{
    setFrame(Plain, QColor(), false);
}

void CTriStateButton::setHoverColor(const QColor &color)
{
    setFrame(Hovered, color, true);
}

QColor CTriStateButton::hoverColor() const
{
    return reportedFrame(Hovered);
}

void CTriStateButton::resetHoverColor()
{
    setFrame(Hovered, QColor(), false);
}

void CTriStateButton::setCheckedColor(const QColor &color)
{
    setFrame(Checked, color, true);
}

QColor CTriStateButton::checkedColor() const
{
    return reportedFrame(Checked);
}

void CTriStateButton::resetCheckedColor()
{
    setFrame(Checked, QColor(), false);
}

// Whether the texts have other colours than the theme's or the frames'.
bool CTriStateButton::hasOwnTexts() const
{
    const QColor *const texts = m_textColor.constData();
    return texts != builtInTexts().constData() &&
           (m_frameTexts.isEmpty() || texts != m_frameTexts.constData());
}

QStringList CTriStateButton::textColors() const
{
    QVector<QColor> colors = m_textColor;
    if (!hasOwnTexts()) {
        for (int look = Plain; look <= Checked; ++look)
            colors[look] = colors[look].isValid() ? colors[look] : lumqt::builtInColor(kTexts[look]);
    }
    return lumqt::colorNames(colors);
}

void CTriStateButton::setTextColors(const QStringList &names)
{
    const QVector<QColor> colors = lumqt::colorsOf(names);
    if (colors.size() == builtInTexts().size())
        m_textColor = colors; // not by the setter, see the constructor
    else
        setTextColor(colors);
    update();
}

void CTriStateButton::resetTextColors()
{
    m_textColor = m_ownFrames != 0 ? m_frameTexts : builtInTexts();
    update();
}

QColor CTriStateButton::lookTextColor(int look) const
{
    const bool isSet = m_textColor.constData() != builtInTexts().constData();
    return lumqt::ownOr(isSet ? m_textColor.value(look) : QColor(), kTexts[look]);
}

QColor CTriStateButton::frameColor(int look) const
{
    return m_ownFrames & (1 << look) ? m_frames[look] : lumqt::themeColor(kFrames[look]);
}

QColor CTriStateButton::reportedFrame(int look) const
{
    return m_ownFrames & (1 << look) ? m_frames[look] : lumqt::builtInColor(kFrames[look]);
}

void CTriStateButton::paintEvent(QPaintEvent *)
{
    const int look = m_checked ? Checked : m_hovered ? Hovered : Plain;
    lumqt::Body body;
    QColor textColor;
    if (isEnabled()) {
        body.frame = frameColor(look);
        body.fill = paintedBgColor(look);
        textColor = lookTextColor(look);
    } else {
        body.frame = lumqt::themeColor(Purpose::ToggleFrameDisabled);
        body.fill = lumqt::themeColor(Purpose::ToggleGroundDisabled);
        textColor = lumqt::themeColor(Purpose::ToggleTextDisabled);
    }
    if (m_focusMark == lumqt::FocusMark::Shown && isEnabled()) {
        body.frame = lumqt::ButtonTones::ring(*this);
        body.frameWidth = lumqt::kFocusRingWidth;
    } else if (text().isEmpty()) {
        body.frame = QColor();
    }

    QPainter painter(this);
    const QRect content = rect().marginsRemoved(lumqt::boundedPixels(m_removeMargin));
    lumqt::drawBody(painter, content, body);
    if (text().isEmpty())
        return;
    QString shown = text();
    m_cut = m_label->lineSize(shown, font()).width() > content.width() - 2 * lumqt::kFocusRingWidth;
    if (m_cut)
        shown = lumqt::elidedLine(shown, font(), content.width() - 2 * kElidedInset);
    QRect box(QPoint(0, 0), m_label->lineSize(shown, font()));
    box.setHeight(qMin(box.height(), content.height()));
    box.moveTopLeft(content.topLeft() +
                    QPoint((content.width() - box.width()) / 2, (content.height() - box.height()) / 2));
    painter.setPen(textColor);
    m_label->drawCentred(painter, box, shown, font());
}
