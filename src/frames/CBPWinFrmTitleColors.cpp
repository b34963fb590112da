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
QColor chosenColor(lumqt::Purpose purpose, const QColor &configured)
{
    return configured.isValid() && !lumqt::themeSays(purpose) ? configured : lumqt::themeColor(purpose);
}

QVector<QColor> backColors()
{
    QVector<QColor> colors;
    for (int state = 0; state < lumqt::kThemeStates; ++state)
        colors << lumqt::themeColor(lumqt::Purpose::TitleButton, state);
    return colors;
}

} // namespace

// Whatever nobody has changed since the bar chose it.
void CBPWinFrmTitle::chooseColors()
{
    if (m_bgColor.isValid() && m_brush == QBrush(m_bgColor)) {
        m_bgColor = chosenColor(lumqt::Purpose::TitleGround, Util::GetWindowTitleBgColor());
        m_brush = m_bgColor;
    }
    if (m_titleColor.isValid() && m_title.widget->palette().color(QPalette::WindowText) == m_titleColor) {
        m_titleColor = chosenColor(lumqt::Purpose::TitleText, Util::GetWindowTitleTextColor());
        colorTitle(m_titleColor);
    }
    if (m_backBtn && m_backBtn->m_bkgColors == m_backColors) {
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
    m_bgColor = QColor();
    m_brush = c;
    update();
}

void CBPWinFrmTitle::setLinerBrush(const QLinearGradient &gradient)
{
    m_bgColor = QColor();
    m_brush = gradient;
    update();
}

void CBPWinFrmTitle::SetTitleClr(QColor color)
{
    if (!color.isValid())
        return;
    m_titleColor = QColor();
    colorTitle(color);
}

void CBPWinFrmTitle::colorTitle(const QColor &color)
{
    QPalette palette = m_title.widget->palette();
    palette.setColor(QPalette::WindowText, color);
    m_title.widget->setPalette(palette);
}

void CBPWinFrmTitle::SetHasNewVersion(bool hasNewVersion)
{
    if (!m_menuBtn)
        return;
    m_menuBtn->m_specialIconShown = hasNewVersion;
    m_menuBtn->m_specialIconPurpose = short(lumqt::Purpose::TitleNotice);
    m_menuBtn->update();
}
