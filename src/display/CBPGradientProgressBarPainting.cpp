#include "CBPGradientProgressBar.h"

#include "display/ProgressPictures.h"
#include "foundation/FontLookup.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "platform/Platform.h"

#include <QPainter>
#include <QPainterPath>
#include <QPaintEvent>

using lumqt::Purpose;

namespace {

// Look and metrics, in logical pixels.
constexpr qreal kRadius = 4;
constexpr qreal kHighlightRadius = 2;
constexpr int kHighlightWidth = 100;
constexpr int kTravelShare = 4; // of the track the piece is this part
constexpr int kTextPixelSize = 12;
constexpr int kTextMargin = 6;      // both sides together
constexpr double kTextStep = 0.005; // of the shown value, with each repaint

// All that is painted later lies within, with round ends.
void clipToRounded(QPainter &painter, const QRect &whole, qreal radius)
{
    QPainterPath clip;
    clip.addRoundedRect(lumqt::wholeDevicePixels(painter, whole), radius, radius);
    painter.setClipPath(clip);
}

QLinearGradient gradientOver(const QRect &part, const QColor &from, const QColor &to)
{
    QLinearGradient gradient(part.left(), 0, part.right(), 0);
    gradient.setColorAt(0, from);
    gradient.setColorAt(1, to);
    return gradient;
}

void drawRounded(QPainter &painter, const QRectF &place, const QBrush &brush, qreal radius)
{
    painter.setBrush(brush);
    painter.drawRoundedRect(place, radius, radius);
}

} // namespace

// What another width of the filled part changes: its gradient, which is as wide as it, and the number.
QRect CBPGradientProgressBar::changedByGrowth() const
{
    constexpr int kNext = 3; // the next pixel, and what a screen's ratio adds by rounding
    return m_showText ? rect() : QRect(0, 0, qMin(m_barWidth + kNext, width()), height());
}

void CBPGradientProgressBar::drawTrack(QPainter &painter, const QRect &track, bool framed) const
{
    const QColor &ground = lumqt::themeColor(Purpose::ProgressTrack);
    const QColor &frame = lumqt::themeColor(Purpose::ProgressFrame);
    const int inset = framed ? 1 : 0;
    const QRect inner = track.adjusted(inset, inset, -inset, -inset);
    if (framed)
        m_pictures->frame.draw(painter, track, frame.rgba(), [&](QPainter &each, const QRectF &place) {
            drawRounded(each, place, frame, kRadius);
        });
    m_pictures->track.draw(painter, inner, ground.rgba(), [&](QPainter &each, const QRectF &place) {
        drawRounded(each, place, ground, kRadius - inset);
    });
}

void CBPGradientProgressBar::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QRect track = rect().adjusted(0, 0, -1, -1);
    const bool framed = lumqt::themeColor(Purpose::ProgressFrame).alpha() > 0; // a line around it
    if (!m_pictures)
        m_pictures = std::make_unique<lumqt::ProgressPictures>();
    drawTrack(painter, track, framed);
    if (m_busy) {
        drawTraveller(painter, framed ? track.adjusted(1, 1, -1, -1) : track.adjusted(1, 1, 0, 0));
        runTimers();
        return;
    }
    grow(*event);
    QRect filled = track.adjusted(1, 1, 0, 0);
    filled.setWidth(m_barWidth);
    if (framed)
        filled &= track.adjusted(1, 1, -1, -1);
    if (m_barWidth > 0)
        drawFilled(painter, filled);
    const bool full = m_barWidth == width();
    if (full)
        m_shownValue = m_value; // no further repaint will come to catch up
    else if (highlightPlace().intersects(event->rect()))
        drawHighlight(painter, filled);
    if (m_showText)
        drawPercentage(painter, filled);
    if (full)
        resetMembers();
    else
        runTimers();
}

