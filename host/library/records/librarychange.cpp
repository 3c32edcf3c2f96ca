// SPDX-License-Identifier: MIT
#include "host/library/records/librarychange.h"

#include <algorithm>

namespace {

using Pieces = QVector<LibraryChange>;

/// Hands out the last piece, and a new one when that is full.
class PieceFiller
{
public:
    explicit PieceFiller(int most)
        : m_most(most)
    {
    }

    template <typename List>
    void pour(const List& list, List LibraryChange::*part)
    {
        for (int from = 0; from < list.size();) {
            LibraryChange& piece = next();
            const int count = std::min(list.size() - from, m_most - m_filled);
            piece.*part = list.mid(from, count);
            m_filled += count;
            from += count;
        }
    }
    void pourCounts(const QHash<qint64, int>& counts)
    {
        for (auto count = counts.cbegin(); count != counts.cend(); ++count, ++m_filled)
            next().fileCountChanges.insert(count.key(), count.value());
    }
    Pieces take() { return std::move(m_pieces); }

private:
    LibraryChange& next()
    {
        if (m_pieces.isEmpty() || m_filled == m_most) {
            m_pieces.append(LibraryChange());
            m_filled = 0;
        }
        return m_pieces.last();
    }

    int m_most;
    int m_filled = 0;
    Pieces m_pieces;
};

}  // namespace

QVector<LibraryChange> LibraryChange::inPieces(int most) const
{
    PieceFiller filler(most);
    filler.pour(categoriesCreated, &LibraryChange::categoriesCreated);
    filler.pour(categoriesRenamed, &LibraryChange::categoriesRenamed);
    filler.pour(tagsCreated, &LibraryChange::tagsCreated);
    filler.pour(tagsChanged, &LibraryChange::tagsChanged);
    filler.pourCounts(fileCountChanges);
    filler.pour(linksAdded, &LibraryChange::linksAdded);
    filler.pour(linksRemoved, &LibraryChange::linksRemoved);
    filler.pour(tagsDeleted, &LibraryChange::tagsDeleted);
    filler.pour(categoriesRemoved, &LibraryChange::categoriesRemoved);
    QVector<LibraryChange> pieces = filler.take();
    if (pieces.isEmpty() && filesChanged)
        pieces.append(LibraryChange());
    if (filesChanged)
        pieces.last().filesChanged = true;
    return pieces;
}
