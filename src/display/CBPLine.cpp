#include "CBPLine.h"

#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "foundation/StyledGround.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

namespace {

constexpr int kBarHeight = 3;

// Marks a place, above the bar, and shows nothing.
class Place : public QLabel
{
public:
    // As an empty label has it, without the padding of a style sheet.
    QSize sizeHint() const override
    {
        return QSize(fontMetrics().averageCharWidth(), fontMetrics().lineSpacing());
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent *event) override
    {
        const bool handled = QLabel::event(event);
        lumqt::refuseStyledGround(this, event);
        return handled;
    }
    void paintEvent(QPaintEvent *) override {}
};

} // namespace

CBPLine::CBPLine(QWidget *parent) : CBPLine(true, parent) {}

CBPLine::CBPLine(bool horizontal, QWidget *parent)
    : QWidget(parent), m_label(new Place), m_horizontal(horizontal)
{
    QBoxLayout *layout = nullptr;
    if (m_horizontal)
        layout = new QHBoxLayout(this);
    else
        layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_label);
}

CBPLine::~CBPLine() = default;

Qt::Orientation CBPLine::orientation() const
{
    return m_horizontal ? Qt::Horizontal : Qt::Vertical;
}

void CBPLine::setOrientation(Qt::Orientation orientation)
{
    m_horizontal = orientation == Qt::Horizontal;
    if (auto *layout = qobject_cast<QBoxLayout *>(this->layout()))
        layout->setDirection(m_horizontal ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

void CBPLine::paintEvent(QPaintEvent *)
{
    QRect bar = m_label->geometry();
    bar.setHeight(kBarHeight);
    QPainter painter(this);
    QRectF place = lumqt::wholeDevicePixels(painter, bar); // as long as its place, as thick as any other
    place.setHeight(lumqt::evenDevicePixels(painter, bar).height());
    painter.fillRect(place, lumqt::themeColor(lumqt::Purpose::Bar));
}
