#include "CBPPopWnd.h"

#include "CBPBox.h"
#include "CBPPushBtn.h"
#include "CBPWinFrmTitle.h"
#include "dialogs/Backdrop.h"
#include "dialogs/ButtonRow.h"
#include "foundation/FocusRing.h"
#include "foundation/Log.h"
#include "foundation/ModalShow.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "platform/Platform.h"
#include "Util.h"

#include <QBackingStore>
#include <QBitmap>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QPaintEngine>
#include <QPainter>
#include <QPropertyAnimation>

namespace {

// Metrics in logical pixels, and times in milliseconds.
constexpr int kFadeTime = 200;
constexpr int kRowSpacing = 12;

constexpr int kClosedResult = 0x100;

// A box that shows what lies below it, so that the body's round corners and the line reach the eye.
CBPBox *clearBox(int spacing)
{
    auto *box = new CBPBox;
    box->setBrush(Qt::NoBrush);
    box->SetSpacing(spacing);
    return box;
}

// Whether what is painted is blended with what lies behind it. A picture that is taken of the widget always
// is: it shows the dialog with its shadow on every screen.
bool isBlended(const QPainter &painter, const QWidget *widget)
{
    if (lumqt::platform::answers().composited())
        return true;
    QBackingStore *screen = widget->backingStore();
    // It has no device before it is painted on.
    if (!screen || screen->size().isEmpty() || !painter.paintEngine())
        return true;
    return painter.paintEngine()->paintDevice() != screen->paintDevice();
}

// Outside of the body, so that the title bar lies within it, too: a shadow alone tells a dark dialog from
// nothing dark.
void drawEdge(QPainter &painter, const QRect &body)
{
    lumqt::Body edge;
    edge.frame = lumqt::themeColor(lumqt::Purpose::PopUpEdge);
    if (edge.frame.alpha() == 0)
        return;
    edge.frameWidth = 2; // one below the body, so that nothing shines through at the corners
    edge.radiusX = edge.radiusY = lumqt::kDialogRadius + 1;
    lumqt::drawBody(painter, body.adjusted(-1, -1, 1, 1), edge);
}

} // namespace

CBPPopWnd::CBPPopWnd(QWidget *parent) : CBPPopWnd(true, parent) {}

CBPPopWnd::CBPPopWnd(bool fadeIn, QWidget *parent) : CBPWinFrm(parent)
{
    if (fadeIn)
        startFadeIn();
}

CBPPopWnd::~CBPPopWnd()
{
    if (m_rowBox && !m_rowBox->parent())
        delete m_rowBox;
}

// From now on, not from when the dialog shows: one that is prepared for longer than this does not fade.
void CBPPopWnd::startFadeIn()
{
    auto *animation = new QPropertyAnimation(this, "windowOpacity", this);
    animation->setDuration(kFadeTime);
    animation->setStartValue(0.0);
    animation->setEndValue(1.0);
    // Some systems blend with the opacity at which something was painted, and not with the one it has now.
    connect(animation, &QPropertyAnimation::valueChanged, this, [this] { update(); });
    animation->start(QAbstractAnimation::KeepWhenStopped);
}

void CBPPopWnd::Init(bool bottomArea)
{
    if (m_rowBox || layout()) {
        qCWarning(lcLumQt, "%s: Init() was called twice, or after another layout was set",
                  metaObject()->className());
        return;
    }
    CBPBox *bottom = nullptr;
    if (bottomArea) {
        // Before the frame lays itself out: it takes no bottom area after that.
        bottom = clearBox(0);
        setStatusBox(bottom);
    }
    CBPWinFrm::Init();
    m_rowBox = clearBox(0);
    m_rowBox->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_preBox = new lumqt::ButtonPart(Qt::AlignLeft, kRowSpacing);
    m_postBox = new lumqt::ButtonPart(Qt::AlignRight, kRowSpacing);
    m_rowBox->PackStart(m_preBox.data());
    m_rowBox->AddSpacerItem(new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Preferred));
    m_rowBox->PackStart(m_postBox.data());
    if (bottom)
        bottom->PackStart(m_rowBox.data());
}

// ----------------------------------------------------------------------------------------------------------
// running and ending

int CBPPopWnd::GetResult() const
{
    return m_result;
}

void CBPPopWnd::SetResult(int result)
{
    m_result = result;
}

