#pragma once

#include "CBPPopWnd.h"

#include <QPixmap>
#include <QString>
#include <QVector>

#include <functional>

class CBPLabel;
class CBPLineEdit;
class CBPLinkerButton;
class QLabel;
class QScrollArea;

/// The library's message box: an icon, a coloured heading, a message, and the standard buttons of CBPPopWnd;
/// also two small forms, for a folder's name and for a user name and password.
///
/// Make one, call one of the five functions once, and read its answer: the flag of the button that ended the
/// box, 0x100 for the title bar's close button, -1 when it was ended without a button, or destroyed with the
/// call still running. A second call adds a second content and second buttons below the first.
///
/// Types: 0 information, 1 question, 2 warning, 3 error; each brings its icon and its title, which an own
/// caption replaces. Any other type is information without a title. The titles are entries such as
/// "{caption}Message" of the translation catalogue; Util::InstallCatalogue() installs the English ones.
///
/// Heading, message and prompts are shown as a QLabel shows them: a text that looks like rich text is rich
/// text, unbalanced markup included; a heading always is, so its line ends are spaces. Text from outside
/// belongs through QString::toHtmlEscaped() first. Link, caption and check box show plain text. Long texts
/// wrap, also without a space to wrap at, and the box becomes as tall as they need, also for a text that is
/// changed while it is shown: then it grows over its middle, within the work area. The box is 500 pixels
/// wide, and wider only for what cannot be narrower: buttons, a table, a picture. What is taller or wider
/// than the work area scrolls.
///
/// Enter presses OK (0x4) and Escape presses Cancel (0x100), if they are there and enabled; Escape does
/// nothing after SetDisableEscAndF4Flag(true), and takes back the press of a button that is held down; the
/// copy key copies caption, texts and button captions, never what was typed. Screen readers find a dialog
/// named by its title and described by its texts. All sizes are logical pixels. GUI thread only. \since 1.0
class LUMQT_EXPORT CMsgBox : public CBPPopWnd
{
    Q_OBJECT
    /// The entered user name, or the folder's name. \since 1.0
    Q_PROPERTY(QString user READ GetUser NOTIFY userChanged DESIGNABLE false STORED false)
    /// The entered password. \since 1.0
    Q_PROPERTY(QString password READ GetPassword NOTIFY passwordChanged DESIGNABLE false STORED false)

public:
    /// An empty box that fades in; see CBPWinFrm about \a parent. \since 1.0
    explicit CMsgBox(QWidget *parent = nullptr);
    ~CMsgBox() override;

    /// Shows \a text under the heading \a head, which is left out when empty, with the buttons of the flags
    /// \a buttons; bits without a button are ignored. \since 1.0
    int message(int type, QString text, QString head, int buttons, QString caption = QString());

    /// The same with a check box at the left of the buttons, unchecked at first. The answer has the bit 0x200
    /// set, too, when it is checked, and 0x400 when it is not; -1 stays -1. A \a checkText that needs more
    /// than six lines there ends in an ellipsis and is shown whole in the tool tip. \since 1.0
    int messageWithCheckbox(int type, QString text, QString checkText, QString head, int buttons,
                            QString caption = QString());

    /// The same as message() with a link below the text that reads \a linkText.
    ///
    /// A click on it hands \a linkTarget to QDesktopServices::openUrl() as it is, whatever its scheme, so a
    /// target from outside is to be checked first. An empty target opens nothing. \since 1.0
    int messageWithLink(int type, QString text, QString linkText, QString linkTarget, QString head,
                        int buttons, QString caption = QString());

    /// Asks for a folder's name under the prompt \a text. GetUser() is the name then.
    ///
    /// It has at most 256 characters and none of \c \\/:*?"<>| can be typed. OK stays disabled while it is
    /// empty or spaces alone. Return ends the box with the answer -1, without OK, when the name is acceptable
    /// to the edit's validator, which wants a "]" at the end of it; else Return presses OK. \since 1.0
    int showCreateDirBox(int type, QString text, int buttons, QString caption = QString());

