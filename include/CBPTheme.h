#pragma once

#include "LumQtGlobal.h"

#include <QColor>
#include <QObject>
#include <QPalette>
#include <QString>
#include <QStringList>

/// The colours of the library, as one look that a user chooses, a designer writes in a file and a programmer
/// reads in one place.
///
/// There are the themes "light", "dark" and "contrast", and those that an application loads. Without any
/// call the theme is "light". Another one shows at once in every window, menu and picture there is; nothing
/// has to be made anew. What an application has set itself (a colour of a button, a palette, a style sheet)
/// stays as it is in each theme, and what a getter reports is what was set or built in, not what is painted.
/// So a colour that a class is said to have at first is that of the theme "light", and painted in that one.
///
/// \code
/// CBPTheme::givePalette(true); // plain Qt widgets in the library's windows go with them
/// CBPTheme::apply("dark");
/// connect(CBPTheme::instance(), &CBPTheme::changed, panel, [panel] { panel->update(); });
/// painter.fillRect(rect(), CBPTheme::color(CBPTheme::Purpose::Field));
/// \endcode
///
/// Pictures of the folder `res` that have a twin in `res/dark` or `res/contrast` are shown from there, and
/// those of an application from a folder `dark` or `contrast` beside them, also in Qt's resources. GUI thread
/// only. \since 1.0
class LUMQT_EXPORT CBPTheme : public QObject
{
    Q_OBJECT
    /// Name of the theme that is shown; one that is none of the names leaves it. \since 1.0
    Q_PROPERTY(QString current READ current WRITE apply NOTIFY changed)
    /// Names of the themes there are. \since 1.0
    Q_PROPERTY(QStringList names READ names)
    /// Whether the theme is that of the system, which ends when one is chosen by its name. \since 1.0
    Q_PROPERTY(bool followingSystem READ isFollowingSystem WRITE followSystem)
    /// Whether the library's windows are given the palette. \since 1.0
    Q_PROPERTY(bool givesPalette READ givesPalette WRITE givePalette)
    /// The theme for Qt's widgets. \since 1.0
    Q_PROPERTY(QPalette palette READ palette NOTIFY changed)

public:
    /// What a colour is for. A theme file uses these names, in any case. Four in a row are those of the
    /// states normal, under the mouse, pressed and disabled. \since 1.0
    enum class Purpose {
        // What everything is made of; the parts further down are of these colours where a theme says nothing
        // else.
        Ground,         ///< what windows, boxes and buttons lie on
        RaisedGround,   ///< what stands out of a ground: headers, tracks
        Field,          ///< ground of what is written or chosen in
        FieldDisabled,  ///< the same, disabled or read-only
        Text,           ///< texts
        QuietText,      ///< captions, placeholders, what is of less weight
        DisabledText,   ///< texts of what is disabled
        Frame,          ///< outlines of fields and check boxes
        FrameHovered,   ///< the same under the mouse; marks
        FrameDisabled,  ///< the same, disabled
        Rule,           ///< lines that only divide
        Accent,         ///< what is chosen, checked, running
        AccentHovered,  ///< the same under the mouse
        AccentPressed,  ///< the same while pressed
        OnAccent,       ///< texts and marks on the accent
        SecondAccent,   ///< the second hue
        Hovered,        ///< ground of a row or a button under the mouse
        Pressed,        ///< the same while pressed
        Chosen,         ///< ground of the chosen row or day
        ChosenText,     ///< text on it
        ChosenInactive, ///< ground of the chosen row of a window that is not in use
        ChosenDisabled, ///< the same, disabled
        FocusRing,      ///< ring of the keyboard focus
        Danger,         ///< what is wrong or cannot be undone
        Warning,        ///< what needs attention
        Success,        ///< what went well
        Link,           ///< links
        LinkHovered,    ///< the same under the mouse
        LinkPressed,    ///< the same while pressed
        LinkDisabled,   ///< the same, disabled
        Badge,          ///< the dot that marks what is new
        Shadow,         ///< shadows of windows; its alpha is reckoned from the depth

        // Title bars. Of a theme of the library, UIConfig.ini goes before.
        TitleGround,         ///< ground of a title bar
        TitleText,           ///< its text
        TitleLine,           ///< the line below it; see-through: none
        TitleNotice,         ///< its note of a new version
        TitleButton,         ///< ground of its back button
        TitleButtonHovered,  ///< the same under the mouse
        TitleButtonPressed,  ///< the same while pressed
        TitleButtonDisabled, ///< the same, disabled

