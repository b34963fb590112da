#include "CBPImageButton.h"

#include "CTextTips.h"
#include "ENState.h"
#include "foundation/Accessible.h"
#include "foundation/FocusMark.h"
#include "foundation/FocusRing.h"
#include "foundation/FontLookup.h"
#include "foundation/ImageLoader.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "foundation/PlainText.h"
#include "foundation/PressKeys.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QWindow>

namespace {

// Look and metrics, in logical pixels.
constexpr int kTextReserve = 2; // a text counts for so much more than its width
const QPoint kTipsOffset(5, 5); // from the pointer
const char kTipsPixelSize[] = "14";

bool isActivationKey(int key)
{
    return key == Qt::Key_Space || key == Qt::Key_Select || key == Qt::Key_Enter || key == Qt::Key_Return;
}

int clampedSize(qint64 size)
{
    return int(qBound(qint64(0), size, qint64(QWIDGETSIZE_MAX)));
}

} // namespace

CBPImageButton::CBPImageButton(const QVector<QString> &images, bool round, int id, QWidget *parent)
    : QPushButton(parent),
      m_images(images),
      m_textPurpose(short(lumqt::Purpose::ImageText)),
      m_round(round),
      m_id(id),
      m_border(kSideBorder),
      m_specialIconPurpose(short(lumqt::Purpose::Badge)),
      m_image(std::make_unique<lumqt::PaintedImage>())
{
    lumqt::installAccessible("CBPImageButton", makeAccessible);
    m_font.setFamily(GetFontFamily(lumqt::NormalWeight));
    setAttribute(Qt::WA_TranslucentBackground);
    // In a dialog Return belongs to the button that says so.
    setAutoDefault(false);
    // Keys, dialogs and assistive tools press a button through click(), which no event handler sees.
    connect(this, &QAbstractButton::clicked, this, &CBPImageButton::reportActivation);
    if (m_images.size() == kStates) {
        m_size = imageSize(ENStateNormal);
        setFixedSize(m_size);
    }
}

CBPImageButton::CBPImageButton(QWidget *parent) : CBPImageButton(QVector<QString>(), false, 0, parent) {}

CBPImageButton::~CBPImageButton()
{
    delete m_tips;
}

// ----------------------------------------------------------------------------------------------------------
// sizes

void CBPImageButton::textChanged()
{
    ReSetSize();
    updateRing();
    nameChanged();
}

void CBPImageButton::ReSetSize()
{
    // With fewer than four images the text is not drawn either, so it takes no room.
    if (m_text.isEmpty() || m_images.size() < kStates)
        return;
    const QSize image = imageSize(m_index);
    m_measured = paintedFont();
    const QFontMetrics metrics(m_measured);
    const qint64 textWidth = metrics.horizontalAdvance(m_text) + kTextReserve;
    const qint64 textHeight = m_textHeight != 0 ? m_textHeight : metrics.height();
    qint64 width = qMax<qint64>(textWidth, image.width());
    qint64 height = image.height() + textHeight + m_spacing;
    if (m_besideImage) {
        width = image.width() + textWidth + m_spacing + m_leftMargin + 2 * qint64(m_border);
        if (m_round)
            width += textHeight;
        height = qMax<qint64>(textHeight, image.height());
    }
    // A capsule gets the image's height, too, beside the text's: its two ends are meant to stay free.
    if (m_round && m_textHeight == 0)
        width += image.height();
    m_size = QSize(clampedSize(width), clampedSize(height));
    setFixedSize(m_size);
}

// A painter completes the font by that of the widget, which a style sheet of the window may have set.
QFont CBPImageButton::paintedFont() const
{
    return lumqt::completed(m_font, font());
}

// ----------------------------------------------------------------------------------------------------------
// mouse

// A button that is enabled again after it was seen disabled looks normal, also a selected one or one under
// the mouse. It is not selected any more then: what looks normal answers the mouse.
void CBPImageButton::followEnabled()
{
    if (!isEnabled() || m_index != ENStateDisable)
        return;
    m_index = ENStateNormal;
    m_selected = false;
}

