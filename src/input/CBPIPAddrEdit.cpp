#include "CBPIPAddrEdit.h"

#include "foundation/QtCompat.h"
#include "foundation/Tones.h"
#include "input/OctetValidator.h"
#include "input/SelectingPress.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QTimer>

#include <algorithm>

namespace {

constexpr int kOctets = 4;
const QSize kSize(30, 15); // logical pixels
const char kSheet[] = "QLineEdit{border:0px;height:26px;}";

void focusWhole(QLineEdit *edit)
{
    const QPointer<QLineEdit> alive(edit);
    if (alive)
        edit->setFocus();
    if (alive)
        edit->selectAll();
}

void focusAt(QLineEdit *edit, bool atEnd)
{
    const QPointer<QLineEdit> alive(edit);
    edit->setFocus();
    if (alive)
        edit->setCursorPosition(atEnd ? edit->text().size() : 0);
}

// A style sheet with a border gives the octet the ground of the application's palette, which is the light
// theme's; in use or not it is that of the field around it.
QString themedSheet()
{
    const QString sheet = QLatin1String(kSheet);
    return lumqt::isPlainLight()
               ? sheet
               : sheet + QStringLiteral("QLineEdit{background-color:%1;}")
                             .arg(lumqt::themeColor(lumqt::Purpose::Field).name(QColor::HexArgb));
}

// The sheet with what is the theme's in it, and all that an application has put around that.
void wearSheet(QWidget *edit, QString &worn)
{
    const QString themed = themedSheet();
    QString sheet = edit->styleSheet();
    const int place = sheet.indexOf(worn);
    if (place < 0 || themed == worn)
        return;
    edit->setStyleSheet(sheet.replace(place, worn.size(), themed));
    worn = themed;
}

// Of what is nearly an address an edit of three characters would take the beginning for its octet.
bool isNoOctet(const QString &text)
{
    return text.trimmed().size() > lumqt::OctetValidator::kDigits;
}

} // namespace

CBPIPAddrEdit::CBPIPAddrEdit(QWidget *parent) : QLineEdit(parent)
{
    setMaxLength(lumqt::OctetValidator::kDigits);
    setFrame(false);
    setAlignment(Qt::AlignCenter);
    setFixedSize(kSize);
    // On one line with the dots. (The text is higher than its edit.)
    setTextMargins(0, 0, 0, lumqt::excessBelow(kSize.height() - fontMetrics().height()));
    setValidator(new lumqt::OctetValidator(this));
    connect(this, &QLineEdit::textEdited, this, &CBPIPAddrEdit::onTextEdited);
    setStyleSheet(themedSheet());
    lumqt::onThemeChange(this, [this, worn = styleSheet()]() mutable { wearSheet(this, worn); });
    lumqt::wearTheme(this, lumqt::fieldTones());
    setObjectName(QStringLiteral("NoFrameLineEdit"));
}

CBPIPAddrEdit::~CBPIPAddrEdit() = default;

void CBPIPAddrEdit::setNextTabEdit(QLineEdit *edit)
{
    m_pNextEdit = edit;
}

void CBPIPAddrEdit::setPreTabEdit(QLineEdit *edit)
{
    m_pPreEdit = edit;
}

void CBPIPAddrEdit::onTextEdited(const QString &text)
{
    if (text.size() == lumqt::OctetValidator::kDigits && lumqt::OctetValidator::accepts(text))
        focusWhole(m_pNextEdit);
}

void CBPIPAddrEdit::focusInEvent(QFocusEvent *event)
{
    m_selecting = event->reason() == Qt::MouseFocusReason; // its press comes next, unless a program did it
    m_pressed = false;
    if (m_selecting)
        QTimer::singleShot(0, this, [this] { m_selecting = m_selecting && m_pressed; });
    const QPointer<CBPIPAddrEdit> alive(this);
    selectAll();
    if (alive)
        QLineEdit::focusInEvent(event);
}

// ------------------------------------------------------------------------------------------------------------
// keys

// The edit does what the key means in any line edit, too, wherever the focus went.
void CBPIPAddrEdit::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Paste) && !isReadOnly()) {
        const QString text = QApplication::clipboard()->text();
        if (fillAll(text) || isNoOctet(text)) {
            event->accept();
            return;
        }
    }
    const QPointer<CBPIPAddrEdit> alive(this);
    stepToNeighbour(event);
    if (alive)
        QLineEdit::keyPressEvent(event);
}

