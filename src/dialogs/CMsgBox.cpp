#include "CMsgBox.h"

#include "CBPBox.h"
#include "CBPCheckBox.h"
#include "CBPLineEdit.h"
#include "CBPLinkerButton.h"
#include "CBPPushBtn.h"
#include "CBPWidget.h"
#include "dialogs/WrappedLabel.h"
#include "foundation/FontLookup.h"
#include "foundation/ImageLoader.h"
#include "foundation/Palette.h"
#include "Util.h"

#include <QAccessible>
#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QDesktopServices>
#include <QKeyEvent>
#include <QScrollArea>
#include <QUrl>

#include <algorithm>
#include <utility>

using lumqt::Purpose;

namespace {

// Metrics, in logical pixels.
constexpr int kWidth = 500;
constexpr int kMinimumHeight = 200;
constexpr int kIconSpacing = 20;
constexpr int kBreath = 14;   // above and below the texts: the frame leaves a message no room of its own
constexpr int kCheckGap = 12; // between the check box and the buttons
constexpr int kHeadPixelSize = 16;

constexpr int kCloseButton = 8; // of the title bar
constexpr int kOk = 0x4;
constexpr int kCancel = 0x100;
constexpr int kChecked = 0x200;
constexpr int kUnchecked = 0x400;
constexpr int kNoAnswer = -1;

struct Kind
{
    const char *title; // translators find the captions by the prefix
    const char *icon;
};
constexpr Kind kKinds[] = {
    {QT_TRANSLATE_NOOP("CMsgBox", "{caption}Message"), "../res/icon_info.png"},
    {QT_TRANSLATE_NOOP("CMsgBox", "{caption}Question"), "../res/icon_quest.png"},
    {QT_TRANSLATE_NOOP("CMsgBox", "{caption}Warning"), "../res/icon_alert.png"},
    {QT_TRANSLATE_NOOP("CMsgBox", "{caption}Error"), "../res/icon_wrong.png"},
};
constexpr Kind kOtherKind = {"", "../res/icon_info.png"};

const Kind &kindOf(int type)
{
    return type >= 0 && type < int(std::size(kKinds)) ? kKinds[type] : kOtherKind;
}

// What a message box of the platform copies has lines like these.
const QLatin1String kRule("---------------------------\n");

} // namespace

CMsgBox::CMsgBox(QWidget *parent) : CBPPopWnd(true, parent)
{
    initContent();
}

CMsgBox::~CMsgBox()
{
    // The edit whose Return ended the box is still in its key event, and outlives who deletes the box there.
    if (m_finishing && m_firstEdit) {
        m_firstEdit->setParent(nullptr);
        m_firstEdit->deleteLater();
    }
}

void CMsgBox::initContent()
{
    Init(true);
    setMinimumHeight(kMinimumHeight);
    m_ownWidth = kWidth;
    setFixedWidth(m_ownWidth);
    ShowTitleBtn(kCloseButton, true);
    setObjectName(QStringLiteral("id_ErrorMsgWnd"));
    SetDrawBottomHLine(false);
}

// ------------------------------------------------------------------------------------------------------------
// messages

void CMsgBox::initMsgBox()
{
    auto *content = new CBPWidget;
    AppendContent(content, true, true, 0);
    auto *row = new QHBoxLayout(content);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kIconSpacing);
    m_icon = new QLabel;
    m_icon->setPixmap(iconPixmap(0));
    row->addWidget(m_icon, 0, Qt::AlignLeft | Qt::AlignVCenter);

    m_heading =
        new lumqt::WrappedLabel(QString(), lumqt::SemiboldWeight, kHeadPixelSize, Purpose::MessageText);
    m_message =
        new lumqt::WrappedLabel(QString(), lumqt::NormalWeight, lumqt::kTextPixelSize, Purpose::MessageText);
    m_link = new CBPLinkerButton(QString(), ENLinkerTypeHover, 0);
    // A link that is longer than the line is cut, and has a tool tip then: it must not widen the box.
    m_link->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    m_link->setMinimumWidth(1);
    connect(m_link.data(), &CBPLinkerButton::sigLinkerClick, this, &CMsgBox::onLinkActivated);
    m_link->hide();

    auto *column = new QVBoxLayout;
    column->setSpacing(0);
    column->setContentsMargins(0, kBreath, 0, kBreath);
    row->addLayout(column, 1);
    column->addItem(new QSpacerItem(0, 0, QSizePolicy::Preferred, QSizePolicy::Expanding));
    column->addWidget(m_heading);
    column->addWidget(m_message);
    column->addWidget(m_link);
    column->addItem(new QSpacerItem(0, 0, QSizePolicy::Preferred, QSizePolicy::Expanding));
    m_content = content;
    m_scrollArea.clear();
}

