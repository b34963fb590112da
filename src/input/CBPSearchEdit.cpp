#include "CBPSearchEdit.h"

#include "CBPStyle.h"
#include "foundation/EmbeddedRes.h"
#include "foundation/ImageLoader.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "foundation/QtCompat.h"
#include "foundation/Tones.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QRegularExpression>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kSearchPause = 1500; // ms
constexpr int kMaxLength = 50;

// Tabs and all: applications compare it, and replace parts of it.
const char kSheet[] = "QToolButton{"
                      "\t\t\t\t  border:0px;"
                      "\t\t\t\t  }"
                      "\t\t\t\t  QToolButton#btnClose{"
                      "\t\t\t\t  image: url(../res/icon_delete_normal.png);"
                      "\t\t\t\t  }"
                      "\t\t\t\t  QToolButton#btnClose:hover{"
                      "\t\t\t\t  background-color: qradialgradient(spread:pad, cx:0.5, cy:0.5, radius:0.5, "
                      "fx:0.499636, fy:0.495, stop:0 rgba(255, 235, 235, 206), stop:0.0909091 rgba(255, 188, "
                      "188, 80), stop:0.267045 rgba(255, 162, 162, 80), stop:0.44 rgba(252, 128, 128, 80), "
                      "stop:0.676136 rgba(127, 150, 114, 114), stop:1 rgba(255, 255, 255, 0));"
                      "\t\t\t\t  image: url(../res/icon_delete_hover.png);"
                      "\t\t\t\t  }"
                      "\t\t\t\t  QToolButton#btnClose:pressed{"
                      "\t\t\t\t  image: url(../res/icon_delete_press.png);"
                      "\t\t\t\t  }"
                      "\t\t\t\t  QToolButton#btnSearch{"
                      "\t\t\t\t  image: url(../res/search_icon.png);"
                      "\t\t\t\t  }";

// Room around a button's picture: on dense screens the style sheet stretches pictures to the room they have.
// The margin is for the field's frame, of which the ring keeps clear.
const char kButtonSheet[] = "QToolButton{margin:0px 3px;padding:2px;}";
constexpr int kMargin = 3;
constexpr int kPadding = 2;
const QSize kRoom(2 * (kMargin + kPadding), 2 * kPadding);
constexpr int kGlowAlpha = 110;                    // behind a hovered button, in its middle
constexpr qreal kDisabledOpacity = 0.4;            // of the pictures
constexpr int kFrameRoom = lumqt::kFocusRingWidth; // which the field's own ring needs

// The ground of a hovered button; in the light theme the field's sheet has it.
QString themedGlow()
{
    if (lumqt::isPlainLight())
        return QString();
    const QColor glow = lumqt::themeColor(lumqt::Purpose::Danger);
    return QStringLiteral("background-color:qradialgradient(cx:0.5,cy:0.5,radius:0.5,fx:0.5,"
                          "fy:0.5,stop:0 rgba(%1,%2,%3,%4),stop:1 rgba(%1,%2,%3,0));")
        .arg(glow.red())
        .arg(glow.green())
        .arg(glow.blue())
        .arg(kGlowAlpha);
}

// What a button has on top of the field's sheet, which stays what it is: nothing in the light theme, unless
// the pictures are those that the library carries. A picture is the theme's own where there is one.
QString themedSheet()
{
    const QLatin1String first("../res/icon_delete_normal.png");
    if (lumqt::isPlainLight() && lumqt::fileToRead(first) == first)
        return QString();
    const auto rule = [](const char *button, const char *picture, const QString &ground = QString()) {
        return QStringLiteral("QToolButton#%1{image:url(%2);%3}")
            .arg(QLatin1String(button), lumqt::themePicture(QLatin1String(picture)), ground);
    };
    return rule("btnClose", "../res/icon_delete_normal.png") +
           rule("btnClose:hover", "../res/icon_delete_hover.png", themedGlow()) +
           rule("btnClose:pressed", "../res/icon_delete_press.png") +
           rule("btnSearch", "../res/search_icon.png");
}

// Whether the focus is, or is about to be, in the edit or one of its buttons.
bool holdsFocus(const QWidget *edit)
{
    const QWidget *holder = QApplication::focusWidget();
    return holder && (holder == edit || edit->isAncestorOf(holder));
}

