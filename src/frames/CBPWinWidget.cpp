#include "CBPWinWidget.h"

#include "foundation/Accessible.h"
#include "foundation/Palette.h"
#include "frames/FrameBehaviour.h"

#include <QEvent>

// The frame sets window flags while it is made, of which the window hears before it has a frame.
CBPWinWidget::CBPWinWidget(QWidget *parent) : QWidget(parent)
{
    m_frame = std::make_unique<lumqt::FrameBehaviour>(
        this, std::make_unique<lumqt::HooksOf<CBPWinWidget>>(this), parent);
    lumqt::installAccessible("CBPWinWidget", [](QWidget *widget) -> QAccessibleInterface * {
        return new QAccessibleWidget(widget, QAccessible::Dialog);
    });
    lumqt::wearPalette(this);
}

CBPWinWidget::~CBPWinWidget() = default;

void CBPWinWidget::Init()
{
    m_frame->init(&CBPWinWidget::on_btn_clicked, this);
    if (m_frame->title)
        connect(m_frame->title.data(), &CBPWinFrmTitle::on_dbl_clickedSignal, this,
                &CBPWinWidget::on_dbl_clickedSlot, Qt::UniqueConnection);
}

// ----------------------------------------------------------------------------------------------------------
// operations

void CBPWinWidget::SetWindowTitle(QString text, bool isImage)
{
    const QString before = title();
    const QPointer<CBPWinWidget> alive(this);
    m_frame->setWindowTitle(text, isImage);
    if (alive && title() != before)
        emit titleChanged(title());
}

QString CBPWinWidget::title() const
{
    return m_frame->ofTitle(&CBPWinFrmTitle::title, QString());
}

void CBPWinWidget::SetWindowLog(QString path)
{
    m_frame->onTitle(&CBPWinFrmTitle::SetLog, path);
}

QString CBPWinWidget::logoPath() const
{
    return m_frame->ofTitle(&CBPWinFrmTitle::logoPath, QString());
}

void CBPWinWidget::ShowTitleBtn(int id, bool show)
{
    m_frame->onTitle(&CBPWinFrmTitle::ShowTitleBtn, id, show);
}

CBPWinFrmTitle::Buttons CBPWinWidget::titleButtons() const
{
    return m_frame->ofTitle(&CBPWinFrmTitle::shownButtons, CBPWinFrmTitle::Buttons());
}

void CBPWinWidget::setTitleButtons(CBPWinFrmTitle::Buttons buttons)
{
    m_frame->onTitle(&CBPWinFrmTitle::setShownButtons, buttons);
}

void CBPWinWidget::EnableTitleBtn(int id, bool enable)
{
    m_frame->onTitle(&CBPWinFrmTitle::EnableTitleBtn, id, enable);
}

void CBPWinWidget::ResetMaxBtn(bool maximised)
{
    m_frame->onTitle(&CBPWinFrmTitle::ResetMaxBtn, maximised);
}

void CBPWinWidget::SetTitleBg(QColor color)
{
    m_frame->onTitle(&CBPWinFrmTitle::SetBgColor, color);
}

QColor CBPWinWidget::titleBackground() const
{
    return m_frame->ofTitle(&CBPWinFrmTitle::backgroundColor, QColor());
}

void CBPWinWidget::resetTitleBackground()
{
    m_frame->onTitle(&CBPWinFrmTitle::resetBackgroundColor);
}

CBPImageButton *CBPWinWidget::titleBtn(int id)
{
    return m_frame->titleButton(id);
}

void CBPWinWidget::SetTitleBarEnabled(bool enable)
{
    m_frame->onTitle(&CBPWinFrmTitle::SetTitleBtnEnable, enable);
}

bool CBPWinWidget::isTitleBarEnabled() const
{
    return m_frame->ofTitle(&CBPWinFrmTitle::areButtonsEnabled, false);
}

void CBPWinWidget::EnabledTitleRoundRc(bool enable)
{
    m_frame->onTitle(&CBPWinFrmTitle::SetRoundRectEnabled, enable);
}

bool CBPWinWidget::isTitleRounded() const
{
    return m_frame->ofTitle(&CBPWinFrmTitle::isRounded, false);
}

void CBPWinWidget::SetTitleHeight(int height)
{
    m_frame->onTitle(&CBPWinFrmTitle::setFixedHeight, height);
}

int CBPWinWidget::titleHeight() const
{
    return m_frame->ofTitle(&CBPWinFrmTitle::minimumHeight, 0);
}

void CBPWinWidget::resetTitleHeight()
{
    SetTitleHeight(lumqt::kFrameTitleHeight);
}

void CBPWinWidget::SetHasNewVersion(bool hasNewVersion)
{
    m_frame->onTitle(&CBPWinFrmTitle::SetHasNewVersion, hasNewVersion);
}

bool CBPWinWidget::hasNewVersion() const
{
    return m_frame->ofTitle(&CBPWinFrmTitle::hasNewVersion, false);
}

void CBPWinWidget::showWindowTitle(bool visible)
{
    m_frame->onTitle(&CBPWinFrmTitle::setVisible, visible);
}