void CBPImageButton::enterEvent(lumqt::EnterEvent *event)
{
    followEnabled();
    if (m_selected)
        return;
    showTips();
    m_index = ENStateHover;
    update();
    QPushButton::enterEvent(event);
}

void CBPImageButton::leaveEvent(QEvent *event)
{
    hideTips();
    if (m_selected)
        return;
    m_index = ENStateNormal;
    update();
    QPushButton::leaveEvent(event);
}

void CBPImageButton::mousePressEvent(QMouseEvent *event)
{
    followEnabled();
    if (m_selected)
        return;
    if (event->button() == Qt::LeftButton)
        m_press = lumqt::Press::Mouse;
    hideTips();
    m_index = ENStatePress;
    // At once: what is connected to pressed() may take its time.
    repaint();
    QPushButton::mousePressEvent(event);
}

void CBPImageButton::mouseReleaseEvent(QMouseEvent *event)
{
    if (m_selected)
        return;
    if (event->button() == Qt::LeftButton && !lumqt::mouseReleased(m_press))
        return;
    if (event->button() != Qt::LeftButton || !rect().contains(event->pos())) {
        QPushButton::mouseReleaseEvent(event);
        return;
    }
    // The base class never sees this release, so clicked() is not emitted. The look stays pressed until the
    // mouse leaves, but for the base the button is up again: later it would take Space or a disabling for its
    // end.
    setDown(false);
    const QPointer<CBPImageButton> alive(this);
    if (isCheckable())
        nextCheckState(); // as the keyboard does it by way of the base class
    if (alive)
        emit btn_released(m_id); // the button may be gone after
}

// ----------------------------------------------------------------------------------------------------------
// keyboard

void CBPImageButton::reportActivation()
{
    if (!m_selected)
        emit btn_released(m_id);
}

void CBPImageButton::keyPressEvent(QKeyEvent *event)
{
    followEnabled();
    if (m_selected && isActivationKey(event->key())) {
        event->ignore();
        return;
    }
    if (isActivationKey(event->key())) {
        lumqt::keyUsed(m_focusMark);
        updateRing();
    }
    const QPointer<CBPImageButton> alive(this);
    const bool wasDown = isDown();
    QPushButton::keyPressEvent(event);
    if (!alive)
        return;
    const bool takenBack = wasDown && !isDown() && event->matches(QKeySequence::Cancel);
    if (takenBack && m_press == lumqt::Press::Mouse)
        m_press = lumqt::Press::TakenBack;
    followKey(wasDown);
}

void CBPImageButton::keyReleaseEvent(QKeyEvent *event)
{
    const QPointer<CBPImageButton> alive(this);
    const bool wasDown = isDown();
    QPushButton::keyReleaseEvent(event);
    if (alive)
        followKey(wasDown);
}

// The look follows the button going down and up by a key.
void CBPImageButton::followKey(bool wasDown)
{
    if (isDown() == wasDown || m_selected)
        return;
    if (isDown() || m_press == lumqt::Press::Space)
        m_press = isDown() ? lumqt::Press::Space : lumqt::Press::None;
    hideTips();
    m_index = isDown() ? ENStatePress : underMouse() ? ENStateHover : ENStateNormal;
    update();
}

// Focus changes are nothing to the button, and the base class does not hear of them: no default button moves
// in a dialog and no released() is emitted because a window took the focus away. What a person at the
// keyboard needs to see and to be kept from is done in event().
void CBPImageButton::focusInEvent(QFocusEvent *event)
{
    // Among the buttons of a group it is the chosen one that Tab comes to, and the base sees to that.
    if (group())
        QAbstractButton::focusInEvent(event); // NOLINT(bugprone-parent-virtual-call)
}

void CBPImageButton::focusOutEvent(QFocusEvent *) {}

