#pragma once

#include "CBPWinFrm.h"

#include <QMap>
#include <QPair>
#include <QPointer>
#include <QRegion>
#include <QSize>

class CBPBox;
class CBPPushBtn;
class QPainter;

/// The library's modal dialog: a CBPWinFrm with a row of standard buttons along its bottom. The button that
/// ended it is its result.
///
/// Make it, call Init(), add buttons and content, and Run() it; GetResult() then tells the flag of the
/// button. A derived class refuses a button in proceedBtnClicked(). Escape does nothing but take back the
/// press of a button that is held down; the title bar's close button and Alt+F4 end the dialog with the
/// result 0x100, that of Cancel. Each end is QDialog's done(), by which finished() and rejected() tell it
/// once, and not reject(), which is for a close event alone that OnClose() did not answer. An answer given
/// stays: closing the dialog from a slot of sigQuit(), hiding its parent there, or closing it when it is
/// hidden already, does not turn it into 0x100. It paints its body with a soft shadow, or an outline
/// where the system does not blend windows (a picture by grab() has the shadow everywhere), and fades in
/// during the first 200 milliseconds of its life.
///
/// The button that agrees, OK before Yes before any other, is the default and has the focus when nothing
/// comes before the row; an application chooses another by QPushButton::setDefault(). While a job runs in a
/// button (CBPWaitBtn), the focus that it had is the dialog's, so that no key presses another button in its
/// stead, and comes back after; a button in which one runs when the dialog opens counts as disabled. A row
/// that is wider than the work area, or than the dialog may be, goes on in further rows, for which the
/// bottom area grows.
///
/// The standard buttons, by flag and in the order in which a row holds them: 0x2 Add, 0x4 OK, 0x8 Retry,
/// 0x10 Continue, 0x20 Skip, 0x80 Export, 0x800 Yes, 0x8000 one without a text for ResetBtnText(),
/// 0x40000 Browse, 0x4000 Reboot, 0x40 SkipAll, 0x10000 Erase, 0x20000 Change, 0x2000 Quit, 0x1000 No,
/// 0x100 Cancel, 0x80000 Back, 0x100000 Close, 0x200000 Restart now, 0x400000 Restart later. All are 36
/// pixels high, and all but No are CBPWaitBtn. Other bits make no button.
///
/// Whatever is called while it runs may delete the dialog or its parent, but for a slot of accepted() or
/// rejected(), after which Qt emits finished(): use deleteLater() there. All sizes are logical pixels. GUI
/// thread only. \since 1.0
class LUMQT_EXPORT CBPPopWnd : public CBPWinFrm
{
    Q_OBJECT
    /// The standard buttons of the row. Those that are not there yet are made at its right end, as
    /// AppendBtn() does after Init(), and those that are there too many are deleted. \since 1.0
    Q_PROPERTY(Buttons buttons READ buttons WRITE setButtons)

public:
    /// The standard buttons by their flags, in the order in which a row holds them. \since 1.0
    enum Button : int {
        BtnAdd = 0x2,               ///< Add
        BtnOk = 0x4,                ///< OK
        BtnRetry = 0x8,             ///< Retry
        BtnContinue = 0x10,         ///< Continue
        BtnSkip = 0x20,             ///< Skip
        BtnExport = 0x80,           ///< Export
        BtnYes = 0x800,             ///< Yes
        BtnOther = 0x8000,          ///< one without a text, for ResetBtnText()
        BtnBrowse = 0x40000,        ///< Browse
        BtnReboot = 0x4000,         ///< Reboot
        BtnSkipAll = 0x40,          ///< SkipAll
        BtnErase = 0x10000,         ///< Erase
        BtnChange = 0x20000,        ///< Change
        BtnQuit = 0x2000,           ///< Quit
        BtnNo = 0x1000,             ///< No
        BtnCancel = 0x100,          ///< Cancel
        BtnBack = 0x80000,          ///< Back
        BtnClose = 0x100000,        ///< Close
        BtnRestartNow = 0x200000,   ///< Restart now
        BtnRestartLater = 0x400000, ///< Restart later
    };
    Q_ENUM(Button)
    Q_DECLARE_FLAGS(Buttons, Button)
    Q_FLAG(Buttons)

