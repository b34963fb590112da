// What an application sets, and reads back, of a tool button.

#include "CBPToolButton.h"

#include "foundation/FontLookup.h"
#include "foundation/ImageLoader.h"
#include "foundation/ListText.h"
#include "foundation/Log.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"

#include <QCursor>

void CBPToolButton::SetImage(QVector<QString> &images)
{
    m_images = images;
    m_image->forget();
    AutoResize();
    update();
}

void CBPToolButton::SetImage(QString &image)
{
    QVector<QString> images(kStates, image);
    SetImage(images);
}

void CBPToolButton::setImages(const QStringList &images)
{
    QVector<QString> files = lumqt::filesOf(images);
    SetImage(files);
}

QStringList CBPToolButton::images() const
{
    return lumqt::fileNames(m_images);
}

void CBPToolButton::setAlign(Align align)
{
    m_align = static_cast<ENAlign>(align);
    AutoResize();
    update();
}

void CBPToolButton::SetText(const QString &text)
{
    const bool changed = m_text != text;
    m_text = text;
    measureText();
    AutoResize();
    update();
    if (changed)
        emit textChanged(QString(m_text)); // the button may be gone after
}

QString CBPToolButton::text() const
{
    return m_text;
}

void CBPToolButton::SetTextColor(QColor &color)
{
    SetTextColor(QVector<QColor>(kStates, color));
}

void CBPToolButton::SetTextColor(QVector<QColor> colors)
{
    m_textColors = colors;
    m_ownTextColors = true;
    AutoResize();
    update();
}

void CBPToolButton::setTextColors(const QStringList &names)
{
    SetTextColor(lumqt::colorsOf(names));
}

QStringList CBPToolButton::textColors() const
{
    return lumqt::colorNames(m_ownTextColors ? m_textColors : lumqt::builtInColors(lumqt::Purpose::ToolText));
}

void CBPToolButton::resetTextColors()
{
    m_textColors.clear();
    m_ownTextColors = false;
    update();
}

QColor CBPToolButton::textClr() const
{
    return m_ownTextColors ? m_textColors.value(state()) : lumqt::builtInColor(lumqt::Purpose::ToolText);
}

QString CBPToolButton::icon() const
{
    if (m_images.size() != kStates)
        return QString();
    return m_images.at(state() == ENStateDisable ? ENStateDisable : ENStateNormal);
}

void CBPToolButton::SetHorBorder(int left, int right)
{
    m_left = lumqt::boundedPixels(left);
    m_right = lumqt::boundedPixels(right);
    AutoResize();
    update();
}

void CBPToolButton::resetLeftBorder()
{
    setLeftBorder(kSideBorder);
}

void CBPToolButton::resetRightBorder()
{
    setRightBorder(kSideBorder);
}

void CBPToolButton::SetSpacing(int spacing)
{
    m_spacing = lumqt::boundedPixels(spacing);
    AutoResize();
    update();
}

void CBPToolButton::resetSpacing()
{
    SetSpacing(kImageSpacing);
}

void CBPToolButton::SetArrowSize(int width, int height)
{
    m_arrowWidth = lumqt::boundedPixels(width);
    m_arrowHeight = lumqt::boundedPixels(height);
}

void CBPToolButton::setArrowWidth(int width)
{
    SetArrowSize(width, m_arrowHeight);
    update();
}

void CBPToolButton::resetArrowWidth()
{
    setArrowWidth(kArrowWidth);
}

void CBPToolButton::setArrowHeight(int height)
{
    SetArrowSize(m_arrowWidth, height);
    update();
}

void CBPToolButton::resetArrowHeight()
{
    setArrowHeight(kArrowHeight);
}

void CBPToolButton::SetTextFont(const QString &family, int pixelSize)
{
    m_font.setFamily(family);
    setPixelSize(pixelSize);
}

void CBPToolButton::setPixelSize(int pixelSize)
{
    if (pixelSize >= 1)
        m_font.setPixelSize(pixelSize);
    else
        qCWarning(lcLumQt, "CBPToolButton: %d is no font size", pixelSize);
    measureText();
    update();
}

void CBPToolButton::showPixelSize(int pixelSize)
{
    setPixelSize(pixelSize);
    AutoResize();
}

void CBPToolButton::resetPixelSize()
{
    showPixelSize(lumqt::kTextPixelSize);
}

void CBPToolButton::setFontFamily(const QString &family)
{
    SetTextFont(family, pixelSize());
    AutoResize();
}

void CBPToolButton::resetFontFamily()
{
    setFontFamily(lumqt::uiFont().family());
}

void CBPToolButton::setAutoResize(bool autoResize)
{
    m_autoResize = autoResize;
}

void CBPToolButton::resizeItself(bool itself)
{
    setAutoResize(itself);
    AutoResize();
}

void CBPToolButton::setIsShrinked(bool shrinked)
{
    m_shrinked = shrinked;
}

void CBPToolButton::SetChgCursor(bool hand)
{
    setCursor(hand ? Qt::OpenHandCursor : Qt::ArrowCursor);
}

bool CBPToolButton::hasHandCursor() const
{
    return cursor().shape() == Qt::OpenHandCursor;
}

int CBPToolButton::GetBtnID() const
{
    return m_id;
}
