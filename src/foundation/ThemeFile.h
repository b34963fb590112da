#pragma once

#include "foundation/Palette.h"

namespace lumqt {

struct NamedTheme
{
    QString name; // empty: the file is of no use, which the log says
    Theme theme;
};

// What an application's theme file says, over the theme that it names as its base.
NamedTheme readTheme(const QString &file);

} // namespace lumqt
