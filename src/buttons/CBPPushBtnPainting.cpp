#include "CBPPushBtn.h"

#include "buttons/ButtonTones.h"
#include "foundation/FontLookup.h"
#include "foundation/IconPixmap.h"
#include "foundation/Painting.h"

#include <QDialogButtonBox>
#include <QPainter>
#include <QStyleOptionButton>

using lumqt::Purpose;

namespace {

// Look and metrics, in logical pixels.
constexpr int kLeftStart = 16; // of the icon with ALIGN_LEFT
constexpr int kFocusRingWidth = 2;
constexpr int kFrameWidth = 1;
constexpr int kHintedInset = 8; // of a text, at each side, in the width that is asked for
constexpr int kElidedInset = 4; // of a text that ends in an ellipsis, at each side
constexpr int kDisabledCheckedAlpha = 128;

enum State { Normal = 0, Pressed = 2, Disabled = 3 };

QColor withAlpha(QColor color, int alpha)
{
    if (color.isValid())
        color.setAlpha(alpha);
    return color;
}

} // namespace

// The style reckons with the font and the frame of a button of its own; a style sheet may leave it none.
QSize CBPPushBtn::sizeHint() const
{
    const QString label = text();
    if (label.isEmpty())
        return QPushButton::sizeHint();
    ensurePolished(); // a style sheet may say the font
    const QFont letters = textFont();
    const int least = textLayout().lineSize(label, letters).width() + 2 * kHintedInset;
    return styledSize(label, letters).expandedTo(QSize(qMin(least, QWIDGETSIZE_MAX), 0));
}

// QPushButton::sizeHint(), which would lay the text out once more, where it can be had of the same layout.
QSize CBPPushBtn::styledSize(const QString &label, const QFont &letters) const
{
    const bool textAlone =
        icon().isNull() && !menu() && !qobject_cast<const QDialogButtonBox *>(parentWidget());
    if (!textAlone || !lumqt::looksTheSame(label, letters, font()))
        return QPushButton::sizeHint();
    const QSize content = textLayout().styledSize(label, letters);
    // A style sheet may tell flat ones apart, and other looks, which count when there is another text.
    if (content != m_hintedContent || label != m_hintedText || isFlat() != m_hintedFlat ||
        autoDefault() != m_hintedAutoDefault) {
        QStyleOptionButton option;
        initStyleOption(&option);
        option.rect.setSize(content);
        m_hint = style()->sizeFromContents(QStyle::CT_PushButton, &option, content, this);
        m_hintedContent = content;
        m_hintedText = label;
        m_hintedFlat = isFlat();
        m_hintedAutoDefault = autoDefault();
    }
    return m_hint;
}

lumqt::CachedText &CBPPushBtn::textLayout() const
{
    if (!m_textLayout)
        m_textLayout = std::make_unique<lumqt::CachedText>();
    return *m_textLayout;
}

void CBPPushBtn::paintEvent(QPaintEvent *)
{
    m_cut = false;
    if (!isEnabled())
        setState(Disabled);
    const int index = isEnabled() && m_selected ? int(Pressed) : state();
    const bool showsFocus = IsFocus() && index == Normal && !m_frmTrancent;
    // The outer edge of the focus ring lies on the body's edge, all round.
    QPen pen(showsFocus ? lumqt::ButtonTones::ring(*this) : paintedFrmColor(index),
             showsFocus ? kFocusRingWidth : kFrameWidth);

    lumqt::Body body;
    body.fill = paintedBgColor(index);
    body.radiusX = m_roundRadius.value(0);
    body.radiusY = m_roundRadius.value(1);
    // A rounded body keeps its frame; only a square one goes without.
    if (body.radiusX != 0 || !m_frmTrancent)
        body.frame = pen.color();
    body.frameWidth = pen.width();

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QRect content = rect().marginsRemoved(lumqt::boundedPixels(m_removeMargin));
    lumqt::drawBody(painter, content, body);
    if (isCheckable() && isChecked())
        drawCheckedLook(painter, content);
    if (showsFocus)
        content.adjust(1, 1, -1, -1);
    painter.setPen(pen); // a derived class may draw with what it finds
    painter.setBrush(body.fill);
    drawPixmapAndText(&painter, pen, content, index);
    drawArrow(&painter);
}

void CBPPushBtn::drawCheckedLook(QPainter &painter, const QRect &rect) const
{
    lumqt::Body checked; // square, also on a rounded button
    checked.fill = isEnabled() ? m_checkedBgColor : withAlpha(m_checkedBgColor, kDisabledCheckedAlpha);
    checked.frame = isEnabled() ? m_checkedFrmColor : withAlpha(m_checkedFrmColor, kDisabledCheckedAlpha);
    lumqt::drawBody(painter, rect, checked);
}

void CBPPushBtn::drawPixmapAndText(QPainter *painter, QPen &pen, QRect &rect, int index)
{
    const QString label = m_elided ? elided(text(), rect.width() - 2 * kElidedInset) : text();
    if (!icon().isNull()) {
        const QPixmap pixmap = iconPixmap();
        const QSize size = lumqt::logicalSize(pixmap);
        const int textSize = label.isEmpty() ? 0 : textLayout().lineSize(label, textFont()).width();
        const int spacing = lumqt::boundedPixels(m_spacing);
        const int blockWidth = pixmap.isNull() ? textSize : size.width() + spacing + textSize;
        int x = 0;
        if (m_align == ALIGN_LEFT)
            x = kLeftStart;
        else if (m_align == ALIGN_CENTER)
            x = rect.x() + (rect.width() - blockWidth) / 2;
        const int y = rect.y() + (rect.height() - size.height()) / 2;
        if (label.isEmpty())
            painter->drawPixmap(rect.x() + (rect.width() - size.width()) / 2, y, pixmap);
        else if (m_iconAfterText)
            painter->drawPixmap(textSize + spacing + x,
                                (height() - size.height()) / 2 + lumqt::boundedPixels(m_iconVerticalOffset),
                                pixmap);
        else
            painter->drawPixmap(x, y, pixmap);
    }
    pen.setColor(paintedTextColor(index));
    painter->setPen(pen);
    // The text is centred in the whole rectangle, wherever the icon is.
    textLayout().drawCentred(*painter, rect, label, textFont());
}

void CBPPushBtn::drawArrow(QPainter *painter)
{
    if (!m_hasMenu)
        return;
    const QColor &arrow =
        lumqt::themeColor(isEnabled() ? Purpose::ButtonArrow : Purpose::ButtonArrowDisabled);
    const int icon = iconWidth();
    const int spacing = lumqt::boundedPixels(m_spacing);
    const int x = (width() - icon - textWidth() - spacing) / 2 + icon + spacing + textWidth();
    const int y = (height() - m_arrowHeight) / 2;
    lumqt::drawDropTriangle(*painter, QPointF(x, y), m_arrowWidth, m_arrowHeight, arrow);
}

void lumqt::ButtonTones::setRing(CBPPushBtn &button, Purpose purpose)
{
    button.m_ringPurpose = short(purpose);
}

const QColor &lumqt::ButtonTones::ring(const CBPPushBtn &button)
{
    return button.m_ownRing ? button.m_focusFrameColor : themeColor(Purpose(button.m_ringPurpose));
}
