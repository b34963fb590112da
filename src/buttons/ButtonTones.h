#pragma once

#include "foundation/Palette.h"

class CBPPushBtn;
class CBtnObj;

namespace lumqt {

// Which purposes a button has its colours of, as long as no application has set any: for buttons that are
// part of something else, and for classes with a look of their own. The getters report the built-in colours
// of these purposes. GUI thread only.
struct ButtonTones
{
    // The first of four purposes, one per state.
    static void setGround(CBtnObj &button, Purpose first);
    static void setFrame(CBtnObj &button, Purpose first);
    static void setText(CBtnObj &button, Purpose first);

    // While it waits it is disabled, with a look of its own where it has the colours of primary buttons.
    static void setWaiting(CBtnObj &button, bool waits);

    static void setRing(CBPPushBtn &button, Purpose purpose);
    static const QColor &ring(const CBPPushBtn &button);
};

} // namespace lumqt
