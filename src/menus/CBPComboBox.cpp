#include "CBPComboBox.h"

#include <QListView>
#include <QWheelEvent>

CBPComboBox::CBPComboBox(QWidget *parent) : QComboBox(parent)
{
    setView(new QListView(this));
}

CBPComboBox::~CBPComboBox() = default;

void CBPComboBox::wheelEvent(QWheelEvent *event)
{
    event->accept();
}