void CBPIPAddrEdit::stepToNeighbour(const QKeyEvent *event)
{
    const int key = event->key();
    const bool arrow = key == Qt::Key_Left || key == Qt::Key_Right;
    if (arrow && event->modifiers() == Qt::ShiftModifier)
        return;
    if (arrow && event->modifiers() == Qt::ControlModifier) {
        focusWhole(key == Qt::Key_Left ? m_pPreEdit : m_pNextEdit);
        return;
    }
    const int cursor = cursorPosition();
    switch (key) {
    case Qt::Key_Period:
    case Qt::Key_Space: // the validator refuses the character itself
        if (selectionStart() < 0 && cursor != 0)
            focusWhole(m_pNextEdit);
        break;
    case Qt::Key_Left:
        if (cursor == 0 && m_pPreEdit)
            focusAt(m_pPreEdit, true);
        break;
    case Qt::Key_Right:
        if (cursor == text().size() && m_pNextEdit)
            focusAt(m_pNextEdit, false);
        break;
    case Qt::Key_Backspace:
        if (text().isEmpty() && m_pPreEdit)
            eraseInPrevious();
        break;
    default:
        break;
    }
}

void CBPIPAddrEdit::eraseInPrevious()
{
    const QPointer<QLineEdit> previous = m_pPreEdit;
    focusAt(previous, true);
    // An edit of the user's, which he can undo and of which textEdited() tells.
    if (previous && !previous->isReadOnly())
        previous->backspace();
}

// ------------------------------------------------------------------------------------------------------------
// whole addresses

// The four edits that this one is one of, from left to right; none when there are not just four that can be
// edited.
QVector<CBPIPAddrEdit *> CBPIPAddrEdit::wholeRow()
{
    CBPIPAddrEdit *edit = this;
    for (int i = 1; i < kOctets && edit->m_pPreEdit; ++i) {
        edit = qobject_cast<CBPIPAddrEdit *>(edit->m_pPreEdit);
        if (!edit)
            return {};
    }
    QVector<CBPIPAddrEdit *> row;
    for (; edit && row.size() <= kOctets; edit = qobject_cast<CBPIPAddrEdit *>(edit->m_pNextEdit))
        row.append(edit);
    const bool editable = std::all_of(row.begin(), row.end(), [](const CBPIPAddrEdit *octet) {
        return octet->isEnabled() && !octet->isReadOnly();
    });
    return row.size() == kOctets && editable ? row : QVector<CBPIPAddrEdit *>();
}

bool CBPIPAddrEdit::fillAll(const QString &text)
{
    const QStringList octets = lumqt::octetsOf(text.trimmed());
    const QVector<CBPIPAddrEdit *> row = wholeRow();
    if (octets.isEmpty() || row.isEmpty())
        return false;
    for (int i = 0; i < kOctets; ++i) {
        if (row[i]->text() == octets[i])
            continue;
        row[i]->selectAll();
        row[i]->insert(octets[i]); // as typed: it can be undone, and textEdited() tells of it
    }
    focusAt(row.last(), true);
    return true;
}

void CBPIPAddrEdit::paste()
{
    const QString text = QApplication::clipboard()->text();
    if (!isReadOnly() && !fillAll(text) && !isNoOctet(text))
        QLineEdit::paste(); // would paste into a read-only edit
}

void CBPIPAddrEdit::dropEvent(QDropEvent *event)
{
    const QString text = event->mimeData()->text();
    if (!isReadOnly() && fillAll(text))
        event->acceptProposedAction();
    else if (isNoOctet(text))
        event->ignore();
    else
        QLineEdit::dropEvent(event);
}

// ------------------------------------------------------------------------------------------------------------
// the mouse

// The line edit's own press sets the cursor, which takes away what the focus has selected.
void CBPIPAddrEdit::mousePressEvent(QMouseEvent *event)
{
    const bool plain = event->button() == Qt::LeftButton && !(event->modifiers() & Qt::ShiftModifier);
    m_selecting = m_selecting && plain;
    m_pressed = true;
    QLineEdit::mousePressEvent(event);
    if (!m_selecting)
        return;
    lumqt::selectByPress(*this, event, m_pressedAt, m_pressedCursor);
}

void CBPIPAddrEdit::mouseMoveEvent(QMouseEvent *event)
{
    if (!lumqt::staysSelected(*this, event, m_selecting, m_pressedAt, m_pressedCursor))
        QLineEdit::mouseMoveEvent(event);
}

// The middle button pastes what is selected elsewhere, where there is such a thing.
void CBPIPAddrEdit::mouseReleaseEvent(QMouseEvent *event)
{
    m_selecting = false;
    QClipboard *clipboard = QApplication::clipboard();
    if (event->button() == Qt::MiddleButton && clipboard->supportsSelection() && !isReadOnly()) {
        const QString text = clipboard->text(QClipboard::Selection);
        if (fillAll(text) || isNoOctet(text))
            return;
    }
    QLineEdit::mouseReleaseEvent(event);
}
