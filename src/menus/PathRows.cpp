#include "menus/PathRows.h"

#include "foundation/Accessible.h"
#include "foundation/Palette.h"

#include <QVBoxLayout>

namespace lumqt {

namespace {

// Metrics, in logical pixels.
constexpr int kMargin = 5;
constexpr int kSpacing = 3;

class AccessibleRows : public QAccessibleWidget
{
public:
    explicit AccessibleRows(PathRows *rows) : QAccessibleWidget(rows, QAccessible::List) {}

    QString text(QAccessible::Text kind) const override
    {
        if (kind != QAccessible::Name || !widget())
            return QAccessibleWidget::text(kind);
        const QWidget *window = widget()->window();
        for (const QString &name : {window->accessibleName(), window->windowTitle()}) {
            if (!name.isEmpty())
                return name;
        }
        return PathRows::tr("Locations");
    }

    // As they lie in the layout, which is not the order that they were made in.
    int childCount() const override { return rows() ? rows()->count() - 1 : 0; }

    QAccessibleInterface *child(int index) const override
    {
        if (index < 0 || index >= childCount())
            return nullptr;
        return QAccessible::queryAccessibleInterface(rows()->itemAt(index)->widget());
    }

    int indexOfChild(const QAccessibleInterface *child) const override
    {
        auto *row = child ? qobject_cast<QWidget *>(child->object()) : nullptr;
        return row && rows() ? rows()->indexOf(row) : -1;
    }

private:
    QVBoxLayout *rows() const { return widget() ? static_cast<PathRows *>(widget())->rows() : nullptr; }
};

QAccessibleInterface *makeAccessible(QWidget *widget)
{
    auto *rows = qobject_cast<PathRows *>(widget);
    return rows ? new AccessibleRows(rows) : nullptr;
}

} // namespace

PathRows::PathRows(QWidget *parent) : QWidget(parent), m_layout(new QVBoxLayout)
{
    installAccessible(staticMetaObject.className(), makeAccessible);
    keepTheme(this, {{QPalette::Window, Purpose::PathGround}});
    setAutoFillBackground(true);
    setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    // Rows that need more than the list has are squeezed: nobody could scroll to their other end.
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_layout->setSpacing(kSpacing);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->addSpacerItem(new QSpacerItem(0, 0, QSizePolicy::Minimum, QSizePolicy::Expanding));
    setLayout(m_layout);
}

} // namespace lumqt