// The name that the field gives itself, where the application gives none. A label's text needs no telling.
const char kOwnName[] = "_lumqt_ownName";

QString ownName(const CBPSearchEdit *edit)
{
    const auto labels = edit->window()->findChildren<QLabel *>();
    if (std::any_of(labels.begin(), labels.end(),
                    [edit](const QLabel *label) { return label->buddy() == edit; }))
        return QString();
    const QString placeholder = edit->placeholderText();
    return placeholder.isEmpty() ? CBPSearchEdit::tr("Search") : placeholder;
}

void nameItself(CBPSearchEdit *edit)
{
    if (edit->accessibleName() != edit->property(kOwnName).toString())
        return; // the application's
    const QString name = ownName(edit);
    edit->setProperty(kOwnName, name);
    if (edit->accessibleName() != name)
        edit->setAccessibleName(name);
}

// Whether each picture of a style sheet has as many pixels.
bool isDense(const QString &sheet, const QSize &pixels)
{
    static const QRegularExpression url(QStringLiteral("url\\(\\s*[\"']?([^\"')]+)"));
    for (auto all = url.globalMatch(sheet); all.hasNext();) {
        if (QIcon(all.next().captured(1)).actualSize(pixels) != pixels)
            return false;
    }
    return true;
}

// The list that drops down looks as those of combo boxes do, unless the application has set another style.
void dressList(const QCompleter *completer)
{
    QAbstractItemView *list = completer && completer->completionMode() != QCompleter::InlineCompletion
                                  ? completer->popup()
                                  : nullptr;
    if (!list || list->testAttribute(Qt::WA_SetStyle))
        return;
    CBPStyle::Apply(list);
    lumqt::wearTheme(list, lumqt::fieldTones());
}

// A button inside the edit. It is a QToolButton to the style sheet.
class InnerButton : public QToolButton
{
public:
    InnerButton() { setStyleSheet(QLatin1String(kButtonSheet)); }

    // An application's sheet stays, and so do its pictures in the field's.
    void dress()
    {
        const bool own = styleSheet() == QLatin1String(kButtonSheet) + m_themed;
        const bool fieldsOwn = parentWidget() && parentWidget()->styleSheet() == QLatin1String(kSheet);
        const QString themed = own && fieldsOwn ? themedSheet() : QString();
        if (!own || themed == m_themed)
            return;
        m_themed = themed;
        setStyleSheet(QLatin1String(kButtonSheet) + m_themed);
    }

    QSize sizeHint() const override { return iconSize() + kRoom; }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (!enter)
            QToolButton::keyPressEvent(event);
        else if (!event->isAutoRepeat())
            click(); // Enter is the edit's otherwise, and searches
    }

    // The tool button's own would look at itself when clicked() has deleted it.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): the tool button's own reads what a slot may have deleted
    void mouseReleaseEvent(QMouseEvent *event) override { QAbstractButton::mouseReleaseEvent(event); }

    void focusInEvent(QFocusEvent *event) override { followFocus(event); }

    void focusOutEvent(QFocusEvent *event) override
    {
        auto *edit = qobject_cast<CBPSearchEdit *>(parentWidget());
        const QPointer<InnerButton> alive(this);
        if (edit && !holdsFocus(edit))
            emit edit->sigLoseFocus(); // which it did not say when the focus came here
        if (alive)
            followFocus(event);
    }

    // What a style sheet of the application and the ring have to draw keeps clear of the field's frame.
    void paintEvent(QPaintEvent *) override
    {
        QStylePainter painter(this);
        const QRect field = parentWidget() ? parentWidget()->rect().translated(-pos()) : rect();
        const QRect inside = rect() & field.adjusted(kFrameRoom, kFrameRoom, -kFrameRoom, -kFrameRoom);
        painter.setClipRect(inside);
        QStyleOptionToolButton option;
        initStyleOption(&option);
        painter.save();
        if (!isEnabled()) // the style sheet's picture is the same
            painter.setOpacity(lumqt::disabledOpacity(kDisabledOpacity));
        const qreal ratio = painter.device()->devicePixelRatioF();
        if (isCoarse(ratio))
            enlarge(painter, option);
        if (lumqt::iconsAreCoarse(ratio))
            drawReduced(painter, option, ratio);
        else
            painter.drawComplexControl(QStyle::CC_ToolButton, option);
        painter.restore();
        if (m_showsFocus)
            lumqt::drawFocusRing(painter, inside & rect().adjusted(kMargin, 0, -kMargin, 0));
    }

