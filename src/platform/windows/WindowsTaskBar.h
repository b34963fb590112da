#pragma once

#include "platform/Platform.h"

namespace lumqt::platform {

// The system's answer for Answers::taskBar.
void showOnTaskBar(QWidget *window, TaskBar what, double done);

} // namespace lumqt::platform
