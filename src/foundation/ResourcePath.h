#pragma once

#include "foundation/Internals.h"

#include <QString>

namespace lumqt {

// The folder that the names of a program in `programFolder` (which has "/" as Qt gives it) are relative to,
// up to its separator.
QString resourceBase(const QString &programFolder, const QString &separator);

// What comes after it for the resource `name`.
QString resourceTail(const QString &name, const QString &separator);

// The absolute path of the resource `name` for a program in `programFolder`.
// The steps are those of Windows, run with any separator.
LUMQT_TESTED QString resourcePath(const QString &programFolder, const QString &name,
                                  const QString &separator);

} // namespace lumqt
