// The colours of the title bar, and what changes them.

#include "CBPWinFrmTitle.h"

#include "CBPImageButton.h"
#include "foundation/Palette.h"
#include "Util.h"

#include <QLabel>
#include <QLinearGradient>

namespace {

// What nobody has set in code: the settings file goes before the library's own themes, where it was there
// first, not before a theme that was made for an application or for those who see little.
QBrush chosenBrush(lumqt::Purpose purpose, const QColor &configured)
{
    return lumqt::ownBrush(configured.isValid() && !lumqt::themeSays(purpose) ? configured
                                                                              : lumqt::themeColor(purpose));
}

QVector<QColor> backColors()
{
    QVector<QColor> colors;
    for (int state = 0; state < lumqt::kThemeStates; ++state)
        colors << lumqt::themeColor(lumqt::Purpose::TitleButton, state);
    return colors;
}

constexpr CBPWinFrmTitle::Button kButtons[] = {CBPWinFrmTitle::MinimizeButton, CBPWinFrmTitle::CloseButton,
                                               CBPWinFrmTitle::MenuButton,     CBPWinFrmTitle::BackButton,
                                               CBPWinFrmTitle::SupportButton,  CBPWinFrmTitle::OfferButton,
                                               CBPWinFrmTitle::MaximizeButton, CBPWinFrmTitle::SettingsButton,
                                               CBPWinFrmTitle::FreeButton,     CBPWinFrmTitle::ContactButton};

} // namespace

// Whatever nobody has changed since the bar chose it.
void CBPWinFrmTitle::chooseColors()
{
    if (m_brush == m_chosenBrush) {
        m_chosenBrush = chosenBrush(lumqt::Purpose::TitleGround, Util::GetWindowTitleBgColor());
        m_brush = m_chosenBrush;
    }
    if (m_title.widget->palette().brush(QPalette::WindowText) == m_titleBrush) {
        m_titleBrush = chosenBrush(lumqt::Purpose::TitleText, Util::GetWindowTitleTextColor());
        colorTitle(m_titleBrush);
    }
    // One list, not two that are equal.
    if (m_backBtn && m_backBtn->m_bkgColors.constData() == m_backColors.constData()) {
        m_backColors = backColors();
        m_backBtn->SetBkgColors(m_backColors);
    }
    for (Label *label : {&m_icon, &m_title}) {
        if (!label->image.isEmpty())
            showImage(*label, label->image);
    }
    update();
}

void CBPWinFrmTitle::SetBgColor(QColor &c)
{
    if (!c.isValid())
        return;
    m_brush = c;
    update();
}

void CBPWinFrmTitle::resetBackgroundColor()
{
    m_brush = m_chosenBrush;
    chooseColors();
}

void CBPWinFrmTitle::setLinerBrush(const QLinearGradient &gradient)
{
    m_brush = gradient;
    update();
}

void CBPWinFrmTitle::SetTitleClr(QColor color)
{
    if (!color.isValid())
        return;
    colorTitle(color);
}

QColor CBPWinFrmTitle::titleColor() const
{
    return m_title.widget->palette().color(QPalette::WindowText);
}

void CBPWinFrmTitle::resetTitleColor()
{
    colorTitle(m_titleBrush);
    chooseColors();
}

void CBPWinFrmTitle::colorTitle(const QBrush &brush)
{
    QPalette palette = m_title.widget->palette();
    palette.setBrush(QPalette::WindowText, brush);
    m_title.widget->setPalette(palette);
}

// ------------------------------------------------------------------------------------------------------------
// what is shown

CBPWinFrmTitle::Buttons CBPWinFrmTitle::shownButtons() const
{
    Buttons shown;
    for (const Button id : kButtons) {
        const CBPImageButton *known = button(id);
        shown.setFlag(id, known && !known->isHidden());
    }
    return shown;
}

void CBPWinFrmTitle::setShownButtons(Buttons buttons)
{
    for (const Button id : kButtons)
        ShowTitleBtn(id, buttons.testFlag(id));
}

void CBPWinFrmTitle::SetHasNewVersion(bool hasNewVersion)
{
    if (!m_menuBtn)
        return;
    m_menuBtn->m_specialIconShown = hasNewVersion;
    m_menuBtn->m_specialIconPurpose = short(lumqt::Purpose::TitleNotice);
    m_menuBtn->update();
}

bool CBPWinFrmTitle::hasNewVersion() const
{
    return m_menuBtn && m_menuBtn->m_specialIconShown;
}
