#include "platform/generic/XServer.h"

#include <QCursor>
#include <QGuiApplication>
#include <QLibrary>
#include <QWindow>

namespace lumqt::platform {

namespace {

constexpr int kClientMessage = 33;
constexpr long kSubstructureMasks = (1L << 20) | (1L << 19); // redirect and notify: to the window manager
constexpr long kMoveResizeCancel = 11;
constexpr long kFromApplication = 1;

// Xlib's own, as large as its union of all events.
struct ClientMessage
{
    int type;
    unsigned long serial;
    int sendEvent;
    void *display;
    unsigned long window;
    unsigned long messageType;
    int format;
    long data[5];
    long rest[12];
};
static_assert(sizeof(ClientMessage) >= 24 * sizeof(long));

class XLibrary
{
public:
    XLibrary() : m_library(QStringLiteral("X11"), 6)
    {
        resolve(m_openDisplay, "XOpenDisplay");
        resolve(m_defaultScreen, "XDefaultScreen");
        resolve(m_defaultRoot, "XDefaultRootWindow");
        resolve(m_internAtom, "XInternAtom");
        resolve(m_selectionOwner, "XGetSelectionOwner");
        resolve(m_sendEvent, "XSendEvent");
        resolve(m_sync, "XSync");
        // One connection for the life of the program: whether windows are blended is asked whenever a menu
        // opens.
        if (m_complete)
            m_display = m_openDisplay(nullptr);
    }

    bool isComposited()
    {
        // The manager owns the selection _NET_WM_CM_Sn of its screen.
        return m_display &&
               m_selectionOwner(m_display,
                                atom("_NET_WM_CM_S" + QByteArray::number(m_defaultScreen(m_display)))) != 0;
    }

    void cancelMoveResize(unsigned long window)
    {
        if (!m_display)
            return;
        ClientMessage message = {};
        message.type = kClientMessage;
        message.window = window;
        message.messageType = atom("_NET_WM_MOVERESIZE");
        message.format = 32;
        message.data[2] = kMoveResizeCancel;
        message.data[4] = kFromApplication;
        m_sendEvent(m_display, m_defaultRoot(m_display), 0, kSubstructureMasks, &message);
        // Waits until the server has it: what Qt's own connection asks for from here on, say a move of the
        // same window, would be undone by a cancel that came after it.
        m_sync(m_display, 0);
    }

private:
    template <class Function> void resolve(Function *&function, const char *name)
    {
        function = reinterpret_cast<Function *>(m_library.resolve(name));
        m_complete = m_complete && function;
    }

    unsigned long atom(const QByteArray &name) { return m_internAtom(m_display, name.constData(), 0); }

    QLibrary m_library;
    bool m_complete = true;
    void *m_display = nullptr;
    void *(*m_openDisplay)(const char *) = nullptr;
    int (*m_defaultScreen)(void *) = nullptr;
    unsigned long (*m_defaultRoot)(void *) = nullptr;
    unsigned long (*m_internAtom)(void *, const char *, int) = nullptr;
    unsigned long (*m_selectionOwner)(void *, unsigned long) = nullptr;
    int (*m_sendEvent)(void *, unsigned long, int, long, ClientMessage *) = nullptr;
    int (*m_sync)(void *, int) = nullptr;
};

XLibrary &xlib()
{
    static XLibrary library;
    return library;
}

} // namespace

bool xComposited()
{
    return xlib().isComposited();
}

void cancelSystemMove(QWindow *window)
{
    if (!window || QGuiApplication::platformName() != QLatin1String("xcb"))
        return;
    // A question with an answer: what Qt has asked for before is with the server then, too. Its connection is
    // another one.
    QCursor::pos();
    xlib().cancelMoveResize(window->winId());
}

} // namespace lumqt::platform
