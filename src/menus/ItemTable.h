#pragma once

#include "foundation/QtCompat.h"

#include <QHash>
#include <QPair>
#include <QString>
#include <QVariant>
#include <QVector>

namespace lumqt {

// What a menu keeps by the data of its items. Data of different types may be equal, such as 5 and "5", and
// there is neither an order nor a hash that knows. As long as all are numbers of the type int, or all are
// texts, as in most menus, an entry is found by a hash all the same, else by a look at each.
template <class Value> class ItemTable
{
public:
    // Null if there is none.
    const Value *find(const QVariant &itemData) const
    {
        const int place = placeOf(itemData);
        return place < 0 ? nullptr : &m_entries.at(place).second;
    }

    void set(const QVariant &itemData, const Value &value)
    {
        const int place = placeOf(itemData);
        if (place >= 0) {
            m_entries[place].second = value;
            return;
        }
        if (m_entries.isEmpty()) {
            m_type = itemData.userType();
        } else if (m_type != itemData.userType()) {
            m_type = QMetaType::UnknownType;
            m_places.clear(); // or they would be those of others when the last entry has gone
        }
        if (isHashed())
            m_places.insert(itemData.toString(), int(m_entries.size()));
        m_entries.append(qMakePair(itemData, value));
    }

    void remove(const QVariant &itemData)
    {
        const int place = placeOf(itemData);
        if (place < 0)
            return;
        if (!isHashed()) {
            m_entries.remove(place);
            return;
        }
        m_places.remove(itemData.toString());
        const auto last = m_entries.takeLast(); // takes its place: no two of them are equal
        if (place == m_entries.size())
            return;
        m_entries[place] = last;
        m_places[last.first.toString()] = place;
    }

    void clear()
    {
        m_entries.clear();
        m_places.clear();
    }

private:
    bool isHashed() const { return m_type == QMetaType::Int || m_type == QMetaType::QString; }

    int placeOf(const QVariant &itemData) const
    {
        if (isHashed() && itemData.userType() == m_type)
            return m_places.value(itemData.toString(), -1);
        for (int i = 0; i < m_entries.size(); ++i) {
            if (sameValue(m_entries.at(i).first, itemData))
                return i;
        }
        return -1;
    }

    QVector<QPair<QVariant, Value>> m_entries;
    int m_type = QMetaType::UnknownType; // of all data; unknown where they differ
    QHash<QString, int> m_places;        // by data as text
};

// The pictures and the badges of a menu's items.
struct ItemTables
{
    ItemTable<QVector<QString>> pictures; // by state
    ItemTable<QString> flags;             // files; empty: a dot
};

} // namespace lumqt
