#pragma once

class CBPPushBtn;

namespace lumqt {

// Gives a standard button of a dialog the colours of the theme, now and after each change, but for those that
// the application sets.
void colorButton(CBPPushBtn *button, bool secondary);

} // namespace lumqt
