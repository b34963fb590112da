#include "buttons/ButtonTones.h"
#include "CBPBox.h"
#include "CBPPopWnd.h"
#include "CBPWaitBtn.h"
#include "ENState.h"
#include "foundation/FontLookup.h"
#include "foundation/Log.h"
#include "foundation/Painting.h"
#include "Util.h"

#include <QEvent>
#include <QFocusEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QLayout>

#include <algorithm>
#include <limits>

namespace {

constexpr int kButtonHeight = 36;
constexpr int kTextPadding = 10;    // between the text and each side of a button that is wider for it
constexpr int kWidestForText = 480; // a text may be of any length, a window may not
constexpr int kFrameCount = 24;
const char kFramePath[] = "../res/loading/loading%1.png";

constexpr int kOkFlag = 0x4;
constexpr int kYesFlag = 0x800;
constexpr int kNoFlag = 0x1000;
constexpr int kCancelFlag = 0x100;
constexpr int kOtherFlag = 0x8000;
constexpr int kBackFlag = 0x80000;
constexpr int kRestartLaterFlag = 0x400000;

constexpr int kKeepOpen = -1;

struct StandardButton
{
    int flag;
    const char *id;
    const char *caption;
};

// In the order in which a row holds them, which is not that of the flags.
constexpr StandardButton kStandardButtons[] = {
    {0x2, "BtnAdd", QT_TRANSLATE_NOOP("CBPPopWnd", "Add")},
    {0x4, "BtnOk", QT_TRANSLATE_NOOP("CBPPopWnd", "OK")},
    {0x8, "BtnRetry", QT_TRANSLATE_NOOP("CBPPopWnd", "Retry")},
    {0x10, "BtnContinue", QT_TRANSLATE_NOOP("CBPPopWnd", "Continue")},
    {0x20, "BtnSkip", QT_TRANSLATE_NOOP("CBPPopWnd", "Skip")},
    {0x80, "BtnExport", QT_TRANSLATE_NOOP("CBPPopWnd", "Export")},
    {0x800, "BtnYes", QT_TRANSLATE_NOOP("CBPPopWnd", "Yes")},
    {kOtherFlag, "BtnOther", ""}, // the application gives it a text
    {0x40000, "BtnBrowse", QT_TRANSLATE_NOOP("CBPPopWnd", "Browse")},
    {0x4000, "BtnReboot", QT_TRANSLATE_NOOP("CBPPopWnd", "Reboot")},
    {0x40, "BtnSkipAll", QT_TRANSLATE_NOOP("CBPPopWnd", "SkipAll")},
    {0x10000, "BtnErase", QT_TRANSLATE_NOOP("CBPPopWnd", "Erase")},
    {0x20000, "BtnChange", QT_TRANSLATE_NOOP("CBPPopWnd", "Change")},
    {0x2000, "BtnQuit", QT_TRANSLATE_NOOP("CBPPopWnd", "Quit")},
    {kNoFlag, "BtnNo", QT_TRANSLATE_NOOP("CBPPopWnd", "No")},
    {kCancelFlag, "BtnCancel", QT_TRANSLATE_NOOP("CBPPopWnd", "Cancel")},
    {0x80000, "BtnBack", QT_TRANSLATE_NOOP("CBPPopWnd", "Back")},
    {0x100000, "BtnClose", QT_TRANSLATE_NOOP("CBPPopWnd", "Close")},
    {0x200000, "BtnRestartNow", QT_TRANSLATE_NOOP("CBPPopWnd", "Restart now")},
    {kRestartLaterFlag, "BtnRestartLater", QT_TRANSLATE_NOOP("CBPPopWnd", "Restart later")},
};

bool isSecondary(int flag)
{
    return flag == kNoFlag || flag == kCancelFlag || flag == kOtherFlag || flag == kRestartLaterFlag;
}

// How far a button is from being the one that agrees.
int distanceFromYes(int flag)
{
    if (flag == kOkFlag)
        return 0;
    if (flag == kYesFlag)
        return 1;
    if (flag == kCancelFlag)
        return 4;
    return isSecondary(flag) || flag == kBackFlag ? 3 : 2;
}

// The row's buttons are of one width, unless a text needs more: on two lines it would be cut off.
void makeRoomFor(const QString &text, CBPPushBtn *button)
{
    const int needed = QFontMetrics(lumqt::uiFont()).horizontalAdvance(text) + 2 * kTextPadding;
    const int width = qMin(needed, kWidestForText);
    if (width > button->width())
        button->SetMininzerWidth(width);
}

QStringList loadingFrames()
{
    QStringList frames;
    for (int i = 0; i < kFrameCount; ++i) // the number first: the program's folder may hold a "%1"
        frames << Util::getResFullPath(QString::fromLatin1(kFramePath).arg(i, 2, 10, QLatin1Char('0')));
    return frames;
}

void colorButton(CBPPushBtn *button, bool secondary)
{
    using lumqt::ButtonTones;
    using lumqt::Purpose;
    ButtonTones::setGround(*button, secondary ? Purpose::SecondaryGround : Purpose::PrimaryGround);
    ButtonTones::setText(*button, secondary ? Purpose::SecondaryText : Purpose::PrimaryText);
    if (secondary)
        ButtonTones::setFrame(*button, Purpose::SecondaryFrame);
    button->setFrmTrancent(!secondary);
}

} // namespace

