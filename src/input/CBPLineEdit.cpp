#include "CBPLineEdit.h"

#include "foundation/ImageLoader.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QToolButton>

#include <algorithm>
#include <iterator>

namespace {

const char kIconSheet[] = "QToolButton{border:none; padding:2px;}";
constexpr int kIconX = 2;
constexpr int kIconReserve = 5; // the text begins so far behind an icon's width

constexpr QKeySequence::StandardKey kBlockedKeys[] = {QKeySequence::SelectAll, QKeySequence::Copy,
                                                      QKeySequence::Paste};

} // namespace

CBPLineEdit::CBPLineEdit(QString iconPath, bool bBlockCopyPaste, QWidget *parent)
    : QLineEdit(parent), m_bBlockCopyPaste(bBlockCopyPaste)
{
    if (!iconPath.isEmpty())
        createIcon(iconPath);
}

CBPLineEdit::CBPLineEdit(QWidget *parent, bool bBlockCopyPaste)
    : CBPLineEdit(QString(), bBlockCopyPaste, parent)
{
}

CBPLineEdit::~CBPLineEdit() = default;

void CBPLineEdit::createIcon(const QString &path)
{
    const QPixmap picture = lumqt::loadPixmap(path, devicePixelRatioF());
    const QSize size = lumqt::logicalSize(picture);
    m_pIconBtn = new QToolButton(this);
    m_pIconBtn->setIcon(picture);
    m_pIconBtn->setIconSize(size); // or the style would shrink it
    m_pIconBtn->setStyleSheet(QLatin1String(kIconSheet));
    m_pIconBtn->setFixedSize(size);
    m_pIconBtn->setFocusPolicy(Qt::NoFocus);
    setTextMargins(size.width() + kIconReserve, 0, 0, 0);
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
    m_pressedAt = event->pos();
    selectAll();
}

void CBPLineEdit::mouseReleaseEvent(QMouseEvent *event)
{
    const QPointer<CBPLineEdit> alive(this);
    onMouseReleased(event);
    if (!alive)
        return;
    QLineEdit::mouseReleaseEvent(event);
    // A hand that trembles has not dragged: what it shrank is selected again.
    const bool clicked = (event->pos() - m_pressedAt).manhattanLength() < QApplication::startDragDistance();
    if (m_selecting && clicked)
        selectAll();
    m_selecting = false;
}

void CBPLineEdit::resizeEvent(QResizeEvent *event)
{
    QLineEdit::resizeEvent(event);
    if (m_pIconBtn)
        m_pIconBtn->move(kIconX, (height() - m_pIconBtn->height()) / 2);
}
