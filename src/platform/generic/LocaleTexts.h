#pragma once

#include "foundation/Internals.h"

#include <QString>

class QLocale;

namespace lumqt::platform {

// A text of `locale`, a LocaleInfo, in the notation of Windows; empty for others.
LUMQT_TESTED QString localeText(const QLocale &locale, unsigned long type);

} // namespace lumqt::platform
