#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPQtGroupBox.h"
#include "CBPQtLine.h"
#include "CBPQtMainWindow.h"
#include "CBPQtTableView.h"
#include "CBPTableWidget.h"
#include "CBPTreeView.h"
#include "CBPTreeWidget.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QStatusBar>
#include <QStyle>
#include <QStyleFactory>
#include <QVBoxLayout>

namespace {

constexpr int kRowHeight = 56; // of dividers and groups
constexpr int kViewWidth = 420;
constexpr int kPlainWidth = 104;

void outline(QWidget *view, int height)
{
    view->setFont(theme::font(theme::Normal, 14));
    view->setFixedSize(kViewWidth, height);
}

QWidget *table(EventLog *log)
{
    auto *view = new CBPTableWidget(nullptr);
    view->setSortingEnabled(false); // while it is filled
    view->setColumnCount(3);
    view->setHorizontalHeaderLabels({"Name", "Kind", "Size"});
    const QStringList rows[] = {{"Photographs of the summer by the sea", "Folder", "1.2 GB"},
                                {"Accounts", "Table", "34 KB"},
                                {"Letters", "Folder", "8.1 MB"},
                                {"Notes", "Text", "2 KB"}};
    view->setRowCount(4);
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 3; ++column)
            view->setItem(row, column, new QTableWidgetItem(rows[row][column]));
    }
    view->setSortingEnabled(true);
    view->sortItems(0);
    view->setColumnWidth(0, 200);
    view->horizontalHeader()->setStretchLastSection(true);
    view->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    view->setCurrentCell(1, 0); // selects its row
    outline(view, 208);
    QObject::connect(view, &QTableWidget::itemChanged, log, [log](QTableWidgetItem *item) {
        log->add(QString("itemChanged: \"%1\"").arg(item->text()));
    });
    return view;
}

QWidget *tree(EventLog *log)
{
    auto *view = new CBPTreeWidget;
    view->setColumnCount(2);
    view->setHeaderLabels({"Name", "Kind"});
    for (const char *name : {"Disk", "Archive"}) {
        auto *top = new QTreeWidgetItem(view, {name, "Volume"});
        for (const char *inner : {"Photographs", "Letters"})
            new QTreeWidgetItem(top, {inner, "Folder"});
    }
    view->expandAll();
    view->sortItems(0, Qt::AscendingOrder);
    view->setColumnWidth(0, 240);
    view->setCurrentItem(view->topLevelItem(0)->child(0));
    outline(view, 208);
    QObject::connect(view, &QWidget::customContextMenuRequested, log, [log](const QPoint &place) {
        log->add(QString("customContextMenuRequested(%1, %2)").arg(place.x()).arg(place.y()));
    });
    return view;
}

QStandardItemModel *model(QObject *owner)
{
    auto *result = new QStandardItemModel(0, 2, owner);
    result->setHorizontalHeaderLabels({"Name", "Kind"});
    for (const char *name : {"Disk", "Archive"}) {
        auto *item = new QStandardItem(name);
        item->appendRow({new QStandardItem("Letters"), new QStandardItem("Folder")});
        result->appendRow({item, new QStandardItem("Volume")});
    }
    return result;
}

QWidget *tableView()
{
    auto *view = new CBPQtTableView(nullptr);
    view->setModel(model(view));
    view->horizontalHeader()->setStretchLastSection(true);
    outline(view, 136);
    return view;
}

CBPTreeView *treeView()
{
    auto *view = new CBPTreeView(nullptr);
    view->setModel(model(view));
    view->expandAll();
    view->setColumnWidth(0, 240);
    outline(view, 136);
    return view;
}

QWidget *focusedTree()
{
    auto *view = treeView();
    view->setCurrentIndex(view->model()->index(0, 0));
    view->ensurePolished(); // from then on its style follows the focus
    return pose::in(pose::Focused, view);
}

QWidget *divided()
{
    auto *box = new QWidget;
    auto *layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2 * theme::kUnit);
    bool first = true;
    for (const char *text : {"Today", "This week", "Ever"}) {
        if (!first) {
            auto *line = new CBPQtLine(nullptr);
            line->setFixedSize(1, kRowHeight);
            layout->addWidget(line);
        }
        first = false;
        layout->addWidget(theme::label(text, theme::Normal, 14, theme::kText));
    }
    return box;
}

QWidget *group()
{
    auto *box = new CBPQtGroupBox(nullptr);
    box->setAccessibleName("Repeat"); // a title takes room even though it is hidden
    box->setFixedHeight(kRowHeight);
    auto *layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const char *text : {"Daily", "Weekly", "Never"}) {
        auto *choice = new QRadioButton(text);
        choice->setFont(theme::font(theme::Normal, 14));
        layout->addWidget(choice);
    }
    static_cast<QRadioButton *>(layout->itemAt(1)->widget())->setChecked(true);
    return box;
}

