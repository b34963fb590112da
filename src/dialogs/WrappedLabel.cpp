#include "dialogs/WrappedLabel.h"

#include "foundation/FontLookup.h"

#include <QAbstractTextDocumentLayout>
#include <QEvent>
#include <QPainter>
#include <QPaintEvent>
#include <QTextDocumentFragment>

#include <cmath>

namespace lumqt {

namespace {

// In logical pixels.
constexpr int kPreferredWidth = 400;
constexpr int kNarrowWidth = 100; // any text that can be broken is, at this

} // namespace

WrappedLabel::WrappedLabel(const QString &text, int weightIndex, int pixelSize, const QColor &color)
    : CBPLabel(text, color, pixelSize, nullptr)
{
    setFont(uiFont(weightIndex, pixelSize));
    setTextInteractionFlags(Qt::NoTextInteraction);
    setWordWrap(true);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    QTextOption option = m_document.defaultTextOption();
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_document.setDefaultTextOption(option);
    m_document.setDocumentMargin(0);
    m_document.setUndoRedoEnabled(false);
}

QTextDocument &WrappedLabel::laidOut(int width) const
{
    if (m_shown != text() || m_narrowest < 0) {
        m_shown = text();
        m_narrowest = 0;
        m_document.setDefaultFont(font());
        if (Qt::mightBeRichText(m_shown)) {
            m_document.setHtml(m_shown);
            m_document.setTextWidth(kNarrowWidth);
            m_narrowest = int(std::ceil(m_document.size().width()));
        } else {
            m_document.setPlainText(m_shown);
        }
    }
    if (m_document.textWidth() != width)
        m_document.setTextWidth(width);
    return m_document;
}

// Pictures, tables and preformatted lines are not broken.
int WrappedLabel::narrowest() const
{
    laidOut(m_document.textWidth() < 0 ? kPreferredWidth : int(m_document.textWidth()));
    return qMax(m_narrowest, kNarrowWidth);
}

int WrappedLabel::heightForWidth(int width) const
{
    return int(std::ceil(laidOut(qMax(1, width)).size().height()));
}

QSize WrappedLabel::sizeHint() const
{
    const int width = qMax(kPreferredWidth, narrowest());
    return {width, heightForWidth(width)};
}

QSize WrappedLabel::minimumSizeHint() const
{
    return {narrowest(), fontMetrics().height()};
}

QString WrappedLabel::plainText(const QString &text)
{
    return Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}

void WrappedLabel::paintEvent(QPaintEvent *event)
{
    QTextDocument &document = laidOut(qMax(1, width()));
    QPainter painter(this);
    const int above = qMax(0, (height() - int(std::ceil(document.size().height()))) / 2);
    painter.translate(0, above);
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette = palette();
    context.palette.setColor(QPalette::Text, palette().color(foregroundRole()));
    context.clip = event->rect().translated(0, -above);
    painter.setClipRect(context.clip);
    document.documentLayout()->draw(&painter, context);
}

void WrappedLabel::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange)
        m_narrowest = -1;
    CBPLabel::changeEvent(event);
}

} // namespace lumqt
