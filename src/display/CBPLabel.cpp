#include "CBPLabel.h"

#include "foundation/FontLookup.h"
#include "foundation/Log.h"
#include "foundation/QtCompat.h"
#include "foundation/Tones.h"

#include <QFontInfo>
#include <QTextDocument>

namespace {

constexpr int kPixelSize = 12;

// CBPLabel(text, 0) is a size to the compiler, and was meant to be a parent.
int saneSize(int pixelSize)
{
    if (pixelSize < 0)
        qCWarning(lcLumQt, "CBPLabel: %d is no font size", pixelSize);
    return pixelSize < 1 ? kPixelSize : pixelSize;
}

// Gives the links of a rich text the theme's colour. Nothing tells of a new text, which is read at its first
// use, and once more if that was for another theme.
void renewLinks(QLabel &label)
{
    auto *document = label.findChild<QTextDocument *>(); // of a text that is not plain
    const Qt::TextFormat format = label.textFormat();
    if (!document || (format != Qt::AutoText && format != Qt::RichText))
        return;
    const QString sheet = lumqt::linkSheet();
    if (document->defaultStyleSheet() == sheet)
        return;
    document->setDefaultStyleSheet(sheet);
    if (!Qt::mightBeRichText(label.text()))
        return;
    label.setTextFormat(format == Qt::RichText ? Qt::AutoText : Qt::RichText); // has the text read again
    label.setTextFormat(format);
}

} // namespace

CBPLabel::CBPLabel(QWidget *parent) : QLabel(parent)
{
    lumqt::wearTheme(this, lumqt::labelTones());
}

CBPLabel::CBPLabel(QString text, QWidget *parent) : CBPLabel(text, kPixelSize, parent) {}

CBPLabel::CBPLabel(QString text, int pixelSize, QWidget *parent)
    : QLabel(text, parent), m_firstSize(saneSize(pixelSize))
{
    setFont(lumqt::uiFont(lumqt::NormalWeight, m_firstSize));
    lumqt::wearTheme(this, lumqt::labelTones());
}

CBPLabel::CBPLabel(QString text, QColor color, int pixelSize, QWidget *parent)
    : CBPLabel(text, pixelSize, parent)
{
    SetTextColor(color);
}

CBPLabel::~CBPLabel() = default;

void CBPLabel::SetTextColor(QColor color)
{
    if (!color.isValid())
        return;
    QPalette own = palette();
    own.setColor(QPalette::WindowText, color);
    setPalette(own);
}

QColor CBPLabel::textColor() const
{
    return palette().color(QPalette::Active, QPalette::WindowText);
}

// A role without a mark is inherited, or the theme's.
void CBPLabel::resetTextColor()
{
    QPalette own = palette();
    lumqt::setMarks(own, lumqt::marksOf(own) & ~lumqt::marksOf(QPalette::WindowText));
    setPalette(own);
}

int CBPLabel::pixelSize() const
{
    return font().pixelSize() > 0 ? font().pixelSize() : QFontInfo(font()).pixelSize();
}

void CBPLabel::setPixelSize(int pixelSize)
{
    QFont own = testAttribute(Qt::WA_SetFont) ? font() : lumqt::uiFont();
    own.setPixelSize(saneSize(pixelSize));
    setFont(own);
}

// A size without a mark is inherited.
void CBPLabel::resetPixelSize()
{
    if (m_firstSize > 0)
        return setPixelSize(m_firstSize);
    if (!testAttribute(Qt::WA_SetFont))
        return;
    QFont sized;
    sized.setPixelSize(kPixelSize);
    QFont own = font();
    lumqt::setMarks(own, lumqt::marksOf(own) & ~lumqt::marksOf(sized));
    setFont(own);
}

void CBPLabel::paintEvent(QPaintEvent *event)
{
    if (!children().isEmpty())
        renewLinks(*this);
    QLabel::paintEvent(event);
}
