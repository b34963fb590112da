#pragma once

class QWindow;

// What Qt does not ask or tell an X server. Xlib is loaded, not linked: only programs that run on an X server
// need it, and there Qt has it in the process already. GUI thread only.
namespace lumqt::platform {

// Whether a compositing manager runs. Only to be asked where Qt runs on an X server.
bool xComposited();

// Takes back what QWindow::startSystemMove() or startSystemResize() has asked of the window manager. A button
// that comes up before the window manager has the pointer is lost to it: the window would follow the pointer
// until the next click. Does nothing elsewhere than on an X server.
void cancelSystemMove(QWindow *window);

} // namespace lumqt::platform