void CMsgBox::fillMsgBox(int type, const QString &text, const QString &head, int buttons,
                         const QString &caption)
{
    initMsgBox();
    setTitle(type, caption);
    AppendBtn(buttons);
    m_icon->setPixmap(iconPixmap(type));
    m_heading->setText(headText(type, head));
    keepInTheme(type, head);
    m_heading->setVisible(!head.isEmpty());
    m_message->setText(text);
    SetStatusBoxBorder(12, 0, 12, 16);
    SetMainBoxBorder(12, 0, 12, 0);
}

// What of a message is no colour of a palette. What the application has put in its place is left.
void CMsgBox::keepInTheme(int type, const QString &head)
{
    const auto keyOf = [](const QLabel &label) { return label.pixmap(Qt::ReturnByValue).cacheKey(); };
    lumqt::onThemeChange(this, [=, icon = m_icon, shown = keyOf(*m_icon), heading = m_heading,
                                last = m_heading->text()]() mutable {
        if (icon && keyOf(*icon) == shown) {
            icon->setPixmap(iconPixmap(type));
            shown = keyOf(*icon);
        }
        if (heading && heading->text() == last) {
            last = headText(type, head);
            heading->setText(last);
        }
    });
}

int CMsgBox::message(int type, QString text, QString head, int buttons, QString caption)
{
    fillMsgBox(type, text, head, buttons, caption);
    return runAndAnswer();
}

// An "&" is one, as everywhere in the box, though Qt paints the check box and takes one for an Alt key.
QString CMsgBox::plainOnCheckBox(QString text)
{
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

int CMsgBox::messageWithCheckbox(int type, QString text, QString checkText, QString head, int buttons,
                                 QString caption)
{
    const QPointer<CBPCheckBox> check(new CBPCheckBox(plainOnCheckBox(checkText)));
    lumqt::keepTheme(check, {{QPalette::WindowText, Purpose::MessageText}});
    check->setFont(lumqt::uiFont());
    check->setAccessibleName(checkText); // as the shown one is broken into lines, and has its "&" doubled
    m_checkBox = check;
    m_checkText = checkText;
    PrependWidget(check, false, false, kCheckGap, Qt::AlignLeft | Qt::AlignVCenter);
    const int result = message(type, text, head, buttons, caption); // the box may be gone after this
    return result | (check && check->isChecked() ? kChecked : kUnchecked);
}

int CMsgBox::messageWithLink(int type, QString text, QString linkText, QString linkTarget, QString head,
                             int buttons, QString caption)
{
    fillMsgBox(type, text, head, buttons, caption);
    m_linkTarget = linkTarget;
    m_link->show();
    m_link->setText(linkText);
    return runAndAnswer();
}

const char *CMsgBox::infoMsg(int type)
{
    return kindOf(type).title;
}

QPixmap CMsgBox::iconPixmap(int type)
{
    const QString path = Util::getResFullPath(QString::fromLatin1(kindOf(type).icon));
    return lumqt::loadPixmap(path, devicePixelRatioF());
}

QString CMsgBox::headText(int type, QString text)
{
    // Built in they are the same on purpose: the icon tells them apart.
    const bool notice = type == 0 || type == 1;
    const QColor &color = lumqt::themeColor(notice ? Purpose::NoticeHead : Purpose::AlertHead);
    // Both at once: the text may hold a "%1".
    return QStringLiteral("<font color=\"%1\">%2</font>").arg(color.name(), text);
}

void CMsgBox::setTitle(int type, const QString &caption)
{
    const char *own = infoMsg(type);
    if (!caption.isEmpty() || !*own)
        SetWindowTitle(caption);
    else
        showTranslated(
            own, [this] { return windowTitle(); }, [this](const QString &text) { SetWindowTitle(text); });
}

void CMsgBox::onLinkActivated()
{
    const QPointer<CMsgBox> alive(this);
    const QString target = m_linkTarget;
    if (!target.isEmpty())
        QDesktopServices::openUrl(QUrl(target, QUrl::TolerantMode));
    if (alive) // an application's own handler of the scheme runs in between
        emit sigLinkClicked(target);
}

// ------------------------------------------------------------------------------------------------------------
// running

void CMsgBox::Run()
{
    setModal(true);
    fitToContent();
    CBPPopWnd::Run();
}

int CMsgBox::runAndAnswer()
{
    const QPointer<CMsgBox> alive(this);
    tellEntries();
    if (alive)
        Run();
    return alive ? GetResult() : kNoAnswer;
}

void CMsgBox::done(int result)
{
    m_ended = true;
    CBPPopWnd::done(result); // the box may be gone after this
}

void CMsgBox::showEvent(QShowEvent *event)
{
    CBPPopWnd::showEvent(event);
    if (event->spontaneous())
        return;
    m_ended = false;
    if (!focusWidget())
        giveFirstFocus();
    describe();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

// To where the answer is given; a link or a text that scrolls would come first otherwise.
void CMsgBox::giveFirstFocus()
{
    QWidget *const wanted[] = {m_firstEdit, m_passwordEdit, affirmativeButton()};
    for (QWidget *widget : wanted) {
        if (widget && widget->isEnabled() && widget->isVisibleTo(this)) {
            widget->setFocus(Qt::TabFocusReason);
            return;
        }
    }
}

void CMsgBox::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (enter || key == Qt::Key_Escape) {
        event->accept();
        const int flag = enter ? kOk : kCancel;
        // Return in an edit has ended the box already when it comes here: it must not answer it, too.
        if (!m_ended && ButtonIsEnable(flag) && (enter || !isEscAndF4Disabled()))
            emit GetBtn(flag)->released();
    } else if (event->matches(QKeySequence::Copy)) {
        copyTexts();
    } else {
        CBPPopWnd::keyPressEvent(event);
    }
}

// ------------------------------------------------------------------------------------------------------------
// texts

// Shows the translation of a text of the box's own, and that of another language when it changes; not once
// the application has put something else in its place.
void CMsgBox::showTranslated(const char *source, const std::function<QString()> &shown,
                             const std::function<void(const QString &)> &show)
{
    QString last = tr(source);
    show(last);
    m_retranslate.append([=]() mutable {
        if (shown() != last)
            return;
        last = tr(source);
        show(last);
    });
}

void CMsgBox::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        for (std::function<void()> &retranslate : m_retranslate)
            retranslate();
    }
    CBPPopWnd::changeEvent(event);
}

