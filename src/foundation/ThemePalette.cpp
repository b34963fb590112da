// Palettes in the colours of the theme, for what Qt paints itself.

#include "foundation/Palette.h"

#include "foundation/AppStyle.h"
#include "foundation/Tones.h"

#include <QEvent>
#include <QHash>
#include <QPointer>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace lumqt {

namespace {

constexpr QPalette::ColorGroup kGroups[] = {QPalette::Active, QPalette::Inactive, QPalette::Disabled};

// All that Qt's styles ask for, the disabled ones last, over those of all groups.
const QVector<PaletteTone> &wholePalette()
{
    static const QVector<PaletteTone> tones = {
        {QPalette::Window, Purpose::Ground},
        {QPalette::WindowText, Purpose::Text},
        {QPalette::Base, Purpose::Field},
        {QPalette::AlternateBase, Purpose::RaisedGround},
        {QPalette::Text, Purpose::Text},
        {QPalette::PlaceholderText, Purpose::QuietText},
        {QPalette::Button, Purpose::ButtonGround},
        {QPalette::ButtonText, Purpose::Text},
        {QPalette::BrightText, Purpose::Danger},
        {QPalette::Light, Purpose::RaisedGround},
        {QPalette::Midlight, Purpose::Rule},
        {QPalette::Mid, Purpose::Frame},
        {QPalette::Dark, Purpose::Frame},
        {QPalette::Shadow, Purpose::Shadow},
        {QPalette::Highlight, Purpose::Chosen},
        {QPalette::HighlightedText, Purpose::ChosenText},
        {QPalette::Link, Purpose::Link},
        {QPalette::LinkVisited, Purpose::LinkPressed},
        {QPalette::ToolTipBase, Purpose::TipGround},
        {QPalette::ToolTipText, Purpose::Text},
        {QPalette::WindowText, Purpose::DisabledText, QPalette::Disabled},
        {QPalette::Text, Purpose::DisabledText, QPalette::Disabled},
        {QPalette::ButtonText, Purpose::DisabledText, QPalette::Disabled},
        {QPalette::Base, Purpose::FieldDisabled, QPalette::Disabled},
        {QPalette::Highlight, Purpose::ChosenDisabled, QPalette::Disabled},
        {QPalette::HighlightedText, Purpose::DisabledText, QPalette::Disabled},
    };
    return tones;
}

bool s_wanted = false;

constexpr int kRemembered = 4; // palettes that a style sheet may bring back

uint rolesOf(const QVector<PaletteTone> &tones)
{
    uint roles = 0;
    for (const PaletteTone &tone : tones)
        roles |= 1u << tone.role;
    return roles;
}

// The roles that are set in both, to the same brushes; an application's is not ownBrush().
uint agreeing(const QPalette &one, const QPalette &other)
{
    uint roles = one.resolve() & other.resolve();
    for (int role = 0; roles && role < QPalette::NColorRoles; ++role) {
        for (const QPalette::ColorGroup group : kGroups) {
            if (roles & (1u << role) &&
                one.brush(group, QPalette::ColorRole(role)) != other.brush(group, QPalette::ColorRole(role)))
                roles &= ~(1u << role);
        }
    }
    return roles;
}

// Of the windows: where fields and buttons are native, and light whatever their palette, it is the ground
// that these lie on, and what is written on that.
const QVector<PaletteTone> &windowPalette()
{
    return hasNativeLook() ? groundTones() : wholePalette();
}

// What the theme has put into the palette of one widget. A role whose brushes are no longer those that were
// put there was set by somebody else, and is left to him; so is one that somebody has set for a widget
// around.
class Wearer : public QObject
{
public:
    static bool isKnown(const QWidget *widget) { return all().contains(widget); }
    static Wearer *of(QWidget *widget)
    {
        Wearer *known = all().value(widget);
        return known ? known : new Wearer(widget);
    }
    ~Wearer() override { all().remove(m_widget); }

    void wear(const QVector<PaletteTone> &tones, bool whole)
    {
        m_tones += tones;
        m_whole = m_whole || whole;
        renew();
    }
    void keep(const QVector<PaletteTone> &tones)
    {
        m_kept += tones;
        const uint worn = m_worn.resolve();
        m_worn = m_widget->palette(); // so that it is replaced
        m_worn.resolve(worn | rolesOf(tones));
        renew();
    }

protected:
    // A palette that is set takes away what the theme has put into the one before, and a style sheet that
    // goes brings back the one from before it came.
    bool eventFilter(QObject *, QEvent *event) override
    {
        const QEvent::Type type = event->type();
        if (type == QEvent::PaletteChange || type == QEvent::Polish || type == QEvent::ParentChange)
            renew();
        return false;
    }

private:
    explicit Wearer(QWidget *widget) : QObject(widget), m_widget(widget)
    {
        all().insert(widget, this);
        widget->installEventFilter(this);
        onThemeChange(this, [this] { renew(); });
    }

    static QHash<const QWidget *, Wearer *> &all()
    {
        static auto *wearers = new QHash<const QWidget *, Wearer *>; // widgets may outlive what is static
        return *wearers;
    }

    // Of those that are set in `palette`.
    uint wornRoles(const QPalette &palette) const
    {
        uint worn = agreeing(palette, m_worn);
        for (const QPalette &before : m_before)
            worn |= agreeing(palette, before);
        return worn;
    }

