#include "CBPCheckBox.h"

#include "CBPStyle.h"

CBPCheckBox::CBPCheckBox(QWidget *parent) : CBPCheckBox(QString(), parent) {}

CBPCheckBox::CBPCheckBox(QString text, QWidget *parent) : QCheckBox(text, parent)
{
    CBPStyle::Apply(this);
}

CBPCheckBox::~CBPCheckBox() = default;

void CBPCheckBox::paintEvent(QPaintEvent *event)
{
    QCheckBox::paintEvent(event);
}
