#include "CBPScrollWnd.h"

#include "CBPStyle.h"
#include "foundation/Palette.h"

#include <QScrollBar>

// Callers put it into a layout themselves, and rely on its being nobody's until then.
CBPScrollWnd::CBPScrollWnd(QWidget *)
{
    setFrameShape(QFrame::NoFrame);
    CBPStyle::Apply(this);
    // Its ground, and what lies on that: the content has it from here.
    lumqt::wearTheme(this, {{QPalette::Window, lumqt::Purpose::Ground},
                            {QPalette::WindowText, lumqt::Purpose::Text},
                            {QPalette::WindowText, lumqt::Purpose::DisabledText, QPalette::Disabled}});
    // By this role the style tells a palette of the theme; the content has its own.
    for (QScrollBar *bar : {verticalScrollBar(), horizontalScrollBar()})
        lumqt::wearTheme(bar, {{QPalette::Base, lumqt::Purpose::Field}});
}

CBPScrollWnd::~CBPScrollWnd() = default;
