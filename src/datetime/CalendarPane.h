#pragma once

#include "foundation/Palette.h"
#include "foundation/QtCompat.h"

#include <QCalendarWidget>

class QTableView;
class QToolButton;

namespace lumqt {

// The month calendar of the library: Qt's, in our colours.
class CalendarPane : public QCalendarWidget
{
public:
    // What screen readers call its parts.
    struct Names
    {
        QString days;
        QString previous; // month
        QString next;     // month
        QString year;
    };
    explicit CalendarPane(const Names &names);

    // Makes the calendar as much larger as `text`, that of the field it belongs to, is larger than usual.
    void setScale(const QFont &text);

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintCell(QPainter *painter, const QRect &rect, CellDate date) const override;

private:
    class BarStyle;

    static void dress(QWidget *part, Purpose highlight);
    void setTextColors();
    void setUpView(const QString &name);
    void setUpBar(const Names &names);
    void setUpYearEdit(const QString &name);
    void setIcons();
    void updateSizes();
    int scaled(int pixels) const;
    static void forgetPointer(QWidget *button);
    QColor textColor(const QDate &date) const;
    void hover(const QPoint &position);

    QTableView *m_view = nullptr;
    QWidget *m_bar = nullptr;
    QList<QToolButton *> m_barButtons;
    QToolButton *m_prev = nullptr;
    QToolButton *m_next = nullptr;
    QWidget *m_year = nullptr; // while it is stepped
    BarStyle *m_barStyle = nullptr;
    QBrush m_namesBrush; // that were put into their formats
    QBrush m_weekendBrush;
    QPoint m_hovered{-1, -1}; // the pointer in the view
    bool m_viewHasFocus = false;
    qreal m_scale = 1;
};

} // namespace lumqt
