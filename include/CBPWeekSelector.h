#pragma once

#include "LumQtGlobal.h"

#include <QPointer>
#include <QStringList>
#include <QVector>
#include <QWidget>

class CTriStateButton;

/// A choice of several weekdays: one row of toggle buttons.
///
/// Each button is 60 x 28 pixels, with 5 pixels between them, and more in a row that is made wider, and its
/// text 14 pixels, also where the system's letters are larger; a name that finds no room ends in an
/// ellipsis, and the tool tip shows all of it. Disabled, the chosen ones have a line under their names. The
/// row is one stop of the Tab key; the arrow keys, Home and End move the focus in it, and Space toggles.
/// GUI thread only. \since 1.0
class LUMQT_EXPORT CBPWeekSelector : public QWidget
{
    Q_OBJECT
    /// The names of the days; new ones make new buttons. \since 1.0
    Q_PROPERTY(QStringList items READ items WRITE setItems)
    /// The texts of the checked buttons; an empty list changes nothing, a reset clears them. \since 1.0
    Q_PROPERTY(
        QStringList selected READ selected WRITE setSelected RESET resetSelected NOTIFY selectedChanged)

public:
    /// A selector with one button per name, unchecked; the names are copied and may repeat. Of a button
    /// without a name there is nothing to see until it is clicked, and it takes no focus. Without any names
    /// the selector is empty. \since 1.0
    explicit CBPWeekSelector(QStringList &names, QWidget *parent = nullptr);

    /// An empty selector, until it is given items. \since 1.0
    explicit CBPWeekSelector(QWidget *parent = nullptr);

    ~CBPWeekSelector() override;

    /// The names of the days. \since 1.0
    QStringList items() const;

    /// Replaces the names, and with them all buttons; what was selected stays so where there is such a text.
    /// A single name is taken apart at its commas. \since 1.0
    void setItems(const QStringList &items);

    /// The texts of the checked buttons, in their order.
    /// \since 1.0
    QStringList GetSelected();

    /// Checks exactly the buttons whose texts, by case, are in \a texts; of the signals selectedChanged()
    /// alone tells of it. An empty list changes nothing; a list of strangers clears the selection. Until the
    /// user changes it, it holds for items that are set later, too. \since 1.0
    void SetSelected(QStringList texts);

    /// The texts of the checked buttons, in their order. \since 1.0
    QStringList selected() const;

    /// SetSelected(); a single text is taken apart at its commas. \since 1.0
    void setSelected(const QStringList &texts);

    /// Checks none. \since 1.0
    void resetSelected();

Q_SIGNALS:
    /// A button was toggled by mouse, keyboard or an assistive tool, whichever way: \a bChecked is always
    /// false, ask GetSelected(). The selector may be deleted here. \since 1.0
    void sigBtnClicked(bool bChecked);

    /// Others are selected now, whoever changed it; after a click sigBtnClicked() comes first. The selector
    /// may be deleted here. \since 1.0
    void selectedChanged(const QStringList &selected);

private Q_SLOTS:
    void slotBtnClicked(bool bChecked);

private:
    void build();
    void tellSelected();

    QStringList m_listItems;
    QVector<QPointer<CTriStateButton>> m_listButtons;
    QStringList m_listWanted; // of SetSelected(), until the user has changed it
    QStringList m_listTold;   // by selectedChanged()
};
