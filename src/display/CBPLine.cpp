#include "CBPLine.h"

#include "foundation/Painting.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

namespace {

const QColor kBarColor(75, 174, 178);
constexpr int kBarHeight = 3;

} // namespace

CBPLine::CBPLine(bool horizontal, QWidget *parent)
    : QWidget(parent), m_label(new QLabel), m_horizontal(horizontal)
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

void CBPLine::paintEvent(QPaintEvent *)
{
    QRect bar = m_label->geometry();
    bar.setHeight(kBarHeight);
    QPainter painter(this);
    painter.fillRect(lumqt::wholeDevicePixels(painter, bar), kBarColor);
}
