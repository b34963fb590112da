// The texts of widgets.

#include "foundation/Painting.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStaticText>
#include <QStyle>
#include <QTextLayout>
#include <QTextOption>
#include <QtMath>

#include <algorithm>
#include <cmath>

namespace lumqt {

namespace {

// The text runs its own way wherever it stands: the ellipsis of a cut one is at its end.
class OwnDirection
{
public:
    OwnDirection(QPainter &painter, const QString &text)
        : m_painter(painter), m_before(painter.layoutDirection())
    {
        painter.setLayoutDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    }
    ~OwnDirection() { m_painter.setLayoutDirection(m_before); }
    Q_DISABLE_COPY(OwnDirection)

    Qt::LayoutDirection before() const { return m_before; }

private:
    QPainter &m_painter;
    Qt::LayoutDirection m_before;
};

constexpr int kLongestLayout =
    256; // characters; what keeps a layout until it is painted is a label, not a book
constexpr ushort kFirstMark = 0x300;       // of Unicode
constexpr qreal kEndlessLine = 0x01000000; // logical pixels; as Qt's own one-line texts

// Whether a layout of one line, left to right, has the widths and places that Qt's functions for measuring
// and drawing have each by itself. They differ in a space at the end, in what breaks lines or is laid out
// from the right, and in characters that are instructions.
bool isPlainLine(const QString &text)
{
    constexpr ushort kSoftHyphen = 0xad, kFirstRightToLeft = 0x590, kFirstSurrogate = 0xd800;
    constexpr ushort kFirstFullWidth = 0xff01, kLastHalfWidth = 0xffdc;
    const auto plain = [](QChar c) {
        const ushort code = c.unicode();
        if (code < kFirstRightToLeft)
            return code >= ' ' && !(code >= 0x7f && code < 0xa0) && code != kSoftHyphen;
        if (code >= kFirstSurrogate && (code < kFirstFullWidth || code > kLastHalfWidth))
            return false;
        const QChar::Direction way = c.direction();
        return way != QChar::DirR && way != QChar::DirAL && way != QChar::DirAN &&
               c.category() != QChar::Other_Format && !c.isSpace();
    };
    return !text.isEmpty() && text.size() <= kLongestLayout && !text.back().isSpace() &&
           std::all_of(text.begin(), text.end(), plain);
}

} // namespace

CachedText::CachedText() = default;
CachedText::~CachedText() = default;

void CachedText::measure(const QString &text, const QFont &font)
{
    if (m_size.isValid() && font == m_font && text == m_text)
        return;
    m_text = text;
    m_font = font;
    m_painted = false;
    m_fast.reset();
    m_unpainted.reset();
    m_styledSize = QSize();
    // Windows' fonts place an accent of its own between pixels, where a static text rounds otherwise.
    const bool hasMarks = std::any_of(text.begin(), text.end(),
                                      [](QChar c) { return c.unicode() >= kFirstMark && c.isMark(); });
    m_neverFast = hasMarks || font.strikeOut(); // Qt leaves the lines of a static text out under a scale
    const QFontMetrics metrics(font);
    m_ascent = metrics.ascent();
    if (isPlainLine(text)) {
        layOut(metrics);
        return;
    }
    // Line breaks and tabs need the general layout, which knows them.
    m_oneLine = !text.contains(QLatin1Char('\n')) && !text.contains(QLatin1Char('\t')) &&
                !text.contains(QChar::LineSeparator) && !text.contains(QChar::ParagraphSeparator);
    m_size = m_oneLine ? QSize(metrics.horizontalAdvance(text), metrics.height())
                       : metrics.size(Qt::TextExpandTabs, text);
}

void CachedText::layOut(const QFontMetrics &metrics)
{
    m_oneLine = true;
    m_unpainted = std::make_unique<QTextLayout>(m_text, m_font);
    m_unpainted->setCacheEnabled(true); // or the letters would be laid out once more when they are drawn
    m_unpainted->beginLayout();
    QTextLine line = m_unpainted->createLine();
    line.setLineWidth(kEndlessLine);
    m_unpainted->endLayout();
    m_size = QSize(qRound(line.horizontalAdvance()), metrics.height());
    if (!m_text.contains(QLatin1Char('&')))
        m_styledSize = QSize(qCeil(line.naturalTextWidth()), qCeil(line.height()));
}

void CachedText::prepare(QPainter &painter, const QString &text, const QFont &font)
{
    measure(text, font);
    painter.setFont(font);
    const qreal ratio = ratioOf(painter);
    if (ratio == m_ratio)
        return;
    m_ratio = ratio; // glyphs of another size are other pictures
    m_painted = false;
    m_fast.reset();
}

// Many a window is shown and closed: a text that is painted once is laid out once.
void CachedText::drawLine(QPainter &painter, const QPoint &topLeft)
{
    if (m_font.underline()) { // Qt's own line would lie between pixels
        QFont letters = m_font;
        letters.setUnderline(false);
        painter.setFont(letters);
        const QFontMetricsF metrics(m_font);
        const qreal below = qMin(std::ceil(metrics.underlinePos()), metrics.descent());
        const QRectF line(topLeft.x(), topLeft.y() + m_ascent + below, m_size.width(), metrics.lineWidth());
        painter.fillRect(evenDevicePixels(painter, line), painter.pen().color());
    }
    if (!m_painted || m_neverFast) {
        m_painted = true;
        // Lines through and above are drawn by drawText() only; one below would be drawn twice.
        if (m_unpainted && !m_font.strikeOut() && !m_font.overline() && !m_font.underline()) {
            const QTextLine line = m_unpainted->lineAt(0);
            line.draw(&painter, QPointF(topLeft.x(), topLeft.y() + m_ascent - line.ascent()));
        } else {
            painter.drawText(topLeft + QPoint(0, m_ascent), m_text);
        }
        m_unpainted.reset();
        return;
    }
    if (!m_fast || m_direction != painter.layoutDirection()) {
        m_direction = painter.layoutDirection(); // by which drawText() orders what runs both ways
        m_fast = std::make_unique<QStaticText>(m_text);
        m_fast->setTextFormat(Qt::PlainText);
        QTextOption option;
        option.setTextDirection(m_direction);
        m_fast->setTextOption(option);
        // It keeps a font; a painter has one of its own each time, where one will do for all.
        static QFont shared;
        if (shared != painter.font())
            shared = painter.font();
        m_fast->prepare(QTransform::fromScale(m_ratio, m_ratio), shared);
    }
    painter.drawStaticText(topLeft, *m_fast);
}

void CachedText::drawCentred(QPainter &painter, const QRect &rect, const QString &text, const QFont &font)
{
    if (text.isEmpty())
        return;
    prepare(painter, text, font);
    const OwnDirection direction(painter, text);
    if (m_oneLine && m_size.width() <= rect.width()) {
        drawLine(painter, rect.topLeft() + QPoint((rect.width() - m_size.width()) / 2,
                                                  (rect.height() - m_size.height()) / 2));
        return;
    }
    QTextOption option(Qt::AlignCenter);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    painter.drawText(QRectF(rect), text, option);
}

void CachedText::drawLeft(QPainter &painter, const QRect &rect, const QString &text, const QFont &font)
{
    if (text.isEmpty())
        return;
    prepare(painter, text, font);
    const OwnDirection direction(painter, text);
    const bool higher = m_oneLine && m_size.height() > rect.height();
    if (m_oneLine && !higher)
        drawLine(painter, rect.topLeft() + QPoint(0, (rect.height() - m_size.height()) / 2));
    else // which is cut at the rectangle's edges
        painter.drawText(rect,
                         int(QStyle::visualAlignment(direction.before(), Qt::AlignLeft)) | Qt::AlignAbsolute |
                             Qt::AlignVCenter | Qt::TextExpandTabs,
                         text);
}

QSize CachedText::lineSize(const QString &text, const QFont &font)
{
    measure(text, font);
    return m_size;
}

QSize CachedText::styledSize(const QString &text, const QFont &font)
{
    measure(text, font);
    return m_styledSize.isEmpty() ? QFontMetrics(font).size(Qt::TextShowMnemonic, text) : m_styledSize;
}

} // namespace lumqt
