#include "CBtnObj.h"

#include "buttons/ButtonTones.h"
#include "foundation/ListText.h"
#include "foundation/Log.h"

#include <QWidget>

namespace {

constexpr int kStateCount = 4; // normal, hover, pressed, disabled
constexpr int kDisabled = 3;

using Colors = QVector<QColor>;
using P = lumqt::Purpose;

constexpr short kGround = short(P::ButtonGround);
constexpr short kFrame = short(P::ButtonFrame);
constexpr short kText = short(P::ButtonText);
constexpr short kTriangle = short(P::ButtonTriangle);

// The built-in colours of a run of purposes. Shared by all records: a new button copies pointers, not
// colours; and a list that still shares them is one that nobody has set, whatever way derived classes have to
// it.
const Colors &builtIn(short first)
{
    static std::array<Colors, lumqt::kPurposes> lists;
    Colors &list = lists[size_t(first)];
    if (list.isEmpty())
        list = lumqt::builtInColors(P(first));
    return list;
}

// The same see-through, for setBgTrancent().
const Colors &builtInTransparent(short first)
{
    static std::array<Colors, lumqt::kPurposes> lists;
    Colors &list = lists[size_t(first)];
    if (list.isEmpty()) {
        list = builtIn(first);
        for (QColor &color : list)
            color.setAlpha(0);
    }
    return list;
}

const QVector<int> &squareCorners()
{
    static const QVector<int> radii{0, 0};
    return radii;
}

bool shares(const Colors &colors, const Colors &others)
{
    return colors.constData() == others.constData();
}

bool isOwn(const Colors &colors, short first)
{
    return colors.size() == kStateCount && !shares(colors, builtIn(first));
}

void store(Colors &target, const Colors &colors, const char *what)
{
    if (colors.size() != kStateCount)
        qCWarning(lcLumQt, "%d %s colours for %d states: the built-in ones are painted", int(colors.size()),
                  what, kStateCount);
    target = colors;
    if (!target.isEmpty())
        target.detach(); // the built-in one, set by a derived class, is set all the same
}

QColor painted(const Colors &colors, short first, int index, bool waits = false)
{
    if (isOwn(colors, first))
        return colors.value(index);
    if (waits && index == kDisabled && first == short(P::PrimaryGround))
        return lumqt::themeColor(P::WaitingGround);
    if (waits && index == kDisabled && first == short(P::PrimaryText))
        return lumqt::themeColor(P::WaitingText);
    return index >= 0 && index < kStateCount ? lumqt::themeColor(P(first), index) : QColor();
}

} // namespace

CBtnObj::CBtnObj()
    : m_bgColor(builtIn(kGround)),
      m_frmColor(builtIn(kFrame)),
      m_textColor(builtIn(kText)),
      m_focusColor(m_bgColor),
      m_triangleColor(builtIn(kTriangle)),
      m_roundRadius(squareCorners()),
      m_bgPurpose(kGround),
      m_frmPurpose(kFrame),
      m_textPurpose(kText),
      m_ownBgPurpose(kGround),
      m_ownFrmPurpose(kFrame),
      m_ownTextPurpose(kText)
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
    m_bgPurpose = kGround;
}

void CBtnObj::setFrmColor(QVector<QColor> colors)
{
    store(m_frmColor, colors, "frame");
    m_frmPurpose = kFrame;
}

void CBtnObj::setTextColor(QVector<QColor> colors)
{
    store(m_textColor, colors, "text");
    m_textPurpose = kText;
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
    m_bgTrancent = transparent;
    const Colors &opaque = builtIn(m_bgPurpose);
    const Colors &clear = builtInTransparent(m_bgPurpose);
    if (shares(m_bgColor, opaque) || shares(m_bgColor, clear)) {
        m_bgColor = transparent ? clear : opaque; // opaque again, it is the theme's
        return;
    }
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
    return painted(m_bgColor, m_bgPurpose, index, m_waits);
}

QColor CBtnObj::paintedFrmColor(int index) const
{
    return painted(m_frmColor, m_frmPurpose, index);
}

