#pragma once

#include "CRoundedRectBase.h"

#include <QBrush>
#include <QColor>
#include <QPoint>
#include <QPointer>
#include <QVector>

class CBPImageButton;
class QHBoxLayout;
class QLabel;
class QLinearGradient;

/// The title bar of the library's framed windows: an icon, a title and a back button at the left; offer,
/// support, menu, minimise and close buttons at the right. It is 60 pixels high and drags its window.
///
/// All buttons are hidden until ShowTitleBtn() shows them. They have ids of one bit each: 2 minimise, 4
/// maximise, 8 close, 16 settings, 32 free, 64 menu, 128 back, 1024 contact, 2048 online support, 4096
/// limited-time offer. What a click does is up to the callback of SetBtnCallbackFunc(). The bar itself makes
/// no maximise, settings, contact or free button; see InsertWidget(). The buttons take no keyboard focus:
/// give the window other ways to what they do. A double-click on the bar does nothing.
///
/// Colours that are not set come from "../res/UIConfig.ini" where it names valid ones, but not in the theme
/// "contrast" or where a theme file names them, else from the theme (see CBPTheme). A title that finds no
/// room is shown with an ellipsis, and its tool tip has all of it. All sizes are logical pixels. GUI thread
/// only. \since 1.0
class LUMQT_EXPORT CBPWinFrmTitle : public CRoundedRectBase
{
    Q_OBJECT
    /// Text of the title; empty while it shows an image. \since 1.0
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged)
    /// Colour of the title. An invalid one is left out; a reset brings back the one that the bar chose
    /// itself. \since 1.0
    Q_PROPERTY(QColor titleColor READ titleColor WRITE SetTitleClr RESET resetTitleColor)
    /// Style sheet of the title's label. \since 1.0
    Q_PROPERTY(QString titleTextStyle READ titleTextStyle WRITE SetTitleTextStyle)
    /// Image file of the icon; empty: none. \since 1.0
    Q_PROPERTY(QString logoPath READ logoPath WRITE SetLog)
    /// Colour that fills the bar. An invalid one is left out; a reset brings back the one that the bar chose
    /// itself. \since 1.0
    Q_PROPERTY(QColor backgroundColor READ backgroundColor WRITE SetBgColor RESET resetBackgroundColor)
    /// The buttons that are shown; of those that there are none of nothing happens. \since 1.0
    Q_PROPERTY(Buttons shownButtons READ shownButtons WRITE setShownButtons)
    /// Whether the back, menu, close and minimise button can be pressed. \since 1.0
    Q_PROPERTY(bool buttonsEnabled READ areButtonsEnabled WRITE SetTitleBtnEnable)
    /// Whether the menu button is marked with a dot. \since 1.0
    Q_PROPERTY(bool hasNewVersion READ hasNewVersion WRITE SetHasNewVersion)
    /// Whether the bar is that of a maximised window. \since 1.0
    Q_PROPERTY(bool maximised READ isMaximised WRITE ResetMaxBtn DESIGNABLE false)

