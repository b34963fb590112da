#include "Monkey.h"

#include "CBPTheme.h"
#include "GalleryWindow.h"
#include "Page.h"
#include "PageRegistry.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDesktopServices>
#include <QDir>
#include <QMetaEnum>
#include <QTemporaryFile>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

#include <iterator>

namespace {

constexpr int kPause = 2;         // ms from one step to the next
constexpr int kSettleTime = 1000; // ms in which something may still open
constexpr int kCloseTime = 30000; // ms in which what was left open must have gone
constexpr QSize kLeast(400, 300);
constexpr QSize kMost(1600, 1200);

const Qt::Key kKeys[] = {Qt::Key_Tab,    Qt::Key_Tab,      Qt::Key_Backtab, Qt::Key_Space,     Qt::Key_Space,
                         Qt::Key_Return, Qt::Key_Enter,    Qt::Key_Escape,  Qt::Key_Escape,    Qt::Key_Left,
                         Qt::Key_Right,  Qt::Key_Up,       Qt::Key_Down,    Qt::Key_Home,      Qt::Key_End,
                         Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Delete,  Qt::Key_Backspace, Qt::Key_F2,
                         Qt::Key_F4,     Qt::Key_Menu,     Qt::Key_A,       Qt::Key_C,         Qt::Key_V,
                         Qt::Key_X,      Qt::Key_Z,        Qt::Key_0,       Qt::Key_1,         Qt::Key_9,
                         Qt::Key_Period, Qt::Key_Slash,    Qt::Key_Minus};
const Qt::KeyboardModifiers kModifiers[] = {Qt::NoModifier, Qt::NoModifier,    Qt::NoModifier,
                                            Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier,
                                            Qt::AltModifier};

QString textOf(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    const bool letter = key >= Qt::Key_Space && key <= Qt::Key_AsciiTilde;
    if (!letter || modifiers & (Qt::ControlModifier | Qt::AltModifier))
        return QString();
    const QChar c = QChar(int(key));
    return modifiers & Qt::ShiftModifier ? QString(c) : QString(c.toLower());
}

} // namespace

Monkey::Monkey(GalleryWindow &window, unsigned int seed, int seconds)
    : m_window(window), m_random(seed), m_time(1000 * qint64(seconds))
{
    for (const char *scheme : {"http", "https", "file", "mailto", "lumqt-test"})
        QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "ignoreUrl");
}

void Monkey::start()
{
    m_clock.start();
    QTimer::singleShot(kPause, this, &Monkey::step);
}

// A timer of its own for each step: what a step opens may run a loop of its own, in which the next one is
// taken.
void Monkey::step()
{
    if (m_clock.hasExpired(m_time) && m_visited.size() == pages().size()) {
        m_leaving.start();
        leave();
        return;
    }
    QTimer::singleShot(kPause, this, &Monkey::step);
    ++m_steps;
    if (!m_window.isVisible() || m_window.isMinimized())
        m_window.showNormal(); // closed or put away by its own buttons
    act();
}

void Monkey::act()
{
    const int choice = below(100);
    if (choice < 35)
        click();
    else if (choice < 65)
        pressKey();
    else if (choice < 78)
        mouse(QEvent::MouseMove, Qt::NoButton);
    else if (choice < 84)
        drag();
    else if (choice < 89)
        turnWheel();
    else if (choice < 91)
        askForContextMenu();
    else if (choice < 93)
        resizeWindow();
    else if (choice < 95)
        changeTheme();
    else
        changePage();
}

// What runs a loop of its own is closed, so that every loop is left before the program ends.
void Monkey::leave()
{
    if (QWidget *popup = QApplication::activePopupWidget()) {
        popup->close();
    } else if (QWidget *modal = QApplication::activeModalWidget()) {
        modal->close();
    } else if (!m_leaving.hasExpired(kSettleTime)) {
        m_held = Qt::NoButton;
    } else {
        // What a modal window still blocks, though none is to be seen, says yes and stays.
        if (QWindow *window = m_window.windowHandle(); window && window->close() && m_window.isVisible())
            qFatal("The gallery is blocked");
        m_over = true;
        QApplication::quit(); // whatever is still open goes with what owns it
        return;
    }
    if (m_leaving.hasExpired(kCloseTime))
        qFatal("A window does not close");
    QTimer::singleShot(10 * kPause, this, &Monkey::leave);
}

QWindow *Monkey::inputWindow() const
{
    if (m_held && m_pressedIn)
        return m_pressedIn;
    if (const QWidget *popup = QApplication::activePopupWidget())
        return popup->windowHandle();
    if (const QWidget *modal = QApplication::activeModalWidget())
        return modal->windowHandle();
    const QWindowList windows = QGuiApplication::topLevelWindows();
    for (QWindow *window : windows) {
        if (window->isVisible() && window != m_window.windowHandle() && window->type() != Qt::ToolTip &&
            window->isActive())
            return window;
    }
    return m_window.windowHandle();
}

