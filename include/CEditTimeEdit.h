#pragma once

#include "CEditTimeEditItem.h"
#include "LumQtGlobal.h"

#include <QList>
#include <QPointer>
#include <QString>
#include <QTime>
#include <QVector>
#include <QWidget>

class CBPImageButton;
class QHBoxLayout;

/// A short list of times of day, such as the daily runs of a job: fields in a row, each with a button that
/// removes it, and one that adds another at the end.
///
/// From right to left the row is mirrored; a time still reads hours first, from left to right.
///
/// The last field cannot be removed. All fields and buttons are reached by Tab and pressed with Space; the
/// focus stays in the list when a field is removed. What hears of an item's removal may delete the
/// item, or the list. GUI thread only. \since 1.0
class LUMQT_EXPORT CEditTimeEdit : public QWidget
{
    Q_OBJECT

public:
    /// A list of one field, at 00:00.
    ///
    /// \a addIcon and \a delIcon are image files of the buttons; they are drawn five pixels in from the left
    /// of a button of their size, so the five columns at their right are cut off, and pale while it is
    /// disabled. The add button is there as long as there are fewer than \a maxCount fields; a \a maxCount
    /// below 2 hides it after the first. \since 1.0
    CEditTimeEdit(QString addIcon, QString delIcon, int maxCount, QWidget *parent = nullptr);
    ~CEditTimeEdit() override;

    /// Sets the times of the fields, in order, and adds fields for those that are left, also beyond the
    /// greatest count. With fewer times than fields the other fields stay as they are; a field keeps its time
    /// where the new one is not valid. \since 1.0
    void Initialize(QVector<QTime> times);

    /// The times of the fields, in the order in which they stand. \since 1.0
    QVector<QTime> GetQTimes() const;

    /// The same, earliest first. \since 1.0
    QVector<QTime> GetQTimesSorted() const;

private Q_SLOTS:
    void OnBtnPressed(int btnId);
    void onHideItem(CEditTimeEditItem *pItem);

private:
    void Layout();
    CEditTimeEditItem *appendItem();
    void forgetItem(QObject *item);
    void itemRemoved(int index);
    void updateAddButton();
    void nameItems(int from);

    QString m_strAddIcon;
    QString m_strDelIcon;
    int m_iMaxCount;
    QPointer<QHBoxLayout> m_pItemLayout;
    QPointer<CBPImageButton> m_pAddBtn;
    QList<CEditTimeEditItem *> m_listItems;
    QList<CEditTimeEditItem *> m_listRemoved; // hidden: their buttons may be busy with the click that did it
};
