#pragma once

#include "CEditTimeEditItem.h"
#include "LumQtGlobal.h"

#include <QList>
#include <QPointer>
#include <QString>
#include <QStringList>
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
/// The last field cannot be removed. All fields, and the buttons that have a picture, are reached by Tab, and
/// these pressed with Space; the focus stays in the list when a field is removed. What hears of an item's
/// removal may delete the item, or the list. GUI thread only. \since 1.0
class LUMQT_EXPORT CEditTimeEdit : public QWidget
{
    Q_OBJECT
    /// Image file of the button that adds a field, which takes its size. \since 1.0
    Q_PROPERTY(QString addIcon READ addIcon WRITE setAddIcon)
    /// Image file of the buttons that remove a field, which take its size. \since 1.0
    Q_PROPERTY(QString deleteIcon READ deleteIcon WRITE setDeleteIcon)
    /// With so many fields none can be added; 4 at first. \since 1.0
    Q_PROPERTY(int maximumCount READ maximumCount WRITE setMaximumCount RESET resetMaximumCount)
    /// The times, in the order of the fields, as "hh:mm". \since 1.0
    Q_PROPERTY(QStringList times READ times WRITE setTimes RESET resetTimes NOTIFY timesChanged)

public:
    /// A list of one field, at 00:00.
    ///
    /// \a addIcon and \a delIcon are image files of the buttons; they are drawn five pixels in from the left
    /// of a button of their size, so the five columns at their right are cut off, and pale while it is
    /// disabled. The add button is there as long as there are fewer than \a maxCount fields; a \a maxCount
    /// below 2 hides it after the first. \since 1.0
    CEditTimeEdit(QString addIcon, QString delIcon, int maxCount, QWidget *parent = nullptr);

    /// A list of one field, at 00:00, for four at most, whose buttons have no pictures. \since 1.0
    explicit CEditTimeEdit(QWidget *parent = nullptr);

    ~CEditTimeEdit() override;

    /// The image file of the button that adds a field. \since 1.0
    QString addIcon() const;

    /// Sets the image file of the button that adds a field, as the constructor does. \since 1.0
    void setAddIcon(const QString &path);

    /// The image file of the buttons that remove a field. \since 1.0
    QString deleteIcon() const;

    /// Sets the image file of the buttons that remove a field, as the constructor does. \since 1.0
    void setDeleteIcon(const QString &path);

    /// The number of fields from which on none can be added. \since 1.0
    int maximumCount() const;

    /// Sets the number of fields from which on none can be added. One below 2 leaves a single field its add
    /// button, as the constructor does. Fields that there are stay. \since 1.0
    void setMaximumCount(int count);

    /// Makes the greatest number of fields four. \since 1.0
    void resetMaximumCount();

    /// The times of the fields as "hh:mm", or as "hh:mm:ss" where one has seconds, in the order in which they
    /// stand. \since 1.0
    QStringList times() const;

    /// Initialize() with times such as "06:30"; a text that is none leaves its field as it is. A single text
    /// is taken apart at its commas. \since 1.0
    void setTimes(const QStringList &times);

    /// Leaves one field, at 00:00, as at first. \since 1.0
    void resetTimes();

    /// Sets the times of the fields, in order, and adds fields for those that are left, also beyond the
    /// greatest count. With fewer times than fields the other fields stay as they are; a field keeps its time
    /// where the new one is not valid. \since 1.0
    void Initialize(QVector<QTime> times);

    /// The times of the fields, in the order in which they stand. \since 1.0
    QVector<QTime> GetQTimes() const;

    /// The same, earliest first. \since 1.0
    QVector<QTime> GetQTimesSorted() const;

Q_SIGNALS:
    /// The times are others, or there are more or fewer of them, whoever did it. It may be in the middle of a
    /// key press: a slot uses deleteLater() for the list. \since 1.0
    void timesChanged(const QStringList &times);

private Q_SLOTS:
    void OnBtnPressed(int btnId);
    void onHideItem(CEditTimeEditItem *pItem);

private:
    void Layout();
    CEditTimeEditItem *appendItem();
    void forgetItem(QObject *item);
    void itemRemoved(int index);
    void updateAddButton();
    void tellTimes();
    void nameItems(int from);

    QString m_strAddIcon;
    QString m_strDelIcon;
    int m_iMaxCount;
    QStringList m_listTold; // by timesChanged()
    bool m_bSettingTimes = false;
    QPointer<QHBoxLayout> m_pItemLayout;
    QPointer<CBPImageButton> m_pAddBtn;
    QList<CEditTimeEditItem *> m_listItems;
    QList<CEditTimeEditItem *> m_listRemoved; // hidden: their buttons may be busy with the click that did it
};
