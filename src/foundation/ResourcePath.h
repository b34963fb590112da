#pragma once

#include "foundation/Internals.h"

#include <QString>

namespace lumqt {

// The absolute path of the resource `name` for a program in `programFolder` (which has "/" as Qt gives it).
// The steps are those of Windows, run with any separator.
LUMQT_TESTED QString resourcePath(const QString &programFolder, const QString &name,
                                  const QString &separator);

} // namespace lumqt
