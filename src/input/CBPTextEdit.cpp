#include "CBPTextEdit.h"

#include "CBPStyle.h"
#include "foundation/StyleParts.h"
#include "foundation/StyleWatch.h"
#include "foundation/Tones.h"

#include <QEvent>
#include <QImage>
#include <QPainter>
#include <QPaintEvent>
#include <QStyleOption>
#include <QTimer>

namespace {

constexpr int kInset = lumqt::kFieldInset - lumqt::kViewFrame; // from the frame to the text
constexpr int kTextMargin = 0;                                 // beside that, at first

// A style sheet takes the filling away from the viewport, and fills it as before where it has no ground of
// its own. It does not say so: one look at what it paints does.
bool fillsFromPalette(const QWidget &text, QStyleOption option)
{
    QImage pixel(1, 1, QImage::Format_ARGB32_Premultiplied);
    pixel.fill(Qt::transparent);
    option.rect = pixel.rect();
    QPainter painter(&pixel);
    text.style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, &text);
    return qAlpha(pixel.pixel(0, 0)) > 0;
}

// What the viewport does not fill itself: its ground is the palette's, and while disabled the window's.
bool isDisabledField(const QTextEdit &edit, const QPalette &palette)
{
    return !edit.isEnabled() && edit.viewport()->backgroundRole() == QPalette::Base &&
           !palette.isBrushSet(QPalette::Disabled, QPalette::Base) &&
           edit.style()->styleHint(lumqt::kIsOurs, nullptr, &edit) == lumqt::kOurs;
}

// What lies below the text; none where that is the business of a style sheet.
QBrush groundOf(const QTextEdit &edit)
{
    const QWidget *text = edit.viewport();
    QStyleOption option;
    option.initFrom(text);
    if (!text->autoFillBackground() && !fillsFromPalette(*text, option))
        return QBrush();
    option.palette = lumqt::contentPalette(edit);
    if (isDisabledField(edit, option.palette))
        return lumqt::StyleColors(option).ground;
    return text->palette().brush(text->backgroundRole());
}

} // namespace

CBPTextEdit::CBPTextEdit(QWidget *parent) : QTextEdit(parent)
{
    CBPStyle::Apply(this);
    lumqt::wearTheme(this, lumqt::fieldTones());
    document()->setDocumentMargin(kInset);
    connect(this, &QTextEdit::textChanged, this, &CBPTextEdit::on_text_changed);
}

CBPTextEdit::~CBPTextEdit() = default;

void CBPTextEdit::setMaxLength(int maxLength)
{
    m_iMaxLength = maxLength;
}

int CBPTextEdit::maxLength() const
{
    return m_iMaxLength;
}

void CBPTextEdit::setTextMargin(int left, int top, int right, int bottom)
{
    const auto sane = [](int pixels) { return qBound(0, pixels, QWIDGETSIZE_MAX); };
    setViewportMargins(sane(left), sane(top), sane(right), sane(bottom));
}

int CBPTextEdit::leftTextMargin() const
{
    return viewportMargins().left();
}

void CBPTextEdit::setLeftTextMargin(int pixels)
{
    const QMargins now = viewportMargins();
    setTextMargin(pixels, now.top(), now.right(), now.bottom());
}

void CBPTextEdit::resetLeftTextMargin()
{
    setLeftTextMargin(kTextMargin);
}

int CBPTextEdit::topTextMargin() const
{
    return viewportMargins().top();
}

void CBPTextEdit::setTopTextMargin(int pixels)
{
    const QMargins now = viewportMargins();
    setTextMargin(now.left(), pixels, now.right(), now.bottom());
}

void CBPTextEdit::resetTopTextMargin()
{
    setTopTextMargin(kTextMargin);
}

int CBPTextEdit::rightTextMargin() const
{
    return viewportMargins().right();
}

void CBPTextEdit::setRightTextMargin(int pixels)
{
    const QMargins now = viewportMargins();
    setTextMargin(now.left(), now.top(), pixels, now.bottom());
}

void CBPTextEdit::resetRightTextMargin()
{
    setRightTextMargin(kTextMargin);
}

int CBPTextEdit::bottomTextMargin() const
{
    return viewportMargins().bottom();
}

void CBPTextEdit::setBottomTextMargin(int pixels)
{
    const QMargins now = viewportMargins();
    setTextMargin(now.left(), now.top(), now.right(), pixels);
}

void CBPTextEdit::resetBottomTextMargin()
{
    setBottomTextMargin(kTextMargin);
}

// The painting of the frame; that of the text is the viewport's.
bool CBPTextEdit::event(QEvent *event)
{
    const bool handled = QTextEdit::event(event);
    if (event->type() == QEvent::Paint)
        paintMargin();
    return handled;
}

// Else it would have the window's ground.
void CBPTextEdit::paintMargin()
{
    const QRect text = viewport()->geometry();
    const QRect around = text.marginsAdded(viewportMargins());
    const QBrush ground = groundOf(*this);
    if (around == text || ground.style() == Qt::NoBrush)
        return;
    QPainter painter(this);
    painter.setClipRegion(QRegion(around) - text);
    painter.setBrushOrigin(text.topLeft());
    painter.fillRect(around, ground);
}

void CBPTextEdit::paintEvent(QPaintEvent *event)
{
    const QBrush ground = groundOf(*this);
    if (ground.style() != Qt::NoBrush && isDisabledField(*this, lumqt::contentPalette(*this)))
        QPainter(viewport()).fillRect(event->rect(), ground);
    QTextEdit::paintEvent(event);
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
