#pragma once

#include <QListWidget>

// The list of pages in the side bar: group headings, entries, and a mark at the current one. Up, Down, Home,
// End and typing a title go through it by keyboard; the ring of the focus shows once the keyboard is used.
class PageList : public QListWidget
{
    Q_OBJECT

public:
    explicit PageList(QWidget *parent = nullptr);

    // False when there is no such page.
    bool select(const QString &pageId);
    QString selected() const;

    // Shows the pages that have all of the words, and says how many they are.
    int filter(const QString &words);

    // The first of the pages on show; empty when there is none.
    QString firstShown() const;

    // Height at which no entry is cut off.
    int fullHeight() const;

    bool showsFocus() const { return hasFocus() && m_keyboardUsed; }

Q_SIGNALS:
    void pageSelected(const QString &pageId);

protected:
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void wearTheme();
    void fill();

    bool m_keyboardUsed = false;
};