void CBPPopWnd::Run()
{
    // The caller asks for the result next, so the dialog is not deleted until that is over.
    const QPointer<CBPPopWnd> alive(this);
    const bool deleteOnClose = testAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_DeleteOnClose, false);
    exec();
    if (!alive || !deleteOnClose)
        return;
    setAttribute(Qt::WA_DeleteOnClose);
    deleteLater();
}

int CBPPopWnd::exec()
{
    if (m_running)
        // The frame's own would move the dialog. It says that it cannot run twice.
        return QDialog::exec(); // NOLINT(bugprone-parent-virtual-call)
    // Shown here and not by the base: what is ended while it is being shown would leave the base in a loop
    // that nobody ends.
    const QPointer<CBPPopWnd> alive(this);
    const bool wasModal = testAttribute(Qt::WA_ShowModal);
    m_running = true;
    wrapRow();
    centre();
    setResult(QDialog::Rejected);
    int code = QDialog::Rejected;
    if (lumqt::showModally(this))
        code = QDialog::exec(); // NOLINT(bugprone-parent-virtual-call): it is shown and centred already
    else if (alive)
        code = result();
    if (alive) {
        setAttribute(Qt::WA_ShowModal, wasModal);
        m_running = false;
    }
    return code;
}

void CBPPopWnd::setVisible(bool visible)
{
    if (visible && !isVisible()) {
        m_ending = false; // a slot shows it again while UnRun() is not over: it can be ended again, too
        wrapRow();
    }
    CBPWinFrm::setVisible(visible);
}

void CBPPopWnd::UnRun()
{
    if (m_ending) // what follows may come back here
        return;
    const QPointer<CBPPopWnd> alive(this);
    const unsigned int endings = m_endings;
    m_ending = true;
    m_quit = true;
    emit sigQuit(static_cast<QObject *>(this));
    if (!alive)
        return;
    if (m_endings == endings)
        done(QDialog::Rejected);
    else // a slot has closed it, which is told only once
        setResult(QDialog::Rejected);
    if (alive)
        m_ending = false;
}

void CBPPopWnd::done(int result)
{
    ++m_endings;
    CBPWinFrm::done(result); // the dialog may be gone after this
}

void CBPPopWnd::OnClose()
{
    if (m_ending) // by an answer, which stays when a slot of sigQuit() closes the dialog or hides its parent
        return;
    m_result = kClosedResult;
    UnRun();
}

void CBPPopWnd::closeEvent(QCloseEvent *event)
{
    if (m_endings > 0 && !isVisible())
        event->accept(); // it has its answer: there is nothing to close
    else
        CBPWinFrm::closeEvent(event);
}

void CBPPopWnd::OnHelp() {}

void CBPPopWnd::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        event->accept(); // a pop-up is answered, not dismissed
    else
        CBPWinFrm::keyPressEvent(event);
}

// ----------------------------------------------------------------------------------------------------------
// size

void CBPPopWnd::SetWndFixedSize(QString key, QSize size, QString group, QString file)
{
    QVariant stored;
    if (Util::readIni(group, key, stored, file)) {
        if (stored.toSize().isValid())
            size = stored.toSize();
        else
            qCWarning(lcLumQt, "%s/%s in %s is no size", qPrintable(group), qPrintable(key),
                      qPrintable(file));
    }
    setFixedSize(size);
}

void CBPPopWnd::setFixedSize(int width, int height)
{
    const QRect area = lumqt::platform::answers().workArea();
    QSize size(qMax(0, width), qMax(0, height));
    // Both, although one may fit: a dialog too large in one direction takes all the room there is.
    if (area.isValid() && (size.width() > area.width() || size.height() > area.height()))
        size = area.size();
    CBPWinFrm::setFixedSize(size);
}

void CBPPopWnd::setFixedSize(QSize size)
{
    setFixedSize(size.width(), size.height());
}

int CBPPopWnd::widest() const
{
    const QRect area = lumqt::platform::answers().workArea();
    return area.isValid() ? qMin(area.width(), maximumWidth()) : maximumWidth();
}

