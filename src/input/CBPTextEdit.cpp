#include "CBPTextEdit.h"

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
