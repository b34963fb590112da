#pragma once

#include "CBPWinFrmTitle.h"

#include <QColor>
#include <QWidget>

#include <memory>

class CBPImageButton;
class QVBoxLayout;

namespace lumqt {
class FrameBehaviour;
}

/// The frame of CBPWinFrm around a QWidget, for windows that are not modal.
///
/// It has the operations, hooks, keys and rules of CBPWinFrm, which describes them, but it is not run: there
/// is neither exec() nor reject(), nor a signal that tells its end, and showing it does not centre it. A
/// click on the limited-time-offer button does nothing. \since 1.0
class LUMQT_EXPORT CBPWinWidget : public QWidget
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
    /// \copydoc CBPWinFrm::CBPWinFrm
    explicit CBPWinWidget(QWidget *parent = nullptr);
    ~CBPWinWidget() override;

    /// \copydoc CBPWinFrm::SetWindowTitle
    void SetWindowTitle(QString text, bool isImage = false);

    /// \copydoc CBPWinFrm::title
    QString title() const;

    /// \copydoc CBPWinFrm::SetWindowLog
    void SetWindowLog(QString path);

    /// \copydoc CBPWinFrm::logoPath
    QString logoPath() const;

    /// \copydoc CBPWinFrm::ShowTitleBtn
    void ShowTitleBtn(int id, bool show);

    /// \copydoc CBPWinFrm::titleButtons
    CBPWinFrmTitle::Buttons titleButtons() const;

    /// \copydoc CBPWinFrm::setTitleButtons
    void setTitleButtons(CBPWinFrmTitle::Buttons buttons);

    /// \copydoc CBPWinFrm::EnableTitleBtn
    void EnableTitleBtn(int id, bool enable);

    /// \copydoc CBPWinFrm::ResetMaxBtn
    void ResetMaxBtn(bool maximised);

    /// \copydoc CBPWinFrm::SetTitleBg
    void SetTitleBg(QColor color);

    /// \copydoc CBPWinFrm::titleBackground
    QColor titleBackground() const;

    /// \copydoc CBPWinFrm::resetTitleBackground
    void resetTitleBackground();

    /// \copydoc CBPWinFrm::titleBtn
    CBPImageButton *titleBtn(int id);

    /// \copydoc CBPWinFrm::SetTitleBarEnabled
    void SetTitleBarEnabled(bool enable);

    /// \copydoc CBPWinFrm::isTitleBarEnabled
    bool isTitleBarEnabled() const;

    /// \copydoc CBPWinFrm::EnabledTitleRoundRc
    void EnabledTitleRoundRc(bool enable);

    /// \copydoc CBPWinFrm::isTitleRounded
    bool isTitleRounded() const;

    /// \copydoc CBPWinFrm::SetTitleHeight
    void SetTitleHeight(int height);

    /// \copydoc CBPWinFrm::titleHeight
    int titleHeight() const;

    /// \copydoc CBPWinFrm::resetTitleHeight
    void resetTitleHeight();

    /// \copydoc CBPWinFrm::SetHasNewVersion
    void SetHasNewVersion(bool hasNewVersion);

    /// \copydoc CBPWinFrm::hasNewVersion
    bool hasNewVersion() const;

    /// \copydoc CBPWinFrm::showWindowTitle
    void showWindowTitle(bool visible);

    /// \copydoc CBPWinFrm::isTitleVisible
    bool isTitleVisible() const;

    /// \copydoc CBPWinFrm::AppendContent
    void AppendContent(QWidget *widget, bool expand, bool, unsigned int spacing);

    /// \copydoc CBPWinFrm::contentWidget
    QWidget *contentWidget() const;

    /// \copydoc CBPWinFrm::SetMainBoxBorder
    void SetMainBoxBorder(int left, int top, int right, int bottom);

    /// \copydoc CBPWinFrm::SetStatusBoxBorder
    void SetStatusBoxBorder(int left, int top, int right, int bottom);

    /// \copydoc CBPWinFrm::SetBottomHeight
    void SetBottomHeight(int height);

    /// \copydoc CBPWinFrm::bottomHeight
    int bottomHeight() const;

    /// \copydoc CBPWinFrm::resetBottomHeight
    void resetBottomHeight();

    /// \copydoc CBPWinFrm::SetDrawBottomHLine
    void SetDrawBottomHLine(bool draw);

    /// \copydoc CBPWinFrm::drawsBottomLine
    bool drawsBottomLine() const;

    /// \copydoc CBPWinFrm::SetShadowBorder
    void SetShadowBorder(int border);

    /// \copydoc CBPWinFrm::shadowBorder
    int shadowBorder() const;

    /// \copydoc CBPWinFrm::resetShadowBorder
    void resetShadowBorder();

    /// \copydoc CBPWinFrm::setIsWinPE
    void setIsWinPE(bool isWinPE);

    /// \copydoc CBPWinFrm::isWinPE
    bool isWinPE() const;

    /// \copydoc CBPWinFrm::SetDisableEscAndF4Flag
    void SetDisableEscAndF4Flag(bool disable);

    /// \copydoc CBPWinFrm::isEscAndF4Disabled
    bool isEscAndF4Disabled() const;

    /// \copydoc CBPWinFrm::isMaximized
    bool isMaximized() const;

    /// \copydoc CBPWinFrm::OnMax
    virtual void OnMax();

    /// \copydoc CBPWinFrm::OnClose
    virtual void OnClose();

    /// \copydoc CBPWinFrm::OnMin
    virtual void OnMin();

    /// \copydoc CBPWinFrm::OnSetting
    virtual void OnSetting();

    /// \copydoc CBPWinFrm::OnHelp
    virtual void OnHelp();

    /// \copydoc CBPWinFrm::PreBtnClick
    virtual void PreBtnClick();

    /// \copydoc CBPWinFrm::QQBtnClick
    virtual void QQBtnClick();

    /// \copydoc CBPWinFrm::OnlineSupportClick
    virtual void OnlineSupportClick();

    /// \copydoc CBPWinFrm::ShowMenu
    virtual void ShowMenu(const QPoint &globalPos);

    /// \copydoc CBPWinFrm::UpdateMainWndTitle
    virtual void UpdateMainWndTitle();

public Q_SLOTS:
    /// \copydoc CBPWinFrm::setContentWidget
    void setContentWidget(QWidget *content);

Q_SIGNALS:
    /// \copydoc CBPWinFrm::titleChanged
    void titleChanged(const QString &title);

protected:
    /// \copydoc CBPWinFrm::Init
    void Init();

    /// \copydoc CBPWinFrm::OnMenuClick
    void OnMenuClick();

    /// \copydoc CBPWinFrm::setStatusBox
    void setStatusBox(QWidget *box);

    /// \copydoc CBPWinFrm::statusBox
    QWidget *statusBox() const;

    /// \copydoc CBPWinFrm::titleBar
    CBPWinFrmTitle *titleBar() const;

    /// \copydoc CBPWinFrm::contentBox
    QVBoxLayout *contentBox() const;

    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void moveEvent(QMoveEvent *event) override;

private Q_SLOTS:
    void on_dbl_clickedSlot(bool bDelete);

private:
    static void on_btn_clicked(void *self, int id);
    void OnTitleBtnClicked(int id);

    std::unique_ptr<lumqt::FrameBehaviour> m_frame;
};