// The title, and what a person reads below it; not the entries.
QStringList CMsgBox::shownTexts() const
{
    QStringList texts{windowTitle()};
    const QLabel *labels[] = {m_heading, m_message, m_link, m_prompt, m_hint};
    for (const QLabel *label : labels) {
        if (!label || label->text().isEmpty() || !label->isVisibleTo(this))
            continue;
        const bool plain = label->textFormat() == Qt::PlainText;
        texts << (plain ? label->text() : lumqt::WrappedLabel::plainText(label->text()));
    }
    return texts;
}

// For a screen reader, as long as the application does not say it better.
void CMsgBox::describe()
{
    const QStringList texts = shownTexts();
    const QString described = texts.mid(1).join(QLatin1Char('\n'));
    if (described != m_described && accessibleDescription() == m_described)
        setAccessibleDescription(described);
    m_described = described;
    if (m_scrollArea) // Tab comes there, too
        m_scrollArea->setAccessibleName(windowTitle());
    if (m_mode != DirMode || !m_firstEdit || !m_prompt)
        return;
    const QString prompt = lumqt::WrappedLabel::plainText(m_prompt->text());
    const QString name = prompt.isEmpty() ? windowTitle() : prompt;
    if (name != m_namedEdit && m_firstEdit->accessibleName() == m_namedEdit)
        m_firstEdit->setAccessibleName(name);
    m_namedEdit = name;
}

// The buttons that are shown, from left to right.
QVector<CBPPushBtn *> CMsgBox::buttonsInRow() const
{
    QVector<CBPPushBtn *> buttons;
    if (!statusBox())
        return buttons;
    const auto all = statusBox()->findChildren<CBPPushBtn *>();
    for (CBPPushBtn *button : all) {
        if (button->isVisibleTo(this))
            buttons << button;
    }
    const auto place = [this](const CBPPushBtn *button) {
        const QPoint corner = button->mapTo(this, QPoint(0, button->height()));
        return std::make_pair(corner.y(), corner.x()); // rows from top to bottom
    };
    std::sort(buttons.begin(), buttons.end(), [&place](const CBPPushBtn *left, const CBPPushBtn *right) {
        return place(left) < place(right);
    });
    return buttons;
}

void CMsgBox::copyTexts() const
{
    QString copied = kRule;
    const QStringList texts = shownTexts();
    for (const QString &text : texts)
        copied += text + QLatin1Char('\n') + kRule;
    QStringList captions;
    const QVector<CBPPushBtn *> buttons = buttonsInRow();
    for (const CBPPushBtn *button : buttons)
        captions << button->text();
    copied += captions.join(QLatin1String("   ")) + QLatin1Char('\n') + kRule;
    QApplication::clipboard()->setText(copied);
}
