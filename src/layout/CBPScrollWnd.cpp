#include "CBPScrollWnd.h"

#include "CBPStyle.h"
#include "foundation/Tones.h"

#include <QScrollBar>

// Callers put it into a layout themselves, and rely on its being nobody's until then.
CBPScrollWnd::CBPScrollWnd(QWidget *)
{
    setFrameShape(QFrame::NoFrame);
    CBPStyle::Apply(this);
    // Its ground, and what lies on that: the content has it from here.
    lumqt::wearTheme(this, lumqt::groundTones());
    // By this role the style tells a palette of the theme; the content has its own.
    static const QVector<lumqt::PaletteTone> mark = {{QPalette::Base, lumqt::Purpose::Field}};
    for (QScrollBar *bar : {verticalScrollBar(), horizontalScrollBar()})
        lumqt::wearTheme(bar, mark);
}

CBPScrollWnd::~CBPScrollWnd() = default;
