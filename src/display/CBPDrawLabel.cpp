#include "CBPDrawLabel.h"

#include "foundation/Accessible.h"
#include "foundation/FontLookup.h"
#include "foundation/Log.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"

#include <QPainter>

namespace {

constexpr int kPixelSize = 14;
constexpr int kPillPadding = 2; // above and below the text

// What a pen makes of an invalid colour, for the outline too.
QColor penColor(const QColor &color)
{
    return color.isValid() ? color : QColor(color.rgb());
}

QAccessibleInterface *makeAccessible(QWidget *widget)
{
    return new QAccessibleWidget(widget, QAccessible::StaticText);
}

} // namespace

CBPDrawLabel::CBPDrawLabel(QWidget *parent)
    : QWidget(parent),
      m_font(lumqt::uiFont(lumqt::NormalWeight, kPixelSize)),
      m_rounded(false),
      m_layout(std::make_unique<lumqt::CachedText>())
{
    lumqt::installAccessible(staticMetaObject.className(), makeAccessible);
}

CBPDrawLabel::CBPDrawLabel(QString &text, QColor color, bool rounded) : CBPDrawLabel()
{
    m_text = text;
    m_color = penColor(color);
    m_rounded = rounded;
    setAccessibleName(text);
}

CBPDrawLabel::~CBPDrawLabel() = default;

void CBPDrawLabel::SetTextFont(QString &family, int pixelSize)
{
    m_font.setFamily(family);
    if (pixelSize < 1)
        qCWarning(lcLumQt, "CBPDrawLabel: %d is no font size", pixelSize);
    else
        m_font.setPixelSize(pixelSize);
    updateGeometry();
    update();
}

void CBPDrawLabel::SetTextShowColor(QColor color)
{
    m_color = penColor(color);
    update();
}

QString CBPDrawLabel::text() const
{
    return m_text;
}

void CBPDrawLabel::setText(const QString &text)
{
    if (m_text == text)
        return;
    const bool named = accessibleName() != m_text; // by the application
    m_text = text;
    if (!named)
        setAccessibleName(text);
    updateGeometry();
    update();
    emit textChanged(text);
}

QColor CBPDrawLabel::textColor() const
{
    return lumqt::ownOr(m_color, lumqt::Purpose::LabelText);
}

void CBPDrawLabel::resetTextColor()
{
    m_color = QColor();
    update();
}

bool CBPDrawLabel::isRounded() const
{
    return m_rounded;
}

void CBPDrawLabel::setRounded(bool rounded)
{
    m_rounded = rounded;
    updateGeometry();
    update();
}

int CBPDrawLabel::pixelSize() const
{
    return m_font.pixelSize();
}

void CBPDrawLabel::setPixelSize(int pixelSize)
{
    QString family = fontFamily();
    SetTextFont(family, pixelSize);
}

void CBPDrawLabel::resetPixelSize()
{
    setPixelSize(kPixelSize);
}

QString CBPDrawLabel::fontFamily() const
{
    return m_font.family();
}

void CBPDrawLabel::setFontFamily(const QString &family)
{
    QString copy = family;
    SetTextFont(copy, pixelSize());
}

void CBPDrawLabel::resetFontFamily()
{
    setFontFamily(lumqt::uiFont().family());
}

QSize CBPDrawLabel::sizeHint() const
{
    QSize size = m_layout->lineSize(m_text, m_font);
    if (m_rounded && !m_text.isEmpty()) {
        size.rheight() += 2 * kPillPadding;
        size.rwidth() += size.height();
    }
    return size;
}

// As a label has it: a row in want of room does not squeeze the text away.
QSize CBPDrawLabel::minimumSizeHint() const
{
    return sizeHint();
}

void CBPDrawLabel::paintEvent(QPaintEvent *)
{
    if (m_text.isEmpty())
        return;
    QPainter painter(this);
    if (m_rounded) {
        lumqt::Body pill;
        pill.frame = textColor();
        pill.radiusX = pill.radiusY = height() / 2;
        lumqt::drawBody(painter, rect(), pill);
    }
    // In a rectangle of the text's own size it is never wrapped.
    QRect place(QPoint(), m_layout->lineSize(m_text, m_font));
    place.moveTopLeft(QPoint((width() - place.width()) / 2, (height() - place.height()) / 2));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(textColor());
    m_layout->drawCentred(painter, place, m_text, m_font);
}