private:
    // Whether the style sheet would enlarge a picture, of which there is a denser one.
    bool isCoarse(qreal ratio)
    {
        if (ratio <= 1.0 || lumqt::iconsAreDense())
            return false;
        const QString own = styleSheet();
        const auto base = QLatin1String(kButtonSheet);
        if (own.size() != base.size() + m_themed.size() || !own.startsWith(base) || !parentWidget())
            return false;
        const QString sheet = m_themed.isEmpty() ? parentWidget()->styleSheet() : m_themed;
        if (ratio != m_ratio || sheet != m_sheet) {
            m_ratio = ratio;
            m_sheet = sheet;
            m_coarse = isDense(sheet, iconSize() * ratio);
        }
        return m_coarse;
    }

    // The style sheet finds the denser picture for a button that is larger in so far as its pixels are
    // smaller.
    void enlarge(QPainter &painter, QStyleOption &option) const
    {
        const QRectF whole = lumqt::wholeDevicePixels(painter, rect());
        const QSize size = iconSize() * m_ratio + kRoom;
        option.rect = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size,
                                          QRect(QPoint(), (whole.size() * m_ratio).toSize()));
        painter.translate(whole.topLeft());
        painter.scale(1 / m_ratio, 1 / m_ratio);
    }

    // The style sheet has a dense picture for the next whole ratio.
    void drawReduced(QPainter &painter, const QStyleOptionToolButton &option, qreal ratio)
    {
        const qreal more = std::ceil(ratio);
        QPixmap picture(size() * more);
        picture.setDevicePixelRatio(more);
        picture.fill(Qt::transparent);
        QStylePainter inner(&picture, this);
        inner.drawComplexControl(QStyle::CC_ToolButton, option);
        inner.end();
        const QRectF whole = lumqt::wholeDevicePixels(painter, rect());
        picture =
            picture.scaled((whole.size() * ratio).toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        painter.drawPixmap(whole, picture, QRectF(picture.rect()));
    }

    void followFocus(QFocusEvent *event)
    {
        m_showsFocus = event->gotFocus();
        if (m_showsFocus)
            QToolButton::focusInEvent(event);
        else
            QToolButton::focusOutEvent(event);
        update();
    }

    bool m_showsFocus = false;
    QString m_themed; // what follows kButtonSheet
    QString m_sheet;  // of the edit, for which the others hold
    qreal m_ratio = 0.0;
    bool m_coarse = false;
};

} // namespace

// The parent decides about the blocked keys and nothing else, which is meant.
CBPSearchEdit::CBPSearchEdit(QWidget *parent) : CBPLineEdit(QString(), parent != nullptr, nullptr)
{
    setObjectName(QStringLiteral("edtSearch"));
    m_pCompleter = new QCompleter;
    setCompleter(m_pCompleter);
    setMaxLength(kMaxLength);
    setStyleSheet(QLatin1String(kSheet));
    m_pBtnClose = createButton("btnClose", tr("Clear"));
    setFocusPolicy(Qt::StrongFocus);
    m_pBtnSearch = createButton("btnSearch", tr("Search"));

    auto *layout = new QHBoxLayout;
    layout->addStretch();
    layout->addWidget(m_pBtnClose);
    layout->addWidget(m_pBtnSearch);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    setLayout(layout);
    m_pBtnClose->hide();
    dressButtons();
    lumqt::onThemeChange(this, [this] { dressButtons(); });

    m_timer.setSingleShot(true);
    m_timer.setInterval(kSearchPause);
    connect(&m_timer, &QTimer::timeout, this, &CBPSearchEdit::OnTimeout);
    connect(this, &QLineEdit::returnPressed, this, &CBPSearchEdit::OnSearch);
    connect(this, &QLineEdit::textChanged, this, &CBPSearchEdit::OnTextChanged);
    // Typing has the completer make its list, which nothing tells of.
    connect(this, &QLineEdit::textEdited, this, [this] { dressList(completer()); });
}

CBPSearchEdit::~CBPSearchEdit()
{
    delete m_pCompleter;
}

