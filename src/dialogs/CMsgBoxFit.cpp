#include "CBPBox.h"
#include "CMsgBox.h"
#include "dialogs/WrappedLabel.h"
#include "foundation/FocusMark.h"
#include "foundation/Painting.h"
#include "platform/Platform.h"

#include <QAbstractButton>
#include <QBoxLayout>
#include <QCoreApplication>
#include <QEvent>
#include <QFocusEvent>
#include <QPainter>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QTextLayout>

// The size of the box: all of its texts are to be seen.

namespace {

// Metrics, in logical pixels.
constexpr int kWidth = 500;
constexpr int kCheckWidth = 140; // that a check box keeps beside any number of buttons
constexpr int kCheckLines = 6;
constexpr int kCheckPadding = 34; // of the bottom area, above and below the row
constexpr int kScrollFrame = lumqt::kFocusRingWidth;
constexpr int kScrollAir = 3; // between the mark of the focus and the text

// `text` in lines of at most `width`; the last of too many ends in an ellipsis.
QString inLines(const QString &text, const QFont &font, int width)
{
    QString source = text;
    source.replace(QLatin1Char('\n'), QChar::LineSeparator);
    QTextLayout layout(source, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    QStringList lines;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        if (lines.size() == kCheckLines) {
            lines.last() = QFontMetrics(font).elidedText(lines.constLast() + QStringLiteral(" ") +
                                                             source.mid(line.textStart(), line.textLength()),
                                                         Qt::ElideRight, width);
            break;
        }
        lines << source.mid(line.textStart(), line.textLength()).remove(QChar::LineSeparator).trimmed();
    }
    layout.endLayout();
    return lines.join(QLatin1Char('\n'));
}

// A layout that is not shown hears of changes in the widgets of its widgets only as these lay themselves out.
void layOutUpTo(const QWidget *window, QWidget *from)
{
    for (QWidget *widget = from; widget && widget != window; widget = widget->parentWidget()) {
        if (widget->layout())
            widget->layout()->activate();
    }
    window->layout()->activate();
}

// Takes the focus, so that keys scroll it, and has room for the mark around what scrolls.
class TextArea : public QScrollArea
{
public:
    TextArea()
    {
        setFrameStyle(QFrame::Box | QFrame::Plain); // room for the mark, which is painted in its place
        setLineWidth(kScrollFrame);
        setViewportMargins(kScrollAir, 0, kScrollAir, 0);
        setWidgetResizable(true);
    }

protected:
    bool event(QEvent *event) override
    {
        const lumqt::FocusMark before = m_mark;
        if (event->type() == QEvent::FocusIn)
            lumqt::focusGained(m_mark, static_cast<QFocusEvent *>(event)->reason());
        else if (event->type() == QEvent::FocusOut)
            lumqt::focusLost(m_mark, static_cast<QFocusEvent *>(event)->reason());
        else if (event->type() == QEvent::KeyPress)
            lumqt::keyUsed(m_mark);
        if (event->type() == QEvent::Paint) {
            QPainter painter(this);
            if (m_mark == lumqt::FocusMark::Shown)
                lumqt::drawFocusRing(painter, rect());
            return true;
        }
        if (m_mark != before)
            update();
        return QScrollArea::event(event);
    }

private:
    lumqt::FocusMark m_mark = lumqt::FocusMark::None;
};

QScrollArea *scrollAreaOf(QWidget *page)
{
    auto *area = new TextArea;
    area->setWidget(page);
    page->setAutoFillBackground(false);
    area->viewport()->setAutoFillBackground(false);
    return area;
}

QSize roomOnScreen()
{
    const QRect area = lumqt::platform::answers().workArea();
    return area.isValid() ? area.size() : QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
}

} // namespace

// Before it is shown, so that it is placed in the size it has.
void CMsgBox::fitToContent()
{
    if (!layout())
        return;
    layOutUpTo(this, m_content);
    const int room = qBound(minimumWidth(), width(), maximumWidth());
    const int bottom = bottomHeight();
    fitCheckBox(room);
    auto *check = qobject_cast<QAbstractButton *>(m_checkBox);
    if (wrapRow() && check) { // it stands above the buttons, with all their width
        layOutUpTo(this, check->parentWidget());
        const int wide = qMax(room, layout()->totalMinimumSize().width());
        check->setText(plainOnCheckBox(m_checkText));
        SetBottomHeight(bottom);
        fitCheckBox(wide);
        wrapRow();
    }
    fitToRoom(roomOnScreen());
}

void CMsgBox::fitCheckBox(int room)
{
    auto *check = qobject_cast<QAbstractButton *>(m_checkBox);
    if (!check)
        return;
    layOutUpTo(this, check->parentWidget());
    const int excess = layout()->totalMinimumSize().width() - room;
    if (excess <= 0)
        return;
    // All of the excess is taken for the check box's: what else is too wide leaves it the least width.
    const int whole = check->sizeHint().width();
    const QFontMetrics metrics = check->fontMetrics();
    const int mark = qMax(0, whole - metrics.size(0, m_checkText).width());
    const int width = qMax(kCheckWidth, whole - excess);
    if (width >= whole)
        return;
    const QString shown = inLines(m_checkText, check->font(), width - mark);
    check->setText(plainOnCheckBox(shown));
    if (shown.endsWith(QChar(0x2026)))
        check->setToolTip(m_checkText);
    SetBottomHeight(qMax(bottomHeight(), check->sizeHint().height() + kCheckPadding));
    layOutUpTo(this, check->parentWidget());
}

