#pragma once

#include "Acts.h"
#include "Await.h"
#include "CBPWinFrm.h"
#include "CBPWinFrmTitle.h"
#include "CBPWinWidget.h"
#include "Later.h"

// What the tests of the two framed windows share: each runs for both classes.

enum Closing { ByBase, Directly, NotAtAll };

// Either framed window. It notes its hooks, and may be deleted in one of them.
template <class Base> class Probe : public Base
{
public:
    using Base::Base;
    using Base::bottomHeight;
    using Base::contentBox;
    using Base::drawsBottomLine;
    using Base::Init;
    using Base::OnMenuClick;
    using Base::setStatusBox;
    using Base::shadowBorder;
    using Base::statusBox;
    using Base::titleBar;

    QStringList calls;
    QString deadly; // the hook that deletes the window
    int closing = ByBase;
    std::function<void()> inClosing; // what the hook does first
    QPoint menuAt;

    void OnMax() override
    {
        if (outlives("max"))
            Base::OnMax();
    }
    void OnClose() override
    {
        if (!outlives("close"))
            return;
        if (inClosing)
            inClosing();
        if (closing == NotAtAll)
            return;
        if (closing == Directly)
            this->close();
        else
            Base::OnClose();
    }
    void OnMin() override
    {
        if (outlives("min"))
            Base::OnMin();
    }
    void OnSetting() override { outlives("setting"); }
    void OnHelp() override { outlives("help"); }
    void PreBtnClick() override { outlives("previous"); }
    void QQBtnClick() override { outlives("contact"); }
    void OnlineSupportClick() override { outlives("support"); }
    virtual void DiscountBtnSlot() { outlives("offer"); } // a hook of the dialog only
    void ShowMenu(const QPoint &globalPos) override
    {
        menuAt = globalPos;
        outlives("menu");
    }

private:
    bool outlives(const char *hook)
    {
        calls << QLatin1String(hook);
        if (deadly != QLatin1String(hook))
            return true;
        destroy(this);
        return false;
    }
};

using Dialog = Probe<CBPWinFrm>;
using Widget = Probe<CBPWinWidget>;

// Runs a test with a window of each of the two classes.
template <class Body> void inBoth(Body body)
{
    Dialog dialog;
    body(dialog);
    if (QTest::currentTestFailed()) {
        qInfo("with CBPWinFrm");
        return;
    }
    Widget widget;
    body(widget);
}

// Whether another shown window of a class survives an act of which a hook deletes it.
template <class Window, class Act> bool survives(const Window &, const QString &deadlyHook, Act act)
{
    const QPointer<Window> w(new Window);
    w->Init();
    w->ShowTitleBtn(~0, true);
    w->show();
    w->deadly = deadlyHook;
    act(*w);
    const bool alive = w;
    delete w;
    return alive;
}

template <class Window> void clickTitle(Window &window, int id)
{
    window.titleBar()->on_btn_clicekedSlot(id);
}