    /// A dialog that fades in from now on; see CBPWinFrm about \a parent.
    /// \since 1.0
    explicit CBPPopWnd(QWidget *parent = nullptr);

    /// The same, which fades in only if \a fadeIn is true.
    /// \since 1.0
    CBPPopWnd(bool fadeIn, QWidget *parent);
    ~CBPPopWnd() override;

    /// Builds the frame and the button row. With \a bottomArea the row is shown in a bottom area, without it
    /// nowhere: buttons can be made and asked for, but are not seen. Call it once, before buttons or content
    /// are added. \since 1.0
    void Init(bool bottomArea);

    /// Makes a button for every flag in \a flags, at the right of the row. A flag whose button exists gets a
    /// second one, which takes the place of the first in all operations here. Does nothing before Init().
    /// \since 1.0
    void AppendBtn(int flags);

    /// The same at the left of the row.
    /// \since 1.0
    void PrependBtn(int flags);

    /// The standard buttons there are. \since 1.0
    Buttons buttons() const;

    /// Makes those of \a buttons that are not there yet, as AppendBtn() does, and deletes the others once
    /// control is back in the event loop. \since 1.0
    void setButtons(Buttons buttons);

    /// Adds \a widget at the left of the row; see CBPBox::PackStart() for the other arguments. Null, and a
    /// call before Init(), do nothing. \since 1.0
    void PrependWidget(QWidget *widget, bool expand = false, bool option = false, unsigned int padding = 0,
                       Qt::Alignment align = {});

    /// The same at the right of the row.
    /// \since 1.0
    void AppendWidget(QWidget *widget, bool expand = false, bool option = false, unsigned int padding = 0,
                      Qt::Alignment align = {});

    /// The left part of the row; null before Init().
    /// \since 1.0
    CBPBox *GetPreBox();

    /// The button of exactly this \a flag, or null. It belongs to the dialog.
    /// \since 1.0
    CBPPushBtn *GetBtn(int flag);

    /// Enables or disables the button of \a flag, if there is one.
    /// \since 1.0
    void EnableButton(int flag, bool enable);

    /// Whether the button of \a flag is enabled; false without such a button.
    /// \since 1.0
    bool ButtonIsEnable(int flag);

    /// Sets the text of the button of \a flag, if there is one. A wait in the button ends with this text. A
    /// button becomes wider for its text, up to 480 pixels, and never narrower; a longer text ends in an
    /// ellipsis. \since 1.0
    void ResetBtnText(int flag, QString text);

    /// Has \a callback asked after each press of a standard button: it gets the result code and \a context,
    /// and keeps the dialog open by returning -1. It is also asked when proceedBtnClicked() has refused the
    /// button, with the result as it was. Without one, null, every accepted button ends the dialog.
    /// \since 1.0
    void SetBtnClickCB(int (*callback)(int, void *), void *context);

    /// The flag of the last accepted button, 0x100 after the close button, or what SetResult() stored; -1 at
    /// first. \since 1.0
    int GetResult() const;

    /// Stores a result code.
    /// \since 1.0
    void SetResult(int result);

    /// Runs the dialog modally until it is ended. It may be destroyed meanwhile, and only then may it be gone
    /// when this returns: with Qt::WA_DeleteOnClose it lives until control is back in the event loop.
    /// \since 1.0
    void Run();

    /// Ends the dialog: emits sigQuit() and closes it. The result code stays as it is. Calls from what this
    /// itself brings about do nothing. \since 1.0
    virtual void UnRun();

    /// The dialog is to be closed by its title bar, the system or its parent's hiding: the result becomes
    /// 0x100, and UnRun() is called. \since 1.0
    void OnClose() override;

    /// Opens the help of the dialog's class. No class has any, so nothing happens.
    /// \since 1.0
    void OnHelp() override;

    /// Fixes the size to the one that the ini file \a file holds at \a group / \a key, or to \a size when
    /// there is none; see Util::readIni(). \since 1.0
    void SetWndFixedSize(QString key, QSize size, QString group, QString file);

