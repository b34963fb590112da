#include "CBPLineEdit.h"

#include "CBPStyle.h"
#include "foundation/ImageLoader.h"
#include "foundation/Tones.h"
#include "input/SelectingPress.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <QToolButton>

#include <algorithm>
#include <iterator>

namespace {

const char kIconSheet[] = "QToolButton{border:none; padding:2px;}";
constexpr int kIconX = 2;
constexpr int kIconReserve = 5; // the text begins so far behind an icon's width

// A button without room around its picture: the padding of its sheet would have the style shrink it.
class IconButton : public QToolButton
{
public:
    IconButton(const QPixmap &picture, QWidget *parent) : QToolButton(parent) { put(picture); }

    // In the place of the one before, unless the application has set its own.
    void renew(const QPixmap &picture)
    {
        if (icon().cacheKey() == m_key && !picture.isNull())
            put(picture);
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        if (icon().cacheKey() != m_key) { // of the application
            QToolButton::paintEvent(event);
            return;
        }
        QStyleOptionToolButton option;
        initStyleOption(&option);
        option.icon = QIcon();
        QStylePainter painter(this);
        painter.drawComplexControl(QStyle::CC_ToolButton, option);
        const qreal opacity = lumqt::disabledOpacity(1);
        const bool pale = !isEnabled() && opacity < 1; // Qt makes it for light grounds
        const QIcon::Mode mode = isEnabled() || pale ? QIcon::Normal : QIcon::Disabled;
        painter.setOpacity(pale ? opacity : 1);
        painter.drawPixmap(0, 0, style()->generatedIconPixmap(mode, m_picture, &option));
    }

private:
    void put(const QPixmap &picture)
    {
        m_picture = picture;
        setIcon(picture);
        m_key = icon().cacheKey();
    }

    QPixmap m_picture;
    qint64 m_key = 0;
};

constexpr QKeySequence::StandardKey kBlockedKeys[] = {QKeySequence::SelectAll, QKeySequence::Copy,
                                                      QKeySequence::Paste};

} // namespace

CBPLineEdit::CBPLineEdit(QString iconPath, bool bBlockCopyPaste, QWidget *parent)
    : QLineEdit(parent), m_strIconPath(iconPath), m_bBlockCopyPaste(bBlockCopyPaste)
{
    CBPStyle::Apply(this);
    lumqt::wearTheme(this, lumqt::fieldTones());
    if (!iconPath.isEmpty())
        createIcon();
}

CBPLineEdit::CBPLineEdit(QWidget *parent, bool bBlockCopyPaste)
    : CBPLineEdit(QString(), bBlockCopyPaste, parent)
{
}

CBPLineEdit::CBPLineEdit(QWidget *parent) : CBPLineEdit(parent, false) {}

CBPLineEdit::~CBPLineEdit() = default;

QString CBPLineEdit::iconPath() const
{
    return m_strIconPath;
}

void CBPLineEdit::setIconPath(const QString &path)
{
    m_strIconPath = path;
    removeIcon();
    if (path.isEmpty())
        return;
    createIcon();
    placeIcon();
    m_pIconBtn->show();
}

bool CBPLineEdit::isCopyPasteBlocked() const
{
    return m_bBlockCopyPaste;
}

void CBPLineEdit::setCopyPasteBlocked(bool blocked)
{
    m_bBlockCopyPaste = blocked;
}

void CBPLineEdit::createIcon()
{
    const QString path = m_strIconPath;
    const QPixmap picture = lumqt::loadPixmap(path, devicePixelRatioF());
    const QSize size = lumqt::logicalSize(picture);
    auto *button = new IconButton(picture, this);
    lumqt::onThemeChange(
        button, [this, button, path] { button->renew(lumqt::loadPixmap(path, devicePixelRatioF())); });
    m_pIconBtn = button;
    m_pIconBtn->setIconSize(size);
    m_pIconBtn->setStyleSheet(QLatin1String(kIconSheet));
    m_pIconBtn->setFixedSize(size);
    m_pIconBtn->setFocusPolicy(Qt::NoFocus);
    keepTextClear();
}

// Not deleted at once: an application may have made the icon a button, and be in its click.
void CBPLineEdit::removeIcon()
{
    if (!m_pIconBtn)
        return;
    m_pIconBtn->hide();
    m_pIconBtn->deleteLater();
    m_pIconBtn = nullptr;
    setTextMargins(0, 0, 0, 0);
}

void CBPLineEdit::keepTextClear()
{
    const int reserve = m_pIconBtn->width() + kIconReserve;
    setTextMargins(isRightToLeft() ? 0 : reserve, 0, isRightToLeft() ? reserve : 0, 0);
}

void CBPLineEdit::placeIcon()
{
    const int x = isRightToLeft() ? width() - kIconX - m_pIconBtn->width() : kIconX;
    m_pIconBtn->move(x, (height() - m_pIconBtn->height()) / 2);
}

bool CBPLineEdit::isBlocked(const QKeyEvent *event) const
{
    if (!m_bBlockCopyPaste)
        return false;
    return std::any_of(std::begin(kBlockedKeys), std::end(kBlockedKeys),
                       [event](QKeySequence::StandardKey key) { return event->matches(key); });
}

void CBPLineEdit::onMouseReleased(QMouseEvent *) {}

// ------------------------------------------------------------------------------------------------------------
// events

void CBPLineEdit::focusOutEvent(QFocusEvent *event)
{
    const QPointer<CBPLineEdit> alive(this);
    emit sigLoseFocus();
    if (alive)
        QLineEdit::focusOutEvent(event);
}

void CBPLineEdit::keyPressEvent(QKeyEvent *event)
{
    if (isBlocked(event))
        return; // it stays accepted, so that no parent pastes either
    const QPointer<CBPLineEdit> alive(this);
    emit KeyPressed(event);
    if (alive)
        QLineEdit::keyPressEvent(event);
}

void CBPLineEdit::keyReleaseEvent(QKeyEvent *event)
{
    const QPointer<CBPLineEdit> alive(this);
    emit KeyReleased(event);
    if (alive)
        QWidget::keyReleaseEvent(event); // not the line edit's
}

void CBPLineEdit::mousePressEvent(QMouseEvent *event)
{
    m_selecting = m_bFirstClick && !text().isEmpty() && !isReadOnly();
    QLineEdit::mousePressEvent(event); // sets the cursor, which would take a selection away
    if (!m_selecting)
        return;
    m_bFirstClick = false;
    lumqt::selectByPress(*this, event, m_pressedAt, m_pressedCursor);
}

void CBPLineEdit::mouseMoveEvent(QMouseEvent *event)
{
    if (!lumqt::staysSelected(*this, event, m_selecting, m_pressedAt, m_pressedCursor))
        QLineEdit::mouseMoveEvent(event);
}

void CBPLineEdit::mouseReleaseEvent(QMouseEvent *event)
{
    const QPointer<CBPLineEdit> alive(this);
    onMouseReleased(event);
    if (!alive)
        return;
    m_selecting = false;
    QLineEdit::mouseReleaseEvent(event);
}

void CBPLineEdit::resizeEvent(QResizeEvent *event)
{
    QLineEdit::resizeEvent(event);
    if (m_pIconBtn)
        placeIcon();
}

void CBPLineEdit::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() != QEvent::LayoutDirectionChange || !m_pIconBtn)
        return;
    keepTextClear();
    placeIcon();
}