    // What somebody has set for the widgets around, in whose palettes a theme's colours do not count.
    uint inheritedRoles() const
    {
        uint roles = 0;
        uint themes = 0;
        const QWidget *inner = m_widget;
        while (!inner->isWindow() && inner->parentWidget()) {
            inner = inner->parentWidget();
            if (inner->testAttribute(Qt::WA_StyleSheet)) // from there Qt inherits no palette
                break;
            const Wearer *around = all().value(inner);
            const uint worn = around ? around->m_worn.resolve() : 0;
            roles |= inner->palette().resolve() & ~worn & ~themes;
            themes |= worn & ~roles; // goes before what is further out
        }
        return roles;
    }

    void remember()
    {
        const auto isWorn = [this](const QPalette &before) {
            return before.resolve() == m_worn.resolve() && agreeing(before, m_worn) == m_worn.resolve();
        };
        if (m_worn.resolve() == 0 || std::any_of(m_before.begin(), m_before.end(), isWorn))
            return;
        if (m_before.size() == kRemembered)
            m_before.removeFirst();
        m_before.append(m_worn);
    }

    QVector<PaletteTone> tonesNow() const
    {
        const bool whole = m_whole && wantsPalette();
        return (whole ? windowPalette() : QVector<PaletteTone>()) +
               (isPlainLight() ? QVector<PaletteTone>() : m_tones) + m_kept;
    }

    void renew()
    {
        if (m_renewing)
            return;
        m_renewing = true;
        // Who hears of the palette may show another theme.
        quint32 theme = 0;
        do {
            theme = themeGeneration();
            put(tonesNow());
        } while (theme != themeGeneration());
        m_renewing = false;
    }

    void put(const QVector<PaletteTone> &tones)
    {
        if (tones.isEmpty() && m_worn.resolve() == 0 && m_before.isEmpty())
            return;
        const QPalette current = m_widget->palette(); // its mask tells of the widget alone
        const uint worn = wornRoles(current);
        // A window is what others inherit from, also where it lies in another one.
        const uint inherited = m_whole ? 0 : inheritedRoles() & ~rolesOf(m_kept);
        const uint others = (current.resolve() & ~worn) | inherited;
        const uint mine = rolesOf(tones) & ~others;
        QPalette next = current;
        next.resolve(current.resolve() & ~worn);
        for (const PaletteTone &tone : tones) {
            if (mine & (1u << tone.role))
                next.setBrush(tone.group, tone.role, ownBrush(themeColor(tone.purpose)));
        }
        remember();
        m_worn = next;
        m_worn.resolve(mine);
        if (next.resolve() != current.resolve() || next != current)
            m_widget->setPalette(next);
    }

    QWidget *m_widget;
    QVector<PaletteTone> m_tones; // in other themes than the plain light one
    QVector<PaletteTone> m_kept;  // in each
    QPalette m_worn;              // its mask: what is worn now
    QVector<QPalette> m_before;
    bool m_whole = false;
    bool m_renewing = false;
};

// What has nothing to wear yet. Few applications ever leave the plain light theme, and their widgets shall
// not pay for the others.
struct Waiting
{
    QPointer<QWidget> widget;
    QVector<PaletteTone> tones;
    bool whole;
};

std::vector<Waiting> &waiting()
{
    static auto *all = new std::vector<Waiting>;
    return *all;
}

bool hasNothingToWear(bool whole)
{
    return isPlainLight() && !(whole && wantsPalette());
}

void wear(QWidget *widget, const QVector<PaletteTone> &tones, bool whole);

void dressTheWaiting()
{
    if (hasNothingToWear(true))
        return;
    std::vector<Waiting> dressed;
    dressed.swap(waiting());
    for (const Waiting &one : dressed) {
        if (one.widget)
            wear(one.widget, one.tones, one.whole);
    }
}

void wait(QWidget *widget, const QVector<PaletteTone> &tones, bool whole)
{
    static bool hears = false;
    if (!hears)
        onThemeChange(ThemeNews::instance(), dressTheWaiting);
    hears = true;
    std::vector<Waiting> &all = waiting();
    if (all.size() == all.capacity()) { // those that are gone make room, before there is more
        all.erase(std::remove_if(all.begin(), all.end(), [](const Waiting &one) { return !one.widget; }),
                  all.end());
        all.reserve(qMax<size_t>(64, 2 * all.size()));
    }
    all.push_back({widget, tones, whole});
}

void wear(QWidget *widget, const QVector<PaletteTone> &tones, bool whole)
{
    if (hasNothingToWear(whole) && !Wearer::isKnown(widget))
        wait(widget, tones, whole);
    else
        Wearer::of(widget)->wear(tones, whole);
}

} // namespace

void wearTheme(QWidget *widget, const QVector<PaletteTone> &tones)
{
    wear(widget, tones, false);
}

void keepTheme(QWidget *part, const QVector<PaletteTone> &tones)
{
    Wearer::of(part)->keep(tones);
}

void wearWholeTheme(QWidget *widget)
{
    wearTheme(widget, wholePalette());
}

void wearPalette(QWidget *window)
{
    sharePalette();
    wear(window, {}, true);
}

QPalette themePalette()
{
    QPalette palette;
    for (const PaletteTone &tone : wholePalette())
        palette.setColor(tone.group, tone.role, themeColor(tone.purpose));
    return palette;
}

bool wantsPalette()
{
    return s_wanted;
}

void setWantsPalette(bool wants)
{
    if (wants == s_wanted)
        return;
    s_wanted = wants;
    emit ThemeNews::instance()->renewed();
}

} // namespace lumqt