        // Windows with a frame.
        WindowGround,      ///< ground of a framed window
        WindowCaption,     ///< its caption
        WindowCaptionText, ///< the text in it
        WindowCaptionLine, ///< the line below the caption
        WindowBorder,      ///< its border
        WindowOutside,     ///< what is around the border
        SeparatorStart,    ///< a separating line at its beginning
        SeparatorMiddle,   ///< in its middle
        SeparatorEnd,      ///< at its end

        // Buttons: normal, under the mouse, pressed, disabled.
        ButtonGround,            ///< ground of a button
        ButtonGroundHovered,     ///< the same under the mouse
        ButtonGroundPressed,     ///< the same while pressed
        ButtonGroundDisabled,    ///< the same, disabled
        ButtonFrame,             ///< frame of a button
        ButtonFrameHovered,      ///< the same under the mouse
        ButtonFramePressed,      ///< the same while pressed
        ButtonFrameDisabled,     ///< the same, disabled
        ButtonText,              ///< text of a button
        ButtonTextHovered,       ///< the same under the mouse
        ButtonTextPressed,       ///< the same while pressed
        ButtonTextDisabled,      ///< the same, disabled
        ButtonTriangle,          ///< triangle of what drops down
        ButtonTriangleHovered,   ///< the same under the mouse
        ButtonTrianglePressed,   ///< the same while pressed
        ButtonTriangleDisabled,  ///< the same, disabled
        ButtonArrow,             ///< arrow of a button with a menu
        ButtonArrowDisabled,     ///< the same, disabled
        ButtonDivider,           ///< line between the text and the triangle of what drops down
        ButtonDividerDisabled,   ///< the same, disabled
        ButtonFocusRing,         ///< ring of a push button with the keyboard focus
        PrimaryGround,           ///< ground of what is done most in a dialog
        PrimaryGroundHovered,    ///< the same under the mouse
        PrimaryGroundPressed,    ///< the same while pressed
        PrimaryGroundDisabled,   ///< the same, disabled
        PrimaryText,             ///< text on it
        PrimaryTextHovered,      ///< the same under the mouse
        PrimaryTextPressed,      ///< the same while pressed
        PrimaryTextDisabled,     ///< the same, disabled
        WaitingGround,           ///< ground of a primary button that waits
        WaitingText,             ///< its text
        SecondaryGround,         ///< ground of the other buttons of a dialog
        SecondaryGroundHovered,  ///< the same under the mouse
        SecondaryGroundPressed,  ///< the same while pressed
        SecondaryGroundDisabled, ///< the same, disabled
        SecondaryFrame,          ///< frame of the other buttons of a dialog
        SecondaryFrameHovered,   ///< the same under the mouse
        SecondaryFramePressed,   ///< the same while pressed
        SecondaryFrameDisabled,  ///< the same, disabled
        SecondaryText,           ///< text on it
        SecondaryTextHovered,    ///< the same under the mouse
        SecondaryTextPressed,    ///< the same while pressed
        SecondaryTextDisabled,   ///< the same, disabled
        ImageText,               ///< text of an image button
        ImageTextHovered,        ///< the same under the mouse
        ImageTextPressed,        ///< the same while pressed
        ImageTextDisabled,       ///< the same, disabled
        ImageTip,                ///< its tip text
        PlainText,               ///< text of a button that is picture and text alone
        PlainTextHovered,        ///< the same under the mouse
        PlainTextPressed,        ///< the same while pressed
        PlainTextDisabled,       ///< the same, disabled
        ToolText,                ///< text of a tool button
        ToolTextHovered,         ///< the same under the mouse
        ToolTextPressed,         ///< the same while pressed
        ToolTextDisabled,        ///< the same, disabled
        StateGround,             ///< ground of a widget with states
        StateGroundHovered,      ///< the same under the mouse
        StateGroundPressed,      ///< the same while pressed
        StateGroundDisabled,     ///< the same, disabled
        StateFrame,              ///< frame of a widget with states
        StateFrameHovered,       ///< the same under the mouse
        StateFramePressed,       ///< the same while pressed
        StateFrameDisabled,      ///< the same, disabled
        GroupFrame,              ///< frame of a group of buttons
        GroupGround,             ///< ground of its buttons
        GroupGroundHovered,      ///< the same under the mouse
        GroupGroundPressed,      ///< the same, pressed or selected
        GroupGroundDisabled,     ///< the same, disabled
        GroupText,               ///< text of its buttons
        GroupTextHovered,        ///< the same under the mouse
        GroupTextPressed,        ///< the same, pressed or selected
        GroupTextDisabled,       ///< the same, disabled
        ToggleFrame,             ///< outline of a toggle
        ToggleChecked,           ///< a checked one
        ToggleHovered,           ///< one under the mouse
        ToggleText,              ///< its text
        ToggleFrameDisabled,     ///< outline of a disabled one
        ToggleGroundDisabled,    ///< ground of a disabled one
        ToggleTextDisabled,      ///< text of a disabled one
        FieldTriangle,           ///< triangles of fields, headers and trees

