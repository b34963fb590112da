#pragma once

#include "LumQtGlobal.h"

#include <QColor>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVector>
#include <QWidget>

class CFoucsLabel;

/// An entry of an accordion: a title that can be clicked, and a content that is shown while the entry is the
/// current one of its group.
///
/// The entry itself shows nothing: place GetTitleWidget() and GetCommentWidget() where they are to stand.
/// Give all entries the same group and call SetFocus() on one; from then on the titles know each other.
/// Everything may be deleted, in a signal too. GUI thread only.
///
/// \code
/// for (CTabPageItem *entry : entries) {
///     column->addWidget(entry->GetTitleWidget());
///     column->addWidget(entry->GetCommentWidget());
///     entry->SetGroup(entries);
/// }
/// entries.first()->SetFocus();
/// \endcode
/// \since 1.0
class LUMQT_EXPORT CTabPageItem : public QWidget
{
    Q_OBJECT
    /// Text of the title. As the icons it can be set once AddPage() has made the title. \since 1.0
    Q_PROPERTY(QString title READ title WRITE ChangeTitle NOTIFY titleChanged)
    /// Files of the title's icon, plain and focused; none: no icon. \since 1.0
    Q_PROPERTY(QStringList leadIcons READ leadIcons WRITE setLeadIcons)
    /// Files of the title's arrow, plain and focused; none: the library's own. \since 1.0
    Q_PROPERTY(QStringList tailIcons READ tailIcons WRITE setTailIcons)
    /// Whether the entry is the current one of its group; SetFocus() makes it that. \since 1.0
    Q_PROPERTY(bool focused READ isFocused NOTIFY focusedChanged DESIGNABLE false)

public:
    /// An entry without title and content. Its title will be \a iTitleHeight pixels high; a negative number
    /// counts as 0. \since 1.0
    explicit CTabPageItem(int iTitleHeight, QWidget *parent = nullptr);

    /// Deletes the title unless it was placed: then it is its parent's.
    /// \since 1.0
    ~CTabPageItem() override;

    /// Sets title and content. The first call makes the title, whose content is moved in by \a iParam pixels;
    /// a later one changes its text only and replaces the content. \a pComment stays the caller's and may be
    /// null. \since 1.0
    void AddPage(QString strTitle, QWidget *pComment, int iParam = 0);

    /// Replaces the title's text. This and the next three do nothing before AddPage().
    /// \since 1.0
    void ChangeTitle(QString strTitle);

    /// The title's text; empty before AddPage(). \since 1.0
    QString title() const;

    /// Sets the files of the title's icon and arrow; see CFoucsLabel::SetIconPath().
    /// \since 1.0
    void SetIconPath(QStringList leadIcons, QStringList tailIcons);

    /// The files of the title's icon, as SetIconPath() was given them. \since 1.0
    QStringList leadIcons() const;

    /// Sets the files of the title's icon alone. \since 1.0
    void setLeadIcons(const QStringList &files);

    /// The files of the title's arrow, as SetIconPath() was given them. \since 1.0
    QStringList tailIcons() const;

    /// Sets the files of the title's arrow alone. \since 1.0
    void setTailIcons(const QStringList &files);

    /// Sets the title's colours; see CFoucsLabel::SetColor().
    /// \since 1.0
    void SetFocusLabelColor(QColor plain, QColor focused);

    /// Takes the title's arrow away.
    /// \since 1.0
    void HideTailIcon();

    /// The title; null before AddPage(). It has no parent until it is placed.
    /// \since 1.0
    CFoucsLabel *GetTitleWidget();

    /// The content of AddPage(), or null.
    /// \since 1.0
    QWidget *GetCommentWidget();

    /// Whether the title has the focused look; false without a title.
    /// \since 1.0
    bool IsFocus();

    /// The same. \since 1.0
    bool isFocused() const;

    /// Sets the entries of which one is current, this one among them. Null is skipped; entries that are
    /// deleted drop out. \since 1.0
    void SetGroup(QVector<CTabPageItem *> group);

    /// Makes the entry the current one of its group: its content is shown, those of the others are hidden,
    /// and the titles get to know each other. Does nothing without a group; no signal is sent. A content
    /// that was not placed appears as a window of its own. \since 1.0
    void SetFocus();

Q_SIGNALS:
    /// The user clicked the title, and the content of the entry is shown by now. The entry may be deleted
    /// here. \since 1.0
    void sigCurItemClicked(CTabPageItem *pItem);

    /// The title has another text. The entry may be deleted here. \since 1.0
    void titleChanged(const QString &title);

    /// The entry became the current one of its group, or another one did. The entry may be deleted here.
    /// \since 1.0
    void focusedChanged(bool focused);

private Q_SLOTS:
    void OnFocusChanged(CFoucsLabel *label);

private:
    void tellGroup();

    QPointer<CFoucsLabel> m_pTitle;
    QPointer<QWidget> m_pComment;
    int m_iTitleHeight;
    bool m_bToldFocused = false;
    QVector<QPointer<CTabPageItem>> m_vecGroup;
};
