#include "CBPLineEdit.h"
#include "CBPPushBtn.h"
#include "CMsgBox.h"
#include "dialogs/WrappedLabel.h"
#include "foundation/FieldText.h"
#include "foundation/FontLookup.h"
#include "foundation/Log.h"
#include "foundation/Palette.h"
#include "foundation/QtCompat.h"
#include "Util.h"

#include <QVBoxLayout>

#include <utility>

using lumqt::Purpose;

// The two forms: for a folder's name, and for a user name and password.

namespace {

// Metrics, in logical pixels.
constexpr int kSpacing = 15;
constexpr int kEditWidth = 300;

constexpr int kDirNameLength = 256;
constexpr int kUserLength = 128;
// Whole, each name ends in a bracket, so that is what the edit takes for finished; what may be typed on the
// way there is any character that a folder's name may hold.
const char kDirNamePattern[] = "(?:[^\\\\/:*?\"<>|\r\n]+\\])*";
// The same texts: the bracket is among the characters before it, too. Of the pattern itself a matcher that
// goes back tries all ways to divide sixty "]" and an "x".
const char kDirNameQuickPattern[] = "(?:[^\\\\/:*?\"<>|\r\n]+\\])?";

constexpr int kOk = 0x4;
enum Field { UserField = 0x1, PasswordField = 0x2, HintField = 0x4 };

lumqt::WrappedLabel *wrapped(Purpose color)
{
    return new lumqt::WrappedLabel(QString(), lumqt::NormalWeight, lumqt::kTextPixelSize, color);
}

} // namespace

QWidget *CMsgBox::addForm(CBPLabel *prompt)
{
    auto *form = new QWidget(this);
    AppendContent(form, true, true, 0);
    auto *column = new QVBoxLayout(form);
    column->setSpacing(kSpacing);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(prompt);
    m_prompt = prompt;
    m_content = form;
    m_scrollArea.clear();
    return form;
}

CBPLineEdit *CMsgBox::addEdit(const char *icon, const char *placeholder, int maxLength)
{
    auto *edit = new CBPLineEdit(*icon ? Util::getResFullPath(QString::fromLatin1(icon)) : QString());
    edit->setObjectName(QStringLiteral("DefaultLineEdit"));
    edit->setMaxLength(maxLength);
    edit->setFont(lumqt::uiFont());
    if (*placeholder) {
        edit->setMaximumWidth(kEditWidth);
        showTranslated(
            placeholder,
            [edit = QPointer<CBPLineEdit>(edit)] { return edit ? edit->placeholderText() : QString(); },
            [edit = QPointer<CBPLineEdit>(edit)](const QString &text) {
                if (!edit)
                    return;
                edit->setPlaceholderText(text);
                edit->setAccessibleName(
                    text); // which a screen reader goes on to read when something is typed
            });
    }
    m_content->layout()->addWidget(edit);
    return edit;
}

// ------------------------------------------------------------------------------------------------------------
// a folder's name

void CMsgBox::initCreateDirBox()
{
    addForm(wrapped(Purpose::MessageText));
    m_prompt->setText(tr("Please enter the dir name:"));
    m_firstEdit = addEdit("", "", kDirNameLength);
    m_firstEdit->setValidator(lumqt::patternValidator(
        QString::fromLatin1(kDirNamePattern), QString::fromLatin1(kDirNameQuickPattern), m_firstEdit));
    lumqt::setNothingRefused(m_firstEdit);
    connect(m_firstEdit.data(), &QLineEdit::textChanged, this, &CMsgBox::onTextChanged);
    connect(m_firstEdit.data(), &QLineEdit::textChanged, this, &CMsgBox::tellEntries);
    connect(m_firstEdit.data(), &QLineEdit::returnPressed, this, &CMsgBox::onDirInputFinish);
    m_content->layout()->addItem(new QSpacerItem(0, 0, QSizePolicy::Preferred, QSizePolicy::Expanding));
}

int CMsgBox::showCreateDirBox(int type, QString text, int buttons, QString caption)
{
    m_mode = DirMode;
    initCreateDirBox();
    AppendBtn(buttons);
    EnableButton(kOk, false);
    setTitle(type, caption);
    m_prompt->setText(text); // an empty one, too: the caller has said it elsewhere
    const QPointer<CMsgBox> alive(this);
    const int result = runAndAnswer();
    if (alive)
        m_mode = OtherMode;
    return result;
}

void CMsgBox::onTextChanged(const QString &text)
{
    if (m_mode != DirMode) {
        EnableButton(kOk, !text.isEmpty());
        return;
    }
    const bool named = std::any_of(text.cbegin(), text.cend(), [](QChar c) { return c != QLatin1Char(' '); });
    EnableButton(kOk, named);
}

