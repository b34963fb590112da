#include "CBPWinFrm.h"

#include "foundation/Palette.h"
#include "frames/FrameBehaviour.h"

#include <QCloseEvent>
#include <QPointer>

namespace {

constexpr int kOfferId = 4096; // of the title button that only this class reports

}

// The frame sets window flags while it is made, of which the window hears before it has a frame.
CBPWinFrm::CBPWinFrm(QWidget *parent) : QDialog(parent)
{
    m_frame = std::make_unique<lumqt::FrameBehaviour>(this, std::make_unique<lumqt::HooksOf<CBPWinFrm>>(this),
                                                      parent);
    lumqt::wearPalette(this);
}

CBPWinFrm::~CBPWinFrm() = default;

void CBPWinFrm::Init()
{
    m_frame->init(&CBPWinFrm::on_btn_clicked, this);
    if (m_frame->title)
        connect(m_frame->title.data(), &CBPWinFrmTitle::on_dbl_clickedSignal, this,
                &CBPWinFrm::on_dbl_clickedSlot, Qt::UniqueConnection);
}

// ----------------------------------------------------------------------------------------------------------
// operations

void CBPWinFrm::SetWindowTitle(QString text, bool isImage)
{
    const QString before = title();
    const QPointer<CBPWinFrm> alive(this);
    m_frame->setWindowTitle(text, isImage);
    if (alive && title() != before)
        emit titleChanged(title());
}

QString CBPWinFrm::title() const
{
    return m_frame->ofTitle(&CBPWinFrmTitle::title, QString());
}

void CBPWinFrm::SetWindowLog(QString path)
{
    m_frame->onTitle(&CBPWinFrmTitle::SetLog, path);
}

QString CBPWinFrm::logoPath() const
{
    return m_frame->ofTitle(&CBPWinFrmTitle::logoPath, QString());
}

void CBPWinFrm::ShowTitleBtn(int id, bool show)
{
    m_frame->onTitle(&CBPWinFrmTitle::ShowTitleBtn, id, show);
}

CBPWinFrmTitle::Buttons CBPWinFrm::titleButtons() const
{
    return m_frame->ofTitle(&CBPWinFrmTitle::shownButtons, CBPWinFrmTitle::Buttons());
}

void CBPWinFrm::setTitleButtons(CBPWinFrmTitle::Buttons buttons)
{
    m_frame->onTitle(&CBPWinFrmTitle::setShownButtons, buttons);
}

void CBPWinFrm::EnableTitleBtn(int id, bool enable)
{
    m_frame->onTitle(&CBPWinFrmTitle::EnableTitleBtn, id, enable);
}

void CBPWinFrm::ResetMaxBtn(bool maximised)
{
    m_frame->onTitle(&CBPWinFrmTitle::ResetMaxBtn, maximised);
}

void CBPWinFrm::SetTitleBg(QColor color)
{
    m_frame->onTitle(&CBPWinFrmTitle::SetBgColor, color);
}

QColor CBPWinFrm::titleBackground() const
{
    return m_frame->ofTitle(&CBPWinFrmTitle::backgroundColor, QColor());
}

void CBPWinFrm::resetTitleBackground()
{
    m_frame->onTitle(&CBPWinFrmTitle::resetBackgroundColor);
}

CBPImageButton *CBPWinFrm::titleBtn(int id)
{
    return m_frame->titleButton(id);
}

void CBPWinFrm::SetTitleBarEnabled(bool enable)
{
    m_frame->onTitle(&CBPWinFrmTitle::SetTitleBtnEnable, enable);
}

bool CBPWinFrm::isTitleBarEnabled() const
{
    return m_frame->ofTitle(&CBPWinFrmTitle::areButtonsEnabled, false);
}

void CBPWinFrm::EnabledTitleRoundRc(bool enable)
{
    m_frame->onTitle(&CBPWinFrmTitle::SetRoundRectEnabled, enable);
}

bool CBPWinFrm::isTitleRounded() const
{
    return m_frame->ofTitle(&CBPWinFrmTitle::isRounded, false);
}

void CBPWinFrm::SetTitleHeight(int height)
{
    m_frame->onTitle(&CBPWinFrmTitle::setFixedHeight, height);
}

int CBPWinFrm::titleHeight() const
{
    return m_frame->ofTitle(&CBPWinFrmTitle::minimumHeight, 0);
}

void CBPWinFrm::resetTitleHeight()
{
    SetTitleHeight(lumqt::kFrameTitleHeight);
}

void CBPWinFrm::SetHasNewVersion(bool hasNewVersion)
{
    m_frame->onTitle(&CBPWinFrmTitle::SetHasNewVersion, hasNewVersion);
}

bool CBPWinFrm::hasNewVersion() const
{
    return m_frame->ofTitle(&CBPWinFrmTitle::hasNewVersion, false);
}

void CBPWinFrm::showWindowTitle(bool visible)
{
    m_frame->onTitle(&CBPWinFrmTitle::setVisible, visible);
}

bool CBPWinFrm::isTitleVisible() const
{
    return !m_frame->ofTitle(&CBPWinFrmTitle::isHidden, true);
}

void CBPWinFrm::AppendContent(QWidget *widget, bool expand, bool, unsigned int spacing)
{
    m_frame->appendContent(widget, expand, spacing);
}

void CBPWinFrm::setContentWidget(QWidget *content)
{
    m_frame->setContent(content);
}

QWidget *CBPWinFrm::contentWidget() const
{
    return m_frame->content;
}

void CBPWinFrm::SetMainBoxBorder(int left, int top, int right, int bottom)
{
    m_frame->setMainBoxBorder(QMargins(left, top, right, bottom));
}

