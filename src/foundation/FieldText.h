#pragma once

#include "foundation/Internals.h"

class QLineEdit;

// What the text of a line edit is worth. GUI thread only.
namespace lumqt {

// Whether the frame is to say that the text would not be accepted: there is some, its validator or input mask
// does not take it for finished, and the focus has left it. While somebody types, each text is the beginning
// of one that will do, and a red frame at the first letter of a date would scold for nothing. An empty edit
// is not wrong: whether there must be a text, it does not know.
LUMQT_TESTED bool isRefused(const QLineEdit *edit);

// The validator of `edit` only sorts out what cannot be typed; no text is refused.
void setNothingRefused(QLineEdit *edit);

} // namespace lumqt