// ----------------------------------------------------------------------------------------------------------
// packing

void CBPPopWnd::AppendBtn(int flags)
{
    PackBtn(flags, false);
}

void CBPPopWnd::PrependBtn(int flags)
{
    PackBtn(flags, true);
}

CBPPopWnd::Buttons CBPPopWnd::buttons() const
{
    Buttons found;
    for (auto entry = m_buttons.cbegin(); entry != m_buttons.cend(); ++entry)
        found.setFlag(Button(entry.key()), !entry.value().isNull());
    return found;
}

void CBPPopWnd::setButtons(Buttons buttons)
{
    const Buttons present = this->buttons();
    for (const StandardButton &standard : kStandardButtons) {
        const Button flag = Button(standard.flag);
        if (!present.testFlag(flag) || buttons.testFlag(flag))
            continue;
        CBPPushBtn *button = m_buttons.take(flag);
        m_captions.remove(flag);
        for (CBPBox *box : {m_preBox.data(), m_postBox.data()}) {
            if (box)
                box->RemoveChild(button, false);
        }
        button->deleteLater(); // it may be the one that was pressed
        button->hide();
    }
    if (buttons & ~present)
        AppendBtn(buttons & ~present);
    chooseDefault();
}

void CBPPopWnd::PrependWidget(QWidget *widget, bool expand, bool option, unsigned int padding,
                              Qt::Alignment align)
{
    pack(m_preBox, widget, expand, option, padding, align);
}

void CBPPopWnd::AppendWidget(QWidget *widget, bool expand, bool option, unsigned int padding,
                             Qt::Alignment align)
{
    pack(m_postBox, widget, expand, option, padding, align);
}

void CBPPopWnd::pack(CBPBox *box, QWidget *widget, bool expand, bool option, unsigned int padding,
                     Qt::Alignment align)
{
    if (box && widget)
        box->PackStart(widget, expand, option, int(qMin(padding, unsigned(QWIDGETSIZE_MAX))), align);
}

void CBPPopWnd::PackBtn(int flags, bool prepend)
{
    if (!m_preBox || !m_postBox) {
        qCWarning(lcLumQt, "%s: there is no row for buttons before Init()", metaObject()->className());
        return;
    }
    QStringList frames = loadingFrames();
    for (const StandardButton &button : kStandardButtons) {
        if (!(flags & button.flag))
            continue;
        // Nothing to translate is not looked up: translators write their own notes under the empty text.
        const QString caption = *button.caption ? tr(button.caption) : QString();
        CreateAndPackBtn(caption, frames, button.flag, prepend, QString::fromLatin1(button.id));
    }
    chooseDefault();
}

CBPPushBtn *CBPPopWnd::CreateAndPackBtn(QString caption, QStringList &frames, int flag, bool prepend,
                                        QString buttonId)
{
    CBPPushBtn *button = nullptr;
    if (flag == kNoFlag)
        button = new CBPPushBtn(caption, nullptr, true, false);
    else
        button = new CBPWaitBtn(frames, caption, QString(), nullptr, true);
    // Of several a dialog keeps the last one as its default, until chooseDefault(); the one with the focus
    // takes its place.
    if (flag != kCancelFlag)
        button->setDefault(true);
    colorButton(button, isSecondary(flag));
    m_buttons[flag] = button;
    m_captions[flag] = caption;
    button->setObjectName(QLatin1String("id_") + buttonId);
    button->setFixedHeight(kButtonHeight);
    button->SetFont(lumqt::uiFont());
    button->setTextElided(true);
    makeRoomFor(caption, button);
    connect(button, SIGNAL(released()), this, SLOT(on_btn_clicked()));
    button->installEventFilter(this);
    if (prepend)
        m_preBox->PackStart(button, false, false, 0, Qt::AlignLeft | Qt::AlignBottom);
    else
        m_postBox->PackStart(button, false, false, 0, Qt::AlignRight | Qt::AlignBottom);
    return button;
}

