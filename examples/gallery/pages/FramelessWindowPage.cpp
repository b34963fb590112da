#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBaseWin.h"
#include "CBPPushBtn.h"

#include <QGuiApplication>
#include <QHoverEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QVBoxLayout>

namespace {

constexpr int kStep = 9 * theme::kUnit; // from the gallery to a second window
constexpr QSize kPortraitSize(420, 120);
enum { MinimizeButton = 3, MaximizeButton = 4, CloseButton = 5 };

// A second window: unlike the main one it ends by itself and not the application.
class SecondWindow : public CBaseWin
{
public:
    SecondWindow(const QString &caption, const QString &text, EventLog *log) : CBaseWin(nullptr), m_log(log)
    {
        setCaption(caption);
        setWindowTitle(caption);
        setAttribute(Qt::WA_DeleteOnClose, false);
        auto *content = new QWidget;
        auto *layout = new QVBoxLayout(content);
        layout->setContentsMargins(3 * theme::kUnit, 3 * theme::kUnit, 3 * theme::kUnit, 3 * theme::kUnit);
        layout->addWidget(theme::label(text, theme::Normal, 14, theme::kText, true));
        layout->addStretch();
        setCentralWidget(content);
        resize(460, 260);
    }

    // The close button then only reports.
    void setKeptOpen(bool keptOpen) { m_keptOpen = keptOpen; }

protected:
    bool titleBtnClicked(int id) override
    {
        const bool kept = m_keptOpen && id == CloseButton;
        if (m_log)
            m_log->add(QString("titleBtnClicked(%1)%2").arg(id).arg(kept ? ", kept open" : ""));
        return kept;
    }

    void onExit() override
    {
        if (m_log)
            m_log->add("onExit()");
        hide();
        emit sigQuit(static_cast<QObject *>(this));
        deleteLater();
    }

private:
    QPointer<EventLog> m_log;
    bool m_keptOpen = false;
};

CBPPushBtn *opener(const QString &text, bool keptOpen, EventLog *log)
{
    auto *button = new CBPPushBtn(text, nullptr);
    button->setFixedWidth(184);
    QObject::connect(button, &CBPPushBtn::sigBtnClicked, log, [keptOpen, log] {
        auto *window = new SecondWindow(
            keptOpen ? "Cannot be closed by its button" : "A second window",
            keptOpen
                ? "titleBtnClicked() answers true for the close button, which keeps the built-in action from "
                  "happening. Alt+F4 still closes."
                : "Drag the title strip, double-click it, pull the borders, press the buttons.",
            log);
        window->setKeptOpen(keptOpen);
        QObject::connect(log, &QObject::destroyed, window, &QObject::deleteLater);
        window->move(log->window()->mapToGlobal(QPoint(kStep, kStep)));
        window->show();
        window->activateWindow();
    });
    return button;
}

// Native frames lie outside of the widget, and are told of the pointer by the system alone.
bool frameIsNative()
{
    return QGuiApplication::platformName() == QLatin1String("windows");
}

// A small window that is only photographed.
class PosedWindow : public CBaseWin
{
public:
    explicit PosedWindow(const QString &caption) : CBaseWin(nullptr)
    {
        setCaption(caption);
        setAttribute(Qt::WA_DontShowOnScreen);
        fit(kPortraitSize);
        grabWithFrame(); // lays the frame out
    }

    // The size is that of the frame.
    void fit(QSize whole)
    {
        if (frameIsNative())
            whole -= QSize(2 * frameWidth(), titleHight() + frameWidth());
        resize(whole);
    }

    void pointAt(int id, bool pressed)
    {
        QRect target = btnRect(id);
        target.setLeft(target.left() + frameWidth());
        const QPointF pos = target.center();
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
        QHoverEvent hover(QEvent::HoverMove, pos, mapToGlobal(pos), QPointF(0, 0));
#else
        QHoverEvent hover(QEvent::HoverMove, pos, QPointF(0, 0));
#endif
        QCoreApplication::sendEvent(this, &hover);
        if (!pressed)
            return;
        QMouseEvent press(QEvent::MouseButtonPress, pos, mapToGlobal(pos.toPoint()), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(this, &press);
    }
};

QWidget *windowAtRest(const QString &caption, const QString &icon, bool narrow = false)
{
    return pose::shown([=] {
        PosedWindow window(caption);
        window.setIcon(icon);
        if (narrow)
            window.resize(window.minimumWidth(), window.height());
        return window.grabWithFrame();
    });
}

QWidget *windowWithPointer(int id, bool pressed)
{
    return pose::shown([=] {
        PosedWindow window(pressed ? "Pressed" : "Under the pointer");
        window.pointAt(id, pressed);
        return window.grabWithFrame();
    });
}

void addFrames(Page *page)
{
    const QString logo = theme::picturePath("title_logo.png");
    QVector<Sample> samples{
        {"At rest", windowAtRest("Caption", logo)},
        {"Without an icon", windowAtRest("Caption", QString())},
        {"A caption that is too long",
         windowAtRest("A caption that would run on below the buttons of the strip", logo)},
        {"As narrow as it gets", windowAtRest("Caption", logo, true)}};
    if (!frameIsNative()) {
        samples << Sample{"Minimise, under the pointer", windowWithPointer(MinimizeButton, false)}
                << Sample{"Close, under the pointer", windowWithPointer(CloseButton, false)}
                << Sample{"Maximise, pressed", windowWithPointer(MaximizeButton, true)}
                << Sample{"Close, pressed", windowWithPointer(CloseButton, true)};
    }
    const QString pointer =
        frameIsNative()
            ? " Only the system can tell this frame of the pointer: open a window above to see its "
              "buttons hovered and pressed."
            : "";
    page->addSection(
            "Frame",
            QString(
                "The strip at the top holds the icon, the caption and the buttons. The library paints it, "
                "the system moves and resizes the window. The line below the strip runs into the right "
                "border on purpose. grabWithFrame() takes these pictures.") +
                pointer)
        ->addColumns(2, samples);
}

Page *makePage()
{
    auto *page =
        new Page("Frameless window", "CBaseWin: a main window that draws its own title strip and border. The "
                                     "gallery's own window is one.");
    Section *section = page->addSection(
        "Try it", "Each window reports which of its caption buttons was clicked: 1 is the list, 3 minimise, "
                  "4 maximise and 5 close; -1 is a click beside them.");
    auto *log = new EventLog("No click yet: open a window and use its caption buttons.");
    section->addSamples({{"Its buttons do what they show", opener("Open a window", false, log)},
                         {"Its close button only reports", opener("Open a stubborn one", true, log)}});
    section->addWide(log);
    addFrames(page);
    return page;
}

void registerThis()
{
    registerPage({"frameless-window", "Frameless window", PageGroup::Windows, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
