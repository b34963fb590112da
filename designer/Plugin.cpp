#include "Plugin.h"

#include "CustomWidget.h"
#include "WidgetTable.h"

Plugin::Plugin(QObject *parent) : QObject(parent)
{
    for (const WidgetRow &row : widgetTable())
        m_widgets.append(new CustomWidget(row, this));
}
