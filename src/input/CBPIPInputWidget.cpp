#include "CBPIPInputWidget.h"

#include "CBPIPAddrEdit.h"
#include "foundation/Accessible.h"
#include "foundation/FocusRing.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "input/OctetValidator.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>

namespace {

// Look and metrics, in logical pixels.
const QMargins kMargins(6, 2, 6, 2);
// An application's room for all that it has would leave the octets none.
const char kSheet[] = "QLineEdit{padding:0px;margin:0px;}";
constexpr int kSpacing = 8;
constexpr int kGaps = 36;     // margins and spacings together
constexpr int kDotOffset = 2; // of a dot from the middle between margin and spacing
constexpr int kDotRise = 10;  // of the dots above the bottom
constexpr int kDotSize = 2;   // on other than light grounds, where a single pixel is lost
constexpr int kBitsPerOctet = 8;

class AccessibleAddress : public QAccessibleWidget
{
public:
    explicit AccessibleAddress(QWidget *field) : QAccessibleWidget(field, QAccessible::Grouping) {}

    QString text(QAccessible::Text kind) const override
    {
        auto *field = static_cast<CBPIPInputWidget *>(widget());
        if (kind == QAccessible::Value && field)
            return field->IPAddrString();
        const QString own = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && own.isEmpty() ? CBPIPInputWidget::tr("IP address") : own;
    }
};

QAccessibleInterface *makeAccessible(QWidget *widget)
{
    return qobject_cast<CBPIPInputWidget *>(widget) ? new AccessibleAddress(widget) : nullptr;
}

} // namespace

CBPIPInputWidget::CBPIPInputWidget(QWidget *parent) : QWidget(parent)
{
    lumqt::installAccessible(staticMetaObject.className(), makeAccessible);
    init();
}

CBPIPInputWidget::~CBPIPInputWidget() = default;

void CBPIPInputWidget::init()
{
    setStyleSheet(QLatin1String(kSheet));
    setLayoutDirection(Qt::LeftToRight); // addresses are, in every language
    auto *layout = new QHBoxLayout;
    layout->setContentsMargins(kMargins);
    layout->setSpacing(kSpacing);
    for (int i = 0; i < kOctets; ++i) {
        auto *edit = new CBPIPAddrEdit(this);
        edit->setAccessibleName(tr("Octet %1 of %2").arg(i + 1).arg(kOctets));
        connect(edit, &QLineEdit::textChanged, this, &CBPIPInputWidget::onTextChanged);
        connect(edit, &QLineEdit::textEdited, this, &CBPIPInputWidget::onTextEdited);
        edit->installEventFilter(this);
        layout->addWidget(edit, 0, Qt::AlignCenter);
        m_pEdits[i] = edit;
    }
    for (int i = 1; i < kOctets; ++i) {
        setTabOrder(m_pEdits[i - 1], m_pEdits[i]);
        m_pEdits[i - 1]->setNextTabEdit(m_pEdits[i]);
        m_pEdits[i]->setPreTabEdit(m_pEdits[i - 1]);
    }
    setFocusProxy(m_pEdits[0]);
    setLayout(layout);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void CBPIPInputWidget::setIP(const QString &ip)
{
    const QStringList octets = lumqt::octetsOf(ip);
    for (int i = 0; i < octets.size(); ++i)
        m_pEdits[i]->setText(octets[i]);
}

void CBPIPInputWidget::setIP(unsigned long ip)
{
    QStringList octets;
    for (int i = 0; i < kOctets; ++i)
        octets << QString::number((ip >> (kBitsPerOctet * i)) & 0xffu);
    setIP(octets.join(QLatin1Char('.')));
}

QString CBPIPInputWidget::IPAddrString()
{
    return ip();
}

QString CBPIPInputWidget::ip() const
{
    QStringList octets;
    for (const CBPIPAddrEdit *edit : m_pEdits)
        octets << edit->text();
    return octets.join(QLatin1Char('.'));
}

// The first octet is the highest byte, while setIP() takes it from the lowest: callers rely on both.
unsigned int CBPIPInputWidget::IPAddrNum()
{
    unsigned int number = 0;
    for (int i = 0; i < kOctets; ++i)
        number += m_pEdits[i]->text().toUInt() << (kBitsPerOctet * (kOctets - 1 - i));
    return number;
}

void CBPIPInputWidget::onTextChanged(const QString &)
{
    emit textChanged(IPAddrString());
}

void CBPIPInputWidget::onTextEdited(const QString &)
{
    emit textEdited(IPAddrString());
}

// As in any field for a text, the ring shows for the mouse, too: it tells where typing goes.
bool CBPIPInputWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn)
        lumqt::setRingAround(this, true);
    // A menu, which gives the focus back, and the next octet leave it where it is.
    if (event->type() == QEvent::FocusOut && !isAncestorOf(QApplication::focusWidget()))
        lumqt::setRingAround(this, false);
    return QWidget::eventFilter(watched, event);
}

void CBPIPInputWidget::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    using lumqt::Purpose;
    lumqt::Body box;
    box.fill = lumqt::themeColor(Purpose::Field);
    box.frame = lumqt::themeColor(isEnabled() ? Purpose::Frame : Purpose::AddressFrameDisabled);
    lumqt::drawBody(painter, rect(), box);

    const QColor &dots = lumqt::themeColor(isEnabled() ? Purpose::AddressDot : Purpose::AddressDotDisabled);
    const int size = lumqt::isPlainLight() ? 1 : kDotSize;
    const int segment = (width() - kGaps) / kOctets;
    const int y = height() - kDotRise;
    for (int i = 1; i < kOctets; ++i) {
        const QRectF dot(i * (segment + kSpacing) + kDotOffset, y, size, size);
        painter.fillRect(lumqt::wholeDevicePixels(painter, dot), dots);
    }
}
