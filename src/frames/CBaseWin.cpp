#include "CBaseWin.h"

#include "ENState.h"
#include "foundation/FontLookup.h"
#include "foundation/ImageLoader.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "frames/AnsweringClose.h"
#include "frames/FrameGeometry.h"
#include "frames/FramePainter.h"
#include "frames/LowestSize.h"
#include "platform/Platform.h"
#include "platform/WindowFrame.h"
#include "Util.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFontMetrics>
#include <QPainter>
#include <QPaintEvent>
#include <QPointer>

#include <climits>

using namespace lumqt;

namespace {

constexpr int kNoSpace = INT_MIN; // no room of a caption is that

QStringList stateImages(const QString &name)
{
    QStringList images;
    for (const char *state : {"normal", "hover", "press", "disable"})
        images += Util::getResFullPath(QStringLiteral("../res/%1_%2.png").arg(name, QLatin1String(state)));
    return images;
}

QString titleIcon()
{
    return Util::getResFullPath(QStringLiteral("../res/title_logo.png"));
}

// Line breaks become spaces.
QString onOneLine(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String(" "));
    for (const QChar lineBreak : {QChar('\n'), QChar('\r'), QChar('\v'), QChar('\f'),
                                  QChar(QChar::LineSeparator), QChar(QChar::ParagraphSeparator)})
        text.replace(lineBreak, QLatin1Char(' '));
    return text;
}

} // namespace

// What the platform's frame tells and asks, and what the interface of the window does not show.
class CBaseWin::Frame : public platform::WindowFrameClient
{
public:
    explicit Frame(CBaseWin *owner)
        : window(owner), system(platform::WindowFrame::create(owner, this)), lowest(owner)
    {
    }

    QMargins margins() const override
    {
        const int fw = window->frameWidth();
        return QMargins(fw, frame::titleHeight(fw), fw, fw);
    }

    bool pointer(platform::PointerAction action) override;
    platform::FramePart partAt(const QPoint &position) override
    {
        const frame::Part part = framePart(position);
        return part == frame::MaximizeButton                        ? platform::FramePart::MaximizeButton
               : part == frame::Nothing || part == frame::TitleIcon ? platform::FramePart::Bare
                                                                    : platform::FramePart::OtherButton;
    }

    void pointerLeft() override
    {
        bool lit = false;
        for (int id = 0; id < frame::kButtonCount; ++id) // the icon has no looks
            lit |= window->m_btnStates.value(id) != ENStateNormal;
        if (lit) {
            window->resetBtnState();
            paintStates();
        }
    }

    bool isPointerInTitleBar() override { return window->isCursorInTitleBar(); }
    Qt::Edges edgesAt(const QPoint &position, const QSize &size) const override
    {
        return frame::edgesAt(position, size, window->frameWidth());
    }
    void closeRequested() override;
    void sizeClient(tagNCCALCSIZE_PARAMS *params) override { window->onNCCalSize(params); }
    void paintFrame(QPainter &painter, const QSizeF &size, const QRectF &client, const QColor &outside,
                    bool withTitle) override;

    // Paints what the states change, so that a moving pointer costs the same over a window of any size.
    void paintStates()
    {
        int left = INT_MAX;
        for (const QRect &rect : qAsConst(window->m_btnRects))
            left = qMin(left, rect.left());
        const int width = windowWidth();
        if (iconChanged || left >= width)
            window->paintFrame();
        else
            system->repaint(QRect(left, 0, width - left, frame::titleHeight(window->frameWidth())));
    }

    // What lies at `position`, in coordinates of the client area.
    frame::Part framePart(const QPoint &position) const
    {
        const int fw = window->frameWidth();
        return frame::partAt(position + QPoint(fw, frame::titleHeight(fw)), windowWidth(), fw,
                             buttonSizes(window->devicePixelRatioF()), window->m_iconRect);
    }

    int windowWidth() const { return system->clientRect().width() + 2 * window->frameWidth(); }

    // Sizes of the normal images for a surface with `ratio` device pixels to a logical one.
    frame::ButtonSizes buttonSizes(qreal ratio) const
    {
        frame::ButtonSizes sizes;
        for (int id = 0; id < frame::kButtonCount; ++id)
            sizes[id] = logicalSize(paintedPixmap(window->m_btnImages.value(id).value(ENStateNormal), ratio));
        return sizes;
    }

