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
        m_pTitle->ChangeText(strTitle);
        return;
    }
    m_pTitle = new CFoucsLabel(strTitle, iParam, kTitleSpacing, QString(), nullptr);
    m_pTitle->setFixedHeight(m_iTitleHeight);
    connect(m_pTitle, &CFoucsLabel::FocusChanged, this, &CTabPageItem::OnFocusChanged);
}

void CTabPageItem::ChangeTitle(QString strTitle)
{
    if (m_pTitle)
        m_pTitle->ChangeText(strTitle);
}

void CTabPageItem::SetIconPath(QStringList leadIcons, QStringList tailIcons)
{
    if (m_pTitle)
        m_pTitle->SetIconPath(leadIcons, tailIcons);
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
    return m_pTitle && m_pTitle->IsFocus();
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
    // Last: what a content does when it is shown may delete any of this.
    lumqt::showChosen(contents);
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
}