// ----------------------------------------------------------------------------------------------------------
// asking for buttons

CBPBox *CBPPopWnd::GetPreBox()
{
    return m_preBox;
}

CBPPushBtn *CBPPopWnd::GetBtn(int flag)
{
    return m_buttons[flag];
}

void CBPPopWnd::EnableButton(int flag, bool enable)
{
    if (CBPPushBtn *button = GetBtn(flag))
        button->setEnabled(enable);
}

bool CBPPopWnd::ButtonIsEnable(int flag)
{
    const CBPPushBtn *button = GetBtn(flag);
    return button && button->isEnabled();
}

void CBPPopWnd::ResetBtnText(int flag, QString text)
{
    CBPPushBtn *button = GetBtn(flag);
    if (!button)
        return;
    m_captions.remove(flag);
    if (auto *waiting = qobject_cast<CBPWaitBtn *>(button))
        waiting->setNormalText(text);
    else
        button->setText(text);
    makeRoomFor(text, button);
}

// The captions follow the language, but for those that the application has set.
void CBPPopWnd::retranslateButtons()
{
    for (const StandardButton &standard : kStandardButtons) {
        const int flag = standard.flag;
        const CBPPushBtn *button = m_buttons.value(flag);
        if (!button || !*standard.caption || !m_captions.contains(flag))
            continue;
        if (button->text() != m_captions.value(flag))
            continue;
        const QString caption = tr(standard.caption);
        ResetBtnText(flag, caption);
        m_captions[flag] = caption;
    }
}

void CBPPopWnd::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslateButtons();
    CBPWinFrm::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && isVisible())
        updateMask(); // the system may have told of the new size before
}

void CBPPopWnd::SetBtnClickCB(int (*callback)(int, void *), void *context)
{
    m_callback = callback;
    m_callbackContext = context;
}

// ----------------------------------------------------------------------------------------------------------
// clicks

bool CBPPopWnd::proceedBtnClicked(int)
{
    return true;
}

// The one rule of all dialogs for the button that they open on and that is their default: OK, else Yes, else
// the first primary one but Back, else the first of the others, and Cancel last. First is meant as in the
// list above.
CBPPushBtn *CBPPopWnd::affirmativeButton() const
{
    CBPPushBtn *found = nullptr;
    int least = std::numeric_limits<int>::max();
    for (const StandardButton &standard : kStandardButtons) {
        CBPPushBtn *button = m_buttons.value(standard.flag);
        const int distance = distanceFromYes(standard.flag);
        if (!button || !isAncestorOf(button) || !button->isEnabled() || !button->isVisibleTo(this) ||
            distance >= least)
            continue;
        found = button;
        least = distance;
    }
    return found;
}

void CBPPopWnd::chooseDefault()
{
    CBPPushBtn *button = affirmativeButton();
    if (!button || flagOf(button) == kCancelFlag)
        return;
    button->setDefault(true);
    m_default = button;
}

// Where nothing comes before the row. An application that has made another button the default has its way, by
// Qt.
void CBPPopWnd::openOnAffirmative()
{
    if (focusWidget() || !m_rowBox || (m_default && !m_default->isDefault()))
        return;
    const QWidget *first = nextInFocusChain();
    const auto takesFocus = [this](const QWidget *widget) {
        return (widget->focusPolicy() & Qt::TabFocus) && widget->isEnabled() && widget->isVisibleTo(this);
    };
    while (first != this && !takesFocus(first))
        first = first->nextInFocusChain();
    CBPPushBtn *button = affirmativeButton();
    if (button && m_rowBox->isAncestorOf(first))
        button->QWidget::setFocus(Qt::TabFocusReason);
}

void CBPPopWnd::on_btn_clicked()
{
    const auto *button = qobject_cast<const CBPPushBtn *>(sender());
    if (button && !button->isEnabled())
        return; // no click: a button that is disabled while it is held down comes up
    // The button is asked about, and then the callback: either may end the dialog, by another button or the
    // title bar, or delete it. Then its outcome is decided.
    const QPointer<CBPPopWnd> alive(this);
    const unsigned int endings = m_endings;
    const auto decided = [&] { return !alive || m_endings != endings; };

    bool accepted = false;
    const int flag = flagOf(button);
    if (flag != 0) {
        accepted = proceedBtnClicked(flag);
        if (decided())
            return;
        if (accepted)
            m_result = flag;
    }
    int verdict = accepted ? 0 : kKeepOpen;
    if (m_callback) {
        verdict = m_callback(m_result, m_callbackContext);
        if (decided())
            return;
    }
    if (verdict != kKeepOpen)
        UnRun();
}

