#include "RealInput.h"

#include <QGuiApplication>
#include <QScreen>

#include <utility>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#endif

namespace {

#ifdef Q_OS_WIN
constexpr std::pair<Qt::Key, unsigned> keyCodes[] = {
    {Qt::Key_Tab, VK_TAB},      {Qt::Key_Return, VK_RETURN},   {Qt::Key_Escape, VK_ESCAPE},
    {Qt::Key_Home, VK_HOME},    {Qt::Key_End, VK_END},         {Qt::Key_Left, VK_LEFT},
    {Qt::Key_Right, VK_RIGHT},  {Qt::Key_Up, VK_UP},           {Qt::Key_Down, VK_DOWN},
    {Qt::Key_Alt, VK_MENU},     {Qt::Key_Control, VK_CONTROL}, {Qt::Key_Shift, VK_SHIFT},
    {Qt::Key_F1, VK_F1},        {Qt::Key_F4, VK_F4},           {Qt::Key_Delete, VK_DELETE},
    {Qt::Key_PageUp, VK_PRIOR}, {Qt::Key_PageDown, VK_NEXT},
};

void sendMouse(DWORD flags)
{
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    SendInput(1, &input, sizeof input);
}
#else
constexpr std::pair<Qt::Key, unsigned> keyCodes[] = {
    {Qt::Key_Tab, XK_Tab},
    {Qt::Key_Return, XK_Return},
    {Qt::Key_Escape, XK_Escape},
    {Qt::Key_Home, XK_Home},
    {Qt::Key_End, XK_End},
    {Qt::Key_Left, XK_Left},
    {Qt::Key_Right, XK_Right},
    {Qt::Key_Up, XK_Up},
    {Qt::Key_Down, XK_Down},
    {Qt::Key_Alt, XK_Alt_L},
    {Qt::Key_Control, XK_Control_L},
    {Qt::Key_Shift, XK_Shift_L},
    {Qt::Key_F1, XK_F1},
    {Qt::Key_F4, XK_F4},
    {Qt::Key_Delete, XK_Delete},
    {Qt::Key_PageUp, XK_Page_Up},
    {Qt::Key_PageDown, XK_Page_Down},
};

// A connection of its own: Qt's may be in the middle of something.
Display *display()
{
    static Display *const connection = XOpenDisplay(nullptr);
    return connection;
}
#endif

unsigned codeOf(Qt::Key key)
{
    for (const auto &[known, code] : keyCodes) {
        if (known == key)
            return code;
    }
    // Letters (upper case), digits and Space have their character's number everywhere.
    return unsigned(key);
}

QPoint physical(const QPoint &global)
{
    return global * QGuiApplication::primaryScreen()->devicePixelRatio();
}

void sendButton(Qt::MouseButton button, bool down)
{
    if (!RealInput::available())
        return;
#ifdef Q_OS_WIN
    if (button == Qt::RightButton)
        sendMouse(down ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_RIGHTUP);
    else
        sendMouse(down ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP);
#else
    XTestFakeButtonEvent(display(), button == Qt::RightButton ? 3 : 1, down, CurrentTime);
    XSync(display(), False);
#endif
}

void sendKey(Qt::Key key, bool down)
{
    if (!RealInput::available())
        return;
#ifdef Q_OS_WIN
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = WORD(codeOf(key));
    input.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
    SendInput(1, &input, sizeof input);
#else
    XTestFakeKeyEvent(display(), XKeysymToKeycode(display(), codeOf(key)), down, CurrentTime);
    XSync(display(), False);
#endif
}

} // namespace

bool RealInput::available()
{
    const QString platform = QGuiApplication::platformName();
#ifdef Q_OS_WIN
    return platform == QLatin1String("windows");
#else
    return platform == QLatin1String("xcb") && display();
#endif
}

void RealInput::moveTo(const QPoint &global)
{
    if (!available())
        return;
    const QPoint to = physical(global);
#ifdef Q_OS_WIN
    // A jump of the cursor alone tells windows nothing; the step after it does.
    SetCursorPos(to.x(), to.y());
    sendMouse(MOUSEEVENTF_MOVE);
#else
    XTestFakeMotionEvent(display(), -1, to.x(), to.y(), CurrentTime);
    XSync(display(), False);
#endif
}

void RealInput::press(Qt::MouseButton button)
{
    sendButton(button, true);
}

void RealInput::release(Qt::MouseButton button)
{
    sendButton(button, false);
}

void RealInput::click(const QPoint &global, Qt::MouseButton button)
{
    moveTo(global);
    press(button);
    release(button);
}

void RealInput::pressKey(Qt::Key key)
{
    sendKey(key, true);
}

void RealInput::releaseKey(Qt::Key key)
{
    sendKey(key, false);
}

void RealInput::typeKey(Qt::Key key)
{
    pressKey(key);
    releaseKey(key);
}
