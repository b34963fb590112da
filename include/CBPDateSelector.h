#pragma once

#include "LumQtGlobal.h"

#include <QDate>
#include <QPointer>
#include <QWidget>

class CBPBox;
class CBPImageButton;
class CBPTipWnd;
class QCalendarWidget;
class QDateEdit;

namespace lumqt {
class FrameAbove;
}

/// A date in a thin frame, to be typed or picked from a calendar that a button opens below it.
///
/// The calendar goes above the button where there is no room below, and never off the screen; where the
/// field's letters are large it is as much larger. A double click on a day is no click on what lies beneath
/// the calendar, which the first click closes; other applications are out of reach.
///
/// From right to left the button stands at the left, and the date reads as it does from left to right.
///
/// Dates run from 1980-01-01 to 2099-12-31. Alt+Down opens the calendar, Return takes a day, Escape closes it
/// and gives the focus back. Give the selector an accessible name, as a screen reader says it with both
/// parts. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPDateSelector : public QWidget
{
    Q_OBJECT
    /// The date; one outside of the range becomes the first or last of it. \since 1.0
    Q_PROPERTY(QDate date READ GetDate WRITE SetDate NOTIFY dateChanged)
    /// The first date there is. \since 1.0
    Q_PROPERTY(QDate minimumDate READ minimumDate CONSTANT)
    /// The last date there is. \since 1.0
    Q_PROPERTY(QDate maximumDate READ maximumDate CONSTANT)

public:
    /// A selector of 2000-01-01 in the short format of its locale, without the name of the day. \since 1.0
    explicit CBPDateSelector(QWidget *parent = nullptr);

    /// Deletes the calendar, too. \since 1.0
    ~CBPDateSelector() override;

    /// Sets the date. One outside of the range becomes the first or last of it, one that is not valid is
    /// ignored. Only dateChanged() tells of it. \since 1.0
    void SetDate(QDate &date);

    /// The date in the field. \since 1.0
    QDate GetDate() const;

    /// The first date there is, 1980-01-01. \since 1.0
    QDate minimumDate() const;

    /// The last date there is, 2099-12-31. \since 1.0
    QDate maximumDate() const;

Q_SIGNALS:
    /// The field was left, or Return pressed in it, or a day picked from the calendar; a double click on a
    /// day picks it twice. The selector may be deleted by what is connected. \since 1.0
    void sigDateEditFinish();

    /// The date is another one, whoever changed it. While it is typed it comes with each key, and a slot uses
    /// deleteLater() for the selector; of a day that is picked it comes after sigDateEditFinish(). \since 1.0
    void dateChanged(const QDate &date);

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void OnCalendarBtn(int btnId);
    void onCalendarActived(const QDate &date);
    void onCalendarClicked(const QDate &date);
    void onDateEditFinish();

private:
    void Layout(QWidget *parent);
    void CreateCalendar();
    void UpdateDate(const QDate &date);
    void tellDate();
    bool opensCalendar(QEvent *event);
    void giveFocusBack();
    void chooseSides();
    void updateLook();

    QPointer<QDateEdit> m_pDateEdit;
    QPointer<CBPImageButton> m_pCalendarBtn;
    QPointer<QCalendarWidget> m_pCalendar;
    QPointer<CBPTipWnd> m_pTipWnd; // a child of the button, so it may be gone first
    QPointer<CBPBox> m_pBox;
    QPointer<lumqt::FrameAbove> m_pFrame;
    int m_iPicks = 0;  // that the calendar is busy with
    int m_iUntold = 0; // picks that sigDateEditFinish() is still to come of
    QDate m_dateTold;
};