QPoint Monkey::somewhereIn(const QWindow *window)
{
    return QPoint(below(qMax(1, window->width())), below(qMax(1, window->height())));
}

// Through the window system, so that grabs, pop-ups and modal windows get what is theirs.
void Monkey::mouse(QEvent::Type type, Qt::MouseButton button)
{
    QWindow *window = inputWindow();
    if (!window)
        return;
    if (type == QEvent::MouseMove)
        m_at = somewhereIn(window);
    if (type == QEvent::MouseButtonPress) {
        m_held |= button;
        m_pressedIn = window;
    } else if (type == QEvent::MouseButtonRelease) {
        m_held &= ~Qt::MouseButtons(button);
    }
    qt_handleMouseEvent(window, m_at, window->mapToGlobal(m_at), m_held, button, type, Qt::NoModifier,
                        int(m_clock.elapsed()));
}

void Monkey::click()
{
    const Qt::MouseButton button = below(8) ? Qt::LeftButton : Qt::RightButton;
    mouse(QEvent::MouseMove, Qt::NoButton);
    for (int times = below(10) ? 1 : 2; times > 0; --times) {
        mouse(QEvent::MouseButtonPress, button);
        mouse(QEvent::MouseButtonRelease, button);
    }
}

void Monkey::drag()
{
    mouse(QEvent::MouseMove, Qt::NoButton);
    mouse(QEvent::MouseButtonPress, Qt::LeftButton);
    for (int moves = below(6); moves > 0; --moves)
        mouse(QEvent::MouseMove, Qt::NoButton);
    mouse(QEvent::MouseButtonRelease, Qt::LeftButton);
}

void Monkey::turnWheel()
{
    QWindow *window = inputWindow();
    if (!window)
        return;
    m_at = somewhereIn(window);
    const QPoint at = window->mapToGlobal(m_at);
    if (QWidget *widget = QApplication::widgetAt(at)) {
        const QPoint angle(0, below(2) ? 120 : -120);
        QApplication::postEvent(widget, new QWheelEvent(widget->mapFromGlobal(at), at, QPoint(), angle,
                                                        m_held, Qt::NoModifier, Qt::NoScrollPhase, false));
    }
}

void Monkey::pressKey()
{
    QWindow *window = QGuiApplication::focusWindow() ? QGuiApplication::focusWindow() : inputWindow();
    if (!window)
        return;
    if (QGuiApplication::clipboard()->text().size() > 100)
        QGuiApplication::clipboard()->setText(QStringLiteral("10.0.0.1"));
    const Qt::Key key = kKeys[below(int(std::size(kKeys)))];
    const Qt::KeyboardModifiers modifiers = kModifiers[below(int(std::size(kModifiers)))];
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
        qt_handleKeyEvent(window, type, key, modifiers, textOf(key, modifiers));
}

void Monkey::askForContextMenu()
{
    QWidget *focus = QApplication::focusWidget();
    if (focus)
        QApplication::postEvent(focus,
                                new QContextMenuEvent(QContextMenuEvent::Keyboard, focus->rect().center(),
                                                      focus->mapToGlobal(focus->rect().center())));
}

void Monkey::resizeWindow()
{
    m_window.resize(kLeast.width() + below(kMost.width() - kLeast.width()),
                    kLeast.height() + below(kMost.height() - kLeast.height()));
}

// Each page once, in their order; after that any.
void Monkey::changePage()
{
    const int any = below(pages().size());
    const QString id = pages().at(m_visited.size() < pages().size() ? m_visited.size() : any).id;
    m_window.showPage(id);
    if (!m_visited.contains(id))
        m_visited << id;
}

// In whatever is open and half done. One of them is made anew each time, of any colours.
void Monkey::changeTheme()
{
    if (below(4) == 0) {
        CBPTheme::givePalette(!CBPTheme::givesPalette());
        return;
    }
    static const auto purposes = QMetaEnum::fromType<CBPTheme::Purpose>();
    QTemporaryFile file(QDir::temp().filePath(QStringLiteral("XXXXXX.ini")));
    if (file.open()) {
        file.write("name = of the monkey\nbase = " + QByteArray(below(2) ? "dark" : "light"));
        for (int colors = below(8); colors > 0; --colors) {
            const char *purpose = purposes.key(below(purposes.keyCount()));
            file.write('\n' + QByteArray(purpose) + " = " +
                       QColor::fromRgba(m_random()).name(QColor::HexArgb).toLatin1());
        }
        file.close();
        CBPTheme::load(file.fileName());
    }
    const QStringList names = CBPTheme::names();
    CBPTheme::apply(names.at(below(names.size())));
}
