#pragma once

namespace lumqt {

// What a menu has at first, in logical pixels.
constexpr int kMenuItemHeight = 40;
constexpr int kMenuMargin = 6; // left of the images, and between them and the texts
constexpr int kMenuIconWidth = 14;
constexpr int kMenuRadius = 4;
constexpr int kMenuBottomHeight = 6;
constexpr int kMenuSeparatorRectHeight = 0; // as high as an item
constexpr int kMenuSeparatorHeight = 0;
constexpr int kMenuBorderWidth = 0;
constexpr int kMenuSubLevelInset = 2; // of the body of a nested menu, left and right

// By which separators get a height of their own.
constexpr char kMenuSeparatorSheet[] = "QMenu:separator{height: 17px;}";

} // namespace lumqt