// The focus changes no look of the button's states; only the ring, which shows who got it by keyboard, is
// painted and taken away.
bool CBPImageButton::event(QEvent *event)
{
    lumqt::dropMnemonic(this, m_plainText);
    if (event->type() == QEvent::FocusIn) {
        lumqt::focusGained(m_focusMark, static_cast<QFocusEvent *>(event)->reason());
        updateRing();
    } else if (event->type() == QEvent::FocusOut) {
        focusLost(static_cast<QFocusEvent *>(event)->reason());
    } else if (event->type() == QEvent::Resize) {
        updateRing();
    } else if (event->type() == QEvent::WindowDeactivate) {
        hideTips();
    }
    return QPushButton::event(event);
}

void CBPImageButton::focusLost(Qt::FocusReason reason)
{
    if (m_press == lumqt::Press::Space) {
        // The release of the key will go elsewhere. That of the mouse comes here, and Escape is still its.
        m_press = lumqt::Press::None;
        setDown(false);
        if (!m_selected)
            m_index = underMouse() ? ENStateHover : ENStateNormal;
    }
    lumqt::focusLost(m_focusMark, reason);
    updateRing();
}

// ----------------------------------------------------------------------------------------------------------
// tips

QString CBPImageButton::tipsMarkup() const
{
    // All at once: a text may hold "%1" itself.
    return QStringLiteral("<font style=\"font-family:%1; font-size: %2px; color:%3;\">%4</font>")
        .arg(GetFontFamily(lumqt::NormalWeight), QLatin1String(kTipsPixelSize),
             lumqt::themeColor(lumqt::Purpose::ImageTip).name(), m_tipsText);
}

void CBPImageButton::showTips()
{
    if (m_tipsText.isEmpty())
        return;
    if (!m_tips) {
        // Made when first needed: most buttons of a window never show theirs.
        m_tips = new CTextTips(0, nullptr);
        // Where it comes to lie under the pointer it must not take the mouse from the button.
        m_tips->setWindowFlag(Qt::WindowTransparentForInput);
        m_tips->SetShowText(tipsMarkup());
        lumqt::onThemeChange(m_tips, [this] { m_tips->SetShowText(tipsMarkup()); });
    }
    m_tips->move(QCursor::pos() + kTipsOffset);
    // Without a parent, but above the window that it belongs to.
    m_tips->winId();
    if (m_tips->windowHandle() && window()->windowHandle())
        m_tips->windowHandle()->setTransientParent(window()->windowHandle());
    m_tips->show();
}

void CBPImageButton::hideTips()
{
    if (m_tips)
        m_tips->hide();
}

// The tip is a window of its own: nobody else hides it when the mouse cannot leave the button any more.
void CBPImageButton::changeEvent(QEvent *event)
{
    if (!isEnabled())
        hideTips();
    if (event->type() == QEvent::FontChange) {
        if (hasOwnSize() && paintedFont() != m_measured)
            fontChanged();
        update();
    }
    if (event->type() != QEvent::EnabledChange) {
        QPushButton::changeEvent(event);
        return;
    }
    const QPointer<CBPImageButton> alive(this);
    QPushButton::changeEvent(event);
    if (alive)
        tellSelected(); // followEnabled() will let it go
}

// A size that the application has set meanwhile is the application's, whatever the font.
bool CBPImageButton::hasOwnSize() const
{
    return minimumSize() == m_size && maximumSize() == m_size;
}

// What the font of the button does not say is the widget's to say.
void CBPImageButton::fontChanged()
{
    ReSetSize();
}

void CBPImageButton::hideEvent(QHideEvent *event)
{
    hideTips();
    QPushButton::hideEvent(event);
}

// ----------------------------------------------------------------------------------------------------------
// screen readers

QAccessibleInterface *CBPImageButton::makeAccessible(QWidget *widget)
{
    auto *button = qobject_cast<CBPImageButton *>(widget);
    return button ? new lumqt::AccessibleButton(button, [button] { return button->spokenName(); }) : nullptr;
}

QString CBPImageButton::spokenName() const
{
    if (!m_text.isEmpty())
        return m_text;
    if (!toolTip().isEmpty())
        return toolTip();
    return Qt::mightBeRichText(m_tipsText) ? QTextDocumentFragment::fromHtml(m_tipsText).toPlainText()
                                           : m_tipsText;
}

void CBPImageButton::nameChanged()
{
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}
