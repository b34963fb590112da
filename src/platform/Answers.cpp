#include "platform/Platform.h"

namespace lumqt::platform {

Answers &answers()
{
    static Answers inForce = systemAnswers();
    return inForce;
}

} // namespace lumqt::platform
