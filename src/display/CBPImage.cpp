#include "CBPImage.h"

#include "foundation/Accessible.h"
#include "foundation/EmbeddedRes.h"
#include "foundation/FocusMark.h"
#include "foundation/FocusRing.h"
#include "foundation/ImageLoader.h"
#include "foundation/Palette.h"
#include "foundation/PressKeys.h"
#include "foundation/StyledGround.h"

#include <QFileInfo>
#include <QImageReader>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

namespace {

// A picture, or a button while it can be clicked: only then it takes the focus.
class AccessibleImage : public lumqt::AccessiblePressable
{
public:
    explicit AccessibleImage(QWidget *image) : AccessiblePressable(image, QAccessible::Graphic) {}

    QAccessible::Role role() const override
    {
        return clickable() ? QAccessible::PushButton : QAccessible::Graphic;
    }

protected:
    bool isPressable() const override { return clickable(); }
    void press() override { emit static_cast<CBPImage *>(widget())->sigImgClick(); }

private:
    bool clickable() const { return widget() && widget()->focusPolicy() != Qt::NoFocus; }
};

QAccessibleInterface *makeAccessible(QWidget *widget)
{
    return qobject_cast<CBPImage *>(widget) ? new AccessibleImage(widget) : nullptr;
}

// A path may leave the suffix out, as that of a QPixmap may.
QString fileOf(const QString &name)
{
    const QString path = lumqt::fileToRead(name);
    if (path.isEmpty() || QFileInfo(path).isFile()) // a folder may have the picture's name
        return path;
    const QList<QByteArray> formats = QImageReader::supportedImageFormats();
    for (const QByteArray &format : formats) {
        const QString file = path + QLatin1Char('.') + QString::fromLatin1(format);
        if (QFileInfo(file).isFile())
            return file;
    }
    return path;
}

} // namespace

CBPImage::CBPImage()
{
    lumqt::installAccessible(staticMetaObject.className(), makeAccessible);
    // Not when it is painted: that would paint it, and all that is below it, once more.
    lumqt::onThemeChange(this, [this] { followTheme(); });
}

CBPImage::CBPImage(QString path) : CBPImage()
{
    SetImageRes(path);
}

CBPImage::CBPImage(const char *path) : CBPImage(QString::fromUtf8(path)) {}

CBPImage::~CBPImage() = default;

void CBPImage::SetImageRes(QString path)
{
    m_path = path;
    load();
}

QString CBPImage::imagePath() const
{
    return m_path;
}

void CBPImage::SetChgCursor(bool change)
{
    m_clickable = change;
    m_spaceDown = false;
    setCursor(change ? Qt::PointingHandCursor : Qt::ArrowCursor);
    setFocusPolicy(change ? Qt::TabFocus : Qt::NoFocus);
    if (!change)
        clearFocus();
    showRing();
}

bool CBPImage::hasHandCursor() const
{
    return m_clickable;
}

// Around the picture, which reaches the edges.
void CBPImage::showRing()
{
    lumqt::setRingAround(this, m_clickable && m_focusMark == lumqt::FocusMark::Shown);
}

void CBPImage::load()
{
    m_ratio = devicePixelRatioF();
    const QPixmap picture = lumqt::loadPixmap(fileOf(m_path), m_ratio);
    m_key = picture.cacheKey();
    setPixmap(picture);
    setFixedSize(lumqt::logicalSize(picture));
}

// The picture alone: the size may be the application's by now. So may the picture.
void CBPImage::followTheme()
{
    if (m_path.isEmpty() || pixmap(Qt::ReturnByValue).cacheKey() != m_key)
        return;
    const QPixmap picture = lumqt::loadPixmap(fileOf(m_path), m_ratio);
    if (picture.isNull() || picture.cacheKey() == m_key)
        return;
    m_key = picture.cacheKey();
    setPixmap(picture);
}

// ------------------------------------------------------------------------------------------------------------
// events

// A label leaves its clicks to its parent; what is clickable itself would act together with a clickable
// parent.
void CBPImage::mousePressEvent(QMouseEvent *event)
{
    QLabel::mousePressEvent(event);
    if (m_clickable)
        event->accept();
}

void CBPImage::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_clickable) {
        QLabel::mouseReleaseEvent(event);
        return;
    }
    const QPointer<CBPImage> alive(this);
    emit sigImgClick();
    if (alive)
        QLabel::mouseReleaseEvent(event);
    event->accept();
}

// A key counts as a click: Enter when it goes down, Space when it is let go.
void CBPImage::keyPressEvent(QKeyEvent *event)
{
    lumqt::keyUsed(m_focusMark);
    showRing();
    const lumqt::PressStep step =
        m_clickable ? lumqt::keyPressed(event, m_spaceDown) : lumqt::PressStep::NotMine;
    if (step == lumqt::PressStep::NotMine)
        QLabel::keyPressEvent(event);
    else if (step == lumqt::PressStep::Click)
        emit sigImgClick();
}

void CBPImage::keyReleaseEvent(QKeyEvent *event)
{
    const lumqt::PressStep step = lumqt::keyReleased(event, m_spaceDown);
    if (step == lumqt::PressStep::NotMine)
        QLabel::keyReleaseEvent(event);
    else if (step == lumqt::PressStep::Click)
        emit sigImgClick();
}

void CBPImage::focusInEvent(QFocusEvent *event)
{
    lumqt::focusGained(m_focusMark, event->reason());
    showRing();
    QLabel::focusInEvent(event);
}

void CBPImage::focusOutEvent(QFocusEvent *event)
{
    lumqt::focusLost(m_focusMark, event->reason());
    showRing();
    m_spaceDown = false;
    QLabel::focusOutEvent(event);
}

void CBPImage::paintEvent(QPaintEvent *event)
{
    // The label may stand on another screen than the one it was made on.
    if (!m_path.isEmpty() && m_ratio != devicePixelRatioF())
        load();
    if (!lumqt::paintsWholePicture(*this))
        QLabel::paintEvent(event);
}