public:
    /// The buttons by their ids. \since 1.0
    enum Button : int {
        MinimizeButton = 2,   ///< minimise
        CloseButton = 8,      ///< close
        MenuButton = 64,      ///< menu
        BackButton = 128,     ///< back, at the left
        SupportButton = 2048, ///< online support
        OfferButton = 4096,   ///< limited-time offer; where there is a support button
        MaximizeButton = 4,   ///< maximise, of who has inserted one
        SettingsButton = 16,  ///< settings, the same
        FreeButton = 32,      ///< free, the same
        ContactButton = 1024, ///< contact, the same
    };
    Q_ENUM(Button)
    Q_DECLARE_FLAGS(Buttons, Button)
    Q_FLAG(Buttons)

    /// A bar that drags \a parent. Without a parent it drags nothing.
    /// \since 1.0
    explicit CBPWinFrmTitle(QWidget *parent);

    /// Shows \a s as the title or, with \a isImage, the image file of that path. The label appears unless
    /// ShowTitleBtn() switched it off, and goes when there is nothing to show. Texts are plain. \since 1.0
    void SetTitle(QString s, bool isImage);

    /// Shows \a text as the title; see SetTitle(). \since 1.0
    void setTitle(const QString &text);

    /// The text of the title; empty while it shows an image. \since 1.0
    QString title() const;

    /// Shows the image file \a path as the icon. The label appears and goes as the title does.
    /// \since 1.0
    void SetLog(QString &path);

    /// The image file of the icon. \since 1.0
    QString logoPath() const { return m_icon.image; }

    /// Fills the bar with \a c. An invalid colour is ignored.
    /// \since 1.0
    void SetBgColor(QColor &c);

    /// The colour that fills the bar; invalid for a gradient. \since 1.0
    QColor backgroundColor() const { return m_brush.color(); }

    /// Fills the bar with the colour that it chooses itself, as at first. \since 1.0
    void resetBackgroundColor();

    /// Fills the bar with \a gradient, which is in pixels of the bar unless its coordinate mode says else.
    /// \since 1.0
    void setLinerBrush(const QLinearGradient &gradient);

    /// Sets the colour of the title. An invalid colour is ignored.
    /// \since 1.0
    void SetTitleClr(QColor color);

    /// The colour of the title. \since 1.0
    QColor titleColor() const;

    /// Gives the title the colour that the bar chooses itself, as at first. \since 1.0
    void resetTitleColor();

    /// Sets the style sheet of the title's label. A title that is cut takes colour and font from it only.
    /// \since 1.0
    void SetTitleTextStyle(const QString &css);

    /// The style sheet of the title's label. \since 1.0
    QString titleTextStyle() const;

    /// Shows or hides the parts whose bits are set in \a ids: the buttons, where they exist, 256 the icon and
    /// 512 the title. The offer button obeys only while there is an online-support button. Bits without a
    /// meaning are ignored. \since 1.0
    void ShowTitleBtn(int ids, bool show);

    /// The buttons that ShowTitleBtn() has shown. \since 1.0
    Buttons shownButtons() const;

    /// Shows these buttons and hides the others, as ShowTitleBtn() does. \since 1.0
    void setShownButtons(Buttons buttons);

    /// Enables or disables the buttons whose bits are set in \a ids.
    /// \since 1.0
    void EnableTitleBtn(int ids, bool enable);

    /// Enables or disables back, menu, close and minimise button together.
    /// \since 1.0
    void SetTitleBtnEnable(bool enable);

    /// Whether back, menu, close and minimise button are enabled, as far as they exist. \since 1.0
    bool areButtonsEnabled() const;

    /// Tells the bar whether its window is maximised: the maximise button, where there is one, shows the
    /// image that fits, and a maximised window is not dragged. \since 1.0
    void ResetMaxBtn(bool maximised);

    /// What ResetMaxBtn() was told; false at first. \since 1.0
    bool isMaximised() const { return m_maximised; }

    /// The button of the highest bit set in \a id; null where there is none. Only the bits 2 to 128 are
    /// looked at. The button belongs to the bar. \since 1.0
    CBPImageButton *titleBtn(int id);

    /// Puts \a widget into the row of the right-hand buttons, whose items are the buttons from the offer to
    /// the close button with a gap of 8 pixels between each two. Another \a index than 0 to their number
    /// appends. Null is ignored. The bar becomes the owner.
    ///
    /// A CBPImageButton with the id 4, 16, 32 or 1024 becomes the bar's button of that id, if it has none.
    /// Screen readers are told what 4 and 16 do, unless the button has a name or a tool tip.
    /// Connect its btn_released(int) to on_btn_clicekedSlot(int) to have its clicks reported. \since 1.0
    void InsertWidget(int index, QWidget *widget, int stretch, Qt::Alignment alignment);

    /// Marks the menu button with a red dot, or no longer.
    /// \since 1.0
    void SetHasNewVersion(bool hasNewVersion);

    /// Whether the menu button is marked with a dot. \since 1.0
    bool hasNewVersion() const;

    /// Gives menu and support button their tool tips in the language in force. The bar does so by itself for
    /// all its buttons when the language changes. \since 1.0
    void SetIconTips();

    /// Has \a callback called with \a context and the button's id at every click; null ends it. The window
    /// may be deleted in the callback. \a context must live as long as it is registered. \since 1.0
    void SetBtnCallbackFunc(void (*callback)(void *, int), void *context);

Q_SIGNALS:
    /// For an application that wants the frame to close (true) or to toggle maximise (false): the frame
    /// obeys it; the bar never sends it by itself. \since 1.0
    void on_dbl_clickedSignal(bool bDelete);

    /// The bar shows another text, or an image in its place. The bar may be deleted here. \since 1.0
    void titleChanged(const QString &title);

public Q_SLOTS:
    /// Reports a click on button \a id to the callback.
    /// \since 1.0
    void on_btn_clicekedSlot(int id);

    /// Reports a click on the back button to the callback.
    /// \since 1.0
    void on_back_btnSlot();

protected:
    /// Makes a hidden button of four image files as the bar's own are, its clicks reported. \a round gives it
    /// a capsule for a background. It is a child of the bar, in no layout yet. \since 1.0
    CBPImageButton *CreateImgButton(const QVector<QString> &images, int id, bool round);

    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    // A label shows its content unless it was switched off.
    struct Label
    {
        QLabel *widget = nullptr;
        QString image;       // path, when it shows an image
        bool allowed = true; // not switched off
        qreal ratio = 0.0;   // of the image shown
    };

    void Init();
    void createLabels();
    void createButtons();
    static void nameButton(CBPImageButton *button, const QString &name);
    void createLayout();
    void chooseSides();
    void retranslate();
    void nameButtons();
    CBPImageButton *button(int id) const;
    QPointer<CBPImageButton> *slot(int id);
    void showImage(Label &label, const QString &path);
    void refreshImages();
    void chooseColors();
    void colorTitle(const QBrush &brush);
    static void showContent(const Label &label);

    QPointer<QWidget> m_parentWindow;
    QHBoxLayout *m_rightRow = nullptr;
    QPointer<CBPImageButton> m_offerBtn;
    QPointer<CBPImageButton> m_minBtn;
    QPointer<CBPImageButton> m_maxBtn;
    QPointer<CBPImageButton> m_closeBtn;
    QPointer<CBPImageButton> m_settingsBtn;
    QPointer<CBPImageButton> m_freeBtn;
    QPointer<CBPImageButton> m_menuBtn;
    QPointer<CBPImageButton> m_backBtn;
    QPointer<CBPImageButton> m_contactBtn;
    QPointer<CBPImageButton> m_supportBtn;
    Label m_icon;
    Label m_title;
    QBrush m_chosenBrush; // of the ground, that the bar chose itself
    QBrush m_titleBrush;  // the same of the text
    QVector<QColor> m_backColors;
    void (*m_callback)(void *, int) = nullptr;
    void *m_callbackContext = nullptr;
    QPoint m_dragOffset; // from the parent's position to the pointer
    bool m_pressed = false;
    bool m_maximised = false;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(CBPWinFrmTitle::Buttons)