// 0 for what is no button of the map, such as one that was replaced.
int CBPPopWnd::flagOf(const CBPPushBtn *button) const
{
    if (!button)
        return 0;
    for (auto entry = m_buttons.cbegin(); entry != m_buttons.cend(); ++entry) {
        if (entry.value() == button)
            return entry.key();
    }
    return 0;
}

// A press that does not become a click. Qt lets the button come up as after one, and says so.
void CBPPopWnd::takeBack(CBPPushBtn *button)
{
    button->setDown(false);
    button->setState(button->underMouse() ? ENStateHover : ENStateNormal);
    button->update();
}

bool CBPPopWnd::eventFilter(QObject *watched, QEvent *event)
{
    auto *button = qobject_cast<CBPPushBtn *>(watched);
    if (!button)
        return CBPWinFrm::eventFilter(watched, event);
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        const bool leaves = event->type() == QEvent::FocusOut &&
                            static_cast<QFocusEvent *>(event)->reason() != Qt::PopupFocusReason;
        if (leaves && button->isDown())
            button->setDown(false);
        if (isAncestorOf(button))
            update(ringAround(button));
    } else if (event->type() == QEvent::KeyPress && button->isDown() &&
               static_cast<QKeyEvent *>(event)->matches(QKeySequence::Cancel)) {
        takeBack(button);
        event->accept(); // it is about the button, not the dialog
        return true;
    } else if (event->type() == QEvent::EnabledChange && button == m_lentFrom && button->isEnabled()) {
        m_lentFrom.clear();
        if (focusWidget() == this)
            button->QWidget::setFocus(Qt::OtherFocusReason);
    }
    return CBPWinFrm::eventFilter(watched, event);
}

// ----------------------------------------------------------------------------------------------------------
// keyboard

// While a job runs in a button, its focus is not another button's: whoever presses Return or Space once more
// means the one that was pressed. The dialog keeps it, and Tab goes on from there.
bool CBPPopWnd::focusNextPrevChild(bool next)
{
    auto *button = qobject_cast<CBPWaitBtn *>(focusWidget());
    if (!button || button->isEnabled() || !button->isWaitting())
        return CBPWinFrm::focusNextPrevChild(next);
    m_lentFrom = button;
    button->installEventFilter(this); // it may be one of the content
    setFocus(Qt::OtherFocusReason);
    return true;
}

const QWidget *CBPPopWnd::framelessFocus() const
{
    const auto *button = qobject_cast<const CBPPushBtn *>(focusWidget());
    const int flag = flagOf(button);
    const bool marked = flag != 0 && !isSecondary(flag) && button->hasFocus() && isAncestorOf(button);
    return marked && button->isVisible() ? button : nullptr;
}

// Where in the row a widget stands: the part, and the place in it.
QPair<int, int> CBPPopWnd::placeInRow(const QWidget *widget) const
{
    const CBPBox *parts[] = {m_preBox, m_postBox};
    for (int part = 0; part < 2; ++part) {
        if (!parts[part] || !parts[part]->isAncestorOf(widget))
            continue;
        while (widget->parentWidget() != parts[part])
            widget = widget->parentWidget();
        return {part, parts[part]->layout()->indexOf(const_cast<QWidget *>(widget))};
    }
    return {2, 0};
}

// Tab goes through the content and then through the row from left to right, whatever was made first. An
// application that has mixed the two on purpose keeps its order.
void CBPPopWnd::arrangeTabOrder()
{
    if (m_tabsArranged || !m_rowBox || !isAncestorOf(m_rowBox))
        return;
    m_tabsArranged = true;
    QVector<QWidget *> row;
    QWidget *before = nullptr;
    int blocks = 0;
    bool inRow = false;
    for (QWidget *next = nextInFocusChain(); next && next != this; next = next->nextInFocusChain()) {
        if (!(next->focusPolicy() & Qt::TabFocus))
            continue;
        const bool ofRow = m_rowBox->isAncestorOf(next);
        if (ofRow)
            row << next;
        else
            before = next;
        blocks += ofRow && !inRow;
        inRow = ofRow;
    }
    if (blocks != 1)
        return;
    std::stable_sort(row.begin(), row.end(), [this](const QWidget *left, const QWidget *right) {
        return placeInRow(left) < placeInRow(right);
    });
    // The order is a ring for Qt: what follows the last one already is not moved there. So this is the last
    // one.
    QWidget end(this);
    end.setFocusPolicy(Qt::TabFocus);
    for (QWidget *widget : qAsConst(row)) {
        if (before)
            QWidget::setTabOrder(before, widget);
        before = widget;
    }
}
