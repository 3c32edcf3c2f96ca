// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

/// Readings of the host can nest: the host may report a change from inside one, which has the same thing read again.
/// Tells whether a reading is the newest one of its \a Key; an older one must not be shown any more.
template <typename Key>
class NewestReading
{
public:
    void begin(const Key& key)
    {
        for (Reading& open : m_open)
            open.isOld = open.isOld || open.key == key;
        m_open.append({key, false});
    }
    /// Ends the reading that was begun last, unless the object is gone by then. Whether nobody has begun to read the
    /// same since.
    [[nodiscard]] bool end() { return !m_open.takeLast().isOld; }

private:
    struct Reading
    {
        Key key;
        bool isOld;
    };
    QVector<Reading> m_open;
};
