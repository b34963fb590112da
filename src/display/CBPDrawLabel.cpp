#include "CBPDrawLabel.h"

#include "foundation/Accessible.h"
#include "foundation/FontLookup.h"
#include "foundation/Log.h"
#include "foundation/Painting.h"

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

CBPDrawLabel::CBPDrawLabel(QString &text, QColor color, bool rounded)
    : m_text(text),
      m_color(penColor(color)),
      m_font(lumqt::uiFont(lumqt::NormalWeight, kPixelSize)),
      m_rounded(rounded),
      m_layout(std::make_unique<lumqt::CachedText>())
{
    lumqt::installAccessible(staticMetaObject.className(), makeAccessible);
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
        pill.frame = m_color;
        pill.radiusX = pill.radiusY = height() / 2;
        lumqt::drawBody(painter, rect(), pill);
    }
    // In a rectangle of the text's own size it is never wrapped.
    QRect place(QPoint(), m_layout->lineSize(m_text, m_font));
    place.moveTopLeft(QPoint((width() - place.width()) / 2, (height() - place.height()) / 2));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(m_color);
    m_layout->drawCentred(painter, place, m_text, m_font);
}
