#include "CBPCheckBox.h"

CBPCheckBox::CBPCheckBox(QWidget *parent) : QCheckBox(parent) {}

CBPCheckBox::CBPCheckBox(QString text, QWidget *parent) : QCheckBox(text, parent) {}

CBPCheckBox::~CBPCheckBox() = default;

void CBPCheckBox::paintEvent(QPaintEvent *event)
{
    QCheckBox::paintEvent(event);
}