bool CBPWinWidget::isTitleVisible() const
{
    return !m_frame->ofTitle(&CBPWinFrmTitle::isHidden, true);
}

void CBPWinWidget::AppendContent(QWidget *widget, bool expand, bool, unsigned int spacing)
{
    m_frame->appendContent(widget, expand, spacing);
}

void CBPWinWidget::setContentWidget(QWidget *content)
{
    m_frame->setContent(content);
}

QWidget *CBPWinWidget::contentWidget() const
{
    return m_frame->content;
}

void CBPWinWidget::SetMainBoxBorder(int left, int top, int right, int bottom)
{
    m_frame->setMainBoxBorder(QMargins(left, top, right, bottom));
}

void CBPWinWidget::SetStatusBoxBorder(int left, int top, int right, int bottom)
{
    m_frame->setStatusBoxBorder(QMargins(left, top, right, bottom));
}

void CBPWinWidget::SetBottomHeight(int height)
{
    m_frame->setBottomHeight(height);
}

int CBPWinWidget::bottomHeight() const
{
    return m_frame->bottomHeight;
}

void CBPWinWidget::resetBottomHeight()
{
    SetBottomHeight(lumqt::kFrameBottomHeight);
}

void CBPWinWidget::SetDrawBottomHLine(bool draw)
{
    m_frame->setDrawBottomLine(draw);
}

bool CBPWinWidget::drawsBottomLine() const
{
    return m_frame->drawBottomLine;
}

void CBPWinWidget::SetShadowBorder(int border)
{
    m_frame->setShadowBorder(border);
}

int CBPWinWidget::shadowBorder() const
{
    return m_frame->shadowBorder;
}

void CBPWinWidget::resetShadowBorder()
{
    SetShadowBorder(lumqt::kFrameShadowBorder);
}

void CBPWinWidget::setIsWinPE(bool isWinPE)
{
    m_frame->isWinPE = isWinPE;
}

bool CBPWinWidget::isWinPE() const
{
    return m_frame->isWinPE;
}

void CBPWinWidget::SetDisableEscAndF4Flag(bool disable)
{
    m_frame->escAndF4Disabled = disable;
}

bool CBPWinWidget::isEscAndF4Disabled() const
{
    return m_frame->escAndF4Disabled;
}

bool CBPWinWidget::isMaximized() const
{
    return m_frame->isMaximised();
}

void CBPWinWidget::setStatusBox(QWidget *box)
{
    m_frame->setStatusBox(box);
}

QWidget *CBPWinWidget::statusBox() const
{
    return m_frame->statusBox;
}

CBPWinFrmTitle *CBPWinWidget::titleBar() const
{
    return m_frame->title;
}

QVBoxLayout *CBPWinWidget::contentBox() const
{
    return m_frame->contentBox;
}

// ----------------------------------------------------------------------------------------------------------
// hooks

void CBPWinWidget::OnMax()
{
    m_frame->toggleMaximised();
}

void CBPWinWidget::OnClose()
{
    m_frame->closeWindow();
}

void CBPWinWidget::OnMin()
{
    showMinimized();
}

void CBPWinWidget::OnSetting() {}

void CBPWinWidget::OnHelp() {}

void CBPWinWidget::PreBtnClick() {}

void CBPWinWidget::QQBtnClick() {}

void CBPWinWidget::OnlineSupportClick() {}

void CBPWinWidget::ShowMenu(const QPoint &) {}

void CBPWinWidget::UpdateMainWndTitle() {}

// ----------------------------------------------------------------------------------------------------------
// what calls the hooks

void CBPWinWidget::on_btn_clicked(void *self, int id)
{
    if (self)
        static_cast<CBPWinWidget *>(self)->OnTitleBtnClicked(id);
}

void CBPWinWidget::OnTitleBtnClicked(int id)
{
    m_frame->titleButtonClicked(id);
}

void CBPWinWidget::on_dbl_clickedSlot(bool bDelete)
{
    if (bDelete)
        m_frame->callCloseHook();
    else
        OnMax();
}

void CBPWinWidget::OnMenuClick()
{
    m_frame->openMenu();
}

void CBPWinWidget::closeEvent(QCloseEvent *event)
{
    m_frame->closeEvent(event);
}

void CBPWinWidget::keyPressEvent(QKeyEvent *event)
{
    m_frame->keyPressEvent(event);
}

void CBPWinWidget::changeEvent(QEvent *event)
{
    if (m_frame && event->type() == QEvent::WindowStateChange) // not before it is made
        m_frame->windowStateChanged();
    QWidget::changeEvent(event);
}

void CBPWinWidget::moveEvent(QMoveEvent *event)
{
    if (m_frame)
        m_frame->moved();
    QWidget::moveEvent(event);
}

void CBPWinWidget::paintEvent(QPaintEvent *)
{
    // Body and shadow are the derived classes'.
}

bool CBPWinWidget::eventFilter(QObject *watched, QEvent *event)
{
    m_frame->watch(watched, event);
    return false; // nothing is kept from the parent
}
