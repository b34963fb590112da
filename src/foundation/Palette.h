#pragma once

#include "CBPTheme.h"
#include "foundation/Internals.h"

#include <QBrush>
#include <QColor>
#include <QPalette>
#include <QVector>

#include <array>
#include <bitset>

class QWidget;

// The colours of the library by purpose, in the current theme. Painters ask here for each colour that no
// application has set. GUI thread only.
namespace lumqt {

using Purpose = CBPTheme::Purpose;

constexpr int kPurposes = int(Purpose::PanelGround) + 1;
constexpr int kThemeStates = 4; // of a run of purposes: normal, under the mouse, pressed, disabled

using ThemeColors = std::array<QColor, kPurposes>;

// As many colours as there are purposes, in the themes of the library.
enum class BuiltInTheme { Light, Dark, Contrast };
const char *nameOf(BuiltInTheme theme);

// The colours of a theme: of the library's, with those of `own` that `said` tells of put over it, and
// followed by what has the same colour by purpose.
LUMQT_TESTED ThemeColors themeOf(BuiltInTheme base, const ThemeColors &own = {},
                                 const std::bitset<kPurposes> &said = {});

struct Theme
{
    BuiltInTheme base = BuiltInTheme::Light; // whose pictures it has, too
    std::bitset<kPurposes> said;             // what a file of its own says
    ThemeColors colors;
};

extern LUMQT_TESTED ThemeColors paintedColors; // of the current theme

inline const QColor &themeColor(Purpose purpose)
{
    return paintedColors[size_t(purpose)];
}

// The one of a run of purposes that begins with `first`; a number that is no state has the first.
inline const QColor &themeColor(Purpose first, int state)
{
    return paintedColors[size_t(first) + size_t(state >= 0 && state < kThemeStates ? state : 0)];
}

// What is reported of a colour that nobody has set, in each theme.
LUMQT_TESTED QColor builtInColor(Purpose purpose);
LUMQT_TESTED QVector<QColor> builtInColors(Purpose first);

// `own`, if an application has set it, else the theme's.
inline const QColor &ownOr(const QColor &own, Purpose purpose)
{
    return own.isValid() ? own : themeColor(purpose);
}

// A brush of that colour that is not equal to one that an application makes, wherever it is kept: so the
// library knows what is its own, even where an application sets the same colour.
LUMQT_TESTED QBrush ownBrush(const QColor &color);

// Whether it is the light theme of the library, in which a widget keeps the palette that it inherits.
bool isPlainLight();

// How opaque the picture of what is disabled is drawn: `light` in light themes, and not so pale in the
// others.
LUMQT_TESTED qreal disabledOpacity(qreal light);

// Whether the theme itself says the colour of a title bar; otherwise the settings file goes before.
bool themeSays(Purpose purpose);

// The folder of the theme's pictures below `res`, empty for the light ones; and a number that is another one
// after each change.
LUMQT_TESTED QString themeFolder();
quint32 themeGeneration();

// Has all widgets of the application painted anew.
void repaintEverything();

// Changes the current theme and tells everybody; every window is repainted.
void showTheme(const QString &name, const Theme &theme);
const QString &shownTheme();

// What the library's own objects hear before any application.
class ThemeNews : public QObject
{
    Q_OBJECT

public:
    static ThemeNews *instance();

signals:
    void renewed();
};

// Calls `renew` after each change, as long as `context` lives. For what keeps a colour, not for buttons, of
// which there are hundreds: those ask while they paint.
template <class Function> void onThemeChange(const QObject *context, Function renew)
{
    QObject::connect(ThemeNews::instance(), &ThemeNews::renewed, context, renew);
}

// A role of a palette, in all groups or in one.
struct PaletteTone
{
    QPalette::ColorRole role;
    Purpose purpose;
    QPalette::ColorGroup group = QPalette::All;
};

// Keeps these colours in the palette of `widget`, in each theme but the plain light one, where it keeps what
// it inherits. What an application sets stays, in the palette of this widget or, as long as Qt inherits it,
// of one around. A tone for one group comes after one of the same role for all.
LUMQT_TESTED void wearTheme(QWidget *widget, const QVector<PaletteTone> &tones);

// The same also in the plain light theme, for a part of ours that has colours of its own there. What is in
// these roles now, is not an application's.
LUMQT_TESTED void keepTheme(QWidget *part, const QVector<PaletteTone> &tones);

// The same of all that Qt's styles ask for: for what has parts of every kind, such as views.
void wearWholeTheme(QWidget *widget);

// The same with the whole palette of the theme, also the light one, for a window, while applications want it.
LUMQT_TESTED void wearPalette(QWidget *window);

// Gives it also to the menus and tips of the application, now and after each change; once is enough.
void sharePalette();

QPalette themePalette();
bool wantsPalette();
void setWantsPalette(bool wants);

} // namespace lumqt
