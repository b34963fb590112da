#include "dialogs/WrappedLabel.h"

#include "foundation/FontLookup.h"
#include "foundation/Tones.h"

#include <QAbstractTextDocumentLayout>
#include <QEvent>
#include <QPainter>
#include <QPaintEvent>
#include <QTextBlock>
#include <QTextBoundaryFinder>
#include <QTextCursor>
#include <QTextDocumentFragment>

#include <cmath>

namespace lumqt {

namespace {

// In logical pixels.
constexpr int kPreferredWidth = 400;
constexpr int kNarrowWidth = 100; // any text that can be broken is, at this

constexpr int kLongWord = 200; // characters; no line holds more of a common font
const QChar kZeroWidthSpace(0x200b);

// Where a text is to have further places to break: in words that are longer than any line. Qt would find the
// ends of its lines, but look for each through all that is left of the word, and never be done with a long
// one.
QVector<int> placesToBreak(const QString &text)
{
    QVector<int> places;
    if (text.size() <= kLongWord)
        return places;
    QTextBoundaryFinder words(QTextBoundaryFinder::Line, text);
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, text);
    int start = 0;
    for (int end = words.toNextBoundary(); end > 0; end = words.toNextBoundary()) {
        if (end - start > kLongWord) {
            characters.setPosition(start);
            for (int at = characters.toNextBoundary(); at > 0 && at < end; at = characters.toNextBoundary())
                places << at;
        }
        start = end;
    }
    return places;
}

QString breakable(const QString &text)
{
    const QVector<int> places = placesToBreak(text);
    QString result;
    result.reserve(text.size() + places.size());
    int from = 0;
    for (const int at : places) {
        result.append(text.constData() + from, at - from);
        result += kZeroWidthSpace;
        from = at;
    }
    return result.append(text.constData() + from, int(text.size()) - from);
}

void makeBreakable(QTextDocument &document)
{
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    for (QTextBlock block = document.lastBlock(); block.isValid(); block = block.previous()) {
        if (block.blockFormat().nonBreakableLines())
            continue;
        const QVector<int> places = placesToBreak(block.text());
        for (auto at = places.crbegin(); at != places.crend(); ++at) { // from behind, as the rest is moved
            cursor.setPosition(block.position() + *at);
            cursor.insertText(QString(kZeroWidthSpace));
        }
    }
    cursor.endEditBlock();
}

} // namespace

WrappedLabel::WrappedLabel(const QString &text, int weightIndex, int pixelSize, Purpose color)
    : WrappedLabel(text, weightIndex, pixelSize)
{
    keepTheme(this, {{QPalette::WindowText, color}});
}

WrappedLabel::WrappedLabel(const QString &text, int weightIndex, int pixelSize)
    : CBPLabel(text, pixelSize, nullptr)
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
    onThemeChange(this, [this] {
        m_narrowest = -1;
        update();
    });
}

QTextDocument &WrappedLabel::laidOut(int width) const
{
    if (m_shown != text() || m_narrowest < 0) {
        m_shown = text();
        m_narrowest = 0;
        m_heights.clear();
        m_document.setDefaultFont(font());
        // Each paragraph reads as it is written, and all of them start at the side that the dialog does.
        QTextOption option = m_document.defaultTextOption();
        option.setAlignment(isRightToLeft() ? Qt::AlignRight | Qt::AlignAbsolute : Qt::Alignment());
        m_document.setDefaultTextOption(option);
        if (Qt::mightBeRichText(m_shown)) {
            m_document.setDefaultStyleSheet(linkSheet());
            m_document.setHtml(m_shown);
            makeBreakable(m_document);
            m_document.setTextWidth(kNarrowWidth);
            m_narrowest = int(std::ceil(m_document.size().width()));
        } else {
            m_document.setPlainText(breakable(m_shown));
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
    return qMax(m_narrowest, kNarrowWidth) + width() - contentsRect().width();
}

int WrappedLabel::heightForWidth(int width) const
{
    if (m_shown == text() && m_narrowest >= 0 && m_heights.contains(width))
        return m_heights.value(width);
    // A style sheet may have given the label a border or a padding.
    const QSize around = size() - contentsRect().size();
    const int height =
        int(std::ceil(laidOut(qMax(1, width - around.width())).size().height())) + around.height();
    m_heights.insert(width, height);
    return height;
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
    const QRect area = contentsRect();
    QTextDocument &document = laidOut(qMax(1, area.width()));
    QPainter painter(this);
    const QPoint start =
        area.topLeft() + QPoint(0, qMax(0, (area.height() - int(std::ceil(document.size().height()))) / 2));
    painter.translate(start);
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette = palette();
    context.palette.setColor(QPalette::Text, palette().color(foregroundRole()));
    context.clip = QRectF(event->rect() & area).translated(-start);
    painter.setClipRect(context.clip);
    document.documentLayout()->draw(&painter, context);
}

void WrappedLabel::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::LayoutDirectionChange ||
        event->type() == QEvent::StyleChange)
        m_narrowest = -1;
    CBPLabel::changeEvent(event);
}

} // namespace lumqt
