// Palettes in the colours of the theme, for what Qt paints itself.

#include "foundation/Palette.h"

#include "foundation/AppStyle.h"
#include "foundation/QtCompat.h"
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

PaletteMarks rolesOf(const QVector<PaletteTone> &tones)
{
    PaletteMarks roles = 0;
    for (const PaletteTone &tone : tones)
        roles |= marksOf(tone.role);
    return roles;
}

// The roles that are set in both, to the same brushes; an application's is not ownBrush().
PaletteMarks agreeing(const QPalette &one, const QPalette &other)
{
    PaletteMarks roles = ownRoles(one) & ownRoles(other);
    for (int each = 0; roles && each < QPalette::NColorRoles; ++each) {
        const auto role = QPalette::ColorRole(each);
        for (const QPalette::ColorGroup group : kGroups) {
            if (roles & marksOf(role) && one.brush(group, role) != other.brush(group, role))
                roles &= ~marksOf(role);
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
        const PaletteMarks worn = marksOf(m_worn);
        m_worn = m_widget->palette(); // so that it is replaced
        setMarks(m_worn, worn | rolesOf(tones));
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
    PaletteMarks wornRoles(const QPalette &palette) const
    {
        PaletteMarks worn = agreeing(palette, m_worn);
        for (const QPalette &before : m_before)
            worn |= agreeing(palette, before);
        return worn;
    }

    // What somebody has set for the widgets around, in whose palettes a theme's colours do not count.
    PaletteMarks inheritedRoles() const
    {
        PaletteMarks roles = 0;
        PaletteMarks themes = 0;
        const QWidget *inner = m_widget;
        while (!inner->isWindow() && inner->parentWidget()) {
            inner = inner->parentWidget();
            if (inner->testAttribute(Qt::WA_StyleSheet)) // from there Qt inherits no palette
                break;
            const Wearer *around = all().value(inner);
            const PaletteMarks worn = around ? marksOf(around->m_worn) : 0;
            roles |= ownRoles(inner->palette()) & ~worn & ~themes;
            themes |= worn & ~roles; // goes before what is further out
        }
        return roles;
    }

    void remember()
    {
        const auto isWorn = [this](const QPalette &before) {
            return marksOf(before) == marksOf(m_worn) && agreeing(before, m_worn) == marksOf(m_worn);
        };
        if (marksOf(m_worn) == 0 || std::any_of(m_before.begin(), m_before.end(), isWorn))
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
        if (tones.isEmpty() && marksOf(m_worn) == 0 && m_before.isEmpty())
            return;
        const QPalette current = m_widget->palette(); // its mask tells of the widget alone
        const PaletteMarks worn = wornRoles(current);
        // A window is what others inherit from, also where it lies in another one.
        const PaletteMarks inherited = m_whole ? 0 : inheritedRoles() & ~rolesOf(m_kept);
        const PaletteMarks others = (ownRoles(current) & ~worn) | inherited;
        const PaletteMarks mine = rolesOf(tones) & ~others;
        QPalette next = current;
        setMarks(next, marksOf(current) & ~worn);
        for (const PaletteTone &tone : tones) {
            if (mine & marksOf(tone.role))
                next.setBrush(tone.group, tone.role, ownBrush(themeColor(tone.purpose)));
        }
        setMarks(next, marksOf(next) | mine);
        remember();
        m_worn = next;
        setMarks(m_worn, mine);
        if (marksOf(next) != marksOf(current) || next != current)
            m_widget->setPalette(next);
    }

    QWidget *m_widget;
    QVector<PaletteTone> m_tones; // in other themes than the plain light one
    QVector<PaletteTone> m_kept;  // in each
    QPalette m_worn;              // its marks: what is worn now, whole roles
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
