#pragma once

#include "CBPPopWnd.h"

#include "Await.h"
#include "Later.h"

#include <QImage>

#include <functional>

// What the tests of pop-ups share.

constexpr int kOk = 0x4;
constexpr int kCancel = 0x100;
constexpr int kNo = 0x1000;
constexpr int kYes = 0x800;

// A pop-up that notes what it is asked.
class PopUp : public CBPPopWnd
{
public:
    explicit PopUp(QWidget *parent = nullptr, int flags = 0, bool bottomArea = true)
        : CBPPopWnd(false, parent)
    {
        Init(bottomArea);
        AppendBtn(flags);
    }

    using CBPPopWnd::statusBox;
    using CBPPopWnd::titleBar;

    QVector<int> asked;
    std::function<bool(int)> answer; // of proceedBtnClicked()
    std::function<void()> onShow;

protected:
    bool proceedBtnClicked(int flag) override
    {
        asked << flag;
        return answer ? answer(flag) : CBPPopWnd::proceedBtnClicked(flag);
    }
    void showEvent(QShowEvent *event) override
    {
        CBPPopWnd::showEvent(event);
        if (onShow)
            onShow();
    }
};

inline QImage shot(QWidget &widget)
{
    return widget.grab().toImage().convertToFormat(QImage::Format_ARGB32);
}

// Whether all of a widget lies in its window, and in its parents on the way.
inline bool isWholeIn(const QWidget *widget, const QWidget *window)
{
    for (const QWidget *parent = widget->parentWidget(); parent; parent = parent->parentWidget()) {
        if (!parent->rect().contains(QRect(widget->mapTo(parent, QPoint(0, 0)), widget->size())))
            return false;
        if (parent == window)
            break;
    }
    return true;
}
