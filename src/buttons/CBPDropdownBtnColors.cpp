// The colours, the frame and the font that an application sets on a drop-down button, shown at once.

#include "CBPDropdownBtn.h"

#include "foundation/FontLookup.h"
#include "foundation/Palette.h"

void CBPDropdownBtn::resetTextFont()
{
    SetFont(lumqt::uiFont());
}

QColor CBPDropdownBtn::focusFrameColor() const
{
    return m_ownRing ? m_focusFrameColor : lumqt::builtInColor(lumqt::Purpose::FocusRing);
}

void CBPDropdownBtn::resetFocusFrameColor()
{
    m_ownRing = false;
    update();
}

// Not where nothing is to be taken back: a colour that is half see-through comes before this or after.
void CBPDropdownBtn::showTransparent(bool transparent)
{
    if (!transparent && !isBackgroundTransparent())
        return;
    setBgTrancent(transparent);
    update();
}

void CBPDropdownBtn::showFrameless(bool frameless)
{
    setFrmTrancent(frameless);
    update();
}