template <class Widget> Widget *plain()
{
    auto *widget = new Widget;
    widget->setFont(theme::font(theme::Normal, 14));
    return widget;
}

QWidget *radio()
{
    auto *choice = plain<QRadioButton>();
    choice->setText("Weekly");
    choice->setChecked(true);
    return choice;
}

QWidget *number()
{
    auto *field = plain<QSpinBox>();
    field->setRange(0, 99);
    field->setValue(99);
    return field;
}

QWidget *choices()
{
    auto *field = plain<QComboBox>();
    field->addItems({"Weekly", "Daily"});
    return field;
}

QWidget *text()
{
    auto *field = plain<QLineEdit>();
    field->setText("Letters");
    field->setFixedWidth(kPlainWidth);
    return field;
}

QWidget *button()
{
    auto *pushed = plain<QPushButton>();
    pushed->setText("Save");
    return pushed;
}

// As it looks where the library's style is not installed.
QWidget *withoutLibraryStyle(QWidget *widget)
{
    QStyle *style = QStyleFactory::create("Fusion");
    style->setParent(widget);
    widget->setStyle(style);
    return widget;
}

SampleRow plainRow(const QString &name, QWidget *(*make)())
{
    SampleRow row{name, {}};
    for (const pose::State state : {pose::Normal, pose::Hovered, pose::Focused, pose::Disabled}) {
        QWidget *sample = make();
        sample->ensurePolished(); // from then on its style follows the focus
        row.widgets << pose::in(state, sample);
    }
    row.widgets << pose::in(pose::Normal, withoutLibraryStyle(make()));
    return row;
}

// A thin line round a window, which has no frame of its own here.
class Outlined : public QWidget
{
protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        theme::paintPanel(painter, rect(), theme::kGround);
    }
};

QWidget *mainWindow()
{
    auto *window = new CBPQtMainWindow(nullptr, Qt::Widget);
    window->setFont(theme::font(theme::Normal, 14));
    window->menuBar()->setNativeMenuBar(false);
    for (const char *title : {"File", "Edit", "Help"})
        window->menuBar()->addMenu(title);
    QLabel *content = theme::label("Central widget", theme::Normal, 14, theme::kText);
    content->setAlignment(Qt::AlignCenter);
    window->setCentralWidget(content);
    window->statusBar()->showMessage("Ready");
    window->statusBar()->setSizeGripEnabled(false);

    auto *outlined = new Outlined;
    auto *layout = new QVBoxLayout(outlined);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(window);
    theme::fill(window, theme::kGround);
    outlined->setFixedSize(kViewWidth, 136);
    return outlined;
}

Page *makePage()
{
    auto *page = new Page("Views and wrappers",
                          "Qt's own widgets with the library's defaults and class names for style sheets.");
    auto *log = new EventLog("Nothing yet: edit a cell of the table, or ask for the tree's context menu.");
    Section *views = page->addSection(
        "Table and tree",
        "Whole rows are selected, a second click or F2 edits, a click on a column's title sorts. The "
        "selection "
        "has the full accent while the focus is in the view, and a pale one while it is elsewhere.");
    views->addSamples({{"CBPTableWidget: rows of 41 pixels, no grid", table(log)},
                       {"CBPTreeWidget: top-level items without a branch mark", tree(log)}});
    views->addWide(log);
    page->addSection("Views", "These have Qt's own defaults.")
        ->addSamples({{"CBPQtTableView", tableView()}, {"CBPTreeView, the focus in a row", focusedTree()}});
    page->addSection("Dividers and groups", "CBPQtLine is one pixel wide and fades at its ends. "
                                            "CBPQtGroupBox shows neither frame nor title.")
        ->addSamples({{"CBPQtLine, twice", divided()}, {"CBPQtGroupBox", group()}});
    page->addSection("Plain widgets",
                     "CBPStyle::Install() gives an application's own widgets the library's look.")
        ->addTable({"Normal", "Hovered", "Focused", "Disabled", "Without CBPStyle"},
                   {plainRow("QRadioButton", radio), plainRow("QSpinBox", number),
                    plainRow("QComboBox", choices), plainRow("QLineEdit", text),
                    plainRow("QPushButton", button)});
    page->addSection("Main window",
                     "CBPQtMainWindow takes menu bar, central widget and status bar as any main window.")
        ->addSamples({{"CBPQtMainWindow", mainWindow()}});
    return page;
}

void registerThis()
{
    registerPage({"wrappers", "Views and wrappers", PageGroup::Windows, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
