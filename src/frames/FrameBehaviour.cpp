#include "frames/FrameBehaviour.h"

#include "CBPImageButton.h"
#include "foundation/Log.h"
#include "frames/AnsweringClose.h"
#include "layout/Packing.h"
#include "platform/Platform.h"

#include <QCloseEvent>
#include <QDialog>
#include <QKeyEvent>
#include <QPushButton>

namespace lumqt {

namespace {

// Metrics, in logical pixels.
const QMargins kMainBoxMargins(12, 16, 12, 12);
const QMargins kStatusBoxMargins(12, 12, 12, 16);
constexpr int kMaximisedBorder = 1;
// What a maximised window leaves of the work area in a pre-installation environment, both sides together.
constexpr int kWinPEMargin = 10;

constexpr int kSettling = 500; // milliseconds in which a window manager has reported all of a restoring

QWidget *nearestVisible(QWidget *widget)
{
    while (widget && !widget->isVisible())
        widget = widget->parentWidget();
    return widget;
}

} // namespace

FrameBehaviour::FrameBehaviour(QWidget *window, std::unique_ptr<FrameHooks> hooks, QWidget *parent)
    : shadowBorder(kFrameShadowBorder),
      bottomHeight(kFrameBottomHeight),
      m_window(window),
      m_hooks(std::move(hooks)),
      m_parent(parent),
      m_mainBoxMargins(kMainBoxMargins),
      m_statusBoxMargins(kStatusBoxMargins)
{
    QWidget *visible = nearestVisible(parent);
    if (visible && visible != parent)
        window->setParent(visible);
    // After the parent: a new parent makes an ordinary child of any window.
    window->setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint | Qt::WindowMinimizeButtonHint);
    window->setAttribute(Qt::WA_TranslucentBackground);
    if (parent)
        parent->installEventFilter(window);
}

FrameBehaviour::~FrameBehaviour()
{
    if (title) // it goes later than the window that it reports to
        title->SetBtnCallbackFunc(nullptr, nullptr);
}

void FrameBehaviour::init(void (*callback)(void *, int), void *context)
{
    if (m_window->layout()) {
        qCWarning(lcLumQt, "%s: Init() was called twice, or after another layout was set",
                  m_window->metaObject()->className());
        return;
    }
    m_rootLayout = new QVBoxLayout(m_window);
    m_rootLayout->setContentsMargins(shadowBorder, shadowBorder, shadowBorder, shadowBorder);
    m_rootLayout->setSpacing(0);

    title = new CBPWinFrmTitle(m_window);
    title->SetBtnCallbackFunc(callback, context);
    m_rootLayout->addWidget(title, 0, Qt::AlignTop);

    contentBox = new QVBoxLayout;
    contentBox->setContentsMargins(m_mainBoxMargins);
    m_rootLayout->addLayout(contentBox, 0);
    appendContent(content, true, 0);

    if (statusBox) {
        statusBox->setContentsMargins(m_statusBoxMargins);
        statusBox->setFixedHeight(bottomHeight);
        m_rootLayout->addWidget(statusBox);
    }
}

// ----------------------------------------------------------------------------------------------------------
// operations

void FrameBehaviour::setWindowTitle(const QString &text, bool isImage)
{
    if (!title)
        return;
    const QPointer<QWidget> window(m_window); // who hears of the title may delete it
    title->SetTitle(text, isImage);
    if (!isImage && window) // for the task bar and for screen readers: no native caption would show it
        window->setWindowTitle(text);
}

void FrameBehaviour::setStatusBox(QWidget *box)
{
    if (m_rootLayout) {
        qCWarning(lcLumQt, "%s: the bottom area comes too late, after Init()",
                  m_window->metaObject()->className());
        return;
    }
    statusBox = box;
    if (box)
        box->setParent(m_window);
}

void FrameBehaviour::appendContent(QWidget *widget, bool expand, unsigned int spacing)
{
    if (!contentBox || !widget || widget == m_window)
        return;
    if (expand)
        widget->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    contentBox->addWidget(widget);
    contentBox->addSpacing(int(qMin(spacing, unsigned(QWIDGETSIZE_MAX))));
}

// Where the one before was. If an application has given that another parent, it is no business of the
// window's any more.
void FrameBehaviour::setContent(QWidget *widget)
{
    if (widget == content || (widget && !canPack(m_window, widget)))
        return;
    const QPointer<QWidget> old = content && content->parentWidget() == m_window ? content : nullptr;
    const int place = contentBox && old ? contentBox->indexOf(old) : -1;
    content = widget;
    if (place >= 0)
        contentBox->removeWidget(old);
    if (place >= 0 && widget) {
        widget->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        contentBox->insertWidget(place, widget);
    } else if (place >= 0) {
        delete contentBox->takeAt(place); // the space behind it
    } else if (contentBox) {
        appendContent(widget, true, 0);
    } else if (widget) {
        widget->setParent(m_window);
    }
    if (!old)
        return;
    old->deleteLater();
    old->hide(); // last: the focus moves
}

