// What an application sets, and reads back, of an image button.

#include "CBPImageButton.h"

#include "CTextTips.h"
#include "ENState.h"
#include "foundation/FontLookup.h"
#include "foundation/ImageLoader.h"
#include "foundation/ListText.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "foundation/PlainText.h"

void CBPImageButton::SetImgButtonRes(QVector<QString> &images)
{
    m_images = images;
    m_image->forget();
    updateRing();
}

void CBPImageButton::setImages(const QStringList &images)
{
    const bool wasDrawn = m_images.size() == kStates;
    QVector<QString> files = lumqt::filesOf(images);
    SetImgButtonRes(files);
    if (wasDrawn || m_images.size() != kStates)
        return;
    if (m_text.isEmpty()) {
        m_size = imageSize(ENStateNormal);
        setFixedSize(m_size);
    } else {
        ReSetSize();
    }
    updateRing();
}

QStringList CBPImageButton::images() const
{
    return lumqt::fileNames(m_images);
}

void CBPImageButton::setRound(bool round)
{
    m_round = round;
    ReSetSize();
    updateRing();
}

QSize CBPImageButton::GetSize() const
{
    return m_size;
}

int CBPImageButton::GetID() const
{
    return m_id;
}

void CBPImageButton::SetText(const QString &text, const QFont &font)
{
    const QString before = label();
    m_text = text;
    m_font = font;
    textChanged();
    tellLabel(before);
}

void CBPImageButton::SetText(const QString &text, bool besideImage, int spacing)
{
    const QString before = label();
    m_text = text;
    m_besideImage = besideImage;
    m_spacing = lumqt::boundedPixels(spacing);
    textChanged();
    tellLabel(before);
}

void CBPImageButton::SetText(const QString &text, const QFont &font, QVector<QColor> colors, bool besideImage,
                             int spacing, int leftMargin)
{
    m_textColors = colors;
    m_ownTextColors = true;
    const QString before = label();
    placeText(text, font, besideImage, spacing, leftMargin);
    tellLabel(before);
}

void CBPImageButton::placeText(const QString &text, const QFont &font, bool besideImage, int spacing,
                               int leftMargin)
{
    m_text = text;
    m_font = font;
    m_besideImage = besideImage;
    m_spacing = lumqt::boundedPixels(spacing);
    m_leftMargin = lumqt::boundedPixels(leftMargin);
    textChanged();
}

void CBPImageButton::tellLabel(const QString &before)
{
    const QString after = label();
    if (after != before)
        emit labelChanged(after); // the button may be gone after
}

void CBPImageButton::setLabel(const QString &text)
{
    const QString before = label();
    if (m_arranges) {
        m_label = text;
        fontChanged();
    } else {
        m_text = text;
        textChanged();
    }
    tellLabel(before);
}

void CBPImageButton::setTextFont(const QFont &font)
{
    m_font = font;
    textChanged();
}

void CBPImageButton::resetTextFont()
{
    QFont font;
    font.setFamily(GetFontFamily(lumqt::NormalWeight));
    setTextFont(font);
}

void CBPImageButton::setTextColors(const QStringList &names)
{
    m_textColors = lumqt::colorsOf(names);
    m_ownTextColors = true;
    update();
}

QStringList CBPImageButton::textColors() const
{
    return lumqt::colorNames(m_ownTextColors ? m_textColors
                                             : lumqt::builtInColors(lumqt::Purpose(m_textPurpose)));
}

void CBPImageButton::resetTextColors()
{
    m_textColors.clear();
    m_ownTextColors = false;
    update();
}

void CBPImageButton::setTextBesideImage(bool beside)
{
    m_besideImage = beside;
    textChanged();
}

void CBPImageButton::setSpacing(int spacing)
{
    m_spacing = lumqt::boundedPixels(spacing);
    textChanged();
}

void CBPImageButton::resetSpacing()
{
    setSpacing(kTextSpacing);
}

void CBPImageButton::setLeftMargin(int margin)
{
    m_leftMargin = lumqt::boundedPixels(margin);
    textChanged();
}

