#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <QVector>

class CBPLinkerButton;
class CBPPushBtn;
class CButtonGroupBox;
class QLabel;
class QPainter;
class QPixmap;
class QRect;
class QWidget;

// Colours, type and spacing of the gallery. Everything lies on a grid of 8 pixels; corners are square, as
// those of the library's fields and buttons are.
namespace theme {

const QColor kInk(34, 42, 62);        // titles, and the ground of the side bar
const QColor kText(68, 78, 92);       // explanations
const QColor kCaption(103, 114, 128); // captions: 4.9:1 on white
const QColor kLine(227, 232, 238);    // rules and outlines of panels
const QColor kPanel(247, 249, 251);   // ground of panels
const QColor kAccent(31, 113, 191);   // the library's: 5:1 on white, as a text and under a white one
const QColor kAccentHovered(24, 93, 159);
const QColor kAccentPressed(19, 77, 133);
const QColor kAccentDisabled(165, 198, 229);
const QColor kAccentTint(232, 241, 250);  // grounds of what is marked
const QColor kAccentOnInk(90, 169, 240);  // the same hue on the side bar: 5.7:1
const QColor kRing(47, 134, 216);         // of the keyboard focus
const QColor kSideText(199, 208, 221);    // entries of the side bar: 9:1
const QColor kSideHeading(137, 151, 172); // its group headings: 4.8:1

constexpr int kUnit = 8;
constexpr int kPageMargin = 40;
constexpr int kPageWidth = 864; // of a page's content, in logical pixels
constexpr int kSideBarWidth = 232;
constexpr int kControlHeight = 28; // of whatever stands in a row of controls

enum Weight { Light = 0, Normal = 1, Semibold = 2, Bold = 3 };

// The family of a weight from the font table the library uses, as a font of `pixelSize`.
QFont font(Weight weight, int pixelSize);

// Where a line of English begins in this program's direction: at the right if its pages begin there.
Qt::Alignment lineStart();

// A label in that font and colour. `wrapped`: as wide as there is room, over several lines.
QLabel *label(const QString &text, Weight weight, int pixelSize, const QColor &color, bool wrapped = false);

// Ground, text and frame by state, in the order that the setters of the library's buttons have: normal,
// hovered, pressed, disabled.
QVector<QColor> accents();

// The same for a button that waits: it is disabled meanwhile, and its text is to be read all the more.
QVector<QColor> waitingGrounds();
QVector<QColor> waitingTexts();

// The button of what is done most: a white text on the accent.
CBPPushBtn *primaryButton(const QString &text, QWidget *parent = nullptr);

// A group of buttons in the accent, the selected one filled; for those that are added from now on.
CButtonGroupBox *buttonGroup(bool exclusive);
QVector<QColor> groupTexts();

// A group is as high as its buttons and its frame: lowers its buttons so that it is as high as other
// controls.
void lowerButtons(CButtonGroupBox *group);

// The picture of a file in the colour that the text of a button has in each state; that of a selected one
// does not follow by itself.
void setTintedIcon(CBPPushBtn *button, const QString &file, const QVector<QColor> &textColors, bool selected);

// A link in the accent.
CBPLinkerButton *link(const QString &text, QWidget *parent = nullptr);

// A panel with its outline, on whole device pixels at every scale.
void paintPanel(QPainter &painter, const QRect &rect);

// Gives a widget a ground of one colour.
void fill(QWidget *widget, const QColor &color);

// The path of a picture of res/ ("icon_user.png", "Common/gift_normal.svg").
QString picturePath(const QString &name);

// The frames of the library's spinner.
QStringList spinnerFrames();

// The picture itself, at the density that the screen needs.
QPixmap picture(const QString &name);

// One style and one palette on every system, with a selection that stays visible while another window is in
// front.
void setUpLook();

} // namespace theme
