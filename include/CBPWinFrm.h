#pragma once

#include "CBPWinFrmTitle.h"

#include <QColor>
#include <QDialog>

#include <memory>

class CBPImageButton;
class QVBoxLayout;

namespace lumqt {
class FrameBehaviour;
}

/// The library's frameless dialog: a CBPWinFrmTitle on top, a column of content below and, if a derived class
/// wants it, a bottom area for buttons.
///
/// A derived class, or whoever makes one, calls Init() once; until then the operations on title bar, content
/// and bottom area do nothing. The title buttons call virtual hooks, and so do these keys: F1 OnHelp(),
/// Escape OnClose(). Return clicks the first visible default button, if that is enabled and has the focus.
/// The dialog paints nothing itself and its background is see-through: derived classes paint body, shadow and
/// bottom line.
///
/// A close request of the system, such as Alt+F4, calls OnClose() and then closes the dialog. However it is
/// closed, by title button, key, close(), system or its parent's hiding, it ends as a QDialog does: through
/// reject(), so that finished() and rejected() are emitted once and result() is QDialog::Rejected, unless
/// OnClose() has ended it by another result. A derived class refuses in reject(), or in
/// QWidget::closeEvent() without calling the base. A modal dialog closes itself when its parent is hidden.
/// Any hook may delete the dialog, and so may a slot of finished(), but not one of accepted() or
/// rejected(), after which Qt emits finished(). All sizes are logical pixels. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPWinFrm : public QDialog
{
    Q_OBJECT
    /// Text in the title bar, and the window title with it; empty while an image is shown there. \since 1.0
    Q_PROPERTY(QString title READ title WRITE SetWindowTitle NOTIFY titleChanged)
    /// Image file of the title bar's icon; empty: none. \since 1.0
    Q_PROPERTY(QString logoPath READ logoPath WRITE SetWindowLog)
    /// Colour of the title bar. An invalid one is left out; a reset brings back the one that the bar chooses
    /// itself. \since 1.0
    Q_PROPERTY(QColor titleBackground READ titleBackground WRITE SetTitleBg RESET resetTitleBackground)
    /// The buttons in the title bar that are shown. \since 1.0
    Q_PROPERTY(CBPWinFrmTitle::Buttons titleButtons READ titleButtons WRITE setTitleButtons)
    /// Whether the title bar's back, menu, close and minimise button can be pressed. \since 1.0
    Q_PROPERTY(bool titleBarEnabled READ isTitleBarEnabled WRITE SetTitleBarEnabled)
    /// Whether the upper corners of the title bar are round. \since 1.0
    Q_PROPERTY(bool titleRounded READ isTitleRounded WRITE EnabledTitleRoundRc)
    /// Height of the title bar in pixels. \since 1.0
    Q_PROPERTY(int titleHeight READ titleHeight WRITE SetTitleHeight RESET resetTitleHeight)
    /// Whether the menu button is marked with a dot. \since 1.0
    Q_PROPERTY(bool hasNewVersion READ hasNewVersion WRITE SetHasNewVersion)
    /// Whether there is a title bar to be seen. \since 1.0
    Q_PROPERTY(bool titleVisible READ isTitleVisible WRITE showWindowTitle)
    /// Height of the bottom area in pixels; 0 takes the line above it away for good. \since 1.0
    Q_PROPERTY(int bottomHeight READ bottomHeight WRITE SetBottomHeight RESET resetBottomHeight)
    /// Whether derived classes draw a line above the bottom area; set after bottomHeight. \since 1.0
    Q_PROPERTY(bool drawsBottomLine READ drawsBottomLine WRITE SetDrawBottomHLine)
    /// Room for a shadow on all sides in pixels, from Init() or the next restoring on. \since 1.0
    Q_PROPERTY(int shadowBorder READ shadowBorder WRITE SetShadowBorder RESET resetShadowBorder)
    /// Whether a maximised window keeps 5 pixels away from every edge. \since 1.0
    Q_PROPERTY(bool winPE READ isWinPE WRITE setIsWinPE DESIGNABLE false)
    /// Whether Escape and Alt+F4 do not close the window. \since 1.0
    Q_PROPERTY(bool escAndF4Disabled READ isEscAndF4Disabled WRITE SetDisableEscAndF4Flag)
    /// Whether the window fills the work area; see isMaximized(). \since 1.0
    Q_PROPERTY(bool maximized READ isMaximized DESIGNABLE false)

public:
    /// A dialog that belongs to the nearest visible one among \a parent and its ancestors, or else to
    /// \a parent. It is \a parent, though, whose hiding closes it. \since 1.0
    explicit CBPWinFrm(QWidget *parent = nullptr);
    ~CBPWinFrm() override;

    /// Shows \a text, or with \a isImage the image file of that path, as the title. A text is the dialog's
    /// accessible name, too. \since 1.0
    void SetWindowTitle(QString text, bool isImage = false);

    /// The text in the title bar; empty before Init() and while an image is shown there. \since 1.0
    QString title() const;

    /// Shows the image file \a path as the title bar's icon.
    /// \since 1.0
    void SetWindowLog(QString path);

    /// The image file of the title bar's icon. \since 1.0
    QString logoPath() const;

    /// Shows or hides the parts of the title bar whose bits are set in \a id; see
    /// CBPWinFrmTitle::ShowTitleBtn(). \since 1.0
    void ShowTitleBtn(int id, bool show);

    /// The buttons in the title bar that are shown; none before Init(). \since 1.0
    CBPWinFrmTitle::Buttons titleButtons() const;

    /// Shows these buttons in the title bar and hides the others; see CBPWinFrmTitle::setShownButtons(). Does
    /// nothing before Init(). \since 1.0
    void setTitleButtons(CBPWinFrmTitle::Buttons buttons);

    /// Enables or disables the title buttons whose bits are set in \a id.
    /// \since 1.0
    void EnableTitleBtn(int id, bool enable);

    /// Has the title bar look and act as that of a maximised window, or a restored one.
    /// \since 1.0
    void ResetMaxBtn(bool maximised);

    /// Fills the title bar with \a color.
    /// \since 1.0
    void SetTitleBg(QColor color);

    /// The colour of the title bar; invalid before Init(). \since 1.0
    QColor titleBackground() const;

    /// Fills the title bar with the colour that it chooses itself. \since 1.0
    void resetTitleBackground();

    /// The title bar's button of that id, or null; see CBPWinFrmTitle::titleBtn().
    /// \since 1.0
    CBPImageButton *titleBtn(int id);

    /// Enables or disables the title bar's back, menu, close and minimise button.
    /// \since 1.0
    void SetTitleBarEnabled(bool enable);

    /// Whether these four buttons are enabled; false before Init(). \since 1.0
    bool isTitleBarEnabled() const;

    /// Rounds the upper corners of the title bar, or not.
    /// \since 1.0
    void EnabledTitleRoundRc(bool enable);

    /// Whether the upper corners of the title bar are round; false before Init(). \since 1.0
    bool isTitleRounded() const;

    /// Sets the height of the title bar in pixels; 60 at first.
    /// \since 1.0
    void SetTitleHeight(int height);

    /// The height of the title bar; 0 before Init(). \since 1.0
    int titleHeight() const;

    /// Makes the title bar 60 pixels high. \since 1.0
    void resetTitleHeight();

    /// Marks the menu button with a dot, or no longer.
    /// \since 1.0
    void SetHasNewVersion(bool hasNewVersion);

    /// Whether the menu button is marked with a dot. \since 1.0
    bool hasNewVersion() const;

    /// Shows or hides the title bar.
    /// \since 1.0
    void showWindowTitle(bool visible);

    /// Whether there is a title bar that is not hidden. \since 1.0
    bool isTitleVisible() const;

    /// Adds \a widget below the content there is, and \a spacing pixels below it. With \a expand it takes
    /// what room there is in both directions. The second flag is ignored. Null does nothing. The dialog
    /// becomes the owner. \since 1.0
    void AppendContent(QWidget *widget, bool expand, bool, unsigned int spacing);

    /// The widget of setContentWidget(), or null. \since 1.0
    QWidget *contentWidget() const;

    /// Sets the margins around the content; 12, 16, 12, 12 at first.
    /// \since 1.0
    void SetMainBoxBorder(int left, int top, int right, int bottom);

    /// Sets the margins inside the bottom area; 12, 12, 12, 16 at first.
    /// \since 1.0
    void SetStatusBoxBorder(int left, int top, int right, int bottom);

    /// Sets the height of the bottom area in pixels; 70 at first. 0 also takes the line above it away, for
    /// good. \since 1.0
    void SetBottomHeight(int height);

    /// The height of the bottom area, for painters. \since 1.0
    int bottomHeight() const;

    /// Makes the bottom area 70 pixels high. \since 1.0
    void resetBottomHeight();

    /// Whether derived classes draw a line above the bottom area; true at first.
    /// \since 1.0
    void SetDrawBottomHLine(bool draw);

    /// Whether a line is to be painted above the bottom area. \since 1.0
    bool drawsBottomLine() const;

    /// Sets the room that is left for a shadow on all four sides, in pixels; 10 at first, and 0 for a
    /// negative one. Takes effect at Init() and when the dialog is restored. \since 1.0
    void SetShadowBorder(int border);

    /// The room for a shadow, for painters. A maximised dialog has none; see isMaximized(). \since 1.0
    int shadowBorder() const;

    /// Leaves 10 pixels for a shadow; see SetShadowBorder(). \since 1.0
    void resetShadowBorder();

    /// Whether the program runs in a pre-installation environment, where a maximised dialog keeps 5 pixels
    /// away from every edge; false at first. \since 1.0
    void setIsWinPE(bool isWinPE);

    /// What setIsWinPE() was told. \since 1.0
    bool isWinPE() const;

    /// With true neither Escape nor Alt+F4 nor reject() close the dialog; the close button does. That holds
    /// for every derived class, for the Cancel button that Escape presses in a CMsgBox, too. \since 1.0
    void SetDisableEscAndF4Flag(bool disable);

    /// What SetDisableEscAndF4Flag() has set. \since 1.0
    bool isEscAndF4Disabled() const;

    /// Whether OnMax() has maximised the dialog, or the system has, as after QWidget::showMaximized();
    /// QWidget::isMaximized(), which this hides, knows the latter alone. OnMax() restores both. \since 1.0
    bool isMaximized() const;

    /// Runs the dialog modally, centred over its parent or in the work area of the primary screen, which it
    /// does not leave. It may be destroyed meanwhile, the answer is then 0. \since 1.0
    int exec() override;

    /// Closes the dialog with the result QDialog::Rejected, unless SetDisableEscAndF4Flag() forbids it.
    /// \since 1.0
    void reject() override;

    /// The maximise button was clicked. The base lets the dialog fill the work area of the primary screen, or
    /// gives it back its former place and size. Both sizes are fixed ones. \since 1.0
    virtual void OnMax();

    /// The dialog is to be closed, by button, key or system. The base calls QWidget::close(), and a derived
    /// class does so, too, or leaves the dialog open. Whichever of these it comes by, it is called once,
    /// not again for the close() in it. To close from code call close(), not this. \since 1.0
    virtual void OnClose();

    /// The minimise button was clicked. The base minimises the dialog.
    /// \since 1.0
    virtual void OnMin();

    /// The settings button was clicked.
    /// \since 1.0
    virtual void OnSetting();

    /// F1 was pressed.
    /// \since 1.0
    virtual void OnHelp();

    /// The back button was clicked.
    /// \since 1.0
    virtual void PreBtnClick();

    /// The contact button was clicked.
    /// \since 1.0
    virtual void QQBtnClick();

    /// The online-support button was clicked.
    /// \since 1.0
    virtual void OnlineSupportClick();

    /// The limited-time-offer button was clicked.
    /// \since 1.0
    virtual void DiscountBtnSlot();

    /// The menu button was clicked; a menu belongs at \a globalPos, below the title bar and at the left edge
    /// of the button. \since 1.0
    virtual void ShowMenu(const QPoint &globalPos);

    /// For the application, to refresh its main window's title after a dialog has changed it. The library
    /// does not call it. \since 1.0
    virtual void UpdateMainWndTitle();

public Q_SLOTS:
    /// Fills the content column with \a content, as a form does: it takes what room there is, and the place
    /// of the one that was set before, which is deleted once control is back in the event loop. Null takes
    /// that away. What AppendContent() has added stays. Before Init() it waits for that. The dialog becomes
    /// the owner. Left out, with a warning, is a widget that the dialog lies in. \since 1.0
    void setContentWidget(QWidget *content);

Q_SIGNALS:
    /// SetWindowTitle() has put another text into the title bar. A slot may delete the dialog. \since 1.0
    void titleChanged(const QString &title);

protected:
    /// Builds title bar, content column and, where there is one, the bottom area. Call it once.
    /// \since 1.0
    void Init();

    /// Places the dialog where exec() shows it, in the size that it will have.
    /// \since 1.0
    void centre();

    /// Calls ShowMenu() with the place for the menu; does nothing without a menu button.
    /// \since 1.0
    void OnMenuClick();

    /// Makes \a box the bottom area. To be called before Init(), with which the dialog becomes the owner.
    /// \since 1.0
    void setStatusBox(QWidget *box);

    /// The bottom area, or null.
    /// \since 1.0
    QWidget *statusBox() const;

    /// The title bar; null before Init().
    /// \since 1.0
    CBPWinFrmTitle *titleBar() const;

    /// The column that AppendContent() adds to; null before Init().
    /// \since 1.0
    QVBoxLayout *contentBox() const;

    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void showEvent(QShowEvent *event) override;

private Q_SLOTS:
    void on_dbl_clickedSlot(bool bDelete);

private:
    static void on_btn_clicked(void *self, int id);
    void OnTitleBtnClicked(int id);

    std::unique_ptr<lumqt::FrameBehaviour> m_frame;
};
