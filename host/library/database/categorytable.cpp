// SPDX-License-Identifier: MIT
#include "host/library/database/categorytable.h"

#include "host/library/database/librarystatement.h"
#include "host/library/database/namecolumns.h"

namespace {

CategoryRow readCategory(const LibraryStatement& statement)
{
    return {statement.integer(0), statement.name(1, 2), int(statement.integer(3))};
}

void addToCount(LibraryDatabase& database, qint64 id, int more)
{
    LibraryStatement(database, "UPDATE categories SET tag_count = tag_count + ? WHERE id = ?").run(more, id);
}

}  // namespace

QVector<CategoryRow> categorytable::categories(LibraryDatabase& database)
{
    LibraryStatement select(database,
                            "SELECT id, name, spelling, tag_count FROM categories WHERE deleted IS NULL ORDER BY id");
    select.run();
    QVector<CategoryRow> rows;
    while (select.next())
        rows.append(readCategory(select));
    return rows;
}

QVector<TagLink> categorytable::links(LibraryDatabase& database)
{
    LibraryStatement select(database,
                            "SELECT category_id, tag_id FROM tag_categories WHERE tag_id NOT IN (SELECT id FROM tags"
                            " WHERE deleted IS NOT NULL) AND category_id NOT IN (SELECT id FROM categories"
                            " WHERE deleted IS NOT NULL)");
    select.run();
    QVector<TagLink> links;
    while (select.next())
        links.append({select.integer(0), select.integer(1)});
    return links;
}

std::optional<CategoryRow> categorytable::categoryById(LibraryDatabase& database, qint64 id)
{
    LibraryStatement select(database,
                            "SELECT id, name, spelling, tag_count FROM categories WHERE id = ? AND deleted IS NULL");
    if (!select.run(id).next())
        return std::nullopt;
    return readCategory(select);
}

qint64 categorytable::idByName(LibraryDatabase& database, const QString& name)
{
    LibraryStatement select(database, "SELECT id FROM categories WHERE name = ? AND deleted IS NULL");
    return select.run(namecolumns::key(name)).next() ? select.integer(0) : 0;
}

bool categorytable::exists(LibraryDatabase& database, qint64 id)
{
    return LibraryStatement(database, "SELECT 1 FROM categories WHERE id = ? AND deleted IS NULL").run(id).next();
}

QVector<qint64> categorytable::categoriesOf(LibraryDatabase& database, qint64 tagId)
{
    LibraryStatement select(database, "SELECT category_id FROM tag_categories JOIN categories ON categories.id ="
                                      " category_id WHERE tag_id = ? AND deleted IS NULL");
    return select.run(tagId).integers();
}

CategoryRow categorytable::insertCategory(LibraryDatabase& database, const QString& name)
{
    LibraryStatement insert(database, "INSERT INTO categories (name, spelling) VALUES (?, ?)");
    insert.run(namecolumns::key(name), namecolumns::spelling(name));
    return {insert.lastInsertId(), tagname::kept(name), 0};
}

void categorytable::updateName(LibraryDatabase& database, qint64 id, const QString& name)
{
    LibraryStatement update(database, "UPDATE categories SET name = ?, spelling = ? WHERE id = ?");
    update.run(namecolumns::key(name), namecolumns::spelling(name), id);
}

void categorytable::markDeleted(LibraryDatabase& database, qint64 id, qint64 changeId)
{
    LibraryStatement(database, "UPDATE categories SET deleted = ? WHERE id = ?").run(changeId, id);
}

bool categorytable::addTag(LibraryDatabase& database, const TagLink& link)
{
    LibraryStatement insert(database,
                            "INSERT INTO tag_categories (category_id, tag_id) VALUES (?, ?) ON CONFLICT DO NOTHING");
    if (insert.run(link.categoryId, link.tagId).rowsChanged() == 0)
        return false;
    addToCount(database, link.categoryId, 1);
    return true;
}

bool categorytable::removeTag(LibraryDatabase& database, const TagLink& link)
{
    LibraryStatement remove(database, "DELETE FROM tag_categories WHERE category_id = ? AND tag_id = ?");
    if (remove.run(link.categoryId, link.tagId).rowsChanged() == 0)
        return false;
    addToCount(database, link.categoryId, -1);
    return true;
}

void categorytable::addToCountsOf(LibraryDatabase& database, qint64 tagId, int more)
{
    LibraryStatement(database, "UPDATE categories SET tag_count = tag_count + ? WHERE id IN"
                               " (SELECT category_id FROM tag_categories WHERE tag_id = ?)")
        .run(more, tagId);
}
