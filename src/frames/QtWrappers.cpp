// The classes that fix a few defaults of a Qt widget, so that all views of an application look and behave
// alike.

#include "CBPQtGroupBox.h"
#include "CBPQtLine.h"
#include "CBPQtMainWindow.h"
#include "CBPQtTableView.h"
#include "CBPStyle.h"
#include "CBPTableWidget.h"
#include "CBPTreeView.h"
#include "CBPTreeWidget.h"

#include "foundation/Painting.h"
#include "foundation/Tones.h"

#include <QHeaderView>
#include <QLinearGradient>
#include <QPainter>

namespace {

constexpr int kLineWidth = 1;
constexpr int kRowHeight = 41;
constexpr QAbstractItemView::EditTriggers kEditTriggers =
    QAbstractItemView::EditTriggers(QAbstractItemView::SelectedClicked) | QAbstractItemView::EditKeyPressed;

void furnish(QAbstractItemView *view)
{
    CBPStyle::Apply(view);
    lumqt::wearWholeTheme(view);
}

} // namespace

CBPQtMainWindow::CBPQtMainWindow(QWidget *parent, Qt::WindowFlags flags) : QMainWindow(parent, flags)
{
    // Its ground is Qt's, and what lies on it is the library's as well as Qt's.
    lumqt::wearTheme(this, lumqt::groundTones());
    lumqt::wearPalette(this);
}

CBPQtMainWindow::~CBPQtMainWindow() = default;

CBPQtGroupBox::CBPQtGroupBox(QWidget *parent) : QGroupBox(parent) {}

CBPQtGroupBox::~CBPQtGroupBox() = default;

void CBPQtGroupBox::paintEvent(QPaintEvent *) {}

CBPQtLine::CBPQtLine(QWidget *parent) : QFrame(parent) {}

CBPQtLine::~CBPQtLine() = default;

void CBPQtLine::paintEvent(QPaintEvent *)
{
    QLinearGradient gradient(0, 0, 0, height());
    gradient.setColorAt(0.0, lumqt::themeColor(lumqt::Purpose::SeparatorStart));
    gradient.setColorAt(0.5, lumqt::themeColor(lumqt::Purpose::SeparatorMiddle));
    gradient.setColorAt(1.0, lumqt::themeColor(lumqt::Purpose::SeparatorEnd));
    QPainter painter(this);
    painter.fillRect(lumqt::wholeDevicePixels(painter, QRectF(0, 0, kLineWidth, height())), gradient);
}

CBPQtTableView::CBPQtTableView(QWidget *parent) : QTableView(parent)
{
    furnish(this);
}

CBPQtTableView::~CBPQtTableView() = default;

// Sorting is on from the first item, although it moves rows while they are filled: views of applications
// count on lists that come up in order, and on the arrow that their header shows from the start.
CBPTableWidget::CBPTableWidget(QWidget *) : QTableWidget(nullptr)
{
    furnish(this);
    setFrameShape(QFrame::NoFrame);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(kEditTriggers);
    setShowGrid(false);
    setMouseTracking(true);
    verticalHeader()->setVisible(false);
    verticalHeader()->setDefaultSectionSize(kRowHeight);
    horizontalHeader()->setHighlightSections(false);
    setTextElideMode(Qt::ElideRight);
    setSortingEnabled(true);
}

CBPTableWidget::~CBPTableWidget() = default;

CBPTreeView::CBPTreeView(QWidget *) : QTreeView(nullptr)
{
    furnish(this);
}

CBPTreeView::~CBPTreeView() = default;

// Sorted from the start, as the table is.
CBPTreeWidget::CBPTreeWidget() : CBPTreeWidget(nullptr) {}

CBPTreeWidget::CBPTreeWidget(QWidget *parent) : QTreeWidget(parent)
{
    furnish(this);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(kEditTriggers);
    setMouseTracking(true);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setSortingEnabled(true);
    setRootIsDecorated(false);
}

CBPTreeWidget::~CBPTreeWidget() = default;

void CBPTreeWidget::setPtOffsetSwitchOn(bool on)
{
    m_ptOffsetSwitchOn = on;
}

void CBPTreeWidget::setOffsetPt(bool offset)
{
    m_offsetPt = offset;
}

void CBPTreeWidget::mousePressEvent(QMouseEvent *event)
{
    QTreeWidget::mousePressEvent(event);
}

bool CBPTreeWidget::event(QEvent *event)
{
    return QTreeWidget::event(event);
}
