#include "CTextTips.h"

#include "dialogs/TipAccessible.h"
#include "dialogs/WrappedLabel.h"
#include "foundation/Accessible.h"
#include "foundation/FontLookup.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "foundation/StyledGround.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

using lumqt::Purpose;

namespace {

constexpr int kLightBackground = 150;  // grey value from which on a text is dark
const QMargins kMargins(12, 3, 12, 6); // logical pixels

QAccessibleInterface *makeAccessible(QWidget *widget)
{
    return new lumqt::TipAccessible(widget, QAccessible::ToolTip);
}

// Keeps what a plain rule of the application lays behind every label, "QLabel { background: white }", from
// behind this one: its text is light, as the box paints the ground for it.
class NoGround : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::Polish && event->type() != QEvent::StyleChange)
            return false;
        watched->event(event); // in which the style asks for the ground
        lumqt::refuseStyledGround(static_cast<QWidget *>(watched), event);
        return true;
    }
};

} // namespace

CTextTips::CTextTips(int width, QWidget *parent) : QWidget(parent), m_width(width)
{
    lumqt::installAccessible("CTextTips", makeAccessible);
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint | Qt::ToolTip);
    InitLayout();
}

QLabel *CTextTips::makeLabel()
{
    QLabel *label = nullptr;
    if (m_width > 0) {
        label = new lumqt::WrappedLabel(QString(), lumqt::NormalWeight, lumqt::uiFont().pixelSize());
        label->setFixedWidth(m_width);
        QSizePolicy policy(QSizePolicy::Fixed, QSizePolicy::Preferred);
        policy.setHeightForWidth(true);
        label->setSizePolicy(policy);
    } else {
        label = new QLabel;
        label->setFont(lumqt::uiFont());
    }
    label->installEventFilter(new NoGround(label));
    return label;
}

void CTextTips::InitLayout()
{
    m_label = makeLabel();
    auto *layout = new QVBoxLayout;
    layout->setSpacing(0);
    layout->addWidget(m_label);
    layout->setContentsMargins(kMargins);
    setLayout(layout);
    followBackground();
    lumqt::onThemeChange(this, [this] {
        if (m_label->palette().brush(QPalette::WindowText) == m_textBrush)
            followBackground();
    });
}

void CTextTips::SetShowText(const QString &text)
{
    const bool changes = m_label->text() != text;
    m_label->setText(text);
    // A window grows with its content by itself, but does not shrink.
    adjustSize();
    if (changes)
        emit textChanged(text);
}

QString CTextTips::text() const
{
    return m_label->text();
}

// A label that wraps is of another kind than one that does not.
void CTextTips::setTextWidth(int width)
{
    if (width == m_width)
        return;
    m_width = width;
    QLabel *label = makeLabel();
    label->setText(m_label->text());
    label->setPalette(m_label->palette());
    delete layout()->replaceWidget(m_label, label);
    delete m_label;
    m_label = label;
    label->show(); // or it would have no size yet
    adjustSize();
}

void CTextTips::SetBkgColor(const QColor &color)
{
    if (!color.isValid())
        return;
    m_bkgColor = color;
    followBackground();
    update();
}

QColor CTextTips::backgroundColor() const
{
    return m_bkgColor.isValid() ? m_bkgColor : lumqt::builtInColor(Purpose::TextTipGround);
}

void CTextTips::resetBackgroundColor()
{
    m_bkgColor = QColor();
    followBackground();
    update();
}

void CTextTips::followBackground()
{
    const QColor &ground = lumqt::ownOr(m_bkgColor, Purpose::TextTipGround);
    m_textBrush = lumqt::ownBrush(lumqt::themeColor(
        qGray(ground.rgb()) < kLightBackground ? Purpose::TextTipLight : Purpose::TextTipDark));
    QPalette palette = m_label->palette();
    palette.setBrush(QPalette::WindowText, m_textBrush);
    m_label->setPalette(palette);
}

void CTextTips::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), lumqt::ownOr(m_bkgColor, Purpose::TextTipGround));
    lumqt::Body outline;
    outline.frame = lumqt::themeColor(Purpose::TextTipFrame);
    if (outline.frame.alpha() > 0)
        lumqt::drawBody(painter, rect(), outline);
}