    void fitLowestSize();
    const QString &captionWithin(int space);

    CBaseWin *const window;
    const std::unique_ptr<platform::WindowFrame> system;
    frame::LowestSize lowest;
    CachedText caption;
    QString captionLine;         // on one line
    QString captionShown;        // and as long as there is room for it
    int captionSpace = kNoSpace; // the room; kNoSpace: line or font have changed
    int captionEnd = 0;          // in window coordinates
    QFont captionFont;
    bool captionFontValid = false;
    bool iconChanged = false; // since the whole frame was painted
    bool closing = false;     // onExit() runs
    bool quitting = false;    // and has come to the base's
};

// Every message resets all buttons first, so a button lights up only while the pointer is on it.
bool CBaseWin::Frame::pointer(platform::PointerAction action)
{
    const QPointer<CBaseWin> guard(window);
    CBaseWin *const w = window;
    const bool released = action == platform::PointerAction::Release;
    const int id = w->cursorOnToolButtons();
    w->resetBtnState();
    if (id != frame::Nothing)
        w->m_btnStates[id] = action == platform::PointerAction::Move ? ENStateHover : ENStatePress;
    if (released && id < frame::kButtonCount) {
        w->onTitleBtnClicked(id);
        if (!guard)
            return true;
    }
    if (released)
        w->m_btnStates[id] = ENStateNormal;
    paintStates();
    return id != frame::Nothing;
}

void CBaseWin::Frame::closeRequested()
{
    if (closing || quitting)
        return;
    const QPointer<CBaseWin> guard(window);
    closing = true;
    window->onExit();
    if (guard)
        closing = false;
}

void CBaseWin::Frame::paintFrame(QPainter &painter, const QSizeF &size, const QRectF &client,
                                 const QColor &outside, bool withTitle)
{
    const int fw = window->frameWidth();
    frame::paintFrame(painter, size, client, fw, outside);
    if (!withTitle)
        return;
    // Text and pictures may be higher than the strip.
    painter.setClipRect(QRectF(0, 0, size.width(), client.top()), Qt::IntersectClip);
    const frame::ButtonSizes sizes = buttonSizes(painter.device()->devicePixelRatioF());
    captionEnd = frame::captionEnd(windowWidth(), fw, sizes);
    window->paintCaption(painter);
    const auto rects = frame::paintedRects(windowWidth(), fw, sizes);
    for (int id = frame::kButtonCount - 1; id >= 0; --id)
        window->drawTitleBtns(painter, rects[id].x(), rects[id].y(), id);
}

// The strip with its buttons is to be seen, whatever lies below it.
void CBaseWin::Frame::fitLowestSize()
{
    const int fw = window->frameWidth();
    const qreal ratio = window->devicePixelRatioF();
    const bool hasIcon = !window->m_iconPath.isEmpty();
    const int iconWidth = hasIcon ? logicalSize(loadPixmap(window->m_iconPath, ratio)).width() : 0;
    const QSize whole(frame::lowestWidth(fw, hasIcon, iconWidth, buttonSizes(ratio)),
                      frame::titleHeight(fw) + fw);
    const QMargins frame = margins();
    const QSize client(whole.width() - frame.left() - frame.right(),
                       whole.height() - frame.top() - frame.bottom());
    lowest.fit(client + window->size() - system->clientRect().size());
}

// The caption, with an ellipsis at its end where it is longer than `space`.
const QString &CBaseWin::Frame::captionWithin(int space)
{
    if (space == captionSpace)
        return captionShown;
    captionSpace = space;
    captionShown = captionLine;
    const QFontMetrics metrics(captionFont);
    if (metrics.horizontalAdvance(captionLine) > space) {
        captionShown = metrics.elidedText(captionLine, Qt::ElideRight, space);
        if (metrics.horizontalAdvance(captionShown) > space) // not even the ellipsis
            captionShown.clear();
    }
    return captionShown;
}

