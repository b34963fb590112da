#pragma once

#include "CBPLineEdit.h"

#include <QPointer>
#include <QTimer>

class QCompleter;

/// A search field: a line edit with a magnifier at its right end, which a clear button takes the place of
/// while there is a text.
///
/// It searches 1.5 seconds after the last change of the text, and at once on Return. Without a text there is
/// nothing to search: Return and the magnifier open all suggestions then, and so does the clear button. They
/// come from the model that the application gives to completer(). Up to 50 characters. The Tab key goes from
/// the text on to the button inside, which Space and Enter press; a click on it gives the text the focus. As
/// long as the focus stays within the field sigLoseFocus() is not sent. Screen readers find the buttons
/// named, and the field by its label, its placeholder or as a search, if the application gives it no name.
/// Its pictures are looked up relative to the current directory.
///
/// In the place of another line edit mind what the field brings along: a completer, a style sheet (so style()
/// changes with setStyle(), and the one before is gone), a maximum length, a layout, text margins that are
/// set anew whenever it is shown, and the clear button, which needs no setClearButtonEnabled(). GUI thread
/// only. \since 1.0
class LUMQT_EXPORT CBPSearchEdit : public CBPLineEdit
{
    Q_OBJECT
    /// Has no place in a search field, which sets its text margins itself. \since 1.0
    Q_PROPERTY(QString iconPath READ iconPath WRITE setIconPath DESIGNABLE false)

public:
    /// A search field without a parent, whatever \a parent is: put it into a layout, or delete it. With a
    /// parent the keys for select all, copy and paste are blocked, without one they work. \since 1.0
    explicit CBPSearchEdit(QWidget *parent);

    /// Deletes the completer that the field made for itself, also where another one is in use.
    /// \since 1.0
    ~CBPSearchEdit() override;

Q_SIGNALS:
    /// \a bSearch: look for \a text, which is not empty. Otherwise the search is over, and \a text is empty;
    /// the clear button says that twice. The field is in the middle of a key press or a change of its text:
    /// a slot must not delete it, but may call its deleteLater(). \since 1.0
    void DoSearch(bool bSearch, const QString &text);

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private Q_SLOTS:
    void OnSearch();
    void OnTimeout();
    void OnTextChanged(const QString &text);

private:
    QToolButton *createButton(const char *objectName, const QString &accessibleName);
    void Changed(bool bEmpty);
    void keepTextClear();
    void dressButtons();

    QToolButton *m_pBtnClose = nullptr; // clears the text
    QToolButton *m_pBtnSearch = nullptr;
    QPointer<QCompleter> m_pCompleter;
    QTimer m_timer;
};
