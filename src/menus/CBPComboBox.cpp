#include "CBPComboBox.h"

#include "CBPStyle.h"

#include <QListView>
#include <QWheelEvent>

CBPComboBox::CBPComboBox(QWidget *parent) : QComboBox(parent)
{
    setView(new QListView(this));
    setFocusPolicy(Qt::StrongFocus); // not by the wheel, either
    CBPStyle::Apply(this);
}

CBPComboBox::~CBPComboBox() = default;

void CBPComboBox::wheelEvent(QWheelEvent *event)
{
    event->accept();
}
