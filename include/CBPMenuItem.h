#pragma once

#include "LumQtGlobal.h"

#include <QAction>
#include <QIcon>
#include <QMenu>
#include <QPointer>
#include <QString>
#include <QVariant>
#include <QVector>

/// An item of a CBPMenu: an action whose data holds the caller's id.
///
/// CBPMenu::AddAction() makes them; the menu is their parent. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPMenuItem : public QAction
{
    Q_OBJECT

public:
    /// An item with an icon (which may be null). In \a text "&" marks the key that chooses the item, "&&" is
    /// an ampersand; \a data is returned by QAction::data(). \since 1.0
    CBPMenuItem(const QIcon &icon, const QString &text, const QVariant &data, QObject *parent = nullptr);

    /// An item with images for the states normal, hover, pressed and disabled (paths). With exactly four
    /// entries the first becomes the icon; with any other number the item has none. A file that is missing
    /// leaves the item without a picture. \since 1.0
    CBPMenuItem(const QVector<QString> &images, const QString &text, const QVariant &data,
                QObject *parent = nullptr);

    /// An item without an icon.
    /// \since 1.0
    CBPMenuItem(const QString &text, const QVariant &data, QObject *parent = nullptr);

    /// Remembers a menu that belongs to this item; null forgets it. The menu is neither owned nor shown by
    /// the item (see QAction::setMenu() for that). \since 1.0
    void setBindMenu(QMenu *menu) { m_bindMenu = menu; }

    /// The menu given to setBindMenu(); null when there is none or it was destroyed.
    /// \since 1.0
    QMenu *bindMenu() const { return m_bindMenu; }

private:
    friend class CBPMenu;

    void setIconFile(const QString &path);
    QString iconFile() const;

    QPointer<QMenu> m_bindMenu;
    QString m_iconFile;   // where the icon was read from
    qint64 m_iconKey = 0; // QIcon::cacheKey() of that icon
};
