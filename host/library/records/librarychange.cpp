// SPDX-License-Identifier: MIT
#include "host/library/records/librarychange.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>

// Beside the records, where their streaming is looked for.
static QDataStream& operator<<(QDataStream& stream, const TagRow& row)
{
    return stream << row.id << row.name << row.colorIndex << row.fileCount;
}

static QDataStream& operator>>(QDataStream& stream, TagRow& row)
{
    return stream >> row.id >> row.name >> row.colorIndex >> row.fileCount;
}

static QDataStream& operator<<(QDataStream& stream, const CategoryRow& row)
{
    return stream << row.id << row.name << row.tagCount;
}

static QDataStream& operator>>(QDataStream& stream, CategoryRow& row)
{
    return stream >> row.id >> row.name >> row.tagCount;
}

static QDataStream& operator<<(QDataStream& stream, const TagLink& link)
{
    return stream << link.categoryId << link.tagId;
}

static QDataStream& operator>>(QDataStream& stream, TagLink& link)
{
    return stream >> link.categoryId >> link.tagId;
}

namespace {

/// Stands before every stored change; goes up whenever the fields below change.
constexpr quint8 currentFormat = 1;

/// Every field, in the order stored.
template <typename Change, typename Visitor>
void forEachField(Change& change, Visitor visit)
{
    visit(change.tagsCreated);
    visit(change.tagsChanged);
    visit(change.tagsDeleted);
    visit(change.categoriesCreated);
    visit(change.categoriesRenamed);
    visit(change.categoriesRemoved);
    visit(change.linksAdded);
    visit(change.linksRemoved);
    visit(change.fileCountChanges);
    visit(change.filesChanged);
}

bool isNothing(bool value)
{
    return !value;
}

template <typename List>
bool isNothing(const List& list)
{
    return list.isEmpty();
}

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

bool LibraryChange::isEmpty() const
{
    bool empty = true;
    forEachField(*this, [&empty](const auto& field) { empty = empty && isNothing(field); });
    return empty;
}

QByteArray LibraryChange::toBytes() const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    stream << currentFormat;
    forEachField(*this, [&stream](const auto& field) { stream << field; });
    return bytes;
}

std::optional<LibraryChange> LibraryChange::fromBytes(const QByteArray& bytes)
{
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_5_15);
    quint8 format = 0;
    stream >> format;
    if (format != currentFormat)
        return std::nullopt;
    LibraryChange change;
    forEachField(change, [&stream](auto& field) { stream >> field; });
    if (stream.status() != QDataStream::Ok || !stream.atEnd())
        return std::nullopt;
    return change;
}
