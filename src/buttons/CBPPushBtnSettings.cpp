// What an application sets, and reads back, of a push button.

#include "CBPPushBtn.h"

#include "buttons/ButtonIds.h"

#include "foundation/Accessible.h"
#include "foundation/ElidedText.h"
#include "foundation/FontLookup.h"
#include "foundation/IconPixmap.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "foundation/PlainText.h"

namespace {

constexpr int kSidePadding = 20; // both sides of a self-sized button together, in logical pixels
constexpr int kMenuPadding = 10; // what a menu adds to a self-sized button

enum State { Normal = 0, Disabled = 3 };

} // namespace

void CBPPushBtn::setText(const QString &text)
{
    const bool changed = text != QPushButton::text();
    QPushButton::setText(text);
    lumqt::dropMnemonic(this, m_plainText);
    autoResizeBtn();
    if (changed)
        emit textChanged(QPushButton::text()); // the button may be gone after, and what it has handed in
}

void CBPPushBtn::setIcon(const QIcon &icon)
{
    QPushButton::setIcon(icon);
    autoResizeBtn();
}

void CBPPushBtn::resizeIcon(const QSize &size)
{
    setIconSize(size);
    autoResizeBtn();
}

void CBPPushBtn::SetFont(const QFont &font)
{
    m_font = font;
    autoResizeBtn();
    updateGeometry();
    update();
}

void CBPPushBtn::resetTextFont()
{
    SetFont(lumqt::uiFont());
}

void CBPPushBtn::setAutoResize(bool autoResize)
{
    if (m_autoResize && !autoResize) {
        // Where an application has set another width, that is to stay.
        if (minimumWidth() == m_autoWidth)
            setMinimumWidth(0);
        if (maximumWidth() == m_autoWidth)
            setMaximumWidth(QWIDGETSIZE_MAX);
    }
    m_autoResize = autoResize;
    autoResizeBtn();
}

void CBPPushBtn::SetMininzerWidth(int width)
{
    m_minimumWidth = width;
    autoResizeBtn();
}

void CBPPushBtn::resetMinimumAutoWidth()
{
    SetMininzerWidth(kMinimumAutoWidth);
}

void CBPPushBtn::setIconAfterText(bool after)
{
    m_iconAfterText = after;
    update();
}

void CBPPushBtn::setAlignment(__ALIGN_TYPE align)
{
    m_align = align;
    update();
}

void CBPPushBtn::setTextElided(bool elided)
{
    m_elided = elided;
    update();
}

QFont CBPPushBtn::textFont() const
{
    return lumqt::completed(m_font, font());
}

QString CBPPushBtn::elided(const QString &text, int width) const
{
    QString line = lumqt::elidedLine(text, textFont(), width);
    m_cut = line != text;
    return line;
}

void CBPPushBtn::setSpacing(int spacing)
{
    m_spacing = spacing;
}

void CBPPushBtn::showSpacing(int spacing)
{
    setSpacing(spacing);
    autoResizeBtn();
    update();
}

void CBPPushBtn::resetSpacing()
{
    showSpacing(kIconSpacing);
}

void CBPPushBtn::SetIconVoffSet(const int &offset)
{
    m_iconVerticalOffset = offset;
}

void CBPPushBtn::showIconOffset(int offset)
{
    SetIconVoffSet(offset);
    update();
}

void CBPPushBtn::resetIconVerticalOffset()
{
    showIconOffset(kIconOffset);
}

void CBPPushBtn::setHasMenu(bool hasMenu)
{
    m_hasMenu = hasMenu;
    autoResizeBtn();
    update();
}

int CBPPushBtn::bindId() const
{
    return m_bindId;
}

void CBPPushBtn::setBindId(int id)
{
    m_bindId = id;
    ++lumqt::buttonIdChanges;
}

void CBPPushBtn::setSelected(bool selected)
{
    if (changeSelected(selected))
        tellSelected();
}