void FrameBehaviour::setMainBoxBorder(const QMargins &margins)
{
    m_mainBoxMargins = margins;
    if (contentBox)
        contentBox->setContentsMargins(margins);
}

void FrameBehaviour::setStatusBoxBorder(const QMargins &margins)
{
    m_statusBoxMargins = margins;
    if (statusBox)
        statusBox->setContentsMargins(margins);
}

void FrameBehaviour::setBottomHeight(int height)
{
    bottomHeight = height;
    if (statusBox)
        statusBox->setFixedHeight(height);
    if (height == 0)
        drawBottomLine = false; // and another height later does not bring it back
    m_window->update();
}

void FrameBehaviour::setShadowBorder(int border)
{
    shadowBorder = qMax(0, border); // a layout takes a negative margin for that of the style
}

void FrameBehaviour::setDrawBottomLine(bool draw)
{
    drawBottomLine = draw;
    m_window->update();
}

CBPImageButton *FrameBehaviour::titleButton(int id) const
{
    return title ? title->titleBtn(id) : nullptr;
}

// ----------------------------------------------------------------------------------------------------------
// maximising

bool FrameBehaviour::isMaximised() const
{
    return m_maximised || m_window->isMaximized();
}

void FrameBehaviour::toggleMaximised()
{
    if (m_window->isMaximized()) { // by QWidget::showMaximized(), or the system
        m_window->setWindowState(m_window->windowState() & ~Qt::WindowMaximized);
        if (!m_maximised)
            return;
    }
    if (!m_maximised) {
        // What a window manager reports late, of an earlier maximising, is not where and how large the window
        // is going to be.
        const bool fixed = m_window->minimumSize() == m_window->maximumSize();
        m_savedSize = fixed ? m_window->minimumSize() : m_window->size();
        const QPoint position = m_window->mapToGlobal(QPoint(0, 0));
        const bool settled = !m_sinceRestored.isValid() || m_sinceRestored.hasExpired(kSettling);
        if (settled || position != m_maximisedAt)
            m_savedPosition = position;
    }
    m_maximised = !m_maximised;
    showMaximisedLook(); // first, as the window's shape is made when it takes its size
    if (m_maximised) {
        const QRect area = platform::answers().workArea();
        const int margin = isWinPE ? kWinPEMargin : 0;
        m_maximisedAt = area.topLeft() + QPoint(margin / 2, margin / 2);
        m_window->move(m_maximisedAt);
        m_window->setFixedSize((area.size() - QSize(margin, margin)).expandedTo(QSize(0, 0)));
    } else {
        m_window->move(m_savedPosition);
        m_sinceRestored.start();
        m_window->setFixedSize(m_savedSize); // and from now on the window keeps it
    }
}

// Elsewhere than maximising and restoring have put it, somebody has: what is reported from then on holds.
void FrameBehaviour::moved()
{
    const QPoint position = m_window->mapToGlobal(QPoint(0, 0));
    if (position != m_maximisedAt && position != m_savedPosition)
        m_sinceRestored.invalidate();
}

void FrameBehaviour::windowStateChanged()
{
    if (isMaximised() != m_filledLook)
        showMaximisedLook();
}

void FrameBehaviour::showMaximisedLook()
{
    m_filledLook = isMaximised();
    const int border = m_filledLook ? kMaximisedBorder : shadowBorder;
    if (m_rootLayout)
        m_rootLayout->setContentsMargins(border, border, border, border);
    if (title)
        title->ResetMaxBtn(m_filledLook);
    m_window->update();
}

// ----------------------------------------------------------------------------------------------------------
// closing
//
// The hook runs exactly once per closing, however that begins. Its default, and many an override, call
// QWidget::close(), whose event comes back here while the hook runs: it is then accepted at once, with no
// second call, and although Escape and Alt+F4 may be disabled. A request of the system that comes meanwhile
// is another one; the hook has yet to answer the first, so this one is refused.

void FrameBehaviour::callCloseHook()
{
    if (m_closing)
        return;
    const QPointer<QWidget> alive(m_window);
    const bool outermost = !shownInClosing;
    m_closing = true;
    m_hooks->close();
    if (!alive)
        return;
    m_closing = false;
    if (outermost)
        shownInClosing = false;
}

// A slot that hears of the end may run the window again, which is closed anew then.
void FrameBehaviour::shown()
{
    shownInClosing = shownInClosing || m_closing || closesDown;
    m_closing = closesDown = false;
}