    /// Fixes the size. Where it exceeds the work area of the primary screen in either direction, both the
    /// width and the height become those of the work area. Hides QWidget's function. \since 1.0
    void setFixedSize(int width, int height);

    /// The same.
    /// \since 1.0
    void setFixedSize(QSize size);

    /// Runs the dialog modally, as Run() does, and returns QDialog's result, which is 0 for a dialog ended by
    /// button, UnRun() or destruction. One that is closed while it is being shown ends, too. Returns -1 at
    /// once, with a warning of Qt, while it runs already. \since 1.0
    int exec() override;

    void done(int result) override;
    void setVisible(bool visible) override;

Q_SIGNALS:
    /// The dialog is about to be closed by UnRun(). \a wnd is its QObject. A slot may delete the dialog.
    /// \since 1.0
    void sigQuit(void *wnd);

protected:
    /// A standard button was pressed: false keeps the dialog open and its result as it is. The base answers
    /// true. The dialog may be ended or deleted meanwhile. \since 1.0
    virtual bool proceedBtnClicked(int flag);

    /// What of the window is to be seen where the system does not blend windows with what lies behind them;
    /// the rest would be black. The base answers the body without its shadow. \since 1.0
    virtual QRegion visibleShape() const;

    /// The widest that the dialog can become, in pixels: the row of buttons goes on in a further row where it
    /// would be wider. The base answers its maximum width, within the work area of the primary screen.
    /// \since 1.0
    virtual int widest() const;

    /// Gives the row of buttons the further rows that widest() makes necessary, as it is done whenever the
    /// dialog is shown and its content changes. Returns whether the left part stands above the right one
    /// then. \since 1.0
    bool wrapRow();

    /// The button that the dialog opens on and that is its default, or null: OK, else Yes, else the first
    /// primary one but Back, else the first of the others, and Cancel last, of those that are enabled and not
    /// hidden; first is meant as in the list above. \since 1.0
    CBPPushBtn *affirmativeButton() const;

    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool event(QEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void on_btn_clicked();

private:
    void startFadeIn();
    void PackBtn(int flags, bool prepend);
    CBPPushBtn *CreateAndPackBtn(QString caption, QStringList &frames, int flag, bool prepend,
                                 QString buttonId);
    void pack(CBPBox *box, QWidget *widget, bool expand, bool option, unsigned int padding,
              Qt::Alignment align);
    int flagOf(const CBPPushBtn *button) const;
    void chooseDefault();
    void openOnAffirmative();
    void takeBack(CBPPushBtn *button);
    QPair<int, int> placeInRow(const QWidget *widget) const;
    void arrangeTabOrder();
    void retranslateButtons();
    QRect bodyRect() const;
    int cornerRadius() const;
    const QWidget *framelessFocus() const;
    QRect ringAround(const QWidget *button) const;
    void drawFocusRing(QPainter &painter);
    void updateMask();

    int m_result = -1;
    bool m_quit = false; // UnRun() ran once
    QPointer<CBPBox> m_preBox;
    QPointer<CBPBox> m_postBox;
    QPointer<CBPBox> m_rowBox;
    QMap<int, QPointer<CBPPushBtn>> m_buttons;
    QMap<int, QString> m_captions; // of those buttons that have the standard one
    int (*m_callback)(int, void *) = nullptr;
    void *m_callbackContext = nullptr;
    bool m_running = false;      // exec() runs
    bool m_ending = false;       // UnRun() runs
    unsigned int m_endings = 0;  // how often the dialog was ended
    bool m_tabsArranged = false; // at the first show
    bool m_masked = false;
    int m_wrappedHeight = 0;         // by which rows of buttons below the first make the bottom area higher
    QPointer<CBPPushBtn> m_default;  // as chosen here
    QPointer<CBPPushBtn> m_lentFrom; // the button whose focus the dialog keeps while it waits
};

Q_DECLARE_OPERATORS_FOR_FLAGS(CBPPopWnd::Buttons)