// All but the signal; whether it made a difference.
bool CBPPushBtn::changeSelected(bool selected)
{
    if (m_selected == selected)
        return false; // as most of a group are, when another one is selected
    m_selected = selected;
    update();
    selectedChanged();
    lumqt::tellChosen(this, selected);
    return true;
}

// Unless a slot has changed it back meanwhile, and nobody has heard of the first change.
void CBPPushBtn::tellSelected()
{
    if (m_toldSelected == m_selected)
        return;
    m_toldSelected = m_selected;
    emit selectionChanged(m_selected); // the button may be gone after
}

void CBPPushBtn::selectedChanged() {}

bool CBPPushBtn::isSelected() const
{
    return m_selected;
}

QColor CBPPushBtn::focusFrameColor() const
{
    return m_ownRing ? m_focusFrameColor : lumqt::builtInColor(lumqt::Purpose(m_ringPurpose));
}

void CBPPushBtn::showFocusFrame(const QColor &color)
{
    setFocusFrameColor(color);
    update();
}

void CBPPushBtn::resetFocusFrameColor()
{
    m_ownRing = false;
    update();
}

void CBPPushBtn::setEnabled(bool enabled)
{
    setState(enabled ? Normal : Disabled);
    QPushButton::setEnabled(enabled);
}

void CBPPushBtn::setDisabled(bool disabled)
{
    setEnabled(!disabled);
}

void CBPPushBtn::setAsDefaultBtn()
{
    setFocus(true);
    QPushButton::setDefault(true);
}

void CBPPushBtn::setFocusFrameColor(QColor color)
{
    m_focusFrameColor = color;
    m_ownRing = true;
}

void CBPPushBtn::setBgTrancent(bool transparent)
{
    CBtnObj::setBgTrancent(transparent);
    setAttribute(Qt::WA_TranslucentBackground, transparent);
    // Qt sets this one along with the first but does not take it back: what lies below would never be
    // cleared.
    if (!transparent)
        setAttribute(Qt::WA_NoSystemBackground, false);
}

// Not where nothing is to be taken back: a colour that is half see-through comes before this or after.
void CBPPushBtn::showTransparent(bool transparent)
{
    if (!transparent && !isBackgroundTransparent())
        return;
    setBgTrancent(transparent);
    update();
}

void CBPPushBtn::showFrameless(bool frameless)
{
    setFrmTrancent(frameless);
    update();
}

void CBPPushBtn::showCheckedBackground(const QColor &color)
{
    setCheckedBgColor(color);
    update();
}

void CBPPushBtn::resetCheckedBackgroundColor()
{
    showCheckedBackground(QColor());
}

void CBPPushBtn::showCheckedFrame(const QColor &color)
{
    setCheckedFrmColor(color);
    update();
}

void CBPPushBtn::resetCheckedFrameColor()
{
    showCheckedFrame(QColor());
}

// ----------------------------------------------------------------------------------------------------------
// sizes

QPixmap CBPPushBtn::iconPixmap() const
{
    return lumqt::iconPixmap(icon(), iconSize(), iconMode(), this);
}

int CBPPushBtn::iconWidth() const
{
    return icon().isNull() ? 0 : lumqt::logicalSize(iconPixmap()).width();
}

int CBPPushBtn::textWidth() const
{
    // A self-sized button is sized by its icon, its minimum width and its menu, never by its text: rows of
    // dialog buttons keep one width in every language, and the triangle keeps its place.
    return 0;
}

void CBPPushBtn::autoResizeBtn()
{
    if (!m_autoResize)
        return;
    const int icon = iconWidth();
    const int content = icon + (icon != 0 ? lumqt::boundedPixels(m_spacing) : 0) + textWidth() + kSidePadding;
    const int width = qMax(content, lumqt::boundedPixels(m_minimumWidth)) + (m_hasMenu ? kMenuPadding : 0);
    m_autoWidth = qBound(0, width, QWIDGETSIZE_MAX);
    setFixedWidth(m_autoWidth);
}
