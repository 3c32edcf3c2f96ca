// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>

/// Readings of the host can nest: the host may report a change from inside one, which has the same thing read again.
/// Tells whether a reading is the newest one of its \a Key; an older one must not be shown any more.
template <typename Key>
class NewestReading
{
public:
    /// The reading's number, to be handed to end() unless the object is gone by then.
    [[nodiscard]] int begin(const Key& key)
    {
        ++m_openCount;
        return ++m_numbers[key];
    }
    /// Whether nobody has begun to read the same since.
    [[nodiscard]] bool end(const Key& key, int number)
    {
        const bool isNewest = m_numbers.value(key) == number;
        if (--m_openCount == 0)
            m_numbers.clear();
        return isNewest;
    }

private:
    QHash<Key, int> m_numbers;
    int m_openCount = 0;
};
