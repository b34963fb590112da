#include "CBPTheme.h"

#include "foundation/Log.h"
#include "foundation/Palette.h"
#include "foundation/ThemeFile.h"
#include "platform/Platform.h"

#include <algorithm>
#include <functional>
#include <memory>

namespace {

constexpr lumqt::BuiltInTheme kBuiltIn[] = {lumqt::BuiltInTheme::Light, lumqt::BuiltInTheme::Dark,
                                            lumqt::BuiltInTheme::Contrast};

QVector<lumqt::NamedTheme> &loaded()
{
    static QVector<lumqt::NamedTheme> themes;
    return themes;
}

bool s_follows = false;

// The theme of a name; null: there is none.
std::unique_ptr<lumqt::Theme> themeNamed(const QString &name)
{
    for (const lumqt::BuiltInTheme base : kBuiltIn) {
        if (name == QLatin1String(lumqt::nameOf(base)))
            return std::make_unique<lumqt::Theme>(lumqt::Theme{base, {}, lumqt::themeOf(base)});
    }
    for (const lumqt::NamedTheme &own : qAsConst(loaded())) {
        if (own.name == name)
            return std::make_unique<lumqt::Theme>(own.theme);
    }
    return nullptr;
}

void show(const QString &name)
{
    if (const auto theme = themeNamed(name))
        lumqt::showTheme(name, *theme);
}

void takeSystems()
{
    lumqt::BuiltInTheme base = lumqt::BuiltInTheme::Light;
    switch (lumqt::platform::answers().appearance()) {
    case lumqt::platform::Appearance::Light:
        break;
    case lumqt::platform::Appearance::Dark:
        base = lumqt::BuiltInTheme::Dark;
        break;
    case lumqt::platform::Appearance::HighContrast:
        base = lumqt::BuiltInTheme::Contrast;
        break;
    }
    const QString name = QLatin1String(lumqt::nameOf(base));
    if (name != CBPTheme::current())
        show(name);
}

} // namespace

CBPTheme *CBPTheme::instance()
{
    static auto *theme = new CBPTheme; // what is connected to it may outlive what is static
    return theme;
}

QStringList CBPTheme::names()
{
    QStringList all;
    for (const lumqt::BuiltInTheme base : kBuiltIn)
        all << QLatin1String(lumqt::nameOf(base));
    for (const lumqt::NamedTheme &own : qAsConst(loaded()))
        all << own.name;
    return all;
}

bool CBPTheme::apply(const QString &name)
{
    const auto theme = themeNamed(name);
    if (!theme) {
        qCWarning(lcLumQt, "There is no theme %s", qUtf8Printable(name));
        return false;
    }
    followSystem(false);
    if (name != current())
        lumqt::showTheme(name, *theme);
    return true;
}

QString CBPTheme::load(const QString &file)
{
    const lumqt::NamedTheme read = lumqt::readTheme(file);
    if (read.name.isEmpty())
        return QString();
    const auto isThis = [&read](const lumqt::NamedTheme &own) { return own.name == read.name; };
    const auto known = std::find_if(loaded().begin(), loaded().end(), isThis);
    if (known == loaded().end()) {
        loaded().append(read);
        return read.name;
    }
    const bool same = known->theme.base == read.theme.base && known->theme.said == read.theme.said &&
                      known->theme.colors == read.theme.colors;
    *known = read;
    if (read.name == current() && !same)
        show(read.name);
    return read.name;
}

QString CBPTheme::current()
{
    return lumqt::shownTheme();
}

QColor CBPTheme::color(Purpose purpose)
{
    return int(purpose) >= 0 && int(purpose) < lumqt::kPurposes ? lumqt::themeColor(purpose) : QColor();
}

void CBPTheme::followSystem(bool follow)
{
    if (follow == s_follows)
        return;
    s_follows = follow;
    lumqt::platform::watchAppearance(follow ? takeSystems : std::function<void()>());
    if (follow)
        takeSystems();
}

bool CBPTheme::isFollowingSystem()
{
    return s_follows;
}

void CBPTheme::givePalette(bool give)
{
    lumqt::setWantsPalette(give);
}

bool CBPTheme::givesPalette()
{
    return lumqt::wantsPalette();
}

QPalette CBPTheme::palette()
{
    return lumqt::themePalette();
}
