// SPDX-License-Identifier: MIT
#include "host/library/database/tagtable.h"

#include "host/library/database/librarystatement.h"
#include "host/library/database/namecolumns.h"
#include "host/library/database/pairstatement.h"

#include <algorithm>

namespace {

TagRow readTag(const LibraryStatement& statement)
{
    return {statement.integer(0), statement.name(1, 2), int(statement.integer(3)), int(statement.integer(4))};
}

}  // namespace

QVector<TagRow> tagtable::tags(LibraryDatabase& database)
{
    LibraryStatement select(database,
                            "SELECT id, name, spelling, color, file_count FROM tags WHERE deleted IS NULL ORDER BY id");
    select.run();
    QVector<TagRow> rows;
    while (select.next())
        rows.append(readTag(select));
    return rows;
}

std::optional<TagRow> tagtable::tagById(LibraryDatabase& database, qint64 id)
{
    LibraryStatement select(database,
                            "SELECT id, name, spelling, color, file_count FROM tags WHERE id = ? AND deleted IS NULL");
    if (!select.run(id).next())
        return std::nullopt;
    return readTag(select);
}

qint64 tagtable::idByName(LibraryDatabase& database, const QString& name)
{
    LibraryStatement select(database, "SELECT id FROM tags WHERE name = ? AND deleted IS NULL");
    return select.run(namecolumns::key(name)).next() ? select.integer(0) : 0;
}

bool tagtable::exists(LibraryDatabase& database, qint64 id)
{
    return LibraryStatement(database, "SELECT 1 FROM tags WHERE id = ? AND deleted IS NULL").run(id).next();
}

TagRow tagtable::insertTag(LibraryDatabase& database, const QString& name, int colorIndex)
{
    LibraryStatement insert(database, "INSERT INTO tags (name, spelling, color) VALUES (?, ?, ?)");
    insert.run(namecolumns::key(name), namecolumns::spelling(name), colorIndex);
    return {insert.lastInsertId(), tagname::kept(name), colorIndex, 0};
}

void tagtable::updateName(LibraryDatabase& database, qint64 id, const QString& name)
{
    LibraryStatement update(database, "UPDATE tags SET name = ?, spelling = ? WHERE id = ?");
    update.run(namecolumns::key(name), namecolumns::spelling(name), id);
}

void tagtable::updateColor(LibraryDatabase& database, qint64 id, int colorIndex)
{
    LibraryStatement(database, "UPDATE tags SET color = ? WHERE id = ?").run(colorIndex, id);
}

void tagtable::markDeleted(LibraryDatabase& database, qint64 id, qint64 changeId)
{
    LibraryStatement(database, "UPDATE tags SET deleted = ? WHERE id = ?").run(changeId, id);
}

void tagtable::addToFileCount(LibraryDatabase& database, qint64 id, int more)
{
    LibraryStatement(database, "UPDATE tags SET file_count = file_count + ? WHERE id = ?").run(more, id);
}

void tagtable::addToFileCounts(LibraryDatabase& database, const QHash<qint64, int>& more)
{
    QVector<QPair<qint64, qint64>> pairs;
    pairs.reserve(more.size());
    for (auto count = more.cbegin(); count != more.cend(); ++count) {
        if (count.value() != 0)
            pairs.append({count.key(), count.value()});
    }
    std::sort(pairs.begin(), pairs.end());
    PairStatement(database, "UPDATE tags SET file_count = file_count + column2 FROM (VALUES ", ") WHERE id = column1")
        .run(pairs);
}

QVector<qint64> tagtable::deletedIds(LibraryDatabase& database)
{
    LibraryStatement select(database, "SELECT id FROM tags WHERE deleted IS NOT NULL");
    return select.run().integers();
}

qint64 tagtable::count(LibraryDatabase& database)
{
    LibraryStatement select(database, "SELECT count(*) FROM tags WHERE deleted IS NULL");
    return select.run().next() ? select.integer(0) : 0;
}

qint64 tagtable::linkCount(LibraryDatabase& database)
{
    LibraryStatement select(database, "SELECT ifnull(sum(file_count), 0) FROM tags WHERE deleted IS NULL");
    return select.run().next() ? select.integer(0) : 0;
}