// Buttons that find no room in one row go on in further ones, by which the bottom area is higher.
bool CBPPopWnd::wrapRow()
{
    QWidget *bottom = statusBox();
    if (!layout() || !bottom || !m_rowBox || !m_preBox || !m_postBox || !bottom->isAncestorOf(m_rowBox))
        return false;
    const QMargins around = layout()->contentsMargins() + bottom->contentsMargins();
    const int room = widest() - around.left() - around.right();
    auto *both = static_cast<QBoxLayout *>(m_rowBox->layout());
    const int more =
        lumqt::wrapParts(both, static_cast<const lumqt::ButtonPart &>(*m_preBox),
                         static_cast<const lumqt::ButtonPart &>(*m_postBox), qMax(0, room), kRowSpacing);
    if (more != m_wrappedHeight || (more != 0 && bottom->height() != bottomHeight() + more))
        bottom->setFixedHeight(bottomHeight() + more);
    m_wrappedHeight = more;
    return both->direction() == QBoxLayout::TopToBottom;
}

bool CBPPopWnd::event(QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest && isVisible())
        wrapRow();
    return CBPWinFrm::event(event);
}

// ----------------------------------------------------------------------------------------------------------
// painting

// The frame's margins are the room for the shadow; a maximised dialog has but a pixel of it.
QRect CBPPopWnd::bodyRect() const
{
    if (layout())
        return rect().marginsRemoved(layout()->contentsMargins());
    const int border = qMax(0, shadowBorder());
    return rect().adjusted(border, border, -border, -border);
}

int CBPPopWnd::cornerRadius() const
{
    return isMaximized() ? 0 : lumqt::kDialogRadius;
}

void CBPPopWnd::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (isWindow()) { // a child, as in a form that is being made, lies on its parent
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(rect(), Qt::transparent);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    }
    const QRect whole = bodyRect();
    // Not blended it would be black, and of a mask some systems take no more than its bounding rectangle.
    const bool blended = isBlended(painter, this);
    if (blended && !isMaximized()) {
        lumqt::drawShadow(painter, rect(), whole.left());
        drawEdge(painter, whole);
    }

    // Below the title bar only: the ground would shine through at the bar's own round corners.
    const CBPWinFrmTitle *title = titleBar();
    QRect shown = whole;
    if (title && title->isVisibleTo(this))
        shown.setTop(title->geometry().bottom() + 1);
    lumqt::Body body;
    body.fill = lumqt::themeColor(lumqt::Purpose::PopUpGround);
    if (!blended)
        body.frame = lumqt::themeColor(lumqt::Purpose::PopUpOutline);
    body.radiusX = cornerRadius();
    body.radiusY = cornerRadius();
    painter.setClipRect(shown);
    lumqt::drawBody(painter, whole, body);
    painter.setClipping(false);

    if (statusBox() && statusBox()->isVisibleTo(this) && drawsBottomLine()) {
        const QRectF place(whole.left(), statusBox()->y(), whole.width(), 1);
        QRectF line = lumqt::wholeDevicePixels(painter, place); // from edge to edge of the body
        line.setHeight(lumqt::evenDevicePixels(painter, place).height());
        painter.fillRect(line, lumqt::themeColor(lumqt::Purpose::PopUpLine));
    }
    drawFocusRing(painter);
}

// A button without a frame has no place of its own for the mark of the keyboard focus.
void CBPPopWnd::drawFocusRing(QPainter &painter)
{
    const QWidget *button = framelessFocus();
    if (!button)
        return;
    const QRect place(button->mapTo(this, QPoint(0, 0)), button->size());
    lumqt::drawFocusRing(painter, lumqt::focusRingAround(painter, place));
}

QRect CBPPopWnd::ringAround(const QWidget *button) const
{
    constexpr int reach = lumqt::kRingMargin + 1; // which the ring is rounded up to
    return QRect(button->mapTo(this, QPoint(0, 0)), button->size()).adjusted(-reach, -reach, reach, reach);
}

void CBPPopWnd::showEvent(QShowEvent *event)
{
    if (!event->spontaneous()) {
        arrangeTabOrder();
        openOnAffirmative();
    }
    updateMask();
    CBPWinFrm::showEvent(event);
}

void CBPPopWnd::resizeEvent(QResizeEvent *event)
{
    CBPWinFrm::resizeEvent(event);
    if (isVisible())
        updateMask();
}

// Where windows are not blended with what lies behind them, the room for the shadow would be black.
void CBPPopWnd::updateMask()
{
    if (lumqt::platform::answers().composited()) {
        if (m_masked)
            clearMask();
        m_masked = false;
        return;
    }
    setMask(visibleShape());
    m_masked = true;
}

QRegion CBPPopWnd::visibleShape() const
{
    QBitmap shape(size());
    shape.fill(Qt::color0);
    QPainter painter(&shape);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(bodyRect(), cornerRadius(), cornerRadius());
    painter.end();
    return shape;
}
