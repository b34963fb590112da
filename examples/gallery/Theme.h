#pragma once

#include "CBPTheme.h"

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QObject>
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

using Purpose = CBPTheme::Purpose;

// A colour of the gallery: in the library's light theme its own, in every other one the answer for a purpose,
// or what lies between two, `percent` of the way to the second. It is a QColor of the current theme wherever
// one is wanted; who keeps that, follows the theme.
class Tone
{
public:
    constexpr Tone(QRgb light, Purpose purpose) : Tone(light, purpose, purpose, 0) {}
    constexpr Tone(QRgb light, Purpose from, Purpose to, int percent)
        : m_light(light), m_from(from), m_to(to), m_percent(percent)
    {}

    // For the side bar, which is dark in most themes: `light` wherever it is, but for high contrast.
    static constexpr Tone onSide(QRgb light, Purpose purpose)
    {
        Tone tone(light, purpose);
        tone.m_onSide = true;
        return tone;
    }

    QColor color() const;
    operator QColor() const { return color(); }

private:
    QRgb m_light; // and its alpha
    Purpose m_from;
    Purpose m_to;
    int m_percent;
    bool m_onSide = false;
};

QVector<QColor> colorsOf(const QVector<Tone> &tones);

constexpr Tone kGround{0xffffffff, Purpose::Ground};
constexpr Tone kInk{0xff222a3e, Purpose::Text};                             // titles
constexpr Tone kText{0xff444e5c, Purpose::Text, Purpose::QuietText, 50};    // explanations
constexpr Tone kCaption{0xff677280, Purpose::QuietText};                    // 4.9:1 on white
constexpr Tone kFaint{0xff969ea8, Purpose::DisabledText};                   // texts of what is disabled
constexpr Tone kLine{0xffe3e8ee, Purpose::Ground, Purpose::Rule, 50};       // rules and outlines of panels
constexpr Tone kPanel{0xfff7f9fb, Purpose::RaisedGround};                   // ground of panels
constexpr Tone kAccent{0xff1f71bf, Purpose::Accent};                        // 5:1 on white, and under it
constexpr Tone kAccentHovered{0xff185d9f, Purpose::AccentHovered};
constexpr Tone kAccentPressed{0xff134d85, Purpose::AccentPressed};
constexpr Tone kAccentDisabled{0xffa5c6e5, Purpose::PrimaryGroundDisabled};
constexpr Tone kOnAccent{0xffffffff, Purpose::OnAccent};
constexpr Tone kOnAccentDisabled{0xffffffff, Purpose::PrimaryTextDisabled};
constexpr Tone kAccentTint{0xffe8f1fa, Purpose::Ground, Purpose::Accent, 20};     // grounds of what is marked
constexpr Tone kAccentTintDeep{0xffcde1f3, Purpose::Ground, Purpose::Accent, 35}; // the same while pressed
constexpr Tone kRing{0xff2f86d8, Purpose::FocusRing};                             // of the keyboard focus
constexpr Tone kOrange{0xffb05414, Purpose::Warning};
constexpr Tone kTeal{0xff4baeb2, Purpose::SecondAccent};

// The side bar and other grounds that have the colour of title bars.
constexpr Tone kSide{0xff222a3e, Purpose::TitleGround};
constexpr Tone kSideMarked = Tone::onSide(0xffffffff, Purpose::Text);      // the entry of the page on show
constexpr Tone kSideText = Tone::onSide(0xffc7d0dd, Purpose::Text);        // entries of the side bar: 9:1
constexpr Tone kSideHeading = Tone::onSide(0xff8997ac, Purpose::TitleText); // its group headings: 4.8:1
constexpr Tone kSideSlider = Tone::onSide(0xff6a7893, Purpose::ScrollSlider);
constexpr Tone kSideSliderHovered = Tone::onSide(0xff8593ad, Purpose::ScrollSliderHovered);
constexpr Tone kAccentOnSide{0xff5aa9f0, Purpose::Accent, Purpose::TextTipLight, 40}; // 5.7:1

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

// Calls `renew` now and after each change of the theme, as long as `context` lives: for what keeps a colour or
// a picture.
template <class Function> void follow(const QObject *context, Function renew)
{
    renew();
    QObject::connect(CBPTheme::instance(), &CBPTheme::changed, context, renew);
}

// A label in that font and colour. `wrapped`: as wide as there is room, over several lines.
QLabel *label(const QString &text, Weight weight, int pixelSize, const Tone &tone, bool wrapped = false);

// The same for what is there already, and the texts of a field in all its states.
void setTone(QWidget *widget, const Tone &tone);
void setFieldTexts(QWidget *field);

// Ground, text and frame by state, in the order that the setters of the library's buttons have: normal,
// hovered, pressed, disabled.
QVector<QColor> accents();
QVector<QColor> onAccents();

// The same for a button that waits: it is disabled meanwhile, and its text is to be read all the more.
QVector<QColor> waitingGrounds();
QVector<QColor> waitingTexts();

// The button of what is done most: a white text on the accent.
CBPPushBtn *primaryButton(const QString &text, QWidget *parent = nullptr);

// Ground, frame and text of a button as that one has them.
template <class Button> void fillButton(Button *button)
{
    follow(button, [button] {
        button->setBgColor(accents());
        button->setFrmColor(accents());
        button->setTextColor(onAccents());
    });
}

// The same for a button that waits, which has no frame.
template <class Button> void fillWaitingButton(Button *button)
{
    follow(button, [button] {
        button->setBgColor(waitingGrounds());
        button->setTextColor(waitingTexts());
    });
    button->setFrmTrancent(true);
}

// A group of buttons in the accent, the selected one filled.
CButtonGroupBox *buttonGroup(bool exclusive);
QVector<QColor> groupTexts();

// A group is as high as its buttons and its frame: lowers its buttons so that it is as high as other
// controls.
void lowerButtons(CButtonGroupBox *group);

// A button that sizes itself does so anew for each icon: gives it back the width that it was fixed at.
class KeptWidth
{
public:
    explicit KeptWidth(QWidget *button);
    ~KeptWidth();

private:
    Q_DISABLE_COPY(KeptWidth)

    QWidget *m_button;
    int m_width; // 0: none
};

// The picture of a file in the colour that the text of a button has in each state; that of a selected one
// does not follow by itself.
void setTintedIcon(CBPPushBtn *button, const QString &file, const QVector<QColor> &textColors, bool selected);

// The picture of a file of res/, as the theme has it.
QIcon icon(const QString &name);
template <class Button> void setIcon(Button *button, const QString &name)
{
    button->setIcon(icon(name));
    QObject::connect(CBPTheme::instance(), &CBPTheme::changed, button, [button, name] {
        const KeptWidth kept(button);
        button->setIcon(icon(name));
    });
}

// A link in the accent.
CBPLinkerButton *link(const QString &text, QWidget *parent = nullptr);

// A panel with its outline, on whole device pixels at every scale.
void paintPanel(QPainter &painter, const QRect &rect, const QColor &ground = kPanel);

// Gives a widget a ground of one colour.
void fill(QWidget *widget, const Tone &tone);

// A widget with a ground of one colour, and an outline where the page has the same.
QWidget *ground(const Tone &tone);

// The path of a picture of res/ ("icon_user.png", "Common/gift_normal.svg").
QString picturePath(const QString &name);

// The frames of the library's spinner.
QStringList spinnerFrames();

// The picture itself as the theme has it, at the density that the screen needs.
QPixmap picture(const QString &name);

// One style and one palette on every system, with a selection that stays visible while another window is in
// front.
void setUpLook();

} // namespace theme
