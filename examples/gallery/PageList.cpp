#include "PageList.h"

#include "PageRegistry.h"
#include "Theme.h"

#include <QFocusEvent>
#include <QHash>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

namespace {

constexpr int kPageIdRole = Qt::UserRole;
constexpr int kEntryHeight = 36;
constexpr int kHeadingHeight = 40;
constexpr int kTextStart = 3 * theme::kUnit;
constexpr int kTextEnd = theme::kUnit;
constexpr int kMarkWidth = 3;
constexpr int kHoverAlpha = 14;
constexpr int kCurrentAlpha = 26;

// As thin as it can be taken hold of, without buttons, and in the colours of the side bar.
const char kScrollBarStyle[] =
    "QScrollBar:vertical{background:%1;width:8px;margin:0;border:none;}"
    "QScrollBar::handle{background:%2;border-radius:3px;margin:1px;min-height:32px;}"
    "QScrollBar::handle:hover{background:%3;}"
    "QScrollBar::handle:pressed{background:%4;}"
    "QScrollBar::add-line,QScrollBar::sub-line{width:0;height:0;}"
    "QScrollBar::add-page,QScrollBar::sub-page{background:transparent;}";

class PageListDelegate : public QStyledItemDelegate
{
public:
    explicit PageListDelegate(PageList *list) : QStyledItemDelegate(list), m_list(list) {}

    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const override
    {
        return QSize(0, isHeading(index) ? kHeadingHeight : kEntryHeight);
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        painter->save();
        if (isHeading(index))
            paintHeading(*painter, option.rect, index.data().toString());
        else
            paintEntry(*painter, option, index);
        painter->restore();
    }

private:
    static bool isHeading(const QModelIndex &index) { return index.data(kPageIdRole).toString().isEmpty(); }

    void paintHeading(QPainter &painter, const QRect &rect, const QString &text) const
    {
        painter.setFont(m_headingFont);
        painter.setPen(theme::kSideHeading);
        const QRect place = rect.adjusted(kTextStart, 0, -kTextEnd, -theme::kUnit);
        drawText(painter, rect, place, Qt::AlignBottom, text);
    }

    void paintEntry(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
    {
        const QRect &rect = option.rect;
        const bool current = option.state & QStyle::State_Selected;
        const bool hovered = option.state & QStyle::State_MouseOver;
        if (current || hovered) {
            QColor mark = theme::kSideMarked;
            mark.setAlpha(current ? kCurrentAlpha : kHoverAlpha);
            painter.fillRect(rect, mark);
        }
        if (current)
            painter.fillRect(visual(rect, QRect(rect.left(), rect.top(), kMarkWidth, rect.height())),
                             theme::kAccentOnSide);
        if (current && m_list->showsFocus()) {
            painter.setPen(QPen(theme::kRing.color(), 2));
            const QRect free = visual(rect, rect.adjusted(kMarkWidth, 0, 0, 0));
            painter.drawRect(QRectF(free).adjusted(1, 1, -1, -1));
        }
        painter.setFont(current ? m_currentFont : m_font);
        painter.setPen(current ? theme::kSideMarked : theme::kSideText);
        const QRect place = rect.adjusted(kTextStart, 0, -kTextEnd, 0);
        drawText(painter, rect, place, Qt::AlignVCenter, index.data().toString());
    }

    QRect visual(const QRect &row, const QRect &place) const
    {
        return QStyle::visualRect(m_list->layoutDirection(), row, place);
    }

    // `place` is that from left to right.
    void drawText(QPainter &painter, const QRect &row, const QRect &place, Qt::Alignment vertical,
                  const QString &text) const
    {
        painter.setLayoutDirection(Qt::LeftToRight); // of the texts, which are English
        painter.drawText(visual(row, place), int(theme::lineStart() | vertical), text);
    }

    PageList *m_list;
    QFont m_font = theme::font(theme::Normal, 14);
    QFont m_currentFont = theme::font(theme::Semibold, 14);
    QFont m_headingFont = theme::font(theme::Normal, 12);
};

} // namespace

PageList::PageList(QWidget *parent) : QListWidget(parent)
{
    setFrameShape(QFrame::NoFrame);
    setItemDelegate(new PageListDelegate(this));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setMouseTracking(true);
    setAccessibleName(tr("Pages"));
    theme::follow(this, [this] { wearTheme(); });
    fill();
    connect(this, &QListWidget::currentItemChanged, this, [this](QListWidgetItem *item) {
        if (item)
            emit pageSelected(item->data(kPageIdRole).toString());
    });
}

void PageList::wearTheme()
{
    QPalette side = palette();
    side.setColor(QPalette::Base, theme::kSide);
    side.setColor(QPalette::Text, theme::kSideText);
    setPalette(side);
    const auto name = [](const theme::Tone &tone) { return tone.color().name(); };
    verticalScrollBar()->setStyleSheet(QString::fromLatin1(kScrollBarStyle)
                                           .arg(name(theme::kSide), name(theme::kSideSlider),
                                                name(theme::kSideSliderHovered), name(theme::kAccentOnSide)));
}

void PageList::fill()
{
    bool first = true;
    PageGroup group{};
    for (const PageInfo &page : pages()) {
        if ((first || page.group != group) && !groupTitle(page.group).isEmpty()) {
            auto *heading = new QListWidgetItem(groupTitle(page.group), this);
            heading->setFlags(Qt::NoItemFlags);
        }
        first = false;
        group = page.group;
        auto *entry = new QListWidgetItem(page.title, this);
        entry->setData(kPageIdRole, page.id);
    }
}

bool PageList::select(const QString &pageId)
{
    for (int row = 0; row < count(); ++row) {
        if (item(row)->data(kPageIdRole).toString() == pageId) {
            setCurrentRow(row);
            return true;
        }
    }
    return false;
}

QString PageList::selected() const
{
    return currentItem() ? currentItem()->data(kPageIdRole).toString() : QString();
}

int PageList::filter(const QString &words)
{
    const QStringList wanted = words.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QHash<QString, bool> found;
    for (const PageInfo &page : pages())
        found[page.id] = matches(page, wanted);
    int shown = 0;
    bool inGroup = false; // whether an entry of the heading below which we are is shown
    for (int row = count() - 1; row >= 0; --row) {
        const QString id = item(row)->data(kPageIdRole).toString();
        setRowHidden(row, id.isEmpty() ? !inGroup : !found.value(id));
        inGroup = !id.isEmpty() && (inGroup || found.value(id));
        shown += !id.isEmpty() && found.value(id);
    }
    return shown;
}

QString PageList::firstShown() const
{
    for (int row = 0; row < count(); ++row) {
        const QString id = item(row)->data(kPageIdRole).toString();
        if (!id.isEmpty() && !isRowHidden(row))
            return id;
    }
    return QString();
}

int PageList::fullHeight() const
{
    int height = 0;
    for (int row = 0; row < count(); ++row)
        height += sizeHintForRow(row);
    return height;
}

void PageList::focusInEvent(QFocusEvent *event)
{
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        m_keyboardUsed = true;
    QListWidget::focusInEvent(event);
    viewport()->update();
}

void PageList::keyPressEvent(QKeyEvent *event)
{
    m_keyboardUsed = true;
    QListWidget::keyPressEvent(event);
    viewport()->update();
}

void PageList::mousePressEvent(QMouseEvent *event)
{
    m_keyboardUsed = false;
    QListWidget::mousePressEvent(event);
    viewport()->update();
}
