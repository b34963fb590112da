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
    /// The names of the days; new ones make new buttons. \since 1.0
    Q_PROPERTY(QStringList items READ items WRITE setItems)
    /// The text of the extra choice; without one there is none. \since 1.0
    Q_PROPERTY(QString extraItem READ extraItem WRITE setExtraItem)
    /// The text of the button that selects all; without one there is none. \since 1.0
    Q_PROPERTY(QString selectAllItem READ selectAllItem WRITE setSelectAllItem)
    /// The texts of the checked buttons; an empty list changes nothing, a reset clears them. \since 1.0
    Q_PROPERTY(
        QStringList selected READ selected WRITE setSelected RESET resetSelected NOTIFY selectedChanged)

public:
    /// A selector of \a names, then \a strExtraItem, then \a strSelectAll; an empty text for either means
    /// there is none. The texts are copied. Without any the selector is empty. Names may repeat; one that
    /// equals \a strSelectAll becomes a button that selects all. Of a button without a name there is nothing
    /// to see until it is clicked, and it takes no focus. \since 1.0
    CBPDaySelector(QStringList &names, QString &strExtraItem, QString &strSelectAll,
                   QWidget *parent = nullptr);

    /// An empty selector, until it is given items. \since 1.0
    explicit CBPDaySelector(QWidget *parent = nullptr);

    ~CBPDaySelector() override;

    /// The names of the days. \since 1.0
    QStringList items() const;

    /// Replaces the names, and with them all buttons; what was selected stays so where there is such a text.
    /// A single name is taken apart at its commas. \since 1.0
    void setItems(const QStringList &items);

    /// The text of the extra choice. \since 1.0
    QString extraItem() const;

    /// Sets the text of the extra choice, and makes all buttons anew; an empty one means there is none.
    /// \since 1.0
    void setExtraItem(const QString &text);

    /// The text of the button that selects all. \since 1.0
    QString selectAllItem() const;

    /// Sets the text of the button that selects all, and makes all buttons anew; an empty one means there is
    /// none. \since 1.0
    void setSelectAllItem(const QString &text);

    /// The texts of the checked buttons, in their order; never that of the button that selects all.
    /// \since 1.0
    QStringList GetSelected();

    /// Checks exactly the buttons whose texts, by case, are in \a texts; of the signals selectedChanged()
    /// alone tells of it. An empty list changes nothing; a list of strangers clears the selection. Until the
    /// user changes it, it holds for items that are set later, too. \since 1.0
    void SetSelected(QStringList texts);

    /// The texts of the checked buttons, in their order; never that of the button that selects all.
    /// \since 1.0
    QStringList selected() const;

    /// SetSelected(); a single text is taken apart at its commas. \since 1.0
    void setSelected(const QStringList &texts);

    /// Checks none. \since 1.0
    void resetSelected();

Q_SIGNALS:
    /// The selection changed by mouse, keyboard or an assistive tool. True: all were selected at once. False:
    /// one was toggled, whichever way; ask GetSelected(). The selector may be deleted here. \since 1.0
    void sigBtnClicked(bool bChecked);

    /// Others are selected now, whoever changed it; after a click sigBtnClicked() comes first. The selector
    /// may be deleted here. \since 1.0
    void selectedChanged(const QStringList &selected);

private Q_SLOTS:
    void slotBtnClicked(bool bChecked);
    void onSelectAll();

private:
    void build();
    void rebuild();
    void buildGrid(const QStringList &items);
    void clicked(bool bAll);
    void tellSelected();
    CTriStateButton *makeButton(const QString &text);

    QStringList m_listItems;
    QString m_strExtraItem;
    QString m_strSelectAll;
    QVector<QPointer<CTriStateButton>> m_listButtons;
    QStringList m_listWanted; // of SetSelected(), until the user has changed it
    QStringList m_listTold;   // by selectedChanged()
};
