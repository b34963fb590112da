#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPImageButton.h"
#include "CBPMenu.h"
#include "CBPPushBtn.h"
#include "CBPWinFrm.h"
#include "CBPWinFrmTitle.h"
#include "CBPWinWidget.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>

namespace {

constexpr int kColumns = 2;
constexpr int kSampleWidth = 420;
constexpr int kRadius = 12;
// As light as the grey pictures of the buttons allow: 3:1.
constexpr theme::Tone kTealBar{0xff1f3d55, theme::Purpose::TitleGround, theme::Purpose::SecondAccent, 15};
constexpr int kStep = 9 * theme::kUnit; // from the gallery to a window of its own

enum TitleId {
    Minimize = 2,
    Maximize = 4,
    Close = 8,
    Menu = 64,
    Back = 128,
    Icon = 256,
    Title = 512,
    Support = 2048,
    Offer = 4096,
};
constexpr int kAllButtons = Minimize | Close | Menu | Back | Support | Offer;

constexpr theme::Tone kShadow{0xff141c2c, theme::Purpose::Shadow};

// A soft shadow within `border` pixels around a white body. The picture is kept until size, density or theme change.
class Backdrop
{
public:
    void paint(QWidget *window, int border)
    {
        const qreal ratio = window->devicePixelRatioF();
        const QSize size = window->size() * ratio;
        const QColor ground = theme::kGround;
        if (m_picture.size() != size || m_border != border || m_ground != ground) {
            m_ground = ground;
            m_border = border;
            m_picture = QPixmap(size);
            m_picture.setDevicePixelRatio(ratio);
            m_picture.fill(Qt::transparent);
            draw(QRectF(window->rect()));
        }
        QPainter painter(window);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawPixmap(0, 0, m_picture);
    }

private:
    void draw(const QRectF &rect)
    {
        QPainter painter(&m_picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        for (int ring = 0; ring < m_border; ++ring) { // from the outermost in, each over the last
            const qreal depth = qreal(ring + 1) / m_border;
            QColor shadow = kShadow;
            shadow.setAlpha(qRound(16 * depth * depth));
            painter.setBrush(shadow);
            const qreal corner = kRadius + m_border - ring;
            painter.drawRoundedRect(rect.adjusted(ring, ring, -ring, -ring), corner, corner);
        }
        painter.setBrush(m_ground);
        if (m_ground.lightness() < 128) // a shadow alone is hard to see there
            painter.setPen(theme::kLine);
        const qreal border = m_border;
        // White would shine through at the title bar's own round corners.
        painter.setClipRect(rect.adjusted(0, border + kRadius, 0, 0));
        painter.drawRoundedRect(rect.adjusted(border, border, -border, -border), kRadius, kRadius);
    }

    QPixmap m_picture;
    int m_border = -1;
    QColor m_ground;
};

// What derived classes leave to be painted, and a log of the hooks.
template <class Base> class Framed : public Base
{
public:
    explicit Framed(QWidget *parent, EventLog *log = nullptr) : Base(parent), m_log(log) {}

    // The bottom area: `buttons` at its right end.
    void addBottom(const QVector<CBPPushBtn *> &buttons)
    {
        auto *bottom = new QWidget;
        auto *row = new QHBoxLayout(bottom);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(12);
        row->addStretch();
        for (CBPPushBtn *button : buttons) {
            button->setFixedSize(96, 36);
            row->addWidget(button, 0, Qt::AlignBottom);
        }
        this->setStatusBox(bottom);
    }

    void build(const QString &title, int parts)
    {
        this->Init();
        this->SetMainBoxBorder(16, 20, 16, 16);
        this->SetStatusBoxBorder(16, 12, 16, 16);
        this->SetWindowTitle(title);
        this->ShowTitleBtn(parts, true);
    }

    void paintTitle(const QColor &color) { this->titleBar()->SetTitleClr(color); }

    void addText(const QString &text)
    {
        this->AppendContent(theme::label(text, theme::Normal, 14, theme::kText, true), false, false, 8);
    }

    void addMaximizeButton()
    {
        QVector<QString> images;
        for (const char *state : {"normal", "hover", "press", "disable"})
            images << theme::picturePath(QString("maximize_%1.png").arg(state));
        auto *button = new CBPImageButton(images, false, Maximize, nullptr);
        button->setFocusPolicy(Qt::NoFocus);
        button->SetBorder(0, false);
        button->setAccessibleName("Maximize");
        QObject::connect(button, SIGNAL(btn_released(int)), this->titleBar(), SLOT(on_btn_clicekedSlot(int)));
        this->titleBar()->InsertWidget(8, button, 0, Qt::AlignCenter);
        auto *gap = new QWidget; // no wider than the spacing on both its sides
        gap->setFixedSize(0, 0);
        this->titleBar()->InsertWidget(9, gap, 0, Qt::AlignCenter);
    }

    void OnMax() override
    {
        log("OnMax()");
        Base::OnMax();
    }
    void OnClose() override
    {
        log("OnClose()");
        Base::OnClose();
    }
    void OnMin() override
    {
        log("OnMin()");
        Base::OnMin();
    }
    void OnHelp() override { log("OnHelp()"); }
    void PreBtnClick() override { log("PreBtnClick()"); }
    void OnlineSupportClick() override { log("OnlineSupportClick()"); }
    // Not marked: the template is also made of the class that has no such hook.
#if defined(__clang__)
#pragma clang diagnostic ignored "-Winconsistent-missing-override"
#endif
    virtual void DiscountBtnSlot()
    {
        log("DiscountBtnSlot()");
    } // a hook of the dialog only
    void ShowMenu(const QPoint &globalPos) override
    {
        log("ShowMenu()");
        this->SetHasNewVersion(false);
        auto *menu = new CBPMenu(this);
        menu->setAttribute(Qt::WA_DeleteOnClose);
        for (const char *text : {"Check for a new version", "Settings", "About"})
            menu->AddAction(QString(text), menu->actions().size() + 1);
        menu->popup(globalPos);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        m_backdrop.paint(this, this->isMaximized() ? 1 : this->shadowBorder());
        if (!this->statusBox() || !this->drawsBottomLine())
            return;
        QPainter painter(this);
        const QRect bottom = this->statusBox()->geometry();
        // A line of whole device pixels is sharp at 150 per cent, too.
        const qreal ratio = this->devicePixelRatioF();
        painter.fillRect(QRectF(bottom.left(), qRound(bottom.top() * ratio) / ratio, bottom.width(),
                                qMax(1, qRound(ratio)) / ratio),
                         theme::kLine);
    }

private:
    void log(const char *hook)
    {
        if (m_log)
            m_log->add(hook);
    }

    Backdrop m_backdrop;
    QPointer<EventLog> m_log;
};

using Dialog = Framed<CBPWinFrm>;

CBPPushBtn *primary(const QString &text)
{
    auto *button = new CBPPushBtn(text, nullptr);
    theme::fillWaitingButton(button); // white is 5:1 on the accent
    theme::follow(button, [button] { button->setTextColor(theme::onAccents()); });
    return button;
}

// ----------------------------------------------------------------------------------------------------------
// title bars

CBPWinFrmTitle *bar(int parts, const QString &title = "Title")
{
    auto *bar = new CBPWinFrmTitle(nullptr);
    bar->setAttribute(Qt::WA_TransparentForMouseEvents);
    bar->setFixedWidth(kSampleWidth);
    bar->SetTitle(title, false);
    bar->ShowTitleBtn(parts, true);
    return bar;
}

CBPWinFrmTitle *posedBar(pose::State state)
{
    CBPWinFrmTitle *posed = bar(kAllButtons, QString());
    const auto buttons = posed->findChildren<CBPImageButton *>();
    for (auto *button : buttons)
        pose::put(button, state);
    return posed;
}

CBPWinFrmTitle *iconBar()
{
    CBPWinFrmTitle *withIcon = bar(Close, "Icon and title");
    QString logo = theme::picturePath("title_logo.png");
    withIcon->SetLog(logo);
    return withIcon;
}

CBPWinFrmTitle *versionBar()
{
    CBPWinFrmTitle *dotted = bar(Menu | Minimize | Close, "A new version");
    dotted->SetHasNewVersion(true);
    return dotted;
}

CBPWinFrmTitle *gradientBar()
{
    CBPWinFrmTitle *filled = bar(Minimize | Close, "Gradient, text colour");
    theme::follow(filled, [filled] {
        QLinearGradient gradient(0, 0, kSampleWidth, 0);
        gradient.setColorAt(0, theme::kSide);
        gradient.setColorAt(1, kTealBar);
        filled->setLinerBrush(gradient);
        filled->SetTitleClr(theme::kSideMarked);
    });
    return filled;
}

CBPWinFrmTitle *squareBar()
{
    CBPWinFrmTitle *square = bar(Minimize | Close, "Square corners");
    square->SetRoundRectEnabled(false);
    return square;
}

void addTitleBars(Page *page)
{
    page->addSection(
            "Title bar",
            "CBPWinFrmTitle holds, from the left, the icon, the title and the back button, and from the "
            "right "
            "the buttons for closing, minimising, the menu, support and an offer. Each part is shown on "
            "request. The offer has two pictures for its four states, on purpose.")
        ->addColumns(kColumns, {{"At rest", posedBar(pose::Normal)},
                                {"Under the pointer", posedBar(pose::Hovered)},
                                {"Pressed", posedBar(pose::Pressed)},
                                {"Disabled", posedBar(pose::Disabled)},
                                {"An icon and a title", iconBar()},
                                {"The dot of a new version", versionBar()},
                                {"Another ground and text colour", gradientBar()},
                                {"Square corners", squareBar()},
                                {"A title that finds no room",
                                 bar(Menu | Minimize | Close, "A title that is much too long for a bar")},
                                {"A title and the back button", bar(Back | Close, "One step further")}});
}

// ----------------------------------------------------------------------------------------------------------
// windows

QPixmap plainPortrait()
{
    Dialog dialog(nullptr);
    dialog.build("Title", Close);
    dialog.addText("Content below the title bar, and room for a shadow on all four sides.");
    return pose::portrait(dialog, kSampleWidth, 200);
}

QPixmap bottomPortrait(bool line)
{
    Dialog dialog(nullptr);
    dialog.addBottom({new CBPPushBtn("Cancel", nullptr), primary("OK")});
    dialog.build("Title", Minimize | Close);
    dialog.SetDrawBottomHLine(line);
    dialog.addText(line ? "A bottom area for buttons, with a line above it."
                        : "A bottom area without the line.");
    return pose::portrait(dialog, kSampleWidth, 224);
}

QPixmap lowTitlePortrait()
{
    Dialog dialog(nullptr);
    dialog.build("Title of 40 pixels", Menu | Close);
    dialog.SetTitleHeight(40);
    dialog.SetTitleBg(kTealBar);
    dialog.paintTitle(theme::kSideMarked);
    dialog.addText("Height and ground of the title bar can be changed.");
    return pose::portrait(dialog, kSampleWidth, 200);
}

void addPortraits(Page *page)
{
    page->addSection("Windows", "The frame lays out the title bar, the content and the bottom area. Derived "
                                "classes paint the body, "
                                "the shadow and the line.")
        ->addColumns(kColumns, {{"A title bar and content", pose::shown(plainPortrait)},
                                {"A low title bar", pose::shown(lowTitlePortrait)},
                                {"A bottom area with a line", pose::shown([] { return bottomPortrait(true); })},
                                {"A bottom area without a line", pose::shown([] { return bottomPortrait(false); })}});
}

// Modal: a field and two buttons, to be used by keyboard from opening to closing.
void runModal(QWidget *parent, EventLog *log)
{
    QPointer<Dialog> dialog(new Dialog(parent, log));
    auto *cancel = new CBPPushBtn("Cancel", nullptr);
    CBPPushBtn *ok = primary("OK");
    ok->setDefault(true);
    dialog->addBottom({cancel, ok});
    dialog->build("Modal", Close);
    dialog->addText(
        "Tab goes through field and buttons. Return presses the one with the focus, Escape closes, "
        "F1 asks for help.");
    auto *field = new QLineEdit;
    field->setMinimumHeight(32);
    field->setAccessibleName("Name");
    dialog->AppendContent(field, false, false, 0);
    dialog->setFixedWidth(460);
    QObject::connect(ok, &CBPPushBtn::sigBtnClicked, dialog, &QDialog::accept);
    QObject::connect(cancel, &CBPPushBtn::sigBtnClicked, dialog, &QDialog::reject);
    field->setFocus();
    const QPointer<EventLog> alive(log);
    const int result = dialog->exec();
    if (alive)
        alive->add(QString("exec() returned %1").arg(result));
    delete dialog;
}

template <class Window> void openWindow(QWidget *parent, EventLog *log, const QString &title)
{
    auto *window = new Window(parent, log);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->build(title, kAllButtons);
    window->addMaximizeButton();
    window->ShowTitleBtn(Maximize, true);
    window->SetHasNewVersion(true);
    window->addText(
        "Drag it by the title bar. The maximise button was added by the window; every button calls "
        "a hook, and so does F1.");
    window->AppendContent(new QWidget, true, false, 0);
    window->resize(640, 280);
    window->move(parent->window()->mapToGlobal(QPoint(kStep, kStep)));
    window->show();
}

void openStubborn(QWidget *parent, EventLog *log)
{
    auto *dialog = new Dialog(parent, log);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->build("Escape does nothing", Close);
    dialog->SetDisableEscAndF4Flag(true);
    dialog->addText("Neither Escape nor Alt+F4 close this one. Its close button does.");
    dialog->setFixedWidth(420);
    dialog->open();
}

CBPPushBtn *opener(const QString &text, EventLog *log, void (*open)(QWidget *, EventLog *))
{
    auto *button = new CBPPushBtn(text, nullptr);
    button->setFixedWidth(184);
    QObject::connect(button, &CBPPushBtn::sigBtnClicked, log, [log, open] { open(log->window(), log); });
    return button;
}

Page *makePage()
{
    auto *page =
        new Page("Framed windows", "CBPWinFrm and CBPWinWidget: a frameless dialog and a frameless window "
                                   "with the library's title bar, CBPWinFrmTitle.");
    Section *section =
        page->addSection("Try it", "Each window reports the hooks that its buttons and keys call.");
    auto *log = new EventLog("No hook yet: open a window and use its title bar.");
    section->addSamples(
        {{"exec() centres the dialog", opener("Run a dialog", log, &runModal)},
         {"CBPWinFrm, not modal",
          opener("Open a dialog", log,
                 [](QWidget *parent, EventLog *to) { openWindow<Dialog>(parent, to, "Dialog"); })},
         {"CBPWinWidget", opener("Open a window", log,
                                 [](QWidget *parent, EventLog *to) {
                                     openWindow<Framed<CBPWinWidget>>(parent, to, "Window");
                                 })},
         {"Escape and Alt+F4 do nothing", opener("Open a stubborn one", log, &openStubborn)}});
    section->addWide(log);
    addTitleBars(page);
    addPortraits(page);
    return page;
}

void registerThis()
{
    registerPage({"framed-windows", "Framed windows", PageGroup::Windows, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
