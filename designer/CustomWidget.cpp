#include "CustomWidget.h"

#include "PageExtensions.h"
#include "WidgetTable.h"

#include <QIcon>

namespace {

// As a new object is called: "pushBtn" of "CBPPushBtn".
QString objectNameOf(QString type)
{
    for (const char *prefix : {"CBP", "C"}) {
        if (type.startsWith(QLatin1String(prefix))) {
            type.remove(0, int(qstrlen(prefix)));
            break;
        }
    }
    int capitals = 0; // "IPInputWidget" is "ipInputWidget"
    while (capitals < type.size() && type.at(capitals).isUpper())
        ++capitals;
    const int lower = capitals > 1 ? capitals - 1 : 1;
    return type.left(lower).toLower() + type.mid(lower);
}

QString geometryOf(const QSize &size)
{
    if (size.isEmpty())
        return QString();
    return QStringLiteral("<property name='geometry'><rect><x>0</x><y>0</y>"
                          "<width>%1</width><height>%2</height></rect></property>")
        .arg(size.width())
        .arg(size.height());
}

} // namespace

CustomWidget::CustomWidget(const WidgetRow &row, QObject *parent) : QObject(parent), m_row(row) {}

bool CustomWidget::isContainer() const
{
    return m_row.isContainer;
}

QIcon CustomWidget::icon() const
{
    const QIcon drawing(QStringLiteral(":/lumqtlib/designer/%1.svg").arg(name()));
    // Pixmaps, since the widget box asks for sizes that it thinks there are, of which a drawing has none.
    QIcon icon;
    for (const int side : {22, 33, 44})
        icon.addPixmap(drawing.pixmap(side));
    return icon;
}

QString CustomWidget::domXml() const
{
    const QString addPage =
        m_row.addPage ? QStringLiteral("<addpagemethod>%1</addpagemethod>").arg(QLatin1String(m_row.addPage))
                      : QString();
    // Quotes as they are: a new form of a class is made of what begins with <widget class="
    return QStringLiteral("<ui language='c++'><widget class=\"%1\" name=\"%2\">%3%4</widget>"
                          "<customwidgets><customwidget><class>%1</class><extends>%5</extends>"
                          "<header>%6</header>%7%8</customwidget></customwidgets></ui>")
        .arg(name(), objectNameOf(name()), geometryOf(m_row.size), QString::fromUtf8(m_row.inside),
             QLatin1String(m_row.base()), includeFile(), addPage,
             m_row.isContainer ? QStringLiteral("<container>1</container>") : QString());
}

QString CustomWidget::group() const
{
    return QLatin1String(m_row.group);
}

QString CustomWidget::includeFile() const
{
    return name() + QLatin1String(".h");
}

QString CustomWidget::name() const
{
    return QLatin1String(m_row.type->className());
}

QString CustomWidget::toolTip() const
{
    return QLatin1String(m_row.tip);
}

QWidget *CustomWidget::createWidget(QWidget *parent)
{
    return m_row.make(parent);
}

void CustomWidget::initialize(QDesignerFormEditorInterface *core)
{
    if (m_isInitialized)
        return;
    m_isInitialized = true;
    registerPageExtensions(core);
}
