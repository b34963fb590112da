#include "CBPJobWindow.h"

#include "CBaseWin.h"
#include "CBPGradientProgressBar.h"
#include "CBPLabel.h"
#include "foundation/ElidedText.h"
#include "foundation/FontLookup.h"
#include "foundation/ModalShow.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "sync/RemainingTime.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

using lumqt::Purpose;

namespace {

// Metrics, in logical pixels.
constexpr int kWidth = 420;
constexpr int kMargin = 20;
constexpr int kTitleHeight = 44;
constexpr int kTextGap = 10; // above the bar
constexpr int kTimeGap = 8;  // below it
constexpr int kTimePixelSize = 12;
constexpr int kLine = 1; // around the bar

constexpr int kCancel = 0x100;
constexpr double kUnknown = -1; // progress

QString titleFor(const QWidget *parent)
{
    const QWidget *window = parent ? parent->window() : nullptr;
    const auto *mainWindow = qobject_cast<const CBaseWin *>(window);
    QString title = mainWindow ? mainWindow->caption() : window ? window->windowTitle() : QString();
    title.remove(QLatin1String("[*]")); // the place for the mark of what has changed
    return title.isEmpty() ? QGuiApplication::applicationDisplayName() : title;
}

// The bar's track is as light as the window: a line around it tells the one from the other, unless the theme
// has one of its own.
class Track : public QWidget
{
public:
    explicit Track(QWidget *bar) : m_row(new QHBoxLayout(this))
    {
        m_row->addWidget(bar);
        follow();
        lumqt::onThemeChange(this, [this] { follow(); });
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        if (isFramed())
            return;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(lumqt::themeColor(Purpose::Rule));
        const qreal radius = height() / 2.0;
        painter.drawRoundedRect(lumqt::wholeDevicePixels(painter, rect()), radius, radius);
    }

private:
    static bool isFramed() { return lumqt::themeColor(Purpose::ProgressFrame).alpha() > 0; }

    // The track that the bar paints ends a pixel before its right and its lower edge.
    void follow()
    {
        const int line = isFramed() ? 0 : kLine;
        m_row->setContentsMargins(line, line, 0, 0);
    }

    QHBoxLayout *m_row;
};

} // namespace

CBPJobWindow::CBPJobWindow(const QString &text, bool cancellable, QWidget *parent)
    : CBPPopWnd(parent), m_cancellable(cancellable), m_remaining(std::make_unique<lumqt::RemainingTime>())
{
    setObjectName(QStringLiteral("id_JobWnd"));
    // On its own it is not a last window whose closing ends the application.
    setAttribute(Qt::WA_QuitOnClose, false);
    Init(cancellable);
    SetTitleHeight(kTitleHeight);
    SetWindowTitle(titleFor(parent));
    // Not on the button: whoever is typing when the window comes up would press it.
    setFocusPolicy(Qt::ClickFocus);
    setFocus();
    makeContent();
    setText(text);
    resetProgress();
    if (m_cancellable) {
        AppendBtn(kCancel);
        SetDrawBottomHLine(false);
    }
    retranslate();
    m_clock.start();
}

void CBPJobWindow::makeContent()
{
    auto *content = new QWidget;
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    const auto label = [](int pixelSize) {
        auto *made = new CBPLabel;
        made->setTextFormat(Qt::PlainText);
        made->setFont(lumqt::uiFont(lumqt::NormalWeight, pixelSize));
        lumqt::keepTheme(made, {{QPalette::WindowText, Purpose::MessageText}});
        return made;
    };
    m_label = label(lumqt::kTextPixelSize);
    m_bar = new CBPGradientProgressBar;
    m_time = label(kTimePixelSize);
    m_time->setMinimumHeight(QFontMetrics(m_time->font()).height()); // also while it cannot be told
    column->addWidget(m_label);
    column->addSpacing(kTextGap);
    column->addWidget(new Track(m_bar));
    column->addSpacing(kTimeGap);
    column->addWidget(m_time);
    const int side = kMargin;
    SetMainBoxBorder(side, 8, side, m_cancellable ? 0 : side);
    SetStatusBoxBorder(side, 4, side, 16);
    AppendContent(content, true, false, 0);
    setFixedSize(kWidth, sizeHint().height());
}

CBPJobWindow::~CBPJobWindow() = default;

void CBPJobWindow::setText(const QString &text)
{
    m_text = text;
    const int room = kWidth - 2 * (kMargin + shadowBorder());
    const QString shown = lumqt::elidedLine(text, m_label->font(), room);
    m_label->setText(shown);
    m_label->setToolTip(shown == text ? QString() : lumqt::toolTipOf(text));
    setAccessibleName(text);
    m_bar->setAccessibleName(text);
}

void CBPJobWindow::setProgress(double progress)
{
    const bool known = progress >= 0; // NaN is not
    m_progress = known ? qMin(progress, 1.0) : kUnknown;
    m_bar->setBusy(!known);
    if (known)
        m_bar->setValue(m_progress);
    tellTime();
}

void CBPJobWindow::resetProgress()
{
    setProgress(kUnknown);
}

void CBPJobWindow::tellTime()
{
    const QString time =
        m_stopping ? tr("The job stops as soon as it can") : m_remaining->text(m_progress, m_clock.elapsed());
    if (m_time->text() != time)
        m_time->setText(time);
}

void CBPJobWindow::open()
{
    setWindowModality(parentWidget() ? Qt::WindowModal : Qt::ApplicationModal);
    // Somebody may be at work in another window, which stays in use.
    const QWidget *active = QApplication::activeWindow();
    setAttribute(Qt::WA_ShowWithoutActivating,
                 parentWidget() && active && active != parentWidget()->window());
    centre();
    lumqt::showModally(this);
}

void CBPJobWindow::cancel()
{
    if (!m_cancellable || m_stopping)
        return;
    m_stopping = true;
    retranslate();
    EnableButton(kCancel, false);
    emit cancelled();
}

void CBPJobWindow::retranslate()
{
    if (m_stopping)
        ResetBtnText(kCancel, tr("Stopping..."));
    tellTime();
}

bool CBPJobWindow::proceedBtnClicked(int)
{
    cancel();
    return false; // it ends with the job
}

// Asked for where the parent is hidden, too, which is no wish to end the job.
void CBPJobWindow::OnClose() {}

void CBPJobWindow::closeEvent(QCloseEvent *event)
{
    // Of the program it is a wish as any other; with Qt 6 the application's end begins with it.
    event->setAccepted(!event->spontaneous());
    if (event->spontaneous())
        cancel();
}

// Past the frame's rules, by which these could close it.
void CBPJobWindow::keyPressEvent(QKeyEvent *event)
{
    const bool altF4 = event->key() == Qt::Key_F4 && event->modifiers().testFlag(Qt::AltModifier);
    if (altF4 || event->matches(QKeySequence::Cancel)) {
        event->accept();
        cancel();
        return;
    }
    CBPPopWnd::keyPressEvent(event);
}

void CBPJobWindow::changeEvent(QEvent *event)
{
    CBPPopWnd::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}
