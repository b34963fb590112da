#pragma once

#include "platform/Platform.h"

#include <QString>

namespace lumqt {

// A file's stamp, and what it is worth: for what is kept of a file's content until the file is another one.
struct FileLook
{
    platform::FileStamp stamp;
    bool settled = true; // looked at long enough after the change

    // Whether a content read at this look is still the file's, which now has the stamp `now`.
    bool holdsFor(const platform::FileStamp &now) const { return settled && stamp == now; }
};

// Also of names that only Qt can look up. Any thread.
platform::FileStamp stampOf(const QString &file);

FileLook lookAt(const QString &file);

} // namespace lumqt
