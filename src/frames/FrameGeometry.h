#pragma once

#include "foundation/Internals.h"

#include <QRect>

#include <array>

// Where the parts of a frame lie whose title strip, border and caption buttons the library draws itself.
//
// Plain functions of sizes, in logical pixels. `fw` is the width of the border. Window coordinates begin at
// the outer corner of the border; the client area begins at (fw, titleHeight(fw)) of them.
namespace lumqt::frame {

constexpr int kButtonCount = 6; // ids 0 to 5; there is no button 0, but its place is kept free

enum Part {
    Nothing = -1,
    ListButton = 1,
    Separator = 2,
    MinimizeButton = 3,
    MaximizeButton = 4,
    CloseButton = 5,
    TitleIcon = 7,
};

// Sizes of the buttons' normal images, by id; 0 x 0 where there is none.
using ButtonSizes = std::array<QSize, kButtonCount>;
using ButtonRects = std::array<QRect, kButtonCount>;

LUMQT_TESTED int titleHeight(int fw);

// Where the pointer presses the buttons of a window `width` wide.
LUMQT_TESTED ButtonRects hitRects(int width, int fw, const ButtonSizes &sizes);

// Where they are drawn: 6 pixels further left and a little lower than they are pressed, as applications that
// place things beside them expect.
LUMQT_TESTED ButtonRects paintedRects(int width, int fw, const ButtonSizes &sizes);

// The part at `position`, in window coordinates.
LUMQT_TESTED Part partAt(const QPoint &position, int width, int fw, const ButtonSizes &sizes,
                         const QRect &icon);

LUMQT_TESTED QRect iconRect(int fw, const QSize &icon);

// The caption, behind `icon` if there is one. It runs on to the right, beyond every window: a text that ends
// before captionEnd() is drawn as if there were no end.
LUMQT_TESTED QRect captionRect(int fw, bool hasIcon, int iconWidth);

// Where the caption ends, left of the drawn buttons of a window `width` wide.
LUMQT_TESTED int captionEnd(int width, int fw, const ButtonSizes &sizes);

// The width at which the drawn buttons begin where the caption would, right behind the icon.
LUMQT_TESTED int lowestWidth(int fw, bool hasIcon, int iconWidth, const ButtonSizes &sizes);

// What moves the window, over the width of the client area.
LUMQT_TESTED QRect titleBarRect(int clientWidth, int fw, bool maximized);

// The edges that a pointer at `position` of a window of `size` resizes.
LUMQT_TESTED Qt::Edges edgesAt(const QPoint &position, const QSize &size, int fw);

} // namespace lumqt::frame