// By a pixel with each repaint, whoever asked for it. One of a part of the bar has to be followed by another.
void CBPGradientProgressBar::grow(const QPaintEvent &event)
{
    const QRect changed = changedByGrowth();
    const int before = m_barWidth;
    m_barWidth = qMin(m_barWidth + 1, progressBarWidth());
    const bool painted = event.region().rectCount() == 1 && event.rect().contains(changed);
    if (m_barWidth != before && !painted)
        update(changed | changedByGrowth()); // room for its own pixel, or it would have to be followed, too
}

void CBPGradientProgressBar::drawFilled(QPainter &painter, const QRect &filled) const
{
    m_pictures->filled.set(painter, filled, lumqt::themeColor(Purpose::ProgressStart),
                           lumqt::themeColor(Purpose::ProgressEnd));
    painter.drawRoundedRect(lumqt::wholeDevicePixels(painter, filled), kRadius, kRadius);
    painter.setBrushOrigin(0, 0);
}

// Begins where the bar does, leaves at the end and comes in again.
void CBPGradientProgressBar::drawTraveller(QPainter &painter, const QRect &track) const
{
    const int width = track.width() / kTravelShare;
    const bool rests = lumqt::platform::answers().lessMotion();
    const int way = track.width() + width;
    const int left = rests ? (track.width() - width) / 2
                           : int((m_travelled + quint32(width)) % quint32(qMax(1, way))) - width;
    const QRect piece(track.left() + left, track.top(), width, track.height());
    painter.save();
    clipToRounded(painter, track, kRadius);
    drawRounded(painter, lumqt::wholeDevicePixels(painter, piece),
                gradientOver(piece, lumqt::themeColor(Purpose::ProgressStart),
                             lumqt::themeColor(Purpose::ProgressEnd)),
                kRadius);
    painter.restore();
}

// Its height is that of the bar here: it is as high as the filled part has room for.
QRect CBPGradientProgressBar::highlightPlace() const
{
    return QRect(m_highlightPosition, 1, kHighlightWidth, height());
}

void CBPGradientProgressBar::drawHighlight(QPainter &painter, const QRect &filled) const
{
    QRect highlight = highlightPlace();
    highlight.setHeight(filled.height() - 1);
    const QColor color = colorTwo();
    if (!color.isValid() || filled.isEmpty() || !highlight.intersects(filled))
        return;
    painter.save();
    constexpr int kEnd = 3; // beyond it the filled part is not rounded any more
    if (!filled.adjusted(kEnd, 0, -kEnd, 0).contains(highlight))
        clipToRounded(painter, filled, kHighlightRadius);
    m_pictures->highlight.draw(painter, highlight, color.rgba(), [&](QPainter &each, const QRectF &place) {
        QColor clear = color;
        clear.setAlpha(0);
        QLinearGradient gradient = gradientOver(highlight, clear, clear);
        gradient.setColorAt(0.5, color);
        drawRounded(each, place, gradient, kHighlightRadius);
    });
    painter.restore();
}

void CBPGradientProgressBar::drawPercentage(QPainter &painter, const QRect &filled)
{
    m_shownValue += qBound(-kTextStep, m_value - m_shownValue, kTextStep);
    const QString text = tr("%1%").arg(lumqt::wholePercent(m_shownValue));
    const QFont font = lumqt::uiFont(lumqt::NormalWeight, kTextPixelSize);
    QRect box(0, 0, m_pictures->number.lineSize(text, font).width() + kTextMargin, height());
    box.moveLeft((width() - box.width()) / 2);
    painter.setPen(lumqt::themeColor(Purpose::ProgressText));
    m_pictures->number.drawLeft(painter, box, text, font);
    if (lumqt::themeColor(Purpose::ProgressText) == lumqt::themeColor(Purpose::ProgressTextDone))
        return;
    // Where the text lies on what is done, that may be as dark as the track is light, or the other way round.
    painter.save();
    painter.setClipRect(filled, Qt::IntersectClip);
    painter.setPen(lumqt::themeColor(Purpose::ProgressTextDone));
    m_pictures->number.drawLeft(painter, box, text, font);
    painter.restore();
}
