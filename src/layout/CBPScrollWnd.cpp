#include "CBPScrollWnd.h"

#include "CBPStyle.h"

// Callers put it into a layout themselves, and rely on its being nobody's until then.
CBPScrollWnd::CBPScrollWnd(QWidget *)
{
    setFrameShape(QFrame::NoFrame);
    CBPStyle::Apply(this);
}

CBPScrollWnd::~CBPScrollWnd() = default;
