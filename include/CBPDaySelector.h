#pragma once

#include "LumQtGlobal.h"

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVector>
#include <QWidget>

class CTriStateButton;

/// A choice of several days: toggle buttons, seven in a row, with an extra choice and a wide button that
/// selects all if wanted.
///
/// Each button is 60 x 28 pixels, with 5 pixels between them, and its text 14 pixels, also where the system's
/// letters are larger; a name that finds no room ends in an ellipsis, and the tool tip shows all of it.
/// Disabled, the chosen ones have a line under their names. The last one, whichever it is, is 255 pixels wide
/// and takes four places: it is meant to be the one that selects all. The grid is one stop of the Tab key;
/// the arrow keys, Home and End move the focus in it, and Space toggles. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPDaySelector : public QWidget
{
    Q_OBJECT

public:
    /// A selector of \a names, then \a strExtraItem, then \a strSelectAll; an empty text for either means
    /// there is none. The texts are copied. Without any the selector is empty. Names may repeat; one that
    /// equals \a strSelectAll becomes a button that selects all. Of a button without a name there is nothing
    /// to see until it is clicked, and it takes no focus. \since 1.0
    CBPDaySelector(QStringList &names, QString &strExtraItem, QString &strSelectAll,
                   QWidget *parent = nullptr);
    ~CBPDaySelector() override;

    /// The texts of the checked buttons, in their order; never that of the button that selects all.
    /// \since 1.0
    QStringList GetSelected();

    /// Checks exactly the buttons whose texts, by case, are in \a texts, without a signal. An empty list
    /// changes nothing; a list of strangers clears the selection. \since 1.0
    void SetSelected(QStringList texts);

Q_SIGNALS:
    /// The selection changed by mouse, keyboard or an assistive tool. True: all were selected at once. False:
    /// one was toggled, whichever way; ask GetSelected(). The selector may be deleted here. \since 1.0
    void sigBtnClicked(bool bChecked);

private Q_SLOTS:
    void slotBtnClicked(bool bChecked);
    void onSelectAll();

private:
    void buildGrid(const QStringList &items);
    CTriStateButton *makeButton(const QString &text);

    QString m_strExtraItem;
    QString m_strSelectAll;
    QVector<QPointer<CTriStateButton>> m_listButtons;
};
