#pragma once

#include "CBPWinFrmTitle.h"

#include <QElapsedTimer>
#include <QMargins>
#include <QPoint>
#include <QPointer>
#include <QSize>
#include <QVBoxLayout>
#include <QWidget>

#include <functional>
#include <memory>

class CBPImageButton;
class QCloseEvent;
class QKeyEvent;

namespace lumqt {

// The virtual operations of a framed window, as the behaviour calls them. Any of them may delete the window.
class FrameHooks
{
public:
    virtual ~FrameHooks() = default;
    virtual void maximise() = 0;
    virtual void close() = 0;
    virtual void minimise() = 0;
    virtual void settings() = 0;
    virtual void help() = 0;
    virtual void previous() = 0;
    virtual void contact() = 0;
    virtual void onlineSupport() = 0;
    virtual void showMenu(const QPoint &globalPos) = 0;
};

// Those of a class that names them as the two framed windows do.
template <class Window> class HooksOf final : public FrameHooks
{
public:
    explicit HooksOf(Window *window) : m_window(window) {}
    void maximise() override { m_window->OnMax(); }
    void close() override { m_window->OnClose(); }
    void minimise() override { m_window->OnMin(); }
    void settings() override { m_window->OnSetting(); }
    void help() override { m_window->OnHelp(); }
    void previous() override { m_window->PreBtnClick(); }
    void contact() override { m_window->QQBtnClick(); }
    void onlineSupport() override { m_window->OnlineSupportClick(); }
    void showMenu(const QPoint &globalPos) override { m_window->ShowMenu(globalPos); }

private:
    Window *const m_window;
};

// What the framed windows have in common: the fields, the layout and the work of their operations, for a
// top-level widget that owns this object. Operations on parts that do not exist do nothing.
class FrameBehaviour
{
public:
    FrameBehaviour(QWidget *window, std::unique_ptr<FrameHooks> hooks, QWidget *parent);
    ~FrameBehaviour();

    // Builds the layout; once. Clicks on title buttons go to `callback` with `context`.
    void init(void (*callback)(void *, int), void *context);

    // Calls an operation of the title bar, if there is one.
    template <class Operation, class... Arguments>
    void onTitle(Operation operation, Arguments &&...arguments) const
    {
        if (title)
            std::invoke(operation, title.data(), arguments...);
    }

    // What the title bar answers; `without` where there is none.
    template <class Question, class Answer> Answer ofTitle(Question question, Answer without) const
    {
        return title ? Answer(std::invoke(question, title.data())) : without;
    }

    void setWindowTitle(const QString &text, bool isImage);
    void setStatusBox(QWidget *box);
    void appendContent(QWidget *widget, bool expand, unsigned int spacing);
    // The one content of a form, instead of the one before; before init() it waits for that.
    void setContent(QWidget *widget);
    void setMainBoxBorder(const QMargins &margins);
    void setStatusBoxBorder(const QMargins &margins);
    void setBottomHeight(int height);
    void setDrawBottomLine(bool draw);
    void setShadowBorder(int border);
    CBPImageButton *titleButton(int id) const;

    // By toggleMaximised(), or by QWidget::showMaximized() and the system.
    bool isMaximised() const;
    // To be told of the window's own events.
    void windowStateChanged();
    void moved();
    void shown();

    // The default actions of the hooks of the same names.
    void toggleMaximised();
    void closeWindow();

    // Calls the close hook. While it runs, closing the window is not asked about again.
    void callCloseHook();

    void titleButtonClicked(int id);
    void openMenu();

    void closeEvent(QCloseEvent *event);
    void keyPressEvent(QKeyEvent *event);
    void watch(const QObject *watched, const QEvent *event);

    // Places the window over its parent, or in the middle of the work area.
    void centre();

    QPointer<CBPWinFrmTitle> title;
    QPointer<QVBoxLayout> contentBox;
    QPointer<QWidget> statusBox;
    QPointer<QWidget> content; // of setContent()
    int shadowBorder;
    bool isWinPE = false;
    bool escAndF4Disabled = false;
    bool closesDown = false;     // a close event that was let through ends the window
    bool shownInClosing = false; // again, by whom the end was told
    int bottomHeight;
    bool drawBottomLine = true;

private:
    void pressDefaultButton();
    void showMaximisedLook();

    QWidget *const m_window;
    const std::unique_ptr<FrameHooks> m_hooks;
    QPointer<QWidget> m_parent; // as given to the constructor
    QPointer<QVBoxLayout> m_rootLayout;
    QMargins m_mainBoxMargins;
    QMargins m_statusBoxMargins;
    QPoint m_savedPosition; // global, before maximising
    QSize m_savedSize;
    bool m_maximised = false; // by toggleMaximised()
    bool m_filledLook = false;
    QPoint m_maximisedAt; // global
    QElapsedTimer m_sinceRestored;
    bool m_closing = false; // the close hook runs
};

// What frames have at first, for who wants it back; in logical pixels.
constexpr int kFrameTitleHeight = 60;
constexpr int kFrameBottomHeight = 70;
constexpr int kFrameShadowBorder = 10;

} // namespace lumqt