QColor CBtnObj::paintedTextColor(int index) const
{
    return painted(m_textColor, m_textPurpose, index, m_waits);
}

QColor CBtnObj::paintedTriangleColor(int index) const
{
    const QColor color = painted(m_triangleColor, kTriangle, index);
    return color.isValid() ? color : lumqt::themeColor(P(kTriangle), index);
}

bool CBtnObj::hasOwnTextColor() const
{
    return isOwn(m_textColor, m_textPurpose);
}

// ----------------------------------------------------------------------------------------------------------
// colours by name

QStringList CBtnObj::backgroundColors() const
{
    return lumqt::colorNames(m_bgColor);
}

// In a form or a style sheet colours and transparency come in any order.
void CBtnObj::setBackgroundColors(const QStringList &names)
{
    if (names.isEmpty())
        return resetBackgroundColors();
    setBgColor(lumqt::colorsOf(names));
    if (m_bgTrancent)
        CBtnObj::setBgTrancent(true);
    repaintOwner();
}

void CBtnObj::resetBackgroundColors()
{
    m_bgPurpose = m_ownBgPurpose;
    m_bgColor = m_bgTrancent ? builtInTransparent(m_bgPurpose) : builtIn(m_bgPurpose);
    repaintOwner();
}

QStringList CBtnObj::frameColors() const
{
    return lumqt::colorNames(m_frmColor);
}

void CBtnObj::setFrameColors(const QStringList &names)
{
    if (names.isEmpty())
        return resetFrameColors();
    setFrmColor(lumqt::colorsOf(names));
    repaintOwner();
}

void CBtnObj::resetFrameColors()
{
    m_frmPurpose = m_ownFrmPurpose;
    m_frmColor = builtIn(m_frmPurpose);
    repaintOwner();
}

QStringList CBtnObj::textColors() const
{
    return lumqt::colorNames(m_textColor);
}

void CBtnObj::setTextColors(const QStringList &names)
{
    if (names.isEmpty())
        return resetTextColors();
    setTextColor(lumqt::colorsOf(names));
    repaintOwner();
}

void CBtnObj::resetTextColors()
{
    m_textPurpose = m_ownTextPurpose;
    m_textColor = builtIn(m_textPurpose);
    repaintOwner();
}

QStringList CBtnObj::triangleColors() const
{
    return lumqt::colorNames(m_triangleColor);
}

void CBtnObj::setTriangleColors(const QStringList &names)
{
    if (names.isEmpty())
        return resetTriangleColors();
    setTriangleColor(lumqt::colorsOf(names));
    repaintOwner();
}

void CBtnObj::resetTriangleColors()
{
    m_triangleColor = builtIn(kTriangle);
    repaintOwner();
}

void CBtnObj::setCornerRadius(int radius)
{
    setRoundRadius({radius, radius});
    repaintOwner();
}

void CBtnObj::resetCornerRadius()
{
    setRoundRadius(squareCorners());
    repaintOwner();
}

void CBtnObj::repaintOwner()
{
    if (m_owner.widget)
        m_owner.widget->update();
}

// ----------------------------------------------------------------------------------------------------------
// buttons that are part of something

void lumqt::ButtonTones::setGround(CBtnObj &button, Purpose first)
{
    button.m_bgPurpose = short(first);
    button.m_ownBgPurpose = short(first);
    button.m_bgColor = builtIn(short(first));
}

void lumqt::ButtonTones::setFrame(CBtnObj &button, Purpose first)
{
    button.m_frmPurpose = short(first);
    button.m_ownFrmPurpose = short(first);
    button.m_frmColor = builtIn(short(first));
}

void lumqt::ButtonTones::setWaiting(CBtnObj &button, bool waits)
{
    button.m_waits = waits;
}

void lumqt::ButtonTones::setText(CBtnObj &button, Purpose first)
{
    button.m_textPurpose = short(first);
    button.m_ownTextPurpose = short(first);
    button.m_textColor = builtIn(short(first));
}
