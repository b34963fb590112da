#include "platform/windows/WindowsTaskBar.h"

#include <QWidget>

#include <windows.h>

#include <shobjidl.h>

namespace lumqt::platform {

namespace {

constexpr ULONGLONG kWhole = 1000;

// Null where the shell has none, which is asked once. Never released: the shell goes before the library does.
ITaskbarList3 *taskBarList()
{
    static ITaskbarList3 *list = []() -> ITaskbarList3 * {
        void *made = nullptr;
        if (FAILED(
                CoCreateInstance(CLSID_TaskbarList, nullptr, CLSCTX_INPROC_SERVER, IID_ITaskbarList3, &made)))
            return nullptr;
        auto *found = static_cast<ITaskbarList3 *>(made);
        if (SUCCEEDED(found->HrInit()))
            return found;
        found->Release();
        return nullptr;
    }();
    return list;
}

TBPFLAG flagOf(TaskBar what)
{
    switch (what) {
    case TaskBar::Busy:
        return TBPF_INDETERMINATE;
    case TaskBar::Progress:
        return TBPF_NORMAL;
    case TaskBar::Failure:
        return TBPF_ERROR;
    case TaskBar::Nothing:
        break;
    }
    return TBPF_NOPROGRESS;
}

} // namespace

void showOnTaskBar(QWidget *window, TaskBar what, double done)
{
    if (!window || !window->internalWinId()) // a window that was never shown has no button
        return;
    ITaskbarList3 *list = taskBarList();
    if (!list)
        return;
    auto *handle = reinterpret_cast<HWND>(window->internalWinId());
    list->SetProgressState(handle, flagOf(what));
    if (what == TaskBar::Progress || what == TaskBar::Failure) // of another state the value would end it
        list->SetProgressValue(handle, ULONGLONG(done * double(kWhole)), kWhole);
}

} // namespace lumqt::platform
