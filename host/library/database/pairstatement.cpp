// SPDX-License-Identifier: MIT
#include "host/library/database/pairstatement.h"

#include "host/library/database/librarystatement.h"

#include <algorithm>

namespace {

/// Two texts for each use, so that both stay prepared.
constexpr int pairsAtOnce[] = {50, 1};

}  // namespace

PairStatement::PairStatement(LibraryDatabase& database, const char* before, const char* after)
    : m_database(database)
    , m_before(before)
    , m_after(after)
{
}

void PairStatement::run(const QVector<QPair<qint64, qint64>>& pairs)
{
    auto next = pairs.cbegin();
    for (const int atOnce : pairsAtOnce) {
        if (pairs.cend() - next < atOnce)
            continue;
        const QByteArray text = textFor(atOnce);
        LibraryStatement statement(m_database, text.constData());
        QVector<qint64> values(2 * atOnce);
        while (pairs.cend() - next >= atOnce) {
            for (auto value = values.begin(); value != values.end(); ++next) {
                *value++ = next->first;
                *value++ = next->second;
            }
            (void)statement.runWith(values);
        }
    }
}

QByteArray PairStatement::textFor(int pairs) const
{
    return m_before + QByteArray("(?, ?), ").repeated(pairs - 1) + "(?, ?)" + m_after;
}
