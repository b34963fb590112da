#pragma once

#include <QColor>
#include <QFont>
#include <QString>

class QLabel;
class QPixmap;
class QWidget;

// Colours, type and spacing of the gallery. Everything lies on a grid of 8 pixels.
namespace theme {

const QColor kInk(34, 42, 62);          // titles, and the ground of the side bar
const QColor kText(68, 78, 92);         // explanations
const QColor kCaption(103, 114, 128);   // captions: 4.9:1 on white
const QColor kLine(227, 232, 238);      // rules and outlines of panels
const QColor kPanel(247, 249, 251);     // ground of panels
const QColor kAccent(75, 174, 178);     // the library's two accents
const QColor kAccentDeep(42, 128, 132); // for fills with a white text: 4.7:1
const QColor kAccentBlue(73, 167, 245);
const QColor kSideText(199, 208, 221);    // entries of the side bar: 9:1
const QColor kSideHeading(137, 151, 172); // its group headings: 4.8:1

constexpr int kUnit = 8;
constexpr int kPageMargin = 40;
constexpr int kPageWidth = 864; // of a page's content, in logical pixels
constexpr int kSideBarWidth = 232;

enum Weight { Light = 0, Normal = 1, Semibold = 2, Bold = 3 };

// The family of a weight from the font table the library uses, as a font of `pixelSize`.
QFont font(Weight weight, int pixelSize);

// A label in that font and colour. `wrapped`: as wide as there is room, over several lines.
QLabel *label(const QString &text, Weight weight, int pixelSize, const QColor &color, bool wrapped = false);

// Gives a widget a ground of one colour.
void fill(QWidget *widget, const QColor &color);

// The path of a picture of res/ ("icon_user.png", "Common/gift_normal.svg").
QString picturePath(const QString &name);

// The frames of the library's spinner.
QStringList spinnerFrames();

// The picture itself, at the density that the screen needs.
QPixmap picture(const QString &name);

} // namespace theme
