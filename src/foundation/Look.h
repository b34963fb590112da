#pragma once

#include <QColor>
#include <QRect>

class QPainter;

// What fields, indicators and buttons have in common, so that those which stand in one row look like
// one family. Sizes are logical pixels.
namespace lumqt {

constexpr int kFieldHeight = 28; // of a row of fields and push buttons
constexpr int kFieldInset = 8;   // from a field's outer edge to its text
constexpr int kFocusRingWidth = 2;

// 3:1 and more on white and on the dark title bar.
constexpr QRgb kFocusRingColor = 0xff2f86d8;

constexpr QRgb kFieldGround = 0xffffffff;
constexpr QRgb kFieldGroundDisabled = 0xfff4f6f8;
constexpr QRgb kFieldText = 0xff222a3e;
constexpr QRgb kFieldTextDisabled = 0xff8a929c;
constexpr QRgb kFieldFrame = 0xff868686; // 3.6:1 on white
constexpr QRgb kFieldFrameHovered = 0xff3c434b;
constexpr QRgb kFieldFrameDisabled = 0xffbbbbbb;
constexpr QRgb kFieldFrameInvalid = 0xffd13438; // 4.9:1 on white

constexpr QRgb kAccent = 0xff1f71bf; // 5:1 on white, as a text and under a white one
constexpr QRgb kAccentHovered = 0xff185d9f;
constexpr QRgb kAccentPressed = 0xff134d85;
constexpr QRgb kHoveredGround = 0xffedf7f8; // of rows and of what is raised, as push buttons have them
constexpr QRgb kPressedGround = 0xffe2f2f3;
constexpr QRgb kRaisedGround = 0xfff4f6f8; // of headers
constexpr QRgb kRule = 0xffd5dbe1;         // lines that only divide

} // namespace lumqt