// The result stays as it is: whoever asks for a name looks at the name.
void CMsgBox::onDirInputFinish()
{
    const auto *edit = qobject_cast<const QLineEdit *>(sender());
    if (!edit || edit->text().isEmpty())
        return;
    const QPointer<CMsgBox> alive(this);
    m_finishing = true;
    UnRun();
    if (alive)
        m_finishing = false;
}

// ------------------------------------------------------------------------------------------------------------
// user name and password

void CMsgBox::initUserAndPasswordBox(int fields, int passwordMaxLength, QString text)
{
    lumqt::WrappedLabel *prompt = wrapped(Purpose::MessageText);
    addForm(prompt);
    if (text.isEmpty()) {
        showTranslated(
            QT_TR_NOOP("Please enter the password."),
            [prompt = QPointer<CBPLabel>(prompt)] { return prompt ? prompt->text() : QString(); },
            [prompt = QPointer<CBPLabel>(prompt)](const QString &shown) {
                if (prompt)
                    prompt->setText(shown);
            });
    } else {
        prompt->setText(text);
    }
    if (fields & UserField)
        m_firstEdit = addEdit("../res/icon_user.png", QT_TR_NOOP("User name"), kUserLength);
    if (fields & PasswordField) {
        if (passwordMaxLength < 0)
            qCWarning(lcLumQt, "CMsgBox: %d is no length of a password", passwordMaxLength);
        const int length = passwordMaxLength < 0 ? QLineEdit().maxLength() : passwordMaxLength;
        m_passwordEdit = addEdit("../res/icon_lock.png", QT_TR_NOOP("Password"), length);
        m_passwordEdit->setEchoMode(QLineEdit::Password);
    }
    if (fields & HintField) {
        m_hint = wrapped(Purpose::MessageHint);
        m_content->layout()->addWidget(m_hint);
    }
    m_content->layout()->addItem(new QSpacerItem(0, 0, QSizePolicy::Preferred, QSizePolicy::Expanding));
}

int CMsgBox::showUserAndPasswordBox(int type, QString text, int fields, int passwordMaxLength, int buttons,
                                    QString caption, QString user, QString password, QString hint,
                                    bool allowEmptyPassword)
{
    initUserAndPasswordBox(fields, passwordMaxLength, text);
    AppendBtn(buttons);
    setTitle(type, caption);
    m_user = user;
    m_password = password;
    m_allowEmptyPassword = allowEmptyPassword;
    if (m_firstEdit) {
        m_firstEdit->setText(user);
        connect(m_firstEdit.data(), &QLineEdit::textChanged, this, &CMsgBox::OnUserPasswordChanged);
        connect(m_firstEdit.data(), &QLineEdit::textChanged, this, &CMsgBox::tellEntries);
    }
    if (m_passwordEdit) {
        m_passwordEdit->setText(password);
        connect(m_passwordEdit.data(), &QLineEdit::textChanged, this, &CMsgBox::OnUserPasswordChanged);
        connect(m_passwordEdit.data(), &QLineEdit::textChanged, this, &CMsgBox::tellEntries);
    }
    if (CBPPushBtn *ok = GetBtn(kOk)) {
        showTranslated(
            QT_TR_NOOP("Proceed"), [this] { return GetBtn(kOk) ? GetBtn(kOk)->text() : QString(); },
            [this](const QString &shown) { ResetBtnText(kOk, shown); });
        ok->CBtnObj::setFocus(true); // the mark of its look, not the keyboard focus: that is for the edit
        ok->setEnabled(!m_user.isEmpty() && (!m_password.isEmpty() || m_allowEmptyPassword));
    }
    if (m_hint) {
        m_hint->setText(hint);
        m_hint->setVisible(!hint.isEmpty());
    }
    return runAndAnswer();
}

// A user name is enough; whether the password is, too, is for whoever checks it.
void CMsgBox::OnUserPasswordChanged(const QString &)
{
    if (m_firstEdit)
        EnableButton(kOk, !m_firstEdit->text().isEmpty());
    else if (m_passwordEdit)
        EnableButton(kOk, m_allowEmptyPassword || !m_passwordEdit->text().isEmpty());
    else
        EnableButton(kOk, false);
}

QString CMsgBox::GetUser()
{
    return m_firstEdit ? m_firstEdit->text() : QString();
}

QString CMsgBox::GetPassword()
{
    return m_passwordEdit ? m_passwordEdit->text() : QString();
}

// Of those that have changed since they were told last: another form brings edits of its own.
void CMsgBox::tellEntries()
{
    const QPointer<CMsgBox> alive(this);
    const QString user = GetUser();
    if (std::exchange(m_toldUser, user) != user)
        emit userChanged(user); // the box may be gone after, as below
    const QString password = alive ? GetPassword() : QString();
    if (alive && std::exchange(m_toldPassword, password) != password)
        emit passwordChanged(password);
}