// As long as the application has not given it another.
bool CMsgBox::hasOwnWidth() const
{
    return minimumWidth() == maximumWidth() && minimumWidth() == m_ownWidth;
}

int CMsgBox::widest() const
{
    return hasOwnWidth() ? qMax(kWidth, roomOnScreen().width()) : CBPPopWnd::widest();
}

// What the layout needs in a width, and some room around it.
int CMsgBox::neededHeight(int width) const
{
    layout()->activate();
    const int wrapped = layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(width) : 0;
    // Further rows of buttons take nothing of the room that a short text has around it.
    const int rows = statusBox() ? statusBox()->minimumHeight() - bottomHeight() : 0;
    return qMax(minimumHeight() + rows, qMax(wrapped, layout()->totalMinimumSize().height()));
}

// All of the content is shown, or scrolls: what is wider or higher than the room, or than the application
// lets the box be.
void CMsgBox::fitToRoom(const QSize &room)
{
    const int natural = layout()->totalMinimumSize().width();
    if (hasOwnWidth() && natural > m_ownWidth) {
        m_ownWidth = qMin(natural, widest());
        setFixedWidth(m_ownWidth);
    }
    resize(qBound(minimumWidth(), width(), maximumWidth()), height());
    int height = neededHeight(qMax(natural, width()));
    if (natural > width())
        height += style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 2 * kScrollFrame;
    if (natural > width() || height > room.height()) {
        makeScrollable();
        layOutUpTo(this, m_content);
    }
    resize(width(), qMax(qMin(height, room.height()), minimumHeight()));
    if (m_scrollArea) // once it is laid out, it is known what it leaves to the texts
        QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest));
}

// The text of a message scrolls beside its icon, a form as a whole.
void CMsgBox::makeScrollable()
{
    if (!m_content || m_scrollArea)
        return;
    // What is moved into another parent loses the focus: what is being typed would go to a button.
    const QPointer<QWidget> focused = focusWidget();
    moveIntoScrollArea();
    if (focused && focused != focusWidget())
        focused->setFocus();
}

void CMsgBox::moveIntoScrollArea()
{
    if (auto *row = qobject_cast<QHBoxLayout *>(m_content->layout())) {
        QLayout *column = m_message && row->count() == 2 ? row->itemAt(1)->layout() : nullptr;
        if (!column)
            return;
        row->removeItem(column);
        column->setParent(nullptr);
        auto *page = new QWidget;
        page->setLayout(column);
        m_scrollArea = scrollAreaOf(page);
        page->installEventFilter(this);
        row->addWidget(m_scrollArea, 1);
        return;
    }
    auto *place = new QWidget;
    delete contentBox()->replaceWidget(m_content, place);
    m_scrollArea = scrollAreaOf(m_content);
    m_content->installEventFilter(this);
    delete contentBox()->replaceWidget(place, m_scrollArea);
    delete place;
}

// The height in which what scrolls would be seen as a whole.
int CMsgBox::neededScrolling() const
{
    const QWidget *page = m_scrollArea->widget();
    page->layout()->activate();
    const QSize shown = m_scrollArea->viewport()->size();
    const int wide = qMax(shown.width(), page->minimumSizeHint().width());
    const int high = page->hasHeightForWidth() ? page->heightForWidth(wide) : 0;
    return height() - shown.height() + qMax(high, page->minimumSizeHint().height());
}

// A text that was changed meanwhile may need more room.
void CMsgBox::growToContent()
{
    if (!isVisible() || m_ended || !layout())
        return;
    const QSize room = roomOnScreen();
    const QRect before = geometry();
    if (m_scrollArea) {
        const int needed = qMin(neededScrolling(), room.height());
        if (needed > height())
            resize(width(), needed);
    } else if (layout()->totalMinimumSize().width() > width() || neededHeight(width()) > height()) {
        fitToRoom(room);
    }
    if (size() == before.size())
        return;
    // Over where its middle was, as far as the screen allows, which may be another one than the primary.
    QRect area = lumqt::platform::answers().workArea();
    if (!area.intersects(before))
        area = screen()->availableGeometry();
    const QPoint at = before.topLeft() - QPoint(width() - before.width(), height() - before.height()) / 2;
    move(qMax(area.left(), qMin(at.x(), area.left() + area.width() - width())),
         qMax(area.top(), qMin(at.y(), area.top() + area.height() - height())));
}

void CMsgBox::contentChanged()
{
    growToContent();
    if (isVisible())
        describe();
}

bool CMsgBox::event(QEvent *event)
{
    const bool handled = CBPPopWnd::event(event);
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::WindowTitleChange)
        contentChanged();
    return handled;
}

// A scroll area keeps to itself what changes in it.
bool CMsgBox::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest && m_scrollArea && watched == m_scrollArea->widget())
        contentChanged();
    return CBPPopWnd::eventFilter(watched, event);
}
