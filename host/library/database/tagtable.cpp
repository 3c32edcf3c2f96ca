// SPDX-License-Identifier: MIT
#include "host/library/database/tagtable.h"

#include "host/library/database/librarystatement.h"
#include "host/library/database/namecolumns.h"

namespace {

TagRow readTag(const LibraryStatement& statement)
{
    return {statement.integer(0), statement.name(1, 2), int(statement.integer(3)), int(statement.integer(4))};
}

std::optional<TagRow> readOne(LibraryStatement& statement)
{
    if (!statement.next())
        return std::nullopt;
    return readTag(statement);
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

std::optional<TagRow> tagtable::tagByName(LibraryDatabase& database, const QString& name)
{
    LibraryStatement select(
        database, "SELECT id, name, spelling, color, file_count FROM tags WHERE name = ? AND deleted IS NULL");
    return readOne(select.run(namecolumns::key(name)));
}

std::optional<TagRow> tagtable::tagById(LibraryDatabase& database, qint64 id)
{
    LibraryStatement select(database,
                            "SELECT id, name, spelling, color, file_count FROM tags WHERE id = ? AND deleted IS NULL");
    return readOne(select.run(id));
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
