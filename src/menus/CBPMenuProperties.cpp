// What of a menu's settings is got and set one by one, as properties are.

#include "CBPMenu.h"

#include "foundation/FontLookup.h"
#include "foundation/ListText.h"
#include "foundation/Palette.h"
#include "menus/MenuMetrics.h"

using lumqt::Purpose;

// ------------------------------------------------------------------------------------------------------------
// colours

QColor CBPMenu::textColor() const
{
    return m_textColor.isValid() ? m_textColor : lumqt::builtInColor(Purpose::MenuText);
}

void CBPMenu::resetTextColor()
{
    m_textColor = QColor();
    update();
}

QStringList CBPMenu::backgroundColors() const
{
    if (!m_bg.isEmpty())
        return lumqt::colorNames(m_bg);
    // Nothing is painted in the second one.
    return lumqt::colorNames({lumqt::builtInColor(Purpose::MenuGround), QColor(),
                              lumqt::builtInColor(Purpose::MenuGroundHovered)});
}

void CBPMenu::setBackgroundColors(const QStringList &colors)
{
    setBg(lumqt::colorsOf(colors));
}

void CBPMenu::resetBackgroundColors()
{
    setBg({});
}

QStringList CBPMenu::frameColors() const
{
    return lumqt::colorNames(m_frameClr);
}

void CBPMenu::setFrameColors(const QStringList &colors)
{
    setFrameClr(lumqt::colorsOf(colors));
}

// ------------------------------------------------------------------------------------------------------------
// lines

void CBPMenu::setBorderWidth(int width)
{
    SetBorderInfo(width, m_borderColor);
}

void CBPMenu::setBorderColor(const QColor &color)
{
    SetBorderInfo(m_borderWidth, color);
}

void CBPMenu::resetBorderWidth()
{
    setBorderWidth(lumqt::kMenuBorderWidth);
}

void CBPMenu::resetBorderColor()
{
    setBorderColor(QColor());
}

// What else is in the style sheet stays.
void CBPMenu::resetSeparatorRectHeight()
{
    m_separatorRectHeight = lumqt::kMenuSeparatorRectHeight;
    QString sheet = styleSheet();
    if (sheet.startsWith(QLatin1String(lumqt::kMenuSeparatorSheet)))
        setStyleSheet(sheet.remove(0, int(qstrlen(lumqt::kMenuSeparatorSheet))));
    update();
}

void CBPMenu::resetSeparatorHeight()
{
    setSeparatorHeight(lumqt::kMenuSeparatorHeight);
}

// ------------------------------------------------------------------------------------------------------------
// sizes

void CBPMenu::setLeftMargin(int margin)
{
    SetBorder(margin, 0, 0, 0);
}

void CBPMenu::resetLeftMargin()
{
    setLeftMargin(lumqt::kMenuMargin);
}

void CBPMenu::resetSpacing()
{
    SetSpacing(lumqt::kMenuMargin);
}

void CBPMenu::resetIconWidth()
{
    SetDefIconWidth(lumqt::kMenuIconWidth);
}

void CBPMenu::resetCornerRadius()
{
    SetBordRadios(lumqt::kMenuRadius);
}

void CBPMenu::resetItemHeight()
{
    SetMenuItemHeiht(lumqt::kMenuItemHeight);
}

void CBPMenu::resetBottomHeight()
{
    SetMenuBottomHeight(lumqt::kMenuBottomHeight);
}

// ------------------------------------------------------------------------------------------------------------
// texts

void CBPMenu::resetFontPixelSize()
{
    SetMenuFontSize(lumqt::kTextPixelSize);
}

QString CBPMenu::textFamily() const
{
    return m_font.family();
}

void CBPMenu::setTextFamily(const QString &family)
{
    SetFont(family, textPixelSize());
}

void CBPMenu::resetTextFamily()
{
    setTextFamily(GetFontFamily(lumqt::NormalWeight));
}

int CBPMenu::textPixelSize() const
{
    return m_font.pixelSize();
}

void CBPMenu::setTextPixelSize(int pixelSize)
{
    SetFont(textFamily(), pixelSize);
}

void CBPMenu::resetTextPixelSize()
{
    setTextPixelSize(lumqt::kTextPixelSize);
}