    /// Asks for a user name and a password under the prompt \a text, or a standard one when that is empty.
    /// GetUser() and GetPassword() are the entries then.
    ///
    /// \a fields: 0x1 the edit for the user name (at most 128 characters), 0x2 that for the password (at most
    /// \a passwordMaxLength; a negative one is no limit, with a warning), 0x4 a red line with \a hint, hidden
    /// when that is empty. \a user and \a password are what the edits hold at first.
    ///
    /// OK reads Proceed. At first it is disabled when \a user is empty, or \a password is and \a
    /// allowEmptyPassword is false. When something was typed it is enabled by a user name alone, whatever the
    /// password; in a box without the edit for it by a password, which may be empty if \a allowEmptyPassword
    /// says so. \since 1.0
    int showUserAndPasswordBox(int type, QString text, int fields, int passwordMaxLength, int buttons,
                               QString caption = QString(), QString user = QString(),
                               QString password = QString(), QString hint = QString(),
                               bool allowEmptyPassword = false);

    /// The entered user name, or the folder's name; empty without such an edit.
    /// \since 1.0
    QString GetUser();

    /// The entered password; empty without such an edit.
    /// \since 1.0
    QString GetPassword();

    /// Makes the box as tall as its texts need, and runs it modally; see CBPPopWnd::Run(), which this hides.
    /// The five functions call it. \since 1.0
    void Run();

    void done(int result) override;

Q_SIGNALS:
    /// The link was clicked. \a str is its target; that was opened before, unless it is empty. A slot may
    /// delete the box. \since 1.0
    void sigLinkClicked(const QString &str);

    /// GetUser() is another one: the box is shown with it, or it was typed. A slot that is done with the box
    /// uses deleteLater(), as the edit is still at work. \since 1.0
    void userChanged(const QString &user);

    /// GetPassword() is another one; see userChanged(). \since 1.0
    void passwordChanged(const QString &password);

protected:
    int widest() const override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void onLinkActivated();
    void onTextChanged(const QString &text);
    void onDirInputFinish();
    void OnUserPasswordChanged(const QString &text);

private:
    enum Mode { OtherMode = 0, DirMode = 1 };

    void initContent();
    void initMsgBox();
    void initCreateDirBox();
    void initUserAndPasswordBox(int fields, int passwordMaxLength, QString text);
    void fillMsgBox(int type, const QString &text, const QString &head, int buttons, const QString &caption);
    const char *infoMsg(int type);
    QString headText(int type, QString text);
    QPixmap iconPixmap(int type);
    void keepInTheme(int type, const QString &head);
    void setTitle(int type, const QString &caption);
    QWidget *addForm(CBPLabel *prompt);
    CBPLineEdit *addEdit(const char *icon, const char *placeholder, int maxLength);
    void tellEntries();
    int runAndAnswer();
    void showTranslated(const char *source, const std::function<QString()> &shown,
                        const std::function<void(const QString &)> &show);

    void fitToContent();
    static QString plainOnCheckBox(QString text);
    void fitCheckBox(int room);
    bool hasOwnWidth() const;
    int neededHeight(int width) const;
    void fitToRoom(const QSize &room);
    int neededScrolling() const;
    void contentChanged();
    void describe();
    void growToContent();
    void makeScrollable();
    void moveIntoScrollArea();
    QStringList shownTexts() const;
    QVector<CBPPushBtn *> buttonsInRow() const;
    void copyTexts() const;
    void giveFirstFocus();

    QPointer<QLabel> m_icon;
    QPointer<QLabel> m_heading;
    QPointer<QLabel> m_message;
    QPointer<CBPLinkerButton> m_link;
    QPointer<CBPLabel> m_prompt;
    QPointer<CBPLineEdit> m_firstEdit;
    QPointer<CBPLineEdit> m_passwordEdit;
    QPointer<CBPLabel> m_hint;
    QString m_linkTarget;
    int m_mode = OtherMode;
    QString m_user;
    QString m_password;
    QString m_toldUser; // what userChanged() has said last
    QString m_toldPassword;
    bool m_allowEmptyPassword = false;

    QPointer<QWidget> m_content; // the newest one
    QPointer<QWidget> m_checkBox;
    QString m_checkText; // before it was broken into lines
    QPointer<QScrollArea> m_scrollArea;
    QVector<std::function<void()>> m_retranslate; // of the texts that are the box's own
    QString m_described;                          // to a screen reader
    QString m_namedEdit;                          // the name it reads for the directory edit
    int m_ownWidth = 0;                           // until the application gives it another
    bool m_finishing = false;                     // by Return in the directory edit
    bool m_ended = false;                         // no key answers it any more
};
