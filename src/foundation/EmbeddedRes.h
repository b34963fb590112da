#pragma once

#include "foundation/Internals.h"

#include <QString>

namespace lumqt {

constexpr char kResCopy[] = ":/lumqtlib/res/";

// Where to read the file that a widget calls `path`. The library carries a copy of the folder `res`, which
// serves where an application ships none: where that folder is not there as a whole. A file that is missing
// in a folder that is there is missing.
//
// Names are those of Util::getResFullPath(), or relative to the current directory ("../res/line.png"); any
// other is returned as it is, and so is each where the copy was left out of the build. Whether the folder is
// there counts for one tick of the coarse clock: painters ask. Any thread.
LUMQT_TESTED QString fileToRead(const QString &path);

} // namespace lumqt