CBaseWin::CBaseWin(QWidget *parent) : QMainWindow(parent), m_iconPath(titleIcon())
{
    setWindowTitle(QString());
    init();
    m_frame = std::make_unique<Frame>(this);
    m_frame->fitLowestSize();
    wearPalette(this);
    onThemeChange(this, [this] { // a native frame is no part of what Qt updates
        if (isVisible())
            paintFrame();
    });
}

CBaseWin::~CBaseWin() = default;

void CBaseWin::init()
{
    const QString line = Util::getResFullPath(QStringLiteral("../res/line.png"));
    m_btnImages[frame::ListButton] = stateImages(QStringLiteral("list"));
    m_btnImages[frame::Separator] = QStringList{line, line, line, line};
    m_btnImages[frame::MinimizeButton] = stateImages(QStringLiteral("minimize"));
    m_btnImages[frame::MaximizeButton] = stateImages(QStringLiteral("maximize"));
    m_btnImages[frame::CloseButton] = stateImages(QStringLiteral("close"));
    m_restoreImages = stateImages(QStringLiteral("maximize_restore"));
    resetBtnState();
}

void CBaseWin::resetBtnState()
{
    for (int id = 0; id < frame::kButtonCount; ++id)
        m_btnStates[id] = ENStateNormal;
}

void CBaseWin::setIcon(QString path)
{
    m_iconPath = path;
    m_frame->iconChanged = true;
    m_frame->fitLowestSize();
}

void CBaseWin::showIcon(const QString &path)
{
    setIcon(path);
    repaintAll();
}

void CBaseWin::resetIconPath()
{
    showIcon(titleIcon());
}

// The frame, too, which is not a part of the widget on every platform.
void CBaseWin::repaintAll()
{
    update();
    if (isVisible())
        paintFrame();
}

void CBaseWin::setCaption(QString text)
{
    const bool changes = m_caption != text;
    m_caption = text;
    m_frame->captionLine = onOneLine(text);
    m_frame->captionSpace = kNoSpace;
    setAccessibleName(text);
    repaintAll();
    if (changes)
        emit captionChanged(text);
}

void CBaseWin::setContentWidget(QWidget *content)
{
    setCentralWidget(content);
}

QWidget *CBaseWin::contentWidget() const
{
    return centralWidget();
}

QRect CBaseWin::btnRect(int id)
{
    if (id < 0 || id >= frame::kButtonCount || !m_btnRects.contains(id))
        return QRect();
    return m_btnRects.value(id).adjusted(-frameWidth(), 0, 0, 0);
}

QRect CBaseWin::globalBtnRect(int id)
{
    if (btnRect(id).isEmpty() || isFullScreen())
        return QRect();
    // As the window is now: it may have been resized since it was painted.
    const QRect rect = frame::paintedRects(m_frame->windowWidth(), frameWidth(),
                                           m_frame->buttonSizes(devicePixelRatioF()))[id];
    const QPoint origin = m_frame->system->clientRect().topLeft() - QPoint(frameWidth(), titleHight());
    return QRect(mapToGlobal(origin + rect.topLeft()), rect.size());
}

QPixmap CBaseWin::grabWithFrame()
{
    if (m_frame->system->isInside() || isFullScreen() || isMinimized()) // or there is none
        return grab();
    const QRect client = m_frame->system->clientRect();
    const QMargins around = m_frame->margins();
    const QRect place = client.translated(around.left(), around.top());
    const QSize whole = client.marginsAdded(around).size();
    QPixmap picture(whole * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.drawPixmap(place.topLeft(), grab());
    m_frame->paintFrame(painter, whole, place, Qt::transparent, true);
    return picture;
}

int CBaseWin::frameWidth()
{
    return platform::answers().frameWidth(this);
}

int CBaseWin::titleHight()
{
    return frame::titleHeight(frameWidth());
}

bool CBaseWin::isMaxState()
{
    return m_frame->system->isMaximized();
}

bool CBaseWin::event(QEvent *event)
{
    if (!m_frame) // still under construction
        return QMainWindow::event(event);
    if (event->type() == QEvent::FontChange)
        m_frame->captionFontValid = false;
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show ||
        event->type() == QEvent::ScreenChangeInternal)
        m_frame->fitLowestSize();
    if (event->type() == QEvent::Close) {
        // close() ends the window as its button does; a derived closeEvent() may refuse before.
        const QPointer<CBaseWin> guard(this);
        const AnsweringClose answering(this);
        QMainWindow::event(event);
        if (guard && event->isAccepted()) {
            m_frame->closeRequested();
            event->setAccepted(!guard || !isVisible());
        }
        return true;
    }
    return m_frame->system->event(event) || QMainWindow::event(event);
}