        // Menus, lists, tips.
        MenuGround,        ///< ground of a menu's items
        MenuGroundHovered, ///< the same under the mouse
        MenuText,          ///< text of a menu's items
        MenuTextHovered,   ///< the same under the mouse
        MenuTextDisabled,  ///< the same, disabled; dimmed where it is that of the others
        MenuBadgeHovered,  ///< dot of an item under the mouse
        MenuFrame,         ///< frame of a menu that was given no border; see-through: none
        MenuSeparator,     ///< line between a menu's items
        PathFrame,         ///< frame of the list of paths
        PathGround,        ///< its ground
        PathGroundHovered, ///< ground of its row under the mouse
        PathText,          ///< text of its rows
        PathTextHovered,   ///< text of its row under the mouse
        TipFrame,          ///< frame of a tip
        TipGround,         ///< ground of a tip
        TextTipGround,     ///< ground of a tip of text
        TextTipFrame,      ///< its frame; see-through: none
        TextTipLight,      ///< its text where the ground is dark
        TextTipDark,       ///< its text where the ground is light

        // Pop-up windows, message boxes, waiters.
        PopUpGround,  ///< ground of a pop-up window
        PopUpLine,    ///< the line above its bottom area
        PopUpOutline, ///< its outline where there is no shadow
        PopUpEdge,    ///< its outline beside the shadow; see-through: none
        MessageText,  ///< text of a message
        MessageHint,  ///< what is wrong with what was put in
        NoticeHead,   ///< heading of a notice
        AlertHead,    ///< heading of an alert
        WaiterFrame,  ///< frame of a waiter
        WaiterGround, ///< its ground
        WaiterText,   ///< its text

        // Calendars and their fields.
        CalendarFrame,        ///< frame of a calendar
        CalendarGround,       ///< its ground
        CalendarText,         ///< its days
        CalendarQuietText,    ///< names of its days, and the days of other months
        CalendarWeekend,      ///< days of the weekend
        CalendarOutOfRange,   ///< days that cannot be chosen
        CalendarChosen,       ///< ground of the chosen day
        CalendarChosenText,   ///< the chosen day
        CalendarToday,        ///< ring of today
        CalendarHovered,      ///< ground of a day under the mouse
        CalendarBar,          ///< bar of month and year
        CalendarBarHovered,   ///< its buttons under the mouse
        CalendarBarPressed,   ///< its buttons while pressed
        DateFrame,            ///< frame of a date field
        DateFrameDisabled,    ///< the same, disabled
        ChoiceMark,           ///< line below a disabled chosen day
        AddressFrameDisabled, ///< frame of a disabled address field
        AddressDot,           ///< the dots between its numbers
        AddressDotDisabled,   ///< the same, disabled

        // Boxes, tabs, scroll bars.
        BoxFrame,            ///< frame of a box
        BoxGround,           ///< its ground
        BandGround,          ///< band at the top of a framed box
        BandFrame,           ///< its outline
        GridLine,            ///< lines of a grid
        TabFrame,            ///< frame of the tabs
        TabGround,           ///< ground of a tab
        TabGroundHovered,    ///< the same under the mouse
        TabGroundPressed,    ///< the same, pressed or current
        TabGroundDisabled,   ///< the same, disabled
        SplitterFrame,       ///< outline of a splitter's handle
        SplitterGround,      ///< its ground
        ScrollSlider,        ///< slider of a scroll bar
        ScrollSliderHovered, ///< the same under the mouse
        ScrollPage,          ///< what the slider moves on
        ScrollGround,        ///< ground of a scroll bar

