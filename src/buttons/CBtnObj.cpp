#include "CBtnObj.h"

#include "foundation/Log.h"

namespace {

constexpr int kStateCount = 4; // normal, hover, pressed, disabled

using Colors = QVector<QColor>;

// Shared by all records: a new button copies pointers, not colours.
struct BuiltIn
{
    const Colors background{QColor(0xff, 0xff, 0xff), QColor(0xed, 0xf7, 0xf8), QColor(0xe2, 0xf2, 0xf3),
                            QColor(0xff, 0xff, 0xff)};
    const Colors frame{QColor(0x3c, 0x43, 0x4b), QColor(0xbc, 0xe0, 0xe2), QColor(0x87, 0xc8, 0xcc),
                       QColor(0xbb, 0xbb, 0xbb)};
    const Colors text{QColor(0x66, 0x66, 0x66), QColor(0x66, 0x66, 0x66), QColor(0x66, 0x66, 0x66),
                      QColor(0xbb, 0xbb, 0xbb)};
    const Colors triangle{QColor(0x22, 0x8f, 0xc2), QColor(0x22, 0x8f, 0xc2), QColor(0x22, 0x8f, 0xc2),
                          QColor(0xa0, 0xa0, 0xa0)};
    const QVector<int> radius{0, 0};
};

const BuiltIn &builtIn()
{
    static const BuiltIn values;
    return values;
}

void store(Colors &target, const Colors &colors, const char *what)
{
    if (colors.size() != kStateCount)
        qCWarning(lcLumQt, "%d %s colours for %d states: the built-in ones are painted", colors.size(), what,
                  kStateCount);
    target = colors;
}

QColor painted(const Colors &colors, const Colors &fallback, int index)
{
    return (colors.size() == kStateCount ? colors : fallback).value(index);
}

} // namespace

CBtnObj::CBtnObj()
    : m_bgColor(builtIn().background),
      m_frmColor(builtIn().frame),
      m_textColor(builtIn().text),
      m_focusColor(m_bgColor),
      m_triangleColor(builtIn().triangle),
      m_roundRadius(builtIn().radius)
{
}

void CBtnObj::setState(int state)
{
    if (state >= 0 && state < kStateCount)
        m_state = state;
}

void CBtnObj::setBgColor(QVector<QColor> colors)
{
    store(m_bgColor, colors, "background");
}

void CBtnObj::setFrmColor(QVector<QColor> colors)
{
    store(m_frmColor, colors, "frame");
}

void CBtnObj::setTextColor(QVector<QColor> colors)
{
    store(m_textColor, colors, "text");
}

void CBtnObj::setFocusColor(QVector<QColor> colors)
{
    store(m_focusColor, colors, "focus");
}

void CBtnObj::setTriangleColor(QVector<QColor> colors)
{
    store(m_triangleColor, colors, "triangle");
}

void CBtnObj::setBgTrancent(bool transparent)
{
    for (QColor &color : m_bgColor)
        color.setAlpha(transparent ? 0 : 255);
}

QIcon::Mode CBtnObj::iconMode() const
{
    static constexpr QIcon::Mode modes[kStateCount] = {QIcon::Normal, QIcon::Active, QIcon::Selected,
                                                       QIcon::Disabled};
    return modes[m_state];
}

QColor CBtnObj::paintedBgColor(int index) const
{
    return painted(m_bgColor, builtIn().background, index);
}

QColor CBtnObj::paintedFrmColor(int index) const
{
    return painted(m_frmColor, builtIn().frame, index);
}

QColor CBtnObj::paintedTextColor(int index) const
{
    return painted(m_textColor, builtIn().text, index);
}