void CBPImageButton::setText(const QString &text)
{
    QPushButton::setText(text);
    lumqt::dropMnemonic(this, m_plainText);
}

void CBPImageButton::SetBorder(int border, bool resize)
{
    m_border = lumqt::boundedPixels(border);
    if (resize)
        ReSetSize();
    update();
}

void CBPImageButton::resetBorder()
{
    setBorder(kSideBorder);
}

void CBPImageButton::SetBorderRadius(int radius)
{
    m_borderRadius = radius;
}

void CBPImageButton::showBorderRadius(int radius)
{
    SetBorderRadius(radius);
    update();
}

void CBPImageButton::SetBkgColors(const QVector<QColor> &colors)
{
    if (colors.size() == kStates)
        m_bkgColors = colors;
}

void CBPImageButton::setBackgroundColors(const QStringList &names)
{
    SetBkgColors(lumqt::colorsOf(names));
    update();
}

QStringList CBPImageButton::backgroundColors() const
{
    return lumqt::colorNames(m_bkgColors);
}

void CBPImageButton::resetBackgroundColors()
{
    m_bkgColors.clear();
    update();
}

void CBPImageButton::SetBkgBrush(const QVector<QBrush> &brushes)
{
    if (brushes.size() == kStates)
        m_bkgBrushes = brushes;
}

void CBPImageButton::SetBorderColor(const QVector<QColor> &colors)
{
    m_borderColors = colors;
}

void CBPImageButton::setFrameColors(const QStringList &names)
{
    SetBorderColor(lumqt::colorsOf(names));
    update();
}

QStringList CBPImageButton::frameColors() const
{
    return lumqt::colorNames(m_borderColors);
}

void CBPImageButton::resetFrameColors()
{
    setFrameColors(QStringList());
}

void CBPImageButton::SetSelect(bool selected)
{
    m_selected = selected;
    m_index = selected ? ENStatePress : ENStateNormal;
    // A selected button hears no release.
    setDown(false);
    update();
    tellSelected();
}

// One that was seen disabled is let go as soon as it is enabled, though it looks so only when it is next
// asked.
bool CBPImageButton::isSelected() const
{
    return m_selected && (m_index != ENStateDisable || !isEnabled());
}

void CBPImageButton::tellSelected()
{
    const bool selected = isSelected();
    if (m_toldSelected == selected)
        return;
    m_toldSelected = selected;
    emit selectionChanged(selected); // the button may be gone after
}

void CBPImageButton::SetBtnShow(bool show)
{
    m_shown = show;
    placeRing();
}

void CBPImageButton::showDrawn(bool drawn)
{
    SetBtnShow(drawn);
    update();
}

void CBPImageButton::SetHight(int height)
{
    m_textHeight = height;
    ReSetSize();
}

void CBPImageButton::SetIconVoffset(int offset)
{
    m_iconVoffset = lumqt::boundedPixels(offset);
}

void CBPImageButton::showIconOffset(int offset)
{
    SetIconVoffset(offset);
    updateRing();
}

void CBPImageButton::SetSpecialIcon(bool show, const QColor &color)
{
    m_specialIconShown = show;
    m_specialIconColor = color;
    m_specialIconPurpose = -1;
}

void CBPImageButton::setDotVisible(bool visible)
{
    m_specialIconShown = visible;
    update();
}

void CBPImageButton::setDotColor(const QColor &color)
{
    SetSpecialIcon(m_specialIconShown, color);
    update();
}

QColor CBPImageButton::dotColor() const
{
    return m_specialIconPurpose < 0 ? m_specialIconColor
                                    : lumqt::builtInColor(lumqt::Purpose(m_specialIconPurpose));
}

void CBPImageButton::resetDotColor()
{
    m_specialIconPurpose = short(lumqt::Purpose::Badge);
    update();
}

void CBPImageButton::SetTipsTxt(const QString &text)
{
    m_tipsText = text;
    nameChanged();
    if (!m_tips)
        return;
    if (text.isEmpty())
        m_tips->hide();
    else
        m_tips->SetShowText(tipsMarkup());
}