void CBPWinFrm::SetStatusBoxBorder(int left, int top, int right, int bottom)
{
    m_frame->setStatusBoxBorder(QMargins(left, top, right, bottom));
}

void CBPWinFrm::SetBottomHeight(int height)
{
    m_frame->setBottomHeight(height);
}

int CBPWinFrm::bottomHeight() const
{
    return m_frame->bottomHeight;
}

void CBPWinFrm::resetBottomHeight()
{
    SetBottomHeight(lumqt::kFrameBottomHeight);
}

void CBPWinFrm::SetDrawBottomHLine(bool draw)
{
    m_frame->setDrawBottomLine(draw);
}

bool CBPWinFrm::drawsBottomLine() const
{
    return m_frame->drawBottomLine;
}

void CBPWinFrm::SetShadowBorder(int border)
{
    m_frame->setShadowBorder(border);
}

int CBPWinFrm::shadowBorder() const
{
    return m_frame->shadowBorder;
}

void CBPWinFrm::resetShadowBorder()
{
    SetShadowBorder(lumqt::kFrameShadowBorder);
}

void CBPWinFrm::setIsWinPE(bool isWinPE)
{
    m_frame->isWinPE = isWinPE;
}

bool CBPWinFrm::isWinPE() const
{
    return m_frame->isWinPE;
}

void CBPWinFrm::SetDisableEscAndF4Flag(bool disable)
{
    m_frame->escAndF4Disabled = disable;
}

bool CBPWinFrm::isEscAndF4Disabled() const
{
    return m_frame->escAndF4Disabled;
}

bool CBPWinFrm::isMaximized() const
{
    return m_frame->isMaximised();
}

void CBPWinFrm::setStatusBox(QWidget *box)
{
    m_frame->setStatusBox(box);
}

QWidget *CBPWinFrm::statusBox() const
{
    return m_frame->statusBox;
}

CBPWinFrmTitle *CBPWinFrm::titleBar() const
{
    return m_frame->title;
}

QVBoxLayout *CBPWinFrm::contentBox() const
{
    return m_frame->contentBox;
}

// ----------------------------------------------------------------------------------------------------------
// modal

void CBPWinFrm::centre()
{
    m_frame->centre();
}

int CBPWinFrm::exec()
{
    centre();
    return QDialog::exec(); // the dialog may be gone when this returns
}

void CBPWinFrm::reject()
{
    if (!m_frame->escAndF4Disabled || m_frame->closesDown)
        QDialog::reject();
}

// ----------------------------------------------------------------------------------------------------------
// hooks

void CBPWinFrm::OnMax()
{
    m_frame->toggleMaximised();
}

void CBPWinFrm::OnClose()
{
    m_frame->closeWindow();
}

void CBPWinFrm::OnMin()
{
    showMinimized();
}

void CBPWinFrm::OnSetting() {}

void CBPWinFrm::OnHelp() {}

void CBPWinFrm::PreBtnClick() {}

void CBPWinFrm::QQBtnClick() {}

void CBPWinFrm::OnlineSupportClick() {}

void CBPWinFrm::DiscountBtnSlot() {}

void CBPWinFrm::ShowMenu(const QPoint &) {}

void CBPWinFrm::UpdateMainWndTitle() {}

// ----------------------------------------------------------------------------------------------------------
// what calls the hooks

void CBPWinFrm::on_btn_clicked(void *self, int id)
{
    if (self)
        static_cast<CBPWinFrm *>(self)->OnTitleBtnClicked(id);
}

void CBPWinFrm::OnTitleBtnClicked(int id)
{
    if (id == kOfferId) {
        DiscountBtnSlot();
        return;
    }
    m_frame->titleButtonClicked(id);
}

void CBPWinFrm::on_dbl_clickedSlot(bool bDelete)
{
    if (bDelete)
        m_frame->callCloseHook();
    else
        OnMax();
}

void CBPWinFrm::OnMenuClick()
{
    m_frame->openMenu();
}

void CBPWinFrm::closeEvent(QCloseEvent *event)
{
    const QPointer<CBPWinFrm> alive(this);
    m_frame->closeEvent(event);
    if (!alive || !event->isAccepted() || !isVisible())
        return;
    // As a dialog does, for those who wait for its end: what hides without it has told nobody. The hook may
    // have ended it already, and what was let through is not for Escape and Alt+F4 alone to decide.
    m_frame->closesDown = true;
    reject();
    if (!alive)
        return;
    m_frame->closesDown = m_frame->shownInClosing = false;
    if (isVisible())
        event->ignore();
}

void CBPWinFrm::keyPressEvent(QKeyEvent *event)
{
    m_frame->keyPressEvent(event);
}

void CBPWinFrm::changeEvent(QEvent *event)
{
    if (m_frame && event->type() == QEvent::WindowStateChange) // not before it is made
        m_frame->windowStateChanged();
    QDialog::changeEvent(event);
}

void CBPWinFrm::moveEvent(QMoveEvent *event)
{
    if (m_frame)
        m_frame->moved();
    QDialog::moveEvent(event);
}

void CBPWinFrm::showEvent(QShowEvent *event)
{
    if (!event->spontaneous())
        m_frame->shown();
    QDialog::showEvent(event);
}

void CBPWinFrm::paintEvent(QPaintEvent *)
{
    // Body and shadow are the derived classes'.
}

bool CBPWinFrm::eventFilter(QObject *watched, QEvent *event)
{
    m_frame->watch(watched, event);
    return false; // nothing is kept from the parent
}
