#include "CTabPageItem.h"

#include "CFoucsLabel.h"
#include "layout/Pages.h"

namespace {

constexpr int kTitleSpacing = 10; // around the text of a title, in pixels

} // namespace

CTabPageItem::CTabPageItem(int iTitleHeight, QWidget *parent)
    : QWidget(parent), m_iTitleHeight(qBound(0, iTitleHeight, QWIDGETSIZE_MAX))
{
}

CTabPageItem::~CTabPageItem()
{
    if (m_pTitle && !m_pTitle->parent())
        delete m_pTitle;
}

void CTabPageItem::AddPage(QString strTitle, QWidget *pComment, int iParam)
{
    m_pComment = pComment;
    if (m_pTitle) {
        ChangeTitle(strTitle);
        return;
    }
    m_pTitle = new CFoucsLabel(strTitle, iParam, kTitleSpacing, QString(), nullptr);
    m_pTitle->setFixedHeight(m_iTitleHeight);
    connect(m_pTitle, &CFoucsLabel::FocusChanged, this, &CTabPageItem::OnFocusChanged);
    if (!strTitle.isEmpty())
        emit titleChanged(strTitle);
}

void CTabPageItem::ChangeTitle(QString strTitle)
{
    if (!m_pTitle || m_pTitle->Text() == strTitle)
        return;
    m_pTitle->ChangeText(strTitle);
    emit titleChanged(strTitle);
}

QString CTabPageItem::title() const
{
    return m_pTitle ? m_pTitle->Text() : QString();
}

void CTabPageItem::SetIconPath(QStringList leadIcons, QStringList tailIcons)
{
    if (m_pTitle)
        m_pTitle->SetIconPath(leadIcons, tailIcons);
}

QStringList CTabPageItem::leadIcons() const
{
    return m_pTitle ? m_pTitle->leadIcons() : QStringList();
}

QStringList CTabPageItem::tailIcons() const
{
    return m_pTitle ? m_pTitle->tailIcons() : QStringList();
}

void CTabPageItem::setLeadIcons(const QStringList &files)
{
    if (m_pTitle)
        m_pTitle->setLeadIcons(files);
}

void CTabPageItem::setTailIcons(const QStringList &files)
{
    if (m_pTitle)
        m_pTitle->setTailIcons(files);
}

void CTabPageItem::SetFocusLabelColor(QColor plain, QColor focused)
{
    if (m_pTitle)
        m_pTitle->SetColor(plain, focused);
}

void CTabPageItem::HideTailIcon()
{
    if (m_pTitle)
        m_pTitle->HideTailIcon();
}

CFoucsLabel *CTabPageItem::GetTitleWidget()
{
    return m_pTitle;
}

QWidget *CTabPageItem::GetCommentWidget()
{
    return m_pComment;
}

bool CTabPageItem::IsFocus()
{
    return isFocused();
}

bool CTabPageItem::isFocused() const
{
    return m_pTitle && m_pTitle->IsFocus();
}

// Last, as each entry may be deleted by whom it tells; this one, too.
void CTabPageItem::tellGroup()
{
    const auto group = m_vecGroup;
    for (const QPointer<CTabPageItem> &entry : group) {
        if (!entry || entry->m_bToldFocused == entry->isFocused())
            continue;
        entry->m_bToldFocused = entry->isFocused();
        emit entry->focusedChanged(entry->m_bToldFocused);
    }
}

void CTabPageItem::SetGroup(QVector<CTabPageItem *> group)
{
    m_vecGroup.clear();
    for (CTabPageItem *entry : qAsConst(group)) {
        if (entry)
            m_vecGroup.append(entry);
    }
}

void CTabPageItem::SetFocus()
{
    QList<CFoucsLabel *> titles;
    QVector<lumqt::PageChoice> contents;
    for (CTabPageItem *entry : qAsConst(m_vecGroup)) {
        if (entry && entry->m_pTitle)
            titles.append(entry->m_pTitle);
    }
    for (CTabPageItem *entry : qAsConst(m_vecGroup)) {
        if (!entry)
            continue;
        contents.append({entry->m_pComment, entry == this});
        if (!entry->m_pTitle)
            continue;
        entry->m_pTitle->SetSiblings(titles);
        if (entry == this)
            m_pTitle->SetFocus(true);
    }
    // Late: what a content does when it is shown may delete any of this.
    const QPointer<CTabPageItem> alive(this);
    lumqt::showChosen(contents);
    if (alive)
        tellGroup();
}

void CTabPageItem::OnFocusChanged(CFoucsLabel *label)
{
    QVector<lumqt::PageChoice> contents;
    for (CTabPageItem *entry : qAsConst(m_vecGroup)) {
        if (entry && entry->m_pTitle && entry->m_pComment)
            contents.append({entry->m_pComment, entry->m_pTitle == label});
    }
    const QPointer<CTabPageItem> alive(this);
    lumqt::showChosen(contents);
    if (alive)
        emit sigCurItemClicked(this); // the entry may be gone after
    if (alive)
        tellGroup();
}