void CBaseWin::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    // All there is where the frame is no part of the widget.
    const QRegion client = event->region() & m_frame->system->clientRect();
    if (!client.isEmpty())
        painter.fillRect(client.boundingRect(), themeColor(Purpose::WindowGround));
    m_frame->system->paintInside(painter, event);
}

bool CBaseWin::nativeEvent(const QByteArray &eventType, void *message, lumqt::NativeResult *result)
{
    return (m_frame && m_frame->system->nativeEvent(message, result)) ||
           QMainWindow::nativeEvent(eventType, message, result);
}

void CBaseWin::onExit()
{
    if (m_frame->quitting)
        return;
    const QPointer<CBaseWin> guard(this);
    m_frame->quitting = true;
    hide();
    if (guard)
        Q_EMIT sigQuit(static_cast<QObject *>(this));
    if (guard)
        m_frame->quitting = false;
    QCoreApplication::exit(0);
}

bool CBaseWin::titleBtnClicked(int)
{
    return false;
}

void CBaseWin::onTitleBtnClicked(int id)
{
    const QPointer<CBaseWin> guard(this);
    if (titleBtnClicked(id) || !guard)
        return;
    if (id == frame::MinimizeButton)
        showMinimized();
    else if (id == frame::MaximizeButton)
        isMaxState() ? showNormal() : showMaximized();
    else if (id == frame::CloseButton)
        m_frame->closeRequested();
}

void CBaseWin::drawTitleBtns(QPainter &painter, int x, int y, int id)
{
    if (id < 0 || id >= frame::kButtonCount)
        return;
    const QStringList images =
        id == frame::MaximizeButton && isMaxState() ? m_restoreImages : m_btnImages.value(id);
    const QPixmap pixmap =
        paintedPixmap(images.value(m_btnStates.value(id)), painter.device()->devicePixelRatioF());
    painter.drawPixmap(x, y, pixmap);
    m_btnRects[id] = QRect(QPoint(x, y), logicalSize(pixmap));
}

void CBaseWin::paintFrame()
{
    m_frame->system->repaint(QRect());
    m_frame->iconChanged = false;
}

void CBaseWin::paintCaption(QPainter &painter)
{
    const int fw = frameWidth();
    painter.save();
    m_iconRect = QRect();
    const bool hasIcon = !m_iconPath.isEmpty();
    if (hasIcon) {
        const QPixmap icon = paintedPixmap(m_iconPath, painter.device()->devicePixelRatioF());
        m_iconRect = frame::iconRect(fw, logicalSize(icon));
        painter.drawPixmap(m_iconRect.topLeft(), icon);
    }
    if (!m_frame->captionFontValid) {
        m_frame->captionFont = font();
        m_frame->captionFont.setFamily(GetFontFamily(NormalWeight));
        m_frame->captionFontValid = true;
        m_frame->captionSpace = kNoSpace;
    }
    painter.setPen(themeColor(Purpose::WindowCaptionText));
    const QRect rect = frame::captionRect(fw, hasIcon, m_iconRect.width());
    m_frame->caption.drawLeft(painter, rect, m_frame->captionWithin(m_frame->captionEnd - rect.left()),
                              m_frame->captionFont);
    painter.restore();
}

void CBaseWin::onNCCalSize(tagNCCALCSIZE_PARAMS *params)
{
    m_frame->system->shrinkToClient(params);
}

bool CBaseWin::isCursorInTitleBar()
{
    const QRect bar = frame::titleBarRect(m_frame->system->clientRect().width(), frameWidth(), isMaxState());
    return bar.contains(m_frame->system->pointer() + QPoint(0, titleHight()));
}

int CBaseWin::cursorOnToolButtons()
{
    return m_frame->framePart(m_frame->system->pointer());
}
