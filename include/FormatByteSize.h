#pragma once

#include "LumQtGlobal.h"

#include <QString>

/// \file
/// \since 1.0

/// A number of bytes as people read it, such as "1.50 KB": in Bytes, KB, MB, GB or TB, the largest unit of
/// which there is at least one. A unit is 1024 of the one before.
///
/// \a decimals is the number of digits behind the point, 0 to 17 (what lies beyond counts as these); Bytes
/// have none. The point is a point in every language. Negative numbers are in Bytes. With \a zeroAsKilobytes
/// nothing is "0 KB" instead of "0 Bytes". Any thread. \since 1.0
LUMQT_EXPORT QString FormatByteSize(qint64 bytes, bool zeroAsKilobytes = false, int decimals = 2);