        // Sliders, progress bars, labels.
        SliderHandle,         ///< handle of a slider, and what lies before it
        SliderHandleDisabled, ///< the same, disabled
        SliderTrack,          ///< what the handle moves on
        SliderTick,           ///< its marks
        SliderText,           ///< its value
        ProgressTrack,        ///< ground of a progress bar
        ProgressFrame,        ///< line around that; see-through: none
        ProgressText,         ///< its text
        ProgressTextDone,     ///< the same on what is done
        ProgressStart,        ///< what is done, at its beginning
        ProgressEnd,          ///< at its end
        ProgressFirst,        ///< the moving first colour of a progress bar
        ProgressSecond,       ///< its second
        ProgressThird,        ///< what is not done yet
        Bar,                  ///< a filled line
        LabelText,            ///< text of a label
        HeadingText,          ///< text of a heading that can be clicked
        HeadingFocused,       ///< the same, the one in use
        HeadingDisabled,      ///< the same, disabled
        RoundedGround,        ///< ground of a panel with round corners
        PanelGround           ///< ground of a plain panel
    };
    Q_ENUM(Purpose)

    /// The object whose changed() tells of a new theme; the library's own. \since 1.0
    static CBPTheme *instance();

    /// The names of the themes there are: the library's three, then those loaded, in their order. \since 1.0
    static QStringList names();

    /// Shows the theme \a name from now on, and ends followSystem(). False, and a line in the log category
    /// "lumqtlib", for a name that is none of names(); the theme stays then.
    ///
    /// In a dark theme the library's texts are light, also in windows that are not the library's: give those
    /// palette(). Plain Qt widgets in the library's windows need givePalette(). \since 1.0
    static bool apply(const QString &name);

    /// Reads a theme from the ini file \a file (UTF-8) and answers its name, for apply(); empty, and a line
    /// in the log category "lumqtlib", for a file that is missing, above 256 KiB or no text.
    ///
    /// `name` is the theme's name, else the file's without its suffix; `base` is "light" (if left out) or
    /// "dark", whose colours and pictures the theme has where it says nothing. All other keys are purposes
    /// with a colour, \#rrggbb or \#aarrggbb. Sections only group; what follows a ; is a remark. Where a
    /// colour of the base is that of another purpose, it follows that one: with `accent` alone, all that has
    /// the accent changes. Keys and colours that are not known are said in the log, with file, key and what
    /// was expected, and the rest is used. A theme of the same name takes the place of the one loaded before,
    /// and shows at once where that one is shown. The names of the library's themes are refused. \since 1.0
    static QString load(const QString &file);

    /// The name of the theme that is shown. \since 1.0
    static QString current();

    /// The colour of a purpose in the current theme, for an application's own painting. An array lookup.
    /// Invalid for a number that is no purpose. \since 1.0
    static QColor color(Purpose purpose);

    /// Whether the theme is that of the system from now on: "contrast" where the user has high contrast on,
    /// else "dark" or "light" as set for applications (Windows) or as the platform's palette is; heard of
    /// again when the user changes it. Off at first. apply() turns it off; turned off here, the theme stays
    /// as it is. \since 1.0
    static void followSystem(bool follow);

    /// Whether the theme is that of the system. \since 1.0
    static bool isFollowingSystem();

    /// Whether the library's windows have palette(), now and after each change, which plain Qt widgets in
    /// them take over. Colours that an application has set in the palette of such a window or widget stay.
    /// In a window with a style sheet Qt passes no palette on, unless the application has the attribute
    /// Qt::AA_UseStyleSheetPropagationInWidgetStyles.
    /// Menus and tool tips, windows of their own, have it in the whole application, unless it gives them a
    /// palette afterwards. Off at first.
    ///
    /// Where fields and buttons are native and light (Windows' own style, when the window is made), the
    /// window has the ground and the texts on it only; Fusion outlines in a shade of the ground, which is
    /// faint in dark themes. CBPStyle::Install() gives all the theme's colours. Links in a rich text have the
    /// colour of QApplication::palette(). \since 1.0
    static void givePalette(bool give);

    /// Whether the library's windows are given palette(). \since 1.0
    static bool givesPalette();

    /// The current theme as a palette for Qt's widgets. \since 1.0
    static QPalette palette();

signals:
    /// The theme \a name is shown now, or has other colours. The library's widgets have it already.
    ///
    /// A receiver may apply another theme: current() says so at once, but each receiver hears of this one
    /// first, and of the other one when all have. \since 1.0
    void changed(const QString &name);

private:
    CBPTheme() = default;
};