void FrameBehaviour::closeWindow()
{
    const QPointer<QWidget> alive(m_window);
    const bool wasClosing = m_closing; // an application may call the default action outside of any hook
    m_closing = true;
    const bool closed = m_window->close();
    if (!alive)
        return;
    m_closing = wasClosing;
    // Qt's close() does nothing within close(), where the window was shown again.
    auto *dialog = qobject_cast<QDialog *>(m_window);
    if (!closed || !dialog || !shownInClosing || !dialog->isVisible())
        return;
    closesDown = true;
    dialog->reject();
    if (alive)
        closesDown = false;
}

void FrameBehaviour::closeEvent(QCloseEvent *event)
{
    if (m_closing) {
        event->setAccepted(!event->spontaneous());
        return;
    }
    if (escAndF4Disabled) {
        event->ignore();
        return;
    }
    // The event stays accepted whatever the hook does: close() is without effect within close(), so the
    // window being visible after it does not tell a refusal.
    const AnsweringClose answering(m_window);
    callCloseHook();
}

void FrameBehaviour::watch(const QObject *watched, const QEvent *event)
{
    if (!m_parent || watched != m_parent || event->type() != QEvent::Hide)
        return;
    // Minimising the parent is a spontaneous hide: it must not end a dialog.
    if (!event->spontaneous() && m_window->isModal() && m_window->isVisible())
        callCloseHook();
}

// ----------------------------------------------------------------------------------------------------------
// title buttons and keys

void FrameBehaviour::titleButtonClicked(int id)
{
    // Nothing is touched after a hook: it may have deleted the window, and with it this object.
    switch (id) {
    case 2:
        m_hooks->minimise();
        break;
    case 4:
        m_hooks->maximise();
        break;
    case 8:
        callCloseHook();
        break;
    case 16:
        m_hooks->settings();
        break;
    case 64:
        openMenu();
        break;
    case 128:
        m_hooks->previous();
        break;
    case 1024:
        m_hooks->contact();
        break;
    case 2048:
        m_hooks->onlineSupport();
        break;
    default:
        break;
    }
}

void FrameBehaviour::openMenu()
{
    const QWidget *button = titleButton(64);
    if (!button)
        return;
    // Below the bar, at the left edge of the button.
    const int below = button->height() + (title->height() - button->height()) / 2;
    m_hooks->showMenu(button->mapToGlobal(QPoint(0, 0)) + QPoint(0, below));
}

void FrameBehaviour::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (key == Qt::Key_F1) {
        const QPointer<QWidget> alive(m_window);
        m_hooks->help();
        if (!alive)
            return;
    }
    const bool onKeypad = event->modifiers() & Qt::KeypadModifier;
    // In the order of the rules, two of which end alike.
    if (event->modifiers() != Qt::NoModifier && !(onKeypad && key == Qt::Key_Enter))
        event->ignore(); // NOLINT(bugprone-branch-clone)
    else if (key == Qt::Key_Escape && !escAndF4Disabled)
        callCloseHook();
    else if (key == Qt::Key_Return || key == Qt::Key_Enter)
        pressDefaultButton();
    else if (key != Qt::Key_Escape)
        event->ignore();
}

void FrameBehaviour::pressDefaultButton()
{
    const auto buttons = m_window->findChildren<QPushButton *>();
    for (QPushButton *button : buttons) {
        if (!button->isDefault() || !button->isVisible())
            continue;
        if (button->isEnabled() && button->hasFocus())
            button->click();
        return;
    }
}

// ----------------------------------------------------------------------------------------------------------
// placing

void FrameBehaviour::centre()
{
    const QRect area = platform::answers().workArea();
    if (!area.isValid())
        return;
    // The size it will be shown with. The layout first: what changed in nested ones is not measured else.
    if (m_window->layout())
        m_window->layout()->activate();
    if (!m_window->testAttribute(Qt::WA_Resized)) {
        m_window->adjustSize();
        m_window->setAttribute(Qt::WA_Resized, false); // it stays free to follow its content
    }
    const QSize size = m_window->size();
    const QWidget *parent = m_window->parentWidget();
    const QSize reference = parent ? parent->size() : area.size();
    QPoint at((reference.width() - size.width()) / 2, (reference.height() - size.height()) / 2);
    // Without a parent the origin of the work area is not added, only kept to.
    if (parent)
        at = parent->mapToGlobal(at);
    // Of a window larger than the work area the top left part, where the title bar is, stays in reach.
    at.setX(qMax(area.left(), qMin(at.x(), area.left() + area.width() - size.width())));
    at.setY(qMax(area.top(), qMin(at.y(), area.top() + area.height() - size.height())));
    m_window->move(at);
}

} // namespace lumqt
