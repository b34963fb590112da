#include "foundation/Palette.h"

#include <QApplication>
#include <QWidget>

namespace lumqt {

namespace {

using P = Purpose;

// A colour, or that of a purpose further up.
struct Tone
{
    constexpr Tone(QRgb value) : rgb(value) {}
    constexpr Tone(Purpose purpose) : of(int(purpose)) {}

    QRgb rgb = 0;
    int of = -1;
};

struct Row
{
    Purpose purpose;
    Tone light;
    Tone dark;
    Tone contrast;
};

// clang-format off
constexpr Row kTable[] = {
    // What everything is made of; the parts further down are of these colours where a theme says nothing else.
    {P::Ground, 0xffffffff, 0xff1c212c, 0xff000000},
    {P::RaisedGround, 0xfff4f6f8, 0xff262d3b, 0xff000000},
    {P::Field, 0xffffffff, 0xff151922, 0xff000000},
    {P::FieldDisabled, 0xfff4f6f8, 0xff20262f, 0xff000000},
    {P::Text, 0xff222a3e, 0xffe8ecf3, 0xffffffff},
    {P::QuietText, 0xff677280, 0xffaab4c3, 0xffffffff},
    {P::DisabledText, 0xff8a929c, 0xff97a4b8, 0xffb4b4b4},
    {P::Frame, 0xff868686, 0xff7d8a9e, 0xffffffff},
    {P::FrameHovered, 0xff3c434b, 0xffc3ccd9, 0xffffff00},
    {P::FrameDisabled, 0xffbbbbbb, 0xff6f7b8f, 0xffb4b4b4},
    {P::Rule, 0xffd5dbe1, 0xff6f7b8f, 0xffffffff},
    {P::Accent, 0xff1f71bf, 0xff4da3f0, 0xff1aebff},
    {P::AccentHovered, 0xff185d9f, 0xff6cb4f5, 0xff8ff5ff},
    {P::AccentPressed, 0xff134d85, 0xff3a8edd, 0xffffffff},
    {P::OnAccent, 0xffffffff, 0xff0d1420, 0xff000000},
    {P::SecondAccent, 0xff4baeb2, 0xff54c2c6, 0xff3ff23f},
    {P::Hovered, 0xffedf7f8, 0xff2f3848, 0xff2b2b2b},
    {P::Pressed, 0xffe2f2f3, 0xff1f3550, 0xff003a44},
    {P::Chosen, P::Accent, P::Accent, P::Accent},
    {P::ChosenText, P::OnAccent, P::OnAccent, P::OnAccent},
    {P::ChosenInactive, 0xffd5dbe1, 0xff3a4559, 0xff003a44},
    {P::ChosenDisabled, 0xffd5dbe1, 0xff2a3241, 0xff242424},
    {P::FocusRing, 0xff2f86d8, 0xff6cb4f5, 0xffffff00},
    {P::Danger, 0xffd13438, 0xffff7b7b, 0xffff9b9b},
    {P::Warning, 0xffe3951f, 0xffffb454, 0xffffff00},
    {P::Success, 0xff2e8b57, 0xff6fd08c, 0xff3ff23f},
    {P::Link, 0xff008cff, 0xff6cb4f5, 0xffffff00},
    {P::LinkHovered, 0xff008cff, 0xff8fc6f8, 0xffffffff},
    {P::LinkPressed, 0xff53b2ff, 0xff4da3f0, 0xff1aebff},
    {P::LinkDisabled, 0xffbdbdbd, P::DisabledText, P::DisabledText},
    {P::Badge, 0xffe02020, 0xffff7b7b, 0xffff9b9b},
    {P::Shadow, 0xff141c2c, 0xff000000, 0xff000000},
    // Title bars. Of a theme of the library, UIConfig.ini goes before.
    {P::TitleGround, 0xff222a3e, 0xff222a3e, 0xff000000},
    {P::TitleText, 0xff7f8fa4, 0xff93a3b8, 0xffffffff},
    {P::TitleLine, 0x00000000, 0x00000000, 0xffffffff},
    {P::TitleNotice, 0xffe02020, 0xffff7b7b, 0xffff9b9b},
    {P::TitleButton, 0xff1a273b, 0xff1a273b, 0xff000000},
    {P::TitleButtonHovered, 0xff28374e, 0xff28374e, 0xff2b2b2b},
    {P::TitleButtonPressed, 0xff162030, 0xff162030, 0xff003a44},
    {P::TitleButtonDisabled, 0xff1a273b, 0xff1a273b, 0xff000000},
    // Windows with a frame.
    {P::WindowGround, P::Ground, P::Ground, P::Ground},
    {P::WindowCaption, 0xffffffff, 0xff222a3e, 0xff000000},
    {P::WindowCaptionText, 0xff000000, P::Text, P::Text},
    {P::WindowCaptionLine, 0xffdddddd, 0xff6f7b8f, 0xffffffff},
    {P::WindowBorder, 0xff2285d4, 0xff4da3f0, 0xff1aebff},
    {P::WindowOutside, 0xffd6e8f7, 0xff222a3e, 0xff000000},
    {P::SeparatorStart, 0xffd6e7f9, 0xff1c212c, 0xffffffff},
    {P::SeparatorMiddle, 0xffbdc9d3, 0xff6f7b8f, 0xffffffff},
    {P::SeparatorEnd, 0xffedf4fb, 0xff1c212c, 0xffffffff},
    // Buttons: normal, under the mouse, pressed, disabled.
    {P::ButtonGround, 0xffffffff, 0xff262d3b, 0xff000000},
    {P::ButtonGroundHovered, P::Hovered, P::Hovered, P::Hovered},
    {P::ButtonGroundPressed, P::Pressed, P::Pressed, P::Pressed},
    {P::ButtonGroundDisabled, P::Ground, P::Ground, P::Ground},
    {P::ButtonFrame, 0xff3c434b, P::Frame, P::Frame},
    {P::ButtonFrameHovered, 0xffbce0e2, P::SecondAccent, 0xffffff00},
    {P::ButtonFramePressed, 0xff87c8cc, P::SecondAccent, P::Accent},
    {P::ButtonFrameDisabled, P::FrameDisabled, P::FrameDisabled, P::FrameDisabled},
    {P::ButtonText, 0xff666666, P::Text, P::Text},
    {P::ButtonTextHovered, 0xff666666, P::Text, P::Text},
    {P::ButtonTextPressed, 0xff666666, P::Text, P::Text},
    {P::ButtonTextDisabled, 0xffbbbbbb, P::DisabledText, P::DisabledText},
    {P::ButtonTriangle, 0xff228fc2, P::Accent, P::Accent},
    {P::ButtonTriangleHovered, 0xff228fc2, P::Accent, P::Accent},
    {P::ButtonTrianglePressed, 0xff228fc2, P::Accent, P::Accent},
    {P::ButtonTriangleDisabled, 0xffa0a0a0, P::FrameDisabled, P::FrameDisabled},
    {P::ButtonArrow, 0xff7f868f, P::QuietText, P::QuietText},
    {P::ButtonArrowDisabled, 0xff7f868f, P::DisabledText, P::DisabledText},
    {P::ButtonDivider, 0x60666666, P::Frame, P::Frame},
    {P::ButtonDividerDisabled, 0x60bbbbbb, P::FrameDisabled, P::FrameDisabled},
    {P::ButtonFocusRing, 0xff4ba7f5, P::FocusRing, P::FocusRing},
    {P::PrimaryGround, 0xff49a7f5, P::Accent, P::Accent},
    {P::PrimaryGroundHovered, 0xff5baff6, P::AccentHovered, P::AccentHovered},
    {P::PrimaryGroundPressed, 0xff4195dc, P::AccentPressed, P::AccentPressed},
    {P::PrimaryGroundDisabled, 0xffc9e5fc, 0xff768397, P::FrameDisabled},
    {P::PrimaryText, P::OnAccent, P::OnAccent, P::OnAccent},
    {P::PrimaryTextHovered, P::OnAccent, P::OnAccent, P::OnAccent},
    {P::PrimaryTextPressed, P::OnAccent, P::OnAccent, P::OnAccent},
    {P::PrimaryTextDisabled, 0xffffffff, P::OnAccent, P::OnAccent},
    {P::WaitingGround, P::PrimaryGroundDisabled, P::Pressed, P::Pressed},
    {P::WaitingText, P::PrimaryTextDisabled, P::Text, P::Text},
    {P::SecondaryGround, 0xffffffff, 0xff262d3b, 0xff000000},
    {P::SecondaryGroundHovered, 0xffffffff, P::Hovered, P::Hovered},
    {P::SecondaryGroundPressed, 0xffffffff, P::Pressed, P::Pressed},
    {P::SecondaryGroundDisabled, P::Ground, P::Ground, P::Ground},
    {P::SecondaryFrame, 0xff9b9b9b, P::Frame, P::Frame},
    {P::SecondaryFrameHovered, 0xffa5a5a5, P::FrameHovered, P::FrameHovered},
    {P::SecondaryFramePressed, 0xff6f6f6f, P::Accent, P::Accent},
    {P::SecondaryFrameDisabled, 0xffe1e1e1, P::FrameDisabled, P::FrameDisabled},
    {P::SecondaryText, 0xff333333, P::Text, P::Text},
    {P::SecondaryTextHovered, 0xff474747, P::Text, P::Text},
    {P::SecondaryTextPressed, 0xff242424, P::Text, P::Text},
    {P::SecondaryTextDisabled, 0xffc2c2c2, P::DisabledText, P::DisabledText},
    {P::ImageText, 0xff000000, P::Text, P::Text},
    {P::ImageTextHovered, 0xff000000, P::Text, P::Text},
    {P::ImageTextPressed, 0xff000000, P::Text, P::Text},
    {P::ImageTextDisabled, 0xff000000, P::DisabledText, P::DisabledText},
    {P::ImageTip, 0xffffffff, P::Text, P::Text},
    {P::PlainText, 0xff3c434b, P::Text, P::Text},
    {P::PlainTextHovered, 0xff2a8084, P::SecondAccent, 0xffffff00},
    {P::PlainTextPressed, 0xff1d6468, 0xff8fdde0, P::Accent},
    {P::PlainTextDisabled, 0xff969ea8, P::DisabledText, P::DisabledText},
    {P::ToolText, 0xff0e73ad, 0xff6cb4f5, 0xffffffff},
    {P::ToolTextHovered, 0xff0e73ad, 0xff8fc6f8, 0xffffff00},
    {P::ToolTextPressed, 0xff0e73ad, 0xff6cb4f5, P::Accent},
    {P::ToolTextDisabled, 0xff0e73ad, P::DisabledText, P::DisabledText},
    {P::StateGround, P::Ground, P::Ground, P::Ground},
    {P::StateGroundHovered, 0xffedf7fe, P::Hovered, P::Hovered},
    {P::StateGroundPressed, 0xffedf7fe, P::Pressed, P::Pressed},
    {P::StateGroundDisabled, P::Ground, P::Ground, P::Ground},
    {P::StateFrame, P::Ground, P::Ground, P::Ground},
    {P::StateFrameHovered, 0xffbce0e2, P::SecondAccent, 0xffffff00},
    {P::StateFramePressed, 0xff87c8cc, P::SecondAccent, P::Accent},
    {P::StateFrameDisabled, P::Ground, P::Ground, P::Ground},
    {P::GroupFrame, 0xffdfe3eb, P::Frame, P::Frame},
    {P::GroupGround, P::Ground, P::Ground, P::Ground},
    {P::GroupGroundHovered, 0xffecf6fe, P::Hovered, P::Hovered},
    {P::GroupGroundPressed, 0xffdbedfd, P::Accent, P::Accent},
    {P::GroupGroundDisabled, P::Ground, P::Ground, P::Ground},
    {P::GroupText, 0xff57aef6, P::Accent, P::Accent},
    {P::GroupTextHovered, 0xffffffff, P::Text, 0xffffff00},
    {P::GroupTextPressed, P::OnAccent, P::OnAccent, P::OnAccent},
    {P::GroupTextDisabled, 0xffbbbbbb, P::DisabledText, P::DisabledText},
    {P::ToggleFrame, 0xff9b9b9b, P::Frame, P::Frame},
    {P::ToggleChecked, 0xff4caeb2, P::SecondAccent, P::Accent},
    {P::ToggleHovered, 0xff70bfc2, 0xff8fdde0, 0xffffff00},
    {P::ToggleText, 0xff000000, P::Text, P::Text},
    {P::ToggleFrameDisabled, 0xffd7d7d7, P::FrameDisabled, P::FrameDisabled},
    {P::ToggleGroundDisabled, 0xfffdfdfd, P::FieldDisabled, P::FieldDisabled},
    {P::ToggleTextDisabled, 0xff787878, P::DisabledText, P::DisabledText},
    {P::FieldTriangle, P::FrameHovered, P::FrameHovered, P::Text},
    // Menus, lists, tips.
    {P::MenuGround, 0xf03c434b, 0xff2b3240, 0xff000000},
    {P::MenuGroundHovered, 0xff4baeb2, 0xff1f7478, P::Accent},
    {P::MenuText, 0xffffffff, 0xffffffff, 0xffffffff},
    {P::MenuTextHovered, 0xffffffff, 0xffffffff, 0xff000000},
    {P::MenuTextDisabled, 0xffffffff, P::DisabledText, P::DisabledText},
    {P::MenuBadgeHovered, P::Badge, 0xffffc4c4, P::OnAccent},
    {P::MenuFrame, 0x00000000, P::Frame, P::Frame},
    {P::MenuSeparator, 0xff2e425d, 0xff7d8a9e, 0xffffffff},
    {P::PathFrame, 0xffb9c2c9, P::Frame, P::Frame},
    {P::PathGround, P::Field, P::Field, P::Field},
    {P::PathGroundHovered, 0xffedf3fe, P::Hovered, P::Hovered},
    {P::PathText, 0xff000000, P::Text, P::Text},
    {P::PathTextHovered, 0xff000000, P::Text, P::Text},
    {P::TipFrame, 0xffa3c8ff, P::Frame, P::Frame},
    {P::TipGround, 0xffffffff, 0xff262d3b, 0xff000000},
    {P::TextTipGround, 0xff101c2d, 0xff3a4559, 0xff000000},
    {P::TextTipFrame, 0x00000000, 0xff93a0b3, 0xffffffff},
    {P::TextTipLight, 0xffffffff, 0xffffffff, 0xffffffff},
    {P::TextTipDark, 0xff101c2d, 0xff101c2d, 0xff000000},
    // Pop-up windows, message boxes, waiters.
    {P::PopUpGround, P::Ground, P::Ground, P::Ground},
    {P::PopUpLine, 0xffe3e8ee, 0xff6f7b8f, 0xffffffff},
    {P::PopUpOutline, 0xffd5dbe2, 0xff6f7b8f, 0xffffffff},
    {P::PopUpEdge, 0x00000000, 0xff6f7b8f, 0xffffffff},
    {P::MessageText, 0xff333333, P::Text, P::Text},
    {P::MessageHint, 0xffff0000, P::Danger, P::Danger},
    {P::NoticeHead, 0xff4baeb3, P::SecondAccent, P::SecondAccent},
    {P::AlertHead, 0xff4baeb3, P::SecondAccent, P::SecondAccent},
    {P::WaiterFrame, 0xff00a3d2, 0xff54c2e8, P::Frame},
    {P::WaiterGround, 0xffe8f4fd, 0xff262d3b, 0xff000000},
    {P::WaiterText, 0xff00a3d2, 0xff54c2e8, P::Text},
    // Calendars and their fields.
    {P::CalendarFrame, 0xffa3c8ff, P::Frame, P::Frame},
    {P::CalendarGround, P::Ground, P::Ground, P::Ground},
    {P::CalendarText, P::Text, P::Text, P::Text},
    {P::CalendarQuietText, P::QuietText, P::QuietText, 0xffc4c4c4},
    {P::CalendarWeekend, 0xfffd7b00, 0xffffb454, 0xffffff00},
    {P::CalendarOutOfRange, 0xffb4bcc6, P::DisabledText, 0xffa6a6a6},
    {P::CalendarChosen, P::Accent, P::Accent, P::Accent},
    {P::CalendarChosenText, P::OnAccent, P::OnAccent, P::OnAccent},
    {P::CalendarToday, P::Accent, P::Accent, P::Accent},
    {P::CalendarHovered, 0xffdcecfc, P::Hovered, P::Hovered},
    {P::CalendarBar, 0xffedf5fd, 0xff262d3b, 0xff000000},
    {P::CalendarBarHovered, 0xffd3e7fa, P::Hovered, P::Hovered},
    {P::CalendarBarPressed, 0xffbbd9f8, P::Pressed, P::Pressed},
    {P::DateFrame, 0xffd7d7d7, P::Frame, P::Frame},
    {P::DateFrameDisabled, P::DateFrame, P::FrameDisabled, P::FrameDisabled},
    {P::ChoiceMark, 0xff787878, P::DisabledText, P::DisabledText},
    {P::AddressFrameDisabled, 0xffa0a0a4, P::FrameDisabled, P::FrameDisabled},
    {P::AddressDot, P::Frame, P::Text, P::Text},
    {P::AddressDotDisabled, P::AddressFrameDisabled, P::DisabledText, P::DisabledText},
    // Boxes, tabs, scroll bars.
    {P::BoxFrame, 0xffff0000, P::Frame, P::Frame},
    {P::BoxGround, P::Ground, P::Ground, P::Ground},
    {P::BandGround, 0xfffafafa, P::RaisedGround, 0xff242424},
    {P::BandFrame, 0xffb3b3b3, P::Frame, P::Frame},
    {P::GridLine, 0xffd7d7d7, P::Rule, P::Rule},
    {P::TabFrame, 0xff49a7f5, P::Accent, P::Accent},
    {P::TabGround, P::Ground, P::Ground, P::Ground},
    {P::TabGroundHovered, 0xff5baff6, P::Hovered, P::Hovered},
    {P::TabGroundPressed, 0xff4195dc, P::Accent, P::Accent},
    {P::TabGroundDisabled, 0xffc9e5fc, P::Ground, P::Ground},
    {P::SplitterFrame, 0xcd9b9b9b, P::Frame, P::Frame},
    {P::SplitterGround, 0xfff1f1f1, 0xff262d3b, 0xff000000},
    {P::ScrollSlider, 0xffb6b6b6, 0xff7d8a9e, 0xffffffff},
    {P::ScrollSliderHovered, 0xff6a6a6a, 0xffc3ccd9, 0xffffff00},
    {P::ScrollPage, 0xfff1f1f1, 0xff262d3b, 0xff2b2b2b},
    {P::ScrollGround, 0xfff6fcff, P::Ground, P::Ground},
    // Sliders, progress bars, labels.
    {P::SliderHandle, 0xff49a7f5, P::Accent, P::Accent},
    {P::SliderHandleDisabled, 0xffe5e5e5, P::FrameDisabled, P::FrameDisabled},
    {P::SliderTrack, 0xffe5e5e5, 0xff6f7b8f, 0xffffffff},
    {P::SliderTick, 0xff929292, P::QuietText, P::QuietText},
    {P::SliderText, 0xff000000, P::Text, P::Text},
    {P::ProgressTrack, P::Field, 0xff3a4559, 0xff2b2b2b},
    {P::ProgressFrame, 0x00000000, P::Frame, P::Frame},
    {P::ProgressText, 0xff000000, P::Text, P::Text},
    {P::ProgressTextDone, 0xff000000, P::OnAccent, P::OnAccent},
    {P::ProgressStart, 0xff3accfc, 0xff3accfc, 0xff1aebff},
    {P::ProgressEnd, 0xff49a7f5, 0xff4da3f0, 0xff1aebff},
    {P::ProgressFirst, 0xff4baeb3, 0xff38a4a9, 0xff1aebff},
    {P::ProgressSecond, 0xff58cdd2, 0xff54c2c6, 0xff8ff5ff},
    {P::ProgressThird, 0xffd7d7db, 0xff3a4559, 0xff2b2b2b},
    {P::Bar, P::SecondAccent, P::SecondAccent, P::SecondAccent},
    {P::LabelText, 0xff000000, P::Text, P::Text},
    {P::HeadingText, 0xff333c48, P::Text, P::Text},
    {P::HeadingFocused, 0xff1a62a0, P::Accent, P::Accent},
    {P::HeadingDisabled, 0xff969ea8, P::DisabledText, P::DisabledText},
    {P::RoundedGround, 0xff000000, P::RaisedGround, P::RaisedGround},
    {P::PanelGround, P::Ground, P::Ground, P::Ground},
};
// clang-format on

constexpr bool isInOrder()
{
    for (int i = 0; i < kPurposes; ++i) {
        const Row &row = kTable[i];
        if (int(row.purpose) != i || row.light.of >= i || row.dark.of >= i || row.contrast.of >= i)
            return false;
    }
    return true;
}
static_assert(sizeof(kTable) / sizeof(*kTable) == kPurposes && isInOrder(),
              "as the purposes are, and none of one further down");

const Tone &toneOf(const Row &row, BuiltInTheme theme)
{
    return theme == BuiltInTheme::Light ? row.light : theme == BuiltInTheme::Dark ? row.dark : row.contrast;
}

struct Shown
{
    QString name = QLatin1String(nameOf(BuiltInTheme::Light));
    Theme theme;
    quint32 generation = 0;
};

Shown &shown()
{
    static Shown now;
    return now;
}

} // namespace

// Before any object of the library or an application can ask.
ThemeColors paintedColors = themeOf(BuiltInTheme::Light);

const char *nameOf(BuiltInTheme theme)
{
    static const char *const names[] = {"light", "dark", "contrast"};
    return names[int(theme)];
}

ThemeColors themeOf(BuiltInTheme base, const ThemeColors &own, const std::bitset<kPurposes> &said)
{
    ThemeColors colors;
    for (size_t i = 0; i < kPurposes; ++i) {
        const Tone &tone = toneOf(kTable[i], base);
        colors[i] = said[i] ? own[i] : tone.of >= 0 ? colors[size_t(tone.of)] : QColor::fromRgba(tone.rgb);
    }
    return colors;
}

QColor builtInColor(Purpose purpose)
{
    static const ThemeColors light = themeOf(BuiltInTheme::Light);
    return light[size_t(purpose)];
}

QVector<QColor> builtInColors(Purpose first)
{
    QVector<QColor> colors;
    for (int state = 0; state < kThemeStates; ++state)
        colors << builtInColor(Purpose(int(first) + state));
    return colors;
}

QBrush ownBrush(const QColor &color)
{
    QBrush brush(color);
    brush.setTransform(QTransform::fromTranslate(1, 0)); // which a plain colour is painted without
    return brush;
}

bool isPlainLight()
{
    return shown().theme.base == BuiltInTheme::Light && shown().theme.said.none();
}

qreal disabledOpacity(qreal light)
{
    constexpr qreal kOnDark =
        0.6; // with the inks of the dark pictures, 3:1 and more; with those of contrast, 4.5:1
    return shown().theme.base == BuiltInTheme::Light ? light : kOnDark;
}

bool themeSays(Purpose purpose)
{
    return shown().theme.base == BuiltInTheme::Contrast || shown().theme.said[size_t(purpose)];
}

QString themeFolder()
{
    const BuiltInTheme base = shown().theme.base;
    return base == BuiltInTheme::Light ? QString() : QString(QLatin1String(nameOf(base)));
}

quint32 themeGeneration()
{
    return shown().generation;
}

const QString &shownTheme()
{
    return shown().name;
}

namespace {

// A receiver may show another theme: everybody hears of that one after this one.
void tell()
{
    static bool telling = false;
    static quint32 told = 0;
    if (telling)
        return;
    telling = true;
    while (told != shown().generation) {
        told = shown().generation;
        emit CBPTheme::instance()->changed(QString(shown().name));
    }
    telling = false;
}

} // namespace

void repaintEverything()
{
    // A window paints all that is in it, but for children with a surface of their own, and those of which an
    // effect keeps the picture.
    const QWidgetList all = QApplication::allWidgets();
    for (QWidget *widget : all) {
        if (widget->isWindow() || widget->testAttribute(Qt::WA_NativeWindow) || widget->graphicsEffect())
            widget->update();
    }
}

void showTheme(const QString &name, const Theme &theme)
{
    shown().name = name;
    shown().theme = theme;
    ++shown().generation;
    paintedColors = theme.colors;
    emit ThemeNews::instance()->renewed();
    repaintEverything();
    tell();
}

ThemeNews *ThemeNews::instance()
{
    static auto *news = new ThemeNews; // widgets may outlive what is static
    return news;
}

} // namespace lumqt
