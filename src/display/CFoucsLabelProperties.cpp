// What a title is made with, one by one.

#include "CFoucsLabel.h"

#include "foundation/ListText.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"

using lumqt::Purpose;

namespace {

constexpr int kSpacing = 10; // pixels

} // namespace

CFoucsLabel::CFoucsLabel(QWidget *parent) : CFoucsLabel(QString(), 0, kSpacing, QString(), parent) {}

int CFoucsLabel::indent() const
{
    return m_indent;
}

void CFoucsLabel::setIndent(int indent)
{
    m_indent = qMax(0, lumqt::boundedPixels(indent));
    updateGeometry();
    update();
}

int CFoucsLabel::spacing() const
{
    return m_spacing;
}

void CFoucsLabel::setSpacing(int spacing)
{
    m_spacing = qMax(0, lumqt::boundedPixels(spacing));
    updateGeometry();
    update();
}

void CFoucsLabel::resetSpacing()
{
    setSpacing(kSpacing);
}

QStringList CFoucsLabel::leadIcons() const
{
    return m_leadIcons;
}

void CFoucsLabel::setLeadIcons(const QStringList &files)
{
    SetIconPath(lumqt::listOf(files), m_tailIcons);
}

QStringList CFoucsLabel::tailIcons() const
{
    return m_tailIcons;
}

void CFoucsLabel::setTailIcons(const QStringList &files)
{
    SetIconPath(m_leadIcons, lumqt::listOf(files));
}

QColor CFoucsLabel::plainColor() const
{
    return lumqt::ownOr(m_plainColor, Purpose::HeadingText);
}

void CFoucsLabel::setPlainColor(const QColor &color)
{
    SetColor(color, m_focusedColor);
}

void CFoucsLabel::resetPlainColor()
{
    setPlainColor(QColor());
}

QColor CFoucsLabel::focusedColor() const
{
    return lumqt::ownOr(m_focusedColor, Purpose::HeadingFocused);
}

void CFoucsLabel::setFocusedColor(const QColor &color)
{
    SetColor(m_plainColor, color);
}

void CFoucsLabel::resetFocusedColor()
{
    setFocusedColor(QColor());
}

bool CFoucsLabel::isTailIconVisible() const
{
    return m_showsTail;
}

void CFoucsLabel::setTailIconVisible(bool visible)
{
    m_showsTail = visible;
    updateGeometry();
    update();
}
