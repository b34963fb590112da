#pragma once

#include "LumQtGlobal.h"

#include <QColor>
#include <QWidget>

#include <memory>

class CBPImageButton;
class CBPWinFrmTitle;
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

public:
    /// \copydoc CBPWinFrm::CBPWinFrm
    explicit CBPWinWidget(QWidget *parent = nullptr);
    ~CBPWinWidget() override;

    /// \copydoc CBPWinFrm::SetWindowTitle
    void SetWindowTitle(QString text, bool isImage = false);

    /// \copydoc CBPWinFrm::SetWindowLog
    void SetWindowLog(QString path);

    /// \copydoc CBPWinFrm::ShowTitleBtn
    void ShowTitleBtn(int id, bool show);

    /// \copydoc CBPWinFrm::EnableTitleBtn
    void EnableTitleBtn(int id, bool enable);

    /// \copydoc CBPWinFrm::ResetMaxBtn
    void ResetMaxBtn(bool maximised);

    /// \copydoc CBPWinFrm::SetTitleBg
    void SetTitleBg(QColor color);

    /// \copydoc CBPWinFrm::titleBtn
    CBPImageButton *titleBtn(int id);

    /// \copydoc CBPWinFrm::SetTitleBarEnabled
    void SetTitleBarEnabled(bool enable);

    /// \copydoc CBPWinFrm::EnabledTitleRoundRc
    void EnabledTitleRoundRc(bool enable);

    /// \copydoc CBPWinFrm::SetTitleHeight
    void SetTitleHeight(int height);

    /// \copydoc CBPWinFrm::SetHasNewVersion
    void SetHasNewVersion(bool hasNewVersion);

    /// \copydoc CBPWinFrm::showWindowTitle
    void showWindowTitle(bool visible);

    /// \copydoc CBPWinFrm::AppendContent
    void AppendContent(QWidget *widget, bool expand, bool, unsigned int spacing);

    /// \copydoc CBPWinFrm::SetMainBoxBorder
    void SetMainBoxBorder(int left, int top, int right, int bottom);

    /// \copydoc CBPWinFrm::SetStatusBoxBorder
    void SetStatusBoxBorder(int left, int top, int right, int bottom);

    /// \copydoc CBPWinFrm::SetBottomHeight
    void SetBottomHeight(int height);

    /// \copydoc CBPWinFrm::SetDrawBottomHLine
    void SetDrawBottomHLine(bool draw);

    /// \copydoc CBPWinFrm::SetShadowBorder
    void SetShadowBorder(int border);

    /// \copydoc CBPWinFrm::setIsWinPE
    void setIsWinPE(bool isWinPE);

    /// \copydoc CBPWinFrm::SetDisableEscAndF4Flag
    void SetDisableEscAndF4Flag(bool disable);

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

    /// \copydoc CBPWinFrm::shadowBorder
    int shadowBorder() const;

    /// \copydoc CBPWinFrm::bottomHeight
    int bottomHeight() const;

    /// \copydoc CBPWinFrm::drawsBottomLine
    bool drawsBottomLine() const;

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
