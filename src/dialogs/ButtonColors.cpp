#include "dialogs/ButtonColors.h"

#include "CBPPushBtn.h"
#include "foundation/Palette.h"

namespace lumqt {

namespace {

// One set of the colours of a standard button, kept in those of the theme until the application sets others.
class KeptColors : public QObject
{
public:
    using Getter = QColor (CBtnObj::*)(int) const;
    using Setter = void (CBtnObj::*)(QVector<QColor>);

    KeptColors(CBPPushBtn *button, Getter get, Setter set, Purpose first)
        : QObject(button), m_button(button), m_get(get), m_set(set), m_first(first)
    {
        put();
        onThemeChange(this, [this] {
            if (isKept())
                put();
        });
    }

private:
    bool isKept() const
    {
        bool same = !(m_button->*m_get)(kThemeStates).isValid(); // else it is a longer list
        for (int state = 0; state < kThemeStates; ++state)
            same = same && (m_button->*m_get)(state) == m_colors.at(state);
        return same;
    }

    void put()
    {
        m_colors.clear();
        for (int state = 0; state < kThemeStates; ++state)
            m_colors << themeColor(m_first, state);
        (m_button->*m_set)(m_colors);
    }

    CBPPushBtn *const m_button;
    const Getter m_get;
    const Setter m_set;
    const Purpose m_first;
    QVector<QColor> m_colors;
};

} // namespace

void colorButton(CBPPushBtn *button, bool secondary)
{
    new KeptColors(button, &CBtnObj::bgColor, &CBtnObj::setBgColor,
                   secondary ? Purpose::SecondaryGround : Purpose::PrimaryGround);
    new KeptColors(button, &CBtnObj::textColor, &CBtnObj::setTextColor,
                   secondary ? Purpose::SecondaryText : Purpose::PrimaryText);
    if (secondary)
        new KeptColors(button, &CBtnObj::frmColor, &CBtnObj::setFrmColor, Purpose::SecondaryFrame);
    button->setFrmTrancent(!secondary);
}

} // namespace lumqt