QToolButton *CBPSearchEdit::createButton(const char *objectName, const QString &accessibleName)
{
    auto *button = new InnerButton;
    button->setObjectName(QLatin1String(objectName));
    button->setAccessibleName(accessibleName);
    button->setAutoRaise(true);
    button->setCursor(Qt::ArrowCursor);
    button->setFocusPolicy(Qt::NoFocus); // of the mouse: see focusNextPrevChild()
    connect(button, &QToolButton::clicked, this, &CBPSearchEdit::OnSearch);
    return button;
}

void CBPSearchEdit::dressButtons()
{
    for (QToolButton *button : {m_pBtnClose, m_pBtnSearch}) {
        if (button)
            static_cast<InnerButton *>(button)->dress();
    }
}

void CBPSearchEdit::Changed(bool bEmpty)
{
    const QToolButton *leaving = bEmpty ? m_pBtnClose : m_pBtnSearch;
    if (leaving->hasFocus())
        setFocus(Qt::OtherFocusReason); // or it would leave the edit
    m_pBtnSearch->setVisible(bEmpty);
    m_pBtnClose->setVisible(!bEmpty);
}

// ------------------------------------------------------------------------------------------------------------
// searching

void CBPSearchEdit::OnSearch()
{
    const QPointer<CBPSearchEdit> alive(this);
    if (sender() == m_pBtnClose) {
        clear(); // which says once that the search is over
        if (!alive)
            return;
        m_timer.stop();
        Changed(true);
        emit DoSearch(false, QString());
        if (!alive)
            return;
    }
    if (text().isEmpty()) {
        setFocus();
        if (alive && completer()) {
            // The edit leaves it at what was typed last.
            completer()->setCompletionPrefix(QString());
            completer()->complete();
            dressList(completer());
        }
        return;
    }
    m_timer.stop();
    emit DoSearch(true, text());
}

void CBPSearchEdit::OnTimeout()
{
    Changed(text().isEmpty());
    if (text().isEmpty()) {
        m_timer.stop();
        emit DoSearch(false, QString());
    } else {
        emit DoSearch(true, text());
    }
}

void CBPSearchEdit::OnTextChanged(const QString &text)
{
    Changed(text.isEmpty());
    m_timer.stop();
    if (text.isEmpty())
        emit DoSearch(false, QString());
    else
        m_timer.start();
}

// ------------------------------------------------------------------------------------------------------------
// events

// The room of the buttons, at the end where the layout puts them.
void CBPSearchEdit::keepTextClear()
{
    // While it is hidden it has no width that a layout gave it.
    const bool hidden = m_pBtnSearch->isHidden();
    const int reserve = hidden ? m_pBtnSearch->sizeHint().width() : m_pBtnSearch->width();
    const bool mirrored = isRightToLeft();
    setTextMargins(mirrored ? reserve : 0, 0, mirrored ? 0 : reserve, 0);
}

void CBPSearchEdit::showEvent(QShowEvent *event)
{
    keepTextClear();
    dressButtons(); // before it nobody tells of a sheet
    nameItself(this);
    CBPLineEdit::showEvent(event);
}

void CBPSearchEdit::changeEvent(QEvent *event)
{
    CBPLineEdit::changeEvent(event);
    if (event->type() == QEvent::StyleChange) // the field may have an application's sheet now
        dressButtons();
    if (event->type() == QEvent::LayoutDirectionChange && isVisible()) // else showEvent() sees to it
        keepTextClear();
}

void CBPSearchEdit::focusOutEvent(QFocusEvent *event)
{
    const QWidget *holder = QApplication::focusWidget();
    if (holder && isAncestorOf(holder))
        // The field keeps it. NOLINTNEXTLINE(bugprone-parent-virtual-call)
        QLineEdit::focusOutEvent(event); // clazy:exclude=skipped-base-method
    else
        CBPLineEdit::focusOutEvent(event);
}

// The Tab key reaches the button that is to be seen, although a click must not move the focus there.
bool CBPSearchEdit::focusNextPrevChild(bool next)
{
    QToolButton *button = m_pBtnClose->isVisible() ? m_pBtnClose : m_pBtnSearch;
    if (next && hasFocus() && button->isVisible() && button->isEnabled()) {
        button->setFocus(Qt::TabFocusReason);
        return true;
    }
    return CBPLineEdit::focusNextPrevChild(next);
}
