#include "CBPTextEdit.h"

#include <QEvent>
#include <QPainter>
#include <QTimer>

CBPTextEdit::CBPTextEdit(QWidget *parent) : QTextEdit(parent)
{
    connect(this, &QTextEdit::textChanged, this, &CBPTextEdit::on_text_changed);
}

CBPTextEdit::~CBPTextEdit() = default;

void CBPTextEdit::setMaxLength(int maxLength)
{
    m_iMaxLength = maxLength;
}

void CBPTextEdit::setTextMargin(int left, int top, int right, int bottom)
{
    const auto sane = [](int pixels) { return qBound(0, pixels, QWIDGETSIZE_MAX); };
    setViewportMargins(sane(left), sane(top), sane(right), sane(bottom));
}

// The painting of the frame; that of the text is the viewport's.
bool CBPTextEdit::event(QEvent *event)
{
    if (event->type() == QEvent::Paint)
        paintMargin();
    return QTextEdit::event(event);
}

// Else it would have the window's ground. A style sheet that gives the edit a ground or a frame takes the
// viewport's away, and fills all of it itself.
void CBPTextEdit::paintMargin()
{
    const QWidget *text = viewport();
    if (!text->autoFillBackground())
        return;
    QPainter painter(this);
    painter.setClipRegion(QRegion(contentsRect()) - text->geometry());
    painter.setBrushOrigin(text->pos());
    painter.fillRect(contentsRect(), text->palette().brush(text->backgroundRole()));
}

void CBPTextEdit::on_text_changed()
{
    // Undoing and redoing set the cursor after this, to a place that cutting takes away.
    const bool canRedo = document()->isRedoAvailable();
    const bool stepping = canRedo || m_couldRedo;
    m_couldRedo = canRedo;
    // The document counts without making a copy; it has one character more than its text.
    if (m_iMaxLength <= 0 || document()->characterCount() - 1 <= m_iMaxLength)
        return;
    QString kept = toPlainText().left(m_iMaxLength);
    if (kept.at(kept.size() - 1).isHighSurrogate())
        kept.chop(1);
    setPlainText(kept);
    moveCursor(QTextCursor::End);
    if (stepping)
        QTimer::singleShot(0, this, [this] { moveCursor(QTextCursor::End); });
}
